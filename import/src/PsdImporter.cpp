#include "TxImport/PsdImporter.hpp"

#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>

namespace TxImport {

namespace {

// Files above this size are no property set definitions: the largest real ones are tens of KiB.
constexpr std::uintmax_t MaxFileSize = 16u * 1024u * 1024u;
// An ifdguid is 32 hexadecimal digits without separators.
constexpr std::size_t CompactGuidLength = 32;

using Property::MeasureType;
using Property::PropertyCollectionType;
using Property::PropertyValueType;

struct DataTypeMapping {
    PropertyValueType valueType;
    MeasureType       measure;
};

// The data types the importer maps; everything else is reported.
const std::map<std::string, DataTypeMapping, std::less<>>& DataTypes ()
{
    static const std::map<std::string, DataTypeMapping, std::less<>> types {
        {"IfcBoolean", {PropertyValueType::Boolean, MeasureType::Undefined}},
        {"IfcLogical", {PropertyValueType::Boolean, MeasureType::Undefined}},
        {"IfcLabel", {PropertyValueType::String, MeasureType::Undefined}},
        {"IfcIdentifier", {PropertyValueType::String, MeasureType::Undefined}},
        {"IfcText", {PropertyValueType::String, MeasureType::Undefined}},
        {"IfcDate", {PropertyValueType::String, MeasureType::Undefined}},
        {"IfcDateTime", {PropertyValueType::String, MeasureType::Undefined}},
        {"IfcTime", {PropertyValueType::String, MeasureType::Undefined}},
        {"IfcDuration", {PropertyValueType::String, MeasureType::Undefined}},
        {"IfcURIReference", {PropertyValueType::String, MeasureType::Undefined}},
        {"IfcInteger", {PropertyValueType::Integer, MeasureType::Undefined}},
        {"IfcCountMeasure", {PropertyValueType::Integer, MeasureType::Count}},
        {"IfcLengthMeasure", {PropertyValueType::Real, MeasureType::Length}},
        {"IfcPositiveLengthMeasure", {PropertyValueType::Real, MeasureType::Length}},
        {"IfcNonNegativeLengthMeasure", {PropertyValueType::Real, MeasureType::Length}},
        {"IfcAreaMeasure", {PropertyValueType::Real, MeasureType::Area}},
        {"IfcVolumeMeasure", {PropertyValueType::Real, MeasureType::Volume}},
        {"IfcPlaneAngleMeasure", {PropertyValueType::Real, MeasureType::Angle}},
        {"IfcPositivePlaneAngleMeasure", {PropertyValueType::Real, MeasureType::Angle}},
        {"IfcReal", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcNumericMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcRatioMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcNormalisedRatioMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcPositiveRatioMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcThermalTransmittanceMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcThermodynamicTemperatureMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcMassMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcEnergyMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcPowerMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcPressureMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcPlanarForceMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcTimeMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcVolumetricFlowRateMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcSoundPowerMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcSoundPressureMeasure", {PropertyValueType::Real, MeasureType::Number}},
        {"IfcMonetaryMeasure", {PropertyValueType::Real, MeasureType::Number}},
    };
    return types;
}

std::string Trim (std::string_view text)
{
    const auto begin = text.find_first_not_of (" \t\r\n");
    if (begin == std::string_view::npos) return {};
    const auto end = text.find_last_not_of (" \t\r\n");
    return std::string (text.substr (begin, end - begin + 1));
}

std::string ChildText (const pugi::xml_node& node, const char* name)
{
    return Trim (node.child (name).child_value ());
}

// "aa3b8880d21511e1800000215ad4efdf" -> a guid; nullopt when it is not 32 hex digits.
std::optional<Kor::Guid> ParseCompactGuid (const std::string& text)
{
    if (text.size () != CompactGuidLength) return std::nullopt;
    std::string dashed = text.substr (0, 8) + "-" + text.substr (8, 4) + "-" + text.substr (12, 4) + "-" + text.substr (16, 4) + "-" + text.substr (20);
    return Kor::Guid::Parse (Kor::UniString (dashed));
}

// A stable guid named by a text (two FNV-1a hashes), for enumeration values that have no guid
// of their own: the same value gets the same key in every run.
Kor::Guid NameGuid (const std::string& name)
{
    std::array<std::uint8_t, 16> bytes {};
    std::uint64_t halves[2] = {14695981039346656037ull, 1099511628211ull * 31ull};
    for (int half = 0; half < 2; ++half) {
        for (unsigned char c : name) {
            halves[half] ^= c + static_cast<unsigned> (half);
            halves[half] *= 1099511628211ull;
        }
        for (int i = 0; i < 8; ++i) bytes[static_cast<std::size_t> (half * 8 + i)] = static_cast<std::uint8_t> (halves[half] >> (8 * i));
    }
    bytes[6] = static_cast<std::uint8_t> ((bytes[6] & 0x0F) | 0x50);   // version 5 style: name-based
    bytes[8] = static_cast<std::uint8_t> ((bytes[8] & 0x3F) | 0x80);
    return Kor::Guid (bytes);
}

// The first name alias in the language (its primary tag also matches: "en" finds "en-GB").
std::string Alias (const pugi::xml_node& node, const std::string& language)
{
    for (const pugi::xml_node& alias : node.child ("NameAliases").children ("NameAlias")) {
        const std::string lang = alias.attribute ("lang").as_string ();
        if (lang == language || lang.rfind (language + "-", 0) == 0) {
            std::string text = Trim (alias.child_value ());
            if (!text.empty ()) return text;
        }
    }
    return {};
}

std::size_t LineOf (std::string_view text, std::ptrdiff_t offset)
{
    const auto end = static_cast<std::size_t> (std::clamp<std::ptrdiff_t> (offset, 0, static_cast<std::ptrdiff_t> (text.size ())));
    return 1 + static_cast<std::size_t> (std::count (text.begin (), text.begin () + static_cast<std::ptrdiff_t> (end), '\n'));
}

class PsdReader {
public:
    PsdReader (const std::string& file, ImportDiagnostics& diagnostics, const PsdImportOptions& options)
        : file (file), diagnostics (diagnostics), options (options)
    {
    }

    std::optional<PropertySet> Read (const pugi::xml_node& root)
    {
        const std::string setName = ChildText (root, "Name");
        if (setName.empty ()) {
            diagnostics.Report (file, "PropertySetDef", "has no Name");
            return std::nullopt;
        }
        std::optional<Kor::Guid> guid = ParseCompactGuid (root.attribute ("ifdguid").as_string ());
        if (!guid) {
            diagnostics.Report (file, "PropertySetDef '" + setName + "'", "has no valid ifdguid; a guid is made from its name");
            guid = NameGuid ("PropertySetDef/" + setName);
        }
        PropertySet set;
        const std::string version = root.child ("IfcVersion").attribute ("version").as_string ();
        set.group = std::make_shared<const Property::PropertyDefinitionGroup> (
            *guid, Property::PropertyDefinitionGroupUserId (setName, version), setName, ChildText (root, "Definition"));
        for (const pugi::xml_node& name : root.child ("ApplicableClasses").children ("ClassName")) {
            const std::string className = Trim (name.child_value ());
            if (!className.empty ()) set.applicableClasses.push_back (className);
        }
        const pugi::xml_node defs = root.child ("PropertyDefs");
        if (!defs) diagnostics.Report (file, "PropertySetDef '" + setName + "'", "has no PropertyDefs");
        for (const pugi::xml_node& def : defs.children ("PropertyDef"))
            if (auto definition = ReadProperty (def, set.group)) set.definitions.push_back (std::move (*definition));
        return set;
    }

private:
    std::optional<Kor::ConstSharedPtr<Property::PropertyDefinition>> ReadProperty (
        const pugi::xml_node& def, const Kor::ConstSharedPtr<Property::PropertyDefinitionGroup>& group)
    {
        const std::string name = ChildText (def, "Name");
        const std::string place = "PropertyDef '" + (name.empty () ? "?" : name) + "' (line " + std::to_string (Line (def)) + ")";
        if (name.empty ()) return Fail (place, "has no Name");
        const std::optional<Kor::Guid> guid = ParseCompactGuid (def.attribute ("ifdguid").as_string ());
        if (!guid) return Fail (place, "has no valid ifdguid");

        Property::PropertyDefinition::Data data;
        data.guid = *guid;
        data.name = name;
        data.description = ChildText (def, "Definition");
        data.group = group;

        const pugi::xml_node type = def.child ("PropertyType").first_child ();
        const std::string kind = type.name ();
        if (kind == "TypePropertySingleValue" || kind == "TypePropertyListValue") {
            const pugi::xml_node dataType = kind == "TypePropertySingleValue" ? type.child ("DataType") : type.child ("ListValue").child ("DataType");
            const std::string typeName = dataType.attribute ("type").as_string ();
            const auto found = DataTypes ().find (typeName);
            if (found == DataTypes ().end ())
                return Fail (place, typeName.empty () ? "has no data type" : "uses the unknown data type '" + typeName + "'");
            data.valueType = found->second.valueType;
            data.measure = Property::Measure (found->second.measure, Kor::UniString (typeName));
            data.collectionType = kind == "TypePropertyListValue" ? PropertyCollectionType::List : PropertyCollectionType::Single;
        } else if (kind == "TypePropertyEnumeratedValue") {
            auto descriptor = ReadEnumeration (type, place);
            if (descriptor.IsNull ()) return std::nullopt;
            data.valueType = PropertyValueType::Enumeration;
            data.valueDescriptor = descriptor;
        } else {
            return Fail (place, kind.empty () ? "has no PropertyType" : "is a '" + kind + "', which is not supported");
        }
        return std::make_shared<const Property::PropertyDefinition> (std::move (data));
    }

    Kor::ConstSharedPtr<Property::IValueDescriptor> ReadEnumeration (const pugi::xml_node& type, const std::string& place)
    {
        const pugi::xml_node list = type.child ("EnumList");
        const std::string listName = list.attribute ("name").as_string ();
        // Display texts come from the constants' aliases, when the file has them.
        std::map<std::string, std::string> displayTexts;
        std::map<std::string, std::string> descriptions;
        for (const pugi::xml_node& constant : type.child ("ConstantList").children ("ConstantDef")) {
            const std::string value = ChildText (constant, "Name");
            displayTexts[value] = Alias (constant, options.language);
            descriptions[value] = ChildText (constant, "Definition");
        }
        // Some files leave the list empty and name the values only as constants.
        std::vector<std::string> items;
        for (const pugi::xml_node& item : list.children ("EnumItem")) items.push_back (Trim (item.child_value ()));
        if (items.empty ())
            for (const pugi::xml_node& constant : type.child ("ConstantList").children ("ConstantDef")) items.push_back (ChildText (constant, "Name"));
        Kor::Array<Property::EnumerationValue> values;
        for (const std::string& value : items) {
            if (value.empty ()) continue;
            const std::string display = displayTexts[value].empty () ? value : displayTexts[value];
            values.Push ({NameGuid ((listName.empty () ? place : listName) + "/" + value), Kor::UniString (value), Kor::UniString (display),
                          Kor::UniString (descriptions[value])});
        }
        if (values.IsEmpty ()) {
            Fail (place, "has an enumeration without values");
            return nullptr;
        }
        return std::shared_ptr<const Property::IValueDescriptor> (
            std::make_shared<const Property::EnumerationValueDescriptor> (values, options.enumerationsHoldSeveralValues));
    }

    std::nullopt_t Fail (const std::string& place, const std::string& message)
    {
        diagnostics.Report (file, place, message + "; skipped");
        return std::nullopt;
    }

    std::size_t Line (const pugi::xml_node& node) const { return text != nullptr ? LineOf (*text, node.offset_debug ()) : 0; }

public:
    const std::string_view* text = nullptr;

private:
    const std::string&      file;
    ImportDiagnostics&      diagnostics;
    const PsdImportOptions& options;
};

}   // namespace

std::optional<PropertySet> ImportPropertySetDefinition (std::string_view xml, const std::string& fileName, ImportDiagnostics& diagnostics,
                                                        const PsdImportOptions& options)
{
    pugi::xml_document       document;
    const pugi::xml_parse_result parsed = document.load_buffer (xml.data (), xml.size ());
    if (!parsed) {
        diagnostics.Report (fileName, "line " + std::to_string (LineOf (xml, parsed.offset)), std::string ("malformed XML: ") + parsed.description ());
        return std::nullopt;
    }
    const pugi::xml_node root = document.child ("PropertySetDef");
    if (!root) {
        const std::string found = document.first_child ().name ();
        diagnostics.Report (fileName, found.empty () ? "document" : "<" + found + ">", "is no PropertySetDef");
        return std::nullopt;
    }
    PsdReader reader (fileName, diagnostics, options);
    reader.text = &xml;
    return reader.Read (root);
}

std::optional<PropertySet> ImportPropertySetDefinitionFile (const std::filesystem::path& file, ImportDiagnostics& diagnostics,
                                                            const PsdImportOptions& options)
{
    const std::string name = file.filename ().string ();
    std::error_code   error;
    const std::uintmax_t size = std::filesystem::file_size (file, error);
    if (error) {
        diagnostics.Report (name, "file", "cannot be read: " + error.message ());
        return std::nullopt;
    }
    if (size > MaxFileSize) {
        diagnostics.Report (name, "file", "is too large for a property set definition");
        return std::nullopt;
    }
    std::ifstream in (file, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf ();
    if (!in && !in.eof ()) {
        diagnostics.Report (name, "file", "cannot be read");
        return std::nullopt;
    }
    const std::string text = content.str ();
    return ImportPropertySetDefinition (text, name, diagnostics, options);
}

std::vector<PropertySet> ImportPropertySetDefinitionFolder (const std::filesystem::path& folder, ImportDiagnostics& diagnostics,
                                                            const PsdImportOptions& options)
{
    std::vector<std::filesystem::path> files;
    std::error_code                    error;
    for (const auto& entry : std::filesystem::directory_iterator (folder, error))
        if (entry.is_regular_file () && entry.path ().extension () == ".xml") files.push_back (entry.path ());
    if (error) diagnostics.Report (folder.string (), "folder", "cannot be listed: " + error.message ());
    std::sort (files.begin (), files.end ());
    std::vector<PropertySet> sets;
    for (const auto& file : files)
        if (auto set = ImportPropertySetDefinitionFile (file, diagnostics, options)) sets.push_back (std::move (*set));
    return sets;
}

}   // namespace TxImport
