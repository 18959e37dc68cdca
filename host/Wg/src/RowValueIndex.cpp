// Wg::RowValueIndex: the open-addressing table of rows by their value's hash.

#include "RowValueIndex.hpp"

#include <algorithm>
#include <bit>

namespace Wg {

namespace {

// The smallest table; it doubles whenever it would be more than half full.
constexpr std::size_t MinSlotCount = 64;
constexpr std::size_t MaxLoadDivisor = 2;
constexpr int TagBits = 16;
// Fibonacci hashing spreads pointers, whose low bits are alignment zeros, over the tag.
constexpr std::uint64_t HashMultiplier = 0x9E3779B97F4A7C15ull;
constexpr int HashBits = 64;

}   // namespace

std::uint16_t RowValueIndex::Tag (const void* value)
{
    const auto bits = static_cast<std::uint64_t> (reinterpret_cast<std::uintptr_t> (value));
    return static_cast<std::uint16_t> ((bits * HashMultiplier) >> (HashBits - TagBits));
}

void RowValueIndex::Place (Slot slot)
{
    std::size_t at = Home (slot.tag);
    while (table[at].row != 0) at = Next (at);
    table[at] = slot;
}

void RowValueIndex::Grow ()
{
    std::vector<Slot> old;
    old.swap (table);
    table.assign (std::max (MinSlotCount, old.size () * 2), Slot {});
    homeShift = TagBits - std::countr_zero (table.size ());
    for (const Slot& slot : old)
        if (slot.row != 0) Place (slot);
}

void RowValueIndex::Add (const void* value, short row)
{
    // More entries than rows can exist would outgrow the tag's addressing.
    if (value == nullptr || row <= 0 || entryCount >= MaxEntries) return;
    if ((entryCount + 1) * MaxLoadDivisor > table.size ()) Grow ();
    Place (Slot {Tag (value), row});
    ++entryCount;
}

void RowValueIndex::Remove (const void* value, short row)
{
    if (value == nullptr || table.empty ()) return;
    const std::uint16_t tag = Tag (value);
    std::size_t slot = Home (tag);
    while (table[slot].row != 0 && (table[slot].tag != tag || table[slot].row != row)) slot = Next (slot);
    if (table[slot].row == 0) return;
    // Backward-shift deletion: later entries of the probe run move up into the hole, so that
    // lookups never need tombstones.
    std::size_t hole = slot;
    for (std::size_t probe = Next (hole); table[probe].row != 0; probe = Next (probe)) {
        const std::size_t home = Home (table[probe].tag);
        // The entry may fill the hole when its home does not lie cyclically in (hole, probe].
        const bool homeAfterHole = hole <= probe ? (home > hole && home <= probe) : (home > hole || home <= probe);
        if (homeAfterHole) continue;
        table[hole] = table[probe];
        hole = probe;
    }
    table[hole] = Slot {};
    --entryCount;
}

void RowValueIndex::Clear ()
{
    // The table keeps its size: a rebuild of the same rows allocates nothing.
    if (entryCount > 0) std::fill (table.begin (), table.end (), Slot {});
    entryCount = 0;
    stale = false;
}

}   // namespace Wg
