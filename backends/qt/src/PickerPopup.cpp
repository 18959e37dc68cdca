#include "PickerPopup.hpp"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "IconCache.hpp"
#include "Strings.hpp"
#include "Theme.hpp"

namespace TxalQt {

namespace {

constexpr int CellSize = 20;
constexpr int SwatchInset = 3;
constexpr int MaxColumns = 16;
constexpr int Margin = 4;
constexpr int HeaderHeight = 22;
constexpr int HeaderPadding = 6;

QColor ToQColor (const Gfx::Color& color)
{
    return QColor (color.GetRed (), color.GetGreen (), color.GetBlue (), color.GetAlpha ());
}

}   // namespace

PickerPopup::PickerPopup (std::vector<Pk::PickerControl::Entry> pickerEntries, int initialEntry, bool showHeader, std::function<void (int)> onTrack)
    : TrackingPopup (initialEntry, std::move (onTrack)), entries (std::move (pickerEntries))
{
    const int count = std::max<int> (1, static_cast<int> (entries.size ()));
    columns = std::clamp (static_cast<int> (std::ceil (std::sqrt (count * 2.0))), 1, std::min (MaxColumns, count));
    const int rows = (count + columns - 1) / columns;
    headerHeight = showHeader ? HeaderHeight : 0;
    setFixedSize (2 * Margin + columns * CellSize, 2 * Margin + headerHeight + rows * CellSize);
}

QRect PickerPopup::GetCellRect (int entry) const
{
    if (entry < 1 || entry > static_cast<int> (entries.size ())) return QRect ();
    const int index = entry - 1;
    return QRect (Margin + (index % columns) * CellSize, Margin + headerHeight + (index / columns) * CellSize, CellSize, CellSize);
}

int PickerPopup::GetEntryAt (const QPoint& position) const
{
    const int x = position.x () - Margin;
    const int y = position.y () - Margin - headerHeight;
    if (x < 0 || y < 0 || x >= columns * CellSize) return 0;
    const int entry = (y / CellSize) * columns + x / CellSize + 1;
    return entry <= static_cast<int> (entries.size ()) ? entry : 0;
}

bool PickerPopup::IsSelectable (int entry) const
{
    if (entry < 1 || entry > static_cast<int> (entries.size ())) return false;
    const Pk::PickerControl::Entry& candidate = entries[static_cast<std::size_t> (entry - 1)];
    return candidate.enabled && !candidate.separator;
}

void PickerPopup::Choose (int entry)
{
    if (IsSelectable (entry)) Close (entry);
}

void PickerPopup::paintEvent (QPaintEvent*)
{
    QPainter painter (this);
    PaintBackground (painter);
    if (headerHeight > 0) {
        const int shown = GetHovered () != 0 ? GetHovered () : GetInitial ();
        const QRect header (Margin + HeaderPadding, Margin, width () - 2 * (Margin + HeaderPadding), headerHeight - 2);
        if (shown >= 1 && shown <= static_cast<int> (entries.size ())) {
            painter.setPen (Theme::InkColor);
            const QString text = ToQString (entries[static_cast<std::size_t> (shown - 1)].text);
            painter.drawText (header, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                              painter.fontMetrics ().elidedText (text, Qt::ElideRight, header.width ()));
        }
        painter.fillRect (QRect (Margin, Margin + headerHeight - 1, width () - 2 * Margin, 1), Theme::DividerColor);
    }
    for (int entry = 1; entry <= static_cast<int> (entries.size ()); ++entry) {
        const Pk::PickerControl::Entry& item = entries[static_cast<std::size_t> (entry - 1)];
        if (item.separator) continue;
        const QRect cell = GetCellRect (entry);
        PaintHighlight (painter, cell, entry);
        const QRect swatch = cell.adjusted (SwatchInset, SwatchInset, -SwatchInset, -SwatchInset);
        if (item.hasColor) {
            QColor colour = ToQColor (item.color);
            if (!item.enabled) colour.setAlphaF (0.3f);
            painter.fillRect (swatch, colour);
            painter.setPen (item.enabled ? Theme::SecondaryInkColor : Theme::DividerColor);
            painter.drawRect (swatch.adjusted (0, 0, -1, -1));
        } else if (!item.icon.IsEmpty ()) {
            IconCache::Get ().Draw (painter, item.icon.GetModule (), item.icon.GetResourceId (), swatch.adjusted (-1, -1, 1, 1), !item.enabled);
        }
    }
}

void PickerPopup::mouseReleaseEvent (QMouseEvent* event)
{
    if (event->button () != Qt::LeftButton) return;
    const QPoint position = event->position ().toPoint ();
    // A release outside closes without a choice, as a click outside any popup does.
    if (!rect ().contains (position)) {
        Dismiss ();
        return;
    }
    Choose (GetEntryAt (position));
}

void PickerPopup::keyPressEvent (QKeyEvent* event)
{
    const int count = static_cast<int> (entries.size ());
    const int hovered = GetHovered ();
    int       target = hovered != 0 ? hovered : std::max (GetInitial (), 1);
    switch (event->key ()) {
        case Qt::Key_Escape: Dismiss (); return;
        case Qt::Key_Return:
        case Qt::Key_Enter:  Choose (hovered); return;
        case Qt::Key_Left:   target -= 1; break;
        case Qt::Key_Right:  target += 1; break;
        case Qt::Key_Up:     target -= columns; break;
        case Qt::Key_Down:   target += columns; break;
        default:             return;
    }
    if (hovered == 0 && GetInitial () == 0) target = 1;
    SetHovered (std::clamp (target, 1, std::max (count, 1)));
}

}   // namespace TxalQt
