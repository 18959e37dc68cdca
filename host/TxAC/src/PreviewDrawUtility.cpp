#include "TxAC/PreviewDrawUtility.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "TxAC/PenControl.hpp"
#include "TxAttr/Attributes.hpp"

namespace TxAC {

namespace {

// The frame of a swatch and the mark of an invalid attribute.
constexpr Gfx::Color FrameGrey {128, 128, 128};
// What a greyed colour is mixed with, and how much of it.
constexpr Gfx::Color GreyTarget {190, 190, 190};
constexpr int        GreyShare = 60;   // percent
// The share of a building material preview that shows its surface.
constexpr int SurfaceStripDivisor = 4;

Gfx::Color Shade (const Gfx::Color& color, bool greyed)
{
    return greyed ? PreviewDrawUtility::Grey (color) : color;
}

double PatternPixels (double millimetres)
{
    return std::max (PreviewDrawUtility::MinPatternPixels, millimetres * PreviewDrawUtility::PixelsPerMillimetre);
}

Gfx::HatchPattern MakeHatch (const TxAttr::Fill& fill)
{
    Gfx::HatchPattern pattern;
    for (const TxAttr::HatchLineFamily& family : fill.GetLines ())
        pattern.lines.push_back (Gfx::HatchLine {family.angle, PatternPixels (family.spacing), family.offset * PreviewDrawUtility::PixelsPerMillimetre});
    return pattern;
}

// The body of a fill preview without its frame.
void DrawFillBody (Gfx::DrawingContext& context, const Gfx::Rect& rect, const TxAttr::Fill& fill, const Gfx::Color& foreground,
                   const Gfx::Color& background)
{
    switch (fill.GetKind ()) {
        case TxAttr::FillKind::Empty: context.FillRect (rect, background); break;
        case TxAttr::FillKind::Solid: context.FillRect (rect, foreground); break;
        case TxAttr::FillKind::Hatch: context.DrawHatch (rect, MakeHatch (fill), foreground, background); break;
    }
}

}   // namespace

Gfx::Color PreviewDrawUtility::Grey (const Gfx::Color& color)
{
    const auto mix = [] (int channel, int target) { return static_cast<std::uint8_t> ((channel * (100 - GreyShare) + target * GreyShare) / 100); };
    return Gfx::Color (mix (color.GetRed (), GreyTarget.GetRed ()), mix (color.GetGreen (), GreyTarget.GetGreen ()),
                       mix (color.GetBlue (), GreyTarget.GetBlue ()), color.GetAlpha ());
}

std::optional<Gfx::Color> PreviewDrawUtility::GetPenColor (const ADB::AttributeSet& set, short pen, bool background)
{
    if (pen == 0) return background ? Gfx::Color::White : Gfx::Color::Black;
    const ODB::ConstRef<ADB::Attribute> active = set.GetConstActiveAttribute (TxAttr::idPenTable);
    if (!active.Load ()) return std::nullopt;
    const auto* table = ADB::AttributeCast<TxAttr::PenTable> (active.Get ());
    const TxAttr::Pen* record = table != nullptr ? table->GetPenPtr (pen) : nullptr;
    if (record == nullptr) return std::nullopt;
    return RGBColorToGfxColor (record->color);
}

void PreviewDrawUtility::DrawFillPattern (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                                          const ADB::AttributeIndex& index, const Gfx::Color& foreground, const Gfx::Color& background,
                                          const Gfx::Color& contour, bool greyed)
{
    const auto* fill = TxAttr::FindAttribute<TxAttr::Fill> (set, TxAttr::idFill, index);
    if (fill == nullptr) {
        DrawInvalidAttr (context, rect, greyed, "?");
        return;
    }
    DrawFillBody (context, rect, *fill, Shade (foreground, greyed), Shade (background, greyed));
    context.FrameRect (rect, Shade (contour, greyed));
}

void PreviewDrawUtility::DrawCompWall (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                                       const ADB::AttributeIndex& index, const Gfx::Color& foreground, const Gfx::Color& background,
                                       const Gfx::Color& contour, const Gfx::Color& separator, bool defaultForeground,
                                       bool defaultBackground, bool defaultContour, bool defaultSeparator, bool greyed)
{
    const auto* composite = TxAttr::FindAttribute<TxAttr::Composite> (set, TxAttr::idCompWall, index);
    if (composite == nullptr || composite->GetSkins ().empty () || rect.IsEmpty ()) {
        DrawInvalidAttr (context, rect, greyed, "?");
        return;
    }
    const auto penOr = [&set] (bool useDefault, short pen, bool asBackground, const Gfx::Color& given) {
        if (!useDefault) return given;
        return GetPenColor (set, pen, asBackground).value_or (asBackground ? Gfx::Color::White : Gfx::Color::Black);
    };

    const std::vector<TxAttr::Skin>& skins = composite->GetSkins ();
    const double total = std::max (composite->GetThickness (), std::numeric_limits<double>::min ());
    const int height = rect.GetHeight ();
    std::vector<int> bottoms;
    double covered = 0.0;
    for (std::size_t i = 0; i < skins.size (); ++i) {
        covered += skins[i].thickness;
        const int previous = bottoms.empty () ? rect.top : bottoms.back ();
        int bottom = rect.top + static_cast<int> (std::lround (height * covered / total));
        // Every skin keeps at least one pixel while there is room, also the thin ones at the end;
        // the last one ends at the edge.
        const int skinsAfter = static_cast<int> (skins.size () - 1 - i);
        const int latest = std::max (rect.bottom - skinsAfter, previous);
        bottom = std::clamp (bottom, std::min (previous + 1, latest), latest);
        if (i + 1 == skins.size ()) bottom = rect.bottom;
        bottoms.push_back (bottom);
    }

    int top = rect.top;
    for (std::size_t i = 0; i < skins.size (); ++i) {
        const TxAttr::Skin& skin = skins[i];
        const Gfx::Rect band (rect.left, top, rect.right, bottoms[i]);
        top = bottoms[i];
        if (band.IsEmpty ()) continue;
        const Gfx::Color fore = Shade (penOr (defaultForeground, skin.fillPen, false, foreground), greyed);
        const Gfx::Color back = Shade (penOr (defaultBackground, skin.backgroundPen, true, background), greyed);
        if (const auto* fill = TxAttr::FindAttribute<TxAttr::Fill> (set, TxAttr::idFill, skin.fill))
            DrawFillBody (context, band, *fill, fore, back);
        else
            context.FillRect (band, back);
    }
    const Gfx::Color separatorColor = Shade (penOr (defaultSeparator, composite->GetSeparatorPen (), false, separator), greyed);
    for (std::size_t i = 0; i + 1 < bottoms.size (); ++i)
        if (bottoms[i] > rect.top && bottoms[i] < rect.bottom)
            context.DrawLine (Gfx::Point (rect.left, bottoms[i]), Gfx::Point (rect.right - 1, bottoms[i]), separatorColor);
    const short contourPen = skins.front ().contourPen;
    context.FrameRect (rect, Shade (penOr (defaultContour, contourPen, false, contour), greyed));
}

void PreviewDrawUtility::DrawLineIntoRect (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                                           const ADB::AttributeIndex& index, const Gfx::Color& foreground, const Gfx::Color& background,
                                           bool greyed)
{
    const auto* lineType = TxAttr::FindAttribute<TxAttr::LineType> (set, TxAttr::idLineType, index);
    if (lineType == nullptr) {
        DrawInvalidAttr (context, rect, greyed, "?");
        return;
    }
    context.FillRect (rect, Shade (background, greyed));
    std::vector<double> dashes;
    for (double length : lineType->GetPattern ()) dashes.push_back (std::max (1.0, length * PixelsPerMillimetre));
    const int middle = (rect.top + rect.bottom) / 2;
    constexpr int EndInset = 2;
    context.DrawLine (Gfx::Point (rect.left + EndInset, middle), Gfx::Point (rect.right - EndInset, middle), Shade (foreground, greyed), 1,
                      std::move (dashes));
}

void PreviewDrawUtility::DrawBuildingMaterial (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                                               const ADB::AttributeIndex& index, bool greyed)
{
    const auto* material = TxAttr::FindAttribute<TxAttr::BuildingMaterial> (set, TxAttr::idBuildingMaterial, index);
    if (material == nullptr) {
        DrawInvalidAttr (context, rect, greyed, "?");
        return;
    }
    const auto* surface = TxAttr::FindAttribute<TxAttr::Material> (set, TxAttr::idMaterial, material->GetSurface ());
    Gfx::Rect cut = rect;
    if (surface != nullptr) {
        const int strip = std::max (1, rect.GetWidth () / SurfaceStripDivisor);
        cut.right -= strip;
        const Gfx::Rect surfaceRect (cut.right, rect.top, rect.right, rect.bottom);
        context.FillRect (surfaceRect, Shade (RGBColorToGfxColor (surface->GetSurfaceColor ()), greyed));
    }
    const Gfx::Color fore = GetPenColor (set, material->GetCutFillPen (), false).value_or (Gfx::Color::Black);
    const Gfx::Color back = GetPenColor (set, material->GetCutBackgroundPen (), true).value_or (Gfx::Color::White);
    if (const auto* fill = TxAttr::FindAttribute<TxAttr::Fill> (set, TxAttr::idFill, material->GetCutFill ()))
        DrawFillBody (context, cut, *fill, Shade (fore, greyed), Shade (back, greyed));
    context.FrameRect (rect, Shade (Gfx::Color::Black, greyed));
}

void PreviewDrawUtility::DrawProfile (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                                      const ADB::AttributeIndex& index, const Gfx::Color& foreground, bool greyed)
{
    const auto* profile = TxAttr::FindAttribute<TxAttr::Profile> (set, TxAttr::idProfile, index);
    if (profile == nullptr || profile->GetOutline ().empty () || rect.IsEmpty ()) {
        DrawInvalidAttr (context, rect, greyed, "?");
        return;
    }
    double minX = std::numeric_limits<double>::max (), minY = minX, maxX = std::numeric_limits<double>::lowest (), maxY = maxX;
    for (const TxAttr::ProfilePoint& p : profile->GetOutline ()) {
        minX = std::min (minX, p.x), maxX = std::max (maxX, p.x);
        minY = std::min (minY, p.y), maxY = std::max (maxY, p.y);
    }
    constexpr int Margin = 1;
    const double width = std::max (maxX - minX, 1e-9), height = std::max (maxY - minY, 1e-9);
    const double scale = std::min ((rect.GetWidth () - 2 * Margin) / width, (rect.GetHeight () - 2 * Margin) / height);
    const double left = rect.left + (rect.GetWidth () - width * scale) / 2.0;
    const double top = rect.top + (rect.GetHeight () - height * scale) / 2.0;
    // Model y grows upwards, pixels downwards.
    const auto toPixels = [&] (const std::vector<TxAttr::ProfilePoint>& points) {
        std::vector<Gfx::Point> pixels;
        for (const TxAttr::ProfilePoint& p : points)
            pixels.emplace_back (static_cast<int> (std::lround (left + (p.x - minX) * scale)),
                                 static_cast<int> (std::lround (top + (maxY - p.y) * scale)));
        return pixels;
    };
    const Gfx::Color fill = Shade (foreground, greyed);
    context.DrawPolygon (toPixels (profile->GetOutline ()), fill, fill, true, true);
    for (const auto& hole : profile->GetHoles ()) context.DrawPolygon (toPixels (hole), Gfx::Color::White, fill, true, true);
}

void PreviewDrawUtility::DrawMaterial (Gfx::DrawingContext& context, const Gfx::Rect& rect, const ADB::AttributeSet& set,
                                       const ADB::AttributeIndex& index, bool greyed)
{
    const auto* material = TxAttr::FindAttribute<TxAttr::Material> (set, TxAttr::idMaterial, index);
    if (material == nullptr) {
        DrawInvalidAttr (context, rect, greyed, "?");
        return;
    }
    const Gfx::Color surface = Shade (RGBColorToGfxColor (material->GetSurfaceColor ()), greyed);
    if (const auto* texture = TxAttr::FindAttribute<TxAttr::Fill> (set, TxAttr::idFill, material->GetTextureFill ()))
        DrawFillBody (context, rect, *texture, Shade (Gfx::Color::Black, greyed), surface);
    else
        context.FillRect (rect, surface);
    context.FrameRect (rect, Shade (FrameGrey, greyed));
}

void PreviewDrawUtility::DrawColorIntoRect (Gfx::DrawingContext& context, const Gfx::Rect& rect, const Gfx::Color& color, bool greyed)
{
    context.FillRect (rect, Shade (color, greyed));
    context.FrameRect (rect, Shade (FrameGrey, greyed));
}

void PreviewDrawUtility::DrawInvalidAttr (Gfx::DrawingContext& context, const Gfx::Rect& rect, bool greyed, const Kor::UniString& text)
{
    context.FrameRect (rect, Shade (FrameGrey, greyed));
    Gfx::TextStyle style;
    style.greyed = greyed;
    style.align = Gfx::TextAlign::Center;
    style.truncateEnd = false;
    context.DrawText (text, rect, style);
}

}   // namespace TxAC
