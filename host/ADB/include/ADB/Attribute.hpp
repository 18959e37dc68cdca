#pragma once
// ADB::Attribute: the base of every stored attribute (pen tables, fills, composites, ...). An
// attribute has a type id, an index within its type (given by the set that stores it) and a
// display name. Its class info names its class; code that must know an attribute's class asks
// the class info first and the run-time type only when an attribute has none.

#include <string_view>

#include "ADB/AttributeIndex.hpp"
#include "Kor/Object.hpp"
#include "Kor/UniString.hpp"

namespace ADB {

// The class of an attribute, with its base class.
class ClassInfo {
public:
    constexpr ClassInfo (std::string_view name, const ClassInfo* base = nullptr) : name (name), base (base) {}

    std::string_view GetName () const { return name; }
    // Whether this class is other or derives from it.
    bool IsKindOf (const ClassInfo& other) const
    {
        for (const ClassInfo* info = this; info != nullptr; info = info->base)
            if (info == &other) return true;
        return false;
    }

private:
    std::string_view name;
    const ClassInfo* base;
};

// The base of every stored attribute.
class Attribute : public Kor::Object {
public:
    Attribute (AttributeTypeId typeId, const Kor::UniString& name) : typeId (typeId), name (name) {}

    AttributeTypeId       GetTypeId () const { return typeId; }
    AttributeIndex        GetIndex () const { return index; }
    const Kor::UniString& GetName () const { return name; }
    void                  SetName (const Kor::UniString& newName) { name = newName; }

    // The attribute's class, or null for an attribute class that declares none.
    virtual const ClassInfo* GetClassInfo () const { return nullptr; }

    // Only the set that stores the attribute numbers it.
    void SetIndex (AttributeIndex newIndex) { index = newIndex; }

private:
    AttributeTypeId typeId;
    AttributeIndex  index;
    Kor::UniString  name;
};

// Whether attribute is a T: by class info when it has one, else by run-time type.
template <typename T>
const T* AttributeCast (const Attribute* attribute)
{
    if (attribute == nullptr) return nullptr;
    if (const ClassInfo* info = attribute->GetClassInfo ())
        return info->IsKindOf (T::classInfo) ? static_cast<const T*> (attribute) : nullptr;
    return dynamic_cast<const T*> (attribute);
}

}   // namespace ADB
