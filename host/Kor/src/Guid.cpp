#include "Kor/Guid.hpp"

#include <random>

namespace Kor {

namespace {

int HexValue (char16_t ch)
{
    if (ch >= u'0' && ch <= u'9') return ch - u'0';
    if (ch >= u'a' && ch <= u'f') return ch - u'a' + 10;
    if (ch >= u'A' && ch <= u'F') return ch - u'A' + 10;
    return -1;
}

}   // namespace

Guid Guid::Generate ()
{
    static std::mt19937_64 engine {std::random_device {}()};
    std::array<std::uint8_t, 16> bytes {};
    for (std::size_t i = 0; i < 16; i += 8) {
        const std::uint64_t r = engine ();
        for (std::size_t k = 0; k < 8; ++k) bytes[i + k] = static_cast<std::uint8_t> (r >> (8 * k));
    }
    bytes[6] = static_cast<std::uint8_t> ((bytes[6] & 0x0F) | 0x40);   // version 4
    bytes[8] = static_cast<std::uint8_t> ((bytes[8] & 0x3F) | 0x80);   // RFC 4122 variant
    return Guid (bytes);
}

std::optional<Guid> Guid::Parse (const UniString& input)
{
    UniString text = input.Trimmed ();
    if (text.GetLength () == 38 && text[0] == u'{' && text[37] == u'}') text = text.GetSubstring (1, 36);
    if (text.GetLength () != 36) return std::nullopt;
    std::array<std::uint8_t, 16> bytes {};
    std::size_t b = 0;
    for (std::size_t i = 0; i < 36;) {
        if (i == 8 || i == 13 || i == 18 || i == 23) {
            if (text[i] != u'-') return std::nullopt;
            ++i;
            continue;
        }
        const int hi = HexValue (text[i]);
        const int lo = HexValue (text[i + 1]);
        if (hi < 0 || lo < 0) return std::nullopt;
        bytes[b++] = static_cast<std::uint8_t> (hi * 16 + lo);
        i += 2;
    }
    return Guid (bytes);
}

Guid Guid::FromString (const UniString& text)
{
    auto guid = Parse (text);
    if (!guid) throw Exception ("Malformed guid: \"" + text.ToUtf8 () + "\"");
    return *guid;
}

UniString Guid::ToUniString () const
{
    static const char digits[] = "0123456789ABCDEF";
    std::string out;
    out.reserve (36);
    for (std::size_t i = 0; i < 16; ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) out += '-';
        out += digits[bytes[i] >> 4];
        out += digits[bytes[i] & 0x0F];
    }
    return UniString (out);
}

bool Guid::IsNull () const
{
    for (std::uint8_t b : bytes)
        if (b != 0) return false;
    return true;
}

std::size_t Guid::GetHash () const
{
    std::uint64_t h = 1469598103934665603ULL;
    for (std::uint8_t b : bytes) {
        h ^= b;
        h *= 1099511628211ULL;
    }
    return static_cast<std::size_t> (h);
}

}   // namespace Kor
