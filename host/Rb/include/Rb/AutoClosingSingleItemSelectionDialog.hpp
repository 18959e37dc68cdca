#pragma once
// Rb::AutoClosingSingleItemSelectionDialog: a popup over a BaseItemSelectionData that lets the
// user pick one entry and closes as soon as one is picked. It shows a search field, the tree of
// the data (groups open and close; the open ones are restored from and saved to a set of group
// indices) and, while the search field holds text, the flat list of results with the path of
// each, the matched text highlighted. Up and Down move the highlight through the rows shown,
// Return picks the highlighted row.
//
// It is a Wg::ModalSession: headless, the runner's script drives it (Search replaces the search
// text, Type appends to it one character at a time, Expand opens or closes a tree row, Track
// highlights a row, Accept picks the highlighted row, Choose picks a row by number or, with a
// text, the entry whose tree-view text is that text, Cancel closes); a backend shows a real popup
// that calls the same operations.

#include <cstdint>
#include <memory>
#include <vector>

#include "Kor/HashSet.hpp"
#include "Kor/Ref.hpp"
#include "Kor/UniString.hpp"
#include "Rb/BaseItemSelectionData.hpp"
#include "Rb/ListBoxBehaviourBase.hpp"
#include "Wg/Icon.hpp"
#include "Wg/ModalRunner.hpp"

namespace Wg {
class ListBox;
class Panel;
}   // namespace Wg

namespace Rb {

// Script steps of the selection dialog that Wg::ModalStep has no maker for.
Wg::ModalStep MakeChooseByTextStep (const Kor::UniString& treeViewText);
Wg::ModalStep MakeExpandByTextStep (const Kor::UniString& treeViewText, bool open);

// The item selection popup (see the top of this file).
class AutoClosingSingleItemSelectionDialog : public Wg::ModalSession {
public:
    // A row of what the dialog shows: a tree row or, during a search, a result.
    struct Row {
        ItemIndex      index = NoParentIndex;
        int            level = 0;          // tree depth; 0 for results
        bool           isGroup = false;
        bool           expanded = false;
        Kor::UniString text;
        Kor::UniString path;               // results only
        std::size_t    matchBegin = std::u16string::npos;
        std::size_t    matchLength = 0;
        Wg::Icon       icon;
    };

    static constexpr short DefaultMaximumHeight = 500;
    static constexpr short DefaultWidth = 360;
    static constexpr short PlaceBelowAnchor = 0;

    // Neither the data nor the anchor is owned; both must outlive the dialog. The anchor may be null.
    AutoClosingSingleItemSelectionDialog (BaseItemSelectionData& data, const Wg::Item* anchor);
    AutoClosingSingleItemSelectionDialog (const AutoClosingSingleItemSelectionDialog&) = delete;
    AutoClosingSingleItemSelectionDialog& operator= (const AutoClosingSingleItemSelectionDialog&) = delete;
    ~AutoClosingSingleItemSelectionDialog () override;

    // --- Set-up before Invoke ---
    void SetAddButtonText (const Kor::UniString& text) { addButtonText = text; }
    const Kor::UniString& GetAddButtonText () const { return addButtonText; }
    // The information line under the list; an empty text shows none.
    void SetInformation (const Wg::Icon& icon, const Kor::UniString& text);
    const Wg::Icon&       GetInformationIcon () const { return informationIcon; }
    const Kor::UniString& GetInformationText () const { return informationText; }
    bool                  HasInformation () const { return !informationText.IsEmpty (); }
    void  SetMaximumHeight (short height) { maximumHeight = height; }
    short GetMaximumHeight () const { return maximumHeight; }
    // 0 places the popup below the anchor, left edges aligned.
    void  SetPlaceDirection (short direction) { placeDirection = direction; }
    short GetPlaceDirection () const { return placeDirection; }
    // Indices that name no group are ignored.
    void SetExpandedGroups (const Kor::HashSet<ItemIndex>& groups);
    const Kor::HashSet<ItemIndex>& GetExpandedGroups () const { return expandedGroups; }
    void SetSortOrder (ItemSortOrder order);

    // Runs the dialog through the installed modal runner; returns whether an entry was picked.
    // A dialog runs once: a later call returns false at once.
    bool Invoke ();
    bool WasPicked () const { return picked; }

    // --- The user's operations (what a backend calls) ---
    BaseItemSelectionData&   GetData () const { return data; }
    const Kor::UniString&    GetSearchText () const { return data.GetSearchText (); }
    Kor::UniString           GetSearchHintText () const { return data.GetSearchHintText (); }
    void                     SetSearchText (const Kor::UniString& text);
    bool                     IsShowingResults () const { return !data.GetSearchText ().IsEmpty (); }
    // The rows shown now (1-based in the numbering of the other operations).
    const std::vector<Row>&  GetRows () const { return rows; }
    // Opens or closes the group of the tree row; false when the row shows no group.
    bool                     SetRowExpanded (int row, bool open);
    // The highlighted row, 0 for none.
    int                      GetHighlightedRow () const { return highlighted; }
    void                     SetHighlightedRow (int row);
    // Up (-1) and Down (+1), stopping at the ends.
    void                     MoveHighlight (int delta);
    // Picks the row's entry and closes; false (and nothing happens) for no row.
    bool                     PickRow (int row);
    bool                     PickHighlighted () { return PickRow (highlighted); }
    void                     CancelByUser ();
    // The flat result list as a list box (one row per result: text and path), for backends.
    Wg::ListBox&             GetResultListBox () const { return *resultList; }

    // --- Wg::ModalSession ---
    Kind                        GetKind () const override { return Kind::Dialog; }
    Wg::Item*                   GetAnchor () const override { return const_cast<Wg::Item*> (anchor); }
    std::vector<Wg::ModalEntry> GetEntries () const override;
    int                         GetInitialEntry () const override;
    void                        Begin () override;
    bool                        Perform (const Wg::ModalStep& step) override;

private:
    void RebuildRows ();
    void FillResultList ();
    int  FindRowByText (const Kor::UniString& text) const;
    ItemIndex FindEntryByText (const Kor::UniString& text) const;

    BaseItemSelectionData&         data;
    const Wg::Item*                anchor;
    Kor::UniString                 addButtonText;
    Wg::Icon                       informationIcon;
    Kor::UniString                 informationText;
    short                          maximumHeight = DefaultMaximumHeight;
    short                          placeDirection = PlaceBelowAnchor;
    Kor::HashSet<ItemIndex>        expandedGroups;
    ItemSortOrder                  sortOrder = AdditionOrder;
    std::vector<Row>               rows;
    int                            highlighted = 0;
    bool                           picked = false;
    std::unique_ptr<Wg::Panel>     resultPanel;
    std::unique_ptr<Wg::ListBox>   resultList;
    Kor::Ref<ListBoxBehaviourBase> behaviour;
};

}   // namespace Rb
