#pragma once
// Wg::Icon: a reference to an icon of a resource module, by module handle and resource id.
// Negative module handles name the host's stock images (check-box marks, arrows), which every
// backend draws itself.

#include <cstdint>

#include "Gfx/DrawingContext.hpp"
#include "Gfx/Geometry.hpp"

namespace Wg {

class Icon {
public:
    using ModuleHandle = std::int64_t;

    static constexpr std::int32_t EmptyResourceId = -1;

    // Stock images of the host.
    static constexpr ModuleHandle StockModule = -4;        // check-box marks
    static constexpr std::int32_t StockCheckOn = -3;
    static constexpr std::int32_t StockCheckOff = -4;
    static constexpr ModuleHandle ArrowModule = -5;        // triangles of Wg::GetArrowImage

    constexpr Icon () = default;
    constexpr Icon (ModuleHandle module, std::int32_t resourceId) : module (module), resourceId (resourceId) {}

    constexpr ModuleHandle GetModule () const { return module; }
    constexpr std::int32_t GetResourceId () const { return resourceId; }

    // Empty: refers to no image at all.
    constexpr bool IsEmpty () const { return resourceId == EmptyResourceId; }
    // Valid: not empty and names a module (a stock module or a registered resource module).
    constexpr bool IsValid () const { return !IsEmpty () && module != 0; }

    constexpr bool operator== (const Icon&) const = default;

private:
    ModuleHandle module = 0;
    std::int32_t resourceId = EmptyResourceId;
};

// Arrow kinds and directions of GetArrowImage.
enum ArrowKind : short { TriangleArrow = 1 };
enum ArrowDirection : short { ArrowRight = 1, ArrowDown = 2, ArrowLeft = 3, ArrowUp = 4 };

// The host's triangle images: (1, 2) is the expanded group mark, (1, 1) the collapsed one.
Icon GetArrowImage (short kind, short direction);

// The size of the icon at 100% scale: from the resource module for resource icons, 16x16 for
// stock images, 0x0 for empty or unknown icons.
Gfx::Size GetIconSize (const Icon& icon);

// Records the icon into a drawing context.
inline void DrawIcon (Gfx::DrawingContext& context, const Icon& icon, const Gfx::Rect& rect, bool greyed = false)
{
    if (!icon.IsEmpty ()) context.DrawIcon (icon.GetModule (), icon.GetResourceId (), rect, greyed);
}

}   // namespace Wg
