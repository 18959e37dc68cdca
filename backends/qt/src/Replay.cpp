#include "Replay.hpp"

#include <QImage>
#include <QPixmap>
#include <QPolygon>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "IconCache.hpp"
#include "Strings.hpp"
#include "Theme.hpp"

namespace TxalQt {

namespace {

// A hatch draws at most this many lines per family (a spacing of a fraction of a pixel would
// draw without end).
constexpr int MaxHatchLines = 4096;
constexpr int HatchBitmapSize = 8;
constexpr int HatchTopLeftBit = 7;

QColor ToQColor (const Gfx::Color& color)
{
    return QColor (color.GetRed (), color.GetGreen (), color.GetBlue (), color.GetAlpha ());
}

QRect ToQRect (const Gfx::Rect& rect)
{
    return QRect (rect.left, rect.top, rect.GetWidth (), rect.GetHeight ());
}

bool IsVisible (const Gfx::Color& color)
{
    return color.GetAlpha () > 0;
}

QPixmap MakeHatchTexture (const Gfx::HatchPattern& pattern, const QColor& foreground)
{
    QImage image (HatchBitmapSize, HatchBitmapSize, QImage::Format_ARGB32_Premultiplied);
    image.fill (Qt::transparent);
    const QRgb ink = foreground.rgba ();
    for (int y = 0; y < HatchBitmapSize; ++y)
        for (int x = 0; x < HatchBitmapSize; ++x)
            if ((pattern.bits[static_cast<std::size_t> (y)] >> (HatchTopLeftBit - x) & 1) != 0) image.setPixel (x, y, qPremultiply (ink));
    return QPixmap::fromImage (image);
}

}   // namespace

Replay::Replay (QPainter& painter, const QRect& baseClip) : painter (painter), baseClip (baseClip)
{
    painter.setClipRect (baseClip);
}

void Replay::Play (const Gfx::DrawingContext& context)
{
    for (const Gfx::Primitive& primitive : context.GetPrimitives ()) std::visit (*this, primitive);
    // A recording that left clips pushed does not clip what the next one draws.
    if (!clips.empty ()) {
        clips.clear ();
        ApplyClip ();
    }
}

void Replay::ApplyClip ()
{
    painter.setClipRect (clips.empty () ? baseClip : clips.back ());
}

void Replay::operator() (const Gfx::FillRectOp& op)
{
    if (op.rect.IsEmpty () || !IsVisible (op.color)) return;
    painter.fillRect (ToQRect (op.rect), ToQColor (op.color));
}

void Replay::operator() (const Gfx::FrameRectOp& op)
{
    const QRect rect = ToQRect (op.rect);
    if (rect.isEmpty () || !IsVisible (op.color) || op.width <= 0) return;
    const int width = std::min ({op.width, (rect.width () + 1) / 2, (rect.height () + 1) / 2});
    const QColor color = ToQColor (op.color);
    painter.fillRect (QRect (rect.left (), rect.top (), rect.width (), width), color);
    painter.fillRect (QRect (rect.left (), rect.bottom () - width + 1, rect.width (), width), color);
    painter.fillRect (QRect (rect.left (), rect.top () + width, width, rect.height () - 2 * width), color);
    painter.fillRect (QRect (rect.right () - width + 1, rect.top () + width, width, rect.height () - 2 * width), color);
}

void Replay::operator() (const Gfx::LineOp& op)
{
    if (!IsVisible (op.color) || op.width <= 0 || op.from == op.to) return;
    const QColor color = ToQColor (op.color);
    const bool horizontal = op.from.y == op.to.y;
    const bool vertical = op.from.x == op.to.x;
    // Dashes are lengths in pixels; Qt counts them in pen widths and wants them in pairs.
    QList<qreal> dashes;
    bool dashesValid = !op.dashes.empty ();
    for (double length : op.dashes) {
        if (!(length > 0.0) || !std::isfinite (length)) dashesValid = false;
        dashes.push_back (length / op.width);
    }
    if (dashesValid && dashes.size () % 2 != 0) dashes += dashes;
    if (!dashesValid && (horizontal || vertical)) {
        // Solid axis-aligned lines are filled rectangles: crisp at every ratio.
        const int left = std::min (op.from.x, op.to.x);
        const int top = std::min (op.from.y, op.to.y);
        if (horizontal)
            painter.fillRect (QRect (left, top, std::abs (op.to.x - op.from.x), op.width), color);
        else
            painter.fillRect (QRect (left, top, op.width, std::abs (op.to.y - op.from.y)), color);
        return;
    }
    QPen pen (color, op.width, Qt::SolidLine, Qt::FlatCap);
    if (dashesValid) pen.setDashPattern (dashes);
    painter.setPen (pen);
    // Pens are centred on the line: axis-aligned lines move half a width into their pixels.
    const double half = op.width / 2.0;
    const QPointF shift (vertical ? half : 0.0, horizontal ? half : 0.0);
    painter.setRenderHint (QPainter::Antialiasing, !(horizontal || vertical));
    painter.drawLine (QPointF (op.from.x, op.from.y) + shift, QPointF (op.to.x, op.to.y) + shift);
    painter.setRenderHint (QPainter::Antialiasing, false);
}

void Replay::operator() (const Gfx::PolygonOp& op)
{
    if (op.points.size () < 3 || !(op.filled || op.framed)) return;
    QPolygonF polygon;
    polygon.reserve (static_cast<qsizetype> (op.points.size ()));
    for (const Gfx::Point& point : op.points) polygon << QPointF (point.x, point.y);
    painter.setRenderHint (QPainter::Antialiasing);
    painter.setPen (op.framed && IsVisible (op.frame) ? QPen (ToQColor (op.frame), 1.0) : QPen (Qt::NoPen));
    painter.setBrush (op.filled && IsVisible (op.fill) ? QBrush (ToQColor (op.fill)) : QBrush (Qt::NoBrush));
    painter.drawPolygon (polygon);
    painter.setBrush (Qt::NoBrush);
    painter.setRenderHint (QPainter::Antialiasing, false);
}

void Replay::operator() (const Gfx::HatchOp& op)
{
    const QRect rect = ToQRect (op.rect);
    if (rect.isEmpty ()) return;
    if (IsVisible (op.background)) painter.fillRect (rect, ToQColor (op.background));
    if (!IsVisible (op.foreground)) return;
    const QColor foreground = ToQColor (op.foreground);
    if (op.pattern.isBitmap) {
        // The bitmap is anchored at the area's top-left, so that it moves with the area.
        painter.setBrushOrigin (rect.topLeft ());
        painter.fillRect (rect, QBrush (MakeHatchTexture (op.pattern, foreground)));
        painter.setBrushOrigin (QPoint ());
        return;
    }
    const QRect current = clips.empty () ? baseClip : clips.back ();
    painter.setClipRect (current.intersected (rect));
    for (const Gfx::HatchLine& line : op.pattern.lines) DrawHatchLines (rect, line, foreground);
    ApplyClip ();
}

void Replay::DrawHatchLines (const QRect& rect, const Gfx::HatchLine& line, const QColor& color)
{
    if (!(line.spacing > 0.0) || !std::isfinite (line.spacing) || !std::isfinite (line.angle) || !std::isfinite (line.offset)) return;
    // Angles turn counter-clockwise on the screen (y points down). Lines run along direction
    // and are spaced along normal, counted from the area's top-left corner.
    const double radians = line.angle * std::numbers::pi / 180.0;
    const QPointF direction (std::cos (radians), -std::sin (radians));
    const QPointF normal (std::sin (radians), std::cos (radians));
    const QPointF origin (rect.left (), rect.top ());
    double lowest = 0.0;
    double highest = 0.0;
    for (const QPointF corner : {QPointF (rect.left (), rect.top ()), QPointF (rect.right () + 1, rect.top ()),
                                 QPointF (rect.left (), rect.bottom () + 1), QPointF (rect.right () + 1, rect.bottom () + 1)}) {
        const QPointF relative = corner - origin;
        const double projection = relative.x () * normal.x () + relative.y () * normal.y ();
        lowest = std::min (lowest, projection);
        highest = std::max (highest, projection);
    }
    const double first = std::ceil ((lowest - line.offset) / line.spacing);
    const double last = std::floor ((highest - line.offset) / line.spacing);
    if (last - first + 1 > MaxHatchLines) return;
    const double reach = std::hypot (rect.width (), rect.height ()) + 1.0;
    // Half a pixel across the line puts a one-pixel line into one row of pixels.
    const QPointF centring = normal * 0.5;
    painter.setPen (QPen (color, 1.0));
    painter.setRenderHint (QPainter::Antialiasing);
    for (double k = first; k <= last; k += 1.0) {
        const QPointF through = origin + normal * (line.offset + k * line.spacing) + centring;
        painter.drawLine (through - direction * reach, through + direction * reach);
    }
    painter.setRenderHint (QPainter::Antialiasing, false);
}

void Replay::operator() (const Gfx::IconOp& op)
{
    IconCache::Get ().Draw (painter, op.module, op.resourceId, ToQRect (op.rect), op.greyed);
}

void Replay::operator() (const Gfx::TextOp& op)
{
    const QRect rect = ToQRect (op.rect);
    if (op.text.IsEmpty () || rect.isEmpty ()) return;
    if (op.style.fontStyle != fontStyle) {
        fontStyle = op.style.fontStyle;
        painter.setFont (Theme::GetFont (fontStyle));
    }
    // A greyed text in the default ink gets the greyed ink; a text with its own colour keeps it.
    const bool defaultInk = op.style.color == Gfx::Color::Black;
    painter.setPen (op.style.greyed && defaultInk ? Theme::GreyedInkColor : ToQColor (op.style.color));
    int flags = Qt::AlignVCenter | Qt::TextSingleLine;
    switch (op.style.align) {
        case Gfx::TextAlign::Left:   flags |= Qt::AlignLeft; break;
        case Gfx::TextAlign::Center: flags |= Qt::AlignHCenter; break;
        case Gfx::TextAlign::Right:  flags |= Qt::AlignRight; break;
    }
    QString text = ToQString (op.text);
    if (op.style.truncateEnd && Theme::MeasureWidth (text, fontStyle) > rect.width ())
        text = painter.fontMetrics ().elidedText (text, Qt::ElideRight, rect.width ());
    painter.drawText (rect, flags, text);
}

void Replay::operator() (const Gfx::PushClipOp& op)
{
    const QRect current = clips.empty () ? baseClip : clips.back ();
    clips.push_back (current.intersected (ToQRect (op.rect)));
    ApplyClip ();
}

void Replay::operator() (const Gfx::PopClipOp&)
{
    if (clips.empty ()) return;
    clips.pop_back ();
    ApplyClip ();
}

}   // namespace TxalQt
