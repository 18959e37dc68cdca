#pragma once
// The property item core. A PropertyListItem binds one property of the host to one row of an
// attribute list. It is no list item itself: it owns a typed value item (made by its subclass,
// PropertyListItems.hpp) and a placeholder item, and exactly one of them, the visible item,
// stands in the list. The row's icon-column popup switches between the default and a custom
// value and between a defined and an undefined custom value; the placeholder can offer a
// calculate button. Every change goes to the PropertyListItemObservers (the container turns
// them into handler calls).
//
// Call tree of a user action:
//   popup choice   PropertyAttributeListItemObserver::IconColumnPopupChanged
//                    -> HasCustomValuePopupChanged -> SetHasCustomValue -> HasCustomValueChanged
//   calculate      ButtonClicked / ButtonIconClicked (placeholder) -> CalculatePropertyValue
//                    -> ChangeCurrentAttributeListItem -> itemChangedCallback (old, new)
//   typed edit     subclass's value-item observer -> value replaced -> PropertyValueChanged

#include <cstdint>
#include <functional>

#include "Kor/DynamicValue.hpp"
#include "Kor/Event.hpp"
#include "Kor/Owner.hpp"
#include "Kor/Ref.hpp"
#include "TxAttributeList/SimpleValueItems.hpp"

namespace TxAL {

class PropertyListItem;

// The source of a property item's values. Reference counted; the container makes one over a
// property handler.
class PropertyListItemValueGetter {
public:
    virtual ~PropertyListItemValueGetter () = default;
    // The property's current value; may be null.
    virtual Kor::Owner<Kor::DynamicValue> GetValue () = 0;
    // A fresh value of the property's type, used when the user turns a value into a custom one.
    virtual Kor::Owner<Kor::DynamicValue> CreateValue () = 0;
};

// The status that an entry of the custom-value popup asks for, carried as the entry's user data.
class VariantStatusWrapper : public Kor::Object {
public:
    explicit VariantStatusWrapper (Kor::DynamicValue::Status status) : status (status) {}
    Kor::DynamicValue::Status GetStatus () const { return status; }

private:
    Kor::DynamicValue::Status status;
};

// Hears a property item's changes made by the user.
class PropertyListItemObserver : public virtual Kor::EventObserver {
public:
    // The user switched between default and custom value, or between a defined and an undefined
    // custom value. The values are the custom values before and after (null: no custom value).
    virtual void HasCustomValueChanged (const PropertyListItem& item, const Kor::DynamicValue* oldValue, const Kor::DynamicValue* newValue);
    // The user edited the value.
    virtual void PropertyValueChanged (const PropertyListItem& item, const Kor::DynamicValue* value);
};

// One property shown in an attribute list (abstract: the subclasses own the typed value item).
class PropertyListItem : public Kor::EventSource, public AttributeListIconButtonItemObserver {
public:
    // What kind of default the property has; selects the text of the popup's default entry.
    enum DefaultValueType : std::int32_t {
        ValueDefault      = 0,   // "Default Value"
        CalculatedDefault = 1,   // "Default (Calculated)"
        UndefinedDefault  = 2,   // "Default (Undefined)"
    };

    // How DisableValueCalculation turns calculation off.
    enum ValueCalculationDisableMode : std::int32_t {
        CalculationOff          = 0,   // the placeholder says "not calculated"
        CalculationNotAvailable = 1,   // the placeholder says "not available"
    };

    // Where the item stands with calculating its value on demand.
    enum CalculationState : std::int32_t {
        CalculationDisabled           = 0,
        Calculable                    = 1,
        Calculated                    = 2,
        CalculationFailed             = 3,
        CalculationDisabledNotAvailable = 4,
    };

    // Called when the visible item changes: (old item, new item).
    using ItemChangedCallback = std::function<void (AttributeListSimpleItem& oldItem, AttributeListSimpleItem& newItem)>;

    PropertyListItem (const PropertyListItem&) = delete;
    PropertyListItem& operator= (const PropertyListItem&) = delete;

    // --- Virtual operations, in slot order ---
    ~PropertyListItem () override;
    // The subclass's typed value item.
    virtual AttributeListSimpleItem& GetValueAttributeListItem () = 0;
    // Writes the value into the typed value item.
    virtual void UpdateValueAttributeListItem () = 0;

    // Attaches the popup observer to every possible item; called once after construction.
    void Initialize ();
    // Binds a value source and shows the value (or a placeholder).
    void Update (const Kor::Ref<PropertyListItemValueGetter>& getter, bool hasCustomValue);
    // Places the visible item into the group; the changed-item callback is not called.
    void AddToGroup (AttributeListGroupItem& group);

    void SetPropertyName (const Kor::UniString& name);
    // The trimmed text becomes the default tool tip of every possible item.
    void SetPropertyDescription (const Kor::UniString& description);
    void SetEditable (bool editable);
    // Stores the flag only: it takes effect at the next Update.
    void SetAutomaticDisplay (bool automaticDisplay) { this->automaticDisplay = automaticDisplay; }
    void SetPropertyDefaultValueType (DefaultValueType type);
    void DisableValueCalculation (ValueCalculationDisableMode mode);
    bool HasCustomValue () const { return hasCustomValue; }
    void OnAttributeListItemChanged (ItemChangedCallback callback) { itemChangedCallback = std::move (callback); }

    void Attach (PropertyListItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (PropertyListItemObserver& observer) { Kor::EventSource::Detach (observer); }

    // --- State, for the container and for tests ---
    const Kor::DynamicValue* GetValue () const { return value.Get (); }
    CalculationState         GetCalculationState () const { return calculationState; }
    bool                     GetAutomaticDisplay () const { return automaticDisplay; }
    DefaultValueType         GetDefaultValueType () const { return defaultValueType; }
    // The item that stands in the list; null until first placed.
    AttributeListSimpleItem* GetCurrentAttributeListItem () const { return currentItem; }
    AttributeListIconButtonItem& GetPlaceholderItem () { return placeholderItem; }
    // The item that the present state shows, configuring the placeholder when it is that item.
    AttributeListSimpleItem& GetVisibleAttributeListItem ();

protected:
    PropertyListItem ();

    // The subclasses call this after they replaced the value with the user's edit.
    void PropertyValueChanged ();
    // Replaces the value (the old one is destroyed).
    void SetValue (Kor::Owner<Kor::DynamicValue> newValue) { value = std::move (newValue); }
    const Kor::Ref<PropertyListItemValueGetter>& GetValueGetter () const { return valueGetter; }
    // Applies fn to the typed value item, then to the placeholder.
    template <typename Fn>
    void ForAllPossibleAttributeListItems (Fn&& fn)
    {
        fn (GetValueAttributeListItem ());
        fn (static_cast<AttributeListSimpleItem&> (placeholderItem));
    }

    // --- AttributeListIconButtonItemObserver: the placeholder's calculate button ---
    void ButtonClicked (const AttributeListIconButtonItem& item) override;
    void ButtonIconClicked (const AttributeListIconButtonItem& item) override;

private:
    class PropertyAttributeListItemObserver;
    friend class PropertyAttributeListItemObserver;

    bool IsValueToBeShown () const;
    bool CalculatePropertyValue ();
    void CalculateOnButton (const AttributeListIconButtonItem& source);
    void ConfigurePlaceHolderItem (const Kor::UniString& text, const Wg::Icon& icon);
    void ChangeCurrentAttributeListItem (AttributeListSimpleItem& item);
    void FillHasCustomValuePopupItems ();
    void UpdateListItemHasCustomValuePopupIndex ();
    void HasCustomValuePopupChanged (const AttributeListItem& source);
    void SetHasCustomValue (bool wantCustom, const Kor::DynamicValue::Status* wantedStatus);
    Kor::Owner<Kor::DynamicValue> CopyOfCustomValue () const;
    bool HoldsUserUndefinedCustomValue () const;

    Kor::Owner<Kor::DynamicValue>                         value;
    bool                                                  hasCustomValue = false;
    bool                                                  automaticDisplay = false;
    CalculationState                                      calculationState = Calculable;
    DefaultValueType                                      defaultValueType = ValueDefault;
    std::int32_t                                          defaultEntryIndex = -1;
    std::int32_t                                          customEntryIndex = -1;
    std::int32_t                                          statusEntryIndex = -1;
    AttributeListIconButtonItem                           placeholderItem;
    AttributeListSimpleItem*                              currentItem = nullptr;
    Kor::Ref<PropertyListItemValueGetter>                 valueGetter;
    ItemChangedCallback                                   itemChangedCallback;
    Kor::Owner<PropertyAttributeListItemObserver>         attributeItemObserver;
    // The shared popup entries the possible items were given last (they are not copied again).
    const Kor::Array<AttributeListItem::PopupItem>*        appliedPopup = nullptr;
    std::uint64_t                                          appliedPopupGeneration = 0;
};

}   // namespace TxAL
