#pragma once
// Pk::TrackingSession: the modal session of a Pk::TrackingControl's popup. It turns the steps of
// a modal runner into the control's tracking protocol:
//   Begin      -> BeginTracking
//   Track(i)   -> TrackValue(value of entry i) for a selectable entry; Track(0) -> the value
//                 over no entry; other entries are ignored
//   Choose(i)  -> EndTracking(true, value of entry i) for a selectable entry, which ends the
//                 session; other choices are ignored and the session goes on
//   Cancel     -> EndTracking(false, the value before tracking), which ends the session
// Other steps are ignored. The session ends at once when the control is destroyed; it owns
// nothing and must not outlive the call that runs it.

#include <cstdint>

#include "Kor/LifeWatch.hpp"
#include "Pk/TrackingControl.hpp"
#include "Wg/ModalRunner.hpp"

namespace Pk {

class TrackingSession : public Wg::ModalSession {
public:
    // The control, or null once it has been destroyed.
    TrackingControl* GetControl () const { return controlLife.IsAlive () ? control : nullptr; }
    // The control's value when the session was made.
    std::int32_t GetValueBefore () const { return valueBefore; }

    // --- Wg::ModalSession ---
    Wg::Item* GetAnchor () const override { return GetControl (); }
    void      Begin () override;
    bool      Perform (const Wg::ModalStep& step) override;

protected:
    explicit TrackingSession (TrackingControl& control);

    // Whether entry (1-based) exists and can be tracked and chosen.
    virtual bool         IsSelectable (int entry) const = 0;
    // What choosing a selectable entry makes the control's value.
    virtual std::int32_t GetEntryValue (int entry) const = 0;
    // What the control's value is while the pointer is over no entry.
    virtual std::int32_t GetValueOverNone () const = 0;

private:
    void EndSession (bool chosen, std::int32_t chosenValue);

    TrackingControl* control;
    Kor::LifeWatch   controlLife;
    std::int32_t     valueBefore;
};

}   // namespace Pk
