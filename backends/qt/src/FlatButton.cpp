#include "FlatButton.hpp"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include "IconCache.hpp"
#include "Theme.hpp"

namespace TxalQt {

namespace {

constexpr int Padding = 4;
constexpr int Gap = 4;
constexpr int ArrowAreaWidth = 10;
constexpr int ArrowHalfWidth = 3;
constexpr int IconSize = 16;
constexpr int SwatchWidth = 22;
constexpr int SwatchHeight = 10;
constexpr double CornerRadius = 3.0;
constexpr int SizeHintHeight = 22;

const QColor SwatchFrameColor {0x8A, 0x96, 0xA3};

}   // namespace

FlatButton::FlatButton (QWidget* parent) : QToolButton (parent)
{
    setAutoRaise (true);
    setFocusPolicy (Qt::NoFocus);
    setFont (Theme::GetFont (Gfx::PlainFont));
}

void FlatButton::SetContent (const Content& newContent)
{
    if (newContent == content) return;
    content = newContent;
    setText (content.text);
    updateGeometry ();
    update ();
}

void FlatButton::SetOn (bool newOn)
{
    if (newOn == on) return;
    on = newOn;
    update ();
}

void FlatButton::SetFlat (bool newFlat)
{
    if (newFlat == flat) return;
    flat = newFlat;
    update ();
}

QSize FlatButton::sizeHint () const
{
    const QFontMetrics metrics (font ());
    int width = 2 * Padding + metrics.horizontalAdvance (content.text);
    if (content.swatch.has_value () || !content.icon.IsEmpty ()) width += IconSize + Gap;
    if (content.arrow != Arrow::None) width += ArrowAreaWidth;
    return QSize (width, SizeHintHeight);
}

void FlatButton::paintEvent (QPaintEvent*)
{
    QPainter painter (this);
    painter.setRenderHint (QPainter::Antialiasing);
    const bool enabled = isEnabled ();
    const bool hovered = enabled && underMouse ();
    const QRectF frame = QRectF (rect ()).adjusted (0.5, 0.5, -0.5, -0.5);

    // Background and frame: standing alone a button always shows both; over a row only when
    // the pointer is over it or it is pressed or on.
    QColor fill = Theme::BaseColor;
    if (isDown () || on)
        fill = on ? Theme::AccentLightColor : Theme::PressedColor;
    else if (hovered)
        fill = Theme::HoverColor;
    else if (!enabled)
        fill = Theme::WindowColor;
    const bool plain = flat && !isDown () && !on && !hovered;
    if (!plain) {
        painter.setPen (on ? Theme::AccentColor : Theme::FrameColor);
        painter.setBrush (fill);
        painter.drawRoundedRect (frame, CornerRadius, CornerRadius);
    }

    // Content: [swatch or icon] [text] ... [arrow], placed by the alignment.
    QRect area = rect ().adjusted (Padding, 0, -Padding, 0);
    if (content.arrow != Arrow::None) area.setRight (area.right () - ArrowAreaWidth);
    const QFontMetrics metrics (font ());
    const bool hasImage = content.swatch.has_value () || !content.icon.IsEmpty ();
    const int imageWidth = content.swatch.has_value () ? SwatchWidth : IconSize;
    const int textRoom = std::max (0, area.width () - (hasImage ? imageWidth + Gap : 0));
    const QString text = metrics.elidedText (content.text, Qt::ElideRight, textRoom);
    const int textWidth = text.isEmpty () ? 0 : metrics.horizontalAdvance (text);
    const int blockWidth = (hasImage ? imageWidth : 0) + (hasImage && textWidth > 0 ? Gap : 0) + textWidth;
    int x = area.left ();
    if (content.alignment.testFlag (Qt::AlignHCenter))
        x = area.left () + std::max (0, (area.width () - blockWidth) / 2);
    else if (content.alignment.testFlag (Qt::AlignRight))
        x = std::max (area.left (), area.right () + 1 - blockWidth);

    if (content.swatch.has_value ()) {
        const QRectF swatch (x + 0.5, (height () - SwatchHeight) / 2 + 0.5, SwatchWidth - 1, SwatchHeight - 1);
        painter.setPen (enabled ? SwatchFrameColor : Theme::DividerColor);
        QColor colour = *content.swatch;
        if (!enabled) colour.setAlphaF (0.35f);
        painter.setBrush (colour);
        painter.drawRoundedRect (swatch, 2.0, 2.0);
        x += SwatchWidth + Gap;
    } else if (!content.icon.IsEmpty ()) {
        IconCache::Get ().Draw (painter, content.icon.GetModule (), content.icon.GetResourceId (), QRect (x, 0, IconSize, height ()), !enabled);
        x += IconSize + Gap;
    }
    if (!text.isEmpty ()) {
        painter.setPen (enabled ? Theme::InkColor : Theme::GreyedInkColor);
        painter.drawText (QRect (x, 0, textWidth + 1, height ()), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    }

    if (content.arrow != Arrow::None) {
        // A small chevron-like triangle, centred in the arrow area.
        const double cx = width () - Padding - ArrowAreaWidth / 2.0;
        const double cy = height () / 2.0;
        QPainterPath triangle;
        if (content.arrow == Arrow::Down) {
            triangle.moveTo (cx - ArrowHalfWidth, cy - 1.5);
            triangle.lineTo (cx + ArrowHalfWidth, cy - 1.5);
            triangle.lineTo (cx, cy + 1.5);
        } else {
            triangle.moveTo (cx - 1.5, cy - ArrowHalfWidth);
            triangle.lineTo (cx + 1.5, cy);
            triangle.lineTo (cx - 1.5, cy + ArrowHalfWidth);
        }
        triangle.closeSubpath ();
        painter.setPen (Qt::NoPen);
        painter.setBrush (enabled ? Theme::SecondaryInkColor : Theme::GreyedInkColor);
        painter.drawPath (triangle);
    }
}

}   // namespace TxalQt
