#include "TxAC/PickerFilters.hpp"

#include <algorithm>

#include "TxAttr/Attributes.hpp"

namespace TxAC {

namespace {

bool Contains (const std::vector<ADB::AttributeIndex>& indices, ADB::AttributeIndex index)
{
    return std::find (indices.begin (), indices.end (), index) != indices.end ();
}

}   // namespace

std::vector<ADB::AttributeIndex> AttributePickerFilter::Select (const ADB::AttributeSet& set, ADB::AttributeTypeId type) const
{
    std::vector<ADB::AttributeIndex> selected;
    for (ADB::AttributeIndex index : set.GetAttributeIndices (type))
        if (const ADB::Attribute* attribute = set.FindAttribute (type, index); attribute != nullptr && Accepts (*attribute))
            selected.push_back (index);
    return selected;
}

// --- AttributeListAndFolderFilter ---

bool AttributeListAndFolderFilter::Accepts (const ADB::Attribute& attribute) const
{
    if (Contains (indices, attribute.GetIndex ())) return true;
    return std::any_of (folders.begin (), folders.end (), [&attribute] (const Folder& folder) { return Contains (folder.indices, attribute.GetIndex ()); });
}

// --- FillPickerFilter ---

FillPickerFilter::FillPickerFilter (short mode, ADB::AttributeIndex selected, HatchOrigin origin) : mode (mode), selected (selected), origin (origin)
{
}

bool FillPickerFilter::Accepts (const ADB::Attribute& attribute) const
{
    if (attribute.GetIndex () == selected) return true;
    const auto* fill = ADB::AttributeCast<TxAttr::Fill> (&attribute);
    if (fill == nullptr) return false;
    using namespace TxAttr::FillUsage;
    const int usage = fill->GetUsage ();
    const bool empty = fill->GetKind () == TxAttr::FillKind::Empty;
    switch (mode) {
        case 1: return (usage & Cut) != 0;
        case 2: return (usage & Cover) != 0;
        case 3: return (usage & Drafting) != 0;
        case 4: return (usage & (Cut | Cover)) != 0;
        case 5: return fill->GetKind () == TxAttr::FillKind::Solid;
        case 6: return fill->GetKind () == TxAttr::FillKind::Hatch;
        case 7: return (usage & Cut) != 0 && !empty;
        case 8: return (usage & (Drafting | Cut)) != 0;
        case 9: return (usage & Cover) != 0 && !empty;
        default: return true;
    }
}

// --- CompositePickerFilter ---

CompositePickerFilter::CompositePickerFilter (int kindMask, ADB::AttributeIndex selected) : kindMask (kindMask), selected (selected)
{
}

bool CompositePickerFilter::Accepts (const ADB::Attribute& attribute) const
{
    if (attribute.GetIndex () == selected) return true;
    const auto* composite = ADB::AttributeCast<TxAttr::Composite> (&attribute);
    return composite != nullptr && (composite->GetUsage () & kindMask) != 0;
}

// --- LineTypePickerFilter ---

LineTypePickerFilter::LineTypePickerFilter (short mode, ADB::AttributeIndex selected) : mode (mode), selected (selected)
{
}

bool LineTypePickerFilter::Accepts (const ADB::Attribute& attribute) const
{
    if (attribute.GetIndex () == selected) return true;
    const auto* lineType = ADB::AttributeCast<TxAttr::LineType> (&attribute);
    if (lineType == nullptr) return false;
    return mode != 1 || !lineType->IsSolid ();
}

// --- ProfilePickerFilter ---

ProfilePickerFilter::ProfilePickerFilter (int typeMask, short showCustomMode, ADB::AttributeIndex customProfile, bool coreModeFiltering,
                                          std::vector<ADB::AttributeIndex> excluded)
    : typeMask (typeMask),
      showCustomMode (showCustomMode),
      customProfile (customProfile),
      coreModeFiltering (coreModeFiltering),
      excluded (std::move (excluded))
{
}

bool ProfilePickerFilter::IsExcluded (ADB::AttributeIndex index) const
{
    return Contains (excluded, index);
}

bool ProfilePickerFilter::Accepts (const ADB::Attribute& attribute) const
{
    const auto* profile = ADB::AttributeCast<TxAttr::Profile> (&attribute);
    if (profile == nullptr || IsExcluded (attribute.GetIndex ())) return false;
    if (coreModeFiltering && (profile->GetUsage () & TxAttr::ProfileUsage::Wall) == 0) return false;
    return typeMask == 0 || (profile->GetUsage () & typeMask) != 0;
}

std::vector<ADB::AttributeIndex> ProfilePickerFilter::Select (const ADB::AttributeSet& set, ADB::AttributeTypeId type) const
{
    std::vector<ADB::AttributeIndex> selected;
    const bool customExists = customProfile.IsValid () && set.FindAttribute (type, customProfile) != nullptr && !IsExcluded (customProfile);
    if (showCustomMode != HideCustom && customExists) selected.push_back (customProfile);
    if (showCustomMode == CustomOnly) return selected;
    for (ADB::AttributeIndex index : AttributePickerFilter::Select (set, type))
        if (index != customProfile) selected.push_back (index);
    return selected;
}

// --- ProfileControlData ---

ProfileControlData::ProfileControlData (const ADB::IAttributeSetProvider* provider, int profileTypeMask, ADB::AttributeIndex customProfile,
                                        short showCustomMode)
    : provider (provider), profileTypeMask (profileTypeMask), customProfile (customProfile), showCustomMode (showCustomMode)
{
}

}   // namespace TxAC
