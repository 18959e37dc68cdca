// The peer report: figures over runs, and ratios that say how many times ours is better (a ratio
// the wrong way round would turn every target upside down).

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "PeerResults.hpp"

namespace {

class PeerResultsTest : public ::testing::Test {
protected:
    void Write (const std::string& lines)
    {
        std::ofstream out (fileName);
        out << lines;
    }

    std::string Report ()
    {
        std::ostringstream out;
        Peers::WriteMarkdown (results, "machine\n", out);
        return out.str ();
    }

    // The report's line that starts with the given text, or "".
    std::string Line (const std::string& start)
    {
        std::istringstream report (Report ());
        for (std::string line; std::getline (report, line);)
            if (line.rfind (start, 0) == 0) return line;
        return {};
    }

    void TearDown () override { std::remove (fileName.c_str ()); }

    std::string    fileName = ::testing::TempDir () + "peer-results.tsv";
    Peers::Results results;
};

TEST_F (PeerResultsTest, FiguresAreMediansWithTheirRangeOverRuns)
{
    Write ("ours\t1000\t1\tpopulate\t30\n"
           "ours\t1000\t2\tpopulate\t10\n"
           "ours\t1000\t3\tpopulate\t20\n"
           "ours\t1000\t4\tpopulate\t100\n"
           "ours\t10000\t1\tpaint\tn/a\tpaints nothing\n"
           "broken line\n");
    ASSERT_TRUE (results.Read (fileName));
    const Peers::Figure* populate = results.Find ("ours", 1000, "populate");
    ASSERT_NE (populate, nullptr);
    // Four runs: the mean of the middle two.
    EXPECT_EQ (std::to_string (populate->Median ()) + " " + std::to_string (populate->Min ()) + " " + std::to_string (populate->Max ()),
               "25.000000 10.000000 100.000000");
    const Peers::Figure* paint = results.Find ("ours", 10000, "paint");
    ASSERT_NE (paint, nullptr);
    EXPECT_FALSE (paint->HasValues ());
    EXPECT_EQ (paint->notApplicable, "paints nothing");
    EXPECT_EQ (results.GetSizes (), (std::vector<int> {1000, 10000}));
    EXPECT_EQ (results.GetRunCount (), 4u);
    EXPECT_EQ (results.Find ("ours", 30000, "populate"), nullptr);
}

TEST_F (PeerResultsTest, RatiosSayHowManyTimesOursIsBetterAndJudgeTheTargets)
{
    Write ("ours\t1000\t1\tpopulate\t100\n"
           "ours-qt\t1000\t1\tpopulate\t400\n"
           "wxpropertygrid\t1000\t1\tpopulate\t2000\n"
           "ours\t1000\t1\tmemory\t1000\n"
           "wxpropertygrid\t1000\t1\tmemory\t2000\n"
           "qtreewidget\t1000\t1\tpopulate\t150\n"
           "qtreewidget\t1000\t1\tpaint\t3\n"
           "ours-qt\t1000\t1\tpaint\t1.5\n");
    ASSERT_TRUE (results.Read (fileName));
    EXPECT_EQ (Line ("| populate ≥ 10× faster per row than wxPropertyGrid | headless"),
               "| populate ≥ 10× faster per row than wxPropertyGrid | headless | 1000 | 20.0× | 10.0× | yes |");
    EXPECT_EQ (Line ("| populate ≥ 10× faster per row than wxPropertyGrid | Qt"),
               "| populate ≥ 10× faster per row than wxPropertyGrid | Qt | 1000 | 5.00× | 10.0× | **no** |");
    // Half of wx's memory is not the 0.4× asked for.
    EXPECT_EQ (Line ("| memory per row ≤ 0.4× wxPropertyGrid's | headless"),
               "| memory per row ≤ 0.4× wxPropertyGrid's | headless | 1000 | 2.00× | 2.50× | **no** |");
    EXPECT_EQ (Line ("| one screen painted not slower than QTreeWidget"),
               "| one screen painted not slower than QTreeWidget | Qt | 1000 | 2.00× | 1.00× | yes |");
    EXPECT_EQ (Line ("| populate not slower than QTreeWidget | Qt"), "| populate not slower than QTreeWidget | Qt | 1000 | 0.375× | 1.00× | **no** |");
    EXPECT_EQ (Line ("| ours (headless) |"), "| ours (headless) | 100 (100–100) |");
}

}   // namespace
