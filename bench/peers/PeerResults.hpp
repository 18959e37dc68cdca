#pragma once
// The peer runs read back: per peer, size and workload the figures of every run (or why the peer
// cannot do the workload), with medians, minima and maxima.

#include <cstddef>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace Peers {

struct Workload {
    const char* key;
    const char* title;
    const char* unit;
};

// The order of the report and of the chart.
inline const std::vector<Workload>& Workloads ()
{
    static const std::vector<Workload> workloads = {
        {"populate", "Populate in a batch", "ns per row"},
        {"repopulate", "Populate again after clearing", "ns per row"},
        {"memory", "Memory", "bytes per row"},
        {"faults", "Fresh pages during populate", "page faults per row"},
        {"change", "Program sets one value, shown", "µs"},
        {"edit", "User edit to observer", "µs"},
        {"refresh", "Full refresh", "ms"},
        {"paint", "Paint one screen", "ms"},
        {"collapse", "Collapse and expand all groups", "ms"},
    };
    return workloads;
}

struct PeerInfo {
    const char* key;
    const char* title;
};

inline const std::vector<PeerInfo>& PeerInfos ()
{
    static const std::vector<PeerInfo> peers = {
        {"ours", "ours (headless)"},
        {"ours-qt", "ours (Qt)"},
        {"qtreewidget", "QTreeWidget"},
        {"wxpropertygrid", "wxPropertyGrid"},
    };
    return peers;
}

struct Figure {
    std::vector<double> values;
    std::string         notApplicable;   // why the peer cannot do the workload
    double Median () const;
    double Min () const;
    double Max () const;
    bool   HasValues () const { return !values.empty (); }
};

class Results {
public:
    // Lines "peer<TAB>size<TAB>run<TAB>workload<TAB>value[<TAB>reason]"; false when unreadable.
    bool Read (const std::string& fileName);
    const Figure* Find (const std::string& peer, int size, const std::string& workload) const;
    const std::vector<int>& GetSizes () const { return sizes; }
    bool HasPeer (const std::string& peer) const;
    // The most runs any figure has.
    std::size_t GetRunCount () const;

private:
    std::map<std::string, Figure> figures;   // "peer size workload"
    std::vector<int>              sizes;
};

// The report: how it was measured, the machine, the ratios against the targets, then a table per
// workload with "median (min–max)" per peer and size, and why a peer cannot do a workload.
void WriteMarkdown (const Results& results, const std::string& machine, std::ostream& out);

}   // namespace Peers
