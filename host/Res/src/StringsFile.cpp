#include "Res/StringsFile.hpp"

#include <cstdint>
#include <limits>
#include <optional>

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
constexpr char        Quote = '"';
constexpr char        Escape = '\\';

// The escape as written, when it is printable ASCII; a stray byte of a multi-byte character is
// not copied into the message.
std::string ShownEscape (char c)
{
    if (static_cast<unsigned char> (c) < 0x80) return std::string ("\\") + c;
    return "after a backslash";
}

class Parser {
public:
    explicit Parser (const std::string& fileName) : fileName (fileName) {}

    StringLists Parse (std::string_view contents)
    {
        for (const Detail::TextLine& line : Detail::SplitTextLines (fileName, contents)) {
            lineNumber = line.number;
            const std::string_view text = Trimmed (line.text);
            if (text.empty () || text.front () == CommentMark) continue;
            if (text.front () == SectionOpen)
                StartSection (text);
            else
                AddEntry (text);
        }
        FinishSection ();
        return std::move (lists);
    }

private:
    [[noreturn]] void Fail (const std::string& reason) const
    {
        throw ResourceError (fileName, lineNumber, reason);
    }

    void StartSection (std::string_view text)
    {
        FinishSection ();
        const std::size_t close = text.find (SectionClose);
        if (close == std::string_view::npos) Fail ("unterminated section header: expected ']'");
        const std::string_view idText = Trimmed (text.substr (1, close - 1));
        const std::optional<int> id = ParseNumber (idText, 1, std::numeric_limits<int>::max ());
        if (!id) Fail ("list id " + Shown (idText) + " is not a number from 1 to 2147483647");
        const std::string_view rest = Trimmed (text.substr (close + 1));
        if (!rest.empty () && rest.front () != CommentMark) Fail ("unexpected text after ']': " + Shown (rest));
        if (const auto seen = sectionLines.find (*id); seen != sectionLines.end ())
            Fail ("list " + std::to_string (*id) + " appears twice (first at line " + std::to_string (seen->second) + ")");
        sectionLines.emplace (*id, lineNumber);
        currentList = &lists[*id];
        currentId = *id;
        currentHeaderLine = lineNumber;
        entryLines.clear ();
    }

    void FinishSection ()
    {
        if (currentList != nullptr && currentList->empty ())
            throw ResourceError (fileName, currentHeaderLine, "list " + std::to_string (currentId) + " has no entries");
    }

    void AddEntry (std::string_view text)
    {
        const std::size_t separator = text.find (EntrySeparator);
        if (separator == std::string_view::npos)
            Fail ("expected '[<id>]' or '<index> = <text>', found " + Shown (text));
        const std::string_view indexText = Trimmed (text.substr (0, separator));
        const std::optional<int> index = ParseNumber (indexText, 1, std::numeric_limits<int>::max ());
        if (!index) Fail ("index " + Shown (indexText) + " is not a number from 1 to 2147483647");
        if (currentList == nullptr) Fail ("entry before the first '[<id>]' section");
        if (const auto seen = entryLines.find (*index); seen != entryLines.end ())
            Fail ("index " + std::to_string (*index) + " appears twice in list " + std::to_string (currentId) +
                  " (first at line " + std::to_string (seen->second) + ")");
        entryLines.emplace (*index, lineNumber);
        currentList->emplace (*index, Kor::UniString (ParseText (Trimmed (text.substr (separator + 1)))));
    }

    std::string ParseText (std::string_view text) const
    {
        const bool quoted = !text.empty () && text.front () == Quote;
        if (quoted) text.remove_prefix (1);
        std::string result;
        std::size_t at = 0;
        while (at < text.size ()) {
            const char c = text[at];
            if (quoted && c == Quote) {
                if (!Trimmed (text.substr (at + 1)).empty ()) Fail ("text after the closing quote");
                return result;
            }
            if (c != Escape) {
                result += c;
                ++at;
                continue;
            }
            if (at + 1 >= text.size ()) Fail ("a backslash ends the line; write \\\\ for a backslash");
            switch (text[at + 1]) {
                case 'n':  result += '\n'; break;
                case 't':  result += '\t'; break;
                case '\\': result += '\\'; break;
                case '"':  result += '"'; break;
                default:   Fail ("unknown escape " + ShownEscape (text[at + 1]) + "; use \\n, \\t, \\\\ or \\\"");
            }
            at += 2;
        }
        if (quoted) Fail ("unterminated quoted text: expected a closing '\"'");
        return result;
    }

    const std::string&   fileName;
    int                  lineNumber = 0;
    StringLists          lists;
    std::map<int, int>   sectionLines;      // list id -> line of its header
    std::map<int, int>   entryLines;        // index -> line, in the current list
    StringList*          currentList = nullptr;
    int                  currentId = 0;
    int                  currentHeaderLine = 0;
};

}   // namespace

StringLists ParseStringsFile (const std::string& fileName, std::string_view contents)
{
    return Parser (fileName).Parse (contents);
}

}   // namespace Res
