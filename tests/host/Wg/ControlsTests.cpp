#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ControlRecorder.hpp"
#include "RecordingPeer.hpp"
#include "Wg/Controls.hpp"
#include "Wg/Panel.hpp"
#include "Wg/UserControl.hpp"

namespace {

// A popup control as the user-controls library builds one: it opens, follows the pointer over
// entries and ends with a choice or a cancel.
class PopupLike : public Wg::UserControl {
public:
    using Wg::UserControl::UserControl;
    using Wg::UserControl::BeginTracking;
    using Wg::UserControl::TrackValue;
    using Wg::UserControl::EndTracking;
};

class ControlsTest : public ::testing::Test {
protected:
    Wg::Panel                    panel;
    std::string                  log;
    TestSupport::ControlRecorder recorder {log};
    TestSupport::RecordingPeer   peer;
};

TEST_F (ControlsTest, BarControlClampsAndReportsEveryDragAndRelease)
{
    Wg::BarControl bar (panel, Wg::Rect (0, 0, 100, 20));
    bar.Attach (recorder);
    peer.AttachTo (bar);
    bar.UserDrag (40);
    bar.UserDrag (150);
    // A release where the last drag left the thumb still ends the drag.
    bar.UserRelease (120);
    bar.UserRelease (-5);
    EXPECT_EQ (recorder.Take (), "Track:40 Track:100 Bar:100 Bar:0");
    EXPECT_EQ (peer.TakeLog (), "Value Value Value");

    bar.SetValue (10);
    bar.SetMin (20);
    bar.SetMin (20);
    EXPECT_EQ (bar.GetValue (), 20);
    bar.SetMax (15);
    EXPECT_EQ (bar.GetValue (), 15);
    EXPECT_EQ (peer.TakeLog (), "Value Bounds Value Bounds Value");
    EXPECT_EQ (recorder.Take (), "");
}

TEST_F (ControlsTest, DisabledOrHiddenControlsIgnoreTheUser)
{
    Wg::BarControl bar (panel, Wg::Rect (0, 0, 100, 20));
    Wg::ButtonItem button (panel, Wg::Rect (0, 20, 100, 40));
    Wg::CheckItem check (panel, Wg::Rect (0, 40, 100, 60));
    bar.Attach (recorder);
    button.Attach (recorder);
    check.Attach (recorder);
    bar.Disable ();
    button.Disable ();
    check.Hide ();
    bar.UserDrag (50);
    bar.UserRelease (50);
    button.UserPress ();
    check.UserToggle ();
    EXPECT_EQ (bar.GetValue (), 0);
    EXPECT_FALSE (check.IsChecked ());
    EXPECT_EQ (recorder.Take (), "");
    button.Enable ();
    button.UserPress ();
    EXPECT_EQ (recorder.Take (), "Click");
}

TEST_F (ControlsTest, CheckItemsToggleOnlyByTheUserNotify)
{
    Wg::CheckItem check (panel, Wg::Rect (0, 0, 100, 20));
    Wg::PushCheck push (panel, Wg::Rect (0, 20, 100, 40));
    check.Attach (recorder);
    push.Attach (recorder);
    peer.AttachTo (check);
    check.UserToggle ();
    check.SetState (false);
    check.Check ();
    check.Check ();
    check.UserToggle ();
    push.UserPress ();
    push.UserPress ();
    EXPECT_EQ (recorder.Take (), "Check:on Check:off Check:on Check:off");
    EXPECT_EQ (peer.TakeLog (), "Value Value Value Value");
}

TEST_F (ControlsTest, SettersTellThePeerOnlyAboutChanges)
{
    Wg::ButtonItem button (panel, Wg::Rect (0, 0, 100, 20));
    Wg::PushCheck push (panel, Wg::Rect (0, 20, 100, 40));
    Wg::IconItem icon (panel, Wg::Rect (0, 40, 100, 60));
    Wg::LeftText text (panel, Wg::Rect (0, 60, 100, 80));
    for (Wg::Item* item : panel.GetItems ()) peer.AttachTo (*item);
    peer.SetNameItems (true);
    const Wg::Icon image (Wg::Icon::StockModule, Wg::Icon::StockCheckOn);
    for (int round = 0; round < 2; ++round) {
        button.SetText ("OK");
        button.SetIcon (image);
        push.SetText ("More");
        push.SetAlignment (Wg::PushCheck::AlignLeft);
        push.SetArrowType (Wg::PushCheck::DownArrow);
        push.SetIcon (image);
        icon.SetIcon (image);
        text.SetText ("Label");
    }
    // Unknown enumerators are ignored.
    push.SetAlignment (9);
    push.SetArrowType (-1);
    EXPECT_EQ (push.GetAlignment (), Wg::PushCheck::AlignLeft);
    EXPECT_EQ (push.GetArrowType (), Wg::PushCheck::DownArrow);
    EXPECT_EQ (peer.TakeLog (), "1:Text 1:Content 2:Text 2:Content 2:Content 2:Content 3:Content 4:Text");
}

TEST_F (ControlsTest, UserControlTrackingSendsTheDocumentedSequence)
{
    PopupLike popup (panel, Wg::Rect (0, 0, 100, 20));
    popup.Attach (recorder);
    popup.SetValue (2);
    EXPECT_EQ (recorder.Take (), "");

    popup.BeginTracking ();
    EXPECT_TRUE (popup.IsTracking ());
    popup.TrackValue (3);
    popup.TrackValue (0);
    popup.EndTracking (true, 5);
    EXPECT_FALSE (popup.IsTracking ());
    EXPECT_EQ (recorder.Take (), "Enter:2 Track:3 Track:0 Track:5 Exit:5 Changed:5");

    // A cancel puts the previous choice back and still ends with a final track.
    popup.BeginTracking ();
    popup.TrackValue (4);
    popup.EndTracking (false, 4);
    EXPECT_EQ (popup.GetValue (), 5);
    EXPECT_EQ (recorder.Take (), "Enter:5 Track:4 Track:5 Exit:5");

    // Outside tracking, track steps mean nothing.
    popup.TrackValue (7);
    popup.EndTracking (true, 7);
    EXPECT_EQ (popup.GetValue (), 5);
    EXPECT_EQ (recorder.Take (), "");
}

TEST_F (ControlsTest, ObserversMayDestroyControlsWhileTheyNotify)
{
    auto popup = std::make_unique<PopupLike> (panel, Wg::Rect (0, 0, 100, 20));
    popup->Attach (recorder);
    popup->BeginTracking ();
    recorder.action = [&] { popup.reset (); };
    popup->EndTracking (true, 3);
    EXPECT_EQ (popup, nullptr);
    EXPECT_EQ (recorder.Take (), "Enter:0 Track:3");

    auto bar = std::make_unique<Wg::BarControl> (panel, Wg::Rect (0, 0, 100, 20));
    bar->Attach (recorder);
    recorder.action = [&] { bar.reset (); };
    bar->UserRelease (30);
    EXPECT_EQ (bar, nullptr);
    EXPECT_EQ (recorder.Take (), "Bar:30");
    EXPECT_TRUE (panel.GetItems ().empty ());
}

}   // namespace
