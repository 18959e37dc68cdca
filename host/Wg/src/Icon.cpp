#include "Wg/Icon.hpp"

#include "Res/ResourceCache.hpp"

namespace Wg {

namespace {

// Stock images are drawn by every backend at this size.
constexpr int StockIconSize = 16;
// Arrow images are named by kind and direction within the arrow module.
constexpr std::int32_t ArrowIdFactor = 100;

}   // namespace

Icon GetArrowImage (short kind, short direction)
{
    return Icon (Icon::ArrowModule, kind * ArrowIdFactor + direction);
}

Gfx::Size GetIconSize (const Icon& icon)
{
    if (!icon.IsValid ()) return Gfx::Size ();
    if (icon.GetModule () < 0) return Gfx::Size (StockIconSize, StockIconSize);
    const auto size = Res::GetIconSize (icon.GetModule (), icon.GetResourceId ());
    return size.has_value () ? *size : Gfx::Size ();
}

}   // namespace Wg
