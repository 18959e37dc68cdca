#pragma once
// Wg::ListBox: a scrolling list of rows with tab fields (columns). Rows are 1-based and carry a
// value (a pointer owned by the caller), a status, a font style, an owner-draw flag, a
// background colour and per-column cells (text and icon). Controls can be laid over a column of
// the selected row ("on-tab items"). All positions are list-box pixels: x from the left edge of
// the rows' client area, y from the top of the first visible row.

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

class ListBoxObserver : public ItemObserver {
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
    static constexpr int   FrameWidth = 1;
    static constexpr int   ScrollBarWidth = 16;
    static constexpr int   DefaultItemHeight = 20;
    static constexpr short DefaultHeaderHeight = 18;

    // hasHeader reserves a header area of headerHeight pixels above the rows.
    ListBox (const Panel& panel, const Rect& rect, short id = 0, ScrollType scrollType = VScroll, bool hasHeader = false,
             short headerHeight = DefaultHeaderHeight);
    ~ListBox () override;

    void Attach (ListBoxObserver& observer) { Item::Attach (observer); }
    void Detach (ListBoxObserver& observer) { Item::Detach (observer); }
    bool IsFocusable () const override { return true; }

    // --- Rows ---
    short GetItemCount () const;
    // Inserts an empty row before row (row = count + 1 appends). Returns the new row, or 0.
    short InsertItem (short row);
    short AppendItem ();
    void  DeleteItem (short row);
    void  DeleteAllItems ();

    void  SetItemValue (short row, void* value);
    void* GetItemValue (short row) const;
    void  SetItemStatus (short row, short status);
    short GetItemStatus (short row) const;
    void  EnableItem (short row) { SetItemStatus (row, Normal); }
    void  DisableItem (short row) { SetItemStatus (row, Grayed); }
    bool  IsItemEnabled (short row) const { return GetItemStatus (row) != Grayed; }
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
    void  SetTabFieldCount (short count);
    short GetTabFieldCount () const;
    void  SetTabFieldBeginEndPosition (short column, short begin, short end);
    short GetTabFieldBeginPosition (short column) const;
    short GetTabFieldEndPosition (short column) const;
    short GetTabFieldWidth (short column) const;
    void  SetTabFieldJustification (short column, short justification);
    short GetTabFieldJustification (short column) const;
    void  SetTabFieldTruncation (short column, short truncation);
    short GetTabFieldTruncation (short column) const;
    void  SetTabFieldOwnerDrawFlag (short column, bool ownerDrawn);
    bool  GetTabFieldOwnerDrawFlag (short column) const;

    // --- On-tab items: controls laid over a column of the selected row ---
    void  SetOnTabItem (short column, Item& item);
    void  RemoveOnTabItem (short column);
    void  RemoveAllOnTabItems ();
    Item* GetOnTabItem (short column) const;
    // The column the item stands over, or 0.
    short GetOnTabItemColumn (const Item& item) const;
    bool  IsOnTabItem (const Item& item) const { return GetOnTabItemColumn (item) > 0; }

    // --- Selection (single) ---
    void  SelectItem (short row);
    void  DeselectAll ();
    short GetSelectedItem () const;          // 0 when none
    short GetSelectedCount () const { return GetSelectedItem () > 0 ? 1 : 0; }

    // --- Scrolling and geometry ---
    short GetScrollPosition () const;        // first visible row, 0 when empty
    void  SetScrollPosition (short row);
    short GetVisibleRowCount () const;       // rows that fit into the client area
    void  SetItemHeight (short height);
    short GetItemHeight () const;
    short GetItemWidth () const;             // client width of the rows
    short GetHeaderHeight () const;          // 0 without a header
    bool  HasHeader () const;
    // The row's rectangle in list-box pixels (see the header); empty when the row does not exist.
    Rect  GetItemRect (short row) const;
    // The rectangle of a cell, likewise.
    Rect  GetCellRect (short row, short column) const;
    // The row at a y position in list-box pixels, 0 when there is none.
    short GetRowAt (int y) const;
    ScrollType GetScrollType () const;

    void EnableSeparatorLines (bool enable);
    bool HasSeparatorLines () const;
    void  SetHelpStyle (short style);
    short GetHelpStyle () const;

    // --- Drawing ---
    // Suspension nests; the last EnableDraw redraws.
    void DisableDraw ();
    void EnableDraw ();
    bool IsDrawEnabled () const;
    void RedrawItem (short row);
    void Redraw ();
    // How often redraws were requested (for tests of refresh behaviour).
    std::uint64_t GetRedrawCount () const;

    // --- Header ---
    void  SetHeaderSynchronState (bool synchronized);
    bool  GetHeaderSynchronState () const;
    void  SetHeaderItemCount (short count);
    short GetHeaderItemCount () const;
    void  SetHeaderItemSize (short headerItem, short size);
    short GetHeaderItemSize (short headerItem) const;
    void  SetHeaderItemMinSize (short headerItem, short size);
    short GetHeaderItemMinSize (short headerItem) const;
    void  SetHeaderItemText (short headerItem, const Kor::UniString& text);
    Kor::UniString GetHeaderItemText (short headerItem) const;
    void  SetHeaderItemResizable (short headerItem, bool resizable);
    bool  IsHeaderItemResizable (short headerItem) const;

    // --- User input entry points ---
    // A click selects the row (reporting the selection change), then reports the click.
    void Click (short row, Point mouseOffset);
    void DoubleClick (short row, Point mouseOffset);
    // The user selected a row with the keyboard or otherwise.
    void UserSelect (short row);
    void UserScroll (short firstVisibleRow);
    // The user dragged a header divider; the size is clamped to the item's minimum.
    void UserResizeHeaderItem (short headerItem, short newSize);

    // --- Painting entry points (a backend's paint, or a test) ---
    // Draws one row into context at its rectangle: background, cells, owner-drawn cells through
    // ListBoxTabFieldUpdate and owner-drawn rows through ListBoxItemUpdate.
    void PaintRow (short row, Gfx::DrawingContext& context);
    // The same for a row, returning the recording of each owner-drawn cell separately.
    Gfx::DrawingContext PaintCell (short row, short column);
    void PaintOverlay (Gfx::DrawingContext& context);

private:
    struct Impl;
    std::unique_ptr<Impl> impl;
};

// A list box that selects at most one row (the kind the attribute list uses).
class SingleSelListBox : public ListBox {
public:
    using ListBox::ListBox;
};

}   // namespace Wg
