// The classification list and its rows, through user input: the row's visible states, icon
// column clicks, the button and the selector popup, and what reaches the host's handlers and the
// list's observers, in which order.

#include "ClassificationFixture.hpp"

namespace ClassificationTest {
namespace {

class ListObserver : public TxAL::ClassificationAttributeListObserver {
public:
    explicit ListObserver (std::string& log) : log (log) {}
    void ClassificationSystemChanged (const TxAL::ClassificationAttributeList&, const SystemRef& system) override
    {
        log += " changed(" + (system.IsNull () ? std::string ("none") : system->GetName ().ToUtf8 ()) + ")";
    }
    std::string& log;
};

class ClassificationListTest : public ClassificationFixture {
protected:
    void Watch () { list->Attach (observer); }
    std::string TakeLog () { return std::exchange (log, {}); }

    ListObserver observer {log};
};

TEST_F (ClassificationListTest, RowsFollowTheCollectorAfterANonCollapsibleTitle)
{
    AddHandler ("a", system.AsConst (), walls, true);
    auto own = CLS::ClassificationSystem::Create ("Element types", "");
    AddHandler ("b", own.AsConst (), {}, false);
    MakeList ("Classifications");
    EXPECT_EQ (Box ().GetItemCount (), 0) << "empty until Update";
    list->Update ();
    EXPECT_EQ (Rows (), "1:Classifications 2:Uniclass 2015|Walls 3:Element types|Unclassified");
    auto* title = dynamic_cast<TxAL::AttributeListGroupItem*> (list->GetAttributeList ().GetItems ()[0]);
    ASSERT_NE (title, nullptr);
    EXPECT_FALSE (title->IsCollapsible ());
    EXPECT_EQ (Box ().GetSelectedItem (), 2) << "the first system row, not the title";
    EXPECT_EQ (collector.collects, 1);
    EXPECT_EQ (collector.getterRequests, 2) << "one visibility getter per handler";

    // Another update discards the rows and selects the first again.
    std::swap (collector.handlers[0], collector.handlers[1]);
    Box ().SelectItem (3);
    list->Update ();
    EXPECT_EQ (Rows (), "1:Classifications 2:Element types|Unclassified 3:Uniclass 2015|Walls");
    EXPECT_EQ (Box ().GetSelectedItem (), 2);
}

TEST_F (ClassificationListTest, WithoutTitleOrSystemsThereIsNothingToSelect)
{
    MakeList ().Update ();
    EXPECT_EQ (Box ().GetItemCount (), 0);
    EXPECT_EQ (Box ().GetSelectedItem (), 0);
    EXPECT_EQ (list->GetAttributeList ().GetOnTabItems ().GetTextEdit ().GetMaxLength (), 2048) << "long class names fit";
    AddHandler ("a", system.AsConst (), {}, true);
    list->Update ();
    EXPECT_EQ (Rows (), "1:Uniclass 2015|Unclassified");
    EXPECT_EQ (Box ().GetSelectedItem (), 1);
}

TEST_F (ClassificationListTest, RowsShowAssociationChoiceEmptySystemsAndEditability)
{
    auto empty = CLS::ClassificationSystem::Create ("Empty", "0");
    AddHandler ("a", system.AsConst (), walls, true);
    AddHandler ("b", system.AsConst (), walls, false);
    AddHandler ("c", system.AsConst (), {}, true);
    AddHandler ("d", empty.AsConst (), {}, true);
    AddHandler ("e", empty.AsConst (), {}, false);
    AddHandler ("f", system.AsConst (), roofs, true, false);
    MakeList ().Update ();
    EXPECT_EQ (States (), "Uniclass 2015=Walls [x] btn 'Vertical enclosing elements' | "
                          "Uniclass 2015=Unclassified [ ] | "
                          "Uniclass 2015=Unclassified [x] btn | "
                          "Empty 0=No items in this system [x] btn | "
                          "Empty 0=Unclassified [ ] | "
                          "Uniclass 2015=Roofs [x] btn ~");
    EXPECT_EQ (TakeLog (), "") << "building rows stores nothing";
    ClickIcon (6);
    EXPECT_EQ (TakeLog (), "") << "a greyed row does not toggle";
    EXPECT_FALSE (PressButton (*list->GetItems ()[1])) << "no button while not associated";
    const int runs = Script ().GetRunCount ();
    PressButton (*list->GetItems ()[5]);
    EXPECT_EQ (Script ().GetRunCount (), runs) << "a greyed row opens no popup";
}

TEST_F (ClassificationListTest, IconColumnTogglesAssociationAndNotifiesOnlyWithAnItem)
{
    auto own = CLS::ClassificationSystem::Create ("Element types", "");
    own->AddItem ({}, "W", "Wall");
    AddHandler ("a", system.AsConst (), walls, true);
    AddHandler ("b", own.AsConst (), {}, true);
    MakeList ().Update ();
    Watch ();

    ClickIcon (1);
    EXPECT_EQ (TakeLog (), "a=none changed(Uniclass)") << "the handler stores before observers hear of it";
    EXPECT_EQ (States (), "Uniclass 2015=Unclassified [ ] | Element types=Unclassified [x] btn");
    ClickIcon (1);
    EXPECT_EQ (TakeLog (), "a=EF_25 changed(Uniclass)") << "the row kept its item while not associated";
    EXPECT_EQ (States (), "Uniclass 2015=Walls [x] btn 'Vertical enclosing elements' | Element types=Unclassified [x] btn");

    ClickIcon (2);
    EXPECT_EQ (TakeLog (), "") << "no item held: nobody hears of it";
    EXPECT_EQ (States (), "Uniclass 2015=Walls [x] btn 'Vertical enclosing elements' | Element types=Unclassified [ ]");
}

TEST_F (ClassificationListTest, ButtonOpensTheSelectorAndAChoiceGoesToTheHandler)
{
    AddHandler ("a", system.AsConst (), walls, true);
    MakeList ().Update ();
    Watch ();
    TxAL::ClassificationListItem& row = *list->GetItems ()[0];

    const int runsBefore = Script ().GetRunCount ();
    Script ().Queue (Rb::MakeChooseByTextStep ("EF_25_10 External walls"));
    ASSERT_TRUE (PressButton (row));
    EXPECT_EQ (TakeLog (), "a=EF_25_10 changed(Uniclass)");
    EXPECT_EQ (States (), "Uniclass 2015=External walls [x] btn");
    EXPECT_TRUE (row.GetItemData ().GetClassificationItem () == external);

    Script ().Queue (Rb::MakeChooseByTextStep ("EF_25_10 External walls"));
    PressButton (row);
    EXPECT_EQ (TakeLog (), "") << "the item that is chosen already changes nothing";

    Script ().Queue (Wg::ModalStep::MakeSearch ("struct"));
    Script ().Queue (Wg::ModalStep::MakeCancel ());
    PressButton (row);
    EXPECT_EQ (TakeLog (), "");
    EXPECT_EQ (States (), "Uniclass 2015=External walls [x] btn");
    EXPECT_EQ (Script ().GetRunCount () - runsBefore, 3);
}

TEST_F (ClassificationListTest, EachChangeLooksTheHandlerUpAgainAndTheLastOneWins)
{
    AddHandler ("a", system.AsConst (), walls, true);
    MakeList ().Update ();
    Watch ();
    AddHandler ("b", system.AsConst (), walls, true);
    auto other = CLS::ClassificationSystem::Create ("Other", "");
    AddHandler ("c", other.AsConst (), {}, true);
    const int collectsBefore = collector.collects;

    ClickIcon (1);
    EXPECT_EQ (TakeLog (), "b=none changed(Uniclass)");
    EXPECT_EQ (collector.collects, collectsBefore + 1);

    collector.handlers.Clear ();
    ClickIcon (1);
    EXPECT_EQ (TakeLog (), "") << "a system the collector no longer returns is ignored";
}

TEST_F (ClassificationListTest, TheHostMayRebuildTheListWhileItStores)
{
    Kor::Ref<Handler> handler = AddHandler ("a", system.AsConst (), walls, true);
    MakeList ().Update ();
    Watch ();
    handler->onStore = [this] { list->Update (); };
    ClickIcon (1);
    EXPECT_EQ (TakeLog (), "a=none changed(Uniclass)");
    EXPECT_EQ (States (), "Uniclass 2015=Unclassified [x] btn") << "rebuilt from what the host stored";
    handler->onStore = nullptr;
}

TEST_F (ClassificationListTest, ANullHandlerThrowsAndLeavesTheListUsable)
{
    AddHandler ("a", system.AsConst (), walls, true);
    collector.handlers.Push (Kor::Ref<TxAL::ClassificationSystemHandler> ());
    MakeList ("Title");
    EXPECT_THROW (list->Update (), Kor::NullReferenceException);
    collector.handlers.DeleteLast ();
    AddHandler ("nosystem", {}, {}, true);
    EXPECT_THROW (list->Update (), Kor::NullReferenceException) << "a row needs its system";
    collector.handlers.DeleteLast ();
    list->Update ();
    EXPECT_EQ (Rows (), "1:Title 2:Uniclass 2015|Walls");
    list->GetAttributeList ().CreateTextItem ("Check", {}, "", false, true, false, true, false);
    EXPECT_EQ (Box ().GetItemCount (), 3) << "the update counter came back to 0";
}

TEST_F (ClassificationListTest, DecoratorsForwardAndWrapEveryHandlerInPlace)
{
    struct Counting : TxAL::ClassificationSystemHandlerDecorator {
        using ClassificationSystemHandlerDecorator::ClassificationSystemHandlerDecorator;
        void SetClassificationItem (const ItemRef& item) const override
        {
            ++stores;
            ClassificationSystemHandlerDecorator::SetClassificationItem (item);
        }
        mutable int stores = 0;
    };
    Kor::Ref<Handler> a = AddHandler ("a", system.AsConst (), walls, true);
    AddHandler ("b", system.AsConst (), roofs, false);
    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> handlers = collector.handlers;
    const auto* untouched = handlers[1].Get ();
    TxAL::DecorateEachClassificationSystemHandler (handlers, [&] (Kor::Ref<TxAL::ClassificationSystemHandler> h) {
        return h.Get () == a.Get () ? Kor::Ref<TxAL::ClassificationSystemHandler> (new Counting (h)) : h;
    });
    EXPECT_EQ (handlers[1].Get (), untouched);
    auto* counting = dynamic_cast<Counting*> (handlers[0].Get ());
    ASSERT_NE (counting, nullptr);
    EXPECT_TRUE (counting->GetClassificationData ().GetClassificationItem () == walls);
    EXPECT_TRUE (counting->IsEditable ());
    counting->SetClassificationItem (frames);
    EXPECT_EQ (counting->stores, 1);
    EXPECT_EQ (TakeLog (), "a=Ss_20");

    TxAL::ClassificationSystemHandlerDecorator empty {Kor::Ref<TxAL::ClassificationSystemHandler> ()};
    EXPECT_THROW (empty.IsEditable (), Kor::NullReferenceException);
}

TEST_F (ClassificationListTest, ACopyShowsTheSameDataOnARowOfItsOwnWithoutObservers)
{
    AddHandler ("a", system.AsConst (), walls, true);
    MakeList ().Update ();
    Watch ();
    TxAL::ClassificationListItem copy (*list->GetItems ()[0]);
    EXPECT_TRUE (copy.GetItemData ().GetClassificationItem () == walls);
    EXPECT_EQ (copy.GetRow ().GetText (), "Walls");
    EXPECT_EQ (copy.GetObserverCount (), 0u) << "the list observes the original only";
    EXPECT_EQ (Box ().GetItemCount (), 1) << "the copy's row is in no list";
    TxAL::AttributeList& other = list->GetAttributeList ();
    copy.AppendToAttributeList (other);
    other.FullRefreshList (false);
    ClickIcon (2);
    EXPECT_EQ (TakeLog (), "") << "nobody hears the copy";
    EXPECT_FALSE (copy.GetItemData ().IsAssociatedWithElem ());
    EXPECT_TRUE (list->GetItems ()[0]->GetItemData ().IsAssociatedWithElem ());
}

}   // namespace
}   // namespace ClassificationTest
