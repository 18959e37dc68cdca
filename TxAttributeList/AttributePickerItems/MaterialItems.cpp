// The material and building material rows.

#include "TxAttributeList/AttributePickerItems.hpp"

#include "TxAC/PenControl.hpp"
#include "TxAC/PreviewDrawUtility.hpp"
#include "TxAttr/Attributes.hpp"
#include "Wg/ListBox.hpp"
#include "TxAttributeList/FillPenHelpers.hpp"

namespace TxAL {

namespace {

// The material swatch sits in nested frames: an outer frame in pen 1, a white gap, then the
// surface with its texture.
constexpr int OuterFrameInset = 1;
constexpr int GapFrameInset = 2;
constexpr int SurfaceInset = 3;
constexpr short FramePen = 1;

Gfx::Color PenColor (short pen, bool background, const ODB::ConstRef<ADB::AttributeSet>& set, const Gfx::Color& fallback)
{
    unsigned char red = 0, green = 0, blue = 0;
    return SetDiFillColors (pen, background, &red, &green, &blue, set) ? Gfx::Color (red, green, blue) : fallback;
}

}   // namespace

// --- AttributeListMaterialItem ---

AttributeListMaterialItem::AttributeListMaterialItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                                                      const ADB::AttributeIndex& index, bool status, bool boldText)
    : AttributePickerListItem (name, icon, provider, index, status, boldText, TxAttr::idMaterial)
{
}

Kor::Owner<TxAC::AttributePickerPopUp> AttributeListMaterialItem::CreatePickerPopUp ()
{
    return MakePickerPopUp<TxAC::MaterialPickerPopUp> (Kor::NewOwner<TxAC::MaterialPickerData> (GetAttributeSet ()));
}

void AttributeListMaterialItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    const std::optional<PreviewCell> cell = GetPreviewCell (event);
    if (!cell.has_value ()) return;
    const auto* material = TxAttr::FindAttribute<TxAttr::Material> (*cell->set, TxAttr::idMaterial, cell->index);
    if (material == nullptr) return DrawMissingAttribute (*cell);
    Gfx::DrawingContext& context = cell->context;
    const ODB::ConstRef<ADB::AttributeSet>& set = cell->set;
    const Gfx::Rect& rect = cell->rect;
    const bool greyed = cell->greyed;
    const auto shade = [greyed] (const Gfx::Color& color) { return greyed ? TxAC::PreviewDrawUtility::Grey (color) : color; };
    const Gfx::Color black = PenColor (0, false, set, Gfx::Color::Black);
    const Gfx::Color white = PenColor (0, true, set, Gfx::Color::White);
    const Gfx::Color frame = PenColor (FramePen, false, set, black);
    const Gfx::Color surface = TxAC::RGBColorToGfxColor (material->GetSurfaceColor ());

    context.FrameRect (rect.Inset (OuterFrameInset - 1, OuterFrameInset - 1), shade (frame));
    context.FrameRect (rect.Inset (GapFrameInset - 1, GapFrameInset - 1), shade (white));
    const Gfx::Rect inner = rect.Inset (SurfaceInset - 1, SurfaceInset - 1);
    if (set->FindAttribute (TxAttr::idFill, material->GetTextureFill ()) != nullptr)
        TxAC::PreviewDrawUtility::DrawFillPattern (context, inner, *set, material->GetTextureFill (), black, surface, surface, greyed);
    else
        context.FillRect (inner, shade (surface));
}

void AttributeListMaterialItem::SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index)
{
    KeepChoiceAndNotify (source, index, &AttributeListMaterialItemObserver::MaterialChanged);
}

// --- AttributeListBuildingMaterialItem ---

AttributeListBuildingMaterialItem::AttributeListBuildingMaterialItem (const Kor::UniString& name, const Wg::Icon& icon,
                                                                      const ADB::IAttributeSetProvider* provider,
                                                                      const ADB::AttributeIndex& index, bool status, bool boldText)
    : AttributePickerListItem (name, icon, provider, index, status, boldText, TxAttr::idBuildingMaterial)
{
}

Kor::Owner<TxAC::AttributePickerPopUp> AttributeListBuildingMaterialItem::CreatePickerPopUp ()
{
    return MakePickerPopUp<TxAC::BuildingMaterialPickerPopUp> (Kor::NewOwner<TxAC::BuildingMaterialPickerData> (GetAttributeSet ()));
}

void AttributeListBuildingMaterialItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    const std::optional<PreviewCell> cell = GetPreviewCell (event);
    if (!cell.has_value ()) return;
    if (IsValidAttr (cell->index, TxAC::BuildingMaterialTypeCode, cell->set, &TxAC::BuildingMaterialControlCallBack, nullptr))
        TxAC::PreviewDrawUtility::DrawBuildingMaterial (cell->context, cell->rect, *cell->set, cell->index, cell->greyed);
    else
        DrawMissingAttribute (*cell);
}

void AttributeListBuildingMaterialItem::SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source,
                                                                       const ADB::AttributeIndex& index)
{
    KeepChoiceAndNotify (source, index, &AttributeListBuildingMaterialItemObserver::BuildingMaterialChanged);
}

}   // namespace TxAL
