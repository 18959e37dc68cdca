#include "TrackingPopup.hpp"

#include <QMouseEvent>
#include <QPainter>

#include "Theme.hpp"

namespace TxalQt {

TrackingPopup::TrackingPopup (int initialEntry, std::function<void (int)> onTrack)
    : QWidget (nullptr, Qt::Popup), track (std::move (onTrack)), initial (initialEntry)
{
    setAttribute (Qt::WA_DeleteOnClose, false);
    setMouseTracking (true);
    setFont (Theme::GetFont (Gfx::PlainFont));
}

int TrackingPopup::Exec (const QPoint& position)
{
    move (position);
    show ();
    setFocus (Qt::PopupFocusReason);
    if (isVisible ()) loop.exec ();
    return chosen;
}

void TrackingPopup::Dismiss ()
{
    Close (0);
}

void TrackingPopup::Close (int entry)
{
    chosen = entry;
    hide ();
}

void TrackingPopup::SetHovered (int entry)
{
    if (!IsSelectable (entry)) entry = 0;
    if (entry == hovered) return;
    hovered = entry;
    update ();
    if (track) track (entry);
}

void TrackingPopup::ShowHovered (int entry)
{
    hovered = IsSelectable (entry) ? entry : 0;
    update ();
}

void TrackingPopup::PaintBackground (QPainter& painter) const
{
    painter.fillRect (rect (), Theme::BaseColor);
    painter.setPen (Theme::FrameColor);
    painter.drawRect (rect ().adjusted (0, 0, -1, -1));
}

void TrackingPopup::PaintHighlight (QPainter& painter, const QRect& area, int entry) const
{
    if (entry != hovered && entry != initial) return;
    painter.fillRect (area, entry == hovered ? Theme::AccentLightColor : Theme::HoverColor);
    if (entry != hovered) return;
    painter.setPen (Theme::AccentColor);
    painter.drawRect (area.adjusted (0, 0, -1, -1));
}

void TrackingPopup::mouseMoveEvent (QMouseEvent* event)
{
    const QPoint position = event->position ().toPoint ();
    SetHovered (rect ().contains (position) ? GetEntryAt (position) : 0);
}

void TrackingPopup::leaveEvent (QEvent*)
{
    SetHovered (0);
}

void TrackingPopup::hideEvent (QHideEvent* event)
{
    QWidget::hideEvent (event);
    if (loop.isRunning ()) loop.quit ();
}

}   // namespace TxalQt
