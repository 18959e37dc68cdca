#include "Kor/UniString.hpp"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ostream>

namespace Kor {

namespace {

// Decodes UTF-8; malformed bytes become U+FFFD so that bad input never throws or truncates.
std::u16string DecodeUtf8 (std::string_view in)
{
    std::u16string out;
    out.reserve (in.size ());
    std::size_t i = 0;
    while (i < in.size ()) {
        const unsigned char c = static_cast<unsigned char> (in[i]);
        char32_t cp = 0xFFFD;
        std::size_t extra = 0;
        if (c < 0x80) {
            cp = c;
        } else if ((c & 0xE0) == 0xC0) {
            cp = c & 0x1F; extra = 1;
        } else if ((c & 0xF0) == 0xE0) {
            cp = c & 0x0F; extra = 2;
        } else if ((c & 0xF8) == 0xF0) {
            cp = c & 0x07; extra = 3;
        } else {
            out += u'\uFFFD';
            ++i;
            continue;
        }
        bool ok = true;
        for (std::size_t k = 1; k <= extra; ++k) {
            if (i + k >= in.size ()) { ok = false; break; }
            const unsigned char cc = static_cast<unsigned char> (in[i + k]);
            if ((cc & 0xC0) != 0x80) { ok = false; break; }
            cp = (cp << 6) | (cc & 0x3F);
        }
        if (!ok) {
            out += u'\uFFFD';
            ++i;
            continue;
        }
        i += extra + 1;
        if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) cp = 0xFFFD;
        if (cp >= 0x10000) {
            cp -= 0x10000;
            out += static_cast<char16_t> (0xD800 + (cp >> 10));
            out += static_cast<char16_t> (0xDC00 + (cp & 0x3FF));
        } else {
            out += static_cast<char16_t> (cp);
        }
    }
    return out;
}

void AppendUtf8 (std::string& out, char32_t cp)
{
    if (cp < 0x80) {
        out += static_cast<char> (cp);
    } else if (cp < 0x800) {
        out += static_cast<char> (0xC0 | (cp >> 6));
        out += static_cast<char> (0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char> (0xE0 | (cp >> 12));
        out += static_cast<char> (0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char> (0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char> (0xF0 | (cp >> 18));
        out += static_cast<char> (0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char> (0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char> (0x80 | (cp & 0x3F));
    }
}

}   // namespace

UniString::UniString (const char* utf8) : chars (utf8 != nullptr ? DecodeUtf8 (utf8) : std::u16string ()) {}

UniString::UniString (std::string_view utf8) : chars (DecodeUtf8 (utf8)) {}

UniString::UniString (const char16_t* utf16) : chars (utf16 != nullptr ? std::u16string (utf16) : std::u16string ()) {}

std::string UniString::ToUtf8 () const
{
    std::string out;
    out.reserve (chars.size ());
    for (std::size_t i = 0; i < chars.size (); ++i) {
        char32_t cp = chars[i];
        if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < chars.size () && chars[i + 1] >= 0xDC00 && chars[i + 1] <= 0xDFFF) {
            cp = 0x10000 + ((cp - 0xD800) << 10) + (chars[i + 1] - 0xDC00);
            ++i;
        } else if (cp >= 0xD800 && cp <= 0xDFFF) {
            cp = 0xFFFD;
        }
        AppendUtf8 (out, cp);
    }
    return out;
}

char16_t UniString::ToLower (char16_t ch)
{
    if (ch < 0x80) return (ch >= u'A' && ch <= u'Z') ? char16_t (ch + 32) : ch;
    if ((ch >= 0xC0 && ch <= 0xDE && ch != 0xD7) || (ch >= 0x391 && ch <= 0x3AB && ch != 0x3A2) || (ch >= 0x410 && ch <= 0x42F))
        return char16_t (ch + 32);
    if (ch >= 0x400 && ch <= 0x40F) return char16_t (ch + 80);
    if (ch >= 0x100 && ch <= 0x17F && ch != 0x130 && ch != 0x131 && ch != 0x138 && ch != 0x149 && ch != 0x178) {
        // Latin Extended-A pairs: upper case on even code points, except the block 0x139..0x148
        // and 0x179..0x17E, where upper case is odd.
        const bool oddUpper = (ch >= 0x139 && ch <= 0x148) || (ch >= 0x179 && ch <= 0x17E);
        if (oddUpper ? (ch % 2 == 1) : (ch % 2 == 0)) return char16_t (ch + 1);
    }
    if (ch == 0x178) return 0xFF;
    return ch;
}

char16_t UniString::ToUpper (char16_t ch)
{
    if (ch < 0x80) return (ch >= u'a' && ch <= u'z') ? char16_t (ch - 32) : ch;
    if ((ch >= 0xE0 && ch <= 0xFE && ch != 0xF7) || (ch >= 0x3B1 && ch <= 0x3CB && ch != 0x3C2) || (ch >= 0x430 && ch <= 0x44F))
        return char16_t (ch - 32);
    if (ch >= 0x450 && ch <= 0x45F) return char16_t (ch - 80);
    if (ch >= 0x100 && ch <= 0x17F && ch != 0x130 && ch != 0x131 && ch != 0x138 && ch != 0x149) {
        const bool oddUpper = (ch >= 0x139 && ch <= 0x148) || (ch >= 0x179 && ch <= 0x17E);
        if (oddUpper ? (ch % 2 == 0) : (ch % 2 == 1)) return char16_t (ch - 1);
    }
    if (ch == 0xFF) return 0x178;
    return ch;
}

bool UniString::IsWhiteSpace (char16_t ch)
{
    return ch == u' ' || ch == u'\t' || ch == u'\n' || ch == u'\r' || ch == u'\v' || ch == u'\f' || ch == 0xA0 ||
           ch == 0x1680 || (ch >= 0x2000 && ch <= 0x200A) || ch == 0x2028 || ch == 0x2029 || ch == 0x202F ||
           ch == 0x205F || ch == 0x3000 || ch == 0xFEFF;
}

int UniString::Compare (const UniString& other, CaseComparison mode) const
{
    const std::size_t n = std::min (chars.size (), other.chars.size ());
    for (std::size_t i = 0; i < n; ++i) {
        char16_t a = chars[i];
        char16_t b = other.chars[i];
        if (mode == CaseInsensitive) {
            a = ToLower (a);
            b = ToLower (b);
        }
        if (a != b) return a < b ? -1 : 1;
    }
    if (chars.size () == other.chars.size ()) return 0;
    return chars.size () < other.chars.size () ? -1 : 1;
}

std::size_t UniString::FindFirst (const UniString& what, std::size_t from, CaseComparison mode) const
{
    if (mode == CaseSensitive) return chars.find (what.chars, from);
    if (what.chars.size () > chars.size ()) return MaxIndex;
    for (std::size_t i = from; i + what.chars.size () <= chars.size (); ++i) {
        bool match = true;
        for (std::size_t k = 0; k < what.chars.size (); ++k) {
            if (ToLower (chars[i + k]) != ToLower (what.chars[k])) { match = false; break; }
        }
        if (match) return i;
    }
    return MaxIndex;
}

bool UniString::BeginsWith (const UniString& prefix) const
{
    return chars.size () >= prefix.chars.size () && chars.compare (0, prefix.chars.size (), prefix.chars) == 0;
}

bool UniString::EndsWith (const UniString& suffix) const
{
    return chars.size () >= suffix.chars.size () &&
           chars.compare (chars.size () - suffix.chars.size (), suffix.chars.size (), suffix.chars) == 0;
}

UniString UniString::GetSubstring (std::size_t from, std::size_t count) const
{
    if (from >= chars.size ()) return UniString ();
    return UniString (chars.substr (from, count));
}

UniString& UniString::Insert (std::size_t at, const UniString& what)
{
    chars.insert (std::min (at, chars.size ()), what.chars);
    return *this;
}

UniString& UniString::Delete (std::size_t from, std::size_t count)
{
    if (from < chars.size ()) chars.erase (from, count);
    return *this;
}

bool UniString::ReplaceFirst (const UniString& what, const UniString& with)
{
    if (what.IsEmpty ()) return false;
    const std::size_t pos = chars.find (what.chars);
    if (pos == std::u16string::npos) return false;
    chars.replace (pos, what.chars.size (), with.chars);
    return true;
}

std::size_t UniString::ReplaceAll (const UniString& what, const UniString& with)
{
    if (what.IsEmpty ()) return 0;
    std::size_t count = 0;
    std::size_t pos = 0;
    while ((pos = chars.find (what.chars, pos)) != std::u16string::npos) {
        chars.replace (pos, what.chars.size (), with.chars);
        pos += with.chars.size ();
        ++count;
    }
    return count;
}

UniString& UniString::TrimLeft ()
{
    std::size_t i = 0;
    while (i < chars.size () && IsWhiteSpace (chars[i])) ++i;
    chars.erase (0, i);
    return *this;
}

UniString& UniString::TrimRight ()
{
    std::size_t n = chars.size ();
    while (n > 0 && IsWhiteSpace (chars[n - 1])) --n;
    chars.resize (n);
    return *this;
}

UniString& UniString::Trim ()
{
    TrimRight ();
    return TrimLeft ();
}

UniString UniString::ToUpperCase () const
{
    UniString s (*this);
    for (char16_t& ch : s.chars) ch = ToUpper (ch);
    return s;
}

UniString UniString::ToLowerCase () const
{
    UniString s (*this);
    for (char16_t& ch : s.chars) ch = ToLower (ch);
    return s;
}

std::optional<std::int64_t> UniString::ToInteger () const
{
    const std::string text = Trimmed ().ToUtf8 ();
    if (text.empty ()) return std::nullopt;
    errno = 0;
    char* end = nullptr;
    const long long v = std::strtoll (text.c_str (), &end, 10);
    if (errno != 0 || end == nullptr || *end != '\0') return std::nullopt;
    return static_cast<std::int64_t> (v);
}

std::optional<double> UniString::ToDouble () const
{
    const std::string text = Trimmed ().ToUtf8 ();
    if (text.empty ()) return std::nullopt;
    errno = 0;
    char* end = nullptr;
    const double v = std::strtod (text.c_str (), &end);
    if (errno == ERANGE || end == nullptr || *end != '\0') return std::nullopt;
    return v;
}

UniString UniString::FormatList (const char* format, const Argument* args, std::size_t count)
{
    if (format == nullptr) return UniString ();
    std::string out;
    std::size_t next = 0;
    const char* p = format;
    auto takeArg = [&] () -> const Argument* { return next < count ? &args[next++] : nullptr; };
    auto asInt = [] (const Argument& a) -> std::int64_t {
        if (auto v = std::get_if<std::int64_t> (&a)) return *v;
        if (auto v = std::get_if<std::uint64_t> (&a)) return static_cast<std::int64_t> (*v);
        if (auto v = std::get_if<double> (&a)) return std::isfinite (*v) ? static_cast<std::int64_t> (*v) : 0;
        return 0;
    };
    auto asDouble = [] (const Argument& a) -> double {
        if (auto v = std::get_if<double> (&a)) return *v;
        if (auto v = std::get_if<std::int64_t> (&a)) return static_cast<double> (*v);
        if (auto v = std::get_if<std::uint64_t> (&a)) return static_cast<double> (*v);
        return 0.0;
    };
    while (*p != '\0') {
        if (*p != '%') {
            out += *p++;
            continue;
        }
        const char* specStart = p++;
        if (*p == '%') {
            out += '%';
            ++p;
            continue;
        }
        std::string flags;
        while (*p != '\0' && std::string_view ("-+ #0").find (*p) != std::string_view::npos) flags += *p++;
        std::string width;
        if (*p == '*') {
            const Argument* a = takeArg ();
            width = std::to_string (a != nullptr ? std::clamp<std::int64_t> (asInt (*a), -512, 512) : 0);
            ++p;
        } else {
            while (*p >= '0' && *p <= '9') width += *p++;
        }
        std::string precision;
        bool hasPrecision = false;
        if (*p == '.') {
            hasPrecision = true;
            ++p;
            while (*p >= '0' && *p <= '9') precision += *p++;
        }
        while (*p == 'l' || *p == 'h' || *p == 'z' || *p == 'j' || *p == 't' || *p == 'L' || *p == 'q') ++p;
        const char conv = *p;
        if (conv == '\0') {
            out.append (specStart);
            break;
        }
        ++p;
        // Width and precision are capped so that a hostile format cannot ask for gigabytes.
        if (width.size () > 3) width = "512";
        if (precision.size () > 2) precision = "99";
        const std::string base = "%" + flags + width + (hasPrecision ? "." + precision : "");
        char buffer[1200];
        const Argument* a = nullptr;
        switch (conv) {
            case 'd': case 'i': {
                a = takeArg ();
                std::snprintf (buffer, sizeof buffer, (base + "lld").c_str (), static_cast<long long> (a ? asInt (*a) : 0));
                if (a) out += buffer;
                break;
            }
            case 'u': case 'x': case 'X': case 'o': {
                a = takeArg ();
                std::snprintf (buffer, sizeof buffer, (base + "ll" + conv).c_str (), static_cast<unsigned long long> (a ? asInt (*a) : 0));
                if (a) out += buffer;
                break;
            }
            case 'c': {
                a = takeArg ();
                if (a) {
                    std::u16string one (1, static_cast<char16_t> (asInt (*a)));
                    out += UniString (one).ToUtf8 ();
                }
                break;
            }
            case 'f': case 'F': case 'e': case 'E': case 'g': case 'G': {
                a = takeArg ();
                std::snprintf (buffer, sizeof buffer, (base + conv).c_str (), a ? asDouble (*a) : 0.0);
                if (a) out += buffer;
                break;
            }
            case 's': case 'T': {
                a = takeArg ();
                std::string text;
                if (a) {
                    if (auto s = std::get_if<const char*> (a)) text = *s != nullptr ? *s : "";
                    else if (auto u = std::get_if<const UniString*> (a)) text = *u != nullptr ? (*u)->ToUtf8 () : "";
                }
                std::snprintf (buffer, sizeof buffer, (base + "s").c_str (), "");
                const std::size_t pad = std::string_view (buffer).size ();
                if (text.size () >= pad || pad == 0) {
                    out += text;
                } else if (flags.find ('-') != std::string::npos) {
                    out += text;
                    out.append (pad - text.size (), ' ');
                } else {
                    out.append (pad - text.size (), ' ');
                    out += text;
                }
                break;
            }
            default:
                out.append (specStart, p);
                break;
        }
    }
    return UniString (out);
}

std::ostream& operator<< (std::ostream& os, const UniString& s)
{
    return os << s.ToUtf8 ();
}

}   // namespace Kor
