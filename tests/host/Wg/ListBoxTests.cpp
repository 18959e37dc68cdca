#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "RecordingPeer.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace {

using Wg::ListBox;
using Wg::Point;
using Wg::Rect;

std::string RectText (const Rect& r)
{
    return "(" + std::to_string (r.left) + "," + std::to_string (r.top) + "," + std::to_string (r.right) + "," + std::to_string (r.bottom) + ")";
}

// A control that can take the focus, standing in for an edit laid over a cell.
class FakeEdit : public Wg::Item {
public:
    FakeEdit (const Wg::Panel& panel, int width, int height) : Item (panel, Rect (0, 0, width, height)) {}
    bool IsFocusable () const override { return true; }
};

// Writes every list-box event into a log: "sel:2 click:2(30,4)".
class EventLog : public Wg::ListBoxObserver {
public:
    void ListBoxSelectionChanged (const Wg::ListBoxSelectionEvent& e) override { Add ("sel:" + std::to_string (e.GetListItem ())); }
    void ListBoxClicked (const Wg::ListBoxClickEvent& e) override
    {
        Add ("click:" + std::to_string (e.GetListItem ()) + "(" + std::to_string (e.GetMouseOffset ().x) + "," + std::to_string (e.GetMouseOffset ().y) + ")");
    }
    void ListBoxDoubleClicked (const Wg::ListBoxDoubleClickEvent& e) override { Add ("dbl:" + std::to_string (e.GetListItem ())); }
    void ListBoxHeaderItemResized (const Wg::ListBoxHeaderItemResizeEvent& e) override
    {
        Add ("hdr:" + std::to_string (e.GetHeaderItem ()) + "=" + std::to_string (e.GetNewSize ()));
    }
    void ListBoxTabFieldUpdate (const Wg::ListBoxTabItemUpdateEvent& e) override
    {
        Add ("tab:" + std::to_string (e.GetListItem ()) + "," + std::to_string (e.GetTabFieldIndex ()));
        e.GetDrawContext ()->FillRect (e.GetRect (), Gfx::Color (255, 0, 0));
    }
    void ListBoxItemUpdate (const Wg::ListBoxItemUpdateEvent& e) override
    {
        Add ("row:" + std::to_string (e.GetListItem ()));
        e.GetDrawContext ()->FrameRect (e.GetRect (), Gfx::Color (0, 0, 255));
    }
    void ListBoxOverlayUpdate (const Wg::ListBoxOverlayUpdateEvent& e) override { Add ("overlay" + RectText (e.GetRect ())); }

    void Add (const std::string& entry) { log += (log.empty () ? "" : " ") + entry; }
    std::string Take () { std::string taken; taken.swap (log); return taken; }

    std::string           log;
};

class ListBoxTest : public ::testing::Test {
protected:
    // Rows of n: "1:a|b 2*:c 3~:" (* selected, ~ greyed; texts of columns 1..count joined by |).
    static std::string Rows (const ListBox& listBox)
    {
        std::string out;
        for (short row = 1; row <= listBox.GetItemCount (); ++row) {
            if (!out.empty ()) out += ' ';
            out += std::to_string (row);
            if (listBox.GetSelectedItem () == row) out += '*';
            if (!listBox.IsItemEnabled (row)) out += '~';
            out += ':';
            for (short column = 1; column <= listBox.GetTabFieldCount (); ++column)
                out += (column > 1 ? "|" : "") + listBox.GetTabItemText (row, column).ToUtf8 ();
        }
        return out;
    }

    static void Fill (ListBox& listBox, short count)
    {
        for (short row = 1; row <= count; ++row) {
            listBox.AppendItem ();
            listBox.SetTabItemText (row, 1, Kor::UniString::Printf ("r%d", row));
        }
    }

    // Where an on-tab item stands: "hidden" or its rectangle.
    static std::string Placement (const Wg::Item& item)
    {
        return item.IsVisible () ? RectText (item.GetRect ()) : "hidden";
    }

    Wg::Panel panel {Rect (0, 0, 400, 300)};
    EventLog  events;
};

TEST_F (ListBoxTest, ClickSelectsThenReports)
{
    ListBox listBox (panel, Rect (0, 0, 200, 100));
    listBox.SetTabFieldCount (1);
    Fill (listBox, 3);
    listBox.Attach (events);

    listBox.Click (2, Point (30, 4));
    EXPECT_EQ (events.Take (), "sel:2 click:2(30,4)");
    EXPECT_TRUE (listBox.IsFocused ());

    // The selected row again: no selection event; a double click only reports itself.
    listBox.Click (2, Point (31, 5));
    listBox.DoubleClick (2, Point (31, 5));
    EXPECT_EQ (events.Take (), "click:2(31,5) dbl:2");

    // No row, or a disabled list box: nothing happens.
    listBox.Click (0, Point ());
    listBox.Click (4, Point ());
    listBox.Disable ();
    listBox.Click (1, Point ());
    EXPECT_EQ (events.Take (), "");
    EXPECT_EQ (Rows (listBox), "1:r1 2*:r2 3:r3");

    // A click on a greyed row selects it too: the owner decides what it means.
    listBox.Enable ();
    listBox.DisableItem (3);
    listBox.Click (3, Point ());
    EXPECT_EQ (events.Take (), "sel:3 click:3(0,0)");
    listBox.Detach (events);
}

TEST_F (ListBoxTest, ClickOnAnotherRowCommitsThenMovesTheEditingControl)
{
    ListBox listBox (panel, Rect (0, 0, 200, 100));
    listBox.SetTabFieldCount (2);
    listBox.SetTabFieldBeginEndPosition (2, 50, 150);
    Fill (listBox, 3);
    // Stands in for the list box's owner: the edit loses the focus (and commits) while row 1 is
    // still selected, then the owner places it on the new row, and the focus returns to it.
    struct Owner : Wg::ListBoxObserver {
        ListBox*    listBox = nullptr;
        Wg::Item*   edit = nullptr;
        std::string log;
        void ListBoxSelectionChanged (const Wg::ListBoxSelectionEvent& e) override
        {
            log += "sel:" + std::to_string (e.GetListItem ()) + (edit->IsVisible () ? "(edit shown)" : "(edit gone)") + " ";
            listBox->SetOnTabItem (2, *edit);
        }
    };
    struct CommittingEdit : FakeEdit {
        CommittingEdit (const Wg::Panel& panel, ListBox& listBox, std::string& log) : FakeEdit (panel, 60, 16), listBox (listBox), log (log) {}
        void FocusChanged (bool gained) override
        {
            if (!gained) log += "commit@" + std::to_string (listBox.GetSelectedItem ()) + " ";
        }
        ListBox&     listBox;
        std::string& log;
    };
    Owner owner;
    CommittingEdit edit (panel, listBox, owner.log);
    owner.listBox = &listBox;
    owner.edit = &edit;
    listBox.SelectItem (1);
    listBox.SetOnTabItem (2, edit);
    listBox.Attach (owner);
    edit.SetFocus ();

    listBox.Click (2, Point (60, 3));
    EXPECT_EQ (owner.log, "commit@1 sel:2(edit gone) ");
    EXPECT_TRUE (edit.IsFocused ());
    EXPECT_EQ (Placement (edit), "(52,23,112,39)");
    listBox.Detach (owner);

    // A programmatic change of row takes the items away too; nobody places them again here.
    listBox.SelectItem (3);
    EXPECT_EQ (Placement (edit), "hidden");
    EXPECT_EQ (listBox.GetOnTabItem (2), nullptr);

    // Any other focus goes to the list box.
    panel.SetFocusedItem (nullptr);
    listBox.Click (3, Point (60, 3));
    EXPECT_TRUE (listBox.IsFocused ());
}

TEST_F (ListBoxTest, ACommitThatTakesTheRowsLeavesNothingSelected)
{
    ListBox listBox (panel, Rect (0, 0, 200, 100));
    listBox.SetTabFieldCount (2);
    Fill (listBox, 3);
    // The edit's owner rebuilds the list box with one row when the typing is committed.
    struct RebuildingEdit : FakeEdit {
        RebuildingEdit (const Wg::Panel& panel, ListBox& listBox) : FakeEdit (panel, 60, 16), listBox (listBox) {}
        void FocusChanged (bool gained) override
        {
            if (gained) return;
            listBox.RemoveAllOnTabItems ();
            listBox.DeleteAllItems ();
            Fill (listBox, 1);
        }
        ListBox& listBox;
    };
    RebuildingEdit edit (panel, listBox);
    listBox.SelectItem (1);
    listBox.SetOnTabItem (2, edit);
    edit.SetFocus ();

    listBox.Click (3, Point (60, 3));
    EXPECT_EQ (Rows (listBox), "1:r1|");
    EXPECT_EQ (listBox.GetSelectedItem (), 0);
}

TEST_F (ListBoxTest, ObserverDestroyingTheListBoxEndsTheClick)
{
    auto listBox = std::make_unique<ListBox> (panel, Rect (0, 0, 200, 100));
    Fill (*listBox, 2);
    struct Destroyer : Wg::ListBoxObserver {
        std::unique_ptr<ListBox>* owner = nullptr;
        int clicks = 0;
        void ListBoxSelectionChanged (const Wg::ListBoxSelectionEvent&) override { owner->reset (); }
        void ListBoxClicked (const Wg::ListBoxClickEvent&) override { ++clicks; }
    } destroyer;
    destroyer.owner = &listBox;
    listBox->Attach (destroyer);
    listBox->Click (1, Point ());
    EXPECT_EQ (listBox, nullptr);
    EXPECT_EQ (destroyer.clicks, 0);
}

TEST_F (ListBoxTest, GeometryWithHeaderAndScrollBar)
{
    // Client area: (11, 39) to (193, 179): 182 wide, 140 high, 7 rows of 20.
    ListBox listBox (panel, Rect (10, 20, 210, 180), 0, ListBox::VScroll, true);
    listBox.SetTabFieldCount (2);
    listBox.SetTabFieldBeginEndPosition (2, 30, 90);
    Fill (listBox, 10);
    listBox.SetScrollPosition (2);
    EXPECT_EQ (RectText (listBox.GetRowsRect ()), "(11,39,193,179)");
    EXPECT_EQ (listBox.GetItemWidth (), 182);
    EXPECT_EQ (listBox.GetVisibleRowCount (), 7);
    EXPECT_EQ (RectText (listBox.GetItemRect (5)), "(0,60,182,80)");
    EXPECT_EQ (RectText (listBox.GetCellRect (5, 2)), "(30,60,90,80)");
    EXPECT_EQ (listBox.GetRowAt (65), 5);
    EXPECT_EQ (listBox.GetRowAt (140), 9);
    EXPECT_EQ (listBox.GetRowAt (-1), 0);

    // Scrolling is clamped to the last full page (rows 4..10).
    listBox.SetScrollPosition (9);
    EXPECT_EQ (listBox.GetScrollPosition (), 4);
    listBox.SetScrollPosition (-3);
    EXPECT_EQ (listBox.GetScrollPosition (), 1);

    ListBox plain (panel, Rect (10, 20, 210, 180), 0, ListBox::NoScroll, false);
    EXPECT_EQ (RectText (plain.GetRowsRect ()), "(11,21,209,179)");
    EXPECT_EQ (plain.GetScrollPosition (), 0);
}

TEST_F (ListBoxTest, OnTabItemStandsOverTheSelectedRow)
{
    FakeEdit edit (panel, 50, 16);
    // Without a header, at scroll position 1: x = 10 + 1 + 30 + 1, row 3 top = 21 + 2 * 20.
    {
        ListBox listBox (panel, Rect (10, 20, 210, 120), 0, ListBox::VScroll, false);
        listBox.SetTabFieldCount (2);
        listBox.SetTabFieldBeginEndPosition (2, 30, 90);
        Fill (listBox, 6);
        listBox.SetOnTabItem (2, edit);
        EXPECT_EQ (Placement (edit), "hidden");
        // On-tab items belong to the selected row: selecting drops them, the owner places them.
        listBox.SelectItem (3);
        EXPECT_EQ (Placement (edit), "hidden");
        listBox.SetOnTabItem (2, edit);
        EXPECT_EQ (Placement (edit), "(42,63,92,79)");
    }
    // The list box does not own it, and hides it when it goes.
    EXPECT_EQ (Placement (edit), "hidden");

    // With a header (rows from y = 39, 7 in view), scrolled to row 2: row 3 top = 39 + 20.
    ListBox listBox (panel, Rect (10, 20, 210, 180), 0, ListBox::VScroll, true);
    listBox.SetTabFieldCount (2);
    listBox.SetTabFieldBeginEndPosition (2, 30, 90);
    Fill (listBox, 10);
    listBox.SetScrollPosition (2);
    listBox.SelectItem (3);
    listBox.SetOnTabItem (2, edit);
    std::string trail = Placement (edit);

    listBox.UserScroll (4);                 // row 3 above the view
    trail += " " + Placement (edit);
    listBox.UserScroll (1);                 // rows 1..7
    trail += " " + Placement (edit);
    listBox.UserScroll (2);                 // rows 2..8: row 3 in view again
    trail += " " + Placement (edit);
    listBox.SetScrollPosition (1);
    listBox.SetTabFieldBeginEndPosition (2, 40, 90);
    trail += " " + Placement (edit);
    listBox.SetItemHeight (24);
    trail += " " + Placement (edit);
    listBox.Move (5, 5);
    trail += " " + Placement (edit);
    listBox.Hide ();
    trail += " " + Placement (edit);
    listBox.Show ();
    trail += " " + Placement (edit);
    EXPECT_EQ (trail, "(42,61,92,77) hidden (42,81,92,97) (42,61,92,77) (52,81,102,97) (52,91,102,107) (57,96,107,112) hidden (57,96,107,112)");
    EXPECT_EQ (listBox.GetOnTabItem (2), &edit);
}

TEST_F (ListBoxTest, OnTabItemsMoveAndLeaveColumns)
{
    ListBox listBox (panel, Rect (0, 0, 300, 100));
    listBox.SetTabFieldCount (4);
    for (short column = 1; column <= 4; ++column) listBox.SetTabFieldBeginEndPosition (column, short (column * 50), short (column * 50 + 50));
    Fill (listBox, 2);
    listBox.SelectItem (1);
    FakeEdit a (panel, 40, 20), b (panel, 40, 20);

    listBox.SetOnTabItem (2, a);
    listBox.SetOnTabItem (4, a);            // moves: column 2 is free again
    EXPECT_EQ (listBox.GetOnTabItem (2), nullptr);
    EXPECT_EQ (listBox.GetOnTabItemColumn (a), 4);
    EXPECT_EQ (Placement (a), "(202,1,242,21)");

    listBox.SetOnTabItem (4, b);            // replaces a, which must not stay on screen
    EXPECT_FALSE (listBox.IsOnTabItem (a));
    EXPECT_EQ (Placement (a), "hidden");
    EXPECT_EQ (Placement (b), "(202,1,242,21)");

    listBox.RemoveOnTabItem (4);
    EXPECT_EQ (listBox.GetOnTabItem (4), nullptr);
    EXPECT_EQ (Placement (b), "hidden");
    listBox.SelectItem (2);
    EXPECT_EQ (Placement (b), "hidden");

    // Dropping a column drops its item; bad requests are ignored.
    listBox.SetOnTabItem (3, a);
    listBox.SetTabFieldCount (2);
    EXPECT_FALSE (listBox.IsOnTabItem (a));
    listBox.SetOnTabItem (0, b);
    listBox.SetOnTabItem (3, b);
    listBox.SetOnTabItem (1, listBox);
    Wg::Panel otherPanel;
    FakeEdit foreign (otherPanel, 40, 20);
    listBox.SetOnTabItem (1, foreign);
    EXPECT_EQ (listBox.GetOnTabItem (1), nullptr);
    EXPECT_EQ (a.GetObserverCount () + b.GetObserverCount (), 0u);
}

TEST_F (ListBoxTest, DestroyedOnTabItemIsForgotten)
{
    ListBox listBox (panel, Rect (0, 0, 300, 100));
    listBox.SetTabFieldCount (2);
    Fill (listBox, 3);
    listBox.SelectItem (1);
    auto edit = std::make_unique<FakeEdit> (panel, 40, 16);
    listBox.SetOnTabItem (2, *edit);
    edit.reset ();
    EXPECT_EQ (listBox.GetOnTabItem (2), nullptr);
    // Placing again must not touch the dead item (the sanitizer build would catch it).
    listBox.SelectItem (2);
    listBox.SetTabFieldBeginEndPosition (2, 10, 20);
    FakeEdit next (panel, 40, 16);
    listBox.SetOnTabItem (2, next);
    EXPECT_EQ (Placement (next), "(12,23,52,39)");
}

TEST_F (ListBoxTest, DeletionAdjustsSelectionAndScroll)
{
    // 5 rows in view.
    ListBox listBox (panel, Rect (0, 0, 200, 102), 0, ListBox::VScroll);
    listBox.SetTabFieldCount (1);
    Fill (listBox, 10);
    listBox.SelectItem (7);
    listBox.SetScrollPosition (6);
    std::string trail;
    const auto note = [&] { trail += (trail.empty () ? "" : " ") + std::to_string (listBox.GetSelectedItem ()) + "@" + std::to_string (listBox.GetScrollPosition ()); };
    note ();
    listBox.DeleteItem (2);                 // above: selection follows its row, scroll clamps to 10 - 1 - 5 + 1
    note ();
    listBox.InsertItem (1);                 // above again
    note ();
    listBox.DeleteItem (7);                 // the selected row
    note ();
    listBox.DeleteItem (0);
    listBox.DeleteItem (11);
    note ();
    listBox.DeleteAllItems ();
    note ();
    listBox.AppendItem ();
    note ();
    EXPECT_EQ (trail, "7@6 6@5 7@5 0@5 0@5 0@0 0@1");
}

TEST_F (ListBoxTest, HeaderFollowsTabFieldsWhenSynchronised)
{
    ListBox listBox (panel, Rect (0, 0, 300, 100), 0, ListBox::VScroll, true);
    listBox.Attach (events);
    listBox.SetTabFieldCount (3);
    listBox.SetTabFieldBeginEndPosition (1, 0, 20);
    listBox.SetTabFieldBeginEndPosition (2, 20, 100);
    listBox.SetTabFieldBeginEndPosition (3, 100, 180);
    listBox.SetHeaderItemMinSize (2, 40);
    listBox.SetHeaderItemResizable (2, true);
    const auto header = [&] {
        std::string out;
        for (short i = 1; i <= listBox.GetHeaderItemCount (); ++i)
            out += (i > 1 ? " " : "") + std::to_string (listBox.GetHeaderItemSize (i)) + "@" + std::to_string (listBox.GetTabFieldBeginPosition (i));
        return out;
    };
    EXPECT_TRUE (listBox.GetHeaderSynchronState ());
    EXPECT_EQ (listBox.GetHeaderHeight (), 18);
    EXPECT_EQ (header (), "20@0 80@20 80@100");

    // Dragging item 2 moves the end of field 2; field 3 keeps its width.
    listBox.UserResizeHeaderItem (2, 100);
    EXPECT_EQ (header (), "20@0 100@20 80@120");
    listBox.UserResizeHeaderItem (2, 10);   // below the minimum
    EXPECT_EQ (header (), "20@0 40@20 80@60");
    listBox.UserResizeHeaderItem (2, 30);   // still the minimum: no change, no event
    listBox.UserResizeHeaderItem (3, 10);   // fixed item
    EXPECT_EQ (events.Take (), "hdr:2=100 hdr:2=40");

    // Apart from the fields, items keep their own sizes and count.
    listBox.SetHeaderSynchronState (false);
    listBox.SetHeaderItemCount (2);
    listBox.SetTabFieldBeginEndPosition (1, 0, 30);
    listBox.UserResizeHeaderItem (2, 55);
    EXPECT_EQ (header (), "20@0 55@20");
    EXPECT_EQ (listBox.GetTabFieldWidth (2), 40);
    EXPECT_EQ (events.Take (), "hdr:2=55");
    listBox.Detach (events);
}

TEST_F (ListBoxTest, DrawSuspensionCollectsRowsIntoOneRedraw)
{
    ListBox listBox (panel, Rect (0, 0, 200, 100));
    listBox.SetTabFieldCount (2);
    Fill (listBox, 3);
    TestSupport::RecordingPeer peer;
    peer.AttachTo (listBox);
    const std::uint64_t before = listBox.GetRedrawCount ();

    listBox.SetTabItemText (2, 2, "x");
    listBox.SetTabItemText (2, 2, "x");     // unchanged: nothing
    listBox.RedrawItem (3);
    listBox.RedrawItem (4);                 // no such row
    EXPECT_EQ (peer.TakeLog (), "Row:2 Row:3");
    EXPECT_EQ (listBox.GetRedrawCount (), before + 1);

    listBox.DisableDraw ();
    listBox.DisableDraw ();
    listBox.DeleteAllItems ();
    listBox.AppendItem ();
    listBox.SetTabItemText (1, 1, "a");
    listBox.SetItemStatus (1, ListBox::Grayed);
    listBox.Redraw ();
    listBox.EnableDraw ();
    EXPECT_FALSE (listBox.IsDrawEnabled ());
    listBox.EnableDraw ();
    listBox.EnableDraw ();                  // unbalanced: ignored
    EXPECT_TRUE (listBox.IsDrawEnabled ());
    EXPECT_EQ (peer.TakeLog (), "Draw Scroll Scroll Rows Draw");
    EXPECT_EQ (listBox.GetRedrawCount (), before + 2);
    EXPECT_EQ (Rows (listBox), "1~:a|");
}

TEST_F (ListBoxTest, ASuspensionThatChangedAFewRowsRedrawsOnlyThose)
{
    // A keystroke handled under suspended drawing changes one row: the resume must not ask the
    // backend to paint the whole list.
    ListBox listBox (panel, Rect (0, 0, 200, 100));
    listBox.SetTabFieldCount (2);
    Fill (listBox, 40);
    TestSupport::RecordingPeer peer;
    peer.AttachTo (listBox);

    listBox.DisableDraw ();
    listBox.SetTabItemText (7, 2, "x");
    listBox.SetItemStatus (7, ListBox::Grayed);
    listBox.RedrawItem (3);
    listBox.EnableDraw ();
    EXPECT_EQ (peer.TakeLog (), "Draw Row:7 Row:3 Draw");

    // More rows than are worth one by one, a change of rows or a redraw of all: one Rows.
    listBox.DisableDraw ();
    for (short row = 1; row <= 30; ++row) listBox.SetTabItemText (row, 2, "y");
    listBox.EnableDraw ();
    EXPECT_EQ (peer.TakeLog (), "Draw Rows Draw");
    listBox.DisableDraw ();
    listBox.SetTabItemText (5, 2, "z");
    listBox.DeleteItem (40);
    listBox.EnableDraw ();
    EXPECT_EQ (peer.TakeLog (), "Draw Rows Draw");
    listBox.DisableDraw ();
    listBox.SetTabItemText (5, 2, "w");
    listBox.Redraw ();
    listBox.EnableDraw ();
    EXPECT_EQ (peer.TakeLog (), "Draw Rows Draw");
    // Outside a suspension a redraw asks for everything at once.
    listBox.Redraw ();
    EXPECT_EQ (peer.TakeLog (), "Draw:" + std::to_string (ListBox::RedrawAll));
}

TEST_F (ListBoxTest, PaintsCellsAndAsksOwnersForTheirs)
{
    // Rows area (1,1)-(199,99): rows 198 wide.
    ListBox listBox (panel, Rect (0, 0, 200, 100), 0, ListBox::NoScroll);
    listBox.SetTabFieldCount (4);
    listBox.SetTabFieldBeginEndPosition (1, 0, 20);
    listBox.SetTabFieldBeginEndPosition (2, 20, 120);
    listBox.SetTabFieldBeginEndPosition (3, 120, 170);
    listBox.SetTabFieldBeginEndPosition (4, 170, 198);
    listBox.SetTabFieldJustification (1, ListBox::Center);
    listBox.SetTabFieldJustification (3, ListBox::Right);
    listBox.SetTabFieldOwnerDrawFlag (4, true);
    listBox.EnableSeparatorLines (true);
    Fill (listBox, 2);
    listBox.SetTabItemText (1, 1, "");
    listBox.SetTabItemText (2, 1, "");
    listBox.SetTabItemIcon (1, 1, Wg::Icon (7, 3));
    listBox.SetTabItemText (1, 2, "Wall");
    listBox.SetTabItemText (1, 3, "2.50");
    listBox.SetItemStatus (1, ListBox::Grayed);
    listBox.SetItemOwnerDrawnFlag (2, true);
    listBox.SetItemFontStyle (2, Gfx::BoldFont);
    listBox.SetTabItemText (2, 2, "Height of the wall");
    listBox.SelectItem (2);
    listBox.Attach (events);

    Gfx::DrawingContext context;
    listBox.PaintRow (1, context);
    EXPECT_EQ (context.ToString (),
               "fill (0,0,198,20) #FFFFFF\n"
               "clip (0,0,20,20)\nicon 7:3 (2,2,18,18) greyed\nunclip\n"
               "clip (20,0,120,20)\ntext \"Wall\" (22,0,50,20) #8E939A greyed\nunclip\n"
               "clip (120,0,170,20)\ntext \"2.50\" (140,0,168,20) #8E939A greyed\nunclip\n"
               "clip (170,0,198,20)\nfill (170,0,198,20) #FF0000\nunclip\n"
               "line (0,19)-(198,19) #D9DCE1\n");
    EXPECT_EQ (events.Take (), "tab:1,4");

    // Selected, bold, cut at the cell's padding, and drawn by its owner on top.
    context.Clear ();
    listBox.PaintRow (2, context);
    EXPECT_EQ (context.ToString (),
               "fill (0,20,198,40) #C5D5E4\n"
               "clip (20,20,120,40)\ntext \"Height of the wall\" (22,20,118,40) #000000 bold\nunclip\n"
               "clip (170,20,198,40)\nfill (170,20,198,40) #FF0000\nunclip\n"
               "clip (0,20,198,40)\nframe (0,20,198,40) #0000FF\nunclip\n"
               "line (0,39)-(198,39) #D9DCE1\n");
    EXPECT_EQ (events.Take (), "tab:2,4 row:2");

    EXPECT_EQ (listBox.PaintCell (1, 4).ToString (), "fill (170,0,198,20) #FF0000\n");
    EXPECT_EQ (listBox.PaintCell (1, 3).ToString (), "text \"2.50\" (140,0,168,20) #8E939A greyed\n");
    EXPECT_TRUE (listBox.PaintCell (1, 5).IsEmpty ());
    events.Take ();

    listBox.PaintOverlay (context);
    EXPECT_EQ (events.Take (), "overlay(0,0,198,98)");
    listBox.Detach (events);
}

TEST_F (ListBoxTest, KeysMoveTheSelectionIntoView)
{
    ListBox listBox (panel, Rect (0, 0, 200, 102), 0, ListBox::VScroll);   // 5 rows in view
    Fill (listBox, 10);
    listBox.Attach (events);
    EXPECT_TRUE (listBox.HandleKey (Wg::Key::Code (Wg::Key::Down)));
    EXPECT_TRUE (listBox.HandleKey (Wg::Key::Code (Wg::Key::End)));
    EXPECT_EQ (listBox.GetScrollPosition (), 6);
    EXPECT_TRUE (listBox.HandleKey (Wg::Key::Code (Wg::Key::Down)));     // at the end: stays
    EXPECT_TRUE (listBox.HandleKey (Wg::Key::Code (Wg::Key::PageUp)));
    EXPECT_FALSE (listBox.HandleKey (Wg::Key::Code::Character (u'a')));
    EXPECT_EQ (events.Take (), "sel:1 sel:10 sel:5");
    EXPECT_EQ (listBox.GetScrollPosition (), 5);
    listBox.Detach (events);
}

TEST_F (ListBoxTest, InvalidArgumentsAreIgnored)
{
    ListBox listBox (panel, Rect (0, 0, 200, 100));
    listBox.SetTabFieldCount (2);
    Fill (listBox, 2);
    int value = 0;
    listBox.SetItemValue (3, &value);
    listBox.SetTabItemText (0, 1, "x");
    listBox.SetTabItemText (1, 3, "x");
    listBox.SetTabItemIcon (1, 0, Wg::Icon (1, 1));
    listBox.SetTabFieldBeginEndPosition (3, 1, 2);
    listBox.SetItemHeight (0);
    listBox.SetTabFieldCount (-1);
    listBox.SelectItem (3);
    listBox.SetHeaderItemSize (1, -5);
    EXPECT_EQ (listBox.InsertItem (4), 0);
    EXPECT_EQ (listBox.InsertItem (0), 0);
    EXPECT_EQ (Rows (listBox), "1:r1| 2:r2|");
    EXPECT_EQ (listBox.GetItemValue (0), nullptr);
    EXPECT_EQ (listBox.GetTabItemText (1, 3), "");
    EXPECT_TRUE (listBox.GetTabItemIcon (9, 1).IsEmpty ());
    EXPECT_FALSE (listBox.GetItemBackgroundColor (-1).has_value ());
    EXPECT_EQ (listBox.GetTabFieldBeginPosition (0) + listBox.GetTabFieldWidth (7) + listBox.GetHeaderItemSize (4), 0);
    EXPECT_EQ (listBox.GetItemHeight (), ListBox::DefaultItemHeight);
    EXPECT_TRUE (listBox.GetItemRect (3).IsEmpty ());

    // An inverted field is kept as given but is 0 wide.
    listBox.SetTabFieldBeginEndPosition (2, 80, 60);
    EXPECT_EQ (listBox.GetTabFieldEndPosition (2), 60);
    EXPECT_EQ (listBox.GetTabFieldWidth (2), 0);

    // Rows are 16-bit: a full list box refuses more.
    ListBox full (panel, Rect (0, 0, 200, 100));
    for (int i = 0; i < ListBox::MaxRowCount; ++i) full.AppendItem ();
    EXPECT_EQ (full.AppendItem (), 0);
    EXPECT_EQ (full.InsertItem (1), 0);
    EXPECT_EQ (full.GetItemCount (), ListBox::MaxRowCount);
}

}   // namespace
