#include "forced/LoadCaseReport.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "../TestSupport.h"
#include "base/ComponentCodes.h"
#include "base/GlobalParameter.h"
#include "input/DataChecking.h"
#include "input/ImportInputFile.h"

using namespace qm;
using namespace qm::FORCEDVIBRATION;

namespace {

// A line of masses joined one after the other by shafts 1..n-1. Each mass is given as
// (COMPONENTTYPE, COMPONENTID); powers[c] is the load case row of component column c.
struct Line {
    ModelTables t;
    explicit Line(const std::vector<std::pair<int, int>>& masses) {
        const int n = static_cast<int>(masses.size());
        t.MASS_TABLE.allocate(n);
        for (int m = 1; m <= n; ++m) {
            t.MASS_TABLE(m).ID = m;
            t.MASS_TABLE(m).COMPONENTTYPE = masses[m - 1].first;
            t.MASS_TABLE(m).COMPONENTID = masses[m - 1].second;
            t.MASS_TABLE(m).INERTIA = 100.0 * m;
        }
        t.SHAFT_TABLE.allocate(n - 1);
        for (int j = 1; j < n; ++j) {
            t.SHAFT_TABLE(j).ID = j;
            t.SHAFT_TABLE(j).ORGNODE = j;
            t.SHAFT_TABLE(j).DESNODE = j + 1;
        }
    }
    // One column per (type, id), one row of powers per load case, in W.
    void load_cases(const std::vector<std::pair<int, int>>& columns, const std::vector<std::vector<double>>& rows) {
        t.LOADCASE_TABLE.allocate(static_cast<int>(columns.size()));
        for (int c = 1; c <= static_cast<int>(columns.size()); ++c) {
            t.LOADCASE_TABLE(c).COMPONENTTYPE = columns[c - 1].first;
            t.LOADCASE_TABLE(c).COMPONENTID = columns[c - 1].second;
        }
        t.LOADCASE_SPEED.allocate(static_cast<int>(rows.size()));
        t.LOADCASE_POWER.allocate(static_cast<int>(columns.size()), static_cast<int>(rows.size()));
        for (int lc = 1; lc <= static_cast<int>(rows.size()); ++lc) {
            t.LOADCASE_SPEED(lc) = 100.0;
            for (int c = 1; c <= static_cast<int>(columns.size()); ++c) t.LOADCASE_POWER(c, lc) = rows[lc - 1][c - 1];
        }
    }
    Array2D<double> shaft_power() {
        Array2D<double> p;
        CALCULATELOADCASESHAFTPOWER(t, p);
        return p;
    }
};

constexpr int ENGINE = CODES::COMPONENT_DIESEL;
constexpr int PROPELLER = CODES::COMPONENT_PROPELLER;
constexpr int PUMP = CODES::COMPONENT_RECIPROCATINGPUMP;
constexpr int GENERATOR = CODES::COMPONENT_GENERATOR;
constexpr int PLAIN = CODES::COMPONENT_NONE_MASS;

}  // namespace

TEST(ShaftPower, BalanceOfTheTwoSidesOfEachShaft) {
    // engine against propeller of the same power, and a load case with all powers 0
    Line a({{ENGINE, 1}, {PROPELLER, 1}});
    a.t.DIESEL_TABLE.allocate(1);
    a.t.DIESEL_TABLE(1).ID = 1;
    a.t.DIESEL_TABLE(1).NCYLINDER = 1;
    a.load_cases({{ENGINE, 1}, {PROPELLER, 1}}, {{1.0e7, 1.0e7}, {0.0, 0.0}});
    const auto pa = a.shaft_power();
    EXPECT_DOUBLE_EQ(pa(1, 1), 1.0e7);
    EXPECT_EQ(pa(1, 2), 0.0);

    // engine driving a three-cylinder pump: the power is spread by NCYLINDER over its masses
    Line b({{ENGINE, 1}, {PUMP, 1}, {PUMP, 1}, {PUMP, 1}});
    b.t.DIESEL_TABLE.allocate(1);
    b.t.DIESEL_TABLE(1).ID = 1;
    b.t.DIESEL_TABLE(1).NCYLINDER = 1;
    b.t.RECIPROCATINGPUMP_TABLE.allocate(1);
    b.t.RECIPROCATINGPUMP_TABLE(1).ID = 1;
    b.t.RECIPROCATINGPUMP_TABLE(1).NCYLINDER = 3;
    b.load_cases({{ENGINE, 1}, {PUMP, 1}}, {{3.0e6, 3.0e6}});
    const auto pb = b.shaft_power();
    EXPECT_DOUBLE_EQ(pb(1, 1), 3.0e6);
    EXPECT_DOUBLE_EQ(pb(2, 1), 2.0e6);
    EXPECT_DOUBLE_EQ(pb(3, 1), 1.0e6);

    // both sides only take power out: the larger deficit counts, without sign
    Line c({{PROPELLER, 1}, {PLAIN, 0}, {GENERATOR, 1}});
    c.load_cases({{PROPELLER, 1}, {GENERATOR, 1}}, {{4.0e5, 1.0e5}});
    const auto pc = c.shaft_power();
    EXPECT_DOUBLE_EQ(pc(1, 1), 4.0e5);
    EXPECT_DOUBLE_EQ(pc(2, 1), 4.0e5);
}

TEST(ShaftInertiaRatio, ShareOfTheSideAwayFromThePropeller) {
    Line a({{PLAIN, 0}, {PLAIN, 0}, {PROPELLER, 1}});  // inertias 100, 200, 300
    a.t.PROPELLER_TABLE.allocate(1);
    a.t.PROPELLER_TABLE(1).ID = 7;  // not the row of its inertia: found by its node
    a.t.PROPELLER_TABLE(1).PROPELLERNODE = 3;
    std::vector<double> ratio;
    CALCULATESHAFTINERTIARATIO(a.t, ratio);
    ASSERT_EQ(ratio.size(), 2U);
    EXPECT_DOUBLE_EQ(ratio[0], 100.0 / 600.0);
    EXPECT_DOUBLE_EQ(ratio[1], 300.0 / 600.0);

    a.t.PROPELLER_TABLE.allocate(2);  // two propellers: 1.0 everywhere
    CALCULATESHAFTINERTIARATIO(a.t, ratio);
    EXPECT_EQ(ratio, std::vector<double>(2, 1.0));
}

// The report of the example model against its golden file. With QM_REGENERATE_GOLDEN set
// the golden file is written instead (see tests/data/forced/README.md).
TEST(LoadCaseReport, TwoStrokeExampleLineForLine) {
    test::ScratchDir dir;
    RunContext ctx = test::run_in(dir.str());
    ModelTables t;
    bool ok = false;
    IMPORTINPUTFILE::READINPUTFILE(ctx, std::string(QM_EXAMPLES_DIR) + "/two-stroke-main-engine.qmk", t, ok);
    ASSERT_TRUE(ok);
    IMPORTINPUTFILE::DATACHECKING(ctx, ok, t, 3);
    ASSERT_TRUE(ok);
    WRITELOADCASESETTING(ctx, t);
    const std::string golden = std::string(QM_TEST_DATA_DIR) + "/forced/LoadCaseSetting-two-stroke.txt";
    const std::string text = test::read_file(dir / "LoadCaseSetting.txt");
    if (std::getenv("QM_REGENERATE_GOLDEN") != nullptr) test::write_file(golden, text);
    EXPECT_EQ(text, test::read_file(golden));
    // the operating point of the last load case stays in the tables
    EXPECT_DOUBLE_EQ(t.PROPELLER_TABLE(1).POWER, 8372000.0);
    t.deallocate_all();
}

TEST(LoadCaseReport, PlaceholderStiffnessAndCodesWithoutBlock) {
    test::ScratchDir dir;
    Line a({{CODES::COMPONENT_VISCOUSDAMPER, 4}, {CODES::COMPONENT_VISCOUSDAMPER, 4}});
    a.t.SHAFT_TABLE(1).STIFFNESS = 9.999999974752427e-07;  // the damper's spring without stiffness
    a.t.VISCOUSDAMPER_TABLE.allocate(1);
    a.t.VISCOUSDAMPER_TABLE(1).ID = 4;
    a.t.VISCOUSDAMPER_TABLE(1).CASINGNODE = 1;
    a.t.VISCOUSDAMPER_TABLE(1).RINGNODE = 2;
    a.t.VISCOUSDAMPER_TABLE(1).ABSDAMPING = 1.5e5;
    // code 27 is a shaft role, not a component: no block
    a.load_cases({{27, 1}, {CODES::COMPONENT_VISCOUSDAMPER, 4}}, {{0.0, 0.0}});
    RunContext ctx;
    ctx.SETRESULTFILEDIR(dir.str(), static_cast<int>(dir.str().size()));
    WRITELOADCASESETTING(ctx, a.t);
    EXPECT_EQ(test::read_lines(dir / "LoadCaseSetting.txt"),
              (std::vector<std::string>{"", "Viscous damper   4", "Case          Speed       Stiffness       Damping",
                                        "              [rpm]        [Nm/rad]     [Nms/rad]", std::string(47, '-'),
                                        "   1          100.0     0.000E+000     1.500E+005"}));
}
