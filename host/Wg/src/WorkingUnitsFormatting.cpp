// Working units: values shown as text in the units and decimals of their kind.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <string>

#include "WorkingUnitsDetail.hpp"

namespace Wg {

using namespace WorkingUnitsDetail;

namespace {

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

const char* const NotANumberText = "###";

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

}   // namespace

namespace WorkingUnitsDetail {

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

}   // namespace WorkingUnitsDetail

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

}   // namespace Wg
