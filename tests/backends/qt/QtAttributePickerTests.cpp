// The Qt popups of the pickers: in the attribute picker's list the pointer over a line tracks
// that attribute, a click chooses it, and long lists continue in a second column; in the grid of
// the pen/fill pickers only entries that can be picked track and choose.

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <memory>
#include <string>

#include "AttributePickerPopupView.hpp"
#include "PickerPopup.hpp"
#include "PickerPopUpLog.hpp"
#include "TxAC/AttributePickerPopUp.hpp"
#include "TxAttr/Attributes.hpp"
#include "TxAttr/SampleAttributeSet.hpp"
#include "TxalQt/Backend.hpp"

namespace {

using PopUpLog = TestSupport::PickerPopUpLog;

void Send (QWidget& widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button)
{
    QMouseEvent event (type, QPointF (at), QPointF (widget.mapToGlobal (at)), button, type == QEvent::MouseMove ? Qt::NoButton : button,
                       Qt::NoModifier);
    QApplication::sendEvent (&widget, &event);
}

TEST (QtAttributePickerTest, HoverTracksTheAttributeAndAClickChoosesIt)
{
    const std::shared_ptr<ADB::AttributeSet> sample = TxAttr::MakeSampleAttributeSet ();
    TxAC::FillPickerPopUp popUp ({}, Kor::NewOwner<TxAC::FillPickerData> (ODB::ConstRef<ADB::AttributeSet> (sample)),
                                 Kor::NewOwner<TxAC::FillPickerFilter> (0, ADB::InvalidAttributeIndex), ADB::AttributeIndex (3),
                                 TxAC::AttributePickerPopUp::DropBelowAnchor);
    PopUpLog log;
    popUp.Attach (log);
    std::string layout;
    TxalQt::Backend::InstallModalRunner ();
    QTimer::singleShot (0, [&layout] {
        auto* view = dynamic_cast<TxalQt::AttributePickerPopupView*> (QApplication::activePopupWidget ());
        if (view == nullptr) return;
        // 21 fills: twelve lines in the first column, the rest in the second.
        layout = std::to_string (view->GetLineRect (13).left () - view->GetLineRect (1).left ()) + " " +
                 std::to_string (view->GetLineRect (13).top () - view->GetLineRect (1).top ());
        Send (*view, QEvent::MouseMove, view->GetLineRect (14).center (), Qt::NoButton);
        Send (*view, QEvent::MouseMove, view->GetLineRect (4).center (), Qt::NoButton);
        Send (*view, QEvent::MouseButtonRelease, view->GetLineRect (4).center (), Qt::LeftButton);
    });
    popUp.InvokePopUp ();
    TxalQt::Backend::RemoveModalRunner ();
    EXPECT_EQ (layout, "250 0");
    EXPECT_EQ (log.log, "track(14) track(4) chose(4) track(-)");
}

TEST (QtAttributePickerTest, EscapeClosesWithoutAChoice)
{
    const std::shared_ptr<ADB::AttributeSet> sample = TxAttr::MakeSampleAttributeSet ();
    TxAC::LineTypePickerPopUp popUp ({}, Kor::NewOwner<TxAC::LineTypePickerData> (ODB::ConstRef<ADB::AttributeSet> (sample)),
                                     Kor::NewOwner<TxAC::LineTypePickerFilter> (0, ADB::InvalidAttributeIndex), ADB::AttributeIndex (2),
                                     TxAC::AttributePickerPopUp::DropBelowAnchor);
    PopUpLog log;
    popUp.Attach (log);
    TxalQt::Backend::InstallModalRunner ();
    QTimer::singleShot (0, [] {
        QWidget* view = QApplication::activePopupWidget ();
        if (view == nullptr) return;
        QKeyEvent down (QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QApplication::sendEvent (view, &down);
        QKeyEvent escape (QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent (view, &escape);
    });
    popUp.InvokePopUp ();
    TxalQt::Backend::RemoveModalRunner ();
    // Down from the preselected line type (2) moves to the third.
    EXPECT_EQ (log.log, "track(3) track(-)");
}

// A grid of five: a colour, a disabled one, a separator, and two more colours.
class PickerGridPopupTest : public ::testing::Test {
protected:
    static std::vector<Pk::PickerControl::Entry> MakeEntries ()
    {
        std::vector<Pk::PickerControl::Entry> entries (5);
        const char* names[] = {"Red", "Grey", "", "Blue", "Green"};
        for (std::size_t i = 0; i < entries.size (); ++i) {
            entries[i].value = static_cast<std::int32_t> (i + 1);
            entries[i].text = names[i];
            entries[i].hasColor = true;
        }
        entries[1].enabled = false;
        entries[2].separator = true;
        entries[2].hasColor = false;
        return entries;
    }

    // Opens a grid preselecting initial, lets steps act on it, and returns "chose(N)" after what
    // the track callback heard.
    std::string Run (int initial, const std::function<void (TxalQt::PickerPopup&)>& steps)
    {
        std::string log;
        TxalQt::PickerPopup* open = nullptr;
        TxalQt::PickerPopup grid (MakeEntries (), initial, true, [&log, &open, this] (int entry) {
            log += "track(" + std::to_string (entry) + ") ";
            if (entry == endSessionAt && open != nullptr) open->Dismiss ();
        });
        open = &grid;
        QTimer::singleShot (0, [&grid, &steps] {
            steps (grid);
            // Never leave the loop running when a step did not close the popup.
            if (grid.isVisible ()) grid.Dismiss ();
        });
        const int chosen = grid.Exec (QPoint (0, 0));
        return log + "chose(" + std::to_string (chosen) + ")";
    }

    static void Key (QWidget& target, int key)
    {
        QKeyEvent press (QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent (&target, &press);
    }

    // The track callback ends the session (as the runner does) when it hears this entry.
    int endSessionAt = -1;
};

TEST_F (PickerGridPopupTest, OnlyEntriesThatCanBePickedTrackAndChoose)
{
    bool openAfterDisabledClick = false;
    const std::string log = Run (1, [&openAfterDisabledClick] (TxalQt::PickerPopup& grid) {
        Send (grid, QEvent::MouseMove, grid.GetCellRect (2).center (), Qt::NoButton);
        Send (grid, QEvent::MouseMove, grid.GetCellRect (4).center (), Qt::NoButton);
        Send (grid, QEvent::MouseMove, grid.GetCellRect (3).center (), Qt::NoButton);
        Send (grid, QEvent::MouseButtonRelease, grid.GetCellRect (2).center (), Qt::LeftButton);
        openAfterDisabledClick = grid.isVisible ();
        Key (grid, Qt::Key_Return);
        Send (grid, QEvent::MouseMove, grid.GetCellRect (5).center (), Qt::NoButton);
        Send (grid, QEvent::MouseButtonRelease, grid.GetCellRect (5).center (), Qt::LeftButton);
    });
    EXPECT_TRUE (openAfterDisabledClick);
    EXPECT_EQ (log, "track(4) track(0) track(5) chose(5)");
}

TEST_F (PickerGridPopupTest, ArrowsStartAtThePreselectionAndEscapeOrAClickOutsideChooseNothing)
{
    EXPECT_EQ (Run (4, [] (TxalQt::PickerPopup& grid) {
                   Key (grid, Qt::Key_Right);
                   Key (grid, Qt::Key_Return);
               }),
               "track(5) chose(5)");
    // Left from the preselection onto the separator tracks none.
    EXPECT_EQ (Run (5, [] (TxalQt::PickerPopup& grid) {
                   Key (grid, Qt::Key_Left);
                   Key (grid, Qt::Key_Left);
                   Key (grid, Qt::Key_Escape);
               }),
               "track(4) track(0) chose(0)");
    EXPECT_EQ (Run (1, [] (TxalQt::PickerPopup& grid) {
                   Send (grid, QEvent::MouseMove, grid.GetCellRect (4).center (), Qt::NoButton);
                   Send (grid, QEvent::MouseButtonRelease, QPoint (grid.width () + 5, 1), Qt::LeftButton);
               }),
               "track(4) chose(0)");
}

TEST_F (PickerGridPopupTest, ASessionEndedWhileTrackingClosesWithoutAChoice)
{
    endSessionAt = 4;
    bool closedAtOnce = false;
    EXPECT_EQ (Run (1, [&closedAtOnce] (TxalQt::PickerPopup& grid) {
                   Send (grid, QEvent::MouseMove, grid.GetCellRect (4).center (), Qt::NoButton);
                   closedAtOnce = !grid.isVisible ();
               }),
               "track(4) chose(0)");
    EXPECT_TRUE (closedAtOnce);
}

}   // namespace
