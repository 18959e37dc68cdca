#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"

#include <algorithm>

#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace Rb {

namespace {

// The result list lives on a panel of its own, the size of the popup's list area.
constexpr short ResultPanelWidth = AutoClosingSingleItemSelectionDialog::DefaultWidth;
constexpr short ResultPanelHeight = AutoClosingSingleItemSelectionDialog::DefaultMaximumHeight;
constexpr short ResultTextColumnWidth = 220;

}   // namespace

Wg::ModalStep MakeChooseByTextStep (const Kor::UniString& treeViewText)
{
    return Wg::ModalStep {Wg::ModalStep::Choose, 0, true, treeViewText};
}

Wg::ModalStep MakeExpandByTextStep (const Kor::UniString& treeViewText, bool open)
{
    return Wg::ModalStep {Wg::ModalStep::Expand, 0, open, treeViewText};
}

AutoClosingSingleItemSelectionDialog::AutoClosingSingleItemSelectionDialog (BaseItemSelectionData& data, const Wg::Item* anchor)
    : data (data), anchor (anchor),
      resultPanel (std::make_unique<Wg::Panel> (Wg::Rect (0, 0, ResultPanelWidth, ResultPanelHeight))),
      resultList (std::make_unique<Wg::ListBox> (*resultPanel, Wg::Rect (0, 0, ResultPanelWidth, ResultPanelHeight)))
{
    resultList->SetTabFieldCount (ResultColumnCount);
    resultList->SetTabFieldBeginEndPosition (ResultTextColumn, 0, ResultTextColumnWidth);
    resultList->SetTabFieldBeginEndPosition (ResultPathColumn, ResultTextColumnWidth, ResultPanelWidth);
}

AutoClosingSingleItemSelectionDialog::~AutoClosingSingleItemSelectionDialog ()
{
    // The behaviour refers to the list box: it goes first.
    behaviour.Clear ();
}

void AutoClosingSingleItemSelectionDialog::SetInformation (const Wg::Icon& icon, const Kor::UniString& text)
{
    informationIcon = icon;
    informationText = text;
}

void AutoClosingSingleItemSelectionDialog::SetExpandedGroups (const Kor::HashSet<ItemIndex>& groups)
{
    expandedGroups.Clear ();
    for (ItemIndex index : groups)
        if (data.IsGroup (index)) expandedGroups.Add (index);
    RebuildRows ();
}

void AutoClosingSingleItemSelectionDialog::SetSortOrder (ItemSortOrder order)
{
    sortOrder = order;
    data.SetSearchOrder (order);
    RebuildRows ();
}

bool AutoClosingSingleItemSelectionDialog::Invoke ()
{
    if (HasEnded ()) return false;
    picked = false;
    Wg::RunModal (*this);
    return picked;
}

void AutoClosingSingleItemSelectionDialog::Begin ()
{
    if (behaviour.IsNull ()) behaviour = data.CreateListBoxBehaviour (*resultList);
    RebuildRows ();
}

void AutoClosingSingleItemSelectionDialog::SetSearchText (const Kor::UniString& text)
{
    data.SetSearchText (text);
    RebuildRows ();
}

void AutoClosingSingleItemSelectionDialog::RebuildRows ()
{
    rows.clear ();
    if (IsShowingResults ()) {
        const ListBoxBehaviourBase* rowBehaviour = behaviour.Get ();
        for (const SearchResult& result : data.GetSearchResults ()) {
            Row row;
            row.index = result.index;
            row.isGroup = data.IsGroup (result.index);
            row.text = data.GetItemTreeViewText (result.index);
            row.matchBegin = result.matchBegin;
            row.matchLength = result.matchLength;
            if (rowBehaviour != nullptr) {
                row.path = rowBehaviour->GetResultPath (data, result.index);
                row.icon = rowBehaviour->GetResultIcon (data, result.index);
            } else {
                row.icon = data.GetItemIcon (result.index);
            }
            rows.push_back (std::move (row));
        }
        // Return picks the best match without the mouse.
        highlighted = rows.empty () ? 0 : 1;
    } else {
        // Only the rows under open groups show.
        const std::vector<ItemIndex> order = data.GetTreeOrder (sortOrder);
        // The tree order lists every entry parents first; an entry shows when all its ancestors are open.
        std::vector<char> shown (data.GetItemCount (), 0);
        for (ItemIndex index : order) {
            const ItemIndex parent = data.GetParentIndex (index);
            const bool visible = parent == NoParentIndex ||
                                 (shown[static_cast<std::size_t> (parent)] != 0 && expandedGroups.Contains (parent));
            if (!visible) continue;
            shown[static_cast<std::size_t> (index)] = 1;
            Row row;
            row.index = index;
            for (ItemIndex p = parent; p != NoParentIndex; p = data.GetParentIndex (p)) ++row.level;
            row.isGroup = data.IsGroup (index);
            row.expanded = row.isGroup && expandedGroups.Contains (index);
            row.text = data.GetItemTreeViewText (index);
            row.icon = data.GetItemIcon (index);
            rows.push_back (std::move (row));
        }
        highlighted = GetInitialEntry ();
    }
    FillResultList ();
}

void AutoClosingSingleItemSelectionDialog::FillResultList ()
{
    Wg::ListBox& list = *resultList;
    list.DeleteAllItems ();
    if (!IsShowingResults () || behaviour.IsNull ()) return;
    // The rows hold what the behaviour said of each result already.
    for (const Row& result : rows) {
        const short row = list.AppendItem ();
        if (row == Wg::ListBox::NoRow) break;   // the list box is full; the rows still hold every result
        list.SetTabItemText (row, ResultTextColumn, behaviour->GetResultText (data, result.index));
        list.SetTabItemIcon (row, ResultTextColumn, result.icon);
        list.SetTabItemText (row, ResultPathColumn, result.path);
    }
}

bool AutoClosingSingleItemSelectionDialog::SetRowExpanded (int row, bool open)
{
    if (IsShowingResults () || row < 1 || row > static_cast<int> (rows.size ())) return false;
    const Row& target = rows[static_cast<std::size_t> (row - 1)];
    if (!target.isGroup) return false;
    if (open)
        expandedGroups.Add (target.index);
    else
        expandedGroups.Delete (target.index);
    const ItemIndex keep = target.index;
    RebuildRows ();
    // The highlight stays on the row that was opened or closed.
    for (std::size_t i = 0; i < rows.size (); ++i)
        if (rows[i].index == keep) highlighted = static_cast<int> (i + 1);
    return true;
}

void AutoClosingSingleItemSelectionDialog::SetHighlightedRow (int row)
{
    highlighted = (row >= 1 && row <= static_cast<int> (rows.size ())) ? row : 0;
}

void AutoClosingSingleItemSelectionDialog::MoveHighlight (int delta)
{
    if (rows.empty ()) return;
    const int count = static_cast<int> (rows.size ());
    if (highlighted == 0) {
        highlighted = delta > 0 ? 1 : count;
        return;
    }
    highlighted = std::clamp (highlighted + delta, 1, count);
}

bool AutoClosingSingleItemSelectionDialog::PickRow (int row)
{
    if (HasEnded () || row < 1 || row > static_cast<int> (rows.size ())) return false;
    picked = true;
    MarkEnded ();
    data.ChooseItem (rows[static_cast<std::size_t> (row - 1)].index);
    return true;
}

void AutoClosingSingleItemSelectionDialog::CancelByUser ()
{
    MarkEnded ();
}

std::vector<Wg::ModalEntry> AutoClosingSingleItemSelectionDialog::GetEntries () const
{
    std::vector<Wg::ModalEntry> entries;
    entries.reserve (rows.size ());
    const int initial = GetInitialEntry ();
    for (std::size_t i = 0; i < rows.size (); ++i) {
        Wg::ModalEntry entry;
        entry.text = rows[i].text;
        entry.icon = rows[i].icon;
        entry.level = rows[i].level;
        entry.checked = static_cast<int> (i + 1) == initial;
        entries.push_back (std::move (entry));
    }
    return entries;
}

int AutoClosingSingleItemSelectionDialog::GetInitialEntry () const
{
    const Kor::Array<ItemIndex>& selected = data.GetSelectedItemIndices ();
    if (selected.size () != 1) return 0;
    for (std::size_t i = 0; i < rows.size (); ++i)
        if (rows[i].index == selected[0]) return static_cast<int> (i + 1);
    return 0;
}

int AutoClosingSingleItemSelectionDialog::FindRowByText (const Kor::UniString& text) const
{
    for (std::size_t i = 0; i < rows.size (); ++i)
        if (rows[i].text == text) return static_cast<int> (i + 1);
    return 0;
}

ItemIndex AutoClosingSingleItemSelectionDialog::FindEntryByText (const Kor::UniString& text) const
{
    for (std::size_t i = 0; i < data.GetItemCount (); ++i)
        if (data.GetItemTreeViewText (static_cast<ItemIndex> (i)) == text) return static_cast<ItemIndex> (i);
    return NoParentIndex;
}

bool AutoClosingSingleItemSelectionDialog::Perform (const Wg::ModalStep& step)
{
    switch (step.op) {
        case Wg::ModalStep::Search:
            SetSearchText (step.text);
            break;
        case Wg::ModalStep::Type: {
            // One keystroke at a time, as a user types.
            Kor::UniString text = data.GetSearchText ();
            for (char16_t ch : step.text.GetUtf16 ()) {
                text += ch;
                SetSearchText (text);
            }
            break;
        }
        case Wg::ModalStep::Expand:
            SetRowExpanded (step.text.IsEmpty () ? step.entry : FindRowByText (step.text), step.flag);
            break;
        case Wg::ModalStep::Track:
            SetHighlightedRow (step.entry);
            break;
        case Wg::ModalStep::Accept:
            PickHighlighted ();
            break;
        case Wg::ModalStep::Choose:
            if (step.text.IsEmpty ()) {
                PickRow (step.entry);
            } else if (const int row = FindRowByText (step.text); row > 0) {
                PickRow (row);
            } else if (const ItemIndex index = FindEntryByText (step.text); index != NoParentIndex) {
                // An entry under a closed group is still picked by its text, as a user would reach it.
                picked = true;
                MarkEnded ();
                data.ChooseItem (index);
            }
            break;
        case Wg::ModalStep::Cancel:
            CancelByUser ();
            break;
        default:
            break;
    }
    return HasEnded ();
}

}   // namespace Rb
