#pragma once
// The drawing attributes of an element in the settings palette: cut fill, composite, contour
// pen, line type, building material and surface of a wall, the profile of a beam, the
// composite of a slab. Each row shows its attribute with a preview and writes the user's
// choice back into the model as the attribute's name (pens as their number).

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BuildingModel.hpp"
#include "TxAttributeList/AttributeListGroupItem.hpp"
#include "TxAttributeList/AttributePickerItems.hpp"
#include "TxAttributeList/PenItem.hpp"

namespace Demo {

class ElementAttributeRows : public TxAL::AttributeListPenItemObserver,
                             public TxAL::AttributeListFillItemObserver,
                             public TxAL::AttributeListCompositeItemObserver,
                             public TxAL::AttributeListLineTypeItemObserver,
                             public TxAL::AttributeListProfileItemObserver,
                             public TxAL::AttributeListMaterialItemObserver,
                             public TxAL::AttributeListBuildingMaterialItemObserver {
public:
    // bind links a row to its setting key; store writes a row's new value into the model.
    using Bind = std::function<void (TxAL::AttributeListItem* item, const std::string& key)>;
    using Store = std::function<void (const TxAL::AttributeListItem& item, const std::string& value)>;

    ElementAttributeRows (Bind bind, Store store);

    // Whether the element has any setting these rows show.
    static bool HasRows (const Element& element);
    // Adds the element's attribute rows to group; rows without a factory go into owned.
    void AddRows (TxAL::AttributeListGroupItem& group, const Element& element, std::vector<std::unique_ptr<TxAL::AttributeListItem>>& owned);

protected:
    void PenChanged (const TxAL::AttributeListPenItem& item) override;
    void FillChanged (const TxAL::AttributeListFillItem& item) override;
    void CompositeChanged (const TxAL::AttributeListCompositeItem& item) override;
    void LineTypeChanged (const TxAL::AttributeListLineTypeItem& item) override;
    void ProfileChanged (const TxAL::AttributeListProfileItem& item) override;
    void MaterialChanged (const TxAL::AttributeListMaterialItem& item) override;
    void BuildingMaterialChanged (const TxAL::AttributeListBuildingMaterialItem& item) override;

private:
    Bind bind;
    Store store;
};

class SettingsPalette;

// Opens the picker of the palette's selected row, as its button does (for screenshots); does
// nothing on a row without a picker.
void OpenSelectedRowPicker (SettingsPalette& palette);

}   // namespace Demo
