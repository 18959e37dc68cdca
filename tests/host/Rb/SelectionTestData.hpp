#pragma once
// A small item selection data for the dialog tests: entries with a text and optional extra
// search words, and a dump of what a dialog shows.

#include <string>
#include <vector>

#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"
#include "Rb/BaseItemSelectionData.hpp"

namespace RbTest {

class TextData : public Rb::BaseItemSelectionData {
public:
    // Adds a group or an item under parent (-1: top level) and returns its index.
    Rb::ItemIndex Group (Rb::ItemIndex parent, const std::string& text) { return Add (parent, text, true, {}); }
    Rb::ItemIndex Item (Rb::ItemIndex parent, const std::string& text, const std::string& keywords = {})
    {
        return Add (parent, text, false, keywords);
    }

    Kor::UniString GetItemTreeViewText (Rb::ItemIndex index) const override
    {
        return IsValidIndex (index) ? Kor::UniString (texts[static_cast<std::size_t> (index)]) : Kor::UniString ();
    }
    Kor::UniString GetItemListBoxTextByColumn (short, Rb::ItemIndex index) const override { return GetItemTreeViewText (index); }
    void CollectItemStringsForSearchComparison (Rb::ItemIndex index, Kor::Array<Kor::UniString>& strings) const override
    {
        strings.Push (GetItemTreeViewText (index));
        if (!keywords[static_cast<std::size_t> (index)].empty ()) strings.Push (Kor::UniString (keywords[static_cast<std::size_t> (index)]));
    }

    // "text" of each selected index.
    std::string Selected () const
    {
        std::string out;
        for (Rb::ItemIndex index : GetSelectedItemIndices ()) out += (out.empty () ? "" : " ") + GetItemTreeViewText (index).ToUtf8 ();
        return out;
    }

private:
    Rb::ItemIndex Add (Rb::ItemIndex parent, const std::string& text, bool group, const std::string& words)
    {
        const Rb::AvailableItemData data (parent, {});
        const Rb::ItemIndex index = group ? AddGroup (data) : AddItem (data);
        if (index >= 0) {
            texts.push_back (text);
            keywords.push_back (words);
        }
        return index;
    }

    std::vector<std::string> texts;
    std::vector<std::string> keywords;
};

// The rows of a dialog: "+" open group, "-" closed group, two blanks per level; results show
// the match in [brackets] and the path after "@"; "*" marks the highlighted row.
inline std::string DumpRows (const Rb::AutoClosingSingleItemSelectionDialog& dialog)
{
    std::string out;
    int number = 0;
    for (const auto& row : dialog.GetRows ()) {
        ++number;
        if (!out.empty ()) out += " | ";
        if (number == dialog.GetHighlightedRow ()) out += "*";
        out += std::string (static_cast<std::size_t> (row.level) * 2, ' ');
        if (row.isGroup && !dialog.IsShowingResults ()) out += row.expanded ? "+" : "-";
        std::u16string text = row.text.GetUtf16 ();
        if (row.matchBegin != std::u16string::npos) {
            text.insert (row.matchBegin + row.matchLength, u"]");
            text.insert (row.matchBegin, u"[");
        }
        out += Kor::UniString (text).ToUtf8 ();
        if (!row.path.IsEmpty ()) out += " @" + row.path.ToUtf8 ();
    }
    return out;
}

}   // namespace RbTest
