#include "FuzzActions.hpp"

#include <exception>

#include "Kor/Assert.hpp"
#include "Pk/PopupControl.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "Wg/Key.hpp"
#include "Wg/ModalRunner.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/TextEdit.hpp"

namespace TxALFuzz {

namespace {

constexpr int   MaxTopLevelItems = 40;
constexpr int   PopupEntryRange = 8;
constexpr short HeaderSizeRange = 600;
constexpr int   RowY = 5;

// --- Where the user points ---

// An x somewhere in the row: a column's middle, its edges (the popup arrow sits at the value
// column's right end), or outside the list box.
int AnyX (AttributeList& list, Rng& rng)
{
    const Wg::ListBox& box = list.GetListBox ();
    const short        columns = box.GetTabFieldCount ();
    const short        column = static_cast<short> (1 + Pick (rng, std::max<short> (columns, 1)));
    const int          begin = box.GetTabFieldBeginPosition (column), end = box.GetTabFieldEndPosition (column);
    switch (Pick (rng, 6)) {
        case 0: return begin;
        case 1: return end - 1 - Pick (rng, 4);
        case 2: return Chance (rng, 50) ? -5 : box.GetWidth () + 20;
        default: return (begin + end) / 2;
    }
}

short AnyRow (AttributeList& list, Rng& rng)
{
    // Now and then a row that does not exist.
    return static_cast<short> (Pick (rng, list.GetListBox ().GetItemCount () + 3));
}

Wg::Item* FocusedEdit (World& world)
{
    Wg::Item* focused = world.Panel ().GetFocusedItem ();
    if (dynamic_cast<Wg::TextEdit*> (focused) != nullptr || dynamic_cast<Wg::NumberEditBase*> (focused) != nullptr) return focused;
    return nullptr;
}

void TypeInto (Wg::Item& edit, const Kor::UniString& text)
{
    if (auto* textEdit = dynamic_cast<Wg::TextEdit*> (&edit)) {
        textEdit->UserType (text);
    } else if (auto* numberEdit = dynamic_cast<Wg::NumberEditBase*> (&edit)) {
        numberEdit->UserType (text);
    }
}

void PasteInto (Wg::Item& edit, const Kor::UniString& text)
{
    if (auto* textEdit = dynamic_cast<Wg::TextEdit*> (&edit)) {
        textEdit->UserSetText (text);
    } else if (auto* numberEdit = dynamic_cast<Wg::NumberEditBase*> (&edit)) {
        numberEdit->UserSetText (text);
    }
}

void QueuePopupSteps (Rng& rng)
{
    Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
    if (Chance (rng, 30)) runner.QueueTrack (Pick (rng, PopupEntryRange));
    if (Chance (rng, 80))
        runner.QueueChoose (Pick (rng, PopupEntryRange) - 1);
    else
        runner.QueueCancel ();
}

// --- User input ---

void Click (World& world, Rng& rng)
{
    AttributeList& list = *world.AnyList (rng);
    if (Chance (rng, 30)) QueuePopupSteps (rng);
    list.GetListBox ().Click (AnyRow (list, rng), Wg::Point (AnyX (list, rng), RowY));
}

void DoubleClick (World& world, Rng& rng)
{
    AttributeList& list = *world.AnyList (rng);
    if (Chance (rng, 30)) QueuePopupSteps (rng);
    list.GetListBox ().DoubleClick (AnyRow (list, rng), Wg::Point (AnyX (list, rng), RowY));
}

void PressKey (World& world, Rng& rng)
{
    static constexpr int keys[] = {Wg::Key::Return, Wg::Key::Enter, Wg::Key::Escape, Wg::Key::Tab,  Wg::Key::Backspace,
                                   Wg::Key::Left,   Wg::Key::Right, Wg::Key::Up,     Wg::Key::Down, Wg::Key::Delete,
                                   Wg::Key::Home,   Wg::Key::End,   Wg::Key::PageUp, Wg::Key::PageDown};
    const int modifiers = Chance (rng, 60) ? 0 : Pick (rng, 16);
    if (Chance (rng, 20)) QueuePopupSteps (rng);
    world.Panel ().KeyPress (Wg::Key::Code (keys[Pick (rng, static_cast<int> (std::size (keys)))], 0, modifiers));
}

void PressCharacter (World& world, Rng& rng)
{
    static constexpr char16_t characters[] = {u' ', u'1', u'0', u'.', u'-', u'a', u'Z', u',', u'\'', u'"', u'e', u'\u00e4'};
    const int modifiers = Chance (rng, 80) ? 0 : Pick (rng, 16);
    world.Panel ().KeyPress (Wg::Key::Code::Character (characters[Pick (rng, static_cast<int> (std::size (characters)))], modifiers));
}

void TypeIntoFocus (World& world, Rng& rng)
{
    static const char* const texts[] = {"1", "25", "-3.5", "abc", "1e308", "nan", "9999999999", " ", "1/2", "0,5", "12'6\""};
    if (Wg::Item* edit = FocusedEdit (world)) TypeInto (*edit, Kor::UniString (texts[Pick (rng, static_cast<int> (std::size (texts)))]));
}

void PasteIntoFocus (World& world, Rng& rng)
{
    if (Wg::Item* edit = FocusedEdit (world)) PasteInto (*edit, ExtremeText (rng));
}

void MoveFocus (World& world, Rng& rng)
{
    switch (Pick (rng, 3)) {
        case 0: world.Panel ().SetFocusedItem (nullptr); break;
        case 1: world.AnyList (rng)->GetListBox ().SetFocus (); break;
        default: world.AnyList (rng)->SetFocusToEditControl (); break;
    }
}

// The in-place controls a user presses, and how. A new control joins with one line.
struct PressableControl {
    Wg::Item& (*get) (TxAL::OnTabItems& controls);
    void (*press) (Wg::Item& control);
};

const PressableControl pressableControls[] = {
    {[] (TxAL::OnTabItems& c) -> Wg::Item& { return c.GetPopupControl (); }, [] (Wg::Item& i) { static_cast<Pk::PopupControl&> (i).UserPress (); }},
    {[] (TxAL::OnTabItems& c) -> Wg::Item& { return c.GetIconColumnPopup (); }, [] (Wg::Item& i) { static_cast<Pk::PopupControl&> (i).UserPress (); }},
    {[] (TxAL::OnTabItems& c) -> Wg::Item& { return c.GetButton (); }, [] (Wg::Item& i) { static_cast<Wg::ButtonItem&> (i).UserPress (); }},
    {[] (TxAL::OnTabItems& c) -> Wg::Item& { return c.GetIconButton (); }, [] (Wg::Item& i) { static_cast<Wg::ButtonItem&> (i).UserPress (); }},
    {[] (TxAL::OnTabItems& c) -> Wg::Item& { return c.GetCheckBox (); }, [] (Wg::Item& i) { static_cast<Wg::PushCheck&> (i).UserPress (); }},
};

// Presses a control of the selected row, when it stands on the list box; popups get a script.
void PressControl (World& world, Rng& rng)
{
    AttributeList&          list = *world.AnyList (rng);
    const PressableControl& entry = pressableControls[Pick (rng, static_cast<int> (std::size (pressableControls)))];
    Wg::Item&               control = entry.get (list.GetOnTabItems ());
    QueuePopupSteps (rng);
    if (list.GetListBox ().IsOnTabItem (control)) entry.press (control);
}

void ScrollOrSelect (World& world, Rng& rng)
{
    AttributeList& list = *world.AnyList (rng);
    if (Chance (rng, 50))
        list.GetListBox ().UserScroll (static_cast<short> (Pick (rng, list.GetListBox ().GetItemCount () + 2)));
    else
        list.GetListBox ().UserSelect (AnyRow (list, rng));
}

void ResizeHeader (World& world, Rng& rng)
{
    AttributeList& list = *world.AnyList (rng);
    list.GetListBox ().UserResizeHeaderItem (static_cast<short> (1 + Pick (rng, 3)), static_cast<short> (Pick (rng, HeaderSizeRange) - 50));
}

void AskToolTip (World& world, Rng& rng)
{
    AttributeList& list = *world.AnyList (rng);
    list.GetListBox ().RequestToolTip (AnyRow (list, rng));
}

// The bounds and state behind a value that did not read back, for the failure's message.
std::string DebugBounds (AttributeListSimpleItem& item, Wg::Item* edit)
{
    std::string out;
    if (auto* real = dynamic_cast<TxAL::AttributeListRealItem*> (&item))
        out += " item[" + std::to_string (real->GetMinValue ()) + "," + std::to_string (real->GetMaxValue ()) + "]";
    if (auto* e = dynamic_cast<Wg::RealEdit*> (edit)) out += " edit[" + std::to_string (e->GetMin ()) + "," + std::to_string (e->GetMax ()) + "]";
    if (auto* e = dynamic_cast<Wg::IntEdit*> (edit)) out += " edit[" + std::to_string (e->GetMin ()) + "," + std::to_string (e->GetMax ()) + "]";
    if (edit != nullptr) out += " visible=" + std::to_string (edit->IsVisible ()) + " enabled=" + std::to_string (edit->IsEnabled ());
    return out;
}

// Types a new value into an item's edit and confirms it: the item's observers hear it once (or
// once per accepted keystroke where every keystroke is sent), and the value reads back.
void TypeAndConfirm (World& world, Rng& rng)
{
    std::vector<Tracked*> candidates;
    for (int attempt = 0; attempt < 8; ++attempt) {
        Tracked* t = world.AnyAlive (rng, false, true);
        if (t != nullptr && ItemKinds ()[t->kind].typing && world.ListOf (t->item) != nullptr) candidates.push_back (t);
    }
    if (candidates.empty ()) return;
    Tracked*        t = candidates.front ();
    const ItemKind& kind = ItemKinds ()[t->kind];
    auto&           item = static_cast<AttributeListSimpleItem&> (*t->item);
    AttributeList&  list = *world.ListOf (&item);
    Wg::ListBox&    box = list.GetListBox ();
    const short     row = list.GetFirstListBoxIndex (&item);
    if (row <= 0 || row > box.GetItemCount ()) return;
    const short valueColumn = list.GetAttributeNameColumnIndex ();
    box.Click (row, Wg::Point ((box.GetTabFieldBeginPosition (valueColumn) + box.GetTabFieldEndPosition (valueColumn)) / 2, RowY));
    if (!world.IsAlive (&item) || world.ListOf (&item) != &list || world.IsArmed (item)) return;
    Wg::Item* edit = FocusedEdit (world);
    // A user types only into an edit that shows: a row scrolled out of a list made too small
    // keeps its edit hidden.
    if (edit == nullptr || !edit->IsVisible () || box.GetOnTabItem (valueColumn) != edit || box.GetSelectedItem () != row) return;
    const std::optional<ItemKind::Typing> typing = kind.typing (item, rng);
    if (!typing) return;

    const bool        disabled = !item.GetStatus () || !box.IsItemEnabled (row) || !list.IsEnabled ();
    const bool        everyKeystroke = world.IndexOf (&list) == 0;
    const std::string before = kind.read (item);
    world.ResetChanges ();
    // Start afresh as a user would: a text is selected whole, a number edit that still holds
    // earlier typing is reverted with Escape so that the first character replaces its value.
    if (auto* textEdit = dynamic_cast<Wg::TextEdit*> (edit))
        textEdit->SelectAll ();
    else
        world.Panel ().KeyPress (Wg::Key::Code (Wg::Key::Escape));
    if (!world.IsAlive (&item)) return;
    const std::string typed = typing->text.ToUtf8 ();
    if (everyKeystroke && !world.IsOn (Switch::TypingFocus))
        PasteInto (*edit, typing->text);
    else
        for (char ch : typed) TypeInto (*edit, Kor::UniString (std::string (1, ch)));
    world.Panel ().KeyPress (Wg::Key::Code (Wg::Key::Return));
    if (!world.IsAlive (&item)) return;

    const std::string after = kind.read (item);
    const int         heard = world.Changes (item);
    const std::string what = "'" + typed + "' typed into " + kind.name + " (was " + before + ", now " + after + ", heard " +
                             std::to_string (heard) + ")";
    if (disabled) {
        if (world.IsOn (Switch::DisabledTyping) && (heard != 0 || after != before)) world.failure = "a disabled row took " + what;
        return;
    }
    const bool changed = after != before;
    const bool heardRight = everyKeystroke ? (changed ? heard >= 1 && heard <= static_cast<int> (typed.size ()) : heard == 0)
                                           : heard == (changed ? 1 : 0);
    if (!heardRight) world.failure = "observers heard wrong: " + what;
    else if (typing->expected && after != *typing->expected && world.IsOn (Switch::TypedReadBack))
        world.failure = "the value does not read back: " + what + DebugBounds (item, edit);
}

// --- Program calls ---

void PokeItem (World& world, Rng& rng)
{
    if (Tracked* t = world.AnyAlive (rng, false, true)) ItemKinds ()[t->kind].poke (static_cast<AttributeListSimpleItem&> (*t->item), rng);
}

void PokeAnyItem (World& world, Rng& rng)
{
    Tracked* t = world.AnyAlive (rng, true, true);
    if (t == nullptr) return;
    AttributeListItem& item = *t->item;
    switch (Pick (rng, 9)) {
        case 0: item.SetName (ExtremeText (rng)); break;
        case 1: item.SetStatus (Chance (rng, 60)); break;
        case 2: item.SetVisibility (Chance (rng, 60)); break;
        case 3: item.SetDefaultToolTip (ExtremeText (rng)); break;
        case 4: {
            Kor::Array<AttributeListItem::PopupItem> entries;
            for (int i = Pick (rng, 4); i > 0; --i) {
                AttributeListItem::PopupItem entry;
                entry.SetText (ExtremeText (rng));
                entries.Push (entry);
            }
            item.SetIconColumnPopupItems (entries);
            item.SetSelectedIconColumnPopupItemIndex (static_cast<std::uint32_t> (ExtremeInt (rng)));
            break;
        }
        case 5: item.Select (Chance (rng, 50)); break;
        case 6: item.SetFirstVisible (); break;
        case 7:
            if (AttributeList* list = world.ListOf (&item)) list->RefreshItem (item, Chance (rng, 50));
            break;
        default: item.SetCustomBgColor (Gfx::Color (static_cast<std::uint8_t> (Pick (rng, 256)), 0, 0)); break;
    }
}

void AddItem (World& world, Rng& rng)
{
    AttributeList& list = *world.AnyList (rng);
    const int      kind = Pick (rng, static_cast<int> (ItemKinds ().size ()));
    if (static_cast<int> (list.GetItems ().GetSize ()) > MaxTopLevelItems) {
        list.ClearList (true);
        return;
    }
    switch (Pick (rng, 4)) {
        case 0: world.CreateInList (list, kind, rng); break;
        case 1: list.AddListItem (world.MakeItem (kind, rng)); break;
        case 2: world.MakeGroup (list, rng); break;
        default:
            if (Tracked* g = world.AnyAlive (rng, true, false); g != nullptr && world.ListOf (g->item) != nullptr)
                world.CreateInGroup (static_cast<AttributeListGroupItem&> (*g->item), kind, Chance (rng, 20), rng);
            break;
    }
    // An observer may have destroyed the list meanwhile.
    if (world.IndexOf (&list) >= 0 && Chance (rng, 50)) list.FullRefreshList (Chance (rng, 50));
}

void ChangeGroup (World& world, Rng& rng)
{
    Tracked* g = world.AnyAlive (rng, true, false);
    if (g == nullptr) return;
    auto&          group = static_cast<AttributeListGroupItem&> (*g->item);
    const auto&    children = group.EnumerateItems ();
    AttributeListSimpleItem* child = children.GetSize () > 0 ? children[Pick (rng, static_cast<int> (children.GetSize ()))] : nullptr;
    switch (Pick (rng, 10)) {
        case 0:
            if (child != nullptr) group.ReplaceItem (child, world.MakeItem (Pick (rng, static_cast<int> (ItemKinds ().size ())), rng));
            break;
        case 1: group.RemoveItem (child); break;
        case 2: group.DeleteItem (child, Chance (rng, 50)); break;
        case 3: group.RemoveMasterItem (); break;
        case 4: group.ClearMasterItem (); break;
        case 5: group.ClearGroup (); break;
        case 6: group.Collapse (); break;
        case 7: group.Expand (); break;
        case 8: Chance (rng, 50) ? group.DisableUpdate () : group.EnableUpdate (); break;
        default:
            if (child != nullptr) group.SetMasterItem (*child);
            break;
    }
}

void RemoveItem (World& world, Rng& rng)
{
    Tracked* t = world.AnyAlive (rng, true, true);
    if (t == nullptr) return;
    AttributeList* list = world.ListOf (t->item);
    switch (Pick (rng, 5)) {
        case 0: world.DeleteAnywhere (t->item); break;
        case 1:
            if (list != nullptr && world.GroupOf (t->item) == nullptr) list->RemoveListItem (t->item);
            break;
        case 2:
            if (list != nullptr && world.GroupOf (t->item) == nullptr) list->DetachListItemFromList (t->item);
            break;
        case 3:
            if (list != nullptr && world.GroupOf (t->item) == nullptr) list->DeleteListItem (t->item, false);
            break;
        default:
            // The caller destroys an item it owns, wherever it stands.
            if (t->callerOwned != nullptr) world.DestroyOwned (*t);
            break;
    }
}

void ChangeList (World& world, Rng& rng)
{
    AttributeList& list = *world.AnyList (rng);
    switch (Pick (rng, 16)) {
        case 0: list.ClearList (Chance (rng, 50)); break;
        case 1: list.DisableUpdate (); break;
        case 2:
        case 3: list.EnableUpdate (); break;
        case 4: list.DisableDraw (); break;
        case 5: list.EnableDraw (); break;
        case 6: list.FullRefreshList (Chance (rng, 50)); break;
        case 7: Chance (rng, 50) ? list.CollapseAllGroups () : list.ExpandAllGroups (); break;
        case 8: list.SetStatus (Chance (rng, 70)); break;
        case 9: Chance (rng, 70) ? list.Show () : list.Hide (); break;
        case 10: Chance (rng, 50) ? list.DisableAllItems () : (void) list.EnableAllItems (); break;
        case 11: list.SetEditableColumnNum (Chance (rng, 50) ? AttributeList::NameColumn : AttributeList::ValueColumn); break;
        case 12:
            if (Tracked* t = world.AnyAlive (rng, true, true); t != nullptr && world.ListOf (t->item) == &list)
                Chance (rng, 50) ? list.SelectItem (t->item, Chance (rng, 50)) : list.SetFirstVisibleItem (t->item);
            break;
        case 13: list.SelectItem (nullptr, false); break;
        case 14: list.LayoutTabs (static_cast<short> (Pick (rng, 3) == 0 ? 0 : Pick (rng, 900))); break;
        default: world.Populate (list, rng); break;
    }
}

void ResizeList (World& world, Rng& rng)
{
    AttributeList& list = *world.AnyList (rng);
    switch (Pick (rng, 4)) {
        case 0: list.SetRect (Wg::Rect (10, 10, 10, 10)); break;
        case 1: list.Resize (static_cast<short> (Pick (rng, 400) - 200), static_cast<short> (Pick (rng, 400) - 200)); break;
        case 2: list.SetRect (Wg::Rect (10, 10, 10 + Pick (rng, 900), 10 + Pick (rng, 500))); break;
        default: list.SetRect (Wg::Rect (10, 10, 455, 210)); break;
    }
}

void DestroyList (World& world, Rng& rng) { world.DestroyList (Pick (rng, World::ListCount)); }

// --- Misuse: one item in two places ---

void Misplace (World& world, Rng& rng)
{
    Tracked* t = world.AnyAlive (rng, true, true);
    if (t == nullptr || world.ListOf (t->item) == nullptr) return;
    AttributeList& other = *world.AnyList (rng);
    switch (Pick (rng, 4)) {
        case 0: other.AddListItem (t->item); break;
        case 1:
            if (Tracked* g = world.AnyAlive (rng, true, false); g != nullptr && t->kind >= 0)
                static_cast<AttributeListGroupItem&> (*g->item).AddItem (static_cast<AttributeListSimpleItem*> (t->item));
            break;
        case 2: other.DeleteListItem (t->item, Chance (rng, 50)); break;
        default: other.SelectItem (t->item, true); break;
    }
}

// --- Observers that misbehave ---

Mischief AnyMischief (World& world, Rng& rng)
{
    std::vector<Mischief> allowed = {Mischief::DetachSelf, Mischief::Refresh};
    if (world.IsOn (Switch::Destroying))
        allowed.insert (allowed.end (), {Mischief::DeleteItem, Mischief::ClearList, Mischief::DestroyList, Mischief::DeleteOther});
    if (world.IsOn (Switch::Throwing)) allowed.push_back (Mischief::Throw);
    return allowed[Pick (rng, static_cast<int> (allowed.size ()))];
}

void ArmItem (World& world, Rng& rng)
{
    if (Tracked* t = world.AnyAlive (rng, false, true)) world.Arm (*t->item, AnyMischief (world, rng));
}

// A list observer never throws: the list notifies from inside item destructors, where an
// exception ends the program whatever the library does.
void ArmList (World& world, Rng& rng)
{
    Mischief mischief = AnyMischief (world, rng);
    if (mischief == Mischief::Throw) mischief = Mischief::Refresh;
    world.ArmList (Pick (rng, World::ListCount), mischief);
}

const std::vector<ActionKind> actionKinds = {
    {"Click", 14, Switch::Always, Click},
    {"DoubleClick", 5, Switch::Always, DoubleClick},
    {"Key", 10, Switch::Always, PressKey},
    {"Character", 6, Switch::Always, PressCharacter},
    {"Type", 8, Switch::Always, TypeIntoFocus},
    {"Paste", 2, Switch::Always, PasteIntoFocus},
    {"Focus", 3, Switch::Always, MoveFocus},
    {"PressControl", 6, Switch::Always, PressControl},
    {"ScrollOrSelect", 3, Switch::Always, ScrollOrSelect},
    {"ResizeHeader", 1, Switch::Always, ResizeHeader},
    {"ToolTip", 2, Switch::Always, AskToolTip},
    {"TypeAndConfirm", 8, Switch::Always, TypeAndConfirm},
    {"PokeItem", 8, Switch::Always, PokeItem},
    {"PokeAnyItem", 5, Switch::Always, PokeAnyItem},
    {"AddItem", 4, Switch::Always, AddItem},
    {"ChangeGroup", 4, Switch::Always, ChangeGroup},
    {"RemoveItem", 3, Switch::Always, RemoveItem},
    {"ChangeList", 5, Switch::Always, ChangeList},
    {"ResizeList", 1, Switch::Always, ResizeList},
    {"DestroyList", 1, Switch::Destroying, DestroyList},
    {"Misplace", 2, Switch::Misuse, Misplace},
    {"ArmItem", 3, Switch::Always, ArmItem},
    {"ArmList", 1, Switch::Always, ArmList},
};

bool Allowed (const ActionKind& kind, const std::vector<Switch>& off)
{
    return kind.gate == Switch::Always || std::find (off.begin (), off.end (), kind.gate) == off.end ();
}

}   // namespace

const std::vector<ActionKind>& ActionKinds () { return actionKinds; }

std::vector<Step> MakeSteps (std::uint64_t seed, int count, const std::vector<Switch>& off)
{
    Rng rng (seed * 0x9E3779B97F4A7C15ull + 1);
    int total = 0;
    for (const ActionKind& kind : actionKinds)
        if (Allowed (kind, off)) total += kind.weight;
    std::vector<Step> steps;
    steps.reserve (count);
    for (int i = 0; i < count; ++i) {
        int roll = Pick (rng, total);
        std::uint16_t action = 0;
        for (; action < actionKinds.size (); ++action) {
            if (!Allowed (actionKinds[action], off)) continue;
            if (roll < actionKinds[action].weight) break;
            roll -= actionKinds[action].weight;
        }
        steps.push_back ({action, rng ()});
    }
    return steps;
}

std::string Describe (const Step& step)
{
    return std::string (actionKinds[step.action].name) + "#" + std::to_string (step.seed % 100000);
}

RunResult Play (std::uint64_t seed, const std::vector<Step>& steps, const std::vector<Switch>& off, volatile int* progress)
{
    RunResult              result;
    Kor::ScopedAssertCapture reports;
    {
        World world (seed, off);
        for (std::size_t i = 0; i < steps.size () && !result.failed; ++i) {
            if (progress != nullptr) *progress = static_cast<int> (i);
            Rng rng (steps[i].seed);
            try {
                world.EnsureLists ();
                actionKinds[steps[i].action].run (world, rng);
            } catch (const std::exception&) {
                ++result.exceptions;
            }
            Wg::GetHeadlessModalRunner ().ClearScript ();
            std::string broken = world.failure.empty () ? world.CheckInvariants () : world.failure;
            try {
                world.Sweep ();
            } catch (const std::exception&) {
                ++result.exceptions;
            }
            if (!broken.empty ()) {
                result.failed = true;
                result.failedStep = static_cast<int> (i);
                result.message = broken;
            }
        }
    }
    result.assertionReports = reports.GetCount ();
    return result;
}

}   // namespace TxALFuzz
