// The rows a refresh of one item reaches: every row holding the item, or the group whose master
// it is, and no other, whatever happened to the rows before. Each check compares the rows a
// refresh redrew with a scan of every row and with the rows expected.

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "AttributeListTestSupport.hpp"
#include "RecordingPeer.hpp"

namespace {

using namespace TxALTest;

class RefreshRowsTest : public ::testing::Test {
protected:
    void SetUp () override
    {
        h.list->AddListItem (a);
        g1 = h.list->CreateGroup ("G1", Wg::Icon (), true, true);
        g1->AddMasterItem (m1);
        g1->AddItem (c1);
        g1->AddItem (c2);
        g2 = h.list->CreateGroup ("G2", Wg::Icon (), true, true);
        g2->AddItem (d1);
        g2->AddItem (d2);
        h.list->AddListItem (z);
        h.list->FullRefreshList (true);
        peer.AttachTo (h.ListBox ());
        tracked = {{"A", &a}, {"G1", g1}, {"M1", &m1}, {"C1", &c1}, {"C2", &c2}, {"G2", g2},
                   {"D1", &d1}, {"D2", &d2}, {"Z", &z}, {"N", &n}};
    }

    // "A:1 G1:2 M1:2 ...": the rows redrawn by a refresh of each tracked item, in the order of
    // `tracked` (N, the spare item, last).
    std::string Refreshed ()
    {
        std::string out;
        for (const auto& [name, item] : tracked) {
            peer.TakeLog ();
            h.list->RefreshItem (*item, true);
            out += Entry (name, RowsIn (peer.TakeLog ()));
        }
        return out;
    }

    // The same from a scan of every row.
    std::string Scanned () const
    {
        std::string out;
        for (const auto& [name, item] : tracked) {
            const AttributeListItem* group = nullptr;
            if (const auto* simple = dynamic_cast<const AttributeListSimpleItem*> (item); simple != nullptr && simple->GetGroup () != nullptr &&
                                                                                           simple->GetGroup ()->GetMasterItem () == simple)
                group = simple->GetGroup ();
            std::set<int> rows;
            for (short row = 1; row <= h.ListBox ().GetItemCount (); ++row) {
                const void* value = h.ListBox ().GetItemValue (row);
                if (value == item || (group != nullptr && value == group)) rows.insert (row);
            }
            out += Entry (name, rows);
        }
        return out;
    }

    // Both must name the expected rows; a mismatch of the two alone is reported too.
    void ExpectRows (const std::string& expected)
    {
        const std::string scanned = Scanned ();
        EXPECT_EQ (scanned, expected);
        EXPECT_EQ (Refreshed (), scanned);
    }

    static std::set<int> RowsIn (const std::string& log)
    {
        std::set<int> rows;
        std::istringstream words (log);
        const std::string prefix = "Row:";
        for (std::string word; words >> word;)
            if (word.rfind (prefix, 0) == 0) rows.insert (std::stoi (word.substr (prefix.size ())));
        return rows;
    }

    static std::string Entry (const std::string& name, const std::set<int>& rows)
    {
        if (rows.empty ()) return {};
        std::string out = name;
        for (int row : rows) out += ":" + std::to_string (row);
        return out + " ";
    }

    ListHarness             h;
    CountedItem             a {"A"}, m1 {"M1"}, c1 {"C1"}, c2 {"C2"}, d1 {"D1"}, d2 {"D2"}, z {"Z"}, n {"N"};
    AttributeListGroupItem* g1 = nullptr;
    AttributeListGroupItem* g2 = nullptr;
    TestSupport::RecordingPeer peer;
    std::vector<std::pair<std::string, AttributeListItem*>> tracked;
};

TEST_F (RefreshRowsTest, AMasterReachesItsGroupsRowAndEveryOtherItemItsOwn)
{
    ExpectRows ("A:1 G1:2 M1:2 C1:3 C2:4 G2:5 D1:6 D2:7 Z:8 ");
}

TEST_F (RefreshRowsTest, CollapsingExpandingAndHidingMoveTheLaterRows)
{
    g1->Collapse ();
    ExpectRows ("A:1 G1:2 M1:2 G2:3 D1:4 D2:5 Z:6 ");
    g2->SetVisibility (false);
    ExpectRows ("A:1 G1:2 M1:2 Z:3 ");
    g2->SetVisibility (true);
    g1->Expand ();
    ExpectRows ("A:1 G1:2 M1:2 C1:3 C2:4 G2:5 D1:6 D2:7 Z:8 ");
    h.list->CollapseAllGroups ();
    ExpectRows ("A:1 G1:2 M1:2 G2:3 Z:4 ");
    h.list->ExpandAllGroups ();
    ExpectRows ("A:1 G1:2 M1:2 C1:3 C2:4 G2:5 D1:6 D2:7 Z:8 ");
}

TEST_F (RefreshRowsTest, AddingDeletingAndReplacingItemsRenumberTheRows)
{
    g1->AddItem (n);   // lands before the second group: the rows after it move down
    ExpectRows ("A:1 G1:2 M1:2 C1:3 C2:4 G2:6 D1:7 D2:8 Z:9 N:5 ");
    g1->DeleteItem (&c1, false);
    ExpectRows ("A:1 G1:2 M1:2 C2:3 G2:5 D1:6 D2:7 Z:8 N:4 ");
    g1->DeleteItem (&n, false);
    // The replacement takes the row; the item it replaced reaches none.
    g2->ReplaceItem (&d1, &n);
    ExpectRows ("A:1 G1:2 M1:2 C2:3 G2:4 D2:6 Z:7 N:5 ");
    g1->RemoveMasterItem ();
    ExpectRows ("A:1 G1:2 C2:3 G2:4 D2:6 Z:7 N:5 ");
    h.list->DeleteListItem (&a, false);
    ExpectRows ("G1:1 C2:2 G2:3 D2:5 Z:6 N:4 ");
}

TEST_F (RefreshRowsTest, DetachingClearingAndBatchesLeaveNoStaleRow)
{
    h.list->DetachListItemFromList (&a);
    ExpectRows ("G1:2 M1:2 C1:3 C2:4 G2:5 D1:6 D2:7 Z:8 ");
    // Changes inside a batch take rows only with the rebuild that ends it.
    h.list->DisableUpdate ();
    g2->DeleteItem (&d1, false);
    g1->AddItem (n);
    h.list->EnableUpdate ();
    h.list->FullRefreshList (true);
    ExpectRows ("A:1 G1:2 M1:2 C1:3 C2:4 G2:6 D2:7 Z:8 N:5 ");
    // The list deletes the groups it made; the caller's items stay, in no row.
    std::erase_if (tracked, [] (const auto& entry) { return entry.first[0] == 'G'; });
    h.list->ClearList (true);
    ExpectRows ("");
    h.list->AddListItem (z);
    h.list->FullRefreshList (true);
    ExpectRows ("Z:1 ");
}

TEST_F (RefreshRowsTest, RowsInsertedAndDeletedThroughTheListBoxItselfAreFollowed)
{
    // A caller that works on the list box directly: a row of its own at the top, and one of
    // the list's rows taken away in the middle.
    h.ListBox ().InsertItem (1);
    ExpectRows ("A:2 G1:3 M1:3 C1:4 C2:5 G2:6 D1:7 D2:8 Z:9 ");
    h.ListBox ().DeleteItem (4);
    ExpectRows ("A:2 G1:3 M1:3 C2:4 G2:5 D1:6 D2:7 Z:8 ");
    // The same item placed in a second row is reached in both.
    h.ListBox ().SetItemValue (1, &z);
    ExpectRows ("A:2 G1:3 M1:3 C2:4 G2:5 D1:6 D2:7 Z:1:8 ");
}

}   // namespace
