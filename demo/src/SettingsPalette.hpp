#pragma once
// The demo's settings palette: an attribute list that shows the settings of one element of the
// building model in groups, and writes the user's edits back into the model.

#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "BuildingModel.hpp"
#include "ElementAttributeRows.hpp"
#include "StepSnapStrategy.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/ValueItems.hpp"

namespace Demo {

class SettingsPalette : public TxAL::AttributeListTextItemObserver,
                        public TxAL::AttributeListDictionaryItemObserver,
                        public TxAL::AttributeListRealItemObserver,
                        public TxAL::AttributeListCheckItemObserver,
                        public TxAL::AttributeListButtonItemObserver,
                        public TxAL::AttributeListIconButtonItemObserver,
                        public TxAL::AttributeListSliderItemObserver,
                        public TxAL::AttributeListIntervalItemObserver,
                        public Wg::PanelObserver {
public:
    static constexpr short ListBoxId = 10;

    // The list fills the panel but for a margin.
    SettingsPalette (Wg::Panel& panel, BuildingModel& model);
    ~SettingsPalette () override;

    // Shows the element's settings (none for an unknown id). The row of the setting that was
    // selected stays selected when the new element has it too.
    void ShowElement (const std::string& id);
    const std::string& GetElementId () const { return elementId; }
    // The working units changed: every number is shown anew.
    void WorkingUnitsChanged ();

    TxAL::AttributeList& GetList () { return list; }
    Wg::Panel&           GetPanel () { return panel; }
    // The setting a row shows, empty for headings and rows without a setting.
    std::string GetSettingKey (const TxAL::AttributeListItem* item) const;
    // How many of the user's edits the palette has written into the model so far.
    int GetStoredChangeCount () const { return storedChangeCount; }

protected:
    // --- Item observers: the user's edits go into the model ---
    void SelectionChanged (const TxAL::AttributeListSelectionItem& item) override;
    void TextChanged (const TxAL::AttributeListTextItem& item) override;
    void TextChanged (const TxAL::AttributeListDictionaryItem& item) override;
    void ValueChanged (const TxAL::AttributeListRealItem& item) override;
    void CheckChanged (const TxAL::AttributeListCheckItem& item) override;
    void ButtonClicked (const TxAL::AttributeListButtonItem& item) override;
    void ButtonClicked (const TxAL::AttributeListIconButtonItem& item) override;
    void ButtonIconClicked (const TxAL::AttributeListIconButtonItem& item) override;
    void ValueChanged (const TxAL::AttributeListSliderItem& item) override;
    void ValueChanged (const TxAL::AttributeListIntervalItem& item) override;

    // --- Wg::PanelObserver ---
    void PanelResized (const Wg::PanelResizeEvent& event) override;

private:
    void Build (Element& element);
    // A group heading, folded if the user folded a group of that name before.
    TxAL::AttributeListGroupItem* CreateGroup (const std::string& name, const Wg::Icon& icon);
    void Bind (TxAL::AttributeListItem* item, const std::string& key);
    void Store (const TxAL::AttributeListItem& item, const std::string& value);
    void Recalculate ();
    void NextProfile (const TxAL::AttributeListIconButtonItem& item);
    // A 0–100 slider for a setting, added to the group (with a strategy, or none).
    void AddSlider (TxAL::AttributeListGroupItem& group, const char* label, const Element& element, const char* key,
                    TxAL::AttributeListSliderItemStrategy* strategy);

    Wg::Panel&                                                    panel;
    BuildingModel&                                                model;
    Wg::SingleSelListBox                                          listBox;
    // The sliders' strategies (percentages by one, levels of detail by ten); declared before
    // the list and the items so that they outlive them.
    StepSnapStrategy                                              percentStrategy;
    StepSnapStrategy                                              detailStrategy;
    TxAL::AttributeList                                           list;
    std::string                                                   elementId;
    // Items the palette made itself (the list's factories make the others and own them).
    std::vector<std::unique_ptr<TxAL::AttributeListItem>>         ownedItems;
    std::unordered_map<const TxAL::AttributeListItem*, std::string> keys;
    int                                                           storedChangeCount = 0;
    // Names of the groups the user folded, kept from one element to the next.
    std::set<std::string>                                         collapsedGroups;
    // The rows of the element's drawing attributes (fills, composites, pens, ...).
    ElementAttributeRows                                          attributeRows;
};

}   // namespace Demo
