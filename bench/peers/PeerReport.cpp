// txal-peer-report RAW MACHINE OUTDIR: reads the peer runs and writes OUTDIR/report.md (figures,
// ratios against the targets, machine and versions) and OUTDIR/report.png (the chart).

#include <QGuiApplication>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "PeerChart.hpp"
#include "PeerResults.hpp"

using namespace Peers;

int main (int argc, char** argv)
{
    if (argc != 4) {
        std::fprintf (stderr, "usage: txal-peer-report RAW MACHINE OUTDIR\n");
        return 1;
    }
    qputenv ("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application (argc, argv);
    Results results;
    if (!results.Read (argv[1])) {
        std::fprintf (stderr, "txal-peer-report: no figures in %s\n", argv[1]);
        return 1;
    }
    std::ifstream machineIn (argv[2]);
    const std::string machine ((std::istreambuf_iterator<char> (machineIn)), std::istreambuf_iterator<char> ());
    const std::string outDir = argv[3];
    std::ofstream markdown (outDir + "/report.md");
    WriteMarkdown (results, machine, markdown);
    markdown << "![chart](report.png)\n";
    if (!SaveChart (results, outDir + "/report.png")) {
        std::fprintf (stderr, "txal-peer-report: cannot write the chart\n");
        return 1;
    }
    std::printf ("%s/report.md\n%s/report.png\n", outDir.c_str (), outDir.c_str ());
    return 0;
}
