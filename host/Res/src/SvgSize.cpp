#include "Res/SvgSize.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <vector>

#include "Res/ResourceError.hpp"
#include "TextLines.hpp"

namespace Res {

namespace {

constexpr std::size_t MaxShownValueLength = 24;
constexpr int         ViewBoxNumberCount = 4;

bool IsXmlSpace (char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool IsNameChar (char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == ':' ||
           c == '-' || c == '.';
}

std::string Shown (std::string_view text)
{
    if (text.size () > MaxShownValueLength) return "'" + std::string (text.substr (0, MaxShownValueLength)) + "...'";
    return "'" + std::string (text) + "'";
}

// A plain decimal number ("12", "12.5", ".5", "+3"); no exponent, as icons never need one.
std::optional<double> ParseNumber (std::string_view text)
{
    std::size_t at = 0;
    bool        negative = false;
    if (at < text.size () && (text[at] == '+' || text[at] == '-')) negative = text[at++] == '-';
    double value = 0.0;
    bool   digits = false;
    while (at < text.size () && text[at] >= '0' && text[at] <= '9') {
        value = value * 10.0 + (text[at++] - '0');
        digits = true;
    }
    if (at < text.size () && text[at] == '.') {
        ++at;
        double scale = 0.1;
        while (at < text.size () && text[at] >= '0' && text[at] <= '9') {
            value += (text[at++] - '0') * scale;
            scale /= 10.0;
            digits = true;
        }
    }
    if (!digits || at != text.size () || !std::isfinite (value)) return std::nullopt;
    return negative ? -value : value;
}

// Walks the file to the root element's start tag and reads its attributes.
class RootElementReader {
public:
    RootElementReader (const std::string& fileName, std::string_view text) : fileName (fileName), text (text) {}

    std::map<std::string, std::string> ReadRootAttributes ()
    {
        SkipProlog ();
        if (at >= text.size ()) Fail ("no <svg> root element");
        rootLine = line;
        const std::size_t nameStart = at + 1;     // after the '<' that SkipProlog stopped at
        std::size_t nameEnd = nameStart;
        while (nameEnd < text.size () && IsNameChar (text[nameEnd])) ++nameEnd;
        const std::string_view name = text.substr (nameStart, nameEnd - nameStart);
        if (name != "svg") Fail ("the root element is " + Shown (name) + ", not <svg>");
        at = nameEnd;
        std::map<std::string, std::string> attributes;
        while (true) {
            SkipSpace ();
            if (at >= text.size ()) Fail ("unterminated <svg> start tag");
            if (text[at] == '>' || Consume ("/>")) break;
            std::size_t nameEnd = at;
            while (nameEnd < text.size () && IsNameChar (text[nameEnd])) ++nameEnd;
            if (nameEnd == at) Fail ("unexpected character in the <svg> start tag");
            const std::string name (text.substr (at, nameEnd - at));
            at = nameEnd;
            SkipSpace ();
            if (!Consume ("=")) Fail ("attribute " + Shown (name) + " has no value");
            SkipSpace ();
            if (at >= text.size () || (text[at] != '"' && text[at] != '\'')) Fail ("attribute " + Shown (name) + " is not quoted");
            const char quote = text[at++];
            const std::size_t close = text.find (quote, at);
            if (close == std::string_view::npos) Fail ("unterminated value of attribute " + Shown (name));
            const std::string_view value = text.substr (at, close - at);
            line += static_cast<int> (std::count (value.begin (), value.end (), '\n'));
            at = close + 1;
            if (!attributes.emplace (name, std::string (value)).second) Fail ("attribute " + Shown (name) + " appears twice");
        }
        return attributes;
    }

    int GetRootLine () const { return rootLine; }

    [[noreturn]] void FailAtRoot (const std::string& reason) const
    {
        throw ResourceError (fileName, rootLine, reason);
    }

private:
    [[noreturn]] void Fail (const std::string& reason) const
    {
        throw ResourceError (fileName, line, reason);
    }

    bool Consume (std::string_view what)
    {
        if (at > text.size () || text.substr (at, what.size ()) != what) return false;
        at += what.size ();
        return true;
    }

    void SkipSpace ()
    {
        while (at < text.size () && IsXmlSpace (text[at])) {
            if (text[at] == '\n') ++line;
            ++at;
        }
    }

    // Skips up to and including terminator; false when the file ends first.
    bool SkipPast (std::string_view terminator)
    {
        const std::size_t end = text.find (terminator, at);
        if (end == std::string_view::npos) return false;
        line += static_cast<int> (std::count (text.begin () + static_cast<std::ptrdiff_t> (at), text.begin () + static_cast<std::ptrdiff_t> (end), '\n'));
        at = end + terminator.size ();
        return true;
    }

    // XML declaration, processing instructions, comments and a document type declaration.
    void SkipProlog ()
    {
        while (true) {
            SkipSpace ();
            const int startLine = line;
            if (Consume ("<?")) {
                if (!SkipPast ("?>")) throw ResourceError (fileName, startLine, "unterminated processing instruction");
            } else if (Consume ("<!--")) {
                if (!SkipPast ("-->")) throw ResourceError (fileName, startLine, "unterminated comment");
            } else if (Consume ("<!DOCTYPE")) {
                // An internal subset in brackets may contain '>' characters.
                int depth = 0;
                while (at < text.size () && !(text[at] == '>' && depth == 0)) {
                    if (text[at] == '[') ++depth;
                    if (text[at] == ']' && depth > 0) --depth;
                    if (text[at] == '\n') ++line;
                    ++at;
                }
                if (at >= text.size ()) throw ResourceError (fileName, startLine, "unterminated document type declaration");
                ++at;
            } else {
                if (at < text.size () && text[at] != '<') Fail ("text before the <svg> root element");
                return;
            }
        }
    }

    const std::string& fileName;
    std::string_view   text;
    std::size_t        at = 0;
    int                line = 1;
    int                rootLine = 1;
};

int ToSide (const RootElementReader& reader, const std::string& what, double value)
{
    const double rounded = std::round (value);
    if (!(rounded >= 1.0 && rounded <= MaxIconSide))
        reader.FailAtRoot (what + " must be between 1 and " + std::to_string (MaxIconSide) + " pixels");
    return static_cast<int> (rounded);
}

int ReadLength (const RootElementReader& reader, const std::string& name, std::string_view value)
{
    std::string_view number = value;
    while (!number.empty () && IsXmlSpace (number.front ())) number.remove_prefix (1);
    while (!number.empty () && IsXmlSpace (number.back ())) number.remove_suffix (1);
    if (number.size () >= 2 && number.substr (number.size () - 2) == "px") number.remove_suffix (2);
    const std::optional<double> parsed = ParseNumber (number);
    if (!parsed) reader.FailAtRoot (name + " " + Shown (value) + " is not a length in pixels");
    return ToSide (reader, name, *parsed);
}

Gfx::Size ReadViewBox (const RootElementReader& reader, std::string_view value)
{
    std::vector<double> numbers;
    std::size_t at = 0;
    while (at < value.size ()) {
        if (IsXmlSpace (value[at]) || value[at] == ',') {
            ++at;
            continue;
        }
        std::size_t end = at;
        while (end < value.size () && !IsXmlSpace (value[end]) && value[end] != ',') ++end;
        const std::optional<double> parsed = ParseNumber (value.substr (at, end - at));
        if (!parsed) reader.FailAtRoot ("viewBox " + Shown (value) + " is not four numbers");
        numbers.push_back (*parsed);
        at = end;
    }
    if (numbers.size () != ViewBoxNumberCount) reader.FailAtRoot ("viewBox " + Shown (value) + " is not four numbers");
    return Gfx::Size (ToSide (reader, "viewBox width", numbers[2]), ToSide (reader, "viewBox height", numbers[3]));
}

}   // namespace

Gfx::Size ReadSvgSize (const std::string& fileName, std::string_view contents)
{
    // The line check rejects binary data before the element scan looks at it.
    (void) Detail::SplitTextLines (fileName, contents);
    if (contents.substr (0, 3) == "\xEF\xBB\xBF") contents.remove_prefix (3);

    RootElementReader reader (fileName, contents);
    const std::map<std::string, std::string> attributes = reader.ReadRootAttributes ();
    const auto width = attributes.find ("width");
    const auto height = attributes.find ("height");
    if (width != attributes.end () && height != attributes.end ())
        return Gfx::Size (ReadLength (reader, "width", width->second), ReadLength (reader, "height", height->second));
    if (const auto viewBox = attributes.find ("viewBox"); viewBox != attributes.end ())
        return ReadViewBox (reader, viewBox->second);
    reader.FailAtRoot ("the <svg> element has neither width and height nor a viewBox, so the icon has no size");
}

}   // namespace Res
