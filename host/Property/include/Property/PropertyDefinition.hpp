#pragma once
// Property definitions and their groups. A definition says what a property is (guid, name,
// description, group, value type, collection type, measure, value descriptor and default
// value); a group gathers definitions that belong together (a property set). Both are shared
// through Kor::ConstSharedPtr and never change after construction.

#include <memory>

#include "Kor/DynamicValue.hpp"
#include "Kor/Guid.hpp"
#include "Kor/Owner.hpp"
#include "Kor/UniString.hpp"
#include "Property/Measure.hpp"
#include "Property/ValueDescriptor.hpp"

namespace Property {

// The identity a user gives a group: a primary id (the set's name) and a secondary one (its
// source or version). Groups with the same primary id are the same group to a user.
class PropertyDefinitionGroupUserId {
public:
    PropertyDefinitionGroupUserId () = default;
    explicit PropertyDefinitionGroupUserId (const Kor::UniString& primaryId, const Kor::UniString& secondaryId = {})
        : primaryId (primaryId), secondaryId (secondaryId)
    {
    }

    const Kor::UniString& GetPrimaryId () const { return primaryId; }
    const Kor::UniString& GetSecondaryId () const { return secondaryId; }

    bool IsEqualByPrimaryId (const PropertyDefinitionGroupUserId& other) const { return primaryId == other.primaryId; }
    bool operator== (const PropertyDefinitionGroupUserId& other) const = default;

private:
    Kor::UniString primaryId;
    Kor::UniString secondaryId;
};

// A group of property definitions (a property set).
class PropertyDefinitionGroup {
public:
    PropertyDefinitionGroup (const Kor::Guid& guid, const PropertyDefinitionGroupUserId& userId, const Kor::UniString& name,
                             const Kor::UniString& description);

    const Kor::Guid&                     GetGuid () const { return guid; }
    const PropertyDefinitionGroupUserId& GetUserId () const { return userId; }
    const Kor::UniString&                GetName () const { return name; }
    const Kor::UniString&                GetDescription () const { return description; }

private:
    Kor::Guid                     guid;
    PropertyDefinitionGroupUserId userId;
    Kor::UniString                name;
    Kor::UniString                description;
};

// One property: what it is called, what it holds and what it holds by default.
class PropertyDefinition {
public:
    // Everything a definition holds, filled in by whoever makes one.
    struct Data {
        Kor::Guid                                  guid;
        Kor::UniString                             name;
        Kor::UniString                             description;
        Kor::ConstSharedPtr<PropertyDefinitionGroup> group;
        PropertyValueType                          valueType = PropertyValueType::String;
        PropertyCollectionType                     collectionType = PropertyCollectionType::Single;
        Measure                                    measure;
        // Null: a TypeValueDescriptor of the value and collection types is made.
        Kor::ConstSharedPtr<IValueDescriptor>      valueDescriptor;
        // Null: the descriptor's fresh value.
        std::shared_ptr<const Kor::DynamicValue>   defaultValue;
    };

    explicit PropertyDefinition (Data data);

    const Kor::Guid&                                GetGuid () const { return data.guid; }
    const Kor::UniString&                           GetName () const { return data.name; }
    const Kor::UniString&                           GetDescription () const { return data.description; }
    const Kor::ConstSharedPtr<PropertyDefinitionGroup>& GetGroup () const { return data.group; }
    PropertyValueType                               GetValueType () const { return data.valueType; }
    PropertyCollectionType                          GetCollectionType () const { return data.collectionType; }
    const Measure&                                  GetMeasure () const { return data.measure; }
    const Kor::ConstSharedPtr<IValueDescriptor>&    GetValueDescriptor () const { return data.valueDescriptor; }
    // Never null.
    const Kor::DynamicValue&                        GetDefaultValue () const { return *data.defaultValue; }

private:
    Data data;
};

}   // namespace Property
