// The peer runs read back, and the report written from them: figures, ratios, targets.

#include "PeerResults.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <sstream>

#include "PeerWorkload.hpp"

namespace Peers {

double Figure::Median () const
{
    std::vector<double> sorted = values;
    std::sort (sorted.begin (), sorted.end ());
    const std::size_t n = sorted.size ();
    return n % 2 == 1 ? sorted[n / 2] : (sorted[n / 2 - 1] + sorted[n / 2]) / 2.0;
}

double Figure::Min () const { return *std::min_element (values.begin (), values.end ()); }
double Figure::Max () const { return *std::max_element (values.begin (), values.end ()); }

bool Results::Read (const std::string& fileName)
{
    std::ifstream in (fileName);
    if (!in) return false;
    for (std::string line; std::getline (in, line);) {
        std::vector<std::string> fields;
        std::istringstream parts (line);
        for (std::string field; std::getline (parts, field, '\t');) fields.push_back (field);
        if (fields.size () < 5) continue;
        const int size = std::atoi (fields[1].c_str ());
        Figure& figure = figures[fields[0] + " " + std::to_string (size) + " " + fields[3]];
        if (fields[4] == "n/a")
            figure.notApplicable = fields.size () > 5 ? fields[5] : "not possible";
        else
            figure.values.push_back (std::atof (fields[4].c_str ()));
        if (std::find (sizes.begin (), sizes.end (), size) == sizes.end ()) sizes.push_back (size);
    }
    std::sort (sizes.begin (), sizes.end ());
    return !figures.empty ();
}

const Figure* Results::Find (const std::string& peer, int size, const std::string& workload) const
{
    const auto found = figures.find (peer + " " + std::to_string (size) + " " + workload);
    return found != figures.end () ? &found->second : nullptr;
}

std::size_t Results::GetRunCount () const
{
    std::size_t runs = 0;
    for (const auto& [key, figure] : figures) runs = std::max (runs, figure.values.size ());
    return runs;
}

bool Results::HasPeer (const std::string& peer) const
{
    return std::any_of (sizes.begin (), sizes.end (), [&] (int size) { return Find (peer, size, "populate") != nullptr; });
}

namespace {

std::string Number (double value)
{
    std::ostringstream out;
    const int decimals = value >= 100 ? 0 : value >= 10 ? 1 : value >= 1 ? 2 : 3;
    out << std::fixed << std::setprecision (decimals) << value;
    return out.str ();
}

std::string Cell (const Figure* figure)
{
    if (figure == nullptr) return "—";
    if (!figure->HasValues ()) return "n/a";
    return Number (figure->Median ()) + " (" + Number (figure->Min ()) + "–" + Number (figure->Max ()) + ")";
}

// How many times `ours` is better than `other` (both lower-is-better figures), or NaN.
double Advantage (const Results& results, const char* ours, const char* other, int size, const char* workload)
{
    const Figure* a = results.Find (ours, size, workload);
    const Figure* b = results.Find (other, size, workload);
    if (a == nullptr || b == nullptr || !a->HasValues () || !b->HasValues () || a->Median () <= 0) return std::nan ("");
    return b->Median () / a->Median ();
}

struct Target {
    const char* workload;
    const char* other;
    double      minAdvantage;   // ours must be at least this many times better
    const char* text;
    bool        largestSizeOnly;
    bool        paintedOnly;    // judged on the Qt backend only: the headless model paints nothing
};

const std::vector<Target>& Targets ()
{
    static const std::vector<Target> targets = {
        {"populate", "wxpropertygrid", 10.0, "populate ≥ 10× faster per row than wxPropertyGrid", false, false},
        {"populate", "qtreewidget", 1.0, "populate not slower than QTreeWidget", false, false},
        {"memory", "wxpropertygrid", 1.0 / 0.4, "memory per row ≤ 0.4× wxPropertyGrid's", false, false},
        {"change", "wxpropertygrid", 30.0, "one-value change ≥ 30× faster than wxPropertyGrid", true, false},
        {"paint", "qtreewidget", 1.0, "one screen painted not slower than QTreeWidget", false, true},
    };
    return targets;
}

}   // namespace

void WriteMarkdown (const Results& results, const std::string& machine, std::ostream& out)
{
    out << "# Peer benchmarks\n\n";
    out << "Medians of " << results.GetRunCount () << " runs per figure, each run a fresh process; "
        << "\"median (min–max)\" over the runs. Properties in groups of " << PropertiesPerGroup
        << ", kinds round-robin (text, int with bounds, real with bounds, check, choice of " << ChoiceCount << ").\n\n"
        << "Whole-list workloads (populate, refresh, paint, collapse) are the CPU time of the peer's process, user and "
           "system, so that other work on a shared machine does not inflate them; drawing that the X server does for the "
           "wx peer is not in its figures. The single-value workloads (change, edit) are wall-clock medians of "
        << SmallRepeats << " repetitions within each run.\n\n";
    out << "## Machine and versions\n\n```\n" << machine << "```\n\n";
    out << "## Targets\n\nRatio: the peer's median divided by ours (how many times ours is better); the target is met "
           "when the ratio reaches the required one.\n\n| target | ours | size | ratio | required | met |\n|---|---|---|---|---|---|\n";
    for (const Target& target : Targets ()) {
        if (!results.HasPeer (target.other)) {
            out << "| " << target.text << " | — | — | " << target.other << " not run | — | — |\n";
            continue;
        }
        for (const char* ours : {"ours", "ours-qt"}) {
            if (target.paintedOnly && std::string (ours) == "ours") continue;
            for (int size : results.GetSizes ()) {
                if (target.largestSizeOnly && size != results.GetSizes ().back ()) continue;
                const double ratio = Advantage (results, ours, target.other, size, target.workload);
                out << "| " << target.text << " | " << (std::string (ours) == "ours" ? "headless" : "Qt") << " | " << size << " | "
                    << (std::isnan (ratio) ? "—" : Number (ratio) + "×") << " | " << Number (target.minAdvantage) << "× | "
                    << (std::isnan (ratio) ? "—" : ratio >= target.minAdvantage ? "yes" : "**no**") << " |\n";
            }
        }
    }
    out << "\n";
    for (const Workload& workload : Workloads ()) {
        out << "## " << workload.title << " (" << workload.unit << ")\n\n| peer |";
        for (int size : results.GetSizes ()) out << " " << size << " rows |";
        out << "\n|---|";
        for (std::size_t i = 0; i < results.GetSizes ().size (); ++i) out << "---|";
        out << "\n";
        std::vector<std::string> reasons;
        for (const PeerInfo& peer : PeerInfos ()) {
            if (!results.HasPeer (peer.key)) continue;
            out << "| " << peer.title << " |";
            for (int size : results.GetSizes ()) {
                const Figure* figure = results.Find (peer.key, size, workload.key);
                out << " " << Cell (figure) << " |";
                if (figure != nullptr && !figure->HasValues () && reasons.size () < PeerInfos ().size ()) {
                    const std::string reason = std::string (peer.title) + ": " + figure->notApplicable;
                    if (std::find (reasons.begin (), reasons.end (), reason) == reasons.end ()) reasons.push_back (reason);
                }
            }
            out << "\n";
        }
        for (const std::string& reason : reasons) out << "\nn/a — " << reason << ".\n";
        out << "\n";
    }
}

}   // namespace Peers
