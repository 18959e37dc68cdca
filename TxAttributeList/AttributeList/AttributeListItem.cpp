#include "TxAttributeList/AttributeListItems.hpp"

#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/AttributeListGroupItem.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/TextEdit.hpp"

namespace TxAL {

namespace {

// Font style of a bold row, the host list box's bold bit.
constexpr int BoldFontStyle = 16;
// Codes of the host popup control for the icon-column popup: an icon button, centred.
constexpr short IconPopupButtonType = 1;
constexpr short IconPopupTextAlignment = 3;
// Space between a cell's left edge and its text, as the list box keeps it for plain cells.
constexpr int TextPadding = 2;

}   // namespace

// --- AttributeListItemObserver ---

Kor::UniString AttributeListItemObserver::AttributeListItemToolTipRequested (const AttributeListItem&)
{
    return {};
}

void AttributeListItemObserver::NameChanged (const AttributeListItem&) {}
void AttributeListItemObserver::IconColumnClicked (const AttributeListItem&) {}
void AttributeListItemObserver::IconColumnDoubleClicked (const AttributeListItem&) {}
void AttributeListItemObserver::IconColumnPopupChanged (const AttributeListItem&) {}

// --- AttributeListItem ---

AttributeListItem::AttributeListItem (const Kor::UniString& name, const Wg::Icon& icon, bool status)
    : status (status), name (name), icon (icon)
{
}

AttributeListItem::AttributeListItem (const AttributeListItem& source)
    : Kor::EventSource (),
      list (source.list),
      status (source.status),
      visible (source.visible),
      name (source.name),
      icon (source.icon),
      listBoxIndex (source.listBoxIndex),
      ownCreated (source.ownCreated),
      userData (source.userData),
      defaultToolTip (source.defaultToolTip),
      hasCustomBgColor (source.hasCustomBgColor),
      customBgColor (source.customBgColor),
      lastSelection (source.lastSelection),
      iconColumnPopupItems (source.iconColumnPopupItems),
      selectedIconColumnPopupItemIndex (source.selectedIconColumnPopupItemIndex),
      onTabItems (source.onTabItems),
      kind (source.kind)
{
}

AttributeListItem& AttributeListItem::operator= (const AttributeListItem& source)
{
    if (this == &source) return *this;
    list = source.list;
    status = source.status;
    visible = source.visible;
    name = source.name;
    icon = source.icon;
    listBoxIndex = source.listBoxIndex;
    ownCreated = source.ownCreated;
    userData = source.userData;
    defaultToolTip = source.defaultToolTip;
    hasCustomBgColor = source.hasCustomBgColor;
    customBgColor = source.customBgColor;
    lastSelection = source.lastSelection;
    iconColumnPopupItems = source.iconColumnPopupItems;
    selectedIconColumnPopupItemIndex = source.selectedIconColumnPopupItemIndex;
    onTabItems = source.onTabItems;
    return *this;
}

AttributeListItem::~AttributeListItem ()
{
    // DeleteListItem never deletes an item a second time: it is asked to delete only items
    // that the list did not create.
    if (list != nullptr) list->DeleteListItem (this, !ownCreated);
    // No picker callback may reach a destroyed item; another row's callbacks stay.
    if (onTabItems != nullptr) onTabItems->ClearUserControlCallbacks (this);
}

void AttributeListItem::AssignToList (AttributeList* newList)
{
    list = newList;
}

void AttributeListItem::DetachListItemFromList ()
{
    if (list != nullptr) list->DetachListItemFromList (this);
}

void AttributeListItem::RunModalWithRowsDrawn (const std::function<void ()>& run) const
{
    if (list != nullptr)
        list->RunModalWithRowsDrawn (run);
    else
        run ();
}

void AttributeListItem::DrawListItem (short) const {}

void AttributeListItem::InitializeOnTabItems () const
{
    if (list == nullptr || onTabItems == nullptr) return;
    Wg::ListBox& listBox = list->GetListBox ();
    const short rowHeight = static_cast<short> (listBox.GetItemHeight () - (listBox.HasSeparatorLines () ? 1 : 0));

    if (list->GetEditableColumnNum () == AttributeList::NameColumn) {
        const short column = GetAttributeTypeColumnIndex ();
        Wg::TextEdit& nameEdit = onTabItems->GetTextEdit ();
        nameEdit.SetWidth (listBox.GetTabFieldEndPosition (column) - listBox.GetTabFieldBeginPosition (column));
        nameEdit.SetHeight (rowHeight - 2);
        listBox.SetOnTabItem (column, nameEdit);
        nameEdit.SetText (name);
    }

    if (!iconColumnPopupItems.IsEmpty ()) {
        const short iconColumn = GetAttributeIconColumnIndex ();
        Pk::PopupControl& popup = onTabItems->GetIconColumnPopup ();
        popup.SetWidth (iconColumn > 0 ? listBox.GetTabFieldEndPosition (iconColumn) - listBox.GetTabFieldBeginPosition (iconColumn) : 0);
        popup.SetHeight (rowHeight);
        popup.SetButtonType (IconPopupButtonType);
        popup.SetTextAlignment (IconPopupTextAlignment);
        popup.DeleteAllItems ();
        for (const PopupItem& entry : iconColumnPopupItems) {
            if (entry.IsSeparator ())
                popup.AppendSeparator ();
            else
                popup.AppendItem (entry.GetText (), entry.GetIcon (), entry.IsEnabled ());
        }
        popup.SetValue (static_cast<std::int32_t> (selectedIconColumnPopupItemIndex + 1));
        if (iconColumn > 0) listBox.SetOnTabItem (iconColumn, popup);
    }
}

void AttributeListItem::IntEditChanged (const Wg::IntEditChangeEvent&) {}
void AttributeListItem::PosIntEditChanged (const Wg::PosIntEditChangeEvent&) {}

bool AttributeListItem::IsInIconColumn (int x) const
{
    const short iconColumn = GetAttributeIconColumnIndex ();
    if (list == nullptr || iconColumn <= 0) return false;
    const Wg::ListBox& listBox = list->GetListBox ();
    const int begin = listBox.GetTabFieldBeginPosition (iconColumn);
    const int end = listBox.GetTabFieldEndPosition (iconColumn);
    // Both ends count as inside; a column of no width never does.
    return begin != end && begin <= x && x <= end;
}

void AttributeListItem::ItemClicked (const Wg::ListBoxClickEvent& event)
{
    if (IsInIconColumn (event.GetMouseOffset ().x))
        NotifyObservers<AttributeListItemObserver> ([this] (AttributeListItemObserver& o) { o.IconColumnClicked (*this); });
}

void AttributeListItem::ItemDoubleClicked (const Wg::ListBoxDoubleClickEvent& event, bool*)
{
    if (IsInIconColumn (event.GetMouseOffset ().x))
        NotifyObservers<AttributeListItemObserver> ([this] (AttributeListItemObserver& o) { o.IconColumnDoubleClicked (*this); });
}

void AttributeListItem::Pk257Changed (const Wg::UserControlChangeEvent&) {}
void AttributeListItem::Pk257TrackEntered (const Wg::UserControlTrackEvent&) {}
void AttributeListItem::Pk257Tracked (const Wg::UserControlTrackEvent&) {}
void AttributeListItem::Pk257TrackExited (const Wg::UserControlTrackEvent&) {}
void AttributeListItem::Pk261Changed (const Wg::UserControlChangeEvent&) {}
void AttributeListItem::Pk261TrackEntered (const Wg::UserControlTrackEvent&) {}
void AttributeListItem::Pk261Tracked (const Wg::UserControlTrackEvent&) {}
void AttributeListItem::Pk261TrackExited (const Wg::UserControlTrackEvent&) {}
void AttributeListItem::CheckItemChanged (const Wg::CheckItemChangeEvent&) {}
void AttributeListItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent&) {}
void AttributeListItem::UpdatePreviewItem (const Wg::ListBoxItemUpdateEvent&) {}
void AttributeListItem::SliderChanged (const Wg::BarControlChangeEvent&) {}
void AttributeListItem::SliderTracked (const Wg::BarControlTrackEvent&) {}
void AttributeListItem::PkPopupControlChanged (const Wg::UserControlChangeEvent&) {}
void AttributeListItem::PkPopupControlTrackEntered (const Wg::UserControlTrackEvent&) {}
void AttributeListItem::PkPopupControlTracked (const Wg::UserControlTrackEvent&) {}
void AttributeListItem::PkPopupControlTrackExited (const Wg::UserControlTrackEvent&) {}

void AttributeListItem::TextEditChanged (const Wg::TextEditChangeEvent& event)
{
    if (onTabItems == nullptr || event.GetSource () != &onTabItems->GetTextEdit ()) return;
    SetName (onTabItems->GetTextEdit ().GetText ());
    // Sent even when the name did not change.
    NotifyObservers<AttributeListItemObserver> ([this] (AttributeListItemObserver& o) { o.NameChanged (*this); });
}

void AttributeListItem::RealEditChanged (const Wg::RealEditChangeEvent&) {}
void AttributeListItem::ButtonClicked (const Wg::ButtonClickEvent&) {}

Kor::UniString AttributeListItem::GetToolTip ()
{
    Kor::UniString answer;
    Kor::LifeWatch alive (*this);
    NotifyObserversUntil<AttributeListItemObserver> ([&] (AttributeListItemObserver& o) {
        Kor::UniString text = o.AttributeListItemToolTipRequested (*this);
        if (text.IsEmpty ()) return false;
        answer = std::move (text);
        return true;
    });
    // An observer that deleted the item leaves no default to fall back on.
    if (alive.IsGone ()) return answer;
    return answer.IsEmpty () ? defaultToolTip : answer;
}

bool AttributeListItem::IsOwnerDrawn () const
{
    return false;
}

Kor::UniString AttributeListItem::GetDrawnTextContentForKorAT (Kor::Friend<AttributeList>, short)
{
    return {};
}

void AttributeListItem::SetStatus (bool newStatus)
{
    if (newStatus == status) return;
    status = newStatus;
    Kor::LifeWatch alive (*this);
    RefreshItem (true);
    // During a batch the row is not refreshed, but the controls on it must follow at once: a
    // disabled item takes no user change.
    if (alive.IsAlive () && list != nullptr && !list->UpdateIsEnabled () && IsSelected ()) list->SetOnTabItems ();
}

void AttributeListItem::SetVisibility (bool newVisibility)
{
    if (newVisibility == visible) return;
    visible = newVisibility;
    FullRefreshList ();
}

bool AttributeListItem::HasFocusedEditField ()
{
    return onTabItems != nullptr && onTabItems->GetTextEdit ().IsFocused ();
}

void AttributeListItem::SetSelection (Kor::Range<int>) {}

Kor::UniString AttributeListItem::GetLastText ()
{
    return {};
}

void AttributeListItem::SetName (const Kor::UniString& newName)
{
    if (newName == name) return;
    name = newName;
    RefreshItem (true);
}

void AttributeListItem::SetIcon (const Wg::Icon& newIcon)
{
    if (newIcon == icon) return;
    icon = newIcon;
    RefreshItem (true);
}

void AttributeListItem::SetCustomBgColor (const Gfx::Color& color)
{
    customBgColor = color;
    hasCustomBgColor = true;
}

Kor::Ref<Kor::Object, Kor::Counter> AttributeListItem::GetSelectedIconColumnPopupItemUserData () const
{
    if (selectedIconColumnPopupItemIndex >= iconColumnPopupItems.GetSize ()) return {};
    return iconColumnPopupItems[selectedIconColumnPopupItemIndex].GetUserData ();
}

bool AttributeListItem::IsSelected () const
{
    if (list == nullptr) return false;
    const short selected = list->GetListBox ().GetSelectedItem ();
    return selected >= 1 && static_cast<unsigned> (selected) == listBoxIndex;
}

void AttributeListItem::Select (bool setFocus)
{
    if (list == nullptr || IsSelected ()) return;
    const short row = list->GetFirstListBoxIndex (this);
    if (row <= 0) return;
    // Leaving the old row commits what the user typed there; its observers may remove this
    // item or destroy the list.
    AttributeList* owner = list;
    Kor::LifeWatch alive {this, owner};
    owner->GetListBox ().SelectItem (row);
    if (alive.IsGone () || list != owner || !IsSelected ()) return;
    if (owner->SetOnTabItems () && setFocus && alive.IsAlive ()) owner->SetFocusToEditControl ();
}

void AttributeListItem::SetFirstVisible ()
{
    if (list != nullptr && GetRow () > 0) list->GetListBox ().SetScrollPosition (GetRow ());
}

short AttributeListItem::GetGroupTriangleColumnIndex () const
{
    return list != nullptr ? list->GetGroupTriangleColumnIndex () : 0;
}

short AttributeListItem::GetAttributeIconColumnIndex () const
{
    return list != nullptr ? list->GetAttributeIconColumnIndex () : 0;
}

short AttributeListItem::GetAttributeTypeColumnIndex () const
{
    return list != nullptr ? list->GetAttributeTypeColumnIndex () : 0;
}

short AttributeListItem::GetAttributeNameColumnIndex () const
{
    return list != nullptr ? list->GetAttributeNameColumnIndex () : 0;
}

short AttributeListItem::GetPreviewColumnIndex () const
{
    return list != nullptr ? list->GetPreviewColumnIndex () : 0;
}

short AttributeListItem::GetCheckColumnIndex () const
{
    return list != nullptr ? list->GetCheckColumnIndex () : 0;
}

Wg::Icon AttributeListItem::GetIcon () const
{
    if (!iconColumnPopupItems.IsEmpty () && selectedIconColumnPopupItemIndex < iconColumnPopupItems.GetSize ())
        return iconColumnPopupItems[selectedIconColumnPopupItemIndex].GetIcon ();
    return icon;
}

Wg::ListBox* AttributeListItem::GetListBox () const
{
    return list != nullptr ? &list->GetListBox () : nullptr;
}

bool AttributeListItem::RefreshItem (bool redraw) const
{
    if (list == nullptr) return true;
    Kor::LifeWatch alive (*this);
    list->RefreshItem (*this, redraw);
    return alive.IsAlive ();
}

void AttributeListItem::FullRefreshList () const
{
    if (list != nullptr) list->FullRefreshList (true);
}

void AttributeListItem::IconColumnPopupChanged ()
{
    if (onTabItems == nullptr) return;
    selectedIconColumnPopupItemIndex = static_cast<std::uint32_t> (onTabItems->GetIconColumnPopup ().GetValue () - 1);
    NotifyObservers<AttributeListItemObserver> ([this] (AttributeListItemObserver& o) { o.IconColumnPopupChanged (*this); });
}

void AttributeListItem::UpdateHeaderBgColor (short row) const
{
    if (list == nullptr) return;
    list->GetListBox ().SetItemBackgroundColor (row, hasCustomBgColor ? customBgColor : list->GetDefaultHeaderBgColor (row, this));
}

void AttributeListItem::DrawText (const Wg::ListBoxItemUpdateEvent& event, const Kor::UniString& text, short begin, short end) const
{
    if (event.GetDrawContext () == nullptr) return;
    const Wg::ListBox* listBox = event.GetSource ();
    const int fontStyle = listBox != nullptr ? listBox->GetItemFontStyle (event.GetListItem ()) : 0;
    DrawText (*event.GetDrawContext (), event.GetRect (), text, begin, end, fontStyle < 0 ? 0 : fontStyle);
}

void AttributeListItem::DrawText (const Wg::ListBoxTabItemUpdateEvent& event, const Kor::UniString& text) const
{
    if (event.GetDrawContext () == nullptr) return;
    const Gfx::Rect rect = event.GetRect ();
    DrawText (*event.GetDrawContext (), rect, text, 0, static_cast<short> (rect.GetWidth ()));
}

void AttributeListItem::DrawText (Gfx::DrawingContext& context, const Gfx::Rect& rect, const Kor::UniString& text, short begin,
                                  short end, int fontStyle) const
{
    const Gfx::Rect textRect (rect.left + begin, rect.top, rect.left + end, rect.bottom);
    DrawTextWithStatus (context, textRect, text, status, fontStyle);
}

void AttributeListItem::DrawTextWithStatus (Gfx::DrawingContext& context, const Gfx::Rect& rect, const Kor::UniString& text,
                                            bool enabled, int fontStyle) const
{
    if (text.IsEmpty () || rect.GetWidth () <= TextPadding) return;
    Gfx::TextStyle style;
    style.greyed = !enabled;
    style.fontStyle = fontStyle;
    context.PushClip (rect);
    context.DrawText (text, Gfx::Rect (rect.left + TextPadding, rect.top, rect.right, rect.bottom), style);
    context.PopClip ();
}

// --- AttributeListSimpleItem ---

AttributeListSimpleItem::AttributeListSimpleItem (const Kor::UniString& name, const Wg::Icon& icon, bool status, bool boldText)
    : AttributeListItem (name, icon, status), boldText (boldText)
{
    kind = Kind::Simple;
}

AttributeListSimpleItem::~AttributeListSimpleItem ()
{
    // The item is dying: whoever releases it now must not delete it again.
    masterOwnedByGroup = false;
    if (group != nullptr) group->DeleteItem (this, !IsOwnCreated ());
}

void AttributeListSimpleItem::AssignToList (AttributeList* newList)
{
    AttributeListItem::AssignToList (newList);
    RefreshItemFontStyle ();
}

short AttributeListSimpleItem::GetFirstDrawnColumnIfOnGroup () const
{
    return GetAttributeNameColumnIndex ();
}

void AttributeListSimpleItem::ClearListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    const short iconColumn = GetAttributeIconColumnIndex ();
    if (!IsOnGroup (row)) {
        listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), {});
        if (iconColumn > 0) listBox->SetTabItemIcon (row, iconColumn, Wg::Icon ());
    } else if (iconColumn > 0) {
        listBox->SetTabItemIcon (row, iconColumn, group->GetIcon ());
    }
    listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), {});
    listBox->RemoveOnTabItem (GetCheckColumnIndex ());
}

void AttributeListSimpleItem::SetBoldText (bool bold)
{
    boldText = bold;
    RefreshItemFontStyle ();
}

void AttributeListSimpleItem::SetOnTabItemVisibility (bool visibility)
{
    if (visibility == onTabItemVisibility) return;
    onTabItemVisibility = visibility;
    RefreshItem (true);
}

bool AttributeListSimpleItem::IsOnGroup (short row) const
{
    return group != nullptr && row == group->GetRow ();
}

void AttributeListSimpleItem::RefreshItemFontStyle ()
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr || GetRow () <= 0) return;
    if (boldText) {
        savedFontStyle = listBox->GetItemFontStyle (GetRow ());
        listBox->SetItemFontStyle (GetRow (), BoldFontStyle);
    } else {
        // A style that was never saved (-1) is passed on as it stands.
        listBox->SetItemFontStyle (GetRow (), savedFontStyle);
    }
}

}   // namespace TxAL
