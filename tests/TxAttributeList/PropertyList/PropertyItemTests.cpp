// Property items: which item stands in the row, the custom-value popup, calculation on demand,
// the typed edits and their conversions, all through the user's input on a real list.

#include <cmath>

#include "PropertyListFixture.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"

namespace PropertyListTest {
namespace {

Kor::Owner<DynamicValue> Num (double value, DynamicValue::Status status = DynamicValue::Normal)
{
    return Kor::NewOwner<Kor::NumValue> (value, status);
}

// The host of these tests stores what it is given and lets the list read the values again, as
// a palette does after every change.
class PropertyItemTest : public PropertyListFixture {
protected:
    PropertyItemTest () { Wg::SetWorkingUnits (Wg::WorkingUnits ()); }

    void RefreshOnChange ()
    {
        refresher = std::make_unique<Refresher> (container);
        container.Attach (*refresher);
    }

    PropertyListItem& Item (std::size_t index) { return *container.GetPropertyItems ()[index]; }
    // Whether the calculate button stands on the row of an item's placeholder.
    bool CalculateButton (std::size_t index) { return Item (index).GetPlaceholderItem ().GetOnTabItemVisibility (); }

    // What UpdatePropertyValues a host would call after each change.
    class Refresher : public TxAL::PropertyListItemContainerObserver {
    public:
        explicit Refresher (TxAL::PropertyListItemContainer& container) : container (container) {}
        void PropertyChanged (const TxAL::PropertyListItemContainer&, const Kor::Guid&) override { container.UpdatePropertyValues (); }

    private:
        TxAL::PropertyListItemContainer& container;
    };
    std::unique_ptr<Refresher> refresher;
};

TEST_F (PropertyItemTest, AFreshItemIsCalculableAndShowsTheCalculateButton)
{
    TxAL::PropertyListRealItem item;
    item.Initialize ();
    TxAL::AttributeListSimpleItem& visible = item.GetVisibleAttributeListItem ();
    EXPECT_EQ (&visible, &item.GetPlaceholderItem ());
    EXPECT_EQ (item.GetCalculationState (), PropertyListItem::Calculable);
    EXPECT_EQ (item.GetPlaceholderItem ().GetText ().ToUtf8 (), TxAL::GetResourceString (2003, 1).ToUtf8 ());
    EXPECT_EQ (item.GetPlaceholderItem ().GetButtonIcon (), TxAL::GetResourceIcon (31893));
    EXPECT_TRUE (item.GetPlaceholderItem ().GetOnTabItemVisibility ());
    EXPECT_TRUE (item.GetPlaceholderItem ().IsButtonIconAlwaysActive ());
}

TEST_F (PropertyItemTest, EachDisplayRuleGivesItsRow)
{
    Add ({"Custom"}, Num (1.0), Num (2.5));
    Add ({"Default"}, Num (1.0));
    Add ({"Automatic"}, Num (1.0)).displayMode = IUserDefinedPropertyHandler::AlwaysDisplayed;
    Add ({"OnDemand"}, Num (3.0)).displayMode = IUserDefinedPropertyHandler::CalculatedOnDemand;
    FakeHandler& fixed = Add ({"ReadOnlyOnDemand"}, Num (3.0));
    fixed.displayMode = IUserDefinedPropertyHandler::CalculatedOnDemand;
    fixed.editable = false;
    Add ({"Disabled"}, Num (3.0)).displayMode = IUserDefinedPropertyHandler::CalculationDisabled;
    Add ({"Undefined"}, Num (1.0), Num (0.0, DynamicValue::UserUndefined));
    Add ({"AutomaticWithoutValue"}).displayMode = IUserDefinedPropertyHandler::AlwaysDisplayed;
    Show ();
    EXPECT_EQ (Rows (), "1:▾Common 2:  Custom|2.50 3:  Default|Not calculated 4:  Automatic|1.00 5:  OnDemand|Not calculated "
                        "6:  ReadOnlyOnDemand|Not calculated~ 7:  Disabled|Not available 8:  Undefined|Undefined "
                        "9:  AutomaticWithoutValue|Not calculated");
    EXPECT_EQ (std::to_string (CalculateButton (1)) + std::to_string (CalculateButton (3)) + std::to_string (CalculateButton (4)), "010")
        << "only editable rows calculated on demand keep the button";
    EXPECT_EQ (collector.handlers[3]->getValueCalls, 0) << "nothing is calculated before the user asks";
    EXPECT_EQ (collector.handlers[5]->getValueCalls, 0);
}

TEST_F (PropertyItemTest, TheCalculateButtonSwapsTheRowInPlace)
{
    Add ({"Before"}, Num (1.0), Num (1.0));
    FakeHandler& area = Add ({"Area", PropertyValueType::Real, MeasureType::Area}, Num (12.5));
    area.displayMode = IUserDefinedPropertyHandler::CalculatedOnDemand;
    FakeHandler& broken = Add ({"Broken"});
    broken.displayMode = IUserDefinedPropertyHandler::CalculatedOnDemand;
    FakeHandler& mixed = Add ({"Mixed"}, Num (0.0, DynamicValue::Mixed));
    mixed.displayMode = IUserDefinedPropertyHandler::CalculatedOnDemand;
    Show ();
    TxAL::AttributeListSimpleItem* placeholder = &Item (1).GetPlaceholderItem ();

    SelectRow (3);
    ASSERT_EQ (Controls ().GetIconButton ().IsVisible (), true);
    Controls ().GetIconButton ().UserPress ();
    SelectRow (4);
    Controls ().GetIconButton ().UserPress ();
    SelectRow (5);
    Controls ().GetIconButton ().UserPress ();
    EXPECT_EQ (Rows (), "1:▾Common 2:  Before|1.00 3:  Area|12.50 m² 4:  Broken|Cannot be calculated 5:  Mixed|###");
    EXPECT_EQ (Item (1).GetCurrentAttributeListItem (), &Item (1).GetValueAttributeListItem ());
    EXPECT_NE (Item (1).GetCurrentAttributeListItem (), placeholder);
    EXPECT_EQ (std::to_string (Item (1).GetCalculationState ()) + std::to_string (Item (2).GetCalculationState ()) +
                   std::to_string (Item (3).GetCalculationState ()),
               "232");
    EXPECT_EQ (Take (), "") << "calculating stores nothing";
}

TEST_F (PropertyItemTest, ThePopupOffersDefaultAndCustomWithTextsOfTheirKinds)
{
    Add ({"Plain"}, Num (1.0));
    Add ({"Calculated"}, Num (1.0)).defaultValueType = PropertyListItem::CalculatedDefault;
    Add ({"Undefined"}, Num (1.0), Num (0.0, DynamicValue::UserUndefined)).defaultValueType = PropertyListItem::UndefinedDefault;
    Show ();
    EXPECT_EQ (PopupEntries (2), "Default Value * | --- | Custom Value | Set to Undefined");
    EXPECT_EQ (PopupEntries (3), "Default (Calculated) * | --- | Custom Value | Set to Undefined");
    EXPECT_EQ (PopupEntries (4), "Default (Undefined) | --- | Custom (Undefined) * | Set to Defined");
    const auto& entries = Item (0).GetValueAttributeListItem ().GetIconColumnPopupItems ();
    ASSERT_EQ (entries.GetSize (), 4u);
    EXPECT_EQ (entries[0].GetIcon (), TxAL::GetResourceIcon (31887));
    EXPECT_EQ (entries[2].GetIcon (), TxAL::GetResourceIcon (31888));
    EXPECT_TRUE (entries[3].GetIcon ().IsEmpty ());
}

TEST_F (PropertyItemTest, GoingBackToCustomRestoresWhatTheUserHadTyped)
{
    RefreshOnChange ();
    Add ({"Length", PropertyValueType::Real, MeasureType::Length}, Num (7.0), Num (5.0)).displayMode =
        IUserDefinedPropertyHandler::AlwaysDisplayed;
    Show ();
    ChoosePopupEntry (2, 1);
    EXPECT_EQ (Take (), "Remove(Length) Changed(Length)");
    EXPECT_EQ (Rows (), "1:▾Common 2:  Length|7.000 m");
    ChoosePopupEntry (2, 3);
    EXPECT_EQ (Take (), "Set(Length=5) Changed(Length)") << "the remembered 5, not the shown default 7";
    EXPECT_EQ (Rows (), "1:▾Common 2:  Length|5.000 m");
}

TEST_F (PropertyItemTest, SwitchingToCustomKeepsTheShownDefaultOrMakesAFreshValue)
{
    RefreshOnChange ();
    Add ({"Shown"}, Num (7.0)).displayMode = IUserDefinedPropertyHandler::AlwaysDisplayed;
    Add ({"Hidden"}, Num (7.0));
    Show ();
    ChoosePopupEntry (2, 3);
    ChoosePopupEntry (3, 3);
    EXPECT_EQ (Take (), "Set(Shown=7) Changed(Shown) Set(Hidden=0) Changed(Hidden)");
    EXPECT_EQ (Rows (), "1:▾Common 2:  Shown|7.00 3:  Hidden|0.00");
    // The custom entry of a normal custom value changes nothing and tells the host nothing.
    ChoosePopupEntry (2, 3);
    EXPECT_EQ (Take (), "");
}

TEST_F (PropertyItemTest, TheStatusEntryTogglesAnUndefinedCustomValue)
{
    RefreshOnChange ();
    Add ({"Width", PropertyValueType::Real, MeasureType::Length}, Num (1.0), Num (5.0));
    Show ();
    ChoosePopupEntry (2, 4);
    EXPECT_EQ (Take (), "Set(Width=undef) Changed(Width)");
    EXPECT_EQ (Rows (), "1:▾Common 2:  Width|Undefined");
    EXPECT_FALSE (CalculateButton (0)) << "an undefined value is informational text";
    EXPECT_EQ (PopupEntries (2), "Default Value | --- | Custom (Undefined) * | Set to Defined");
    // Defined again: the value typed before it became undefined comes back.
    ChoosePopupEntry (2, 4);
    EXPECT_EQ (Take (), "Set(Width=5) Changed(Width)");
    // Custom entry while undefined: a fresh normal value, which the remembered one replaces.
    ChoosePopupEntry (2, 4);
    ChoosePopupEntry (2, 3);
    EXPECT_EQ (Take (), "Set(Width=undef) Changed(Width) Set(Width=5) Changed(Width)");
    EXPECT_EQ (Rows (), "1:▾Common 2:  Width|5.000 m");
}

TEST_F (PropertyItemTest, AnEntryWithForeignUserDataIsABadCast)
{
    Add ({"Ratio"}, Num (1.0), Num (2.0));
    Show ();
    TxAL::AttributeListSimpleItem& row = Item (0).GetValueAttributeListItem ();
    Kor::Array<TxAL::AttributeListItem::PopupItem> entries = row.GetIconColumnPopupItems ();
    entries[2].SetUserData (Kor::NewRef<Kor::StringValue> (Kor::UniString ("not a status")));
    row.SetIconColumnPopupItems (entries);
    try {
        ChoosePopupEntry (2, 3);
        ADD_FAILURE () << "no exception";
    } catch (const Kor::ClassCastException& e) {
        EXPECT_STREQ (e.what (), "Bad cast.");
    }
    EXPECT_EQ (Take (), "");
}

TEST_F (PropertyItemTest, ACustomValueWithoutAGetterIsANullReference)
{
    TxAL::PropertyListRealItem item;
    item.Initialize ();
    item.SetPropertyName ("Loose");
    item.SetPropertyDefaultValueType (PropertyListItem::ValueDefault);
    TxALTest::TestGroup group ("Group");
    harness.list->AddListItem (group);
    item.AddToGroup (group);
    harness.list->FullRefreshList (false);
    try {
        ChoosePopupEntry (2, 3);
        ADD_FAILURE () << "no exception";
    } catch (const Kor::NullReferenceException& e) {
        EXPECT_STREQ (e.what (), "Null reference.");
    }
}

TEST_F (PropertyItemTest, TypedLengthsAndAnglesReachTheHandlerOnceInBaseUnits)
{
    FakeHandler& length = Add ({"Height", PropertyValueType::Real, MeasureType::Length}, Num (0.0), Num (3.0));
    FakeHandler& angle = Add ({"Slope", PropertyValueType::Real, MeasureType::Angle}, Num (0.0), Num (3.141592653589793));
    Show ();
    auto* slopeItem = dynamic_cast<TxAL::AttributeListRealItem*> (&Item (1).GetValueAttributeListItem ());
    ASSERT_NE (slopeItem, nullptr);
    EXPECT_DOUBLE_EQ (slopeItem->GetValue (), 180.0) << "radians are shown in degrees";

    harness.ClickColumn (2, ValueColumn ());
    Controls ().GetLengthEdit ().UserType ("2500mm");
    harness.Key (Wg::Key::Return);
    harness.ClickColumn (3, ValueColumn ());
    Controls ().GetPolarAngleEdit ().UserType ("90");
    harness.Key (Wg::Key::Return);
    EXPECT_EQ (Take (), "Set(Height=2.5) Changed(Height) Set(Slope=1.571) Changed(Slope)");
    const auto* stored = Kor::DynamicCast<Kor::NumValue> (angle.custom.Get ());
    ASSERT_NE (stored, nullptr);
    EXPECT_EQ (stored->GetValue (), 1.5707963267948966);
    EXPECT_EQ (Text (length.custom.Get ()), "2.5");
}

TEST_F (PropertyItemTest, BooleansShowTheirOwnTextAndTakeTheChosenAnswer)
{
    Add ({"LoadBearing", PropertyValueType::Boolean, MeasureType::Undefined}, nullptr, Kor::NewOwner<Kor::BoolValue> (false));
    Add ({"Count", PropertyValueType::Integer, MeasureType::Count}, nullptr, Kor::NewOwner<Kor::IntValue> (4));
    Show ();
    EXPECT_EQ (Rows (), "1:▾Common 2:  LoadBearing|No 3:  Count|4");
    const int check = harness.list->GetCheckColumnIndex ();
    Runner ().QueueChoose (1);
    harness.Click (2, harness.ListBox ().GetTabFieldEndPosition (static_cast<short> (check)));
    EXPECT_EQ (Take (), "Set(LoadBearing=Yes) Changed(LoadBearing)");
    EXPECT_EQ (Rows (), "1:▾Common 2:  LoadBearing|Yes 3:  Count|4");
    harness.ClickColumn (3, ValueColumn ());
    Controls ().GetIntEdit ().UserType ("12");
    harness.Key (Wg::Key::Return);
    EXPECT_EQ (Take (), "Set(Count=12) Changed(Count)");
}

TEST_F (PropertyItemTest, ASingleEnumerationTakesTheChosenValue)
{
    Add ({"Status", PropertyValueType::Enumeration, MeasureType::Undefined, PropertyCollectionType::Single, {}, MakeStatusEnumeration (false)},
         nullptr, Kor::NewOwner<Kor::StringValue> (Kor::UniString ("New")));
    Show ();
    EXPECT_EQ (Rows (), "1:▾Common 2:  Status|New");
    Runner ().QueueChoose (3);
    harness.Click (2, harness.ListBox ().GetTabFieldEndPosition (harness.list->GetCheckColumnIndex ()));
    EXPECT_EQ (Take (), "Set(Status=Demolish) Changed(Status)");
    EXPECT_EQ (Rows (), "1:▾Common 2:  Status|Demolish");
}

}   // namespace
}   // namespace PropertyListTest
