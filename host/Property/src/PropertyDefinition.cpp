#include "Property/PropertyDefinition.hpp"

#include <utility>

namespace Property {

PropertyDefinitionGroup::PropertyDefinitionGroup (const Kor::Guid& guid, const PropertyDefinitionGroupUserId& userId,
                                                  const Kor::UniString& name, const Kor::UniString& description)
    : guid (guid), userId (userId), name (name), description (description)
{
}

PropertyDefinition::PropertyDefinition (Data source) : data (std::move (source))
{
    if (data.valueDescriptor.IsNull ())
        data.valueDescriptor = std::shared_ptr<const IValueDescriptor> (std::make_shared<const TypeValueDescriptor> (data.valueType, data.collectionType));
    if (data.defaultValue == nullptr) {
        Kor::Owner<Kor::DynamicValue> fresh = data.valueDescriptor->CreateValue ();
        data.defaultValue = std::shared_ptr<const Kor::DynamicValue> (fresh.Release ());
    }
}

}   // namespace Property
