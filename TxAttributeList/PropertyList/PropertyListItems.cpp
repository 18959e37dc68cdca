#include "TxAttributeList/PropertyListItems.hpp"

#include "Kor/LifeWatch.hpp"
#include "KorUtils/ResourceString.hpp"
#include "PropertyList/DisplayRules.hpp"

namespace TxAL {

namespace {

// The value items of properties: no label icon, enabled, plain text. The name comes later.
constexpr bool ItemStatus = true;
constexpr bool ItemBoldText = false;

// The first string item of a boolean row stands for true.
constexpr short TrueEntry = 1;
constexpr short FalseEntry = 2;

template <typename T>
const T* ValueAs (const Kor::DynamicValue* value)
{
    return value != nullptr && value->GetStatus () == Kor::DynamicValue::Normal ? Kor::DynamicCast<T> (value) : nullptr;
}

}   // namespace

// --- Boolean ---

PropertyListBooleanItem::PropertyListBooleanItem ()
    : valueItem ({}, Wg::Icon (), {}, false, false, true, ItemStatus, ItemBoldText)
{
    valueItem.AddStringItem (KorUtils::GetResourceString (KorUtils::BoolChoicesResId, KorUtils::TrueChoiceIndex));
    valueItem.AddStringItem (KorUtils::GetResourceString (KorUtils::BoolChoicesResId, KorUtils::FalseChoiceIndex));
    valueItem.Attach (static_cast<AttributeListTextItemObserver&> (*this));
}

void PropertyListBooleanItem::UpdateValueAttributeListItem ()
{
    const Kor::DynamicValue* value = GetValue ();
    if (value == nullptr) return;
    valueItem.SetText (value->ToDisplayText (GetPropertyDisplayRules ()), false);
    if (const auto* boolValue = ValueAs<Kor::BoolValue> (value)) valueItem.SelectItem (boolValue->GetValue () ? TrueEntry : FalseEntry);
}

void PropertyListBooleanItem::SelectionChanged (const AttributeListSelectionItem& item)
{
    if (&item != &valueItem) return;
    SetValue (Kor::NewOwner<Kor::BoolValue> (valueItem.GetSelected () == TrueEntry));
    // Rewriting the row may commit typing elsewhere, whose observers may remove this item.
    Kor::LifeWatch alive (*this);
    UpdateValueAttributeListItem ();
    if (alive.IsAlive ()) PropertyValueChanged ();
}

// --- Integer ---

PropertyListIntItem::PropertyListIntItem ()
    : valueItem ({}, Wg::Icon (), static_cast<int> (AttributeListIntItem::LowestValue), static_cast<int> (AttributeListIntItem::HighestValue), 0,
                 true, ItemStatus, ItemBoldText)
{
    valueItem.Attach (static_cast<AttributeListRealItemObserver&> (*this));
}

void PropertyListIntItem::UpdateValueAttributeListItem ()
{
    if (const auto* intValue = ValueAs<Kor::IntValue> (GetValue ())) valueItem.AttributeListRealItem::SetValue (static_cast<double> (intValue->GetValue ()));
}

void PropertyListIntItem::ValueChanged (const AttributeListRealItem& item)
{
    if (&item != &valueItem) return;
    SetValue (Kor::NewOwner<Kor::IntValue> (valueItem.GetValue ()));
    PropertyValueChanged ();
}

// --- Plain, length, area and volume ---

template <typename ItemType>
PropertyListNumberItemBase<ItemType>::PropertyListNumberItemBase ()
    : valueItem ({}, Wg::Icon (), PropertyRealMinValue, PropertyRealMaxValue, 0.0, true, ItemStatus, ItemBoldText)
{
    valueItem.Attach (static_cast<AttributeListRealItemObserver&> (*this));
}

template <typename ItemType>
void PropertyListNumberItemBase<ItemType>::UpdateValueAttributeListItem ()
{
    if (const auto* number = ValueAs<Kor::NumValue> (GetValue ())) valueItem.SetValue (number->GetValue ());
}

template <typename ItemType>
void PropertyListNumberItemBase<ItemType>::ValueChanged (const AttributeListRealItem& item)
{
    if (&item != &valueItem) return;
    SetValue (Kor::NewOwner<Kor::NumValue> (valueItem.GetValue ()));
    PropertyValueChanged ();
}

template class PropertyListNumberItemBase<AttributeListRealItem>;
template class PropertyListNumberItemBase<AttributeListLengthItem>;
template class PropertyListNumberItemBase<AttributeListAreaItem>;
template class PropertyListNumberItemBase<AttributeListVolumeItem>;

// --- Angle ---

void PropertyListAngleItemBase::UpdateValueAttributeListItem ()
{
    if (const auto* number = ValueAs<Kor::NumValue> (GetValue ())) GetAngleAttributeListItem ().SetValue (number->GetValue () * RadiansToDegrees);
}

void PropertyListAngleItemBase::ValueChanged (const AttributeListRealItem& item)
{
    if (&item != &GetAngleAttributeListItem ()) return;
    SetValue (Kor::NewOwner<Kor::NumValue> (item.GetValue () * DegreesToRadians));
    PropertyValueChanged ();
}

PropertyListPolarAngleItem::PropertyListPolarAngleItem ()
    : valueItem ({}, Wg::Icon (), PropertyRealMinValue, PropertyRealMaxValue, 0.0, true, ItemStatus, ItemBoldText)
{
    valueItem.Attach (static_cast<AttributeListRealItemObserver&> (*this));
}

// --- Text ---

PropertyListTextItem::PropertyListTextItem () : valueItem ({}, Wg::Icon (), {}, false, true, false, ItemStatus, ItemBoldText)
{
    valueItem.Attach (static_cast<AttributeListTextItemObserver&> (*this));
}

void PropertyListTextItem::UpdateValueAttributeListItem ()
{
    if (const Kor::DynamicValue* value = GetValue ()) valueItem.SetText (value->ToDisplayText (GetPropertyDisplayRules ()), false);
}

void PropertyListTextItem::TextChanged (const AttributeListTextItem& item)
{
    if (&item != &valueItem) return;
    SetValue (Kor::NewOwner<Kor::StringValue> (valueItem.GetText ()));
    PropertyValueChanged ();
}

// --- Single enumeration ---

PropertyListSingleEnumerationItem::PropertyListSingleEnumerationItem (Kor::ConstSharedPtr<Property::EnumerationValueDescriptor> source)
    : descriptor (std::move (source)), valueItem ({}, Wg::Icon (), {}, false, false, true, ItemStatus, ItemBoldText)
{
    for (const Property::EnumerationValue& entry : descriptor->GetEnumerationValues ()) valueItem.AddStringItem (entry.displayText);
    valueItem.Attach (static_cast<AttributeListTextItemObserver&> (*this));
}

void PropertyListSingleEnumerationItem::UpdateValueAttributeListItem ()
{
    if (const Kor::DynamicValue* value = GetValue ()) valueItem.SetText (value->ToDisplayText (GetPropertyDisplayRules ()), true);
}

void PropertyListSingleEnumerationItem::SelectionChanged (const AttributeListSelectionItem& item)
{
    if (&item != &valueItem) return;
    Kor::Owner<Kor::DynamicValue> chosen = descriptor->ConvertFromString (Kor::StringValue (valueItem.GetSelectedString ()));
    // A text that names no value of the enumeration is no edit.
    if (chosen == nullptr) return;
    SetValue (chosen->Clone ());
    Kor::LifeWatch alive (*this);
    UpdateValueAttributeListItem ();
    if (alive.IsAlive ()) PropertyValueChanged ();
}

}   // namespace TxAL
