#pragma once
// The process-wide working-units preference and number formatting and parsing by it.
//
// Values are held in base units: metres, square metres, cubic metres and degrees. The six
// real-edit subtype codes select the kind of quantity.

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
    LengthUnit length = LengthUnit::Meter;
    AreaUnit   area = AreaUnit::SquareMeter;
    VolumeUnit volume = VolumeUnit::CubicMeter;
    AngleUnit  angle = AngleUnit::DecimalDegree;

    // Decimals shown per kind (0..8). For feet and fractional inches, lengthDecimals is the
    // denominator's power of two instead: 0 whole inches, 1 halves, ... 6 sixty-fourths.
    int lengthDecimals = 3;
    int areaDecimals = 2;
    int volumeDecimals = 2;
    int angleDecimals = 2;
    int realDecimals = 2;     // plain reals (subtype 3)

    bool operator== (const WorkingUnits&) const = default;

    // Presets a menu offers.
    static WorkingUnits Metric ();     // m, m², m³, decimal degrees
    static WorkingUnits Imperial ();   // feet and fractional inches (1/8"), ft², ft³, decimal degrees
};

const WorkingUnits& GetWorkingUnits ();
void                SetWorkingUnits (const WorkingUnits& units);

// Decimals of plain real numbers, e.g. for display texts of dynamic values.
int GetRealDisplayDigits ();

// Formats a value in base units by the working units of the subtype, with the unit suffix
// (e.g. "2.500 m", "8'-2 1/2\"", "90.00°", "12.50 m²"). Non-finite values give "###".
Kor::UniString DoubleToString (double value, short subtype);

// Parses what a user types for a subtype, in the working unit or with an explicit unit suffix
// ("2500mm", "2.5 m", "8'-2 1/2\"", "90°", "1.5708 rad"). The result is in base units; nullopt
// when the text does not parse.
std::optional<double> ParseRealValue (const Kor::UniString& text, short subtype);

}   // namespace Wg

// The host's name for Wg::DoubleToString.
inline Kor::UniString WgDoubleToString (double value, short subtype)
{
    return Wg::DoubleToString (value, subtype);
}
