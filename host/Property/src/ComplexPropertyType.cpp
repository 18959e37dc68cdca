#include "Property/ComplexPropertyType.hpp"

#include <memory>

namespace Property {

namespace {

using Visitor = IComplexPropertyType::ComplexPropertyTypeVisitor;

// One stateless type per slot; each calls its own visit operation.
template <void (Visitor::*Visit) ()>
class SlotType : public IComplexPropertyType {
public:
    void Accept (Visitor& visitor) const override { (visitor.*Visit) (); }
};

template <void (Visitor::*Visit) ()>
Kor::ConstSharedPtr<IComplexPropertyType> Shared ()
{
    static const std::shared_ptr<const IComplexPropertyType> type = std::make_shared<const SlotType<Visit>> ();
    return type;
}

}   // namespace

Kor::ConstSharedPtr<IComplexPropertyType> GetComplexPropertyType (PropertyCollectionType collectionType, PropertyValueType valueType,
                                                                  MeasureType measureType)
{
    if (valueType == PropertyValueType::Enumeration) return Shared<&Visitor::VisitEnumeration> ();
    if (collectionType == PropertyCollectionType::List) return Shared<&Visitor::VisitStringList> ();
    switch (valueType) {
        case PropertyValueType::Boolean: return Shared<&Visitor::VisitBoolean> ();
        case PropertyValueType::Integer: return Shared<&Visitor::VisitInteger> ();
        case PropertyValueType::String: return Shared<&Visitor::VisitString> ();
        case PropertyValueType::Enumeration: break;
        case PropertyValueType::Real:
            switch (measureType) {
                case MeasureType::Angle: return Shared<&Visitor::VisitPolarAngle> ();
                case MeasureType::Volume: return Shared<&Visitor::VisitVolume> ();
                case MeasureType::Area: return Shared<&Visitor::VisitArea> ();
                case MeasureType::Length: return Shared<&Visitor::VisitLength> ();
                case MeasureType::Undefined:
                case MeasureType::Number:
                case MeasureType::Count: return Shared<&Visitor::VisitReal> ();
            }
            break;
    }
    return nullptr;
}

}   // namespace Property
