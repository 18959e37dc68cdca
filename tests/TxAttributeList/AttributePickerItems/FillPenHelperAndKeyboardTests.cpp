// The fill pen helpers, the validity check of stored attributes, and what the list's keyboard
// and row removal do with the picker rows.

#include <cstring>

#include "PickerItemsFixture.hpp"

#include "TxAC/PenControl.hpp"
#include "TxAttributeList/FillPenHelpers.hpp"
#include "Wg/Key.hpp"
#include "Wg/ListBox.hpp"

namespace PickerItemsTest {
namespace {

class FillPenHelperTest : public PickerTest {
protected:
    ODB::ConstRef<ADB::AttributeSet> Set () const { return ODB::ConstRef<ADB::AttributeSet> (sample); }
    std::string Resolve (short pen, bool background, ODB::ConstRef<ADB::AttributeSet> set) const
    {
        unsigned char r = 7, g = 7, b = 7;
        if (!SetDiFillColors (pen, background, &r, &g, &b, set)) return "fails(" + std::to_string (r) + ")";
        return Gfx::Color (r, g, b).ToHex ();
    }
    // The control's four colours; "cell" where it uses its cell's.
    static std::string Colors (const Pk::Pk257& control)
    {
        const auto text = [] (const std::optional<Gfx::Color>& c) { return c ? c->ToHex () : std::string ("cell"); };
        return text (control.GetForeColor ()) + " " + text (control.GetBackColor ()) + " " + text (control.GetFrameColor ()) + " " +
               text (control.GetSeparatorColor ());
    }

    Pk::Pk257 control {harness->panel, Wg::Rect (0, 0, 20, 20)};
};

TEST_F (FillPenHelperTest, PenZeroNeedsNoTablePensMinusOneAndTwoNeverResolve)
{
    EXPECT_EQ (Resolve (0, false, {}), "#000000");
    EXPECT_EQ (Resolve (0, true, {}), "#FFFFFF");
    EXPECT_EQ (Resolve (-1, false, Set ()), "fails(7)");
    EXPECT_EQ (Resolve (-2, true, Set ()), "fails(7)");
    EXPECT_EQ (Resolve (2, false, Set ()), "#DC1E1E");
    EXPECT_EQ (Resolve (256, false, Set ()), "fails(7)");
    EXPECT_EQ (Resolve (2, false, {}), "fails(7)");
    unsigned char r = 0, g = 0;
    EXPECT_FALSE (SetDiFillColors (0, false, &r, &g, nullptr, Set ()));
}

TEST_F (FillPenHelperTest, AWronglyTypedPenTableIsDetectedByClassInfoOrRunTimeType)
{
    // Claims the pen table's type id, but is a fill by its class info.
    auto impostor = std::make_shared<ADB::AttributeSet> ();
    class FakeTable : public TxAttr::Fill {
    public:
        FakeTable () : TxAttr::Fill ("Fake", TxAttr::FillKind::Solid, TxAttr::FillUsage::Any) {}
    };
    impostor->AddAttribute (std::make_shared<FakeTable> ());
    // A pen table subclass without class info of its own still counts by its run-time type.
    class PlainTable : public TxAttr::PenTable {
    public:
        PlainTable () : TxAttr::PenTable ("Plain") { SetPen (1, {TxAttr::RGBColor::FromBytes (1, 2, 3), 0.25}); }
    };
    auto plain = std::make_shared<ADB::AttributeSet> ();
    plain->AddAttribute (std::make_shared<PlainTable> ());
    EXPECT_EQ (Resolve (1, false, ODB::ConstRef<ADB::AttributeSet> (impostor)), "fails(7)");
    EXPECT_EQ (Resolve (1, false, ODB::ConstRef<ADB::AttributeSet> (plain)), "#010203");
}

TEST_F (FillPenHelperTest, HelpersSetTheirOwnColourSlotOrFallBack)
{
    DiSetFillForePen (&control, 2, Set ());
    DiSetFillBackPen (&control, 0, Set ());
    DiSetFillContourPen (&control, 4, Set ());
    DiSetFillInnerPen (&control, 3, Set ());
    EXPECT_EQ (Colors (control), "#DC1E1E #FFFFFF #1E3CC8 #1E9632");
    DiSetFillForePen (&control, 999, Set ());
    DiSetFillBackPen (&control, -1, Set ());
    DiSetFillContourPen (&control, -2, Set ());
    DiSetFillInnerPen (&control, 300, Set ());
    EXPECT_EQ (Colors (control), "cell cell cell cell");
    DiSetFillForePen (&control, 999, Gfx::Color (1, 1, 1), Set ());
    DiSetFillBackPen (&control, -1, Gfx::Color (2, 2, 2), Set ());
    EXPECT_EQ (Colors (control), "#010101 #020202 cell cell");
    DiSetFillForePen (nullptr, 2, Set ());
}

TEST_F (FillPenHelperTest, IsValidAttrAsksTheCallbackInTwoPhasesAndReadsItsThreePlaces)
{
    const ADB::AttributeIndex concrete = Index (TxAttr::idBuildingMaterial, "Concrete - Structural");
    EXPECT_TRUE (IsValidAttr (concrete, TxAC::BuildingMaterialTypeCode, Set (), &TxAC::BuildingMaterialControlCallBack, nullptr));
    EXPECT_FALSE (IsValidAttr (concrete, TxAC::BuildingMaterialTypeCode, Set (), nullptr, nullptr));
    EXPECT_FALSE (IsValidAttr (concrete, TxAC::BuildingMaterialTypeCode, {}, &TxAC::BuildingMaterialControlCallBack, nullptr));
    EXPECT_FALSE (IsValidAttr (ADB::AttributeIndex (99), TxAC::BuildingMaterialTypeCode, Set (), &TxAC::BuildingMaterialControlCallBack, nullptr));

    // A callback that writes the count at byte 8 and one word at 352 or 3748.
    static std::string phases;
    static std::int32_t count;
    static std::size_t wordAt;
    const auto callBack = [] (Pk257CallBackRec* record) {
        phases += std::to_string (record->phase);
        if (record->phase == Pk257CallBackRec::SizePhase) {
            record->resultSize = 3752;
            return;
        }
        auto* bytes = static_cast<unsigned char*> (record->result);
        std::memcpy (bytes + 8, &count, sizeof count);
        if (wordAt != 0) bytes[wordAt] = 1;
    };
    const auto valid = [&] (std::int32_t parts, std::size_t word) {
        count = parts;
        wordAt = word;
        return IsValidAttr (concrete, 11, Set (), callBack, nullptr) ? "y" : "n";
    };
    EXPECT_EQ (std::string (valid (1, 352)) + valid (1, 3748) + valid (1, 0) + valid (0, 352) + valid (2, 351), "yynnn");
    EXPECT_EQ (phases, "1212121212");
}

TEST_F (FillPenHelperTest, IsValidAttrHandsTheCallbackTheUserDataOrAProviderOfTheSet)
{
    static const void* seen;
    static ADB::AttributeSet* seenSet;
    const auto callBack = [] (Pk257CallBackRec* record) {
        seen = record->userData;
        const auto* provider = static_cast<const ADB::IAttributeSetProvider*> (record->userData);
        if (record->userData != &seen) {
            ODB::ConstRef<ADB::AttributeSet> set = provider->GetAttributeSet ();
            set.Load ();
            seenSet = const_cast<ADB::AttributeSet*> (set.Get ());
        }
    };
    IsValidAttr (ADB::AttributeIndex (1), 11, Set (), callBack, nullptr);
    EXPECT_EQ (seenSet, sample.get ());
    IsValidAttr (ADB::AttributeIndex (1), 11, Set (), callBack, &seen);
    EXPECT_EQ (seen, &seen);
}

// --- Keyboard and removal ---

class PickerKeyboardTest : public PickerTest {
protected:
    PickerKeyboardTest ()
    {
        pen = list->CreatePenItem ("Contour pen", {}, &provider, AttributeListPenItem::Pen, 3, true, false);
        fill = list->CreateFillItem ("Cut fill", {}, {}, &provider, AttributeListFillItem::EveryFill, Fill ("Brick"), -1223, -1223, -1223, -1223,
                                     true, false);
        line = list->CreateLineTypeItem ("Line", {}, &provider, AttributeListLineTypeItem::AllLineTypes, Index (TxAttr::idLineType, "Dotted"), true,
                                         false);
        material = list->CreateMaterialItem ("Surface", {}, &provider, Index (TxAttr::idMaterial, "Grass"), true, false);
        other = list->CreatePenItem ("Fill pen", {}, &provider, AttributeListPenItem::Pen, 5, true, false);
    }
    bool DownWithModifier () { return Press (Wg::Key::Down, Wg::Key::PopupFlag); }

    AttributeListPenItem*      pen;
    AttributeListFillItem*     fill;
    AttributeListLineTypeItem* line;
    AttributeListMaterialItem* material;
    AttributeListPenItem*      other;
};

TEST_F (PickerKeyboardTest, DownWithThePopupModifierOpensThePickerThatTheButtonOpens)
{
    log.Watch (*pen);
    log.Watch (*fill);
    log.Watch (*line);
    Click (1, Begin (Value ()) + 3);
    Runner ().QueueChoose (7);
    EXPECT_TRUE (DownWithModifier ());
    EXPECT_EQ (pen->GetPen (), 7);

    Click (2, Begin (Value ()) + 3);
    Runner ().QueueChoose (4);
    EXPECT_TRUE (DownWithModifier ());
    EXPECT_EQ (ValueText (2), "Concrete");

    Click (3, Begin (Value ()) + 3);
    Runner ().QueueChoose (2);
    EXPECT_TRUE (DownWithModifier ());
    EXPECT_EQ (ValueText (3), "Dashed");
    EXPECT_EQ (log.Take (), "PenChanged(Contour pen) FillChanged(Cut fill) LineTypeChanged(Line)");
    EXPECT_EQ (Box ().GetSelectedItem (), 3);
}

TEST_F (PickerKeyboardTest, OnAMaterialRowTheModifiedDownMovesOn)
{
    Click (4, Begin (Value ()) + 3);
    const int before = Popups ();
    EXPECT_TRUE (DownWithModifier ());
    EXPECT_EQ (Popups (), before);
    EXPECT_EQ (Box ().GetSelectedItem (), 5);
}

TEST_F (PickerKeyboardTest, RemovingAnotherRowKeepsThePickerCallbacksTheSelectedRowPlaced)
{
    Click (5, Begin (Value ()) + 3);
    const Pk::Pk257& picker = Controls ().GetPk257 ();
    ASSERT_EQ (picker.GetUserData (), &other->GetPenControlData ());
    // The first pen row was selected before and is taken out of the list now.
    list->DeleteListItem (pen, true);
    EXPECT_EQ (picker.GetUserData (), &other->GetPenControlData ());
    EXPECT_EQ (picker.GetCallBack (), &TxAC::PenControlCallBack);
    EXPECT_EQ (picker.GetEntryCount (), 255);
    // The row that placed them clears them when it leaves.
    list->DeleteListItem (other, true);
    EXPECT_EQ (picker.GetUserData (), nullptr);
    EXPECT_EQ (picker.GetCallBack (), nullptr);
}

}   // namespace
}   // namespace PickerItemsTest
