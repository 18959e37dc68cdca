// Fill and composite rows: imposed pens and their colours, sub types and filters of the
// picker, previews.

#include "PickerItemsFixture.hpp"

#include "Kor/Assert.hpp"
#include "Wg/ListBox.hpp"

namespace PickerItemsTest {
namespace {

constexpr short NoPen = AttributeListFillItem::NoPen;

class FillRowTest : public PickerTest {
protected:
    AttributeListFillItem* AddFill (const char* fill, AttributeListFillItem::SubType subType = AttributeListFillItem::EveryFill, short fore = NoPen,
                                    short back = NoPen, short contour = NoPen)
    {
        return list->CreateFillItem ("Cut fill", {}, {}, &provider, subType, fill != nullptr ? Fill (fill) : ADB::InvalidAttributeIndex, fore,
                                     back, contour, NoPen, true, false);
    }
    // The names the picker offers, as the popup lists them.
    std::string Offered (AttributePickerListItem& item)
    {
        Kor::Owner<TxAC::AttributePickerPopUp> popUp = item.CreatePickerPopUp ();
        if (popUp.IsNull ()) return "no popup";
        std::string out;
        for (ADB::AttributeIndex index : popUp->GetEntries ())
            out += (out.empty () ? "" : ",") + sample->FindAttribute (item.GetAttributeTypeId (), index)->GetName ().ToUtf8 ();
        return out;
    }
    std::string HatchColors (short row)
    {
        const auto hatches = Box ().PaintCell (row, Preview ()).Get<Gfx::HatchOp> ();
        if (hatches.size () != 1) return "hatches: " + std::to_string (hatches.size ());
        return hatches[0].foreground.ToHex () + " on " + hatches[0].background.ToHex ();
    }
};

TEST_F (FillRowTest, PreviewIsTheHatchInTheRightHalfImposingBlackOnWhiteWhereNoPenIsSet)
{
    AddFill ("Brick");
    const std::string rect = RectText (RightHalf (1));
    EXPECT_EQ (PreviewOf (1), "hatch " + rect + " #000000 on #FFFFFF\nframe " + rect + " #000000\n");
}

TEST_F (FillRowTest, PensResolveThroughThePenTableAndUnsettingOneBringsTheDefaultBack)
{
    // Pen 2 is red in the sample table; pen 0 is white as a background.
    auto* item = AddFill ("Brick", AttributeListFillItem::EveryFill, 2, 0);
    EXPECT_EQ (HatchColors (1), "#DC1E1E on #FFFFFF");
    item->SetForegroundPen (NoPen);
    EXPECT_EQ (HatchColors (1), "#000000 on #FFFFFF");
    // A pen that does not resolve counts as absent.
    item->SetForegroundPen (-1);
    item->SetBackgroundPen (300);
    EXPECT_EQ (HatchColors (1), "#000000 on #FFFFFF");
}

TEST_F (FillRowTest, PenZeroResolvesWithoutAPenTable)
{
    auto set = std::make_shared<ADB::AttributeSet> ();
    set->AddAttribute (std::make_shared<TxAttr::Fill> ("Hatch", TxAttr::FillKind::Hatch, TxAttr::FillUsage::Any,
                                                       std::vector<TxAttr::HatchLineFamily> {{45, 1, 0, {}}}));
    ADB::AttributeSetProvider bare {ODB::ConstRef<ADB::AttributeSet> (set)};
    list->CreateFillItem ("Bare", {}, {}, &bare, AttributeListFillItem::EveryFill, ADB::AttributeIndex (1), 0, 0, 2, NoPen, true, false);
    // Pen 0 is black in front and white behind; pen 2 needs the missing table and falls back.
    EXPECT_EQ (HatchColors (1), "#000000 on #FFFFFF");
}

TEST_F (FillRowTest, SettingAPenRefreshesEvenWhenUnchanged)
{
    auto* item = AddFill ("Brick", AttributeListFillItem::EveryFill, 2);
    const auto before = Redraws ();
    item->SetForegroundPen (2);
    EXPECT_GT (Redraws (), before);
}

TEST_F (FillRowTest, AnInvalidIndexDrawsNothingAndAMissingOneTheQuestionMark)
{
    auto* item = AddFill (nullptr);
    EXPECT_EQ (PreviewOf (1), "");
    item->SetFill (ADB::AttributeIndex (999));
    EXPECT_EQ (PreviewOf (1), "frame " + RectText (RightHalf (1)) + " #808080\ntext \"?\" " + RectText (RightHalf (1)) + " #000000\n");
    EXPECT_EQ (ValueText (1), "Missing Attribute");
}

TEST_F (FillRowTest, ADisabledRowDrawsItsPreviewGreyed)
{
    list->CreateFillItem ("Cut fill", {}, {}, &provider, AttributeListFillItem::EveryFill, Fill ("Solid Fill"), NoPen, NoPen, NoPen, NoPen,
                          false, false);
    const auto fills = Box ().PaintCell (1, Preview ()).Get<Gfx::FillRectOp> ();
    ASSERT_EQ (fills.size (), 1u);
    EXPECT_NE (fills[0].color, Gfx::Color::Black);
}

TEST_F (FillRowTest, EachSubTypeOffersItsFills)
{
    auto* item = AddFill ("Brick");
    std::string offered;
    for (auto subType : {AttributeListFillItem::SolidFills, AttributeListFillItem::CoverFillsWithoutEmpty, AttributeListFillItem::DraftingFills}) {
        item->SetSubType (subType);
        offered += "[" + Offered (*item) + "]";
    }
    // The held fill is always offered, wherever the mode would hide it.
    EXPECT_EQ (offered,
               "[Solid Fill,Brick][Solid Fill,Brick,Tiles,Parquet,Grass,Water]"
               "[Empty Fill,Solid Fill,Brick,Glass,Hatch 45°,Cross Hatch,Horizontal Lines]");
    std::string modes;
    for (int subType = 0; subType <= 8; ++subType)
        modes += std::to_string (AttributeListFillItem::GetFilterMode (static_cast<AttributeListFillItem::SubType> (subType)));
    EXPECT_EQ (modes, "185703911");
}

TEST_F (FillRowTest, ACustomFilterSwitchesToSubTypeSevenAndRefreshesAnEmptyOneKeepsTheSubType)
{
    auto* item = AddFill ("Brick", AttributeListFillItem::CutFills);
    Box ().SetTabItemText (1, Value (), "stale");
    item->SetCustomFilter (Kor::NewOwner<TxAC::AttributeListAndFolderFilter> (std::vector<ADB::AttributeIndex> {Fill ("Glass"), Fill ("Steel")}));
    EXPECT_EQ (item->GetSubType (), AttributeListFillItem::CustomFills);
    EXPECT_EQ (ValueText (1), "Brick");
    EXPECT_EQ (Offered (*item), "Glass,Steel");

    item->SetCustomFilter ({});
    EXPECT_EQ (item->GetSubType (), AttributeListFillItem::CustomFills);
    EXPECT_EQ (item->GetCustomFilter (), nullptr);
}

TEST_F (FillRowTest, CustomSubTypeWithoutAFilterAssertsButStillOpensAPicker)
{
    auto* item = AddFill ("Brick", AttributeListFillItem::CustomFills);
    Kor::ScopedAssertCapture capture;
    Click (1, Begin (Value ()) + 3);
    const int before = Popups ();
    Click (1, End (Check ()));
    EXPECT_EQ (Popups (), before + 1);
    ASSERT_EQ (capture.GetCount (), 1u);
    EXPECT_EQ (std::to_string (capture.GetReports ()[0].line) + " " + capture.GetReports ()[0].function,
               "2677 TxAL::AttributeListFillItem::CreatePickerPopUp");
    EXPECT_EQ (item->GetFill (), Fill ("Brick"));
}

TEST_F (FillRowTest, SubTypeRefreshesOnlyOnAChange)
{
    auto* item = AddFill ("Brick", AttributeListFillItem::CutFills);
    Box ().SetTabItemText (1, Value (), "stale");
    item->SetSubType (AttributeListFillItem::CutFills);
    EXPECT_EQ (ValueText (1), "stale");
    item->SetSubType (AttributeListFillItem::SolidFills);
    EXPECT_EQ (ValueText (1), "Brick");
}

// --- Composite ---

class CompositeRowTest : public FillRowTest {
protected:
    AttributeListCompositeItem* AddComposite (const char* name, AttributeListCompositeItem::SubType subType)
    {
        auto* item = new AttributeListCompositeItem ("Structure", {}, &provider, subType, Index (TxAttr::idCompWall, name), true, false);
        owned.emplace_back (item);
        list->AddListItem (item);
        list->FullRefreshList (true);
        return item;
    }
    std::vector<std::unique_ptr<AttributeListCompositeItem>> owned;
};

TEST_F (CompositeRowTest, SubTypesGiveKindMasksAndAnUnknownOneAssertsAndOffersAll)
{
    std::string masks;
    for (int subType = 1; subType <= 6; ++subType)
        masks += std::to_string (AttributeListCompositeItem::GetFilterOption (static_cast<AttributeListCompositeItem::SubType> (subType))) + " ";
    EXPECT_EQ (masks, "60 4 8 16 32 60 ");

    auto* item = AddComposite ("Slab - Concrete Floor", AttributeListCompositeItem::SlabComposites);
    EXPECT_EQ (Offered (*item), "Slab - Concrete Floor,Roof - Flat Warm");
    Kor::ScopedAssertCapture capture;
    item->SetSubType (static_cast<AttributeListCompositeItem::SubType> (0));
    EXPECT_EQ (Offered (*item),
               "Exterior Wall - Brick Facing,Partition - Gypsum Stud,Partition - Brick,Slab - Concrete Floor,Roof - Flat Warm,Shell - Timber Frame");
    ASSERT_EQ (capture.GetCount (), 1u);
    EXPECT_EQ (std::to_string (capture.GetReports ()[0].line) + " " + capture.GetReports ()[0].function, "2794 TxAL::GetFilterOption");
}

TEST_F (CompositeRowTest, PreviewDrawsOneBandPerSkinWithSeparatorsAndTheCompositesOwnPens)
{
    AddComposite ("Partition - Brick", AttributeListCompositeItem::WallComposites);
    const Gfx::DrawingContext paint = Box ().PaintCell (1, Preview ());
    const Gfx::Rect rect = RightHalf (1);
    // Plaster, brick, plaster: three bands that fill the preview, two separator lines.
    const auto hatches = paint.Get<Gfx::HatchOp> ();
    ASSERT_EQ (hatches.size (), 3u);
    EXPECT_EQ (hatches.front ().rect.top, rect.top);
    EXPECT_EQ (hatches.back ().rect.bottom, rect.bottom);
    EXPECT_GT (hatches[1].rect.GetHeight (), hatches[0].rect.GetHeight ());
    EXPECT_EQ (paint.Get<Gfx::LineOp> ().size (), 2u);
    // The brick skin's pen 2 (red), as the composite defines it.
    EXPECT_EQ (hatches[1].foreground.ToHex (), "#DC1E1E");
}

TEST_F (CompositeRowTest, AnImposedPenOverridesTheCompositesOwn)
{
    auto* item = AddComposite ("Partition - Brick", AttributeListCompositeItem::WallComposites);
    item->SetForegroundPen (4);
    for (const Gfx::HatchOp& hatch : Box ().PaintCell (1, Preview ()).Get<Gfx::HatchOp> ()) EXPECT_EQ (hatch.foreground.ToHex (), "#1E3CC8");
}

TEST_F (CompositeRowTest, AChoiceNotifiesTheCompositeObserversOnly)
{
    auto* item = AddComposite ("Partition - Brick", AttributeListCompositeItem::WallComposites);
    log.Watch (*item);
    calls.Watch (*item);
    Click (1, Begin (Value ()) + 3);
    Runner ().QueueChoose (1);
    Click (1, End (Check ()));
    EXPECT_EQ (log.Take (), "CompositeChanged(Structure)");
    EXPECT_EQ (calls.Take (), "");
    EXPECT_EQ (item->GetComposite (), Index (TxAttr::idCompWall, "Exterior Wall - Brick Facing"));
    EXPECT_EQ (ValueText (1), "Exterior Wall - Brick Facing");
}

}   // namespace
}   // namespace PickerItemsTest
