#include "CLS/ElemClassificationData.hpp"

namespace CLS {

ElemClassificationData::ElemClassificationData (const ODB::ConstRef<ClassificationSystem>& system,
                                                const ODB::ConstRef<ClassificationItem>& item, bool associatedWithElem)
    : system (system), item (item), associatedWithElem (associatedWithElem)
{
}

bool ElemClassificationData::SetClassificationItem (const ODB::ConstRef<ClassificationItem>& newItem)
{
    if (!newItem.IsNull () && (system.IsNull () || !newItem->IsOf (*system))) return false;
    if (newItem == item) return false;
    item = newItem;
    return true;
}

}   // namespace CLS
