#pragma once
// Wg::RowValueIndex: which rows of a list box hold a given value, answered without scanning the
// rows. Internal to Wg: no promise.
//
// An open-addressing table with linear probing, sized to at least twice its entries, so that a
// lookup touches a few slots whatever the row count. A slot holds a row and 16 bits of its
// value's hash, 4 bytes: the table of a full list box (32,767 rows) takes 256 KiB and stays in
// the cache while it is filled. The value itself is read from the row when a lookup needs it.
//
// Rows are only appended or rebuilt wholesale in the common case. Deleting every row, or an
// insertion or deletion that shifts later rows, marks the table stale; it is rebuilt from the
// rows on the next lookup, in one pass.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Wg {

class RowValueIndex {
public:
    // Rows are 16-bit: at most this many entries, which the largest table holds at half load.
    static constexpr std::size_t MaxEntries = 32767;

    // valueAt (i) is the value of row i + 1.
    template <typename RowValueAt>
    void Rebuild (std::size_t rowCount, RowValueAt&& valueAt);

    void Add (const void* value, short row);
    void Remove (const void* value, short row);
    void Clear ();
    // Rows were shifted; the next lookup must rebuild first.
    void MarkStale () { stale = true; }
    bool IsStale () const { return stale; }

    // The lowest row above `after` that holds the value, or 0; valueAt (row) reads a row's value.
    template <typename RowValue>
    short FindNext (const void* value, short after, RowValue&& valueAt) const;
    std::size_t GetEntryCount () const { return entryCount; }

private:
    struct Slot {
        std::uint16_t tag = 0;   // the top 16 bits of the value's hash
        short         row = 0;   // 0: empty slot
    };

    static std::uint16_t Tag (const void* value);
    // The tag's top bits address the table (at most 2^16 slots).
    std::size_t Home (std::uint16_t tag) const { return static_cast<std::size_t> (tag) >> homeShift; }
    std::size_t Next (std::size_t slot) const { return (slot + 1) & (table.size () - 1); }
    void        Grow ();
    void        Place (Slot slot);

    std::vector<Slot> table;
    std::size_t       entryCount = 0;
    int               homeShift = 0;
    bool              stale = false;
};

template <typename RowValueAt>
void RowValueIndex::Rebuild (std::size_t rowCount, RowValueAt&& valueAt)
{
    Clear ();
    for (std::size_t i = 0; i < rowCount; ++i) {
        const void* value = valueAt (i);
        if (value != nullptr) Add (value, static_cast<short> (i + 1));
    }
    stale = false;
}

template <typename RowValue>
short RowValueIndex::FindNext (const void* value, short after, RowValue&& valueAt) const
{
    if (value == nullptr || table.empty ()) return 0;
    const std::uint16_t tag = Tag (value);
    short found = 0;
    for (std::size_t slot = Home (tag); table[slot].row != 0; slot = Next (slot)) {
        const Slot& entry = table[slot];
        if (entry.tag != tag || entry.row <= after || (found != 0 && entry.row >= found)) continue;
        if (valueAt (entry.row) == value) found = entry.row;
    }
    return found;
}

}   // namespace Wg
