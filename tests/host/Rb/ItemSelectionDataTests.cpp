// The item selection data: its tree, its selection and its search.

#include <gtest/gtest.h>

#include <string>

#include "SelectionTestData.hpp"

namespace {

using RbTest::TextData;

class ItemSelectionDataTest : public ::testing::Test {
protected:
    ItemSelectionDataTest ()
    {
        walls = data.Group (-1, "Walls");
        external = data.Item (walls, "External wall", "facade");
        data.Item (walls, "Curtain wall");
        roofs = data.Group (-1, "Roofs");
        flat = data.Group (roofs, "Flat roof");
        data.Item (flat, "Green roof", "vegetation");
        data.Item (roofs, "Pitched roof");
        data.Item (-1, "Doors");
    }

    std::string Results () const
    {
        std::string out;
        for (const Rb::SearchResult& r : data.GetSearchResults ()) {
            out += (out.empty () ? "" : " ") + data.GetItemTreeViewText (r.index).ToUtf8 ();
            if (r.matchBegin == std::u16string::npos) out += "(other)";
        }
        return out;
    }

    std::string Order (Rb::ItemSortOrder order) const
    {
        std::string out;
        for (Rb::ItemIndex i : data.GetTreeOrder (order)) out += (out.empty () ? "" : ",") + std::to_string (i);
        return out;
    }

    TextData      data;
    Rb::ItemIndex walls = -1, external = -1, roofs = -1, flat = -1;
};

TEST_F (ItemSelectionDataTest, TreeKeepsParentsBeforeChildrenAndRefusesLeavesAsParents)
{
    EXPECT_EQ (data.GetItemCount (), 8u);
    EXPECT_EQ (Order (Rb::AdditionOrder), "0,1,2,3,4,5,6,7");
    EXPECT_EQ (Order (Rb::AscendingOrder), "7,3,4,5,6,0,2,1") << "Doors, Roofs (Flat (Green), Pitched), Walls (Curtain, External)";
    EXPECT_EQ (Order (Rb::DescendingOrder), "0,1,2,3,6,4,5,7");
    EXPECT_EQ (data.Item (external, "Under a leaf"), -1);
    EXPECT_EQ (data.Item (42, "Under nothing"), -1);
    EXPECT_EQ (data.GetItemCount (), 8u);
    EXPECT_EQ (data.GetParentIndex (flat), roofs);
    EXPECT_TRUE (data.IsGroup (flat));
    EXPECT_FALSE (data.IsGroup (external));
    EXPECT_FALSE (data.IsGroup (-1));
}

TEST_F (ItemSelectionDataTest, SelectionDropsUnknownIndicesAndOnlyTheUsersChoiceNotifies)
{
    struct Listener : Rb::BaseItemSelectionDataObserver {
        int calls = 0;
        void ItemSelectionChanged (const Rb::BaseItemSelectionData&) override { ++calls; }
    } listener;
    data.Attach (listener);
    data.SetSelectedItemIndices ({external, -1, 99, roofs});
    EXPECT_EQ (data.Selected (), "External wall Roofs");
    EXPECT_EQ (listener.calls, 0);
    data.ChooseItem (99);
    EXPECT_EQ (listener.calls, 0);
    data.ChooseItem (flat);
    EXPECT_EQ (data.Selected (), "Flat roof");
    EXPECT_EQ (listener.calls, 1);
    data.Detach (listener);
}

TEST_F (ItemSelectionDataTest, SearchIsCaseInsensitiveSubstringInTreeOrderOverEverySearchString)
{
    data.SetSearchText ("ROOF");
    EXPECT_EQ (Results (), "Roofs Flat roof Green roof Pitched roof");
    data.SetSearchText ("Vege");
    EXPECT_EQ (Results (), "Green roof(other)") << "matched by a search word that is not shown";
    data.SetSearchText ("all");
    EXPECT_EQ (Results (), "Walls External wall Curtain wall");
    data.SetSearchText ("");
    EXPECT_EQ (Results (), "");
    data.SetSearchText ("nothing like it");
    EXPECT_EQ (Results (), "");
}

TEST_F (ItemSelectionDataTest, NarrowingAndWideningGiveWhatAFreshSearchGives)
{
    // Every prefix typed, then deleted again, then a different word: each step must equal the
    // result of searching for the text from scratch.
    TextData fresh;
    const Rb::ItemIndex w = fresh.Group (-1, "Walls");
    fresh.Item (w, "External wall", "facade");
    fresh.Item (w, "Curtain wall");
    const Rb::ItemIndex r = fresh.Group (-1, "Roofs");
    const Rb::ItemIndex f = fresh.Group (r, "Flat roof");
    fresh.Item (f, "Green roof", "vegetation");
    fresh.Item (r, "Pitched roof");
    fresh.Item (-1, "Doors");

    auto freshResults = [&] (const char* text) {
        fresh.SetSearchText ("");
        fresh.SetSearchText (text);
        std::string out;
        for (const Rb::SearchResult& res : fresh.GetSearchResults ())
            out += std::to_string (res.index) + ":" + std::to_string (res.matchBegin) + " ";
        return out;
    };
    for (const char* text : {"r", "ro", "roo", "roof", "roo", "ro", "r", "", "w", "wa", "wal", "o", "oo", "do"}) {
        data.SetSearchText (text);
        std::string out;
        for (const Rb::SearchResult& res : data.GetSearchResults ())
            out += std::to_string (res.index) + ":" + std::to_string (res.matchBegin) + " ";
        EXPECT_EQ (out, freshResults (text)) << "after typing \"" << text << "\"";
    }
}

TEST_F (ItemSelectionDataTest, ANewEntryIsFoundByTheNextKeystroke)
{
    data.SetSearchText ("ga");
    EXPECT_EQ (Results (), "");
    data.Item (-1, "Garage door");
    data.SetSearchText ("gar");
    EXPECT_EQ (Results (), "Garage door") << "narrowing must not hide what was added since the last search";
}

TEST_F (ItemSelectionDataTest, SearchFollowsTheSortOrderOfTheTree)
{
    data.SetSearchOrder (Rb::AscendingOrder);
    data.SetSearchText ("wall");
    EXPECT_EQ (Results (), "Walls Curtain wall External wall");
    data.SetSearchOrder (Rb::DescendingOrder);
    EXPECT_EQ (Results (), "Walls External wall Curtain wall") << "a new order recomputes the results at once";
}

}   // namespace
