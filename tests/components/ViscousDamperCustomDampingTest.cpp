// Custom damping file of the viscous damper: two or three columns, rows that do not read,
// and the interpolation over frequency.
#include <gtest/gtest.h>

#include "SideFile.h"
#include "components/ViscousDamperCustomDamping.h"

namespace qm::GLOBAL_VISCOUSDAMPER {
namespace {

// A damper whose custom damping file is `text`, loaded.
struct DamperFile : test::SideFile {
    ViscousDamperTable table;
    bool ok = false;
    std::vector<std::string> log;
    explicit DamperFile(const std::string& text) {
        table.allocate(1);
        table(1).CUSTOMDAMPINGFILE = write("damping.txt", text);
        LOADCUSTOMDAMPINGFILE(ctx, table, 1, ok);
        log = test::SideFile::log();
    }
    std::string error(int line) const { return test::SideFile::error("damping.txt", line); }
};

TEST(ViscousDamperCustomDamping, TheHeaderChoosesTwoOrThreeColumns) {
    DamperFile three("Hz damping stiffness\n10 100 1e6\n20\t200\t2e6\n30 300,5 3e6\n\n\n");
    ASSERT_TRUE(three.ok);
    const ViscousDamperRecord& d = three.table(1);
    EXPECT_TRUE(d.ISCUSTOMSTIFFNESS);
    EXPECT_EQ(d.NFREQUENCY, 3);  // blank lines at the end do no harm
    EXPECT_EQ(d.CUSTOMDAMPING[2], 300.5);
    EXPECT_EQ(d.CUSTOMSTIFFNESS[1], 2e6);

    DamperFile two("Hz damping\n10 100 999\n20 200\n");
    ASSERT_TRUE(two.ok);
    EXPECT_FALSE(two.table(1).ISCUSTOMSTIFFNESS);
    EXPECT_TRUE(two.table(1).CUSTOMSTIFFNESS.empty());  // the third number is ignored
}

TEST(ViscousDamperCustomDamping, RowsThatDoNotReadEndTheLoadWithFileAndLine) {
    DamperFile short_rows("Hz damping stiffness\n10 100 1e6\n20 200\n");
    EXPECT_FALSE(short_rows.ok);
    EXPECT_EQ(short_rows.log, std::vector<std::string>{short_rows.error(3)});

    DamperFile gap("Hz damping\n10 100\n\n20 200\n");  // a blank line between rows
    EXPECT_FALSE(gap.ok);
    EXPECT_EQ(gap.log, std::vector<std::string>{gap.error(3)});

    std::string many = "Hz damping\n";
    for (int k = 0; k <= MAXFREQUENCY; ++k) many += std::to_string(k) + " 1\n";
    DamperFile too_long(many);
    EXPECT_FALSE(too_long.ok);
    EXPECT_EQ(too_long.log, std::vector<std::string>{"Number of frequencies exceeds the max allowable number"});
}

TEST(ViscousDamperCustomDamping, BlankNameLeavesTheFlagAlone) {
    RunContext ctx;
    ViscousDamperTable table;
    table.allocate(1);
    bool ok = true;
    LOADCUSTOMDAMPINGFILE(ctx, table, 1, ok);
    EXPECT_TRUE(ok);
    LOADCUSTOMDAMPINGFILE(ctx, table, 2, ok);  // no such row
    EXPECT_TRUE(ok);
}

TEST(ViscousDamperCustomDamping, InterpolationIsLinearAndExtrapolatesTheEndSegments) {
    ViscousDamperTable t;
    t.allocate(1);
    ViscousDamperRecord& d = t(1);
    d.NFREQUENCY = 3;
    d.FREQUENCIES = {10.0, 20.0, 40.0};
    d.CUSTOMDAMPING = {100.0, 200.0, 100.0};
    d.CUSTOMSTIFFNESS = {1.0, 2.0, 3.0};
    auto at = [&](double hz) {
        d.SPEED = 60.0;  // order = frequency in Hz at 60 rpm
        return CALCULATE_VISCOUSDAMPER_CUSTOMDAMPING(t, 1, hz);
    };
    EXPECT_EQ(at(20.0), 200.0);  // on a point
    EXPECT_EQ(at(15.0), 150.0);
    EXPECT_EQ(at(30.0), 150.0);
    EXPECT_EQ(at(0.0), 0.0);     // first segment down to 0 Hz: 100 - 10 * 10
    EXPECT_EQ(at(60.0), 0.0);    // last segment beyond 40 Hz: 100 - 20 * 5
    EXPECT_EQ(at(80.0), -100.0); // no clamp
    d.SPEED = 600.0;             // order 3 at 600 rpm is 30 Hz
    EXPECT_EQ(CALCULATE_VISCOUSDAMPER_CUSTOMSTIFFNESS(t, 1, 3.0), 2.5);

    d.NFREQUENCY = 1;
    EXPECT_EQ(CALCULATE_VISCOUSDAMPER_CUSTOMDAMPING(t, 1, 99.0), 100.0);
    d.NFREQUENCY = 0;
    EXPECT_EQ(CALCULATE_VISCOUSDAMPER_CUSTOMSTIFFNESS(t, 1, 1.0), 0.0);
}

}  // namespace
}  // namespace qm::GLOBAL_VISCOUSDAMPER
