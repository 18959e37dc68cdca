#pragma once
// The demo's property palette: an attribute list beside the settings palette that shows the
// real property sets of the chosen element, through a property item container over the
// element's property handlers. Every change the user makes is read back at once, as a host
// does after storing it.

#include <memory>
#include <string>

#include "ElementProperties.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/PropertyListItemContainer.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace Demo {

// The property sets of one element in an attribute list on a panel of its own.
class PropertyPalette : public TxAL::PropertyListItemContainerObserver, public Wg::PanelObserver {
public:
    static constexpr short ListBoxId = 10;

    // The store must outlive the palette.
    PropertyPalette (Wg::Panel& panel, ElementPropertyStore& store);
    ~PropertyPalette () override;

    // Shows the properties of the element (none for an unknown id); folded sets stay folded.
    void ShowElement (const std::string& id);
    const std::string& GetElementId () const { return collector.GetElement (); }

    TxAL::AttributeList&             GetList () { return list; }
    Wg::Panel&                       GetPanel () { return panel; }
    TxAL::PropertyListItemContainer& GetContainer () { return container; }
    ElementPropertyStore&            GetStore () { return store; }

protected:
    // --- TxAL::PropertyListItemContainerObserver ---
    void PropertyChanged (const TxAL::PropertyListItemContainer& source, const Kor::Guid& propertyGuid) override;
    // --- Wg::PanelObserver ---
    void PanelResized (const Wg::PanelResizeEvent& event) override;

private:
    Wg::Panel&                      panel;
    ElementPropertyStore&           store;
    ElementPropertyCollector        collector;
    Wg::SingleSelListBox            listBox;
    TxAL::AttributeList             list;
    TxAL::PropertyListItemContainer container;
};

// Where the demo finds its data: the property set definitions and the custom values.
std::string GetPropertySetFolder ();
std::string GetCustomPropertyValues ();

}   // namespace Demo
