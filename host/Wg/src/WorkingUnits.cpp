#include "Wg/WorkingUnits.hpp"

#include <algorithm>

#include "WorkingUnitsDetail.hpp"

namespace Wg {

namespace WorkingUnitsDetail {

WorkingUnits& CurrentUnits ()
{
    static WorkingUnits units;
    return units;
}

}   // namespace WorkingUnitsDetail

using WorkingUnitsDetail::CurrentUnits;

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

}   // namespace Wg
