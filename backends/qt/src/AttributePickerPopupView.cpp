#include "AttributePickerPopupView.hpp"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "Replay.hpp"
#include "Strings.hpp"
#include "Theme.hpp"

namespace TxalQt {

namespace {

constexpr int LineHeight = 24;
constexpr int PreviewWidth = 72;
constexpr int PreviewInset = 3;
constexpr int TextGap = 8;
constexpr int TextWidth = 170;
constexpr int Margin = 4;
// Longer lists continue in further columns.
constexpr int LinesPerColumn = 12;
constexpr int ColumnWidth = PreviewWidth + TextGap + TextWidth;

}   // namespace

AttributePickerPopupView::AttributePickerPopupView (const TxAC::AttributePickerSession& session, std::function<void (int)> onTrack)
    : TrackingPopup (session.GetInitialEntry (), std::move (onTrack)), session (session)
{
    const int count = std::max (GetCount (), 1);
    const int columns = (count + LinesPerColumn - 1) / LinesPerColumn;
    const int lines = std::min (count, LinesPerColumn);
    setFixedSize (2 * Margin + columns * ColumnWidth, 2 * Margin + lines * LineHeight);
}

int AttributePickerPopupView::GetCount () const
{
    return static_cast<int> (session.GetAttributeIndices ().size ());
}

QRect AttributePickerPopupView::GetLineRect (int entry) const
{
    if (entry < 1 || entry > GetCount ()) return QRect ();
    const int column = (entry - 1) / LinesPerColumn;
    const int line = (entry - 1) % LinesPerColumn;
    return QRect (Margin + column * ColumnWidth, Margin + line * LineHeight, ColumnWidth, LineHeight);
}

int AttributePickerPopupView::GetEntryAt (const QPoint& position) const
{
    const int x = position.x () - Margin;
    const int y = position.y () - Margin;
    if (x < 0 || y < 0 || y >= LinesPerColumn * LineHeight) return 0;
    const int entry = (x / ColumnWidth) * LinesPerColumn + y / LineHeight + 1;
    return entry <= GetCount () ? entry : 0;
}

bool AttributePickerPopupView::IsSelectable (int entry) const
{
    return entry >= 1 && entry <= GetCount ();
}

void AttributePickerPopupView::paintEvent (QPaintEvent*)
{
    QPainter painter (this);
    PaintBackground (painter);
    const std::vector<Wg::ModalEntry> entries = session.GetEntries ();
    const std::vector<ADB::AttributeIndex>& indices = session.GetAttributeIndices ();
    for (int entry = 1; entry <= GetCount (); ++entry) {
        const QRect line = GetLineRect (entry);
        PaintHighlight (painter, line, entry);
        // The preview is drawn by the attribute controls into a recording, replayed here.
        Gfx::DrawingContext recording;
        const Gfx::Rect preview (line.left () + PreviewInset, line.top () + PreviewInset, line.left () + PreviewWidth - PreviewInset,
                                 line.bottom () + 1 - PreviewInset);
        session.GetPopUp ().DrawEntryPreview (indices[static_cast<std::size_t> (entry - 1)], recording, preview);
        painter.save ();
        Replay (painter, line).Play (recording);
        painter.restore ();

        const QRect text (line.left () + PreviewWidth + TextGap, line.top (), TextWidth, line.height ());
        painter.setPen (Theme::InkColor);
        const QString name = ToQString (entries[static_cast<std::size_t> (entry - 1)].text);
        painter.drawText (text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          painter.fontMetrics ().elidedText (name, Qt::ElideRight, text.width ()));
    }
}

void AttributePickerPopupView::mouseReleaseEvent (QMouseEvent* event)
{
    if (event->button () != Qt::LeftButton) return;
    const QPoint position = event->position ().toPoint ();
    // A click on no entry (or outside) closes without a choice.
    Close (rect ().contains (position) ? GetEntryAt (position) : 0);
}

void AttributePickerPopupView::keyPressEvent (QKeyEvent* event)
{
    switch (event->key ()) {
        // From the entry under the pointer, or else from the preselected one.
        case Qt::Key_Down: SetHovered (std::min (GetCount (), (GetHovered () != 0 ? GetHovered () : GetInitial ()) + 1)); break;
        case Qt::Key_Up: SetHovered (std::max (1, (GetHovered () != 0 ? GetHovered () : GetInitial () + 1) - 1)); break;
        case Qt::Key_Return:
        case Qt::Key_Enter: Close (GetHovered ()); break;
        case Qt::Key_Escape: Dismiss (); break;
        default: QWidget::keyPressEvent (event); break;
    }
}

}   // namespace TxalQt
