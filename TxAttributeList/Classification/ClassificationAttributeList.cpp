#include "TxAttributeList/ClassificationAttributeList.hpp"

#include "Kor/LifeWatch.hpp"

namespace TxAL {

ClassificationSystemHandler::~ClassificationSystemHandler () = default;

IClassificationHandlerCollector::~IClassificationHandlerCollector () = default;

// --- ClassificationSystemHandlerDecorator ---

CLS::ElemClassificationData ClassificationSystemHandlerDecorator::GetClassificationData ()
{
    return decorated->GetClassificationData ();
}

bool ClassificationSystemHandlerDecorator::IsEditable () const
{
    return decorated->IsEditable ();
}

void ClassificationSystemHandlerDecorator::SetClassificationItem (const ODB::ConstRef<CLS::ClassificationItem>& item) const
{
    decorated->SetClassificationItem (item);
}

// --- ClassificationAttributeList ---

ClassificationAttributeList::ClassificationAttributeList (IClassificationHandlerCollector& collector, const Wg::Panel& panel,
                                                          short listBoxItemId, const Kor::UniString& title)
    : collector (collector),
      list (std::make_unique<AttributeList> (panel, listBoxItemId, AttributeList::OptionalParameters ().SetTextEditMaxLength (TextEditMaxLength))),
      title (title)
{
}

ClassificationAttributeList::~ClassificationAttributeList ()
{
    // The rows leave the list before the list goes.
    list->ClearList (false);
    items.Clear ();
}

template <typename Fill>
void ClassificationAttributeList::Rebuild (Fill&& fill)
{
    list->DisableUpdate ();
    // The list takes updates again however the fill ends (a null handler throws).
    struct EnableAgain {
        AttributeList& list;
        ~EnableAgain () { list.EnableUpdate (); }
    };
    {
        EnableAgain enableAgain {*list};
        list->ClearList (true);
        items.Clear ();
        if (!title.IsEmpty ()) {
            AttributeListGroupItem* group = list->CreateGroup (Kor::UniString (), Wg::Icon (), true, true);
            if (group != nullptr) {
                group->SetName (title);
                group->SetCollapsible (false);
            }
        }
        fill ();
    }
    list->FullRefreshList (false);
    if (!items.IsEmpty ()) items[0]->Select ();
}

void ClassificationAttributeList::Update ()
{
    Rebuild ([this] {
        const Kor::Array<Kor::Ref<ClassificationSystemHandler>> handlers = collector.CollectClassificationSystemHandlers ();
        for (const Kor::Ref<ClassificationSystemHandler>& handler : handlers) {
            Kor::Ref<ClassificationItemSelectorPopup::IClassificationVisibilityGetter> getter = collector.GetClassificationVisibilityGetter ();
            const ClassificationListItem::EditableStatus status =
                handler->IsEditable () ? ClassificationListItem::Editable : ClassificationListItem::NotEditable;
            auto item = Kor::NewRef<ClassificationListItem> (handler->GetClassificationData (), status, std::move (getter));
            item->Attach (*this);
            item->AppendToAttributeList (*list);
            items.Push (std::move (item));
        }
    });
}

void ClassificationAttributeList::ClassificationChanged (const ClassificationListItem& item)
{
    // Copied now: the host may rebuild the rows (and drop this one) while it stores.
    const CLS::ElemClassificationData data = item.GetItemData ();

    Kor::Ref<ClassificationSystemHandler> handler;
    for (const Kor::Ref<ClassificationSystemHandler>& candidate : collector.CollectClassificationSystemHandlers ())
        if (candidate->GetClassificationData ().GetClassificationSystem () == data.GetClassificationSystem ()) handler = candidate;
    if (handler.IsNull ()) return;

    Kor::LifeWatch alive {this};
    handler->SetClassificationItem (data.IsAssociatedWithElem () ? data.GetClassificationItem () : ODB::ConstRef<CLS::ClassificationItem> ());
    if (alive.IsGone ()) return;

    const ODB::ConstRef<CLS::ClassificationSystem> system = handler->GetClassificationData ().GetClassificationSystem ();
    if (alive.IsGone ()) return;
    NotifyObservers<ClassificationAttributeListObserver> (
        [this, &system] (ClassificationAttributeListObserver& observer) { observer.ClassificationSystemChanged (*this, system); });
}

}   // namespace TxAL
