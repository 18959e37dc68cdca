// The container: groups by runs of handlers, lazy building, collapse state across rebuilds,
// rebinding values without new rows; the creator's choice of item; handler decorators.

#include <functional>
#include <typeinfo>

#include "PropertyListFixture.hpp"
#include "TxAttributeList/PropertyListItemCreator.hpp"

namespace PropertyListTest {
namespace {

Kor::Owner<DynamicValue> Num (double value)
{
    return Kor::NewOwner<Kor::NumValue> (value);
}

using ContainerTest = PropertyListFixture;

TEST_F (ContainerTest, NoHandlersMakeNoGroups)
{
    Show ();
    EXPECT_EQ (container.GetGroupItems ().GetSize (), 0u);
    EXPECT_EQ (harness.ListBox ().GetItemCount (), 0);
}

TEST_F (ContainerTest, GroupsFollowRunsOfHandlers)
{
    const auto a = MakeGroup ("A", 1);
    const auto b = MakeGroup ("B", 2);
    Add ({"A1", PropertyValueType::Real, MeasureType::Number, PropertyCollectionType::Single, a}, nullptr, Num (1.0));
    Add ({"A2", PropertyValueType::Real, MeasureType::Number, PropertyCollectionType::Single, a}, nullptr, Num (2.0));
    Add ({"B1", PropertyValueType::Real, MeasureType::Number, PropertyCollectionType::Single, b}, nullptr, Num (3.0));
    Add ({"A3", PropertyValueType::Real, MeasureType::Number, PropertyCollectionType::Single, a}, nullptr, Num (4.0));
    // An enumeration without an enumeration descriptor has no item, but still starts its group.
    Add ({"Odd", PropertyValueType::Enumeration, MeasureType::Undefined, PropertyCollectionType::Single, MakeGroup ("C", 3)}, nullptr, Num (5.0));
    Show ();
    EXPECT_EQ (Rows (), "1:▾A 2:  A1|1.00 3:  A2|2.00 4:▾B 5:  B1|3.00 6:▾A 7:  A3|4.00 8:C");
    EXPECT_EQ (container.GetPropertyItems ().GetSize (), 4u);
    const TxAL::AttributeListItem& group = *container.GetGroupItems ()[1];
    EXPECT_EQ (const_cast<TxAL::AttributeListItem&> (group).GetToolTip ().ToUtf8 (), "B description");
    EXPECT_EQ (container.GetPropertyItems ()[0]->GetValueAttributeListItem ().GetToolTip ().ToUtf8 (), "Tool tip") << "trimmed";
}

TEST_F (ContainerTest, AHandlerBeforeAnyGroupGetsNoRow)
{
    const auto unnamed = std::make_shared<const Property::PropertyDefinitionGroup> (MakeGuid (1, 9), Property::PropertyDefinitionGroupUserId (""),
                                                                                    "Unnamed", "");
    Add ({"Orphan", PropertyValueType::Real, MeasureType::Number, PropertyCollectionType::Single, unnamed}, nullptr, Num (1.0));
    Add ({"Kept"}, nullptr, Num (2.0));
    Show ();
    EXPECT_EQ (Rows (), "1:▾Common 2:  Kept|2.00");
}

TEST_F (ContainerTest, ItemsAreBuiltLazilyAndRebuildsKeepCollapsedGroups)
{
    const auto a = MakeGroup ("A", 1);
    Add ({"A1", PropertyValueType::Real, MeasureType::Number, PropertyCollectionType::Single, a}, nullptr, Num (1.0));
    Add ({"B1", PropertyValueType::Real, MeasureType::Number, PropertyCollectionType::Single, MakeGroup ("B", 2)}, nullptr, Num (2.0));
    Show ();
    container.GetGroupItems ()[0]->Collapse ();
    Kor::HashSet<Kor::Guid> collapsed;
    container.GetCollapsedPropertyGroupGuids (collapsed);
    EXPECT_EQ (collapsed, Kor::HashSet<Kor::Guid> {a->GetGuid ()});

    harness.list->ClearList (false);
    Show ();
    EXPECT_EQ (collector.allCalls, 1) << "appending again reuses the built items";
    container.InvalidatePropertyListItems ();
    const TxAL::AttributeListGroupItem* before = container.GetGroupItems ()[0].Get ();
    harness.list->ClearList (false);
    Show ();
    EXPECT_EQ (collector.allCalls, 2);
    EXPECT_NE (container.GetGroupItems ()[0].Get (), before);
    EXPECT_EQ (Rows (), "1:▸A 2:▾B 3:  B1|2.00");
    // Collapsing only collapses.
    container.CollapsePropertyGroupItems ({MakeGroup ("B", 2)->GetGuid ()});
    EXPECT_EQ (Rows (), "1:▸A 2:▸B");
}

TEST_F (ContainerTest, UpdatingValuesRebindsWithoutNewRows)
{
    FakeHandler& height = Add ({"Height", PropertyValueType::Real, MeasureType::Length}, Num (2.0), Num (3.0));
    FakeHandler& width = Add ({"Width", PropertyValueType::Real, MeasureType::Length}, Num (1.0));
    width.displayMode = IUserDefinedPropertyHandler::AlwaysDisplayed;
    Show ();
    const TxAL::AttributeListSimpleItem* heightRow = container.GetPropertyItems ()[0]->GetCurrentAttributeListItem ();
    height.custom = nullptr;
    width.custom = Num (4.5);
    container.UpdatePropertyValues ();
    EXPECT_EQ (Rows (), "1:▾Common 2:  Height|Not calculated 3:  Width|4.500 m");
    EXPECT_EQ (collector.allCalls, 1);
    EXPECT_EQ (collector.byGuidCalls, 1);
    // The property item stays; only the visible item of its row changed.
    EXPECT_EQ (&container.GetPropertyItems ()[0]->GetValueAttributeListItem (), heightRow);
    // A property whose handler is gone keeps what it showed.
    collector.handlers.Delete (1);
    container.UpdatePropertyValues ();
    EXPECT_EQ (Rows (), "1:▾Common 2:  Height|Not calculated 3:  Width|4.500 m");
    EXPECT_EQ (Take (), "");
}

TEST_F (ContainerTest, EditsWithoutAUniqueHandlerAreDropped)
{
    Add ({"Length", PropertyValueType::Real, MeasureType::Length}, Num (0.0), Num (1.0));
    Show ();
    collector.handlers.Push (collector.handlers[0]);
    harness.ClickColumn (2, ValueColumn ());
    Controls ().GetLengthEdit ().UserType ("2");
    harness.Key (Wg::Key::Return);
    EXPECT_EQ (Take (), "") << "two handlers for one guid count as none";
    collector.handlers.DeleteLast ();
    harness.ClickColumn (2, ValueColumn ());
    Controls ().GetLengthEdit ().UserType ("3");
    harness.Key (Wg::Key::Return);
    EXPECT_EQ (Take (), "Set(Length=3) Changed(Length)");
}

TEST_F (ContainerTest, ObserversHearAfterTheHandlerNewestFirst)
{
    Add ({"Length", PropertyValueType::Real, MeasureType::Length}, Num (0.0), Num (1.0));
    ContainerLog second (log);
    container.Attach (second);
    Show ();
    harness.ClickColumn (2, ValueColumn ());
    Controls ().GetLengthEdit ().UserType ("2");
    harness.Key (Wg::Key::Return);
    EXPECT_EQ (Take (), "Set(Length=2) Changed(Length) Changed(Length)");
    container.Detach (second);
}

// Rebuilds every row from inside the notification, as a host that shows a new selection would.
class Rebuilder : public TxAL::PropertyListItemContainerObserver {
public:
    Rebuilder (TxAL::PropertyListItemContainer& container, TxAL::AttributeList& list) : container (container), list (list) {}
    void PropertyChanged (const TxAL::PropertyListItemContainer&, const Kor::Guid&) override
    {
        list.ClearList (false);
        container.InvalidatePropertyListItems ();
        container.AppendToAttributeList (list);
        list.FullRefreshList (false);
        ++rebuilds;
    }
    int rebuilds = 0;

private:
    TxAL::PropertyListItemContainer& container;
    TxAL::AttributeList&             list;
};

TEST_F (ContainerTest, RowsRebuiltWhileTheirEditIsReportedStaySafe)
{
    Add ({"Note", PropertyValueType::String, MeasureType::Undefined}, nullptr, Kor::NewOwner<Kor::StringValue> (Kor::UniString ("a")));
    Add ({"Width", PropertyValueType::Real, MeasureType::Length}, Num (0.0), Num (1.0));
    Add ({"Loaded", PropertyValueType::Boolean, MeasureType::Undefined}, nullptr, Kor::NewOwner<Kor::BoolValue> (true));
    Add ({"Area", PropertyValueType::Real, MeasureType::Area}, Num (4.0)).displayMode = IUserDefinedPropertyHandler::CalculatedOnDemand;
    Rebuilder rebuilder (container, *harness.list);
    container.Attach (rebuilder);
    Show ();
    harness.ClickColumn (2, ValueColumn ());
    Controls ().GetTextEdit ().UserType ("b");
    harness.Key (Wg::Key::Return);
    harness.ClickColumn (3, ValueColumn ());
    Controls ().GetLengthEdit ().UserType ("2");
    harness.Key (Wg::Key::Return);
    Runner ().QueueChoose (2);
    harness.Click (4, harness.ListBox ().GetTabFieldEndPosition (harness.list->GetCheckColumnIndex ()));
    ChoosePopupEntry (3, 1);
    EXPECT_EQ (Take (), "Set(Note=ab) Changed(Note) Set(Width=2) Changed(Width) Set(Loaded=No) Changed(Loaded) Remove(Width) Changed(Width)");
    EXPECT_EQ (rebuilder.rebuilds, 4);
    EXPECT_EQ (Rows (), "1:▾Common 2:  Note|ab 3:  Width|Not calculated 4:  Loaded|No 5:  Area|Not calculated");
    container.Detach (rebuilder);
}

// --- The creator ---

class CreatorTest : public PropertyListFixture {
protected:
    std::string Made (const DefinitionFields& fields, IUserDefinedPropertyHandler::DisplayMode mode = IUserDefinedPropertyHandler::NormalDisplay)
    {
        auto handler = Kor::NewRef<FakeHandler> (MakeDefinition (fields), log);
        handler->displayMode = mode;
        const Kor::Ref<PropertyListItem> item = TxAL::PropertyListItemCreator (handler).GetResult ();
        if (item.IsNull ()) return "none";
        std::string name;
        const PropertyListItem& object = *item;
        if (typeid (object) == typeid (TxAL::PropertyListPolarAngleItem)) name = "PolarAngle";
        if (typeid (object) == typeid (TxAL::PropertyListVolumeItem)) name = "Volume";
        if (typeid (object) == typeid (TxAL::PropertyListAreaItem)) name = "Area";
        if (typeid (object) == typeid (TxAL::PropertyListLengthItem)) name = "Length";
        if (typeid (object) == typeid (TxAL::PropertyListSingleEnumerationItem)) name = "SingleEnumeration";
        if (typeid (object) == typeid (TxAL::PropertyListMultiEnumerationPopupItem)) name = "MultiEnumeration";
        if (typeid (object) == typeid (TxAL::PropertyListStringListPopupItem)) name = "StringList";
        if (typeid (object) == typeid (TxAL::PropertyListBooleanItem)) name = "Boolean";
        if (typeid (object) == typeid (TxAL::PropertyListIntItem)) name = "Int";
        if (typeid (object) == typeid (TxAL::PropertyListTextItem)) name = "Text";
        if (typeid (object) == typeid (TxAL::PropertyListRealItem)) name = "Real";
        return name + (item->GetAutomaticDisplay () ? "+auto" : "");
    }
};

TEST_F (CreatorTest, EachKindOfPropertyGetsItsItem)
{
    using V = PropertyValueType;
    using M = MeasureType;
    const auto single = PropertyCollectionType::Single;
    const auto list = PropertyCollectionType::List;
    std::string out;
    for (const DefinitionFields& fields : std::vector<DefinitionFields> {
             {"a", V::Real, M::Angle}, {"v", V::Real, M::Volume}, {"r", V::Real, M::Area}, {"l", V::Real, M::Length},
             {"e", V::Enumeration, M::Undefined, single, {}, MakeStatusEnumeration (false)},
             {"m", V::Enumeration, M::Undefined, list, {}, MakeStatusEnumeration (true)}, {"s", V::String, M::Undefined, list},
             {"i", V::Integer, M::Length, list}, {"b", V::Boolean, M::Length}, {"n", V::Integer, M::Count}, {"t", V::String, M::Undefined},
             {"x", V::Real, M::Number}, {"c", V::Real, M::Count}, {"o", V::Enumeration, M::Undefined}})
        out += Made (fields) + " ";
    EXPECT_EQ (out, "PolarAngle Volume Area Length SingleEnumeration MultiEnumeration StringList StringList Boolean Int Text Real Real none ");
    EXPECT_EQ (Made ({"p"}, IUserDefinedPropertyHandler::AlwaysDisplayed), "Real+auto");
    EXPECT_EQ (Made ({"p"}, IUserDefinedPropertyHandler::CalculatedOnDemand), "Real");
}

TEST_F (CreatorTest, MissingPiecesAreNullReferences)
{
    EXPECT_THROW (TxAL::PropertyListItemCreator (Kor::Ref<IUserDefinedPropertyHandler> ()), Kor::NullReferenceException);
    auto handler = Kor::NewRef<FakeHandler> (Kor::ConstSharedPtr<Property::PropertyDefinition> (), log);
    try {
        TxAL::PropertyListItemCreator creator (handler);
        ADD_FAILURE () << "no exception";
    } catch (const Kor::NullReferenceException& e) {
        EXPECT_STREQ (e.what (), "Null reference.");
    }
}

// --- Handler decorators ---

// Writes "<tag>:<operation>" for the calls it forwards.
class TracingDecorator : public TxAL::IUserDefinedPropertyHandlerDecorator {
public:
    TracingDecorator (const Kor::Ref<IUserDefinedPropertyHandler>& decorated, std::string tag, std::string& log)
        : IUserDefinedPropertyHandlerDecorator (decorated), tag (std::move (tag)), log (log)
    {
    }
    void SetValue (const DynamicValue* value) override
    {
        log += (log.empty () ? "" : " ") + tag + ":Set";
        IUserDefinedPropertyHandlerDecorator::SetValue (value);
    }

private:
    std::string  tag;
    std::string& log;
};

using DecoratorTest = PropertyListFixture;

TEST_F (DecoratorTest, DecoratingTwiceWrapsTwiceOutermostFirst)
{
    FakeHandler& plain = Add ({"Height"}, Num (1.0));
    Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> handlers {collector.handlers[0], collector.handlers[0]};
    int calls = 0;
    TxAL::DecorateEachUserDefinedPropertyHandler (handlers, [&] (Kor::Ref<IUserDefinedPropertyHandler> h) {
        ++calls;
        return h;
    });
    EXPECT_EQ (calls, 2);
    EXPECT_TRUE (handlers[0] == collector.handlers[0]) << "returning the argument leaves the element";
    for (const char* tag : {"inner", "outer"})
        TxAL::DecorateEachUserDefinedPropertyHandler (handlers, [&] (Kor::Ref<IUserDefinedPropertyHandler> h) {
            return Kor::Ref<IUserDefinedPropertyHandler> (new TracingDecorator (h, tag, log));
        });
    const Kor::NumValue five (5.0);
    handlers[1]->SetValue (&five);
    EXPECT_EQ (Take (), "outer:Set inner:Set Set(Height=5)");
    EXPECT_EQ (handlers[0]->GetPropertyDefinition ().Get (), plain.definition.Get ());
    EXPECT_EQ (Text (handlers[0]->GetValue ({}).Get ()), "5");
    EXPECT_TRUE (handlers[0]->HasCustomValue ());
}

TEST_F (DecoratorTest, EmptyCallablesAndNullHandlersFailAsTheirContractsSay)
{
    Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> none;
    TxAL::DecorateEachUserDefinedPropertyHandler (none, nullptr);
    Add ({"Height"}, Num (1.0));
    Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> one {collector.handlers[0]};
    EXPECT_THROW (TxAL::DecorateEachUserDefinedPropertyHandler (one, nullptr), std::bad_function_call);
    TxAL::IUserDefinedPropertyHandlerDecorator empty {Kor::Ref<IUserDefinedPropertyHandler> ()};
    EXPECT_THROW (empty.RemoveCustomValue (), Kor::NullReferenceException);
    EXPECT_THROW (empty.GetDescription (), Kor::NullReferenceException);
}

}   // namespace
}   // namespace PropertyListTest
