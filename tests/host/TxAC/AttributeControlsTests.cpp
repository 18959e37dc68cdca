// The attribute database, the sample attributes and the attribute controls: references that
// must be loaded, class checks, picker filters, the popup's tracking protocol, the pen
// callbacks and the previews.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ADB/AttributeSet.hpp"
#include "Kor/Exceptions.hpp"
#include "PickerPopUpLog.hpp"
#include "TxAC/AttributePickerPopUp.hpp"
#include "TxAC/PenControl.hpp"
#include "TxAC/PreviewDrawUtility.hpp"
#include "TxAC/SetupData.hpp"
#include "TxAttr/Attributes.hpp"
#include "TxAttr/SampleAttributeSet.hpp"
#include "Wg/ModalRunner.hpp"

namespace {

class AttributeControlsTest : public ::testing::Test {
protected:
    ~AttributeControlsTest () override { Wg::GetHeadlessModalRunner ().ClearScript (); }

    ADB::AttributeIndex Find (ADB::AttributeTypeId type, const char* name) const { return sample->FindAttributeIndex (type, name); }
    std::string Names (ADB::AttributeTypeId type, const TxAC::AttributePickerFilter& filter) const
    {
        std::string out;
        for (ADB::AttributeIndex index : filter.Select (*sample, type))
            out += (out.empty () ? "" : ",") + sample->FindAttribute (type, index)->GetName ().ToUtf8 ();
        return out;
    }
    ODB::ConstRef<ADB::AttributeSet> Set () const { return ODB::ConstRef<ADB::AttributeSet> (sample); }

    std::shared_ptr<ADB::AttributeSet> sample = TxAttr::MakeSampleAttributeSet ();
};

TEST_F (AttributeControlsTest, AnEmptySetReferenceFailsToLoadAndAFullOneLoads)
{
    const ODB::ConstRef<ADB::AttributeSet> empty;
    EXPECT_FALSE (empty.Load ());
    EXPECT_EQ (empty.Get (), nullptr);
    EXPECT_THROW (empty->GetName (), Kor::NullReferenceException);
    const ODB::ConstRef<ADB::AttributeSet> set = Set ();
    EXPECT_FALSE (set.IsLoaded ());
    ASSERT_TRUE (set.Load ());
    EXPECT_EQ (set->GetName ().ToUtf8 (), "Residential Template");
}

TEST_F (AttributeControlsTest, IndicesAreNumberedPerTypeAndTheLegacyFormKeepsTheNumber)
{
    EXPECT_EQ (ADB::InvalidAttributeIndex.ToLegacyAttributeIndex_Deprecated (), 0);
    EXPECT_EQ (ADB::AttributeIndex (42).ToLegacyAttributeIndex_Deprecated (), 42);
    EXPECT_EQ (ADB::AttributeIndex (0x80000000u).ToLegacyAttributeIndex_Deprecated (), -1);
    EXPECT_EQ (ADB::AttributeIndex::FromLegacyAttributeIndex (-5), ADB::InvalidAttributeIndex);
    EXPECT_EQ (Find (TxAttr::idFill, "Empty Fill"), ADB::AttributeIndex (1));
    EXPECT_EQ (Find (TxAttr::idLineType, "Solid Line"), ADB::AttributeIndex (1));
    EXPECT_TRUE (sample->GetConstAttribute (TxAttr::idFill, ADB::InvalidAttributeIndex).IsNull ());
    EXPECT_FALSE (sample->SetActiveAttribute (TxAttr::idPenTable, ADB::AttributeIndex (2)));
    EXPECT_EQ (sample->AddAttribute (nullptr), ADB::InvalidAttributeIndex);
}

TEST_F (AttributeControlsTest, TheSampleSetIsComplete)
{
    std::string counts;
    for (ADB::AttributeTypeId type : {TxAttr::idFill, TxAttr::idCompWall, TxAttr::idLineType, TxAttr::idProfile, TxAttr::idMaterial,
                                      TxAttr::idBuildingMaterial, TxAttr::idPenTable})
        counts += std::to_string (sample->GetAttributeCount (type)) + " ";
    EXPECT_EQ (counts, "21 6 8 6 10 10 1 ");
    const auto* table = TxAttr::FindAttribute<TxAttr::PenTable> (*sample, TxAttr::idPenTable, ADB::AttributeIndex (1));
    ASSERT_NE (table, nullptr);
    double lightest = 10, heaviest = 0;
    for (short pen = 1; pen <= 255; ++pen) {
        lightest = std::min (lightest, table->GetPenPtr (pen)->weight);
        heaviest = std::max (heaviest, table->GetPenPtr (pen)->weight);
    }
    EXPECT_EQ (lightest, 0.10);
    EXPECT_EQ (heaviest, 2.00);
    EXPECT_EQ (table->GetPenPtr (0), nullptr);
    EXPECT_EQ (table->GetPenPtr (256), nullptr);
    // Every skin of every composite names a fill of the set.
    for (ADB::AttributeIndex index : sample->GetAttributeIndices (TxAttr::idCompWall))
        for (const TxAttr::Skin& skin : TxAttr::FindAttribute<TxAttr::Composite> (*sample, TxAttr::idCompWall, index)->GetSkins ())
            EXPECT_NE (sample->FindAttribute (TxAttr::idFill, skin.fill), nullptr);
}

TEST_F (AttributeControlsTest, ClassChecksUseClassInfoBeforeTheRunTimeType)
{
    const ADB::Attribute* fill = sample->FindAttribute (TxAttr::idFill, ADB::AttributeIndex (3));
    EXPECT_NE (ADB::AttributeCast<TxAttr::Fill> (fill), nullptr);
    EXPECT_EQ (ADB::AttributeCast<TxAttr::PenTable> (fill), nullptr);
    // Class info that names another class wins over the C++ type.
    class Disguised : public TxAttr::PenTable {
    public:
        Disguised () : TxAttr::PenTable ("Disguised") {}
        const ADB::ClassInfo* GetClassInfo () const override { return &TxAttr::Fill::classInfo; }
    };
    const Disguised disguised;
    EXPECT_EQ (ADB::AttributeCast<TxAttr::PenTable> (&disguised), nullptr);
}

TEST_F (AttributeControlsTest, FilterModesOfferTheirAttributesAndAlwaysThePreselectedOne)
{
    const ADB::AttributeIndex tiles = Find (TxAttr::idFill, "Tiles");
    EXPECT_EQ (Names (TxAttr::idFill, TxAC::FillPickerFilter (5, ADB::InvalidAttributeIndex)), "Solid Fill");
    EXPECT_EQ (Names (TxAttr::idFill, TxAC::FillPickerFilter (5, tiles)), "Solid Fill,Tiles");
    EXPECT_EQ (Names (TxAttr::idFill, TxAC::FillPickerFilter (7, ADB::InvalidAttributeIndex)).find ("Empty Fill"), std::string::npos);
    EXPECT_EQ (Names (TxAttr::idCompWall, TxAC::CompositePickerFilter (16 | 32, ADB::InvalidAttributeIndex)),
               "Roof - Flat Warm,Shell - Timber Frame");
    EXPECT_EQ (Names (TxAttr::idLineType, TxAC::LineTypePickerFilter (1, ADB::InvalidAttributeIndex)).find ("Solid Line"), std::string::npos);
    EXPECT_EQ (Names (TxAttr::idProfile, TxAC::ProfilePickerFilter (4, 2, ADB::InvalidAttributeIndex, false, {ADB::AttributeIndex (2)})),
               "I-Beam IPE 200");
    EXPECT_EQ (Names (TxAttr::idProfile, TxAC::ProfilePickerFilter (0, 0, ADB::InvalidAttributeIndex, true, {})), "Wall with Plinth");
    TxAC::AttributeListAndFolderFilter custom;
    EXPECT_EQ (Names (TxAttr::idMaterial, custom), "");
    custom.AddFolder ({"Outside", {Find (TxAttr::idMaterial, "Grass"), Find (TxAttr::idMaterial, "Water")}});
    EXPECT_EQ (Names (TxAttr::idMaterial, custom), "Grass,Water");
}

using PopUpLog = TestSupport::PickerPopUpLog;

TEST_F (AttributeControlsTest, ThePopupTracksChoosesAndEndsWithTrackingOverNothing)
{
    TxAC::LineTypePickerPopUp popUp ({}, Kor::NewOwner<TxAC::LineTypePickerData> (Set ()),
                                     Kor::NewOwner<TxAC::LineTypePickerFilter> (1, ADB::InvalidAttributeIndex), ADB::AttributeIndex (3),
                                     TxAC::AttributePickerPopUp::DropBelowAnchor);
    PopUpLog log;
    popUp.Attach (log);
    Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
    // Dashed line types only: entry 1 is "Dashed" (2), entry 3 "Dash-Dot" (4).
    runner.QueueTrack (3);
    runner.QueueTrack (0);
    runner.QueueChoose (99);
    runner.QueueChoose (1);
    popUp.InvokePopUp ();
    EXPECT_EQ (log.log, "track(4) track(-) chose(2) track(-)");
    EXPECT_FALSE (popUp.IsOpen ());

    log.log.clear ();
    runner.QueueTrack (2);
    popUp.InvokePopUp ();   // the script runs dry: the popup cancels
    EXPECT_EQ (log.log, "track(3) track(-)");
}

TEST_F (AttributeControlsTest, ThePopupOnAnEmptySetOffersNothing)
{
    TxAC::MaterialPickerPopUp popUp ({}, Kor::NewOwner<TxAC::MaterialPickerData> (ODB::ConstRef<ADB::AttributeSet> ()), ADB::AttributeIndex (1), 1);
    EXPECT_TRUE (popUp.GetEntries ().empty ());
    Gfx::DrawingContext context;
    popUp.DrawEntryPreview (ADB::AttributeIndex (1), context, Gfx::Rect (0, 0, 40, 16));
    EXPECT_TRUE (context.IsEmpty ());
}

TEST_F (AttributeControlsTest, PenCallbacksListThePensAsNumberedSwatchesAndTheNullPenFirst)
{
    ADB::AttributeSetProvider provider (Set ());
    const TxAC::PenControlData data (&provider);
    Pk257CallBackRec record;
    record.userData = &data;
    record.message = Pk257CallBackRec::CountMessage;
    TxAC::PenControlCallBack (&record);
    EXPECT_EQ (record.entryCount, 255);
    TxAC::PenWithNullControlCallBack (&record);
    EXPECT_EQ (record.entryCount, 256);

    record.message = Pk257CallBackRec::EntryMessage;
    record.entry = 1;
    TxAC::PenWithNullControlCallBack (&record);
    EXPECT_EQ (std::to_string (record.value) + " " + record.text.ToUtf8 (), "-1 No Pen");
    record.entry = 3;
    TxAC::PenWithNullControlCallBack (&record);
    EXPECT_EQ (std::to_string (record.value) + " " + record.text.ToUtf8 () + " " + record.color.ToHex (), "2 2 #DC1E1E");

    const TxAC::PenControlData nothing (nullptr);
    record.userData = &nothing;
    record.message = Pk257CallBackRec::CountMessage;
    TxAC::PenControlCallBack (&record);
    EXPECT_EQ (record.entryCount, 0);
    TxAC::PenControlCallBack (nullptr);
}

TEST_F (AttributeControlsTest, PreviewsDrawIntoTheirRectangle)
{
    const Gfx::Rect rect (10, 2, 60, 18);
    Gfx::DrawingContext context;
    TxAC::PreviewDrawUtility::DrawCompWall (context, rect, *sample, Find (TxAttr::idCompWall, "Exterior Wall - Brick Facing"), {}, {}, {}, {},
                                            true, true, true, true, false);
    // Five skins: brick, air (empty), insulation, concrete, plaster; the thin plaster keeps a pixel.
    const auto fills = context.Get<Gfx::FillRectOp> ();
    const auto hatches = context.Get<Gfx::HatchOp> ();
    ASSERT_EQ (fills.size () + hatches.size (), 5u);
    EXPECT_EQ (context.Get<Gfx::LineOp> ().size (), 4u);
    EXPECT_EQ (hatches.back ().rect.bottom, rect.bottom);
    EXPECT_GE (hatches.back ().rect.GetHeight (), 1);

    context.Clear ();
    TxAC::PreviewDrawUtility::DrawProfile (context, rect, *sample, Find (TxAttr::idProfile, "Hollow Section 120x80"), Gfx::Color::Black, false);
    const auto polygons = context.Get<Gfx::PolygonOp> ();
    ASSERT_EQ (polygons.size (), 2u);
    for (const Gfx::Point& p : polygons[0].points) EXPECT_TRUE (p.x >= rect.left && p.x <= rect.right && p.y >= rect.top && p.y <= rect.bottom);

    context.Clear ();
    TxAC::PreviewDrawUtility::DrawColorIntoRect (context, rect, Gfx::Color (200, 0, 0), true);
    EXPECT_NE (context.Get<Gfx::FillRectOp> ().at (0).color, Gfx::Color (200, 0, 0));
}

}   // namespace
