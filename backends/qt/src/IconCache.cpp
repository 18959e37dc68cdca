#include "IconCache.hpp"

#include <QApplication>
#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionButton>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

#include "Res/ResourceCache.hpp"

namespace TxalQt {

namespace {

// Stock images are drawn on this grid, like the resource icons.
constexpr int StockGrid = 16;
// Arrow images are named kind * ArrowIdFactor + direction (see Wg::GetArrowImage).
constexpr std::int32_t ArrowIdFactor = 100;
// Greyed icons: the grey of each pixel moved this far towards white.
constexpr double GreyedLightening = 0.55;
// Keys keep the ratio in percent, so that 1.25 and 1.5 get their own pixmaps.
constexpr double PercentPerRatio = 100.0;

const QColor ArrowColor {0x4A, 0x56, 0x63};
const QColor GreyedArrowColor {0xB0, 0xB8, 0xC1};

bool IsStockModule (std::int64_t module)
{
    return module == Wg::Icon::StockModule || module == Wg::Icon::ArrowModule;
}

QImage MakeCanvas (QSize size, qreal ratio)
{
    QImage image (QSize (static_cast<int> (std::ceil (size.width () * ratio)), static_cast<int> (std::ceil (size.height () * ratio))),
                  QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio (ratio);
    image.fill (Qt::transparent);
    return image;
}

void DrawCheckMark (QPainter& painter, QSize size, bool on, bool greyed)
{
    QStyle* style = QApplication::style ();
    QStyleOptionButton option;
    option.palette = QApplication::palette ();
    option.state = (on ? QStyle::State_On : QStyle::State_Off) | (greyed ? QStyle::State_None : QStyle::State_Enabled);
    const int width = std::min (style->pixelMetric (QStyle::PM_IndicatorWidth), size.width ());
    const int height = std::min (style->pixelMetric (QStyle::PM_IndicatorHeight), size.height ());
    option.rect = QRect ((size.width () - width) / 2, (size.height () - height) / 2, width, height);
    style->drawPrimitive (QStyle::PE_IndicatorCheckBox, &option, &painter, nullptr);
}

void DrawArrow (QPainter& painter, QSize size, std::int32_t resourceId, bool greyed)
{
    // Triangles on the 16-pixel grid with 45-degree edges, which stay crisp at every ratio.
    QPolygonF triangle;
    switch (resourceId % ArrowIdFactor) {
        case Wg::ArrowRight: triangle << QPointF (6, 4) << QPointF (10, 8) << QPointF (6, 12); break;
        case Wg::ArrowDown:  triangle << QPointF (4, 6) << QPointF (12, 6) << QPointF (8, 10); break;
        case Wg::ArrowLeft:  triangle << QPointF (10, 4) << QPointF (6, 8) << QPointF (10, 12); break;
        case Wg::ArrowUp:    triangle << QPointF (4, 10) << QPointF (12, 10) << QPointF (8, 6); break;
        default: return;
    }
    painter.setRenderHint (QPainter::Antialiasing);
    painter.scale (size.width () / double (StockGrid), size.height () / double (StockGrid));
    painter.setPen (Qt::NoPen);
    painter.setBrush (greyed ? GreyedArrowColor : ArrowColor);
    painter.drawPolygon (triangle);
}

QImage Greyed (const QImage& source)
{
    QImage image = source.convertToFormat (QImage::Format_ARGB32);
    for (int y = 0; y < image.height (); ++y) {
        auto* line = reinterpret_cast<QRgb*> (image.scanLine (y));
        for (int x = 0; x < image.width (); ++x) {
            const int grey = qGray (line[x]);
            const int light = grey + static_cast<int> ((255 - grey) * GreyedLightening);
            line[x] = qRgba (light, light, light, qAlpha (line[x]));
        }
    }
    return image;
}

}   // namespace

size_t qHash (const IconCache::Key& key, size_t seed)
{
    return qHashMulti (seed, key.module, key.resourceId, key.width, key.height, key.ratioPercent, key.greyed);
}

IconCache& IconCache::Get ()
{
    static IconCache cache;
    static const bool clearedWithTheApplication = [] {
        // Pixmaps belong to the application: they go with it, not with the program's statics.
        qAddPostRoutine ([] { IconCache::Get ().Clear (); });
        return true;
    } ();
    (void) clearedWithTheApplication;
    return cache;
}

QSize IconCache::GetNaturalSize (std::int64_t module, std::int32_t resourceId)
{
    const Gfx::Size size = Wg::GetIconSize (Wg::Icon (module, resourceId));
    return QSize (size.width, size.height);
}

QPixmap IconCache::GetPixmap (std::int64_t module, std::int32_t resourceId, QSize size, qreal ratio, bool greyed)
{
    if (size.isEmpty () || !(ratio > 0.0) || resourceId == Wg::Icon::EmptyResourceId || module == 0) return QPixmap ();
    const Key key {module, resourceId, size.width (), size.height (), static_cast<int> (std::lround (ratio * PercentPerRatio)), greyed};
    const auto found = pixmaps.constFind (key);
    if (found != pixmaps.constEnd ()) return found.value ();
    QPixmap pixmap = Render (key, ratio);
    pixmaps.insert (key, pixmap);
    return pixmap;
}

QPixmap IconCache::Render (const Key& key, qreal ratio) const
{
    const QSize size (key.width, key.height);
    QImage image = MakeCanvas (size, ratio);
    QPainter painter (&image);
    if (key.module == Wg::Icon::StockModule) {
        if (key.resourceId != Wg::Icon::StockCheckOn && key.resourceId != Wg::Icon::StockCheckOff) return QPixmap ();
        DrawCheckMark (painter, size, key.resourceId == Wg::Icon::StockCheckOn, key.greyed);
        painter.end ();
        return QPixmap::fromImage (image);
    }
    if (key.module == Wg::Icon::ArrowModule) {
        DrawArrow (painter, size, key.resourceId, key.greyed);
        painter.end ();
        return QPixmap::fromImage (image);
    }
    if (IsStockModule (key.module) || key.module < 0) return QPixmap ();
    const std::string* svg = Res::GetIconSvg (key.module, key.resourceId);
    if (svg == nullptr) return QPixmap ();
    QSvgRenderer renderer (QByteArray::fromRawData (svg->data (), static_cast<qsizetype> (svg->size ())));
    if (!renderer.isValid ()) return QPixmap ();
    renderer.render (&painter, QRectF (QPointF (0, 0), QSizeF (size)));
    painter.end ();
    if (key.greyed) {
        QImage grey = Greyed (image);
        grey.setDevicePixelRatio (ratio);
        return QPixmap::fromImage (grey);
    }
    return QPixmap::fromImage (image);
}

void IconCache::Draw (QPainter& painter, std::int64_t module, std::int32_t resourceId, const QRect& rect, bool greyed)
{
    QSize size = GetNaturalSize (module, resourceId);
    if (size.isEmpty () || rect.isEmpty ()) return;
    if (size.width () > rect.width () || size.height () > rect.height ())
        size = size.scaled (rect.size (), Qt::KeepAspectRatio);
    if (size.isEmpty ()) return;
    const qreal ratio = painter.device () != nullptr ? painter.device ()->devicePixelRatioF () : 1.0;
    const QPixmap pixmap = GetPixmap (module, resourceId, size, ratio, greyed);
    if (pixmap.isNull ()) return;
    painter.drawPixmap (QPoint (rect.left (), rect.top () + (rect.height () - size.height ()) / 2), pixmap);
}

}   // namespace TxalQt
