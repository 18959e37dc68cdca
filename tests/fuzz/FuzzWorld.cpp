#include "FuzzWorld.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <unordered_map>
#include <unordered_set>

#include "Wg/ListBox.hpp"

namespace TxALFuzz {

namespace {

constexpr short PanelWidth = 900;
constexpr short PanelHeight = 700;
constexpr short PanelId = 7;
constexpr short ListX = 10;
constexpr short ListY = 10;
constexpr short ListWidth = 445;
constexpr short ListHeight = 200;
constexpr short SecondListY = 260;
constexpr int   HugeTextLength = 5000;
constexpr int   GroupsPerList = 3;
constexpr int   LooseItemsPerList = 4;
constexpr int   MaxLooseItems = 16;

// Counts the factories running: a Create…Item whose list an observer destroys or clears while
// it runs hands back an item that is gone, so observers keep still meanwhile.
class CreationScope {
public:
    explicit CreationScope (int& depth) : depth (depth) { ++depth; }
    ~CreationScope () { --depth; }
    CreationScope (const CreationScope&) = delete;
    CreationScope& operator= (const CreationScope&) = delete;

private:
    int& depth;
};

}   // namespace

int Pick (Rng& rng, int count)
{
    if (count <= 0) return 0;
    return static_cast<int> (rng () % static_cast<std::uint64_t> (count));
}

bool Chance (Rng& rng, int percent) { return Pick (rng, 100) < percent; }

double ExtremeReal (Rng& rng)
{
    static constexpr double values[] = {std::numeric_limits<double>::quiet_NaN (), std::numeric_limits<double>::infinity (),
                                        -std::numeric_limits<double>::infinity (), std::numeric_limits<double>::max (),
                                        std::numeric_limits<double>::lowest (), std::numeric_limits<double>::denorm_min (),
                                        0.0, -0.0, 1.0, -1.0, 2147483648.0, -2147483649.0, 1e-9};
    if (Chance (rng, 40)) return static_cast<double> (Pick (rng, 20001) - 10000) / 8.0;
    return values[Pick (rng, static_cast<int> (std::size (values)))];
}

int ExtremeInt (Rng& rng)
{
    static constexpr int values[] = {std::numeric_limits<int>::min (), std::numeric_limits<int>::max (), 0, -1, 1,
                                     std::numeric_limits<int>::min () + 1, std::numeric_limits<int>::max () - 1};
    if (Chance (rng, 40)) return Pick (rng, 2001) - 1000;
    return values[Pick (rng, static_cast<int> (std::size (values)))];
}

Kor::UniString ExtremeText (Rng& rng)
{
    switch (Pick (rng, 6)) {
        case 0: return {};
        case 1: return Kor::UniString (std::string (HugeTextLength, 'W'));
        case 2: return Kor::UniString ("Wand \xC3\xA4\xC3\xB6 \xE2\x82\xAC \xF0\x9F\x98\x80");
        case 3: return Kor::UniString ("line\nbreak\ttab");
        case 4: return Kor::UniString ("-1.5e999");
        default: return Kor::UniString ("t" + std::to_string (Pick (rng, 1000)));
    }
}

// --- Observers ---

// Hears every item notification: counts value changes and plays an armed mischief once.
class Tracked::Spy : public TxAL::AttributeListTextItemObserver,
                     public TxAL::AttributeListDictionaryItemObserver,
                     public TxAL::AttributeListRealItemObserver,
                     public TxAL::AttributeListCheckItemObserver,
                     public TxAL::AttributeListButtonItemObserver,
                     public TxAL::AttributeListIconButtonItemObserver,
                     public TxAL::AttributeListSliderItemObserver,
                     public TxAL::AttributeListIntervalItemObserver {
public:
    Spy (World& world, AttributeListItem& item) : world (world), item (&item) { item.AttributeListItem::Attach (*this); }

    int      changes = 0;
    Mischief armed = Mischief::None;
    bool     deaf = false;   // detached itself: hears nothing more

    Kor::UniString AttributeListItemToolTipRequested (const AttributeListItem&) override
    {
        Heard ();
        return {};
    }
    void NameChanged (const AttributeListItem&) override { Heard (); }
    void IconColumnClicked (const AttributeListItem&) override { Heard (); }
    void IconColumnDoubleClicked (const AttributeListItem&) override { Heard (); }
    void IconColumnPopupChanged (const AttributeListItem&) override { Heard (); }
    void SelectionChanged (const TxAL::AttributeListSelectionItem&) override { Heard (); }
    void TextChanged (const TxAL::AttributeListTextItem&) override { Changed (); }
    void TextChanged (const TxAL::AttributeListDictionaryItem&) override { Changed (); }
    void ValueChanged (const TxAL::AttributeListRealItem&) override { Changed (); }
    void CheckChanged (const TxAL::AttributeListCheckItem&) override { Changed (); }
    void ButtonClicked (const TxAL::AttributeListButtonItem&) override { Heard (); }
    void ButtonClicked (const TxAL::AttributeListIconButtonItem&) override { Heard (); }
    void ButtonIconClicked (const TxAL::AttributeListIconButtonItem&) override { Heard (); }
    void ValueChanged (const TxAL::AttributeListSliderItem&) override { Changed (); }
    void ValueChanged (const TxAL::AttributeListIntervalItem&) override { Changed (); }

private:
    void Changed ()
    {
        ++changes;
        Heard ();
    }
    void Heard ()
    {
        // While the world runs a factory, the item it returns must still be there afterwards.
        if (world.creating > 0) return;
        const Mischief now = armed;
        armed = Mischief::None;
        if (now == Mischief::DetachSelf) {
            item->AttributeListItem::Detach (*this);
            deaf = true;
            return;
        }
        if (now != Mischief::None) world.DoMischief (now, item, world.ListOf (item));
    }

    World&             world;
    AttributeListItem* item;
};

namespace {

// Notes when an item dies; never detached.
class LifeRecord : public TxAL::AttributeListItemObserver {
public:
    LifeRecord (AttributeListItem& item, bool& alive) : alive (alive) { item.AttributeListItem::Attach (*this); }
    void SourceDestroyed (Kor::EventSource&) override { alive = false; }

private:
    bool& alive;
};

}   // namespace

// Hears the lists and plays an armed mischief once.
class ListSpy : public TxAL::AttributeListObserver {
public:
    explicit ListSpy (World& world) : world (world) {}

    void AttributeListRequiredHeightChanged (const AttributeList& list) override { Heard (list); }
    void AttributeListSelectionChanged (const AttributeList& list) override { Heard (list); }
    void AttributeListOverlayUpdate (const AttributeList& list) override { Heard (list); }

private:
    void Heard (const AttributeList& list)
    {
        const int index = world.IndexOf (&list);
        if (index < 0 || world.creating > 0) return;
        const Mischief now = world.listMischief[index];
        world.listMischief[index] = Mischief::None;
        if (now == Mischief::DetachSelf) {
            world.lists[index]->Detach (*this);
            return;
        }
        AttributeList* target = world.lists[index].get ();
        if (now != Mischief::None) world.DoMischief (now, target->GetSelectedItem (), target);
    }

    World& world;
};

// --- The world ---

World::World (std::uint64_t seed, const std::vector<Switch>& off)
    : panel (Wg::Rect (0, 0, PanelWidth, PanelHeight), PanelId), off (off), listSpy (std::make_unique<ListSpy> (*this)), rng (seed)
{
    EnsureLists ();
}

World::~World ()
{
    // Nothing misbehaves while the world is taken down.
    listMischief.fill (Mischief::None);
    for (auto& t : tracked)
        if (t->alive) t->spy->armed = Mischief::None;
    // Caller-owned items and the lists go in an order the seed picks: either must be safe.
    if (Chance (rng, 50)) {
        for (auto& t : tracked) t->callerOwned.reset ();
        for (auto& list : lists) list.reset ();
    } else {
        for (auto& list : lists) list.reset ();
        for (auto& t : tracked) t->callerOwned.reset ();
    }
}

bool World::IsOn (Switch s) const { return std::find (off.begin (), off.end (), s) == off.end (); }

AttributeList* World::AnyList (Rng& r) const { return lists[Pick (r, ListCount)].get (); }

int World::IndexOf (const AttributeList* list) const
{
    for (int i = 0; i < ListCount; ++i)
        if (list != nullptr && lists[i].get () == list) return i;
    return -1;
}

void World::EnsureLists ()
{
    for (int i = 0; i < ListCount; ++i) {
        if (lists[i] != nullptr) continue;
        // The first list sends every keystroke and lets names be edited; the second sends on
        // confirmation only and has neither header nor group column.
        AttributeList::OptionalParameters params;
        if (i == 1) params.SetEditControlAutoUpdate (false).SetHeaderType (AttributeList::NoHeader).SetHasGroupColumn (false);
        const short y = i == 0 ? ListY : SecondListY;
        lists[i] = std::make_unique<AttributeList> (panel, ListX, y, ListWidth, ListHeight, params);
        if (i == 0) lists[i]->SetEditableColumnNum (AttributeList::NameColumn);
        lists[i]->Attach (*listSpy);
        listMischief[i] = Mischief::None;
        Populate (*lists[i], rng);
        lists[i]->FullRefreshList (true);
    }
}

void World::DestroyList (int index)
{
    if (index < 0 || index >= ListCount) return;
    // Taken out first, so that notifications during destruction see no half-destroyed list.
    std::unique_ptr<AttributeList> doomed = std::move (lists[index]);
    doomed.reset ();
}

void World::Track (AttributeListItem* item, int kind, bool worldOwns)
{
    if (item == nullptr) return;
    auto t = std::make_unique<Tracked> ();
    t->item = item;
    t->kind = kind;
    if (worldOwns) t->callerOwned.reset (item);
    t->life = std::make_unique<LifeRecord> (*item, t->alive);
    t->spy = std::make_unique<Tracked::Spy> (*this, *item);
    tracked.push_back (std::move (t));
}

void World::TrackUntracked (int kind)
{
    std::vector<AttributeListItem*> found;
    for (const auto& list : lists) {
        if (list == nullptr) continue;
        for (AttributeListItem* item : list->GetItems ()) found.push_back (item);
    }
    for (const auto& t : tracked) {
        if (!t->alive || t->kind >= 0) continue;
        auto* group = static_cast<AttributeListGroupItem*> (t->item);
        for (AttributeListSimpleItem* child : group->EnumerateItems ()) found.push_back (child);
        if (group->GetMasterItem () != nullptr) found.push_back (group->GetMasterItem ());
    }
    for (AttributeListItem* item : found)
        if (Find (item) == nullptr) Track (item, dynamic_cast<AttributeListGroupItem*> (item) != nullptr ? -1 : kind, false);
}

AttributeListSimpleItem* World::MakeItem (int kind, Rng& r)
{
    AttributeListSimpleItem* item = ItemKinds ()[kind].make (r);
    item->SetName (Kor::UniString (std::string (ItemKinds ()[kind].name) + std::to_string (++nameCounter)));
    Track (item, kind, true);
    return item;
}

AttributeListSimpleItem* World::CreateInList (AttributeList& list, int kind, Rng& r)
{
    const ItemKind& k = ItemKinds ()[kind];
    if (!k.createInList) {
        const CreationScope      scope (creating);
        AttributeListSimpleItem* item = MakeItem (kind, r);
        list.AddListItem (item);
        return item;
    }
    AttributeListSimpleItem* item = nullptr;
    try {
        const CreationScope scope (creating);
        item = k.createInList (list, r);
    } catch (...) {
        TrackUntracked (kind);
        throw;
    }
    Track (item, kind, false);
    return item;
}

AttributeListSimpleItem* World::CreateInGroup (AttributeListGroupItem& group, int kind, bool asMaster, Rng& r)
{
    const ItemKind& k = ItemKinds ()[kind];
    if (!k.createInGroup || Chance (r, 40)) {
        const CreationScope      scope (creating);
        AttributeListSimpleItem* item = MakeItem (kind, r);
        if (asMaster)
            group.AddMasterItem (item);
        else
            group.AddItem (item);
        return item;
    }
    AttributeListSimpleItem* item = nullptr;
    try {
        const CreationScope scope (creating);
        item = k.createInGroup (group, asMaster, r);
    } catch (...) {
        TrackUntracked (kind);
        throw;
    }
    Track (item, kind, false);
    return item;
}

AttributeListGroupItem* World::MakeGroup (AttributeList& list, Rng& r)
{
    const Kor::UniString name ("Group" + std::to_string (++nameCounter));
    AttributeListGroupItem* group = nullptr;
    if (Chance (r, 50)) {
        try {
            const CreationScope scope (creating);
            group = list.CreateGroup (name, Wg::Icon (), Chance (r, 60), Chance (r, 85));
        } catch (...) {
            TrackUntracked (-1);
            throw;
        }
        Track (group, -1, false);
    } else {
        const CreationScope scope (creating);
        group = new AttributeListGroupItem ();
        group->SetName (name);
        Track (group, -1, true);
        if (Chance (r, 40)) group->Collapse ();
        list.AddListItem (group);
    }
    return group;
}

void World::Populate (AttributeList& list, Rng& r)
{
    const int kinds = static_cast<int> (ItemKinds ().size ());
    int next = Pick (r, kinds);
    const CreationScope scope (creating);
    list.DisableUpdate ();
    for (int g = 0; g < GroupsPerList; ++g) {
        AttributeListGroupItem* group = MakeGroup (list, r);
        if (group == nullptr) continue;
        if (Chance (r, 60)) CreateInGroup (*group, Pick (r, kinds), true, r);
        const int children = 1 + Pick (r, 4);
        for (int c = 0; c < children; ++c) CreateInGroup (*group, next++ % kinds, false, r);
    }
    for (int i = 0; i < LooseItemsPerList; ++i) {
        if (Chance (r, 50))
            CreateInList (list, next++ % kinds, r);
        else
            list.AddListItem (MakeItem (next++ % kinds, r));
    }
    list.EnableUpdate ();
}

bool World::IsAlive (const AttributeListItem* item) const
{
    if (item == nullptr) return false;
    for (const auto& t : tracked)
        if (t->item == item && t->alive) return true;
    return false;
}

Tracked* World::Find (const AttributeListItem* item)
{
    for (auto& t : tracked)
        if (t->item == item && t->alive) return t.get ();
    return nullptr;
}

Tracked* World::AnyAlive (Rng& r, bool groups, bool simples)
{
    std::vector<Tracked*> candidates;
    for (auto& t : tracked)
        if (t->alive && ((t->kind < 0 && groups) || (t->kind >= 0 && simples))) candidates.push_back (t.get ());
    return candidates.empty () ? nullptr : candidates[Pick (r, static_cast<int> (candidates.size ()))];
}

AttributeListGroupItem* World::GroupOf (const AttributeListItem* item) const
{
    for (const auto& t : tracked) {
        if (!t->alive || t->kind >= 0) continue;
        auto* group = static_cast<AttributeListGroupItem*> (t->item);
        if (group->GetMasterItem () == item) return group;
        for (std::uint32_t i = 0; i < group->EnumerateItems ().GetSize (); ++i)
            if (group->EnumerateItems ()[i] == item) return group;
    }
    return nullptr;
}

AttributeList* World::ListOf (const AttributeListItem* item) const
{
    if (item == nullptr) return nullptr;
    const AttributeListGroupItem* group = GroupOf (item);
    const AttributeListItem*      top = group != nullptr ? group : item;
    for (const auto& list : lists) {
        if (list == nullptr) continue;
        const auto& items = list->GetItems ();
        for (std::uint32_t i = 0; i < items.GetSize (); ++i)
            if (items[i] == top || items[i] == item) return list.get ();
    }
    return nullptr;
}

void World::DestroyOwned (Tracked& t)
{
    t.callerOwned.reset ();
}

void World::DeleteAnywhere (AttributeListItem* item)
{
    if (!IsAlive (item)) return;
    Tracked* t = Find (item);
    if (AttributeListGroupItem* group = GroupOf (item)) {
        if (group->GetMasterItem () == item)
            group->RemoveMasterItem ();
        else
            group->DeleteItem (static_cast<AttributeListSimpleItem*> (item), true);
    } else if (AttributeList* list = ListOf (item)) {
        list->DeleteListItem (item, true);
    }
    // A caller-owned item the lists released is the world's to destroy.
    if (IsAlive (item) && t != nullptr && t->callerOwned != nullptr) DestroyOwned (*t);
}

void World::Arm (AttributeListItem& item, Mischief mischief)
{
    if (Tracked* t = Find (&item)) t->spy->armed = mischief;
}

bool World::IsArmed (const AttributeListItem& item)
{
    Tracked* t = Find (&item);
    return t != nullptr && (t->spy->armed != Mischief::None || t->spy->deaf);
}

void World::ArmList (int index, Mischief mischief)
{
    if (index >= 0 && index < ListCount && lists[index] != nullptr) listMischief[index] = mischief;
}

void World::DoMischief (Mischief mischief, AttributeListItem* item, AttributeList* list)
{
    switch (mischief) {
        case Mischief::None:
        case Mischief::DetachSelf: break;
        case Mischief::DeleteItem: DeleteAnywhere (item); break;
        case Mischief::ClearList:
            if (list != nullptr) list->ClearList (true);
            break;
        case Mischief::DestroyList: DestroyList (IndexOf (list)); break;
        case Mischief::Throw: throw std::runtime_error ("an observer failed");
        case Mischief::Refresh:
            if (list != nullptr) list->FullRefreshList (false);
            break;
        case Mischief::DeleteOther:
            if (Tracked* other = AnyAlive (rng, false, true)) DeleteAnywhere (other->item);
            break;
    }
}

int World::Changes (const AttributeListItem& item)
{
    Tracked* t = Find (&item);
    return t != nullptr ? t->spy->changes : 0;
}

void World::ResetChanges ()
{
    for (auto& t : tracked)
        if (t->alive) t->spy->changes = 0;
}

void World::Sweep ()
{
    std::unordered_set<const AttributeListItem*> placed;
    for (const auto& list : lists)
        if (list != nullptr)
            for (AttributeListItem* item : list->GetItems ()) placed.insert (item);
    for (const auto& t : tracked) {
        if (!t->alive || t->kind >= 0) continue;
        auto* group = static_cast<AttributeListGroupItem*> (t->item);
        for (AttributeListSimpleItem* child : group->EnumerateItems ()) placed.insert (child);
        if (group->GetMasterItem () != nullptr) placed.insert (group->GetMasterItem ());
    }
    // An own-created item released without deletion (DeleteListItem or DeleteItem without
    // deleting, ReplaceItem's old item) is back in the caller's hands. Of the items that stand
    // nowhere, the oldest go, so that the world stays small.
    int loose = 0;
    for (auto it = tracked.rbegin (); it != tracked.rend (); ++it) {
        Tracked& t = **it;
        if (!t.alive || placed.contains (t.item)) continue;
        if (t.callerOwned == nullptr) t.callerOwned.reset (t.item);
        if (++loose > MaxLooseItems) DestroyOwned (t);
    }
    std::erase_if (tracked, [] (const std::unique_ptr<Tracked>& t) { return !t->alive && t->callerOwned == nullptr; });
}

// --- Checks ---

struct World::Census {
    std::unordered_set<const AttributeListItem*>                          alive;
    std::unordered_map<const AttributeListItem*, const AttributeList*>   listOf;
};

std::string World::CheckInvariants ()
{
    // Where each item stands and which items live, gathered once per check.
    Census census;
    for (const auto& t : tracked)
        if (t->alive) census.alive.insert (t->item);
    for (const auto& list : lists) {
        if (list == nullptr) continue;
        for (AttributeListItem* item : list->GetItems ()) {
            census.listOf.emplace (item, list.get ());
            const auto* group = dynamic_cast<const AttributeListGroupItem*> (item);
            if (group == nullptr || !census.alive.contains (item)) continue;
            for (AttributeListSimpleItem* child : group->EnumerateItems ()) census.listOf.emplace (child, list.get ());
            if (group->GetMasterItem () != nullptr) census.listOf.emplace (group->GetMasterItem (), list.get ());
        }
    }
    for (int i = 0; i < ListCount; ++i) {
        if (lists[i] == nullptr) continue;
        std::string broken = CheckList (i, census);
        if (!broken.empty ()) return "list " + std::to_string (i) + ": " + broken;
    }
    return {};
}

std::string World::CheckList (int index, const Census& census)
{
    AttributeList& list = *lists[index];
    Wg::ListBox&   box = list.GetListBox ();
    const auto     listOf = [&census] (const AttributeListItem* item) {
        auto it = census.listOf.find (item);
        return it != census.listOf.end () ? it->second : nullptr;
    };
    const auto& items = list.GetItems ();
    for (std::uint32_t i = 0; i < items.GetSize (); ++i)
        if (!census.alive.contains (items[i])) return "item " + std::to_string (i) + " of the list is dead";

    // Each row stands for a live item of this list, and each cell of the rows in view can be
    // read as automated testing reads it.
    const short firstInView = box.GetScrollPosition ();
    const short lastInView = static_cast<short> (firstInView + box.GetVisibleRowCount ());
    std::size_t textLength = 0;
    for (short row = 1; row <= box.GetItemCount (); ++row) {
        const auto* item = static_cast<const AttributeListItem*> (box.GetItemValue (row));
        if (item == nullptr) continue;
        if (!census.alive.contains (item)) return "row " + std::to_string (row) + " stands for a dead item";
        if (listOf (item) != &list) return "row " + std::to_string (row) + " stands for an item of no or another list";
        if (row < firstInView || row > lastInView) continue;
        for (short column = 1; column <= box.GetTabFieldCount (); ++column) {
            textLength += box.GetTabItemText (row, column).GetLength ();
            textLength += AttributeList::GetDrawnTextContentForKorAT (panel.GetId (), box.GetId (), row, column).GetLength ();
        }
    }
    (void) textLength;

    // The selected row's item is alive and in this list.
    const short selectedRow = box.GetSelectedItem ();
    if (selectedRow > box.GetItemCount ()) return "the selected row " + std::to_string (selectedRow) + " does not exist";
    AttributeListItem* selected = list.GetSelectedItem ();
    if (selected != nullptr) {
        if (!census.alive.contains (selected)) return "the selected item is dead";
        if (listOf (selected) != &list) return "the selected item is not in the list";
    }
    if (IsOn (Switch::HiddenSelection)) {
        for (const auto& [item, owner] : census.listOf) {
            if (owner != &list || !census.alive.contains (item)) continue;
            if (item->IsSelected () && item != selected)
                return "'" + item->GetName ().ToUtf8 ().substr (0, 20) + "' believes it is selected, but the selected row is " +
                       std::to_string (selectedRow);
        }
    }
    return {};
}

}   // namespace TxALFuzz
