#pragma once
// Fills an attribute list with the properties of the current selection: one group item per run
// of consecutive handlers of the same property group, one property item per handler. It keeps
// the values current, passes the user's changes to the handlers and tells its observers which
// property changed. It owns its groups and property items, never the list.

#include "Kor/Array.hpp"
#include "Kor/Event.hpp"
#include "Kor/Guid.hpp"
#include "Kor/HashSet.hpp"
#include "Kor/HashTable.hpp"
#include "Kor/Ref.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/AttributeListGroupItem.hpp"
#include "TxAttributeList/PropertyListItem.hpp"
#include "TxAttributeList/UserDefinedPropertyHandler.hpp"

namespace TxAL {

class PropertyListItemContainer;

// Hears that the user changed a property through the container's rows.
class PropertyListItemContainerObserver : public virtual Kor::EventObserver {
public:
    virtual void PropertyChanged (const PropertyListItemContainer& container, const Kor::Guid& propertyGuid);
};

// The property rows of an attribute list, built lazily from the collector's handlers.
class PropertyListItemContainer : public Kor::EventSource, public PropertyListItemObserver {
public:
    // Does not own the collector, which must outlive the container.
    explicit PropertyListItemContainer (IUserDefinedPropertyHandlerCollector& collector);
    PropertyListItemContainer (const PropertyListItemContainer&) = delete;
    PropertyListItemContainer& operator= (const PropertyListItemContainer&) = delete;
    ~PropertyListItemContainer () override;

    // Builds the items unless they are built, then adds every group item to the list in order.
    // The caller ends the batch with the list's FullRefreshList.
    void AppendToAttributeList (AttributeList& list);
    // The next AppendToAttributeList builds everything anew.
    void InvalidatePropertyListItems () { initialized = false; }
    // Binds every item's value again without rebuilding rows.
    void UpdatePropertyValues ();
    // Collapses the groups whose group guid is in the set; expands nothing.
    void CollapsePropertyGroupItems (const Kor::HashSet<Kor::Guid>& groupGuids);
    // Adds the group guid of every collapsed group item.
    void GetCollapsedPropertyGroupGuids (Kor::HashSet<Kor::Guid>& groupGuids) const;

    void Attach (PropertyListItemContainerObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (PropertyListItemContainerObserver& observer) { Kor::EventSource::Detach (observer); }

    // --- What is built, for callers and tests ---
    const Kor::Array<Kor::Ref<PropertyListItem>>&       GetPropertyItems () const { return propertyItems; }
    const Kor::Array<Kor::Ref<AttributeListGroupItem>>& GetGroupItems () const { return groupItems; }
    // The property guid of an item of this container; null when it has none.
    const Kor::Guid* GetPropertyGuid (const PropertyListItem& item) const { return propertyGuids.GetPtr (&item); }

protected:
    // --- PropertyListItemObserver ---
    void HasCustomValueChanged (const PropertyListItem& item, const Kor::DynamicValue* oldValue, const Kor::DynamicValue* newValue) override;
    void PropertyValueChanged (const PropertyListItem& item, const Kor::DynamicValue* value) override;

private:
    void                                  InitializePropertyListItems ();
    void                                  SetPropertyListItemValue (PropertyListItem& item, const Kor::Ref<IUserDefinedPropertyHandler>& handler);
    Kor::Ref<IUserDefinedPropertyHandler> GetHandler (const Kor::Guid& propertyGuid);
    void                                  NotifyPropertyChanged (const Kor::Guid& propertyGuid);

    IUserDefinedPropertyHandlerCollector&                             collector;
    Kor::Array<Kor::Ref<PropertyListItem>>                            propertyItems;
    Kor::HashTable<const PropertyListItem*, Kor::Guid>                propertyGuids;
    Kor::Array<Kor::Ref<AttributeListGroupItem>>                      groupItems;
    Kor::HashTable<const AttributeListGroupItem*, Kor::Guid>          groupGuids;
    bool                                                              initialized = false;
    Kor::HashTable<Kor::Guid, Kor::Ref<Kor::DynamicValue>>            lastCustomValues;
};

}   // namespace TxAL
