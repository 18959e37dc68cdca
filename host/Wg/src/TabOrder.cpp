// Tab traversal of a panel and of a list box's rows.
//
//   Panel::KeyPress (Tab, nobody used it)  -> Panel::MoveFocusByTab (origin taken before the
//                                             focused item committed)
//     focus in a list box                  -> ListBox::UserTab (fromColumn, backward)
//                                               next on-tab item of the row -> Item::SetFocus
//                                               else list box focus (commits), UserSelect (next
//                                               enabled row), ScrollIntoView, first on-tab item
//     focus elsewhere                      -> next focusable item by id (wraps)

#include <algorithm>

#include "Kor/LifeWatch.hpp"
#include "ListBoxImpl.hpp"
#include "Wg/Panel.hpp"

namespace Wg {

namespace {

bool IsTabStop (const Item& item)
{
    return item.IsFocusable () && item.IsVisible () && item.IsEnabled ();
}

}   // namespace

// --- List box ---

void ListBox::UserTab (short fromColumn, bool backward)
{
    if (!IsVisible () || !IsEnabled ()) return;
    const Kor::LifeWatch alive (*this);
    // The focusable controls over the selected row, by column.
    const auto stops = [this] {
        std::vector<OnTabStop> found;
        if (impl->selected == NoRow) return found;
        for (const Impl::OnTabEntry& entry : impl->onTabItems)
            if (IsTabStop (*entry.item)) found.push_back ({entry.column, entry.item});
        std::sort (found.begin (), found.end (), [] (const OnTabStop& a, const OnTabStop& b) { return a.column < b.column; });
        return found;
    };

    const std::vector<OnTabStop> onRow = stops ();
    Item* target = nullptr;
    if (!backward) {
        const auto next = std::find_if (onRow.begin (), onRow.end (), [fromColumn] (const OnTabStop& s) { return s.column > fromColumn; });
        if (next != onRow.end ()) target = next->item;
    } else if (fromColumn > 0) {
        const auto previous = std::find_if (onRow.rbegin (), onRow.rend (), [fromColumn] (const OnTabStop& s) { return s.column < fromColumn; });
        if (previous != onRow.rend ()) target = previous->item;
    }
    if (target != nullptr) {
        target->SetFocus ();
        return;
    }

    // On to the next enabled row; disabled rows are passed over as the arrow keys do.
    const short count = impl->GetCount ();
    const int step = backward ? -1 : 1;
    int row = impl->selected == NoRow ? (backward ? count : 1) : impl->selected + step;
    while (row >= 1 && row <= count && !IsItemEnabled (static_cast<short> (row))) row += step;
    if (row < 1 || row > count) return;

    // The list box takes the focus first, so that the control of the old row commits while
    // its row is still the selected one and does not come back on the new row.
    SetFocus ();
    if (alive.IsGone ()) return;
    UserSelect (static_cast<short> (row));
    if (alive.IsGone () || impl->selected != row) return;
    ScrollIntoView (static_cast<short> (row));
    if (alive.IsGone ()) return;
    const std::vector<OnTabStop> onNewRow = stops ();
    if (onNewRow.empty ())
        SetFocus ();
    else
        (backward ? onNewRow.back () : onNewRow.front ()).item->SetFocus ();
}

// --- Panel ---

Panel::TabOrigin Panel::FindTabOrigin () const
{
    if (focused == nullptr) return {};
    for (const auto& [itemId, item] : items) {
        auto* listBox = dynamic_cast<ListBox*> (item);
        if (listBox == nullptr) continue;
        if (listBox == focused) return {listBox, itemId, 0};
        const short column = listBox->GetOnTabItemColumn (*focused);
        if (column > 0) return {listBox, itemId, column};
    }
    return {};
}

bool Panel::MoveFocusByTab (bool backward)
{
    return MoveFocusByTab (FindTabOrigin (), backward);
}

bool Panel::MoveFocusByTab (const TabOrigin& origin, bool backward)
{
    // The list box may have gone while the focused control committed; then start afresh.
    if (origin.listBox != nullptr && GetItem (origin.listBoxId) == origin.listBox) {
        origin.listBox->UserTab (origin.column, backward);
        return true;
    }
    if (origin.listBox != nullptr) {
        const TabOrigin now = FindTabOrigin ();
        if (now.listBox != nullptr) return MoveFocusByTab (now, backward);
    }

    std::vector<Item*> stops;
    for (const auto& [itemId, item] : items) {
        if (!IsTabStop (*item)) continue;
        const bool onRow = std::any_of (items.begin (), items.end (), [item] (const auto& entry) {
            const auto* listBox = dynamic_cast<const ListBox*> (entry.second);
            return listBox != nullptr && listBox->IsOnTabItem (*item);
        });
        if (!onRow) stops.push_back (item);
    }
    if (stops.empty ()) return false;
    const auto current = std::find (stops.begin (), stops.end (), focused);
    std::size_t index = 0;
    if (current == stops.end ())
        index = backward ? stops.size () - 1 : 0;
    else if (backward)
        index = current == stops.begin () ? stops.size () - 1 : static_cast<std::size_t> (current - stops.begin ()) - 1;
    else
        index = (static_cast<std::size_t> (current - stops.begin ()) + 1) % stops.size ();
    stops[index]->SetFocus ();
    return true;
}

}   // namespace Wg
