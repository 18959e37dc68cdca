#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "Kor/Assert.hpp"
#include "Wg/ModalRunner.hpp"

namespace {

// Logs every call as "<name>:<op><entry>" and ends on Choose, Cancel and Accept (unless told to
// refuse the cancel). A step hook lets a test open a nested session from inside a step.
class LoggingSession : public Wg::ModalSession {
public:
    LoggingSession (std::string name, std::string& log) : name (std::move (name)), log (log) {}

    Kind      GetKind () const override { return Kind::Menu; }
    Wg::Item* GetAnchor () const override { return nullptr; }
    void      Begin () override { Write ("begin"); }
    bool      Perform (const Wg::ModalStep& step) override
    {
        static const char* const names[] = {"track", "choose", "cancel", "tick", "type", "search", "expand", "accept"};
        Write (names[step.op] + (step.entry != 0 ? std::to_string (step.entry) : std::string ()));
        if (onStep) onStep (step);
        const bool ends = step.op == Wg::ModalStep::Choose || step.op == Wg::ModalStep::Accept || (step.op == Wg::ModalStep::Cancel && !refuseCancel);
        if (ends) MarkEnded ();
        return HasEnded ();
    }

    std::function<void (const Wg::ModalStep&)> onStep;
    bool                                      refuseCancel = false;

private:
    void Write (const std::string& what)
    {
        if (!log.empty ()) log += ' ';
        log += name + ":" + what;
    }

    std::string  name;
    std::string& log;
};

// A runner that gives up at once, as a broken backend might.
class ReturningRunner : public Wg::ModalRunner {
public:
    void Run (Wg::ModalSession& session) override
    {
        ++runs;
        session.Begin ();
    }
    int runs = 0;
};

class ModalRunnerTest : public ::testing::Test {
protected:
    void SetUp () override { Wg::GetHeadlessModalRunner ().ClearScript (); }
    void TearDown () override
    {
        Wg::SetModalRunner (nullptr);
        Wg::GetHeadlessModalRunner ().ClearScript ();
    }

    Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
    std::string              log;
};

TEST_F (ModalRunnerTest, ScriptIsConsumedAcrossSessions)
{
    const int runsBefore = runner.GetRunCount ();
    runner.QueueTrack (3);
    runner.QueueChoose (5);
    runner.QueueTrack (1);
    runner.Queue (Wg::ModalStep::MakeTick (2, true));
    runner.QueueCancel ();
    runner.QueueTrack (4);

    LoggingSession a ("a", log), b ("b", log);
    Wg::RunModal (a);
    EXPECT_EQ (runner.GetPendingStepCount (), 4u);
    Wg::RunModal (b);
    EXPECT_EQ (log, "a:begin a:track3 a:choose5 b:begin b:track1 b:tick2 b:cancel");
    // What the second session left stays for the next one.
    EXPECT_EQ (runner.GetPendingStepCount (), 1u);
    EXPECT_EQ (runner.GetRunCount (), runsBefore + 2);
}

TEST_F (ModalRunnerTest, DryScriptCancels)
{
    runner.QueueTrack (2);
    LoggingSession session ("s", log);
    Wg::RunModal (session);
    EXPECT_EQ (log, "s:begin s:track2 s:cancel");
    EXPECT_TRUE (session.HasEnded ());
}

TEST_F (ModalRunnerTest, NestedSessionTakesTheFollowingSteps)
{
    runner.QueueTrack (2);
    runner.QueueTrack (7);
    runner.QueueChoose (1);
    runner.QueueChoose (4);
    LoggingSession outer ("a", log), inner ("b", log);
    outer.onStep = [&] (const Wg::ModalStep& step) {
        if (step.op == Wg::ModalStep::Track && step.entry == 2) Wg::RunModal (inner);
    };
    Wg::RunModal (outer);
    EXPECT_EQ (log, "a:begin a:track2 b:begin b:track7 b:choose1 a:choose4");
    EXPECT_EQ (runner.GetPendingStepCount (), 0u);
}

TEST_F (ModalRunnerTest, NestedSessionOnDryScriptCancelsBoth)
{
    runner.QueueTrack (2);
    LoggingSession outer ("a", log), inner ("b", log);
    outer.onStep = [&] (const Wg::ModalStep& step) {
        if (step.op == Wg::ModalStep::Track) Wg::RunModal (inner);
    };
    Wg::RunModal (outer);
    EXPECT_EQ (log, "a:begin a:track2 b:begin b:cancel a:cancel");
}

TEST_F (ModalRunnerTest, RunModalCancelsWhatARunnerLeftOpen)
{
    ReturningRunner returning;
    EXPECT_EQ (Wg::SetModalRunner (&returning), &runner);
    EXPECT_EQ (&Wg::GetModalRunner (), &returning);
    LoggingSession session ("s", log);
    Wg::RunModal (session);
    EXPECT_EQ (log, "s:begin s:cancel");
    EXPECT_EQ (returning.runs, 1);

    // Null restores the headless runner and hands back the one it replaces.
    EXPECT_EQ (Wg::SetModalRunner (nullptr), &returning);
    EXPECT_EQ (&Wg::GetModalRunner (), &runner);
}

TEST_F (ModalRunnerTest, SessionThatRefusesToEndIsReportedNotAwaited)
{
    Kor::ScopedAssertCapture capture;
    runner.QueueTrack (1);
    LoggingSession session ("s", log);
    session.refuseCancel = true;
    Wg::RunModal (session);
    EXPECT_EQ (log, "s:begin s:track1 s:cancel s:cancel");
    EXPECT_FALSE (session.HasEnded ());
    ASSERT_EQ (capture.GetCount (), 1u);
    EXPECT_EQ (capture.GetReports ()[0].file, "ModalRunner");
}

}   // namespace
