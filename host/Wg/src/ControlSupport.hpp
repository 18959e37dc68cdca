#pragma once
// Internal helpers of the controls: stepping through UTF-16 text by characters (a surrogate
// pair is one character). No promise beyond this library.

#include <cstddef>

#include "Kor/LifeWatch.hpp"
#include "Kor/UniString.hpp"

namespace Wg::Detail {

inline bool IsHighSurrogate (char16_t ch) { return ch >= 0xD800 && ch <= 0xDBFF; }
inline bool IsLowSurrogate (char16_t ch) { return ch >= 0xDC00 && ch <= 0xDFFF; }

// The length in code units of the character that starts at index (0 at the end of the text).
inline std::size_t CharacterLengthAt (const Kor::UniString& text, std::size_t index)
{
    if (index >= text.GetLength ()) return 0;
    if (IsHighSurrogate (text[index]) && index + 1 < text.GetLength () && IsLowSurrogate (text[index + 1])) return 2;
    return 1;
}

// The start of the character before index (0 at the start of the text).
inline std::size_t PreviousCharacterStart (const Kor::UniString& text, std::size_t index)
{
    if (index == 0) return 0;
    if (index >= 2 && IsLowSurrogate (text[index - 1]) && IsHighSurrogate (text[index - 2])) return index - 2;
    return index - 1;
}

// The text cut to at most maxLength code units, never between the halves of a surrogate pair.
inline Kor::UniString CutToLength (const Kor::UniString& text, std::size_t maxLength)
{
    if (text.GetLength () <= maxLength) return text;
    std::size_t length = maxLength;
    if (length > 0 && IsHighSurrogate (text[length - 1]) && IsLowSurrogate (text[length])) --length;
    return text.GetSubstring (0, length);
}

// A character a user can type into a one-line edit: no control characters.
inline bool IsTypeable (const Kor::UniString& character)
{
    const char16_t first = character[0];
    return !character.IsEmpty () && first >= u' ' && first != u'\x7F';
}

}   // namespace Wg::Detail
