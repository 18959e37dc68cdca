#include "PropertyPalette.hpp"

#include <fstream>
#include <sstream>

namespace Demo {

PropertyPalette::PropertyPalette (Wg::Panel& panel, ElementPropertyStore& store)
    : panel (panel),
      store (store),
      collector (store),
      listBox (panel, Wg::Rect (0, 0, panel.GetWidth (), panel.GetHeight ()), ListBoxId, Wg::ListBox::VScroll, true),
      list (panel, ListBoxId,
            TxAL::AttributeList::OptionalParameters ()
                .SetHeaderString1 ("Property")
                .SetHeaderString2 ("Value")
                .SetHeaderType (TxAL::AttributeList::SynchronizedHeader)
                // Every edit reaches the element once, when the user confirms it.
                .SetEditControlAutoUpdate (false)),
      container (collector)
{
    container.Attach (static_cast<TxAL::PropertyListItemContainerObserver&> (*this));
    panel.Attach (static_cast<Wg::PanelObserver&> (*this));
}

PropertyPalette::~PropertyPalette ()
{
    list.ClearList (false);
}

void PropertyPalette::ShowElement (const std::string& id)
{
    list.DisableUpdate ();
    list.ClearList (false);
    collector.SetElement (id);
    container.InvalidatePropertyListItems ();
    container.AppendToAttributeList (list);
    list.EnableUpdate ();
    list.FullRefreshList (false);
}

void PropertyPalette::PropertyChanged (const TxAL::PropertyListItemContainer&, const Kor::Guid&)
{
    container.UpdatePropertyValues ();
}

void PropertyPalette::PanelResized (const Wg::PanelResizeEvent&)
{
    list.SetRect (Wg::Rect (0, 0, panel.GetWidth (), panel.GetHeight ()));
}

std::string GetPropertySetFolder ()
{
    return std::string (TXAL_DATA_DIR) + "/psd";
}

std::string GetCustomPropertyValues ()
{
    std::ifstream      in (std::string (TXAL_DEMO_DATA_DIR) + "/properties.txt", std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf ();
    return text.str ();
}

}   // namespace Demo
