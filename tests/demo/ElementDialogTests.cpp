// The demo's element settings dialog without a window: its data from the project's real files,
// its handlers writing into the building model, and its page state kept in the settings file.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "DemoScript.hpp"
#include "ElementClassificationStore.hpp"
#include "ElementProperties.hpp"
#include "ElementDialogScript.hpp"
#include "ElementSettingsDialog.hpp"
#include "PageStateFile.hpp"
#include "PropertyPalette.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "Wg/ModalRunner.hpp"

namespace {

namespace fs = std::filesystem;

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
    ElementDialogTest () { dialogScript.InstallInto (script); }

    static std::unique_ptr<Demo::ElementPropertyStore> MakeStore (const Demo::BuildingModel& model)
    {
        TxImport::ImportDiagnostics problems;
        return std::make_unique<Demo::ElementPropertyStore> (model, Demo::GetPropertySetFolder (), Demo::GetCustomPropertyValues (), problems);
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
    std::unique_ptr<Demo::ElementPropertyStore> properties = MakeStore (model);
    Demo::ElementClassificationStore   classifications {model};
    std::unique_ptr<Demo::ElementSettingsDialog> dialog = std::make_unique<Demo::ElementSettingsDialog> (model, *properties, classifications, stateFile);
    Demo::DemoScript                   script {dialog->GetPalette (), model};
    Demo::ElementDialogScript          dialogScript {*dialog};
};

TEST_F (ElementDialogTest, StoresReachEverySelectedElementAndOnlyThem)
{
    EXPECT_EQ (Run ("elements W-01 W-02\n"
                    "tab properties\n"
                    "list properties\n"
                    "click FireRating label\n"
                    "expect-cell FireRating value REI 90\n"),
              "");
    // The default entry of the row's popup: both walls lose their custom value, so that each
    // shows the rating of its own settings again.
    Wg::GetHeadlessModalRunner ().QueueChoose (1);
    dialog->GetPropertiesPage ()->GetPropertyAttributeList ().GetOnTabItems ().GetIconColumnPopup ().UserPress ();
    EXPECT_EQ (properties->GetStoreCount (), 2);
    EXPECT_EQ (Run ("expect-changes 2\n"
                    "elements W-02\n"
                    "expect-cell FireRating value EI90\n"
                    "elements W-03 W-02\n"
                    "list classifications\n"
                    "click \"CCI Construction 1.0\" icon\n"
                    "expect-changes 2\n"),
              "");
    // Out of the system: the selected walls, and no other element.
    EXPECT_EQ (classifications.Describe ("W-03"), "Element types: WL");
    EXPECT_EQ (classifications.Describe ("W-02"), "Element types: WL");
    EXPECT_EQ (classifications.Describe ("W-01"), "CCI Construction: L-AD; Element types: WL");
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
    dialog = std::make_unique<Demo::ElementSettingsDialog> (model, *properties, classifications, stateFile);
    dialog->ShowElements ({"Z-02", "unknown"});
    ASSERT_TRUE (dialog->IsOpen ());
    EXPECT_EQ (dialog->GetSelection (), std::vector<std::string> {"Z-02"});
    EXPECT_EQ (dialog->GetPropertiesPage ()->GetSplitterPosition (), 123);
}

}   // namespace
