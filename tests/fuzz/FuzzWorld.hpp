#pragma once
// The fuzzer's world: a panel with two attribute lists, every item that was ever made in them
// (alive or not), the observers that count notifications or misbehave on purpose, and the
// checks of what users rely on after each step.

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/AttributeListGroupItem.hpp"
#include "TxAttributeList/ValueItems.hpp"
#include "Wg/Panel.hpp"

namespace TxALFuzz {

using TxAL::AttributeList;
using TxAL::AttributeListGroupItem;
using TxAL::AttributeListItem;
using TxAL::AttributeListSimpleItem;

using Rng = std::mt19937_64;

// Uniform integer in [0, count); 0 when count is not positive.
int Pick (Rng& rng, int count);
bool Chance (Rng& rng, int percent);

// Values a hostile caller passes.
double         ExtremeReal (Rng& rng);
int            ExtremeInt (Rng& rng);
Kor::UniString ExtremeText (Rng& rng);

// Switches that keep an action or a check out of a run (named on the command line).
enum class Switch : std::uint8_t {
    Always,          // never switched off
    Throwing,        // observers that throw from inside a notification
    Destroying,      // observers that delete items, clear or destroy the list
    Misuse,          // one item in two places, another list's item
    DisabledTyping,  // a disabled row must take no user change
    HiddenSelection, // an item without a row never believes it is selected
    TypingFocus,     // keystrokes typed one by one into a list with editable names
    TypedReadBack,   // a typed and confirmed value reads back as typed
};

// What an armed observer does at the next notification it hears, then disarms.
enum class Mischief : std::uint8_t { None, DeleteItem, DetachSelf, ClearList, DestroyList, Throw, Refresh, DeleteOther };

class World;
class ListSpy;

// One kind of single-row item: how to make it, poke it as a program and type into it. A new
// kind joins the fuzzer with one entry in the table (ItemKinds.cpp).
struct ItemKind {
    // What the user types into the kind's edit and, when the value must read back as typed,
    // the expected read-out.
    struct Typing {
        Kor::UniString              text;
        std::optional<std::string>  expected;
    };

    const char* name;
    std::function<AttributeListSimpleItem* (Rng&)>                                            make;
    std::function<AttributeListSimpleItem* (AttributeList&, Rng&)>                            createInList;   // may be empty
    std::function<AttributeListSimpleItem* (AttributeListGroupItem&, bool asMaster, Rng&)>    createInGroup;  // may be empty
    std::function<void (AttributeListSimpleItem&, Rng&)>                                      poke;
    // The value as text (for "did it change"); empty function for kinds without a value.
    std::function<std::string (const AttributeListSimpleItem&)>                               read;
    // What to type; nothing when the kind takes no typing in its current state.
    std::function<std::optional<Typing> (const AttributeListSimpleItem&, Rng&)>               typing;
};

const std::vector<ItemKind>& ItemKinds ();

// Everything known about one item ever made.
struct Tracked {
    class Spy;

    AttributeListItem*                 item = nullptr;
    int                                kind = -1;        // index into ItemKinds, -1 for a group
    bool                               alive = true;
    std::unique_ptr<AttributeListItem> callerOwned;      // set while the world owns it
    std::unique_ptr<Spy>               spy;
    std::unique_ptr<Kor::EventObserver> life;
};

class World {
public:
    static constexpr int ListCount = 2;

    World (std::uint64_t seed, const std::vector<Switch>& off);
    ~World ();

    bool IsOn (Switch s) const;

    // --- Lists ---
    AttributeList* List (int index) const { return lists[index].get (); }
    AttributeList* AnyList (Rng& rng) const;
    Wg::Panel&     Panel () { return panel; }
    void           EnsureLists ();
    void           DestroyList (int index);
    int            IndexOf (const AttributeList* list) const;

    // --- Items ---
    // Fills a list with groups (with and without masters, expanded and collapsed) and loose
    // items of every kind, some own-created and some caller-owned.
    void                    Populate (AttributeList& list, Rng& rng);
    AttributeListSimpleItem* MakeItem (int kind, Rng& rng);   // caller-owned, tracked
    AttributeListSimpleItem* CreateInList (AttributeList& list, int kind, Rng& rng);
    AttributeListSimpleItem* CreateInGroup (AttributeListGroupItem& group, int kind, bool asMaster, Rng& rng);
    AttributeListGroupItem*  MakeGroup (AttributeList& list, Rng& rng);
    void                     Track (AttributeListItem* item, int kind, bool worldOwns);
    // Tracks what a factory made before an observer threw out of it.
    void                     TrackUntracked (int kind);

    bool     IsAlive (const AttributeListItem* item) const;
    Tracked* Find (const AttributeListItem* item);
    // A live item (or group) at random, or null.
    Tracked* AnyAlive (Rng& rng, bool groups, bool simples);
    // The list an item is shown in (top level or in a group), or null.
    AttributeList*          ListOf (const AttributeListItem* item) const;
    AttributeListGroupItem* GroupOf (const AttributeListItem* item) const;
    // Removes an item from wherever it is and deletes it as its owner would.
    void DeleteAnywhere (AttributeListItem* item);
    // Destroys a caller-owned item the world holds (it leaves its list by itself).
    void DestroyOwned (Tracked& tracked);

    void Arm (AttributeListItem& item, Mischief mischief);
    // Whether the item's observer is armed or has detached itself (its counts are off).
    bool IsArmed (const AttributeListItem& item);
    void ArmList (int index, Mischief mischief);
    void DoMischief (Mischief mischief, AttributeListItem* item, AttributeList* list);

    // Notifications of value changes heard for an item since the last reset.
    int  Changes (const AttributeListItem& item);
    void ResetChanges ();

    // --- Checks ---
    // Empty when all is well, else what is broken.
    std::string CheckInvariants ();
    // Set by an action that found a broken promise of its own.
    std::string failure;

    // Drops the records of items that are gone (at the end of a step).
    void Sweep ();

    // Factories running now; observers keep still meanwhile.
    int creating = 0;

private:
    struct Census;
    std::string CheckList (int index, const Census& census);

    Wg::Panel                                    panel;
    std::array<std::unique_ptr<AttributeList>, ListCount> lists;
    std::array<Mischief, ListCount>              listMischief {};
    std::vector<std::unique_ptr<Tracked>>        tracked;
    std::vector<Switch>                          off;
    std::unique_ptr<ListSpy>                     listSpy;
    Rng                                          rng;
    int                                          nameCounter = 0;

    friend class ListSpy;
};

}   // namespace TxALFuzz
