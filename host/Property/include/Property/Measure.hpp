#pragma once
// Property::Measure: what a property's number measures. Lengths, areas, volumes and angles are
// stored in base units (metres, square metres, cubic metres, radians); the list shows them in
// the user's working units. Every other measure is a plain number.

#include <cstdint>

#include "Kor/UniString.hpp"

namespace Property {

enum class MeasureType : std::int32_t {
    Undefined = 0,   // no measure: booleans, texts, enumerations
    Number    = 1,   // a unitless or otherwise measured real (ratios, masses, energies, ...)
    Length    = 2,
    Area      = 3,
    Volume    = 4,
    Angle     = 5,   // a plane angle, in radians
    Count     = 6,   // a whole number of things
};

// The measure of a property: its type, and the name the source data gave it (for tool tips).
class Measure {
public:
    Measure () = default;
    explicit Measure (MeasureType type, const Kor::UniString& name = {}) : type (type), name (name) {}

    MeasureType           GetMeasureType () const { return type; }
    const Kor::UniString& GetName () const { return name; }

    bool operator== (const Measure& other) const { return type == other.type && name == other.name; }

    // Whether a value of this measure is a number in base units that the list converts.
    bool IsUnitMeasure () const;

private:
    MeasureType    type = MeasureType::Undefined;
    Kor::UniString name;
};

}   // namespace Property
