#pragma once
// The assertion facility. A failed precondition is reported, never fatal: the report goes to
// the installed handler (standard error by default) and the caller returns without effect.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace Kor {

struct AssertReport {
    std::string prefix;     // who reports, e.g. "TxAL error"
    std::string file;       // source file tag, e.g. "AttributeList"
    int         line = 0;
    std::string condition;  // the failed condition as written, may be empty
    std::string function;   // may be empty

    // "<prefix> assertion failed at <file>:<line>" followed by the condition and function when known.
    std::string ToString () const;
};

using AssertHandler = std::function<void (const AssertReport&)>;

// Installs a handler and returns the previous one. An empty handler restores the default.
AssertHandler SetAssertHandler (AssertHandler handler);

// Reports a failed assertion through the installed handler.
void ReportAssertFailure (const char* prefix, const char* file, int line, const char* condition, const char* function = nullptr);

// Captures every report for as long as it lives; the previous handler returns afterwards.
class ScopedAssertCapture {
public:
    ScopedAssertCapture ();
    ~ScopedAssertCapture ();
    ScopedAssertCapture (const ScopedAssertCapture&) = delete;
    ScopedAssertCapture& operator= (const ScopedAssertCapture&) = delete;

    const std::vector<AssertReport>& GetReports () const { return reports; }
    std::size_t                      GetCount () const { return reports.size (); }
    void                             Clear () { reports.clear (); }

private:
    std::vector<AssertReport> reports;
    AssertHandler             previous;
};

// Writes the decimal text of value into buffer (always terminated). Returns false when the
// buffer is too small; the buffer then holds an empty string.
bool valuetostr (std::int64_t value, char* buffer, std::size_t bufferSize);

}   // namespace Kor

// Checks cond; on failure reports "<prefix> assertion failed at <file>:<line>" and evaluates to false.
#define KOR_CHECK(prefix, fileTag, cond) \
    ((cond) ? true : (::Kor::ReportAssertFailure ((prefix), (fileTag), __LINE__, #cond), false))
