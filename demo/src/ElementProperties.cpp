#include "ElementProperties.hpp"

#include <cctype>
#include <sstream>

namespace Demo {

namespace {

// The property sets of each element kind of the demo's model.
const std::map<std::string, std::vector<std::string>>& SetsOfKinds ()
{
    static const std::map<std::string, std::vector<std::string>> sets {
        {"Wall", {"Pset_WallCommon", "Pset_Condition"}},
        {"Slab", {"Pset_SlabCommon", "Pset_Condition"}},
        {"Door", {"Pset_DoorCommon", "Pset_DoorWindowGlazingType"}},
        {"Window", {"Pset_WindowCommon", "Pset_DoorWindowGlazingType"}},
        {"Zone", {"Pset_SpaceCommon", "Pset_SpaceFireSafetyRequirements"}},
    };
    return sets;
}

// Properties that a zone's geometry gives: its floor area, net of walls by this share.
constexpr double NetAreaShare = 0.92;

// "LoadBearing" -> "loadBearing": the setting of the model that gives a property's default.
std::string SettingKey (const std::string& property)
{
    std::string key = property;
    if (!key.empty ()) key[0] = static_cast<char> (std::tolower (static_cast<unsigned char> (key[0])));
    return key;
}

std::string Trim (const std::string& text)
{
    const auto begin = text.find_first_not_of (" \t\r");
    if (begin == std::string::npos) return {};
    return text.substr (begin, text.find_last_not_of (" \t\r") - begin + 1);
}

// A value of the property's type from what the model or the custom value file says.
Kor::Owner<Kor::DynamicValue> ValueFromText (const Property::PropertyDefinition& definition, const std::string& text)
{
    if (text == "undefined") {
        Kor::Owner<Kor::DynamicValue> value = definition.GetValueDescriptor ()->CreateValue ();
        value->SetStatus (Kor::DynamicValue::UserUndefined);
        return value;
    }
    const auto* enumeration = dynamic_cast<const Property::EnumerationValueDescriptor*> (definition.GetValueDescriptor ().Get ());
    if (enumeration != nullptr && enumeration->HasMultiValue ()) {
        // Several values, separated by commas.
        Kor::Array<Kor::Guid> keys;
        std::istringstream    in (text);
        for (std::string part; std::getline (in, part, ',');) {
            Kor::Owner<Kor::DynamicValue> one = enumeration->ConvertFromString (Kor::StringValue (Trim (part)));
            if (const auto* list = Kor::DynamicCast<Kor::GuidListValue> (one.Get ()))
                for (const Kor::Guid& key : list->GetValue ()) keys.Push (key);
        }
        return Kor::NewOwner<Kor::GuidListValue> (keys);
    }
    if (definition.GetValueType () == Property::PropertyValueType::Real) {
        if (std::optional<double> number = ParseNumber (text)) return Kor::NewOwner<Kor::NumValue> (*number);
        return nullptr;
    }
    return definition.GetValueDescriptor ()->ConvertFromString (Kor::StringValue (text));
}

}   // namespace

// --- ElementPropertyStore ---

ElementPropertyStore::ElementPropertyStore (const BuildingModel& model, const std::string& psdFolder, const std::string& customValues,
                                            TxImport::ImportDiagnostics& diagnostics)
    : model (model), sets (TxImport::ImportPropertySetDefinitionFolder (psdFolder, diagnostics))
{
    ReadCustomValues (customValues, diagnostics);
}

std::vector<const TxImport::PropertySet*> ElementPropertyStore::GetSets (const std::string& kind) const
{
    std::vector<const TxImport::PropertySet*> found;
    const auto names = SetsOfKinds ().find (kind);
    if (names == SetsOfKinds ().end ()) return found;
    for (const std::string& name : names->second)
        for (const TxImport::PropertySet& set : sets)
            if (set.group->GetName () == Kor::UniString (name)) found.push_back (&set);
    return found;
}

const Element* ElementPropertyStore::GetElement (const std::string& id) const
{
    return model.Find (id);
}

const Kor::DynamicValue* ElementPropertyStore::GetCustomValue (const std::string& id, const Kor::Guid& property) const
{
    const auto found = custom.find ({id, property});
    return found == custom.end () ? nullptr : found->second.get ();
}

void ElementPropertyStore::SetCustomValue (const std::string& id, const Kor::Guid& property, const Kor::DynamicValue& value)
{
    custom[{id, property}] = std::shared_ptr<Kor::DynamicValue> (value.Clone ().Release ());
    ++storeCount;
}

void ElementPropertyStore::RemoveCustomValue (const std::string& id, const Kor::Guid& property)
{
    custom.erase ({id, property});
    ++storeCount;
}

void ElementPropertyStore::ReadCustomValues (const std::string& text, TxImport::ImportDiagnostics& diagnostics)
{
    std::istringstream in (text);
    int                lineNumber = 0;
    for (std::string line; std::getline (in, line);) {
        ++lineNumber;
        line = Trim (line);
        if (line.empty () || line[0] == '#') continue;
        const std::string place = "line " + std::to_string (lineNumber);
        const auto space = line.find (' ');
        const auto dot = line.find ('.', space);
        const auto equals = line.find ('=', dot);
        if (space == std::string::npos || dot == std::string::npos || equals == std::string::npos) {
            diagnostics.Report ("properties.txt", place, "expected \"ID Set.Property = value\"");
            continue;
        }
        const std::string id = line.substr (0, space);
        const std::string setName = Trim (line.substr (space + 1, dot - space - 1));
        const std::string property = Trim (line.substr (dot + 1, equals - dot - 1));
        const std::string value = Trim (line.substr (equals + 1));
        const Property::PropertyDefinition* definition = nullptr;
        for (const TxImport::PropertySet& set : sets)
            if (set.group->GetName () == Kor::UniString (setName))
                for (const auto& candidate : set.definitions)
                    if (candidate->GetName () == Kor::UniString (property)) definition = candidate.Get ();
        Kor::Owner<Kor::DynamicValue> parsed = definition != nullptr ? ValueFromText (*definition, value) : nullptr;
        if (model.Find (id) == nullptr || parsed == nullptr) {
            diagnostics.Report ("properties.txt", place, "no element, property or value for \"" + line + "\"");
            continue;
        }
        custom[{id, definition->GetGuid ()}] = std::shared_ptr<Kor::DynamicValue> (parsed.Release ());
    }
}

// --- ElementPropertyHandler ---

ElementPropertyHandler::ElementPropertyHandler (ElementPropertyStore& store, std::string elementId,
                                                Kor::ConstSharedPtr<Property::PropertyDefinition> definition)
    : store (store), elementId (std::move (elementId)), definition (std::move (definition))
{
}

bool ElementPropertyHandler::IsCalculated () const
{
    const Element* element = store.GetElement (elementId);
    return element != nullptr && element->GetKind () == "Zone" &&
           definition->GetMeasure ().GetMeasureType () == Property::MeasureType::Area && element->Has ("area");
}

Kor::Owner<Kor::DynamicValue> ElementPropertyHandler::GetDefaultValue () const
{
    const Element* element = store.GetElement (elementId);
    if (element == nullptr) return nullptr;
    if (IsCalculated ()) {
        const double area = ParseNumber (element->Get ("area").value_or ("")).value_or (0.0);
        const bool   net = definition->GetName ().Contains ("Net");
        return Kor::NewOwner<Kor::NumValue> (net ? area * NetAreaShare : area);
    }
    if (const std::optional<std::string> setting = element->Get (SettingKey (definition->GetName ().ToUtf8 ())))
        return ValueFromText (*definition, *setting);
    // Booleans and texts have a natural default; numbers without a setting have none.
    if (definition->GetValueType () == Property::PropertyValueType::Boolean || definition->GetValueType () == Property::PropertyValueType::String)
        return Kor::Owner<Kor::DynamicValue> (definition->GetDefaultValue ().Clone ());
    return nullptr;
}

TxAL::IUserDefinedPropertyHandler::DisplayMode ElementPropertyHandler::GetDisplayMode ()
{
    if (IsCalculated ()) return CalculatedOnDemand;
    return GetDefaultValue () != nullptr ? AlwaysDisplayed : CalculationDisabled;
}

Kor::Owner<Kor::DynamicValue> ElementPropertyHandler::GetValue (const Kor::DynamicValueConversionRules&)
{
    if (const Kor::DynamicValue* custom = store.GetCustomValue (elementId, definition->GetGuid ())) return custom->Clone ();
    return GetDefaultValue ();
}

TxAL::PropertyListItem::DefaultValueType ElementPropertyHandler::GetDefaultValueType ()
{
    if (IsCalculated ()) return TxAL::PropertyListItem::CalculatedDefault;
    return GetDefaultValue () != nullptr ? TxAL::PropertyListItem::ValueDefault : TxAL::PropertyListItem::UndefinedDefault;
}

bool ElementPropertyHandler::HasCustomValue () const
{
    return store.GetCustomValue (elementId, definition->GetGuid ()) != nullptr;
}

void ElementPropertyHandler::SetValue (const Kor::DynamicValue* value)
{
    if (value != nullptr) store.SetCustomValue (elementId, definition->GetGuid (), *value);
}

void ElementPropertyHandler::RemoveCustomValue ()
{
    store.RemoveCustomValue (elementId, definition->GetGuid ());
}

// --- ElementPropertyCollector ---

Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> ElementPropertyCollector::CollectUserDefinedPropertyHandlers (
    const Kor::Array<Kor::Guid>& guids)
{
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> found;
    const Element* element = store.GetElement (elementId);
    if (element == nullptr) return found;
    for (const Kor::Guid& guid : guids)
        for (const TxImport::PropertySet* set : store.GetSets (element->GetKind ()))
            for (const auto& definition : set->definitions)
                if (definition->GetGuid () == guid) found.Push (Kor::NewRef<ElementPropertyHandler> (store, elementId, definition));
    return found;
}

Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> ElementPropertyCollector::CollectUserDefinedPropertyHandlers ()
{
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> all;
    const Element* element = store.GetElement (elementId);
    if (element == nullptr) return all;
    for (const TxImport::PropertySet* set : store.GetSets (element->GetKind ()))
        for (const auto& definition : set->definitions) all.Push (Kor::NewRef<ElementPropertyHandler> (store, elementId, definition));
    return all;
}

}   // namespace Demo
