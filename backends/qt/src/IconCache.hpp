#pragma once
// TxalQt::IconCache: pixmaps of the model's icons, rendered from the resource modules' SVG
// documents at the device pixel ratio, and of the host's stock images (check-box marks, arrow
// triangles), which the backend draws itself. Pixmaps are kept by (module, id, size, ratio,
// greyed); greyed pixmaps are desaturated and lighter.

#include <QHash>
#include <QPixmap>
#include <QRect>
#include <QSize>
#include <cstdint>

#include "Wg/Icon.hpp"

class QPainter;

namespace TxalQt {

class IconCache {
public:
    static IconCache& Get ();

    // The icon's size at 100 %: the resource's, 16 x 16 for stock images, empty when unknown.
    static QSize GetNaturalSize (std::int64_t module, std::int32_t resourceId);

    // The icon at size (logical pixels) for the ratio; a null pixmap for an unknown icon.
    QPixmap GetPixmap (std::int64_t module, std::int32_t resourceId, QSize size, qreal ratio, bool greyed);
    QPixmap GetPixmap (const Wg::Icon& icon, QSize size, qreal ratio, bool greyed = false)
    {
        return GetPixmap (icon.GetModule (), icon.GetResourceId (), size, ratio, greyed);
    }

    // Draws the icon as Gfx::DrawingContext::DrawIcon promises: at its natural size (scaled down
    // to fit), at the left of rect, centred vertically.
    void Draw (QPainter& painter, std::int64_t module, std::int32_t resourceId, const QRect& rect, bool greyed);

    // Forgets every pixmap (after a resource module was reloaded, or the style changed).
    void Clear () { pixmaps.clear (); }
    int GetCount () const { return static_cast<int> (pixmaps.size ()); }

private:
    struct Key {
        std::int64_t module;
        std::int32_t resourceId;
        int          width;
        int          height;
        int          ratioPercent;
        bool         greyed;
        bool operator== (const Key&) const = default;
    };
    friend size_t qHash (const Key& key, size_t seed);

    QPixmap Render (const Key& key, qreal ratio) const;

    QHash<Key, QPixmap> pixmaps;
};

}   // namespace TxalQt
