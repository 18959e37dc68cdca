#pragma once
// TxAC::PreviewDrawUtility: draws the small previews of stored attributes (a hatch, a
// composite's skins, a dash pattern, a profile, a material, a colour swatch) into a recording
// drawing context. Millimetres on paper become pixels at 96 dots per inch; patterns finer than
// MinPatternPixels are widened so that a preview stays legible at row height. A greyed preview
// (a disabled row) draws every colour washed out towards grey.

#include <optional>

#include "ADB/AttributeSet.hpp"
#include "Gfx/Color.hpp"
#include "Gfx/DrawingContext.hpp"
#include "Kor/UniString.hpp"

namespace TxAC {

// The preview drawing functions of the attribute controls.
class PreviewDrawUtility {
public:
    static constexpr double PixelsPerMillimetre = 96.0 / 25.4;
    static constexpr double MinPatternPixels = 2.0;

    // The fill of index: solid in foreground, hatch lines in foreground over background, an
    // empty fill as background only; framed in contour. A missing fill draws DrawInvalidAttr.
    static void DrawFillPattern (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                                 const ADB::AttributeIndex& index, const Gfx::Color& foreground, const Gfx::Color& background,
                                 const Gfx::Color& contour, bool greyed);

    // The skins of composite index as bands from top (outside) to bottom, each as tall as its
    // share of the thickness (at least one pixel). A colour whose use-default flag is set is
    // taken from the composite (the skin's pens, the separator pen) through the set's pen table.
    static void DrawCompWall (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                              const ADB::AttributeIndex& index, const Gfx::Color& foreground, const Gfx::Color& background,
                              const Gfx::Color& contour, const Gfx::Color& separator, bool defaultForeground, bool defaultBackground,
                              bool defaultContour, bool defaultSeparator, bool greyed);

    // The line type as a horizontal line through the middle of rect, on the background.
    static void DrawLineIntoRect (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                                  const ADB::AttributeIndex& index, const Gfx::Color& foreground, const Gfx::Color& background,
                                  bool greyed = false);

    // The building material's cut fill in its pens, with its surface colour in a strip at the
    // right when it has a surface.
    static void DrawBuildingMaterial (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                                      const ADB::AttributeIndex& index, bool greyed);

    // The profile's outline (and holes) scaled to fit rect, filled in foreground.
    static void DrawProfile (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                             const ADB::AttributeIndex& index, const Gfx::Color& foreground, bool greyed);

    // The material's surface colour with its texture fill over it.
    static void DrawMaterial (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                              const ADB::AttributeIndex& index, bool greyed);

    // A swatch of color with a thin frame.
    static void DrawColorIntoRect (Gfx::DrawingContext& context, const Gfx::Rect& rect, const Gfx::Color& color, bool greyed);

    // The mark of an attribute that cannot be drawn: a frame with text (such as "?") centred.
    static void DrawInvalidAttr (Gfx::DrawingContext& context, const Gfx::Rect& rect, bool greyed, const Kor::UniString& text);

    // The colour of a pen in set's active pen table: pen 0 is white as a background and black
    // otherwise; nothing for a missing table or pen.
    static std::optional<Gfx::Color> GetPenColor (const ADB::AttributeSet& set, short pen, bool background);

    // color washed out towards grey, as a disabled row shows it.
    static Gfx::Color Grey (const Gfx::Color& color);
};

}   // namespace TxAC
