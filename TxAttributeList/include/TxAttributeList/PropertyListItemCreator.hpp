#pragma once
// Makes the property item that fits one user-defined property: the property's complex type
// calls back the one visit operation of its kind.

#include "Kor/Ref.hpp"
#include "Property/ComplexPropertyType.hpp"
#include "Property/PropertyDefinition.hpp"
#include "TxAttributeList/PropertyListItem.hpp"
#include "TxAttributeList/UserDefinedPropertyHandler.hpp"

namespace TxAL {

// Construct it over a handler and read the result once. A null handler, definition or complex
// type throws "Null reference."; a type without an item gives a null result.
class PropertyListItemCreator : public Property::IComplexPropertyType::ComplexPropertyTypeVisitor {
public:
    explicit PropertyListItemCreator (const Kor::Ref<IUserDefinedPropertyHandler>& handler);

    const Kor::Ref<PropertyListItem>& GetResult () const { return result; }

    // --- ComplexPropertyTypeVisitor, in slot order ---
    void VisitPolarAngle () override;
    void VisitVolume () override;
    void VisitArea () override;
    void VisitLength () override;
    void VisitEnumeration () override;
    void VisitStringList () override;
    void VisitBoolean () override;
    void VisitInteger () override;
    void VisitString () override;
    void VisitReal () override;

private:
    template <typename ItemType, typename... Args>
    void Make (Args&&... args);

    Kor::ConstSharedPtr<Property::PropertyDefinition> definition;
    Kor::Ref<PropertyListItem>                        result;
    bool                                              automaticDisplay = false;
};

}   // namespace TxAL
