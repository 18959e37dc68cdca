#include "TxAttributeList/AttributeListGroupItem.hpp"

#include "Kor/Assert.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"

// The separator item cannot be a master; it arrives with the value items.
#include "TxAttributeList/ValueItems.hpp"

namespace TxAL {

namespace {

constexpr int BoldFontStyle = 16;
constexpr const char* AssertPrefix = "TxAL error";
constexpr const char* SourceFile = "AttributeListItems";

}   // namespace

AttributeListGroupItem::AttributeListGroupItem ()
    : AttributeListItem (Kor::UniString (), Wg::Icon (), true),
      expandedArrowIcon (Wg::GetArrowImage (Wg::TriangleArrow, Wg::ArrowDown)),
      collapsedArrowIcon (Wg::GetArrowImage (Wg::TriangleArrow, Wg::ArrowRight))
{
    kind = Kind::Group;
}

AttributeListGroupItem::~AttributeListGroupItem ()
{
    ClearGroup ();
}

// --- Tree ---

void AttributeListGroupItem::AddItem (AttributeListSimpleItem& item)
{
    // An item stands in one place only: a second entry would outlive the item.
    if (item.GetGroup () != nullptr || item.GetAttributeList () != nullptr) {
        Kor::ReportAssertFailure (AssertPrefix, SourceFile, __LINE__, "item is in no list and no group");
        return;
    }
    items.Push (&item);
    item.SetGroup (this);
    if (GetAttributeList () != nullptr) {
        item.AssignToList (GetAttributeList ());
        GetAttributeList ()->FullRefreshList (true);
    }
}

void AttributeListGroupItem::AddItem (AttributeListSimpleItem* item)
{
    if (item != nullptr) AddItem (*item);
}

void AttributeListGroupItem::AddMasterItem (AttributeListSimpleItem& item)
{
    MakeMaster (item, true);
}

void AttributeListGroupItem::AddMasterItem (AttributeListSimpleItem* item)
{
    if (item != nullptr) MakeMaster (*item, true);
}

void AttributeListGroupItem::SetMasterItem (AttributeListSimpleItem& item)
{
    // Unlike AddMasterItem, the item is not assigned to the list: it is attached already.
    MakeMaster (item, false);
}

void AttributeListGroupItem::MakeMaster (AttributeListSimpleItem& item, bool assign)
{
    if (dynamic_cast<AttributeListSeparatorItem*> (&item) != nullptr || &item == masterItem) return;
    // An item of a group (a child of this one included, which would stand in it twice and
    // outlive its release as master) or of another list stays there; that place would keep a
    // pointer to it. Only SetMasterItem takes a top-level item of the group's own list.
    const bool inOtherList = item.GetAttributeList () != nullptr && (assign || item.GetAttributeList () != GetAttributeList ());
    if (item.GetGroup () != nullptr || inOtherList) {
        Kor::ReportAssertFailure (AssertPrefix, SourceFile, __LINE__, "item is in no group and no other list");
        return;
    }
    DisableUpdate ();
    ClearMasterItem ();
    masterItem = &item;
    item.SetGroup (this);
    if (AttributeList* list = GetAttributeList ()) {
        if (assign) item.AssignToList (list);
        EnableUpdate ();
        list->RefreshItem (*this, true);
    }
}

bool AttributeListGroupItem::CommitTypingOnOwnRow ()
{
    AttributeList* list = GetAttributeList ();
    if (list == nullptr || GetRow () <= 0 || list->GetListBox ().GetSelectedItem () != GetRow ()) return true;
    Kor::LifeWatch alive (*this);
    list->CommitEditing ();
    return alive.IsAlive ();
}

void AttributeListGroupItem::RemoveMasterItem ()
{
    if (!CommitTypingOnOwnRow ()) return;
    DisableUpdate ();
    ClearMasterItem ();
    EnableUpdate ();
    if (GetAttributeList () != nullptr) GetAttributeList ()->RefreshItem (*this, true);
}

void AttributeListGroupItem::ClearMasterItem ()
{
    if (masterItem == nullptr || clearingMaster) return;
    // What the user typed into the master reaches it before it goes; its observers may remove
    // the master or the whole group.
    if (!CommitTypingOnOwnRow () || masterItem == nullptr) return;
    // Deleting the master runs its destructor, which comes back here through DeleteItem.
    clearingMaster = true;
    AttributeListSimpleItem* master = masterItem;
    // Removing controls and deleting the master reach observers (a commit, the rebuild that the
    // master's leaving starts): they may destroy this group, its list or the master.
    Kor::LifeWatch alive (*this);
    Kor::LifeWatch masterLife (*master);
    if (IsVisible ()) master->ClearListItem (GetRow ());
    // The master's controls stood on the group's row; none may stay there without it.
    if (AttributeList* list = GetAttributeList (); list != nullptr && GetRow () > 0 && list->GetListBox ().GetSelectedItem () == GetRow ())
        list->GetListBox ().RemoveAllOnTabItems ();
    if (alive.IsGone ()) return;
    if (masterLife.IsGone ()) {
        // Its destructor released it already.
    } else if (master->masterOwnedByGroup) {
        delete master;
        if (alive.IsGone ()) return;
    } else if (master->GetGroup () == this) {
        // A master that lives on leaves the group, and the list the group gave it, so that its
        // destructor never reaches back into either once they are gone. One that is also a
        // top-level item of the list keeps its own row.
        AttributeList* list = GetAttributeList ();
        if (list == nullptr || !list->GetItems ().Contains (master)) {
            master->DetachListItemFromList ();
            master->AssignToList (nullptr);
        }
        master->SetGroup (nullptr);
    }
    masterItem = nullptr;
    clearingMaster = false;
}

void AttributeListGroupItem::DeleteItem (AttributeListSimpleItem* item, bool deleteIfOwnCreated)
{
    if (item == nullptr || item->GetGroup () != this) return;
    AttributeList* list = GetAttributeList ();
    if (list != nullptr) list->DisableUpdate ();
    // Only a master set with SetMasterItem can also be a top-level item of the list; it keeps
    // its own row and list link, so that its destruction still takes it out of the list.
    // Children skip the scan of the top-level items, which would make clearing quadratic.
    if (list == nullptr || item != masterItem || !list->GetItems ().Contains (item)) {
        item->DetachListItemFromList ();
        item->AssignToList (nullptr);
    }
    items.DeleteFirst (item);
    item->SetGroup (nullptr);
    if (item == masterItem)
        ClearMasterItem ();
    else if (deleteIfOwnCreated && item->IsOwnCreated ())
        delete item;
    if (list != nullptr) {
        list->EnableUpdate ();
        list->FullRefreshList (true);
    }
}

void AttributeListGroupItem::ReplaceItem (AttributeListSimpleItem* oldItem, AttributeListSimpleItem* newItem)
{
    if (oldItem == nullptr || oldItem->GetGroup () != this || oldItem == newItem) return;
    // The newcomer must stand nowhere yet, this group included: it would stand there twice.
    if (newItem != nullptr && (newItem->GetGroup () != nullptr || newItem->GetAttributeList () != nullptr)) {
        Kor::ReportAssertFailure (AssertPrefix, SourceFile, __LINE__, "newItem is in no list and no group");
        return;
    }
    auto position = items.FindFirst (oldItem);
    if (!position.has_value ()) return;   // the master is not a child; it is replaced as master
    if (oldItem->IsSelected ()) {
        // What the user typed reaches the old item first; its observers may remove the old
        // item, the newcomer or the whole group.
        Kor::LifeWatch alive {this, oldItem, newItem};
        if (AttributeList* list = GetAttributeList ()) list->CommitEditing ();
        if (alive.IsGone () || oldItem->GetGroup () != this || (newItem != nullptr && newItem->GetGroup () != nullptr)) return;
        position = items.FindFirst (oldItem);
        if (!position.has_value ()) return;
    }
    const short row = oldItem->GetRow ();
    const bool wasSelected = oldItem->IsSelected ();

    oldItem->ClearListItem (row);
    oldItem->DetachListItemFromList ();
    oldItem->AssignToList (nullptr);
    oldItem->SetGroup (nullptr);

    if (newItem == nullptr) {
        // No replacement: the old item simply leaves.
        items.Delete (*position);
        FullRefreshList ();
        return;
    }
    items[*position] = newItem;
    newItem->SetGroup (this);

    if (AttributeList* list = GetAttributeList ()) {
        newItem->AssignToList (list);
        list->AssignListItemToList (newItem, row);
        if (row > 0) list->GetListBox ().SetItemStatus (row, newItem->GetStatus () ? Wg::ListBox::Normal : Wg::ListBox::Grayed);
        list->RefreshItem (*newItem, true);
        if (wasSelected) newItem->Select (false);
    }
}

void AttributeListGroupItem::ClearGroup ()
{
    DisableUpdate ();
    ClearMasterItem ();
    while (!items.IsEmpty ()) {
        AttributeListSimpleItem* child = items.GetLast ();
        const std::size_t before = items.GetSize ();
        DeleteItem (child, true);
        // A child that does not belong to this group any more cannot be deleted through it;
        // drop the stale pointer so that the loop ends.
        if (items.GetSize () == before) items.DeleteLast ();
    }
    EnableUpdate ();
    FullRefreshList ();
}

void AttributeListGroupItem::Collapse ()
{
    if (!collapsible || !expanded) return;
    expanded = false;
    FullRefreshList ();
}

void AttributeListGroupItem::Expand ()
{
    if (!collapsible || expanded) return;
    expanded = true;
    FullRefreshList ();
}

void AttributeListGroupItem::DisableUpdate ()
{
    if (GetAttributeList () != nullptr) GetAttributeList ()->DisableUpdate ();
}

void AttributeListGroupItem::EnableUpdate ()
{
    if (GetAttributeList () != nullptr) GetAttributeList ()->EnableUpdate ();
}

void AttributeListGroupItem::HandleClick ()
{
    if (!HasVisibleChild () || !collapsible) return;
    expanded = !expanded;
    if (GetAttributeList () != nullptr) GetAttributeList ()->FullRefreshList (true);
}

void AttributeListGroupItem::InitOwnCreatedItem (AttributeListSimpleItem* item, bool asMaster)
{
    item->SetOwnCreated ();
    if (asMaster) {
        AddMasterItem (item);
        item->masterOwnedByGroup = true;
    } else {
        AddItem (item);
    }
    EnableUpdate ();
    FullRefreshList ();
}

bool AttributeListGroupItem::HasVisibleChild () const
{
    for (const AttributeListSimpleItem* child : items)
        if (child->IsVisible ()) return true;
    return false;
}

bool AttributeListGroupItem::IsInTriangleColumn (int x) const
{
    const short column = GetGroupTriangleColumnIndex ();
    if (column <= 0 || GetAttributeList () == nullptr) return false;
    const Wg::ListBox& listBox = GetAttributeList ()->GetListBox ();
    const int begin = listBox.GetTabFieldBeginPosition (column);
    const int end = listBox.GetTabFieldEndPosition (column);
    return begin < end && begin <= x && x <= end;
}

// --- Overrides ---

void AttributeListGroupItem::AssignToList (AttributeList* newList)
{
    for (AttributeListSimpleItem* child : items) child->AssignToList (newList);
    if (masterItem != nullptr) masterItem->AssignToList (newList);
    AttributeListItem::AssignToList (newList);
}

void AttributeListGroupItem::DetachListItemFromList ()
{
    for (AttributeListSimpleItem* child : items) child->DetachListItemFromList ();
    if (masterItem != nullptr) masterItem->DetachListItemFromList ();
    AttributeListItem::DetachListItemFromList ();
}

void AttributeListGroupItem::DrawListItem (short row) const
{
    AttributeList* list = GetAttributeList ();
    if (list == nullptr || !IsVisible ()) return;
    Wg::ListBox& listBox = list->GetListBox ();
    UpdateHeaderBgColor (row);
    const bool hasVisibleChild = HasVisibleChild ();
    const short triangleColumn = GetGroupTriangleColumnIndex ();
    if (triangleColumn > 0)
        listBox.SetTabItemIcon (row, triangleColumn, hasVisibleChild ? (expanded ? expandedArrowIcon : collapsedArrowIcon) : Wg::Icon ());
    if (masterItem == nullptr) {
        const short iconColumn = GetAttributeIconColumnIndex ();
        if (iconColumn > 0) listBox.SetTabItemIcon (row, iconColumn, GetIcon ());
    } else {
        masterItem->DrawListItem (row);
    }
    listBox.SetItemFontStyle (row, BoldFontStyle);
}

void AttributeListGroupItem::InitializeOnTabItems () const
{
    if (masterItem == nullptr || GetOnTabItems () == nullptr) return;
    masterItem->SetOnTabItems (*GetOnTabItems ());
    masterItem->InitializeOnTabItems ();
}

void AttributeListGroupItem::ItemClicked (const Wg::ListBoxClickEvent& event)
{
    // An observer of the icon-column click may delete the group.
    Kor::LifeWatch guard (*this);
    AttributeListItem::ItemClicked (event);
    if (!guard.IsAlive ()) return;
    if (IsInTriangleColumn (event.GetMouseOffset ().x)) {
        HandleClick ();
        return;
    }
    if (masterItem != nullptr) masterItem->ItemClicked (event);
}

void AttributeListGroupItem::ItemDoubleClicked (const Wg::ListBoxDoubleClickEvent& event, bool* handled)
{
    // The first click of the pair has toggled the group already. The base class's icon-column
    // notification is not sent for groups; the asymmetry with the single click is intended.
    if (IsInTriangleColumn (event.GetMouseOffset ().x)) return;
    if (masterItem != nullptr) {
        // The master's observers may delete the group.
        Kor::LifeWatch guard (*this);
        bool masterHandled = false;
        masterItem->ItemDoubleClicked (event, &masterHandled);
        if (handled != nullptr && masterHandled) *handled = true;
        if (masterHandled || !guard.IsAlive ()) return;
    }
    HandleClick ();
}

#define TXAL_FORWARD_TO_MASTER(Operation, EventType)                         \
    void AttributeListGroupItem::Operation (const EventType& event)          \
    {                                                                        \
        if (masterItem != nullptr) masterItem->Operation (event);            \
    }

TXAL_FORWARD_TO_MASTER (IntEditChanged, Wg::IntEditChangeEvent)
TXAL_FORWARD_TO_MASTER (PosIntEditChanged, Wg::PosIntEditChangeEvent)
TXAL_FORWARD_TO_MASTER (Pk257Changed, Wg::UserControlChangeEvent)
TXAL_FORWARD_TO_MASTER (Pk257TrackEntered, Wg::UserControlTrackEvent)
TXAL_FORWARD_TO_MASTER (Pk257Tracked, Wg::UserControlTrackEvent)
TXAL_FORWARD_TO_MASTER (Pk257TrackExited, Wg::UserControlTrackEvent)
TXAL_FORWARD_TO_MASTER (Pk261Changed, Wg::UserControlChangeEvent)
TXAL_FORWARD_TO_MASTER (Pk261TrackEntered, Wg::UserControlTrackEvent)
TXAL_FORWARD_TO_MASTER (Pk261Tracked, Wg::UserControlTrackEvent)
TXAL_FORWARD_TO_MASTER (Pk261TrackExited, Wg::UserControlTrackEvent)
TXAL_FORWARD_TO_MASTER (CheckItemChanged, Wg::CheckItemChangeEvent)
TXAL_FORWARD_TO_MASTER (UpdatePreviewTab, Wg::ListBoxTabItemUpdateEvent)
TXAL_FORWARD_TO_MASTER (SliderChanged, Wg::BarControlChangeEvent)
TXAL_FORWARD_TO_MASTER (SliderTracked, Wg::BarControlTrackEvent)
TXAL_FORWARD_TO_MASTER (PkPopupControlChanged, Wg::UserControlChangeEvent)
TXAL_FORWARD_TO_MASTER (PkPopupControlTrackEntered, Wg::UserControlTrackEvent)
TXAL_FORWARD_TO_MASTER (PkPopupControlTracked, Wg::UserControlTrackEvent)
TXAL_FORWARD_TO_MASTER (PkPopupControlTrackExited, Wg::UserControlTrackEvent)
TXAL_FORWARD_TO_MASTER (TextEditChanged, Wg::TextEditChangeEvent)
TXAL_FORWARD_TO_MASTER (RealEditChanged, Wg::RealEditChangeEvent)
TXAL_FORWARD_TO_MASTER (ButtonClicked, Wg::ButtonClickEvent)

#undef TXAL_FORWARD_TO_MASTER

void AttributeListGroupItem::SetSelection (Kor::Range<int> selection)
{
    if (masterItem != nullptr) masterItem->SetSelection (selection);
}

void AttributeListGroupItem::UpdatePreviewItem (const Wg::ListBoxItemUpdateEvent& event)
{
    if (event.GetSource () == nullptr) return;
    const Wg::ListBox& listBox = *event.GetSource ();
    const short labelColumn = GetAttributeTypeColumnIndex ();
    const short lastNameColumn = masterItem != nullptr ? static_cast<short> (masterItem->GetFirstDrawnColumnIfOnGroup () - 1)
                                                       : GetPreviewColumnIndex ();
    DrawText (event, GetName (), listBox.GetTabFieldBeginPosition (labelColumn), listBox.GetTabFieldEndPosition (lastNameColumn));
    if (masterItem != nullptr) masterItem->UpdatePreviewItem (event);
}

Kor::UniString AttributeListGroupItem::GetToolTip ()
{
    return masterItem != nullptr ? masterItem->GetToolTip () : AttributeListItem::GetToolTip ();
}

bool AttributeListGroupItem::IsOwnerDrawn () const
{
    return true;
}

Kor::UniString AttributeListGroupItem::GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column)
{
    if (column == GetAttributeTypeColumnIndex ()) return GetName ();
    return masterItem != nullptr ? masterItem->GetDrawnTextContentForKorAT (key, column) : Kor::UniString ();
}

bool AttributeListGroupItem::HasFocusedEditField ()
{
    return masterItem != nullptr && masterItem->HasFocusedEditField ();
}

}   // namespace TxAL
