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
    return Kor::NewOwner<TxAC::MaterialPickerPopUp> (GetPopUpAnchor (), Kor::NewOwner<TxAC::MaterialPickerData> (GetAttributeSet ()),
                                                     GetSelectedAttributeIndex (), TxAC::AttributePickerPopUp::DropBelowAnchor);
}

void AttributeListMaterialItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    Gfx::DrawingContext* context = event.GetDrawContext ();
    if (context == nullptr || event.GetTabFieldIndex () != GetPreviewColumnIndex ()) return;
    const ODB::ConstRef<ADB::AttributeSet> set = GetAttributeSet ();
    const ADB::AttributeIndex& index = GetDisplayedAttributeIndex ();
    if (set.IsNull () || index == ADB::InvalidAttributeIndex) return;
    const Gfx::Rect rect = GetRightHalfPreviewRect (event.GetRect ());
    const bool greyed = !GetStatus ();
    const auto* material = TxAttr::FindAttribute<TxAttr::Material> (*set, TxAttr::idMaterial, index);
    if (material == nullptr) {
        TxAC::PreviewDrawUtility::DrawInvalidAttr (*context, rect, greyed, "?");
        return;
    }
    const auto shade = [greyed] (const Gfx::Color& color) { return greyed ? TxAC::PreviewDrawUtility::Grey (color) : color; };
    const Gfx::Color black = PenColor (0, false, set, Gfx::Color::Black);
    const Gfx::Color white = PenColor (0, true, set, Gfx::Color::White);
    const Gfx::Color frame = PenColor (FramePen, false, set, black);
    const Gfx::Color surface = TxAC::RGBColorToGfxColor (material->GetSurfaceColor ());

    context->FrameRect (rect.Inset (OuterFrameInset - 1, OuterFrameInset - 1), shade (frame));
    context->FrameRect (rect.Inset (GapFrameInset - 1, GapFrameInset - 1), shade (white));
    const Gfx::Rect inner = rect.Inset (SurfaceInset - 1, SurfaceInset - 1);
    if (set->FindAttribute (TxAttr::idFill, material->GetTextureFill ()) != nullptr)
        TxAC::PreviewDrawUtility::DrawFillPattern (*context, inner, *set, material->GetTextureFill (), black, surface, surface, greyed);
    else
        context->FillRect (inner, shade (surface));
}

void AttributeListMaterialItem::SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index)
{
    Kor::LifeWatch alive (*this);
    AttributePickerListItem::SelectedAttributeIndexChanged (source, index);
    if (alive.IsGone ()) return;
    NotifyObservers<AttributeListMaterialItemObserver> ([this] (AttributeListMaterialItemObserver& o) { o.MaterialChanged (*this); });
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
    return Kor::NewOwner<TxAC::BuildingMaterialPickerPopUp> (GetPopUpAnchor (),
                                                             Kor::NewOwner<TxAC::BuildingMaterialPickerData> (GetAttributeSet ()),
                                                             GetSelectedAttributeIndex (), TxAC::AttributePickerPopUp::DropBelowAnchor);
}

void AttributeListBuildingMaterialItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    Gfx::DrawingContext* context = event.GetDrawContext ();
    if (context == nullptr || event.GetTabFieldIndex () != GetPreviewColumnIndex ()) return;
    const ODB::ConstRef<ADB::AttributeSet> set = GetAttributeSet ();
    const ADB::AttributeIndex& index = GetDisplayedAttributeIndex ();
    if (set.IsNull () || index == ADB::InvalidAttributeIndex) return;
    const Gfx::Rect rect = GetRightHalfPreviewRect (event.GetRect ());
    const bool greyed = !GetStatus ();
    if (IsValidAttr (index, TxAC::BuildingMaterialTypeCode, set, &TxAC::BuildingMaterialControlCallBack, nullptr))
        TxAC::PreviewDrawUtility::DrawBuildingMaterial (*context, rect, *set, index, greyed);
    else
        TxAC::PreviewDrawUtility::DrawInvalidAttr (*context, rect, greyed, "?");
}

void AttributeListBuildingMaterialItem::SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source,
                                                                       const ADB::AttributeIndex& index)
{
    Kor::LifeWatch alive (*this);
    AttributePickerListItem::SelectedAttributeIndexChanged (source, index);
    if (alive.IsGone ()) return;
    NotifyObservers<AttributeListBuildingMaterialItemObserver> (
        [this] (AttributeListBuildingMaterialItemObserver& o) { o.BuildingMaterialChanged (*this); });
}

}   // namespace TxAL
