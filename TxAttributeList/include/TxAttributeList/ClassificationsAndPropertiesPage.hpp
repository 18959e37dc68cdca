#pragma once
// ClassificationsAndPropertiesPage: a ready-made tab page that shows, for the elements the host
// has selected, a classification list above a property list, a splitter between them and an
// information strip (icon and one line of text) at the bottom. The page is made from dialog
// resource 20197 of the library's resource module: icon 1, text 2, classification list box 3,
// splitter 4, property list box 5.
//
// The host derives from it, answers the four hooks and the two collectors' operations, and calls
// Init once. The page lays itself out at its panel's first open or idle event, follows resizes
// and splitter drags, refreshes the property list after every value the user stores, and keeps
// the classification list still while a classification is stored.
//
// Call tree:
//   Init (once)                 -> ClassificationAttributeList::Update (when shown); InitPropertyAttributeList
//   InitPropertyAttributeList   -> clear; BeforePropertyListFilled; container's rows (when shown) and
//                                  RefreshInfoStrip; AfterPropertyListFilled; FullRefreshList (false)
//   user stores a property      -> FullRefreshUserDefinedPropertyHandler::SetValue -> host; FullRefreshList (true)
//   user classifies             -> AttributeListDisablingClassificationHandler -> updates off, host, updates on
//   panel and splitter events   -> PageLayout (ClassificationsAndPropertiesPage/PageLayout.hpp)
//   PanelCloseRequested         -> accepted; PageCloseAccepted when the panel closes by acceptance

#include <optional>

#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/ClassificationAttributeList.hpp"
#include "TxAttributeList/ClassificationsAndPropertiesPageTypes.hpp"
#include "TxAttributeList/PropertyListItemContainer.hpp"
#include "TxAttributeList/UserDefinedPropertyHandler.hpp"
#include "Wg/Controls.hpp"
#include "Wg/Splitter.hpp"
#include "Wg/TabControl.hpp"
#include "Wg/TabPage.hpp"

namespace TxAL {

class PageLayout;

// The classifications and properties page (see the top of this file).
class ClassificationsAndPropertiesPage : public Wg::TabPage,
                                         public Wg::PanelObserver,
                                         public Wg::SplitterObserver,
                                         public IUserDefinedPropertyHandlerCollector,
                                         public IClassificationHandlerCollector {
public:
    using InfoStrip = ClassificationsAndPropertiesPageInfoStrip;

    // Both collectors over the page: asks the page's own operations and wraps every handler, so
    // that a stored property refreshes the property list and a stored classification happens
    // while the classification list holds still.
    class BIMDataCollectorDecorator : public IUserDefinedPropertyHandlerCollector, public IClassificationHandlerCollector {
    public:
        explicit BIMDataCollectorDecorator (ClassificationsAndPropertiesPage& page) : page (page) {}

        Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers (const Kor::Array<Kor::Guid>& propertyGuids) override;
        Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers () override;
        Kor::Array<Kor::Ref<ClassificationSystemHandler>> CollectClassificationSystemHandlers () override;
        Kor::Ref<ClassificationItemSelectorPopup::IClassificationVisibilityGetter> GetClassificationVisibilityGetter () override;

    private:
        void DecorateEach (Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>>& handlers);

        ClassificationsAndPropertiesPage& page;
    };

    // The page's dialog resource and string list.
    static constexpr int   PageResId = 20197;
    static constexpr int   ClassificationListTitleIndex = 1;
    static constexpr short InfoIconIndex = 1;
    static constexpr short InfoTextIndex = 2;
    static constexpr short ClassificationListBoxIndex = 3;
    static constexpr short SplitterIndex = 4;
    static constexpr short PropertyListBoxIndex = 5;
    static constexpr short PropertyTextEditMaxLength = 2048;
    // Icons of the user-dialogs library on the information strip.
    static constexpr int   WarningIconResId = 1109;
    static constexpr int   InformationIconResId = 1113;

    // Neither the tab control nor the options are owned; the options must outlive the page.
    ClassificationsAndPropertiesPage (const Wg::TabControl& tabControl, const IClassificationsAndPropertiesPageOptions& options);
    ClassificationsAndPropertiesPage (const ClassificationsAndPropertiesPage&) = delete;
    ClassificationsAndPropertiesPage& operator= (const ClassificationsAndPropertiesPage&) = delete;
    ~ClassificationsAndPropertiesPage () override;

    // Fills both lists; once only, later calls do nothing.
    virtual void Init ();

protected:
    // --- The deriving class's hooks ---
    // The strip to show, or none.
    virtual std::optional<InfoStrip> GetInfoStrip () const = 0;
    // Around the filling of the property list (which is empty when the first is called).
    virtual void BeforePropertyListFilled (AttributeList& list) = 0;
    virtual void AfterPropertyListFilled (AttributeList& list) = 0;
    // The page's panel closes by acceptance.
    virtual void PageCloseAccepted () = 0;

public:
    virtual void StorePageState (ClassificationsAndPropertiesPageState& state) const;
    // Collapses the stored groups (call it after Init) and takes the splitter position, which
    // the next layout clamps.
    virtual void RestorePageState (const ClassificationsAndPropertiesPageState& state);
    virtual void LayoutPageWithSplitter (short widthChange, short heightChange, bool moveResizeBlock);

    // Refills the classification list, unless its updates are disabled (a classification is
    // being stored).
    void UpdateClassificationListItems ();
    // Builds the property rows anew.
    void UpdatePropertyListItems ();
    // Binds the property values anew; the rows stay.
    void UpdatePropertyValues ();

    AttributeList& GetClassificationAttributeList () { return classificationList.GetAttributeList (); }
    AttributeList& GetPropertyAttributeList () { return propertyList; }
    void           AttachToPropertyListItemContainer (PropertyListItemContainerObserver& observer) { propertyContainer.Attach (observer); }

    short GetSplitterPosition () const;
    bool  IsInfoStripVisible () const;

protected:
    // --- Wg::PanelObserver ---
    void PanelOpened (const Wg::PanelOpenEvent& event) override;
    void PanelIdle (const Wg::PanelIdleEvent& event) override;
    void PanelResized (const Wg::PanelResizeEvent& event) override;
    void PanelResizeExited (const Wg::PanelResizeExitEvent& event) override;
    void PanelCloseRequested (const Wg::PanelCloseRequestEvent& event, bool* accepted) override;

    // --- Wg::SplitterObserver ---
    void SplitterDragged (const Wg::SplitterDragEvent& event) override;

    // Asks GetInfoStrip and shows or hides the strip.
    void RefreshInfoStrip ();

private:
    class FullRefreshUserDefinedPropertyHandler;
    class AttributeListDisablingClassificationHandler;

    void InitPropertyAttributeList ();

    Wg::IconItem&                                   infoIcon;
    Wg::LeftText&                                   infoText;
    Wg::Splitter&                                   splitter;
    AttributeList                                   propertyList;
    // Both get the decorator below, which they keep and use only after construction.
    ClassificationAttributeList                     classificationList;
    PropertyListItemContainer                       propertyContainer;
    BIMDataCollectorDecorator                       bimDataCollector;
    const IClassificationsAndPropertiesPageOptions& options;
    std::unique_ptr<PageLayout>                     layout;
    bool                                            listsInitialized = false;
};

}   // namespace TxAL
