#include "ElementClassifications.hpp"

namespace Demo {

namespace {

constexpr short Margin = 4;
constexpr const char* ListTitle = "Classifications";

}   // namespace

// --- ElementClassifications ---

ElementClassifications::ElementClassifications (Wg::Panel& panel, const BuildingModel& model)
    : panel (panel),
      store (model),
      listBox (panel, Wg::Rect (Margin, Margin, panel.GetWidth () - Margin, panel.GetHeight () - Margin), ListBoxId)
{
    list = std::make_unique<TxAL::ClassificationAttributeList> (store, panel, ListBoxId, ListTitle);
    panel.Attach (*this);
}

ElementClassifications::~ElementClassifications ()
{
    list.reset ();
}

void ElementClassifications::ShowElement (const std::string& id)
{
    store.SetElement (id);
    list->Update ();
}

void ElementClassifications::PanelResized (const Wg::PanelResizeEvent&)
{
    list->GetAttributeList ().SetRect (Wg::Rect (Margin, Margin, panel.GetWidth () - Margin, panel.GetHeight () - Margin));
}

}   // namespace Demo
