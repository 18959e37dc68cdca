// Wg::ListBox: rows, cells, tab fields, selection, scrolling, geometry and header. Drawing
// suspension is in ListBoxDrawing.cpp, user input and on-tab items in ListBoxInput.cpp, painting
// in ListBoxPaint.cpp.

#include "ListBoxImpl.hpp"

#include <algorithm>
#include <limits>

namespace Wg {

namespace {

short ClampToShort (int value)
{
    return static_cast<short> (std::clamp (value, int (std::numeric_limits<short>::min ()), int (std::numeric_limits<short>::max ())));
}

}   // namespace

// --- Events and observer defaults ---

ListBoxEvent::ListBoxEvent (ListBox* source, short listItem) : ItemEvent (source), listItem (listItem) {}

ListBox* ListBoxEvent::GetSource () const
{
    return static_cast<ListBox*> (ItemEvent::GetSource ());
}

void ListBoxObserver::ListBoxSelectionChanged (const ListBoxSelectionEvent&) {}
void ListBoxObserver::ListBoxClicked (const ListBoxClickEvent&) {}
void ListBoxObserver::ListBoxDoubleClicked (const ListBoxDoubleClickEvent&) {}
void ListBoxObserver::ListBoxItemUpdate (const ListBoxItemUpdateEvent&) {}
void ListBoxObserver::ListBoxTabFieldUpdate (const ListBoxTabItemUpdateEvent&) {}
void ListBoxObserver::ListBoxOverlayUpdate (const ListBoxOverlayUpdateEvent&) {}
void ListBoxObserver::ListBoxHeaderItemResized (const ListBoxHeaderItemResizeEvent&) {}

// --- Impl helpers ---

const ListBox::Impl::Cell* ListBox::Impl::Row::FindCell (short column) const
{
    for (const Cell& cell : cells)
        if (cell.column == column) return &cell;
    return nullptr;
}

ListBox::Impl::Cell* ListBox::Impl::Row::FindCell (short column)
{
    for (Cell& cell : cells)
        if (cell.column == column) return &cell;
    return nullptr;
}

ListBox::Impl::Impl (ListBox& self, ScrollType scrollType, bool hasHeader, short headerHeight)
    : self (self), scrollType (scrollType), headerHeight (std::max<short> (headerHeight, 0)), hasHeader (hasHeader)
{
}

ListBox::Impl::Cell& ListBox::Impl::AddCell (Row& row, short column)
{
    // Most rows fill a few columns; one allocation of that size serves them all.
    constexpr std::size_t TypicalCellCount = 3;
    if (row.cells.capacity () == 0) row.cells.reserve (std::min (TypicalCellCount, tabFields.size ()));
    Cell& cell = row.cells.emplace_back ();
    cell.column = column;
    return cell;
}

Rect ListBox::Impl::GetClientRect () const
{
    const Rect r = self.GetRect ();
    const int left = r.left + FrameWidth;
    const int top = r.top + FrameWidth + (hasHeader ? headerHeight : 0);
    const int right = r.right - FrameWidth - (scrollType == VScroll ? ScrollBarWidth : 0);
    const int bottom = r.bottom - FrameWidth;
    return Rect (left, top, std::max (left, right), std::max (top, bottom));
}

short ListBox::Impl::GetVisibleRows () const
{
    return ClampToShort (GetClientRect ().GetHeight () / itemHeight);
}

short ListBox::Impl::GetMaxScrollPosition () const
{
    return static_cast<short> (std::max (1, int (GetCount ()) - GetVisibleRows () + 1));
}

bool ListBox::Impl::IsRowInView (short row) const
{
    return IsRow (row) && scroll >= 1 && row >= scroll && row - scroll < GetVisibleRows ();
}

Rect ListBox::Impl::GetRowRect (short row) const
{
    const int top = (int (row) - int (scroll)) * itemHeight;
    return Rect (0, top, GetClientRect ().GetWidth (), top + itemHeight);
}

Rect ListBox::Impl::GetCellRect (short row, short column) const
{
    const TabField* field = FindField (column);
    if (!IsRow (row) || field == nullptr) return Rect ();
    const Rect rowRect = GetRowRect (row);
    return Rect (field->begin, rowRect.top, std::max (field->begin, field->end), rowRect.bottom);
}

void ListBox::Impl::SetScroll (short row)
{
    const short newScroll = rows.empty () ? NoRow : std::clamp<short> (row, 1, GetMaxScrollPosition ());
    if (newScroll == scroll) return;
    scroll = newScroll;
    Notify (Aspect::Scroll);
    PlaceOnTabItems ();
}

void ListBox::Impl::ClampScroll ()
{
    SetScroll (scroll);
}

void ListBox::Impl::ResizeSynchronizedField (short column, short size)
{
    TabField& field = tabFields[static_cast<std::size_t> (column - 1)];
    const int difference = int (field.begin) + size - field.end;
    if (difference == 0) return;
    field.end = ClampToShort (field.begin + size);
    for (std::size_t i = static_cast<std::size_t> (column); i < tabFields.size (); ++i) {
        tabFields[i].begin = ClampToShort (tabFields[i].begin + difference);
        tabFields[i].end = ClampToShort (tabFields[i].end + difference);
    }
    Notify (Aspect::Layout);
    PlaceOnTabItems ();
}

void ListBox::Impl::Notify (Aspect aspect, int detail)
{
    if (self.GetPeer () == nullptr) return;
    self.NotifyPeer (aspect, detail);
}

// --- Construction ---

ListBox::ListBox (const Panel& panel, const Rect& rect, short id, ScrollType scrollType, bool hasHeader, short headerHeight)
    : Item (panel, rect, id), impl (std::make_unique<Impl> (*this, scrollType, hasHeader, headerHeight))
{
}

ListBox::~ListBox ()
{
    // The on-tab items outlive the list box (it does not own them); they must not stay on
    // screen over a list box that is gone.
    RemoveAllOnTabItems ();
}

// --- Rows ---

short ListBox::GetItemCount () const
{
    return impl->GetCount ();
}

short ListBox::InsertItem (short row)
{
    const short count = impl->GetCount ();
    if (row < 1 || row > count + 1 || count >= MaxRowCount) return NoRow;
    impl->rows.insert (impl->rows.begin () + (row - 1), Impl::Row {});
    // The new row holds no value; only the rows after it move.
    if (row <= count) impl->valueIndex.MarkStale ();
    if (impl->scroll == NoRow) {
        impl->scroll = 1;
        impl->Notify (Aspect::Scroll);
    }
    impl->RowsChanged ();
    if (impl->selected >= row) {
        ++impl->selected;
        impl->Notify (Aspect::Selection, impl->selected);
        impl->PlaceOnTabItems ();
    }
    return row;
}

short ListBox::AppendItem ()
{
    // The hot path of a rebuild: no selection or on-tab item can move.
    const short count = impl->GetCount ();
    if (count >= MaxRowCount) return NoRow;
    impl->rows.emplace_back ();
    if (impl->scroll == NoRow) {
        impl->scroll = 1;
        impl->Notify (Aspect::Scroll);
    }
    impl->RowsChanged ();
    return static_cast<short> (count + 1);
}

void ListBox::DeleteItem (short row)
{
    if (!impl->IsRow (row)) return;
    // The selection goes while the row still exists, so that an edit over it commits to it.
    if (impl->selected == row) {
        Kor::LifeWatch alive (*this);
        impl->SetSelected (NoRow);
        if (alive.IsGone () || !impl->IsRow (row)) return;
    }
    if (row == impl->GetCount ())
        impl->valueIndex.Remove (impl->rows.back ().value, row);
    else
        impl->valueIndex.MarkStale ();
    impl->rows.erase (impl->rows.begin () + (row - 1));
    impl->RowsChanged ();
    if (impl->selected > row) {
        --impl->selected;
        impl->Notify (Aspect::Selection, impl->selected);
    }
    impl->ClampScroll ();
    impl->PlaceOnTabItems ();
}

void ListBox::DeleteAllItems ()
{
    // The selection goes while the rows still exist, so that an edit over them commits.
    Kor::LifeWatch alive (*this);
    impl->SetSelected (NoRow);
    if (alive.IsGone ()) return;
    // The row storage keeps its capacity: a rebuild of the same size allocates nothing.
    impl->rows.clear ();
    // A rebuild appends every row again: the index is made once, at the next lookup, rather
    // than entry by entry while the rows are filled.
    impl->valueIndex.MarkStale ();
    impl->RowsChanged ();
    impl->SetScroll (NoRow);
}

void ListBox::SetItemValue (short row, void* value)
{
    // The value is the caller's, never shown: nothing to redraw.
    Impl::Row* r = impl->FindRow (row);
    if (r == nullptr || r->value == value) return;
    if (!impl->valueIndex.IsStale ()) {
        impl->valueIndex.Remove (r->value, row);
        impl->valueIndex.Add (value, row);
    }
    r->value = value;
}

short ListBox::FindNextRowWithValue (const void* value, short after) const
{
    return impl->GetValueIndex ().FindNext (value, after, [this] (short row) {
        const Impl::Row* r = impl->FindRow (row);
        return r != nullptr ? r->value : nullptr;
    });
}

const RowValueIndex& ListBox::Impl::GetValueIndex () const
{
    if (valueIndex.IsStale ()) valueIndex.Rebuild (rows.size (), [this] (std::size_t i) { return rows[i].value; });
    return valueIndex;
}

void* ListBox::GetItemValue (short row) const
{
    const Impl::Row* r = impl->FindRow (row);
    return r != nullptr ? r->value : nullptr;
}

void ListBox::SetItemStatus (short row, short status)
{
    Impl::Row* r = impl->FindRow (row);
    if (r == nullptr || r->status == status) return;
    r->status = status;
    impl->RowChanged (row);
}

short ListBox::GetItemStatus (short row) const
{
    const Impl::Row* r = impl->FindRow (row);
    return r != nullptr ? r->status : short (Normal);
}

void ListBox::SetItemFontStyle (short row, int style)
{
    Impl::Row* r = impl->FindRow (row);
    if (r == nullptr || r->fontStyle == style) return;
    r->fontStyle = style;
    impl->RowChanged (row);
}

int ListBox::GetItemFontStyle (short row) const
{
    const Impl::Row* r = impl->FindRow (row);
    return r != nullptr ? r->fontStyle : Gfx::PlainFont;
}

void ListBox::SetItemOwnerDrawnFlag (short row, bool ownerDrawn)
{
    Impl::Row* r = impl->FindRow (row);
    if (r == nullptr || r->ownerDrawn == ownerDrawn) return;
    r->ownerDrawn = ownerDrawn;
    impl->RowChanged (row);
}

bool ListBox::GetItemOwnerDrawnFlag (short row) const
{
    const Impl::Row* r = impl->FindRow (row);
    return r != nullptr && r->ownerDrawn;
}

void ListBox::SetItemBackgroundColor (short row, const Gfx::Color& color)
{
    Impl::Row* r = impl->FindRow (row);
    if (r == nullptr || (r->hasBackground && r->background == color)) return;
    r->background = color;
    r->hasBackground = true;
    impl->RowChanged (row);
}

std::optional<Gfx::Color> ListBox::GetItemBackgroundColor (short row) const
{
    const Impl::Row* r = impl->FindRow (row);
    if (r == nullptr || !r->hasBackground) return std::nullopt;
    return r->background;
}

// --- Cells ---

void ListBox::SetTabItemText (short row, short column, const Kor::UniString& text)
{
    Impl::Row* r = impl->FindRow (row);
    if (r == nullptr || !impl->IsColumn (column)) return;
    if (Impl::Cell* cell = r->FindCell (column)) {
        if (cell->text == text) return;
        cell->text = text;
    } else {
        if (text.IsEmpty ()) return;
        impl->AddCell (*r, column).text = text;
    }
    impl->RowChanged (row);
}

Kor::UniString ListBox::GetTabItemText (short row, short column) const
{
    const Impl::Row* r = impl->FindRow (row);
    if (r == nullptr || !impl->IsColumn (column)) return {};
    const Impl::Cell* cell = r->FindCell (column);
    return cell != nullptr ? cell->text : Kor::UniString ();
}

void ListBox::SetTabItemIcon (short row, short column, const Icon& icon)
{
    Impl::Row* r = impl->FindRow (row);
    if (r == nullptr || !impl->IsColumn (column)) return;
    Impl::Cell* cell = r->FindCell (column);
    if (cell != nullptr) {
        if (cell->GetIcon () == icon) return;
    } else {
        if (icon == Icon ()) return;
        cell = &impl->AddCell (*r, column);
    }
    cell->iconModule = icon.GetModule ();
    cell->iconId = icon.GetResourceId ();
    impl->RowChanged (row);
}

Icon ListBox::GetTabItemIcon (short row, short column) const
{
    const Impl::Row* r = impl->FindRow (row);
    if (r == nullptr || !impl->IsColumn (column)) return {};
    const Impl::Cell* cell = r->FindCell (column);
    return cell != nullptr ? cell->GetIcon () : Icon ();
}

// --- Tab fields ---

void ListBox::SetTabFieldCount (short count)
{
    if (count < 0 || static_cast<std::size_t> (count) == impl->tabFields.size ()) return;
    if (static_cast<std::size_t> (count) < impl->tabFields.size ()) {
        for (std::size_t i = impl->onTabItems.size (); i-- > 0;)
            if (impl->onTabItems[i].column > count) impl->RemoveOnTabEntry (i, true);
        for (Impl::Row& row : impl->rows)
            std::erase_if (row.cells, [count] (const Impl::Cell& cell) { return cell.column > count; });
    }
    impl->tabFields.resize (static_cast<std::size_t> (count));
    if (impl->headerSynchronized) impl->headerItems.resize (static_cast<std::size_t> (count));
    impl->Notify (Aspect::Layout);
    impl->RowsChanged ();
    impl->PlaceOnTabItems ();
}

short ListBox::GetTabFieldCount () const
{
    return static_cast<short> (impl->tabFields.size ());
}

void ListBox::SetTabFieldBeginEndPosition (short column, short begin, short end)
{
    Impl::TabField* field = impl->FindField (column);
    if (field == nullptr || (field->begin == begin && field->end == end)) return;
    field->begin = begin;
    field->end = end;
    impl->Notify (Aspect::Layout);
    impl->PlaceOnTabItems ();
}

short ListBox::GetTabFieldBeginPosition (short column) const
{
    const Impl::TabField* field = impl->FindField (column);
    return field != nullptr ? field->begin : 0;
}

short ListBox::GetTabFieldEndPosition (short column) const
{
    const Impl::TabField* field = impl->FindField (column);
    return field != nullptr ? field->end : 0;
}

short ListBox::GetTabFieldWidth (short column) const
{
    const Impl::TabField* field = impl->FindField (column);
    return field != nullptr ? ClampToShort (std::max (0, field->end - field->begin)) : 0;
}

void ListBox::SetTabFieldJustification (short column, short justification)
{
    Impl::TabField* field = impl->FindField (column);
    if (field == nullptr || field->justification == justification) return;
    field->justification = justification;
    impl->Notify (Aspect::Layout);
}

short ListBox::GetTabFieldJustification (short column) const
{
    const Impl::TabField* field = impl->FindField (column);
    return field != nullptr ? field->justification : short (Left);
}

void ListBox::SetTabFieldTruncation (short column, short truncation)
{
    Impl::TabField* field = impl->FindField (column);
    if (field == nullptr || field->truncation == truncation) return;
    field->truncation = truncation;
    impl->Notify (Aspect::Layout);
}

short ListBox::GetTabFieldTruncation (short column) const
{
    const Impl::TabField* field = impl->FindField (column);
    return field != nullptr ? field->truncation : short (NoTruncation);
}

void ListBox::SetTabFieldOwnerDrawFlag (short column, bool ownerDrawn)
{
    Impl::TabField* field = impl->FindField (column);
    if (field == nullptr || field->ownerDrawn == ownerDrawn) return;
    field->ownerDrawn = ownerDrawn;
    impl->Notify (Aspect::Layout);
}

bool ListBox::GetTabFieldOwnerDrawFlag (short column) const
{
    const Impl::TabField* field = impl->FindField (column);
    return field != nullptr && field->ownerDrawn;
}

// --- Selection ---

void ListBox::SelectItem (short row)
{
    if (row != NoRow && !impl->IsRow (row)) return;
    impl->SetSelected (row);
}

void ListBox::DeselectAll ()
{
    impl->SetSelected (NoRow);
}

short ListBox::GetSelectedItem () const
{
    return impl->selected;
}

// --- Scrolling and geometry ---

short ListBox::GetScrollPosition () const
{
    return impl->scroll;
}

void ListBox::SetScrollPosition (short row)
{
    impl->SetScroll (row);
}

short ListBox::GetVisibleRowCount () const
{
    return impl->GetVisibleRows ();
}

void ListBox::SetItemHeight (short height)
{
    if (height <= 0 || height == impl->itemHeight) return;
    impl->itemHeight = height;
    impl->Notify (Aspect::Layout);
    impl->ClampScroll ();
    impl->PlaceOnTabItems ();
}

short ListBox::GetItemHeight () const
{
    return impl->itemHeight;
}

short ListBox::GetItemWidth () const
{
    return ClampToShort (impl->GetClientRect ().GetWidth ());
}

short ListBox::GetHeaderHeight () const
{
    return impl->hasHeader ? impl->headerHeight : 0;
}

bool ListBox::HasHeader () const
{
    return impl->hasHeader;
}

Rect ListBox::GetRowsRect () const
{
    return impl->GetClientRect ();
}

bool ListBox::IsRowInView (short row) const
{
    return impl->IsRowInView (row);
}

void ListBox::ScrollIntoView (short row)
{
    if (!impl->IsRow (row) || impl->IsRowInView (row)) return;
    if (row < impl->scroll)
        impl->SetScroll (row);
    else
        impl->SetScroll (static_cast<short> (row - std::max<short> (impl->GetVisibleRows (), 1) + 1));
}

Rect ListBox::GetItemRect (short row) const
{
    return impl->IsRow (row) ? impl->GetRowRect (row) : Rect ();
}

Rect ListBox::GetCellRect (short row, short column) const
{
    return impl->GetCellRect (row, column);
}

short ListBox::GetRowAt (int y) const
{
    if (y < 0 || impl->scroll == NoRow) return NoRow;
    const int row = impl->scroll + y / impl->itemHeight;
    return row <= impl->GetCount () ? static_cast<short> (row) : NoRow;
}

ListBox::ScrollType ListBox::GetScrollType () const
{
    return impl->scrollType;
}

void ListBox::EnableSeparatorLines (bool enable)
{
    if (impl->separatorLines == enable) return;
    impl->separatorLines = enable;
    impl->Notify (Aspect::Layout);
}

bool ListBox::HasSeparatorLines () const
{
    return impl->separatorLines;
}

void ListBox::SetHelpStyle (short style)
{
    if (impl->helpStyle == style) return;
    impl->helpStyle = style;
    impl->Notify (Aspect::Content);
}

short ListBox::GetHelpStyle () const
{
    return impl->helpStyle;
}

void ListBox::RectChanged ()
{
    impl->ClampScroll ();
    impl->PlaceOnTabItems ();
}

void ListBox::VisibilityChanged ()
{
    impl->PlaceOnTabItems ();
}

// --- Header ---

void ListBox::SetHeaderSynchronState (bool synchronized)
{
    if (impl->headerSynchronized == synchronized) return;
    if (synchronized) {
        impl->headerItems.resize (impl->tabFields.size ());
    } else {
        // The items keep the sizes they showed.
        for (std::size_t i = 0; i < impl->headerItems.size (); ++i)
            impl->headerItems[i].size = GetTabFieldWidth (static_cast<short> (i + 1));
    }
    impl->headerSynchronized = synchronized;
    impl->Notify (Aspect::Layout);
}

bool ListBox::GetHeaderSynchronState () const
{
    return impl->headerSynchronized;
}

void ListBox::SetHeaderItemCount (short count)
{
    if (impl->headerSynchronized || count < 0 || static_cast<std::size_t> (count) == impl->headerItems.size ()) return;
    impl->headerItems.resize (static_cast<std::size_t> (count));
    impl->Notify (Aspect::Layout);
}

short ListBox::GetHeaderItemCount () const
{
    return static_cast<short> (impl->headerItems.size ());
}

void ListBox::SetHeaderItemSize (short headerItem, short size)
{
    if (headerItem < 1 || static_cast<std::size_t> (headerItem) > impl->headerItems.size () || size < 0) return;
    if (impl->headerSynchronized) {
        impl->ResizeSynchronizedField (headerItem, size);
        return;
    }
    short& stored = impl->headerItems[static_cast<std::size_t> (headerItem - 1)].size;
    if (stored == size) return;
    stored = size;
    impl->Notify (Aspect::Layout);
}

short ListBox::GetHeaderItemSize (short headerItem) const
{
    if (headerItem < 1 || static_cast<std::size_t> (headerItem) > impl->headerItems.size ()) return 0;
    if (impl->headerSynchronized) return GetTabFieldWidth (headerItem);
    return impl->headerItems[static_cast<std::size_t> (headerItem - 1)].size;
}

void ListBox::SetHeaderItemMinSize (short headerItem, short size)
{
    if (headerItem < 1 || static_cast<std::size_t> (headerItem) > impl->headerItems.size () || size < 0) return;
    impl->headerItems[static_cast<std::size_t> (headerItem - 1)].minSize = size;
}

short ListBox::GetHeaderItemMinSize (short headerItem) const
{
    if (headerItem < 1 || static_cast<std::size_t> (headerItem) > impl->headerItems.size ()) return 0;
    return impl->headerItems[static_cast<std::size_t> (headerItem - 1)].minSize;
}

void ListBox::SetHeaderItemText (short headerItem, const Kor::UniString& text)
{
    if (headerItem < 1 || static_cast<std::size_t> (headerItem) > impl->headerItems.size ()) return;
    Kor::UniString& stored = impl->headerItems[static_cast<std::size_t> (headerItem - 1)].text;
    if (stored == text) return;
    stored = text;
    impl->Notify (Aspect::Layout);
}

Kor::UniString ListBox::GetHeaderItemText (short headerItem) const
{
    if (headerItem < 1 || static_cast<std::size_t> (headerItem) > impl->headerItems.size ()) return {};
    return impl->headerItems[static_cast<std::size_t> (headerItem - 1)].text;
}

void ListBox::SetHeaderItemResizable (short headerItem, bool resizable)
{
    if (headerItem < 1 || static_cast<std::size_t> (headerItem) > impl->headerItems.size ()) return;
    impl->headerItems[static_cast<std::size_t> (headerItem - 1)].resizable = resizable;
}

bool ListBox::IsHeaderItemResizable (short headerItem) const
{
    if (headerItem < 1 || static_cast<std::size_t> (headerItem) > impl->headerItems.size ()) return false;
    return impl->headerItems[static_cast<std::size_t> (headerItem - 1)].resizable;
}

}   // namespace Wg
