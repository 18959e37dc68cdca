#include "TextLines.hpp"

#include <charconv>
#include <cstdint>
#include <cstdio>

#include "Res/ResourceError.hpp"

namespace Res::Detail {

namespace {

constexpr std::string_view Utf8ByteOrderMark = "\xEF\xBB\xBF";
constexpr unsigned char    TabCharacter = 0x09;
constexpr unsigned char    FirstPrintable = 0x20;
constexpr unsigned char    DeleteCharacter = 0x7F;

std::string ByteText (unsigned char byte)
{
    char buffer[8];
    std::snprintf (buffer, sizeof buffer, "0x%02X", static_cast<unsigned> (byte));
    return buffer;
}

// Length of the valid UTF-8 sequence that starts at text[at], or 0 when it is not valid
// (overlong forms, surrogates and code points above U+10FFFF are not valid).
std::size_t Utf8SequenceLength (std::string_view text, std::size_t at)
{
    const unsigned char lead = static_cast<unsigned char> (text[at]);
    std::size_t length = 0;
    char32_t    minimum = 0;
    char32_t    cp = 0;
    if (lead < 0x80) return 1;
    if ((lead & 0xE0) == 0xC0) { length = 2; minimum = 0x80; cp = lead & 0x1F; }
    else if ((lead & 0xF0) == 0xE0) { length = 3; minimum = 0x800; cp = lead & 0x0F; }
    else if ((lead & 0xF8) == 0xF0) { length = 4; minimum = 0x10000; cp = lead & 0x07; }
    else return 0;
    if (at + length > text.size ()) return 0;
    for (std::size_t k = 1; k < length; ++k) {
        const unsigned char next = static_cast<unsigned char> (text[at + k]);
        if ((next & 0xC0) != 0x80) return 0;
        cp = (cp << 6) | (next & 0x3F);
    }
    if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
    return length;
}

void CheckLine (const std::string& fileName, int lineNumber, std::string_view line)
{
    if (line.size () > MaxLineLength)
        throw ResourceError (fileName, lineNumber, "line is longer than " + std::to_string (MaxLineLength) + " bytes");
    std::size_t at = 0;
    while (at < line.size ()) {
        const unsigned char byte = static_cast<unsigned char> (line[at]);
        const std::string   column = std::to_string (at + 1);
        if (byte == 0)
            throw ResourceError (fileName, lineNumber, "NUL byte at column " + column + ": this is not a text file");
        if ((byte < FirstPrintable && byte != TabCharacter) || byte == DeleteCharacter)
            throw ResourceError (fileName, lineNumber, "control character " + ByteText (byte) + " at column " + column);
        const std::size_t length = Utf8SequenceLength (line, at);
        if (length == 0)
            throw ResourceError (fileName, lineNumber, "byte " + ByteText (byte) + " at column " + column + " is not valid UTF-8");
        at += length;
    }
}

}   // namespace

std::vector<TextLine> SplitTextLines (const std::string& fileName, std::string_view contents)
{
    if (contents.size () > MaxResourceFileSize)
        throw ResourceError (fileName, 1, "file is larger than " + std::to_string (MaxResourceFileSize) + " bytes");
    if (contents.substr (0, Utf8ByteOrderMark.size ()) == Utf8ByteOrderMark)
        contents.remove_prefix (Utf8ByteOrderMark.size ());

    std::vector<TextLine> lines;
    int         lineNumber = 1;
    std::size_t start = 0;
    while (start < contents.size ()) {
        std::size_t end = contents.find ('\n', start);
        const std::size_t next = end == std::string_view::npos ? contents.size () : end + 1;
        if (end == std::string_view::npos) end = contents.size ();
        std::string_view line = contents.substr (start, end - start);
        if (!line.empty () && line.back () == '\r') line.remove_suffix (1);
        CheckLine (fileName, lineNumber, line);
        lines.push_back (TextLine { lineNumber, line });
        ++lineNumber;
        start = next;
    }
    return lines;
}

std::optional<int> ParseNumber (std::string_view text, int minimum, int maximum)
{
    if (text.empty () || text.front () == '+') return std::nullopt;
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars (text.data (), text.data () + text.size (), value);
    if (error != std::errc () || end != text.data () + text.size ()) return std::nullopt;
    if (value < minimum || value > maximum) return std::nullopt;
    return static_cast<int> (value);
}

}   // namespace Res::Detail
