#pragma once
// ADB::AttributeIndex: names a stored attribute within its type. Indices of stored attributes
// start at 1; InvalidAttributeIndex (0) names none.

#include <cstdint>
#include <functional>

namespace ADB {

// Attribute type ids (TxAttr names them).
using AttributeTypeId = std::int16_t;

// A 32-bit value naming an attribute within its type; 0 names none.
class AttributeIndex {
public:
    constexpr AttributeIndex () = default;
    constexpr explicit AttributeIndex (std::uint32_t value) : value (value) {}

    constexpr std::uint32_t GetValue () const { return value; }
    constexpr bool          IsValid () const { return value != 0; }

    // The signed index of older interfaces (picker callbacks): the same number; an index that
    // does not fit is -1.
    std::int32_t ToLegacyAttributeIndex_Deprecated () const;
    // The inverse: negative and zero legacy indices give InvalidAttributeIndex.
    static AttributeIndex FromLegacyAttributeIndex (std::int32_t legacyIndex);

    constexpr bool operator== (const AttributeIndex&) const = default;
    constexpr auto operator<=> (const AttributeIndex&) const = default;

private:
    std::uint32_t value = 0;
};

inline constexpr AttributeIndex InvalidAttributeIndex {};

}   // namespace ADB

template <>
struct std::hash<ADB::AttributeIndex> {
    std::size_t operator() (const ADB::AttributeIndex& index) const noexcept { return std::hash<std::uint32_t> () (index.GetValue ()); }
};
