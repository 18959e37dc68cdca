#include "Property/Measure.hpp"

namespace Property {

bool Measure::IsUnitMeasure () const
{
    switch (type) {
        case MeasureType::Length:
        case MeasureType::Area:
        case MeasureType::Volume:
        case MeasureType::Angle: return true;
        case MeasureType::Undefined:
        case MeasureType::Number:
        case MeasureType::Count: return false;
    }
    return false;
}

}   // namespace Property
