// Column layout, refresh of single rows, clicks on the icon and triangle columns, tool tips and
// the automated-testing text access.

#include <gtest/gtest.h>

#include "AttributeListTestSupport.hpp"
#include "Kor/Assert.hpp"
#include "RecordingPeer.hpp"

namespace {

using namespace TxALTest;
using Params = AttributeList::OptionalParameters;

const Wg::Icon NoIcon;
// Frame on both sides and the vertical scroll bar: a list box this much wider has rows of the
// width asked for.
constexpr short FrameAndScrollBar = 2 * Wg::ListBox::FrameWidth + Wg::ListBox::ScrollBarWidth;

Params WithHeader ()
{
    return Params ().SetHeaderString1 ("Attribute").SetHeaderString2 ("Value");
}

std::string LayoutAt (const Params& params, short rowsWidth)
{
    ListHarness h (params, static_cast<short> (rowsWidth + FrameAndScrollBar));
    return DumpColumns (h.ListBox ());
}

// --- Layout ---

TEST (LayoutTest, WithoutHeaderTheLabelTakesOnlyAThirdOfTheWidthBeyondTheBase)
{
    // 287 + 20 + 120 is the base width: the ratio 0.64 holds exactly there.
    EXPECT_EQ (LayoutAt (Params (), 427), "1:0-20 2:20-60 3:60-203 4:203-307 5:307-407 6:407-427");
    // 100 more: the label grows by 30, the value by 70.
    EXPECT_EQ (LayoutAt (Params (), 527), "1:0-20 2:20-60 3:60-233 4:233-407 5:407-507 6:507-527");
    // 100 less: the bent ratio would leave the value 34 wide; the label pays the 6 missing.
    EXPECT_EQ (LayoutAt (Params (), 327), "1:0-20 2:20-60 3:60-167 4:167-207 5:207-307 6:307-327");
    EXPECT_EQ (LayoutAt (Params (), 30000), "1:0-20 2:20-60 3:60-9075 4:9075-29880 5:29880-29980 6:29980-30000");
}

TEST (LayoutTest, AHeaderOrKeepingTheRatioSharesByTheRatioAtEveryWidth)
{
    EXPECT_EQ (LayoutAt (WithHeader (), 527), "1:0-20 2:20-60 3:60-267 4:267-407 5:407-507 6:507-527");
    EXPECT_EQ (LayoutAt (Params ().SetKeepResizableColumnsRatio (true), 527), "1:0-20 2:20-60 3:60-267 4:267-407 5:407-507 6:507-527");
    // Header type 2 without titles is no header at all.
    EXPECT_EQ (LayoutAt (Params ().SetHeaderType (AttributeList::OwnHeader), 527), LayoutAt (Params (), 527));
    // Without group and icon columns both have zero width and the label starts at 0.
    EXPECT_EQ (LayoutAt (WithHeader ().SetHasGroupColumn (false).SetHasIconColumn (false), 427),
               "1:0-0 2:0-0 3:0-196 4:196-307 5:307-407 6:407-427");
}

TEST (LayoutTest, AVeryNarrowListKeepsTheValueMinimumAndLetsTheLabelGoNegative)
{
    EXPECT_EQ (LayoutAt (Params (), 260), "1:0-20 2:20-60 3:60-100 4:100-140 5:140-240 6:240-260");
    EXPECT_EQ (LayoutAt (Params (), 200), "1:0-20 2:20-60 3:60-40 4:40-80 5:80-180 6:180-200");
    EXPECT_EQ (LayoutAt (WithHeader (), 200), "1:0-20 2:20-60 3:60-40 4:40-80 5:80-180 6:180-200");
}

TEST (LayoutTest, DraggingTheHeaderStoresTheRatioOfLabelAndValue)
{
    // 306 wide: label 66, value 60. The label dragged to 100 gives (40 + 100) / (40 + 100 + 60).
    ListHarness synchronized (WithHeader (), 306 + FrameAndScrollBar);
    ASSERT_EQ (DumpColumns (synchronized.ListBox (), {3, 4}), "3:60-126 4:126-186");
    synchronized.ListBox ().UserResizeHeaderItem (3, 100);
    EXPECT_DOUBLE_EQ (synchronized.list->GetResizeableColumnsRatio (), 0.7);
    EXPECT_EQ (DumpColumns (synchronized.ListBox ()), "1:0-20 2:20-60 3:60-136 4:136-186 5:186-286 6:286-306");

    // An own header: the third item spans value, preview and check (180 = 60 + 120).
    ListHarness own (WithHeader ().SetHeaderType (AttributeList::OwnHeader), 306 + FrameAndScrollBar);
    const Wg::ListBox& header = own.ListBox ();
    EXPECT_FALSE (header.GetHeaderSynchronState ());
    EXPECT_EQ (header.GetHeaderItemText (2).ToUtf8 () + "/" + header.GetHeaderItemText (3).ToUtf8 (), "Attribute/Value");
    EXPECT_EQ (header.GetHeaderItemMinSize (3), 160);
    ASSERT_EQ (std::to_string (header.GetHeaderItemSize (1)) + " " + std::to_string (header.GetHeaderItemSize (2)) + " " +
                   std::to_string (header.GetHeaderItemSize (3)),
               "60 66 180");
    own.ListBox ().UserResizeHeaderItem (2, 100);
    EXPECT_DOUBLE_EQ (own.list->GetResizeableColumnsRatio (), 0.7);
    EXPECT_EQ (own.ListBox ().GetHeaderItemSize (2), 76);
}

TEST (LayoutTest, AListBindsThePanelsListBoxOrReportsAnIdThatNamesNone)
{
    Wg::Panel             panel (Wg::Rect (0, 0, 600, 400), ListHarness::NextPanelId ());
    Wg::SingleSelListBox  existing (panel, Wg::Rect::FromSize (0, 0, 427 + FrameAndScrollBar, 100), 77);
    AttributeList         bound (panel, 77);
    EXPECT_EQ (&bound.GetListBox (), &existing);
    EXPECT_EQ (DumpColumns (existing, {3, 4}), "3:60-203 4:203-307");

    Kor::ScopedAssertCapture capture;
    AttributeList            unbound (panel, 99);
    ASSERT_EQ (capture.GetCount (), 1u);
    EXPECT_EQ (capture.GetReports ().front ().file, "AttributeList");
    unbound.CreateLengthItem ("Len", NoIcon, 0, 10, 1, true, true, false);   // a list box of its own serves
    EXPECT_EQ (DumpRows (unbound), "1:Len|1.000 m");
}

// Setup of the list box: "rows=20 lines help=1 header=18 scroll=16 | 1:c 2:c 3:lt 4:lt 5:lo 6:c | 3:r40 4:r40".
std::string DumpSetup (const Wg::ListBox& listBox)
{
    std::string out = "rows=" + std::to_string (listBox.GetItemHeight ()) + (listBox.HasSeparatorLines () ? " lines" : "") +
                      " help=" + std::to_string (listBox.GetHelpStyle ()) + " header=" + std::to_string (listBox.GetHeaderHeight ()) +
                      " scroll=" + std::to_string (listBox.GetScrollType ()) + " |";
    for (short column = 1; column <= listBox.GetTabFieldCount (); ++column) {
        out += " " + std::to_string (column) + ":";
        const short justification = listBox.GetTabFieldJustification (column);
        out += justification == Wg::ListBox::Center ? "c" : justification == Wg::ListBox::Left ? "l" : "?";
        if (listBox.GetTabFieldTruncation (column) == Wg::ListBox::EndTruncation) out += "t";
        if (listBox.GetTabFieldOwnerDrawFlag (column)) out += "o";
    }
    out += " |";
    for (short item = 1; item <= listBox.GetHeaderItemCount (); ++item)
        if (listBox.IsHeaderItemResizable (item)) out += " " + std::to_string (item) + ":r" + std::to_string (listBox.GetHeaderItemMinSize (item));
    return out;
}

TEST (ConstructionTest, TheListBoxGetsItsRowsColumnsAndHeaderOnce)
{
    ListHarness plain;
    EXPECT_EQ (DumpSetup (plain.ListBox ()), "rows=20 lines help=1 header=0 scroll=16 | 1:c 2:c 3:lt 4:lt 5:lo 6:c |");
    ListHarness titled (WithHeader ().SetScrollType (Wg::ListBox::NoScroll));
    EXPECT_EQ (DumpSetup (titled.ListBox ()), "rows=20 lines help=1 header=18 scroll=0 | 1:c 2:c 3:lt 4:lt 5:lo 6:c | 3:r40 4:r40");
    EXPECT_EQ (titled.ListBox ().GetHeaderItemText (3).ToUtf8 () + "/" + titled.ListBox ().GetHeaderItemText (4).ToUtf8 (), "Attribute/Value");

    // The in-place edits take the text length and the update mode from the parameters.
    TxAL::OnTabItems& defaults = plain.list->GetOnTabItems ();
    EXPECT_EQ (defaults.GetTextEdit ().GetMaxLength (), 64);
    EXPECT_TRUE (defaults.GetTextEdit ().GetAutoUpdate () && defaults.GetIntEdit ().GetAutoUpdate () && defaults.GetSLForceEdit ().GetAutoUpdate ());
    ListHarness manual (Params ().SetTextEditMaxLength (12).SetEditControlAutoUpdate (false));
    TxAL::OnTabItems& set = manual.list->GetOnTabItems ();
    EXPECT_EQ (set.GetTextEdit ().GetMaxLength (), 12);
    EXPECT_FALSE (set.GetTextEdit ().GetAutoUpdate () || set.GetPosIntEdit ().GetAutoUpdate () || set.GetLengthEdit ().GetAutoUpdate ());
}

TEST (ConstructionTest, ShowingAtOnceIsAskedOfANewListBoxAndLeavesThePanelsOwnAsItWas)
{
    EXPECT_TRUE (ListHarness ().ListBox ().IsVisible ());
    EXPECT_FALSE (ListHarness (Params ().SetIsVisible (false)).ListBox ().IsVisible ());

    Wg::Panel            panel (Wg::Rect (0, 0, 600, 400), ListHarness::NextPanelId ());
    Wg::SingleSelListBox shown (panel, Wg::Rect::FromSize (0, 0, 300, 100), 41);
    Wg::SingleSelListBox hidden (panel, Wg::Rect::FromSize (0, 100, 300, 100), 42);
    hidden.Hide ();
    AttributeList onShown (panel, 41, Params ().SetIsVisible (false));
    AttributeList onHidden (panel, 42);
    EXPECT_EQ (std::string (shown.IsVisible () ? "shown" : "hidden") + " " + (hidden.IsVisible () ? "shown" : "hidden"), "shown shown");
}

// Checks at every change of the list box that the columns stay inside its rows.
class ColumnsInsidePeer : public Wg::ItemPeer {
public:
    explicit ColumnsInsidePeer (Wg::ListBox& listBox) : listBox (listBox) { listBox.SetPeer (this); }
    ~ColumnsInsidePeer () override { listBox.SetPeer (nullptr); }
    void Changed (Wg::Item&, Wg::Aspect aspect, int) override
    {
        if (aspect != Wg::Aspect::Rect && aspect != Wg::Aspect::Layout) return;
        const short end = listBox.GetTabFieldEndPosition (listBox.GetTabFieldCount ());
        if (end > listBox.GetItemWidth ()) outside += std::to_string (end) + ">" + std::to_string (listBox.GetItemWidth ()) + " ";
        sequence += aspect == Wg::Aspect::Rect ? "R" : "L";
    }
    void ItemDestroyed (Wg::Item&) override {}

    Wg::ListBox& listBox;
    std::string  outside;
    std::string  sequence;
};

TEST (LayoutTest, ShrinkingLaysOutBeforeTheBoxShrinksAndGrowingAfter)
{
    ListHarness       h;
    ColumnsInsidePeer peer (h.ListBox ());
    h.list->Resize (-100, 0);
    EXPECT_EQ (peer.sequence.front (), 'L');
    h.list->Resize (150, 10);
    EXPECT_EQ (peer.sequence.back (), 'L');
    h.list->SetRect (Wg::Rect::FromSize (0, 0, 300, 100));
    h.list->SetRect (Wg::Rect::FromSize (0, 0, 600, 100));
    EXPECT_EQ (peer.outside, "");
    EXPECT_EQ (h.ListBox ().GetTabFieldEndPosition (6), 600 - FrameAndScrollBar);
}

TEST (LayoutTest, ARescaledPanelPlacesTheControlsOfTheRowAgain)
{
    ListHarness h;
    h.list->CreateLengthItem ("Height", NoIcon, 0, 10, 2.5, true, true, false);
    h.ClickColumn (1, 3);
    ASSERT_EQ (h.Controls (), "sel=1 4:LengthEdit focus=ListBox");
    h.panel.SetScale (2.0);
    EXPECT_EQ (h.Controls (), "sel=1 4:LengthEdit focus=ListBox");
    EXPECT_EQ (h.list->GetOnTabItems ().GetLengthEdit ().GetRect ().left,
               h.ListBox ().GetRowsRect ().left + h.ListBox ().GetTabFieldBeginPosition (4) + Wg::ListBox::OnTabItemInset);
}

// --- Refresh of one row ---

class RowsTest : public ::testing::Test {
protected:
    void SetUp () override
    {
        h.list->AddListItem (a);
        length = h.list->CreateLengthItem ("Len", NoIcon, 0, 10, 1, true, true, false);
        group = h.list->CreateGroup ("G", NoIcon, true, true);
        master = group->CreateLengthItem (true, "M", NoIcon, 0, 10, 2, true, true, false);
        group->AddItem (child);
        peer.AttachTo (h.ListBox ());
        peer.TakeLog ();
    }

    ListHarness                    h;
    CountedItem                    a {"A", "1"};
    CountedItem                    child {"Child"};
    TxAL::AttributeListLengthItem* length = nullptr;
    TxAL::AttributeListLengthItem* master = nullptr;
    AttributeListGroupItem*        group = nullptr;
    TestSupport::RecordingPeer     peer;
};

TEST_F (RowsTest, ARefreshRedrawsOnlyTheItemsOwnRow)
{
    EXPECT_EQ (h.Rows (), "1:A|1 2:Len|1.000 m 3:▾G|2.000 m 4:  Child");
    a.SetName ("A2");
    EXPECT_EQ (peer.TakeLog (), "Row:1 Row:1");
    a.SetName ("A2");
    a.SetStatus (false);
    EXPECT_EQ (peer.TakeLog (), "Row:1 Row:1");
    master->SetValue (5);   // the master is drawn on its group's row
    EXPECT_EQ (peer.TakeLog (), "Row:3 Row:3");
    EXPECT_EQ (h.Rows (), "1:A2|1~ 2:Len|1.000 m 3:▾G|5.000 m 4:  Child");
}

TEST_F (RowsTest, EnablingOrDisablingAllItemsEndsWhenTheRefreshDestroysTheList)
{
    CountedItem late[2] = {CountedItem ("L1"), CountedItem ("L2")};
    for (const bool enable : {false, true}) {
        if (h.list == nullptr) {
            h.list = std::make_unique<TestList> (h.panel, 10, 10, 445, 200);
            h.list->AddListItem (a);
            h.list->FullRefreshList (true);
        }
        // Added without a rebuild: the refresh changes the row count and tells the observers.
        h.list->AddListItem (enable ? late[1] : late[0]);
        CallLog log;
        log.Watch (*h.list);
        log.onCall = [&] (const std::string&, const AttributeListItem*) { h.list.reset (); };
        if (enable)
            h.list->EnableAllItems ();
        else
            h.list->DisableAllItems ();
        EXPECT_EQ (h.list, nullptr);
        EXPECT_FALSE (a.InList ());
    }
}

TEST_F (RowsTest, NoRefreshDuringABatchOnAHiddenItemOrOnAHiddenList)
{
    h.list->DisableUpdate ();
    a.SetName ("Batch");
    EXPECT_EQ (peer.TakeLog (), "");
    h.list->EnableUpdate ();
    EXPECT_EQ (h.Rows (), "1:A|1 2:Len|1.000 m 3:▾G|2.000 m 4:  Child");
    child.SetVisibility (false);
    peer.TakeLog ();
    child.SetName ("Hidden");
    EXPECT_EQ (peer.TakeLog (), "");
    h.list->Hide ();
    peer.TakeLog ();
    length->SetValue (7);
    EXPECT_EQ (peer.TakeLog (), "");
    EXPECT_EQ (h.Rows (), "1:Batch|1 2:Len|1.000 m 3:G|2.000 m");
}

TEST_F (RowsTest, RefreshingTheSelectedRowMovesTheFocusIntoItsEdit)
{
    h.ClickColumn (2, 3);
    ASSERT_EQ (h.Controls (), "sel=2 4:LengthEdit focus=ListBox");
    length->SetValue (3);
    EXPECT_EQ (h.Controls (), "sel=2 4:LengthEdit focus=LengthEdit");
    EXPECT_EQ (h.list->GetOnTabItems ().GetLengthEdit ().GetValue (), 3.0);
}

// --- Items of the list ---

TEST (ItemsTest, AddingWaitsForTheNextRebuildAndClearingWithoutOneLeavesEmptiedRows)
{
    ListHarness h;
    CountedItem a ("A", "1");
    h.list->AddListItem (a);
    h.list->AddListItem (nullptr);
    EXPECT_EQ (h.Rows (), "");
    h.list->CreateCheckItem ("Check", NoIcon, true, "", true, false);   // a created item rebuilds at once
    EXPECT_EQ (h.Rows (), "1:A|1 2:Check|[x]");

    h.list->ClearList (false);
    EXPECT_TRUE (h.list->IsEmpty ());
    EXPECT_EQ (h.Rows (), "1:? 2:?");   // old rows stay until the next rebuild, without their items
    EXPECT_EQ (std::to_string (a.Row ()) + (a.InList () ? " in list" : " out"), "0 out");
    EXPECT_EQ (h.list->GetFirstVisibleItem (), nullptr);
    h.list->FullRefreshList (true);
    EXPECT_EQ (h.Rows (), "");
}

TEST (ItemsTest, TheFirstVisibleItemFollowsTheScrollPosition)
{
    ListHarness                     h;
    std::vector<AttributeListItem*> created;
    for (const char* name : {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L"})
        created.push_back (h.list->CreateButtonItem (name, NoIcon, "...", true, false));
    EXPECT_EQ (h.list->GetFirstVisibleItem (), created[0]);
    h.list->SetFirstVisibleItem (created[2]);
    h.list->SetFirstVisibleItem (nullptr);
    EXPECT_EQ (h.list->GetFirstVisibleItem (), created[2]);
}

// Drawing is suspended while rows are rebuilt or an item handles a control event, and the list
// box is redrawn once at the end; a suspension of the caller's holds that redraw back.
TEST (ItemsTest, RebuildsAndControlEventsRedrawOnceAtTheEnd)
{
    ListHarness h;
    auto*       text = h.list->CreateTextItem ("Name", NoIcon, "old", false, true, false, true, false);
    h.list->CreateLengthItem ("Len", NoIcon, 0, 10, 1, true, true, false);
    Wg::ListBox& listBox = h.ListBox ();
    auto redraws = [&, last = listBox.GetRedrawCount ()] () mutable {
        const auto count = listBox.GetRedrawCount () - last;
        last = listBox.GetRedrawCount ();
        return count;
    };

    h.list->FullRefreshList (true);
    EXPECT_EQ (redraws (), 1u);
    h.list->DisableDraw ();
    h.list->FullRefreshList (true);
    EXPECT_FALSE (listBox.IsDrawEnabled ());
    EXPECT_EQ (redraws (), 0u);
    h.list->EnableDraw ();
    EXPECT_TRUE (listBox.IsDrawEnabled ());
    EXPECT_EQ (redraws (), 1u);

    h.ClickColumn (1, 4);
    redraws ();
    h.list->GetOnTabItems ().GetTextEdit ().UserSetText ("new");
    EXPECT_EQ (text->GetText ().ToUtf8 (), "new");
    EXPECT_EQ (redraws (), 1u);
    EXPECT_TRUE (listBox.IsDrawEnabled ());
}

TEST (AutomatedTestingTest, ADestroyedListIsNoLongerSearched)
{
    Wg::Panel            panel (Wg::Rect (0, 0, 600, 400), ListHarness::NextPanelId ());
    Wg::SingleSelListBox first (panel, Wg::Rect::FromSize (0, 0, 445, 100), 51);
    Wg::SingleSelListBox second (panel, Wg::Rect::FromSize (0, 100, 445, 100), 52);
    auto                 gone = std::make_unique<AttributeList> (panel, 51);
    AttributeList        kept (panel, 52);
    gone->CreateButtonItem ("B", NoIcon, "Gone", true, false);
    kept.CreateButtonItem ("B", NoIcon, "Kept", true, false);
    auto value = [&] (short listBoxId) { return AttributeList::GetDrawnTextContentForKorAT (panel.GetId (), listBoxId, 1, 4).ToUtf8 (); };
    EXPECT_EQ (value (51) + "|" + value (52), "Gone|Kept");
    gone.reset ();
    EXPECT_EQ (value (51) + "|" + value (52), "|Kept");
}

TEST (PaintTest, TheGroupNameIsDrawnUpToTheColumnWhereItsMasterBegins)
{
    ListHarness h;
    TestGroup   plain ("Plain"), withCheck ("Check"), withLength ("Length");
    for (TestGroup* group : {&plain, &withCheck, &withLength}) h.list->AddListItem (*group);
    withCheck.CreateCheckItem (true, "c", NoIcon, false, "", true, false);
    withLength.CreateLengthItem (true, "l", NoIcon, 0, 10, 1, true, true, false);
    withLength.SetStatus (false);
    std::string spans;
    for (short row = 1; row <= 3; ++row) {
        Gfx::DrawingContext context;
        h.ListBox ().PaintRow (row, context);
        for (const Gfx::TextOp& op : context.Get<Gfx::TextOp> ()) {
            if (op.text != h.list->GetItems ()[row - 1]->GetName ()) continue;
            spans += op.text.ToUtf8 () + ":" + std::to_string (op.rect.left) + "-" + std::to_string (op.rect.right) +
                     (op.style.greyed ? "~ " : " ");
        }
    }
    // Text inset 2 from the label column's begin (60), as plain cells; to the end of the
    // preview, the value or the label column.
    EXPECT_EQ (spans, "Plain:62-407 Check:62-307 Length:62-203~ ");
}

// --- Clicks on the icon and triangle columns ---

TEST (ClickTest, TheIconColumnCountsBothEndsAndNeverWhenItHasNoWidth)
{
    ListHarness h;
    CountedItem item ("A");
    h.list->AddListItem (item);
    h.list->FullRefreshList (true);
    CallLog log;
    log.Watch (item);
    for (int x : {19, 20, 60, 61}) h.Click (1, x);
    for (int x : {20, 61}) h.DoubleClick (1, x);
    EXPECT_EQ (log.Take (), "IconColumnClicked(A) IconColumnClicked(A) IconColumnDoubleClicked(A)");

    ListHarness noIcon (Params ().SetHasIconColumn (false));
    CountedItem other ("B");
    noIcon.list->AddListItem (other);
    noIcon.list->FullRefreshList (true);
    log.Watch (other);
    noIcon.Click (1, 20);
    noIcon.DoubleClick (1, 20);
    EXPECT_EQ (log.Take (), "");
}

TEST (ClickTest, TheTriangleTogglesOnceAndTheDoubleClickElsewhereTogglesAgain)
{
    ListHarness h;
    TestGroup   group ("G");
    CountedItem child ("C");
    group.AddItem (child);
    h.list->AddListItem (group);
    h.list->FullRefreshList (true);
    CallLog log;
    log.Watch (group);

    h.Click (1, 0);   // the begin of the triangle column counts
    h.DoubleClick (1, 0);
    EXPECT_EQ (h.Rows (), "1:▸G");
    h.DoubleClick (1, 100);
    EXPECT_EQ (h.Rows (), "1:▾G 2:  C");
    h.Click (1, 40);   // the icon column: reported, no toggle
    h.DoubleClick (1, 40);   // no icon-column report for groups, but a toggle
    EXPECT_EQ (log.Take (), "IconColumnClicked(G)");
    EXPECT_EQ (h.Rows (), "1:▸G");

    group.Expand ();
    group.SetCollapsible (false);
    h.Click (1, 10);
    group.Collapse ();
    h.list->CollapseAllGroups ();
    EXPECT_EQ (h.Rows (), "1:▾G 2:  C");

    group.SetCollapsible (true);
    child.SetVisibility (false);   // no visible child: no triangle and no toggle by click
    h.Click (1, 10);
    EXPECT_TRUE (group.IsExpanded ());
    EXPECT_EQ (h.Rows (), "1:G");
    group.Collapse ();
    EXPECT_FALSE (group.IsExpanded ());
}

TEST (ClickTest, WithoutATriangleColumnAClickAtTheLeftFoldsNothing)
{
    ListHarness noTriangle (Params ().SetHasGroupColumn (false));
    TestGroup   flat ("F");
    CountedItem flatChild ("C");
    flat.AddItem (flatChild);
    noTriangle.list->AddListItem (flat);
    noTriangle.list->FullRefreshList (true);
    noTriangle.Click (1, 0);
    EXPECT_TRUE (flat.IsExpanded ());
}

// --- Tool tips and automated-testing texts ---

TEST (ToolTipTest, NewestObserverFirstFirstAnswerWinsElseTheDefault)
{
    ListHarness h;
    CountedItem item ("A");
    TestGroup   group ("G");
    CountedItem master ("M");
    group.AddMasterItem (master);
    h.list->AddListItem (item);
    h.list->AddListItem (group);
    h.list->CreateLengthItem ("Len", NoIcon, 0, 10, 1, true, true, false)->SetDefaultToolTip ("length tip");
    h.list->FullRefreshList (true);
    std::string sink;
    CallLog     older ("old", &sink), newer ("new", &sink);
    older.Watch (item);
    newer.Watch (item);
    older.toolTips["A"] = "from old";
    newer.toolTips["A"] = "from new";
    Wg::ListBox& listBox = h.ListBox ();

    EXPECT_EQ (listBox.RequestToolTip (1).ToUtf8 (), "from new");
    newer.toolTips.clear ();
    EXPECT_EQ (listBox.RequestToolTip (1).ToUtf8 (), "from old");
    older.toolTips.clear ();
    item.SetDefaultToolTip ("default");
    EXPECT_EQ (listBox.RequestToolTip (1).ToUtf8 (), "default");
    EXPECT_EQ (sink, "new:ToolTip(A) new:ToolTip(A) old:ToolTip(A) new:ToolTip(A) old:ToolTip(A)");

    master.SetDefaultToolTip ("master tip");
    EXPECT_EQ (listBox.RequestToolTip (2).ToUtf8 (), "master tip");
    EXPECT_EQ (listBox.RequestToolTip (0).ToUtf8 (), "");
    EXPECT_EQ (listBox.RequestToolTip (4).ToUtf8 (), "");
    // An in-place control asks for the selected row's tool tip.
    h.ClickColumn (3, 4);
    EXPECT_EQ (h.list->GetOnTabItems ().GetLengthEdit ().RequestToolTip ().ToUtf8 (), "length tip");
}

TEST (AutomatedTestingTest, CellTextsAreFoundByPanelAndListBoxId)
{
    ListHarness h;
    AttributeListGroupItem* group = h.list->CreateGroup ("Walls", NoIcon, true, true);
    group->CreateTextItem (true, "Name", NoIcon, "North wall", false, true, false, true, false);
    h.list->CreateTaggedTextItem ("Fire", NoIcon, "EI 60", false, true, false, true, false, "min");
    const short panelId = h.panel.GetId ();
    const short listBoxId = h.list->GetListBoxId ();
    auto text = [&] (short panel, short listBox, short row, short column) {
        return AttributeList::GetDrawnTextContentForKorAT (panel, listBox, row, column).ToUtf8 ();
    };
    EXPECT_EQ (text (panelId, listBoxId, 1, 3) + "|" + text (panelId, listBoxId, 1, 4), "Walls|North wall");
    EXPECT_EQ (text (panelId, listBoxId, 2, 4) + "|" + text (panelId, listBoxId, 2, 5), "EI 60|min");
    EXPECT_EQ (text (panelId, listBoxId, 0, 3) + text (panelId, listBoxId, 3, 3) + text (panelId, 0, 1, 3) +
                   text (static_cast<short> (panelId + 1), listBoxId, 1, 3),
               "");
}

TEST (AutomatedTestingTest, AnOverlayRequestOfAForeignListBoxIsReportedAndStillPassedOn)
{
    ListHarness h;
    CallLog     log;
    log.Watch (*h.list);
    Gfx::DrawingContext context;
    Kor::ScopedAssertCapture capture;
    h.ListBox ().PaintOverlay (context);
    EXPECT_EQ (capture.GetCount (), 0u);

    Wg::ListBox foreign (h.panel, Wg::Rect::FromSize (0, 300, 100, 100));
    foreign.Attach (static_cast<Wg::ListBoxObserver&> (*h.list));
    foreign.PaintOverlay (context);
    ASSERT_EQ (capture.GetCount (), 1u);
    const Kor::AssertReport& report = capture.GetReports ().front ();
    EXPECT_EQ (report.prefix + " " + report.file + " " + report.condition, "TxAL error AttributeList ev.GetSource () == &mListBox");
    EXPECT_NE (report.ToString ().find ("TxAL error assertion failed at AttributeList"), std::string::npos);
    EXPECT_EQ (log.Take (), "Overlay Overlay");
    foreign.Detach (static_cast<Wg::ListBoxObserver&> (*h.list));
}

}   // namespace
