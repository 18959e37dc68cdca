// The randomized user-input fuzzer of the attribute list.
//
//   txal-fuzz [--seeds N] [--first-seed S] [--steps M] [--off SWITCH,...] [--only I,J,...] [--no-fork]
//
// Each seed plays M steps in a child process, so that a sanitizer report ends only that child.
// A failing seed is shrunk by replaying its steps with some removed (delta debugging); the
// shortest failing sequence is printed with the command line that replays it.

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "FuzzActions.hpp"

namespace {

using namespace TxALFuzz;

constexpr int  DefaultSeeds = 4;
constexpr int  DefaultSteps = 2000;
constexpr int  InvariantExit = 3;
constexpr int  MaxShrinkReplays = 400;
constexpr std::size_t MessageSize = 1024;

struct Options {
    std::uint64_t       firstSeed = 1;
    int                 seeds = DefaultSeeds;
    int                 steps = DefaultSteps;
    std::vector<Switch> off;
    std::vector<int>    only;      // replay just these step indices
    bool                fork = true;
};

const std::pair<const char*, Switch> switchNames[] = {
    {"throwing", Switch::Throwing},           {"destroying", Switch::Destroying},
    {"misuse", Switch::Misuse},               {"disabled-typing", Switch::DisabledTyping},
    {"hidden-selection", Switch::HiddenSelection}, {"typing-focus", Switch::TypingFocus},
    {"typed-read-back", Switch::TypedReadBack},
};

std::vector<int> ParseList (const char* text)
{
    std::vector<int> values;
    std::stringstream in (text);
    std::string       part;
    while (std::getline (in, part, ','))
        if (!part.empty ()) values.push_back (std::atoi (part.c_str ()));
    return values;
}

bool Parse (int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const char*       value = i + 1 < argc ? argv[i + 1] : nullptr;
        if (arg == "--no-fork") {
            options.fork = false;
            continue;
        }
        if (value == nullptr) return false;
        ++i;
        if (arg == "--seeds") options.seeds = std::atoi (value);
        else if (arg == "--first-seed") options.firstSeed = std::strtoull (value, nullptr, 10);
        else if (arg == "--steps") options.steps = std::atoi (value);
        else if (arg == "--only") options.only = ParseList (value);
        else if (arg == "--off") {
            std::stringstream in (value);
            std::string       name;
            while (std::getline (in, name, ',')) {
                bool known = false;
                for (const auto& [switchName, s] : switchNames)
                    if (name == switchName) {
                        options.off.push_back (s);
                        known = true;
                    }
                if (!known) return false;
            }
        } else
            return false;
    }
    return options.seeds > 0 && options.steps >= 0;
}

// What one replay found: nothing, a broken invariant (with its message) or a crash.
struct Outcome {
    bool        failed = false;
    int         step = -1;
    std::string message;
    RunResult   run;
};

// Shared with the child: where it is, and what broke.
struct SharedReport {
    volatile int progress;
    char         message[MessageSize];
    RunResult    counts;
};

Outcome Replay (std::uint64_t seed, const std::vector<Step>& steps, const Options& options, bool quiet)
{
    Outcome outcome;
    if (!options.fork) {
        outcome.run = Play (seed, steps, options.off, nullptr);
        outcome.failed = outcome.run.failed;
        outcome.step = outcome.run.failedStep;
        outcome.message = outcome.run.message;
        return outcome;
    }
    void* memory = mmap (nullptr, sizeof (SharedReport), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        outcome.failed = true;
        outcome.message = "no shared memory for the child";
        return outcome;
    }
    auto* shared = static_cast<SharedReport*> (memory);
    shared->progress = -1;
    shared->message[0] = '\0';
    std::fflush (stdout);
    std::fflush (stderr);
    const pid_t child = fork ();
    if (child == 0) {
        if (quiet) {
            const int null = open ("/dev/null", O_WRONLY);
            if (null >= 0) dup2 (null, STDERR_FILENO);
        }
        const RunResult result = Play (seed, steps, options.off, &shared->progress);
        std::snprintf (shared->message, MessageSize, "%s", result.message.c_str ());
        shared->counts.exceptions = result.exceptions;
        shared->counts.assertionReports = result.assertionReports;
        shared->progress = result.failedStep;
        // exit, not _exit: the leak check runs at exit.
        std::exit (result.failed ? InvariantExit : 0);
    }
    int status = 0;
    waitpid (child, &status, 0);
    outcome.run.exceptions = shared->counts.exceptions;
    outcome.run.assertionReports = shared->counts.assertionReports;
    outcome.step = shared->progress;
    if (WIFEXITED (status) && WEXITSTATUS (status) == 0) {
        outcome.failed = false;
    } else if (WIFEXITED (status) && WEXITSTATUS (status) == InvariantExit) {
        outcome.failed = true;
        outcome.message = shared->message;
    } else {
        outcome.failed = true;
        outcome.message = WIFSIGNALED (status) ? "crashed with signal " + std::to_string (WTERMSIG (status))
                                               : "ended with exit code " + std::to_string (WEXITSTATUS (status)) + " (sanitizer report)";
    }
    munmap (memory, sizeof (SharedReport));
    return outcome;
}

std::vector<Step> Select (const std::vector<Step>& all, const std::vector<int>& indices)
{
    std::vector<Step> steps;
    for (int index : indices) steps.push_back (all[index]);
    return steps;
}

// What kind of failure a message tells, without names and numbers: a shorter sequence must
// fail the same way to count.
std::string Signature (const std::string& message)
{
    std::string out;
    bool        quoted = false;
    for (char ch : message) {
        if (ch == '\'') quoted = !quoted;
        else if (!quoted && (ch < '0' || ch > '9')) out += ch;
    }
    return out;
}

// Delta debugging over step indices: drops chunks while the replay still fails.
std::vector<int> Shrink (std::uint64_t seed, const std::vector<Step>& all, std::vector<int> indices, const Options& options,
                         const std::string& signature)
{
    int replays = 0;
    // First whole kinds of action go, which often leaves few steps for the finer search.
    for (bool reduced = true; reduced;) {
        reduced = false;
        for (std::size_t kind = 0; kind < ActionKinds ().size (); ++kind) {
            std::vector<int> rest;
            for (int index : indices)
                if (all[index].action != kind) rest.push_back (index);
            if (rest.size () == indices.size () || rest.empty ()) continue;
            ++replays;
            const Outcome outcome = Replay (seed, Select (all, rest), options, true);
            if (outcome.failed && Signature (outcome.message) == signature) {
                if (outcome.step >= 0 && outcome.step + 1 < static_cast<int> (rest.size ())) rest.resize (outcome.step + 1);
                indices = rest;
                reduced = true;
            }
        }
    }
    std::size_t chunks = 2;
    while (indices.size () >= 2 && replays < MaxShrinkReplays) {
        const std::size_t chunkSize = (indices.size () + chunks - 1) / chunks;
        bool              reduced = false;
        for (std::size_t start = 0; start < indices.size () && replays < MaxShrinkReplays; start += chunkSize) {
            std::vector<int> rest (indices.begin (), indices.begin () + start);
            rest.insert (rest.end (), indices.begin () + std::min (indices.size (), start + chunkSize), indices.end ());
            ++replays;
            const Outcome outcome = Replay (seed, Select (all, rest), options, true);
            if (outcome.failed && Signature (outcome.message) == signature) {
                // Steps after the failing one play no part.
                if (outcome.step >= 0 && outcome.step + 1 < static_cast<int> (rest.size ())) rest.resize (outcome.step + 1);
                indices = rest;
                chunks = std::max<std::size_t> (chunks - 1, 2);
                reduced = true;
                break;
            }
        }
        if (!reduced) {
            if (chunks >= indices.size ()) break;
            chunks = std::min (indices.size (), chunks * 2);
        }
    }
    return indices;
}

std::string Join (const std::vector<int>& indices)
{
    std::string out;
    for (int index : indices) out += (out.empty () ? "" : ",") + std::to_string (index);
    return out;
}

std::string OffArgument (const Options& options)
{
    std::string out;
    for (Switch s : options.off)
        for (const auto& [name, known] : switchNames)
            if (s == known) out += (out.empty () ? "" : ",") + std::string (name);
    return out.empty () ? "" : " --off " + out;
}

}   // namespace

int main (int argc, char** argv)
{
    Options options;
    if (!Parse (argc, argv, options)) {
        std::fprintf (stderr,
                      "usage: %s [--seeds N] [--first-seed S] [--steps M] [--off SWITCH,...] [--only I,J,...] [--no-fork]\n"
                      "switches: throwing destroying misuse disabled-typing hidden-selection typing-focus typed-read-back\n",
                      argv[0]);
        return 2;
    }
    const auto    start = std::chrono::steady_clock::now ();
    int           failures = 0;
    std::uint64_t exceptions = 0, reports = 0;
    for (int n = 0; n < options.seeds; ++n) {
        const std::uint64_t     seed = options.firstSeed + static_cast<std::uint64_t> (n);
        const std::vector<Step> all = MakeSteps (seed, options.steps, options.off);
        std::vector<int>        indices = options.only;
        if (indices.empty ())
            for (int i = 0; i < options.steps; ++i) indices.push_back (i);
        std::erase_if (indices, [&] (int i) { return i < 0 || i >= options.steps; });

        const Outcome outcome = Replay (seed, Select (all, indices), options, true);
        exceptions += outcome.run.exceptions;
        reports += outcome.run.assertionReports;
        if (!outcome.failed) continue;
        ++failures;
        std::printf ("seed %llu failed at step %d: %s\n", static_cast<unsigned long long> (seed),
                     outcome.step >= 0 && outcome.step < static_cast<int> (indices.size ()) ? indices[outcome.step] : -1,
                     outcome.message.c_str ());
        if (outcome.step >= 0 && outcome.step + 1 < static_cast<int> (indices.size ())) indices.resize (outcome.step + 1);
        const std::vector<int> shortest = options.fork ? Shrink (seed, all, indices, options, Signature (outcome.message)) : indices;
        std::printf ("shortest sequence (%zu steps):\n", shortest.size ());
        for (int index : shortest) std::printf ("  %d: %s\n", index, Describe (all[index]).c_str ());
        const Outcome again = Replay (seed, Select (all, shortest), options, false);
        std::printf ("  -> %s\n", again.failed ? again.message.c_str () : "(passes alone; the whole run is needed)");
        std::printf ("replay: %s --first-seed %llu --seeds 1 --steps %d%s --only %s\n", argv[0], static_cast<unsigned long long> (seed),
                     options.steps, OffArgument (options).c_str (), Join (shortest).c_str ());
    }
    const double seconds = std::chrono::duration<double> (std::chrono::steady_clock::now () - start).count ();
    std::printf ("%d seeds x %d steps = %lld steps in %.1f s: %d failed; %llu exceptions from observers, %llu assertion reports\n",
                 options.seeds, options.steps, static_cast<long long> (options.seeds) * options.steps, seconds, failures,
                 static_cast<unsigned long long> (exceptions), static_cast<unsigned long long> (reports));
    return failures == 0 ? 0 : 1;
}
