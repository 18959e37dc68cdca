#include "ListBoxView.hpp"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <limits>

#include "InputScope.hpp"
#include "ListBoxHeader.hpp"
#include "Replay.hpp"
#include "Theme.hpp"
#include "TxalQt/PanelView.hpp"

// Input of the list box view:
//   press on a row            -> ListBox::Click (row, offset)
//   double click on a row     -> ListBox::DoubleClick (row, offset)   (the first press was a Click)
//   press and drag a divider  -> ListBox::UserResizeHeaderItem, live on every move
//   wheel, scroll bar         -> ListBox::UserScroll
//   key press                 -> Panel::KeyPress (PeerBase)
//   tool tip                  -> Item::RequestToolTip (row)
// Painting: frame, header (ListBoxHeader), rows in view via ListBox::PaintRow, overlay via
// ListBox::PaintOverlay; each recording is replayed by Replay.

namespace TxalQt {

namespace {

// Rows scrolled by one notch of a mouse wheel.
constexpr int WheelRowsPerNotch = 3;
// Qt reports wheel turns in eighths of a degree; a notch is 15 degrees.
constexpr int WheelDeltaPerNotch = 120;

QRect ToQRect (const Wg::Rect& rect)
{
    return QRect (rect.left, rect.top, rect.GetWidth (), rect.GetHeight ());
}

short ClampToShort (int value)
{
    return static_cast<short> (std::clamp<int> (value, 0, std::numeric_limits<short>::max ()));
}

}   // namespace

ListBoxView::ListBoxView (PanelView& view, Wg::ListBox& listBox)
    : QWidget (&view), PeerBase (view, listBox, *this), scrollBar (new QScrollBar (Qt::Vertical, this))
{
    // The model decides the focus of a click (a click on the row of a focused edit keeps it
    // there); Tab may still bring the keyboard here.
    setFocusPolicy (Qt::TabFocus);
    setMouseTracking (true);
    setAttribute (Qt::WA_OpaquePaintEvent);
    scrollBar->setFocusPolicy (Qt::NoFocus);
    QObject::connect (scrollBar, &QScrollBar::valueChanged, this, [this] (int value) {
        Wg::ListBox* target = GetListBox ();
        if (target == nullptr || !GetView ().AcceptsInput ()) return;
        const InputScope scope;
        target->UserScroll (ClampToShort (value));
    });
}

Wg::ListBox* ListBoxView::GetListBox () const
{
    return static_cast<Wg::ListBox*> (GetItem ());
}

QRect ListBoxView::GetRowsRect () const
{
    const Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return QRect ();
    const Wg::Rect own = listBox->GetRect ();
    return ToQRect (listBox->GetRowsRect ().Offset (-own.left, -own.top));
}

QRect ListBoxView::GetHeaderRect () const
{
    const Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr || !listBox->HasHeader ()) return QRect ();
    const int frame = Wg::ListBox::FrameWidth;
    return QRect (frame, frame, width () - 2 * frame, listBox->GetHeaderHeight ());
}

// --- PeerBase ---

void ListBoxView::Mirror (Wg::Aspect aspect, int detail)
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    switch (aspect) {
        case Wg::Aspect::Rect:
        case Wg::Aspect::Visibility:
        case Wg::Aspect::Enabled:
        case Wg::Aspect::Layout:
        case Wg::Aspect::Rows:
        case Wg::Aspect::Scroll:
            SyncScrollBar ();
            update ();
            break;
        case Wg::Aspect::Row: {
            const short row = static_cast<short> (detail);
            const QRect rows = GetRowsRect ();
            const Wg::Rect rowRect = listBox->GetItemRect (row);
            if (!rowRect.IsEmpty ()) update (ToQRect (rowRect).translated (rows.topLeft ()).intersected (rows));
            break;
        }
        case Wg::Aspect::Draw:
            // A resume sent what changed meanwhile as Row or Rows already; only a paint that
            // was skipped while suspended, or a request to redraw everything, is made here.
            if (!listBox->IsDrawEnabled ()) break;
            if (detail == Wg::ListBox::RedrawAll || paintSkipped) {
                paintSkipped = false;
                update ();
            }
            break;
        default:
            update ();
            break;
    }
}

void ListBoxView::MirrorAll ()
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    SyncScrollBar ();
    update ();
}

bool ListBoxView::KeyNotUsed (QKeyEvent& event)
{
    // The list box has no keys of its own beyond the model's.
    event.ignore ();
    return true;
}

short ListBoxView::GetToolTipSubItem (const QPoint& position) const
{
    const Wg::ListBox* listBox = GetListBox ();
    short row = Wg::ListBox::NoRow;
    Wg::Point offset;
    if (listBox == nullptr || listBox->GetHelpStyle () != Wg::ListBox::ToolTipHelp || !FindRow (position, row, offset)) return -1;
    return row;
}

// --- Geometry ---

bool ListBoxView::FindRow (const QPoint& position, short& row, Wg::Point& offset) const
{
    const Wg::ListBox* listBox = GetListBox ();
    const QRect rows = GetRowsRect ();
    if (listBox == nullptr || !rows.contains (position)) return false;
    const int y = position.y () - rows.top ();
    row = listBox->GetRowAt (y);
    if (row == Wg::ListBox::NoRow) return false;
    offset = Wg::Point (position.x () - rows.left (), y - listBox->GetItemRect (row).top);
    return true;
}

void ListBoxView::SyncScrollBar ()
{
    const Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    const bool hasBar = listBox->GetScrollType () == Wg::ListBox::VScroll;
    scrollBar->setVisible (hasBar);
    if (!hasBar) return;
    const QRect rows = GetRowsRect ();
    scrollBar->setGeometry (rows.right () + 1, rows.top (), Wg::ListBox::ScrollBarWidth, rows.height ());
    const int count = listBox->GetItemCount ();
    const int visible = std::max<int> (listBox->GetVisibleRowCount (), 1);
    const QSignalBlocker blocker (scrollBar);
    // Values are scroll positions: the first visible row, 1 .. count - visible + 1.
    scrollBar->setRange (count > 0 ? 1 : 0, count > 0 ? std::max (1, count - visible + 1) : 0);
    scrollBar->setPageStep (visible);
    scrollBar->setSingleStep (1);
    scrollBar->setValue (listBox->GetScrollPosition ());
    scrollBar->setEnabled (count > visible && listBox->IsEnabled ());
}

// --- Painting ---

void ListBoxView::paintEvent (QPaintEvent* event)
{
    // While the model suspends drawing, half-built rows stay off the screen: the widget paints
    // opaquely, so the last frame stays until the resume asks for this paint again.
    if (const Wg::ListBox* listBox = GetListBox (); listBox != nullptr && !listBox->IsDrawEnabled ()) {
        paintSkipped = true;
        return;
    }
    QPainter painter (this);
    PaintInto (painter, event->rect ());
}

void ListBoxView::PaintInto (QPainter& painter, const QRect& dirty)
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) {
        painter.fillRect (dirty, Theme::WindowColor);
        return;
    }
    // Owner drawing runs observers, which may even destroy the list box: a scope keeps this
    // widget alive until the paint is over.
    const InputScope scope;
    const bool focused = GetView ().GetPanel () != nullptr && listBox->IsFocused ();
    painter.fillRect (rect (), focused ? Theme::AccentColor : Theme::FrameColor);
    const QRect inside = rect ().adjusted (Wg::ListBox::FrameWidth, Wg::ListBox::FrameWidth, -Wg::ListBox::FrameWidth, -Wg::ListBox::FrameWidth);
    painter.fillRect (inside, Theme::BaseColor);
    const QRect rows = GetRowsRect ();
    if (listBox->HasHeader ()) ListBoxHeader::Paint (painter, *listBox, GetHeaderRect (), rows.left ());
    PaintRows (painter, dirty);
}

void ListBoxView::PaintRows (QPainter& painter, const QRect& dirty)
{
    const QRect rows = GetRowsRect ();
    const QRect area = rows.intersected (dirty);
    if (area.isEmpty ()) return;
    painter.save ();
    painter.translate (rows.topLeft ());
    const QRect local = area.translated (-rows.topLeft ());
    Replay replay (painter, local);
    Wg::ListBox* listBox = GetListBox ();
    const short first = listBox->GetScrollPosition ();
    if (first != Wg::ListBox::NoRow) {
        // Only the rows in the dirty area, so that the cost does not grow with the row count.
        const int height = std::max<int> (listBox->GetItemHeight (), 1);
        const int from = first + local.top () / height;
        const int to = std::min<int> (listBox->GetItemCount (), first + local.bottom () / height);
        for (int row = from; row <= to; ++row) {
            recording.Clear ();
            listBox->PaintRow (static_cast<short> (row), recording);
            listBox = GetListBox ();
            if (listBox == nullptr) break;
            replay.Play (recording);
        }
    }
    if (listBox != nullptr) {
        recording.Clear ();
        listBox->PaintOverlay (recording);
        if (GetListBox () != nullptr) replay.Play (recording);
    }
    recording.Clear ();
    painter.restore ();
}

// --- Input ---

bool ListBoxView::event (QEvent* event)
{
    return HandleEvent (*event) || QWidget::event (event);
}

void ListBoxView::mousePressEvent (QMouseEvent* event)
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr || !GetView ().AcceptsInput () || event->button () != Qt::LeftButton) {
        event->ignore ();
        return;
    }
    const QPoint position = event->position ().toPoint ();
    if (GetHeaderRect ().contains (position)) {
        const short item = ListBoxHeader::GetDividerAt (*listBox, position.x () - GetRowsRect ().left ());
        if (item > 0) {
            draggedHeaderItem = item;
            dragStartX = position.x ();
            dragStartSize = listBox->GetHeaderItemSize (item);
        }
        return;
    }
    short row = Wg::ListBox::NoRow;
    Wg::Point offset;
    if (!FindRow (position, row, offset)) return;
    const InputScope scope;
    listBox->Click (row, offset);
}

void ListBoxView::mouseMoveEvent (QMouseEvent* event)
{
    Wg::ListBox* listBox = GetListBox ();
    const QPoint position = event->position ().toPoint ();
    if (listBox == nullptr || !GetView ().AcceptsInput ()) return;
    if (draggedHeaderItem > 0) {
        const InputScope scope;
        listBox->UserResizeHeaderItem (draggedHeaderItem, ClampToShort (dragStartSize + position.x () - dragStartX));
        return;
    }
    UpdateDividerCursor (position);
}

void ListBoxView::mouseReleaseEvent (QMouseEvent* event)
{
    if (event->button () == Qt::LeftButton) draggedHeaderItem = 0;
    UpdateDividerCursor (event->position ().toPoint ());
}

void ListBoxView::mouseDoubleClickEvent (QMouseEvent* event)
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr || !GetView ().AcceptsInput () || event->button () != Qt::LeftButton) {
        event->ignore ();
        return;
    }
    short row = Wg::ListBox::NoRow;
    Wg::Point offset;
    if (!FindRow (event->position ().toPoint (), row, offset)) return;
    const InputScope scope;
    listBox->DoubleClick (row, offset);
}

void ListBoxView::wheelEvent (QWheelEvent* event)
{
    ScrollByWheel (*event);
}

void ListBoxView::ScrollByWheel (QWheelEvent& event)
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr || !GetView ().AcceptsInput () || listBox->GetItemCount () == 0) {
        event.ignore ();
        return;
    }
    event.accept ();
    // Touch pads report fractions of a notch: they add up.
    wheelRemainder += event.angleDelta ().y ();
    const int notches = wheelRemainder / WheelDeltaPerNotch;
    if (notches == 0) return;
    wheelRemainder -= notches * WheelDeltaPerNotch;
    const int target = std::max (1, listBox->GetScrollPosition () - notches * WheelRowsPerNotch);
    const InputScope scope;
    listBox->UserScroll (ClampToShort (target));
}

void ListBoxView::UpdateDividerCursor (const QPoint& position)
{
    const Wg::ListBox* listBox = GetListBox ();
    const bool overDivider = listBox != nullptr && GetHeaderRect ().contains (position) &&
                             ListBoxHeader::GetDividerAt (*listBox, position.x () - GetRowsRect ().left ()) > 0;
    if (overDivider || draggedHeaderItem > 0)
        setCursor (Qt::SplitHCursor);
    else
        unsetCursor ();
}

}   // namespace TxalQt
