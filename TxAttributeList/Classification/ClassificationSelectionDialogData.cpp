#include "TxAttributeList/ClassificationItemSelectorPopup.hpp"

#include "CLS/ClassificationHierarchyConflictManager.hpp"
#include "Rb/RbResources.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"

namespace TxAL {

Wg::Icon GetClassificationIcon (const ODB::ConstRef<CLS::IClassificationItem>& item)
{
    if (item.IsNull ()) return {};
    return Rb::GetResourceIcon (item->HasChildren () ? Rb::TreeGroupIconId : Rb::TreeLeafIconId);
}

// --- ClassificationSelectionDialogData ---

ClassificationSelectionDialogData::ClassificationSelectionDialogData (const ODB::ConstRef<CLS::IClassificationSystem>& system,
                                                                      const ODB::ConstRef<CLS::IClassificationItem>& preselectedItem,
                                                                      const VisibilityPredicate& isVisible)
{
    if (system.IsNull ()) return;

    // Used while building only: where each group went, and what to preselect.
    Kor::HashTable<ODB::ConstRef<CLS::IClassificationItem>, Rb::ItemIndex> groupIndices;
    Kor::Array<Rb::ItemIndex>                                              preselection;

    system->TraverseClassificationsConst (CLS::DepthFirst, [&] (const ODB::ConstRef<CLS::IClassificationItem>& item) {
        const ODB::ConstRef<CLS::IClassificationItem> parent = item->GetParent ();
        // A hidden parent hides its whole subtree.
        if (!isVisible (item) || (!parent.IsNull () && hiddenItems.Contains (parent))) {
            hiddenItems.Add (item);
            return true;
        }
        Rb::ItemIndex parentIndex = Rb::NoParentIndex;
        if (!parent.IsNull ()) {
            const Rb::ItemIndex* found = groupIndices.GetPtr (parent);
            if (found == nullptr) return false;
            parentIndex = *found;
        }
        const Rb::AvailableItemData entry (parentIndex, GetClassificationIcon (item));
        Rb::ItemIndex index;
        if (item->HasChildren ()) {
            index = AddGroup (entry);
            groupIndices.Put (item, index);
        } else {
            index = AddItem (entry);
        }
        if (item == preselectedItem) preselection.Push (index);
        indexToItem.Put (index, item);
        return true;
    });

    SetSelectedItemIndices (preselection);
}

ODB::ConstRef<CLS::IClassificationItem> ClassificationSelectionDialogData::GetItem (Rb::ItemIndex index) const
{
    const ODB::ConstRef<CLS::IClassificationItem>* item = indexToItem.GetPtr (index);
    return item == nullptr ? ODB::ConstRef<CLS::IClassificationItem> () : *item;
}

Kor::UniString ClassificationSelectionDialogData::GetItemTreeViewText (Rb::ItemIndex index) const
{
    if (!IsValidIndex (index)) return {};
    const auto at = static_cast<std::size_t> (index);
    if (treeViewTexts.size () != GetItemCount ()) {
        treeViewTexts.assign (GetItemCount (), Kor::UniString ());
        treeViewTextKnown.assign (GetItemCount (), false);
    }
    if (!treeViewTextKnown[at]) {
        const ODB::ConstRef<CLS::IClassificationItem>* item = indexToItem.GetPtr (index);
        if (item != nullptr) treeViewTexts[at] = CLS::ClassificationHierarchyConflictManager::GetItemDecoratedDisplayName (*item);
        treeViewTextKnown[at] = true;
    }
    return treeViewTexts[at];
}

Kor::UniString ClassificationSelectionDialogData::GetItemListBoxTextByColumn (short /*column*/, Rb::ItemIndex index) const
{
    return GetItemTreeViewText (index);
}

void ClassificationSelectionDialogData::CollectItemStringsForSearchComparison (Rb::ItemIndex index, Kor::Array<Kor::UniString>& strings) const
{
    // Only what the user sees: a match in a hidden description would look like a false hit.
    strings.Push (GetItemTreeViewText (index));
}

Kor::UniString ClassificationSelectionDialogData::GetSearchHintText () const
{
    return GetResourceString (ClassificationItemSelectorPopup::SelectorStringsResId, ClassificationItemSelectorPopup::SearchHintStringIndex);
}

Rb::BaseItemSelectionData::SortFunction ClassificationSelectionDialogData::GetSortFunctionForItems (Rb::ItemSortOrder order) const
{
    return [this, order] (Rb::ItemIndex a, Rb::ItemIndex b) {
        if (order == Rb::AscendingOrder) return GetItemTreeViewText (a).Compare (GetItemTreeViewText (b), Kor::UniString::CaseInsensitive) < 0;
        if (order == Rb::DescendingOrder) return GetItemTreeViewText (b).Compare (GetItemTreeViewText (a), Kor::UniString::CaseInsensitive) < 0;
        // Any other order leaves the comparison without meaning: it answers true, as it always has.
        return true;
    };
}

Kor::Ref<Rb::ListBoxBehaviourBase> ClassificationSelectionDialogData::CreateListBoxBehaviour (Wg::ListBox& listBox)
{
    return Kor::Ref<Rb::ListBoxBehaviourBase> (new ClassificationListBoxBehaviour (listBox, *this));
}

ODB::ConstRef<CLS::IClassificationItem> ClassificationSelectionDialogData::GetSelectedRef () const
{
    const Kor::Array<Rb::ItemIndex>& selected = GetSelectedItemIndices ();
    if (selected.size () != 1) return {};
    return GetItem (selected[0]);
}

// --- ClassificationListBoxBehaviour ---

ClassificationListBoxBehaviour::ClassificationListBoxBehaviour (Wg::ListBox& listBox, const ClassificationSelectionDialogData& data)
    : Rb::ListBoxBehaviourBase (listBox), classificationData (data)
{
}

Kor::UniString ClassificationListBoxBehaviour::GetResultPath (const Rb::BaseItemSelectionData& data, Rb::ItemIndex index) const
{
    Kor::UniString path;
    for (Rb::ItemIndex p = data.GetParentIndex (index); p != Rb::NoParentIndex; p = data.GetParentIndex (p)) {
        const ODB::ConstRef<CLS::IClassificationItem> ancestor = classificationData.GetItem (p);
        if (ancestor.IsNull ()) continue;
        const Kor::UniString& code = ancestor->GetCode ();
        path = path.IsEmpty () ? code : code + PathSeparator + path;
    }
    return path;
}

}   // namespace TxAL
