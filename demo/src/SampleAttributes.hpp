#pragma once
// The attributes of the demo's project: the embedded sample attribute set (pens, fills,
// composites, line types, profiles, materials, building materials). The model names
// attributes by their names; these helpers turn names into indices and back.

#include <string>

#include "ADB/AttributeSet.hpp"

namespace Demo {

// The provider of the demo's attribute set (lives for the whole program).
const ADB::IAttributeSetProvider& GetSampleAttributes ();

// The index of the attribute of type with that name; InvalidAttributeIndex when none has it.
ADB::AttributeIndex FindSampleAttribute (ADB::AttributeTypeId type, const std::string& name);
// The name of an attribute; empty when there is none.
std::string         GetSampleAttributeName (ADB::AttributeTypeId type, ADB::AttributeIndex index);

}   // namespace Demo
