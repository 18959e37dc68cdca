#include "Wg/ModalRunner.hpp"

#include "Kor/Assert.hpp"

// Flow of a modal session:
//   control.ShowAndTrackPopup ()
//     RunModal (session)
//       GetModalRunner ().Run (session)      headless: ScriptedModalRunner, or a backend's runner
//         session.Begin ()
//         session.Perform (step) ...         until the session ends; a dry script cancels
//       session.Perform (Cancel)             only when the runner returned before the end
//
// A step may open another session; its Run takes the steps that follow in the same script.

namespace Wg {

namespace {

constexpr const char* AssertPrefix = "Wg error";
constexpr const char* AssertFile = "ModalRunner";

ModalRunner* installedRunner = nullptr;

// Performs a step and answers whether the session has ended, by its word or by its state.
bool PerformStep (ModalSession& session, const ModalStep& step)
{
    const bool ended = session.Perform (step);
    return ended || session.HasEnded ();
}

}   // namespace

void ScriptedModalRunner::Run (ModalSession& session)
{
    ++runCount;
    session.Begin ();
    // Each pass consumes a step, and a dry script ends the loop: a runner never waits.
    while (!session.HasEnded ()) {
        if (script.empty ()) {
            PerformStep (session, ModalStep::MakeCancel ());
            return;
        }
        // Taken off the queue before it is performed, so that a session opened by this step
        // reads the steps after it.
        const ModalStep step = script.front ();
        script.pop_front ();
        if (PerformStep (session, step)) return;
    }
}

ScriptedModalRunner& GetHeadlessModalRunner ()
{
    static ScriptedModalRunner headless;
    return headless;
}

ModalRunner& GetModalRunner ()
{
    return installedRunner != nullptr ? *installedRunner : GetHeadlessModalRunner ();
}

ModalRunner* SetModalRunner (ModalRunner* runner)
{
    ModalRunner* previous = &GetModalRunner ();
    installedRunner = runner;
    return previous;
}

void RunModal (ModalSession& session)
{
    GetModalRunner ().Run (session);
    if (session.HasEnded ()) return;
    PerformStep (session, ModalStep::MakeCancel ());
    // A session that refuses to be cancelled is a bug of that session; the caller goes on.
    KOR_CHECK (AssertPrefix, AssertFile, session.HasEnded ());
}

}   // namespace Wg
