#pragma once
// The demo as the host of classifications: the CCI Construction system (read from the project's
// data) and a small system of the demo's own (element types); what each element of the building
// is classified as; a handler per system for the element being edited; and which items fit an
// element's kind (a door takes no wall class). Any classification list or page of the demo uses
// it as its handler collector.

#include <map>
#include <string>

#include "BuildingModel.hpp"
#include "CLS/ClassificationSystem.hpp"
#include "CLS/ElemClassificationData.hpp"
#include "TxAttributeList/ClassificationAttributeList.hpp"

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

// The classifications of the building's elements (see the top of this file).
class ElementClassificationStore : public TxAL::IClassificationHandlerCollector {
public:
    // The model must outlive the store.
    explicit ElementClassificationStore (const BuildingModel& model);

    // The element whose handlers the collector hands out from now on (none for an unknown id).
    void SetElement (const std::string& id) { elementId = id; }
    const std::string& GetElement () const { return elementId; }
    // "system: code" of each system the element is associated with ("-" for no item).
    std::string Describe (const std::string& id) const;
    // How many classifications the handlers have stored.
    int GetStoredChangeCount () const { return storedChangeCount; }

    // --- TxAL::IClassificationHandlerCollector ---
    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> CollectClassificationSystemHandlers () override;
    Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> GetClassificationVisibilityGetter () override;

private:
    class Handler;
    struct Stored {
        ODB::ConstRef<CLS::ClassificationItem> item;
        bool                                   associated = true;
    };

    // What the element holds in the system; made from its kind on first use.
    Stored& GetStored (const std::string& id, const CLS::ClassificationSystem& system);

    const BuildingModel&                                                      model;
    ODB::Ref<CLS::ClassificationSystem>                                       cci;
    ODB::Ref<CLS::ClassificationSystem>                                       elementTypes;
    std::map<std::string, std::map<const CLS::ClassificationSystem*, Stored>> stored;
    std::string                                                               elementId;
    int                                                                       storedChangeCount = 0;
};

}   // namespace Demo
