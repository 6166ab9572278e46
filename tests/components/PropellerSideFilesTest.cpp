// Side files of a propeller: the ice excitation table and the entrained water per load case.
#include <gtest/gtest.h>

#include "SideFile.h"
#include "components/PropellerSideFiles.h"

namespace qm::GLOBAL_PROPELLER {
namespace {

struct Propeller : test::SideFile {
    PropellerTable table;
    bool ok = false;
    Propeller() { table.allocate(1); }
};

// Ice file of a four-blade propeller with two speed ratios: n = 17 rows, row k holding
// k + 0.1 and k + 0.2 (cosine) or k + 0.3 and k + 0.4 (sine), and a third value to ignore.
std::string ice_file(int cut_after_line = 0) {
    std::vector<std::string> lines = {"ice", "excitation", "of a", "propeller", "0,5 1,0", "f", "f", "f",
                                      "0 1.1 1.2 9"};
    for (int k = 0; k < 4; ++k) lines.push_back("free");
    for (int k = 2; k <= 17; ++k)
        lines.push_back(std::to_string(k - 1) + " " + std::to_string(k) + ".1 " + std::to_string(k) + ".2 9");
    for (int k = 0; k < 4; ++k) lines.push_back("free");
    for (int k = 2; k <= 17; ++k)
        lines.push_back(std::to_string(k - 1) + "\t" + std::to_string(k) + ",3\t" + std::to_string(k) + ",4");
    std::string text;
    for (std::size_t l = 0; l < lines.size() && (cut_after_line == 0 || l < static_cast<std::size_t>(cut_after_line)); ++l)
        text += lines[l] + "\n";
    return text;
}

TEST(PropellerSideFiles, IceFileOfAFourBladePropellerLineByLine) {
    Propeller p;
    PropellerRecord& r = p.table(1);
    r.NBLADE = 4;
    r.NSPEEDRATIO = 2;
    r.EXCITATIONFILE = p.write("ice.txt", ice_file());
    LOAD_PROPELLER_EXCITATIONFILE(p.ctx, p.table, 1, p.ok);
    ASSERT_TRUE(p.ok) << p.log().front();
    EXPECT_EQ(r.SPEEDRATIO[1], 1.0);
    EXPECT_EQ(r.ICECOSINE[ice_position(1, 2, 2)], 1.2);   // line 9
    EXPECT_EQ(r.ICECOSINE[ice_position(17, 1, 2)], 17.1); // line 29
    EXPECT_EQ(r.ICESINE[ice_position(1, 1, 2)], 0.0);     // no sine of the constant term
    EXPECT_EQ(r.ICESINE[ice_position(2, 2, 2)], 2.4);     // line 34
    EXPECT_EQ(r.ICESINE[ice_position(17, 2, 2)], 17.4);   // line 49
    EXPECT_EQ(r.ICEHARMONICORDER[16], 16.0);

    Propeller cut;
    cut.table(1) = r;
    cut.table(1).EXCITATIONFILE = cut.write("ice.txt", ice_file(40));
    LOAD_PROPELLER_EXCITATIONFILE(cut.ctx, cut.table, 1, cut.ok);
    EXPECT_FALSE(cut.ok);
    EXPECT_EQ(cut.log(), std::vector<std::string>{cut.error("ice.txt", 41)});
}

TEST(PropellerSideFiles, EntrainedWaterOneLinePerLoadCase) {
    Propeller p;
    PropellerRecord& r = p.table(1);
    r.NLOADCASE = 3;
    r.VARIABLEENTRAINEDWATERFILE = p.write("water.txt", "LC1 1500\n2 1600,5\nfull 1700\nextra 1800\n");
    LOAD_PROPELLER_VARIABLEENTRAINEDWATERFILE(p.ctx, p.table, 1, p.ok);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(r.VARIABLEENTRAINEDWATERTABLE, (std::vector<double>{1500.0, 1600.5, 1700.0}));

    r.NLOADCASE = 5;  // fewer lines than load cases
    LOAD_PROPELLER_VARIABLEENTRAINEDWATERFILE(p.ctx, p.table, 1, p.ok);
    EXPECT_FALSE(p.ok);
    EXPECT_EQ(p.log(), std::vector<std::string>{p.error("water.txt", 5)});

    bool untouched = true;
    r.VARIABLEENTRAINEDWATERFILE.clear();  // a blank name: nothing to do
    LOAD_PROPELLER_VARIABLEENTRAINEDWATERFILE(p.ctx, p.table, 1, untouched);
    EXPECT_TRUE(untouched);
}

}  // namespace
}  // namespace qm::GLOBAL_PROPELLER
