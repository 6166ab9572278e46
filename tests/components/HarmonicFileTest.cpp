// Harmonic files of engines and reciprocating pumps: reading, conversion to SI, the limits
// and the messages of lines that do not read.
#include <gtest/gtest.h>

#include <cmath>

#include "SideFile.h"
#include "components/DieselHarmonicFile.h"
#include "components/ReciprocatingPumpFile.h"
#include "base/Constants.h"

namespace qm {
namespace {

// A harmonic file of n orders and m axis values; entry (j, k) of every block is j + k/100.
std::string harmonic_file(int n, int m, const std::string& line3_label = "MIP=",
                          const std::string& between = "") {
    std::string axis, text = "header\nORDERS = " + std::to_string(n) + "\n" + line3_label + " " + std::to_string(m) +
                                 "\nfree\n";
    for (int k = 1; k <= m; ++k) axis += " " + std::to_string(5 * k);
    auto rows = [&] {
        std::string r;
        for (int j = 1; j <= n; ++j) {
            r += std::to_string(j) + ",0";
            for (int k = 1; k <= m; ++k) r += " " + std::to_string(j) + "," + (k < 10 ? "0" : "") + std::to_string(k);
            r += "\n";
        }
        return r;
    };
    text += "COSINE values\nfree\n" + axis + "\nfree\nfree\n" + rows() + between;
    text += "SINE\nfree\nfree\nfree\nfree\n" + rows();
    text += "RESULTANT\nfree\n" + axis + "\nfree\nfree\n" + rows();
    text += "PHASE\nfree\n" + axis + "\nfree\nfree\n" + rows();
    return text;
}

// An engine whose normal-firing harmonic file is `text`, loaded.
struct Engine : test::SideFile {
    DieselTable table;
    bool ok = false;
    std::vector<std::string> log;
    explicit Engine(const std::string& text) {
        table.allocate(1);
        table(1).NORMALHARMONICFILE = write("normal.txt", text);
        GLOBAL_DIESEL::LOADORVANTISFILE(ctx, table, ok);
        log = test::SideFile::log();
    }
    std::string error(int line) const { return test::SideFile::error("normal.txt", line); }
};

TEST(HarmonicFile, EngineFileIsReadAndConvertedToSI) {
    Engine e(harmonic_file(3, 2));
    ASSERT_TRUE(e.ok) << (e.log.empty() ? "" : e.log[0]);
    const DieselRecord& d = e.table(1);
    EXPECT_EQ(d.NHARMONICORDER, 3);
    EXPECT_EQ(d.NMEANINDICATEDPRESSURE, 2);
    EXPECT_EQ(d.MEANINDICATEDPRESSURE[1], 10.0 * 100000.0);               // bar to Pa
    EXPECT_EQ(d.NORMALRESULTANT[GLOBAL_DIESEL::harmonic_position(3, 2, 2)], 3.02 * 1000000.0);  // MPa to Pa
    EXPECT_EQ(d.NORMALPHASEANGLE[0], 1.01 * PI / 180.0);
    EXPECT_EQ(d.HARMONICORDER[2], 3.0);
    EXPECT_TRUE(d.MISFIRINGCOSINE.empty());  // no misfiring file named
}

TEST(HarmonicFile, TheExampleEngineFileLoadsAndABlankNameIsPassedOver) {
    test::SideFile files;
    DieselTable t;
    t.allocate(1);
    t(1).MISHARMONICFILE = std::string(QM_EXAMPLES_DIR) + "/geared-four-stroke/harmonics-misfire.txt";
    bool ok = false;
    GLOBAL_DIESEL::LOADORVANTISFILE(files.ctx, t, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(t(1).NHARMONICORDERMIS, 24);
    EXPECT_EQ(t(1).NMEANINDICATEDPRESSUREMIS, 5);
    EXPECT_EQ(t(1).HARMONICORDER[23], 12.0);
    EXPECT_EQ(t(1).NHARMONICORDER, 0);
}

TEST(HarmonicFile, LimitsOfOrdersAndPressures) {
    EXPECT_TRUE(Engine(harmonic_file(24, 1)).ok);
    EXPECT_TRUE(Engine(harmonic_file(1, 100)).ok);
    Engine orders(harmonic_file(25, 1));
    EXPECT_FALSE(orders.ok);
    EXPECT_EQ(orders.log, std::vector<std::string>{"Number of harmonic orders exceeds the max allowable number"});
    Engine pressures(harmonic_file(1, 101));
    EXPECT_EQ(pressures.log,
              std::vector<std::string>{"Number of mean indicated pressure exceeds the max allowable number"});
}

TEST(HarmonicFile, KeywordSearchFailuresEndWithFileAndLine) {
    // A comment holding SINE between the blocks starts the sine block there: the rows that
    // follow are free lines, and the first of them does not read.
    Engine early(harmonic_file(1, 1, "MIP=", "a SINE comment\n"));
    EXPECT_FALSE(early.ok);
    EXPECT_EQ(early.log, std::vector<std::string>{early.error(16)});
    std::string lower = harmonic_file(1, 1);
    lower.replace(lower.find("PHASE"), 5, "phase");
    Engine missing(lower);  // the search runs past the last of the 28 lines
    EXPECT_FALSE(missing.ok);
    EXPECT_EQ(missing.log, std::vector<std::string>{missing.error(29)});
}

TEST(HarmonicFile, PumpFileHasALongerLabelAndSpeedPercentages) {
    test::SideFile files;
    ReciprocatingPumpTable t;
    t.allocate(2);
    t(2).PUMPHARMONICFILE = files.write("pump.txt", harmonic_file(2, 3, "SPEEDPERCENTAGE:"));
    bool ok = false;
    GLOBAL_RECIPROCATINGPUMP::LOADORVANTISPUMPFILE(files.ctx, t, ok);
    ASSERT_TRUE(ok);
    EXPECT_EQ(t(2).NSPEEDPERCENTAGE, 3);
    EXPECT_EQ(t(2).SPEEDPERCENTAGES[2], 15.0);  // as it stands
    EXPECT_EQ(t(2).NORMALSINE[5], 2.03 * 1000000.0);
    files.write("pump.txt", harmonic_file(1, 101, "SPEEDPERCENTAGE:"));
    GLOBAL_RECIPROCATINGPUMP::LOADORVANTISPUMPFILE(files.ctx, t, ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(files.log().back(), "Number of speed percentage exceeds the max allowable number");
}

}  // namespace
}  // namespace qm
