#pragma once
// Rb::BaseItemSelectionData: the model of an item selection dialog. Entries are groups and items
// in a tree (each with the index of its parent, -1 for a top-level entry), numbered 0, 1, 2...
// in the order they were added, a parent always before its children. A subclass supplies the
// texts: what the tree and the flat result list show and which strings the search compares
// against. The data also keeps the selected indices and the search with its results.
//
// Search: case-insensitive substring over the strings CollectItemStringsForSearchComparison
// gives, recomputed on every change of the search text; the results keep the tree's order
// (parents before children, siblings in tree order). A text that extends the previous one only
// narrows the previous results, which keeps typing fast on large trees.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Kor/Array.hpp"
#include "Kor/Event.hpp"
#include "Kor/Ref.hpp"
#include "Kor/UniString.hpp"
#include "Wg/Icon.hpp"

namespace Wg {
class ListBox;
}   // namespace Wg

namespace Rb {

class BaseItemSelectionData;
class ListBoxBehaviourBase;

using ItemIndex = std::int32_t;
constexpr ItemIndex NoParentIndex = -1;

// The orders of GetSortFunctionForItems; other values keep the order of addition.
enum ItemSortOrder : int { AscendingOrder = 0, DescendingOrder = 1, AdditionOrder = 2 };

// An entry as it is added: its parent's index and its icon.
class AvailableItemData {
public:
    AvailableItemData () = default;
    AvailableItemData (ItemIndex parentIndex, const Wg::Icon& icon) : parentIndex (parentIndex), icon (icon) {}

    ItemIndex       GetParentIndex () const { return parentIndex; }
    const Wg::Icon& GetIcon () const { return icon; }

private:
    ItemIndex parentIndex = NoParentIndex;
    Wg::Icon  icon;
};

// Hears the user's choice in a dialog over the data.
class BaseItemSelectionDataObserver : public virtual Kor::EventObserver {
public:
    virtual void ItemSelectionChanged (const BaseItemSelectionData& data);
};

// One search result: the entry and where the search text stands in its tree-view text
// (matchBegin is npos when it matched another of its search strings).
struct SearchResult {
    ItemIndex   index = NoParentIndex;
    std::size_t matchBegin = std::u16string::npos;
    std::size_t matchLength = 0;
};

// The model of an item selection dialog (see the top of this file).
class BaseItemSelectionData : public Kor::EventSource {
public:
    using SortFunction = std::function<bool (ItemIndex, ItemIndex)>;

    BaseItemSelectionData ();
    BaseItemSelectionData (const BaseItemSelectionData&) = delete;
    BaseItemSelectionData& operator= (const BaseItemSelectionData&) = delete;
    ~BaseItemSelectionData () override;

    void Attach (BaseItemSelectionDataObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (BaseItemSelectionDataObserver& observer) { Kor::EventSource::Detach (observer); }

    // --- What a subclass supplies ---
    virtual Kor::UniString GetItemTreeViewText (ItemIndex index) const = 0;
    virtual Kor::UniString GetItemListBoxTextByColumn (short column, ItemIndex index) const = 0;
    // Appends the strings the search compares against.
    virtual void           CollectItemStringsForSearchComparison (ItemIndex index, Kor::Array<Kor::UniString>& strings) const = 0;
    virtual Kor::UniString GetSearchHintText () const;
    // A comparison of two indices for ordering siblings; only orders 0 and 1 are used to sort.
    virtual SortFunction   GetSortFunctionForItems (ItemSortOrder order) const;
    // The behaviour of the dialog's flat result list.
    virtual Kor::Ref<ListBoxBehaviourBase> CreateListBoxBehaviour (Wg::ListBox& listBox);

    // --- The tree ---
    // A group and an item; both return the new index, or -1 (adding nothing) for a parent
    // index that names no group.
    ItemIndex AddGroup (const AvailableItemData& data);
    ItemIndex AddItem (const AvailableItemData& data);
    std::size_t GetItemCount () const { return entries.size (); }
    bool        IsValidIndex (ItemIndex index) const { return index >= 0 && static_cast<std::size_t> (index) < entries.size (); }
    bool        IsGroup (ItemIndex index) const;
    ItemIndex   GetParentIndex (ItemIndex index) const;
    Wg::Icon    GetItemIcon (ItemIndex index) const;
    // The children of a group (of the top level for -1) in order of addition.
    const std::vector<ItemIndex>& GetChildren (ItemIndex parent) const;
    // Every entry, parents before children, siblings sorted by the order (order of addition for
    // orders other than 0 and 1).
    std::vector<ItemIndex> GetTreeOrder (ItemSortOrder order) const;

    // --- Selection ---
    // Indices that name no entry are dropped. Notifies nobody.
    void SetSelectedItemIndices (const Kor::Array<ItemIndex>& indices);
    const Kor::Array<ItemIndex>& GetSelectedItemIndices () const { return selected; }
    // The user chose this entry alone: selects it and notifies the observers.
    void ChooseItem (ItemIndex index);

    // --- Search ---
    // Recomputes the results; the order of the tree is that of SetSearchOrder.
    void SetSearchText (const Kor::UniString& text);
    const Kor::UniString&            GetSearchText () const { return searchText; }
    const std::vector<SearchResult>& GetSearchResults () const { return results; }
    void SetSearchOrder (ItemSortOrder order);
    ItemSortOrder GetSearchOrder () const { return searchOrder; }

private:
    struct Entry {
        ItemIndex parent = NoParentIndex;
        Wg::Icon  icon;
        bool      isGroup = false;
    };

    ItemIndex Add (const AvailableItemData& data, bool isGroup);
    void      BuildSearchIndex () const;
    void      InvalidateSearchIndex ();
    SearchResult Match (ItemIndex index, const std::u16string& foldedText) const;

    std::vector<Entry>                  entries;
    std::vector<std::vector<ItemIndex>> children;       // of each entry
    std::vector<ItemIndex>              topLevel;
    Kor::Array<ItemIndex>               selected;

    Kor::UniString            searchText;
    std::u16string            foldedSearchText;
    std::vector<SearchResult> results;
    ItemSortOrder             searchOrder = AdditionOrder;

    // Built on the first search after a change of the tree: the lower-case search strings of
    // each entry and the order in which results are listed.
    mutable bool                                     searchIndexValid = false;
    mutable std::vector<std::vector<std::u16string>> foldedStrings;
    mutable std::vector<std::u16string>              foldedTreeTexts;
    mutable std::vector<ItemIndex>                   searchOrderIndices;
};

}   // namespace Rb
