// The real-number family and the int item: tolerance, clamping, edits in working units.

#include <climits>
#include <cmath>
#include <limits>

#include "ValueItemsFixture.hpp"

namespace ValueItemsTest {
namespace {

using RealItemTest = ListTest;

std::string Edit (const Wg::RealEdit& edit)
{
    return Number (edit.GetMin ()) + ".." + Number (edit.GetMax ()) + " " + Number (edit.GetValue ());
}

TEST_F (RealItemTest, SmallChangesAreDroppedWithoutRedraw)
{
    auto* item = list->CreateRealItem ("Ratio", {}, 0.0, 10.0, 2.5, true, true, false);
    calls.Watch (*item);
    const std::uint64_t redraws = Redraws ();
    item->SetValue (2.5 + 0.000005);
    item->SetMinValue (0.000005);
    item->SetMaxValue (10.000005);
    EXPECT_EQ (Number (item->GetMinValue ()) + " " + Number (item->GetValue ()) + " " + Number (item->GetMaxValue ()), "0 2.5 10");
    EXPECT_EQ (Redraws (), redraws);
    item->SetValue (2.5 + 0.00002);
    EXPECT_DOUBLE_EQ (item->GetValue (), 2.50002);
    EXPECT_EQ (Redraws (), redraws + 1);
    EXPECT_EQ (calls.Get (), "") << "setters never notify";
}

TEST_F (RealItemTest, ValueIsClampedMinimumFirst)
{
    // With the minimum above the maximum, a value below the minimum ends at the minimum and any
    // other at the maximum: the minimum is tested first.
    auto* below = list->CreateRealItem ("A", {}, 10.0, 5.0, 3.0, true, true, false);
    auto* between = list->CreateRealItem ("B", {}, 10.0, 5.0, 7.0, true, true, false);
    auto* above = list->CreateRealItem ("C", {}, 10.0, 5.0, 12.0, true, true, false);
    // Clamped before the first drawing.
    auto* length = list->CreateLengthItem ("D", {}, 0.0, 10.0, 20.0, true, true, false);
    auto* unknown = list->CreateRealItem ("E", {}, 0.0, 10.0, std::numeric_limits<double>::quiet_NaN (), true, true, false);
    EXPECT_EQ (Number (below->GetValue ()) + " " + Number (between->GetValue ()) + " " + Number (above->GetValue ()) + " " +
                   Cell (4, Value ()) + " " + Cell (5, Value ()),
               "10 10 5 10.000 m ###");
    EXPECT_TRUE (std::isnan (unknown->GetValue ())) << "a NaN value is kept";
    unknown->SetValue (std::numeric_limits<double>::quiet_NaN ());
    unknown->SetValue (4.0);
    EXPECT_EQ (Number (unknown->GetValue ()), "4");
    length->SetValue (std::numeric_limits<double>::quiet_NaN ());
    EXPECT_EQ (Number (length->GetValue ()), "10") << "a NaN proposal is dropped";
    unknown->SetMinValue (6.0);
    EXPECT_EQ (Number (unknown->GetValue ()), "6");
    unknown->SetMaxValue (5.0);
    EXPECT_EQ (Number (unknown->GetValue ()), "5");
}

TEST_F (RealItemTest, BoundsReachTheSharedEditOnlyFromTheSelectedRow)
{
    auto* first = list->CreateRealItem ("First", {}, 0.0, 10.0, 1.0, true, true, false);
    auto* second = list->CreateRealItem ("Second", {}, 0.0, 20.0, 2.0, true, true, false);
    // Both rows have had the shared edit; the first has it now.
    Click (2, Begin (Value ()) + 5);
    Click (1, Begin (Value ()) + 5);
    const Wg::RealEdit& edit = Controls ().GetRealEdit ();
    ASSERT_TRUE (list->IsRealEditOnTabItemVisible ());
    EXPECT_EQ (Edit (edit), "0..10 1");
    second->SetMaxValue (30.0);
    second->SetMinValue (-5.0);
    second->SetValue (-2.0);
    EXPECT_EQ (Edit (edit), "0..10 1");
    first->SetMaxValue (8.0);
    first->SetMinValue (0.5);
    first->SetValue (9.0);
    EXPECT_EQ (Edit (edit), "0.5..8 8");
    EXPECT_EQ (Cell (1, Value ()) + " " + Cell (2, Value ()), "8.00 -2.00");
}

TEST_F (RealItemTest, IntItemHasSymmetricLimitsAndTruncatesTowardZero)
{
    auto* item = list->CreateIntItem ("Storeys", {}, 0, 100, 3, true, true, false);
    TxAL::AttributeListRealItem& real = *item;
    real.SetMinValue (static_cast<double> (INT_MIN));
    real.SetMaxValue (1e12);
    EXPECT_EQ (std::to_string (item->GetMinValue ()) + " " + std::to_string (item->GetMaxValue ()), "-2147483647 2147483647");
    EXPECT_EQ (Number (real.GetMinValue ()), "-2.14748e+09");
    Click (1, Begin (Value ()) + 5);
    const Wg::IntEdit& edit = Controls ().GetIntEdit ();
    ASSERT_TRUE (list->IsIntEditOnTabItemVisible ());
    EXPECT_FALSE (list->IsRealEditOnTabItemVisible ());
    EXPECT_EQ (std::to_string (edit.GetMin ()) + ".." + std::to_string (edit.GetMax ()), "-2147483647..2147483647");
    std::string shown;
    for (double value : {2.9, -2.9, 7.0}) {
        item->SetValue (value);
        shown += Cell (1, Value ()) + "/" + std::to_string (edit.GetValue ()) + " ";
    }
    EXPECT_EQ (shown, "2/2 -2/-2 7/7 ");
}

TEST_F (RealItemTest, IntItemReadsTheSmallestIntOfItsConstructorAsItStands)
{
    // Only the setters hold the minimum one above INT_MIN; the constructor stores what it is given.
    auto* item = list->CreateIntItem ("Offset", {}, INT_MIN, 0, INT_MIN, true, true, false);
    Click (1, Begin (Value ()) + 5);
    const Wg::IntEdit& edit = Controls ().GetIntEdit ();
    EXPECT_EQ (std::to_string (item->GetMinValue ()) + " " + std::to_string (item->GetValue ()) + " " + Cell (1, Value ()) + " " +
                   std::to_string (edit.GetMin ()) + " " + std::to_string (edit.GetValue ()),
               "-2147483648 -2147483648 -2147483648 -2147483648 -2147483648");
}

TEST_F (RealItemTest, ValueTextIsFormattedBySubtypeInTheWorkingUnits)
{
    list->CreateRealItem ("Real", {}, -1e9, 1e9, 2.5, true, true, false);
    list->CreateLengthItem ("Length", {}, -1e9, 1e9, 2.5, true, true, false);
    list->CreateAreaItem ("Area", {}, -1e9, 1e9, 12.5, true, true, false);
    list->CreateVolumeItem ("Volume", {}, -1e9, 1e9, 2.5, true, true, false);
    list->CreateAngleItem ("Angle", {}, -1e9, 1e9, 90.0, true, true, false);
    // The polar angle item has no factory: the caller owns it.
    TxAL::AttributeListPolarAngleItem polar ("Polar", {}, -1e9, 1e9, 370.0, true, true, false);
    list->AddListItem (polar);
    list->CreateIntItem ("Int", {}, -100, 100, 7, true, true, false);
    list->FullRefreshList (true);
    auto cells = [this] {
        std::string out;
        for (short row = 1; row <= Box ().GetItemCount (); ++row) out += Cell (row, Value ()) + "|";
        return out;
    };
    EXPECT_EQ (cells (), "2.50|2.500 m|12.50 m²|2.50 m³|90.00°|10.00°|7|");
    Wg::SetWorkingUnits (Wg::WorkingUnits::Imperial ());
    list->FullRefreshList (true);
    EXPECT_EQ (cells (), "2.50|8'-2 3/8\"|134.55 ft²|88.29 ft³|90.00°|10.00°|7|");
    // Each flavour edits in its own shared edit.
    std::string edits;
    for (short row = 1; row <= 6; ++row) {
        Click (row, Begin (Value ()) + 5);
        edits += std::string (list->IsRealEditOnTabItemVisible () ? "R" : "") + (list->IsLengthEditOnTabItemVisible () ? "L" : "") +
                 (list->IsAreaEditOnTabItemVisible () ? "A" : "") + (list->IsVolumeEditOnTabItemVisible () ? "V" : "") +
                 (list->IsAngleEditOnTabItemVisible () ? "G" : "") + (list->IsPolarAngleEditOnTabItemVisible () ? "P" : "");
    }
    EXPECT_EQ (edits, "RLAVGP");
}

TEST_F (RealItemTest, NonEditableItemShowsNoEditAndPresetsOnlySelect)
{
    auto* item = list->CreateLengthItem ("Height", {}, 0.0, 10.0, 2.5, false, true, false, "max");
    item->AddStringItem ("1.000 m");
    item->AddStringItem ("3.000 m");
    calls.Watch (*item);
    Click (1, Begin (Value ()) + 5);
    EXPECT_EQ (Placed (), "sel=1 6:PopupControl");
    Runner ().QueueChoose (2);
    Click (1, End (Check ()));
    EXPECT_EQ (calls.Take () + " " + Number (item->GetValue ()) + " " + Cell (1, Value ()) + " " + AT (1, Preview ()) + "|" + AT (1, Value ()),
               "SelectionChanged(Height) 2.5 2.500 m max|");
    EXPECT_NE (Paint (1, Preview ()).find ("text \"max\""), std::string::npos) << "the tag is drawn in the preview cell";
    item->SetEditable (true);
    EXPECT_EQ (Placed () + " " + Number (Controls ().GetLengthEdit ().GetValue ()), "sel=1 4:LengthEdit 6:PopupControl 2.5");
    item->SetEditable (false);
    EXPECT_FALSE (list->IsLengthEditOnTabItemVisible ());
}

TEST_F (RealItemTest, TypedLengthLandsInMetresOnReturn)
{
    MakeList (Params ().SetEditControlAutoUpdate (false));
    Wg::SetWorkingUnits (Wg::WorkingUnits::Imperial ());
    auto* item = list->CreateLengthItem ("Height", {}, 0.0, 10.0, 1.0, true, true, false);
    calls.Watch (*item);
    std::string values;
    calls.onCall = [&] (const std::string&, const TxAL::AttributeListItem*) { values += Number (item->GetValue ()) + " "; };
    Click (1, Begin (Value ()) + 5);
    Wg::RealEdit& edit = Controls ().GetLengthEdit ();
    ASSERT_TRUE (edit.IsFocused ());
    edit.UserType ("8'-2 1/2\"");
    EXPECT_EQ (values, "");
    EXPECT_TRUE (Press (Wg::Key::Return));
    EXPECT_EQ (values + Cell (1, Value ()), "2.5019 8'-2 1/2\"");
    edit.UserType ("2500mm");
    Press (Wg::Key::Return);
    Press (Wg::Key::Return);
    EXPECT_EQ (values + Cell (1, Value ()), "2.5019 2.5 8'-2 3/8\"");
    EXPECT_EQ (calls.Take (), "ValueChanged(Height) ValueChanged(Height)");
    Wg::SetWorkingUnits (Wg::WorkingUnits::Metric ());
    list->FullRefreshList (true);
    EXPECT_EQ (Cell (1, Value ()), "2.500 m");
}

TEST_F (RealItemTest, AutoUpdateReportsEachAcceptedChangeOnce)
{
    auto* item = list->CreateLengthItem ("Height", {}, 0.0, 100.0, 1.0, true, true, false);
    calls.Watch (*item);
    std::string values;
    calls.onCall = [&] (const std::string& call, const TxAL::AttributeListItem*) { values += call + "=" + Number (item->GetValue ()) + " "; };
    Click (1, Begin (Value ()) + 5);
    Controls ().GetLengthEdit ().UserType ("2500mm");
    Press (Wg::Key::Return);
    // 250 and 2500 are held at the maximum by the edit; "2500m" changes nothing.
    EXPECT_EQ (values, "ValueChanged=2 ValueChanged=25 ValueChanged=100 ValueChanged=2.5 ");
    EXPECT_EQ (Number (item->GetValue ()) + " " + Cell (1, Value ()), "2.5 2.500 m");
}

}   // namespace
}   // namespace ValueItemsTest
