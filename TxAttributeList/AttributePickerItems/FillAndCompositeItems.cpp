// The fill and composite rows: pens imposed on the preview, the sub type that narrows the
// picker, and the notification of a choice.

#include "TxAttributeList/AttributePickerItems.hpp"

#include "AttributePickerItems/PickerAsserts.hpp"
#include "TxAC/PreviewDrawUtility.hpp"
#include "TxAttr/Attributes.hpp"
#include "TxAttributeList/FillPenHelpers.hpp"
#include "Wg/ListBox.hpp"

namespace TxAL {

namespace {

constexpr std::uint8_t Opaque = 255;
// The composite kind bits (walls, slabs, roofs, shells) and their union.
constexpr int WallKind = 4;
constexpr int SlabKind = 8;
constexpr int RoofKind = 16;
constexpr int ShellKind = 32;
constexpr int AllKindsMask = WallKind | SlabKind | RoofKind | ShellKind;

AttributeListFillAndCompositeBaseItem::OptionalColor ResolvePen (short pen, bool background, const ODB::ConstRef<ADB::AttributeSet>& set)
{
    AttributeListFillAndCompositeBaseItem::OptionalColor color;
    if (SetDiFillColors (pen, background, &color.red, &color.green, &color.blue, set)) {
        color.alpha = Opaque;
        color.present = true;
    }
    return color;
}

Gfx::Color ColorOr (const AttributeListFillAndCompositeBaseItem::OptionalColor& color, const Gfx::Color& fallback)
{
    return color.present ? color.ToColor () : fallback;
}

}   // namespace

// --- AttributeListFillAndCompositeBaseItem ---

AttributeListFillAndCompositeBaseItem::AttributeListFillAndCompositeBaseItem (const Kor::UniString& name, const Wg::Icon& icon,
                                                                              const Wg::Icon& customIcon,
                                                                              const ADB::IAttributeSetProvider* provider,
                                                                              const ADB::AttributeIndex& index, bool status, bool boldText,
                                                                              ADB::AttributeTypeId attributeTypeId)
    : AttributePickerListItem (name, icon, provider, index, status, boldText, attributeTypeId), customIcon (customIcon)
{
}

void AttributeListFillAndCompositeBaseItem::SetPen (OptionalPen& slot, short pen)
{
    if (pen == NoPen) {
        slot.set = false;
    } else {
        slot.pen = pen;
        slot.set = true;
    }
    // Refreshed even when nothing changed: the pen table behind the pen may have.
    RefreshItem (true);
}

void AttributeListFillAndCompositeBaseItem::SetForegroundPen (short pen) { SetPen (foregroundPen, pen); }
void AttributeListFillAndCompositeBaseItem::SetBackgroundPen (short pen) { SetPen (backgroundPen, pen); }
void AttributeListFillAndCompositeBaseItem::SetContourPen (short pen) { SetPen (contourPen, pen); }
void AttributeListFillAndCompositeBaseItem::SetSeparatorPen (short pen) { SetPen (separatorPen, pen); }

AttributeListFillAndCompositeBaseItem::Colors AttributeListFillAndCompositeBaseItem::GetColors () const
{
    Colors colors;
    const ODB::ConstRef<ADB::AttributeSet> set = GetAttributeSet ();
    if (set.IsNull ()) return colors;
    if (foregroundPen.set) colors.foreground = ResolvePen (foregroundPen.pen, false, set);
    if (backgroundPen.set) colors.background = ResolvePen (backgroundPen.pen, true, set);
    if (contourPen.set) colors.contour = ResolvePen (contourPen.pen, false, set);
    if (separatorPen.set) colors.separator = ResolvePen (separatorPen.pen, false, set);
    return colors;
}

void AttributeListFillAndCompositeBaseItem::StoreSubType (std::int32_t& subType, std::int32_t newSubType)
{
    if (subType == newSubType) return;
    subType = newSubType;
    RefreshItem (false);
}

// --- AttributeListFillItem ---

AttributeListFillItem::AttributeListFillItem (const Kor::UniString& name, const Wg::Icon& icon, const Wg::Icon& customIcon,
                                              const ADB::IAttributeSetProvider* provider, SubType subType, const ADB::AttributeIndex& index,
                                              short foregroundPen, short backgroundPen, short contourPen, short separatorPen, bool status,
                                              bool boldText)
    : AttributeListFillAndCompositeBaseItem (name, icon, customIcon, provider, index, status, boldText, TxAttr::idFill), subType (subType)
{
    if (foregroundPen != NoPen) SetForegroundPen (foregroundPen);
    if (backgroundPen != NoPen) SetBackgroundPen (backgroundPen);
    if (contourPen != NoPen) SetContourPen (contourPen);
    if (separatorPen != NoPen) SetSeparatorPen (separatorPen);
}

short AttributeListFillItem::GetFilterMode (SubType subType)
{
    switch (subType) {
        case DraftingAndCutFills: return 8;
        case SolidFills: return 5;
        case CutFillsWithoutEmpty: return 7;
        case EveryFill: return 0;
        case DraftingFills: return 3;
        case CoverFillsWithoutEmpty: return 9;
        default: return 1;
    }
}

Kor::Owner<TxAC::AttributePickerPopUp> AttributeListFillItem::CreatePickerPopUp ()
{
    auto data = Kor::NewOwner<TxAC::FillPickerData> (GetAttributeSet ());
    if (subType == CustomFills) {
        PickerAsserts::CheckCustomFilter (GetCustomFilter (), PickerAsserts::FillWithoutCustomFilterLine,
                                          "TxAL::AttributeListFillItem::CreatePickerPopUp");
        return MakePickerPopUp<TxAC::FillPickerPopUp> (std::move (data), GetCustomFilter ());
    }
    auto filter = Kor::NewOwner<TxAC::FillPickerFilter> (GetFilterMode (GetSubType ()), GetSelectedAttributeIndex (),
                                                         TxAC::FillPickerFilter::HatchOrigin {0.0f, 0.0f});
    return MakePickerPopUp<TxAC::FillPickerPopUp> (std::move (data), std::move (filter));
}

void AttributeListFillItem::SetCustomFilter (Kor::Owner<TxAC::AttributeListAndFolderFilter> filter)
{
    if (filter.IsValid ()) SetSubType (CustomFills);
    AttributePickerListItem::SetCustomFilter (std::move (filter));
}

void AttributeListFillItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    const std::optional<PreviewCell> cell = GetPreviewCell (event);
    if (!cell.has_value ()) return;
    if (cell->set->FindAttribute (TxAttr::idFill, cell->index) == nullptr) return DrawMissingAttribute (*cell);
    // The fill preview imposes black on white with a black frame where no pen is set.
    const Colors colors = GetColors ();
    TxAC::PreviewDrawUtility::DrawFillPattern (cell->context, cell->rect, *cell->set, cell->index,
                                               ColorOr (colors.foreground, Gfx::Color::Black), ColorOr (colors.background, Gfx::Color::White),
                                               ColorOr (colors.contour, Gfx::Color::Black), cell->greyed);
}

void AttributeListFillItem::SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index)
{
    KeepChoiceAndNotify (source, index, &AttributeListFillItemObserver::FillChanged);
}

// --- AttributeListCompositeItem ---

AttributeListCompositeItem::AttributeListCompositeItem (const Kor::UniString& name, const Wg::Icon& icon,
                                                        const ADB::IAttributeSetProvider* provider, SubType subType,
                                                        const ADB::AttributeIndex& index, bool status, bool boldText)
    : AttributeListFillAndCompositeBaseItem (name, icon, Wg::Icon (), provider, index, status, boldText, TxAttr::idCompWall), subType (subType)
{
}

int AttributeListCompositeItem::GetFilterOption (SubType subType)
{
    switch (subType) {
        // Sub types 1 and 6 both offer every kind, on purpose.
        case AllKinds: return AllKindsMask;
        case WallComposites: return WallKind;
        case SlabComposites: return SlabKind;
        case RoofComposites: return RoofKind;
        case ShellComposites: return ShellKind;
        case AnyKind: return AllKindsMask;
        default:
            PickerAsserts::Report (PickerAsserts::UnknownCompositeSubTypeLine, "known composite sub type", "TxAL::GetFilterOption");
            return AllKindsMask;
    }
}

Kor::Owner<TxAC::AttributePickerPopUp> AttributeListCompositeItem::CreatePickerPopUp ()
{
    auto data = Kor::NewOwner<TxAC::CompositePickerData> (GetAttributeSet ());
    if (subType == CustomComposites) {
        PickerAsserts::CheckCustomFilter (GetCustomFilter (), PickerAsserts::CompositeWithoutCustomFilterLine,
                                          "TxAL::AttributeListCompositeItem::CreatePickerPopUp");
        return MakePickerPopUp<TxAC::CompositePickerPopUp> (std::move (data), GetCustomFilter ());
    }
    auto filter = Kor::NewOwner<TxAC::CompositePickerFilter> (GetFilterOption (GetSubType ()), GetSelectedAttributeIndex ());
    return MakePickerPopUp<TxAC::CompositePickerPopUp> (std::move (data), std::move (filter));
}

void AttributeListCompositeItem::SetCustomFilter (Kor::Owner<TxAC::AttributeListAndFolderFilter> filter)
{
    if (filter.IsValid ()) SetSubType (CustomComposites);
    AttributePickerListItem::SetCustomFilter (std::move (filter));
}

void AttributeListCompositeItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    const std::optional<PreviewCell> cell = GetPreviewCell (event);
    if (!cell.has_value ()) return;
    if (cell->set->FindAttribute (TxAttr::idCompWall, cell->index) == nullptr) return DrawMissingAttribute (*cell);
    // Where a pen is not set the drawing utility picks the composite's own colours.
    const Colors colors = GetColors ();
    const Gfx::Color placeholder;
    TxAC::PreviewDrawUtility::DrawCompWall (cell->context, cell->rect, *cell->set, cell->index, ColorOr (colors.foreground, placeholder),
                                            ColorOr (colors.background, placeholder), ColorOr (colors.contour, placeholder),
                                            ColorOr (colors.separator, placeholder), !colors.foreground.present, !colors.background.present,
                                            !colors.contour.present, !colors.separator.present, cell->greyed);
}

void AttributeListCompositeItem::SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index)
{
    KeepChoiceAndNotify (source, index, &AttributeListCompositeItemObserver::CompositeChanged);
}

}   // namespace TxAL
