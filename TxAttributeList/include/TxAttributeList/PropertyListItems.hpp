#pragma once
// The typed property items: one subclass of PropertyListItem per kind of property value. Each
// owns the value item that edits the value, observes it, turns the user's edit into a
// Kor::DynamicValue and writes the value back for display. Only PropertyListItemCreator makes
// them; they are held through Kor::Ref<PropertyListItem>.
//
// The real-number items keep the property's base unit and leave units to their value items;
// only the angle converts (radians stored, degrees edited).

#include "Kor/Owner.hpp"
#include "Property/ValueDescriptor.hpp"
#include "Rb/MultipleChoice.hpp"
#include "Rb/MultiLineEdit.hpp"
#include "TxAttributeList/PropertyListItem.hpp"
#include "TxAttributeList/RealItems.hpp"
#include "TxAttributeList/SelectionAndTextItems.hpp"

namespace TxAL {

// The bounds of the real-number value items of properties: wide enough for any building.
inline constexpr double PropertyRealMinValue = -1.0e12;
inline constexpr double PropertyRealMaxValue = 1.0e12;

// A yes/no property: a read-only text row whose popup offers the two answers.
class PropertyListBooleanItem : public PropertyListItem, public AttributeListTextItemObserver {
public:
    PropertyListBooleanItem ();

    AttributeListSimpleItem& GetValueAttributeListItem () override { return valueItem; }
    void                     UpdateValueAttributeListItem () override;

protected:
    // --- AttributeListSelectionItemObserver ---
    void SelectionChanged (const AttributeListSelectionItem& item) override;

private:
    AttributeListTextItem valueItem;
};

// A whole-number property.
class PropertyListIntItem : public PropertyListItem, public AttributeListRealItemObserver {
public:
    PropertyListIntItem ();

    AttributeListSimpleItem& GetValueAttributeListItem () override { return valueItem; }
    void                     UpdateValueAttributeListItem () override;

protected:
    // --- AttributeListRealItemObserver ---
    void ValueChanged (const AttributeListRealItem& item) override;

private:
    AttributeListIntItem valueItem;
};

// A real-number property shown by a value item of type ItemType (plain, length, area, volume):
// the number goes to the item and comes back unconverted.
template <typename ItemType>
class PropertyListNumberItemBase : public PropertyListItem, public AttributeListRealItemObserver {
public:
    PropertyListNumberItemBase ();

    AttributeListSimpleItem& GetValueAttributeListItem () override { return valueItem; }
    void                     UpdateValueAttributeListItem () override;

protected:
    // --- AttributeListRealItemObserver ---
    void ValueChanged (const AttributeListRealItem& item) override;

private:
    ItemType valueItem;
};

// A plain real-number property.
class PropertyListRealItem : public PropertyListNumberItemBase<AttributeListRealItem> {};
// A length property, in metres.
class PropertyListLengthItem : public PropertyListNumberItemBase<AttributeListLengthItem> {};
// An area property, in square metres.
class PropertyListAreaItem : public PropertyListNumberItemBase<AttributeListAreaItem> {};
// A volume property, in cubic metres.
class PropertyListVolumeItem : public PropertyListNumberItemBase<AttributeListVolumeItem> {};

// The shared conversion of angle properties: radians in the value, degrees in the item.
class PropertyListAngleItemBase : public PropertyListItem, public AttributeListRealItemObserver {
public:
    static constexpr double DegreesToRadians = 0.017453292519943295;
    static constexpr double RadiansToDegrees = 57.29577951308232;

    AttributeListSimpleItem& GetValueAttributeListItem () override { return GetAngleAttributeListItem (); }
    void                     UpdateValueAttributeListItem () override;
    // The real-number item that holds the angle.
    virtual AttributeListRealItem& GetAngleAttributeListItem () = 0;

protected:
    PropertyListAngleItemBase () = default;

    // --- AttributeListRealItemObserver ---
    void ValueChanged (const AttributeListRealItem& item) override;
};

// An angle property, edited as a polar angle.
class PropertyListPolarAngleItem : public PropertyListAngleItemBase {
public:
    PropertyListPolarAngleItem ();

    AttributeListRealItem& GetAngleAttributeListItem () override { return valueItem; }

private:
    AttributeListPolarAngleItem valueItem;
};

// A text property, typed in place.
class PropertyListTextItem : public PropertyListItem, public AttributeListTextItemObserver {
public:
    PropertyListTextItem ();

    AttributeListSimpleItem& GetValueAttributeListItem () override { return valueItem; }
    void                     UpdateValueAttributeListItem () override;

protected:
    // --- AttributeListTextItemObserver ---
    void TextChanged (const AttributeListTextItem& item) override;

private:
    AttributeListTextItem valueItem;
};

// An enumeration with one value: a read-only text row whose popup offers the values.
class PropertyListSingleEnumerationItem : public PropertyListItem, public AttributeListTextItemObserver {
public:
    explicit PropertyListSingleEnumerationItem (Kor::ConstSharedPtr<Property::EnumerationValueDescriptor> descriptor);

    AttributeListSimpleItem& GetValueAttributeListItem () override { return valueItem; }
    void                     UpdateValueAttributeListItem () override;

protected:
    // --- AttributeListSelectionItemObserver ---
    void SelectionChanged (const AttributeListSelectionItem& item) override;

private:
    Kor::ConstSharedPtr<Property::EnumerationValueDescriptor> descriptor;
    AttributeListTextItem                                     valueItem;
};

// An enumeration with several values: the row's button opens a checklist of the values.
class PropertyListMultiEnumerationPopupItem : public PropertyListItem {
public:
    explicit PropertyListMultiEnumerationPopupItem (Kor::ConstSharedPtr<Property::EnumerationValueDescriptor> descriptor);

    AttributeListSimpleItem& GetValueAttributeListItem () override { return valueItem; }
    void                     UpdateValueAttributeListItem () override;

protected:
    // --- AttributeListIconButtonItemObserver: the row's own button opens the checklist ---
    void ButtonClicked (const AttributeListIconButtonItem& item) override;

private:
    void OpenPopup ();

    Kor::ConstSharedPtr<Property::EnumerationValueDescriptor> descriptor;
    AttributeListIconButtonItem                               valueItem;
};

// Follows the ticks of an open checklist: every change rebinds the item to the ticked values.
class PropertyListMultiEnumerationPopupItemValueUpdater : public Rb::MultipleChoiceDataObserver {
public:
    PropertyListMultiEnumerationPopupItemValueUpdater (PropertyListItem& item, const Property::IValueDescriptor* descriptor,
                                                       Rb::MultipleChoiceData& data);

    // --- Rb::MultipleChoiceDataObserver ---
    void SelectionChanged (const Rb::MultipleChoiceData& data) override;

private:
    PropertyListItem&                 item;
    const Property::IValueDescriptor* descriptor;
};

// A list of texts: the row's button opens a multi-line edit, one entry per line.
class PropertyListStringListPopupItem : public PropertyListItem, public Rb::MultiLineEditPopUpDialogObserver {
public:
    static constexpr short PopupWidth = 200;
    static constexpr short PopupHeight = 150;

    PropertyListStringListPopupItem ();

    AttributeListSimpleItem& GetValueAttributeListItem () override { return valueItem; }
    void                     UpdateValueAttributeListItem () override;

protected:
    // --- AttributeListIconButtonItemObserver: the row's own button opens the edit ---
    void ButtonClicked (const AttributeListIconButtonItem& item) override;
    // --- Rb::MultiLineEditPopUpDialogObserver ---
    void TextChanged (const Rb::MultiLineEditPopUpDialog& dialog) override;

private:
    void OpenPopup ();

    AttributeListIconButtonItem valueItem;
};

// Fills a checklist with the values of a multi-valued enumeration, ticking those whose keys the
// value lists (none when the value is user-undefined). Other descriptors leave the data alone.
void FillMultipleChoiceDataFromProperty (const Property::IValueDescriptor* descriptor, const Kor::DynamicValue* value,
                                         Rb::MultipleChoiceData& data);

// The guid list of the ticked values' keys, in entry order; null when the descriptor is null or
// no multi-valued enumeration, or the data is empty.
Kor::Owner<Kor::DynamicValue> CreateVariantFromMultipleChoiceData (const Property::IValueDescriptor* descriptor,
                                                                   const Rb::MultipleChoiceData& data);

}   // namespace TxAL
