#pragma once
// Kor::UniString: the foundation library's Unicode string, UTF-16 code units like the host's
// text controls. Lengths and positions count code units. Construction from char strings reads
// UTF-8.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <type_traits>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace Kor {

class UniString {
public:
    using Char = char16_t;
    static constexpr std::size_t MaxIndex = std::u16string::npos;

    // The comparison modes of Compare and IsEqual.
    enum CaseComparison { CaseInsensitive = 0, CaseSensitive = 1 };

    UniString () = default;
    UniString (const char* utf8);
    UniString (std::string_view utf8);
    UniString (const std::string& utf8) : UniString (std::string_view (utf8)) {}
    UniString (const char16_t* utf16);
    UniString (std::u16string utf16) : chars (std::move (utf16)) {}
    UniString (std::size_t count, char16_t ch) : chars (count, ch) {}

    static UniString FromUtf8 (std::string_view utf8) { return UniString (utf8); }
    std::string      ToUtf8 () const;
    const std::u16string& GetUtf16 () const { return chars; }

    std::size_t GetLength () const { return chars.size (); }
    bool        IsEmpty () const { return chars.empty (); }
    void        Clear () { chars.clear (); }
    char16_t    operator[] (std::size_t index) const { return index < chars.size () ? chars[index] : u'\0'; }

    UniString& Append (const UniString& other) { chars += other.chars; return *this; }
    UniString& Append (char16_t ch) { chars += ch; return *this; }
    UniString& operator+= (const UniString& other) { return Append (other); }
    UniString& operator+= (char16_t ch) { return Append (ch); }
    UniString& operator+= (const char* utf8) { return Append (UniString (utf8)); }

    // Ordering: negative, 0 or positive. CaseInsensitive folds letters before comparing.
    int  Compare (const UniString& other, CaseComparison mode = CaseSensitive) const;
    bool IsEqual (const UniString& other, CaseComparison mode = CaseSensitive) const { return Compare (other, mode) == 0; }

    bool operator== (const UniString& other) const { return chars == other.chars; }
    bool operator!= (const UniString& other) const { return chars != other.chars; }
    bool operator<  (const UniString& other) const { return chars < other.chars; }
    bool operator== (const char* utf8) const { return *this == UniString (utf8); }
    bool operator!= (const char* utf8) const { return !(*this == utf8); }

    std::size_t FindFirst (const UniString& what, std::size_t from = 0, CaseComparison mode = CaseSensitive) const;
    bool        Contains (const UniString& what, CaseComparison mode = CaseSensitive) const { return FindFirst (what, 0, mode) != MaxIndex; }
    bool        BeginsWith (const UniString& prefix) const;
    bool        EndsWith (const UniString& suffix) const;
    UniString   GetSubstring (std::size_t from, std::size_t count = MaxIndex) const;

    UniString& Insert (std::size_t at, const UniString& what);
    UniString& Delete (std::size_t from, std::size_t count = MaxIndex);
    // Replaces the first occurrence of what (if any) with with; returns whether one was found.
    bool        ReplaceFirst (const UniString& what, const UniString& with);
    std::size_t ReplaceAll (const UniString& what, const UniString& with);

    // White space is Unicode space separators, tabs and line breaks.
    UniString& Trim ();
    UniString& TrimLeft ();
    UniString& TrimRight ();
    UniString  Trimmed () const { UniString s (*this); return s.Trim (); }

    UniString ToUpperCase () const;
    UniString ToLowerCase () const;

    // Number parsing of the whole text (surrounding white space allowed).
    std::optional<std::int64_t> ToInteger () const;
    std::optional<double>       ToDouble () const;

    // printf-style formatting: %d %i %u %x %X %c with flags, width and length modifiers,
    // %f %e %g with width and precision, %s for a char string (UTF-8), %T for a UniString
    // (by value or pointer), %% for the percent sign. A missing argument formats as empty text.
    using Argument = std::variant<std::int64_t, std::uint64_t, double, const char*, const UniString*>;
    template <typename... Args>
    static UniString Printf (const char* format, const Args&... args)
    {
        const Argument list[] = { ToArgument (args)..., Argument (std::int64_t (0)) };
        return FormatList (format, list, sizeof... (Args));
    }
    static UniString FormatList (const char* format, const Argument* args, std::size_t count);

    std::size_t GetHash () const { return std::hash<std::u16string> {} (chars); }

    static bool IsWhiteSpace (char16_t ch);
    static char16_t ToLower (char16_t ch);
    static char16_t ToUpper (char16_t ch);

private:
    template <typename T>
    static Argument ToArgument (const T& value)
    {
        if constexpr (std::is_same_v<T, UniString>)
            return Argument (&value);
        else if constexpr (std::is_same_v<T, const UniString*> || std::is_same_v<T, UniString*>)
            return Argument (static_cast<const UniString*> (value));
        else if constexpr (std::is_same_v<T, bool>)
            return Argument (std::int64_t (value ? 1 : 0));
        else if constexpr (std::is_floating_point_v<T>)
            return Argument (double (value));
        else if constexpr (std::is_integral_v<T> && std::is_signed_v<T>)
            return Argument (std::int64_t (value));
        else if constexpr (std::is_integral_v<T>)
            return Argument (std::uint64_t (value));
        else if constexpr (std::is_enum_v<T>)
            return Argument (std::int64_t (value));
        else if constexpr (std::is_convertible_v<T, const char*>)
            return Argument (static_cast<const char*> (value));
        else
            static_assert (sizeof (T) == 0, "unsupported Printf argument");
    }

    std::u16string chars;
};

inline UniString operator+ (UniString a, const UniString& b) { return a.Append (b); }
inline UniString operator+ (UniString a, const char* b) { return a.Append (UniString (b)); }
inline UniString operator+ (const char* a, const UniString& b) { return UniString (a).Append (b); }

// For test output and logs.
std::ostream& operator<< (std::ostream& os, const UniString& s);

}   // namespace Kor

template <>
struct std::hash<Kor::UniString> {
    std::size_t operator() (const Kor::UniString& s) const noexcept { return s.GetHash (); }
};
