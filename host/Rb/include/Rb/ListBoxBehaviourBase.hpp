#pragma once
// Rb::ListBoxBehaviourBase: how an item selection dialog's flat result list shows its rows. The
// dialog fills the list box; the behaviour supplies each row's cell texts and icon. Subclasses
// override what they show differently.

#include "Kor/UniString.hpp"
#include "Rb/BaseItemSelectionData.hpp"
#include "Wg/Icon.hpp"

namespace Wg {
class ListBox;
}   // namespace Wg

namespace Rb {

// The columns of the result list.
enum ResultListColumn : short { ResultTextColumn = 1, ResultPathColumn = 2, ResultColumnCount = 2 };

// Row contents of a selection dialog's flat result list (see the top of this file).
class ListBoxBehaviourBase {
public:
    // Does not own the list box, which must outlive the behaviour.
    explicit ListBoxBehaviourBase (Wg::ListBox& listBox);
    ListBoxBehaviourBase (const ListBoxBehaviourBase&) = delete;
    ListBoxBehaviourBase& operator= (const ListBoxBehaviourBase&) = delete;
    virtual ~ListBoxBehaviourBase ();

    Wg::ListBox& GetListBox () const { return listBox; }

    // The text of the result's own column: the data's text of column 1.
    virtual Kor::UniString GetResultText (const BaseItemSelectionData& data, ItemIndex index) const;
    // Where the result stands in the tree: the tree-view texts of its ancestors, outermost first,
    // joined by PathSeparator; empty for a top-level entry.
    virtual Kor::UniString GetResultPath (const BaseItemSelectionData& data, ItemIndex index) const;
    virtual Wg::Icon       GetResultIcon (const BaseItemSelectionData& data, ItemIndex index) const;

    static constexpr const char* PathSeparator = " \xE2\x80\xBA ";   // " › "

private:
    Wg::ListBox& listBox;
};

}   // namespace Rb
