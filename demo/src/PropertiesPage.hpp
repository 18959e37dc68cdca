#pragma once
// The demo's "Classifications and properties" tab: the library's ready-made page over the
// selected elements, fed by the demo's stores of property values and classifications (the same
// stores as the property palette and the classification list). Values shown are the first
// selected element's; what the user stores goes to every selected element. The information
// strip warns when the selection holds elements of different kinds and tells when several
// elements of one kind are edited together.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BuildingModel.hpp"
#include "ElementClassificationStore.hpp"
#include "ElementProperties.hpp"
#include "TxAttributeList/ClassificationsAndPropertiesPage.hpp"
#include "TxAttributeList/SimpleValueItems.hpp"

namespace Demo {

// The demo's answers to the page's four questions: a resizable page with both lists, whose
// edits report when the user confirms them.
class PropertiesPageOptions : public TxAL::IClassificationsAndPropertiesPageOptions {
public:
    bool PageIsResizable () const override { return true; }
    bool EditControlAutoUpdate () const override { return false; }
    bool ShowClassifications () const override { return true; }
    bool ShowProperties () const override { return true; }
};

// The page over a selection of elements (see the top of this file).
class PropertiesPage : public TxAL::ClassificationsAndPropertiesPage {
public:
    // Nothing is owned; all must outlive the page.
    PropertiesPage (const Wg::TabControl& tabControl, const TxAL::IClassificationsAndPropertiesPageOptions& options, const BuildingModel& model,
                    ElementPropertyStore& properties, ElementClassificationStore& classifications, std::vector<std::string> selection);
    ~PropertiesPage () override;

    const std::vector<std::string>& GetSelection () const { return selection; }
    // Shows other elements: new handlers, new rows, the strip decided anew.
    void SetSelection (std::vector<std::string> newSelection);
    // The state is taken when the dialog that holds the page closes by acceptance.
    bool HasClosedAccepted () const { return closedAccepted; }

    // --- The collectors: the stores' handlers of the first element, storing into all ---
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers (const Kor::Array<Kor::Guid>& propertyGuids) override;
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers () override;
    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> CollectClassificationSystemHandlers () override;
    Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> GetClassificationVisibilityGetter () override;

protected:
    // --- The page's hooks ---
    std::optional<InfoStrip> GetInfoStrip () const override;
    // A heading row that names the element whose values show.
    void BeforePropertyListFilled (TxAL::AttributeList& list) override;
    // A row that says so when no property set applies to the element.
    void AfterPropertyListFilled (TxAL::AttributeList& list) override;
    void PageCloseAccepted () override { closedAccepted = true; }

private:
    class AllSelectedPropertyHandler;
    class AllSelectedClassificationHandler;

    const Element* FirstElement () const;
    void           FollowSelection ();
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> ForAllSelected (Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> handlers);

    const BuildingModel&                          model;
    ElementPropertyStore&                         properties;
    ElementClassificationStore&                   classifications;
    ElementPropertyCollector                      propertyCollector;
    std::vector<std::string>                      selection;
    std::unique_ptr<TxAL::AttributeListInfoItem>  elementRow;
    std::unique_ptr<TxAL::AttributeListInfoItem>  emptyRow;
    bool                                          closedAccepted = false;
};

}   // namespace Demo
