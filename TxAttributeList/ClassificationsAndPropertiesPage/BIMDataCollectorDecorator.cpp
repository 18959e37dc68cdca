#include "Kor/LifeWatch.hpp"
#include "TxAttributeList/ClassificationsAndPropertiesPage.hpp"

namespace TxAL {

// Stores through the host's handler, then refreshes the whole property list, so that values
// calculated from the stored one, and dependent ones, show at once.
class ClassificationsAndPropertiesPage::FullRefreshUserDefinedPropertyHandler : public IUserDefinedPropertyHandlerDecorator {
public:
    FullRefreshUserDefinedPropertyHandler (const Kor::Ref<IUserDefinedPropertyHandler>& decorated, ClassificationsAndPropertiesPage& page)
        : IUserDefinedPropertyHandlerDecorator (decorated), page (page)
    {
    }

    void SetValue (const Kor::DynamicValue* value) override
    {
        const Kor::LifeWatch alive (page);
        IUserDefinedPropertyHandlerDecorator::SetValue (value);
        if (alive.IsAlive ()) page.GetPropertyAttributeList ().FullRefreshList (true);
    }

    void RemoveCustomValue () override
    {
        const Kor::LifeWatch alive (page);
        IUserDefinedPropertyHandlerDecorator::RemoveCustomValue ();
        if (alive.IsAlive ()) page.GetPropertyAttributeList ().FullRefreshList (true);
    }

private:
    ClassificationsAndPropertiesPage& page;
};

// Stores through the host's handler while the classification list's updates are disabled: a
// host that refills the list from inside the store finds it holding still, and the row that
// reported the change outlives the call.
class ClassificationsAndPropertiesPage::AttributeListDisablingClassificationHandler : public ClassificationSystemHandlerDecorator {
public:
    AttributeListDisablingClassificationHandler (Kor::Ref<ClassificationSystemHandler> decorated, ClassificationsAndPropertiesPage& page)
        : ClassificationSystemHandlerDecorator (std::move (decorated)), page (page)
    {
    }

    void SetClassificationItem (const ODB::ConstRef<CLS::ClassificationItem>& item) const override
    {
        // Enabled again however the store ends, also by an exception; not on a page it destroyed.
        struct Disabled {
            ClassificationsAndPropertiesPage& page;
            Kor::LifeWatch                    alive {page};
            explicit Disabled (ClassificationsAndPropertiesPage& page) : page (page) { page.GetClassificationAttributeList ().DisableUpdate (); }
            ~Disabled ()
            {
                if (alive.IsAlive ()) page.GetClassificationAttributeList ().EnableUpdate ();
            }
        } disabled (page);
        ClassificationSystemHandlerDecorator::SetClassificationItem (item);
    }

private:
    ClassificationsAndPropertiesPage& page;
};

void ClassificationsAndPropertiesPage::BIMDataCollectorDecorator::DecorateEach (Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>>& handlers)
{
    DecorateEachUserDefinedPropertyHandler (handlers, [this] (Kor::Ref<IUserDefinedPropertyHandler> handler) {
        return Kor::Ref<IUserDefinedPropertyHandler> (new FullRefreshUserDefinedPropertyHandler (handler, page));
    });
}

Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> ClassificationsAndPropertiesPage::BIMDataCollectorDecorator::CollectUserDefinedPropertyHandlers (
    const Kor::Array<Kor::Guid>& propertyGuids)
{
    Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> handlers = page.CollectUserDefinedPropertyHandlers (propertyGuids);
    DecorateEach (handlers);
    return handlers;
}

Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> ClassificationsAndPropertiesPage::BIMDataCollectorDecorator::CollectUserDefinedPropertyHandlers ()
{
    Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> handlers = page.CollectUserDefinedPropertyHandlers ();
    DecorateEach (handlers);
    return handlers;
}

Kor::Array<Kor::Ref<ClassificationSystemHandler>> ClassificationsAndPropertiesPage::BIMDataCollectorDecorator::CollectClassificationSystemHandlers ()
{
    Kor::Array<Kor::Ref<ClassificationSystemHandler>> handlers = page.CollectClassificationSystemHandlers ();
    DecorateEachClassificationSystemHandler (handlers, [this] (Kor::Ref<ClassificationSystemHandler> handler) {
        return Kor::Ref<ClassificationSystemHandler> (new AttributeListDisablingClassificationHandler (std::move (handler), page));
    });
    return handlers;
}

Kor::Ref<ClassificationItemSelectorPopup::IClassificationVisibilityGetter>
ClassificationsAndPropertiesPage::BIMDataCollectorDecorator::GetClassificationVisibilityGetter ()
{
    return page.GetClassificationVisibilityGetter ();
}

}   // namespace TxAL
