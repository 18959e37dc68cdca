#include "Wg/WorkingUnits.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <string>
#include <string_view>

namespace Wg {

namespace {

constexpr double MetresPerCentimetre = 0.01;
constexpr double MetresPerMillimetre = 0.001;
constexpr double MetresPerFoot = 0.3048;
constexpr double MetresPerInch = 0.0254;
constexpr double CubicMetresPerLitre = 0.001;
constexpr double DegreesPerGrad = 0.9;
constexpr double Pi = 3.14159265358979323846;
constexpr double DegreesPerRadian = 180.0 / Pi;
constexpr double DegreesPerTurn = 360.0;
constexpr int    InchesPerFoot = 12;
constexpr int    MinutesPerDegree = 60;
constexpr int    SecondsPerMinute = 60;

// The digits a double carries reliably; rounding works on these so that binary noise
// (2.4999999999999996 from a unit conversion) does not decide a tie.
constexpr int SignificantDigits = 15;
// From here on fixed notation would only show noise and overflow any cell.
constexpr double ExponentThreshold = 1e15;
// Decimals of decimal feet when a length is too large for feet and inches.
constexpr int FallbackDecimals = 3;

// Equivalent-precision shifts: metric decimals count in the base unit.
constexpr int CentimetreDecimalShift = 2;
constexpr int MillimetreDecimalShift = 3;
constexpr int SquareCentimetreDecimalShift = 4;
constexpr int LitreDecimalShift = 3;
constexpr int RadianExtraDecimals = 2;   // 0.01° is about 0.0002 rad
constexpr int DmsSecondDecimalShift = 4;

// Anything beyond is a typing mistake rather than a building.
constexpr double MaxParsedLength = 1e12;
constexpr double MaxParsedArea = MaxParsedLength * MaxParsedLength;
constexpr double MaxParsedVolume = MaxParsedArea * MaxParsedLength;
constexpr double MaxParsedAngle = 1e12;

constexpr int SquarePower = 2;
constexpr int CubePower = 3;

const char* const NotANumberText = "###";

WorkingUnits& CurrentUnits ()
{
    static WorkingUnits units;
    return units;
}

// --- Formatting ---

int ShiftDecimals (int decimals, int shift)
{
    return std::max (0, decimals - shift);
}

// The 15 significant digits of |value| and the decimal exponent of the first one.
void GetSignificantDigits (double value, std::string& digits, int& exponent)
{
    char buffer[64];
    const auto result = std::to_chars (buffer, buffer + sizeof (buffer), std::fabs (value),
                                       std::chars_format::scientific, SignificantDigits - 1);
    const std::string_view text (buffer, static_cast<std::size_t> (result.ptr - buffer));
    digits.clear ();
    const std::size_t ePos = text.find ('e');
    for (std::size_t i = 0; i < ePos; ++i)
        if (text[i] != '.') digits += text[i];
    exponent = 0;
    std::size_t expStart = ePos + 1;
    bool negative = false;
    if (text[expStart] == '+' || text[expStart] == '-') {
        negative = text[expStart] == '-';
        ++expStart;
    }
    std::from_chars (text.data () + expStart, text.data () + text.size (), exponent);
    if (negative) exponent = -exponent;
}

// Adds one to a string of decimal digits.
void IncrementDigits (std::string& digits)
{
    for (std::size_t i = digits.size (); i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            return;
        }
        digits[i] = '0';
    }
    digits.insert (digits.begin (), '1');
}

// |value| * 10^decimals rounded half away from zero, as decimal digits without leading zeros.
std::string RoundedScaledDigits (double value, int decimals)
{
    std::string significant;
    int exponent = 0;
    GetSignificantDigits (value, significant, exponent);
    const int keep = exponent + decimals + 1;
    std::string digits;
    if (keep <= 0) {
        digits = (keep == 0 && significant[0] >= '5') ? "1" : "0";
    } else if (keep >= SignificantDigits) {
        digits = significant + std::string (static_cast<std::size_t> (keep - SignificantDigits), '0');
    } else {
        digits = significant.substr (0, static_cast<std::size_t> (keep));
        if (significant[static_cast<std::size_t> (keep)] >= '5') IncrementDigits (digits);
    }
    const std::size_t firstNonZero = digits.find_first_not_of ('0');
    return firstNonZero == std::string::npos ? "0" : digits.substr (firstNonZero);
}

// value rounded half away from zero to a whole number; |value| < ExponentThreshold.
std::int64_t RoundToInteger (double value)
{
    std::int64_t magnitude = 0;
    const std::string digits = RoundedScaledDigits (value, 0);
    std::from_chars (digits.data (), digits.data () + digits.size (), magnitude);
    return std::signbit (value) ? -magnitude : magnitude;
}

std::string FormatScientific (double value, int decimals)
{
    char buffer[64];
    const auto result = std::to_chars (buffer, buffer + sizeof (buffer), value, std::chars_format::scientific, decimals);
    return std::string (buffer, result.ptr);
}

// A number with a fixed count of decimals, e.g. "-2.500"; a value that rounds to zero has no sign.
std::string FormatDecimal (double value, int decimals)
{
    if (std::fabs (value) >= ExponentThreshold) return FormatScientific (value, decimals);
    std::string digits = RoundedScaledDigits (value, decimals);
    const bool isZero = digits == "0";
    const std::size_t width = static_cast<std::size_t> (decimals) + 1;
    if (digits.size () < width) digits.insert (0, width - digits.size (), '0');
    if (decimals > 0) digits.insert (digits.size () - static_cast<std::size_t> (decimals), 1, '.');
    if (std::signbit (value) && !isZero) digits.insert (0, 1, '-');
    return digits;
}

// A polar angle in the shown unit: 'fullTurn' in that unit, already normalised into
// [0, fullTurn). One that rounds up to the full turn shows as zero.
double WrapRoundedFullTurn (double shown, double fullTurn, int decimals)
{
    return RoundedScaledDigits (shown, decimals) == RoundedScaledDigits (fullTurn, decimals) ? 0.0 : shown;
}

std::string FormatFeetAndInches (double metres, int power)
{
    const std::int64_t denominator = std::int64_t (1) << power;
    const double inches = metres / MetresPerInch;
    const double steps = inches * static_cast<double> (denominator);
    if (std::fabs (steps) >= ExponentThreshold)
        return FormatDecimal (metres / MetresPerFoot, FallbackDecimals) + "'";

    const std::int64_t rounded = RoundToInteger (steps);
    const std::int64_t magnitude = rounded < 0 ? -rounded : rounded;
    std::int64_t numerator = magnitude % denominator;
    const std::int64_t wholeInches = magnitude / denominator;
    std::string text = rounded < 0 ? "-" : "";
    text += std::to_string (wholeInches / InchesPerFoot) + "'-" + std::to_string (wholeInches % InchesPerFoot);
    if (numerator != 0) {
        const std::int64_t divisor = std::gcd (numerator, denominator);
        numerator /= divisor;
        text += " " + std::to_string (numerator) + "/" + std::to_string (denominator / divisor);
    }
    return text + "\"";
}

std::string FormatDegreesMinutesSeconds (double degrees, int angleDecimals, bool polar)
{
    const int secondDecimals = ShiftDecimals (angleDecimals, DmsSecondDecimalShift);
    std::int64_t stepsPerSecond = 1;
    for (int i = 0; i < secondDecimals; ++i) stepsPerSecond *= 10;
    const std::int64_t stepsPerMinute = stepsPerSecond * SecondsPerMinute;
    const std::int64_t stepsPerDegree = stepsPerMinute * MinutesPerDegree;
    const double steps = degrees * static_cast<double> (stepsPerDegree);
    if (std::fabs (steps) >= ExponentThreshold)
        return FormatDecimal (degrees, angleDecimals) + "\u00B0";

    std::int64_t rounded = RoundToInteger (steps);
    if (polar && rounded >= static_cast<std::int64_t> (DegreesPerTurn) * stepsPerDegree) rounded = 0;
    const std::int64_t magnitude = rounded < 0 ? -rounded : rounded;
    std::string text = rounded < 0 ? "-" : "";
    text += std::to_string (magnitude / stepsPerDegree) + "\u00B0";
    text += std::to_string (magnitude % stepsPerDegree / stepsPerMinute) + "'";
    const std::int64_t secondSteps = magnitude % stepsPerMinute;
    text += std::to_string (secondSteps / stepsPerSecond);
    if (secondDecimals > 0) {
        std::string fraction = std::to_string (secondSteps % stepsPerSecond);
        fraction.insert (0, static_cast<std::size_t> (secondDecimals) - fraction.size (), '0');
        text += "." + fraction;
    }
    return text + "\"";
}

// A unit as shown: its size in base units, how many fewer decimals than the kind's setting it
// shows (negative: more), and its suffix.
struct ShownUnit {
    double      size;
    int         decimalShift;
    const char* suffix;
};

ShownUnit GetShownUnit (LengthUnit unit)
{
    switch (unit) {
        case LengthUnit::Meter:              break;
        case LengthUnit::Centimeter:         return {MetresPerCentimetre, CentimetreDecimalShift, " cm"};
        case LengthUnit::Millimeter:         return {MetresPerMillimetre, MillimetreDecimalShift, " mm"};
        case LengthUnit::DecimalFoot:        return {MetresPerFoot, 0, "'"};
        case LengthUnit::FootFractionalInch: return {MetresPerFoot, 0, "'"};   // a bare number is feet, as on a drawing
        case LengthUnit::Inch:               return {MetresPerInch, 0, "\""};
    }
    return {1.0, 0, " m"};
}

ShownUnit GetShownUnit (AreaUnit unit)
{
    switch (unit) {
        case AreaUnit::SquareMeter:      break;
        case AreaUnit::SquareCentimeter: return {MetresPerCentimetre * MetresPerCentimetre, SquareCentimetreDecimalShift, " cm\u00B2"};
        case AreaUnit::SquareFoot:       return {MetresPerFoot * MetresPerFoot, 0, " ft\u00B2"};
        case AreaUnit::SquareInch:       return {MetresPerInch * MetresPerInch, 0, " in\u00B2"};
    }
    return {1.0, 0, " m\u00B2"};
}

ShownUnit GetShownUnit (VolumeUnit unit)
{
    switch (unit) {
        case VolumeUnit::CubicMeter: break;
        case VolumeUnit::Liter:      return {CubicMetresPerLitre, LitreDecimalShift, " l"};
        case VolumeUnit::CubicFoot:  return {MetresPerFoot * MetresPerFoot * MetresPerFoot, 0, " ft\u00B3"};
    }
    return {1.0, 0, " m\u00B3"};
}

ShownUnit GetShownUnit (AngleUnit unit)
{
    switch (unit) {
        case AngleUnit::DecimalDegree:      break;
        case AngleUnit::DegreeMinuteSecond: break;
        case AngleUnit::Grad:               return {DegreesPerGrad, 0, " gon"};
        case AngleUnit::Radian:             return {DegreesPerRadian, -RadianExtraDecimals, " rad"};
    }
    return {1.0, 0, "\u00B0"};
}

std::string FormatInUnit (double value, const ShownUnit& unit, int decimals)
{
    return FormatDecimal (value / unit.size, ShiftDecimals (decimals, unit.decimalShift)) + unit.suffix;
}

std::string FormatAngle (double degrees, const WorkingUnits& units, bool polar)
{
    if (polar) {
        degrees = std::fmod (degrees, DegreesPerTurn);
        if (degrees < 0.0) degrees += DegreesPerTurn;
        if (degrees >= DegreesPerTurn) degrees = 0.0;   // a tiny negative angle plus a turn
    }
    if (units.angle == AngleUnit::DegreeMinuteSecond)
        return FormatDegreesMinutesSeconds (degrees, units.angleDecimals, polar);

    const ShownUnit unit = GetShownUnit (units.angle);
    const int decimals = ShiftDecimals (units.angleDecimals, unit.decimalShift);
    double shown = degrees / unit.size;
    if (polar) shown = WrapRoundedFullTurn (shown, DegreesPerTurn / unit.size, decimals);
    return FormatDecimal (shown, decimals) + unit.suffix;
}

// --- Parsing ---

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

WorkingUnits WorkingUnits::Metric ()
{
    return WorkingUnits ();
}

WorkingUnits WorkingUnits::Imperial ()
{
    constexpr int EighthsOfAnInch = 3;
    WorkingUnits units;
    units.length = LengthUnit::FootFractionalInch;
    units.area = AreaUnit::SquareFoot;
    units.volume = VolumeUnit::CubicFoot;
    units.angle = AngleUnit::DecimalDegree;
    units.lengthDecimals = EighthsOfAnInch;
    return units;
}

WorkingUnits WorkingUnits::Sanitized () const
{
    WorkingUnits result = *this;
    const auto clampDecimals = [] (int& decimals) { decimals = std::clamp (decimals, 0, MaxDecimals); };
    clampDecimals (result.lengthDecimals);
    clampDecimals (result.areaDecimals);
    clampDecimals (result.volumeDecimals);
    clampDecimals (result.angleDecimals);
    clampDecimals (result.realDecimals);
    // Enumerators past the last one (or negative ones, which wrap to large) are unknown.
    const auto isKnown = [] (auto value, auto last) { return static_cast<unsigned> (value) <= static_cast<unsigned> (last); };
    if (!isKnown (result.length, LengthUnit::Inch)) result.length = LengthUnit::Meter;
    if (!isKnown (result.area, AreaUnit::SquareInch)) result.area = AreaUnit::SquareMeter;
    if (!isKnown (result.volume, VolumeUnit::CubicFoot)) result.volume = VolumeUnit::CubicMeter;
    if (!isKnown (result.angle, AngleUnit::Radian)) result.angle = AngleUnit::DecimalDegree;
    return result;
}

const WorkingUnits& GetWorkingUnits ()
{
    return CurrentUnits ();
}

void SetWorkingUnits (const WorkingUnits& units)
{
    CurrentUnits () = units.Sanitized ();
}

int GetRealDisplayDigits ()
{
    return CurrentUnits ().realDecimals;
}

Kor::UniString DoubleToString (double value, short subtype)
{
    return DoubleToString (value, subtype, CurrentUnits ());
}

Kor::UniString DoubleToString (double value, short subtype, const WorkingUnits& givenUnits)
{
    if (!std::isfinite (value)) return Kor::UniString (NotANumberText);
    const WorkingUnits units = givenUnits.Sanitized ();
    switch (subtype) {
        case RealSubtype::Angle:      return Kor::UniString (FormatAngle (value, units, false));
        case RealSubtype::PolarAngle: return Kor::UniString (FormatAngle (value, units, true));
        case RealSubtype::Length:
            if (units.length == LengthUnit::FootFractionalInch) {
                const int power = std::min (units.lengthDecimals, WorkingUnits::MaxInchFractionPower);
                return Kor::UniString (FormatFeetAndInches (value, power));
            }
            return Kor::UniString (FormatInUnit (value, GetShownUnit (units.length), units.lengthDecimals));
        case RealSubtype::Area:       return Kor::UniString (FormatInUnit (value, GetShownUnit (units.area), units.areaDecimals));
        case RealSubtype::Volume:     return Kor::UniString (FormatInUnit (value, GetShownUnit (units.volume), units.volumeDecimals));
        default:                      return Kor::UniString (FormatDecimal (value, units.realDecimals));
    }
}

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
