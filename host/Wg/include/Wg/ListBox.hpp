#pragma once
// Wg::ListBox: a scrolling list of rows with tab fields (columns). Rows are 1-based and carry a
// value (a pointer owned by the caller), a status, a font style, an owner-draw flag, a
// background colour and per-column cells (text and icon). Controls can be laid over a column of
// the selected row ("on-tab items"). All positions are list-box pixels: x from the left edge of
// the rows' client area, y from the top of the first visible row.
//
// Geometry: the rows' client area is the item's rectangle less a frame of FrameWidth on every
// side, less the header height at the top when there is a header, less ScrollBarWidth at the
// right with VScroll. Row r lies at y = (r - scroll position) * item height.
//
// Peer aspects: Rows (rows added, removed or changed wholesale), Row (detail = the row), Scroll,
// Selection (the selected row changed; detail = the new row), Layout (tab fields, header, item
// height, separator lines), Content (help style), Draw (drawing suspended or resumed, detail 0;
// or a redraw of everything requested, detail RedrawAll). While drawing is suspended, Row and
// Rows are collected: on resume a few changed rows are sent as one Row each, more of them, any
// Rows or a Redraw as one Rows, then Draw.

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "Gfx/Color.hpp"
#include "Gfx/DrawingContext.hpp"
#include "Wg/Icon.hpp"
#include "Wg/Item.hpp"

namespace Wg {

class ListBox;

// --- Events ---

class ListBoxEvent : public ItemEvent {
public:
    ListBoxEvent (ListBox* source, short listItem);
    ListBox* GetSource () const;
    short    GetListItem () const { return listItem; }

private:
    short listItem;
};

// A click on a row; the offset is in list-box pixels (x from the rows' left edge, y within the row).
class ListBoxClickEvent : public ListBoxEvent {
public:
    ListBoxClickEvent (ListBox* source, short listItem, Point mouseOffset) : ListBoxEvent (source, listItem), mouseOffset (mouseOffset) {}
    Point GetMouseOffset () const { return mouseOffset; }

private:
    Point mouseOffset;
};

class ListBoxDoubleClickEvent : public ListBoxClickEvent {
public:
    using ListBoxClickEvent::ListBoxClickEvent;
};

using ListBoxSelectionEvent = ListBoxEvent;

// Owner drawing of a whole row: draw into the context within rect (the row's rectangle).
class ListBoxItemUpdateEvent : public ListBoxEvent {
public:
    ListBoxItemUpdateEvent (ListBox* source, short listItem, Gfx::DrawingContext* context, const Rect& rect)
        : ListBoxEvent (source, listItem), context (context), rect (rect) {}
    Gfx::DrawingContext* GetDrawContext () const { return context; }
    Rect                 GetRect () const { return rect; }

private:
    Gfx::DrawingContext* context;
    Rect                 rect;
};

// Owner drawing of one cell (an owner-drawn tab field of a row).
class ListBoxTabItemUpdateEvent : public ListBoxItemUpdateEvent {
public:
    ListBoxTabItemUpdateEvent (ListBox* source, short listItem, short tabFieldIndex, Gfx::DrawingContext* context, const Rect& rect)
        : ListBoxItemUpdateEvent (source, listItem, context, rect), tabFieldIndex (tabFieldIndex) {}
    short GetTabFieldIndex () const { return tabFieldIndex; }

private:
    short tabFieldIndex;
};

// Drawing over the whole visible area after the rows.
class ListBoxOverlayUpdateEvent : public ListBoxEvent {
public:
    ListBoxOverlayUpdateEvent (ListBox* source, Gfx::DrawingContext* context, const Rect& rect)
        : ListBoxEvent (source, 0), context (context), rect (rect) {}
    Gfx::DrawingContext* GetDrawContext () const { return context; }
    Rect                 GetRect () const { return rect; }

private:
    Gfx::DrawingContext* context;
    Rect                 rect;
};

class ListBoxHeaderItemResizeEvent : public ListBoxEvent {
public:
    ListBoxHeaderItemResizeEvent (ListBox* source, short headerItem, short newSize)
        : ListBoxEvent (source, 0), headerItem (headerItem), newSize (newSize) {}
    short GetHeaderItem () const { return headerItem; }
    short GetNewSize () const { return newSize; }

private:
    short headerItem;
    short newSize;
};

class ListBoxObserver : public virtual ItemObserver {
public:
    virtual void ListBoxSelectionChanged (const ListBoxSelectionEvent& event);
    virtual void ListBoxClicked (const ListBoxClickEvent& event);
    virtual void ListBoxDoubleClicked (const ListBoxDoubleClickEvent& event);
    virtual void ListBoxItemUpdate (const ListBoxItemUpdateEvent& event);
    virtual void ListBoxTabFieldUpdate (const ListBoxTabItemUpdateEvent& event);
    virtual void ListBoxOverlayUpdate (const ListBoxOverlayUpdateEvent& event);
    virtual void ListBoxHeaderItemResized (const ListBoxHeaderItemResizeEvent& event);
};

// What a backend needs of a list box beyond the generic aspects: nothing; it reads the state
// after each Changed call. The alias names the role.
using ListBoxPeer = ItemPeer;

class ListBox : public Item {
public:
    enum ScrollType : short {
        NoScroll       = 0,
        VScroll        = 16,   // a vertical scroll bar, always present
    };
    enum Justification : short { Left = 0, Right = 1, Center = 256 };
    enum Truncation : short { NoTruncation = 0, EndTruncation = 4096, MiddleTruncation = 8192 };
    enum ItemStatus : short { Normal = 0, Grayed = 2 };
    enum HelpStyle : short { NoHelp = 0, ToolTipHelp = 1 };

    static constexpr short NoRow = 0;
    // The detail of a Draw notification that asks for everything to be drawn again.
    static constexpr int   RedrawAll = 1;
    static constexpr int   FrameWidth = 1;
    static constexpr int   ScrollBarWidth = 16;
    static constexpr int   DefaultItemHeight = 20;
    static constexpr short DefaultHeaderHeight = 18;
    // Rows are 16-bit: a list box holds at most this many; further inserts are refused.
    static constexpr short MaxRowCount = 32767;
    // On-tab items sit this far right of their column's begin, inside the cell.
    static constexpr int   OnTabItemInset = 1;

    // hasHeader reserves a header area of headerHeight pixels above the rows.
    ListBox (const Panel& panel, const Rect& rect, short id = 0, ScrollType scrollType = VScroll, bool hasHeader = false,
             short headerHeight = DefaultHeaderHeight);
    ~ListBox () override;

    void Attach (ListBoxObserver& observer) { Item::Attach (observer); }
    void Detach (ListBoxObserver& observer) { Item::Detach (observer); }
    bool IsFocusable () const override { return true; }

    // --- Rows ---
    // Invalid rows or columns are ignored by setters; getters answer 0, empty or null for them.
    short GetItemCount () const;
    // Inserts an empty row before row (row = count + 1 appends). Returns the new row, or 0 when
    // row is out of range or the list box is full.
    short InsertItem (short row);
    short AppendItem ();
    void  DeleteItem (short row);
    void  DeleteAllItems ();

    void  SetItemValue (short row, void* value);
    void* GetItemValue (short row) const;
    // The lowest row above `after` whose value is `value`, or 0 (always 0 for null). Answered
    // from an index kept in step with the rows, in about the same time for any row count.
    short FindNextRowWithValue (const void* value, short after = NoRow) const;
    void  SetItemStatus (short row, short status);
    short GetItemStatus (short row) const;
    void  EnableItem (short row) { SetItemStatus (row, Normal); }
    void  DisableItem (short row) { SetItemStatus (row, Grayed); }
    bool  IsItemEnabled (short row) const { return GetItemStatus (row) != Grayed; }
    // Kept as given; a negative style is painted plain.
    void  SetItemFontStyle (short row, int style);
    int   GetItemFontStyle (short row) const;
    void  SetItemOwnerDrawnFlag (short row, bool ownerDrawn);
    bool  GetItemOwnerDrawnFlag (short row) const;
    void  SetItemBackgroundColor (short row, const Gfx::Color& color);
    std::optional<Gfx::Color> GetItemBackgroundColor (short row) const;

    // --- Cells (1-based columns) ---
    void           SetTabItemText (short row, short column, const Kor::UniString& text);
    Kor::UniString GetTabItemText (short row, short column) const;
    void           SetTabItemIcon (short row, short column, const Icon& icon);
    Icon           GetTabItemIcon (short row, short column) const;

    // --- Tab fields (columns) ---
    // Shrinking the count drops the cells and on-tab items of the columns that go.
    void  SetTabFieldCount (short count);
    short GetTabFieldCount () const;
    // Positions are stored as given, even end < begin (an inverted field shows nothing).
    void  SetTabFieldBeginEndPosition (short column, short begin, short end);
    short GetTabFieldBeginPosition (short column) const;
    short GetTabFieldEndPosition (short column) const;
    // end - begin, but never below 0.
    short GetTabFieldWidth (short column) const;
    void  SetTabFieldJustification (short column, short justification);
    short GetTabFieldJustification (short column) const;
    void  SetTabFieldTruncation (short column, short truncation);
    short GetTabFieldTruncation (short column) const;
    void  SetTabFieldOwnerDrawFlag (short column, bool ownerDrawn);
    bool  GetTabFieldOwnerDrawFlag (short column) const;

    // --- On-tab items: controls laid over a column of the selected row ---
    // The caller sizes the item; the list box positions it (x = column begin + OnTabItemInset,
    // centred vertically in the selected row) and shows it, or hides it while no row is selected
    // or the selected row is out of view. The list box does not own its on-tab items and
    // forgets one that is destroyed. An item set over a second column leaves the first; an item
    // of another panel, or the list box itself, is ignored.
    void  SetOnTabItem (short column, Item& item);
    // Hides the column's item and forgets it.
    void  RemoveOnTabItem (short column);
    void  RemoveAllOnTabItems ();
    Item* GetOnTabItem (short column) const;
    // The column the item stands over, or 0.
    short GetOnTabItemColumn (const Item& item) const;
    bool  IsOnTabItem (const Item& item) const { return GetOnTabItemColumn (item) > 0; }

    // --- Selection (single) ---
    // Programmatic: no event. 0 deselects; rows out of range are ignored.
    void  SelectItem (short row);
    void  DeselectAll ();
    short GetSelectedItem () const;          // 0 when none
    short GetSelectedCount () const { return GetSelectedItem () > 0 ? 1 : 0; }

    // --- Scrolling and geometry ---
    short GetScrollPosition () const;        // first visible row, 0 when empty
    // Clamped to [1, max (1, count - visible rows + 1)].
    void  SetScrollPosition (short row);
    short GetVisibleRowCount () const;       // rows that fit into the client area
    void  SetItemHeight (short height);
    short GetItemHeight () const;
    short GetItemWidth () const;             // client width of the rows
    short GetHeaderHeight () const;          // 0 without a header
    bool  HasHeader () const;
    // The rows' client area in panel coordinates.
    Rect  GetRowsRect () const;
    // Whether the whole row lies within the client area at the current scroll position.
    bool  IsRowInView (short row) const;
    // Scrolls as little as possible so that the row is in view.
    void  ScrollIntoView (short row);
    // The row's rectangle in list-box pixels (see the header), also for rows scrolled away
    // (negative y above); empty when the row does not exist.
    Rect  GetItemRect (short row) const;
    // The rectangle of a cell, likewise.
    Rect  GetCellRect (short row, short column) const;
    // The row at a y position in list-box pixels, 0 when there is none.
    short GetRowAt (int y) const;
    ScrollType GetScrollType () const;

    void EnableSeparatorLines (bool enable);
    bool HasSeparatorLines () const;
    // Tool tips of rows: Item::RequestToolTip (row) asks the observers with the row as sub-item.
    void  SetHelpStyle (short style);
    short GetHelpStyle () const;

    // --- Drawing ---
    // Suspension nests; the last EnableDraw redraws (and counts one redraw). An EnableDraw
    // without a DisableDraw is ignored.
    void DisableDraw ();
    void EnableDraw ();
    bool IsDrawEnabled () const;
    // Redraw requests while drawing is suspended are collected and sent on resume.
    void RedrawItem (short row);
    void Redraw ();
    // How often redraws were made (for tests of refresh behaviour).
    std::uint64_t GetRedrawCount () const;

    // --- Header ---
    // Synchronised (the default): header item i stands over tab field i; the item count is the
    // tab field count and an item's size is its field's width. Setting or dragging an item's
    // size then moves the end of its field and shifts the later fields by the difference, so
    // every other item keeps its size. Not synchronised: the items are independent.
    void  SetHeaderSynchronState (bool synchronized);
    bool  GetHeaderSynchronState () const;
    // Ignored while synchronised.
    void  SetHeaderItemCount (short count);
    short GetHeaderItemCount () const;
    // Stored as given (not below 0); only the user's drag honours the minimum.
    void  SetHeaderItemSize (short headerItem, short size);
    short GetHeaderItemSize (short headerItem) const;
    void  SetHeaderItemMinSize (short headerItem, short size);
    short GetHeaderItemMinSize (short headerItem) const;
    void  SetHeaderItemText (short headerItem, const Kor::UniString& text);
    Kor::UniString GetHeaderItemText (short headerItem) const;
    // Header items are fixed unless made resizable.
    void  SetHeaderItemResizable (short headerItem, bool resizable);
    bool  IsHeaderItemResizable (short headerItem) const;

    // --- User input entry points (ignored while the list box is hidden or disabled) ---
    // A click on a row selects it (ListBoxSelectionChanged when the selection changed), gives
    // the list box the focus unless one of its on-tab items has it, then sends ListBoxClicked.
    // A click on no row is ignored.
    void Click (short row, Point mouseOffset);
    // Only sends ListBoxDoubleClicked: a backend reports the first press through Click.
    void DoubleClick (short row, Point mouseOffset);
    // The user selected a row (0: none) with the keyboard or otherwise.
    void UserSelect (short row);
    void UserScroll (short firstVisibleRow);
    // The user dragged a header divider; the size is clamped to the item's minimum and to 0,
    // stored, and reported by ListBoxHeaderItemResized. Ignored for fixed items.
    void UserResizeHeaderItem (short headerItem, short newSize);
    // Up, Down, Home, End, PageUp and PageDown move the selection like UserSelect and scroll
    // the new row into view.
    bool HandleKey (const Key::Code& key) override;
    // Tab traversal, which never leaves the list box. From the on-tab item over fromColumn of
    // the selected row (0: from the list box itself) the focus goes to the row's next focusable
    // on-tab item by column (backward: the previous one). Past the row's last one the next
    // enabled row (backward: the previous) is selected as UserSelect does and scrolled into view,
    // and its first focusable on-tab item (backward: its last) takes the focus, or the list box
    // itself when the row has none. At the last (backward: first) enabled row the focus stays.
    void UserTab (short fromColumn, bool backward);

    // --- Painting entry points (a backend's paint, or a test); list-box pixels ---
    // Draws one row into context at its rectangle: background, cells, owner-drawn cells through
    // ListBoxTabFieldUpdate and owner-drawn rows through ListBoxItemUpdate, separator line.
    void PaintRow (short row, Gfx::DrawingContext& context);
    // A fresh recording of one cell: the owner's drawing for an owner-drawn field, otherwise
    // the cell's icon and text.
    Gfx::DrawingContext PaintCell (short row, short column);
    // Asks the observers to draw over the rows' whole visible area.
    void PaintOverlay (Gfx::DrawingContext& context);

protected:
    // Keeps the scroll position and the on-tab items in step with the list box.
    void RectChanged () override;
    void VisibilityChanged () override;

private:
    struct OnTabStop {
        short column;
        Item* item;
    };
    struct Impl;
    std::unique_ptr<Impl> impl;
};

// A list box that selects at most one row (the kind the attribute list uses).
class SingleSelListBox : public ListBox {
public:
    using ListBox::ListBox;
};

}   // namespace Wg
