#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "Wg/WorkingUnits.hpp"

using namespace Wg;

namespace {

constexpr double Inch = 0.0254;
constexpr double Foot = 0.3048;
constexpr double Pi = 3.14159265358979323846;
constexpr double Infinity = std::numeric_limits<double>::infinity ();

// Restores the default working units after every test.
class WorkingUnitsTest : public ::testing::Test {
protected:
    void TearDown () override { SetWorkingUnits (WorkingUnits ()); }

    static std::string Format (double value, short subtype) { return DoubleToString (value, subtype).ToUtf8 (); }
    static std::optional<double> Parse (const std::string& text, short subtype)
    {
        return ParseRealValue (Kor::UniString (text), subtype);
    }

    static WorkingUnits Units (LengthUnit length, int lengthDecimals)
    {
        WorkingUnits units;
        units.length = length;
        units.lengthDecimals = lengthDecimals;
        return units;
    }
    static WorkingUnits Units (AreaUnit area, int areaDecimals)
    {
        WorkingUnits units;
        units.area = area;
        units.areaDecimals = areaDecimals;
        return units;
    }
    static WorkingUnits Units (VolumeUnit volume, int volumeDecimals)
    {
        WorkingUnits units;
        units.volume = volume;
        units.volumeDecimals = volumeDecimals;
        return units;
    }
    static WorkingUnits Units (AngleUnit angle, int angleDecimals)
    {
        WorkingUnits units;
        units.angle = angle;
        units.angleDecimals = angleDecimals;
        return units;
    }
};

struct FormatCase {
    WorkingUnits units;
    short        subtype;
    double       value;
    const char*  expected;
};

struct ParseCase {
    const char* text;
    short       subtype;
    double      expected;
};

void ExpectFormats (const std::vector<FormatCase>& cases)
{
    for (const FormatCase& c : cases) {
        SetWorkingUnits (c.units);
        EXPECT_EQ (DoubleToString (c.value, c.subtype).ToUtf8 (), c.expected) << "value " << c.value;
    }
}

bool IsNear (double actual, double expected)
{
    return std::fabs (actual - expected) <= 1e-12 * std::max (1.0, std::fabs (expected));
}

}   // namespace

// --- Formatting ---

TEST_F (WorkingUnitsTest, DefaultsArePresetsAndPresetsFormatAsAUserExpects)
{
    EXPECT_EQ (GetWorkingUnits (), WorkingUnits::Metric ());
    const auto dump = [this] {
        return Format (98.5 * Inch, RealSubtype::Length) + " | " + Format (12.5, RealSubtype::Area) + " | " +
               Format (2.5, RealSubtype::Volume) + " | " + Format (90.0, RealSubtype::Angle) + " | " +
               Format (2.5, RealSubtype::Real);
    };
    EXPECT_EQ (dump (), "2.502 m | 12.50 m\u00B2 | 2.50 m\u00B3 | 90.00\u00B0 | 2.50");
    SetWorkingUnits (WorkingUnits::Imperial ());
    EXPECT_EQ (dump (), "8'-2 1/2\" | 134.55 ft\u00B2 | 88.29 ft\u00B3 | 90.00\u00B0 | 2.50");
    EXPECT_EQ (GetRealDisplayDigits (), 2);
}

TEST_F (WorkingUnitsTest, LengthsKeepEquivalentPrecisionAcrossMetricUnits)
{
    const WorkingUnits m = Units (LengthUnit::Meter, 3);
    const WorkingUnits cm = Units (LengthUnit::Centimeter, 3);
    const WorkingUnits mm = Units (LengthUnit::Millimeter, 3);
    const short L = RealSubtype::Length;
    ExpectFormats ({
        {m, L, 2.5, "2.500 m"},
        {cm, L, 2.5, "250.0 cm"},
        {mm, L, 2.5, "2500 mm"},
        {m, L, 0.0005, "0.001 m"},
        {cm, L, 0.0005, "0.1 cm"},
        {mm, L, 0.0005, "1 mm"},
        {m, L, 0.00049, "0.000 m"},
        {m, L, 1.0005, "1.001 m"},          // a decimal tie, not its binary neighbour, decides
        {m, L, -0.0004, "0.000 m"},         // rounds to zero: no sign
        {m, L, -0.0005, "-0.001 m"},
        {m, L, -0.0, "0.000 m"},
        {m, L, 999.9996, "1000.000 m"},
        {Units (LengthUnit::Meter, 0), L, 2.5, "3 m"},
        {Units (LengthUnit::Centimeter, 0), L, 2.5, "250 cm"},
        {Units (LengthUnit::Meter, 8), L, 1.0 / 3.0, "0.33333333 m"},
        {Units (LengthUnit::Millimeter, 5), L, 1.0 / 3.0, "333.33 mm"},
        {Units (LengthUnit::DecimalFoot, 2), L, 8.21 * Foot, "8.21'"},
        {Units (LengthUnit::DecimalFoot, 2), L, -8.215 * Foot, "-8.22'"},
        {Units (LengthUnit::Inch, 1), L, 98.5 * Inch, "98.5\""},
        {Units (LengthUnit::Inch, 0), L, 2.5 * Inch, "3\""},
    });
}

TEST_F (WorkingUnitsTest, FeetAndFractionalInchesRoundCarryAndReduce)
{
    const WorkingUnits eighths = Units (LengthUnit::FootFractionalInch, 3);
    const short L = RealSubtype::Length;
    ExpectFormats ({
        {eighths, L, 98.5 * Inch, "8'-2 1/2\""},
        {eighths, L, -98.5 * Inch, "-8'-2 1/2\""},
        {eighths, L, 0.0, "0'-0\""},
        {eighths, L, -0.01 * Inch, "0'-0\""},
        {eighths, L, 6.25 * Inch, "0'-6 1/4\""},
        {eighths, L, 6.375 * Inch, "0'-6 3/8\""},
        {eighths, L, 11.99 * Inch, "1'-0\""},
        {eighths, L, 11.9375 * Inch, "1'-0\""},     // 11 15/16 is a tie: rounds up into a foot
        {eighths, L, 11.93 * Inch, "0'-11 7/8\""},
        {eighths, L, 24.0 * Inch, "2'-0\""},
        {eighths, L, 0.5 * Inch, "0'-0 1/2\""},
        {Units (LengthUnit::FootFractionalInch, 0), L, 6.5 * Inch, "0'-7\""},
        {Units (LengthUnit::FootFractionalInch, 6), L, Inch / 64.0, "0'-0 1/64\""},
        {Units (LengthUnit::FootFractionalInch, 6), L, 100.0 * Foot + 33.0 * Inch / 64.0, "100'-0 33/64\""},
        // Decimals above the finest fraction mean sixty-fourths.
        {Units (LengthUnit::FootFractionalInch, 8), L, Inch / 64.0, "0'-0 1/64\""},
    });
}

TEST_F (WorkingUnitsTest, AreasAndVolumes)
{
    const short A = RealSubtype::Area;
    const short V = RealSubtype::Volume;
    ExpectFormats ({
        {Units (AreaUnit::SquareMeter, 2), A, 12.5, "12.50 m\u00B2"},
        {Units (AreaUnit::SquareCentimeter, 2), A, 12.5, "125000 cm\u00B2"},
        {Units (AreaUnit::SquareCentimeter, 6), A, 12.5, "125000.00 cm\u00B2"},
        {Units (AreaUnit::SquareFoot, 2), A, 134.55 * Foot * Foot, "134.55 ft\u00B2"},
        {Units (AreaUnit::SquareInch, 2), A, Inch * Inch, "1.00 in\u00B2"},
        {Units (AreaUnit::SquareMeter, 2), A, -0.004, "0.00 m\u00B2"},
        {Units (VolumeUnit::CubicMeter, 2), V, 2.5, "2.50 m\u00B3"},
        {Units (VolumeUnit::Liter, 2), V, 2.5, "2500 l"},
        {Units (VolumeUnit::Liter, 4), V, 0.00125, "1.3 l"},
        {Units (VolumeUnit::CubicFoot, 2), V, Foot * Foot * Foot, "1.00 ft\u00B3"},
    });
}

TEST_F (WorkingUnitsTest, AnglesCarryAndPolarAnglesNormalise)
{
    const short A = RealSubtype::Angle;
    const short P = RealSubtype::PolarAngle;
    const WorkingUnits deg = Units (AngleUnit::DecimalDegree, 2);
    const WorkingUnits dms = Units (AngleUnit::DegreeMinuteSecond, 2);
    const WorkingUnits gon = Units (AngleUnit::Grad, 2);
    const WorkingUnits rad = Units (AngleUnit::Radian, 2);
    ExpectFormats ({
        {deg, A, 90.0, "90.00\u00B0"},
        {deg, A, -450.0, "-450.00\u00B0"},
        {dms, A, 12.0 + 30.0 / 60.0 + 15.0 / 3600.0, "12\u00B030'15\""},
        {dms, A, 12.0 + 59.0 / 60.0 + 59.6 / 3600.0, "13\u00B00'0\""},
        {dms, A, 0.99999, "1\u00B00'0\""},
        {dms, A, -12.5, "-12\u00B030'0\""},
        {Units (AngleUnit::DegreeMinuteSecond, 6), A, 12.0 + 30.0 / 60.0 + 15.25 / 3600.0, "12\u00B030'15.25\""},
        {Units (AngleUnit::DegreeMinuteSecond, 6), A, 1.0 / 3600.0 / 100.0, "0\u00B00'0.01\""},
        {gon, A, 90.0, "100.00 gon"},
        {rad, A, 90.0, "1.5708 rad"},
        {deg, P, -90.0, "270.00\u00B0"},
        {deg, P, 450.0, "90.00\u00B0"},
        {deg, P, 360.0, "0.00\u00B0"},
        {deg, P, 359.996, "0.00\u00B0"},
        {deg, P, -0.0001, "0.00\u00B0"},
        {deg, P, 359.994, "359.99\u00B0"},
        {dms, P, 359.99999, "0\u00B00'0\""},
        {dms, P, -0.5, "359\u00B030'0\""},
        {gon, P, -90.0, "300.00 gon"},
        {rad, P, 359.999, "0.0000 rad"},
        {rad, P, 180.0, "3.1416 rad"},
    });
}

TEST_F (WorkingUnitsTest, PlainRealsNonFiniteAndHugeValues)
{
    WorkingUnits zeroDecimals;
    zeroDecimals.realDecimals = 0;
    const WorkingUnits metric;
    const WorkingUnits imperial = WorkingUnits::Imperial ();
    const WorkingUnits dms = Units (AngleUnit::DegreeMinuteSecond, 2);
    const short R = RealSubtype::Real;
    ExpectFormats ({
        {metric, R, 2.5, "2.50"},
        {metric, R, 0.125, "0.13"},
        {metric, R, -0.001, "0.00"},
        {metric, R, -0.0, "0.00"},
        {zeroDecimals, R, 2.5, "3"},
        {zeroDecimals, R, -2.5, "-3"},
        {metric, 7, 2.5, "2.50"},                  // an unknown subtype is a plain real
        {metric, R, std::nan (""), "###"},
        {metric, RealSubtype::Length, Infinity, "###"},
        {metric, RealSubtype::PolarAngle, -Infinity, "###"},
        {metric, R, 999999999999999.0, "999999999999999.00"},
        {metric, R, 1e15, "1.00e+15"},
        {metric, R, 1e300, "1.00e+300"},
        {metric, RealSubtype::Length, -1e300, "-1.000e+300 m"},
        {imperial, RealSubtype::Length, 1e300, "3.281e+300'"},
        {dms, RealSubtype::Angle, 1e300, "1.00e+300\u00B0"},
        {metric, RealSubtype::PolarAngle, 1e300, "0.00\u00B0"},
        {metric, R, std::numeric_limits<double>::denorm_min (), "0.00"},
    });
}

TEST_F (WorkingUnitsTest, SettingSanitisesDecimalsAndUnits)
{
    WorkingUnits odd;
    odd.lengthDecimals = 42;
    odd.realDecimals = -3;
    odd.length = static_cast<LengthUnit> (99);
    odd.angle = static_cast<AngleUnit> (-1);
    SetWorkingUnits (odd);
    const WorkingUnits& stored = GetWorkingUnits ();
    EXPECT_EQ (stored.lengthDecimals, WorkingUnits::MaxDecimals);
    EXPECT_EQ (stored.realDecimals, 0);
    EXPECT_EQ (GetRealDisplayDigits (), 0);
    EXPECT_EQ (stored.length, LengthUnit::Meter);
    EXPECT_EQ (stored.angle, AngleUnit::DecimalDegree);
    EXPECT_EQ (Format (0.5, RealSubtype::Length), "0.50000000 m");
    // Explicit units are sanitised the same way.
    EXPECT_EQ (DoubleToString (2.5, RealSubtype::Real, odd).ToUtf8 (), "3");
}

// --- Parsing ---

TEST_F (WorkingUnitsTest, ExplicitSuffixesParseRegardlessOfWorkingUnits)
{
    constexpr double Second = 1.0 / 3600.0;
    const std::vector<ParseCase> cases = {
        {"2500mm", RealSubtype::Length, 2.5},
        {"2500 mm", RealSubtype::Length, 2.5},
        {"2.5 m", RealSubtype::Length, 2.5},
        {"2.5M", RealSubtype::Length, 2.5},
        {"250cm", RealSubtype::Length, 2.5},
        {"8'-2 1/2\"", RealSubtype::Length, 98.5 * Inch},
        {"8' 2 1/2\"", RealSubtype::Length, 98.5 * Inch},
        {"8'-2-1/2\"", RealSubtype::Length, 98.5 * Inch},
        {"8'2\"", RealSubtype::Length, 98.0 * Inch},
        {"8'2", RealSubtype::Length, 98.0 * Inch},
        {"8'", RealSubtype::Length, 96.0 * Inch},
        {"8' 14\"", RealSubtype::Length, 110.0 * Inch},
        {"8 ft 6 in", RealSubtype::Length, 102.0 * Inch},
        {"8ft6inches", RealSubtype::Length, 102.0 * Inch},
        {"8\u2032 2\u2033", RealSubtype::Length, 98.0 * Inch},
        {"2 1/2\"", RealSubtype::Length, 2.5 * Inch},
        {"1/2\"", RealSubtype::Length, 0.5 * Inch},
        {"3''", RealSubtype::Length, 3.0 * Inch},
        {"98.5\"", RealSubtype::Length, 98.5 * Inch},
        {"98.5 in", RealSubtype::Length, 98.5 * Inch},
        {"8.25 ft", RealSubtype::Length, 8.25 * Foot},
        {"8.25'", RealSubtype::Length, 8.25 * Foot},
        {"-3'-6\"", RealSubtype::Length, -42.0 * Inch},
        {"  +2.5 m \t", RealSubtype::Length, 2.5},
        {"- 2.5 m", RealSubtype::Length, -2.5},
        {".5m", RealSubtype::Length, 0.5},
        {"2.m", RealSubtype::Length, 2.0},
        {"1e3 mm", RealSubtype::Length, 1.0},
        {"90\u00B0", RealSubtype::Angle, 90.0},
        {"90 deg", RealSubtype::Angle, 90.0},
        {"90d", RealSubtype::Angle, 90.0},
        {"45\u00BA", RealSubtype::Angle, 45.0},
        {"12\u00B030'15\"", RealSubtype::Angle, 12.5 + 15.0 * Second},
        {"12d 30' 15\"", RealSubtype::Angle, 12.5 + 15.0 * Second},
        {"12\u00B030'", RealSubtype::Angle, 12.5},
        {"12\u00B030", RealSubtype::Angle, 12.5},
        {"12\u00B030'15", RealSubtype::Angle, 12.5 + 15.0 * Second},
        {"30'", RealSubtype::Angle, 0.5},
        {"-12\u00B030'", RealSubtype::Angle, -12.5},
        {"100gon", RealSubtype::Angle, 90.0},
        {"100 grad", RealSubtype::PolarAngle, 90.0},
        {"1.5708 rad", RealSubtype::Angle, 1.5708 * 180.0 / Pi},
        {"1.5708rad", RealSubtype::PolarAngle, 1.5708 * 180.0 / Pi},
        {"-90\u00B0", RealSubtype::PolarAngle, -90.0},
        {"2 m\u00B2", RealSubtype::Area, 2.0},
        {"2m2", RealSubtype::Area, 2.0},
        {"2 m^2", RealSubtype::Area, 2.0},
        {"2 sq m", RealSubtype::Area, 2.0},
        {"2 sq. ft", RealSubtype::Area, 2.0 * Foot * Foot},
        {"2 ft\u00B2", RealSubtype::Area, 2.0 * Foot * Foot},
        {"2 FT2", RealSubtype::Area, 2.0 * Foot * Foot},
        {"100 cm\u00B2", RealSubtype::Area, 0.01},
        {"144 in\u00B2", RealSubtype::Area, Foot * Foot},
        {"1000000 mm2", RealSubtype::Area, 1.0},
        {"2 m\u00B3", RealSubtype::Volume, 2.0},
        {"2 m3", RealSubtype::Volume, 2.0},
        {"2 L", RealSubtype::Volume, 0.002},
        {"2 l", RealSubtype::Volume, 0.002},
        {"2 litres", RealSubtype::Volume, 0.002},
        {"1 ft\u00B3", RealSubtype::Volume, Foot * Foot * Foot},
        {"2 cu ft", RealSubtype::Volume, 2.0 * Foot * Foot * Foot},
        {"1000 cm3", RealSubtype::Volume, 0.001},
        {"2.5", RealSubtype::Real, 2.5},
        {"-1e3", RealSubtype::Real, -1000.0},
        {"+.5E+1", RealSubtype::Real, 5.0},
    };
    WorkingUnits odd;
    odd.length = LengthUnit::Inch;
    odd.area = AreaUnit::SquareInch;
    odd.volume = VolumeUnit::Liter;
    odd.angle = AngleUnit::Radian;
    for (const WorkingUnits& units : {WorkingUnits::Metric (), WorkingUnits::Imperial (), odd}) {
        SetWorkingUnits (units);
        for (const ParseCase& c : cases) {
            const std::optional<double> parsed = Parse (c.text, c.subtype);
            ASSERT_TRUE (parsed.has_value ()) << c.text;
            EXPECT_TRUE (IsNear (*parsed, c.expected)) << c.text << " gave " << *parsed;
        }
    }
}

TEST_F (WorkingUnitsTest, NumbersWithoutUnitAreInTheWorkingUnit)
{
    struct Case {
        WorkingUnits units;
        const char*  text;
        short        subtype;
        double       expected;
    };
    const Case cases[] = {
        {Units (LengthUnit::Meter, 3), "2.5", RealSubtype::Length, 2.5},
        {Units (LengthUnit::Centimeter, 3), "250", RealSubtype::Length, 2.5},
        {Units (LengthUnit::Millimeter, 3), "2500", RealSubtype::Length, 2.5},
        {Units (LengthUnit::DecimalFoot, 2), "8", RealSubtype::Length, 8.0 * Foot},
        {Units (LengthUnit::FootFractionalInch, 3), "8", RealSubtype::Length, 8.0 * Foot},
        {Units (LengthUnit::FootFractionalInch, 3), "8 1/2", RealSubtype::Length, 8.5 * Foot},
        {Units (LengthUnit::Inch, 1), "8", RealSubtype::Length, 8.0 * Inch},
        {Units (AreaUnit::SquareCentimeter, 2), "100", RealSubtype::Area, 0.01},
        {Units (AreaUnit::SquareFoot, 2), "1", RealSubtype::Area, Foot * Foot},
        {Units (VolumeUnit::Liter, 2), "1000", RealSubtype::Volume, 1.0},
        {Units (VolumeUnit::CubicFoot, 2), "1", RealSubtype::Volume, Foot * Foot * Foot},
        {Units (AngleUnit::Grad, 2), "100", RealSubtype::Angle, 90.0},
        {Units (AngleUnit::Radian, 2), "1", RealSubtype::PolarAngle, 180.0 / Pi},
        {Units (AngleUnit::DegreeMinuteSecond, 2), "12", RealSubtype::Angle, 12.0},
    };
    for (const Case& c : cases) {
        SetWorkingUnits (c.units);
        const std::optional<double> parsed = Parse (c.text, c.subtype);
        ASSERT_TRUE (parsed.has_value ()) << c.text;
        EXPECT_TRUE (IsNear (*parsed, c.expected)) << c.text << " gave " << *parsed;
    }
}

TEST_F (WorkingUnitsTest, RefusesWhatDoesNotParseCompletely)
{
    const std::vector<std::pair<const char*, short>> bad = {
        {"", RealSubtype::Length}, {"   ", RealSubtype::Length}, {"mm", RealSubtype::Length},
        {"1'2'3", RealSubtype::Length}, {"8'6'", RealSubtype::Length}, {"8\"6\"", RealSubtype::Length},
        {"2 m\u00B2", RealSubtype::Length}, {"2 deg", RealSubtype::Length}, {"2 ft\u00B2", RealSubtype::Length},
        {"nan", RealSubtype::Length}, {"inf", RealSubtype::Length}, {"-infinity", RealSubtype::Real},
        {"NaN", RealSubtype::Real}, {"2,5", RealSubtype::Length}, {"2,5 m", RealSubtype::Length},
        {"1e13 m", RealSubtype::Length}, {"1e13", RealSubtype::Length}, {"2 m m", RealSubtype::Length},
        {"2 mx", RealSubtype::Length}, {"2 m 3", RealSubtype::Length}, {"--2", RealSubtype::Length},
        {"+-2", RealSubtype::Length}, {"8'-", RealSubtype::Length}, {"8'--2\"", RealSubtype::Length},
        {"8'-2 1/2\" x", RealSubtype::Length}, {"1/0\"", RealSubtype::Length}, {"1/2.5\"", RealSubtype::Length},
        {"1.5/2\"", RealSubtype::Length}, {"2 1/0", RealSubtype::Length}, {"2 1/2/3", RealSubtype::Length},
        {"'", RealSubtype::Length}, {"\"", RealSubtype::Length}, {"0x10", RealSubtype::Length},
        {"1e", RealSubtype::Length}, {"1e+ m", RealSubtype::Length}, {". m", RealSubtype::Length},
        {"8' 2 m", RealSubtype::Length}, {"2-1", RealSubtype::Length},
        {"90 m", RealSubtype::Angle}, {"12\u00B030'15\"20", RealSubtype::Angle},
        {"30'12\u00B0", RealSubtype::Angle}, {"12\u00B0\u00B0", RealSubtype::Angle},
        {"100 gon 3", RealSubtype::Angle}, {"12\u00B0 1.5 rad", RealSubtype::Angle}, {"12 30", RealSubtype::Angle},
        {"1e13\u00B0", RealSubtype::PolarAngle},
        {"2 m", RealSubtype::Area}, {"2 m\u00B3", RealSubtype::Area}, {"2 l", RealSubtype::Area},
        {"2 sq", RealSubtype::Area}, {"2 sqm3", RealSubtype::Area}, {"1e25", RealSubtype::Area},
        {"2 m\u00B2", RealSubtype::Volume}, {"2 m", RealSubtype::Volume}, {"2 ft", RealSubtype::Volume},
        {"2 m", RealSubtype::Real}, {"1/2", RealSubtype::Real}, {"2.5.3", RealSubtype::Real},
        {"abc", RealSubtype::Real}, {"1e400", RealSubtype::Real}, {"", RealSubtype::Real},
    };
    for (const auto& [text, subtype] : bad)
        EXPECT_FALSE (Parse (text, subtype).has_value ()) << "'" << text << "' for subtype " << subtype;
}

TEST_F (WorkingUnitsTest, HugeInputsParseInLinearTimeWithoutOverreading)
{
    constexpr std::size_t Length = 100000;
    const std::string blanks (Length, ' ');
    EXPECT_EQ (Parse (blanks + "2.5 m" + blanks, RealSubtype::Length), 2.5);
    EXPECT_EQ (Parse (std::string (Length, '0') + "2.5", RealSubtype::Real), 2.5);
    EXPECT_FALSE (Parse (std::string (Length, '9'), RealSubtype::Real).has_value ());
    EXPECT_FALSE (Parse (std::string (Length, '9'), RealSubtype::Length).has_value ());
    EXPECT_FALSE (Parse (std::string (Length, '\''), RealSubtype::Length).has_value ());
    EXPECT_FALSE (Parse ("1" + std::string (Length, '/'), RealSubtype::Length).has_value ());
    EXPECT_FALSE (Parse ("12\u00B0" + std::string (Length, '1'), RealSubtype::Angle).has_value ());
    EXPECT_FALSE (Parse ("2 " + std::string (Length, 'm'), RealSubtype::Area).has_value ());
}

// --- Round trips: what is shown parses back to the value within the shown precision ---

TEST_F (WorkingUnitsTest, FormattedValuesParseBackInEveryUnit)
{
    struct Config {
        WorkingUnits units;
        short        subtype;
        double       step;   // the shown resolution in base units
    };
    constexpr double SquareFoot = Foot * Foot;
    constexpr double SquareInch = Inch * Inch;
    constexpr double CubicFoot = SquareFoot * Foot;
    const Config configs[] = {
        {Units (LengthUnit::Meter, 3), RealSubtype::Length, 1e-3},
        {Units (LengthUnit::Meter, 0), RealSubtype::Length, 1.0},
        {Units (LengthUnit::Centimeter, 3), RealSubtype::Length, 1e-3},
        {Units (LengthUnit::Centimeter, 0), RealSubtype::Length, 1e-2},
        {Units (LengthUnit::Millimeter, 3), RealSubtype::Length, 1e-3},
        {Units (LengthUnit::Millimeter, 8), RealSubtype::Length, 1e-8},
        {Units (LengthUnit::DecimalFoot, 2), RealSubtype::Length, 0.01 * Foot},
        {Units (LengthUnit::FootFractionalInch, 0), RealSubtype::Length, Inch},
        {Units (LengthUnit::FootFractionalInch, 3), RealSubtype::Length, Inch / 8.0},
        {Units (LengthUnit::FootFractionalInch, 6), RealSubtype::Length, Inch / 64.0},
        {Units (LengthUnit::Inch, 1), RealSubtype::Length, 0.1 * Inch},
        {Units (AreaUnit::SquareMeter, 2), RealSubtype::Area, 1e-2},
        {Units (AreaUnit::SquareCentimeter, 2), RealSubtype::Area, 1e-4},
        {Units (AreaUnit::SquareFoot, 2), RealSubtype::Area, 0.01 * SquareFoot},
        {Units (AreaUnit::SquareInch, 1), RealSubtype::Area, 0.1 * SquareInch},
        {Units (VolumeUnit::CubicMeter, 2), RealSubtype::Volume, 1e-2},
        {Units (VolumeUnit::Liter, 5), RealSubtype::Volume, 1e-5},
        {Units (VolumeUnit::CubicFoot, 3), RealSubtype::Volume, 1e-3 * CubicFoot},
        {Units (AngleUnit::DecimalDegree, 2), RealSubtype::Angle, 1e-2},
        {Units (AngleUnit::DegreeMinuteSecond, 2), RealSubtype::Angle, 1.0 / 3600.0},
        {Units (AngleUnit::DegreeMinuteSecond, 6), RealSubtype::Angle, 0.01 / 3600.0},
        {Units (AngleUnit::Grad, 3), RealSubtype::Angle, 1e-3 * 0.9},
        {Units (AngleUnit::Radian, 2), RealSubtype::Angle, 1e-4 * 180.0 / Pi},
        {Units (AngleUnit::DecimalDegree, 2), RealSubtype::PolarAngle, 1e-2},
        {Units (AngleUnit::DegreeMinuteSecond, 2), RealSubtype::PolarAngle, 1.0 / 3600.0},
        {Units (AngleUnit::Radian, 2), RealSubtype::PolarAngle, 1e-4 * 180.0 / Pi},
        {WorkingUnits (), RealSubtype::Real, 1e-2},
    };
    const double values[] = {0.0, 1e-4, 0.0005, 0.0635, 0.3048, 1.0, 2.5, 2.4892, -3.1234567, 12.3456789,
                             359.9987, 1234.5678, -0.2, -98765.4321};
    for (const Config& config : configs) {
        SetWorkingUnits (config.units);
        for (const double value : values) {
            const Kor::UniString shown = DoubleToString (value, config.subtype);
            const std::optional<double> parsed = ParseRealValue (shown, config.subtype);
            ASSERT_TRUE (parsed.has_value ()) << shown << " (subtype " << config.subtype << ")";
            double error = std::fabs (*parsed - value);
            if (config.subtype == RealSubtype::PolarAngle) {
                error = std::fmod (error, 360.0);
                error = std::min (error, 360.0 - error);
            }
            EXPECT_LE (error, config.step * 0.5 * (1.0 + 1e-9) + 1e-12 * std::fabs (value))
                << value << " shown as " << shown << " parsed as " << *parsed;
        }
    }
}
