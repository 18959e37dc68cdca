#include "TxAttributeList/ClassificationListItem.hpp"

#include "Kor/LifeWatch.hpp"
#include "Rb/RbResources.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"
#include "Wg/Controls.hpp"

namespace TxAL {

void ClassificationListItemObserver::ClassificationChanged (const ClassificationListItem&)
{
}

bool NoClassificationVisisibilityEffect::IsClassificationVisible (const ODB::ConstRef<CLS::IClassificationItem>&) const
{
    return true;
}

bool NoClassificationVisisibilityEffect::IsClassificationVisibilityHandlingEnabled () const
{
    return false;
}

ClassificationListItem::ClassificationListItem (const CLS::ElemClassificationData& data, EditableStatus editableStatus,
                                                Kor::Ref<ClassificationItemSelectorPopup::IClassificationVisibilityGetter> visibilityGetter)
    : itemData (data),
      editableStatus (editableStatus),
      row (std::make_unique<AttributeListIconButtonItem> (Kor::UniString (), Wg::Icon (), Kor::UniString (), Kor::UniString (), Wg::Icon (),
                                                          true, false)),
      selectorPopup (data.GetClassificationSystem (), data.GetClassificationItem (), std::move (visibilityGetter))
{
    Construct ();
}

ClassificationListItem::ClassificationListItem (const ClassificationListItem& source)
    : Kor::EventObserver (source),
      Kor::EventSource (source),
      AttributeListIconButtonItemObserver (source),
      Rb::BaseItemSelectionDataObserver (source),
      itemData (source.itemData),
      editableStatus (source.editableStatus),
      row (std::make_unique<AttributeListIconButtonItem> (Kor::UniString (), Wg::Icon (), Kor::UniString (), Kor::UniString (), Wg::Icon (),
                                                          true, false)),
      selectorPopup (source.selectorPopup)
{
    Construct ();
}

ClassificationListItem::~ClassificationListItem ()
{
    // The row goes before this object's bases: it must not notify a half-destroyed observer.
    row.reset ();
}

void ClassificationListItem::Construct ()
{
    row->Attach (static_cast<AttributeListIconButtonItemObserver&> (*this));
    row->SetButtonIcon (Rb::GetResourceIcon (ButtonIconResId));
    row->SetName (itemData.GetClassificationSystem ()->GetDisplayName ());
    CLS::ClassificationSystem::TraverseClassificationsConstTyped (itemData.GetClassificationSystem (), CLS::LevelOrder,
                                                                  [this] (const ODB::ConstRef<CLS::ClassificationItem>&) {
                                                                      systemHasItems = true;
                                                                      return false;
                                                                  });
    UpdateUserInteface ();
}

void ClassificationListItem::AppendToAttributeList (AttributeList& list)
{
    list.AddListItem (*row);
}

void ClassificationListItem::Select ()
{
    row->Select (false);
}

void ClassificationListItem::UpdateUserInteface ()
{
    const bool associated = itemData.IsAssociatedWithElem ();
    if (associated && itemData.HasClassificationItem ()) {
        const ODB::ConstRef<CLS::ClassificationItem>& item = itemData.GetClassificationItem ();
        row->SetText (item->GetDisplayName ());
        row->SetDefaultToolTip (item->GetDescription ().Trimmed ());
    } else {
        // "Unclassified" unless the element takes part in a system that has nothing to choose.
        const int index = (!associated || systemHasItems) ? NoItemStringIndex : EmptySystemStringIndex;
        row->SetText (GetResourceString (ValueStringsResId, index));
        row->SetDefaultToolTip (Kor::UniString ());
    }
    row->SetIcon (Wg::Icon (AssociationMarkModule, associated ? AssociatedMark : NotAssociatedMark));
    row->SetOnTabItemVisibility (associated);
    row->SetStatus (editableStatus == Editable);
}

void ClassificationListItem::ButtonClicked (const AttributeListIconButtonItem&)
{
    Wg::ButtonItem* button = row->GetIconButton ();
    if (button == nullptr || editableStatus != Editable) return;

    Kor::LifeWatch alive {this};
    selectorPopup.Invoke (*button);
    if (alive.IsGone ()) return;

    const ODB::ConstRef<CLS::ClassificationItem> chosen = selectorPopup.GetSelectedItemTyped ();
    if (chosen.IsNull ()) return;
    const bool changed = itemData.SetClassificationItem (chosen);
    UpdateUserInteface ();
    if (changed && itemData.IsAssociatedWithElem ()) ElementClassificationChanged ();
}

void ClassificationListItem::IconColumnClicked (const AttributeListItem&)
{
    // The list reports icon-column clicks on greyed rows too; a classification that the host
    // does not let edit must not change by them.
    if (editableStatus != Editable) return;
    itemData.SwitchAssociatedWithElemFlag ();
    UpdateUserInteface ();
    ElementClassificationChanged ();
}

void ClassificationListItem::ElementClassificationChanged ()
{
    if (itemData.HasClassificationItem ()) NotifyObservers ();
}

void ClassificationListItem::NotifyObservers ()
{
    Kor::EventSource::NotifyObservers<ClassificationListItemObserver> (
        [this] (ClassificationListItemObserver& observer) { observer.ClassificationChanged (*this); });
}

}   // namespace TxAL
