#pragma once
// Diagnostics of missing resources. Every indexed-string lookup that finds nothing is reported
// to the installed miss handler with the caller's source tag and line tag, so that a forgotten
// string can be traced to the code that asked for it.
//
// The default handler is silent, so that lookups that are allowed to miss do not clutter the
// output of tests and applications. Set the environment variable TXAL_RES_REPORT_MISSES to a
// non-empty value other than "0" to have the default handler print each miss to standard error.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace Res {

struct MissReport {
    std::string  sourceFile;    // the caller's source tag, e.g. "TxAttributeListResIds"
    int          line = 0;      // the caller's line tag
    std::int64_t module = 0;    // the module handle asked
    int          resId = 0;
    int          index = 0;

    // "missing string <resId>/<index> in module <module>, asked at <sourceFile>:<line>"
    std::string ToString () const;
};

using MissHandler = std::function<void (const MissReport&)>;

// Installs a handler and returns the previous one. An empty handler restores the default.
MissHandler SetMissHandler (MissHandler handler);

// Hands a report to the installed handler.
void ReportMiss (const MissReport& report);

// Captures every miss for as long as it lives; the previous handler returns afterwards.
class ScopedMissCapture {
public:
    ScopedMissCapture ();
    ~ScopedMissCapture ();
    ScopedMissCapture (const ScopedMissCapture&) = delete;
    ScopedMissCapture& operator= (const ScopedMissCapture&) = delete;

    const std::vector<MissReport>& GetReports () const { return reports; }
    void                           Clear () { reports.clear (); }

private:
    std::vector<MissReport> reports;
    MissHandler             previous;
};

}   // namespace Res
