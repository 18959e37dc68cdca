#pragma once
// Splits the contents of a resource text file into numbered lines after making sure that it is
// text: UTF-8 without NUL bytes or control characters (tabs aside), of a sane size. Anything
// else throws Res::ResourceError naming the file and the line.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Res::Detail {

// Limits that keep a corrupt or hostile file from exhausting memory.
constexpr std::size_t MaxResourceFileSize = 4 * 1024 * 1024;
constexpr std::size_t MaxLineLength = 64 * 1024;

struct TextLine {
    int              number = 0;    // 1-based
    std::string_view text;          // without the line break; a trailing carriage return is dropped
};

// The returned views point into contents. A leading UTF-8 byte order mark is skipped.
std::vector<TextLine> SplitTextLines (const std::string& fileName, std::string_view contents);

// A decimal number, optionally negative, digits only, within [minimum, maximum].
std::optional<int> ParseNumber (std::string_view text, int minimum, int maximum);

// How much of a bad word an error message shows.
constexpr std::size_t MaxShownLength = 24;

inline bool IsBlank (char c)
{
    return c == ' ' || c == '\t';
}

// The text without blanks (spaces, tabs) at either end.
inline std::string_view Trimmed (std::string_view text)
{
    while (!text.empty () && IsBlank (text.front ())) text.remove_prefix (1);
    while (!text.empty () && IsBlank (text.back ())) text.remove_suffix (1);
    return text;
}

// A word of the file as an error message quotes it, cut after MaxShownLength characters.
inline std::string Shown (std::string_view text)
{
    if (text.size () > MaxShownLength) return "'" + std::string (text.substr (0, MaxShownLength)) + "...'";
    return "'" + std::string (text) + "'";
}

}   // namespace Res::Detail
