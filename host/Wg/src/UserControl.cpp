#include "Wg/UserControl.hpp"

#include "ControlSupport.hpp"

// A popup run by a subclass:
//   BeginTracking                 -> TrackEntered
//   TrackValue (entry) ...        -> Tracked each
//   EndTracking (chosen, entry)   -> Tracked (final), TrackExited, Changed (chosen only)
// The state is settled before the first event of a step; an observer may destroy the control
// during any of them, and the rest of the sequence is then dropped.

namespace Wg {

UserControlChangeEvent::UserControlChangeEvent (UserControl* source) : ItemEvent (source) {}
UserControl* UserControlChangeEvent::GetSource () const { return static_cast<UserControl*> (ItemEvent::GetSource ()); }

UserControlTrackEvent::UserControlTrackEvent (UserControl* source) : ItemEvent (source) {}
UserControl* UserControlTrackEvent::GetSource () const { return static_cast<UserControl*> (ItemEvent::GetSource ()); }

void UserControlObserver::UserControlChanged (const UserControlChangeEvent&) {}
void UserControlObserver::UserControlTrackEntered (const UserControlTrackEvent&) {}
void UserControlObserver::UserControlTracked (const UserControlTrackEvent&) {}
void UserControlObserver::UserControlTrackExited (const UserControlTrackEvent&) {}

UserControl::UserControl (const Panel& panel, const Rect& rect, short id) : Item (panel, rect, id) {}

void UserControl::SetValue (std::int32_t newValue)
{
    if (newValue == value) return;
    value = newValue;
    NotifyPeer (Aspect::Value);
}

void UserControl::BeginTracking ()
{
    // A popup is open once at a time; a second begin would lose the value to restore.
    if (tracking) return;
    tracking = true;
    valueBeforeTracking = value;
    const UserControlTrackEvent event (this);
    NotifyObservers<UserControlObserver> ([&] (UserControlObserver& observer) { observer.UserControlTrackEntered (event); });
}

void UserControl::TrackValue (std::int32_t trackedValue)
{
    if (!tracking) return;
    SetValue (trackedValue);
    const UserControlTrackEvent event (this);
    NotifyObservers<UserControlObserver> ([&] (UserControlObserver& observer) { observer.UserControlTracked (event); });
}

void UserControl::EndTracking (bool chosen, std::int32_t chosenValue)
{
    if (!tracking) return;
    tracking = false;
    SetValue (chosen ? chosenValue : valueBeforeTracking);

    Kor::LifeWatch watch (*this);
    const UserControlTrackEvent trackEvent (this);
    NotifyObservers<UserControlObserver> ([&] (UserControlObserver& observer) { observer.UserControlTracked (trackEvent); });
    if (watch.IsGone ()) return;
    NotifyObservers<UserControlObserver> ([&] (UserControlObserver& observer) { observer.UserControlTrackExited (trackEvent); });
    if (watch.IsGone () || !chosen) return;
    const UserControlChangeEvent changeEvent (this);
    NotifyObservers<UserControlObserver> ([&] (UserControlObserver& observer) { observer.UserControlChanged (changeEvent); });
}

}   // namespace Wg
