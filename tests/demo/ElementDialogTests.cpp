// The demo's element settings dialog without a window: its data from the project's real files,
// its handlers writing into the building model, and its page state kept in the settings file.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "DemoScript.hpp"
#include "ElementData.hpp"
#include "ElementDialogScript.hpp"
#include "ElementSettingsDialog.hpp"
#include "PageStateFile.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "Wg/ModalRunner.hpp"

namespace {

namespace fs = std::filesystem;

// The data files are read once for all tests.
const Demo::ElementData& Data ()
{
    static const Demo::ElementData data = [] {
        TxImport::ImportDiagnostics diagnostics;
        return Demo::ElementData::Load (TXAL_PROJECT_DATA_DIR, diagnostics);
    }();
    return data;
}

const Property::PropertyDefinition& Definition (const std::string& set, const std::string& name)
{
    for (const TxImport::PropertySet& candidate : Data ().GetPropertySets ())
        if (candidate.group->GetName ().ToUtf8 () == set)
            for (const auto& definition : candidate.definitions)
                if (definition->GetName ().ToUtf8 () == name) return *definition;
    throw std::invalid_argument (set + "." + name);
}

std::string RoundTrip (const std::string& set, const std::string& name, const std::string& text)
{
    const Property::PropertyDefinition& definition = Definition (set, name);
    const Kor::Owner<Kor::DynamicValue> value = Demo::ElementData::ValueFromText (definition, text);
    return value == nullptr ? "null" : Demo::ElementData::ValueToText (definition, *value);
}

TEST (ElementDataTest, KindsGetTheirOwnSetsFirstAndValuesSurviveTheSettingsText)
{
    std::string names;
    for (const TxImport::PropertySet* set : Data ().GetPropertySetsOf ("Wall")) names += set->group->GetName ().ToUtf8 () + " ";
    EXPECT_EQ (names, "Pset_WallCommon Pset_Condition Pset_EnvironmentalImpactIndicators Pset_ManufacturerTypeInformation Pset_Warranty ");
    names.clear ();
    for (const TxImport::PropertySet* set : Data ().GetPropertySetsOf ("Zone")) names += set->group->GetName ().ToUtf8 () + " ";
    EXPECT_EQ (names, "Pset_SpaceFireSafetyRequirements Pset_ZoneCommon ");
    EXPECT_TRUE (Data ().GetPropertySetsOf ("Stair").empty ());

    EXPECT_EQ (RoundTrip ("Pset_WallCommon", "LoadBearing", "yes"), "yes");
    EXPECT_EQ (RoundTrip ("Pset_WallCommon", "ThermalTransmittance", "0.24"), "0.24");
    EXPECT_EQ (RoundTrip ("Pset_WallCommon", "Reference", "EW-365"), "EW-365");
    // The values of an enumeration are written as the data file stores them, whether the text
    // named them so or by their display texts; several keep their order.
    EXPECT_EQ (RoundTrip ("Pset_WallCommon", "Status", "EXISTING"), "EXISTING");
    EXPECT_EQ (RoundTrip ("Pset_WallCommon", "Status", "Existing|NEW"), "EXISTING|NEW");
    EXPECT_EQ (RoundTrip ("Pset_WallCommon", "LoadBearing", Demo::ElementData::UndefinedValueText), Demo::ElementData::UndefinedValueText);
    EXPECT_EQ (RoundTrip ("Pset_WallCommon", "LoadBearing", "perhaps"), "null");

    EXPECT_EQ (Data ().FindClassificationItem ("L-AD")->GetName ().ToUtf8 (), "Wall construction");
    EXPECT_TRUE (Data ().FindClassificationItem ("no such code").IsNull ());
}

TEST (PageStateFileTest, TheStateRoundTripsAndBadLinesAreSkipped)
{
    TxAL::ClassificationsAndPropertiesPageState state;
    state.SetSplitterPosition (203);
    const Kor::Guid first = *Kor::Guid::Parse (Kor::UniString ("D1219C80-D1CC-11E1-8000-00215AD4EFDF"));
    const Kor::Guid second = *Kor::Guid::Parse (Kor::UniString ("0A1B2C3D-0000-4000-8000-000000000001"));
    state.SetCollapsedPropertyGroupGuids ({first, second});
    const std::string text = Demo::PageStateFile::Format (state);
    EXPECT_EQ (text, "# txal-demo page state\nsplitter = 203\ncollapsed = 0A1B2C3D-0000-4000-8000-000000000001 D1219C80-D1CC-11E1-8000-00215AD4EFDF\n");
    const TxAL::ClassificationsAndPropertiesPageState read = Demo::PageStateFile::Parse (text);
    EXPECT_EQ (read.GetSplitterPosition (), 203);
    EXPECT_EQ (read.GetCollapsedPropertyGroupGuids (), state.GetCollapsedPropertyGroupGuids ());

    const TxAL::ClassificationsAndPropertiesPageState bad =
        Demo::PageStateFile::Parse ("splitter = 12x\ncolour = red\nno equals sign\ncollapsed = nonsense D1219C80-D1CC-11E1-8000-00215AD4EFDF\n");
    EXPECT_EQ (bad.GetSplitterPosition (), 0);
    EXPECT_EQ (bad.GetCollapsedPropertyGroupGuids (), Kor::HashSet<Kor::Guid> {first});
    EXPECT_EQ (Demo::PageStateFile::Parse ("splitter = 99999\n").GetSplitterPosition (), 0);
    EXPECT_EQ (Demo::PageStateFile::Read ("/nonexistent/page-state.txt").GetSplitterPosition (), 0);
}

class ElementDialogTest : public ::testing::Test {
protected:
    ElementDialogTest ()
    {
        Demo::ElementData::MergeInto (model, Demo::ElementData::LoadBuiltInElementData ());
        dialogScript.InstallInto (script);
    }
    ~ElementDialogTest () override
    {
        std::error_code ignored;
        fs::remove (stateFile, ignored);
    }

    std::string Run (const std::string& text)
    {
        try {
            script.Run (text, "test");
        } catch (const Demo::ScriptError& e) {
            return e.what ();
        }
        return {};
    }

    const std::string                  stateFile = (fs::temp_directory_path () / ("txal-page-state-" + std::to_string (::getpid ()) + ".txt")).string ();
    Demo::BuildingModel                model = Demo::BuildingModel::LoadBuiltIn ();
    std::unique_ptr<Demo::ElementSettingsDialog> dialog = std::make_unique<Demo::ElementSettingsDialog> (model, Data (), stateFile);
    Demo::DemoScript                   script {dialog->GetPalette (), model};
    Demo::ElementDialogScript          dialogScript {*dialog};
};

TEST_F (ElementDialogTest, StoresReachEverySelectedElementAndOnlyThem)
{
    EXPECT_EQ (Run ("elements W-01 W-02\n"
                    "tab properties\n"
                    "list properties\n"
                    "click LoadBearing value\n"
                    "expect-cell LoadBearing value Yes\n"),
              "");
    // The default entry of the row's popup: the custom value goes from both walls.
    EXPECT_EQ (Run ("click LoadBearing icon\n"), "");
    Wg::GetHeadlessModalRunner ().QueueChoose (1);
    dialog->GetPropertiesPage ()->GetPropertyAttributeList ().GetOnTabItems ().GetIconColumnPopup ().UserPress ();
    EXPECT_FALSE (model.Find ("W-01")->Has ("Pset_WallCommon.LoadBearing"));
    EXPECT_FALSE (model.Find ("W-02")->Has ("Pset_WallCommon.LoadBearing"));
    EXPECT_TRUE (model.Find ("W-03")->Has ("Pset_WallCommon.LoadBearing"));
    EXPECT_EQ (dialog->GetStoredChangeCount (), 1);

    // Unclassified through the row's check mark, for both walls.
    EXPECT_EQ (Run ("list classifications\n"
                    "click \"CCI Construction 1.0\" icon\n"
                    "expect-model W-02 classification <none>\n"
                    "expect-model W-01 classification <none>\n"
                    "expect-model W-03 classification L-BD\n"
                    "expect-changes 2\n"),
              "");
}

TEST_F (ElementDialogTest, ClosingWritesTheStateAndANewDialogFindsIt)
{
    EXPECT_EQ (Run ("elements Z-01\n"
                    "drag-splitter 120\n"
                    "close-dialog\n"),
              "");
    EXPECT_FALSE (dialog->IsOpen ());
    EXPECT_EQ (Demo::PageStateFile::Read (stateFile).GetSplitterPosition (), 123);
    EXPECT_EQ (Run ("list properties\n"), "test:1: the dialog is closed");
    EXPECT_EQ (Run ("expect-strip none\n"), "test:1: the dialog is closed");

    // A new run: the page comes back where it was left.
    script.SetChangeCounter ({});
    dialog.reset ();
    dialog = std::make_unique<Demo::ElementSettingsDialog> (model, Data (), stateFile);
    dialog->ShowElements ({"Z-02", "unknown"});
    ASSERT_TRUE (dialog->IsOpen ());
    EXPECT_EQ (dialog->GetSelection (), std::vector<std::string> {"Z-02"});
    EXPECT_EQ (dialog->GetPropertiesPage ()->GetSplitterPosition (), 123);
}

}   // namespace
