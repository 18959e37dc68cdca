#pragma once
// Splits the contents of a resource text file into numbered lines after making sure that it is
// text: UTF-8 without NUL bytes or control characters (tabs aside), of a sane size. Anything
// else throws Res::ResourceError naming the file and the line.

#include <cstddef>
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

}   // namespace Res::Detail
