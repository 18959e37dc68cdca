#include "TxAttributeList/PropertyListItem.hpp"

#include <array>

#include "Kor/LifeWatch.hpp"
#include "PropertyList/DisplayRules.hpp"
#include "TxAttributeList/AttributeListGroupItem.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"

namespace TxAL {

namespace {

// String lists of the library's resource module.
constexpr int PopupStringsResId = 2002;
constexpr int PlaceholderStringsResId = 2003;

// Entries of list 2002.
constexpr int DefaultEntryTemplateIndex = 1;
constexpr int CustomEntryTemplateIndex = 2;
constexpr const char* DefaultValueTypeKey = "%DefaultValueType%";
constexpr const char* CustomValueTypeKey = "%CustomValueType%";

// Entries of list 2003.
constexpr int NotCalculatedIndex = 1;
constexpr int CalculationFailedIndex = 2;
constexpr int NotAvailableIndex = 3;

// Icons of the popup entries and of the calculate button.
constexpr int DefaultEntryIconResId = 31887;
constexpr int CustomEntryIconResId = 31888;
constexpr int CalculateIconResId = 31893;

// A button shows only for icons of the library's own id range.
constexpr std::int32_t ButtonIconResIdLimit = 65535;

// What an informational placeholder shows when no rule gives a text.
constexpr const char* UnknownValueText = "###";

// The fixed lookups of the popup texts, built once and shared by every item.
struct PopupTextTables {
    // Default value type (0, 1, 2) to the string of list 2002 that fills the default entry.
    std::array<int, 3> defaultTypeString {4, 5, 3};
    // Status of the custom value to the string that fills the custom entry: user-undefined 3, else 4.
    int customUndefinedString = 3;
    int customNormalString = 4;
    // Status the status entry offers to the string of its text: back to normal 7, to undefined 6.
    int offerNormalString = 7;
    int offerUndefinedString = 6;
};

const PopupTextTables& GetPopupTextTables ()
{
    static const PopupTextTables tables;
    return tables;
}

constexpr std::size_t DefaultValueTypeCount = 3;

// The popups and placeholder texts are the same for every item of a kind: they are made once
// per registration of the library's resource module (a list of a thousand properties would
// otherwise look up and decode the same strings thousands of times).
class PropertyResourceCache {
public:
    static PropertyResourceCache& Get ()
    {
        static PropertyResourceCache cache;
        if (cache.module != GetLibResModule ()) {
            const std::uint64_t generation = cache.generation + 1;
            cache = PropertyResourceCache (GetLibResModule ());
            cache.generation = generation;
        }
        return cache;
    }

    // The four entries for a default value type (clamped to the known ones) and whether the
    // custom value is user-undefined.
    const Kor::Array<AttributeListItem::PopupItem>& GetPopupEntries (std::int32_t defaultValueType, bool undefinedCustom)
    {
        const std::size_t type = defaultValueType >= 0 && static_cast<std::size_t> (defaultValueType) < DefaultValueTypeCount
                                     ? static_cast<std::size_t> (defaultValueType)
                                     : 0;
        Kor::Array<AttributeListItem::PopupItem>& entries = popups[type * 2 + (undefinedCustom ? 1 : 0)];
        if (entries.IsEmpty ()) entries = MakePopupEntries (type, undefinedCustom);
        return entries;
    }

    const Kor::UniString& GetPlaceholderText (int index)
    {
        Kor::UniString& text = placeholderTexts[static_cast<std::size_t> (index)];
        if (text.IsEmpty ()) text = GetResourceString (PlaceholderStringsResId, index);
        return text;
    }

    const Wg::Icon& GetCalculateIcon () const { return calculateIcon; }
    // Changes whenever the entries are made anew.
    std::uint64_t   GetGeneration () const { return generation; }

private:
    PropertyResourceCache () = default;
    explicit PropertyResourceCache (std::int64_t module) : module (module), calculateIcon (GetResourceIcon (CalculateIconResId)) {}

    static Kor::Array<AttributeListItem::PopupItem> MakePopupEntries (std::size_t type, bool undefinedCustom)
    {
        const PopupTextTables& tables = GetPopupTextTables ();
        Kor::Array<AttributeListItem::PopupItem> entries;

        AttributeListItem::PopupItem defaultEntry;
        defaultEntry.SetIcon (GetResourceIcon (DefaultEntryIconResId));
        Kor::UniString defaultText = GetResourceString (PopupStringsResId, DefaultEntryTemplateIndex);
        defaultText.ReplaceFirst (DefaultValueTypeKey, GetResourceString (PopupStringsResId, tables.defaultTypeString[type]));
        defaultEntry.SetText (defaultText);
        entries.Push (defaultEntry);

        AttributeListItem::PopupItem separator;
        separator.SetIsSeparator (true);
        entries.Push (separator);

        AttributeListItem::PopupItem customEntry;
        customEntry.SetIcon (GetResourceIcon (CustomEntryIconResId));
        Kor::UniString customText = GetResourceString (PopupStringsResId, CustomEntryTemplateIndex);
        customText.ReplaceFirst (CustomValueTypeKey,
                                 GetResourceString (PopupStringsResId, undefinedCustom ? tables.customUndefinedString : tables.customNormalString));
        customEntry.SetText (customText);
        customEntry.SetUserData (Kor::NewRef<VariantStatusWrapper> (Kor::DynamicValue::Normal));
        entries.Push (customEntry);

        AttributeListItem::PopupItem statusEntry;
        statusEntry.SetText (GetResourceString (PopupStringsResId, undefinedCustom ? tables.offerNormalString : tables.offerUndefinedString));
        statusEntry.SetUserData (
            Kor::NewRef<VariantStatusWrapper> (undefinedCustom ? Kor::DynamicValue::Normal : Kor::DynamicValue::UserUndefined));
        entries.Push (statusEntry);
        return entries;
    }

    std::int64_t                                                     module = -1;
    std::uint64_t                                                    generation = 0;
    std::array<Kor::Array<AttributeListItem::PopupItem>, DefaultValueTypeCount * 2> popups;
    std::array<Kor::UniString, NotAvailableIndex + 1>                placeholderTexts;
    Wg::Icon                                                         calculateIcon;
};

// Positions of the entries in every popup.
constexpr std::int32_t DefaultEntryPosition = 0;
constexpr std::int32_t CustomEntryPosition = 2;
constexpr std::int32_t StatusEntryPosition = 3;

bool IsNormal (const Kor::DynamicValue* value)
{
    return value != nullptr && value->GetStatus () == Kor::DynamicValue::Normal;
}

}   // namespace

void PropertyListItemObserver::HasCustomValueChanged (const PropertyListItem&, const Kor::DynamicValue*, const Kor::DynamicValue*) {}
void PropertyListItemObserver::PropertyValueChanged (const PropertyListItem&, const Kor::DynamicValue*) {}

// Forwards the icon-column popup choices of every possible item to its property item.
class PropertyListItem::PropertyAttributeListItemObserver : public AttributeListItemObserver {
public:
    explicit PropertyAttributeListItemObserver (PropertyListItem& owner) : owner (owner)
    {
        owner.ForAllPossibleAttributeListItems ([this] (AttributeListSimpleItem& item) { item.AttributeListItem::Attach (*this); });
    }

    void IconColumnPopupChanged (const AttributeListItem& item) override { owner.HasCustomValuePopupChanged (item); }

private:
    PropertyListItem& owner;
};

PropertyListItem::PropertyListItem () : placeholderItem ({}, Wg::Icon (), {}, {}, Wg::Icon (), true, false)
{
    placeholderItem.Attach (static_cast<AttributeListIconButtonItemObserver&> (*this));
}

PropertyListItem::~PropertyListItem () = default;

void PropertyListItem::Initialize ()
{
    attributeItemObserver = Kor::NewOwner<PropertyAttributeListItemObserver> (*this);
}

void PropertyListItem::Update (const Kor::Ref<PropertyListItemValueGetter>& getter, bool hasCustom)
{
    if (!(getter == valueGetter)) valueGetter = getter;
    hasCustomValue = hasCustom;
    if (IsValueToBeShown ()) {
        // The getter is the host's: it may remove this item.
        Kor::LifeWatch alive (*this);
        CalculatePropertyValue ();
        if (alive.IsGone ()) return;
    }
    FillHasCustomValuePopupItems ();
    UpdateListItemHasCustomValuePopupIndex ();
    ChangeCurrentAttributeListItem (GetVisibleAttributeListItem ());
}

void PropertyListItem::AddToGroup (AttributeListGroupItem& group)
{
    AttributeListSimpleItem& visible = GetVisibleAttributeListItem ();
    currentItem = &visible;
    group.AddItem (visible);
}

void PropertyListItem::SetPropertyName (const Kor::UniString& name)
{
    ForAllPossibleAttributeListItems ([&name] (AttributeListSimpleItem& item) { item.SetName (name); });
}

void PropertyListItem::SetPropertyDescription (const Kor::UniString& description)
{
    const Kor::UniString trimmed = description.Trimmed ();
    ForAllPossibleAttributeListItems ([&trimmed] (AttributeListSimpleItem& item) { item.SetDefaultToolTip (trimmed); });
}

void PropertyListItem::SetEditable (bool editable)
{
    ForAllPossibleAttributeListItems ([editable] (AttributeListSimpleItem& item) { item.SetStatus (editable); });
}

void PropertyListItem::SetPropertyDefaultValueType (DefaultValueType type)
{
    defaultValueType = type;
    FillHasCustomValuePopupItems ();
}

void PropertyListItem::DisableValueCalculation (ValueCalculationDisableMode mode)
{
    calculationState = mode == CalculationNotAvailable ? CalculationDisabledNotAvailable : CalculationDisabled;
}

void PropertyListItem::PropertyValueChanged ()
{
    NotifyObservers<PropertyListItemObserver> ([this] (PropertyListItemObserver& o) { o.PropertyValueChanged (*this, value.Get ()); });
}

// --- The visible item ---

bool PropertyListItem::IsValueToBeShown () const
{
    return hasCustomValue || automaticDisplay || calculationState == Calculated;
}

AttributeListSimpleItem& PropertyListItem::GetVisibleAttributeListItem ()
{
    if (IsValueToBeShown () && value != nullptr && value->IsValid ()) {
        if (value->GetStatus () == Kor::DynamicValue::Normal) return GetValueAttributeListItem ();
        if (value->GetStatus () == Kor::DynamicValue::UserUndefined) {
            ConfigurePlaceHolderItem (value->ToDisplayText (GetPropertyDisplayRules ()), Wg::Icon ());
            return placeholderItem;
        }
    }
    PropertyResourceCache& resources = PropertyResourceCache::Get ();
    switch (calculationState) {
        case Calculable:
            ConfigurePlaceHolderItem (resources.GetPlaceholderText (NotCalculatedIndex), resources.GetCalculateIcon ());
            return placeholderItem;
        case CalculationFailed:
            ConfigurePlaceHolderItem (resources.GetPlaceholderText (CalculationFailedIndex), Wg::Icon ());
            return placeholderItem;
        case CalculationDisabled:
            ConfigurePlaceHolderItem (resources.GetPlaceholderText (NotCalculatedIndex), Wg::Icon ());
            return placeholderItem;
        case CalculationDisabledNotAvailable:
            ConfigurePlaceHolderItem (resources.GetPlaceholderText (NotAvailableIndex), Wg::Icon ());
            return placeholderItem;
        case Calculated: break;
    }
    ConfigurePlaceHolderItem (UnknownValueText, Wg::Icon ());
    return placeholderItem;
}

void PropertyListItem::ConfigurePlaceHolderItem (const Kor::UniString& text, const Wg::Icon& icon)
{
    placeholderItem.SetText (text);
    placeholderItem.SetButtonIcon (icon);
    const bool showButton = icon.GetResourceId () < ButtonIconResIdLimit && icon.IsValid ();
    placeholderItem.SetOnTabItemVisibility (showButton);
    placeholderItem.SetButtonIconAlwaysActive (showButton);
}

void PropertyListItem::ChangeCurrentAttributeListItem (AttributeListSimpleItem& item)
{
    AttributeListSimpleItem* previous = currentItem;
    if (previous != nullptr && itemChangedCallback) itemChangedCallback (*previous, item);
    currentItem = &item;
}

// --- Calculation ---

bool PropertyListItem::CalculatePropertyValue ()
{
    if (valueGetter.IsNull ()) return false;
    Kor::Owner<Kor::DynamicValue> result = valueGetter->GetValue ();
    if (result == nullptr || !result->IsValid ()) return false;
    value = result->Clone ();
    if (IsNormal (value.Get ())) UpdateValueAttributeListItem ();
    return true;
}

void PropertyListItem::CalculateOnButton (const AttributeListIconButtonItem& source)
{
    if (&source != &placeholderItem) return;
    Kor::LifeWatch alive (*this);
    const bool     calculated = CalculatePropertyValue ();
    if (alive.IsGone ()) return;
    calculationState = calculated ? Calculated : CalculationFailed;
    ChangeCurrentAttributeListItem (GetVisibleAttributeListItem ());
}

void PropertyListItem::ButtonClicked (const AttributeListIconButtonItem& item)
{
    CalculateOnButton (item);
}

void PropertyListItem::ButtonIconClicked (const AttributeListIconButtonItem& item)
{
    CalculateOnButton (item);
}

// --- The custom-value popup ---

bool PropertyListItem::HoldsUserUndefinedCustomValue () const
{
    return hasCustomValue && value != nullptr && value->GetStatus () == Kor::DynamicValue::UserUndefined;
}

void PropertyListItem::FillHasCustomValuePopupItems ()
{
    const bool undefinedCustom = HoldsUserUndefinedCustomValue ();
    PropertyResourceCache& resources = PropertyResourceCache::Get ();
    const Kor::Array<AttributeListItem::PopupItem>& entries = resources.GetPopupEntries (defaultValueType, undefinedCustom);
    defaultEntryIndex = DefaultEntryPosition;
    customEntryIndex = CustomEntryPosition;
    statusEntryIndex = StatusEntryPosition;
    // The items hold these entries already when the same kind of popup was set last time.
    if (appliedPopup == &entries && appliedPopupGeneration == resources.GetGeneration ()) return;
    ForAllPossibleAttributeListItems ([&entries] (AttributeListSimpleItem& item) { item.SetIconColumnPopupItems (entries); });
    appliedPopup = &entries;
    appliedPopupGeneration = resources.GetGeneration ();
}

void PropertyListItem::UpdateListItemHasCustomValuePopupIndex ()
{
    const std::int32_t selected = hasCustomValue ? customEntryIndex : defaultEntryIndex;
    ForAllPossibleAttributeListItems (
        [selected] (AttributeListSimpleItem& item) { item.SetSelectedIconColumnPopupItemIndex (static_cast<std::uint32_t> (selected)); });
}

Kor::Owner<Kor::DynamicValue> PropertyListItem::CopyOfCustomValue () const
{
    if (!hasCustomValue || value == nullptr) return nullptr;
    return value->Clone ();
}

void PropertyListItem::HasCustomValuePopupChanged (const AttributeListItem& source)
{
    const Kor::Owner<Kor::DynamicValue> oldCustom = CopyOfCustomValue ();
    const std::uint32_t selected = source.GetSelectedIconColumnPopupItemIndex ();
    const bool wantCustom = selected != static_cast<std::uint32_t> (defaultEntryIndex);
    Kor::DynamicValue::Status wanted = Kor::DynamicValue::Normal;
    bool hasWanted = false;
    if (wantCustom) {
        const Kor::Ref<Kor::Object, Kor::Counter> data = source.GetSelectedIconColumnPopupItemUserData ();
        if (data.IsValid ()) {
            // Entry user data is always a status wrapper; anything else is a broken invariant.
            wanted = Kor::CheckedCast<VariantStatusWrapper> (*data).GetStatus ();
            hasWanted = true;
        }
    }
    Kor::LifeWatch alive (*this);
    SetHasCustomValue (wantCustom, hasWanted ? &wanted : nullptr);
    if (alive.IsGone ()) return;
    const Kor::Owner<Kor::DynamicValue> newCustom = CopyOfCustomValue ();
    NotifyObservers<PropertyListItemObserver> (
        [&] (PropertyListItemObserver& o) { o.HasCustomValueChanged (*this, oldCustom.Get (), newCustom.Get ()); });
}

void PropertyListItem::SetHasCustomValue (bool wantCustom, const Kor::DynamicValue::Status* wantedStatus)
{
    if (wantCustom && (wantedStatus == nullptr ||
                       (*wantedStatus != Kor::DynamicValue::Normal && *wantedStatus != Kor::DynamicValue::UserUndefined)))
        return;
    hasCustomValue = wantCustom;
    if (!hasCustomValue) return;
    if (value != nullptr && value->GetStatus () == *wantedStatus) return;
    // Throws "Null reference." without a getter: a custom value needs a source of fresh values.
    Kor::Owner<Kor::DynamicValue> fresh = valueGetter->CreateValue ();
    fresh->SetStatus (*wantedStatus);
    value = std::move (fresh);
    if (IsNormal (value.Get ())) UpdateValueAttributeListItem ();
}

}   // namespace TxAL
