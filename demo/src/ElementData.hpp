#pragma once
// What the demo's "Classifications and properties" tab shows about the building's elements:
// the property sets and the classification system read from the project's real data files
// (data/psd, data/classification), which sets apply to which kind of element, and how property
// values are kept in an element's settings as text:
//   "classification" = the code of the element's CCI Construction class (absent: unclassified)
//   "elementType" = the code of its class in the demo's own system of element types
//   "<Property set>.<Property>" = the property's custom value (absent: the default)

#include <optional>
#include <string>
#include <vector>

#include "BuildingModel.hpp"
#include "CLS/ClassificationSystem.hpp"
#include "Kor/DynamicValue.hpp"
#include "Kor/Owner.hpp"
#include "Property/PropertyDefinition.hpp"
#include "TxImport/ImportDiagnostics.hpp"
#include "TxImport/PsdImporter.hpp"

namespace Demo {

// The property sets and classification system of the demo, and the element data file.
class ElementData {
public:
    static constexpr const char* ClassificationKey = "classification";
    static constexpr const char* ElementTypeKey = "elementType";

    // A classification system and the settings key of an element's class in it.
    struct ClassificationSystemEntry {
        ODB::Ref<CLS::ClassificationSystem> system;
        std::string                         key;
    };
    // Written for a custom value that the user made undefined on purpose.
    static constexpr const char* UndefinedValueText = "(undefined)";
    // Separates the values of a multi-valued enumeration and the entries of a list.
    static constexpr char ListSeparator = '|';

    // Reads dataFolder/psd/*.xml and dataFolder/classification/cciconstruction-1.0.json; what
    // cannot be read is reported to diagnostics and left out.
    static ElementData Load (const std::string& dataFolder, TxImport::ImportDiagnostics& diagnostics);

    // The sets that apply to a kind of element ("Wall"): its own first, then those of every
    // building element; none for an unknown kind.
    std::vector<const TxImport::PropertySet*> GetPropertySetsOf (const std::string& kind) const;
    const std::vector<TxImport::PropertySet>& GetPropertySets () const { return propertySets; }

    // Null when the file could not be read.
    const ODB::Ref<CLS::ClassificationSystem>& GetClassificationSystem () const { return classificationSystem; }
    const ODB::Ref<CLS::ClassificationSystem>& GetElementTypeSystem () const { return elementTypeSystem; }
    // The systems an element is classified in, in the order of the rows: those that could be read.
    std::vector<ClassificationSystemEntry> GetClassificationSystems () const;
    // The class of a code in the CCI Construction system; null for none.
    ODB::ConstRef<CLS::ClassificationItem> FindClassificationItem (const std::string& code) const;

    // The settings key of a property: "<set name>.<property name>".
    static std::string GetPropertyKey (const Property::PropertyDefinition& definition);
    // A value as the settings keep it, and back (null when the text names no value).
    static std::string                   ValueToText (const Property::PropertyDefinition& definition, const Kor::DynamicValue& value);
    static Kor::Owner<Kor::DynamicValue> ValueFromText (const Property::PropertyDefinition& definition, const std::string& text);

    // Copies the settings of the elements of data (the element data file's format, which is the
    // building model's) into the model's elements of the same ids; unknown ids are skipped.
    static void MergeInto (BuildingModel& model, const BuildingModel& data);
    // The element data file built into the demo (data/element-data.txt).
    static BuildingModel LoadBuiltInElementData ();

private:
    std::vector<TxImport::PropertySet>  propertySets;
    ODB::Ref<CLS::ClassificationSystem> classificationSystem;
    ODB::Ref<CLS::ClassificationSystem> elementTypeSystem;
};

}   // namespace Demo
