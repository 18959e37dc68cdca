#include "Pk/TrackingSession.hpp"

namespace Pk {

// Every protocol call may end in an observer that destroys the control; the watch then reads
// null and the session ends without touching the control again.

TrackingSession::TrackingSession (TrackingControl& control) : control (&control), controlLife (control), valueBefore (control.GetValue ())
{
}

void TrackingSession::Begin ()
{
    TrackingControl* target = GetControl ();
    if (target == nullptr) {
        MarkEnded ();
        return;
    }
    target->BeginTracking ({});
    if (GetControl () == nullptr) MarkEnded ();
}

bool TrackingSession::Perform (const Wg::ModalStep& step)
{
    if (HasEnded ()) return true;
    TrackingControl* target = GetControl ();
    if (target == nullptr) {
        MarkEnded ();
        return true;
    }
    switch (step.op) {
        case Wg::ModalStep::Track:
            if (step.entry == 0)
                target->TrackValue ({}, GetValueOverNone ());
            else if (IsSelectable (step.entry))
                target->TrackValue ({}, GetEntryValue (step.entry));
            break;
        case Wg::ModalStep::Choose:
            // A separator, a disabled or a missing entry cannot be chosen: the popup stays open.
            if (IsSelectable (step.entry)) EndSession (true, GetEntryValue (step.entry));
            break;
        case Wg::ModalStep::Cancel:
            EndSession (false, valueBefore);
            break;
        default:
            break;
    }
    if (GetControl () == nullptr) MarkEnded ();
    return HasEnded ();
}

void TrackingSession::EndSession (bool chosen, std::int32_t chosenValue)
{
    // Ended before the last notifications, so that an observer who looks sees a closed popup.
    MarkEnded ();
    GetControl ()->EndTracking ({}, chosen, chosenValue);
}

}   // namespace Pk
