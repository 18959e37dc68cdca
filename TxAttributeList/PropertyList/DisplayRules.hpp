#pragma once
// The conversion rules of every display text of the property list: the widget library's real
// display digits, and no flags.

#include "Kor/DynamicValue.hpp"
#include "Wg/WorkingUnits.hpp"

namespace TxAL {

inline Kor::DynamicValueConversionRules GetPropertyDisplayRules ()
{
    return Kor::DynamicValueConversionRules (static_cast<short> (Wg::GetRealDisplayDigits ()), 0);
}

}   // namespace TxAL
