#include "ElementHandlers.hpp"

#include <utility>

namespace Demo {

// --- SelectionPropertyHandler ---

SelectionPropertyHandler::SelectionPropertyHandler (BuildingModel& model, std::vector<std::string> elementIds,
                                                Kor::ConstSharedPtr<Property::PropertyDefinition> definition, StoreListener stored)
    : model (model),
      elementIds (std::move (elementIds)),
      definition (std::move (definition)),
      key (ElementData::GetPropertyKey (*this->definition)),
      stored (std::move (stored))
{
}

const Element* SelectionPropertyHandler::FirstElement () const
{
    return elementIds.empty () ? nullptr : model.Find (elementIds.front ());
}

Kor::Owner<Kor::DynamicValue> SelectionPropertyHandler::GetValue (const Kor::DynamicValueConversionRules&)
{
    const Element* element = FirstElement ();
    if (element != nullptr)
        if (const auto text = element->Get (key))
            if (Kor::Owner<Kor::DynamicValue> value = ElementData::ValueFromText (*definition, *text); value != nullptr) return value;
    return definition->GetDefaultValue ().Clone ();
}

bool SelectionPropertyHandler::HasCustomValue () const
{
    const Element* element = FirstElement ();
    return element != nullptr && element->Has (key);
}

void SelectionPropertyHandler::SetValue (const Kor::DynamicValue* value)
{
    if (value == nullptr) return;
    const std::string text = ElementData::ValueToText (*definition, *value);
    for (const std::string& id : elementIds)
        if (Element* element = model.Find (id)) element->Set (key, text);
    if (stored) stored ();
}

void SelectionPropertyHandler::RemoveCustomValue ()
{
    for (const std::string& id : elementIds)
        if (Element* element = model.Find (id)) element->Remove (key);
    if (stored) stored ();
}

// --- SelectionClassificationHandler ---

SelectionClassificationHandler::SelectionClassificationHandler (BuildingModel& model, const ElementData::ClassificationSystemEntry& system,
                                                            std::vector<std::string> elementIds, StoreListener stored)
    : model (model), system (system), elementIds (std::move (elementIds)), stored (std::move (stored))
{
}

CLS::ElemClassificationData SelectionClassificationHandler::GetClassificationData ()
{
    const Element* element = elementIds.empty () ? nullptr : model.Find (elementIds.front ());
    const std::string code = element != nullptr ? element->Get (system.key).value_or ("") : std::string ();
    const ODB::ConstRef<CLS::ClassificationItem> item = code.empty () ? ODB::ConstRef<CLS::ClassificationItem> () : system.system->FindItemByCode (Kor::UniString (code));
    return CLS::ElemClassificationData (system.system.AsConst (), item, !item.IsNull ());
}

void SelectionClassificationHandler::SetClassificationItem (const ODB::ConstRef<CLS::ClassificationItem>& item) const
{
    for (const std::string& id : elementIds) {
        Element* element = model.Find (id);
        if (element == nullptr) continue;
        if (item.IsNull ())
            element->Remove (system.key);
        else
            element->Set (system.key, item->GetCode ().ToUtf8 ());
    }
    if (stored) stored ();
}

}   // namespace Demo
