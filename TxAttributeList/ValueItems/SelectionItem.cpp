#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ValueItems.hpp"

namespace TxAL {

namespace {

// The popup control's code for a small square drop-down button.
constexpr short SquareDropDownButton = 3;
// Entry indices are 16-bit.
constexpr std::size_t MaxEntryCount = 32767;

}   // namespace

void AttributeListSelectionItemObserver::SelectionChanged (const AttributeListSelectionItem&) {}

AttributeListSelectionItem::AttributeListSelectionItem (const Kor::UniString& name, const Wg::Icon& icon, bool status, bool boldText)
    : AttributeListSimpleItem (name, icon, status, boldText)
{
}

short AttributeListSelectionItem::AddItem (const PopupItem& entry)
{
    if (entries.GetSize () >= MaxEntryCount) return -1;
    entries.Push (entry);
    const short index = static_cast<short> (entries.GetSize ());
    RefreshItem (false);
    return index;
}

short AttributeListSelectionItem::AddSeparator ()
{
    PopupItem separator;
    separator.SetIsSeparator (true);
    return AddItem (separator);
}

void AttributeListSelectionItem::DeleteAllItems ()
{
    // The tracked index is left as it is; drawing checks it against the entries.
    selectedIndex = -1;
    entries.Clear ();
    RefreshItem (false);
}

void AttributeListSelectionItem::InsertEntry (short position, const PopupItem& entry)
{
    if (entries.GetSize () >= MaxEntryCount || position < 1 || position > static_cast<short> (entries.GetSize ()) + 1) return;
    entries.Insert (static_cast<std::size_t> (position - 1), entry);
    RefreshItem (false);
}

void AttributeListSelectionItem::DeleteLastEntry ()
{
    if (entries.IsEmpty ()) return;
    entries.DeleteLast ();
    // An index past the entries would select whatever entry is added next.
    const short count = static_cast<short> (entries.GetSize ());
    if (selectedIndex > count) selectedIndex = -1;
    if (trackedIndex > count) trackedIndex = -1;
}

void AttributeListSelectionItem::SetItemStatus (short index, bool enabled)
{
    if (!IsValidEntry (index) || entries[index - 1].IsSeparator ()) return;
    entries[index - 1].SetIsEnabled (enabled);
    RefreshItem (false);
}

void AttributeListSelectionItem::SetItemIcon (short index, const Wg::Icon& icon)
{
    if (!IsValidEntry (index) || entries[index - 1].IsSeparator ()) return;
    entries[index - 1].SetIcon (icon);
    RefreshItem (false);
}

void AttributeListSelectionItem::SetItemData (short index, Kor::Ref<Kor::Object, Kor::Counter> data)
{
    if (!IsValidEntry (index) || entries[index - 1].IsSeparator ()) return;
    entries[index - 1].SetUserData (data);
}

Kor::Ref<Kor::Object, Kor::Counter> AttributeListSelectionItem::GetItemData (short index) const
{
    if (!IsValidEntry (index) || entries[index - 1].IsSeparator ()) return {};
    return entries[index - 1].GetUserData ();
}

void AttributeListSelectionItem::SelectItem (short index)
{
    if (!IsValidEntry (index) || entries[index - 1].IsSeparator () || index == selectedIndex) return;
    selectedIndex = index;
    trackedIndex = index;
    RefreshItem (true);
}

Kor::UniString AttributeListSelectionItem::GetSelectedString () const
{
    if (entries.IsEmpty () || selectedIndex <= 0 || !IsValidEntry (selectedIndex)) return {};
    return entries[selectedIndex - 1].GetText ();
}

short AttributeListSelectionItem::GetControlRowHeight () const
{
    const Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return 0;
    return static_cast<short> (listBox->GetItemHeight () - (listBox->HasSeparatorLines () ? 1 : 0) - 2);
}

bool AttributeListSelectionItem::IsInRightHalfOfPreview (int x) const
{
    const Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return false;
    const short column = GetPreviewColumnIndex ();
    const int begin = listBox->GetTabFieldBeginPosition (column);
    const int end = listBox->GetTabFieldEndPosition (column);
    return (begin + end) / 2 <= x && x <= end;
}

bool AttributeListSelectionItem::IsInCheckColumn (int x) const
{
    const Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return false;
    const short column = GetCheckColumnIndex ();
    return listBox->GetTabFieldBeginPosition (column) <= x && x <= listBox->GetTabFieldEndPosition (column);
}

bool AttributeListSelectionItem::IsInPopupArea (int x) const
{
    return IsInRightHalfOfPreview (x) || IsInCheckColumn (x);
}

void AttributeListSelectionItem::NotifySelectionChanged ()
{
    NotifyObservers<AttributeListSelectionItemObserver> ([this] (AttributeListSelectionItemObserver& o) { o.SelectionChanged (*this); });
}

void AttributeListSelectionItem::InitializeOnTabItems () const
{
    AttributeListSimpleItem::InitializeOnTabItems ();
    Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (listBox == nullptr || controls == nullptr) return;
    Pk::PopupControl& popup = controls->GetPopupControl ();
    if (!HasValueList ()) {
        // Entries deleted while the row is shown: their popup must not stay to be chosen from.
        if (listBox->GetOnTabItem (GetCheckColumnIndex ()) == &popup) listBox->RemoveOnTabItem (GetCheckColumnIndex ());
        return;
    }
    if (!GetOnTabItemVisibility ()) {
        listBox->RemoveOnTabItem (GetCheckColumnIndex ());
        return;
    }
    popup.DeleteAllItems ();
    for (const PopupItem& entry : entries) {
        if (entry.IsSeparator ())
            popup.AppendSeparator ();
        else
            popup.AppendItem (entry.GetText (), entry.GetIcon (), entry.IsEnabled ());
    }
    popup.SetButtonType (SquareDropDownButton);
    // A square button that fits inside the row.
    const short side = GetControlRowHeight ();
    popup.SetWidth (side);
    popup.SetHeight (side);
    listBox->SetOnTabItem (GetCheckColumnIndex (), popup);
    popup.SetValue (selectedIndex);
}

void AttributeListSelectionItem::ItemClicked (const Wg::ListBoxClickEvent& event)
{
    // An observer of the icon-column click may delete the item.
    Kor::LifeWatch guard (*this);
    AttributeListSimpleItem::ItemClicked (event);
    if (!guard.IsAlive ()) return;
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || GetAttributeList () == nullptr) return;
    if (IsInPopupArea (event.GetMouseOffset ().x) && HasValueList ()) controls->GetPopupControl ().ShowAndTrackPopup ();
}

void AttributeListSelectionItem::ItemDoubleClicked (const Wg::ListBoxDoubleClickEvent& event, bool* handled)
{
    Kor::LifeWatch guard (*this);
    AttributeListSimpleItem::ItemDoubleClicked (event, handled);
    if (!guard.IsAlive () || handled == nullptr) return;
    const int x = event.GetMouseOffset ().x;
    if (IsInRightHalfOfPreview (x)) *handled = true;
    // The check column counts only when the flag is set already; a double click there alone
    // leaves the flag as it was. The asymmetry with the single click is intended.
    if (*handled && IsInCheckColumn (x)) *handled = true;
}

void AttributeListSelectionItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    if (!IsOnGroup (row)) listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), GetName ());
    if (GetAttributeIconColumnIndex () > 0) listBox->SetTabItemIcon (row, GetAttributeIconColumnIndex (), GetIcon ());
    // While the popup is open the row previews the entry under the pointer.
    listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), IsValidEntry (trackedIndex) ? entries[trackedIndex - 1].GetText () : Kor::UniString ());
}

void AttributeListSelectionItem::PkPopupControlChanged (const Wg::UserControlChangeEvent& event)
{
    const short chosen = GetChosenEntry (event);
    if (chosen < 1) return;
    // Redrawing the row moves the focus, and a commit elsewhere may delete this item.
    Kor::LifeWatch alive (*this);
    SelectItem (chosen);
    if (alive.IsAlive ()) NotifySelectionChanged ();
}

short AttributeListSelectionItem::GetChosenEntry (const Wg::UserControlChangeEvent& event) const
{
    // The popup control is shared by all rows: a choice among entries this item does not have
    // (a popup opened on a row without entries still holds another row's) is no choice of it.
    if (event.GetSource () == nullptr) return 0;
    const std::int32_t value = event.GetSource ()->GetValue ();
    return value >= 1 && value <= static_cast<std::int32_t> (entries.GetSize ()) ? static_cast<short> (value) : 0;
}

void AttributeListSelectionItem::PkPopupControlTrackEntered (const Wg::UserControlTrackEvent&)
{
    trackedIndex = selectedIndex;
}

void AttributeListSelectionItem::PkPopupControlTracked (const Wg::UserControlTrackEvent& event)
{
    if (event.GetSource () != nullptr) trackedIndex = static_cast<short> (event.GetSource ()->GetValue ());
}

void AttributeListSelectionItem::PkPopupControlTrackExited (const Wg::UserControlTrackEvent&) {}

void AttributeListSelectionItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    if (event.GetDrawContext () == nullptr || event.GetTabFieldIndex () != GetPreviewColumnIndex () || !IsValidEntry (trackedIndex)) return;
    const Wg::Icon& icon = entries[trackedIndex - 1].GetIcon ();
    Wg::DrawIcon (*event.GetDrawContext (), icon, event.GetRect ().Inset (1, 1), !GetStatus ());
}

}   // namespace TxAL
