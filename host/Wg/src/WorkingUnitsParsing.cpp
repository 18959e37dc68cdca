// Working units: text typed by the user read back as a value, in any unit spelling of its kind.

#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <system_error>
#include <string>
#include <string_view>

#include "WorkingUnitsDetail.hpp"

namespace Wg {

using namespace WorkingUnitsDetail;

namespace {

// Anything beyond is a typing mistake rather than a building.
constexpr double MaxParsedLength = 1e12;
constexpr double MaxParsedArea = MaxParsedLength * MaxParsedLength;
constexpr double MaxParsedVolume = MaxParsedArea * MaxParsedLength;
constexpr double MaxParsedAngle = 1e12;

constexpr int SquarePower = 2;
constexpr int CubePower = 3;

// What a unit spelling means besides its factor.
enum class UnitRole { Plain, Foot, Inch, Degree, ArcMinute, ArcSecond };

struct UnitSpelling {
    std::u16string_view text;
    double              factor;   // base units per unit
    UnitRole            role;
};

constexpr UnitSpelling LengthSpellings[] = {
    {u"m", 1.0, UnitRole::Plain},
    {u"cm", MetresPerCentimetre, UnitRole::Plain},
    {u"mm", MetresPerMillimetre, UnitRole::Plain},
    {u"ft", MetresPerFoot, UnitRole::Foot},
    {u"feet", MetresPerFoot, UnitRole::Foot},
    {u"foot", MetresPerFoot, UnitRole::Foot},
    {u"'", MetresPerFoot, UnitRole::Foot},
    {u"\u2032", MetresPerFoot, UnitRole::Foot},
    {u"\u2019", MetresPerFoot, UnitRole::Foot},
    {u"in", MetresPerInch, UnitRole::Inch},
    {u"inch", MetresPerInch, UnitRole::Inch},
    {u"inches", MetresPerInch, UnitRole::Inch},
    {u"\"", MetresPerInch, UnitRole::Inch},
    {u"''", MetresPerInch, UnitRole::Inch},
    {u"\u2033", MetresPerInch, UnitRole::Inch},
    {u"\u201D", MetresPerInch, UnitRole::Inch},
};

constexpr UnitSpelling AngleSpellings[] = {
    {u"\u00B0", 1.0, UnitRole::Degree},
    {u"\u00BA", 1.0, UnitRole::Degree},    // the ordinal indicator that keyboards often give for °
    {u"d", 1.0, UnitRole::Degree},
    {u"deg", 1.0, UnitRole::Degree},
    {u"degree", 1.0, UnitRole::Degree},
    {u"degrees", 1.0, UnitRole::Degree},
    {u"'", 1.0 / MinutesPerDegree, UnitRole::ArcMinute},
    {u"\u2032", 1.0 / MinutesPerDegree, UnitRole::ArcMinute},
    {u"\u2019", 1.0 / MinutesPerDegree, UnitRole::ArcMinute},
    {u"\"", 1.0 / (MinutesPerDegree * SecondsPerMinute), UnitRole::ArcSecond},
    {u"''", 1.0 / (MinutesPerDegree * SecondsPerMinute), UnitRole::ArcSecond},
    {u"\u2033", 1.0 / (MinutesPerDegree * SecondsPerMinute), UnitRole::ArcSecond},
    {u"\u201D", 1.0 / (MinutesPerDegree * SecondsPerMinute), UnitRole::ArcSecond},
    {u"gon", DegreesPerGrad, UnitRole::Plain},
    {u"grad", DegreesPerGrad, UnitRole::Plain},
    {u"grads", DegreesPerGrad, UnitRole::Plain},
    {u"rad", DegreesPerRadian, UnitRole::Plain},
    {u"radian", DegreesPerRadian, UnitRole::Plain},
    {u"radians", DegreesPerRadian, UnitRole::Plain},
};

// The lengths that squared or cubed make area and volume units.
constexpr UnitSpelling PowerBaseSpellings[] = {
    {u"m", 1.0, UnitRole::Plain},
    {u"cm", MetresPerCentimetre, UnitRole::Plain},
    {u"mm", MetresPerMillimetre, UnitRole::Plain},
    {u"ft", MetresPerFoot, UnitRole::Plain},
    {u"in", MetresPerInch, UnitRole::Plain},
};

constexpr UnitSpelling LitreSpellings[] = {
    {u"l", CubicMetresPerLitre, UnitRole::Plain},
    {u"litre", CubicMetresPerLitre, UnitRole::Plain},
    {u"liter", CubicMetresPerLitre, UnitRole::Plain},
    {u"litres", CubicMetresPerLitre, UnitRole::Plain},
    {u"liters", CubicMetresPerLitre, UnitRole::Plain},
};

char16_t FoldAscii (char16_t ch)
{
    return (ch >= u'A' && ch <= u'Z') ? static_cast<char16_t> (ch - u'A' + u'a') : ch;
}

bool IsDigit (char16_t ch)
{
    return ch >= u'0' && ch <= u'9';
}

struct Number {
    double value = 0.0;
    bool   isInteger = false;   // digits only: may be part of a fraction
};

// A cursor over the typed text. Every read is bounds-checked; a failed match leaves the
// position unchanged.
class Scanner {
public:
    explicit Scanner (std::u16string_view text) : text (text) {}

    bool   AtEnd () const { return pos >= text.size (); }
    std::size_t GetPosition () const { return pos; }
    void   SetPosition (std::size_t newPos) { pos = newPos; }

    char16_t Peek (std::size_t offset = 0) const
    {
        return pos + offset < text.size () ? text[pos + offset] : u'\0';
    }

    bool SkipBlanks ()
    {
        const std::size_t start = pos;
        while (!AtEnd () && Kor::UniString::IsWhiteSpace (text[pos])) ++pos;
        return pos != start;
    }

    bool Accept (char16_t ch)
    {
        if (Peek () != ch || AtEnd ()) return false;
        ++pos;
        return true;
    }

    bool AcceptWord (std::u16string_view word)
    {
        if (text.size () - pos < word.size ()) return false;
        for (std::size_t i = 0; i < word.size (); ++i)
            if (FoldAscii (text[pos + i]) != word[i]) return false;
        pos += word.size ();
        return true;
    }

    // The longest spelling that the text continues with.
    template <std::size_t Count>
    const UnitSpelling* AcceptUnit (const UnitSpelling (&spellings)[Count])
    {
        const UnitSpelling* best = nullptr;
        for (const UnitSpelling& spelling : spellings) {
            const std::size_t start = pos;
            if (AcceptWord (spelling.text) && (best == nullptr || spelling.text.size () > best->text.size ()))
                best = &spelling;
            pos = start;
        }
        if (best != nullptr) pos += best->text.size ();
        return best;
    }

    // digits [ '.' digits ] [ exponent ] | '.' digits [ exponent ]
    std::optional<Number> AcceptNumber ()
    {
        const std::size_t start = pos;
        std::size_t end = pos;
        bool integer = true;
        std::size_t intDigits = 0;
        while (IsDigit (At (end))) { ++end; ++intDigits; }
        std::size_t fracDigits = 0;
        if (At (end) == u'.') {
            integer = false;
            ++end;
            while (IsDigit (At (end))) { ++end; ++fracDigits; }
        }
        if (intDigits + fracDigits == 0) return std::nullopt;
        if (FoldAscii (At (end)) == u'e') {
            std::size_t expEnd = end + 1;
            if (At (expEnd) == u'+' || At (expEnd) == u'-') ++expEnd;
            if (IsDigit (At (expEnd))) {
                while (IsDigit (At (expEnd))) ++expEnd;
                end = expEnd;
                integer = false;
            }
        }
        // The token is plain ASCII by construction.
        std::string ascii (end - start, '0');
        for (std::size_t i = start; i < end; ++i) ascii[i - start] = static_cast<char> (text[i]);
        double value = 0.0;
        const auto result = std::from_chars (ascii.data (), ascii.data () + ascii.size (), value);
        if (result.ec != std::errc () || result.ptr != ascii.data () + ascii.size () || !std::isfinite (value))
            return std::nullopt;
        pos = end;
        return Number {value, integer};
    }

    // number | integer '/' integer | integer (blanks | '-') integer '/' integer
    std::optional<double> AcceptMagnitude ()
    {
        const std::optional<Number> first = AcceptNumber ();
        if (!first) return std::nullopt;
        if (!first->isInteger) return first->value;
        if (Peek () == u'/') return AcceptDenominator (first->value);

        const std::size_t afterWhole = pos;
        if (SkipBlanks () || Accept (u'-')) {
            const std::optional<Number> numerator = AcceptNumber ();
            if (numerator && numerator->isInteger && Peek () == u'/') {
                const std::optional<double> fraction = AcceptDenominator (numerator->value);
                if (!fraction) return std::nullopt;
                return first->value + *fraction;
            }
        }
        pos = afterWhole;
        return first->value;
    }

private:
    char16_t At (std::size_t index) const { return index < text.size () ? text[index] : u'\0'; }

    // '/' integer after a numerator; a zero or non-integer denominator refuses the text.
    std::optional<double> AcceptDenominator (double numerator)
    {
        ++pos;   // '/'
        const std::optional<Number> denominator = AcceptNumber ();
        if (!denominator || !denominator->isInteger || denominator->value == 0.0) return std::nullopt;
        return numerator / denominator->value;
    }

    std::u16string_view text;
    std::size_t              pos = 0;
};

std::optional<double> ParseLength (Scanner& scanner, double workingFactor)
{
    const std::optional<double> first = scanner.AcceptMagnitude ();
    if (!first) return std::nullopt;
    scanner.SkipBlanks ();
    const UnitSpelling* unit = scanner.AcceptUnit (LengthSpellings);
    if (unit == nullptr) return *first * workingFactor;
    double metres = *first * unit->factor;
    if (unit->role != UnitRole::Foot) return metres;

    // Inches may follow feet: 8'-2 1/2", 8' 2", 8'2, 8 ft 6 in.
    scanner.SkipBlanks ();
    if (scanner.AtEnd ()) return metres;
    if (scanner.Accept (u'-')) scanner.SkipBlanks ();
    const std::optional<double> inches = scanner.AcceptMagnitude ();
    if (!inches) return std::nullopt;
    scanner.SkipBlanks ();
    const UnitSpelling* inchUnit = scanner.AcceptUnit (LengthSpellings);
    if (inchUnit != nullptr && inchUnit->role != UnitRole::Inch) return std::nullopt;
    return metres + *inches * MetresPerInch;
}

// Components in order: degrees, minutes, seconds. The last one may omit its mark after an
// earlier one ("12°30" is 12°30').
std::optional<double> ParseAngle (Scanner& scanner, double workingFactor)
{
    constexpr int NoComponent = -1;
    constexpr int SecondsLevel = 2;
    double degrees = 0.0;
    int lastLevel = NoComponent;
    while (true) {
        const std::optional<double> magnitude = scanner.AcceptMagnitude ();
        if (!magnitude) return std::nullopt;
        scanner.SkipBlanks ();
        const UnitSpelling* unit = scanner.AcceptUnit (AngleSpellings);
        if (unit == nullptr) {
            if (lastLevel == NoComponent) return *magnitude * workingFactor;
            if (lastLevel == SecondsLevel || !scanner.AtEnd ()) return std::nullopt;
            const double impliedFactor = lastLevel == 0 ? 1.0 / MinutesPerDegree : 1.0 / (MinutesPerDegree * SecondsPerMinute);
            return degrees + *magnitude * impliedFactor;
        }
        if (unit->role == UnitRole::Plain) {
            if (lastLevel != NoComponent) return std::nullopt;
            return *magnitude * unit->factor;
        }
        const int level = unit->role == UnitRole::Degree ? 0 : unit->role == UnitRole::ArcMinute ? 1 : SecondsLevel;
        if (level <= lastLevel) return std::nullopt;
        degrees += *magnitude * unit->factor;
        lastLevel = level;
        scanner.SkipBlanks ();
        if (scanner.AtEnd ()) return degrees;
    }
}

// A squared or cubed length: m², m2, m^2, sq m (cu m for cubes).
std::optional<double> AcceptPoweredUnit (Scanner& scanner, int power)
{
    const std::size_t start = scanner.GetPosition ();
    const bool prefixed = scanner.AcceptWord (power == SquarePower ? u"sq" : u"cu");
    if (prefixed) {
        scanner.Accept (u'.');
        scanner.SkipBlanks ();
    }
    const UnitSpelling* base = scanner.AcceptUnit (PowerBaseSpellings);
    bool ok = base != nullptr;
    if (ok && !prefixed) {
        const char16_t superscript = power == SquarePower ? u'\u00B2' : u'\u00B3';
        const char16_t digit = power == SquarePower ? u'2' : u'3';
        ok = scanner.Accept (superscript) || scanner.Accept (digit) || (scanner.Accept (u'^') && scanner.Accept (digit));
    }
    if (!ok) {
        scanner.SetPosition (start);
        return std::nullopt;
    }
    return std::pow (base->factor, power);
}

std::optional<double> ParseAreaOrVolume (Scanner& scanner, int power, double workingFactor)
{
    const std::optional<double> magnitude = scanner.AcceptMagnitude ();
    if (!magnitude) return std::nullopt;
    scanner.SkipBlanks ();
    if (std::optional<double> factor = AcceptPoweredUnit (scanner, power)) return *magnitude * *factor;
    if (power == CubePower) {
        if (const UnitSpelling* litre = scanner.AcceptUnit (LitreSpellings)) return *magnitude * litre->factor;
    }
    return *magnitude * workingFactor;
}

}   // namespace

std::optional<double> ParseRealValue (const Kor::UniString& text, short subtype)
{
    return ParseRealValue (text, subtype, CurrentUnits ());
}

std::optional<double> ParseRealValue (const Kor::UniString& text, short subtype, const WorkingUnits& givenUnits)
{
    const WorkingUnits units = givenUnits.Sanitized ();
    const Kor::UniString trimmed = text.Trimmed ();
    Scanner scanner (trimmed.GetUtf16 ());

    double sign = 1.0;
    if (scanner.Accept (u'-') || scanner.Accept (u'\u2212')) {
        sign = -1.0;
        scanner.SkipBlanks ();
    } else if (scanner.Accept (u'+')) {
        scanner.SkipBlanks ();
    }

    std::optional<double> magnitude;
    double limit = 0.0;
    switch (subtype) {
        case RealSubtype::Angle:
        case RealSubtype::PolarAngle:
            magnitude = ParseAngle (scanner, GetShownUnit (units.angle).size);
            limit = MaxParsedAngle;
            break;
        case RealSubtype::Length:
            magnitude = ParseLength (scanner, GetShownUnit (units.length).size);
            limit = MaxParsedLength;
            break;
        case RealSubtype::Area:
            magnitude = ParseAreaOrVolume (scanner, SquarePower, GetShownUnit (units.area).size);
            limit = MaxParsedArea;
            break;
        case RealSubtype::Volume:
            magnitude = ParseAreaOrVolume (scanner, CubePower, GetShownUnit (units.volume).size);
            limit = MaxParsedVolume;
            break;
        default:
            if (std::optional<Number> number = scanner.AcceptNumber ()) magnitude = number->value;
            limit = std::numeric_limits<double>::max ();
            break;
    }
    if (!magnitude || !scanner.AtEnd () || !std::isfinite (*magnitude) || *magnitude > limit) return std::nullopt;
    return sign * *magnitude;
}

}   // namespace Wg
