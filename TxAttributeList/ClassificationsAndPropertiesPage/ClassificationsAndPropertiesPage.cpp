#include "TxAttributeList/ClassificationsAndPropertiesPage.hpp"

#include "ClassificationsAndPropertiesPage/PageLayout.hpp"
#include "Kor/LifeWatch.hpp"
#include "Rb/RbResources.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"

namespace TxAL {

namespace {

AttributeList::OptionalParameters PropertyListParameters (const IClassificationsAndPropertiesPageOptions& options)
{
    return AttributeList::OptionalParameters ()
        .SetTextEditMaxLength (ClassificationsAndPropertiesPage::PropertyTextEditMaxLength)
        .SetEditControlAutoUpdate (options.EditControlAutoUpdate ());
}

}   // namespace

ClassificationsAndPropertiesPage::ClassificationsAndPropertiesPage (const Wg::TabControl& tabControl,
                                                                    const IClassificationsAndPropertiesPageOptions& options)
    : Wg::TabPage (tabControl, GetLibResModule (), PageResId),
      infoIcon (GetDialogItem<Wg::IconItem> (InfoIconIndex)),
      infoText (GetDialogItem<Wg::LeftText> (InfoTextIndex)),
      splitter (GetDialogItem<Wg::Splitter> (SplitterIndex)),
      propertyList (*this, GetDialogItem<Wg::ListBox> (PropertyListBoxIndex).GetId (), PropertyListParameters (options)),
      classificationList (bimDataCollector, *this, GetDialogItem<Wg::ListBox> (ClassificationListBoxIndex).GetId (),
                          GetResourceString (PageResId, ClassificationListTitleIndex)),
      propertyContainer (bimDataCollector),
      bimDataCollector (*this),
      options (options),
      layout (std::make_unique<PageLayout> (
          PageLayout::Parts {*this, infoIcon, infoText, splitter, classificationList.GetAttributeList (), propertyList}, options,
          PageLayout::StripIcons {Rb::GetResourceIcon (WarningIconResId), Rb::GetResourceIcon (InformationIconResId)},
          [this] { return GetInfoStrip (); },
          [this] (short widthChange, short heightChange, bool moveResizeBlock) { LayoutPageWithSplitter (widthChange, heightChange, moveResizeBlock); }))
{
    Wg::TabPage::Attach (static_cast<Wg::PanelObserver&> (*this));
    splitter.Attach (static_cast<Wg::SplitterObserver&> (*this));
}

ClassificationsAndPropertiesPage::~ClassificationsAndPropertiesPage ()
{
    // The page hears its own panel: it stops before its parts go.
    Kor::EventObserver::DetachFromAllSources ();
}

void ClassificationsAndPropertiesPage::Init ()
{
    if (listsInitialized) return;
    listsInitialized = true;
    if (options.ShowClassifications ()) {
        // The host's handlers run in there.
        Kor::LifeWatch alive (*this);
        classificationList.Update ();
        if (alive.IsGone ()) return;
    }
    InitPropertyAttributeList ();
}

void ClassificationsAndPropertiesPage::StorePageState (ClassificationsAndPropertiesPageState& state) const
{
    Kor::HashSet<Kor::Guid> collapsed;
    propertyContainer.GetCollapsedPropertyGroupGuids (collapsed);
    state.SetCollapsedPropertyGroupGuids (collapsed);
    state.SetSplitterPosition (layout->GetSplitterPosition ());
}

void ClassificationsAndPropertiesPage::RestorePageState (const ClassificationsAndPropertiesPageState& state)
{
    propertyContainer.CollapsePropertyGroupItems (state.GetCollapsedPropertyGroupGuids ());
    layout->SetSplitterPosition (state.GetSplitterPosition ());
}

void ClassificationsAndPropertiesPage::LayoutPageWithSplitter (short widthChange, short heightChange, bool moveResizeBlock)
{
    layout->LayoutPageWithSplitter (widthChange, heightChange, moveResizeBlock);
}

void ClassificationsAndPropertiesPage::UpdateClassificationListItems ()
{
    // While a classification is stored the list holds still: its rows are on the call stack.
    if (!classificationList.GetAttributeList ().UpdateIsEnabled ()) return;
    classificationList.Update ();
}

void ClassificationsAndPropertiesPage::UpdatePropertyListItems ()
{
    propertyContainer.InvalidatePropertyListItems ();
    InitPropertyAttributeList ();
}

void ClassificationsAndPropertiesPage::UpdatePropertyValues ()
{
    propertyContainer.UpdatePropertyValues ();
}

short ClassificationsAndPropertiesPage::GetSplitterPosition () const
{
    return layout->GetSplitterPosition ();
}

bool ClassificationsAndPropertiesPage::IsInfoStripVisible () const
{
    return layout->IsInfoStripVisible ();
}

void ClassificationsAndPropertiesPage::RefreshInfoStrip ()
{
    layout->RefreshInfoStrip ();
}

void ClassificationsAndPropertiesPage::InitPropertyAttributeList ()
{
    Kor::LifeWatch alive (*this);
    AttributeListSaveSelectionGuard selectionGuard (propertyList);
    propertyList.DisableUpdate ();
    // The hooks and the host's handlers run in between: whatever they throw, the list takes
    // updates again, and a page they destroyed is left alone.
    struct EnableAgain {
        AttributeList&        list;
        const Kor::LifeWatch& alive;
        bool                  done = false;
        ~EnableAgain ()
        {
            if (!done && alive.IsAlive ()) list.EnableUpdate ();
        }
    } enableAgain {propertyList, alive};

    propertyList.ClearList (false);
    BeforePropertyListFilled (propertyList);
    if (alive.IsGone ()) return;
    if (options.ShowProperties ()) {
        propertyContainer.AppendToAttributeList (propertyList);
        if (alive.IsGone ()) return;
        RefreshInfoStrip ();
        if (alive.IsGone ()) return;
    }
    AfterPropertyListFilled (propertyList);
    if (alive.IsGone ()) return;
    enableAgain.done = true;
    propertyList.EnableUpdate ();
    propertyList.FullRefreshList (false);
}

// --- Wg::PanelObserver ---

void ClassificationsAndPropertiesPage::PanelOpened (const Wg::PanelOpenEvent&)
{
    layout->PanelOpened ();
}

void ClassificationsAndPropertiesPage::PanelIdle (const Wg::PanelIdleEvent&)
{
    layout->PanelIdle ();
}

void ClassificationsAndPropertiesPage::PanelResized (const Wg::PanelResizeEvent& event)
{
    layout->PanelResized (event.GetHorizontalChange (), event.GetVerticalChange ());
}

void ClassificationsAndPropertiesPage::PanelResizeExited (const Wg::PanelResizeExitEvent&)
{
    layout->PanelResizeExited ();
}

void ClassificationsAndPropertiesPage::PanelCloseRequested (const Wg::PanelCloseRequestEvent& event, bool* accepted)
{
    if (accepted != nullptr) *accepted = true;
    if (event.IsAccepted ()) PageCloseAccepted ();
}

// --- Wg::SplitterObserver ---

void ClassificationsAndPropertiesPage::SplitterDragged (const Wg::SplitterDragEvent& event)
{
    layout->SplitterDragged (event);
}

}   // namespace TxAL
