#pragma once
// The demo's classification list: for the shown element one row per classification system of the
// demo's ElementClassificationStore, on a panel of its own.

#include <memory>
#include <string>

#include "ElementClassificationStore.hpp"
#include "TxAttributeList/ClassificationAttributeList.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace Demo {

// The classification list of the shown element (see the top of this file).
class ElementClassifications : public Wg::PanelObserver {
public:
    static constexpr short ListBoxId = 20;

    // The list fills the panel but for a margin.
    ElementClassifications (Wg::Panel& panel, const BuildingModel& model);
    ~ElementClassifications () override;

    void ShowElement (const std::string& id);
    TxAL::ClassificationAttributeList& GetList () { return *list; }
    ElementClassificationStore&        GetStore () { return store; }

protected:
    // --- Wg::PanelObserver ---
    void PanelResized (const Wg::PanelResizeEvent& event) override;

private:
    Wg::Panel&                                         panel;
    ElementClassificationStore                         store;
    Wg::SingleSelListBox                               listBox;
    std::unique_ptr<TxAL::ClassificationAttributeList> list;
};

}   // namespace Demo
