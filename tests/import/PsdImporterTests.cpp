// The property set definition importer on the project's real files and on broken variants.

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "TxImport/PsdImporter.hpp"

namespace {

const std::filesystem::path PsdFolder = std::filesystem::path (TXAL_DATA_DIR) / "psd";

std::string ReadFile (const std::string& name)
{
    std::ifstream in (PsdFolder / name, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf ();
    return text.str ();
}

std::string Replaced (std::string text, const std::string& what, const std::string& with)
{
    const auto at = text.find (what);
    EXPECT_NE (at, std::string::npos) << what;
    if (at != std::string::npos) text.replace (at, what.size (), with);
    return text;
}

const Property::PropertyDefinition* Find (const TxImport::PropertySet& set, const char* name)
{
    for (const auto& definition : set.definitions)
        if (definition->GetName () == name) return definition.Get ();
    return nullptr;
}

// "Name:kind" of each property; kinds: b boolean, i integer, s string, e enumeration, and for reals
// the measure: L length, A area, V volume, D angle, n other.
std::string Kinds (const TxImport::PropertySet& set)
{
    std::string out;
    for (const auto& definition : set.definitions) {
        std::string kind;
        switch (definition->GetValueType ()) {
            case Property::PropertyValueType::Boolean: kind = "b"; break;
            case Property::PropertyValueType::Integer: kind = "i"; break;
            case Property::PropertyValueType::String: kind = "s"; break;
            case Property::PropertyValueType::Enumeration: kind = "e"; break;
            case Property::PropertyValueType::Real:
                switch (definition->GetMeasure ().GetMeasureType ()) {
                    case Property::MeasureType::Length: kind = "L"; break;
                    case Property::MeasureType::Area: kind = "A"; break;
                    case Property::MeasureType::Volume: kind = "V"; break;
                    case Property::MeasureType::Angle: kind = "D"; break;
                    default: kind = "n"; break;
                }
                break;
        }
        out += (out.empty () ? "" : " ") + definition->GetName ().ToUtf8 () + ":" + kind;
    }
    return out;
}

class PsdImporterTest : public ::testing::Test {
protected:
    TxImport::ImportDiagnostics diagnostics;
};

TEST_F (PsdImporterTest, TheRealFilesGiveTheirSetsPropertiesAndEnumerations)
{
    const std::vector<TxImport::PropertySet> sets = TxImport::ImportPropertySetDefinitionFolder (PsdFolder, diagnostics);
    ASSERT_EQ (sets.size (), 24u);
    std::size_t properties = 0, enumerations = 0;
    for (const auto& set : sets) {
        properties += set.definitions.size ();
        for (const auto& definition : set.definitions)
            if (definition->GetValueType () == Property::PropertyValueType::Enumeration) ++enumerations;
    }
    EXPECT_EQ (properties, 243u);
    EXPECT_EQ (enumerations, 16u);
    // The published files have a few properties without a data type: reported, not guessed.
    EXPECT_EQ (diagnostics.ToString (),
               "Pset_RampCommon.xml: PropertyDef 'ThermalTransmittance' (line 277): has no data type; skipped\n"
               "Pset_RampCommon.xml: PropertyDef 'LoadBearing' (line 287): has no data type; skipped\n"
               "Pset_RoofCommon.xml: PropertyDef 'LoadBearing' (line 205): has no data type; skipped\n"
               "Pset_StairCommon.xml: PropertyDef 'ThermalTransmittance' (line 413): has no data type; skipped\n"
               "Pset_StairCommon.xml: PropertyDef 'LoadBearing' (line 423): has no data type; skipped\n");
    // An empty enumeration list whose values are named by constants keeps its values.
    const auto* beamStatus =
        dynamic_cast<const Property::EnumerationValueDescriptor*> (Find (sets[0], "Status")->GetValueDescriptor ().Get ());
    ASSERT_NE (beamStatus, nullptr);
    EXPECT_EQ (beamStatus->GetEnumerationValues ().GetSize (), 7u);

    const TxImport::PropertySet& wall = sets[20];
    EXPECT_EQ (wall.group->GetName (), "Pset_WallCommon");
    EXPECT_EQ (wall.group->GetGuid ().ToUniString (), "9F80F380-D215-11E1-8000-00215AD4EFDF");
    EXPECT_EQ (wall.group->GetUserId ().GetSecondaryId (), "IFC4");
    EXPECT_EQ (wall.applicableClasses, std::vector<std::string> {"IfcWall"});
    EXPECT_EQ (Kinds (wall), "Reference:s Status:e AcousticRating:s FireRating:s Combustible:b SurfaceSpreadOfFlame:s "
                             "ThermalTransmittance:n IsExternal:b LoadBearing:b ExtendToStructure:b Compartmentation:b");
    const Property::PropertyDefinition* reference = Find (wall, "Reference");
    ASSERT_NE (reference, nullptr);
    EXPECT_EQ (reference->GetGuid ().ToUniString (), "AA3B8880-D215-11E1-8000-00215AD4EFDF");
    EXPECT_EQ (reference->GetGroup ().Get (), wall.group.Get ());
    EXPECT_EQ (Find (wall, "ThermalTransmittance")->GetMeasure ().GetName (), "IfcThermalTransmittanceMeasure");

    const auto* status = dynamic_cast<const Property::EnumerationValueDescriptor*> (Find (wall, "Status")->GetValueDescriptor ().Get ());
    ASSERT_NE (status, nullptr);
    EXPECT_TRUE (status->HasMultiValue ());
    std::string values;
    for (const auto& value : status->GetEnumerationValues ()) values += value.value.ToUtf8 () + "=" + value.displayText.ToUtf8 () + " ";
    EXPECT_EQ (values, "NEW=New EXISTING=Existing DEMOLISH=Demolish TEMPORARY=Temporary OTHER=(other) NOTKNOWN=(unknown) UNSET=(unset) ");
}

TEST_F (PsdImporterTest, EnumerationKeysAreStableAndSharedByTheSameList)
{
    TxImport::ImportDiagnostics more;
    const auto wall = TxImport::ImportPropertySetDefinitionFile (PsdFolder / "Pset_WallCommon.xml", diagnostics);
    const auto slab = TxImport::ImportPropertySetDefinitionFile (PsdFolder / "Pset_SlabCommon.xml", more,
                                                                 TxImport::PsdImportOptions {false, "de"});
    ASSERT_TRUE (wall && slab);
    const auto* a = dynamic_cast<const Property::EnumerationValueDescriptor*> (Find (*wall, "Status")->GetValueDescriptor ().Get ());
    const auto* b = dynamic_cast<const Property::EnumerationValueDescriptor*> (Find (*slab, "Status")->GetValueDescriptor ().Get ());
    ASSERT_TRUE (a != nullptr && b != nullptr);
    EXPECT_FALSE (b->HasMultiValue ());
    EXPECT_EQ (a->GetEnumerationValues ()[2].key, b->GetEnumerationValues ()[2].key);
    EXPECT_NE (a->GetEnumerationValues ()[1].key, a->GetEnumerationValues ()[2].key);
    EXPECT_EQ (b->GetEnumerationValues ()[0].displayText, "NEW") << "no German alias: the stored value shows";
}

TEST_F (PsdImporterTest, AnUnknownDataTypeLosesThatPropertyOnly)
{
    const std::string broken = Replaced (ReadFile ("Pset_WallCommon.xml"), "<DataType type=\"IfcBoolean\" />", "<DataType type=\"IfcFancyMeasure\" />");
    const auto set = TxImport::ImportPropertySetDefinition (broken, "Pset_WallCommon.xml", diagnostics);
    ASSERT_TRUE (set.has_value ());
    EXPECT_EQ (set->definitions.size (), 10u);
    EXPECT_EQ (Find (*set, "Combustible"), nullptr);
    ASSERT_EQ (diagnostics.GetCount (), 1u);
    EXPECT_EQ (diagnostics.GetProblems ()[0].ToString (),
               "Pset_WallCommon.xml: PropertyDef 'Combustible' (line 182): uses the unknown data type 'IfcFancyMeasure'; skipped");
}

TEST_F (PsdImporterTest, BrokenPropertiesAreReportedAndSkipped)
{
    std::string broken = Replaced (ReadFile ("Pset_DoorCommon.xml"), "ifdguid=\"", "ifdguid=\"zz");
    broken = Replaced (broken, "<TypePropertySingleValue>", "<TypePropertyBoundedValue>");
    broken = Replaced (broken, "</TypePropertySingleValue>", "</TypePropertyBoundedValue>");
    const auto set = TxImport::ImportPropertySetDefinition (broken, "door.xml", diagnostics);
    ASSERT_TRUE (set.has_value ());
    std::string problems = diagnostics.ToString ();
    EXPECT_NE (problems.find ("door.xml: PropertySetDef 'Pset_DoorCommon': has no valid ifdguid"), std::string::npos) << problems;
    EXPECT_NE (problems.find ("is a 'TypePropertyBoundedValue', which is not supported; skipped"), std::string::npos) << problems;
    EXPECT_EQ (set->group->GetGuid ().IsNull (), false) << "the set gets a guid of its name";
}

TEST_F (PsdImporterTest, MalformedAndForeignDocumentsGiveNothingAndSayWhere)
{
    const std::string text = ReadFile ("Pset_SpaceCommon.xml");
    EXPECT_FALSE (TxImport::ImportPropertySetDefinition (text.substr (0, text.size () / 2), "cut.xml", diagnostics).has_value ());
    EXPECT_FALSE (TxImport::ImportPropertySetDefinition ("<Classification/>", "other.xml", diagnostics).has_value ());
    EXPECT_FALSE (TxImport::ImportPropertySetDefinition ("", "empty.xml", diagnostics).has_value ());
    EXPECT_FALSE (TxImport::ImportPropertySetDefinitionFile (PsdFolder / "missing.xml", diagnostics).has_value ());
    ASSERT_EQ (diagnostics.GetCount (), 4u);
    const auto& problems = diagnostics.GetProblems ();
    EXPECT_EQ (problems[0].file, "cut.xml");
    EXPECT_EQ (problems[0].message.rfind ("malformed XML: ", 0), 0u) << problems[0].message;
    EXPECT_EQ (problems[0].place.rfind ("line ", 0), 0u);
    EXPECT_EQ (problems[1].ToString (), "other.xml: <Classification>: is no PropertySetDef");
    EXPECT_EQ (problems[2].file, "empty.xml");
    EXPECT_EQ (problems[3].file, "missing.xml");
}

}   // namespace
