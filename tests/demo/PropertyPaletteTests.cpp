// The demo's property palette on the sample building: custom values from its data file,
// defaults from the settings, zone areas on demand, and edits stored once per confirmation.

#include <gtest/gtest.h>

#include "AttributeListTestSupport.hpp"
#include "PropertyPalette.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "Wg/ModalRunner.hpp"
#include "Wg/WorkingUnits.hpp"

namespace {

class PropertyPaletteTest : public ::testing::Test {
protected:
    PropertyPaletteTest ()
    {
        Wg::SetWorkingUnits (Wg::WorkingUnits::Metric ());
        Wg::GetHeadlessModalRunner ().ClearScript ();
    }
    ~PropertyPaletteTest () override { Wg::GetHeadlessModalRunner ().ClearScript (); }

    short Row (const char* name)
    {
        const Wg::ListBox& listBox = palette.GetList ().GetListBox ();
        for (short row = 1; row <= listBox.GetItemCount (); ++row) {
            const auto* item = static_cast<const TxAL::AttributeListItem*> (listBox.GetItemValue (row));
            if (item != nullptr && item->GetName () == Kor::UniString (name)) return row;
        }
        ADD_FAILURE () << "no row " << name;
        return 1;
    }
    // "Name|value" of one row.
    std::string Shown (const char* name)
    {
        TxAL::AttributeList& list = palette.GetList ();
        const short          row = Row (name);
        return TxALTest::CellText (list, row, list.GetAttributeTypeColumnIndex ()) + "|" +
               TxALTest::CellText (list, row, list.GetAttributeNameColumnIndex ());
    }
    void Click (const char* name, short column)
    {
        Wg::ListBox& listBox = palette.GetList ().GetListBox ();
        listBox.Click (Row (name), Wg::Point ((listBox.GetTabFieldBeginPosition (column) + listBox.GetTabFieldEndPosition (column)) / 2, 5));
    }

    Demo::BuildingModel         model = Demo::BuildingModel::LoadBuiltIn ();
    TxImport::ImportDiagnostics problems;
    Demo::ElementPropertyStore  store {model, Demo::GetPropertySetFolder (), Demo::GetCustomPropertyValues (), problems};
    Wg::Panel                   panel {Wg::Rect (0, 0, 480, 900), 8};
    Demo::PropertyPalette       palette {panel, store};
};

TEST_F (PropertyPaletteTest, ElementsShowTheirSetsWithCustomValuesAndDefaults)
{
    // Every custom value of the data file names a real element, property and value.
    EXPECT_EQ (problems.ToString ().find ("properties.txt"), std::string::npos) << problems.ToString ();
    palette.ShowElement ("W-01");
    const std::string rows = TxALTest::DumpRows (palette.GetList ());
    EXPECT_EQ (rows.substr (0, rows.find (" 4:")), "1:▾Pset_WallCommon 2:  Reference 3:  Status|New");
    EXPECT_EQ (Shown ("FireRating"), "FireRating|REI 90");
    EXPECT_EQ (Shown ("SurfaceSpreadOfFlame"), "SurfaceSpreadOfFlame|Undefined");
    EXPECT_EQ (Shown ("LoadBearing"), "LoadBearing|Yes") << "the default comes from the wall's settings";
    EXPECT_NE (rows.find ("▾Pset_Condition"), std::string::npos);
    palette.ShowElement ("D-01");
    EXPECT_EQ (Shown ("Status"), "Status|New; Temporary");
    EXPECT_EQ (Shown ("FireExit"), "FireExit|Yes");
}

TEST_F (PropertyPaletteTest, ZoneAreasAreCalculatedWhenAsked)
{
    palette.ShowElement ("Z-01");
    EXPECT_EQ (Shown ("GrossPlannedArea"), "GrossPlannedArea|Not calculated");
    Click ("GrossPlannedArea", palette.GetList ().GetAttributeTypeColumnIndex ());
    palette.GetList ().GetOnTabItems ().GetIconButton ().UserPress ();
    EXPECT_EQ (Shown ("GrossPlannedArea"), "GrossPlannedArea|32.50 m²");
    EXPECT_EQ (Shown ("NetPlannedArea"), "NetPlannedArea|Not calculated");
    EXPECT_EQ (store.GetStoreCount (), 0) << "calculating stores nothing";
}

TEST_F (PropertyPaletteTest, EditsAreStoredOncePerElementAndComeBack)
{
    palette.ShowElement ("W-01");
    Click ("AcousticRating", palette.GetList ().GetAttributeNameColumnIndex ());
    Wg::TextEdit& edit = palette.GetList ().GetOnTabItems ().GetTextEdit ();
    edit.SetText ("");
    edit.UserType ("Rw 55 dB");
    panel.KeyPress (Wg::Key::Code (Wg::Key::Return, 0, 0));
    EXPECT_EQ (store.GetStoreCount (), 1);
    EXPECT_EQ (Shown ("AcousticRating"), "AcousticRating|Rw 55 dB");

    // Back to the default, and custom again: what was typed comes back.
    Click ("AcousticRating", palette.GetList ().GetAttributeTypeColumnIndex ());
    Wg::GetHeadlessModalRunner ().QueueChoose (1);
    palette.GetList ().GetOnTabItems ().GetIconColumnPopup ().UserPress ();
    EXPECT_EQ (Shown ("AcousticRating"), "AcousticRating|");
    Wg::GetHeadlessModalRunner ().QueueChoose (3);
    palette.GetList ().GetOnTabItems ().GetIconColumnPopup ().UserPress ();
    EXPECT_EQ (Shown ("AcousticRating"), "AcousticRating|Rw 55 dB");
    EXPECT_EQ (store.GetStoreCount (), 3);

    palette.ShowElement ("W-02");
    EXPECT_EQ (Shown ("AcousticRating"), "AcousticRating|") << "custom values belong to their element";
    palette.ShowElement ("W-01");
    EXPECT_EQ (Shown ("AcousticRating"), "AcousticRating|Rw 55 dB");
}

}   // namespace
