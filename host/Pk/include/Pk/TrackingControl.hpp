#pragma once
// Pk::TrackingControl: a user control whose popup is shown and tracked as a modal session
// (Pk::TrackingSession, run by Wg::RunModal). Only its session drives the tracking protocol of
// Wg::UserControl; the control's observers hear it as the host library sends it.

#include <cstdint>
#include <memory>

#include "Kor/Owner.hpp"
#include "Wg/UserControl.hpp"

namespace Pk {

class TrackingSession;

class TrackingControl : public Wg::UserControl {
public:
    using Wg::UserControl::UserControl;

    // Shows the popup and returns when it has closed. Ignored while the control is disabled,
    // already tracking, or has nothing to show. An observer may destroy the control meanwhile;
    // the caller must not assume that it still exists afterwards.
    void ShowAndTrackPopup ();

    // Entry point: the user pressed the control's button (ignored while hidden or disabled).
    void UserPress ();

    // --- The tracking protocol, for the control's session only ---
    void BeginTracking (Kor::Friend<TrackingSession>) { Wg::UserControl::BeginTracking (); }
    void TrackValue (Kor::Friend<TrackingSession>, std::int32_t trackedValue) { Wg::UserControl::TrackValue (trackedValue); }
    void EndTracking (Kor::Friend<TrackingSession>, bool chosen, std::int32_t chosenValue) { Wg::UserControl::EndTracking (chosen, chosenValue); }

protected:
    // A session for one showing of the popup; null when there is nothing to show.
    virtual std::unique_ptr<TrackingSession> CreateSession () = 0;
};

}   // namespace Pk
