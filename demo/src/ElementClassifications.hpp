#pragma once
// The demo's classification list: for the shown element one row per classification system, the
// CCI Construction system (read from the project's data) and a small system of the demo's own
// (element types). The demo is the host: it keeps each element's classifications, hands the
// list a handler per system, and hides the items that do not fit the element's kind (a door
// takes no wall class).

#include <map>
#include <memory>
#include <string>

#include "BuildingModel.hpp"
#include "CLS/ClassificationSystem.hpp"
#include "CLS/ElemClassificationData.hpp"
#include "TxAttributeList/ClassificationAttributeList.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace Demo {

// The demo's own system of element types, and the one read from the CCI Construction file.
ODB::Ref<CLS::ClassificationSystem> MakeElementTypeSystem ();
// Empty (and reported on stderr) when the file cannot be imported.
ODB::Ref<CLS::ClassificationSystem> LoadCciSystem ();

// Which classification items fit an element kind.
class ElementKindVisibility : public TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter {
public:
    ElementKindVisibility (std::string kind, ODB::ConstRef<CLS::ClassificationSystem> elementTypes);

    bool IsClassificationVisible (const ODB::ConstRef<CLS::IClassificationItem>& item) const override;
    bool IsClassificationVisibilityHandlingEnabled () const override { return true; }

private:
    std::string                              kind;
    ODB::ConstRef<CLS::ClassificationSystem> elementTypes;
};

// The classification list of the shown element on a panel of its own.
class ElementClassifications : public TxAL::IClassificationHandlerCollector, public Wg::PanelObserver {
public:
    static constexpr short ListBoxId = 20;

    // The list fills the panel but for a margin.
    ElementClassifications (Wg::Panel& panel, const BuildingModel& model);
    ~ElementClassifications () override;

    void ShowElement (const std::string& id);
    TxAL::ClassificationAttributeList& GetList () { return *list; }
    // "system: code" of each associated system of an element, for logs and tests.
    std::string Describe (const std::string& id) const;
    int GetStoredChangeCount () const { return storedChangeCount; }

    // --- TxAL::IClassificationHandlerCollector ---
    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> CollectClassificationSystemHandlers () override;
    Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> GetClassificationVisibilityGetter () override;

protected:
    // --- Wg::PanelObserver ---
    void PanelResized (const Wg::PanelResizeEvent& event) override;

private:
    class Handler;
    struct Stored {
        ODB::ConstRef<CLS::ClassificationItem> item;
        bool                                   associated = true;
    };

    Stored& GetStored (const std::string& elementId, const CLS::ClassificationSystem& system);

    const BuildingModel&                                                             model;
    Wg::Panel&                                                                       panel;
    ODB::Ref<CLS::ClassificationSystem>                                              cci;
    ODB::Ref<CLS::ClassificationSystem>                                              elementTypes;
    std::map<std::string, std::map<const CLS::ClassificationSystem*, Stored>>        stored;
    std::string                                                                      elementId;
    int                                                                              storedChangeCount = 0;
    Wg::SingleSelListBox                                                             listBox;
    std::unique_ptr<TxAL::ClassificationAttributeList>                               list;
};

}   // namespace Demo
