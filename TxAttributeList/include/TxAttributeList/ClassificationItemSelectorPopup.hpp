#pragma once
// The classification item selector: the popup that a classification row's button opens, and the
// data model behind it. ClassificationSelectionDialogData turns a classification system into the
// tree of an item selection dialog (groups for items with children, leaves for the others),
// hiding the items that the host's visibility rule rejects together with their subtrees; the
// search compares against each entry's decorated display name and nothing else.
// ClassificationItemSelectorPopup opens the dialog over that data and remembers, between
// invocations, which groups were open and which item was chosen.

#include <cstdint>
#include <functional>
#include <vector>

#include "CLS/ClassificationItem.hpp"
#include "CLS/ClassificationSystem.hpp"
#include "Kor/HashSet.hpp"
#include "Kor/HashTable.hpp"
#include "Kor/Ref.hpp"
#include "ODB/Ref.hpp"
#include "Rb/BaseItemSelectionData.hpp"
#include "Rb/ListBoxBehaviourBase.hpp"
#include "Wg/Icon.hpp"

namespace Wg {
class Item;
class ListBox;
}   // namespace Wg

namespace TxAL {

// The icon of an entry of the selector: one for items with children, one for the others.
Wg::Icon GetClassificationIcon (const ODB::ConstRef<CLS::IClassificationItem>& item);

// The popup that lets the user choose a classification item of one system.
class ClassificationItemSelectorPopup {
public:
    // The host's rule of which items apply to the edited elements.
    class IClassificationVisibilityGetter {
    public:
        virtual ~IClassificationVisibilityGetter ();
        virtual bool IsClassificationVisible (const ODB::ConstRef<CLS::IClassificationItem>& item) const = 0;
        // Whether the rule filters at all (the popup then says so even when nothing is hidden).
        virtual bool IsClassificationVisibilityHandlingEnabled () const = 0;
    };

    static constexpr short MaximumHeight = 700;
    static constexpr short PlaceDirection = 0;
    // Common string of the user-dialogs library on the dialog's add button.
    static constexpr int   AddButtonCommonStringIndex = 5;
    static constexpr int   SelectorStringsResId = 5007;
    static constexpr int   FilteringInfoStringIndex = 3;
    static constexpr int   HiddenItemsInfoStringIndex = 4;
    static constexpr int   SearchHintStringIndex = 5;
    static constexpr int   HiddenItemsInfoIconResId = 1109;
    static constexpr int   FilteringInfoIconResId = 1113;

    ClassificationItemSelectorPopup (const ODB::ConstRef<CLS::IClassificationSystem>& system,
                                     const ODB::ConstRef<CLS::IClassificationItem>& preselectedItem,
                                     Kor::Ref<IClassificationVisibilityGetter> visibilityGetter);

    // Shows the popup at the anchor (the row's button) and returns when it closes; a pick becomes
    // the selected item, a cancel leaves it as it was. A null visibility getter throws Kor's
    // NullReferenceException.
    void Invoke (const Wg::Item& anchor);

    ODB::ConstRef<CLS::IClassificationItem> GetSelectedItem () const { return selectedItem; }
    // The same item as the classification library's own type; empty when it is not one.
    ODB::ConstRef<CLS::ClassificationItem>  GetSelectedItemTyped () const;
    // The dialog indices of the groups that were open when the popup last closed.
    const Kor::HashSet<std::int32_t>&       GetExpandedGroups () const { return expandedGroups; }

private:
    ODB::ConstRef<CLS::IClassificationSystem> system;
    Kor::HashSet<std::int32_t>                expandedGroups;
    ODB::ConstRef<CLS::IClassificationItem>   selectedItem;
    Kor::Ref<IClassificationVisibilityGetter> visibilityGetter;
};

// The selection dialog's model of a classification system (see the top of this file).
class ClassificationSelectionDialogData : public Rb::BaseItemSelectionData {
public:
    using VisibilityPredicate = std::function<bool (const ODB::ConstRef<CLS::IClassificationItem>&)>;

    ClassificationSelectionDialogData (const ODB::ConstRef<CLS::IClassificationSystem>& system,
                                       const ODB::ConstRef<CLS::IClassificationItem>& preselectedItem,
                                       const VisibilityPredicate& isVisible);

    // --- Rb::BaseItemSelectionData ---
    Kor::UniString GetItemTreeViewText (Rb::ItemIndex index) const override;
    Kor::UniString GetItemListBoxTextByColumn (short column, Rb::ItemIndex index) const override;
    void           CollectItemStringsForSearchComparison (Rb::ItemIndex index, Kor::Array<Kor::UniString>& strings) const override;
    Kor::UniString GetSearchHintText () const override;
    SortFunction   GetSortFunctionForItems (Rb::ItemSortOrder order) const override;
    Kor::Ref<Rb::ListBoxBehaviourBase> CreateListBoxBehaviour (Wg::ListBox& listBox) override;

    // The chosen item: empty unless exactly one index is selected.
    ODB::ConstRef<CLS::IClassificationItem> GetSelectedRef () const;
    bool HasHiddenClassification () const { return !hiddenItems.IsEmpty (); }
    // The item of a dialog index; empty for an unknown index.
    ODB::ConstRef<CLS::IClassificationItem> GetItem (Rb::ItemIndex index) const;

private:
    Kor::HashTable<Rb::ItemIndex, ODB::ConstRef<CLS::IClassificationItem>> indexToItem;
    Kor::HashSet<ODB::ConstRef<CLS::IClassificationItem>>                  hiddenItems;
    // The decorated names by index, made on first use: the search and the rows ask for them on
    // every keystroke.
    mutable std::vector<Kor::UniString> treeViewTexts;
    mutable std::vector<bool>           treeViewTextKnown;
};

// The flat result list of the selector: each result's path shows its ancestors' codes, which
// stay short in deep systems.
class ClassificationListBoxBehaviour : public Rb::ListBoxBehaviourBase {
public:
    ClassificationListBoxBehaviour (Wg::ListBox& listBox, const ClassificationSelectionDialogData& data);

    Kor::UniString GetResultPath (const Rb::BaseItemSelectionData& data, Rb::ItemIndex index) const override;

private:
    const ClassificationSelectionDialogData& classificationData;
};

}   // namespace TxAL
