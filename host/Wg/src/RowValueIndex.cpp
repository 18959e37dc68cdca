// Wg::RowValueIndex: the open-addressing table of (value, row) pairs.

#include "RowValueIndex.hpp"

#include <algorithm>
#include <bit>

namespace Wg {

namespace {

// The smallest table; it doubles whenever it would be more than half full.
constexpr std::size_t MinSlotCount = 64;
constexpr std::size_t MaxLoadDivisor = 2;
// Fibonacci hashing spreads pointers, whose low bits are alignment zeros, over the table.
constexpr std::uint64_t HashMultiplier = 0x9E3779B97F4A7C15ull;

}   // namespace

std::size_t RowValueIndex::Home (const void* value) const
{
    const auto bits = static_cast<std::uint64_t> (reinterpret_cast<std::uintptr_t> (value));
    const int shift = 64 - std::countr_zero (table.size ());
    return static_cast<std::size_t> ((bits * HashMultiplier) >> shift);
}

void RowValueIndex::Place (const void* value, short row)
{
    std::size_t slot = Home (value);
    while (table[slot].value != nullptr) slot = Next (slot);
    table[slot] = Slot {value, row};
}

void RowValueIndex::Grow ()
{
    std::vector<Slot> old;
    old.swap (table);
    table.assign (std::max (MinSlotCount, old.size () * 2), Slot {});
    for (const Slot& slot : old)
        if (slot.value != nullptr) Place (slot.value, slot.row);
}

void RowValueIndex::Add (const void* value, short row)
{
    if (value == nullptr) return;
    if ((entryCount + 1) * MaxLoadDivisor > table.size ()) Grow ();
    Place (value, row);
    ++entryCount;
}

void RowValueIndex::Remove (const void* value, short row)
{
    if (value == nullptr || table.empty ()) return;
    std::size_t slot = Home (value);
    while (table[slot].value != nullptr && (table[slot].value != value || table[slot].row != row)) slot = Next (slot);
    if (table[slot].value == nullptr) return;
    // Backward-shift deletion: later entries of the probe run move up into the hole, so that
    // lookups never need tombstones.
    std::size_t hole = slot;
    for (std::size_t probe = Next (hole); table[probe].value != nullptr; probe = Next (probe)) {
        const std::size_t home = Home (table[probe].value);
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

short RowValueIndex::FindNext (const void* value, short after) const
{
    if (value == nullptr || table.empty ()) return 0;
    short found = 0;
    for (std::size_t slot = Home (value); table[slot].value != nullptr; slot = Next (slot)) {
        const Slot& entry = table[slot];
        if (entry.value == value && entry.row > after && (found == 0 || entry.row < found)) found = entry.row;
    }
    return found;
}

}   // namespace Wg
