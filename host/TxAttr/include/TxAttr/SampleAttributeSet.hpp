#pragma once
// An embedded attribute set that a designer recognises: a full pen table (pens 1..255, weights
// 0.10 to 2.00 mm), about twenty fills (empty, solid, brick, concrete, insulation, earth,
// timber, glass, ...), six composites, eight line types, six profiles, ten materials and ten
// building materials. Attributes are numbered in the order listed in the source, so their
// names find them (ADB::AttributeSet::FindAttributeIndex).

#include <memory>

#include "ADB/AttributeSet.hpp"

namespace TxAttr {

std::shared_ptr<ADB::AttributeSet> MakeSampleAttributeSet ();

}   // namespace TxAttr
