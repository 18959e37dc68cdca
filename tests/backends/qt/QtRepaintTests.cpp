// What the list box view repaints after the model's drawing was suspended: the rows that
// changed, not the whole list, unless everything was asked for or a paint was missed meanwhile.

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QImage>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QRegion>
#include <QScreen>
#include <memory>
#include <string>

#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ValueItems.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace {

constexpr int Width = 300;
constexpr int Height = 400;
constexpr short RowCount = 30;

// Collects the region painted on a widget.
class PaintLog : public QObject {
public:
    QRegion painted;

protected:
    bool eventFilter (QObject* watched, QEvent* event) override
    {
        if (event->type () == QEvent::Paint) painted += static_cast<QPaintEvent*> (event)->region ();
        return QObject::eventFilter (watched, event);
    }
};

class RepaintTest : public ::testing::Test {
protected:
    void SetUp () override
    {
        listBox.SetTabFieldCount (2);
        listBox.SetTabFieldBeginEndPosition (1, 0, 150);
        listBox.SetTabFieldBeginEndPosition (2, 150, 280);
        for (short row = 1; row <= RowCount; ++row) {
            listBox.AppendItem ();
            listBox.SetTabItemText (row, 1, Kor::UniString::Printf ("Row %d", row));
        }
        view.reset (TxalQt::Backend::AttachPanel (panel, nullptr));
        view->resize (Width, Height);
        view->show ();
        view->SyncPeers ();
        widget = view->FindPeerWidget (listBox);
        ASSERT_NE (widget, nullptr);
        widget->installEventFilter (&log);
        // The first show paints more than once, in several turns of the event loop.
        constexpr int SettleTurns = 5;
        for (int turn = 0; turn < SettleTurns; ++turn) Painted ();
    }

    // "300x20": the size of what was painted since the last call, or "none".
    std::string Painted ()
    {
        QCoreApplication::processEvents ();
        const QRect bounds = log.painted.boundingRect ();
        log.painted = QRegion ();
        return bounds.isEmpty () ? "none" : std::to_string (bounds.width ()) + "x" + std::to_string (bounds.height ());
    }

    std::string Whole () const { return std::to_string (widget->width ()) + "x" + std::to_string (widget->height ()); }

    Wg::Panel                          panel {Wg::Rect (0, 0, Width, Height)};
    Wg::ListBox                        listBox {panel, Wg::Rect (0, 0, Width, Height)};
    std::unique_ptr<TxalQt::PanelView> view;
    QWidget*                           widget = nullptr;
    PaintLog                           log;
};

TEST_F (RepaintTest, AResumeRepaintsTheChangedRowOnly)
{
    const std::string row = std::to_string (listBox.GetItemWidth ()) + "x" + std::to_string (listBox.GetItemHeight ());
    listBox.DisableDraw ();
    listBox.SetTabItemText (5, 2, "changed");
    EXPECT_EQ (Painted (), "none");
    listBox.EnableDraw ();
    EXPECT_EQ (Painted (), row);
    listBox.Redraw ();
    EXPECT_EQ (Painted (), Whole ());
}

TEST_F (RepaintTest, APaintMissedWhileSuspendedIsMadeOnResume)
{
    listBox.DisableDraw ();
    widget->repaint ();
    listBox.EnableDraw ();
    EXPECT_EQ (Painted (), Whole ());
    // Nothing missed, nothing changed: nothing to paint.
    listBox.DisableDraw ();
    listBox.EnableDraw ();
    EXPECT_EQ (Painted (), "none");
}

// Each keystroke in the name changes another row, as a value computed from others does.
class Dependent : public TxAL::AttributeListTextItemObserver {
public:
    explicit Dependent (TxAL::AttributeListRealItem& shown) : shown (shown) {}

protected:
    void TextChanged (const TxAL::AttributeListTextItem& item) override { shown.SetValue (static_cast<double> (item.GetText ().GetLength ())); }

private:
    TxAL::AttributeListRealItem& shown;
};

// What the window shows after typing, painted piece by piece, must be what a full repaint shows.
TEST (RepaintScreenTest, TypingLeavesTheScreenAsAFullRepaintWouldPaintIt)
{
    Wg::Panel panel (Wg::Rect (0, 0, Width, Height));
    TxAL::AttributeList list (panel, 0, 0, Width, Height);
    list.DisableUpdate ();
    TxAL::AttributeListGroupItem* group = list.CreateGroup ("Walls", Wg::Icon (), true, true);
    TxAL::AttributeListTextItem* name = group->CreateTextItem (false, "Name", Wg::Icon (), "Wall", false, true, false, true, false);
    TxAL::AttributeListRealItem* length = group->CreateRealItem (false, "Length", Wg::Icon (), 0.0, 100.0, 2.5, true, true, false);
    Dependent dependent (*length);
    name->Attach (dependent);
    list.EnableUpdate ();
    list.FullRefreshList (true);
    std::unique_ptr<TxalQt::PanelView> view (TxalQt::Backend::AttachPanel (panel, nullptr));
    view->resize (Width, Height);
    view->show ();
    view->SyncPeers ();
    name->Select (true);
    view->SyncPeers ();
    QCoreApplication::processEvents ();
    QWidget* edit = view->FindPeerWidget (list.GetOnTabItems ().GetTextEdit ());
    ASSERT_NE (edit, nullptr);
    auto screen = [&] {
        QCoreApplication::processEvents ();
        return view->screen ()->grabWindow (view->winId ()).toImage ();
    };
    screen ();
    for (const char* typed : {"s", " n", "orth"}) {
        for (const QChar ch : QString::fromLatin1 (typed)) {
            QKeyEvent press (QEvent::KeyPress, 0, Qt::NoModifier, QString (ch));
            QApplication::sendEvent (edit, &press);
        }
    }
    const QImage typedScreen = screen ();
    ASSERT_EQ (name->GetText ().ToUtf8 () + " " + std::to_string (length->GetValue ()), "Walls north 11.000000");
    // The list as a fresh paint draws it now, against what the window shows; the edit over
    // the selected row is no part of the list's own paint, so it is blanked in both.
    QWidget* listWidget = view->FindPeerWidget (list.GetListBox ());
    ASSERT_NE (listWidget, nullptr);
    const QRect listRect (listWidget->mapTo (view.get (), QPoint ()), listWidget->size ());
    const QRect editRect (edit->mapTo (view.get (), QPoint ()) - listRect.topLeft (), edit->size ());
    auto blanked = [&] (QImage image) {
        image = image.convertToFormat (QImage::Format_ARGB32);
        QPainter painter (&image);
        painter.fillRect (editRect, Qt::black);
        return image;
    };
    const QImage shown = blanked (typedScreen.copy (listRect));
    const QImage fresh = blanked (listWidget->grab ().toImage ());
    ASSERT_EQ (shown.size (), fresh.size ());
    EXPECT_TRUE (shown == fresh);
}

}   // namespace
