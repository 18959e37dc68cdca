#pragma once
// Shared helpers of the benchmarks: heap in use, and per-unit time counters that read in
// nanoseconds or microseconds straight from the JSON output.

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <chrono>
#include <cstddef>
#include <string>

namespace Bench {

inline std::size_t HeapInUse ()
{
    const struct mallinfo2 info = mallinfo2 ();
    return info.uordblks + info.hblkhd;
}

// Times the body of each iteration; SetCounter divides the total by iterations × units.
class UnitTimer {
public:
    template <typename Fn>
    void Time (Fn&& fn)
    {
        const auto start = std::chrono::steady_clock::now ();
        fn ();
        total += std::chrono::steady_clock::now () - start;
    }

    // scale: 1 for nanoseconds, 1e-3 for microseconds.
    void SetCounter (benchmark::State& state, const std::string& name, double unitsPerIteration, double scale = 1.0) const
    {
        const double iterations = static_cast<double> (state.iterations ());
        if (iterations == 0 || unitsPerIteration == 0) return;
        const double nanoseconds = std::chrono::duration<double, std::nano> (total).count ();
        state.counters[name] = nanoseconds * scale / (iterations * unitsPerIteration);
    }

private:
    std::chrono::steady_clock::duration total {};
};

}   // namespace Bench
