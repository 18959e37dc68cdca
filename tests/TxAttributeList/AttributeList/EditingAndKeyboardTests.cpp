// In-place controls, commits on a change of row, the keyboard, and the focus and selection guards.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "AttributeListTestSupport.hpp"
#include "Wg/ModalRunner.hpp"

namespace {

using namespace TxALTest;
using Params = AttributeList::OptionalParameters;

const Wg::Icon NoIcon;

// What stands over the row once it is clicked on its label: "4:LengthEdit".
std::string ControlsOfRow (ListHarness& h, short row)
{
    h.ClickColumn (row, h.list->GetAttributeTypeColumnIndex ());
    std::string controls = h.Controls ();
    const std::string prefix = "sel=" + std::to_string (row);
    if (controls.rfind (prefix, 0) != 0) return "not selected: " + controls;
    controls = controls.substr (prefix.size ());
    const std::size_t focus = controls.find (" focus=");
    const std::string stray = controls.find ("stray") != std::string::npos ? " (stray)" : "";
    controls = controls.substr (0, focus);
    if (!controls.empty ()) controls.erase (0, 1);
    return controls + stray;
}

TEST (InPlaceControlTest, EachKindOfRowGetsItsControlOverItsColumn)
{
    ListHarness h;
    AttributeList& list = *h.list;
    list.CreateLengthItem ("Len", NoIcon, 0, 10, 1, true, true, false);
    list.CreateIntItem ("Int", NoIcon, 0, 10, 1, true, true, false);
    list.CreateTextItem ("Text", NoIcon, "t", false, true, false, true, false);
    auto* selection = list.CreateSelectionItem ("Sel", NoIcon, true, false);
    TxAL::AttributeListItem::PopupItem entry;
    entry.SetText ("Brick");
    selection->AddItem (entry);
    list.CreateCheckItem ("Check", NoIcon, true, "", true, false);
    list.CreateButtonItem ("Button", NoIcon, "Edit...", true, false);
    list.CreateIconButtonItem ("IconButton", NoIcon, "x", "", NoIcon, true, false);
    CountedItem popup ("Popup");
    popup.SetIconColumnPopupItems ({entry, entry});
    list.AddListItem (popup);
    AttributeListGroupItem* group = list.CreateGroup ("G", NoIcon, true, true);
    group->CreateLengthItem (true, "M", NoIcon, 0, 10, 2, true, true, false);

    std::string out;
    for (short row = 1; row <= h.ListBox ().GetItemCount (); ++row) out += std::to_string (row) + "=" + ControlsOfRow (h, row) + " ";
    EXPECT_EQ (out, "1=4:LengthEdit 2=4:IntEdit 3=4:TextEdit 4=6:PopupControl 5= 6=4:Button 7=6:IconButton 8=2:IconColumnPopup 9=4:LengthEdit ");

    list.SetEditableColumnNum (AttributeList::NameColumn);
    EXPECT_EQ (ControlsOfRow (h, 8), "2:IconColumnPopup 3:TextEdit");
    EXPECT_EQ (list.GetOnTabItems ().GetTextEdit ().GetText ().ToUtf8 (), "Popup");
    list.ClearList (true);
}

TEST (InPlaceControlTest, TheIconColumnPopupChoosesTheItemsEntry)
{
    ListHarness h;
    CountedItem item ("A");
    TxAL::AttributeListItem::PopupItem first, second;
    first.SetText ("Plan");
    second.SetText ("Section");
    item.SetIconColumnPopupItems ({first, second});
    h.list->AddListItem (item);
    h.list->FullRefreshList (true);
    CallLog log;
    log.Watch (item);
    Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
    runner.ClearScript ();
    runner.QueueChoose (2);
    h.list->GetOnTabItems ().GetIconColumnPopup ().UserPress ();
    EXPECT_EQ (log.Take (), "IconColumnPopupChanged(A)");
    EXPECT_EQ (item.GetSelectedIconColumnPopupItemIndex (), 1u);
    EXPECT_EQ (runner.GetPendingStepCount (), 0u);
}

// --- Which control is on the list box, and which one takes the focus ---

class OnTabControlTest : public ::testing::Test {
protected:
    OnTabControlTest ()
    {
        h.list->AddListItem (row);
        h.list->FullRefreshList (true);
        h.ListBox ().SetFocus ();
    }

    // Lays the controls over columns 3, 4, ... of the selected row, and nothing else.
    void Place (std::initializer_list<Wg::Item*> controls)
    {
        h.ListBox ().RemoveAllOnTabItems ();
        short column = 3;
        for (Wg::Item* control : controls) h.ListBox ().SetOnTabItem (column++, *control);
    }

    // The control of the given name, from the list's table of in-place controls.
    Wg::Item* Control (const std::string& name)
    {
        for (const auto& [control, controlName] : ControlNames (h.list->GetOnTabItems ()))
            if (controlName == name) return const_cast<Wg::Item*> (control);
        ADD_FAILURE () << "no control " << name;
        return nullptr;
    }

    // The edits that take the focus, in the order in which they are preferred.
    std::vector<std::pair<std::string, Wg::Item*>> FocusOrder ()
    {
        std::istringstream names ("IntEdit PosIntEdit LengthEdit AreaEdit VolumeEdit AngleEdit PolarAngleEdit TextEdit RealEdit "
                                  "PTStiffnessEdit PRStiffnessEdit LTStiffnessEdit LRStiffnessEdit STStiffnessEdit TRForceEdit "
                                  "RRMomentEdit PLForceEdit PLMomentEdit ELForceEdit ELMomentEdit SLForceEdit");
        std::vector<std::pair<std::string, Wg::Item*>> order;
        for (std::string name; names >> name;) order.emplace_back (name, Control (name));
        return order;
    }

    ListHarness h;
    CountedItem row {"A"};
};

TEST_F (OnTabControlTest, EachQueryAnswersForItsOwnControlOnly)
{
    AttributeList& l = *h.list;
    const std::vector<std::pair<std::string, bool (AttributeList::*) () const>> queries = {
        {"IntEdit", &AttributeList::IsIntEditOnTabItemVisible},
        {"PosIntEdit", &AttributeList::IsPosIntEditOnTabItemVisible},
        {"Slider", &AttributeList::IsSliderOnTabItemVisible},
        {"LengthEdit", &AttributeList::IsLengthEditOnTabItemVisible},
        {"AreaEdit", &AttributeList::IsAreaEditOnTabItemVisible},
        {"VolumeEdit", &AttributeList::IsVolumeEditOnTabItemVisible},
        {"AngleEdit", &AttributeList::IsAngleEditOnTabItemVisible},
        {"PolarAngleEdit", &AttributeList::IsPolarAngleEditOnTabItemVisible},
        {"TextEdit", &AttributeList::IsTextEditOnTabItemVisible},
        {"RealEdit", &AttributeList::IsRealEditOnTabItemVisible},
        {"PTStiffnessEdit", &AttributeList::IsPTStiffnessEditOnTabItemVisible},
        {"PRStiffnessEdit", &AttributeList::IsPRStiffnessEditOnTabItemVisible},
        {"LTStiffnessEdit", &AttributeList::IsLTStiffnessEditOnTabItemVisible},
        {"LRStiffnessEdit", &AttributeList::IsLRStiffnessEditOnTabItemVisible},
        {"STStiffnessEdit", &AttributeList::IsSTStiffnessEditOnTabItemVisible},
        {"TRForceEdit", &AttributeList::IsTRForceEditOnTabItemVisible},
        {"RRMomentEdit", &AttributeList::IsRRMomentEditOnTabItemVisible},
        {"PLForceEdit", &AttributeList::IsPLForceEditOnTabItemVisible},
        {"PLMomentEdit", &AttributeList::IsPLMomentEditOnTabItemVisible},
        {"ELForceEdit", &AttributeList::IsELForceEditOnTabItemVisible},
        {"ELMomentEdit", &AttributeList::IsELMomentEditOnTabItemVisible},
        {"SLForceEdit", &AttributeList::IsSLForceEditOnTabItemVisible},
    };
    // Every control of the list, the ones without a query included.
    constexpr std::size_t ControlCount = 30;
    const auto controls = ControlNames (l.GetOnTabItems ());
    ASSERT_EQ (controls.size (), ControlCount);
    std::string mismatches;
    for (const auto& [control, name] : controls) {
        Place ({const_cast<Wg::Item*> (control)});
        std::string answered;
        for (const auto& [query, fn] : queries)
            if ((l.*fn) ()) answered += (answered.empty () ? "" : ",") + query;
        const bool hasQuery = std::any_of (queries.begin (), queries.end (), [&] (const auto& q) { return q.first == name; });
        if (answered != (hasQuery ? name : "")) mismatches += name + "->" + answered + " ";
    }
    EXPECT_EQ (mismatches, "");
    Place ({});
    for (const auto& [query, fn] : queries) EXPECT_FALSE ((l.*fn) ()) << query;
}

TEST_F (OnTabControlTest, TheFocusGoesToThePreferredEditWhateverItsColumn)
{
    const auto order = FocusOrder ();
    std::string wrong;
    for (std::size_t i = 0; i + 1 < order.size (); ++i) {
        for (bool preferredFirst : {true, false}) {
            Place (preferredFirst ? std::initializer_list<Wg::Item*> {order[i].second, order[i + 1].second}
                                  : std::initializer_list<Wg::Item*> {order[i + 1].second, order[i].second});
            h.ListBox ().SetFocus ();
            h.list->SetFocusToEditControl ();
            if (!order[i].second->IsFocused ()) wrong += order[i].first + "/" + order[i + 1].first + " ";
            EXPECT_TRUE (h.list->IsEditControlFocused ());
        }
    }
    EXPECT_EQ (wrong, "");

    // The second real edit, the slider, the user controls, the buttons and the check box never
    // take the focus this way: the list box keeps it.
    for (std::initializer_list<Wg::Item*> others : {std::initializer_list<Wg::Item*> {Control ("SecondRealEdit"), Control ("Slider"), Control ("Pk257")},
                                                    {Control ("Pk261"), Control ("PopupControl"), Control ("Button"), Control ("CheckBox")},
                                                    {Control ("IconButton"), Control ("IconColumnPopup")}}) {
        Place (others);
        h.ListBox ().SetFocus ();
        h.list->SetFocusToEditControl ();
        EXPECT_EQ (h.Controls ().substr (h.Controls ().find ("focus=")), "focus=ListBox");
        EXPECT_TRUE (h.list->IsListFocused ());
    }
}

TEST_F (OnTabControlTest, OnlyTheEditsCountAsEditFocusAndAllCountAsListFocus)
{
    std::string edits, outside;
    for (const auto& [control, name] : ControlNames (h.list->GetOnTabItems ())) {
        auto* item = const_cast<Wg::Item*> (control);
        Place ({item});
        item->SetFocus ();
        if (!item->IsFocused ()) continue;
        if (h.list->IsEditControlFocused ()) edits += name + " ";
        if (!h.list->IsListFocused ()) outside += name + " ";
    }
    EXPECT_EQ (edits, "IntEdit PosIntEdit LengthEdit AreaEdit VolumeEdit AngleEdit PolarAngleEdit TextEdit RealEdit SecondRealEdit "
                      "PTStiffnessEdit PRStiffnessEdit LTStiffnessEdit LRStiffnessEdit STStiffnessEdit TRForceEdit RRMomentEdit "
                      "PLForceEdit PLMomentEdit ELForceEdit ELMomentEdit SLForceEdit ");
    EXPECT_EQ (outside, "");
}

class CommitTest : public ::testing::Test {
protected:
    // Two lengths and a check item; edits send their change only when the user commits.
    CommitTest () : h (Params ().SetEditControlAutoUpdate (false))
    {
        a = h.list->CreateLengthItem ("A", NoIcon, 0, 10, 1, true, true, false);
        b = h.list->CreateLengthItem ("B", NoIcon, 0, 10, 2, true, true, false);
        h.list->CreateCheckItem ("C", NoIcon, false, "", true, false);
        log.Watch (*a);
        log.Watch (*b);
    }

    Wg::RealEdit& LengthEdit () { return h.list->GetOnTabItems ().GetLengthEdit (); }

    ListHarness                    h;
    TxAL::AttributeListLengthItem* a;
    TxAL::AttributeListLengthItem* b;
    CallLog                        log;
};

TEST_F (CommitTest, ClickingAnotherRowCommitsWhatWasTyped)
{
    h.ClickColumn (1, 4);
    ASSERT_EQ (h.Controls (), "sel=1 4:LengthEdit focus=LengthEdit");
    LengthEdit ().UserType ("3");
    h.ClickColumn (3, 3);
    EXPECT_EQ (log.Take (), "ValueChanged(A)");
    EXPECT_EQ (h.Rows (), "1:A|3.000 m 2:B|2.000 m 3:C|[ ]");
    EXPECT_EQ (h.Controls (), "sel=3 focus=ListBox");

    h.ClickColumn (1, 4);
    LengthEdit ().UserType ("4");
    h.ClickColumn (2, 4);   // the same edit serves the new row
    EXPECT_EQ (log.Take (), "ValueChanged(A)");
    EXPECT_EQ (h.Rows (), "1:A|4.000 m 2:B|2.000 m 3:C|[ ]");
    EXPECT_EQ (h.Controls (), "sel=2 4:LengthEdit focus=LengthEdit");
    EXPECT_EQ (LengthEdit ().GetValue (), 2.0);
}

TEST_F (CommitTest, ArrowKeysCommitWhatWasTypedAndKeepTheKeyboardInTheList)
{
    h.ClickColumn (1, 4);
    LengthEdit ().UserType ("5");
    EXPECT_TRUE (h.Key (Wg::Key::Down));
    EXPECT_EQ (log.Take (), "ValueChanged(A)");
    EXPECT_EQ (h.Controls (), "sel=2 4:LengthEdit focus=LengthEdit");
    LengthEdit ().UserType ("6");
    EXPECT_TRUE (h.Key (Wg::Key::Down));   // onto a row without an edit
    EXPECT_EQ (log.Take (), "ValueChanged(B)");
    EXPECT_EQ (h.Rows (), "1:A|5.000 m 2:B|6.000 m 3:C|[ ]");
    EXPECT_EQ (h.Controls (), "sel=3 focus=ListBox");
    EXPECT_TRUE (h.Key (Wg::Key::Up));
    EXPECT_EQ (h.Controls (), "sel=2 4:LengthEdit focus=LengthEdit");
}

TEST_F (CommitTest, AnArrowKeyWhoseCommitDestroysTheListEndsThere)
{
    h.ClickColumn (1, 4);
    LengthEdit ().UserType ("5");
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "ValueChanged") h.list.reset ();
    };
    EXPECT_TRUE (h.Key (Wg::Key::Down));
    EXPECT_EQ (h.list, nullptr);
    EXPECT_EQ (log.Take (), "ValueChanged(A) Destroyed Destroyed");
}

TEST_F (CommitTest, DestroyingTheListCommitsWhatWasTypedToItsItem)
{
    TxAL::AttributeListLengthItem kept ("Kept", NoIcon, 0, 10, 1, true, true, false);
    h.list->AddListItem (kept);
    h.list->FullRefreshList (true);
    h.ClickColumn (4, 4);
    LengthEdit ().UserType ("7");
    h.list.reset ();
    EXPECT_EQ (kept.GetValue (), 7.0);
}

TEST_F (CommitTest, ClearingTheListCommitsWhatWasTypedWhileItsItemIsThere)
{
    TxAL::AttributeListLengthItem kept ("Kept", NoIcon, 0, 10, 1, true, true, false);
    h.list->AddListItem (kept);
    h.list->FullRefreshList (true);
    h.ClickColumn (4, 4);
    LengthEdit ().UserType ("8");
    // A palette rebuilt for another element clears its list first.
    h.list->ClearList (false);
    EXPECT_EQ (kept.GetValue (), 8.0);

    // The commit's observer may clear the list itself.
    h.list->AddListItem (kept);
    h.list->FullRefreshList (true);
    h.ClickColumn (1, 4);
    LengthEdit ().UserType ("9");
    CallLog clearer;
    clearer.Watch (kept);
    clearer.onCall = [this] (const std::string&, const AttributeListItem*) { h.list->ClearList (true); };
    h.list->ClearList (true);
    EXPECT_EQ (clearer.Take (), "ValueChanged(Kept)");
    EXPECT_EQ (kept.GetValue (), 9.0);
    EXPECT_EQ (h.Rows (), "");
}

// --- Keyboard ---

class KeyboardTest : public ::testing::Test {
protected:
    // 1 A  2 B (disabled)  3 group G  4 length L  5 check K  6 selection S  7 Z (disabled)
    KeyboardTest ()
    {
        h.list->AddListItem (a);
        h.list->AddListItem (b);
        group = h.list->CreateGroup ("G", NoIcon, true, true);
        length = group->CreateLengthItem (false, "L", NoIcon, 0, 10, 1, true, true, false);
        check = group->CreateCheckItem (false, "K", NoIcon, false, "", true, false);
        selection = h.list->CreateSelectionItem ("S", NoIcon, true, false);
        for (const char* text : {"Brick", "Concrete", "Wood"}) {
            TxAL::AttributeListItem::PopupItem entry;
            entry.SetText (text);
            selection->AddItem (entry);
        }
        h.list->AddListItem (z);
        h.list->FullRefreshList (true);
        log.Watch (*h.list);
        log.Watch (*check);
        log.Watch (*selection);
        h.ClickColumn (1, 3);
        log.Take ();
    }

    std::string Selected () { return std::to_string (h.ListBox ().GetSelectedItem ()); }

    ListHarness                       h;
    CountedItem                       a {"A"}, b {"B", "", false}, z {"Z", "", false};
    AttributeListGroupItem*           group = nullptr;
    TxAL::AttributeListLengthItem*    length = nullptr;
    TxAL::AttributeListCheckItem*     check = nullptr;
    TxAL::AttributeListSelectionItem* selection = nullptr;
    CallLog                           log;
};

TEST_F (KeyboardTest, TabStepsLikeTheArrowsButThroughEachRowsEditsAndKeepsTheRowsKeys)
{
    // Where the keyboard is after each Tab: "row:control".
    const auto tabs = [this] (int count, int modifiers) {
        std::string out;
        for (int i = 0; i < count; ++i) {
            EXPECT_TRUE (h.Key (Wg::Key::Tab, modifiers));
            const std::string controls = h.Controls ();
            out += (out.empty () ? "" : " ") + Selected () + ":" + controls.substr (controls.find ("focus=") + 6);
        }
        return out;
    };
    EXPECT_EQ (tabs (6, 0), "3:ListBox 4:LengthEdit 5:ListBox 6:ListBox 6:ListBox 6:ListBox");
    EXPECT_EQ (log.Take (), "Selection Selection Selection Selection");
    // A row reached by Tab takes its own keys: Space checks, the popup modifier opens.
    EXPECT_EQ (tabs (1, Wg::Key::ShiftFlag), "5:ListBox");
    EXPECT_TRUE (h.Char (u' '));
    EXPECT_EQ (log.Take (), "Selection CheckChanged(K)");
    EXPECT_EQ (tabs (4, Wg::Key::ShiftFlag), "4:LengthEdit 3:ListBox 1:ListBox 1:ListBox");
    EXPECT_EQ (log.Take (), "Selection Selection Selection");
}

TEST_F (KeyboardTest, TabAfterTypingNotifiesNoMoreThanTheKeystrokesDid)
{
    h.ClickColumn (4, 4);
    log.Watch (*length);
    log.Take ();
    // Auto update (the default): each keystroke reports; the maximum bounds what is typed.
    h.list->GetOnTabItems ().GetLengthEdit ().UserType ("42");
    EXPECT_EQ (log.Take (), "ValueChanged(L) ValueChanged(L)");
    EXPECT_TRUE (h.Key (Wg::Key::Tab));
    EXPECT_EQ (log.Take (), "Selection");
    EXPECT_EQ (h.Rows (), "1:A 2:B~ 3:▾G 4:  L|10.000 m 5:  K|[ ] 6:S 7:Z~");
}

TEST (NameColumnTabTest, TabGoesFromTheNameToTheValueAndThenToTheNextRowsName)
{
    ListHarness h;
    h.list->SetEditableColumnNum (AttributeList::NameColumn);
    h.list->CreateLengthItem ("A", NoIcon, 0, 10, 1, true, true, false);
    h.list->CreateTextItem ("B", NoIcon, "b", false, true, false, true, false);
    h.list->CreateLengthItem ("C", NoIcon, 0, 10, 2, true, true, false);
    h.ClickColumn (1, 3);
    std::string path = h.Controls ();
    for (int i = 0; i < 4; ++i) {
        h.Key (Wg::Key::Tab);
        path += " | " + h.Controls ();
    }
    // The text row has one shared text edit: it serves as its name edit and moves over to
    // the value, so the row has a single stop.
    EXPECT_EQ (path, "sel=1 3:TextEdit 4:LengthEdit focus=TextEdit | sel=1 3:TextEdit 4:LengthEdit focus=LengthEdit"
                     " | sel=2 4:TextEdit focus=TextEdit | sel=3 3:TextEdit 4:LengthEdit focus=TextEdit"
                     " | sel=3 3:TextEdit 4:LengthEdit focus=LengthEdit");
    h.list->ClearList (true);
}

TEST_F (KeyboardTest, ArrowsSkipDisabledRowsAndStopAtTheEnds)
{
    ASSERT_EQ (h.Rows (), "1:A 2:B~ 3:▾G 4:  L|1.000 m 5:  K|[ ] 6:S 7:Z~");
    std::string path;
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE (h.Key (Wg::Key::Down));
        path += Selected ();
    }
    for (int i = 0; i < 6; ++i) {
        EXPECT_TRUE (h.Key (Wg::Key::Up));
        path += Selected ();
    }
    EXPECT_EQ (path, "34566" "543111");
    EXPECT_EQ (log.Take (), "Selection Selection Selection Selection Selection Selection Selection Selection");
}

TEST_F (KeyboardTest, LeftAndRightFoldOnlyGroupRows)
{
    h.ClickColumn (4, 3);
    EXPECT_TRUE (h.Key (Wg::Key::Left));   // a value row inside the group: nothing folds
    EXPECT_TRUE (group->IsExpanded ());
    h.ClickColumn (3, 3);
    EXPECT_TRUE (h.Key (Wg::Key::Left));
    EXPECT_EQ (h.Rows (), "1:A 2:B~ 3:▸G 4:S 5:Z~");
    EXPECT_TRUE (h.Key (Wg::Key::Right));
    EXPECT_EQ (h.Rows (), "1:A 2:B~ 3:▾G 4:  L|1.000 m 5:  K|[ ] 6:S 7:Z~");
}

TEST_F (KeyboardTest, FoldingEndsWhenAnObserverDestroysTheList)
{
    h.ClickColumn (3, 3);
    // The row count changes with each fold; the first observer to hear of it closes the list.
    log.onCall = [&] (const std::string& call, const AttributeListItem*) {
        if (call == "Height") h.list.reset ();
    };
    EXPECT_TRUE (h.Key (Wg::Key::Left));
    EXPECT_EQ (h.list, nullptr);
    EXPECT_FALSE (a.InList ());
}

TEST_F (KeyboardTest, WithAnEditFocusedSideArrowsGoToTheEditUnlessThePopupModifierIsHeld)
{
    auto* text = h.list->CreateTextItem ("T", NoIcon, "", false, true, false, true, false);
    ASSERT_EQ (text->GetName ().ToUtf8 (), "T");
    h.ClickColumn (8, 4);
    Wg::TextEdit& edit = h.list->GetOnTabItems ().GetTextEdit ();
    ASSERT_EQ (h.Controls (), "sel=8 4:TextEdit focus=TextEdit");
    edit.UserType ("abc");
    h.Key (Wg::Key::Left);
    EXPECT_EQ (edit.GetSelection ().GetEnd (), 2);   // the caret moved
    EXPECT_TRUE (h.Key (Wg::Key::Left, Wg::Key::PopupFlag));
    EXPECT_EQ (edit.GetSelection ().GetEnd (), 2);   // the list kept the arrow
}

TEST_F (KeyboardTest, SpaceTogglesACheckRowOnly)
{
    EXPECT_FALSE (h.Char (u' '));
    h.ClickColumn (5, 3);
    EXPECT_TRUE (h.Char (u' '));
    EXPECT_EQ (log.Take (), "Selection CheckChanged(K)");
    EXPECT_EQ (h.Rows (), "1:A 2:B~ 3:▾G 4:  L|1.000 m 5:  K|[x] 6:S 7:Z~");
}

TEST_F (KeyboardTest, PopupModifierAndDownOpensTheSelectionPopup)
{
    Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
    runner.ClearScript ();
    const int runs = runner.GetRunCount ();
    h.ClickColumn (6, 3);
    log.Take ();
    runner.QueueTrack (2);
    runner.QueueChoose (3);
    EXPECT_TRUE (h.Key (Wg::Key::Down, Wg::Key::PopupFlag));
    EXPECT_EQ (runner.GetRunCount (), runs + 1);
    EXPECT_EQ (log.Take (), "SelectionChanged(S)");
    EXPECT_EQ (Selected (), "6");
    EXPECT_EQ (h.Rows (), "1:A 2:B~ 3:▾G 4:  L|1.000 m 5:  K|[ ] 6:S|Wood 7:Z~");

    h.ClickColumn (5, 3);   // on a row of another kind it is a plain Down
    EXPECT_TRUE (h.Key (Wg::Key::Down, Wg::Key::PopupFlag));
    EXPECT_EQ (Selected (), "6");
    EXPECT_EQ (runner.GetRunCount (), runs + 1);
}

TEST_F (KeyboardTest, ThePopupModifierAloneIsKeptFromTheHostWhileTheListHasTheFocus)
{
    EXPECT_TRUE (h.panel.ModifierPress (Wg::Key::Modifier (Wg::Key::PopupModifier)));
    EXPECT_FALSE (h.panel.ModifierPress (Wg::Key::Modifier (Wg::Key::Shift)));
    h.ClickColumn (4, 4);
    EXPECT_TRUE (h.panel.ModifierPress (Wg::Key::Modifier (Wg::Key::PopupModifier)));
    h.panel.SetFocusedItem (nullptr);
    EXPECT_FALSE (h.panel.ModifierPress (Wg::Key::Modifier (Wg::Key::PopupModifier)));
    EXPECT_FALSE (h.Key (Wg::Key::Down));   // keys too are the list's only while it has the focus
}

TEST (KeyboardOnGroupRowsTest, TheMasterStandsInForTheValueAndTheGroupFolds)
{
    ListHarness h;
    CallLog     log;
    AttributeListGroupItem* options = h.list->CreateGroup ("Options", NoIcon, true, true);
    TxAL::AttributeListCheckItem* check = options->CreateCheckItem (true, "On", NoIcon, false, "", true, false);
    options->CreateLengthItem (false, "L", NoIcon, 0, 10, 1, true, true, false);
    AttributeListGroupItem* kinds = h.list->CreateGroup ("Kinds", NoIcon, true, true);
    TxAL::AttributeListSelectionItem* kind = kinds->CreateSelectionItem (true, "Kind", NoIcon, true, false);
    for (const char* text : {"Wall", "Slab"}) {
        TxAL::AttributeListItem::PopupItem entry;
        entry.SetText (text);
        kind->AddItem (entry);
    }
    log.Watch (*check);
    log.Watch (*kind);
    ASSERT_EQ (h.Rows (), "1:▾Options|[ ] 2:  L|1.000 m 3:Kinds");

    h.ClickColumn (1, 3);
    EXPECT_TRUE (h.Char (u' '));
    EXPECT_EQ (log.Take (), "CheckChanged(On)");
    EXPECT_TRUE (h.Key (Wg::Key::Left));
    EXPECT_EQ (h.Rows (), "1:▸Options|[x] 2:Kinds");

    Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
    runner.ClearScript ();
    runner.QueueChoose (2);
    h.ClickColumn (2, 3);
    EXPECT_TRUE (h.Key (Wg::Key::Down, Wg::Key::PopupFlag));
    EXPECT_EQ (log.Take (), "SelectionChanged(Kind)");
    EXPECT_EQ (h.Rows (), "1:▸Options|[x] 2:Kinds|Slab");
    EXPECT_EQ (runner.GetPendingStepCount (), 0u);
    h.list->ClearList (true);
}

TEST (KeyboardScrollTest, ArrowsBringTheNewRowIntoViewWithTheFocusInItsEdit)
{
    ListHarness h;
    constexpr short RowCount = 12;
    for (short i = 1; i <= RowCount; ++i) h.list->CreateLengthItem (std::to_string (i).c_str (), NoIcon, 0, 10, 1, true, true, false);
    ASSERT_EQ (h.ListBox ().GetVisibleRowCount (), 9);
    h.ClickColumn (1, 4);
    auto state = [&h] { return h.Controls () + " top=" + std::to_string (h.ListBox ().GetScrollPosition ()); };
    for (short i = 1; i < RowCount; ++i) EXPECT_TRUE (h.Key (Wg::Key::Down));
    EXPECT_EQ (state (), "sel=12 4:LengthEdit focus=LengthEdit top=4");
    for (short i = 1; i < RowCount; ++i) EXPECT_TRUE (h.Key (Wg::Key::Up));
    EXPECT_EQ (state (), "sel=1 4:LengthEdit focus=LengthEdit top=1");
    EXPECT_EQ (h.list->GetSelectedItemRect (), h.ListBox ().GetItemRect (1));

    h.ListBox ().SelectItem (0);
    EXPECT_EQ (h.list->GetSelectedItem (), nullptr);
    EXPECT_FALSE (h.list->GetSelectedItemRect ().has_value ());
    // Without a selected row the list leaves the key to the list box.
    EXPECT_EQ (h.list->KeyPressed (Wg::Key::Code (Wg::Key::Down), nullptr), Wg::KeyNotHandled);
}

TEST (KeyboardTwoListsTest, KeysReachOnlyTheListThatHasTheFocus)
{
    ListHarness h;
    TestList    other (h.panel, 10, 300, ListHarness::DefaultWidth, ListHarness::DefaultHeight);
    for (AttributeList* list : {static_cast<AttributeList*> (h.list.get ()), static_cast<AttributeList*> (&other)}) {
        list->CreateLengthItem ("A", NoIcon, 0, 10, 1, true, true, false);
        list->CreateLengthItem ("B", NoIcon, 0, 10, 1, true, true, false);
    }
    other.GetListBox ().Click (1, Wg::Point (h.ColumnMiddle (3), 5));
    EXPECT_TRUE (h.Key (Wg::Key::Down));
    EXPECT_EQ (h.ListBox ().GetSelectedItem (), 1);
    EXPECT_EQ (other.GetListBox ().GetSelectedItem (), 2);
    EXPECT_FALSE (h.list->IsListFocused ());
    EXPECT_TRUE (other.IsListFocused ());
    other.ClearList (true);
}

// --- Guards ---

class GuardTest : public ::testing::Test {
protected:
    GuardTest ()
    {
        for (const char* name : {"A", "B", "C"}) items.push_back (h.list->CreateLengthItem (name, NoIcon, 0, 10, 1, true, true, false));
    }

    ListHarness                                 h;
    std::vector<TxAL::AttributeListLengthItem*> items;
};

TEST_F (GuardTest, TheEditFocusGuardReturnsTheFocusOnlyIfAnEditHadIt)
{
    h.ClickColumn (2, 4);
    {
        AttributeList::AttributeListEditFocusGuard guard (*h.list);
        h.list->FullRefreshList (true);
        EXPECT_EQ (h.Controls (), "sel=2 4:LengthEdit focus=ListBox");
    }
    EXPECT_EQ (h.Controls (), "sel=2 4:LengthEdit focus=LengthEdit");

    h.ClickColumn (3, 3);
    h.ListBox ().SetFocus ();
    {
        AttributeList::AttributeListEditFocusGuard guard (*h.list);
        h.list->FullRefreshList (true);
    }
    EXPECT_EQ (h.Controls (), "sel=3 4:LengthEdit focus=ListBox");
}

TEST_F (GuardTest, TheSaveSelectionGuardFindsItsItemWhereverItsRowIsNow)
{
    h.ClickColumn (3, 4);
    {
        TxAL::AttributeListSaveSelectionGuard guard (*h.list);
        for (auto* item : items) h.list->DeleteListItem (item, false);
        for (int i : {1, 2, 0}) h.list->AddListItem (items[i]);
        h.list->FullRefreshList (true);
        EXPECT_EQ (h.Controls (), "sel=1 4:LengthEdit focus=ListBox");
    }
    EXPECT_EQ (h.Rows (), "1:B|1.000 m 2:C|1.000 m 3:A|1.000 m");
    EXPECT_EQ (h.Controls (), "sel=2 4:LengthEdit focus=LengthEdit");

    {
        TxAL::AttributeListSaveSelectionGuard guard (*h.list);
        h.list->RemoveListItem (items[2]);   // the remembered item goes: the guard selects nothing
        h.ClickColumn (2, 3);
    }
    EXPECT_EQ (h.Controls (), "sel=2 4:LengthEdit focus=ListBox");
    EXPECT_EQ (h.list->GetSelectedItem (), items[0]);
}

}   // namespace
