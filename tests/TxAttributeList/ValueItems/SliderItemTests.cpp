// Slider and interval items: drag, release and typing, the strategy's hooks, the slider picture,
// the keyboard steps, and the interval's two edits.

#include <climits>
#include <functional>
#include <stdexcept>

#include "TxAttributeList/SliderItems.hpp"
#include "ValueItemsFixture.hpp"

namespace ValueItemsTest {
namespace {

// Logs "tag:ValueChanged(Name=value)" for slider and interval items into a shared sink, so that
// several observers show their order.
class ValueLog : public TxAL::AttributeListSliderItemObserver, public TxAL::AttributeListIntervalItemObserver {
public:
    ValueLog (std::string tag, std::string& sink) : tag (std::move (tag)), sink (sink) {}

    void ValueChanged (const TxAL::AttributeListSliderItem& item) override
    {
        Add (item.GetName ().ToUtf8 () + "=" + std::to_string (item.GetValue ()));
    }
    void ValueChanged (const TxAL::AttributeListIntervalItem& item) override
    {
        Add (item.GetName ().ToUtf8 () + "=" + Number (item.GetIntervalBeg ()) + ".." + Number (item.GetIntervalEnd ()));
    }

    std::function<void ()> onCall;

private:
    void Add (const std::string& what)
    {
        sink += (sink.empty () ? "" : " ") + tag + ":ValueChanged(" + what + ")";
        if (onCall) onCall ();
    }

    std::string  tag;
    std::string& sink;
};

// A strategy that logs each hook with the item's value and the integer edit's text at the time
// of the call, and answers as the test says.
class RecordingStrategy : public TxAL::AttributeListSliderItemStrategy {
public:
    RecordingStrategy (TxAL::OnTabItems& controls, std::string& sink) : controls (controls), sink (sink) {}

    bool IntEditChanged (const Wg::IntEditChangeEvent&, TxAL::AttributeListSliderItem& item) override
    {
        return Hook ("edit", item, takeEdit);
    }
    bool SliderChanged (const Wg::BarControlChangeEvent&, TxAL::AttributeListSliderItem& item) override
    {
        return Hook ("release", item, takeRelease);
    }
    bool SliderTracked (const Wg::BarControlTrackEvent&, TxAL::AttributeListSliderItem& item) override
    {
        if (throwOnDrag) throw std::runtime_error ("drag refused");
        return Hook ("drag", item, takeDrag);
    }
    int SliderStepped (const TxAL::AttributeListSliderItem& item, int proposedValue) override
    {
        Add ("step(" + std::to_string (item.GetValue ()) + "->" + std::to_string (proposedValue) + ")");
        return adjustStep ? adjustStep (proposedValue) : proposedValue;
    }

    // What a hook that takes an event over does: snap a value to tens and report it.
    void SnapAndReport (TxAL::AttributeListSliderItem& item, int value)
    {
        SetSliderValue (item, (value + 5) / 10 * 10);
        NotifySliderChange (item);
    }

    bool                     takeEdit = false;
    bool                     takeRelease = false;
    bool                     takeDrag = false;
    bool                     throwOnDrag = false;
    std::function<void (TxAL::AttributeListSliderItem&)> whenTaking;
    std::function<int (int)> adjustStep;

private:
    bool Hook (const char* name, TxAL::AttributeListSliderItem& item, bool take)
    {
        Add (std::string (name) + "(" + std::to_string (item.GetValue ()) + " edit=" + controls.GetIntEdit ().GetText ().ToUtf8 () + ")");
        if (take && whenTaking) whenTaking (item);
        return take;
    }
    void Add (const std::string& what) { sink += (sink.empty () ? "" : " ") + what; }

    TxAL::OnTabItems& controls;
    std::string&      sink;
};

class SliderItemTest : public ListTest {
protected:
    // Slider items have no factory: the client makes them and keeps them.
    TxAL::AttributeListSliderItem& AddSlider (const char* name, int minimum, int maximum, int value)
    {
        auto& item = *sliders.emplace_back (std::make_unique<TxAL::AttributeListSliderItem> ());
        item.SetName (name);
        item.SetMinValue (minimum);
        item.SetMaxValue (maximum);
        item.SetValue (value);
        list->AddListItem (item);
        list->FullRefreshList (false);
        return item;
    }

    // Selects row 1 with a click on its label, so that no control takes the focus.
    void SelectFirstRow () { Click (1, Begin (Label ()) + 3); }

    Wg::BarControl& Bar () const { return Controls ().GetSlider (); }
    Wg::IntEdit&    IntEdit () const { return Controls ().GetIntEdit (); }

    // "value bar edit-text focus"
    std::string State (const TxAL::AttributeListSliderItem& item) const
    {
        const std::string dump = harness->Controls ();
        return std::to_string (item.GetValue ()) + " bar=" + std::to_string (Bar ().GetValue ()) + " edit=" + IntEdit ().GetText ().ToUtf8 () +
               dump.substr (dump.find (" focus="));
    }

    // Where the thumb was painted on a row, relative to the preview column: "x,y" or "none".
    std::string Thumb (short row) const
    {
        for (const Gfx::IconOp& op : Box ().PaintCell (row, Preview ()).Get<Gfx::IconOp> ())
            if (op.resourceId == TxAL::AttributeListSliderItem::ThumbIconResId)
                return std::to_string (op.rect.left - Begin (Preview ())) + "," + std::to_string (op.rect.top - Box ().GetItemRect (row).top);
        return "none";
    }

    std::string log;
    ValueLog    first {"A", log};
    ValueLog    second {"B", log};

private:
    std::vector<std::unique_ptr<TxAL::AttributeListSliderItem>> sliders;
};

// --- Dragging, releasing and typing ---

TEST_F (SliderItemTest, ControlsAreSizedToTheirColumnsAndCarryTheBounds)
{
    auto& item = AddSlider ("Opacity", 10, 90, 40);
    SelectFirstRow ();
    EXPECT_EQ (Placed (), "sel=1 5:Slider 6:IntEdit");
    const auto size = [] (const Wg::Item& control) {
        return std::to_string (control.GetRect ().GetWidth ()) + "x" + std::to_string (control.GetRect ().GetHeight ());
    };
    // Separator lines take one pixel off the row; edits are two lower still.
    const int inside = RowHeight () - 1;
    EXPECT_EQ (size (Bar ()) + " " + size (IntEdit ()), std::to_string (End (Preview ()) - Begin (Preview ()) - 2) + "x" + std::to_string (inside) +
                                                          " " + std::to_string (End (Check ()) - Begin (Check ()) - 2) + "x" +
                                                          std::to_string (inside - 2));
    EXPECT_EQ (std::to_string (Bar ().GetMin ()) + ".." + std::to_string (Bar ().GetMax ()) + " " + std::to_string (IntEdit ().GetMin ()) +
                   ".." + std::to_string (IntEdit ().GetMax ()),
               "10..90 10..90");
    // New bounds are stored only; the controls get them when the row is placed again, here by
    // the refresh of a new value, which is itself not clamped.
    item.SetMaxValue (50);
    EXPECT_EQ (Bar ().GetMax (), 90);
    item.SetValue (70);
    EXPECT_EQ (std::to_string (item.GetValue ()) + " " + std::to_string (Bar ().GetMax ()) + " " + std::to_string (IntEdit ().GetMax ()) +
                   " " + Cell (1, Check ()),
               "70 50 50 70");
}

TEST_F (SliderItemTest, DragMovesOnlyTheNumberAndReleaseNotifiesOnce)
{
    auto& item = AddSlider ("Opacity", 0, 100, 20);
    item.Attach (first);
    item.Attach (second);
    SelectFirstRow ();
    Bar ().UserDrag (35);
    EXPECT_EQ (State (item), "35 bar=35 edit=35 focus=ListBox");
    Bar ().UserDrag (60);
    // A refresh during the drag would have moved the focus into the integer edit.
    EXPECT_EQ (State (item) + " " + Cell (1, Check ()), "60 bar=60 edit=60 focus=ListBox 60");
    EXPECT_EQ (log, "") << "a drag alone is not reported";
    Bar ().UserRelease (62);
    EXPECT_EQ (State (item) + " " + log, "62 bar=62 edit=62 focus=ListBox B:ValueChanged(Opacity=62) A:ValueChanged(Opacity=62)");
    // A release where the thumb already is still ends the drag with one report.
    log.clear ();
    Bar ().UserRelease (62);
    EXPECT_EQ (log, "B:ValueChanged(Opacity=62) A:ValueChanged(Opacity=62)");
}

TEST_F (SliderItemTest, TypingMovesTheThumbAndNotifiesOnce)
{
    auto& item = AddSlider ("Opacity", 0, 100, 20);
    item.Attach (first);
    SelectFirstRow ();
    IntEdit ().SetFocus ();
    IntEdit ().UserSetText ("45");
    IntEdit ().Commit ();
    EXPECT_EQ (State (item) + " " + log, "45 bar=45 edit=45 focus=IntEdit A:ValueChanged(Opacity=45)");
    EXPECT_TRUE (item.HasFocusedEditField ());
    // The edit enforces the bounds the item gave it.
    log.clear ();
    IntEdit ().UserSetText ("250");
    IntEdit ().Commit ();
    EXPECT_EQ (std::to_string (item.GetValue ()) + " " + log, "100 A:ValueChanged(Opacity=100)");
}

TEST_F (SliderItemTest, ProgramChangesRefreshTheRowAndNotifyNobody)
{
    auto& item = AddSlider ("Opacity", 0, 100, 20);
    item.Attach (first);
    SelectFirstRow ();
    const std::uint64_t redraws = Redraws ();
    item.SetValue (20);
    EXPECT_EQ (Redraws (), redraws) << "an unchanged value changes nothing";
    item.SetValue (75);
    EXPECT_GT (Redraws (), redraws);
    EXPECT_EQ (State (item) + " " + Cell (1, Check ()) + " " + log, "75 bar=75 edit=75 focus=IntEdit 75 ");
}

// --- Strategy ---

class SliderStrategyTest : public SliderItemTest {
protected:
    SliderStrategyTest ()
    {
        item.Attach (first);
        item.SetStrategy (&strategy);
        SelectFirstRow ();
        log.clear ();
    }

    TxAL::AttributeListSliderItem& item = AddSlider ("Detail", 0, 100, 20);
    RecordingStrategy              strategy {Controls (), log};
};

TEST_F (SliderStrategyTest, HooksAreAskedFirstAndSeeTheNumberBeforeTheChange)
{
    Bar ().UserDrag (33);
    Bar ().UserRelease (34);
    IntEdit ().UserSetText ("47");
    EXPECT_EQ (log, "drag(20 edit=20) release(33 edit=33) A:ValueChanged(Detail=34) edit(34 edit=47) A:ValueChanged(Detail=47)");
    EXPECT_EQ (item.SetStrategy (nullptr), &strategy);
    EXPECT_EQ (item.GetStrategy (), nullptr);
}

TEST_F (SliderStrategyTest, AHookThatAnswersTrueLeavesTheItemAlone)
{
    strategy.takeDrag = strategy.takeRelease = strategy.takeEdit = true;
    Bar ().UserDrag (33);
    Bar ().UserRelease (34);
    IntEdit ().UserSetText ("47");
    EXPECT_EQ (std::to_string (item.GetValue ()) + " " + log, "20 drag(20 edit=20) release(20 edit=20) edit(20 edit=47)");
}

TEST_F (SliderStrategyTest, ATakenReleaseSetsOnlyTheNumberAndReportsThroughTheStrategy)
{
    strategy.takeRelease = true;
    strategy.whenTaking = [this] (TxAL::AttributeListSliderItem& slider) { strategy.SnapAndReport (slider, Bar ().GetValue ()); };
    Bar ().UserRelease (57);
    // Inside the slider event the row is not refreshed: the thumb stays where it was released.
    EXPECT_EQ (State (item) + " | " + log, "60 bar=57 edit=60 focus=ListBox | release(20 edit=20) A:ValueChanged(Detail=60)");
    // Outside a slider event the same setter refreshes the row.
    log.clear ();
    strategy.takeEdit = true;
    strategy.whenTaking = [this] (TxAL::AttributeListSliderItem& slider) { strategy.SnapAndReport (slider, IntEdit ().GetValue ()); };
    IntEdit ().UserSetText ("33");
    EXPECT_EQ (State (item) + " | " + log, "30 bar=30 edit=30 focus=IntEdit | edit(60 edit=33) A:ValueChanged(Detail=30)");
}

TEST_F (SliderStrategyTest, AThrowingHookEndsTheSliderEvent)
{
    strategy.throwOnDrag = true;
    const Wg::BarControlTrackEvent drag (&Bar ());
    EXPECT_THROW (item.SliderTracked (drag), std::runtime_error);
    // Were the slider event still marked, this would reach only the integer edit.
    item.SetStrategy (nullptr);
    item.SetValue (80);
    EXPECT_EQ (State (item), "80 bar=80 edit=80 focus=IntEdit");
}

TEST_F (SliderStrategyTest, AnObserverMayDeleteTheItemOnRelease)
{
    auto* own = new TxAL::AttributeListSliderItem ();
    own->SetMaxValue (10);
    own->SetName ("Temporary");
    list->AddListItem (*own);
    list->FullRefreshList (false);
    Click (2, Begin (Label ()) + 3);
    own->Attach (second);
    second.onCall = [&own] {
        delete own;
        own = nullptr;
    };
    Bar ().UserRelease (7);
    EXPECT_EQ (own, nullptr);
    EXPECT_EQ (log, "B:ValueChanged(Temporary=7)");
    EXPECT_EQ (Box ().GetItemCount (), 1);
}

// --- Picture ---

// The track is 98 x 14 and the thumb 14 x 14: a free width of 84, and in a 100-pixel preview
// column on a 20-pixel row the track starts at (100 - 98) / 2 - 1 = 0, 3 pixels down.
TEST_F (SliderItemTest, ThumbSitsAtTheRoundedShareOfTheFreeWidth)
{
    AddSlider ("Low", 0, 100, 0);
    AddSlider ("Half", 0, 100, 50);
    AddSlider ("High", 0, 100, 100);
    AddSlider ("Shifted", -50, 50, 25);
    EXPECT_EQ (Thumb (1) + " " + Thumb (2) + " " + Thumb (3) + " " + Thumb (4), "0,3 42,3 84,3 63,3");
    const auto track = Box ().PaintCell (1, Preview ()).Get<Gfx::IconOp> ().front ();
    EXPECT_EQ (std::to_string (track.resourceId) + " " + std::to_string (track.rect.left - Begin (Preview ())) + " " +
                   std::to_string (track.rect.GetWidth ()) + "x" + std::to_string (track.rect.GetHeight ()),
               "31849 0 98x14");
    EXPECT_EQ (Cell (2, Check ()), "50");
}

TEST_F (SliderItemTest, WideRangesWrapTheThumbOffsetIn16Bits)
{
    // 500 + 500 × 84 = 42500 wraps to −23036; / 1000 gives −23, left of the track.
    AddSlider ("Wide", 0, 1000, 500);
    // 250 × 84 + 500 = 21500 stays in range: 21.
    AddSlider ("Quarter", 0, 1000, 250);
    EXPECT_EQ (Thumb (1) + " " + Thumb (2), "-23,3 21,3");
    EXPECT_EQ (TxAL::AttributeListSliderItem::ThumbOffset (0, 100, 50, 100), 50);
    EXPECT_EQ (TxAL::AttributeListSliderItem::ThumbOffset (0, 1000, 500, 100), -15);
    // The widest bounds wrap instead of overflowing.
    EXPECT_EQ (TxAL::AttributeListSliderItem::ThumbOffset (INT_MIN, INT_MAX, INT_MAX, 71), 71);
}

TEST_F (SliderItemTest, NoThumbOutsideTheBoundsOrOnAnEmptyRange)
{
    auto& outside = AddSlider ("Outside", 0, 100, 50);
    outside.SetValue (101);
    AddSlider ("Below", 0, 100, -1);
    AddSlider ("Empty", 30, 30, 30);
    EXPECT_EQ (Thumb (1) + " " + Thumb (2) + " " + Thumb (3), "none none none");
    EXPECT_EQ (Box ().PaintCell (3, Preview ()).Get<Gfx::IconOp> ().size (), 1u) << "the track is drawn all the same";
    outside.SetValue (100);
    EXPECT_EQ (Thumb (1), "84,3");
}

TEST_F (SliderItemTest, TheEditedRowShowsTheBarInsteadOfThePicture)
{
    AddSlider ("Opacity", 0, 100, 50);
    AddSlider ("Detail", 0, 100, 50);
    SelectFirstRow ();
    EXPECT_EQ (Box ().PaintCell (1, Preview ()).Get<Gfx::IconOp> ().size (), 0u);
    EXPECT_EQ (Thumb (2), "42,3");
    Click (2, Begin (Label ()) + 3);
    EXPECT_EQ (Thumb (1) + " " + Thumb (2), "42,3 none");
}

TEST_F (SliderItemTest, DisabledRowsDrawAGreyedPicture)
{
    auto& item = AddSlider ("Opacity", 0, 100, 50);
    item.SetStatus (false);
    std::string greyed;
    for (const Gfx::IconOp& op : Box ().PaintCell (1, Preview ()).Get<Gfx::IconOp> ()) greyed += op.greyed ? "~" : "-";
    EXPECT_EQ (greyed, "~~");
}

// --- Keyboard ---

class SliderKeyboardTest : public SliderItemTest {
protected:
    SliderKeyboardTest ()
    {
        group = list->CreateGroup ("Display", {}, true, true);
        auto* master = new TxAL::AttributeListSliderItem ();
        master->SetName ("Detail");
        master->SetMinValue (0);
        master->SetMaxValue (3);
        master->SetValue (2);
        slider.reset (master);
        group->AddMasterItem (*master);
        group->CreateCheckItem (false, "Shadows", {}, false, "Cast", true, false);
        list->FullRefreshList (false);
        SelectFirstRow ();
    }

    std::string Steps (std::initializer_list<int> keys)
    {
        std::string out;
        for (int key : keys) {
            const bool handled = Press (key, Wg::Key::PopupFlag);
            out += std::to_string (slider->GetValue ()) + (handled ? "" : "?") + " ";
        }
        return out + std::to_string (Box ().GetItemCount ()) + " rows";
    }

    TxAL::AttributeListGroupItem*                  group = nullptr;
    std::unique_ptr<TxAL::AttributeListSliderItem> slider;
};

TEST_F (SliderKeyboardTest, ArrowsWithoutTheModifierLeaveTheGroupAlone)
{
    EXPECT_FALSE (Press (Wg::Key::Left));
    EXPECT_FALSE (Press (Wg::Key::Right));
    EXPECT_EQ (std::to_string (slider->GetValue ()) + " " + std::to_string (Box ().GetItemCount ()) + " rows", "2 2 rows");
}

TEST_F (SliderKeyboardTest, AGroupRowThatLosesItsSliderKeepsNoNumber)
{
    EXPECT_EQ (harness->Rows (), "1:▾Display|2 2:  Shadows|[ ]Cast");
    group->RemoveMasterItem ();
    EXPECT_EQ (harness->Rows (), "1:▾Display 2:  Shadows|[ ]Cast");
    group->AddMasterItem (*slider);
}

TEST_F (SliderKeyboardTest, ModifierStepsByOneWithinTheBounds)
{
    EXPECT_EQ (Steps ({Wg::Key::Right, Wg::Key::Right, Wg::Key::Left, Wg::Key::Left, Wg::Key::Left, Wg::Key::Left}), "3 3 2 1 0 0 2 rows");
    EXPECT_EQ (State (*slider), "0 bar=0 edit=0 focus=IntEdit");
    EXPECT_EQ (Cell (1, Check ()), "0");
}

TEST_F (SliderKeyboardTest, StrategyAdjustsTheStepAndTheBoundsStillHold)
{
    RecordingStrategy strategy (Controls (), log);
    strategy.adjustStep = [] (int proposed) { return proposed * 10 - 9; };
    slider->SetStrategy (&strategy);
    slider->Attach (first);
    EXPECT_EQ (Steps ({Wg::Key::Left, Wg::Key::Right, Wg::Key::Left}), "1 3 3 2 rows");
    EXPECT_EQ (log, "step(2->1) step(1->2) step(3->2)") << "the keyboard only sets the value";
    slider->SetStrategy (nullptr);
}

TEST_F (SliderKeyboardTest, StepsStopAtTheEdgesOfTheIntegerRange)
{
    slider->SetMaxValue (INT_MAX);
    slider->SetValue (INT_MAX);
    EXPECT_EQ (Steps ({Wg::Key::Right, Wg::Key::Left}), std::to_string (INT_MAX) + " " + std::to_string (INT_MAX - 1) + " 2 rows");
    slider->SetMinValue (INT_MIN);
    slider->SetValue (INT_MIN);
    EXPECT_EQ (Steps ({Wg::Key::Left}), std::to_string (INT_MIN) + " 2 rows");
}

// --- Interval ---

class IntervalItemTest : public ListTest {
protected:
    std::string log;
    ValueLog    observer {"A", log};
};

TEST_F (IntervalItemTest, ShowsBothEndsAsPlainRealsAroundTheBetweenText)
{
    list->CreateIntervalItem ("Storeys", {}, -1.0, 4.0, "to", false, true, false);
    list->CreateIntervalItem ("From", {}, 2.5, 9.0, "upward", true, true, false);
    EXPECT_EQ (harness->Rows (), "1:Storeys|-1.00|to|4.00 2:From|2.50|upward");
    EXPECT_EQ (AT (1, Preview ()) + "|" + AT (1, Value ()) + "|" + AT (1, Check ()), "to||");
    const auto texts = Box ().PaintCell (1, Preview ()).Get<Gfx::TextOp> ();
    ASSERT_EQ (texts.size (), 1u);
    EXPECT_EQ (texts[0].text.ToUtf8 (), "to");
}

TEST_F (IntervalItemTest, EditsSitInTheValueAndCheckColumns)
{
    list->CreateIntervalItem ("Storeys", {}, 1.0, 4.0, "to", false, true, false);
    list->CreateIntervalItem ("Above", {}, 3.0, 0.0, "and up", true, true, false);
    Click (1, Begin (Label ()) + 3);
    EXPECT_EQ (Placed (), "sel=1 4:RealEdit 6:SecondRealEdit");
    const Wg::RealEdit& beg = Controls ().GetRealEdit ();
    const Wg::RealEdit& end = Controls ().GetSecondRealEdit ();
    EXPECT_EQ (std::to_string (beg.GetRect ().GetWidth ()) + "x" + std::to_string (beg.GetRect ().GetHeight ()) + " " +
                   std::to_string (end.GetRect ().GetWidth ()) + "x" + std::to_string (end.GetRect ().GetHeight ()),
               std::to_string (End (Value ()) - Begin (Value ())) + "x" + std::to_string (RowHeight () - 3) + " " +
                   std::to_string (End (Check ()) - Begin (Check ())) + "x" + std::to_string (RowHeight () - 3));
    EXPECT_EQ (Number (beg.GetValue ()) + " " + Number (end.GetValue ()), "1 4");
    Click (2, Begin (Label ()) + 3);
    EXPECT_EQ (Placed (), "sel=2 4:RealEdit") << "a hidden end has no edit";
    EXPECT_EQ (Number (beg.GetValue ()), "3");
}

TEST_F (IntervalItemTest, EditsKeepNoBoundsOfAnotherRow)
{
    list->CreateRealItem ("Ratio", {}, 0.0, 2.0, 1.0, true, true, false);
    auto* item = list->CreateIntervalItem ("Storeys", {}, 1.0, 4.0, "to", false, true, false);
    Click (1, Begin (Label ()) + 3);
    Click (2, Begin (Label ()) + 3);
    Wg::RealEdit& beg = Controls ().GetRealEdit ();
    beg.SetFocus ();
    beg.UserSetText ("5");
    beg.Commit ();
    Wg::RealEdit& end = Controls ().GetSecondRealEdit ();
    end.SetFocus ();
    end.UserSetText ("-3");
    end.Commit ();
    EXPECT_EQ (Number (item->GetIntervalBeg ()) + " " + Number (item->GetIntervalEnd ()), "5 -3");
}

TEST_F (IntervalItemTest, EitherEditNotifiesWithoutRefreshingTheRow)
{
    auto* item = list->CreateIntervalItem ("Storeys", {}, 1.0, 4.0, "to", false, true, false);
    item->Attach (observer);
    Click (1, Begin (Label ()) + 3);
    Wg::RealEdit& end = Controls ().GetSecondRealEdit ();
    end.SetFocus ();
    end.UserSetText ("7");
    end.Commit ();
    // A refresh would have moved the focus into the first edit.
    EXPECT_EQ (harness->Controls (), "sel=1 4:RealEdit 6:SecondRealEdit focus=SecondRealEdit");
    EXPECT_EQ (log + " " + harness->Rows (), "A:ValueChanged(Storeys=1..7) 1:Storeys|1.00|to|7.00");
    log.clear ();
    Controls ().GetRealEdit ().UserSetText ("-2");
    EXPECT_EQ (log, "A:ValueChanged(Storeys=-2..7)");
    // An event of any other real edit is reported too, and changes nothing.
    log.clear ();
    item->RealEditChanged (Wg::RealEditChangeEvent (&Controls ().GetLengthEdit ()));
    EXPECT_EQ (log, "A:ValueChanged(Storeys=-2..7)");
}

TEST_F (IntervalItemTest, SettersStoreWithoutOrderingOrRefresh)
{
    auto* item = list->CreateIntervalItem ("Storeys", {}, 0.0, 1.0, "to", false, true, false);
    item->Attach (observer);
    const std::uint64_t redraws = Redraws ();
    item->SetIntervalBeg (5.0);
    EXPECT_EQ (Number (item->GetIntervalBeg ()) + ".." + Number (item->GetIntervalEnd ()) + " " + Cell (1, Value ()), "5..1 0.00");
    EXPECT_EQ (Redraws (), redraws);
    list->RefreshItem (*item, true);
    EXPECT_EQ (Cell (1, Value ()) + " " + log, "5.00 ");
}

TEST_F (IntervalItemTest, GroupMakesIntervalsAsChildrenOrMaster)
{
    auto* group = list->CreateGroup ("Levels", {}, true, true);
    group->CreateIntervalItem (true, "Range", {}, 0.0, 3.0, "to", false, true, false);
    group->CreateIntervalItem (false, "Basement", {}, -2.0, -1.0, "to", true, true, false);
    EXPECT_EQ (harness->Rows (), "1:▾Levels|0.00|to|3.00 2:  Basement|-2.00|to");
    TxALTest::Lifetimes lifetimes;
    lifetimes.Watch (*group->GetMasterItem ());
    group->ClearMasterItem ();
    EXPECT_EQ (lifetimes.Take () + " " + harness->Rows (), "~Range 1:▾Levels 2:  Basement|-2.00|to");
    // A master of the caller's leaves the group's row without its ends.
    TxAL::AttributeListIntervalItem span ("Span", {}, 1.0, 2.0, "to", false, true, false);
    group->AddMasterItem (span);
    EXPECT_EQ (harness->Rows (), "1:▾Levels|1.00|to|2.00 2:  Basement|-2.00|to");
    group->RemoveMasterItem ();
    EXPECT_EQ (harness->Rows (), "1:▾Levels 2:  Basement|-2.00|to");
}

}   // namespace
}   // namespace ValueItemsTest
