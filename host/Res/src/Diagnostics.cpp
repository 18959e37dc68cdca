#include "Res/Diagnostics.hpp"

#include <cstdlib>
#include <iostream>

namespace Res {

namespace {

constexpr const char* ReportMissesVariable = "TXAL_RES_REPORT_MISSES";

bool DefaultHandlerPrints ()
{
    static const bool prints = [] {
        const char* value = std::getenv (ReportMissesVariable);
        return value != nullptr && *value != '\0' && std::string (value) != "0";
    } ();
    return prints;
}

MissHandler& InstalledHandler ()
{
    static MissHandler handler;
    return handler;
}

}   // namespace

std::string MissReport::ToString () const
{
    return "missing string " + std::to_string (resId) + "/" + std::to_string (index) + " in module " +
           std::to_string (module) + ", asked at " + sourceFile + ":" + std::to_string (line);
}

MissHandler SetMissHandler (MissHandler handler)
{
    MissHandler previous = std::move (InstalledHandler ());
    InstalledHandler () = std::move (handler);
    return previous;
}

void ReportMiss (const MissReport& report)
{
    const MissHandler& handler = InstalledHandler ();
    if (handler)
        handler (report);
    else if (DefaultHandlerPrints ())
        std::cerr << "Res: " << report.ToString () << std::endl;
}

ScopedMissCapture::ScopedMissCapture ()
{
    previous = SetMissHandler ([this] (const MissReport& report) { reports.push_back (report); });
}

ScopedMissCapture::~ScopedMissCapture ()
{
    SetMissHandler (std::move (previous));
}

}   // namespace Res
