// Rows found by their value: the answers of the list box's index must be those of a scan of
// every row, after any sequence of insertions, deletions, value changes and clearing.

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace {

using Wg::ListBox;

// Enough values that the index grows several times and entries share probe runs.
constexpr int ValueCount = 300;
constexpr int RandomSteps = 6000;
constexpr unsigned RandomSeed = 17;

class RowsByValueTest : public ::testing::Test {
protected:
    // "2 5 9": the rows holding the value, found by stepping through the index.
    std::string Indexed (const void* value) const
    {
        std::string out;
        for (short row = listBox.FindNextRowWithValue (value); row > 0; row = listBox.FindNextRowWithValue (value, row))
            out += (out.empty () ? "" : " ") + std::to_string (row);
        return out;
    }

    // The same, by looking at every row.
    std::string Scanned (const void* value) const
    {
        std::string out;
        for (short row = 1; row <= listBox.GetItemCount (); ++row)
            if (value != nullptr && listBox.GetItemValue (row) == value) out += (out.empty () ? "" : " ") + std::to_string (row);
        return out;
    }

    void* Value (int i) { return &values[static_cast<std::size_t> (i)]; }

    short AppendWith (int i)
    {
        const short row = listBox.AppendItem ();
        listBox.SetItemValue (row, Value (i));
        return row;
    }

    Wg::Panel                        panel {Wg::Rect (0, 0, 400, 300)};
    ListBox                          listBox {panel, Wg::Rect (0, 0, 300, 200)};
    std::array<char, ValueCount>     values {};
};

TEST_F (RowsByValueTest, AValueInSeveralRowsIsFoundInRowOrderAndNullNever)
{
    for (const int i : {1, 2, 1, 3, 1}) AppendWith (i);
    listBox.AppendItem ();
    EXPECT_EQ (Indexed (Value (1)), "1 3 5");
    EXPECT_EQ (listBox.FindNextRowWithValue (Value (1), 3), 5);
    EXPECT_EQ (listBox.FindNextRowWithValue (Value (1), 5), ListBox::NoRow);
    EXPECT_EQ (listBox.FindNextRowWithValue (Value (4)), ListBox::NoRow);
    EXPECT_EQ (listBox.FindNextRowWithValue (nullptr), ListBox::NoRow);
    // A value overwritten in one row stays found in the others.
    listBox.SetItemValue (3, Value (2));
    listBox.SetItemValue (6, Value (1));
    EXPECT_EQ (Indexed (Value (1)) + " / " + Indexed (Value (2)), "1 5 6 / 2 3");
}

TEST_F (RowsByValueTest, RowsInsertedOrDeletedBeforeAValueMoveItsRow)
{
    for (int i = 0; i < 5; ++i) AppendWith (i);
    listBox.InsertItem (1);
    listBox.InsertItem (3);
    EXPECT_EQ (Indexed (Value (0)) + " " + Indexed (Value (1)) + " " + Indexed (Value (4)), "2 4 7");
    listBox.DeleteItem (2);
    EXPECT_EQ (Indexed (Value (0)) + "|" + Indexed (Value (1)) + " " + Indexed (Value (4)), "|3 6");
    // The last row goes without a rebuild; the value it held is no longer found.
    listBox.DeleteItem (6);
    EXPECT_EQ (Indexed (Value (4)) + "|" + Indexed (Value (3)), "|5");
    listBox.DeleteAllItems ();
    EXPECT_EQ (Indexed (Value (1)), "");
    EXPECT_EQ (AppendWith (1), 1);
    EXPECT_EQ (Indexed (Value (1)), "1");
}

TEST_F (RowsByValueTest, AFullListBoxFindsEveryValueAlsoWhereHashesCollide)
{
    // Twenty thousand distinct values share far fewer hash tags: many entries of a probe run
    // are other values with the same tag.
    constexpr int Count = 20000;
    std::vector<int> many (Count);
    for (int i = 0; i < Count; ++i) {
        const short row = listBox.AppendItem ();
        listBox.SetItemValue (row, &many[static_cast<std::size_t> (i)]);
    }
    int wrong = 0;
    for (int i = 0; i < Count; ++i) wrong += listBox.FindNextRowWithValue (&many[static_cast<std::size_t> (i)]) != i + 1;
    EXPECT_EQ (wrong, 0);
    // Every other row emptied, then refilled with its neighbour's value.
    for (short row = 2; row <= Count; row += 2) listBox.SetItemValue (row, nullptr);
    for (short row = 2; row <= Count; row += 2) listBox.SetItemValue (row, listBox.GetItemValue (static_cast<short> (row - 1)));
    for (int i = 0; i < Count; i += 2) wrong += Indexed (&many[static_cast<std::size_t> (i)]) != std::to_string (i + 1) + " " + std::to_string (i + 2);
    for (int i = 1; i < Count; i += 2) wrong += listBox.FindNextRowWithValue (&many[static_cast<std::size_t> (i)]) != 0;
    EXPECT_EQ (wrong, 0);
}

TEST_F (RowsByValueTest, RandomEditsAgreeWithAScanOfEveryRow)
{
    std::mt19937 random (RandomSeed);
    auto pick = [&] (int count) { return static_cast<int> (random () % static_cast<unsigned> (count)); };
    constexpr int ClearOnceIn = 2000;
    for (int step = 0; step < RandomSteps; ++step) {
        const short count = listBox.GetItemCount ();
        const auto anyRow = static_cast<short> (1 + pick (count + 1));
        switch (pick (10)) {
            case 0: listBox.InsertItem (anyRow); break;
            case 1: listBox.DeleteItem (anyRow); break;
            case 2: if (pick (ClearOnceIn / 10) == 0) listBox.DeleteAllItems (); break;
            case 3: listBox.SetItemValue (anyRow, nullptr); break;
            case 4: listBox.DeleteItem (count); break;
            case 5:
            case 6: AppendWith (pick (ValueCount)); break;
            default: listBox.SetItemValue (anyRow, Value (pick (ValueCount))); break;
        }
        // Every few steps, so that several changes pile up between two lookups.
        if (step % 7 != 0) continue;
        for (int i = 0; i < ValueCount; ++i) ASSERT_EQ (Indexed (Value (i)), Scanned (Value (i))) << "value " << i << " at step " << step;
    }
    EXPECT_GT (listBox.GetItemCount (), ValueCount / 2);
}

}   // namespace
