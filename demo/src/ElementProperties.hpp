#pragma once
// The demo's user-defined properties: the real property sets of the building's elements (walls
// Pset_WallCommon, slabs Pset_SlabCommon, doors Pset_DoorCommon, windows Pset_WindowCommon,
// zones Pset_SpaceCommon, each with a second set), custom values kept per element, defaults
// answered per property from the element's settings, and a few values calculated on demand
// (a zone's areas).

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "BuildingModel.hpp"
#include "TxAttributeList/UserDefinedPropertyHandler.hpp"
#include "TxImport/PsdImporter.hpp"

namespace Demo {

// The property sets and every element's custom values.
class ElementPropertyStore {
public:
    // Reads the sets from the folder and the custom values from a text of "ID Set.Property = value"
    // lines; problems go to the diagnostics.
    ElementPropertyStore (const BuildingModel& model, const std::string& psdFolder, const std::string& customValues,
                          TxImport::ImportDiagnostics& diagnostics);

    // The sets of an element kind, in the order they are listed.
    std::vector<const TxImport::PropertySet*> GetSets (const std::string& kind) const;
    const Element*                            GetElement (const std::string& id) const;

    const Kor::DynamicValue* GetCustomValue (const std::string& id, const Kor::Guid& property) const;
    void                     SetCustomValue (const std::string& id, const Kor::Guid& property, const Kor::DynamicValue& value);
    void                     RemoveCustomValue (const std::string& id, const Kor::Guid& property);
    // How many times the list stored or removed a value.
    int                      GetStoreCount () const { return storeCount; }

private:
    void ReadCustomValues (const std::string& text, TxImport::ImportDiagnostics& diagnostics);

    const BuildingModel&                                                      model;
    std::vector<TxImport::PropertySet>                                        sets;
    std::map<std::pair<std::string, Kor::Guid>, std::shared_ptr<Kor::DynamicValue>> custom;
    int                                                                       storeCount = 0;
};

// One property of one element.
class ElementPropertyHandler : public TxAL::IUserDefinedPropertyHandler {
public:
    ElementPropertyHandler (ElementPropertyStore& store, std::string elementId, Kor::ConstSharedPtr<Property::PropertyDefinition> definition);

    Kor::ConstSharedPtr<Property::PropertyDefinition> GetPropertyDefinition () override { return definition; }
    DisplayMode                              GetDisplayMode () override;
    Kor::Owner<Kor::DynamicValue>            GetValue (const Kor::DynamicValueConversionRules& rules) override;
    TxAL::PropertyListItem::DefaultValueType GetDefaultValueType () override;
    bool                                     HasCustomValue () const override;
    bool                                     ValueIsEditable () const override { return true; }
    void                                     SetValue (const Kor::DynamicValue* value) override;
    void                                     RemoveCustomValue () override;
    Kor::UniString                           GetDescription () override { return definition->GetDescription (); }

    // The value the element's settings or geometry give, null when there is none.
    Kor::Owner<Kor::DynamicValue> GetDefaultValue () const;
    // Whether the value is computed from the element's geometry (on demand).
    bool                          IsCalculated () const;

private:
    ElementPropertyStore&                             store;
    std::string                                       elementId;
    Kor::ConstSharedPtr<Property::PropertyDefinition> definition;
};

// The handlers of the properties of one element, set by set.
class ElementPropertyCollector : public TxAL::IUserDefinedPropertyHandlerCollector {
public:
    explicit ElementPropertyCollector (ElementPropertyStore& store) : store (store) {}

    void               SetElement (const std::string& id) { elementId = id; }
    const std::string& GetElement () const { return elementId; }

    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers (const Kor::Array<Kor::Guid>& guids) override;
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers () override;

private:
    ElementPropertyStore& store;
    std::string           elementId;
};

}   // namespace Demo
