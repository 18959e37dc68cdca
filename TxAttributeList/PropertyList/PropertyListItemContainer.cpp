#include "TxAttributeList/PropertyListItemContainer.hpp"

#include "Kor/LifeWatch.hpp"
#include "PropertyList/DisplayRules.hpp"
#include "TxAttributeList/PropertyListItemCreator.hpp"

// Call tree:
//   AppendToAttributeList -> InitializePropertyListItems (lazily) -> AttributeList::AddListItem
//   UpdatePropertyValues  -> collector (by guid) -> SetPropertyListItemValue -> PropertyListItem::Update
//   item: PropertyValueChanged  -> handler SetValue -> observers' PropertyChanged
//   item: HasCustomValueChanged -> handler RemoveCustomValue / SetValue -> observers' PropertyChanged

namespace TxAL {

namespace {

// Values of a property item, read from its handler.
class HandlerValueGetter : public PropertyListItemValueGetter {
public:
    explicit HandlerValueGetter (const Kor::Ref<IUserDefinedPropertyHandler>& handler) : handler (handler) {}

    Kor::Owner<Kor::DynamicValue> GetValue () override { return handler->GetValue (GetPropertyDisplayRules ()); }
    Kor::Owner<Kor::DynamicValue> CreateValue () override
    {
        return handler->GetPropertyDefinition ()->GetValueDescriptor ()->CreateValue ();
    }

private:
    Kor::Ref<IUserDefinedPropertyHandler> handler;
};

bool IsNormal (const Kor::DynamicValue* value)
{
    return value != nullptr && value->GetStatus () == Kor::DynamicValue::Normal;
}

}   // namespace

void PropertyListItemContainerObserver::PropertyChanged (const PropertyListItemContainer&, const Kor::Guid&) {}

PropertyListItemContainer::PropertyListItemContainer (IUserDefinedPropertyHandlerCollector& collector) : collector (collector) {}

PropertyListItemContainer::~PropertyListItemContainer ()
{
    // The rows leave their groups and the groups leave the list before the items go.
    groupItems.Clear ();
    propertyItems.Clear ();
}

void PropertyListItemContainer::AppendToAttributeList (AttributeList& list)
{
    if (!initialized) {
        InitializePropertyListItems ();
        initialized = true;
    }
    for (const Kor::Ref<AttributeListGroupItem>& group : groupItems) list.AddListItem (*group);
}

void PropertyListItemContainer::InitializePropertyListItems ()
{
    Kor::HashSet<Kor::Guid> collapsed;
    GetCollapsedPropertyGroupGuids (collapsed);
    // Groups first: each leaves the list once, taking its rows along.
    groupItems.Clear ();
    groupGuids.Clear ();
    propertyItems.Clear ();
    propertyGuids.Clear ();

    Property::PropertyDefinitionGroupUserId currentGroupId {Kor::UniString ()};
    AttributeListGroupItem*                 currentGroup = nullptr;

    const Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> handlers = collector.CollectUserDefinedPropertyHandlers ();
    propertyItems.reserve (handlers.GetSize ());
    propertyGuids.reserve (handlers.GetSize ());
    for (const Kor::Ref<IUserDefinedPropertyHandler>& handler : handlers) {
        const Kor::ConstSharedPtr<Property::PropertyDefinition> definition = handler->GetPropertyDefinition ();
        const Property::PropertyDefinitionGroup&                group = *definition->GetGroup ();
        if (!group.GetUserId ().IsEqualByPrimaryId (currentGroupId)) {
            // Runs of handlers make groups: a group that comes back later is shown again.
            auto groupItem = Kor::NewRef<AttributeListGroupItem> ();
            groupItem->SetName (group.GetName ());
            groupItem->SetDefaultToolTip (group.GetDescription ());
            groupItems.Push (groupItem);
            groupGuids.Put (groupItem.Get (), group.GetGuid ());
            currentGroupId = group.GetUserId ();
            currentGroup = groupItem.Get ();
        }
        if (currentGroup == nullptr) continue;

        const Kor::Ref<PropertyListItem> item = PropertyListItemCreator (handler).GetResult ();
        if (item.IsNull ()) continue;
        item->Initialize ();
        item->SetPropertyName (definition->GetName ());
        item->SetPropertyDescription (handler->GetDescription ());
        item->SetPropertyDefaultValueType (handler->GetDefaultValueType ());
        SetPropertyListItemValue (*item, handler);
        const bool editable = handler->ValueIsEditable ();
        item->SetEditable (editable);

        const IUserDefinedPropertyHandler::DisplayMode mode = handler->GetDisplayMode ();
        if (mode == IUserDefinedPropertyHandler::CalculationDisabled)
            item->DisableValueCalculation (PropertyListItem::CalculationNotAvailable);
        else if (!(editable && mode == IUserDefinedPropertyHandler::CalculatedOnDemand))
            item->DisableValueCalculation (PropertyListItem::CalculationOff);

        item->AddToGroup (*currentGroup);
        item->OnAttributeListItemChanged ([currentGroup] (AttributeListSimpleItem& oldItem, AttributeListSimpleItem& newItem) {
            currentGroup->ReplaceItem (&oldItem, &newItem);
        });
        item->Attach (static_cast<PropertyListItemObserver&> (*this));
        propertyItems.Push (item);
        propertyGuids.Put (item.Get (), definition->GetGuid ());
    }

    CollapsePropertyGroupItems (collapsed);
}

void PropertyListItemContainer::SetPropertyListItemValue (PropertyListItem& item, const Kor::Ref<IUserDefinedPropertyHandler>& handler)
{
    const Kor::Ref<PropertyListItemValueGetter> getter (new HandlerValueGetter (handler));
    item.Update (getter, handler->HasCustomValue ());
}

void PropertyListItemContainer::UpdatePropertyValues ()
{
    Kor::Array<Kor::Guid> guids;
    guids.reserve (propertyItems.GetSize ());
    for (const Kor::Ref<PropertyListItem>& item : propertyItems)
        if (const Kor::Guid* guid = propertyGuids.GetPtr (item.Get ())) guids.Push (*guid);

    Kor::HashTable<Kor::Guid, Kor::Ref<IUserDefinedPropertyHandler>> handlers;
    for (const Kor::Ref<IUserDefinedPropertyHandler>& handler : collector.CollectUserDefinedPropertyHandlers (guids))
        handlers.Put (handler->GetPropertyDefinition ()->GetGuid (), handler);

    // A copy: binding a value may run a handler that changes the container.
    const Kor::Array<Kor::Ref<PropertyListItem>> items = propertyItems;
    for (const Kor::Ref<PropertyListItem>& item : items) {
        const Kor::Guid* guid = propertyGuids.GetPtr (item.Get ());
        if (guid == nullptr) continue;
        const Kor::Ref<IUserDefinedPropertyHandler>* handler = handlers.GetPtr (*guid);
        if (handler != nullptr) SetPropertyListItemValue (*item, *handler);
    }
}

void PropertyListItemContainer::CollapsePropertyGroupItems (const Kor::HashSet<Kor::Guid>& guids)
{
    for (const Kor::Ref<AttributeListGroupItem>& group : groupItems) {
        const Kor::Guid* guid = groupGuids.GetPtr (group.Get ());
        if (guid != nullptr && guids.Contains (*guid)) group->Collapse ();
    }
}

void PropertyListItemContainer::GetCollapsedPropertyGroupGuids (Kor::HashSet<Kor::Guid>& guids) const
{
    for (const Kor::Ref<AttributeListGroupItem>& group : groupItems) {
        if (group->IsExpanded ()) continue;
        if (const Kor::Guid* guid = groupGuids.GetPtr (group.Get ())) guids.Add (*guid);
    }
}

Kor::Ref<IUserDefinedPropertyHandler> PropertyListItemContainer::GetHandler (const Kor::Guid& propertyGuid)
{
    Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> found = collector.CollectUserDefinedPropertyHandlers (Kor::Array<Kor::Guid> {propertyGuid});
    if (found.GetSize () != 1) return nullptr;
    return found[0];
}

void PropertyListItemContainer::NotifyPropertyChanged (const Kor::Guid& propertyGuid)
{
    NotifyObservers<PropertyListItemContainerObserver> (
        [this, &propertyGuid] (PropertyListItemContainerObserver& o) { o.PropertyChanged (*this, propertyGuid); });
}

void PropertyListItemContainer::PropertyValueChanged (const PropertyListItem& item, const Kor::DynamicValue* value)
{
    if (!IsNormal (value)) return;
    const Kor::Guid* found = propertyGuids.GetPtr (&item);
    if (found == nullptr) return;
    const Kor::Guid                             guid = *found;
    const Kor::Ref<IUserDefinedPropertyHandler> handler = GetHandler (guid);
    if (handler.IsNull ()) return;
    Kor::LifeWatch alive (*this);
    handler->SetValue (value);
    if (alive.IsGone ()) return;
    NotifyPropertyChanged (guid);
}

void PropertyListItemContainer::HasCustomValueChanged (const PropertyListItem& item, const Kor::DynamicValue* oldValue,
                                                       const Kor::DynamicValue* newValue)
{
    if ((oldValue == nullptr && newValue == nullptr) || (IsNormal (oldValue) && IsNormal (newValue))) return;
    const Kor::Guid* found = propertyGuids.GetPtr (&item);
    if (found == nullptr) return;
    const Kor::Guid                             guid = *found;
    const Kor::Ref<IUserDefinedPropertyHandler> handler = GetHandler (guid);
    if (handler.IsNull ()) return;
    if (IsNormal (oldValue)) lastCustomValues.Put (guid, Kor::Ref<Kor::DynamicValue> (oldValue->Clone ().Release ()));

    Kor::LifeWatch alive (*this);
    if (newValue == nullptr) {
        handler->RemoveCustomValue ();
    } else {
        const Kor::Ref<Kor::DynamicValue>* remembered = lastCustomValues.GetPtr (guid);
        // Going back to a custom value brings back what the user had typed.
        const Kor::DynamicValue* toStore = IsNormal (newValue) && remembered != nullptr ? remembered->Get () : newValue;
        handler->SetValue (toStore);
    }
    if (alive.IsGone ()) return;
    NotifyPropertyChanged (guid);
}

}   // namespace TxAL
