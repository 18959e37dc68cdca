#pragma once
// ADB::AttributeSet: the attributes of one project (or template), by type and index, with one
// active attribute per type (for example the pen table in use). ADB::IAttributeSetProvider
// hands out the current set on every request; clients never keep the set, because the provider
// may switch to another one (a project loads another template).

#include <map>
#include <memory>
#include <vector>

#include "ADB/Attribute.hpp"
#include "ODB/Ref.hpp"

namespace ADB {

// The stored attributes of a project, by type and index.
class AttributeSet {
public:
    explicit AttributeSet (const Kor::UniString& name = {}) : name (name) {}

    const Kor::UniString& GetName () const { return name; }

    // Stores attribute under the next free index of its type and returns that index. The
    // first attribute of a type becomes its active one. A null attribute is refused
    // (InvalidAttributeIndex).
    AttributeIndex AddAttribute (std::shared_ptr<Attribute> attribute);
    // Makes index the active attribute of type; false when no such attribute is stored.
    bool           SetActiveAttribute (AttributeTypeId type, AttributeIndex index);

    // The attribute, or an empty reference when none is stored under (type, index).
    ODB::ConstRef<Attribute> GetConstAttribute (AttributeTypeId type, AttributeIndex index) const;
    // The active attribute of type; empty when the type has none.
    ODB::ConstRef<Attribute> GetConstActiveAttribute (AttributeTypeId type) const;
    // Loaded pointer access, for code that only reads: null when missing.
    const Attribute*         FindAttribute (AttributeTypeId type, AttributeIndex index) const;

    // The stored indices of type, ascending.
    std::vector<AttributeIndex> GetAttributeIndices (AttributeTypeId type) const;
    std::size_t                 GetAttributeCount (AttributeTypeId type) const;
    // The first attribute of type with that name; InvalidAttributeIndex when none has it.
    AttributeIndex              FindAttributeIndex (AttributeTypeId type, const Kor::UniString& attributeName) const;

private:
    struct TypeTable {
        std::map<AttributeIndex, std::shared_ptr<const Attribute>> attributes;
        AttributeIndex                                             active;
        std::uint32_t                                              lastIndex = 0;
    };

    Kor::UniString                       name;
    std::map<AttributeTypeId, TypeTable> types;
};

// Hands out the current attribute set on every request.
class IAttributeSetProvider {
public:
    virtual ~IAttributeSetProvider () = default;
    // The current set (an unloaded reference that may refer to nothing).
    virtual ODB::ConstRef<AttributeSet> GetAttributeSet () const = 0;
};

// A provider of one set at a time that the host can switch.
class AttributeSetProvider : public IAttributeSetProvider {
public:
    AttributeSetProvider () = default;
    explicit AttributeSetProvider (ODB::ConstRef<AttributeSet> set) : set (std::move (set)) {}

    void SetAttributeSet (ODB::ConstRef<AttributeSet> newSet) { set = std::move (newSet); }

    ODB::ConstRef<AttributeSet> GetAttributeSet () const override { return set; }

private:
    ODB::ConstRef<AttributeSet> set;
};

}   // namespace ADB
