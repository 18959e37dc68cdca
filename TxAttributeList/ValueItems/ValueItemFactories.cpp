// The Create…Item operations of the list and of the group for the value items.

#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/ValueItems.hpp"

namespace TxAL {

using Text = Kor::UniString;

// --- AttributeList ---

AttributeListTextItem* AttributeList::CreateTextItem (const Text& name, const Wg::Icon& icon, const Text& text, bool autoCustomHandling,
                                                      bool editable, bool valueListEnabled, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListTextItem> (name, icon, text, autoCustomHandling, editable, valueListEnabled, status, boldText);
}

AttributeListTaggedTextItem* AttributeList::CreateTaggedTextItem (const Text& name, const Wg::Icon& icon, const Text& text,
                                                                  bool autoCustomHandling, bool editable, bool valueListEnabled, bool status,
                                                                  bool boldText, const Text& tagText)
{
    return CreateOwnedItem<AttributeListTaggedTextItem> (name, icon, text, autoCustomHandling, editable, valueListEnabled, status, boldText,
                                                         tagText);
}

AttributeListSelectionItem* AttributeList::CreateSelectionItem (const Text& name, const Wg::Icon& icon, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListSelectionItem> (name, icon, status, boldText);
}

AttributeListDictionaryItem* AttributeList::CreateDictionaryItem (const Text& name, const Wg::Icon& icon, const Text& text, bool status,
                                                                  bool boldText)
{
    return CreateOwnedItem<AttributeListDictionaryItem> (name, icon, text, status, boldText);
}

#define TXAL_LIST_REAL_FACTORY(Operation, Class)                                                                              \
    Class* AttributeList::Operation (const Text& name, const Wg::Icon& icon, double minValue, double maxValue, double value,  \
                                     bool editable, bool status, bool boldText, const Text& tagText)                         \
    {                                                                                                                         \
        return CreateOwnedItem<Class> (name, icon, minValue, maxValue, value, editable, status, boldText, tagText);         \
    }

TXAL_LIST_REAL_FACTORY (CreateRealItem, AttributeListRealItem)
TXAL_LIST_REAL_FACTORY (CreateLengthItem, AttributeListLengthItem)
TXAL_LIST_REAL_FACTORY (CreateAreaItem, AttributeListAreaItem)
TXAL_LIST_REAL_FACTORY (CreateVolumeItem, AttributeListVolumeItem)
TXAL_LIST_REAL_FACTORY (CreateAngleItem, AttributeListAngleItem)

#undef TXAL_LIST_REAL_FACTORY

AttributeListIntItem* AttributeList::CreateIntItem (const Text& name, const Wg::Icon& icon, int minValue, int maxValue, int value,
                                                    bool editable, bool status, bool boldText, const Text& tagText)
{
    return CreateOwnedItem<AttributeListIntItem> (name, icon, minValue, maxValue, value, editable, status, boldText, tagText);
}

AttributeListCheckItem* AttributeList::CreateCheckItem (const Text& name, const Wg::Icon& icon, bool checked, const Text& checkName,
                                                        bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListCheckItem> (name, icon, checked, checkName, status, boldText);
}

AttributeListButtonItem* AttributeList::CreateButtonItem (const Text& name, const Wg::Icon& icon, const Text& buttonText, bool status,
                                                          bool boldText)
{
    return CreateOwnedItem<AttributeListButtonItem> (name, icon, buttonText, status, boldText);
}

AttributeListIconButtonItem* AttributeList::CreateIconButtonItem (const Text& name, const Wg::Icon& icon, const Text& text,
                                                                  const Text& tagText, const Wg::Icon& buttonIcon, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListIconButtonItem> (name, icon, text, tagText, buttonIcon, status, boldText);
}

AttributeListSeparatorItem* AttributeList::CreateSeparatorItem ()
{
    return CreateOwnedItem<AttributeListSeparatorItem> ();
}

AttributeListIntervalItem* AttributeList::CreateIntervalItem (const Text& name, const Wg::Icon& icon, double intervalBeg, double intervalEnd,
                                                              const Text& betweenText, bool endHidden, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListIntervalItem> (name, icon, intervalBeg, intervalEnd, betweenText, endHidden, status, boldText);
}

// --- AttributeListGroupItem ---

AttributeListTextItem* AttributeListGroupItem::CreateTextItem (bool asMaster, const Text& name, const Wg::Icon& icon, const Text& text,
                                                               bool autoCustomHandling, bool editable, bool valueListEnabled, bool status,
                                                               bool boldText)
{
    return CreateOwnedItem<AttributeListTextItem> (asMaster, name, icon, text, autoCustomHandling, editable, valueListEnabled, status,
                                                   boldText);
}

AttributeListSelectionItem* AttributeListGroupItem::CreateSelectionItem (bool asMaster, const Text& name, const Wg::Icon& icon, bool status,
                                                                         bool boldText)
{
    return CreateOwnedItem<AttributeListSelectionItem> (asMaster, name, icon, status, boldText);
}

AttributeListDictionaryItem* AttributeListGroupItem::CreateDictionaryItem (bool asMaster, const Text& name, const Wg::Icon& icon,
                                                                           const Text& text, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListDictionaryItem> (asMaster, name, icon, text, status, boldText);
}

#define TXAL_GROUP_REAL_FACTORY(Operation, Class)                                                                                   \
    Class* AttributeListGroupItem::Operation (bool asMaster, const Text& name, const Wg::Icon& icon, double minValue, double maxValue, \
                                              double value, bool editable, bool status, bool boldText)                               \
    {                                                                                                                                \
        return CreateOwnedItem<Class> (asMaster, name, icon, minValue, maxValue, value, editable, status, boldText, Text ());       \
    }

TXAL_GROUP_REAL_FACTORY (CreateRealItem, AttributeListRealItem)
TXAL_GROUP_REAL_FACTORY (CreateLengthItem, AttributeListLengthItem)
TXAL_GROUP_REAL_FACTORY (CreateAreaItem, AttributeListAreaItem)
TXAL_GROUP_REAL_FACTORY (CreateVolumeItem, AttributeListVolumeItem)
TXAL_GROUP_REAL_FACTORY (CreateAngleItem, AttributeListAngleItem)

#undef TXAL_GROUP_REAL_FACTORY

AttributeListIntItem* AttributeListGroupItem::CreateIntItem (bool asMaster, const Text& name, const Wg::Icon& icon, int minValue,
                                                             int maxValue, int value, bool editable, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListIntItem> (asMaster, name, icon, minValue, maxValue, value, editable, status, boldText, Text ());
}

AttributeListCheckItem* AttributeListGroupItem::CreateCheckItem (bool asMaster, const Text& name, const Wg::Icon& icon, bool checked,
                                                                 const Text& checkName, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListCheckItem> (asMaster, name, icon, checked, checkName, status, boldText);
}

AttributeListIconButtonItem* AttributeListGroupItem::CreateIconButtonItem (bool asMaster, const Text& name, const Wg::Icon& icon,
                                                                           const Text& text, const Text& tagText, const Wg::Icon& buttonIcon,
                                                                           bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListIconButtonItem> (asMaster, name, icon, text, tagText, buttonIcon, status, boldText);
}

AttributeListSeparatorItem* AttributeListGroupItem::CreateSeparatorItem ()
{
    return CreateOwnedItem<AttributeListSeparatorItem> (false);
}

AttributeListIntervalItem* AttributeListGroupItem::CreateIntervalItem (bool asMaster, const Text& name, const Wg::Icon& icon,
                                                                       double intervalBeg, double intervalEnd, const Text& betweenText,
                                                                       bool endHidden, bool status, bool boldText)
{
    return CreateOwnedItem<AttributeListIntervalItem> (asMaster, name, icon, intervalBeg, intervalEnd, betweenText, endHidden, status,
                                                       boldText);
}

}   // namespace TxAL
