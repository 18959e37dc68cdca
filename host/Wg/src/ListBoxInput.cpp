// Wg::ListBox: selection, on-tab items and the user input entry points.
//
// Event flow of the entry points (what a backend or a test calls, and what observers hear):
//   Click (row, offset)
//     -> SetSelected (row)            -> ListBoxSelectionChanged, when the row changed
//                                        (on-tab items move to the new row first)
//     -> Item::SetFocus               unless an on-tab item of this list box has the focus
//     -> ListBoxClicked
//     -> Item::SetFocus of the focusable on-tab item over the clicked column, if any
//   DoubleClick (row, offset)         -> ListBoxDoubleClicked only (the first press came as Click)
//   UserSelect (row)                  -> focus leaves an on-tab item (committing it), then
//                                        ListBoxSelectionChanged, when the row changed, then the
//                                        focus returns to that item if it stands on the new row
//   HandleKey (arrows, Home, End, pages) -> UserSelect, then ScrollIntoView
//   UserScroll (row)                  -> scroll position (clamped); on-tab items follow
//   UserResizeHeaderItem (i, size)    -> size stored -> ListBoxHeaderItemResized

#include "ListBoxImpl.hpp"

#include <algorithm>

#include "Wg/Panel.hpp"

namespace Wg {

// --- Selection and on-tab items (Impl) ---

bool ListBox::Impl::SetSelected (short row)
{
    if (row == selected) return false;
    if (!onTabItems.empty ()) {
        Kor::LifeWatch alive (self);
        Item* focused = self.GetPanel ().GetFocusedItem ();
        if (focused != nullptr && self.IsOnTabItem (*focused)) self.SetFocus ();
        // Committing may have rebuilt the rows or moved the selection already.
        if (alive.IsGone () || row == selected || (row != NoRow && !IsRow (row))) return false;
        while (!onTabItems.empty ()) RemoveOnTabEntry (onTabItems.size () - 1, true);
    }
    selected = row;
    Notify (Aspect::Selection, selected);
    return true;
}

void ListBox::Impl::PlaceOnTabItems ()
{
    if (onTabItems.empty ()) return;
    // Showing or hiding an item can move the focus, and focus observers may change the on-tab
    // items: walk a copy and skip entries that went meanwhile.
    const std::vector<OnTabEntry> entries = onTabItems;
    Kor::LifeWatch alive (self);
    for (const OnTabEntry& entry : entries) {
        if (alive.IsGone ()) return;
        const auto current = std::find_if (onTabItems.begin (), onTabItems.end (),
                                           [&] (const OnTabEntry& e) { return e.item == entry.item && e.column == entry.column; });
        if (current == onTabItems.end ()) continue;
        const TabField* field = FindField (entry.column);
        if (field == nullptr || !self.IsVisible () || !IsRowInView (selected)) {
            entry.item->Hide ();
            continue;
        }
        const Rect client = GetClientRect ();
        const int rowTop = client.top + (selected - scroll) * itemHeight;
        const int x = client.left + field->begin + OnTabItemInset;
        const int y = rowTop + (itemHeight - entry.item->GetHeight ()) / 2;
        entry.item->SetPosition (Point (x, y));
        entry.item->Show ();
    }
}

void ListBox::Impl::RemoveOnTabEntry (std::size_t index, bool hide)
{
    Item* item = onTabItems[index].item;
    if (hide && item->IsFocused ()) {
        // The focus stays with the list box rather than going nowhere; what was typed into the
        // item is committed on the way.
        Kor::LifeWatch alive (self);
        self.SetFocus ();
        if (alive.IsGone ()) return;
        auto it = std::find_if (onTabItems.begin (), onTabItems.end (), [item] (const OnTabEntry& e) { return e.item == item; });
        if (it == onTabItems.end ()) return;
        index = static_cast<std::size_t> (it - onTabItems.begin ());
    }
    onTabItems.erase (onTabItems.begin () + static_cast<std::ptrdiff_t> (index));
    item->Detach (watcher);
    if (!hide) return;
    // The commit's observers may have given the focus back to the item (a list refreshing the
    // committed row): hiding it then must not leave the panel without a focused item.
    const bool refocused = item->IsFocused ();
    Kor::LifeWatch alive (self);
    item->Hide ();
    if (refocused && !alive.IsGone () && self.GetPanel ().GetFocusedItem () == nullptr) self.SetFocus ();
}

void ListBox::Impl::ForgetOnTabItem (const Kor::EventSource& source)
{
    std::erase_if (onTabItems, [&source] (const OnTabEntry& entry) { return entry.source == &source; });
}

void ListBox::Impl::OnTabItemWatcher::SourceDestroyed (Kor::EventSource& source)
{
    // The item is half destroyed: compare addresses only.
    impl.ForgetOnTabItem (source);
}

// --- On-tab items ---

void ListBox::SetOnTabItem (short column, Item& item)
{
    if (!impl->IsColumn (column) || &item == this || &item.GetPanel () != &GetPanel ()) return;
    const auto sameColumn = [column] (const Impl::OnTabEntry& e) { return e.column == column; };
    auto occupant = std::find_if (impl->onTabItems.begin (), impl->onTabItems.end (), sameColumn);
    if (occupant != impl->onTabItems.end () && occupant->item != &item)
        impl->RemoveOnTabEntry (static_cast<std::size_t> (occupant - impl->onTabItems.begin ()), true);
    auto existing = std::find_if (impl->onTabItems.begin (), impl->onTabItems.end (), [&item] (const Impl::OnTabEntry& e) { return e.item == &item; });
    if (existing != impl->onTabItems.end ()) {
        existing->column = column;   // moves over; no need to hide it on the way
    } else {
        impl->onTabItems.push_back (Impl::OnTabEntry {column, &item, &item});
        item.Attach (impl->watcher);
    }
    impl->PlaceOnTabItems ();
}

void ListBox::RemoveOnTabItem (short column)
{
    auto it = std::find_if (impl->onTabItems.begin (), impl->onTabItems.end (), [column] (const Impl::OnTabEntry& e) { return e.column == column; });
    if (it != impl->onTabItems.end ()) impl->RemoveOnTabEntry (static_cast<std::size_t> (it - impl->onTabItems.begin ()), true);
}

void ListBox::RemoveAllOnTabItems ()
{
    while (!impl->onTabItems.empty ()) impl->RemoveOnTabEntry (impl->onTabItems.size () - 1, true);
}

Item* ListBox::GetOnTabItem (short column) const
{
    for (const Impl::OnTabEntry& entry : impl->onTabItems)
        if (entry.column == column) return entry.item;
    return nullptr;
}

short ListBox::GetOnTabItemColumn (const Item& item) const
{
    for (const Impl::OnTabEntry& entry : impl->onTabItems)
        if (entry.item == &item) return entry.column;
    return 0;
}

// --- User input entry points ---

void ListBox::Click (short row, Point mouseOffset)
{
    if (!IsVisible () || !IsEnabled () || !impl->IsRow (row)) return;
    Kor::LifeWatch alive (*this);
    UserSelect (row);
    if (alive.IsGone ()) return;
    Item* focused = GetPanel ().GetFocusedItem ();
    if (focused == nullptr || !IsOnTabItem (*focused)) SetFocus ();
    if (alive.IsGone ()) return;
    const ListBoxClickEvent event (this, row, mouseOffset);
    impl->NotifyListBoxObservers ([&] (ListBoxObserver& observer) { observer.ListBoxClicked (event); });
    if (alive.IsGone () || impl->selected != row) return;
    // The click lands on whatever control now stands under the pointer: an edit laid over the
    // clicked column takes the focus, so that the user can type at once.
    for (const Impl::OnTabEntry& entry : impl->onTabItems) {
        const Impl::TabField* field = impl->FindField (entry.column);
        if (field == nullptr || mouseOffset.x < field->begin || mouseOffset.x >= field->end) continue;
        if (entry.item->IsFocusable () && entry.item->IsVisible () && entry.item->IsEnabled ()) entry.item->SetFocus ();
        break;
    }
}

void ListBox::DoubleClick (short row, Point mouseOffset)
{
    if (!IsVisible () || !IsEnabled () || !impl->IsRow (row)) return;
    const ListBoxDoubleClickEvent event (this, row, mouseOffset);
    impl->NotifyListBoxObservers ([&] (ListBoxObserver& observer) { observer.ListBoxDoubleClicked (event); });
}

void ListBox::UserSelect (short row)
{
    if (!IsVisible () || !IsEnabled () || (row != NoRow && !impl->IsRow (row))) return;
    Kor::LifeWatch alive (*this);
    // What the user typed into a control of the old row is committed while that row is still
    // the selected one: the focus leaves the control first, and returns to it on the new row if
    // the control stands there too.
    Item* editing = GetPanel ().GetFocusedItem ();
    if (editing != nullptr && !IsOnTabItem (*editing)) editing = nullptr;
    if (row != impl->selected && editing != nullptr) {
        SetFocus ();
        if (alive.IsGone ()) return;
    }
    if (!impl->SetSelected (row) || alive.IsGone ()) return;
    const ListBoxSelectionEvent event (this, row);
    impl->NotifyListBoxObservers ([&] (ListBoxObserver& observer) { observer.ListBoxSelectionChanged (event); });
    if (alive.IsGone () || editing == nullptr) return;
    // Only an address comparison: the control may have gone meanwhile.
    const bool stillPlaced = std::any_of (impl->onTabItems.begin (), impl->onTabItems.end (),
                                          [editing] (const Impl::OnTabEntry& e) { return e.item == editing; });
    if (stillPlaced && editing->IsVisible ()) editing->SetFocus ();
}

void ListBox::UserScroll (short firstVisibleRow)
{
    if (!IsVisible () || !IsEnabled ()) return;
    impl->SetScroll (firstVisibleRow);
}

void ListBox::UserResizeHeaderItem (short headerItem, short newSize)
{
    if (!IsVisible () || !IsEnabled () || !IsHeaderItemResizable (headerItem)) return;
    const short size = std::max<short> ({newSize, GetHeaderItemMinSize (headerItem), 0});
    if (size == GetHeaderItemSize (headerItem)) return;
    SetHeaderItemSize (headerItem, size);
    const ListBoxHeaderItemResizeEvent event (this, headerItem, size);
    impl->NotifyListBoxObservers ([&] (ListBoxObserver& observer) { observer.ListBoxHeaderItemResized (event); });
}

bool ListBox::HandleKey (const Key::Code& key)
{
    const short count = impl->GetCount ();
    if (count == 0 || key.GetCharacter () != 0) return false;
    const short current = impl->selected;
    const short page = std::max<short> (impl->GetVisibleRows (), 1);
    int target = 0;
    switch (key.GetCode ()) {
        case Key::Up:       target = current == NoRow ? 1 : current - 1; break;
        case Key::Down:     target = current == NoRow ? 1 : current + 1; break;
        case Key::Home:     target = 1; break;
        case Key::End:      target = count; break;
        case Key::PageUp:   target = current - page; break;
        case Key::PageDown: target = current + page; break;
        default:            return false;
    }
    const short row = static_cast<short> (std::clamp (target, 1, int (count)));
    Kor::LifeWatch alive (*this);
    UserSelect (row);
    if (!alive.IsGone ()) ScrollIntoView (row);
    return true;
}

}   // namespace Wg
