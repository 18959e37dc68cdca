#include "PropertiesPage.hpp"

#include <set>

#include "ElementClassificationStore.hpp"

namespace Demo {

PropertiesPage::PropertiesPage (const Wg::TabControl& tabControl, const TxAL::IClassificationsAndPropertiesPageOptions& options,
                                BuildingModel& model, const ElementData& data, std::vector<std::string> selection, StoreListener stored)
    : ClassificationsAndPropertiesPage (tabControl, options),
      model (model),
      data (data),
      selection (std::move (selection)),
      stored (std::move (stored)),
      elementRow (std::make_unique<TxAL::AttributeListInfoItem> (Kor::UniString ("Element"), Wg::Icon (), true, true)),
      emptyRow (std::make_unique<TxAL::AttributeListInfoItem> (Kor::UniString ("No property set applies"), Wg::Icon (), false, false))
{
    SetTitle (Kor::UniString ("Classifications and properties"));
    MakeHandlers ();
}

PropertiesPage::~PropertiesPage ()
{
    // The page's own rows leave the list before they go.
    GetPropertyAttributeList ().ClearList (false);
}

void PropertiesPage::SetSelection (std::vector<std::string> newSelection)
{
    selection = std::move (newSelection);
    MakeHandlers ();
    UpdateClassificationListItems ();
    UpdatePropertyListItems ();
}

const Element* PropertiesPage::FirstElement () const
{
    return selection.empty () ? nullptr : model.Find (selection.front ());
}

void PropertiesPage::MakeHandlers ()
{
    propertyHandlers = {};
    classificationHandlers = {};
    const Element* first = FirstElement ();
    if (first == nullptr) return;
    for (const TxImport::PropertySet* set : data.GetPropertySetsOf (first->GetKind ()))
        for (const auto& definition : set->definitions)
            propertyHandlers.Push (Kor::Ref<TxAL::IUserDefinedPropertyHandler> (new SelectionPropertyHandler (model, selection, definition, stored)));
    for (const ElementData::ClassificationSystemEntry& system : data.GetClassificationSystems ())
        classificationHandlers.Push (Kor::Ref<TxAL::ClassificationSystemHandler> (new SelectionClassificationHandler (model, system, selection, stored)));
}

Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> PropertiesPage::CollectUserDefinedPropertyHandlers (const Kor::Array<Kor::Guid>& propertyGuids)
{
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> found;
    for (const Kor::Guid& guid : propertyGuids)
        for (const Kor::Ref<TxAL::IUserDefinedPropertyHandler>& handler : propertyHandlers)
            if (handler->GetPropertyDefinition ()->GetGuid () == guid) found.Push (handler);
    return found;
}

Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> PropertiesPage::CollectUserDefinedPropertyHandlers ()
{
    return propertyHandlers;
}

Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> PropertiesPage::CollectClassificationSystemHandlers ()
{
    return classificationHandlers;
}

Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> PropertiesPage::GetClassificationVisibilityGetter ()
{
    // The selector offers the classes that fit the first element's kind.
    const Element* first = FirstElement ();
    if (first == nullptr) return Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> (new TxAL::NoClassificationVisisibilityEffect ());
    return Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> (
        new ElementKindVisibility (first->GetKind (), data.GetElementTypeSystem ().AsConst ()));
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
        return InfoStrip::CreateWarning (Kor::UniString ("Elements of different types (" + kindList + ") are selected: the values shown are those of " +
                                                         first->GetId () + "."));
    return InfoStrip::CreateInfo (Kor::UniString (std::to_string (selection.size ()) + " elements of type " + first->GetKind () +
                                                  " are selected: a change applies to all of them."));
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
    if (FirstElement () != nullptr && propertyHandlers.IsEmpty ()) list.AddListItem (*emptyRow);
}

}   // namespace Demo
