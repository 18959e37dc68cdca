#include "Pk/TrackingControl.hpp"

#include "Pk/TrackingSession.hpp"
#include "Wg/ModalRunner.hpp"

namespace Pk {

void TrackingControl::ShowAndTrackPopup ()
{
    // One popup at a time: an observer that asks again while tracking is ignored.
    if (!IsEnabled () || IsTracking ()) return;
    std::unique_ptr<TrackingSession> session = CreateSession ();
    if (session == nullptr) return;
    Wg::RunModal (*session);
    // The control may be gone now: nothing below may touch it.
}

void TrackingControl::UserPress ()
{
    if (!IsVisible ()) return;
    ShowAndTrackPopup ();
}

}   // namespace Pk
