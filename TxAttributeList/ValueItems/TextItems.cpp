#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"
#include "TxAttributeList/ValueItems.hpp"

namespace TxAL {

namespace {

// String list of the library's resource module and the index of the custom entry's label.
constexpr int CommonStringsResId = 2001;
constexpr int CustomEntryLabelIndex = 3;

short EditHeight (const Wg::ListBox& listBox)
{
    return static_cast<short> (listBox.GetItemHeight () - (listBox.HasSeparatorLines () ? 1 : 0) - 2);
}

// Places the list's text edit over the value cell, from the column's begin to end, loaded with
// text and, when one was saved, the caret selection.
void PlaceTextEdit (Wg::ListBox& listBox, OnTabItems& controls, short column, short end, const Kor::UniString& text,
                    Kor::Range<int> selection)
{
    Wg::TextEdit& edit = controls.GetTextEdit ();
    edit.SetWidth (end - listBox.GetTabFieldBeginPosition (column));
    edit.SetHeight (EditHeight (listBox));
    listBox.SetOnTabItem (column, edit);
    edit.SetText (text);
    if (selection.GetBegin () >= 0) edit.SetSelection (selection);
}

}   // namespace

void AttributeListTextItemObserver::TextChanged (const AttributeListTextItem&) {}
void AttributeListDictionaryItemObserver::TextChanged (const AttributeListDictionaryItem&) {}

// --- AttributeListTextItem ---

AttributeListTextItem::AttributeListTextItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text,
                                              bool autoCustomHandling, bool editable, bool valueListEnabled, bool status, bool boldText)
    : AttributeListSelectionItem (name, icon, status, boldText),
      text (text),
      editable (editable),
      valueListEnabled (valueListEnabled),
      autoCustomHandling (autoCustomHandling)
{
}

bool AttributeListTextItem::IsTextEditShown () const
{
    const Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    return listBox != nullptr && controls != nullptr && IsSelected () && listBox->IsOnTabItem (controls->GetTextEdit ());
}

void AttributeListTextItem::ShowOnTabItem () const
{
    Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (listBox == nullptr || controls == nullptr) return;
    const short column = GetAttributeNameColumnIndex ();
    if (!editable) {
        // Made read-only while its row is shown: the edit goes, so that nobody types on.
        if (listBox->GetOnTabItem (column) == &controls->GetTextEdit ()) listBox->RemoveOnTabItem (column);
        return;
    }
    PlaceTextEdit (*listBox, *controls, column, GetTextEndPosition (), text, GetLastSelection ());
}

short AttributeListTextItem::GetTextEndPosition () const
{
    const Wg::ListBox* listBox = GetListBox ();
    return listBox != nullptr ? listBox->GetTabFieldEndPosition (GetPreviewColumnIndex ()) : 0;
}

void AttributeListTextItem::SetText (const Kor::UniString& newText, bool syncSelection)
{
    Kor::LifeWatch alive (*this);
    if (!StoreText (newText, syncSelection) || alive.IsGone ()) return;
    RefreshItem (true);
}

bool AttributeListTextItem::StoreText (const Kor::UniString& newText, bool syncSelection)
{
    if (newText == text) return false;
    text = newText;
    if (IsTextEditShown ()) GetOnTabItems ()->GetTextEdit ().SetText (text);
    if (!valueListEnabled || !syncSelection) return true;
    const Kor::Array<PopupItem>& entries = GetEntries ();
    // A separator counts too: its empty text matches an empty text and ends the search, leaving
    // the selection and the custom entry as they are. Intended.
    for (std::size_t i = 0; i < entries.GetSize (); ++i) {
        if (entries[i].GetText () == text) {
            SelectItem (static_cast<short> (i + 1));
            return true;
        }
    }
    if (autoCustomHandling) SetCustomText (text);
    return true;
}

void AttributeListTextItem::SetCustomText (const Kor::UniString& newCustomText)
{
    if (newCustomText == customText) return;
    const short count = static_cast<short> (GetEntries ().GetSize ());
    const bool customWasSelected = valueListEnabled && !customText.IsEmpty () && GetSelected () == count;

    if (newCustomText.IsEmpty ()) {
        customText.Clear ();
        if (autoCustomHandling && customWasSelected) StoreText (Kor::UniString (), false);
        // Only the custom entry goes: without a value list none was added, and the last entry
        // is then a real suggestion.
        const Kor::Array<PopupItem>& entries = GetEntries ();
        if (!entries.IsEmpty () && !entries.GetLast ().IsSeparator () &&
            entries.GetLast ().GetText () == GetResourceString (CommonStringsResId, CustomEntryLabelIndex))
            DeleteLastEntry ();
        RefreshItem (false);
        return;
    }
    if (customText.IsEmpty () && valueListEnabled) {
        // The custom entry carries a fixed label; the custom text itself is what the item shows.
        AddStringItem (GetResourceString (CommonStringsResId, CustomEntryLabelIndex));
    }
    if (autoCustomHandling && text == newCustomText) SelectItem (static_cast<short> (GetEntries ().GetSize ()));
    customText = newCustomText;
    if (autoCustomHandling && customWasSelected) StoreText (customText, false);
}

void AttributeListTextItem::AddStringItem (const Kor::UniString& value)
{
    if (!valueListEnabled) return;
    PopupItem entry;
    entry.SetText (value);
    const short count = static_cast<short> (GetEntries ().GetSize ());
    if (!customText.IsEmpty () && count > 0) {
        // In front of the custom entry, which moves to count + 1.
        InsertEntry (count, entry);
        if (autoCustomHandling) {
            if (value == text) {
                SelectItem (count);
                // The typed text is a regular value now: the custom entry goes.
                if (GetSelected () == count) SetCustomText (Kor::UniString ());
            } else if (GetSelected () == count) {
                SelectItem (static_cast<short> (count + 1));
            }
        }
        RefreshItem (false);
        return;
    }
    const short index = AttributeListSelectionItem::AddItem (entry);
    if (autoCustomHandling && value == text && index > 0) SelectItem (index);
}

void AttributeListTextItem::SetEditable (bool value)
{
    if (value == editable) return;
    editable = value;
    RefreshItem (true);
}

void AttributeListTextItem::EnableValueList ()
{
    if (valueListEnabled) return;
    valueListEnabled = true;
    RefreshItem (true);
}

void AttributeListTextItem::DisableValueList ()
{
    if (!valueListEnabled) return;
    valueListEnabled = false;
    RefreshItem (true);
}

void AttributeListTextItem::SetSelection (Kor::Range<int> selection)
{
    SetLastSelection (selection);
    if (IsTextEditShown ()) GetOnTabItems ()->GetTextEdit ().SetSelection (selection);
}

void AttributeListTextItem::ClearListItem (short row) const
{
    AttributeListSelectionItem::ClearListItem (row);
    if (Wg::ListBox* listBox = GetListBox ()) listBox->RemoveOnTabItem (GetAttributeNameColumnIndex ());
}

void AttributeListTextItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    if (!IsOnGroup (row)) listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), GetName ());
    if (GetAttributeIconColumnIndex () > 0) listBox->SetTabItemIcon (row, GetAttributeIconColumnIndex (), GetIcon ());
    // The row is owner-drawn: the text is drawn across the value and preview cells.
    listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), Kor::UniString ());
}

void AttributeListTextItem::InitializeOnTabItems () const
{
    AttributeListSelectionItem::InitializeOnTabItems ();
    ShowOnTabItem ();
}

void AttributeListTextItem::TextEditChanged (const Wg::TextEditChangeEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetTextEdit ()) return;
    Wg::TextEdit& edit = controls->GetTextEdit ();
    // Kept, so that the caret survives a redraw of the row.
    SetLastSelection (edit.GetSelection ());
    Kor::LifeWatch alive (*this);
    StoreText (edit.GetText (), true);
    if (alive.IsGone ()) return;
    if (!RefreshItem (false)) return;
    NotifyObservers<AttributeListTextItemObserver> ([this] (AttributeListTextItemObserver& o) { o.TextChanged (*this); });
}

bool AttributeListTextItem::HasFocusedEditField ()
{
    return GetOnTabItems () != nullptr && GetOnTabItems ()->GetTextEdit ().IsFocused ();
}

bool AttributeListTextItem::IsOwnerDrawn () const
{
    return true;
}

void AttributeListTextItem::UpdatePreviewItem (const Wg::ListBoxItemUpdateEvent& event)
{
    const Wg::ListBox* listBox = event.GetSource ();
    if (listBox == nullptr || (IsTextEditShown () && editable)) return;
    const short column = GetAttributeNameColumnIndex ();
    DrawText (event, text, listBox->GetTabFieldBeginPosition (column), GetTextEndPosition ());
}

Kor::UniString AttributeListTextItem::GetDrawnTextContentForKorAT (Kor::Friend<AttributeList>, short column)
{
    return column == GetAttributeNameColumnIndex () ? text : Kor::UniString ();
}

void AttributeListTextItem::PkPopupControlChanged (const Wg::UserControlChangeEvent& event)
{
    if (!autoCustomHandling) {
        AttributeListSelectionItem::PkPopupControlChanged (event);
        return;
    }
    const short chosen = GetChosenEntry (event);
    if (chosen < 1) return;
    // Redrawing the row moves the focus, and a commit elsewhere may delete this item.
    Kor::LifeWatch alive (*this);
    SelectItem (chosen);
    if (alive.IsGone ()) return;
    const short count = static_cast<short> (GetEntries ().GetSize ());
    if (!customText.IsEmpty () && GetSelected () == count)
        StoreText (customText, false);
    else
        StoreText (GetSelectedString (), false);
    if (alive.IsGone () || !RefreshItem (false)) return;
    NotifyObservers<AttributeListTextItemObserver> ([this] (AttributeListTextItemObserver& o) { o.TextChanged (*this); });
}

// --- AttributeListTaggedTextItem ---

AttributeListTaggedTextItem::AttributeListTaggedTextItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text,
                                                          bool autoCustomHandling, bool editable, bool valueListEnabled, bool status,
                                                          bool boldText, const Kor::UniString& tagText)
    : AttributeListTextItem (name, icon, text, autoCustomHandling, editable, valueListEnabled, status, boldText), tagText (tagText)
{
}

short AttributeListTaggedTextItem::GetTextEndPosition () const
{
    // The edit stops where the tag begins, so that the tag stays visible.
    const Wg::ListBox* listBox = GetListBox ();
    return listBox != nullptr ? listBox->GetTabFieldBeginPosition (GetPreviewColumnIndex ()) : 0;
}

void AttributeListTaggedTextItem::UpdatePreviewItem (const Wg::ListBoxItemUpdateEvent& event)
{
    AttributeListTextItem::UpdatePreviewItem (event);
    const Wg::ListBox* listBox = event.GetSource ();
    if (listBox == nullptr) return;
    const short preview = GetPreviewColumnIndex ();
    DrawText (event, tagText, listBox->GetTabFieldBeginPosition (preview), listBox->GetTabFieldEndPosition (preview));
}

Kor::UniString AttributeListTaggedTextItem::GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column)
{
    if (column == GetPreviewColumnIndex ()) return tagText;
    return AttributeListTextItem::GetDrawnTextContentForKorAT (key, column);
}

// --- AttributeListDictionaryItem ---

AttributeListDictionaryItem::AttributeListDictionaryItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text,
                                                          bool status, bool boldText)
    : AttributeListSelectionItem (name, icon, status, boldText), text (text)
{
}

bool AttributeListDictionaryItem::IsTextEditShown () const
{
    const Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    return listBox != nullptr && controls != nullptr && IsSelected () && listBox->IsOnTabItem (controls->GetTextEdit ());
}

void AttributeListDictionaryItem::ShowOnTabItem () const
{
    Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (listBox == nullptr || controls == nullptr) return;
    PlaceTextEdit (*listBox, *controls, GetAttributeNameColumnIndex (), GetTextEndPosition (), text, GetLastSelection ());
}

short AttributeListDictionaryItem::GetTextEndPosition () const
{
    const Wg::ListBox* listBox = GetListBox ();
    return listBox != nullptr ? listBox->GetTabFieldEndPosition (GetPreviewColumnIndex ()) : 0;
}

void AttributeListDictionaryItem::SetText (const Kor::UniString& newText)
{
    if (newText == text) return;
    text = newText;
    if (IsTextEditShown ()) GetOnTabItems ()->GetTextEdit ().SetText (text);
    RefreshItem (true);
}

void AttributeListDictionaryItem::SetSelection (Kor::Range<int> selection)
{
    SetLastSelection (selection);
    if (IsTextEditShown ()) GetOnTabItems ()->GetTextEdit ().SetSelection (selection);
}

void AttributeListDictionaryItem::ClearListItem (short row) const
{
    AttributeListSelectionItem::ClearListItem (row);
    if (Wg::ListBox* listBox = GetListBox ()) listBox->RemoveOnTabItem (GetAttributeNameColumnIndex ());
}

void AttributeListDictionaryItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    if (!IsOnGroup (row)) listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), GetName ());
    if (GetAttributeIconColumnIndex () > 0) listBox->SetTabItemIcon (row, GetAttributeIconColumnIndex (), GetIcon ());
    listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), Kor::UniString ());
}

void AttributeListDictionaryItem::InitializeOnTabItems () const
{
    AttributeListSelectionItem::InitializeOnTabItems ();
    ShowOnTabItem ();
}

void AttributeListDictionaryItem::TextEditChanged (const Wg::TextEditChangeEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetTextEdit ()) return;
    Wg::TextEdit& edit = controls->GetTextEdit ();
    SetLastSelection (edit.GetSelection ());
    SetText (edit.GetText ());
    if (!RefreshItem (false)) return;
    NotifyObservers<AttributeListDictionaryItemObserver> ([this] (AttributeListDictionaryItemObserver& o) { o.TextChanged (*this); });
}

bool AttributeListDictionaryItem::HasFocusedEditField ()
{
    return GetOnTabItems () != nullptr && GetOnTabItems ()->GetTextEdit ().IsFocused ();
}

bool AttributeListDictionaryItem::IsOwnerDrawn () const
{
    return true;
}

void AttributeListDictionaryItem::UpdatePreviewItem (const Wg::ListBoxItemUpdateEvent& event)
{
    const Wg::ListBox* listBox = event.GetSource ();
    if (listBox == nullptr || IsTextEditShown ()) return;
    DrawText (event, text, listBox->GetTabFieldBeginPosition (GetAttributeNameColumnIndex ()), GetTextEndPosition ());
}

Kor::UniString AttributeListDictionaryItem::GetDrawnTextContentForKorAT (Kor::Friend<AttributeList>, short column)
{
    return column == GetAttributeNameColumnIndex () ? text : Kor::UniString ();
}

}   // namespace TxAL
