#pragma once
// Complex property types: the combination of a property's collection type, value type and
// measure type, reduced to the ten kinds a user interface tells apart. A caller lets the type
// accept a visitor and exactly one visit operation runs.

#include "Kor/Owner.hpp"
#include "Property/Measure.hpp"
#include "Property/ValueDescriptor.hpp"

namespace Property {

// One of the ten kinds of property value a user interface shows differently.
class IComplexPropertyType {
public:
    // Visit operations, in slot order. Plain angles have no slot: they arrive as polar angles.
    class ComplexPropertyTypeVisitor {
    public:
        virtual ~ComplexPropertyTypeVisitor () = default;
        virtual void VisitPolarAngle () = 0;
        virtual void VisitVolume () = 0;
        virtual void VisitArea () = 0;
        virtual void VisitLength () = 0;
        virtual void VisitEnumeration () = 0;
        virtual void VisitStringList () = 0;
        virtual void VisitBoolean () = 0;
        virtual void VisitInteger () = 0;
        virtual void VisitString () = 0;
        virtual void VisitReal () = 0;
    };

    virtual ~IComplexPropertyType () = default;
    virtual void Accept (ComplexPropertyTypeVisitor& visitor) const = 0;
};

// The complex type of a combination. Enumerations are enumerations whatever their collection;
// other lists are string lists; reals split by measure (angles, volumes, areas, lengths, others);
// integers, booleans and strings ignore the measure.
Kor::ConstSharedPtr<IComplexPropertyType> GetComplexPropertyType (PropertyCollectionType collectionType, PropertyValueType valueType,
                                                                  MeasureType measureType);

}   // namespace Property
