// The page as a host derives it: filling once, the collector's decorators around every handler,
// the options' four answers, the state round trip and the close request.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "../Classification/ClassificationFixture.hpp"
#include "../PropertyList/PropertyListFixture.hpp"
#include "RecordingPeer.hpp"
#include "Rb/RbResources.hpp"
#include "TxAttributeList/ClassificationsAndPropertiesPage.hpp"
#include "Wg/TabControl.hpp"

namespace {

using PropertyListTest::FakeHandler;

// A host handler that does more when it stores (as a real host does in its own batches).
class StoringHandler : public FakeHandler {
public:
    using FakeHandler::FakeHandler;

    std::function<void ()> onStore;

    void SetValue (const Kor::DynamicValue* value) override
    {
        FakeHandler::SetValue (value);
        if (onStore) onStore ();
    }
    void RemoveCustomValue () override
    {
        FakeHandler::RemoveCustomValue ();
        if (onStore) onStore ();
    }
};
using PropertyListTest::MakeDefinition;
using PropertyListTest::MakeGroup;
using Property::MeasureType;
using Property::PropertyCollectionType;
using Property::PropertyValueType;
using InfoStrip = TxAL::ClassificationsAndPropertiesPage::InfoStrip;

constexpr int PageWidth = 380;
constexpr int PageHeight = 440;

class Options : public TxAL::IClassificationsAndPropertiesPageOptions {
public:
    bool resizable = true;
    bool autoUpdate = false;
    bool classifications = true;
    bool properties = true;

    bool PageIsResizable () const override { return resizable; }
    bool EditControlAutoUpdate () const override { return autoUpdate; }
    bool ShowClassifications () const override { return classifications; }
    bool ShowProperties () const override { return properties; }
};

// A host's page: handlers from its own arrays; its hooks write into the shared log.
class HostPage : public TxAL::ClassificationsAndPropertiesPage {
public:
    HostPage (const Wg::TabControl& tabs, const Options& options, std::string& log) : ClassificationsAndPropertiesPage (tabs, options), log (log) {}

    std::optional<InfoStrip>                                   strip;
    Kor::Array<Kor::Ref<StoringHandler>>                       properties;
    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>>    classifications;
    int                                                        propertyCollects = 0;
    int                                                        classificationCollects = 0;

    using ClassificationsAndPropertiesPage::RefreshInfoStrip;

    // --- The collectors ---
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers (const Kor::Array<Kor::Guid>& guids) override
    {
        Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> found;
        for (const Kor::Guid& guid : guids)
            for (const Kor::Ref<StoringHandler>& handler : properties)
                if (handler->definition->GetGuid () == guid) found.Push (handler);
        return found;
    }
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers () override
    {
        ++propertyCollects;
        Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> all;
        for (const Kor::Ref<StoringHandler>& handler : properties) all.Push (handler);
        return all;
    }
    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> CollectClassificationSystemHandlers () override
    {
        ++classificationCollects;
        return classifications;
    }
    Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> GetClassificationVisibilityGetter () override
    {
        return Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> (new TxAL::NoClassificationVisisibilityEffect ());
    }

protected:
    std::optional<InfoStrip> GetInfoStrip () const override { return strip; }
    void BeforePropertyListFilled (TxAL::AttributeList& list) override { Add ("before:" + std::to_string (list.GetItems ().GetSize ())); }
    void AfterPropertyListFilled (TxAL::AttributeList& list) override { Add ("after:" + std::to_string (list.GetItems ().GetSize ())); }
    void PageCloseAccepted () override { Add ("closeAccepted"); }

private:
    void Add (const std::string& entry) { log += (log.empty () ? "" : " ") + entry; }

    std::string& log;
};

class PageTest : public ::testing::Test {
protected:
    PageTest ()
    {
        external = system->AddItem ({}, "EF_25_10", "External walls");
        internal = system->AddItem ({}, "EF_25_30", "Internal walls");
        Wg::GetHeadlessModalRunner ().ClearScript ();
    }
    ~PageTest () override { Wg::GetHeadlessModalRunner ().ClearScript (); }

    HostPage& MakePage ()
    {
        page = std::make_unique<HostPage> (tabs, options, log);
        const auto a = MakeGroup ("Dimensions", 1);
        const auto b = MakeGroup ("Fire", 2);
        AddProperty ({"Height", PropertyValueType::Real, MeasureType::Length, PropertyCollectionType::Single, a}, 2.7);
        AddProperty ({"Width", PropertyValueType::Real, MeasureType::Length, PropertyCollectionType::Single, a}, 0.3);
        AddProperty ({"Rating", PropertyValueType::Real, MeasureType::Number, PropertyCollectionType::Single, b}, 90);
        classification = Kor::Ref<ClassificationTest::Handler> (
            new ClassificationTest::Handler ("uniclass", CLS::ElemClassificationData (system.AsConst (), external, true), true, log));
        page->classifications.Push (classification);
        return *page;
    }

    void AddProperty (const PropertyListTest::DefinitionFields& fields, double value)
    {
        auto handler = Kor::NewRef<StoringHandler> (MakeDefinition (fields), log);
        handler->custom = Kor::NewOwner<Kor::NumValue> (value);
        page->properties.Push (handler);
    }

    std::string Take () { return std::exchange (log, {}); }
    std::string Properties () { return TxALTest::DumpRows (page->GetPropertyAttributeList ()); }
    std::string Classifications () { return TxALTest::DumpRows (page->GetClassificationAttributeList ()); }
    Wg::ListBox& PropertyBox () { return page->GetPropertyAttributeList ().GetListBox (); }
    Wg::Splitter& Splitter () { return page->GetDialogItem<Wg::Splitter> (TxAL::ClassificationsAndPropertiesPage::SplitterIndex); }

    void ClickProperty (short row, short column)
    {
        Wg::ListBox& box = PropertyBox ();
        box.Click (row, Wg::Point ((box.GetTabFieldBeginPosition (column) + box.GetTabFieldEndPosition (column)) / 2, 5));
    }
    // Types into the height row's length edit.
    void TypeHeight (const char* text)
    {
        ClickProperty (2, page->GetPropertyAttributeList ().GetAttributeNameColumnIndex ());
        page->GetPropertyAttributeList ().GetOnTabItems ().GetLengthEdit ().UserType (text);
    }
    void ClickClassificationIcon (short row)
    {
        TxAL::AttributeList& list = page->GetClassificationAttributeList ();
        const short column = list.GetAttributeIconColumnIndex ();
        list.GetListBox ().Click (row, Wg::Point ((list.GetListBox ().GetTabFieldBeginPosition (column) + list.GetListBox ().GetTabFieldEndPosition (column)) / 2, 5));
    }

    const Wg::WorkingUnits              savedUnits = Wg::GetWorkingUnits ();
    std::string                         log;
    Options                             options;
    Wg::Panel                           dialog {Wg::Rect (0, 0, 400, 500)};
    Wg::TabControl                      tabs {dialog, Wg::Rect (0, 0, PageWidth + 2 * Wg::TabControl::FrameWidth,
                                                                PageHeight + Wg::TabControl::TabBarHeight + Wg::TabControl::FrameWidth)};
    ODB::Ref<CLS::ClassificationSystem> system = CLS::ClassificationSystem::Create ("Uniclass", "2015");
    ODB::Ref<CLS::ClassificationSystem> otherSystem = CLS::ClassificationSystem::Create ("Element types", "1");
    ClassificationTest::ItemRef         otherItem = otherSystem->AddItem ({}, "W", "Wall");
    ClassificationTest::ItemRef         external, internal;
    Kor::Ref<ClassificationTest::Handler> classification;
    std::unique_ptr<HostPage>           page;
};

}   // namespace

TEST_F (PageTest, InitFillsBothListsOnceWithTheHooksAroundTheProperties)
{
    MakePage ().strip = InfoStrip::CreateWarning (Kor::UniString ("Mixed types"));
    EXPECT_EQ (Properties (), "");
    page->Init ();
    EXPECT_EQ (Take (), "before:0 after:2");
    EXPECT_EQ (Properties (), "1:▾Dimensions 2:  Height|2.700 m 3:  Width|0.300 m 4:▾Fire 5:  Rating|90.00");
    EXPECT_EQ (Classifications (), "1:Classifications 2:Uniclass 2015|External walls");
    EXPECT_TRUE (page->IsInfoStripVisible ());
    EXPECT_EQ (page->GetDialogItem<Wg::LeftText> (TxAL::ClassificationsAndPropertiesPage::InfoTextIndex).GetText ().ToUtf8 (), "Mixed types");
    EXPECT_EQ (page->GetDialogItem<Wg::IconItem> (TxAL::ClassificationsAndPropertiesPage::InfoIconIndex).GetIcon (), Rb::GetResourceIcon (1109));

    page->strip.reset ();
    page->Init ();
    EXPECT_EQ (Take (), "");
    EXPECT_EQ (page->propertyCollects, 1);
    EXPECT_EQ (page->classificationCollects, 1);
    // Refilling asks again and decides the strip anew.
    page->UpdatePropertyListItems ();
    EXPECT_EQ (Take (), "before:0 after:2");
    EXPECT_EQ (page->propertyCollects, 2);
    EXPECT_FALSE (page->IsInfoStripVisible ());
}

TEST_F (PageTest, EveryStoredPropertyRefreshesTheWholePropertyList)
{
    MakePage ().Init ();
    Take ();
    // The host stores in a batch of its own that changes what the list shows (a property that
    // no longer applies is hidden): only a full refresh after the store brings it to the screen.
    TxAL::AttributeList& list = page->GetPropertyAttributeList ();
    const auto hideInBatch = [&list] (std::size_t index) {
        list.DisableUpdate ();
        list.GetItems ()[index]->SetVisibility (false);
        list.EnableUpdate ();
    };
    page->properties[0]->onStore = [&] { hideInBatch (1); };
    TypeHeight ("3.1");
    EXPECT_EQ (Take (), "") << "without auto update the host hears at the confirmation";
    page->KeyPress (Wg::Key::Code (Wg::Key::Return, 0, 0));
    EXPECT_EQ (Take (), "Set(Height=3.1)");
    EXPECT_EQ (Properties (), "1:▾Dimensions 2:  Height|3.100 m 3:  Width|0.300 m");

    // Back to the default through the row's popup: removed, and refreshed again.
    page->properties[1]->onStore = [&] { hideInBatch (0); };
    ClickProperty (3, list.GetAttributeTypeColumnIndex ());
    Wg::GetHeadlessModalRunner ().QueueChoose (1);
    list.GetOnTabItems ().GetIconColumnPopup ().UserPress ();
    EXPECT_EQ (Take (), "Remove(Width)");
    EXPECT_EQ (Properties (), "");
}

TEST_F (PageTest, AClassificationIsStoredWhileTheClassificationListHoldsStill)
{
    MakePage ();
    auto other = Kor::Ref<ClassificationTest::Handler> (
        new ClassificationTest::Handler ("other", CLS::ElemClassificationData (otherSystem.AsConst (), otherItem, true), true, log));
    page->classifications.Push (other);
    page->Init ();
    Take ();
    Wg::ListBox& box = page->GetClassificationAttributeList ().GetListBox ();
    // The row's item: a refill deletes it (addresses may be reused, lifetimes tell).
    TxALTest::Lifetimes lifetimes;
    lifetimes.Watch (*static_cast<TxAL::AttributeListItem*> (box.GetItemValue (2)));
    std::string during;
    classification->onStore = [&] {
        during = page->GetClassificationAttributeList ().UpdateIsEnabled () ? "enabled" : "disabled";
        // A host that refills the list from inside the store is ignored until it is over.
        page->UpdateClassificationListItems ();
    };
    ClickClassificationIcon (2);
    EXPECT_EQ (Take (), "uniclass=none");
    EXPECT_EQ (during, "disabled");
    EXPECT_EQ (lifetimes.Take (), "") << "the row that reported the change is still there";
    EXPECT_TRUE (page->GetClassificationAttributeList ().UpdateIsEnabled ());
    page->UpdateClassificationListItems ();
    EXPECT_EQ (lifetimes.Take (), "~Uniclass 2015");

    // A store that throws leaves the list taking updates again.
    other->onStore = [] { throw std::runtime_error ("database locked"); };
    EXPECT_THROW (ClickClassificationIcon (3), std::runtime_error);
    EXPECT_EQ (Take (), "other=none");
    EXPECT_TRUE (page->GetClassificationAttributeList ().UpdateIsEnabled ());
}

TEST_F (PageTest, TheOptionsShapeThePage)
{
    options.classifications = false;
    options.autoUpdate = true;
    MakePage ().Init ();
    dialog.Open ();
    EXPECT_EQ (page->classificationCollects, 0);
    EXPECT_FALSE (Splitter ().IsVisible ());
    EXPECT_FALSE (page->GetClassificationAttributeList ().GetListBox ().IsVisible ());
    EXPECT_EQ (PropertyBox ().GetRect ().top, 0);
    // Auto update: the host hears every keystroke.
    TypeHeight ("4");
    EXPECT_EQ (Take (), "before:0 after:2 Set(Height=4)");

    options.properties = false;
    page->strip = InfoStrip::CreateInfo (Kor::UniString ("unused"));
    page->UpdatePropertyListItems ();
    EXPECT_EQ (Take (), "before:0 after:0");
    EXPECT_EQ (Properties (), "");
    EXPECT_FALSE (page->IsInfoStripVisible ()) << "without properties the strip is not asked for";
}

TEST_F (PageTest, TheStateRoundTripsThroughANewPage)
{
    MakePage ().Init ();
    dialog.Open ();
    ClickProperty (4, page->GetPropertyAttributeList ().GetGroupTriangleColumnIndex ());
    EXPECT_EQ (Properties (), "1:▾Dimensions 2:  Height|2.700 m 3:  Width|0.300 m 4:▸Fire");
    Splitter ().UserDrag (200);
    TxAL::ClassificationsAndPropertiesPageState state;
    page->StorePageState (state);
    EXPECT_EQ (state.GetSplitterPosition (), 203);
    EXPECT_EQ (state.GetCollapsedPropertyGroupGuids (), Kor::HashSet<Kor::Guid> {MakeGroup ("Fire", 2)->GetGuid ()});

    page.reset ();
    MakePage ().Init ();
    page->RestorePageState (state);
    page->Open ();
    EXPECT_EQ (Properties (), "1:▾Dimensions 2:  Height|2.700 m 3:  Width|0.300 m 4:▸Fire");
    EXPECT_EQ (Splitter ().GetRect ().top, 200);
    EXPECT_EQ (page->GetClassificationAttributeList ().GetListBox ().GetRect ().bottom, 200);
}

TEST_F (PageTest, AClosingPageAgreesAndHearsOnlyAnAcceptingClose)
{
    MakePage ();
    EXPECT_TRUE (page->RequestClose (false));
    EXPECT_EQ (Take (), "");
    EXPECT_TRUE (page->RequestClose (true));
    EXPECT_EQ (Take (), "closeAccepted");
    // Through the dialog the page hears how it closes.
    dialog.RequestClose (true);
    EXPECT_EQ (Take (), "closeAccepted");
}
