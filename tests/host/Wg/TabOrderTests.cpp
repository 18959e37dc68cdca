// Tab and Shift+Tab: through the controls laid over the selected row, then on to the next
// row, never out of a list box; elsewhere through the panel's focusable items.

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Wg/ListBox.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/Panel.hpp"
#include "Wg/TextEdit.hpp"

namespace {

using Wg::Rect;

constexpr short ColumnCount = 4;
constexpr short RowCount = 6;
constexpr short DisabledRow = 3;
constexpr int   EditHeight = 16;

// Lays shared edits over the selected row as an owner of in-place controls does: which
// columns get one depends on the row. It also writes the list's events into a log, with the
// row that was selected when a commit arrived.
class RowPlacer : public Wg::ListBoxObserver, public Wg::TextEditObserver {
public:
    RowPlacer (Wg::Panel& panel, Wg::ListBox& listBox) : listBox (listBox)
    {
        for (short column = 1; column <= ColumnCount; ++column) {
            edits[column] = std::make_unique<Wg::TextEdit> (panel, Rect (0, 0, 40, EditHeight));
            edits[column]->Hide ();
            edits[column]->SetAutoUpdate (false);
            edits[column]->Attach (*this);
        }
    }

    // Row -> the columns that carry an edit.
    std::map<short, std::vector<short>> layout;
    std::string                         log;

    void ListBoxSelectionChanged (const Wg::ListBoxSelectionEvent& event) override
    {
        Add ("sel:" + std::to_string (event.GetListItem ()));
        for (short column : layout[event.GetListItem ()]) listBox.SetOnTabItem (column, *edits[column]);
    }
    void TextEditChanged (const Wg::TextEditChangeEvent& event) override
    {
        Add ("commit:" + event.GetSource ()->GetText ().ToUtf8 () + "@" + std::to_string (listBox.GetSelectedItem ()));
    }

    Wg::TextEdit& Edit (short column) { return *edits[column]; }

    // "2:c3": the selected row and where the focus is (cN: the edit over column N, "list": the
    // list box, "out": an item outside it, "-": nowhere).
    std::string Where () const
    {
        const Wg::Item* focused = listBox.GetPanel ().GetFocusedItem ();
        std::string where = focused == nullptr ? "-" : focused == &listBox ? "list" : "out";
        for (const auto& [column, edit] : edits)
            if (focused == edit.get ()) where = "c" + std::to_string (column) + (edit->IsVisible () ? "" : "(hidden)");
        return std::to_string (listBox.GetSelectedItem ()) + ":" + where;
    }

private:
    void Add (const std::string& entry) { log += (log.empty () ? "" : " ") + entry; }

    Wg::ListBox&                                        listBox;
    std::map<short, std::unique_ptr<Wg::TextEdit>>      edits;
};

class TabOrderTest : public ::testing::Test {
protected:
    TabOrderTest ()
    {
        listBox.SetTabFieldCount (ColumnCount);
        for (short column = 1; column <= ColumnCount; ++column)
            listBox.SetTabFieldBeginEndPosition (column, static_cast<short> ((column - 1) * 50), static_cast<short> (column * 50));
        for (short row = 1; row <= RowCount; ++row) listBox.AppendItem ();
        listBox.DisableItem (DisabledRow);
        // Row 2 has no edit (a check box row); row 4 has its edit in another column.
        placer.layout = {{1, {2, 4}}, {2, {}}, {3, {2}}, {4, {3}}, {5, {2, 3}}, {6, {1, 4}}};
        listBox.Attach (placer);
    }
    ~TabOrderTest () override { listBox.Detach (placer); }

    // Presses Tab (or Shift+Tab) count times and writes where the focus was after each.
    std::string Tabs (int count, bool backward = false)
    {
        std::string out;
        for (int i = 0; i < count; ++i) {
            const bool used = panel.KeyPress (Wg::Key::Code (Wg::Key::Tab, 0, backward ? Wg::Key::ShiftFlag : 0));
            out += (out.empty () ? "" : " ") + placer.Where () + (used ? "" : "(unused)");
        }
        return out;
    }

    std::string TakeLog ()
    {
        std::string taken;
        taken.swap (placer.log);
        return taken;
    }

    Wg::Panel    panel {Rect (0, 0, 400, 300)};
    Wg::TextEdit before {panel, Rect (0, 0, 80, 20)};
    // Five rows fit (frame 1 + 5 * 20 + 1, with room to spare for less than a sixth): row 6
    // lies below the view at first.
    Wg::ListBox  listBox {panel, Rect (0, 30, 220, 142)};
    Wg::TextEdit after {panel, Rect (0, 200, 80, 20)};
    RowPlacer    placer {panel, listBox};
};

TEST_F (TabOrderTest, TabVisitsTheRowsEditsThenTheNextEnabledRowsFirstAndStopsAtTheLast)
{
    listBox.Click (1, Wg::Point (60, 5));
    ASSERT_EQ (placer.Where (), "1:c2");
    TakeLog ();
    // A row without an edit leaves the keyboard with the list box; the disabled row is passed
    // over; the row below the view is scrolled in, so its edit can take the focus.
    EXPECT_EQ (Tabs (9), "1:c4 2:list 4:c3 5:c2 5:c3 6:c1 6:c4 6:c4 6:c4");
    EXPECT_EQ (TakeLog (), "sel:2 sel:4 sel:5 sel:6");
    EXPECT_EQ (listBox.GetScrollPosition (), 2);
}

TEST_F (TabOrderTest, ShiftTabGoesBackToThePreviousRowsLastEditAndStopsAtTheFirst)
{
    listBox.UserSelect (6);
    listBox.ScrollIntoView (6);
    placer.Edit (4).SetFocus ();
    EXPECT_EQ (Tabs (9, true), "6:c1 5:c3 5:c2 4:c3 2:list 1:c4 1:c2 1:c2 1:c2");
    EXPECT_EQ (listBox.GetScrollPosition (), 1);
}

TEST_F (TabOrderTest, FromTheListBoxItselfTabEntersTheRowAndShiftTabLeavesIt)
{
    listBox.Click (5, Wg::Point (10, 5));   // on the label: the list box keeps the focus
    ASSERT_EQ (placer.Where (), "5:list");
    EXPECT_EQ (Tabs (1), "5:c2");
    listBox.SetFocus ();
    EXPECT_EQ (Tabs (1, true), "4:c3");

    // With no row selected, Tab starts at the first enabled row, Shift+Tab at the last.
    listBox.UserSelect (Wg::ListBox::NoRow);
    listBox.SetFocus ();
    EXPECT_EQ (Tabs (1), "1:c2");
    listBox.UserSelect (Wg::ListBox::NoRow);
    listBox.SetFocus ();
    EXPECT_EQ (Tabs (1, true), "6:c4");
}

TEST_F (TabOrderTest, TypingIsCommittedOnItsOwnRowBeforeTheNextRowIsSelected)
{
    listBox.Click (1, Wg::Point (160, 5));
    TakeLog ();
    placer.Edit (4).UserType ("12");
    EXPECT_EQ (Tabs (1), "2:list");
    // Committed while row 1 was still the selected one, and once only.
    EXPECT_EQ (TakeLog (), "commit:12@1 sel:2");

    listBox.Click (5, Wg::Point (60, 5));
    TakeLog ();
    placer.Edit (2).UserType ("x");
    EXPECT_EQ (Tabs (1), "5:c3");
    EXPECT_EQ (TakeLog (), "commit:x@5");
    placer.Edit (3).UserType ("y");
    EXPECT_EQ (Tabs (1, true), "5:c2");
    EXPECT_EQ (TakeLog (), "commit:y@5");
}

TEST_F (TabOrderTest, OutsideAListTabWalksTheFocusableItemsByIdAndWraps)
{
    // The edits standing on a row belong to the list box's order, not to the panel's.
    listBox.Click (1, Wg::Point (60, 5));
    before.SetFocus ();
    EXPECT_EQ (Tabs (1), "1:list");
    before.SetFocus ();
    EXPECT_EQ (Tabs (1, true), "1:out");
    EXPECT_EQ (panel.GetFocusedItem (), &after);
    EXPECT_EQ (Tabs (1), "1:out");
    EXPECT_EQ (panel.GetFocusedItem (), &before);

    // Nothing focused yet: the first item in the order.
    panel.SetFocusedItem (nullptr);
    EXPECT_EQ (Tabs (1), "1:out");
    EXPECT_EQ (panel.GetFocusedItem (), &before);

    // A hidden or disabled item is no stop; a Tab with the command modifier is not traversal.
    listBox.Disable ();
    after.Hide ();
    EXPECT_EQ (Tabs (1), "1:out");
    EXPECT_EQ (panel.GetFocusedItem (), &before);
    EXPECT_FALSE (panel.KeyPress (Wg::Key::Code (Wg::Key::Tab, 0, Wg::Key::CommandFlag)));
}

TEST_F (TabOrderTest, AKeyboardHandlerThatTakesTabKeepsItFromTheTraversal)
{
    class TabEater : public Wg::KeyboardHandler {
    public:
        Wg::KeyResult KeyPressed (const Wg::Key::Code& key, Wg::Item**) override
        {
            return key.GetCode () == Wg::Key::Tab ? Wg::KeyHandled : Wg::KeyNotHandled;
        }
        Wg::KeyResult KeyPressed (const Wg::Key::Modifier&, Wg::Item**) override { return Wg::KeyNotHandled; }
    } eater;
    listBox.Click (1, Wg::Point (60, 5));
    panel.InstallKeyboardHandler (eater);
    EXPECT_EQ (Tabs (1), "1:c2");
    panel.RemoveKeyboardHandler (eater);
    EXPECT_EQ (Tabs (1), "1:c4");
}

// Destroys the list box from inside the commit that Tab causes (an "apply and close" edit).
TEST (TabOrderLifeTest, ACommitThatDestroysTheListBoxEndsTheTab)
{
    Wg::Panel panel {Rect (0, 0, 300, 200)};
    auto listBox = std::make_unique<Wg::ListBox> (panel, Rect (0, 0, 200, 100));
    listBox->SetTabFieldCount (1);
    listBox->SetTabFieldBeginEndPosition (1, 0, 100);
    listBox->AppendItem ();
    listBox->AppendItem ();
    Wg::TextEdit edit (panel, Rect (0, 0, 60, EditHeight));
    edit.SetAutoUpdate (false);
    class Closer : public Wg::TextEditObserver {
    public:
        std::unique_ptr<Wg::ListBox>* owner = nullptr;
        void TextEditChanged (const Wg::TextEditChangeEvent&) override { owner->reset (); }
    } closer;
    closer.owner = &listBox;
    edit.Attach (closer);
    listBox->SelectItem (1);
    listBox->SetOnTabItem (1, edit);
    edit.SetFocus ();
    edit.UserType ("1");
    // The list box went with its row: the edit it laid out is hidden, and with no other stop
    // on the panel the key is left unused.
    EXPECT_FALSE (panel.KeyPress (Wg::Key::Code (Wg::Key::Tab)));
    EXPECT_EQ (listBox, nullptr);
    EXPECT_EQ (panel.GetFocusedItem (), nullptr);
    EXPECT_FALSE (edit.IsVisible ());
    edit.Detach (closer);
}

}   // namespace
