#include "Rb/MultipleChoice.hpp"

namespace Rb {

namespace {

const Kor::UniString EmptyText;

}   // namespace

void MultipleChoiceDataObserver::SelectionChanged (const MultipleChoiceData&) {}

// --- MultipleChoiceData ---

std::size_t MultipleChoiceData::AddItem (const Kor::UniString& text, bool selected)
{
    items.push_back ({text, selected});
    return items.size () - 1;
}

const Kor::UniString& MultipleChoiceData::GetItemText (std::size_t index) const
{
    return index < items.size () ? items[index].text : EmptyText;
}

bool MultipleChoiceData::IsItemSelected (std::size_t index) const
{
    return index < items.size () && items[index].selected;
}

void MultipleChoiceData::SetItemSelected (std::size_t index, bool selected)
{
    if (index >= items.size () || items[index].selected == selected) return;
    items[index].selected = selected;
    NotifySelectionChanged ();
}

std::vector<bool> MultipleChoiceData::GetSelection () const
{
    std::vector<bool> selection;
    selection.reserve (items.size ());
    for (const Item& item : items) selection.push_back (item.selected);
    return selection;
}

void MultipleChoiceData::SetSelection (const std::vector<bool>& selection)
{
    bool changed = false;
    for (std::size_t i = 0; i < items.size () && i < selection.size (); ++i) {
        if (items[i].selected == selection[i]) continue;
        items[i].selected = selection[i];
        changed = true;
    }
    if (changed) NotifySelectionChanged ();
}

void MultipleChoiceData::NotifySelectionChanged ()
{
    NotifyObservers<MultipleChoiceDataObserver> ([this] (MultipleChoiceDataObserver& o) { o.SelectionChanged (*this); });
}

// --- MultipleChoicePopUpDialog ---

MultipleChoicePopUpDialog::MultipleChoicePopUpDialog (MultipleChoiceData& data, Wg::Item* anchor)
    : DialogSession (anchor), data (data)
{
}

std::vector<Wg::ModalEntry> MultipleChoicePopUpDialog::GetEntries () const
{
    std::vector<Wg::ModalEntry> entries;
    for (std::size_t i = 0; i < data.GetItemCount (); ++i) {
        Wg::ModalEntry entry;
        entry.text = data.GetItemText (i);
        entry.checked = data.IsItemSelected (i);
        entries.push_back (entry);
    }
    return entries;
}

void MultipleChoicePopUpDialog::Begin ()
{
    selectionAtBegin = data.GetSelection ();
}

bool MultipleChoicePopUpDialog::Perform (const Wg::ModalStep& step)
{
    if (HasEnded ()) return true;
    if (step.op == Wg::ModalStep::Tick) {
        if (step.entry >= 1) data.SetItemSelected (static_cast<std::size_t> (step.entry - 1), step.flag);
    } else {
        PerformAcceptOrCancel (step);
    }
    return HasEnded ();
}

void MultipleChoicePopUpDialog::RevertOnCancel ()
{
    data.SetSelection (selectionAtBegin);
}

}   // namespace Rb
