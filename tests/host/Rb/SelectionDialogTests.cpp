// The auto-closing single item selection dialog, driven as a user drives it: headless through
// the runner's script, and through its own operations (Up, Down, Return) from a runner that
// plays a backend's part.

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "Rb/RbResources.hpp"
#include "SelectionTestData.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/ModalRunner.hpp"

namespace {

using Dialog = Rb::AutoClosingSingleItemSelectionDialog;
using Step = Wg::ModalStep;
using RbTest::DumpRows;

// Plays a backend: runs a function on the dialog, then cancels if it is still open.
class FunctionRunner : public Wg::ModalRunner {
public:
    explicit FunctionRunner (std::function<void (Dialog&)> play) : play (std::move (play)) {}
    void Run (Wg::ModalSession& session) override
    {
        auto* dialog = dynamic_cast<Dialog*> (&session);
        ASSERT_NE (dialog, nullptr);
        session.Begin ();
        play (*dialog);
        if (!session.HasEnded ()) session.Perform (Step::MakeCancel ());
    }

private:
    std::function<void (Dialog&)> play;
};

class SelectionDialogTest : public ::testing::Test {
protected:
    SelectionDialogTest ()
    {
        walls = data.Group (-1, "Walls");
        external = data.Item (walls, "External wall");
        data.Item (walls, "Curtain wall");
        roofs = data.Group (-1, "Roofs");
        flat = data.Group (roofs, "Flat roof");
        data.Item (flat, "Green roof");
        data.Item (roofs, "Pitched roof");
        data.Item (-1, "Doors");
    }
    ~SelectionDialogTest () override
    {
        Wg::SetModalRunner (nullptr);
        Runner ().ClearScript ();
    }

    static Wg::ScriptedModalRunner& Runner () { return Wg::GetHeadlessModalRunner (); }

    // Queues the steps, runs the dialog and tells what it showed last and what was picked.
    std::string Play (Dialog& dialog, std::initializer_list<Step> steps)
    {
        for (const Step& step : steps) Runner ().Queue (step);
        const bool picked = dialog.Invoke ();
        return DumpRows (dialog) + (picked ? " => " + data.Selected () : " => cancelled");
    }

    RbTest::TextData data;
    Rb::ItemIndex    walls = -1, external = -1, roofs = -1, flat = -1;
};

TEST_F (SelectionDialogTest, ATreeOpensClosedAndAPickClosesTheDialogAtOnce)
{
    Dialog dialog (data, nullptr);
    EXPECT_EQ (Play (dialog, {Step::MakeExpand (2, true), Step::MakeExpand (3, true), Step::MakeChoose (4), Step::MakeChoose (1)}),
               "-Walls | +Roofs | *  +Flat roof |     Green roof |   Pitched roof | Doors => Green roof");
    EXPECT_EQ (Runner ().GetPendingStepCount (), 1u) << "the dialog closed with the pick; the next step stays queued";
    Runner ().ClearScript ();
    EXPECT_TRUE (dialog.GetExpandedGroups ().Contains (roofs));
    EXPECT_TRUE (dialog.GetExpandedGroups ().Contains (flat));
}

TEST_F (SelectionDialogTest, ExpandedGroupsAreRestoredAndLeavesCannotOpen)
{
    Dialog dialog (data, nullptr);
    dialog.SetExpandedGroups ({walls, external, 1234});
    EXPECT_EQ (dialog.GetExpandedGroups ().size (), 1u) << "only groups can be open";
    EXPECT_EQ (Play (dialog, {Step::MakeExpand (2, true), Step::MakeExpand (1, false)}),
               "*-Walls | -Roofs | Doors => cancelled");
    EXPECT_TRUE (dialog.GetExpandedGroups ().IsEmpty ());
    EXPECT_EQ (data.Selected (), "");
}

TEST_F (SelectionDialogTest, TypingNarrowsToResultsWithPathsAndReturnPicksTheFirst)
{
    Dialog dialog (data, nullptr);
    Runner ().Queue (Step::MakeType ("ROO"));
    Runner ().Queue (Step::MakeTrack (0));
    dialog.SetSortOrder (Rb::AscendingOrder);
    EXPECT_EQ (Play (dialog, {}), "[Roo]fs | Flat [roo]f @Roofs | Green [roo]f @Roofs › Flat roof | Pitched [roo]f @Roofs => cancelled");

    EXPECT_FALSE (dialog.Invoke ()) << "a dialog runs once";

    Dialog again (data, nullptr);
    again.SetSortOrder (Rb::AscendingOrder);
    EXPECT_EQ (Play (again, {Step::MakeSearch ("wall"), Step::MakeAccept ()}), "*[Wall]s | Curtain [wall] @Walls | External [wall] @Walls => Walls");
    EXPECT_EQ (again.GetResultListBox ().GetItemCount (), 3);
    EXPECT_EQ (again.GetResultListBox ().GetTabItemText (3, Rb::ResultPathColumn), "Walls");
}

TEST_F (SelectionDialogTest, UpDownAndReturnWorkWithoutTheMouse)
{
    std::string seen;
    FunctionRunner runner ([&] (Dialog& dialog) {
        dialog.SetSearchText ("roof");
        seen += std::to_string (dialog.GetHighlightedRow ());
        dialog.MoveHighlight (+1);
        dialog.MoveHighlight (+1);
        dialog.MoveHighlight (+1);
        dialog.MoveHighlight (+1);
        seen += std::to_string (dialog.GetHighlightedRow ());
        dialog.MoveHighlight (-1);
        seen += std::to_string (dialog.GetHighlightedRow ());
        dialog.PickHighlighted ();
        dialog.MoveHighlight (-1);
        dialog.PickHighlighted ();
    });
    Wg::SetModalRunner (&runner);
    Dialog dialog (data, nullptr);
    EXPECT_TRUE (dialog.Invoke ());
    EXPECT_EQ (seen, "143") << "highlight starts on the first result and stops at the last";
    EXPECT_EQ (data.Selected (), "Green roof") << "the second Return found the dialog closed";
}

TEST_F (SelectionDialogTest, PickByTextReachesEntriesUnderClosedGroups)
{
    Dialog dialog (data, nullptr);
    EXPECT_EQ (Play (dialog, {Rb::MakeChooseByTextStep ("No such entry"), Rb::MakeChooseByTextStep ("Green roof")}),
               "-Walls | -Roofs | Doors => Green roof");
    Dialog again (data, nullptr);
    EXPECT_EQ (Play (again, {Rb::MakeExpandByTextStep ("Walls", true), Step::MakeChoose (3)}),
               "*+Walls |   External wall |   Curtain wall | -Roofs | Doors => Curtain wall");
}

TEST_F (SelectionDialogTest, CancelKeepsThePreselectionAndEntriesMarkIt)
{
    data.SetSelectedItemIndices ({external});
    Dialog dialog (data, nullptr);
    dialog.SetExpandedGroups ({walls});
    std::string entries;
    FunctionRunner runner ([&] (Dialog& d) {
        for (const Wg::ModalEntry& e : d.GetEntries ()) entries += std::to_string (e.level) + (e.checked ? "x" : "") + " ";
        entries += "initial=" + std::to_string (d.GetInitialEntry ()) + " highlighted=" + std::to_string (d.GetHighlightedRow ());
    });
    Wg::SetModalRunner (&runner);
    EXPECT_FALSE (dialog.Invoke ());
    EXPECT_EQ (entries, "0 1x 1 0 0 initial=2 highlighted=2");
    EXPECT_EQ (data.Selected (), "External wall");
}

TEST_F (SelectionDialogTest, AnEmptyDataShowsNothingAndPicksNothing)
{
    RbTest::TextData empty;
    Dialog dialog (empty, nullptr);
    for (const Step& step : {Step::MakeChoose (1), Step::MakeAccept (), Step::MakeSearch ("x"), Step::MakeAccept ()}) Runner ().Queue (step);
    EXPECT_FALSE (dialog.Invoke ());
    EXPECT_TRUE (dialog.GetRows ().empty ());
    EXPECT_TRUE (empty.GetSelectedItemIndices ().IsEmpty ());
}

TEST_F (SelectionDialogTest, TheDialogsResourcesExist)
{
    EXPECT_EQ (Rb::GetResourceCommonString (5), "Select");
    for (int id : {Rb::InformationIconId, Rb::ItemsHiddenIconId, Rb::FilterActiveIconId, Rb::TreeGroupIconId, Rb::TreeLeafIconId})
        EXPECT_FALSE (Rb::GetResourceIcon (id).IsEmpty ()) << id;
    EXPECT_TRUE (Rb::GetResourceIcon (4242).IsEmpty ());
}

}   // namespace
