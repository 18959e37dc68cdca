#include "TxAttributeList/PropertyListItemCreator.hpp"

#include <memory>

#include "TxAttributeList/PropertyListItems.hpp"

namespace TxAL {

PropertyListItemCreator::PropertyListItemCreator (const Kor::Ref<IUserDefinedPropertyHandler>& handler)
    : definition (handler->GetPropertyDefinition ())
{
    automaticDisplay = handler->GetDisplayMode () == IUserDefinedPropertyHandler::AlwaysDisplayed;
    const Kor::ConstSharedPtr<Property::IComplexPropertyType> complexType = Property::GetComplexPropertyType (
        definition->GetCollectionType (), definition->GetValueType (), definition->GetMeasure ().GetMeasureType ());
    complexType->Accept (*this);
}

template <typename ItemType, typename... Args>
void PropertyListItemCreator::Make (Args&&... args)
{
    Kor::Ref<PropertyListItem> item (new ItemType (std::forward<Args> (args)...));
    if (automaticDisplay) item->SetAutomaticDisplay (true);
    result = item;
}

void PropertyListItemCreator::VisitPolarAngle () { Make<PropertyListPolarAngleItem> (); }
void PropertyListItemCreator::VisitVolume () { Make<PropertyListVolumeItem> (); }
void PropertyListItemCreator::VisitArea () { Make<PropertyListAreaItem> (); }
void PropertyListItemCreator::VisitLength () { Make<PropertyListLengthItem> (); }

void PropertyListItemCreator::VisitEnumeration ()
{
    const Kor::ConstSharedPtr<Property::EnumerationValueDescriptor> enumeration (
        std::dynamic_pointer_cast<const Property::EnumerationValueDescriptor> (definition->GetValueDescriptor ().GetShared ()));
    if (enumeration.IsNull ()) return;
    if (enumeration->HasMultiValue ())
        Make<PropertyListMultiEnumerationPopupItem> (enumeration);
    else
        Make<PropertyListSingleEnumerationItem> (enumeration);
}

void PropertyListItemCreator::VisitStringList () { Make<PropertyListStringListPopupItem> (); }
void PropertyListItemCreator::VisitBoolean () { Make<PropertyListBooleanItem> (); }
void PropertyListItemCreator::VisitInteger () { Make<PropertyListIntItem> (); }
void PropertyListItemCreator::VisitString () { Make<PropertyListTextItem> (); }
void PropertyListItemCreator::VisitReal () { Make<PropertyListRealItem> (); }

}   // namespace TxAL
