#pragma once
// The fuzzer's actions as a table, and the run of one recorded sequence of them.

#include <cstdint>
#include <string>
#include <vector>

#include "FuzzWorld.hpp"

namespace TxALFuzz {

struct ActionKind {
    const char* name;
    int         weight;    // relative frequency
    Switch      gate;      // the switch that keeps it out of a run
    void (*run) (World& world, Rng& rng);
};

const std::vector<ActionKind>& ActionKinds ();

// One recorded step: which action, and the seed of its own choices, so that a step does the
// same thing whichever steps before it were dropped.
struct Step {
    std::uint16_t action = 0;
    std::uint64_t seed = 0;
};

// The steps a seed plays (actions switched off are never drawn).
std::vector<Step> MakeSteps (std::uint64_t seed, int count, const std::vector<Switch>& off);

struct RunResult {
    bool          failed = false;
    int           failedStep = -1;   // index into the steps
    std::string   message;
    std::uint64_t exceptions = 0;
    std::uint64_t assertionReports = 0;
};

// Plays the steps in a fresh world, checking after each one. progress (may be null) receives
// the index of the step being played, so that a crash still tells where it happened.
RunResult Play (std::uint64_t seed, const std::vector<Step>& steps, const std::vector<Switch>& off, volatile int* progress);

std::string Describe (const Step& step);

}   // namespace TxALFuzz
