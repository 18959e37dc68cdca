#pragma once
// Pk::PopupControlSession: the menu session of a Pk::PopupControl. Its entries are the control's
// own (read when asked, so they always match the control); an entry's value is its number and
// the value over no entry is 0. A backend that shows its own menu drives the session with the
// steps of Pk::TrackingSession.

#include "Pk/PopupControl.hpp"
#include "Pk/TrackingSession.hpp"

namespace Pk {

class PopupControlSession : public TrackingSession {
public:
    explicit PopupControlSession (PopupControl& control);

    // The control, or null once it has been destroyed.
    PopupControl* GetPopupControl () const { return static_cast<PopupControl*> (GetControl ()); }

    // --- Wg::ModalSession ---
    Kind GetKind () const override { return Kind::Menu; }
    // The selected entry carries the check mark.
    std::vector<Wg::ModalEntry> GetEntries () const override;
    int GetInitialEntry () const override;

protected:
    // --- TrackingSession ---
    bool         IsSelectable (int entry) const override;
    std::int32_t GetEntryValue (int entry) const override { return entry; }
    std::int32_t GetValueOverNone () const override { return NoEntryValue; }

private:
    static constexpr std::int32_t NoEntryValue = 0;
};

}   // namespace Pk
