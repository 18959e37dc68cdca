// Line type, profile, material and building material rows.

#include "PickerItemsFixture.hpp"

#include "Kor/Assert.hpp"
#include "TxAC/PenControl.hpp"
#include "Wg/ListBox.hpp"

namespace PickerItemsTest {
namespace {

class LineTypeRowTest : public PickerTest {
protected:
    AttributeListLineTypeItem* AddLine (const char* name, AttributeListLineTypeItem::SubType subType)
    {
        return list->CreateLineTypeItem ("Line", {}, &provider, subType, Index (TxAttr::idLineType, name), true, false);
    }
};

TEST_F (LineTypeRowTest, PreviewSpansTheWholeCellInsetByOneWithTheDashesInBlackOnWhite)
{
    AddLine ("Dashed", AttributeListLineTypeItem::AllLineTypes);
    const Gfx::Rect cell = Box ().GetCellRect (1, Preview ()).Inset (1, 1);
    const Gfx::DrawingContext paint = Box ().PaintCell (1, Preview ());
    EXPECT_EQ (paint.Get<Gfx::FillRectOp> ().at (0).rect, cell);
    const auto lines = paint.Get<Gfx::LineOp> ();
    ASSERT_EQ (lines.size (), 1u);
    EXPECT_EQ (lines[0].color, Gfx::Color::Black);
    // 3 mm dash and 1.5 mm gap at 96 dots per inch.
    ASSERT_EQ (lines[0].dashes.size (), 2u);
    EXPECT_NEAR (lines[0].dashes[0], 11.34, 0.01);
    EXPECT_NEAR (lines[0].dashes[1], 5.67, 0.01);
}

TEST_F (LineTypeRowTest, SubTypesChooseTheFilterAndAnUnknownOneAssertsAndOpensNothing)
{
    auto* item = AddLine ("Hidden", AttributeListLineTypeItem::DashedLineTypes);
    EXPECT_EQ (item->CreatePickerPopUp ()->GetEntries ().size (), 7u);
    item->SetSubType (AttributeListLineTypeItem::AllLineTypes);
    EXPECT_EQ (item->CreatePickerPopUp ()->GetEntries ().size (), 8u);

    item->SetSubType (static_cast<AttributeListLineTypeItem::SubType> (0));
    Kor::ScopedAssertCapture capture;
    Click (1, Begin (Value ()) + 3);
    const int before = Popups ();
    Click (1, End (Check ()));
    EXPECT_EQ (Popups (), before);
    ASSERT_EQ (capture.GetCount (), 1u);
    EXPECT_EQ (std::to_string (capture.GetReports ()[0].line) + " " + capture.GetReports ()[0].function,
               "2964 TxAL::AttributeListLineTypeItem::CreatePickerPopUp");
}

TEST_F (LineTypeRowTest, ACustomFilterSetsSubTypeThreeWithoutARefresh)
{
    auto* item = AddLine ("Hidden", AttributeListLineTypeItem::AllLineTypes);
    Box ().SetTabItemText (1, Value (), "stale");
    item->SetCustomFilter (Kor::NewOwner<TxAC::AttributeListAndFolderFilter> (std::vector<ADB::AttributeIndex> {Index (TxAttr::idLineType, "Dotted")}));
    EXPECT_EQ (item->GetSubType (), AttributeListLineTypeItem::CustomLineTypes);
    EXPECT_EQ (ValueText (1), "stale");
    EXPECT_EQ (item->CreatePickerPopUp ()->GetEntries (), std::vector<ADB::AttributeIndex> {Index (TxAttr::idLineType, "Dotted")});

    item->SetCustomFilter ({});
    Kor::ScopedAssertCapture capture;
    EXPECT_TRUE (item->CreatePickerPopUp ().IsValid ());
    ASSERT_EQ (capture.GetCount (), 1u);
    EXPECT_EQ (capture.GetReports ()[0].line, 2955);
}

// --- Profile ---

class ProfileRowTest : public PickerTest {
protected:
    std::string Setup (const AttributeListProfileItem& item) const
    {
        const TxAC::ProfileControlData& data = item.GetProfileControlData ();
        return "mask=" + std::to_string (data.GetProfileTypeMask ()) + " custom=" + std::to_string (data.GetCustomProfile ().GetValue ()) +
               " mode=" + std::to_string (item.GetShowCustomMode ()) + (data.GetAttributeSetProvider () == &provider ? " sample" : " other");
    }
};

TEST_F (ProfileRowTest, WithoutControlDataModeTwoAndMaskZeroHoldUntilTheSubTypeIsSet)
{
    auto* item = list->CreateProfileItem ("Section", {}, &provider, AttributeListProfileItem::BeamProfiles,
                                          Index (TxAttr::idProfile, "Channel UPN 160"), nullptr, true, false);
    EXPECT_EQ (Setup (*item), "mask=0 custom=0 mode=2 sample");
    std::string masks;
    for (auto subType : {AttributeListProfileItem::ColumnProfiles, AttributeListProfileItem::BeamProfiles, AttributeListProfileItem::WallProfiles,
                         AttributeListProfileItem::HandrailProfiles, AttributeListProfileItem::OtherProfiles, AttributeListProfileItem::AllProfiles}) {
        item->SetSubType (subType);
        masks += std::to_string (item->GetProfileControlData ().GetProfileTypeMask ()) + " ";
    }
    EXPECT_EQ (masks, "4 2 1 8 16 0 ");
}

TEST_F (ProfileRowTest, ControlDataIsCopiedAndAProviderChangeKeepsItsSettings)
{
    TxAC::ProfileControlData data (&noSet, 2, Index (TxAttr::idProfile, "Wall with Plinth"), 1);
    auto* item = list->CreateProfileItem ("Section", {}, &provider, AttributeListProfileItem::AllProfiles, Index (TxAttr::idProfile, "Angle 100x100x10"),
                                          &data, true, false);
    data.SetProfileTypeMask (16);
    EXPECT_EQ (Setup (*item), "mask=2 custom=5 mode=1 sample");

    ADB::AttributeSetProvider other {ODB::ConstRef<ADB::AttributeSet> (sample)};
    item->SetAttributeSetProvider (&other);
    EXPECT_EQ (Setup (*item), "mask=2 custom=5 mode=1 other");

    item->SetProfileControlData (nullptr);
    EXPECT_EQ (Setup (*item), "mask=2 custom=5 mode=1 other");
    const TxAC::ProfileControlData replacement (&provider, 4, ADB::InvalidAttributeIndex, 0);
    item->SetProfileControlData (&replacement);
    EXPECT_EQ (Setup (*item), "mask=4 custom=0 mode=0 sample");
    EXPECT_EQ (item->GetAttributeSetProvider (), &provider);
}

TEST_F (ProfileRowTest, ThePickerPlacesTheCustomProfileAsTheModeSays)
{
    const ADB::AttributeIndex custom = Index (TxAttr::idProfile, "Wall with Plinth");
    TxAC::ProfileControlData data (&provider, 2, custom, 2);
    auto* item = list->CreateProfileItem ("Section", {}, &provider, AttributeListProfileItem::AllProfiles, Index (TxAttr::idProfile, "Angle 100x100x10"),
                                          &data, true, false);
    const auto names = [&] {
        std::string out;
        for (ADB::AttributeIndex index : item->CreatePickerPopUp ()->GetEntries ()) out += std::to_string (index.GetValue ());
        return out;
    };
    // Beams: I-beam 1, hollow 2, angle 3, channel 4; the wall profile 5 is the custom one.
    EXPECT_EQ (names (), "51234");
    data.SetShowCustomMode (0);
    item->SetProfileControlData (&data);
    EXPECT_EQ (names (), "1234");
    data.SetShowCustomMode (1);
    item->SetProfileControlData (&data);
    EXPECT_EQ (names (), "5");

    data.SetShowCustomMode (7);
    item->SetProfileControlData (&data);
    Kor::ScopedAssertCapture capture;
    EXPECT_TRUE (item->CreatePickerPopUp ().IsNull ());
    ASSERT_EQ (capture.GetCount (), 1u);
    EXPECT_EQ (capture.GetReports ()[0].line, 3080);
}

TEST_F (ProfileRowTest, HasNoPreviewAndNotifiesItsChoice)
{
    auto* item = list->CreateProfileItem ("Section", {}, &provider, AttributeListProfileItem::AllProfiles, Index (TxAttr::idProfile, "Angle 100x100x10"),
                                          nullptr, true, false);
    log.Watch (*item);
    EXPECT_EQ (PreviewOf (1), "");
    Click (1, Begin (Value ()) + 3);
    Runner ().QueueChoose (1);
    Click (1, End (Check ()));
    EXPECT_EQ (log.Take (), "ProfileChanged(Section)");
    EXPECT_EQ (ValueText (1), "I-Beam IPE 200");
}

// --- Material and building material ---

TEST_F (PickerTest, MaterialPreviewNestsFramesAroundTheSurfaceAndItsTexture)
{
    list->CreateMaterialItem ("Surface", {}, &provider, Index (TxAttr::idMaterial, "Brick - Red"), true, false);
    list->CreateMaterialItem ("Inside", {}, &provider, Index (TxAttr::idMaterial, "Paint - Yellow"), true, false);
    const Gfx::Rect rect = RightHalf (1);
    const auto frames = Box ().PaintCell (1, Preview ()).Get<Gfx::FrameRectOp> ();
    ASSERT_GE (frames.size (), 2u);
    EXPECT_EQ (frames[0].rect, rect);
    EXPECT_EQ (frames[0].color, Gfx::Color::Black);
    EXPECT_EQ (frames[1].rect, rect.Inset (1, 1));
    EXPECT_EQ (frames[1].color, Gfx::Color::White);
    const auto hatches = Box ().PaintCell (1, Preview ()).Get<Gfx::HatchOp> ();
    ASSERT_EQ (hatches.size (), 1u);
    EXPECT_EQ (hatches[0].rect, rect.Inset (2, 2));
    EXPECT_EQ (hatches[0].background.ToHex (), "#AA4632");
    // Without a texture the surface colour fills the inner rectangle.
    const auto fills = Box ().PaintCell (2, Preview ()).Get<Gfx::FillRectOp> ();
    ASSERT_EQ (fills.size (), 1u);
    EXPECT_EQ (fills[0].color.ToHex (), "#F0C83C");
}

TEST_F (PickerTest, BuildingMaterialPreviewNeedsTheControlCallbacksConsent)
{
    auto* item = list->CreateBuildingMaterialItem ("Core", {}, &provider, Index (TxAttr::idBuildingMaterial, "Concrete - Structural"), true, false);
    log.Watch (*item);
    const Gfx::DrawingContext valid = Box ().PaintCell (1, Preview ());
    EXPECT_EQ (valid.Get<Gfx::HatchOp> ().size (), 1u);
    EXPECT_EQ (valid.Get<Gfx::TextOp> ().size (), 0u);
    item->SetBuildingMaterial (ADB::AttributeIndex (77));
    EXPECT_EQ (PreviewOf (1), "frame " + RectText (RightHalf (1)) + " #808080\ntext \"?\" " + RectText (RightHalf (1)) + " #000000\n");
    EXPECT_EQ (log.Take (), "");

    Click (1, Begin (Value ()) + 3);
    Runner ().QueueChoose (2);
    Click (1, End (Check ()));
    EXPECT_EQ (log.Take (), "BuildingMaterialChanged(Core)");
    EXPECT_EQ (ValueText (1), "Brick - Masonry");
}

}   // namespace
}   // namespace PickerItemsTest
