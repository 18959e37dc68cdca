#pragma once
// Internal to the working units: the unit conversions that formatting and parsing share, the
// shown units, and the process-wide settings.

#include "Wg/WorkingUnits.hpp"

namespace Wg::WorkingUnitsDetail {

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

// The working units in force (SetWorkingUnits stores them sanitized).
WorkingUnits& CurrentUnits ();

// A unit as shown: its size in base units, how many fewer decimals than the kind's setting it
// shows (negative: more), and its suffix.
struct ShownUnit {
    double      size;
    int         decimalShift;
    const char* suffix;
};

ShownUnit GetShownUnit (LengthUnit unit);
ShownUnit GetShownUnit (AreaUnit unit);
ShownUnit GetShownUnit (VolumeUnit unit);
ShownUnit GetShownUnit (AngleUnit unit);

}   // namespace Wg::WorkingUnitsDetail
