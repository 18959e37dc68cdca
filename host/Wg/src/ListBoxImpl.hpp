#pragma once
// The state of a Wg::ListBox and the helpers its source files share. Internal: no promise.
//
// Rows are kept compact for lists of many thousand rows: a row holds its flags and a small
// vector of the cells that were set (usually two or three), nothing else on the heap.

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "Kor/LifeWatch.hpp"
#include "Wg/ListBox.hpp"
#include "RowValueIndex.hpp"

namespace Wg {

struct ListBox::Impl {
    struct Cell {
        Kor::UniString text;
        std::int64_t   iconModule = 0;
        std::int32_t   iconId = Icon::EmptyResourceId;
        short          column = 0;

        Icon GetIcon () const { return Icon (iconModule, iconId); }
    };

    struct Row {
        void*             value = nullptr;
        std::vector<Cell> cells;
        int               fontStyle = Gfx::PlainFont;
        Gfx::Color        background;
        short             status = Normal;
        bool              ownerDrawn = false;
        bool              hasBackground = false;

        // A negative style (a caller restoring a style it never saved) paints plain, not as a
        // set of every style bit.
        int         GetPaintedFontStyle () const { return fontStyle < 0 ? Gfx::PlainFont : fontStyle; }
        const Cell* FindCell (short column) const;
        Cell*       FindCell (short column);
        bool        HasContent (short column) const
        {
            const Cell* cell = FindCell (column);
            return cell != nullptr && (!cell->text.IsEmpty () || cell->iconId != Icon::EmptyResourceId);
        }
    };

    struct TabField {
        short begin = 0;
        short end = 0;
        short justification = Left;
        short truncation = NoTruncation;
        bool  ownerDrawn = false;
    };

    struct HeaderItem {
        short          size = 0;       // used only while the header is not synchronised
        short          minSize = 0;
        bool           resizable = false;
        Kor::UniString text;
    };

    struct OnTabEntry {
        short                    column = 0;
        Item*                    item = nullptr;
        const Kor::EventSource*  source = nullptr;   // the item as event source, for SourceDestroyed
    };

    // Forgets on-tab items that are destroyed while they stand on the list box.
    class OnTabItemWatcher : public ItemObserver {
    public:
        explicit OnTabItemWatcher (Impl& impl) : impl (impl) {}
        void SourceDestroyed (Kor::EventSource& source) override;

    private:
        Impl& impl;
    };

    Impl (ListBox& self, ScrollType scrollType, bool hasHeader, short headerHeight);

    // --- Lookup; null for invalid rows and columns ---
    Row*            FindRow (short row) { return IsRow (row) ? &rows[static_cast<std::size_t> (row - 1)] : nullptr; }
    const Row*      FindRow (short row) const { return IsRow (row) ? &rows[static_cast<std::size_t> (row - 1)] : nullptr; }
    bool            IsRow (short row) const { return row >= 1 && static_cast<std::size_t> (row) <= rows.size (); }
    bool            IsColumn (short column) const { return column >= 1 && static_cast<std::size_t> (column) <= tabFields.size (); }
    TabField*       FindField (short column) { return IsColumn (column) ? &tabFields[static_cast<std::size_t> (column - 1)] : nullptr; }
    const TabField* FindField (short column) const { return IsColumn (column) ? &tabFields[static_cast<std::size_t> (column - 1)] : nullptr; }
    Cell&           AddCell (Row& row, short column);
    short           GetCount () const { return static_cast<short> (rows.size ()); }

    // --- Geometry ---
    Rect  GetClientRect () const;                 // panel coordinates
    short GetVisibleRows () const;
    short GetMaxScrollPosition () const;
    bool  IsRowInView (short row) const;
    Rect  GetRowRect (short row) const;           // list-box pixels, for an existing row
    Rect  GetCellRect (short row, short column) const;

    // --- State changes with their consequences ---
    // Sets the selected row; returns whether it changed. On-tab items belong to the selected
    // row: a change first takes the focus out of them (which commits what was typed while the
    // old row is still selected) and then removes them; the new row's owner places its own.
    bool  SetSelected (short row);
    void  SetScroll (short row);
    // Brings the scroll position back into range after rows or geometry changed.
    void  ClampScroll ();
    void  PlaceOnTabItems ();
    void  RemoveOnTabEntry (std::size_t index, bool hide);
    void  ForgetOnTabItem (const Kor::EventSource& source);
    // Header item resize while synchronised: the field's end moves, later fields shift.
    void  ResizeSynchronizedField (short column, short size);

    // --- Peer notifications: O(1), free without a peer; rows are collected while suspended ---
    void  Notify (Aspect aspect, int detail = 0);
    void  RowChanged (short row);
    void  RowsChanged ();
    // While drawing is suspended: remembers a changed row (a few of them, then all rows).
    void  CollectRow (short row);
    // On resume: Row for each remembered row, or one Rows.
    void  SendCollectedRows ();

    // --- Rows by value ---
    // The index, rebuilt first when rows were shifted since it was last read.
    const RowValueIndex& GetValueIndex () const;

    // --- Painting ---
    void  DrawCellContent (const Row& row, short column, const Rect& cell, Gfx::DrawingContext& context) const;

    // --- Notifications to observers ---
    template <typename Fn>
    void  NotifyListBoxObservers (Fn&& fn);

    ListBox&                 self;
    std::vector<Row>         rows;
    std::vector<TabField>    tabFields;
    std::vector<HeaderItem>  headerItems;
    std::vector<OnTabEntry>  onTabItems;
    // Which rows hold which value; kept in step with every change of rows and values.
    mutable RowValueIndex    valueIndex;
    OnTabItemWatcher         watcher {*this};
    std::uint64_t            redrawCount = 0;
    // Tells entry points that an observer destroyed the list box during a notification.
    int                      drawSuspension = 0;
    ScrollType               scrollType;
    short                    headerHeight;
    short                    itemHeight = DefaultItemHeight;
    short                    selected = NoRow;
    short                    scroll = NoRow;
    short                    helpStyle = NoHelp;
    bool                     hasHeader;
    bool                     headerSynchronized = true;
    bool                     separatorLines = false;
    bool                     rowsPending = false;
    std::vector<short>       pendingRows;
    static constexpr std::size_t MaxPendingRows = 16;
};

template <typename Fn>
void ListBox::Impl::NotifyListBoxObservers (Fn&& fn)
{
    self.NotifyObservers<ListBoxObserver> (std::forward<Fn> (fn));
}

}   // namespace Wg
