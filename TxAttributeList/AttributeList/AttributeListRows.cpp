// AttributeList: the item tree, rows and refresh.
//
// FullRefreshList rebuilds every row from the tree:
//   top-level item hidden             -> no row (listBoxIndex 0)
//   group whose master is hidden      -> no row for the group nor its children
//   otherwise                         -> a row (AppendRowFor), then for an expanded group one
//                                        row per visible child
// The master item never has a row of its own: the group's row shows it.

#include <algorithm>
#include <optional>

#include "AttributeListRegistry.hpp"
#include "DrawSuspension.hpp"
#include "Kor/Assert.hpp"
#include "Kor/LifeWatch.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"

namespace TxAL {

namespace {

constexpr const char* AssertPrefix = "TxAL error";
constexpr const char* SourceFile = "AttributeList";

// An item stands in one place only: a second place keeps a pointer to it after the first
// released or deleted it.
bool IsPlacedAnywhere (const AttributeListItem& item, const AttributeList* list)
{
    if (list != nullptr) return true;
    const auto* simple = dynamic_cast<const AttributeListSimpleItem*> (&item);
    return simple != nullptr && simple->GetGroup () != nullptr;
}

}   // namespace

// --- Registry ---

namespace {

std::vector<AttributeList*>& Lists ()
{
    static std::vector<AttributeList*> lists;
    return lists;
}

}   // namespace

void AttributeListRegistry::Add (AttributeList* list)
{
    if (list != nullptr) Lists ().push_back (list);
}

void AttributeListRegistry::Remove (AttributeList* list)
{
    auto& lists = Lists ();
    lists.erase (std::remove (lists.begin (), lists.end (), list), lists.end ());
}

const std::vector<AttributeList*>& AttributeListRegistry::GetLists ()
{
    return Lists ();
}

Kor::UniString AttributeList::GetDrawnTextContentForKorAT (short panelId, short listBoxId, short row, short column)
{
    if (row < 1 || listBoxId < 1) return {};
    for (AttributeList* list : AttributeListRegistry::GetLists ()) {
        if (list == nullptr) break;
        const Wg::ListBox& listBox = list->GetListBox ();
        if (listBox.GetPanel ().GetId () != panelId || listBox.GetId () != listBoxId) continue;
        AttributeListItem* item = list->GetItemOfRow (row);
        return item != nullptr ? item->GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> (), column) : Kor::UniString ();
    }
    return {};
}

// --- Items ---

void AttributeList::AddListItem (AttributeListItem& item)
{
    if (IsPlacedAnywhere (item, item.list)) {
        Kor::ReportAssertFailure (AssertPrefix, SourceFile, __LINE__, "item is in no list and no group");
        return;
    }
    items.Push (&item);
    item.AssignToList (this);
}

void AttributeList::AddListItem (AttributeListItem* item)
{
    if (item != nullptr) AddListItem (*item);
}

void AttributeList::DeleteListItem (AttributeListItem* item, bool deleteIfOwnCreated)
{
    if (item == nullptr) return;
    // Another list's item, or a group's child: taking it out here would leave its real place
    // with a dangling pointer.
    if (item->list != this || !items.Contains (item)) {
        Kor::ReportAssertFailure (AssertPrefix, SourceFile, __LINE__, "item is a top-level item of this list");
        return;
    }
    RemoveTopLevelItem (item, deleteIfOwnCreated);
}

void AttributeList::RemoveTopLevelItem (AttributeListItem* item, bool deleteIfOwnCreated)
{
    DisableUpdate ();
    item->DetachListItemFromList ();
    item->AssignToList (nullptr);
    items.DeleteFirst (item);
    if (deleteIfOwnCreated && item->IsOwnCreated ()) delete item;
    EnableUpdate ();
    FullRefreshList (true);
}

void AttributeList::DetachListItemFromList (AttributeListItem* item)
{
    if (item == nullptr) return;
    if (item->list != this) {
        Kor::ReportAssertFailure (AssertPrefix, SourceFile, __LINE__, "item belongs to this list");
        return;
    }
    const short row = item->GetRow ();
    // Only the item's own row is cleared: a stale index must not blank another item's row.
    if (row > 0 && listBox->GetItemValue (row) == item) listBox->SetItemValue (row, nullptr);
    item->listBoxIndex = 0;
    // The in-place controls stay with the list; no picker callback may reach a detached item.
    if (item->onTabItems != nullptr) {
        item->onTabItems->ClearUserControlCallbacks (item);
        item->onTabItems = nullptr;
    }
}

void AttributeList::ClearList (bool refresh)
{
    // What the user typed and did not confirm belongs to the selected row's item: it is
    // committed (the list box takes the focus from the edit) while that item is still in the
    // list. The commit's observers may clear or destroy the list themselves.
    if (IsEditControlFocused ()) {
        Kor::LifeWatch alive {this, listBox};
        listBox->SetFocus ();
        if (alive.IsGone ()) return;
    }
    DisableUpdate ();
    while (!items.IsEmpty ()) RemoveTopLevelItem (items.GetLast (), true);
    EnableUpdate ();
    if (refresh) FullRefreshList (true);
}

void AttributeList::InitOwnCreatedItem (AttributeListItem* item)
{
    if (item == nullptr) return;
    item->SetOwnCreated ();
    AddListItem (item);
    EnableUpdate ();
    FullRefreshList (true);
}

AttributeListGroupItem* AttributeList::CreateGroup (const Kor::UniString& name, const Wg::Icon& icon, bool expanded, bool status)
{
    DisableUpdate ();
    auto* group = new (std::nothrow) AttributeListGroupItem ();
    if (group == nullptr) return nullptr;
    group->SetOwnCreated ();
    AddListItem (group);
    group->SetName (name);
    group->SetIcon (icon);
    if (!expanded) group->Collapse ();
    group->SetStatus (status);
    EnableUpdate ();
    RefreshItem (*group, true);
    return group;
}

void AttributeList::CollapseAllGroups ()
{
    DisableUpdate ();
    for (AttributeListItem* item : items)
        if (item->kind == AttributeListItem::Kind::Group) static_cast<AttributeListGroupItem*> (item)->Collapse ();
    EnableUpdate ();
    FullRefreshList (true);
}

void AttributeList::ExpandAllGroups ()
{
    DisableUpdate ();
    for (AttributeListItem* item : items)
        if (item->kind == AttributeListItem::Kind::Group) static_cast<AttributeListGroupItem*> (item)->Expand ();
    EnableUpdate ();
    FullRefreshList (true);
}

// --- Update counter and drawing ---

void AttributeList::DisableUpdate ()
{
    ++updateCounter;
}

void AttributeList::EnableUpdate ()
{
    // The counter never goes below zero, so an unbalanced resume cannot block later batches.
    if (--updateCounter < 0) updateCounter = 0;
}

void AttributeList::DisableDraw ()
{
    listBox->DisableDraw ();
}

void AttributeList::EnableDraw ()
{
    listBox->EnableDraw ();
}

// --- Rows ---

AttributeListItem* AttributeList::GetItemOfRow (short row) const
{
    return static_cast<AttributeListItem*> (listBox->GetItemValue (row));
}

void AttributeList::AssignListItemToList (AttributeListItem* item, short row)
{
    listBox->SetItemValue (row, item);
    item->listBoxIndex = static_cast<std::uint32_t> (static_cast<std::int32_t> (row));
    listBox->SetItemOwnerDrawnFlag (row, item->IsOwnerDrawn ());
    if (item->kind == AttributeListItem::Kind::Simple) static_cast<AttributeListSimpleItem*> (item)->RefreshItemFontStyle ();
}

void AttributeList::AppendRowFor (AttributeListItem* item)
{
    const short row = listBox->AppendItem ();
    if (row <= 0) {
        item->listBoxIndex = 0;   // the list box is full
        return;
    }
    AssignListItemToList (item, row);
    listBox->SetItemStatus (row, item->GetStatus () ? Wg::ListBox::Normal : Wg::ListBox::Grayed);
    item->DrawListItem (row);
}

void AttributeList::FullRefreshList (bool selectFirst)
{
    if (updateCounter > 0) return;
    DrawSuspension suspension (*this);

    const short scrollPosition = listBox->GetScrollPosition ();
    const AttributeListItem* selectedItem = GetSelectedRowItem ();
    // Deleting the rows commits what the user typed into the selected row first, and the
    // observers of the row count run below: either may delete the item or the list.
    Kor::LifeWatch listLife (*this);
    Kor::LifeWatch selectedLife {selectedItem};
    const short oldCount = listBox->GetItemCount ();
    listBox->DeleteAllItems ();
    if (listLife.IsGone ()) return;
    if (selectedLife.IsGone ()) selectedItem = nullptr;

    for (AttributeListItem* item : items) {
        auto* group = item->kind == AttributeListItem::Kind::Group ? static_cast<AttributeListGroupItem*> (item) : nullptr;
        const bool hidden = !item->IsVisible () || (group != nullptr && group->GetMasterItem () != nullptr && !group->GetMasterItem ()->IsVisible ());
        if (hidden) {
            // Hidden items have no row, the children of a hidden group included.
            item->listBoxIndex = 0;
            if (group != nullptr)
                for (AttributeListSimpleItem* child : group->EnumerateItems ()) child->listBoxIndex = 0;
            continue;
        }
        AppendRowFor (item);
        if (group == nullptr) continue;
        for (AttributeListSimpleItem* child : group->EnumerateItems ()) {
            if (group->IsExpanded () && child->IsVisible ())
                AppendRowFor (child);
            else
                child->listBoxIndex = 0;
        }
    }

    if (listBox->GetItemCount () != oldCount) {
        NotifyObservers<AttributeListObserver> ([this] (AttributeListObserver& o) { o.AttributeListRequiredHeightChanged (*this); });
        if (listLife.IsGone ()) return;
        if (selectedLife.IsGone ()) selectedItem = nullptr;
    }

    short rowToSelect = 0;
    if (selectedItem != nullptr) {
        const short row = selectedItem->GetRow ();
        if (row > 0 && GetItemOfRow (row) == selectedItem) rowToSelect = row;
    }
    if (rowToSelect == 0 && selectFirst && listBox->GetItemCount () > 0) rowToSelect = 1;
    if (rowToSelect > 0) listBox->SelectItem (rowToSelect);
    SetOnTabItems ();
    listBox->SetScrollPosition (scrollPosition);
}

short AttributeList::GetFirstListBoxIndex (const AttributeListItem* item) const
{
    if (item == nullptr) return -1;
    // A master item is found on its group's row.
    const AttributeListItem* group = nullptr;
    if (item->kind == AttributeListItem::Kind::Simple) {
        const AttributeListGroupItem* owner = static_cast<const AttributeListSimpleItem*> (item)->GetGroup ();
        if (owner != nullptr && owner->GetMasterItem () == item) group = owner;
    }
    const short row = NextRowOf (item, group, Wg::ListBox::NoRow);
    return row > 0 ? row : -1;
}

short AttributeList::NextRowOf (const AttributeListItem* item, const AttributeListItem* group, short after) const
{
    const short itemRow = listBox->FindNextRowWithValue (item, after);
    const short groupRow = listBox->FindNextRowWithValue (group, after);
    if (itemRow == 0) return groupRow;
    return groupRow == 0 ? itemRow : std::min (itemRow, groupRow);
}

void AttributeList::RefreshItem (const AttributeListItem& item, bool redraw)
{
    if (updateCounter >= 1 || !listBox->IsVisible () || !item.IsVisible () || listBox->GetItemCount () == 0) return;
    const AttributeListItem* group = nullptr;
    if (item.kind == AttributeListItem::Kind::Simple) {
        const AttributeListGroupItem* owner = static_cast<const AttributeListSimpleItem&> (item).GetGroup ();
        if (owner != nullptr && owner->GetMasterItem () == &item) group = owner;
    }
    // Placing the controls again moves the focus, which commits typing elsewhere: observers
    // of that may delete the item or the list.
    Kor::LifeWatch alive {this, &item};
    // Only the rows that hold the item, or its group's row for a master, are visited: a refresh
    // costs the same in a list of any length.
    const short count = listBox->GetItemCount ();
    for (short row = NextRowOf (&item, group, Wg::ListBox::NoRow); row > 0 && row <= count && row <= listBox->GetItemCount ();
         row = NextRowOf (&item, group, row)) {
        const void* value = listBox->GetItemValue (row);
        listBox->SetItemStatus (row, item.GetStatus () ? Wg::ListBox::Normal : Wg::ListBox::Grayed);
        static_cast<const AttributeListItem*> (value)->DrawListItem (row);
        // A refresh of the selected row moves the focus into its edit, but leaves it in the
        // edit that the user is typing in.
        if (row == listBox->GetSelectedItem () && SetOnTabItems () && alive.IsAlive () && !IsTypingInPlacedEdit ())
            SetFocusToEditControl ();
        if (alive.IsGone ()) return;
        if (redraw) listBox->RedrawItem (row);
    }
}

void AttributeList::DisableAllItems ()
{
    DisableUpdate ();
    for (AttributeListItem* item : items) item->SetStatus (false);
    EnableUpdate ();
    // The refresh tells observers, which may destroy the list.
    Kor::LifeWatch alive (*this);
    FullRefreshList (true);
    if (alive.IsGone ()) return;
    const short count = listBox->GetItemCount ();
    for (short row = 1; row > 0 && row <= count; ++row) listBox->DisableItem (row);
    // The selected row's controls were placed before its row was greyed.
    SetOnTabItems ();
}

bool AttributeList::EnableAllItems ()
{
    bool changed = false;
    DisableUpdate ();
    for (AttributeListItem* item : items) {
        if (item->GetStatus ()) continue;
        item->SetStatus (true);
        changed = true;
    }
    EnableUpdate ();
    Kor::LifeWatch alive (*this);
    FullRefreshList (true);
    if (alive.IsGone ()) return changed;
    const short count = listBox->GetItemCount ();
    for (short row = 1; row > 0 && row <= count; ++row) {
        if (listBox->IsItemEnabled (row)) continue;
        listBox->EnableItem (row);
        changed = true;
    }
    if (changed && alive.IsAlive ()) SetOnTabItems ();
    return changed;
}

AttributeListItem* AttributeList::GetFirstVisibleItem () const
{
    const short row = listBox->GetScrollPosition ();
    return row < 1 ? nullptr : GetItemOfRow (row);
}

void AttributeList::SetFirstVisibleItem (AttributeListItem* item)
{
    if (item != nullptr) item->SetFirstVisible ();
}

}   // namespace TxAL
