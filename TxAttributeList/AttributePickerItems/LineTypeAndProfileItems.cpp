// The line type and profile rows: sub types that narrow their pickers, the profile picker's
// set-up, the line type preview.

#include "TxAttributeList/AttributePickerItems.hpp"

#include "AttributePickerItems/PickerAsserts.hpp"
#include "TxAC/PreviewDrawUtility.hpp"
#include "TxAttr/Attributes.hpp"
#include "Wg/ListBox.hpp"

namespace TxAL {

namespace {

// Line type filter modes: every line type, dashed ones only.
constexpr short AllLineTypesMode = 0;
constexpr short DashedLineTypesMode = 1;
// The line type preview spans the cell, inset by this much.
constexpr int LinePreviewInset = 1;

}   // namespace

// --- AttributeListLineTypeItem ---

AttributeListLineTypeItem::AttributeListLineTypeItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                                                      SubType subType, const ADB::AttributeIndex& index, bool status, bool boldText)
    : AttributePickerListItem (name, icon, provider, index, status, boldText, TxAttr::idLineType), subType (subType)
{
}

void AttributeListLineTypeItem::SetSubType (SubType newSubType)
{
    if (newSubType == subType) return;
    subType = newSubType;
    RefreshItem (false);
}

void AttributeListLineTypeItem::SetCustomFilter (Kor::Owner<TxAC::AttributeListAndFolderFilter> filter)
{
    // Stored directly, without a refresh, unlike the fill row.
    if (filter.IsValid ()) subType = CustomLineTypes;
    AttributePickerListItem::SetCustomFilter (std::move (filter));
}

Kor::Owner<TxAC::AttributePickerPopUp> AttributeListLineTypeItem::CreatePickerPopUp ()
{
    constexpr const char* Function = "TxAL::AttributeListLineTypeItem::CreatePickerPopUp";
    switch (subType) {
        case AllLineTypes:
        case DashedLineTypes: {
            const short mode = subType == AllLineTypes ? AllLineTypesMode : DashedLineTypesMode;
            return MakePickerPopUp<TxAC::LineTypePickerPopUp> (Kor::NewOwner<TxAC::LineTypePickerData> (GetAttributeSet ()),
                                                               Kor::NewOwner<TxAC::LineTypePickerFilter> (mode, GetSelectedAttributeIndex ()));
        }
        case CustomLineTypes:
            PickerAsserts::CheckCustomFilter (GetCustomFilter (), PickerAsserts::LineTypeWithoutCustomFilterLine, Function);
            return MakePickerPopUp<TxAC::LineTypePickerPopUp> (Kor::NewOwner<TxAC::LineTypePickerData> (GetAttributeSet ()), GetCustomFilter ());
        default:
            PickerAsserts::Report (PickerAsserts::UnknownLineTypeSubTypeLine, "known line type sub type", Function);
            return {};
    }
}

void AttributeListLineTypeItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    const std::optional<PreviewCell> cell = GetPreviewCell (event);
    if (!cell.has_value ()) return;
    // The whole cell, unlike the right-half previews of the other rows.
    const Gfx::Rect rect = event.GetRect ().Inset (LinePreviewInset, LinePreviewInset);
    TxAC::PreviewDrawUtility::DrawLineIntoRect (cell->context, rect, *cell->set, cell->index, Gfx::Color::Black, Gfx::Color::White,
                                                cell->greyed);
}

void AttributeListLineTypeItem::SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index)
{
    KeepChoiceAndNotify (source, index, &AttributeListLineTypeItemObserver::LineTypeChanged);
}

// --- AttributeListProfileItem ---

AttributeListProfileItem::AttributeListProfileItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                                                    SubType subType, const ADB::AttributeIndex& index,
                                                    const TxAC::ProfileControlData* data, bool status, bool boldText)
    : AttributePickerListItem (name, icon, provider, index, status, boldText, TxAttr::idProfile),
      controlData (data != nullptr ? Kor::NewOwner<TxAC::ProfileControlData> (provider, data->GetProfileTypeMask (), data->GetCustomProfile (),
                                                                              data->GetShowCustomMode ())
                                   : Kor::NewOwner<TxAC::ProfileControlData> (provider, 0, ADB::InvalidAttributeIndex,
                                                                              TxAC::ProfilePickerFilter::CustomFirst)),
      subType (subType)
{
}

int AttributeListProfileItem::GetProfileMask (SubType subType)
{
    // Column and beam swap places against their sub type order, on purpose.
    switch (subType) {
        case AllProfiles: return 0;
        case WallProfiles: return 1;
        case ColumnProfiles: return 4;
        case BeamProfiles: return 2;
        case HandrailProfiles: return 8;
        case OtherProfiles: return 16;
        default: return 0;
    }
}

void AttributeListProfileItem::SetSubType (SubType newSubType)
{
    if (newSubType == subType) return;
    subType = newSubType;
    controlData->SetProfileTypeMask (GetProfileMask (newSubType));
    RefreshItem (false);
}

void AttributeListProfileItem::SetProfileControlData (const TxAC::ProfileControlData* data)
{
    if (data == nullptr) return;
    controlData = Kor::NewOwner<TxAC::ProfileControlData> (*data);
    AttributePickerListItem::SetAttributeSetProvider (data->GetAttributeSetProvider ());
}

void AttributeListProfileItem::SetAttributeSetProvider (const ADB::IAttributeSetProvider* provider)
{
    AttributePickerListItem::SetAttributeSetProvider (provider);
    controlData = Kor::NewOwner<TxAC::ProfileControlData> (provider, controlData->GetProfileTypeMask (), controlData->GetCustomProfile (),
                                                           controlData->GetShowCustomMode ());
}

Kor::Owner<TxAC::AttributePickerPopUp> AttributeListProfileItem::CreatePickerPopUp ()
{
    if (!TxAC::ProfilePickerFilter::IsValidShowCustomMode (controlData->GetShowCustomMode ())) {
        PickerAsserts::Report (PickerAsserts::UnexpectedProfileSettingLine, "known show-custom mode",
                               "TxAL::AttributeListProfileItem::CreatePickerPopUp");
        return {};
    }
    auto filter = Kor::NewOwner<TxAC::ProfilePickerFilter> (controlData->GetProfileTypeMask (), controlData->GetShowCustomMode (),
                                                            controlData->GetCustomProfile (), controlData->GetCoreModeFiltering (),
                                                            controlData->GetExcludedIndices ());
    return MakePickerPopUp<TxAC::ProfilePickerPopUp> (Kor::NewOwner<TxAC::ProfilePickerData> (GetAttributeSet ()), std::move (filter));
}

void AttributeListProfileItem::SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index)
{
    KeepChoiceAndNotify (source, index, &AttributeListProfileItemObserver::ProfileChanged);
}

}   // namespace TxAL
