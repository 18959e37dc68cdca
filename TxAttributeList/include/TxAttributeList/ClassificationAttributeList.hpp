#pragma once
// The classification list: an attribute list with one ClassificationListItem row per
// classification system that the host's collector returns, in the collector's order, after an
// optional non-collapsible title group. A row's change goes to the host through the system's
// ClassificationSystemHandler, looked up afresh on each change (the last handler of the system
// wins); observers then hear ClassificationSystemChanged.
//
// The host supplies the handlers through IClassificationHandlerCollector. Handlers are counted
// references; ClassificationSystemHandlerDecorator lets a host wrap them without knowing their
// concrete types.

#include <memory>
#include <utility>

#include "CLS/ElemClassificationData.hpp"
#include "Kor/Array.hpp"
#include "Kor/Event.hpp"
#include "Kor/Ref.hpp"
#include "Kor/UniString.hpp"
#include "ODB/Ref.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/ClassificationItemSelectorPopup.hpp"
#include "TxAttributeList/ClassificationListItem.hpp"

namespace Wg {
class Panel;
}   // namespace Wg

namespace TxAL {

class ClassificationAttributeList;

// The host's access to the classification of the edited elements in one system.
class ClassificationSystemHandler {
public:
    virtual ~ClassificationSystemHandler ();
    virtual CLS::ElemClassificationData GetClassificationData () = 0;
    virtual bool                        IsEditable () const = 0;
    // Stores a new item; an empty reference removes the classification.
    virtual void SetClassificationItem (const ODB::ConstRef<CLS::ClassificationItem>& item) const = 0;
};

// The host's source of classification handlers and of the item visibility rule.
class IClassificationHandlerCollector {
public:
    virtual ~IClassificationHandlerCollector ();
    // In the order the rows are to appear.
    virtual Kor::Array<Kor::Ref<ClassificationSystemHandler>> CollectClassificationSystemHandlers () = 0;
    // NoClassificationVisisibilityEffect when no filtering is wanted.
    virtual Kor::Ref<ClassificationItemSelectorPopup::IClassificationVisibilityGetter> GetClassificationVisibilityGetter () = 0;
};

// Forwards every operation to a wrapped handler; subclasses override what they need. A null
// wrapped handler throws Kor's NullReferenceException on use.
class ClassificationSystemHandlerDecorator : public ClassificationSystemHandler {
public:
    explicit ClassificationSystemHandlerDecorator (Kor::Ref<ClassificationSystemHandler> decorated) : decorated (std::move (decorated)) {}

    CLS::ElemClassificationData GetClassificationData () override;
    bool                        IsEditable () const override;
    void SetClassificationItem (const ODB::ConstRef<CLS::ClassificationItem>& item) const override;

    const Kor::Ref<ClassificationSystemHandler>& GetDecoratedHandler () const { return decorated; }

private:
    Kor::Ref<ClassificationSystemHandler> decorated;
};

// Replaces each handler of the array, in order, with what the function makes of it (a copy of
// the element goes in; an identical result leaves the element as it is).
template <typename Function>
void DecorateEachClassificationSystemHandler (Kor::Array<Kor::Ref<ClassificationSystemHandler>>& handlers, Function&& function)
{
    for (Kor::Ref<ClassificationSystemHandler>& handler : handlers) {
        Kor::Ref<ClassificationSystemHandler> result = function (Kor::Ref<ClassificationSystemHandler> (handler));
        if (!(result == handler)) handler = std::move (result);
    }
}

// Hears that a handler has stored a new classification.
class ClassificationAttributeListObserver : public virtual Kor::EventObserver {
public:
    virtual void ClassificationSystemChanged (const ClassificationAttributeList& list,
                                              const ODB::ConstRef<CLS::ClassificationSystem>& system) = 0;
};

// The classification list (see the top of this file).
class ClassificationAttributeList : public Kor::EventSource, public ClassificationListItemObserver {
public:
    static constexpr short TextEditMaxLength = 2048;

    // On the panel's existing list box with that id. The collector is not owned and must outlive
    // the list. The list stays empty until Update.
    ClassificationAttributeList (IClassificationHandlerCollector& collector, const Wg::Panel& panel, short listBoxItemId,
                                 const Kor::UniString& title);
    ClassificationAttributeList (const ClassificationAttributeList&) = delete;
    ClassificationAttributeList& operator= (const ClassificationAttributeList&) = delete;
    ~ClassificationAttributeList () override;

    AttributeList& GetAttributeList () { return *list; }
    const Kor::Array<Kor::Ref<ClassificationListItem>>& GetItems () const { return items; }

    // Discards every row and builds them again from the collector.
    void Update ();

    void Attach (ClassificationAttributeListObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (ClassificationAttributeListObserver& observer) { Kor::EventSource::Detach (observer); }

protected:
    // --- ClassificationListItemObserver ---
    void ClassificationChanged (const ClassificationListItem& item) override;

private:
    template <typename Fill>
    void Rebuild (Fill&& fill);

    IClassificationHandlerCollector&             collector;
    std::unique_ptr<AttributeList>               list;
    Kor::Array<Kor::Ref<ClassificationListItem>> items;
    Kor::UniString                               title;
};

}   // namespace TxAL
