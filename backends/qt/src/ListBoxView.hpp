#pragma once
// TxalQt::ListBoxView: the peer of a Wg::ListBox. One widget paints what is in view: the frame,
// the header, and every row in view through ListBox::PaintRow replayed with QPainter, then the
// overlay. A real QScrollBar mirrors the scroll position. Presses, double clicks, wheel turns,
// header drags, keys and tool tip requests become the list box's entry points.
//
// Coordinates: the widget lies at the list box's rectangle; the rows' area is the model's
// GetRowsRect less that rectangle's top-left, and list-box pixels count from its top-left.

#include <QScrollBar>
#include <QWidget>

#include "Gfx/DrawingContext.hpp"
#include "PeerBase.hpp"
#include "Wg/ListBox.hpp"

namespace TxalQt {

class ListBoxView : public QWidget, public PeerBase {
public:
    ListBoxView (PanelView& view, Wg::ListBox& listBox);

    // Null once the list box is gone.
    Wg::ListBox* GetListBox () const;
    // Areas in widget coordinates.
    QRect GetRowsRect () const;
    QRect GetHeaderRect () const;
    QScrollBar& GetScrollBar () { return *scrollBar; }

    // Scrolls by the wheel's turn (also for wheels turned over controls on the rows).
    void ScrollByWheel (QWheelEvent& event);
    // Paints the whole widget into painter (what paintEvent does, for a benchmark or a test).
    void PaintInto (QPainter& painter, const QRect& dirty);

protected:
    // --- PeerBase ---
    void  Mirror (Wg::Aspect aspect, int detail) override;
    void  MirrorAll () override;
    bool  KeyNotUsed (QKeyEvent& event) override;
    short GetToolTipSubItem (const QPoint& position) const override;

    // --- QWidget ---
    bool event (QEvent* event) override;
    void paintEvent (QPaintEvent* event) override;
    void mousePressEvent (QMouseEvent* event) override;
    void mouseMoveEvent (QMouseEvent* event) override;
    void mouseReleaseEvent (QMouseEvent* event) override;
    void mouseDoubleClickEvent (QMouseEvent* event) override;
    void wheelEvent (QWheelEvent* event) override;

private:
    // The row under a widget position and the offset in list-box pixels; false over no row.
    bool FindRow (const QPoint& position, short& row, Wg::Point& offset) const;
    void SyncScrollBar ();
    void PaintRows (QPainter& painter, const QRect& dirty);
    void UpdateDividerCursor (const QPoint& position);

    QScrollBar*         scrollBar;
    Gfx::DrawingContext recording;
    short               draggedHeaderItem = 0;
    int                 dragStartX = 0;
    int                 dragStartSize = 0;
    int                 wheelRemainder = 0;
    // A paint came while the model suspended drawing: it is made again on resume.
    bool                paintSkipped = false;
};

}   // namespace TxalQt
