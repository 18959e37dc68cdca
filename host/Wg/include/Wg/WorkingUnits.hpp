#pragma once
// The process-wide working-units preference and number formatting and parsing by it.
//
// Values are held in base units: metres, square metres, cubic metres and degrees. The six
// real-edit subtype codes select the kind of quantity; any other code formats and parses as a
// plain real.

#include <optional>

#include "Kor/UniString.hpp"

namespace Wg {

namespace RealSubtype {
constexpr short Real = 3;
constexpr short Angle = 4;
constexpr short PolarAngle = 5;
constexpr short Length = 6;
constexpr short Area = 14;
constexpr short Volume = 15;
}   // namespace RealSubtype

enum class LengthUnit { Meter, Centimeter, Millimeter, DecimalFoot, FootFractionalInch, Inch };
enum class AreaUnit { SquareMeter, SquareCentimeter, SquareFoot, SquareInch };
enum class VolumeUnit { CubicMeter, Liter, CubicFoot };
enum class AngleUnit { DecimalDegree, DegreeMinuteSecond, Grad, Radian };

struct WorkingUnits {
    static constexpr int MaxDecimals = 8;
    static constexpr int MaxInchFractionPower = 6;

    LengthUnit length = LengthUnit::Meter;
    AreaUnit   area = AreaUnit::SquareMeter;
    VolumeUnit volume = VolumeUnit::CubicMeter;
    AngleUnit  angle = AngleUnit::DecimalDegree;

    // Decimals shown per kind (0..8). For feet and fractional inches, lengthDecimals is the
    // denominator's power of two instead: 0 whole inches, 1 halves, ... 6 sixty-fourths.
    //
    // The metric decimals count in the kind's base unit and the smaller metric units keep the
    // same precision: lengthDecimals 3 shows "2.500 m", "250.0 cm" and "2500 mm"; areaDecimals
    // 2 shows "12.50 m²" and "125000 cm²"; volumeDecimals 2 shows "2.50 m³" and "2500 l".
    // Decimal feet, inches, ft², in², ft³, decimal degrees and grads show the decimals as set.
    // Radians show angleDecimals + 2 ("1.5708 rad" for 2); degrees-minutes-seconds show
    // angleDecimals - 4 decimals of a second, at least whole seconds ("12°30'15\"").
    int lengthDecimals = 3;
    int areaDecimals = 2;
    int volumeDecimals = 2;
    int angleDecimals = 2;
    int realDecimals = 2;     // plain reals (subtype 3)

    bool operator== (const WorkingUnits&) const = default;

    // Presets a menu offers.
    static WorkingUnits Metric ();     // m, m², m³, decimal degrees
    static WorkingUnits Imperial ();   // feet and fractional inches (1/8"), ft², ft³, decimal degrees

    // A copy with decimals clamped to their ranges and unknown enumerators replaced by the
    // metric ones.
    WorkingUnits Sanitized () const;
};

const WorkingUnits& GetWorkingUnits ();
// Stores units.Sanitized (). Open edits do not reformat themselves (see RealEdit::RefreshText).
void                SetWorkingUnits (const WorkingUnits& units);

// Decimals of plain real numbers, e.g. for display texts of dynamic values.
int GetRealDisplayDigits ();

// Formats a value in base units by the working units of the subtype, with the unit suffix
// (e.g. "2.500 m", "8'-2 1/2\"", "90.00°", "12.50 m²"). Non-finite values give "###".
//
// Rounding is half away from zero on the value's 15 significant digits, so 0.0005 m shows as
// "0.001 m" at 3 decimals; a value that rounds to zero shows without a sign. Feet and inches
// round to the nearest 1/2^n inch, reduce the fraction and carry 12 inches into a foot
// ("0'-0\"", "-8'-2 1/2\"", "1'-0\""); seconds carry into minutes and minutes into degrees.
// Polar angles are normalised into [0, 360) first, and one that rounds to a full turn shows
// as 0. A magnitude of 1e15 or more in the shown unit is written with an exponent
// ("1.00e+300"); feet and inches or degrees-minutes-seconds fall back to decimal feet or
// decimal degrees for such values.
Kor::UniString DoubleToString (double value, short subtype);
Kor::UniString DoubleToString (double value, short subtype, const WorkingUnits& units);

// Parses what a user types for a subtype, in the working unit or with an explicit unit suffix
// ("2500mm", "2.5 m", "8'-2 1/2\"", "90°", "1.5708 rad"). The result is in base units; nullopt
// when the text does not parse completely. Never throws.
//
// Grammar (blanks around the text and between a number and its unit are allowed; unit words
// ignore case; a leading '+' or '-' applies to the whole value):
//   number     digits [ '.' digits ] [ exponent ] | '.' digits [ exponent ]   (no decimal comma)
//   magnitude  number | integer '/' integer | integer (blanks | '-') integer '/' integer
//   Length     magnitude [ m | cm | mm | in | inch | inches | " | '' ]
//            | magnitude ( ft | feet | foot | ' ) [ [ '-' ] magnitude [ in | " | '' ] ]
//   Angle      magnitude [ ° | deg | degrees | d | gon | grad | rad | radians ]
//            | dms components in order: magnitude ° , magnitude ' , magnitude " (each
//              optional, at least one; the last one may omit its mark after an earlier one)
//   Area       magnitude [ (m | cm | mm | ft | in) (² | 2 | ^2) | sq (m | cm | mm | ft | in) ]
//   Volume     magnitude [ (m | cm | mm | ft | in) (³ | 3 | ^3) | cu (...) | l | litre | liter ]
//   Real       number
// The typographic primes and quotes (′ ″ ’ ”) stand for ' and ". A number without a unit is
// in the working unit: feet for decimal feet and for feet and fractional inches ("8" is 8'-0"),
// inches for inches, degrees for degrees-minutes-seconds. Lengths beyond 1e12 m (areas 1e24
// m², volumes 1e36 m³, angles 1e12°) are refused as typing mistakes.
std::optional<double> ParseRealValue (const Kor::UniString& text, short subtype);
std::optional<double> ParseRealValue (const Kor::UniString& text, short subtype, const WorkingUnits& units);

}   // namespace Wg

// The host's name for Wg::DoubleToString.
inline Kor::UniString WgDoubleToString (double value, short subtype)
{
    return Wg::DoubleToString (value, subtype);
}
