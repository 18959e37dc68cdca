#pragma once
// Wg::UserControl: the base of the user-controls library's controls (popup control, pen and
// pattern pickers). It holds an integer value and opaque user data; its events report choices
// and the tracking of an open popup.
//
// Tracking protocol of an opened popup, in this order:
//   UserControlTrackEntered            (value = the current choice)
//   UserControlTracked ...             (value = the entry under the pointer, 0 over none)
//   UserControlTracked                 (final: value = the chosen entry, or the previous choice
//                                        after a cancel)
//   UserControlTrackExited
//   UserControlChanged                 (only when an entry was chosen)

#include <cstdint>

#include "Wg/Item.hpp"

namespace Wg {

class UserControl;

class UserControlChangeEvent : public ItemEvent {
public:
    explicit UserControlChangeEvent (UserControl* source);
    UserControl* GetSource () const;
};

class UserControlTrackEvent : public ItemEvent {
public:
    explicit UserControlTrackEvent (UserControl* source);
    UserControl* GetSource () const;
};

class UserControlObserver : public virtual ItemObserver {
public:
    virtual void UserControlChanged (const UserControlChangeEvent& event);
    virtual void UserControlTrackEntered (const UserControlTrackEvent& event);
    virtual void UserControlTracked (const UserControlTrackEvent& event);
    virtual void UserControlTrackExited (const UserControlTrackEvent& event);
};

class UserControl : public Item {
public:
    UserControl (const Panel& panel, const Rect& rect, short id = 0);

    void Attach (UserControlObserver& observer) { Item::Attach (observer); }
    void Detach (UserControlObserver& observer) { Item::Detach (observer); }

    std::int32_t GetValue () const { return value; }
    // Never notifies.
    void SetValue (std::int32_t newValue);

    const void* GetUserData () const { return userData; }
    void        SetUserData (const void* data) { userData = data; }

    bool IsTracking () const { return tracking; }

protected:
    // For subclasses that run a popup: the protocol above.
    void BeginTracking ();
    void TrackValue (std::int32_t trackedValue);
    void EndTracking (bool chosen, std::int32_t chosenValue);

private:
    std::int32_t value = 0;
    std::int32_t valueBeforeTracking = 0;
    const void*  userData = nullptr;
    bool         tracking = false;
};

}   // namespace Wg
