#include "ElementData.hpp"

#include <algorithm>
#include <array>
#include <filesystem>

#include "ElementClassificationStore.hpp"
#include "TxImport/ClassificationImport.hpp"

namespace Demo {

extern const char* const BuiltInElementDataText;

namespace {

constexpr const char* PropertySetFolder = "psd";
constexpr const char* ClassificationFile = "classification/cciconstruction-1.0.json";
// The class of the data files that every building element is.
constexpr const char* BuildingElementClass = "IfcElement";

struct KindClasses {
    const char* kind;
    const char* ownClass;
    bool        isBuildingElement;
};

// The classes of the property set files that the demo's kinds of element are.
constexpr std::array<KindClasses, 5> KindToClasses {{
    {"Wall", "IfcWall", true},
    {"Slab", "IfcSlab", true},
    {"Door", "IfcDoor", true},
    {"Window", "IfcWindow", true},
    {"Zone", "IfcZone", false},
}};

bool AppliesTo (const TxImport::PropertySet& set, const std::string& ifcClass)
{
    // A set may name a predefined type after a slash ("IfcWall/SHEAR").
    return std::any_of (set.applicableClasses.begin (), set.applicableClasses.end (), [&] (const std::string& name) {
        return name == ifcClass || name.rfind (ifcClass + "/", 0) == 0;
    });
}

std::vector<std::string> Split (const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find (separator, start);
        parts.push_back (text.substr (start, end - start));
        if (end == std::string::npos) return parts;
        start = end + 1;
    }
}

const Property::EnumerationValueDescriptor* EnumerationOf (const Property::PropertyDefinition& definition)
{
    return dynamic_cast<const Property::EnumerationValueDescriptor*> (definition.GetValueDescriptor ().Get ());
}

}   // namespace

ElementData ElementData::Load (const std::string& dataFolder, TxImport::ImportDiagnostics& diagnostics)
{
    const std::filesystem::path folder (dataFolder);
    ElementData data;
    data.propertySets = TxImport::ImportPropertySetDefinitionFolder (folder / PropertySetFolder, diagnostics);
    data.classificationSystem = TxImport::ReadClassificationSystemFile ((folder / ClassificationFile).string (), diagnostics);
    data.elementTypeSystem = MakeElementTypeSystem ();
    return data;
}

std::vector<const TxImport::PropertySet*> ElementData::GetPropertySetsOf (const std::string& kind) const
{
    std::vector<const TxImport::PropertySet*> sets;
    const auto classes = std::find_if (KindToClasses.begin (), KindToClasses.end (), [&] (const KindClasses& entry) { return kind == entry.kind; });
    if (classes == KindToClasses.end ()) return sets;
    for (const TxImport::PropertySet& set : propertySets)
        if (AppliesTo (set, classes->ownClass)) sets.push_back (&set);
    if (classes->isBuildingElement)
        for (const TxImport::PropertySet& set : propertySets)
            if (AppliesTo (set, BuildingElementClass) && std::find (sets.begin (), sets.end (), &set) == sets.end ()) sets.push_back (&set);
    return sets;
}

std::vector<ElementData::ClassificationSystemEntry> ElementData::GetClassificationSystems () const
{
    std::vector<ClassificationSystemEntry> systems;
    if (!classificationSystem.IsNull ()) systems.push_back ({classificationSystem, ClassificationKey});
    if (!elementTypeSystem.IsNull ()) systems.push_back ({elementTypeSystem, ElementTypeKey});
    return systems;
}

ODB::ConstRef<CLS::ClassificationItem> ElementData::FindClassificationItem (const std::string& code) const
{
    if (classificationSystem.IsNull () || code.empty ()) return {};
    return classificationSystem->FindItemByCode (Kor::UniString (code));
}

std::string ElementData::GetPropertyKey (const Property::PropertyDefinition& definition)
{
    const std::string set = definition.GetGroup ().IsNull () ? std::string () : definition.GetGroup ()->GetName ().ToUtf8 ();
    return set + "." + definition.GetName ().ToUtf8 ();
}

std::string ElementData::ValueToText (const Property::PropertyDefinition& definition, const Kor::DynamicValue& value)
{
    if (value.GetStatus () == Kor::DynamicValue::UserUndefined) return UndefinedValueText;
    if (const auto* boolean = Kor::DynamicCast<Kor::BoolValue> (&value)) return boolean->GetValue () ? "yes" : "no";
    if (const auto* integer = Kor::DynamicCast<Kor::IntValue> (&value)) return std::to_string (integer->GetValue ());
    if (const auto* number = Kor::DynamicCast<Kor::NumValue> (&value)) return FormatNumber (number->GetValue ());
    if (const auto* text = Kor::DynamicCast<Kor::StringValue> (&value)) return text->GetValue ().ToUtf8 ();
    std::string joined;
    const auto add = [&joined] (const std::string& part) { joined += (joined.empty () ? "" : std::string (1, ListSeparator)) + part; };
    if (const auto* list = Kor::DynamicCast<Kor::StringListValue> (&value))
        for (const Kor::UniString& entry : list->GetValue ()) add (entry.ToUtf8 ());
    if (const auto* keys = Kor::DynamicCast<Kor::GuidListValue> (&value)) {
        const Property::EnumerationValueDescriptor* enumeration = EnumerationOf (definition);
        for (const Kor::Guid& key : keys->GetValue ()) {
            const std::optional<std::size_t> index = enumeration != nullptr ? enumeration->FindKey (key) : std::nullopt;
            if (index) add (enumeration->GetEnumerationValues ()[*index].value.ToUtf8 ());
        }
    }
    return joined;
}

Kor::Owner<Kor::DynamicValue> ElementData::ValueFromText (const Property::PropertyDefinition& definition, const std::string& text)
{
    const Property::IValueDescriptor* descriptor = definition.GetValueDescriptor ().Get ();
    if (descriptor == nullptr) return nullptr;
    if (text == UndefinedValueText) {
        Kor::Owner<Kor::DynamicValue> value = descriptor->CreateValue ();
        if (value != nullptr) value->SetStatus (Kor::DynamicValue::UserUndefined);
        return value;
    }
    const Property::EnumerationValueDescriptor* enumeration = EnumerationOf (definition);
    if (enumeration != nullptr && enumeration->HasMultiValue ()) {
        Kor::Array<Kor::Guid> keys;
        for (const std::string& part : Split (text, ListSeparator)) {
            const auto& values = enumeration->GetEnumerationValues ();
            for (const Property::EnumerationValue& entry : values)
                if (entry.value.ToUtf8 () == part || entry.displayText.ToUtf8 () == part) keys.Push (entry.key);
        }
        return Kor::NewOwner<Kor::GuidListValue> (keys);
    }
    if (enumeration != nullptr) {
        // The file writes a value as stored; the list shows (and stores) its display text.
        for (const Property::EnumerationValue& entry : enumeration->GetEnumerationValues ())
            if (entry.value.ToUtf8 () == text) return Kor::NewOwner<Kor::StringValue> (entry.displayText);
    }
    std::string lines = text;
    if (definition.GetCollectionType () == Property::PropertyCollectionType::List) std::replace (lines.begin (), lines.end (), ListSeparator, '\n');
    return descriptor->ConvertFromString (Kor::StringValue (Kor::UniString (lines)));
}

void ElementData::MergeInto (BuildingModel& model, const BuildingModel& data)
{
    for (const Element& source : data.GetElements ()) {
        Element* target = model.Find (source.GetId ());
        if (target == nullptr) continue;
        for (const auto& [key, value] : source.GetSettings ())
            if (!target->Has (key)) target->Set (key, value);
    }
}

BuildingModel ElementData::LoadBuiltInElementData ()
{
    return BuildingModel::Parse (BuiltInElementDataText, "data/element-data.txt");
}

}   // namespace Demo
