// The picker row base, driven as a user drives it: clicks at the exact bounds, browsing the
// popup, cancelling and choosing, tooltips and the texts of missing attributes.

#include "PickerItemsFixture.hpp"

#include "Kor/Assert.hpp"
#include "Wg/ListBox.hpp"

namespace PickerItemsTest {
namespace {

class PickerRowTest : public PickerTest {
protected:
    AttributeListFillItem* AddFill (const char* name, const char* fill, AttributeListFillItem::SubType subType = AttributeListFillItem::EveryFill)
    {
        return list->CreateFillItem (name, {}, {}, &provider, subType, Fill (fill), AttributeListFillItem::NoPen, AttributeListFillItem::NoPen,
                                     AttributeListFillItem::NoPen, AttributeListFillItem::NoPen, true, false);
    }
    // "value-text displayed-index": what the selected row shows while the popup is open.
    std::string Shot (const AttributePickerListItem& item) const
    {
        return ValueText (Box ().GetSelectedItem ()) + "#" + std::to_string (item.GetDisplayedAttributeIndex ().GetValue ());
    }
};

TEST_F (PickerRowTest, ClickOpensFromThePreviewColumnsFirstPixelToTheButtonColumnsLast)
{
    AddFill ("Cut fill", "Brick");
    std::string opened;
    for (int x : {Begin (Preview ()) - 1, Begin (Preview ()), (Begin (Preview ()) + End (Preview ())) / 2, End (Check ()), End (Check ()) + 1,
                  Begin (Value ()) + 3}) {
        const int before = Popups ();
        Click (1, x);
        opened += std::to_string (Popups () - before);
    }
    EXPECT_EQ (opened, "011100");
}

TEST_F (PickerRowTest, TheButtonOpensThePickerAndKeepsTheSelectedRowsControlsInPlace)
{
    AddFill ("Cut fill", "Brick");
    Click (1, Begin (Value ()) + 3);
    EXPECT_EQ (Placed (), "sel=1 " + std::to_string (Check ()) + ":CheckBox");
    const Wg::PushCheck& button = Controls ().GetCheckBox ();
    EXPECT_EQ (button.GetWidth (), RowHeight () - (Box ().HasSeparatorLines () ? 3 : 2));
    EXPECT_EQ (button.GetArrowType (), Wg::PushCheck::DownArrow);
    const int before = Popups ();
    Controls ().GetCheckBox ().UserPress ();
    EXPECT_EQ (Popups (), before + 1);
}

TEST_F (PickerRowTest, BrowsingPreviewsTheEntryUnderThePointerAndLeavingOrCancellingRestoresTheChosenOne)
{
    auto* item = AddFill ("Cut fill", "Brick", AttributeListFillItem::CutFills);
    log.Watch (*item);
    Click (1, Begin (Value ()) + 3);
    SnapshotRunner runner ([&] { return Shot (*item); });
    // Cut fills: Empty, Solid, Brick, Concrete, ...
    runner.Queue (Wg::ModalStep::MakeTrack (4));
    runner.Queue (Wg::ModalStep::MakeTrack (0));
    runner.Queue (Wg::ModalStep::MakeTrack (2));
    runner.Queue (Wg::ModalStep::MakeCancel ());
    Click (1, End (Check ()));
    EXPECT_EQ (runner.Shots (), "Concrete#4 / Brick#3 / Solid Fill#2 / Brick#3");
    EXPECT_EQ (item->GetFill (), Fill ("Brick"));
    EXPECT_EQ (log.Take (), "");
}

TEST_F (PickerRowTest, TheRowsAreDrawnWhileThePickerThatTheButtonOpenedIsOpen)
{
    // The button's press reaches the row through the list, which holds its drawing meanwhile;
    // the preview of the entry under the pointer must still reach the screen.
    AddFill ("Cut fill", "Brick", AttributeListFillItem::CutFills);
    Click (1, Begin (Value ()) + 3);
    std::uint64_t redraws = 0;
    SnapshotRunner runner ([&] {
        const std::uint64_t now = Box ().GetRedrawCount ();
        const std::string shot = std::string (Box ().IsDrawEnabled () ? "drawn" : "held") + (now > redraws ? "+" : "=");
        redraws = now;
        return shot;
    });
    runner.Queue (Wg::ModalStep::MakeTrack (4));
    runner.Queue (Wg::ModalStep::MakeTrack (2));
    redraws = Box ().GetRedrawCount ();
    Controls ().GetCheckBox ().UserPress ();
    EXPECT_EQ (runner.Shots (), "drawn+ / drawn+");
    EXPECT_TRUE (Box ().IsDrawEnabled ());
}

TEST_F (PickerRowTest, ChoosingNotifiesOnceAfterTheRowShowsTheChoiceAndCodeNeverNotifies)
{
    auto* item = AddFill ("Cut fill", "Brick", AttributeListFillItem::CutFills);
    PickerLog older ("old", nullptr);
    std::string sink;
    PickerLog first ("first", &sink), second ("second", &sink);
    first.Watch (*item);
    second.Watch (*item);
    second.onCall = [&] { sink += "[" + ValueText (1) + "]"; };
    item->SetFill (Fill ("Earth"));
    EXPECT_EQ (ValueText (1), "Earth");
    EXPECT_EQ (sink, "");

    Click (1, Begin (Value ()) + 3);
    SnapshotRunner runner ([&] { return Shot (*item); });
    runner.Queue (Wg::ModalStep::MakeTrack (4));
    runner.Queue (Wg::ModalStep::MakeChoose (4));
    Click (1, Begin (Preview ()));
    // Newest observer first; the row already shows the choice when they hear of it.
    EXPECT_EQ (sink, "second:FillChanged(Cut fill)[Concrete] first:FillChanged(Cut fill)");
    EXPECT_EQ (runner.Shots (), "Concrete#4 / Concrete#4");
    EXPECT_EQ (item->GetFill (), Fill ("Concrete"));
    EXPECT_EQ (item->GetDisplayedAttributeIndex (), Fill ("Concrete"));
}

TEST_F (PickerRowTest, ChoosingTheHeldAttributeAgainStillNotifies)
{
    auto* item = AddFill ("Cut fill", "Brick", AttributeListFillItem::CutFills);
    log.Watch (*item);
    Click (1, Begin (Value ()) + 3);
    Runner ().QueueChoose (3);
    Click (1, End (Check ()));
    EXPECT_EQ (log.Take (), "FillChanged(Cut fill)");
}

TEST_F (PickerRowTest, TheRowThatPreviewsIsTheSelectedRow)
{
    auto* opener = AddFill ("Cut fill", "Brick");
    AddFill ("Cover fill", "Tiles");
    Click (2, Begin (Value ()) + 3);
    // The popup of row 1's item while row 2 is the selected row (as a host may open it).
    SnapshotRunner runner ([&] { return ValueText (1) + "|" + ValueText (2); });
    runner.Queue (Wg::ModalStep::MakeTrack (1));
    runner.Queue (Wg::ModalStep::MakeCancel ());
    opener->OpenPickerPopUp ();
    EXPECT_EQ (runner.Shots (), "Brick|Empty Fill / Brick|Brick");
}

TEST_F (PickerRowTest, ToolTipNamesTheTypeAndTheSelectedAttributeUnlessAnObserverOrDefaultAnswers)
{
    auto* item = AddFill ("Cut fill", "Brick");
    EXPECT_EQ (item->GetToolTip ().ToUtf8 (), "Fill: Brick");
    item->SetFill (ADB::AttributeIndex (999));
    EXPECT_EQ (item->GetToolTip ().ToUtf8 (), "Fill: Missing attribute");
    item->SetAttributeSetProvider (nullptr);
    item->SetFill (Fill ("Brick"));
    EXPECT_EQ (item->GetToolTip ().ToUtf8 (), "Fill: Missing attribute");
    item->SetDefaultToolTip ("Section fill of the wall");
    EXPECT_EQ (item->GetToolTip ().ToUtf8 (), "Section fill of the wall");

    auto* material = list->CreateMaterialItem ("Surface", {}, &provider, Index (TxAttr::idMaterial, "Grass"), true, false);
    auto* line = list->CreateLineTypeItem ("Line", {}, &provider, AttributeListLineTypeItem::AllLineTypes, Index (TxAttr::idLineType, "Dotted"),
                                           true, false);
    auto* building = list->CreateBuildingMaterialItem ("Core", {}, &provider, Index (TxAttr::idBuildingMaterial, "Steel"), true, false);
    auto* profile = list->CreateProfileItem ("Section", {}, &provider, AttributeListProfileItem::AllProfiles,
                                             Index (TxAttr::idProfile, "Angle 100x100x10"), nullptr, true, false);
    EXPECT_EQ (material->GetToolTip ().ToUtf8 () + "; " + line->GetToolTip ().ToUtf8 () + "; " + building->GetToolTip ().ToUtf8 () + "; " +
                   profile->GetToolTip ().ToUtf8 (),
               "Surface: Grass; Line Type: Dotted; Building Material: Steel; Profile: Angle 100x100x10");
}

TEST_F (PickerRowTest, NoMaterialAndMissingAttributeTextsAndAMissingSetupDataLeavesTheText)
{
    auto* material = list->CreateMaterialItem ("Surface", {}, &provider, ADB::InvalidAttributeIndex, true, false);
    auto* fill = AddFill ("Cut fill", "Brick");
    fill->SetFill (ADB::InvalidAttributeIndex);
    auto* building = list->CreateBuildingMaterialItem ("Core", {}, &noSet, Index (TxAttr::idBuildingMaterial, "Steel"), true, false);
    EXPECT_EQ (ValueText (1) + "|" + ValueText (2) + "|" + ValueText (3), "No Material|Missing Attribute|Missing Attribute");
    EXPECT_EQ (PreviewOf (1), "");

    TxAC::SetSetupData (nullptr);
    material->SetMaterial (ADB::AttributeIndex (999));
    EXPECT_EQ (ValueText (1), "No Material");
    building->SetAttributeSetProvider (&provider);
    building->SetBuildingMaterial (Index (TxAttr::idBuildingMaterial, "Glass"));
    EXPECT_EQ (ValueText (3), "Glass");
}

TEST_F (PickerRowTest, AnUnknownAttributeTypeAssertsWithItsPlaceAndNamesNoType)
{
    class OddPicker : public AttributePickerListItem {
    public:
        explicit OddPicker (const ADB::IAttributeSetProvider* provider)
            : AttributePickerListItem ("Odd", {}, provider, ADB::AttributeIndex (1), true, false, TxAttr::idPenTable) {}
        Kor::Owner<TxAC::AttributePickerPopUp> CreatePickerPopUp () override { return {}; }
    };
    OddPicker odd (&provider);
    Kor::ScopedAssertCapture capture;
    // String 0 of the type names does not exist: only the separator and the attribute remain.
    EXPECT_EQ (odd.GetToolTip ().ToUtf8 (), ": Standard Pens");
    ASSERT_EQ (capture.GetCount (), 1u);
    EXPECT_EQ (capture.GetReports ()[0].file + ":" + std::to_string (capture.GetReports ()[0].line) + " " + capture.GetReports ()[0].function,
               "AttributeListItems:2338 TxAL::AttributePickerListItem::GetAttributeTypeNameResId");
}

TEST_F (PickerRowTest, AnObserverThatDeletesTheRowOnTheChoiceEndsThePopupSafely)
{
    auto* item = AddFill ("Cut fill", "Brick");
    log.Watch (*item);
    log.onCall = [&] { list->DeleteListItem (item, true); };
    Click (1, Begin (Value ()) + 3);
    Runner ().QueueTrack (2);
    Runner ().QueueChoose (2);
    Click (1, End (Check ()));
    EXPECT_EQ (log.Take (), "FillChanged(Cut fill)");
    EXPECT_EQ (harness->Rows (), "");
}

}   // namespace
}   // namespace PickerItemsTest
