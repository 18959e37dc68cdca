// The Create…Item operations of the list and of the group for the pen and picker rows.

#include "TxAttributeList/AttributeList.hpp"

namespace TxAL {

using Text = Kor::UniString;
using Provider = ADB::IAttributeSetProvider;
using Index = ADB::AttributeIndex;

// --- AttributeList ---

AttributeListPenItem* AttributeList::CreatePenItem (const Text& name, const Wg::Icon& icon, const Provider* provider,
                                                    AttributeListPenItem::SubType subType, short pen, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListPenItem> (name, icon, provider, subType, pen, status, boldText);
}

AttributeListFillItem* AttributeList::CreateFillItem (const Text& name, const Wg::Icon& icon, const Wg::Icon& customIcon, const Provider* provider,
                                                      AttributeListFillItem::SubType subType, const Index& index, short foregroundPen,
                                                      short backgroundPen, short contourPen, short separatorPen, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListFillItem> (name, icon, customIcon, provider, subType, index, foregroundPen, backgroundPen, contourPen,
                                                   separatorPen, status, boldText);
}

AttributeListLineTypeItem* AttributeList::CreateLineTypeItem (const Text& name, const Wg::Icon& icon, const Provider* provider,
                                                              AttributeListLineTypeItem::SubType subType, const Index& index, bool status,
                                                              bool boldText)
{
    return CreateOwnedItem<AttributeListLineTypeItem> (name, icon, provider, subType, index, status, boldText);
}

AttributeListProfileItem* AttributeList::CreateProfileItem (const Text& name, const Wg::Icon& icon, const Provider* provider,
                                                            AttributeListProfileItem::SubType subType, const Index& index,
                                                            const TxAC::ProfileControlData* controlData, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListProfileItem> (name, icon, provider, subType, index, controlData, status, boldText);
}

AttributeListMaterialItem* AttributeList::CreateMaterialItem (const Text& name, const Wg::Icon& icon, const Provider* provider,
                                                              const Index& index, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListMaterialItem> (name, icon, provider, index, status, boldText);
}

AttributeListBuildingMaterialItem* AttributeList::CreateBuildingMaterialItem (const Text& name, const Wg::Icon& icon, const Provider* provider,
                                                                              const Index& index, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListBuildingMaterialItem> (name, icon, provider, index, status, boldText);
}

// --- AttributeListGroupItem ---

AttributeListPenItem* AttributeListGroupItem::CreatePenItem (bool asMaster, const Text& name, const Wg::Icon& icon, const Provider* provider,
                                                             AttributeListPenItem::SubType subType, short pen, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListPenItem> (asMaster, name, icon, provider, subType, pen, status, boldText);
}

AttributeListFillItem* AttributeListGroupItem::CreateFillItem (bool asMaster, const Text& name, const Wg::Icon& icon, const Wg::Icon& customIcon,
                                                               const Provider* provider, AttributeListFillItem::SubType subType,
                                                               const Index& index, short foregroundPen, short backgroundPen, short contourPen,
                                                               short separatorPen, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListFillItem> (asMaster, name, icon, customIcon, provider, subType, index, foregroundPen, backgroundPen,
                                                   contourPen, separatorPen, status, boldText);
}

AttributeListLineTypeItem* AttributeListGroupItem::CreateLineTypeItem (bool asMaster, const Text& name, const Wg::Icon& icon,
                                                                       const Provider* provider, AttributeListLineTypeItem::SubType subType,
                                                                       const Index& index, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListLineTypeItem> (asMaster, name, icon, provider, subType, index, status, boldText);
}

AttributeListProfileItem* AttributeListGroupItem::CreateProfileItem (bool asMaster, const Text& name, const Wg::Icon& icon,
                                                                     const Provider* provider, AttributeListProfileItem::SubType subType,
                                                                     const Index& index, const TxAC::ProfileControlData* controlData,
                                                                     bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListProfileItem> (asMaster, name, icon, provider, subType, index, controlData, status, boldText);
}

AttributeListMaterialItem* AttributeListGroupItem::CreateMaterialItem (bool asMaster, const Text& name, const Wg::Icon& icon,
                                                                       const Provider* provider, const Index& index, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListMaterialItem> (asMaster, name, icon, provider, index, status, boldText);
}

AttributeListBuildingMaterialItem* AttributeListGroupItem::CreateBuildingMaterialItem (bool asMaster, const Text& name, const Wg::Icon& icon,
                                                                                       const Provider* provider, const Index& index,
                                                                                       bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListBuildingMaterialItem> (asMaster, name, icon, provider, index, status, boldText);
}

}   // namespace TxAL
