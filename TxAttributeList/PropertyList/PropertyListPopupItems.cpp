#include "Kor/LifeWatch.hpp"
#include "PropertyList/DisplayRules.hpp"
#include "Rb/RbResources.hpp"
#include "TxAttributeList/PropertyListItems.hpp"
#include "Wg/Controls.hpp"

namespace TxAL {

namespace {

constexpr bool ItemStatus = true;
constexpr bool ItemBoldText = false;

const Property::EnumerationValueDescriptor* AsMultiValueEnumeration (const Property::IValueDescriptor* descriptor)
{
    const auto* enumeration = dynamic_cast<const Property::EnumerationValueDescriptor*> (descriptor);
    return enumeration != nullptr && enumeration->HasMultiValue () ? enumeration : nullptr;
}

// The values of an open checklist as a getter: what the ticks said when it was made.
class MultipleChoiceValueGetter : public PropertyListItemValueGetter {
public:
    explicit MultipleChoiceValueGetter (Kor::Owner<Kor::DynamicValue> variant) : variant (std::move (variant)) {}

    Kor::Owner<Kor::DynamicValue> GetValue () override { return Copy (); }
    Kor::Owner<Kor::DynamicValue> CreateValue () override { return Copy (); }

private:
    Kor::Owner<Kor::DynamicValue> Copy () const { return variant == nullptr ? nullptr : variant->Clone (); }

    Kor::Owner<Kor::DynamicValue> variant;
};

// The row follows the popup (ticks, lines) while it is open, also when the click that opened it
// holds the list's drawing.
template <typename Dialog>
void InvokeWithRowsDrawn (const AttributeListSimpleItem& row, Dialog& dialog)
{
    row.RunModalWithRowsDrawn ([&dialog] { dialog.Invoke (); });
}

}   // namespace

// --- Free functions of the checklist ---

void FillMultipleChoiceDataFromProperty (const Property::IValueDescriptor* descriptor, const Kor::DynamicValue* value,
                                         Rb::MultipleChoiceData& data)
{
    const Property::EnumerationValueDescriptor* enumeration = AsMultiValueEnumeration (descriptor);
    if (enumeration == nullptr) return;
    data.Clear ();
    const bool undefined = value != nullptr && value->GetStatus () == Kor::DynamicValue::UserUndefined;
    const auto* keys = undefined ? nullptr : Kor::DynamicCast<Kor::GuidListValue> (value);
    for (const Property::EnumerationValue& entry : enumeration->GetEnumerationValues ())
        data.AddItem (entry.displayText, keys != nullptr && keys->GetValue ().Contains (entry.key));
}

Kor::Owner<Kor::DynamicValue> CreateVariantFromMultipleChoiceData (const Property::IValueDescriptor* descriptor,
                                                                   const Rb::MultipleChoiceData& data)
{
    const Property::EnumerationValueDescriptor* enumeration = AsMultiValueEnumeration (descriptor);
    if (enumeration == nullptr || data.GetItemCount () == 0) return nullptr;
    const Kor::Array<Property::EnumerationValue>& values = enumeration->GetEnumerationValues ();
    Kor::Array<Kor::Guid> keys;
    for (std::size_t i = 0; i < data.GetItemCount () && i < values.GetSize (); ++i)
        if (data.IsItemSelected (i)) keys.Push (values[i].key);
    return Kor::NewOwner<Kor::GuidListValue> (keys);
}

// --- Multiple enumeration ---

PropertyListMultiEnumerationPopupItem::PropertyListMultiEnumerationPopupItem (Kor::ConstSharedPtr<Property::EnumerationValueDescriptor> source)
    : descriptor (std::move (source)),
      valueItem ({}, Wg::Icon (), {}, {}, Rb::GetResourceIcon (Rb::InformationIconId), ItemStatus, ItemBoldText)
{
    valueItem.Attach (static_cast<AttributeListIconButtonItemObserver&> (*this));
}

void PropertyListMultiEnumerationPopupItem::UpdateValueAttributeListItem ()
{
    if (const Kor::DynamicValue* value = GetValue ()) valueItem.SetText (descriptor->GetDisplayValue (*value, GetPropertyDisplayRules ()));
}

void PropertyListMultiEnumerationPopupItem::ButtonClicked (const AttributeListIconButtonItem& item)
{
    if (&item == &valueItem)
        OpenPopup ();
    else
        PropertyListItem::ButtonClicked (item);
}

void PropertyListMultiEnumerationPopupItem::OpenPopup ()
{
    Wg::ButtonItem* button = valueItem.GetIconButton ();
    if (button == nullptr) return;
    Rb::MultipleChoiceData data;
    FillMultipleChoiceDataFromProperty (descriptor.Get (), GetValue (), data);
    Rb::MultipleChoicePopUpDialog              dialog (data, button);
    Rb::MultipleChoiceDataChanges              changes (data);
    PropertyListMultiEnumerationPopupItemValueUpdater updater (*this, descriptor.Get (), data);
    Kor::LifeWatch alive (*this);
    InvokeWithRowsDrawn (valueItem, dialog);
    if (alive.IsGone ()) return;
    if (changes.HasSelectionChanged ()) PropertyValueChanged ();
}

PropertyListMultiEnumerationPopupItemValueUpdater::PropertyListMultiEnumerationPopupItemValueUpdater (PropertyListItem& item,
                                                                                                    const Property::IValueDescriptor* descriptor,
                                                                                                    Rb::MultipleChoiceData& data)
    : item (item), descriptor (descriptor)
{
    data.Attach (*this);
}

void PropertyListMultiEnumerationPopupItemValueUpdater::SelectionChanged (const Rb::MultipleChoiceData& data)
{
    const Kor::Ref<PropertyListItemValueGetter> getter (new MultipleChoiceValueGetter (CreateVariantFromMultipleChoiceData (descriptor, data)));
    item.Update (getter, item.HasCustomValue ());
}

// --- String list ---

PropertyListStringListPopupItem::PropertyListStringListPopupItem ()
    : valueItem ({}, Wg::Icon (), {}, {}, Rb::GetResourceIcon (Rb::InformationIconId), ItemStatus, ItemBoldText)
{
    valueItem.Attach (static_cast<AttributeListIconButtonItemObserver&> (*this));
}

void PropertyListStringListPopupItem::UpdateValueAttributeListItem ()
{
    if (const Kor::DynamicValue* value = GetValue ()) valueItem.SetText (value->ToDisplayText (GetPropertyDisplayRules ()));
}

void PropertyListStringListPopupItem::ButtonClicked (const AttributeListIconButtonItem& item)
{
    if (&item == &valueItem)
        OpenPopup ();
    else
        PropertyListItem::ButtonClicked (item);
}

void PropertyListStringListPopupItem::OpenPopup ()
{
    Wg::ButtonItem* button = valueItem.GetIconButton ();
    if (button == nullptr) return;
    // The edit shows one entry per line; the row joins them with the list separator.
    const auto* list = Kor::DynamicCast<Kor::StringListValue> (GetValue ());
    const Kor::UniString text =
        list != nullptr && list->GetStatus () == Kor::DynamicValue::Normal ? list->ToText () : valueItem.GetText ();
    Rb::MultiLineEditPopUpDialog        dialog (text, button, PopupWidth, PopupHeight);
    Rb::MultiLineEditPopUpDialogChanges changes (dialog);
    dialog.Attach (static_cast<Rb::MultiLineEditPopUpDialogObserver&> (*this));
    Kor::LifeWatch alive (*this);
    InvokeWithRowsDrawn (valueItem, dialog);
    if (alive.IsGone ()) return;
    dialog.Detach (static_cast<Rb::MultiLineEditPopUpDialogObserver&> (*this));
    if (changes.HasTextChanged ()) PropertyValueChanged ();
}

void PropertyListStringListPopupItem::TextChanged (const Rb::MultiLineEditPopUpDialog& dialog)
{
    auto list = Kor::NewOwner<Kor::StringListValue> (Kor::Array<Kor::UniString> {}, Kor::DynamicValue::Undefined);
    list->SetFromText (dialog.GetText ());
    SetValue (std::move (list));
    UpdateValueAttributeListItem ();
}

}   // namespace TxAL
