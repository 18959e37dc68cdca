// Ownership of items, re-entrant notifications, and how the item tree becomes rows.

#include <gtest/gtest.h>

#include "AttributeListTestSupport.hpp"
#include "Kor/Assert.hpp"
#include "RecordingPeer.hpp"
#include "Wg/TextEdit.hpp"

namespace {

using namespace TxALTest;
using TxAL::AttributeListCheckItem;
using TxAL::AttributeListLengthItem;

const Wg::Icon NoIcon;

class OwnershipTest : public ::testing::Test {
protected:
    void TearDown () override
    {
        h.list.reset ();
        EXPECT_EQ (CountedItem::live, 0);
        CountedItem::TakeDestroyed ();
    }

    ListHarness h;
};

TEST_F (OwnershipTest, RemovalDeletesOwnCreatedItemsOnceAndCallerItemsNever)
{
    CountedItem* own = h.list->CreateOwned<CountedItem> ("Own", "1");
    CountedItem  caller ("Caller", "2");
    h.list->AddListItem (caller);
    EXPECT_EQ (h.Rows (), "1:Own|1");   // adding alone shows nothing until the next rebuild
    h.list->FullRefreshList (true);
    EXPECT_EQ (h.Rows (), "1:Own|1 2:Caller|2");

    h.list->RemoveListItem (own);
    h.list->RemoveListItem (&caller);
    EXPECT_EQ (CountedItem::TakeDestroyed (), "~Own");
    EXPECT_EQ (h.Rows (), "");
    EXPECT_FALSE (caller.InList ());

    CountedItem* kept = h.list->CreateOwned<CountedItem> ("Kept");
    EXPECT_TRUE (kept->OwnCreated ());
    h.list->DeleteListItem (kept, false);
    EXPECT_EQ (CountedItem::live, 2);
    delete kept;
    EXPECT_EQ (CountedItem::TakeDestroyed (), "~Kept");
}

TEST_F (OwnershipTest, ClearGroupDeletesOwnedChildrenAndReleasesTheCallers)
{
    TestGroup group ("Walls");
    h.list->AddListItem (group);
    CountedItem caller ("Caller");
    group.AddItem (caller);
    group.CreateOwned<CountedItem> (false, "Own");
    group.CreateOwned<CountedItem> (true, "Master", "m");
    EXPECT_EQ (h.Rows (), "1:▾Walls|m 2:  Caller 3:  Own");

    group.ClearGroup ();
    EXPECT_EQ (CountedItem::TakeDestroyed (), "~Master ~Own");
    EXPECT_EQ (caller.GetGroup (), nullptr);
    EXPECT_FALSE (caller.InList ());
    EXPECT_EQ (group.GetMasterItem (), nullptr);
    EXPECT_EQ (h.Rows (), "1:Walls");   // no visible child: no triangle
}

TEST_F (OwnershipTest, CallerItemsDestroyedWhileShownTakeTheirRowsWithThem)
{
    auto*     top = new CountedItem ("Top");
    auto*     child = new CountedItem ("Child");
    auto*     master = new CountedItem ("Master", "m");
    TestGroup group ("G");
    h.list->AddListItem (top);
    h.list->AddListItem (group);
    group.AddItem (child);
    group.AddMasterItem (master);
    h.list->FullRefreshList (true);
    h.ClickColumn (3, 3);
    EXPECT_EQ (h.Rows (), "1:Top 2:▾G|m 3:  Child");

    delete child;
    EXPECT_EQ (h.Rows (), "1:Top 2:G|m");
    EXPECT_EQ (group.GetSize (), 0u);
    EXPECT_EQ (h.ListBox ().GetSelectedItem (), 1);   // the selected row went; the first is selected
    delete master;
    EXPECT_EQ (group.GetMasterItem (), nullptr);
    EXPECT_EQ (h.Rows (), "1:Top 2:G");
    delete top;
    EXPECT_EQ (h.Rows (), "1:G");
}

TEST_F (OwnershipTest, DestroyingTheListDeletesWhatItOwnsAndReleasesTheRest)
{
    Lifetimes   lifetimes;
    CountedItem caller ("Caller");
    CountedItem child ("Child");
    AttributeListGroupItem* group = h.list->CreateGroup ("G", NoIcon, true, true);
    group->AddItem (child);
    lifetimes.Watch (*group->CreateLengthItem (false, "Len", NoIcon, 0, 10, 1, true, true, false));
    lifetimes.Watch (*group);
    h.list->AddListItem (caller);
    h.list->CreateOwned<CountedItem> ("Own");
    EXPECT_EQ (h.Rows (), "1:▾G 2:  Child 3:  Len|1.000 m 4:Caller 5:Own");
    h.ClickColumn (3, 4);
    ASSERT_EQ (h.Controls (), "sel=3 4:LengthEdit focus=LengthEdit");
    h.ClickColumn (2, 3);   // the caller's child had the row controls last

    h.list.reset ();
    EXPECT_EQ (lifetimes.Take (), "~Len ~G");
    EXPECT_EQ (CountedItem::TakeDestroyed (), "~Own");
    EXPECT_FALSE (caller.InList ());
    EXPECT_FALSE (child.InList ());
    EXPECT_EQ (child.GetGroup (), nullptr);
    caller.SetName ("Renamed");   // refreshes nothing: the item has no list any more
    EXPECT_FALSE (caller.IsSelected ());
}

TEST_F (OwnershipTest, TheGroupsOwnedMasterIsDeletedWheneverItIsReleased)
{
    Lifetimes lifetimes;
    TestGroup group ("G");
    h.list->AddListItem (group);
    AttributeListLengthItem* first = group.CreateLengthItem (true, "First", NoIcon, 0, 10, 2.5, true, true, false);
    lifetimes.Watch (*first);
    EXPECT_TRUE (first->IsMasterOwnedByGroup ());
    EXPECT_EQ (h.Rows (), "1:G|2.500 m");

    lifetimes.Watch (*group.CreateLengthItem (true, "Second", NoIcon, 0, 10, 3, true, true, false));
    EXPECT_EQ (lifetimes.Take (), "~First");
    group.RemoveMasterItem ();
    EXPECT_EQ (lifetimes.Take (), "~Second");
    EXPECT_EQ (h.Rows (), "1:G");

    AttributeListLengthItem* third = group.CreateLengthItem (true, "Third", NoIcon, 0, 10, 4, true, true, false);
    lifetimes.Watch (*third);
    delete third;   // the caller deletes it directly: released once, deleted once
    EXPECT_EQ (lifetimes.Take (), "~Third");
    EXPECT_EQ (group.GetMasterItem (), nullptr);
    EXPECT_EQ (h.Rows (), "1:G");
}

TEST_F (OwnershipTest, AReleasedCallerMasterForgetsItsGroupAndList)
{
    // Declared first, so it outlives both the group and the list.
    CountedItem master ("Master", "m");
    {
        ListHarness local;
        TestGroup   group ("G");
        local.list->AddListItem (group);
        group.AddMasterItem (master);
        local.list->FullRefreshList (true);
        EXPECT_EQ (local.Rows (), "1:G|m");
        group.RemoveMasterItem ();
        EXPECT_EQ (local.Rows (), "1:G");
        EXPECT_EQ (master.GetGroup (), nullptr);
        EXPECT_FALSE (master.InList ());

        group.AddMasterItem (master);   // and released by the group's destruction this time
    }
    EXPECT_EQ (master.GetGroup (), nullptr);
    EXPECT_FALSE (master.InList ());
    EXPECT_EQ (CountedItem::TakeDestroyed (), "");
}

TEST_F (OwnershipTest, ATopLevelItemSetAsMasterKeepsItsOwnRowUntilItGoes)
{
    TestGroup group ("G");
    auto*     top = new CountedItem ("Top", "t");
    h.list->AddListItem (group);
    h.list->AddListItem (top);
    CountedItem kept ("Kept", "k");
    h.list->AddListItem (kept);
    group.SetMasterItem (*top);
    h.list->FullRefreshList (true);
    EXPECT_EQ (h.Rows (), "1:G|t 2:  Top|t 3:Kept|k");   // its group marks it as a child in the dump

    delete top;   // leaves the group and the list, no row left pointing at it
    EXPECT_EQ (h.list->GetItems ().GetSize (), 2u);
    EXPECT_EQ (h.Rows (), "1:G 2:Kept|k");

    group.SetMasterItem (kept);
    group.DeleteItem (&kept, true);   // released from the group, still a row of the list
    EXPECT_EQ (group.GetMasterItem (), nullptr);
    EXPECT_TRUE (kept.InList ());
    EXPECT_EQ (h.Rows (), "1:G 2:Kept|k");
    EXPECT_EQ (CountedItem::TakeDestroyed (), "~Top");
}

TEST_F (OwnershipTest, AnItemJoinsOneGroupAtMostAndOnlyOnce)
{
    TestGroup a ("A"), b ("B");
    h.list->AddListItem (a);
    h.list->AddListItem (b);
    auto* item = new CountedItem ("I");
    auto* spare = new CountedItem ("S");
    Kor::ScopedAssertCapture refusals;
    a.AddItem (item);
    a.AddItem (item);
    b.AddItem (item);
    b.AddMasterItem (item);
    b.AddItem (spare);
    a.ReplaceItem (item, spare);   // the spare stays in its own group
    EXPECT_EQ (h.Rows (), "1:▾A 2:  I 3:▾B 4:  S");
    EXPECT_EQ (refusals.GetCount (), 4u);

    delete item;   // nothing keeps a pointer to it
    delete spare;
    EXPECT_EQ (a.GetSize () + b.GetSize (), 0u);
    EXPECT_EQ (h.Rows (), "1:A 2:B");
    EXPECT_EQ (CountedItem::TakeDestroyed (), "~I ~S");
}

// --- Re-entrancy: observers that change the list while they are being told ---

class ReentrancyTest : public OwnershipTest {};

TEST_F (ReentrancyTest, AnObserverMayDeleteTheItemWhenItIsRenamed)
{
    h.list->SetEditableColumnNum (AttributeList::NameColumn);
    auto*       doomed = new CountedItem ("Doomed");
    CountedItem other ("Other");
    h.list->AddListItem (doomed);
    h.list->AddListItem (other);
    h.list->FullRefreshList (true);
    CallLog log;
    log.Watch (*doomed);
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "NameChanged") delete doomed;
    };
    h.ClickColumn (1, 3);
    ASSERT_EQ (h.Controls (), "sel=1 3:TextEdit focus=TextEdit");
    h.list->GetOnTabItems ().GetTextEdit ().UserSetText ("Gone");
    EXPECT_EQ (log.Take (), "NameChanged(Gone) Destroyed");
    EXPECT_EQ (h.Rows (), "1:Other");
    EXPECT_EQ (h.Controls (), "sel=1 3:TextEdit focus=ListBox");
}

TEST_F (ReentrancyTest, AnObserverMayDetachTheItemAndAnotherObserverWhileItIsTold)
{
    TestGroup   group ("G");
    CountedItem child ("C");
    group.AddItem (child);
    h.list->AddListItem (group);
    h.list->FullRefreshList (true);
    std::string sink;
    CallLog     older ("old", &sink), newer ("new", &sink);
    older.Watch (group);
    newer.Watch (group);
    newer.onCall = [&] (const std::string&, const AttributeListItem*) {
        older.Unwatch (group);
        h.list->DeleteListItem (&group, false);
    };
    h.Click (1, h.ColumnMiddle (h.list->GetAttributeIconColumnIndex ()));
    EXPECT_EQ (sink, "new:IconColumnClicked(G)");
    EXPECT_EQ (h.Rows (), "");
    EXPECT_FALSE (child.InList ());
    EXPECT_EQ (child.GetGroup (), &group);
}

TEST_F (ReentrancyTest, AnObserverMayDeleteAGroupOrCheckItemFromAnIconColumnClick)
{
    Lifetimes lifetimes;
    AttributeListGroupItem* group = h.list->CreateGroup ("G", NoIcon, true, true);
    group->AddItem (new CountedItem ("Caller"));   // released with the group, deleted below
    AttributeListCheckItem* check = h.list->CreateCheckItem ("Check", NoIcon, false, "", true, false);
    lifetimes.Watch (*group);
    lifetimes.Watch (*check);
    CountedItem* caller = static_cast<CountedItem*> (*group->begin ());
    CallLog log;
    log.Watch (*group);
    log.Watch (*check);
    log.onCall = [&] (const std::string& call, const AttributeListItem* item) {
        if (call == "IconColumnClicked") h.list->RemoveListItem (const_cast<AttributeListItem*> (item));
    };
    const int iconX = h.ColumnMiddle (h.list->GetAttributeIconColumnIndex ());
    h.Click (1, iconX);
    EXPECT_EQ (lifetimes.Take (), "~G");
    EXPECT_EQ (h.Rows (), "1:Check|[ ]");
    h.Click (1, iconX);
    EXPECT_EQ (lifetimes.Take (), "~Check");
    EXPECT_EQ (log.Take (), "IconColumnClicked(G) Destroyed IconColumnClicked(Check) Destroyed");
    EXPECT_EQ (h.Rows (), "");
    delete caller;
}

TEST_F (ReentrancyTest, AnObserverMayDeleteACheckItemWhenItsCheckChanges)
{
    AttributeListCheckItem* check = h.list->CreateCheckItem ("Check", NoIcon, false, "", true, false);
    h.list->CreateOwned<CountedItem> ("Next");
    CallLog log;
    log.Watch (*check);
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "CheckChanged") h.list->RemoveListItem (check);
    };
    h.Click (1, h.ListBox ().GetTabFieldBeginPosition (h.list->GetPreviewColumnIndex ()));
    EXPECT_EQ (log.Take (), "CheckChanged(Check) Destroyed");
    EXPECT_EQ (h.Rows (), "1:Next");
}

TEST_F (ReentrancyTest, AnObserverMayDeleteTheItemWhoseTypingARebuildCommits)
{
    ListHarness manual (AttributeList::OptionalParameters ().SetEditControlAutoUpdate (false));
    auto* text = manual.list->CreateTextItem ("Text", NoIcon, "old", false, true, false, true, false);
    CountedItem other ("Other");
    manual.list->AddListItem (other);
    manual.list->FullRefreshList (true);
    CallLog log;
    log.Watch (*text);
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "TextChanged") manual.list->RemoveListItem (text);
    };
    manual.ClickColumn (1, 4);
    manual.list->GetOnTabItems ().GetTextEdit ().UserSetText ("new");
    other.SetVisibility (false);   // the rebuild commits the typing first
    EXPECT_EQ (log.Take (), "TextChanged(Text) Destroyed");
    EXPECT_EQ (manual.Rows (), "");
    other.SetVisibility (true);
    EXPECT_EQ (manual.Rows (), "1:Other");
}

TEST_F (ReentrancyTest, AListObserverMayClearTheListWhenTheSelectionChanges)
{
    h.list->CreateLengthItem ("A", NoIcon, 0, 10, 1, true, true, false);
    h.list->CreateLengthItem ("B", NoIcon, 0, 10, 2, true, true, false);
    h.ClickColumn (1, 4);
    CallLog log;
    log.Watch (*h.list);
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "Selection") h.list->ClearList (true);
    };
    h.ClickColumn (2, 4);
    EXPECT_EQ (log.Take (), "Selection Height");
    EXPECT_EQ (h.Rows (), "");
    EXPECT_EQ (h.Controls (), "sel=0 focus=ListBox");
    h.list->CreateLengthItem ("C", NoIcon, 0, 10, 3, true, true, false);
    EXPECT_TRUE (h.Key (Wg::Key::Down));   // the keyboard still works on what was rebuilt
    EXPECT_EQ (log.Take (), "Height");
}

// --- Rows from the tree ---

class TreeTest : public ::testing::Test {
protected:
    // Top, group G (master M) with children A, B, C, and Last.
    void Build ()
    {
        h.list->AddListItem (top);
        h.list->AddListItem (group);
        group.AddMasterItem (master);
        group.AddItem (a);
        group.AddItem (b);
        group.AddItem (c);
        h.list->AddListItem (last);
        h.list->FullRefreshList (true);
        log.Watch (*h.list);
    }

    ListHarness h;
    CountedItem top {"Top"}, master {"M", "m"}, a {"A"}, b {"B"}, c {"C"}, last {"Last"};
    TestGroup   group {"G"};
    CallLog     log;
};

TEST_F (TreeTest, HiddenItemsMastersAndCollapsedGroupsGetNoRows)
{
    Build ();
    EXPECT_EQ (h.Rows (), "1:Top 2:▾G|m 3:  A 4:  B 5:  C 6:Last");
    EXPECT_EQ (h.list->GetFirstListBoxIndex (&master), 2);
    b.SetVisibility (false);
    EXPECT_EQ (h.Rows (), "1:Top 2:▾G|m 3:  A 4:  C 5:Last");
    EXPECT_EQ (b.Row (), 0);
    EXPECT_EQ (h.list->GetFirstListBoxIndex (&b), -1);

    group.Collapse ();
    EXPECT_EQ (h.Rows (), "1:Top 2:▸G|m 3:Last");
    EXPECT_EQ (a.Row (), 0);
    group.Expand ();
    master.SetVisibility (false);   // the master takes its group and every child with it
    EXPECT_EQ (h.Rows (), "1:Top 2:Last");
    EXPECT_EQ (h.list->GetFirstListBoxIndex (&master), -1);
    master.SetVisibility (true);
    top.SetVisibility (false);
    EXPECT_EQ (h.Rows (), "1:▾G|m 2:  A 3:  C 4:Last");
    EXPECT_EQ (log.Take (), "Height Height Height Height Height Height");
}

TEST_F (TreeTest, ReplaceItemKeepsRowAndSelectionAndHandsTheOldItemBack)
{
    Build ();
    auto* own = group.CreateOwned<CountedItem> (false, "Own");
    h.ClickColumn (4, 3);
    log.Take ();
    CountedItem::TakeDestroyed ();
    CountedItem replacement ("R", "r"), second ("S");
    group.ReplaceItem (&b, &replacement);
    group.ReplaceItem (own, &second);
    EXPECT_EQ (h.Rows (), "1:Top 2:▾G|m 3:  A 4:  R|r 5:  C 6:  S 7:Last");
    EXPECT_EQ (h.list->GetSelectedItem (), &replacement);
    EXPECT_EQ (log.Take (), "");   // no rebuild
    EXPECT_EQ (b.GetGroup (), nullptr);
    EXPECT_FALSE (b.InList ());
    EXPECT_EQ (CountedItem::TakeDestroyed (), "");   // even the own-created one is handed back
    delete own;

    TxAL::AttributeListSeparatorItem separator;
    group.ReplaceItem (&b, &c);   // b belongs to no group any more
    group.ReplaceItem (&c, &c);
    group.ReplaceItem (nullptr, &b);
    group.AddMasterItem (master);
    group.AddMasterItem (separator);
    EXPECT_EQ (group.GetMasterItem (), &master);
    EXPECT_EQ (h.Rows (), "1:Top 2:▾G|m 3:  A 4:  R|r 5:  C 6:  S 7:Last");
}

TEST_F (TreeTest, FullRefreshKeepsSelectionAndScrollAndReportsOnlyCountChanges)
{
    std::vector<std::unique_ptr<CountedItem>> more;
    for (int i = 0; i < 12; ++i) {
        more.push_back (std::make_unique<CountedItem> (("X" + std::to_string (i)).c_str ()));
        h.list->AddListItem (*more.back ());
    }
    Build ();   // X0..X11 on rows 1-12, Top 13, G 14, A-C 15-17, Last 18; 9 rows visible
    h.ListBox ().UserScroll (9);
    h.ClickColumn (17, 3);
    ASSERT_EQ (h.list->GetSelectedItem (), &c);
    std::string selectedWhenTold;
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "Height") selectedWhenTold = std::to_string (h.ListBox ().GetSelectedItem ());
    };
    log.Take ();

    a.SetVisibility (false);
    EXPECT_EQ (h.list->GetSelectedItem (), &c);
    EXPECT_EQ (c.Row (), 16);
    EXPECT_EQ (h.ListBox ().GetScrollPosition (), 9);
    EXPECT_EQ (selectedWhenTold, "0");   // told before the selection is restored
    h.list->FullRefreshList (true);
    EXPECT_EQ (log.Take (), "Height");   // only the rebuild that changed the row count told

    c.SetVisibility (false);             // the selected item went: the first row is selected
    EXPECT_EQ (h.ListBox ().GetSelectedItem (), 1);
    h.list->SelectItem (&b, false);
    h.list->DisableUpdate ();
    b.SetVisibility (false);
    h.list->EnableUpdate ();
    h.list->FullRefreshList (false);     // without selectFirst nothing is selected
    EXPECT_EQ (h.ListBox ().GetSelectedItem (), 0);
    h.list->ClearList (true);
}

TEST_F (TreeTest, TheUpdateCounterBatchesRebuildsAndNeverGoesBelowZero)
{
    h.list->EnableUpdate ();
    h.list->EnableUpdate ();
    EXPECT_TRUE (h.list->UpdateIsEnabled ());
    h.list->DisableUpdate ();   // one suspension is enough after any number of resumes
    Build ();
    EXPECT_EQ (h.Rows (), "");
    group.Collapse ();
    EXPECT_EQ (h.Rows (), "");
    h.list->EnableUpdate ();
    EXPECT_TRUE (h.list->UpdateIsEnabled ());
    EXPECT_EQ (h.Rows (), "");   // resuming does not rebuild by itself
    h.list->FullRefreshList (true);
    EXPECT_EQ (h.Rows (), "1:Top 2:▸G|m 3:Last");
}

TEST_F (TreeTest, GroupsCreatedByTheListShowAtTheNextRebuild)
{
    Build ();
    AttributeListGroupItem* created = h.list->CreateGroup ("New", NoIcon, false, false);
    EXPECT_EQ (h.Rows (), "1:Top 2:▾G|m 3:  A 4:  B 5:  C 6:Last");
    created->CreateLengthItem (false, "Len", NoIcon, 0, 10, 1, true, true, false);
    EXPECT_EQ (h.Rows (), "1:Top 2:▾G|m 3:  A 4:  B 5:  C 6:Last 7:▸New~");
    EXPECT_FALSE (created->IsExpanded ());
}

TEST_F (TreeTest, DisableAllGreysEveryRowAndEnableAllSaysWhetherItChangedAnything)
{
    Build ();
    h.list->DisableAllItems ();
    EXPECT_EQ (h.Rows (), "1:Top~ 2:▾G|m~ 3:  A~ 4:  B~ 5:  C~ 6:Last~");
    EXPECT_TRUE (a.GetStatus ());   // children keep their own status
    EXPECT_FALSE (group.GetStatus ());
    EXPECT_TRUE (h.list->EnableAllItems ());
    EXPECT_EQ (h.Rows (), "1:Top 2:▾G|m 3:  A 4:  B 5:  C 6:Last");
    EXPECT_FALSE (h.list->EnableAllItems ());
}

TEST_F (TreeTest, CollapseAndExpandAllSpareNonCollapsibleGroupsAndRebuildOnce)
{
    Build ();
    CountedItem fixedChild ("F");
    TestGroup   fixed ("Fixed");
    fixed.AddItem (fixedChild);
    fixed.SetCollapsible (false);
    h.list->AddListItem (fixed);
    h.list->FullRefreshList (true);
    log.Take ();
    h.list->CollapseAllGroups ();
    EXPECT_EQ (h.Rows (), "1:Top 2:▸G|m 3:Last 4:▾Fixed 5:  F");
    EXPECT_EQ (log.Take (), "Height");
    fixed.Collapse ();
    h.list->ExpandAllGroups ();
    EXPECT_EQ (h.Rows (), "1:Top 2:▾G|m 3:  A 4:  B 5:  C 6:Last 7:▾Fixed 8:  F");
}

// --- The item base: renaming, the icon-column popup, items outside any list ---

class ItemBaseTest : public ::testing::Test {
protected:
    ListHarness                h;
    CallLog                    log;
    TestSupport::RecordingPeer peer;
};

TEST_F (ItemBaseTest, RenamingThroughTheEditAlwaysTellsButRedrawsOnlyAChange)
{
    h.list->SetEditableColumnNum (AttributeList::NameColumn);
    CountedItem item ("A");
    h.list->AddListItem (item);
    h.list->FullRefreshList (true);
    h.ClickColumn (1, 3);
    log.Watch (item);
    peer.AttachTo (h.ListBox ());
    Wg::TextEdit& nameEdit = h.list->GetOnTabItems ().GetTextEdit ();
    // The edit sends no change for the same text; the item hears one as a repeated commit would bring it.
    item.TextEditChanged (Wg::TextEditChangeEvent (&nameEdit));
    EXPECT_EQ (log.Take (), "NameChanged(A)");
    EXPECT_EQ (peer.TakeLog (), "");
    item.TextEditChanged (Wg::TextEditChangeEvent (nullptr));   // not from the name edit: ignored
    EXPECT_EQ (log.Take (), "");
    nameEdit.UserSetText ("B");
    EXPECT_EQ (log.Take (), "NameChanged(B)");
    EXPECT_NE (peer.TakeLog (), "");
    EXPECT_EQ (h.Rows (), "1:B");
}

TEST_F (ItemBaseTest, TheIconColumnPopupLendsItsEntrysIconAndDataOnlyForAnIndexInRange)
{
    class Data : public Kor::Object {};
    const Wg::Icon own (1, 7), entryIcon (1, 8);
    TestGroup      group ("G");
    group.SetIcon (own);
    AttributeListItem::PopupItem entry, separator;
    entry.SetIcon (entryIcon);
    entry.SetUserData (Kor::NewRef<Data> ());
    separator.SetIsSeparator (true);
    group.SetIconColumnPopupItems ({entry, separator});
    h.list->AddListItem (group);

    std::string out;
    for (std::uint32_t index : {AttributeListItem::NoIconColumnPopupItem, 0u, 2u}) {
        group.SetSelectedIconColumnPopupItemIndex (index);
        h.list->FullRefreshList (true);   // the group draws the item's current icon
        const Wg::Icon shown = h.ListBox ().GetTabItemIcon (1, h.list->GetAttributeIconColumnIndex ());
        out += std::to_string (shown.GetResourceId ()) + (group.GetSelectedIconColumnPopupItemUserData ().IsNull () ? " " : "+data ");
    }
    EXPECT_EQ (out, "7 8+data 7 ");
}

TEST_F (ItemBaseTest, AnItemOutsideAnyListOnlyStoresWhatItIsGiven)
{
    CountedItem item ("A");
    h.list->AddListItem (item);
    h.list->FullRefreshList (true);
    h.list->DeleteListItem (&item, false);
    item.SetName ("B");
    item.SetStatus (false);
    item.SetVisibility (false);
    item.Select (true);
    EXPECT_FALSE (item.IsSelected ());
    EXPECT_EQ (h.ListBox ().GetSelectedItem (), 0);
    EXPECT_EQ (item.GetName ().ToUtf8 () + (item.GetStatus () ? "" : "~") + (item.IsVisible () ? "" : "-"), "B~-");
}

}   // namespace
