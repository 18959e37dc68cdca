#pragma once
// What every peer program shares: the workload's shape (properties in groups, kinds round-robin,
// bounds and choices), the command line, timing, the heap figure and the output format.
//
// Output, one line per workload on stdout:
//   populate<TAB>123.4            (the unit is fixed per workload, see the report tool)
//   faults<TAB>0.21               (pages the kernel handed out during populate, per row)
//   edit<TAB>n/a<TAB>why not
// A program that finds its work undone (a count, a value or a paint event missing) prints
// "error<TAB>what" and exits with FailureExitCode.

#include <malloc.h>
#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace Peers {

constexpr int DefaultRows = 1000;
constexpr int PropertiesPerGroup = 20;
constexpr int ChoiceCount = 5;
constexpr int IntMin = 0;
constexpr int IntMax = 1000;
constexpr double RealMin = 0.0;
constexpr double RealMax = 1000.0;
constexpr int FailureExitCode = 2;
// Short operations are timed this many times and the median is kept.
constexpr int SmallRepeats = 101;
// Long operations (rebuilding or painting the list) are timed this many times.
constexpr int LargeRepeats = 5;

enum class Kind { Text, Int, Real, Check, Choice };
constexpr int KindCount = 5;

inline Kind KindOf (int property) { return static_cast<Kind> (property % KindCount); }
inline const char* ChoiceName (int index)
{
    static const char* const names[ChoiceCount] = {"Concrete", "Brick", "Timber", "Steel", "Glass"};
    return names[index % ChoiceCount];
}
inline std::string PropertyName (int property) { return "Property " + std::to_string (property + 1); }
inline std::string GroupName (int group) { return "Group " + std::to_string (group + 1); }
inline int GroupCount (int rows) { return (rows + PropertiesPerGroup - 1) / PropertiesPerGroup; }
// The property whose value the change and edit workloads touch: one of the given kind near the
// middle of the list.
inline int MiddleProperty (int rows, Kind kind)
{
    int property = rows / 2;
    while (KindOf (property) != kind) ++property;
    return std::min (property, rows - 1);
}

inline int ParseRows (int argc, char** argv)
{
    for (int i = 1; i + 1 < argc; ++i)
        if (std::strcmp (argv[i], "--rows") == 0) return std::max (PropertiesPerGroup, std::atoi (argv[i + 1]));
    return DefaultRows;
}

inline bool HasFlag (int argc, char** argv, const char* flag)
{
    for (int i = 1; i < argc; ++i)
        if (std::strcmp (argv[i], flag) == 0) return true;
    return false;
}

inline std::size_t HeapInUse ()
{
    const struct mallinfo2 info = mallinfo2 ();
    return info.uordblks + info.hblkhd;
}

// Pages the kernel handed to the process so far (minor faults): new memory costs one each 4 KiB.
inline long MinorFaults ()
{
    struct rusage usage {};
    getrusage (RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

// Wall-clock time: for the short single-value workloads, whose medians of many repetitions
// other work on the machine rarely reaches.
template <typename Fn>
double Microseconds (Fn&& fn)
{
    const auto start = std::chrono::steady_clock::now ();
    fn ();
    return std::chrono::duration<double, std::micro> (std::chrono::steady_clock::now () - start).count ();
}

inline double ProcessCpuMicroseconds ()
{
    timespec now {};
    clock_gettime (CLOCK_PROCESS_CPUTIME_ID, &now);
    constexpr double MicrosecondsPerSecond = 1e6;
    constexpr double NanosecondsPerMicrosecond = 1e3;
    return static_cast<double> (now.tv_sec) * MicrosecondsPerSecond + static_cast<double> (now.tv_nsec) / NanosecondsPerMicrosecond;
}

// CPU time of the whole process (user and system, every thread): for the whole-list workloads,
// which last long enough that on a shared machine wall-clock time mostly measures the others.
// Work done in another process (an X server drawing for its client) is not counted.
template <typename Fn>
double CpuMicroseconds (Fn&& fn)
{
    const double start = ProcessCpuMicroseconds ();
    fn ();
    return ProcessCpuMicroseconds () - start;
}

template <typename Fn>
double MedianCpuMicroseconds (int repeats, Fn&& fn)
{
    std::vector<double> times;
    times.reserve (static_cast<std::size_t> (repeats));
    for (int i = 0; i < repeats; ++i) times.push_back (CpuMicroseconds (fn));
    std::nth_element (times.begin (), times.begin () + repeats / 2, times.end ());
    return times[static_cast<std::size_t> (repeats / 2)];
}

// The median of `repeats` timings of fn, in microseconds.
template <typename Fn>
double MedianMicroseconds (int repeats, Fn&& fn)
{
    std::vector<double> times;
    times.reserve (static_cast<std::size_t> (repeats));
    for (int i = 0; i < repeats; ++i) times.push_back (Microseconds (fn));
    std::nth_element (times.begin (), times.begin () + repeats / 2, times.end ());
    return times[static_cast<std::size_t> (repeats / 2)];
}

// The median of `repeats` timings of timed, each after an untimed setup, in microseconds.
template <typename Setup, typename Timed>
double MedianMicroseconds (int repeats, Setup&& setup, Timed&& timed)
{
    std::vector<double> times;
    times.reserve (static_cast<std::size_t> (repeats));
    for (int i = 0; i < repeats; ++i) {
        setup ();
        times.push_back (Microseconds (timed));
    }
    std::nth_element (times.begin (), times.begin () + repeats / 2, times.end ());
    return times[static_cast<std::size_t> (repeats / 2)];
}

inline void Print (const char* workload, double value) { std::printf ("%s\t%.6g\n", workload, value); }
inline void NotApplicable (const char* workload, const char* why) { std::printf ("%s\tn/a\t%s\n", workload, why); }
[[noreturn]] inline void Fail (const std::string& what)
{
    std::printf ("error\t%s\n", what.c_str ());
    std::fflush (stdout);
    std::_Exit (FailureExitCode);
}
inline void Check (bool condition, const std::string& what)
{
    if (!condition) Fail (what);
}

}   // namespace Peers
