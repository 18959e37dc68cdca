#include "TxAttributeList/ClassificationItemSelectorPopup.hpp"

#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"
#include "Rb/RbResources.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"

namespace TxAL {

ClassificationItemSelectorPopup::IClassificationVisibilityGetter::~IClassificationVisibilityGetter () = default;

ClassificationItemSelectorPopup::ClassificationItemSelectorPopup (const ODB::ConstRef<CLS::IClassificationSystem>& system,
                                                                  const ODB::ConstRef<CLS::IClassificationItem>& preselectedItem,
                                                                  Kor::Ref<IClassificationVisibilityGetter> visibilityGetter)
    : system (system), selectedItem (preselectedItem), visibilityGetter (std::move (visibilityGetter))
{
}

ODB::ConstRef<CLS::ClassificationItem> ClassificationItemSelectorPopup::GetSelectedItemTyped () const
{
    return selectedItem.DynamicCastTo<CLS::ClassificationItem> ();
}

void ClassificationItemSelectorPopup::Invoke (const Wg::Item& anchor)
{
    const IClassificationVisibilityGetter& getter = *visibilityGetter;
    // A getter that does not filter shows everything, whatever it answers per item.
    ClassificationSelectionDialogData data (system, selectedItem, [&getter] (const ODB::ConstRef<CLS::IClassificationItem>& item) {
        return !getter.IsClassificationVisibilityHandlingEnabled () || getter.IsClassificationVisible (item);
    });

    Rb::AutoClosingSingleItemSelectionDialog dialog (data, &anchor);
    dialog.SetAddButtonText (Rb::GetResourceCommonString (AddButtonCommonStringIndex));
    if (data.HasHiddenClassification ())
        dialog.SetInformation (Rb::GetResourceIcon (HiddenItemsInfoIconResId), GetResourceString (SelectorStringsResId, HiddenItemsInfoStringIndex));
    else if (getter.IsClassificationVisibilityHandlingEnabled ())
        dialog.SetInformation (Rb::GetResourceIcon (FilteringInfoIconResId), GetResourceString (SelectorStringsResId, FilteringInfoStringIndex));
    dialog.SetMaximumHeight (MaximumHeight);
    dialog.SetPlaceDirection (PlaceDirection);
    dialog.SetExpandedGroups (expandedGroups);

    dialog.Invoke ();

    // Whatever way it closed: after a cancel the data still holds the preselected item.
    expandedGroups = dialog.GetExpandedGroups ();
    selectedItem = data.GetSelectedRef ();
}

}   // namespace TxAL
