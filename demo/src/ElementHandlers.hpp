#pragma once
// The demo's host handlers over the building model: one per property of the selected elements
// and one for their classification. Values shown are those of the first selected element; what
// the user stores goes into every selected element's settings (ElementData.hpp says how).

#include <functional>
#include <string>
#include <vector>

#include "BuildingModel.hpp"
#include "ElementData.hpp"
#include "TxAttributeList/ClassificationAttributeList.hpp"
#include "TxAttributeList/UserDefinedPropertyHandler.hpp"

namespace Demo {

// Told after every store, so that the host can count it and show it elsewhere.
using StoreListener = std::function<void ()>;

// One property of the selected elements.
class SelectionPropertyHandler : public TxAL::IUserDefinedPropertyHandler {
public:
    SelectionPropertyHandler (BuildingModel& model, std::vector<std::string> elementIds, Kor::ConstSharedPtr<Property::PropertyDefinition> definition,
                            StoreListener stored);

    Kor::ConstSharedPtr<Property::PropertyDefinition> GetPropertyDefinition () override { return definition; }
    // Values show also while they follow the default: the default is what the element has.
    DisplayMode                                       GetDisplayMode () override { return AlwaysDisplayed; }
    // The first element's custom value, else the definition's default.
    Kor::Owner<Kor::DynamicValue>                     GetValue (const Kor::DynamicValueConversionRules& rules) override;
    TxAL::PropertyListItem::DefaultValueType          GetDefaultValueType () override { return TxAL::PropertyListItem::ValueDefault; }
    bool                                              HasCustomValue () const override;
    bool                                              ValueIsEditable () const override { return true; }
    void                                              SetValue (const Kor::DynamicValue* value) override;
    void                                              RemoveCustomValue () override;
    Kor::UniString                                    GetDescription () override { return definition->GetDescription (); }

private:
    const Element* FirstElement () const;

    BuildingModel&                                    model;
    std::vector<std::string>                          elementIds;
    Kor::ConstSharedPtr<Property::PropertyDefinition> definition;
    std::string                                       key;
    StoreListener                                     stored;
};

// The classification of the selected elements in one classification system.
class SelectionClassificationHandler : public TxAL::ClassificationSystemHandler {
public:
    SelectionClassificationHandler (BuildingModel& model, const ElementData::ClassificationSystemEntry& system, std::vector<std::string> elementIds,
                                  StoreListener stored);

    CLS::ElemClassificationData GetClassificationData () override;
    bool                        IsEditable () const override { return true; }
    void                        SetClassificationItem (const ODB::ConstRef<CLS::ClassificationItem>& item) const override;

private:
    BuildingModel&                         model;
    const ElementData::ClassificationSystemEntry system;
    std::vector<std::string>               elementIds;
    StoreListener                          stored;
};

}   // namespace Demo
