#pragma once
// Value descriptors: what values a property takes, how a fresh one looks, how a typed text
// becomes one and how one reads on screen. Enumerations list their values with a key guid, the
// value as stored and the text a user reads; they hold one value or several.

#include <cstdint>
#include <optional>

#include "Kor/Array.hpp"
#include "Kor/DynamicValue.hpp"
#include "Kor/Guid.hpp"
#include "Kor/Owner.hpp"
#include "Kor/UniString.hpp"

namespace Property {

// The type of one value of a property.
enum class PropertyValueType : std::int32_t {
    Boolean     = 0,
    Integer     = 1,
    Real        = 2,
    String      = 3,
    Enumeration = 4,
};

// Whether a property holds one value or a list of them.
enum class PropertyCollectionType : std::int32_t {
    Single = 0,
    List   = 1,
};

// What values a property takes. Shared by definitions and never changed after construction.
class IValueDescriptor {
public:
    virtual ~IValueDescriptor () = default;

    // A fresh, normal value of the property's type.
    virtual Kor::Owner<Kor::DynamicValue> CreateValue () const = 0;
    // The value that a user's text stands for; null when the text names no value.
    virtual Kor::Owner<Kor::DynamicValue> ConvertFromString (const Kor::StringValue& text) const = 0;
    // The text a user reads for a value of this property.
    virtual Kor::UniString GetDisplayValue (const Kor::DynamicValue& value, const Kor::DynamicValueConversionRules& rules) const;
};

// Values of a plain type: booleans, integers, reals and texts, single or as a list.
class TypeValueDescriptor : public IValueDescriptor {
public:
    TypeValueDescriptor (PropertyValueType valueType, PropertyCollectionType collectionType);

    PropertyValueType      GetValueType () const { return valueType; }
    PropertyCollectionType GetCollectionType () const { return collectionType; }

    Kor::Owner<Kor::DynamicValue> CreateValue () const override;
    // Booleans read "true"/"false", "yes"/"no" and "1"/"0" in any case; numbers in the C
    // locale; a list takes one entry per line.
    Kor::Owner<Kor::DynamicValue> ConvertFromString (const Kor::StringValue& text) const override;

private:
    PropertyValueType      valueType;
    PropertyCollectionType collectionType;
};

// One value of an enumeration.
struct EnumerationValue {
    Kor::Guid      key;           // identifies the value, also across languages
    Kor::UniString value;         // the value as the source data stores it ("NOTDEFINED")
    Kor::UniString displayText;   // what a user reads ("Not defined")
    Kor::UniString description;
};

// An enumeration. A single-valued one stores the chosen value as a Kor::StringValue of its
// display text; a multi-valued one stores a Kor::GuidListValue of the chosen keys.
class EnumerationValueDescriptor : public IValueDescriptor {
public:
    EnumerationValueDescriptor (const Kor::Array<EnumerationValue>& values, bool multiValue);

    const Kor::Array<EnumerationValue>& GetEnumerationValues () const { return values; }
    bool                                HasMultiValue () const { return multiValue; }
    // The 0-based position of the value with this key or this display text.
    std::optional<std::size_t> FindKey (const Kor::Guid& key) const;
    std::optional<std::size_t> FindDisplayText (const Kor::UniString& text) const;

    // Empty text or an empty guid list.
    Kor::Owner<Kor::DynamicValue> CreateValue () const override;
    // The value whose display text (or, failing that, stored value) is the text; null otherwise.
    Kor::Owner<Kor::DynamicValue> ConvertFromString (const Kor::StringValue& text) const override;
    // A guid list reads as the display texts of its keys in list order; unknown keys are left out.
    Kor::UniString GetDisplayValue (const Kor::DynamicValue& value, const Kor::DynamicValueConversionRules& rules) const override;

private:
    Kor::Array<EnumerationValue> values;
    bool                         multiValue;
};

}   // namespace Property
