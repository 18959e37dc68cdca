#include "Kor/Assert.hpp"

#include <cstdio>
#include <cstring>
#include <iostream>

namespace Kor {

namespace {

AssertHandler& InstalledHandler ()
{
    static AssertHandler handler;
    return handler;
}

}   // namespace

std::string AssertReport::ToString () const
{
    std::string text = prefix + " assertion failed at " + file + ":" + std::to_string (line);
    if (!condition.empty ()) text += " (" + condition + ")";
    if (!function.empty ()) text += " in " + function;
    return text;
}

AssertHandler SetAssertHandler (AssertHandler handler)
{
    AssertHandler previous = std::move (InstalledHandler ());
    InstalledHandler () = std::move (handler);
    return previous;
}

void ReportAssertFailure (const char* prefix, const char* file, int line, const char* condition, const char* function)
{
    AssertReport report;
    report.prefix = prefix != nullptr ? prefix : "";
    report.file = file != nullptr ? file : "";
    report.line = line;
    report.condition = condition != nullptr ? condition : "";
    report.function = function != nullptr ? function : "";
    const AssertHandler& handler = InstalledHandler ();
    if (handler) {
        handler (report);
    } else {
        std::cerr << report.ToString () << std::endl;
    }
}

ScopedAssertCapture::ScopedAssertCapture ()
{
    previous = SetAssertHandler ([this] (const AssertReport& report) { reports.push_back (report); });
}

ScopedAssertCapture::~ScopedAssertCapture ()
{
    SetAssertHandler (std::move (previous));
}

bool valuetostr (std::int64_t value, char* buffer, std::size_t bufferSize)
{
    if (buffer == nullptr || bufferSize == 0) return false;
    const int written = std::snprintf (buffer, bufferSize, "%lld", static_cast<long long> (value));
    if (written < 0 || static_cast<std::size_t> (written) >= bufferSize) {
        buffer[0] = '\0';
        return false;
    }
    return true;
}

}   // namespace Kor
