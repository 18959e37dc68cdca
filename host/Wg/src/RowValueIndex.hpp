#pragma once
// Wg::RowValueIndex: which rows of a list box hold a given value, answered without scanning the
// rows. Internal to Wg: no promise.
//
// An open-addressing table of (value, row) pairs with linear probing, sized to at least twice
// its entries, so that a lookup touches a few slots whatever the row count. Rows are only
// appended or rebuilt wholesale in the common case. Deleting every row, or an insertion or
// deletion that shifts later rows, marks the table stale; it is rebuilt from the rows on the
// next lookup, in one pass over a table that stays in the cache while it is filled.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Wg {

class RowValueIndex {
public:
    // Value and row of every row that holds a value, in any order; used to rebuild.
    template <typename RowValueAt>
    void Rebuild (std::size_t rowCount, RowValueAt&& valueAt);

    void Add (const void* value, short row);
    void Remove (const void* value, short row);
    void Clear ();
    // Rows were shifted; the next lookup must rebuild first.
    void MarkStale () { stale = true; }
    bool IsStale () const { return stale; }

    // The lowest row above `after` that holds the value, or 0.
    short FindNext (const void* value, short after) const;
    std::size_t GetEntryCount () const { return entryCount; }

private:
    struct Slot {
        const void* value = nullptr;   // null: empty slot
        short       row = 0;
    };

    std::size_t Home (const void* value) const;
    std::size_t Next (std::size_t slot) const { return (slot + 1) & (table.size () - 1); }
    void        Grow ();
    void        Place (const void* value, short row);

    std::vector<Slot> table;
    std::size_t       entryCount = 0;
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

}   // namespace Wg
