// The classification item selector: the selection data built from a system (hidden subtrees,
// preselection, the search strings, the sort orders, the chosen item) and the popup over it (its
// information line, its fixed settings, and the groups it keeps open between invocations).

#include "ClassificationFixture.hpp"
#include "Rb/RbResources.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"

namespace ClassificationTest {
namespace {

using Data = TxAL::ClassificationSelectionDialogData;
using Popup = TxAL::ClassificationItemSelectorPopup;

class SelectorTest : public ClassificationFixture {
protected:
    static Data::VisibilityPredicate Hiding (std::set<std::string> codes)
    {
        return [codes] (const ODB::ConstRef<CLS::IClassificationItem>& item) { return codes.count (item->GetCode ().ToUtf8 ()) == 0; };
    }
    static Data::VisibilityPredicate All ()
    {
        return [] (const ODB::ConstRef<CLS::IClassificationItem>&) { return true; };
    }

    // "index:text^parent" per entry, "+" for groups, then the selected indices.
    static std::string Dump (const Data& data)
    {
        std::string out;
        for (Rb::ItemIndex i = 0; i < static_cast<Rb::ItemIndex> (data.GetItemCount ()); ++i) {
            out += std::to_string (i) + ":" + (data.IsGroup (i) ? "+" : "") + data.GetItemTreeViewText (i).ToUtf8 ();
            if (data.GetParentIndex (i) >= 0) out += "^" + std::to_string (data.GetParentIndex (i));
            out += " ";
        }
        out += "sel=";
        for (Rb::ItemIndex i : data.GetSelectedItemIndices ()) out += std::to_string (i);
        return out;
    }

    Kor::Ref<Getter> Filter (std::set<std::string> hidden, bool enabled) { return Kor::Ref<Getter> (new CodeFilter (std::move (hidden), enabled)); }
};

TEST_F (SelectorTest, TreeFollowsTheSystemAndAHiddenGroupHidesItsSubtree)
{
    const Data all (system.AsConst (), external, All ());
    EXPECT_EQ (Dump (all), "0:+EF Elements 1:+EF_25 Walls^0 2:EF_25_10 External walls^1 3:EF_25_30 Internal walls^1 4:EF_30 Roofs^0 "
                           "5:+Ss Systems 6:Ss_20 Structural systems^5 sel=2");
    EXPECT_FALSE (all.HasHiddenClassification ());

    const Data filtered (system.AsConst (), roofs, Hiding ({"EF_25"}));
    EXPECT_EQ (Dump (filtered), "0:+EF Elements 1:EF_30 Roofs^0 2:+Ss Systems 3:Ss_20 Structural systems^2 sel=1");
    EXPECT_TRUE (filtered.HasHiddenClassification ());
    EXPECT_TRUE (filtered.GetItem (1) == roofs);
    EXPECT_TRUE (filtered.GetItem (17).IsNull ());
    EXPECT_EQ (filtered.GetItemTreeViewText (17), "");
}

TEST_F (SelectorTest, OnlyAVisibleItemIsPreselectedAndAnEmptySystemGivesNothing)
{
    EXPECT_EQ (Dump (Data (system.AsConst (), internal, Hiding ({"EF"}))), "0:+Ss Systems 1:Ss_20 Structural systems^0 sel=");
    EXPECT_EQ (Dump (Data (CLS::ClassificationSystem::Create ("Empty", "").AsConst (), {}, All ())), "sel=");
    EXPECT_EQ (Dump (Data ({}, walls, All ())), "sel=");
}

TEST_F (SelectorTest, SearchComparesTheDecoratedNameAndNothingElse)
{
    Data data (system.AsConst (), {}, All ());
    Kor::Array<Kor::UniString> strings;
    data.CollectItemStringsForSearchComparison (1, strings);
    ASSERT_EQ (strings.size (), 1u);
    EXPECT_EQ (strings[0], "EF_25 Walls");
    EXPECT_EQ (data.GetItemListBoxTextByColumn (2, 1), "EF_25 Walls");

    auto codes = [&] (const char* text) {
        data.SetSearchText (text);
        std::string out;
        for (const Rb::SearchResult& r : data.GetSearchResults ()) out += data.GetItem (r.index)->GetCode ().ToUtf8 () + " ";
        return out;
    };
    EXPECT_EQ (codes ("ef_25"), "EF_25 EF_25_10 EF_25_30 ");
    EXPECT_EQ (codes ("WALLS"), "EF_25 EF_25_10 EF_25_30 ");
    EXPECT_EQ (codes ("Vertical"), "") << "descriptions are not searched";
    EXPECT_EQ (data.GetSearchHintText (), TxAL::GetResourceString (5007, 5));
    EXPECT_FALSE (data.GetSearchHintText ().IsEmpty ());
}

TEST_F (SelectorTest, SortFunctionsCompareTextsCaselessAscendingOrDescendingElseAlwaysTrue)
{
    auto own = CLS::ClassificationSystem::Create ("Own", "");
    own->AddItem ({}, "", "beta");
    own->AddItem ({}, "", "Alpha");
    const Data data (own.AsConst (), {}, All ());
    const auto ascending = data.GetSortFunctionForItems (Rb::AscendingOrder);
    const auto descending = data.GetSortFunctionForItems (Rb::DescendingOrder);
    const auto other = data.GetSortFunctionForItems (static_cast<Rb::ItemSortOrder> (7));
    std::string out;
    for (const auto& f : {ascending, descending, other}) out += std::to_string (f (0, 1)) + std::to_string (f (1, 0)) + " ";
    EXPECT_EQ (out, "01 10 11 ") << "beta after Alpha ignoring case";
    EXPECT_EQ (Data (own.AsConst (), {}, All ()).GetTreeOrder (Rb::AscendingOrder), (std::vector<Rb::ItemIndex> {1, 0}));
}

TEST_F (SelectorTest, TheChosenItemNeedsExactlyOneSelectedIndex)
{
    Data data (system.AsConst (), walls, All ());
    EXPECT_TRUE (data.GetSelectedRef () == walls);
    data.SetSelectedItemIndices ({1, 4});
    EXPECT_TRUE (data.GetSelectedRef ().IsNull ());
    data.SetSelectedItemIndices ({});
    EXPECT_TRUE (data.GetSelectedRef ().IsNull ());
    data.SetSelectedItemIndices ({6});
    EXPECT_TRUE (data.GetSelectedRef () == frames);
}

TEST_F (SelectorTest, PopupSaysWhenItemsAreHiddenOrFilteredAndKeepsItsSettings)
{
    std::string seen;
    DialogRunner runner ([&] (Dialog& dialog) {
        seen += dialog.HasInformation () ? std::to_string (dialog.GetInformationIcon ().GetResourceId ()) + ":" +
                                               dialog.GetInformationText ().ToUtf8 ()
                                         : std::string ("none");
        seen += " h=" + std::to_string (dialog.GetMaximumHeight ()) + " d=" + std::to_string (dialog.GetPlaceDirection ()) + " add=" +
                dialog.GetAddButtonText ().ToUtf8 () + " anchored=" + std::to_string (dialog.GetAnchor () == &listBox) + "\n";
    });
    Wg::SetModalRunner (&runner);
    for (Kor::Ref<Getter> getter : {Filter ({"EF_30"}, true), Filter ({}, true), Filter ({"EF_30"}, false),
                                    Kor::Ref<Getter> (new TxAL::NoClassificationVisisibilityEffect ())}) {
        Popup popup (system.AsConst (), walls, getter);
        popup.Invoke (listBox);
        EXPECT_TRUE (popup.GetSelectedItem () == walls) << "a cancel keeps the item";
    }
    const std::string hidden = TxAL::GetResourceString (5007, 4).ToUtf8 ();
    const std::string filtering = TxAL::GetResourceString (5007, 3).ToUtf8 ();
    const std::string settings = " h=700 d=0 add=" + Rb::GetResourceCommonString (5).ToUtf8 () + " anchored=1\n";
    EXPECT_EQ (seen, "1109:" + hidden + settings + "1113:" + filtering + settings + "none" + settings + "none" + settings);
}

TEST_F (SelectorTest, PopupReopensWithTheGroupsTheUserLeftOpen)
{
    std::string shown;
    DialogRunner runner ([&] (Dialog& dialog) {
        shown += RbTestRows (dialog) + "\n";
        dialog.SetRowExpanded (1, true);
        dialog.SetRowExpanded (2, true);
    });
    Wg::SetModalRunner (&runner);
    Popup popup (system.AsConst (), {}, Filter ({}, false));
    popup.Invoke (listBox);
    EXPECT_EQ (popup.GetExpandedGroups ().size (), 2u);
    runner.play = [&] (Dialog& dialog) {
        shown += RbTestRows (dialog) + "\n";
        dialog.PickRow (4);
    };
    popup.Invoke (listBox);
    EXPECT_EQ (shown, "EF Elements, Ss Systems\n"
                      "EF Elements, EF_25 Walls, EF_25_10 External walls, EF_25_30 Internal walls, EF_30 Roofs, Ss Systems\n");
    EXPECT_TRUE (popup.GetSelectedItemTyped () == internal);
}

TEST_F (SelectorTest, PopupWithoutAGetterThrows)
{
    Popup popup (system.AsConst (), walls, Kor::Ref<Getter> ());
    EXPECT_THROW (popup.Invoke (listBox), Kor::NullReferenceException);
    EXPECT_TRUE (popup.GetSelectedItem () == walls);
}

}   // namespace
}   // namespace ClassificationTest
