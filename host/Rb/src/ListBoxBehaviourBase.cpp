#include "Rb/ListBoxBehaviourBase.hpp"

#include <vector>

namespace Rb {

ListBoxBehaviourBase::ListBoxBehaviourBase (Wg::ListBox& listBox) : listBox (listBox)
{
}

ListBoxBehaviourBase::~ListBoxBehaviourBase () = default;

Kor::UniString ListBoxBehaviourBase::GetResultText (const BaseItemSelectionData& data, ItemIndex index) const
{
    return data.GetItemListBoxTextByColumn (ResultTextColumn, index);
}

Kor::UniString ListBoxBehaviourBase::GetResultPath (const BaseItemSelectionData& data, ItemIndex index) const
{
    std::vector<ItemIndex> ancestors;
    for (ItemIndex p = data.GetParentIndex (index); p != NoParentIndex; p = data.GetParentIndex (p)) ancestors.push_back (p);
    Kor::UniString path;
    for (auto it = ancestors.rbegin (); it != ancestors.rend (); ++it) {
        if (!path.IsEmpty ()) path += PathSeparator;
        path += data.GetItemTreeViewText (*it);
    }
    return path;
}

Wg::Icon ListBoxBehaviourBase::GetResultIcon (const BaseItemSelectionData& data, ItemIndex index) const
{
    return data.GetItemIcon (index);
}

}   // namespace Rb
