// The pen row: weight text, swatch and index, the pen picker and the number edit.

#include "PickerItemsFixture.hpp"

#include "Wg/ListBox.hpp"

namespace PickerItemsTest {
namespace {

class PenRowTest : public PickerTest {
protected:
    AttributeListPenItem* AddPen (AttributeListPenItem::SubType subType, short pen)
    {
        return list->CreatePenItem ("Contour pen", {}, &provider, subType, pen, true, false);
    }
    // Weight text | index text as automated testing reads the preview.
    std::string Shown (short row = 1) const { return ValueText (row) + "|" + AT (row, Preview ()); }
    void        Select (short row) { Click (row, Begin (Value ()) + 3); }
};

TEST_F (PenRowTest, WeightTextHasNoLeadingBlankAndFollowsTheWeightUnit)
{
    AddPen (AttributeListPenItem::Pen, 3);
    EXPECT_EQ (Shown (), "0.18 mm|3");

    TxAC::SetupData points = TxAC::GetDefaultSetupData ();
    points.penWeightUnit = TxAC::SetupData::Points;
    TxAC::SetSetupData (&points);
    list->FullRefreshList (true);
    EXPECT_EQ (Shown (), "0.51 pt|3");
}

TEST_F (PenRowTest, AWeightBelowTheThresholdShowsZero)
{
    auto set = std::make_shared<ADB::AttributeSet> ();
    auto table = std::make_shared<TxAttr::PenTable> ("Pens");
    table->SetPen (5, TxAttr::Pen {TxAttr::RGBColor::FromBytes (1, 2, 3), 0.000001});
    table->SetPen (6, TxAttr::Pen {TxAttr::RGBColor::FromBytes (1, 2, 3), 12.5});
    set->AddAttribute (table);
    ADB::AttributeSetProvider own {ODB::ConstRef<ADB::AttributeSet> (set)};
    list->CreatePenItem ("Zero", {}, &own, AttributeListPenItem::Pen, 5, true, false);
    list->CreatePenItem ("Wide", {}, &own, AttributeListPenItem::Pen, 6, true, false);
    list->CreatePenItem ("Beyond", {}, &own, AttributeListPenItem::Pen, 256, true, false);
    EXPECT_EQ (Shown (1) + " " + Shown (2) + " " + Shown (3), "0 mm|5 12.50 mm|6 |256");
}

TEST_F (PenRowTest, NullPenAndPenZeroLabelsOnlyForSubTypesThatOfferThem)
{
    AddPen (AttributeListPenItem::Pen, -1);
    AddPen (AttributeListPenItem::PenWithNull, -1);
    AddPen (AttributeListPenItem::PenWithNull, 0);
    auto* custom = AddPen (AttributeListPenItem::Pen, 0);
    custom->SetCustomCallBackAndUserData (&TxAC::PenWithNullControlCallBack, nullptr);
    EXPECT_EQ (custom->GetSubType (), AttributeListPenItem::Custom);
    list->FullRefreshList (true);
    EXPECT_EQ (Shown (1) + " " + Shown (2) + " " + Shown (3) + " " + Shown (4), "|-1 No Pen|-1 Background|0 Background|0");
    custom->SetCustomCallBackAndUserData (nullptr, nullptr);
    EXPECT_EQ (custom->GetSubType (), AttributeListPenItem::Custom);
}

TEST_F (PenRowTest, TheNoPenIndexShowsNoNumber)
{
    EXPECT_EQ (AttributeListPenItem::GetPenIndexAsString (AttributeListPenItem::NoPenIndex).ToUtf8 (), "");
    EXPECT_EQ (AttributeListPenItem::GetPenIndexAsString (-1).ToUtf8 (), "-1");
}

TEST_F (PenRowTest, NumberEditRangesFollowTheSubType)
{
    AddPen (AttributeListPenItem::Pen, 3);
    AddPen (AttributeListPenItem::PenWithNull, 3);
    Select (1);
    EXPECT_EQ (Placed (), "sel=1 " + std::to_string (Preview ()) + ":PosIntEdit " + std::to_string (Check ()) + ":Pk257");
    EXPECT_EQ (Controls ().GetPosIntEdit ().GetMin (), 1);
    EXPECT_EQ (Controls ().GetPosIntEdit ().GetMax (), 255);
    EXPECT_EQ (Controls ().GetPosIntEdit ().GetWidth (), (End (Preview ()) - Begin (Preview ())) / 2);
    Select (2);
    EXPECT_EQ (Placed (), "sel=2 " + std::to_string (Preview ()) + ":IntEdit " + std::to_string (Check ()) + ":Pk257");
    EXPECT_EQ (Controls ().GetIntEdit ().GetMin (), -1);
    EXPECT_EQ (Controls ().GetIntEdit ().GetMax (), 255);
    EXPECT_EQ (Controls ().GetPk257 ().GetCallBack (), &TxAC::PenWithNullControlCallBack);
    EXPECT_EQ (Controls ().GetPk257 ().GetWidth (), RowHeight () - (Box ().HasSeparatorLines () ? 3 : 2));
}

TEST_F (PenRowTest, TypingAPenStoresAndNotifiesOnce)
{
    auto* item = AddPen (AttributeListPenItem::PenWithNull, 3);
    log.Watch (*item);
    Select (1);
    Controls ().GetIntEdit ().SetFocus ();
    Controls ().GetIntEdit ().UserSetText ("-1");
    Controls ().GetIntEdit ().Commit ();
    EXPECT_EQ (item->GetPen (), -1);
    EXPECT_EQ (log.Take (), "PenChanged(Contour pen)");
    EXPECT_EQ (Shown (), "No Pen|-1");
}

TEST_F (PenRowTest, SetPenFromCodeRefreshesOnlyOnAChangeAndNotifiesNobody)
{
    auto* item = AddPen (AttributeListPenItem::Pen, 3);
    log.Watch (*item);
    auto before = Redraws ();
    item->SetPen (3);
    EXPECT_EQ (Redraws (), before);
    item->SetPen (7);
    EXPECT_GT (Redraws (), before);
    EXPECT_EQ (Shown (), "0.70 mm|7");
    EXPECT_EQ (log.Take (), "");
}

TEST_F (PenRowTest, ThePickerPreviewsThePenUnderThePointerAndAChoiceOfTheSamePenStillNotifies)
{
    auto* item = AddPen (AttributeListPenItem::Pen, 3);
    log.Watch (*item);
    Select (1);
    {
        SnapshotRunner runner ([&] { return Shown () + "/" + std::to_string (Controls ().GetPosIntEdit ().GetValue ()); });
        runner.Queue (Wg::ModalStep::MakeTrack (10));
        runner.Queue (Wg::ModalStep::MakeCancel ());
        Click (1, End (Check ()));
        EXPECT_EQ (runner.Shots (), "2.00 mm|10/10 / 0.18 mm|3/3");
        EXPECT_EQ (log.Take (), "");
    }

    const int before = Popups ();
    Runner ().QueueChoose (3);
    Click (1, (Begin (Preview ()) + End (Preview ())) / 2);
    EXPECT_EQ (Popups (), before + 1);
    EXPECT_EQ (log.Take (), "PenChanged(Contour pen)");
}

TEST_F (PenRowTest, TheLeftHalfOfThePreviewDoesNotOpenThePicker)
{
    AddPen (AttributeListPenItem::Pen, 3);
    Select (1);
    const int middle = (Begin (Preview ()) + End (Preview ())) / 2;
    std::string opened;
    for (int x : {middle - 1, middle, End (Preview ()), Begin (Check ()), End (Check ())}) {
        const int before = Popups ();
        Click (1, x);
        opened += std::to_string (Popups () - before);
    }
    EXPECT_EQ (opened, "01111");
}

TEST_F (PenRowTest, PreviewDrawsTheSwatchLeftOfTheIndex)
{
    AddPen (AttributeListPenItem::Pen, 2);
    const Gfx::DrawingContext paint = Box ().PaintCell (1, Preview ());
    const auto fills = paint.Get<Gfx::FillRectOp> ();
    const auto texts = paint.Get<Gfx::TextOp> ();
    ASSERT_EQ (fills.size (), 1u);
    ASSERT_EQ (texts.size (), 1u);
    EXPECT_EQ (fills[0].color.ToHex (), "#DC1E1E");
    EXPECT_EQ (texts[0].text.ToUtf8 (), "2");
    EXPECT_LE (fills[0].rect.right, texts[0].rect.left);
}

TEST_F (PenRowTest, ANewProviderReachesThePickerThatHoldsTheOldUserData)
{
    auto* item = AddPen (AttributeListPenItem::Pen, 3);
    Select (1);
    const void* before = Controls ().GetPk257 ().GetUserData ();
    EXPECT_EQ (before, &item->GetPenControlData ());
    item->SetAttributeSetProvider (&noSet);
    EXPECT_EQ (Controls ().GetPk257 ().GetUserData (), &item->GetPenControlData ());
    EXPECT_EQ (Controls ().GetPk257 ().GetEntryCount (), 0);
}

}   // namespace
}   // namespace PickerItemsTest

namespace PickerItemsTest {
namespace {

TEST_F (PenRowTest, TypingThatAnObserverRejectsWhileTheListIsDestroyedDoesNotEscapeTheDestructor)
{
    MakeList (ValueItemsTest::Params ().SetEditControlAutoUpdate (false));
    auto* item = AddPen (AttributeListPenItem::PenWithNull, 3);
    log.Watch (*item);
    bool armed = false;
    log.onCall = [&armed] {
        if (armed) throw std::runtime_error ("rejected");
    };
    Select (1);
    Controls ().GetIntEdit ().SetFocus ();
    Controls ().GetIntEdit ().UserSetText ("12");
    EXPECT_EQ (log.Take (), "");
    armed = true;
    EXPECT_NO_THROW (harness.reset ());
    EXPECT_EQ (log.Take (), "PenChanged(Contour pen)");
}

}   // namespace
}   // namespace PickerItemsTest

namespace PickerItemsTest {
namespace {

TEST_F (PenRowTest, ACustomRowWithoutACallbackLeavesNoOtherRowsCallbackOnItsUserData)
{
    AddPen (AttributeListPenItem::Pen, 3);
    auto* custom = AddPen (AttributeListPenItem::Pen, 4);
    static int clientData = 0;
    custom->SetCustomCallBackAndUserData (&TxAC::PenWithNullControlCallBack, &clientData);
    custom->SetCustomCallBackAndUserData (nullptr, &clientData);
    Select (1);
    EXPECT_EQ (Controls ().GetPk257 ().GetCallBack (), &TxAC::PenControlCallBack);
    Select (2);
    EXPECT_EQ (Controls ().GetPk257 ().GetUserData (), &clientData);
    EXPECT_EQ (Controls ().GetPk257 ().GetCallBack (), nullptr);
}

}   // namespace
}   // namespace PickerItemsTest
