#include "ADB/AttributeIndex.hpp"

#include <limits>

namespace ADB {

std::int32_t AttributeIndex::ToLegacyAttributeIndex_Deprecated () const
{
    if (value > static_cast<std::uint32_t> (std::numeric_limits<std::int32_t>::max ())) return -1;
    return static_cast<std::int32_t> (value);
}

AttributeIndex AttributeIndex::FromLegacyAttributeIndex (std::int32_t legacyIndex)
{
    return legacyIndex > 0 ? AttributeIndex (static_cast<std::uint32_t> (legacyIndex)) : InvalidAttributeIndex;
}

}   // namespace ADB
