#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

#include "ControlRecorder.hpp"
#include "RecordingPeer.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/Panel.hpp"

namespace {

using Wg::Key::Code;

class NumberEditTest : public ::testing::Test {
protected:
    NumberEditTest () : savedUnits (Wg::GetWorkingUnits ())
    {
        Wg::SetWorkingUnits (Wg::WorkingUnits::Metric ());
        real.SetFocus ();
        real.Attach (recorder);
    }
    ~NumberEditTest () override { Wg::SetWorkingUnits (savedUnits); }

    bool Press (int code) { return panel.KeyPress (Code (code)); }

    // "text|value" of the real edit, with "*" while the user is typing.
    std::string RealState () const
    {
        return real.GetText ().ToUtf8 () + (real.IsEditing () ? "*" : "") + "|" + ::testing::PrintToString (real.GetValue ());
    }

    Wg::WorkingUnits             savedUnits;
    Wg::Panel                    panel;
    Wg::RealEdit                 real {panel, Wg::Rect (0, 0, 100, 20)};
    Wg::TextEdit                 other {panel, Wg::Rect (0, 30, 100, 50)};
    std::string                  log;
    TestSupport::ControlRecorder recorder {log};
};

TEST_F (NumberEditTest, AutoUpdateAcceptsEachNumberTypedAndReformatsOnlyOnCommit)
{
    real.UserType ("2.5");
    EXPECT_EQ (RealState (), "2.5*|2.5");
    EXPECT_EQ (recorder.Take (), "Real:2 Real:2.5");
    EXPECT_TRUE (Press (Wg::Key::Return));
    EXPECT_EQ (RealState (), "2.50|2.5");
    EXPECT_EQ (recorder.Take (), "");
    // The next keystroke replaces the shown value; a number that stops parsing is kept as
    // typed until the commit refuses it.
    real.UserType ("4x");
    EXPECT_EQ (RealState (), "4x*|4");
    real.HandleKey (Wg::Key::Code (Wg::Key::Tab));
    EXPECT_EQ (RealState (), "4.00|4");
    EXPECT_EQ (recorder.Take (), "Real:4");
}

TEST_F (NumberEditTest, AutoUpdateOffReformatsWhenTheFocusLeavesAndSendsNoSameValue)
{
    real.SetAutoUpdate (false);
    real.UserType ("7");
    other.SetFocus ();
    EXPECT_EQ (RealState (), "7.00|7");
    recorder.Take ();
    // Committing the same value again sends nothing.
    real.SetFocus ();
    real.UserSetText ("7.0");
    Press (Wg::Key::Enter);
    EXPECT_EQ (recorder.Take (), "+focus");
}

TEST_F (NumberEditTest, UnparsableTextIsRefusedAndBackspaceClearsTheShownValue)
{
    real.SetAutoUpdate (false);
    real.SetValue (3);
    real.UserType ("abc");
    Press (Wg::Key::Return);
    EXPECT_EQ (RealState (), "3.00|3");
    // Backspace on the shown value clears it, as typing over a whole selection would.
    Press (Wg::Key::Backspace);
    EXPECT_EQ (RealState (), "*|3");
    other.SetFocus ();
    EXPECT_EQ (RealState (), "3.00|3");
    EXPECT_EQ (recorder.Take (), "-focus");
}

TEST_F (NumberEditTest, TypedValuesAreClampedWithTheMinimumTestedFirst)
{
    real.SetAutoUpdate (false);
    real.SetMin (0);
    real.SetMax (10);
    real.UserType ("15");
    Press (Wg::Key::Return);
    real.UserType ("-1");
    Press (Wg::Key::Return);
    real.SetMin (10);
    real.SetMax (5);
    real.UserType ("12");
    Press (Wg::Key::Return);
    real.UserType ("7");
    Press (Wg::Key::Return);
    EXPECT_EQ (recorder.Take (), "Real:10 Real:0 Real:5 Real:10");
    // Setters store as given and never notify.
    real.SetValue (-50);
    real.SetMin (std::numeric_limits<double>::quiet_NaN ());
    EXPECT_EQ (real.GetMin (), 10);
    EXPECT_EQ (RealState (), "-50.00|-50");
    EXPECT_EQ (recorder.Take (), "");
}

TEST_F (NumberEditTest, ReloadingTheSameValueKeepsWhatTheUserTypes)
{
    // The list re-loads min, max and value after every accepted keystroke.
    recorder.action = [this] {
        real.SetMin (real.GetMin ());
        real.SetMax (real.GetMax ());
        real.SetValue (real.GetValue ());
    };
    real.UserType ("1.50");
    EXPECT_EQ (RealState (), "1.50*|1.5");
    EXPECT_EQ (recorder.Take (), "Real:1 Real:1.5");
    recorder.action = nullptr;
    real.SetValue (8);
    EXPECT_EQ (RealState (), "8.00|8");
}

TEST_F (NumberEditTest, RefreshTextShowsTheValueInNewWorkingUnits)
{
    Wg::RealEdit length (panel, Wg::Rect (0, 60, 100, 80), Wg::RealSubtype::Length);
    length.SetValue (2.5);
    EXPECT_EQ (length.GetText (), "2.500 m");
    Wg::WorkingUnits units = Wg::WorkingUnits::Metric ();
    units.length = Wg::LengthUnit::Millimeter;
    Wg::SetWorkingUnits (units);
    EXPECT_EQ (length.GetText (), "2.500 m");
    length.RefreshText ();
    EXPECT_EQ (length.GetText (), "2500 mm");
    // What the user is typing stays, and is read in the new unit.
    length.UserType ("300");
    length.RefreshText ();
    EXPECT_EQ (length.GetText (), "300");
    length.Commit ();
    EXPECT_EQ (length.GetText (), "300 mm");
    EXPECT_DOUBLE_EQ (length.GetValue (), 0.3);
}

TEST_F (NumberEditTest, IntEditParsesWholeNumbersOnly)
{
    Wg::IntEdit edit (panel, Wg::Rect (0, 60, 100, 80));
    std::string results;
    for (const char* typed : {" 42 ", "+7", "-13", "007", "1e3", "4.0", "", "-", "+ 5", "2147483647", "2147483648", "-2147483648", "99999999999999999999"}) {
        edit.SetValue (1);
        edit.UserSetText (typed);
        edit.Commit ();
        results += std::string (typed) + "=" + edit.GetText ().ToUtf8 () + ";";
    }
    // The default minimum keeps the bounds symmetric, so the smallest 32-bit number is clamped.
    EXPECT_EQ (results, " 42 =42;+7=7;-13=-13;007=7;1e3=1;4.0=1;=1;-=1;+ 5=1;2147483647=2147483647;2147483648=1;"
                        "-2147483648=-2147483647;99999999999999999999=1;");
}

TEST_F (NumberEditTest, PosIntEditRefusesNegativeNumbersAndReportsItsOwnEvent)
{
    Wg::PosIntEdit edit (panel, Wg::Rect (0, 60, 100, 80));
    edit.Attach (recorder);
    EXPECT_EQ (edit.GetMin (), 0);
    edit.SetMin (-5);
    edit.SetMax (-5);
    EXPECT_EQ (edit.GetMin (), 0);
    EXPECT_EQ (edit.GetMax (), 0);
    edit.SetMax (100);
    edit.SetValue (4);
    edit.UserSetText ("-3");
    edit.Commit ();
    EXPECT_EQ (edit.GetText (), "4");
    edit.SetMin (10);
    edit.UserType ("3");
    edit.Commit ();
    EXPECT_EQ (edit.GetText (), "10");
    EXPECT_EQ (recorder.Take (), "PosInt:10");
}

TEST_F (NumberEditTest, PeerHearsValueTextAndBounds)
{
    Wg::IntEdit edit (panel, Wg::Rect (0, 60, 100, 80));
    TestSupport::RecordingPeer peer;
    peer.AttachTo (edit);
    edit.SetValue (5);
    edit.SetMin (1);
    edit.SetValue (5);
    edit.SetMin (1);
    EXPECT_EQ (peer.TakeLog (), "Value Text Bounds");
    edit.UserType ("7");
    edit.Commit ();
    EXPECT_EQ (peer.TakeLog (), "Text Value");
}

TEST_F (NumberEditTest, DisabledEditIgnoresTheUser)
{
    real.Disable ();
    real.UserType ("5");
    real.UserSetText ("6");
    EXPECT_EQ (RealState (), "0.00|0");
    EXPECT_EQ (recorder.Take (), "");
}

TEST_F (NumberEditTest, ObserverMayDestroyTheEditWhenTheFocusLeaves)
{
    auto doomed = std::make_unique<Wg::IntEdit> (panel, Wg::Rect (0, 60, 100, 80));
    doomed->Attach (recorder);
    doomed->SetAutoUpdate (false);
    doomed->SetFocus ();
    doomed->UserType ("12");
    recorder.action = [&] { doomed.reset (); };
    other.SetFocus ();
    EXPECT_EQ (doomed, nullptr);
    EXPECT_TRUE (other.IsFocused ());
    EXPECT_EQ (recorder.Take (), "-focus +focus Int:12");
}

}   // namespace
