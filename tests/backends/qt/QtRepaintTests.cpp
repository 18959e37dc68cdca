// What the list box view repaints after the model's drawing was suspended: the rows that
// changed, not the whole list, unless everything was asked for or a paint was missed meanwhile.

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QRegion>
#include <memory>
#include <string>

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

}   // namespace
