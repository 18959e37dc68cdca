// Wg::ListBox: drawing suspension. Row changes made while drawing is suspended are collected
// and sent on resume: a few rows one by one, otherwise the whole list at once.

#include "ListBoxImpl.hpp"

#include <algorithm>

namespace Wg {

// --- Notifications of row changes ---

void ListBox::Impl::RowChanged (short row)
{
    if (drawSuspension > 0) {
        CollectRow (row);
        return;
    }
    Notify (Aspect::Row, row);
}

void ListBox::Impl::CollectRow (short row)
{
    if (rowsPending || std::find (pendingRows.begin (), pendingRows.end (), row) != pendingRows.end ()) return;
    // Past a few rows one redraw of all is cheaper than many of one.
    if (pendingRows.size () >= MaxPendingRows) {
        rowsPending = true;
        pendingRows.clear ();
        return;
    }
    pendingRows.push_back (row);
}

void ListBox::Impl::SendCollectedRows ()
{
    if (rowsPending) {
        rowsPending = false;
        pendingRows.clear ();
        Notify (Aspect::Rows);
        return;
    }
    // A row number refers to the rows as they are now: changes that moved rows come as Rows.
    std::vector<short> rowsToSend;
    rowsToSend.swap (pendingRows);
    for (short row : rowsToSend)
        if (IsRow (row)) Notify (Aspect::Row, row);
}

void ListBox::Impl::RowsChanged ()
{
    if (drawSuspension > 0) {
        rowsPending = true;
        pendingRows.clear ();
        return;
    }
    Notify (Aspect::Rows);
}

// --- Drawing ---

void ListBox::DisableDraw ()
{
    if (impl->drawSuspension++ == 0) impl->Notify (Aspect::Draw);
}

void ListBox::EnableDraw ()
{
    if (impl->drawSuspension == 0 || --impl->drawSuspension > 0) return;
    ++impl->redrawCount;
    // What changed while suspended is redrawn now: the rows that changed, or all of them.
    impl->SendCollectedRows ();
    impl->Notify (Aspect::Draw);
}

bool ListBox::IsDrawEnabled () const
{
    return impl->drawSuspension == 0;
}

void ListBox::RedrawItem (short row)
{
    if (!impl->IsRow (row)) return;
    if (impl->drawSuspension > 0) {
        impl->CollectRow (row);
        return;
    }
    ++impl->redrawCount;
    impl->Notify (Aspect::Row, row);
}

void ListBox::Redraw ()
{
    if (impl->drawSuspension > 0) {
        impl->rowsPending = true;
        impl->pendingRows.clear ();
        return;
    }
    ++impl->redrawCount;
    impl->Notify (Aspect::Draw, RedrawAll);
}

std::uint64_t ListBox::GetRedrawCount () const
{
    return impl->redrawCount;
}

}   // namespace Wg
