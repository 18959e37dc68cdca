#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"
#include "TxAttributeList/ValueItems.hpp"

namespace TxAL {

namespace {

// The library's own check-box images, drawn in place of the host's stock marks.
constexpr int CheckedIconResId = 31846;
constexpr int UncheckedIconResId = 31845;
constexpr int CaptionGap = 2;

short RowHeight (const Wg::ListBox& listBox)
{
    return listBox.GetItemHeight ();
}

short RowHeightInsideSeparators (const Wg::ListBox& listBox)
{
    return static_cast<short> (listBox.GetItemHeight () - (listBox.HasSeparatorLines () ? 1 : 0));
}

void DrawLabelAndIcon (const AttributeListSimpleItem& item, Wg::ListBox& listBox, short row, const Wg::Icon& icon)
{
    if (!item.IsOnGroup (row)) listBox.SetTabItemText (row, item.GetAttributeTypeColumnIndex (), item.GetName ());
    if (item.GetAttributeIconColumnIndex () > 0) listBox.SetTabItemIcon (row, item.GetAttributeIconColumnIndex (), icon);
}

}   // namespace

void AttributeListCheckItemObserver::CheckChanged (const AttributeListCheckItem&) {}
void AttributeListButtonItemObserver::ButtonClicked (const AttributeListButtonItem&) {}
void AttributeListIconButtonItemObserver::ButtonClicked (const AttributeListIconButtonItem&) {}
void AttributeListIconButtonItemObserver::ButtonIconClicked (const AttributeListIconButtonItem&) {}

// --- AttributeListCheckItem ---

AttributeListCheckItem::AttributeListCheckItem (const Kor::UniString& name, const Wg::Icon& icon, bool checked,
                                                const Kor::UniString& checkName, bool status, bool boldText)
    : AttributeListSimpleItem (name, icon, status, boldText), checked (checked), checkName (checkName)
{
}

void AttributeListCheckItem::SetChecked (bool value)
{
    if (value == checked) return;
    checked = value;
    RefreshItem (true);
}

void AttributeListCheckItem::SetCheckName (const Kor::UniString& value)
{
    if (value == checkName) return;
    checkName = value;
    RefreshItem (true);
}

short AttributeListCheckItem::GetCheckColumn () const
{
    return checkColumn < PreviewColumn ? static_cast<short> (checkColumn) : GetPreviewColumnIndex ();
}

void AttributeListCheckItem::InvertCheckAndNotify ()
{
    // A disabled check box is not usable.
    if (!GetStatus ()) return;
    Kor::LifeWatch alive (*this);
    SetChecked (!checked);
    if (alive.IsGone ()) return;
    NotifyObservers<AttributeListCheckItemObserver> ([this] (AttributeListCheckItemObserver& o) { o.CheckChanged (*this); });
}

bool AttributeListCheckItem::IsInBox (int x) const
{
    const Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return false;
    // A square as wide as a row is high, both ends included.
    const int begin = listBox->GetTabFieldBeginPosition (GetCheckColumn ());
    return begin <= x && x <= begin + RowHeight (*listBox);
}

void AttributeListCheckItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    DrawLabelAndIcon (*this, *listBox, row, GetIcon ());
    const short column = GetCheckColumn ();
    listBox->SetTabItemIcon (row, column, Wg::Icon (Wg::Icon::StockModule, checked ? Wg::Icon::StockCheckOn : Wg::Icon::StockCheckOff));
    listBox->SetTabItemText (row, column, checkName);
}

void AttributeListCheckItem::ItemClicked (const Wg::ListBoxClickEvent& event)
{
    // An observer of the icon-column click may delete the item.
    Kor::LifeWatch guard (*this);
    AttributeListSimpleItem::ItemClicked (event);
    if (guard.IsAlive () && IsInBox (event.GetMouseOffset ().x)) InvertCheckAndNotify ();
}

void AttributeListCheckItem::ItemDoubleClicked (const Wg::ListBoxDoubleClickEvent& event, bool* handled)
{
    Kor::LifeWatch guard (*this);
    AttributeListSimpleItem::ItemDoubleClicked (event, handled);
    if (!guard.IsAlive () || !IsInBox (event.GetMouseOffset ().x)) return;
    InvertCheckAndNotify ();
    if (handled != nullptr) *handled = true;
}

void AttributeListCheckItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    const Wg::ListBox* listBox = event.GetSource ();
    Gfx::DrawingContext* context = event.GetDrawContext ();
    if (listBox == nullptr || context == nullptr || event.GetTabFieldIndex () != GetCheckColumn ()) return;
    const short row = event.GetListItem ();
    const bool rowEnabled = listBox->IsItemEnabled (row);
    Wg::Icon icon = listBox->GetTabItemIcon (row, event.GetTabFieldIndex ());
    if (icon == Wg::Icon (Wg::Icon::StockModule, Wg::Icon::StockCheckOn))
        icon = GetResourceIcon (CheckedIconResId);
    else if (icon == Wg::Icon (Wg::Icon::StockModule, Wg::Icon::StockCheckOff))
        icon = GetResourceIcon (UncheckedIconResId);
    const Gfx::Rect cell = event.GetRect ();
    const int side = cell.GetHeight ();
    const Gfx::Size iconSize = Wg::GetIconSize (icon);
    const int iconLeft = cell.left + (side - iconSize.width) / 2;
    const int iconTop = cell.top + (side - iconSize.height) / 2;
    Wg::DrawIcon (*context, icon, Gfx::Rect::FromSize (iconLeft, iconTop, iconSize.width, iconSize.height), !rowEnabled);
    const Kor::UniString caption = listBox->GetTabItemText (row, event.GetTabFieldIndex ());
    DrawTextWithStatus (*context, Gfx::Rect (cell.left + side + CaptionGap, cell.top, cell.right, cell.bottom), caption, rowEnabled);
}

short AttributeListCheckItem::GetFirstDrawnColumnIfOnGroup () const
{
    return GetPreviewColumnIndex ();
}

// --- AttributeListButtonItem ---

AttributeListButtonItem::AttributeListButtonItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& buttonText,
                                                  bool status, bool boldText)
    : AttributeListSimpleItem (name, icon, status, boldText), buttonText (buttonText)
{
}

void AttributeListButtonItem::SetButtonText (const Kor::UniString& value)
{
    if (value == buttonText) return;
    buttonText = value;
    RefreshItem (true);
}

void AttributeListButtonItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    DrawLabelAndIcon (*this, *listBox, row, GetIcon ());
    // Rows without the button still say what it does.
    listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), buttonText);
}

void AttributeListButtonItem::InitializeOnTabItems () const
{
    AttributeListSimpleItem::InitializeOnTabItems ();
    Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (listBox == nullptr || controls == nullptr) return;
    Wg::ButtonItem& button = controls->GetButton ();
    const short column = GetAttributeNameColumnIndex ();
    button.SetWidth (listBox->GetTabFieldEndPosition (GetPreviewColumnIndex ()) - listBox->GetTabFieldBeginPosition (column));
    button.SetHeight (RowHeightInsideSeparators (*listBox) - 2);
    button.SetText (buttonText);
    button.SetIcon (Wg::Icon ());
    listBox->SetOnTabItem (column, button);
}

void AttributeListButtonItem::ButtonClicked (const Wg::ButtonClickEvent& event)
{
    if (GetOnTabItems () == nullptr || event.GetSource () != &GetOnTabItems ()->GetButton ()) return;
    NotifyObservers<AttributeListButtonItemObserver> ([this] (AttributeListButtonItemObserver& o) { o.ButtonClicked (*this); });
}

Kor::UniString AttributeListButtonItem::GetDrawnTextContentForKorAT (Kor::Friend<AttributeList>, short column)
{
    return column == GetAttributeNameColumnIndex () ? buttonText : Kor::UniString ();
}

// --- AttributeListIconButtonItem ---

AttributeListIconButtonItem::AttributeListIconButtonItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text,
                                                          const Kor::UniString& tagText, const Wg::Icon& buttonIcon, bool status,
                                                          bool boldText)
    : AttributeListSimpleItem (name, icon, status, boldText), text (text), tagText (tagText), buttonIcon (buttonIcon)
{
}

void AttributeListIconButtonItem::SetText (const Kor::UniString& value)
{
    if (value == text) return;
    text = value;
    RefreshItem (true);
}

void AttributeListIconButtonItem::SetTagText (const Kor::UniString& value)
{
    if (value == tagText) return;
    tagText = value;
    RefreshItem (true);
}

void AttributeListIconButtonItem::SetButtonIcon (const Wg::Icon& value)
{
    if (value == buttonIcon) return;
    buttonIcon = value;
    RefreshItem (true);
}

void AttributeListIconButtonItem::SetButtonIconAlwaysActive (bool value)
{
    if (value == buttonIconAlwaysActive) return;
    buttonIconAlwaysActive = value;
    RefreshItem (true);
}

Wg::ButtonItem* AttributeListIconButtonItem::GetIconButton () const
{
    const Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (listBox == nullptr || controls == nullptr || !IsSelected () || !listBox->IsOnTabItem (controls->GetIconButton ())) return nullptr;
    return &controls->GetIconButton ();
}

void AttributeListIconButtonItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    DrawLabelAndIcon (*this, *listBox, row, GetIcon ());
    listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), text);
    listBox->SetTabItemText (row, GetPreviewColumnIndex (), tagText);
    listBox->SetTabItemIcon (row, GetCheckColumnIndex (), buttonIconAlwaysActive ? buttonIcon : Wg::Icon ());
}

void AttributeListIconButtonItem::InitializeOnTabItems () const
{
    AttributeListSimpleItem::InitializeOnTabItems ();
    Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (listBox == nullptr || controls == nullptr) return;
    if (!GetOnTabItemVisibility ()) {
        listBox->RemoveOnTabItem (GetCheckColumnIndex ());
        return;
    }
    Wg::ButtonItem& button = controls->GetIconButton ();
    // Square, and only the separator line is taken off (not the 2 pixels of the edits).
    const short side = RowHeightInsideSeparators (*listBox);
    button.SetWidth (side);
    button.SetHeight (side);
    button.SetText (Kor::UniString ());
    button.SetIcon (buttonIcon);
    listBox->SetOnTabItem (GetCheckColumnIndex (), button);
}

void AttributeListIconButtonItem::ItemClicked (const Wg::ListBoxClickEvent& event)
{
    Kor::LifeWatch guard (*this);
    AttributeListSimpleItem::ItemClicked (event);
    if (!guard.IsAlive ()) return;
    const Wg::ListBox* listBox = GetListBox ();
    if (!buttonIconAlwaysActive || listBox == nullptr) return;
    const short column = GetCheckColumnIndex ();
    const int begin = listBox->GetTabFieldBeginPosition (column);
    const int end = listBox->GetTabFieldEndPosition (column);
    const int x = event.GetMouseOffset ().x;
    if (begin < end && begin <= x && x <= end)
        NotifyObservers<AttributeListIconButtonItemObserver> ([this] (AttributeListIconButtonItemObserver& o) { o.ButtonIconClicked (*this); });
}

void AttributeListIconButtonItem::ButtonClicked (const Wg::ButtonClickEvent& event)
{
    if (GetOnTabItems () == nullptr || event.GetSource () != &GetOnTabItems ()->GetIconButton ()) return;
    NotifyObservers<AttributeListIconButtonItemObserver> ([this] (AttributeListIconButtonItemObserver& o) { o.ButtonClicked (*this); });
}

void AttributeListIconButtonItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    // The preview column is owner-drawn: the tag text is drawn here.
    if (event.GetTabFieldIndex () == GetPreviewColumnIndex ()) DrawText (event, tagText);
}

Kor::UniString AttributeListIconButtonItem::GetDrawnTextContentForKorAT (Kor::Friend<AttributeList>, short column)
{
    if (column == GetAttributeNameColumnIndex ()) return text;
    if (column == GetPreviewColumnIndex () && !tagText.IsEmpty ()) return tagText;
    return {};
}

// --- AttributeListInfoItem ---

AttributeListInfoItem::AttributeListInfoItem (const Kor::UniString& name, const Wg::Icon& icon, bool status, bool boldText)
    : AttributeListSimpleItem (name, icon, status, boldText)
{
}

void AttributeListInfoItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    if (!IsOnGroup (row)) {
        listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), GetName ());
        listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), infoText);
    }
    if (GetAttributeIconColumnIndex () > 0) listBox->SetTabItemIcon (row, GetAttributeIconColumnIndex (), GetIcon ());
}

// --- AttributeListSeparatorItem ---

AttributeListSeparatorItem::AttributeListSeparatorItem () : AttributeListSimpleItem (Kor::UniString (), Wg::Icon (), true, false) {}

void AttributeListSeparatorItem::DrawListItem (short row) const
{
    UpdateHeaderBgColor (row);
}

}   // namespace TxAL
