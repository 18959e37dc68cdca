// Rules a user relies on while editing: the focus stays in the edit being typed in, a disabled
// row takes no change, hidden items have no row, a program change redraws its row, and an item
// stands in one place only.

#include <gtest/gtest.h>

#include <memory>

#include "AttributeListTestSupport.hpp"
#include "Kor/Assert.hpp"
#include "Wg/ModalRunner.hpp"

namespace {

using namespace TxALTest;
using Params = TxAL::AttributeList::OptionalParameters;

const Wg::Icon NoIcon;

TxAL::AttributeListItem::PopupItem Entry (const char* text)
{
    TxAL::AttributeListItem::PopupItem entry;
    entry.SetText (text);
    return entry;
}

class UserChangeRulesTest : public ::testing::Test {
protected:
    ~UserChangeRulesTest () override { Wg::GetHeadlessModalRunner ().ClearScript (); }

    short Value () const { return h.list->GetAttributeNameColumnIndex (); }

    ListHarness h;
    CallLog     log;
};

TEST_F (UserChangeRulesTest, TypingAValueKeepsTheFocusWhenNamesAreEditable)
{
    h.list->SetEditableColumnNum (AttributeList::NameColumn);
    auto* real = h.list->CreateRealItem ("Width", NoIcon, 0, 1000, 0, true, true, false);
    log.Watch (*real);
    h.ClickColumn (1, Value ());
    ASSERT_EQ (h.Controls (), "sel=1 3:TextEdit 4:RealEdit focus=RealEdit");
    // Each accepted keystroke refreshes the row; the second digit must not rename the item.
    for (char16_t digit : {u'1', u'2', u'5'}) h.Char (digit);
    EXPECT_EQ (h.Controls (), "sel=1 3:TextEdit 4:RealEdit focus=RealEdit");
    EXPECT_EQ (real->GetName ().ToUtf8 (), "Width");
    EXPECT_DOUBLE_EQ (real->GetValue (), 125.0);
    EXPECT_EQ (log.Get (), "ValueChanged(Width) ValueChanged(Width) ValueChanged(Width)");
}

TEST_F (UserChangeRulesTest, ARefreshStillMovesTheFocusFromTheListBoxIntoTheEdit)
{
    auto* real = h.list->CreateRealItem ("Width", NoIcon, 0, 1000, 0, true, true, false);
    h.list->SelectItem (real, false);
    h.ListBox ().SetFocus ();
    real->SetValue (3.0);
    EXPECT_EQ (h.Controls (), "sel=1 4:RealEdit focus=RealEdit");
}

TEST_F (UserChangeRulesTest, ADisabledRowTakesNoUserChange)
{
    h.list->SetEditableColumnNum (AttributeList::NameColumn);
    auto* real = h.list->CreateRealItem ("Real", NoIcon, 0, 100, 5, true, false, false);
    auto* choice = h.list->CreateSelectionItem ("Choice", NoIcon, false, false);
    choice->AddItem (Entry ("One"));
    choice->AddItem (Entry ("Two"));
    h.list->CreateButtonItem ("Button", NoIcon, "Press", false, false);
    h.list->CreateRealItem ("Enabled", NoIcon, 0, 100, 5, true, true, false);
    for (AttributeListItem* item : h.list->GetItems ()) log.Watch (*item);
    TxAL::OnTabItems& c = h.list->GetOnTabItems ();

    h.ClickColumn (1, Value ());
    c.GetRealEdit ().UserType ("9");
    c.GetTextEdit ().UserType ("renamed");
    EXPECT_FALSE (c.GetRealEdit ().IsEnabled ());
    h.ClickColumn (2, h.list->GetCheckColumnIndex ());
    Wg::GetHeadlessModalRunner ().QueueChoose (2);
    c.GetPopupControl ().ShowAndTrackPopup ();
    Wg::GetHeadlessModalRunner ().QueueChoose (2);
    h.Key (Wg::Key::Down, Wg::Key::PopupFlag);
    h.ClickColumn (3, Value ());
    c.GetButton ().UserPress ();
    EXPECT_EQ (log.Get (), "");
    EXPECT_DOUBLE_EQ (real->GetValue (), 5.0);
    EXPECT_EQ (choice->GetSelected (), -1);
    EXPECT_EQ (real->GetName ().ToUtf8 (), "Real");
    EXPECT_EQ (h.Rows (), "1:Real|5.00~ 2:Choice~ 3:Button|Press~ 4:Enabled|5.00");

    // The shared controls come back enabled on an enabled row.
    h.ClickColumn (4, Value ());
    EXPECT_TRUE (c.GetRealEdit ().IsEnabled ());
    EXPECT_TRUE (c.GetTextEdit ().IsEnabled ());
    c.GetRealEdit ().UserType ("7");
    EXPECT_EQ (log.Take (), "ValueChanged(Enabled)");
    // Enabling the row again gives its controls back to the user.
    real->SetStatus (true);
    h.ClickColumn (1, Value ());
    c.GetRealEdit ().UserType ("8");
    EXPECT_EQ (log.Take (), "ValueChanged(Real)");
}

// Rows greyed after the selected row placed its controls: by DisableAllItems (a group's child
// keeps its own status, only its row is greyed) or by disabling the whole list box.
TEST_F (UserChangeRulesTest, ControlsFollowRowsGreyedAfterTheyWerePlaced)
{
    auto* group = h.list->CreateGroup ("G", NoIcon, true, true);
    auto* child = group->CreateRealItem (false, "Child", NoIcon, 0, 100, 5, true, true, false);
    log.Watch (*child);
    TxAL::OnTabItems& c = h.list->GetOnTabItems ();
    h.ClickColumn (2, Value ());
    h.list->DisableAllItems ();
    c.GetRealEdit ().UserType ("9");
    EXPECT_FALSE (c.GetRealEdit ().IsEnabled ());
    EXPECT_TRUE (h.list->EnableAllItems ());
    EXPECT_TRUE (c.GetRealEdit ().IsEnabled ());
    h.list->SetStatus (false);
    c.GetRealEdit ().UserType ("8");
    EXPECT_EQ (log.Get (), "");
    EXPECT_DOUBLE_EQ (child->GetValue (), 5.0);
    h.list->SetStatus (true);
    h.ClickColumn (2, Value ());
    c.GetRealEdit ().UserType ("7");
    EXPECT_EQ (log.Take (), "ValueChanged(Child)");
    // Disabled during a batch, before its row is refreshed.
    h.list->DisableUpdate ();
    child->SetStatus (false);
    c.GetRealEdit ().UserType ("6");
    EXPECT_EQ (log.Get (), "");
    h.list->EnableUpdate ();
}

TEST_F (UserChangeRulesTest, SpaceOnADisabledCheckRowIsLeftToTheHost)
{
    auto* check = h.list->CreateCheckItem ("Check", NoIcon, false, "", false, false);
    auto* live = h.list->CreateCheckItem ("Live", NoIcon, false, "", true, false);
    h.list->SelectItem (check, false);
    h.ListBox ().SetFocus ();
    EXPECT_FALSE (h.Char (u' '));
    EXPECT_FALSE (check->IsChecked ());
    h.list->SelectItem (live, false);
    EXPECT_TRUE (h.Char (u' '));
    EXPECT_TRUE (live->IsChecked ());
}

TEST_F (UserChangeRulesTest, ChildrenOfAHiddenGroupHaveNoRow)
{
    auto* group = h.list->CreateGroup ("G", NoIcon, true, true);
    auto* child = group->CreateTextItem (false, "Child", NoIcon, "child", false, true, false, true, false);
    for (const char* name : {"X", "Y", "Z"}) h.list->CreateTextItem (name, NoIcon, name, false, true, false, true, false);
    ASSERT_EQ (h.Rows (), "1:▾G 2:  Child|child 3:X|X 4:Y|Y 5:Z|Z");
    group->SetVisibility (false);
    ASSERT_EQ (h.Rows (), "1:X|X 2:Y|Y 3:Z|Z");
    // Row 2, once the child's, now carries Y.
    h.ClickColumn (2, Value ());
    EXPECT_FALSE (child->IsSelected ());
    child->SetText ("hidden", false);
    EXPECT_EQ (h.list->GetOnTabItems ().GetTextEdit ().GetText ().ToUtf8 (), "Y");
    group->SetVisibility (true);
    EXPECT_EQ (h.Rows (), "1:▾G 2:  Child|hidden 3:X|X 4:Y|Y 5:Z|Z");
    EXPECT_EQ (h.list->GetSelectedItem ()->GetName ().ToUtf8 (), "Y");
}

TEST_F (UserChangeRulesTest, AProgramSetTextRedrawsTheRow)
{
    auto* text = h.list->CreateTextItem ("Note", NoIcon, "old", false, true, false, true, false);
    const std::uint64_t redraws = h.ListBox ().GetRedrawCount ();
    text->SetText ("new", false);
    EXPECT_GT (h.ListBox ().GetRedrawCount (), redraws);
    EXPECT_EQ (h.Rows (), "1:Note|new");
    // An unchanged text redraws nothing.
    const std::uint64_t after = h.ListBox ().GetRedrawCount ();
    text->SetText ("new", false);
    EXPECT_EQ (h.ListBox ().GetRedrawCount (), after);
}

TEST_F (UserChangeRulesTest, AnItemStandsInOnePlaceOnly)
{
    CountedItem::TakeDestroyed ();
    ListHarness other;
    auto* group = h.list->CreateGroup ("G", NoIcon, true, true);
    CountedItem top ("Top"), elsewhere ("Elsewhere");
    h.list->AddListItem (top);
    other.list->AddListItem (elsewhere);
    h.list->FullRefreshList (true);
    other.list->FullRefreshList (true);
    auto* child = group->CreateTextItem (false, "Child", NoIcon, "", false, true, false, true, false);

    Kor::ScopedAssertCapture refusals;
    h.list->AddListItem (top);                  // twice in one list
    other.list->AddListItem (top);              // in two lists
    group->AddItem (top);                       // a top-level item into a group
    group->AddMasterItem (elsewhere);           // another list's item as master
    h.list->AddListItem (child);                // a group's child at the top level
    h.list->RemoveListItem (child);             // taken out of a group through the list
    h.list->DeleteListItem (&elsewhere, true);  // another list's item
    h.list->DetachListItemFromList (&elsewhere);
    h.list->SelectItem (&elsewhere, false);
    EXPECT_EQ (refusals.GetCount (), 9u);
    for (const Kor::AssertReport& report : refusals.GetReports ()) EXPECT_EQ (report.prefix, "TxAL error");

    EXPECT_EQ (h.Rows (), "1:▾G 2:  Child 3:Top");
    EXPECT_EQ (other.Rows (), "1:Elsewhere");
    EXPECT_EQ (other.list->GetSelectedItem (), &elsewhere);
    // Every place lets go cleanly: nothing dangles at the next clear.
    h.list->ClearList (true);
    other.list->ClearList (true);
    EXPECT_EQ (CountedItem::TakeDestroyed (), "");
    EXPECT_FALSE (top.InList () || elsewhere.InList ());
}

}   // namespace
