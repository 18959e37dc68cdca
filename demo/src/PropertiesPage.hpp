#pragma once
// The demo's "Classifications and properties" tab: the library's ready-made page over the
// selected elements of the building model, with handlers for the property sets that apply to
// the first element's kind and for the element's classification. The information strip warns
// when the selection holds elements of different kinds (the values shown are the first
// element's) and tells when several elements of one kind are edited together.

#include <memory>
#include <string>
#include <vector>

#include "BuildingModel.hpp"
#include "ElementData.hpp"
#include "ElementHandlers.hpp"
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
    // Nothing is owned; all must outlive the page. stored hears every value the user stores.
    PropertiesPage (const Wg::TabControl& tabControl, const TxAL::IClassificationsAndPropertiesPageOptions& options, BuildingModel& model,
                    const ElementData& data, std::vector<std::string> selection, StoreListener stored);
    ~PropertiesPage () override;

    const std::vector<std::string>& GetSelection () const { return selection; }
    // Shows other elements: new handlers, new rows, the strip decided anew.
    void SetSelection (std::vector<std::string> newSelection);
    // The state is taken when the dialog that holds the page closes by acceptance.
    bool HasClosedAccepted () const { return closedAccepted; }

    // --- The collectors ---
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
    const Element* FirstElement () const;
    // Property handlers are made once per selection and handed out again, so that the
    // container finds the same handler for a property every time it asks.
    void MakeHandlers ();

    BuildingModel&                                          model;
    const ElementData&                                      data;
    std::vector<std::string>                                selection;
    StoreListener                                           stored;
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> propertyHandlers;
    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> classificationHandlers;
    std::unique_ptr<TxAL::AttributeListInfoItem>           elementRow;
    std::unique_ptr<TxAL::AttributeListInfoItem>           emptyRow;
    bool                                                    closedAccepted = false;
};

}   // namespace Demo
