#include "Rb/BaseItemSelectionData.hpp"

#include <algorithm>

#include "Rb/ListBoxBehaviourBase.hpp"

namespace Rb {

void BaseItemSelectionDataObserver::ItemSelectionChanged (const BaseItemSelectionData&)
{
}

BaseItemSelectionData::BaseItemSelectionData () = default;

BaseItemSelectionData::~BaseItemSelectionData () = default;

Kor::UniString BaseItemSelectionData::GetSearchHintText () const
{
    return {};
}

BaseItemSelectionData::SortFunction BaseItemSelectionData::GetSortFunctionForItems (ItemSortOrder order) const
{
    if (order == AscendingOrder)
        return [this] (ItemIndex a, ItemIndex b) { return GetItemTreeViewText (a).Compare (GetItemTreeViewText (b)) < 0; };
    if (order == DescendingOrder)
        return [this] (ItemIndex a, ItemIndex b) { return GetItemTreeViewText (b).Compare (GetItemTreeViewText (a)) < 0; };
    return [] (ItemIndex a, ItemIndex b) { return a < b; };
}

Kor::Ref<ListBoxBehaviourBase> BaseItemSelectionData::CreateListBoxBehaviour (Wg::ListBox& listBox)
{
    return Kor::Ref<ListBoxBehaviourBase> (new ListBoxBehaviourBase (listBox));
}

ItemIndex BaseItemSelectionData::AddGroup (const AvailableItemData& data)
{
    return Add (data, true);
}

ItemIndex BaseItemSelectionData::AddItem (const AvailableItemData& data)
{
    return Add (data, false);
}

ItemIndex BaseItemSelectionData::Add (const AvailableItemData& data, bool isGroup)
{
    const ItemIndex parent = data.GetParentIndex ();
    if (parent != NoParentIndex && !IsGroup (parent)) return NoParentIndex;
    const auto index = static_cast<ItemIndex> (entries.size ());
    entries.push_back (Entry {parent, data.GetIcon (), isGroup});
    children.emplace_back ();
    if (parent == NoParentIndex)
        topLevel.push_back (index);
    else
        children[static_cast<std::size_t> (parent)].push_back (index);
    InvalidateSearchIndex ();
    return index;
}

bool BaseItemSelectionData::IsGroup (ItemIndex index) const
{
    return IsValidIndex (index) && entries[static_cast<std::size_t> (index)].isGroup;
}

ItemIndex BaseItemSelectionData::GetParentIndex (ItemIndex index) const
{
    return IsValidIndex (index) ? entries[static_cast<std::size_t> (index)].parent : NoParentIndex;
}

Wg::Icon BaseItemSelectionData::GetItemIcon (ItemIndex index) const
{
    return IsValidIndex (index) ? entries[static_cast<std::size_t> (index)].icon : Wg::Icon ();
}

const std::vector<ItemIndex>& BaseItemSelectionData::GetChildren (ItemIndex parent) const
{
    static const std::vector<ItemIndex> none;
    if (parent == NoParentIndex) return topLevel;
    return IsValidIndex (parent) ? children[static_cast<std::size_t> (parent)] : none;
}

std::vector<ItemIndex> BaseItemSelectionData::GetTreeOrder (ItemSortOrder order) const
{
    // Only the two real orders sort: the comparison of any other order is no strict ordering.
    const bool sorted = order == AscendingOrder || order == DescendingOrder;
    const SortFunction less = sorted ? GetSortFunctionForItems (order) : SortFunction ();
    auto siblings = [&] (ItemIndex parent) {
        std::vector<ItemIndex> list = GetChildren (parent);
        if (sorted) std::stable_sort (list.begin (), list.end (), less);
        return list;
    };

    std::vector<ItemIndex> result;
    result.reserve (entries.size ());
    std::vector<ItemIndex> stack = siblings (NoParentIndex);
    std::reverse (stack.begin (), stack.end ());
    while (!stack.empty ()) {
        const ItemIndex index = stack.back ();
        stack.pop_back ();
        result.push_back (index);
        std::vector<ItemIndex> below = siblings (index);
        stack.insert (stack.end (), below.rbegin (), below.rend ());
    }
    return result;
}

void BaseItemSelectionData::SetSelectedItemIndices (const Kor::Array<ItemIndex>& indices)
{
    selected.Clear ();
    for (ItemIndex index : indices)
        if (IsValidIndex (index)) selected.Push (index);
}

void BaseItemSelectionData::ChooseItem (ItemIndex index)
{
    if (!IsValidIndex (index)) return;
    selected.Clear ();
    selected.Push (index);
    NotifyObservers<BaseItemSelectionDataObserver> ([this] (BaseItemSelectionDataObserver& observer) { observer.ItemSelectionChanged (*this); });
}

void BaseItemSelectionData::SetSearchOrder (ItemSortOrder order)
{
    if (order == searchOrder) return;
    searchOrder = order;
    InvalidateSearchIndex ();
    const Kor::UniString text = searchText;
    searchText.Clear ();
    foldedSearchText.clear ();
    SetSearchText (text);
}

void BaseItemSelectionData::InvalidateSearchIndex ()
{
    searchIndexValid = false;
    foldedStrings.clear ();
    foldedTreeTexts.clear ();
    searchOrderIndices.clear ();
}

void BaseItemSelectionData::BuildSearchIndex () const
{
    if (searchIndexValid) return;
    foldedStrings.assign (entries.size (), {});
    foldedTreeTexts.assign (entries.size (), {});
    Kor::Array<Kor::UniString> strings;
    for (std::size_t i = 0; i < entries.size (); ++i) {
        strings.Clear ();
        CollectItemStringsForSearchComparison (static_cast<ItemIndex> (i), strings);
        foldedStrings[i].reserve (strings.size ());
        for (const Kor::UniString& s : strings) foldedStrings[i].push_back (s.ToLowerCase ().GetUtf16 ());
        foldedTreeTexts[i] = GetItemTreeViewText (static_cast<ItemIndex> (i)).ToLowerCase ().GetUtf16 ();
    }
    searchOrderIndices = GetTreeOrder (searchOrder);
    searchIndexValid = true;
}

SearchResult BaseItemSelectionData::Match (ItemIndex index, const std::u16string& foldedText) const
{
    SearchResult result;
    bool found = false;
    for (const std::u16string& s : foldedStrings[static_cast<std::size_t> (index)]) {
        if (s.find (foldedText) != std::u16string::npos) {
            found = true;
            break;
        }
    }
    if (!found) return result;
    result.index = index;
    // Where to highlight: the same text within the shown text, when it is there.
    const std::u16string& shown = foldedTreeTexts[static_cast<std::size_t> (index)];
    result.matchBegin = shown.find (foldedText);
    result.matchLength = result.matchBegin == std::u16string::npos ? 0 : foldedText.size ();
    return result;
}

void BaseItemSelectionData::SetSearchText (const Kor::UniString& text)
{
    const std::u16string folded = text.ToLowerCase ().GetUtf16 ();
    const bool narrows = !foldedSearchText.empty () && folded.size () >= foldedSearchText.size () &&
                         folded.compare (0, foldedSearchText.size (), foldedSearchText) == 0 && searchIndexValid;
    searchText = text;
    if (folded.empty ()) {
        foldedSearchText.clear ();
        results.clear ();
        return;
    }
    BuildSearchIndex ();
    std::vector<SearchResult> next;
    if (narrows) {
        for (const SearchResult& previous : results) {
            SearchResult r = Match (previous.index, folded);
            if (r.index != NoParentIndex) next.push_back (r);
        }
    } else {
        for (ItemIndex index : searchOrderIndices) {
            SearchResult r = Match (index, folded);
            if (r.index != NoParentIndex) next.push_back (r);
        }
    }
    foldedSearchText = folded;
    results = std::move (next);
}

}   // namespace Rb
