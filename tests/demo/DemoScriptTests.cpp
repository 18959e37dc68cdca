#include <gtest/gtest.h>

#include "BuildingModel.hpp"
#include "DemoScript.hpp"
#include "SettingsPalette.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "Wg/WorkingUnits.hpp"

namespace {

class DemoScriptTest : public ::testing::Test {
protected:
    ~DemoScriptTest () override { Wg::SetWorkingUnits (Wg::WorkingUnits::Metric ()); }

    // Runs a script and answers "" or the error.
    std::string Run (const std::string& text)
    {
        try {
            script.Run (text, "test");
        } catch (const Demo::ScriptError& e) {
            return e.what ();
        }
        return {};
    }

    Demo::BuildingModel    model = Demo::BuildingModel::LoadBuiltIn ();
    Wg::Panel              panel {Wg::Rect (0, 0, 480, 640), 7};
    Demo::SettingsPalette  palette {panel, model};
    Demo::DemoScript       script {palette, model};
};

TEST_F (DemoScriptTest, TypedLengthLandsInMetresAndFollowsTheUnits)
{
    EXPECT_EQ (Run ("element W-01\n"
                    "click Height\n"
                    "type 2500mm\n"
                    "key Return\n"
                    "expect-model W-01 height 2.5\n"
                    "expect-cell Height value 2.500 m\n"
                    "units imperial\n"
                    "expect-cell Height value 8'-2 3/8\"\n"
                    "click Thickness\n"
                    "type 1'-6\"\n"
                    "key Tab\n"
                    "expect-model W-01 thickness 0.4572\n"),
               "");
}

TEST_F (DemoScriptTest, PickAndToggleChangeTheModel)
{
    EXPECT_EQ (Run ("element W-03\n"
                    "pick \"Fire rating\" 4\n"
                    "expect-model W-03 fireRating EI90\n"
                    "toggle \"Load-bearing structure\"\n"
                    "expect-model W-03 loadBearing yes\n"
                    "expect-popups 1\n"),
               "");
}

TEST_F (DemoScriptTest, PopupModifierWithDownOpensTheSelectedRowsPopup)
{
    // The choice can only reach the model through a popup that the key opened.
    EXPECT_EQ (Run ("element W-03\n"
                    "click Structure\n"
                    "answer-popup 3\n"
                    "key Alt+Down\n"
                    "expect-popups 1\n"
                    "expect-model W-03 structure Profile\n"
                    "expect-cell Structure value Profile\n"
                    "expect-focus Structure list\n"),
               "");
    // A cancelled popup leaves the value; Down alone moves on and opens nothing.
    EXPECT_EQ (Run ("key Alt+Down\n"
                    "expect-popups 1\n"
                    "expect-model W-03 structure Profile\n"
                    "key Down\n"
                    "expect-popups 0\n"
                    "expect-focus Profile list\n"),
               "");
    // A row without a popup opens none, and an answer left unused is reported.
    EXPECT_EQ (Run ("click Height\n"
                    "answer-popup 1\n"
                    "key Alt+Down\n"
                    "expect-popups 0\n"),
               "test:4: an answer-popup was never used");
}

TEST_F (DemoScriptTest, ButtonRecalculatesThroughProgrammaticSetters)
{
    EXPECT_EQ (Run ("element W-03\n"
                    "click Length\n"
                    "type 5\n"
                    "key Return\n"
                    "click \"Area and volume\"\n"),
               "");
    // The button press lands on the list's shared push button; press it as a user would.
    palette.GetList ().GetOnTabItems ().GetButton ().UserPress ();
    EXPECT_EQ (model.Find ("W-03")->Get ("area"), "12.5");
    EXPECT_EQ (model.Find ("W-03")->Get ("volume"), "1.44");
}

TEST_F (DemoScriptTest, BadLinesNameFileAndLine)
{
    EXPECT_EQ (Run ("element W-01\nclick Nothing\n"), "test:2: no row labelled \"Nothing\"");
    EXPECT_EQ (Run ("frobnicate\n"), "test:1: unknown command \"frobnicate\"");
    EXPECT_EQ (Run ("element W-01\nexpect-model W-01 height 9\n"), "test:2: model has \"2.70\", expected \"9\"");
}

TEST_F (DemoScriptTest, DumpShowsEveryRowThroughTheTestingText)
{
    ASSERT_EQ (Run ("element Z-02\n"), "");
    const std::string dump = Demo::DumpPalette (palette);
    EXPECT_NE (dump.find ("| General |"), std::string::npos) << dump;
    EXPECT_NE (dump.find ("| Name | Kitchen |"), std::string::npos) << dump;
    EXPECT_NE (dump.find ("| Area | 14.20 m² |"), std::string::npos) << dump;
}

TEST (BuildingModelTest, MalformedFilesNameTheLine)
{
    const auto error = [] (const std::string& text) -> std::string {
        try {
            Demo::BuildingModel::Parse (text, "m.txt");
        } catch (const Demo::ModelError& e) {
            return e.what ();
        }
        return {};
    };
    EXPECT_EQ (error ("[Wall W-1]\nheight = 2\n"), "");
    EXPECT_EQ (error ("height = 2\n"), "m.txt:1: setting outside an element");
    EXPECT_EQ (error ("[Wall]\n"), "m.txt:1: a section is [Kind ID]");
    EXPECT_EQ (error ("[Wall W-1]\n[Slab W-1]\n"), "m.txt:2: duplicate element W-1");
    EXPECT_EQ (error ("[Wall W-1]\nbad key = 1\n"), "m.txt:2: bad key \"bad key\"");
    EXPECT_EQ (error ("[Wall W-1\n"), "m.txt:1: section without ']'");
    EXPECT_EQ (error ("[Wall W-1]\nh = 1\nh = 2\n"), "m.txt:3: duplicate key h");
    EXPECT_EQ (Demo::BuildingModel::LoadBuiltIn ().GetElements ().size (), 13u);
}

}   // namespace
