// The Qt popup of the attribute pickers: the pointer over a line tracks that attribute, a
// click chooses it, and long lists continue in a second column.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>
#include <memory>
#include <string>

#include "AttributePickerPopupView.hpp"
#include "TxAC/AttributePickerPopUp.hpp"
#include "TxAttr/Attributes.hpp"
#include "TxAttr/SampleAttributeSet.hpp"
#include "TxalQt/Backend.hpp"

namespace {

// "track(4) track(-) chose(4)": what the popup told its observer.
class PopUpLog : public TxAC::AttributePickerPopUpObserver {
public:
    void TrackedAttributeChanged (const TxAC::AttributePickerTrackEvent& event) override
    {
        const auto tracked = event.GetTrackedAttributeIndex ();
        Add ("track(" + (tracked ? std::to_string (tracked->GetValue ()) : std::string ("-")) + ")");
    }
    void SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp&, const ADB::AttributeIndex& index) override
    {
        Add ("chose(" + std::to_string (index.GetValue ()) + ")");
    }
    std::string log;

private:
    void Add (const std::string& entry) { log += (log.empty () ? "" : " ") + entry; }
};

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

}   // namespace
