// Check, button, icon-button, info and separator items, and the factories of list and group.

#include "ValueItemsFixture.hpp"

namespace ValueItemsTest {
namespace {

using SimpleItemTest = ListTest;

// The icons of a recording, "module:id" with "~" for a greyed one.
std::string Icons (const Gfx::DrawingContext& context)
{
    std::string out;
    for (const Gfx::IconOp& op : context.Get<Gfx::IconOp> ())
        out += std::to_string (op.module) + ":" + std::to_string (op.resourceId) + (op.greyed ? "~ " : " ");
    return out;
}

TEST_F (SimpleItemTest, CheckBoxIsASquareAsWideAsARowIsHigh)
{
    auto* item = list->CreateCheckItem ("Load-bearing", {}, false, "Structural", true, false);
    std::string log;
    TxALTest::CallLog first ("A", &log);
    TxALTest::CallLog second ("B", &log);
    first.Watch (*item);
    second.Watch (*item);
    EXPECT_EQ (item->GetCheckColumn (), Preview ());
    const int box = Begin (Preview ());
    for (int x : {Begin (Label ()) + 5, box + RowHeight () + 1, box - 1, box + RowHeight (), box}) Click (1, x);
    EXPECT_EQ (std::to_string (item->IsChecked ()) + " " + first.Take (), "0 B:CheckChanged(Load-bearing) A:CheckChanged(Load-bearing) "
                                                                          "B:CheckChanged(Load-bearing) A:CheckChanged(Load-bearing)");
    EXPECT_TRUE (harness->Char (u' '));
    EXPECT_EQ (std::to_string (item->IsChecked ()) + " " + first.Take (), "1 B:CheckChanged(Load-bearing) A:CheckChanged(Load-bearing)");

    const std::uint64_t redraws = Redraws ();
    item->SetChecked (true);
    EXPECT_EQ (Redraws (), redraws);
    item->SetChecked (false);
    EXPECT_EQ (Redraws (), redraws + 1);
    EXPECT_EQ (log, "") << "the program's changes notify nobody";
}

TEST_F (SimpleItemTest, CheckDoubleClickTogglesAgainAndIsHandled)
{
    // The group's row toggles the group on a double click unless its master handled it.
    auto* group = list->CreateGroup ("Structure", {}, true, true);
    auto* check = group->CreateCheckItem (true, "Load-bearing", {}, false, "Structural", true, false);
    group->CreateTextItem (false, "Name", {}, "Wall", false, true, false, true, false);
    calls.Watch (*check);
    Click (1, Begin (Label ()) + 5);
    DoubleClick (1, Begin (Preview ()) + 3);
    EXPECT_EQ (std::to_string (Box ().GetItemCount ()) + " " + std::to_string (check->IsChecked ()) + " " + calls.Take (),
               "2 1 CheckChanged(Load-bearing)");
    DoubleClick (1, Begin (Value ()) + 3);
    EXPECT_EQ (std::to_string (Box ().GetItemCount ()) + " " + calls.Take (), "1 ");
}

TEST_F (SimpleItemTest, CheckColumnMovesAtTheNextRefreshAndDisabledBoxesStay)
{
    auto* item = list->CreateCheckItem ("Load-bearing", {}, false, "Structural", true, false);
    calls.Watch (*item);
    const std::uint64_t redraws = Redraws ();
    item->SetCheckColumn (Check ());
    EXPECT_EQ (item->GetCheckColumn (), Check ());
    EXPECT_EQ (Redraws (), redraws);
    EXPECT_EQ (Cell (1, Check ()), "");
    list->RefreshItem (*item, true);
    EXPECT_EQ (Cell (1, Check ()), "Structural");
    Click (1, Begin (Check ()));
    EXPECT_EQ (calls.Take (), "CheckChanged(Load-bearing)");
    item->SetStatus (false);
    Click (1, Begin (Check ()));
    DoubleClick (1, Begin (Check ()));
    harness->Char (u' ');
    EXPECT_EQ (calls.Get (), "") << "a disabled check box is not usable";
    EXPECT_TRUE (item->IsChecked ());
}

TEST_F (SimpleItemTest, CheckBoxDrawsTheLibraryIconsGreyedOnDisabledRows)
{
    list->CreateCheckItem ("Load-bearing", {}, true, "Structural", true, false);
    list->CreateCheckItem ("Exterior", {}, false, "Outside", false, false);
    EXPECT_EQ (Box ().GetTabItemIcon (1, Preview ()), Wg::Icon (Wg::Icon::StockModule, Wg::Icon::StockCheckOn));
    const std::string module = std::to_string (TxAL::GetLibResModule ());
    EXPECT_EQ (Icons (Box ().PaintCell (1, Preview ())) + Icons (Box ().PaintCell (2, Preview ())), module + ":31846 " + module + ":31845~ ");
    list->DisableAllItems ();
    EXPECT_EQ (Icons (Box ().PaintCell (1, Preview ())), module + ":31846~ ");
    // The caption stands right of the box, in the row's status colouring.
    const auto texts = Box ().PaintCell (1, Preview ()).Get<Gfx::TextOp> ();
    ASSERT_EQ (texts.size (), 1u);
    EXPECT_EQ (texts[0].text.ToUtf8 (), "Structural");
    EXPECT_GT (texts[0].rect.left, Begin (Preview ()) + RowHeight ());
    EXPECT_TRUE (texts[0].style.greyed);
    // A label that is not bold is painted plain.
    EXPECT_EQ (Paint (1, Label ()).find ("bold"), std::string::npos) << Paint (1, Label ());
}

TEST_F (SimpleItemTest, IconButtonReportsItsButtonAndItsAlwaysActiveIcon)
{
    const Wg::Icon dots = TxAL::GetResourceIcon (28115);
    auto* item = list->CreateIconButtonItem ("Profile", {}, "Basic", "P-1", dots, true, false);
    calls.Watch (*item);
    EXPECT_EQ (AT (1, Value ()) + "|" + AT (1, Preview ()) + "|" + AT (1, Check ()), "Basic|P-1|");
    Click (1, Begin (Check ()) + 2);
    EXPECT_EQ (calls.Get (), "") << "the icon is not active by itself";
    Wg::ButtonItem* button = item->GetIconButton ();
    ASSERT_EQ (button, &Controls ().GetIconButton ());
    EXPECT_EQ (std::to_string (button->GetRect ().GetWidth ()) + "x" + std::to_string (button->GetRect ().GetHeight ()),
               std::to_string (RowHeight () - 1) + "x" + std::to_string (RowHeight () - 1));
    EXPECT_EQ (button->GetIcon (), dots);
    button->UserPress ();
    EXPECT_EQ (calls.Take (), "ButtonClicked(Profile)");

    item->SetButtonIconAlwaysActive (true);
    EXPECT_EQ (Box ().GetTabItemIcon (1, Check ()), dots);
    for (int x : {Begin (Check ()) - 1, Begin (Check ()), End (Check ()), End (Check ()) + 1}) Click (1, x);
    item->SetOnTabItemVisibility (false);
    EXPECT_EQ (item->GetIconButton (), nullptr);
    Click (1, Begin (Check ()) + 1);
    EXPECT_EQ (calls.Take (), "ButtonIconClicked(Profile) ButtonIconClicked(Profile) ButtonIconClicked(Profile)");
    // A check column without width never reports the icon.
    Box ().SetTabFieldBeginEndPosition (Check (), static_cast<short> (End (Check ())), static_cast<short> (End (Check ())));
    Click (1, End (Check ()));
    EXPECT_EQ (calls.Get (), "");
}

TEST_F (SimpleItemTest, SettersCompareFirstAndRefreshOnlyInAList)
{
    TxAL::AttributeListIconButtonItem item ("Profile", {}, "Basic", "", {}, true, false);
    list->AddListItem (item);
    list->FullRefreshList (true);
    EXPECT_EQ (AT (1, Preview ()), "") << "an empty tag reads as no text";
    std::string redraws;
    auto count = [&] (auto&& change) {
        const std::uint64_t before = Redraws ();
        change ();
        redraws += std::to_string (Redraws () - before);
    };
    count ([&] { item.SetText ("Basic"); });
    count ([&] { item.SetText ("Custom"); });
    count ([&] { item.SetTagText ("P-2"); });
    count ([&] { item.SetButtonIcon (TxAL::GetResourceIcon (28115)); });
    count ([&] { item.SetButtonIcon (TxAL::GetResourceIcon (28115)); });
    EXPECT_EQ (redraws + " " + AT (1, Value ()) + " " + AT (1, Preview ()), "01110 Custom P-2");
    list->DeleteListItem (&item, false);
    count ([&] { item.SetText ("Detached"); });
    EXPECT_EQ (redraws, "011100");
    EXPECT_EQ (Box ().GetItemCount (), 0);
}

TEST_F (SimpleItemTest, ButtonSpansValueAndPreviewColumns)
{
    auto* item = list->CreateButtonItem ("Openings", {}, "Edit openings", true, false);
    calls.Watch (*item);
    Click (1, Begin (Label ()) + 5);
    Wg::ButtonItem& button = Controls ().GetButton ();
    ASSERT_EQ (Placed (), "sel=1 4:Button");
    EXPECT_EQ (button.GetRect ().GetWidth (), End (Preview ()) - Begin (Value ()));
    EXPECT_EQ (button.GetRect ().GetHeight (), RowHeight () - 3);
    EXPECT_EQ (button.GetText ().ToUtf8 () + "|" + AT (1, Value ()) + "|" + AT (1, Preview ()), "Edit openings|Edit openings|");
    button.UserPress ();
    EXPECT_EQ (calls.Take (), "ButtonClicked(Openings)");
    item->SetButtonText ("Edit doors");
    EXPECT_EQ (button.GetText ().ToUtf8 (), "Edit doors");
}

TEST_F (SimpleItemTest, InfoTextShowsAtTheNextRedrawAndSeparatorPaintsTheHeaderColour)
{
    TxAL::AttributeListInfoItem info ("Area", {}, true, false);
    list->AddListItem (info);
    auto* separator = list->CreateSeparatorItem ();
    const std::uint64_t redraws = Redraws ();
    info.SetAttributeInfoText ("12.5 m²");
    EXPECT_EQ (Cell (1, Value ()) + "|" + std::to_string (Redraws () - redraws), "|0");
    list->RefreshItem (info, true);
    EXPECT_EQ (Cell (1, Label ()) + "|" + Cell (1, Value ()), "Area|12.5 m²");

    EXPECT_FALSE (Box ().GetItemBackgroundColor (1).has_value ());
    EXPECT_EQ (Box ().GetItemBackgroundColor (2), list->GetDefaultHeaderBgColor (2, separator));
    Click (1, Begin (Value ()) + 5);
    EXPECT_EQ (Placed (), "sel=1");
    Click (2, Begin (Value ()) + 5);
    EXPECT_EQ (Placed () + " " + harness->Rows (), "sel=2 1:Area|12.5 m² 2:");
}

TEST_F (SimpleItemTest, ListFactoriesShowOwnedItemsAtOnce)
{
    TxALTest::Lifetimes lifetimes;
    std::string counts;
    auto shown = [&] (TxAL::AttributeListSimpleItem* item) {
        lifetimes.Watch (*item);
        counts += std::to_string (Box ().GetItemCount ());
    };
    shown (list->CreateTextItem ("Name", {}, "Wall", false, true, false, true, false));
    shown (list->CreateTaggedTextItem ("Layer", {}, "A-1", false, true, false, true, false, "tag"));
    shown (list->CreateSelectionItem ("Kind", {}, true, false));
    shown (list->CreateDictionaryItem ("Key", {}, "roof", true, false));
    shown (list->CreateRealItem ("Ratio", {}, 0.0, 1.0, 0.5, true, true, false));
    shown (list->CreateLengthItem ("Height", {}, 0.0, 10.0, 3.0, true, true, false));
    shown (list->CreateAreaItem ("Area", {}, 0.0, 100.0, 12.5, true, true, false));
    shown (list->CreateVolumeItem ("Volume", {}, 0.0, 100.0, 2.0, true, true, false));
    shown (list->CreateAngleItem ("Slant", {}, 0.0, 90.0, 45.0, true, true, false));
    shown (list->CreateIntItem ("Storeys", {}, 0, 10, 3, true, true, false));
    shown (list->CreateCheckItem ("Bearing", {}, true, "Yes", true, false));
    shown (list->CreateButtonItem ("Openings", {}, "Edit", true, false));
    shown (list->CreateIconButtonItem ("Profile", {}, "Basic", "", TxAL::GetResourceIcon (28115), true, false));
    shown (list->CreateSeparatorItem ());
    EXPECT_EQ (counts, "1234567891011121314");
    EXPECT_EQ (harness->Rows (), "1:Name|Wall 2:Layer|A-1|tag 3:Kind 4:Key|roof 5:Ratio|0.50 6:Height|3.000 m 7:Area|12.50 m² "
                                 "8:Volume|2.00 m³ 9:Slant|45.00° 10:Storeys|3 11:Bearing|[x]Yes 12:Openings|Edit 13:Profile|Basic 14:");
    list->ClearList (true);
    EXPECT_EQ (lifetimes.Take (), "~ ~Profile ~Openings ~Bearing ~Storeys ~Slant ~Volume ~Area ~Height ~Ratio ~Key ~Kind ~Layer ~Name")
        << "the list owns what it created";
}

TEST_F (SimpleItemTest, GroupFactoriesMakeChildrenAndOwnedMasters)
{
    auto* group = list->CreateGroup ("Wall", {}, true, true);
    auto* master = group->CreateLengthItem (true, "Height", {}, 0.0, 10.0, 3.0, true, true, false);
    ASSERT_EQ (group->GetMasterItem (), master);
    EXPECT_TRUE (master->IsMasterOwnedByGroup ());
    TxALTest::Lifetimes lifetimes;
    lifetimes.Watch (*master);
    std::string counts = harness->Rows ();
    auto added = [&] (TxAL::AttributeListSimpleItem* item) {
        lifetimes.Watch (*item);
        counts += " " + std::to_string (Box ().GetItemCount ()) + (item->GetGroup () == group ? "" : "!");
    };
    added (group->CreateTextItem (false, "Name", {}, "Wall", false, true, false, true, false));
    added (group->CreateSelectionItem (false, "Kind", {}, true, false));
    added (group->CreateDictionaryItem (false, "Key", {}, "roof", true, false));
    added (group->CreateRealItem (false, "Ratio", {}, 0.0, 1.0, 0.5, true, true, false));
    added (group->CreateAreaItem (false, "Area", {}, 0.0, 100.0, 12.5, true, true, false));
    added (group->CreateVolumeItem (false, "Volume", {}, 0.0, 100.0, 2.0, true, true, false));
    added (group->CreateAngleItem (false, "Slant", {}, 0.0, 90.0, 45.0, true, true, false));
    added (group->CreateIntItem (false, "Storeys", {}, 0, 10, 3, true, true, false));
    added (group->CreateCheckItem (false, "Bearing", {}, true, "Yes", true, false));
    added (group->CreateIconButtonItem (false, "Profile", {}, "Basic", "", {}, true, false));
    added (group->CreateSeparatorItem ());
    EXPECT_EQ (counts, "1:Wall|3.000 m 2 3 4 5 6 7 8 9 10 11 12");
    group->RemoveMasterItem ();
    EXPECT_EQ (lifetimes.Take () + "|" + Cell (1, Value ()), "~Height|") << "the group owns the master it created";
    list->ClearList (true);
    EXPECT_EQ (lifetimes.Take (), "~ ~Profile ~Bearing ~Storeys ~Slant ~Volume ~Area ~Ratio ~Key ~Kind ~Name");
}

}   // namespace
}   // namespace ValueItemsTest
