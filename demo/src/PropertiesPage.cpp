#include "PropertiesPage.hpp"

#include <set>

namespace Demo {

// Stores into the first selected element through the store's own handler, then the same value
// into every other selected element.
class PropertiesPage::AllSelectedPropertyHandler : public TxAL::IUserDefinedPropertyHandlerDecorator {
public:
    AllSelectedPropertyHandler (const Kor::Ref<TxAL::IUserDefinedPropertyHandler>& decorated, ElementPropertyStore& store,
                                std::vector<std::string> others)
        : IUserDefinedPropertyHandlerDecorator (decorated), store (store), others (std::move (others))
    {
    }

    void SetValue (const Kor::DynamicValue* value) override
    {
        IUserDefinedPropertyHandlerDecorator::SetValue (value);
        if (value == nullptr) return;
        for (const std::string& id : others) store.SetCustomValue (id, Guid (), *value);
    }

    void RemoveCustomValue () override
    {
        IUserDefinedPropertyHandlerDecorator::RemoveCustomValue ();
        for (const std::string& id : others) store.RemoveCustomValue (id, Guid ());
    }

private:
    Kor::Guid Guid () { return GetPropertyDefinition ()->GetGuid (); }

    ElementPropertyStore&    store;
    std::vector<std::string> others;
};

// Stores into the first selected element, then through each other element's handler of the
// same system. The store hands out the handlers of one element at a time: it is pointed at each
// other element in turn and back at the first.
class PropertiesPage::AllSelectedClassificationHandler : public TxAL::ClassificationSystemHandlerDecorator {
public:
    AllSelectedClassificationHandler (Kor::Ref<TxAL::ClassificationSystemHandler> decorated, ElementClassificationStore& store,
                                      std::vector<std::string> selection)
        : ClassificationSystemHandlerDecorator (std::move (decorated)), store (store), selection (std::move (selection))
    {
    }

    void SetClassificationItem (const ODB::ConstRef<CLS::ClassificationItem>& item) const override
    {
        ClassificationSystemHandlerDecorator::SetClassificationItem (item);
        const auto system = GetDecoratedHandler ()->GetClassificationData ().GetClassificationSystem ();
        for (std::size_t i = 1; i < selection.size (); ++i) {
            store.SetElement (selection[i]);
            for (const Kor::Ref<TxAL::ClassificationSystemHandler>& handler : store.CollectClassificationSystemHandlers ())
                if (handler->GetClassificationData ().GetClassificationSystem () == system) handler->SetClassificationItem (item);
        }
        store.SetElement (selection.front ());
    }

private:
    ElementClassificationStore& store;
    std::vector<std::string>    selection;
};

PropertiesPage::PropertiesPage (const Wg::TabControl& tabControl, const TxAL::IClassificationsAndPropertiesPageOptions& options,
                                const BuildingModel& model, ElementPropertyStore& properties, ElementClassificationStore& classifications,
                                std::vector<std::string> selection)
    : ClassificationsAndPropertiesPage (tabControl, options),
      model (model),
      properties (properties),
      classifications (classifications),
      propertyCollector (properties),
      selection (std::move (selection)),
      elementRow (std::make_unique<TxAL::AttributeListInfoItem> (Kor::UniString ("Element"), Wg::Icon (), true, true)),
      emptyRow (std::make_unique<TxAL::AttributeListInfoItem> (Kor::UniString ("No property set applies"), Wg::Icon (), false, false))
{
    SetTitle (Kor::UniString ("Classifications and properties"));
    FollowSelection ();
}

PropertiesPage::~PropertiesPage ()
{
    // The page's own rows leave the list before they go.
    GetPropertyAttributeList ().ClearList (false);
}

void PropertiesPage::SetSelection (std::vector<std::string> newSelection)
{
    selection = std::move (newSelection);
    FollowSelection ();
    UpdateClassificationListItems ();
    UpdatePropertyListItems ();
}

void PropertiesPage::FollowSelection ()
{
    const std::string first = selection.empty () ? std::string () : selection.front ();
    propertyCollector.SetElement (first);
    classifications.SetElement (first);
}

const Element* PropertiesPage::FirstElement () const
{
    return selection.empty () ? nullptr : model.Find (selection.front ());
}

Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> PropertiesPage::ForAllSelected (Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> handlers)
{
    if (selection.size () < 2) return handlers;
    const std::vector<std::string> others (selection.begin () + 1, selection.end ());
    TxAL::DecorateEachUserDefinedPropertyHandler (handlers, [&] (Kor::Ref<TxAL::IUserDefinedPropertyHandler> handler) {
        return Kor::Ref<TxAL::IUserDefinedPropertyHandler> (new AllSelectedPropertyHandler (handler, properties, others));
    });
    return handlers;
}

Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> PropertiesPage::CollectUserDefinedPropertyHandlers (const Kor::Array<Kor::Guid>& propertyGuids)
{
    return ForAllSelected (propertyCollector.CollectUserDefinedPropertyHandlers (propertyGuids));
}

Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> PropertiesPage::CollectUserDefinedPropertyHandlers ()
{
    return ForAllSelected (propertyCollector.CollectUserDefinedPropertyHandlers ());
}

Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> PropertiesPage::CollectClassificationSystemHandlers ()
{
    // The store is shared: it is pointed at this page's first element before it is asked.
    FollowSelection ();
    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> handlers = classifications.CollectClassificationSystemHandlers ();
    if (selection.size () < 2) return handlers;
    TxAL::DecorateEachClassificationSystemHandler (handlers, [&] (Kor::Ref<TxAL::ClassificationSystemHandler> handler) {
        return Kor::Ref<TxAL::ClassificationSystemHandler> (new AllSelectedClassificationHandler (std::move (handler), classifications, selection));
    });
    return handlers;
}

Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> PropertiesPage::GetClassificationVisibilityGetter ()
{
    FollowSelection ();
    return classifications.GetClassificationVisibilityGetter ();
}

std::optional<PropertiesPage::InfoStrip> PropertiesPage::GetInfoStrip () const
{
    const Element* first = FirstElement ();
    if (first == nullptr || selection.size () < 2) return std::nullopt;
    std::set<std::string> kinds;
    std::string kindList;
    for (const std::string& id : selection)
        if (const Element* element = model.Find (id); element != nullptr && kinds.insert (element->GetKind ()).second)
            kindList += (kindList.empty () ? "" : ", ") + element->GetKind ();
    if (kinds.size () > 1)
        return InfoStrip::CreateWarning (Kor::UniString ("Different types selected (" + kindList + "): values of " + first->GetId () + " shown."));
    return InfoStrip::CreateInfo (Kor::UniString (std::to_string (selection.size ()) + " " + first->GetKind () +
                                                  " elements selected: a change applies to all."));
}

void PropertiesPage::BeforePropertyListFilled (TxAL::AttributeList& list)
{
    const Element* first = FirstElement ();
    if (first == nullptr) return;
    elementRow->SetAttributeInfoText (Kor::UniString (first->GetId () + " " + first->Get ("name").value_or ("")));
    list.AddListItem (*elementRow);
}

void PropertiesPage::AfterPropertyListFilled (TxAL::AttributeList& list)
{
    const Element* first = FirstElement ();
    if (first != nullptr && properties.GetSets (first->GetKind ()).empty ()) list.AddListItem (*emptyRow);
}

}   // namespace Demo
