// Observers that destroy or rebuild from inside a notification, and user typing committed as a
// side effect of another operation. Each case ran into freed memory before the list checked
// that its objects survived; the sanitizer build reports any such access.

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "AttributeListTestSupport.hpp"
#include "Wg/ModalRunner.hpp"

namespace {

using namespace TxALTest;
using Params = TxAL::AttributeList::OptionalParameters;

const Wg::Icon NoIcon;

Params TypingParams ()
{
    return Params ().SetEditControlAutoUpdate (false);
}

TxAL::AttributeListTextItem* CreateText (TxAL::AttributeList& list, const char* name, const char* text = "")
{
    return list.CreateTextItem (name, NoIcon, text, false, true, false, true, false);
}

class ReentrancyTest : public ::testing::Test {
protected:
    ~ReentrancyTest () override { Wg::GetHeadlessModalRunner ().ClearScript (); }

    // Clicks the value cell of the row and types without confirming (auto update is off).
    static void TypeInto (ListHarness& h, short row, const char* characters)
    {
        h.ClickColumn (row, h.list->GetAttributeNameColumnIndex ());
        ASSERT_TRUE (h.list->GetOnTabItems ().GetTextEdit ().IsFocused ());
        h.list->GetOnTabItems ().GetTextEdit ().UserType (characters);
    }

    CallLog log;
};

TEST_F (ReentrancyTest, HeightObserverClearsTheListDuringARebuild)
{
    ListHarness h;
    CreateText (*h.list, "A");
    CreateText (*h.list, "B");
    h.list->SelectItem (h.list->GetItems ()[1], false);
    log.Watch (*h.list);
    bool cleared = false;
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "Height" && !cleared) {
            cleared = true;
            h.list->ClearList (true);
        }
    };
    CreateText (*h.list, "C");
    EXPECT_TRUE (h.list->IsEmpty ());
    EXPECT_EQ (h.Rows (), "");
    EXPECT_EQ (h.list->GetSelectedItem (), nullptr);
}

TEST_F (ReentrancyTest, ButtonRowWhoseObserverDestroysTheList)
{
    ListHarness h;
    auto* close = h.list->CreateButtonItem ("Close", NoIcon, "Close", true, false);
    log.Watch (*close);
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "ButtonClicked") h.list.reset ();
    };
    h.ClickColumn (1, h.list->GetAttributeNameColumnIndex ());
    ASSERT_TRUE (h.list->GetOnTabItems ().GetButton ().IsVisible ());
    h.list->GetOnTabItems ().GetButton ().UserPress ();
    EXPECT_EQ (h.list, nullptr);
    EXPECT_EQ (log.Get (), "ButtonClicked(Close) Destroyed");
    EXPECT_EQ (h.panel.GetFocusedItem (), nullptr);
}

TEST_F (ReentrancyTest, ToolTipObserverDeletesTheItem)
{
    ListHarness h;
    auto* item = CreateText (*h.list, "Tip");
    item->SetDefaultToolTip ("default");
    log.Watch (*item);
    log.onCall = [&] (const std::string& call, const AttributeListItem* about) {
        if (call == "ToolTip") h.list->RemoveListItem (const_cast<AttributeListItem*> (about));
    };
    EXPECT_EQ (h.ListBox ().RequestToolTip (1).ToUtf8 (), "");
    EXPECT_TRUE (h.list->IsEmpty ());
}

TEST_F (ReentrancyTest, SelectingAnItemThatTheCommitRemoves)
{
    ListHarness h (TypingParams ());
    auto* a = CreateText (*h.list, "A");
    auto* b = CreateText (*h.list, "B");
    log.Watch (*a);
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "TextChanged") h.list->RemoveListItem (b);
    };
    TypeInto (h, 1, "x");
    b->Select (true);
    EXPECT_EQ (log.Get (), "TextChanged(A)");
    EXPECT_EQ (h.Rows (), "1:A|x");
    EXPECT_EQ (a->GetText ().ToUtf8 (), "x");
}

TEST_F (ReentrancyTest, ReleasingAMasterWhoseCommitRemovesTheGroup)
{
    for (bool clearOnly : {false, true}) {
        ListHarness h (TypingParams ());
        auto* group = h.list->CreateGroup ("G", NoIcon, true, true);
        auto* master = group->CreateTextItem (true, "M", NoIcon, "", false, true, false, true, false);
        CreateText (*h.list, "After");
        CallLog masterLog;
        masterLog.Watch (*master);
        masterLog.onCall = [&] (const std::string& call, const AttributeListItem*) {
            if (call == "TextChanged") h.list->RemoveListItem (group);
        };
        TypeInto (h, 1, "y");
        if (clearOnly)
            group->ClearMasterItem ();
        else
            group->RemoveMasterItem ();
        EXPECT_EQ (masterLog.Get (), "TextChanged(M) Destroyed") << clearOnly;
        EXPECT_EQ (h.Rows (), "1:After") << clearOnly;
    }
}

// Deleting an owned master rebuilds the rows; a row-count observer of that rebuild destroys the
// list, and the group with it, while the group is still releasing its master.
TEST_F (ReentrancyTest, ReleasingAnOwnedMasterWhoseRebuildDestroysTheList)
{
    ListHarness h;
    auto* group = h.list->CreateGroup ("G", NoIcon, true, true);
    group->CreateTextItem (true, "M", NoIcon, "", false, true, false, true, false);
    CountedItem pending ("Pending");
    h.list->AddListItem (pending);   // shown at the next rebuild, which changes the row count
    log.Watch (*h.list);
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "Height") h.list.reset ();
    };
    group->ClearMasterItem ();
    EXPECT_EQ (h.list, nullptr);
    EXPECT_EQ (log.Get (), "Height Destroyed");
    EXPECT_FALSE (pending.InList ());
}

TEST_F (ReentrancyTest, ReplacingAChildWhoseCommitRemovesTheGroup)
{
    ListHarness h (TypingParams ());
    auto* group = h.list->CreateGroup ("G", NoIcon, true, true);
    auto* old = group->CreateTextItem (false, "Old", NoIcon, "", false, true, false, true, false);
    log.Watch (*old);
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "TextChanged") h.list->RemoveListItem (group);
    };
    TypeInto (h, 2, "z");
    auto replacement = std::make_unique<CountedItem> ("New");
    group->ReplaceItem (old, replacement.get ());
    // The typing reached the item it was typed into, before the replacement.
    EXPECT_EQ (log.Get (), "TextChanged(Old) Destroyed");
    EXPECT_TRUE (h.list->IsEmpty ());
    EXPECT_FALSE (replacement->InList ());
}

// Two lists on one panel: a program change in the first moves the focus out of the second,
// whose commit clears the first.
TEST_F (ReentrancyTest, ProgramSetterInOneListWhileTheUserTypesInAnother)
{
    for (int setter = 0; setter < 3; ++setter) {
        Wg::Panel panel (Wg::Rect (0, 0, 800, 600), ListHarness::NextPanelId ());
        TxAL::AttributeList first (panel, 10, 10, 445, 200, TypingParams ());
        TxAL::AttributeList second (panel, 10, 220, 445, 200, TypingParams ());
        auto* real = first.CreateRealItem ("R", NoIcon, 0, 100, 50, true, true, false);
        first.SelectItem (real, false);
        auto* typed = CreateText (second, "T");
        CallLog typedLog;
        typedLog.Watch (*typed);
        typedLog.onCall = [&] (const std::string& call, const AttributeListItem*) {
            if (call == "TextChanged") first.ClearList (true);
        };
        second.GetListBox ().Click (1, Wg::Point (240, 5));
        ASSERT_TRUE (second.GetOnTabItems ().GetTextEdit ().IsFocused ());
        second.GetOnTabItems ().GetTextEdit ().UserType ("w");
        if (setter == 0) real->SetValue (7.0);
        if (setter == 1) real->SetMinValue (60.0);
        if (setter == 2) real->SetMaxValue (20.0);
        EXPECT_EQ (typedLog.Get (), "TextChanged(T)") << setter;
        EXPECT_TRUE (first.IsEmpty ()) << setter;
        EXPECT_EQ (typed->GetText ().ToUtf8 (), "w") << setter;
    }
}

TEST_F (ReentrancyTest, PopupChoiceInOneListWhileTheUserTypesInAnother)
{
    Wg::Panel panel (Wg::Rect (0, 0, 800, 600), ListHarness::NextPanelId ());
    TxAL::AttributeList first (panel, 10, 10, 445, 200, TypingParams ());
    TxAL::AttributeList second (panel, 10, 220, 445, 200, TypingParams ());
    auto* choice = first.CreateTextItem ("Finish", NoIcon, "", false, true, true, true, false);
    TxAL::AttributeListItem::PopupItem matt, gloss;
    matt.SetText ("Matt");
    gloss.SetText ("Gloss");
    choice->AddItem (matt);
    choice->AddItem (gloss);
    first.SelectItem (choice, false);
    CallLog choiceLog;
    choiceLog.Watch (*choice);
    auto* typed = CreateText (second, "T");
    log.Watch (*typed);
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "TextChanged") first.ClearList (true);
    };
    second.GetListBox ().Click (1, Wg::Point (240, 5));
    second.GetOnTabItems ().GetTextEdit ().UserType ("v");
    Pk::PopupControl& popup = first.GetOnTabItems ().GetPopupControl ();
    ASSERT_TRUE (first.GetListBox ().IsOnTabItem (popup));
    Wg::GetHeadlessModalRunner ().QueueChoose (2);
    popup.ShowAndTrackPopup ();
    EXPECT_EQ (log.Get (), "TextChanged(T)");
    EXPECT_TRUE (first.IsEmpty ());
    // The item went before it could tell of the choice, or told of it while alive.
    EXPECT_TRUE (choiceLog.Get () == "Destroyed" || choiceLog.Get () == "SelectionChanged(Finish) TextChanged(Finish) Destroyed")
        << choiceLog.Get ();
}

TEST_F (ReentrancyTest, ListObserverThatThrowsLeavesTheListUsable)
{
    ListHarness h;
    CreateText (*h.list, "A");
    log.Watch (*h.list);
    log.onCall = [] (const std::string& call, const AttributeListItem*) {
        if (call == "Height") throw std::runtime_error ("observer failed");
    };
    EXPECT_THROW (CreateText (*h.list, "B"), std::runtime_error);
    log.onCall = nullptr;
    log.Take ();
    CreateText (*h.list, "C");
    EXPECT_EQ (log.Get (), "Height");
    EXPECT_EQ (h.Rows (), "1:A 2:B 3:C");
}

}   // namespace
