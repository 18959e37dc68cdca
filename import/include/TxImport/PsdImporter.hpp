#pragma once
// Reads property set definitions (PSD XML files) into property definition groups and
// definitions: one group per property set, one definition per property with its guid, name,
// definition text, measure from its data type, and enumerations with their values.
//
// What a file cannot give is reported (file, element, reason) and skipped: a malformed file
// gives nothing, an unknown data type or property kind loses that property only.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Kor/Owner.hpp"
#include "Property/PropertyDefinition.hpp"
#include "TxImport/ImportDiagnostics.hpp"

namespace TxImport {

// How the importer maps what a file leaves open.
struct PsdImportOptions {
    // An enumerated property value may hold several values of its enumeration; off, each
    // holds exactly one.
    bool enumerationsHoldSeveralValues = true;
    // The language of the display texts of enumeration values (name aliases), when a file has them.
    std::string language = "en";
};

// One property set: its group, its definitions in file order, and the classes it applies to.
struct PropertySet {
    Kor::ConstSharedPtr<Property::PropertyDefinitionGroup>         group;
    std::vector<Kor::ConstSharedPtr<Property::PropertyDefinition>> definitions;
    std::vector<std::string>                                       applicableClasses;
};

// Reads a PSD document held in memory; fileName names it in problems. Nullopt when the text is
// no readable property set definition.
std::optional<PropertySet> ImportPropertySetDefinition (std::string_view xml, const std::string& fileName, ImportDiagnostics& diagnostics,
                                                        const PsdImportOptions& options = {});

// Reads one file.
std::optional<PropertySet> ImportPropertySetDefinitionFile (const std::filesystem::path& file, ImportDiagnostics& diagnostics,
                                                            const PsdImportOptions& options = {});

// Reads every *.xml file of a folder, in the order of their names.
std::vector<PropertySet> ImportPropertySetDefinitionFolder (const std::filesystem::path& folder, ImportDiagnostics& diagnostics,
                                                            const PsdImportOptions& options = {});

}   // namespace TxImport
