#include "Res/DialogsFile.hpp"

#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

#include "Res/ResourceError.hpp"
#include "TextLines.hpp"

namespace Res {

using Detail::IsBlank;
using Detail::ParseNumber;
using Detail::Shown;
using Detail::Trimmed;

namespace {

constexpr char        CommentMark = '#';
constexpr char        SectionOpen = '[';
constexpr char        SectionClose = ']';
constexpr char        EntrySeparator = '=';
constexpr char        SizeSeparator = 'x';
constexpr int         MaxDialogExtent = std::numeric_limits<short>::max ();
constexpr int         MaxItemIndex = std::numeric_limits<short>::max ();
constexpr std::size_t RectNumberCount = 4;

struct KindName {
    DialogItemKind kind;
    const char*    name;
};

constexpr std::array<KindName, 6> KindNames { {
    { DialogItemKind::Icon, "icon" },
    { DialogItemKind::Text, "text" },
    { DialogItemKind::ListBox, "listbox" },
    { DialogItemKind::Splitter, "splitter" },
    { DialogItemKind::Button, "button" },
    { DialogItemKind::Check, "check" },
} };

// The text before a comment mark, trimmed.
std::string_view WithoutComment (std::string_view text)
{
    return Trimmed (text.substr (0, text.find (CommentMark)));
}

// The blank-separated words of text.
std::vector<std::string_view> Words (std::string_view text)
{
    std::vector<std::string_view> words;
    while (true) {
        text = Trimmed (text);
        if (text.empty ()) return words;
        std::size_t end = 0;
        while (end < text.size () && !IsBlank (text[end])) ++end;
        words.push_back (text.substr (0, end));
        text.remove_prefix (end);
    }
}

std::optional<DialogItemKind> ParseKind (std::string_view text)
{
    for (const KindName& entry : KindNames)
        if (text == entry.name) return entry.kind;
    return std::nullopt;
}

std::string KindList ()
{
    std::string list;
    for (const KindName& entry : KindNames) list += (list.empty () ? "" : ", ") + std::string (entry.name);
    return list;
}

class Parser {
public:
    explicit Parser (const std::string& fileName) : fileName (fileName) {}

    DialogTemplates Parse (std::string_view contents)
    {
        for (const Detail::TextLine& line : Detail::SplitTextLines (fileName, contents)) {
            lineNumber = line.number;
            const std::string_view text = Trimmed (line.text);
            if (text.empty () || text.front () == CommentMark) continue;
            if (text.front () == SectionOpen)
                StartDialog (text);
            else
                AddItem (text);
        }
        return std::move (dialogs);
    }

private:
    [[noreturn]] void Fail (const std::string& reason) const
    {
        throw ResourceError (fileName, lineNumber, reason);
    }

    void StartDialog (std::string_view text)
    {
        const std::size_t close = text.find (SectionClose);
        if (close == std::string_view::npos) Fail ("unterminated dialog header: expected ']'");
        const std::string_view idText = Trimmed (text.substr (1, close - 1));
        const std::optional<int> id = ParseNumber (idText, 1, std::numeric_limits<int>::max ());
        if (!id) Fail ("dialog id " + Shown (idText) + " is not a number from 1 to 2147483647");
        if (const auto seen = dialogLines.find (*id); seen != dialogLines.end ())
            Fail ("dialog " + std::to_string (*id) + " appears twice (first at line " + std::to_string (seen->second) + ")");

        // "<width> x <height>", blanks around the x optional.
        const std::string_view sizeText = WithoutComment (text.substr (close + 1));
        const std::size_t cross = sizeText.find (SizeSeparator);
        if (sizeText.empty () || cross == std::string_view::npos)
            Fail ("expected the dialog's size after ']', like '[" + std::to_string (*id) + "] 380 x 440'");
        const std::string_view widthText = Trimmed (sizeText.substr (0, cross));
        const std::string_view heightText = Trimmed (sizeText.substr (cross + 1));
        const std::optional<int> width = ParseNumber (widthText, 1, MaxDialogExtent);
        const std::optional<int> height = ParseNumber (heightText, 1, MaxDialogExtent);
        if (!width) Fail ("dialog width " + Shown (widthText) + " is not a number from 1 to 32767");
        if (!height) Fail ("dialog height " + Shown (heightText) + " is not a number from 1 to 32767");

        dialogLines.emplace (*id, lineNumber);
        current = &dialogs[*id];
        current->size = Gfx::Size (*width, *height);
        currentId = *id;
        itemLines.clear ();
    }

    void AddItem (std::string_view text)
    {
        const std::size_t separator = text.find (EntrySeparator);
        if (separator == std::string_view::npos)
            Fail ("expected '[<id>] <width> x <height>' or '<index> = <kind> <left> <top> <right> <bottom>', found " + Shown (text));
        const std::string_view indexText = Trimmed (text.substr (0, separator));
        const std::optional<int> index = ParseNumber (indexText, 1, MaxItemIndex);
        if (!index) Fail ("item index " + Shown (indexText) + " is not a number from 1 to 32767");
        if (current == nullptr) Fail ("item before the first '[<id>]' dialog");
        if (const auto seen = itemLines.find (*index); seen != itemLines.end ())
            Fail ("item " + std::to_string (*index) + " appears twice in dialog " + std::to_string (currentId) +
                  " (first at line " + std::to_string (seen->second) + ")");

        const std::vector<std::string_view> words = Words (WithoutComment (text.substr (separator + 1)));
        if (words.size () != 1 + RectNumberCount)
            Fail ("expected '<kind> <left> <top> <right> <bottom>' after '=', found " + std::to_string (words.size ()) + " words");
        const std::optional<DialogItemKind> kind = ParseKind (words[0]);
        if (!kind) Fail ("unknown item kind " + Shown (words[0]) + "; use one of " + KindList ());

        std::array<int, RectNumberCount> edges {};
        for (std::size_t i = 0; i < RectNumberCount; ++i) {
            const std::optional<int> value = ParseNumber (words[i + 1], 0, MaxDialogExtent);
            if (!value) Fail ("coordinate " + Shown (words[i + 1]) + " is not a number from 0 to 32767");
            edges[i] = *value;
        }
        const Gfx::Rect rect (edges[0], edges[1], edges[2], edges[3]);
        if (rect.left > rect.right || rect.top > rect.bottom) Fail ("the rectangle's left or top lies beyond its right or bottom");
        if (rect.right > current->size.width || rect.bottom > current->size.height)
            Fail ("item " + std::to_string (*index) + " reaches outside the dialog's " + std::to_string (current->size.width) + " x " +
                  std::to_string (current->size.height));

        itemLines.emplace (*index, lineNumber);
        DialogItem item { static_cast<short> (*index), *kind, rect };
        // Items are kept in index order, whatever the file's order.
        auto at = current->items.begin ();
        while (at != current->items.end () && at->index < item.index) ++at;
        current->items.insert (at, item);
    }

    const std::string&  fileName;
    int                 lineNumber = 0;
    DialogTemplates     dialogs;
    std::map<int, int>  dialogLines;    // dialog id -> line of its header
    std::map<int, int>  itemLines;      // index -> line, in the current dialog
    DialogTemplate*     current = nullptr;
    int                 currentId = 0;
};

}   // namespace

const DialogItem* DialogTemplate::FindItem (short index) const
{
    for (const DialogItem& item : items)
        if (item.index == index) return &item;
    return nullptr;
}

DialogTemplates ParseDialogsFile (const std::string& fileName, std::string_view contents)
{
    return Parser (fileName).Parse (contents);
}

const char* GetDialogItemKindName (DialogItemKind kind)
{
    for (const KindName& entry : KindNames)
        if (entry.kind == kind) return entry.name;
    return "";
}

}   // namespace Res
