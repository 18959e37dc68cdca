#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Pk/Pk257.hpp"
#include "Pk/Pk261.hpp"
#include "Pk/PickerSession.hpp"
#include "Pk/PopupControl.hpp"
#include "Pk/PopupControlSession.hpp"
#include "Wg/ModalRunner.hpp"
#include "Wg/Panel.hpp"

namespace {

// Writes the tracking protocol as "enter(2) track(3) exit chg(3)", with the control's value at
// each event. A hook runs after each event is written.
class ProtocolLog : public Wg::UserControlObserver {
public:
    explicit ProtocolLog (std::string& log) : log (log) {}

    void UserControlTrackEntered (const Wg::UserControlTrackEvent& event) override { Write ("enter", event.GetSource ()); }
    void UserControlTracked (const Wg::UserControlTrackEvent& event) override { Write ("track", event.GetSource ()); }
    void UserControlTrackExited (const Wg::UserControlTrackEvent& event) override { Write ("exit", event.GetSource ()); }
    void UserControlChanged (const Wg::UserControlChangeEvent& event) override { Write ("chg", event.GetSource ()); }

    std::function<void (const std::string&)> after;

private:
    void Write (const std::string& what, Wg::UserControl* source)
    {
        if (!log.empty ()) log += ' ';
        log += what;
        if (what != "exit") log += "(" + std::to_string (source->GetValue ()) + ")";
        if (after) after (what);
    }

    std::string& log;
};

class AspectLog : public Wg::ItemPeer {
public:
    void Changed (Wg::Item&, Wg::Aspect aspect, int) override
    {
        log += aspect == Wg::Aspect::Content ? "C" : aspect == Wg::Aspect::Value ? "V" : "?";
    }
    void ItemDestroyed (Wg::Item&) override { log += "~"; }
    std::string log;
};

// Inspects the session it is given, then leaves the steps to the headless runner.
class InspectingRunner : public Wg::ModalRunner {
public:
    void Run (Wg::ModalSession& session) override
    {
        kind = session.GetKind ();
        anchor = session.GetAnchor ();
        initial = session.GetInitialEntry ();
        entries.clear ();
        for (const Wg::ModalEntry& entry : session.GetEntries ()) {
            if (!entries.empty ()) entries += ' ';
            entries += entry.separator ? "-" : entry.text.ToUtf8 ();
            if (!entry.enabled) entries += "(off)";
            if (entry.checked) entries += "*";
        }
        if (auto* picker = dynamic_cast<Pk::PickerSession*> (&session)) {
            for (const auto& entry : picker->GetPickerEntries ()) pickerColors += entry.hasColor ? entry.color.ToHex () + " " : "- ";
        }
        Wg::GetHeadlessModalRunner ().Run (session);
    }

    Wg::ModalSession::Kind kind = Wg::ModalSession::Kind::Dialog;
    Wg::Item*              anchor = nullptr;
    int                    initial = -1;
    std::string            entries;
    std::string            pickerColors;
};

class PkTest : public ::testing::Test {
protected:
    void SetUp () override { runner.ClearScript (); }
    void TearDown () override
    {
        Wg::SetModalRunner (nullptr);
        runner.ClearScript ();
    }

    Wg::Panel                panel {Wg::Rect (0, 0, 300, 200)};
    Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
    std::string              log;
};

// --- Popup control ---

class PopupControlTest : public PkTest {
protected:
    void SetUp () override
    {
        PkTest::SetUp ();
        for (const char* text : {"A", "B", "C", "D", "E", "F"}) popup->AppendItem (text);
        popup->SetValue (2);
        popup->Attach (observer);
    }

    std::unique_ptr<Pk::PopupControl> popup = std::make_unique<Pk::PopupControl> (panel, Wg::Rect (10, 10, 30, 30));
    // Held through a pointer: GCC 12 warns (-Wvirtual-move-assign) about a fixture member whose
    // class has a virtual observer base.
    std::unique_ptr<ProtocolLog>      observerHolder = std::make_unique<ProtocolLog> (log);
    ProtocolLog&                      observer = *observerHolder;
};

TEST_F (PopupControlTest, TrackAndChoose)
{
    const int runs = runner.GetRunCount ();
    runner.QueueTrack (3);
    runner.QueueTrack (5);
    runner.QueueChoose (5);
    popup->ShowAndTrackPopup ();
    EXPECT_EQ (log, "enter(2) track(3) track(5) track(5) exit chg(5)");
    EXPECT_EQ (popup->GetValue (), 5);
    EXPECT_FALSE (popup->IsTracking ());
    EXPECT_EQ (runner.GetRunCount (), runs + 1);
    EXPECT_EQ (runner.GetPendingStepCount (), 0u);
}

TEST_F (PopupControlTest, CancelRestoresTheChoice)
{
    runner.QueueTrack (4);
    runner.QueueTrack (0);
    runner.QueueCancel ();
    popup->ShowAndTrackPopup ();
    EXPECT_EQ (log, "enter(2) track(4) track(0) track(2) exit");
    EXPECT_EQ (popup->GetValue (), 2);
}

TEST_F (PopupControlTest, ForgottenScriptCancels)
{
    popup->ShowAndTrackPopup ();
    EXPECT_EQ (log, "enter(2) track(2) exit");
}

TEST_F (PopupControlTest, UnselectableEntriesCannotBeTrackedOrChosen)
{
    popup->DeleteAllItems ();
    EXPECT_EQ (popup->GetValue (), 0);
    popup->AppendItem ("A");
    EXPECT_EQ (popup->AppendSeparator (), 2);
    popup->AppendItem ("C", {}, false);
    EXPECT_EQ (popup->AppendItem ("D"), 4);
    for (int entry : {2, 3, 5, -1}) runner.QueueTrack (entry);
    for (int entry : {2, 3, 5, 0}) runner.QueueChoose (entry);
    runner.QueueChoose (4);
    popup->ShowAndTrackPopup ();
    EXPECT_EQ (log, "enter(0) track(4) exit chg(4)");
}

TEST_F (PopupControlTest, FullControlRefusesMoreEntries)
{
    while (popup->GetItemCount () < Pk::PopupControl::MaxItemCount) popup->AppendItem ("x");
    EXPECT_EQ (popup->AppendItem ("one too many"), 0);
    EXPECT_EQ (popup->AppendSeparator (), 0);
    EXPECT_EQ (popup->GetItemCount (), 32767);
}

TEST_F (PopupControlTest, DisabledOrEmptyControlDoesNothing)
{
    runner.QueueChoose (3);
    const int runs = runner.GetRunCount ();
    popup->Disable ();
    popup->ShowAndTrackPopup ();
    popup->Enable ();
    popup->Hide ();
    popup->UserPress ();
    popup->Show ();
    Pk::PopupControl empty (panel, Wg::Rect (0, 0, 20, 20));
    empty.ShowAndTrackPopup ();
    EXPECT_EQ (log, "");
    EXPECT_EQ (runner.GetRunCount (), runs);
    EXPECT_EQ (runner.GetPendingStepCount (), 1u);

    popup->UserPress ();
    EXPECT_EQ (log, "enter(2) track(3) exit chg(3)");
}

TEST_F (PopupControlTest, SessionOffersTheEntries)
{
    InspectingRunner inspecting;
    Wg::SetModalRunner (&inspecting);
    popup->DisableItem (4);
    popup->SetItemStatus (9, false);
    popup->AppendSeparator ();
    popup->SetItemText (7, "X");
    popup->DisableItem (7);
    EXPECT_EQ (popup->GetItemText (7), "");
    EXPECT_TRUE (popup->IsSeparator (7));
    runner.QueueChoose (1);
    popup->ShowAndTrackPopup ();
    EXPECT_EQ (inspecting.kind, Wg::ModalSession::Kind::Menu);
    EXPECT_EQ (inspecting.anchor, popup.get ());
    EXPECT_EQ (inspecting.initial, 2);
    EXPECT_EQ (inspecting.entries, "A B* C D(off) E F -");
}

TEST_F (PopupControlTest, SelectionOutsideTheEntriesHasNoInitialEntry)
{
    InspectingRunner inspecting;
    Wg::SetModalRunner (&inspecting);
    popup->SetValue (-1);
    popup->ShowAndTrackPopup ();
    EXPECT_EQ (inspecting.initial, 0);
    EXPECT_EQ (log, "enter(-1) track(-1) exit");
}

TEST_F (PopupControlTest, AskingAgainWhileTrackingIsIgnored)
{
    observer.after = [&] (const std::string& what) {
        if (what == "enter") popup->ShowAndTrackPopup ();
    };
    runner.QueueChoose (6);
    popup->ShowAndTrackPopup ();
    EXPECT_EQ (log, "enter(2) track(6) exit chg(6)");
}

TEST_F (PopupControlTest, ChoiceMayOpenAnotherPopupWithTheFollowingSteps)
{
    Pk::PopupControl second (panel, Wg::Rect (40, 10, 60, 30));
    second.AppendItem ("x");
    second.AppendItem ("y");
    std::string secondLog;
    ProtocolLog secondObserver (secondLog);
    second.Attach (secondObserver);
    observer.after = [&] (const std::string& what) {
        if (what == "chg") second.ShowAndTrackPopup ();
    };
    runner.QueueChoose (1);
    runner.QueueTrack (2);
    runner.QueueChoose (2);
    popup->ShowAndTrackPopup ();
    EXPECT_EQ (log, "enter(2) track(1) exit chg(1)");
    EXPECT_EQ (secondLog, "enter(0) track(2) track(2) exit chg(2)");
}

// An observer destroys the control at each event in turn: the rest is dropped, the script keeps
// what the closed session did not take.
TEST_F (PopupControlTest, ObserverMayDestroyTheControl)
{
    struct Case {
        std::string when;
        std::string log;
        std::size_t pending;
    };
    const Case cases[] = {
        {"enter", "enter(2)", 3},
        {"track", "enter(2) track(3)", 2},
        {"exit", "enter(2) track(3) track(5) exit", 1},
        {"chg", "enter(2) track(3) track(5) exit chg(5)", 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE (c.when);
        runner.ClearScript ();
        log.clear ();
        popup = std::make_unique<Pk::PopupControl> (panel, Wg::Rect (10, 10, 30, 30));
        for (const char* text : {"A", "B", "C", "D", "E"}) popup->AppendItem (text);
        popup->SetValue (2);
        popup->Attach (observer);
        observer.after = [&] (const std::string& what) {
            if (what == c.when) popup.reset ();
        };
        runner.QueueTrack (3);
        runner.QueueChoose (5);
        runner.QueueTrack (1);
        popup->ShowAndTrackPopup ();
        EXPECT_EQ (popup, nullptr);
        EXPECT_EQ (log, c.log);
        EXPECT_EQ (runner.GetPendingStepCount (), c.pending);
        EXPECT_EQ (observer.GetSourceCount (), 0u);
    }
}

TEST_F (PopupControlTest, ObserverMayDetachDuringANotification)
{
    std::string otherLog;
    ProtocolLog other (otherLog);
    popup->Attach (other);
    other.after = [&] (const std::string& what) {
        if (what == "track") popup->Detach (other);
    };
    runner.QueueTrack (3);
    runner.QueueChoose (4);
    popup->ShowAndTrackPopup ();
    EXPECT_EQ (otherLog, "enter(2) track(3)");
    EXPECT_EQ (log, "enter(2) track(3) track(4) exit chg(4)");
    // The session's own watch is gone with the session.
    EXPECT_EQ (popup->GetObserverCount (), 1u);
}

TEST_F (PopupControlTest, ShowsTheSelectedEntryAndTellsItsPeer)
{
    AspectLog peer;
    popup->SetPeer (&peer);
    popup->SetItemIcon (2, Wg::Icon (7, 100));
    EXPECT_EQ (popup->GetSelectedText (), "B");
    EXPECT_EQ (popup->GetSelectedIcon (), Wg::Icon (7, 100));
    EXPECT_EQ (popup->GetItemIcon (99), Wg::Icon ());

    popup->SetButtonType (Pk::PopupControl::DropDownButton);
    popup->SetButtonType (Pk::PopupControl::DropDownButton);
    popup->SetTextAlignment (Pk::PopupControl::AlignCenter);
    popup->SetItemStatus (3, false);
    popup->SetItemStatus (3, false);
    popup->SetValue (4);
    popup->DeleteAllItems ();
    EXPECT_EQ (peer.log, "CCCCVVC");
    EXPECT_EQ (popup->GetButtonType (), 3);
    EXPECT_EQ (popup->GetTextAlignment (), 3);
    EXPECT_EQ (popup->GetSelectedText (), "");
    popup->SetPeer (nullptr);
}

// --- Picker controls ---

// A little pen table for the picker callback: pen index, name, colour.
struct FakePen {
    std::int32_t index;
    const char*  name;
    Gfx::Color   color;
    bool         enabled;
    bool         separator;
};

struct FakePenTable {
    std::vector<FakePen>     pens;
    std::vector<std::string> requests;
    Pk::AttributeDescription description;
    std::size_t              reportedSize = Pk::AttributeDescription::Size;
};

void FakePenCallBack (Pk257CallBackRec* record)
{
    auto* table = static_cast<FakePenTable*> (const_cast<void*> (record->userData));
    if (table == nullptr) return;
    switch (record->message) {
        case Pk257CallBackRec::CountMessage:
            record->entryCount = static_cast<std::int32_t> (table->pens.size ());
            break;
        case Pk257CallBackRec::EntryMessage: {
            const FakePen& pen = table->pens.at (static_cast<std::size_t> (record->entry - 1));
            if (pen.separator) {
                record->separator = true;
                break;
            }
            record->value = pen.index;
            record->text = pen.name;
            record->color = pen.color;
            record->hasColor = true;
            record->enabled = pen.enabled;
            break;
        }
        case Pk257CallBackRec::DescribeMessage: {
            std::string request = "describe(" + std::to_string (record->typeCode) + "," + std::to_string (record->attributeIndex) + ") phase " +
                                  std::to_string (record->phase) + " size " + std::to_string (record->resultSize);
            if (record->phase == Pk257CallBackRec::FillPhase) {
                const auto* bytes = static_cast<const unsigned char*> (record->result);
                bool zeroed = bytes != nullptr;
                for (std::size_t i = 0; zeroed && i < record->resultSize; ++i) zeroed = bytes[i] == 0;
                request += zeroed ? " zeroed" : " dirty";
            }
            table->requests.push_back (request);
            table->description.Answer (*record);
            if (record->phase == Pk257CallBackRec::SizePhase) record->resultSize = table->reportedSize;
            break;
        }
        default:
            break;
    }
}

class PickerTest : public PkTest {
protected:
    void SetUp () override
    {
        PkTest::SetUp ();
        pens.pens = {
            {5, "Red", Gfx::Color (255, 0, 0), true, false},
            {12, "Blue", Gfx::Color (0, 0, 255), true, false},
            {0, "", Gfx::Color (), true, true},
            {40, "Grey", Gfx::Color (128, 128, 128), false, false},
            {0, "White", Gfx::Color::White, true, false},
        };
        picker.SetCallBack (FakePenCallBack);
        picker.SetUserData (&pens);
        picker.SetValue (12);
        picker.Attach (observer);
    }

    FakePenTable                 pens;
    Pk::Pk257                    picker {panel, Wg::Rect (10, 40, 30, 60)};
    std::unique_ptr<ProtocolLog> observerHolder = std::make_unique<ProtocolLog> (log);   // see PopupControlTest
    ProtocolLog&                 observer = *observerHolder;
};

TEST_F (PickerTest, EntriesComeFromTheCallback)
{
    std::string dump;
    for (const auto& entry : picker.GetEntries ()) {
        dump += entry.separator ? "- " : std::to_string (entry.value) + ":" + entry.text.ToUtf8 () + (entry.enabled ? " " : "(off) ");
    }
    EXPECT_EQ (dump, "5:Red 12:Blue - 40:Grey(off) 0:White ");
    EXPECT_EQ (picker.GetEntryCount (), 5);
    EXPECT_EQ (picker.FindEntry (0), 5);
    EXPECT_EQ (picker.FindEntry (41), 0);
    EXPECT_FALSE (picker.GetEntry (6).has_value ());
    EXPECT_EQ (picker.GetEntry (2)->color, Gfx::Color (0, 0, 255));
}

TEST_F (PickerTest, TrackingReportsEntryValuesNotPositions)
{
    InspectingRunner inspecting;
    Wg::SetModalRunner (&inspecting);
    runner.QueueTrack (1);
    runner.QueueTrack (0);
    runner.QueueTrack (4);     // disabled
    runner.QueueTrack (5);
    runner.QueueChoose (3);    // separator
    runner.QueueChoose (5);
    picker.ShowAndTrackPopup ();
    // Over no entry the picker shows its choice again: pen 0 is a real pen.
    EXPECT_EQ (log, "enter(12) track(5) track(12) track(0) track(0) exit chg(0)");
    EXPECT_EQ (picker.GetValue (), 0);
    EXPECT_EQ (inspecting.kind, Wg::ModalSession::Kind::Picker);
    EXPECT_EQ (inspecting.anchor, &picker);
    EXPECT_EQ (inspecting.initial, 2);
    EXPECT_EQ (inspecting.entries, "Red Blue* - Grey(off) White");
    EXPECT_EQ (inspecting.pickerColors, "#FF0000 #0000FF - #808080 #FFFFFF ");
}

TEST_F (PickerTest, CancelRestoresThePen)
{
    runner.QueueTrack (1);
    runner.QueueCancel ();
    picker.ShowAndTrackPopup ();
    EXPECT_EQ (log, "enter(12) track(5) track(12) exit");
}

TEST_F (PickerTest, WithoutEntriesNothingOpens)
{
    const int runs = runner.GetRunCount ();
    picker.SetUserData (nullptr);      // the callback then reports no entries
    picker.ShowAndTrackPopup ();
    picker.SetUserData (&pens);
    picker.SetCallBack (nullptr);
    picker.ShowAndTrackPopup ();
    EXPECT_EQ (picker.GetEntryCount (), 0);
    EXPECT_TRUE (picker.RequestDescription (11, 3).empty ());
    EXPECT_EQ (log, "");
    EXPECT_EQ (runner.GetRunCount (), runs);
}

TEST_F (PickerTest, ChoiceAfterTheCallbackDataChangedKeepsWhatWasShown)
{
    picker.SetValue (5);
    observer.after = [&] (const std::string& what) {
        if (what == "enter") pens.pens.clear ();
    };
    runner.QueueChoose (2);
    picker.ShowAndTrackPopup ();
    EXPECT_EQ (log, "enter(5) track(12) exit chg(12)");
}

TEST_F (PickerTest, ObserverMayDestroyThePicker)
{
    auto owned = std::make_unique<Pk::Pk261> (panel, Wg::Rect (40, 40, 60, 60));
    owned->SetCallBack (FakePenCallBack);
    owned->SetUserData (&pens);
    owned->Attach (observer);
    observer.after = [&] (const std::string& what) {
        if (what == "exit") owned.reset ();
    };
    runner.QueueChoose (1);
    owned->ShowAndTrackPopup ();
    EXPECT_EQ (owned, nullptr);
    EXPECT_EQ (log, "enter(0) track(5) exit");
}

TEST_F (PickerTest, ColoursSwitchBetweenOwnAndCell)
{
    AspectLog peer;
    picker.SetPeer (&peer);
    auto dump = [&] {
        auto text = [] (const std::optional<Gfx::Color>& color) { return color ? color->ToHex () : std::string ("cell"); };
        return text (picker.GetForeColor ()) + " " + text (picker.GetBackColor ()) + " " + text (picker.GetFrameColor ()) + " " +
               text (picker.GetSeparatorColor ());
    };
    EXPECT_EQ (dump (), "cell cell cell cell");
    picker.SetForeColor (Gfx::Color (255, 0, 0));
    picker.SetBackColor (Gfx::Color::White);
    picker.SetFrameColor (Gfx::Color (1, 2, 3));
    picker.SetSeparatorColor (Gfx::Color (4, 5, 6));
    EXPECT_EQ (dump (), "#FF0000 #FFFFFF #010203 #040506");
    picker.UseCellBackColor ();
    picker.UseCellSeparatorColor ();
    picker.SetForeColor (Gfx::Color (255, 0, 0));      // unchanged: no notification
    EXPECT_EQ (dump (), "#FF0000 cell #010203 cell");
    picker.UseCellForeColor ();
    picker.UseCellFrameColor ();
    picker.UseCellFrameColor ();
    EXPECT_EQ (dump (), "cell cell cell cell");
    EXPECT_EQ (peer.log, "CCCCCCCC");
    picker.SetPeer (nullptr);
}

TEST_F (PickerTest, TypesAreKeptAsGiven)
{
    AspectLog peer;
    picker.SetPeer (&peer);
    picker.SetButtonType (Pk::PickerControl::SwatchButton);
    picker.SetHeaderType (Pk::PickerControl::TextHeader);
    picker.SetControlType (Pk::PickerControl::GridControl);
    picker.SetControlType (Pk::PickerControl::GridControl);
    picker.SetButtonType (9);
    EXPECT_EQ (std::to_string (picker.GetButtonType ()) + std::to_string (picker.GetHeaderType ()) + std::to_string (picker.GetControlType ()), "911");
    EXPECT_EQ (peer.log, "CCCC");
    picker.SetPeer (nullptr);
}

TEST_F (PickerTest, DescriptionIsAskedInTwoPhases)
{
    pens.description = Pk::AttributeDescription (2, 7, 0);
    const std::vector<std::byte> block = picker.RequestDescription (11, 34);
    ASSERT_EQ (pens.requests.size (), 2u);
    EXPECT_EQ (pens.requests[0], "describe(11,34) phase 1 size 0");
    EXPECT_EQ (pens.requests[1], "describe(11,34) phase 2 size 3752 zeroed");
    EXPECT_EQ (block.size (), Pk::AttributeDescription::Size);
    EXPECT_EQ (Pk::AttributeDescription::Read (block), Pk::AttributeDescription (2, 7, 0));
}

TEST_F (PickerTest, DescriptionRecordAsAClientFillsIt)
{
    // The record of a client that asks directly, with its own user data.
    pens.description = Pk::AttributeDescription (1, 0, 3);
    Pk257CallBackRec record;
    record.typeCode = 11;
    record.attributeIndex = 9;
    record.userData = &pens;
    const std::vector<std::byte> block = Pk::RequestDescription (FakePenCallBack, record);
    EXPECT_EQ (Pk::AttributeDescription::Read (block), Pk::AttributeDescription (1, 0, 3));
    EXPECT_EQ (record.result, nullptr);
    EXPECT_EQ (record.resultSize, Pk::AttributeDescription::Size);
}

TEST_F (PickerTest, BadDescriptionSizesGiveNothingOrWhatFits)
{
    pens.description = Pk::AttributeDescription (2, 7, 5);
    pens.reportedSize = 0;
    EXPECT_TRUE (picker.RequestDescription (11, 1).empty ());
    pens.reportedSize = Pk::MaxDescriptionSize + 1;
    EXPECT_TRUE (picker.RequestDescription (11, 1).empty ());
    EXPECT_EQ (pens.requests.size (), 2u);      // no fill phase for either

    // A short buffer takes the fields that fit; the others read as 0.
    pens.reportedSize = 400;
    const std::vector<std::byte> block = picker.RequestDescription (11, 1);
    EXPECT_EQ (block.size (), 400u);
    EXPECT_EQ (Pk::AttributeDescription::Read (block), Pk::AttributeDescription (2, 7, 0));
    EXPECT_EQ (Pk::AttributeDescription::Read ({}), Pk::AttributeDescription ());
}

}   // namespace
