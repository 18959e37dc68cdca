#pragma once
// The host's adapters between the properties of the selected elements and the property list:
// a handler per property tells what the property is and what its value is, and stores the
// user's changes; a collector hands out the handlers. The library supplies a forwarding
// decorator and a function that wraps every handler of an array.

#include <cstdint>
#include <functional>

#include "Kor/Array.hpp"
#include "Kor/DynamicValue.hpp"
#include "Kor/Guid.hpp"
#include "Kor/Owner.hpp"
#include "Kor/Ref.hpp"
#include "Property/PropertyDefinition.hpp"
#include "TxAttributeList/PropertyListItem.hpp"

namespace TxAL {

// One property of the selected elements, as the host sees it. Reference counted.
class IUserDefinedPropertyHandler {
public:
    // How the list shows the value.
    enum DisplayMode : std::int32_t {
        NormalDisplay         = 0,
        CalculatedOnDemand    = 1,   // computed when the user asks (a calculate button on editable rows)
        AlwaysDisplayed       = 2,   // shown even when it is not custom
        CalculationDisabled   = 3,   // never computed here (the placeholder says "not available")
    };

    virtual ~IUserDefinedPropertyHandler () = default;
    virtual Kor::ConstSharedPtr<Property::PropertyDefinition> GetPropertyDefinition () = 0;
    virtual DisplayMode                                       GetDisplayMode () = 0;
    // The current value of the selected elements; may be null.
    virtual Kor::Owner<Kor::DynamicValue>      GetValue (const Kor::DynamicValueConversionRules& rules) = 0;
    virtual PropertyListItem::DefaultValueType GetDefaultValueType () = 0;
    virtual bool                               HasCustomValue () const = 0;
    virtual bool                               ValueIsEditable () const = 0;
    // Stores the user's value as the custom value (a user-undefined one included).
    virtual void                               SetValue (const Kor::DynamicValue* value) = 0;
    // Returns the property to its default.
    virtual void                               RemoveCustomValue () = 0;
    // The text of the row's tool tip.
    virtual Kor::UniString                     GetDescription () = 0;
};

// Hands out the property handlers of the current selection.
class IUserDefinedPropertyHandlerCollector {
public:
    virtual ~IUserDefinedPropertyHandlerCollector () = default;
    // The handlers of exactly these properties.
    virtual Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers (const Kor::Array<Kor::Guid>& propertyGuids) = 0;
    // The handlers of all properties to show, in the order of listing.
    virtual Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers () = 0;
};

// Forwards every operation to the decorated handler; subclasses override what they extend.
// A null decorated handler throws "Null reference." on every call.
class IUserDefinedPropertyHandlerDecorator : public IUserDefinedPropertyHandler {
public:
    explicit IUserDefinedPropertyHandlerDecorator (const Kor::Ref<IUserDefinedPropertyHandler>& decorated) : decorated (decorated) {}

    Kor::ConstSharedPtr<Property::PropertyDefinition> GetPropertyDefinition () override { return decorated->GetPropertyDefinition (); }
    DisplayMode GetDisplayMode () override { return decorated->GetDisplayMode (); }
    Kor::Owner<Kor::DynamicValue> GetValue (const Kor::DynamicValueConversionRules& rules) override { return decorated->GetValue (rules); }
    PropertyListItem::DefaultValueType GetDefaultValueType () override { return decorated->GetDefaultValueType (); }
    bool           HasCustomValue () const override { return decorated->HasCustomValue (); }
    bool           ValueIsEditable () const override { return decorated->ValueIsEditable (); }
    void           SetValue (const Kor::DynamicValue* value) override { decorated->SetValue (value); }
    void           RemoveCustomValue () override { decorated->RemoveCustomValue (); }
    Kor::UniString GetDescription () override { return decorated->GetDescription (); }

    const Kor::Ref<IUserDefinedPropertyHandler>& GetDecorated () const { return decorated; }

private:
    Kor::Ref<IUserDefinedPropertyHandler> decorated;
};

// Replaces every handler by what decorate makes of it, in place and in order (an answer that
// is the same object leaves the element as it is). An empty decorate throws
// std::bad_function_call unless the array is empty.
void DecorateEachUserDefinedPropertyHandler (
    Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>>&                                                    handlers,
    const std::function<Kor::Ref<IUserDefinedPropertyHandler> (Kor::Ref<IUserDefinedPropertyHandler>)>& decorate);

}   // namespace TxAL
