#include "forced/LoadCaseReport.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "../support/TestModels.h"
#include "base/ComponentCodes.h"
#include "base/GlobalParameter.h"
#include "input/DataChecking.h"
#include "input/ImportInputFile.h"

using namespace qm;
using namespace qm::FORCEDVIBRATION;

namespace {

// Masses 1..n (inertias 100, 200, ...) joined one after the other by shafts 1..n-1. Each
// mass is given as (COMPONENTTYPE, COMPONENTID).
test::Model line(const std::vector<std::pair<int, int>>& masses) {
    test::Model m;
    for (int i = 1; i <= static_cast<int>(masses.size()); ++i) {
        const auto [type, id] = masses[static_cast<std::size_t>(i - 1)];
        m.mass(i, 100.0 * i, 1.0, CODES::MASSTYPE_PLAIN, type, id);
        if (i > 1) m.shaft(i - 1, i, 0.0);
    }
    return m;
}

Array2D<double> shaft_power(ModelTables& t) {
    Array2D<double> p;
    CALCULATELOADCASESHAFTPOWER(t, p);
    return p;
}

constexpr int ENGINE = CODES::COMPONENT_DIESEL;
constexpr int PROPELLER = CODES::COMPONENT_PROPELLER;
constexpr int PUMP = CODES::COMPONENT_RECIPROCATINGPUMP;
constexpr int GENERATOR = CODES::COMPONENT_GENERATOR;
constexpr int PLAIN = CODES::COMPONENT_NONE_MASS;

}  // namespace

TEST(ShaftPower, BalanceOfTheTwoSidesOfEachShaft) {
    // engine against propeller of the same power, and a load case with all powers 0
    test::Model a = line({{ENGINE, 1}, {PROPELLER, 1}});
    test::append(a.t.DIESEL_TABLE, {.ID = 1, .NCYLINDER = 1});
    a.load_cases({{ENGINE, 1}, {PROPELLER, 1}}, {{1.0e7, 1.0e7}, {0.0, 0.0}});
    const auto pa = shaft_power(a);
    EXPECT_DOUBLE_EQ(pa(1, 1), 1.0e7);
    EXPECT_EQ(pa(1, 2), 0.0);

    // engine driving a three-cylinder pump: the power is spread by NCYLINDER over its masses
    test::Model b = line({{ENGINE, 1}, {PUMP, 1}, {PUMP, 1}, {PUMP, 1}});
    test::append(b.t.DIESEL_TABLE, {.ID = 1, .NCYLINDER = 1});
    test::append(b.t.RECIPROCATINGPUMP_TABLE).ID = 1;
    b.t.RECIPROCATINGPUMP_TABLE(1).NCYLINDER = 3;
    b.load_cases({{ENGINE, 1}, {PUMP, 1}}, {{3.0e6, 3.0e6}});
    const auto pb = shaft_power(b);
    EXPECT_DOUBLE_EQ(pb(1, 1), 3.0e6);
    EXPECT_DOUBLE_EQ(pb(2, 1), 2.0e6);
    EXPECT_DOUBLE_EQ(pb(3, 1), 1.0e6);

    // both sides only take power out: the larger deficit counts, without sign
    test::Model c = line({{PROPELLER, 1}, {PLAIN, 0}, {GENERATOR, 1}});
    c.load_cases({{PROPELLER, 1}, {GENERATOR, 1}}, {{4.0e5, 1.0e5}});
    const auto pc = shaft_power(c);
    EXPECT_DOUBLE_EQ(pc(1, 1), 4.0e5);
    EXPECT_DOUBLE_EQ(pc(2, 1), 4.0e5);
}

TEST(ShaftInertiaRatio, ShareOfTheSideAwayFromThePropeller) {
    test::Model a = line({{PLAIN, 0}, {PLAIN, 0}, {PROPELLER, 1}});  // inertias 100, 200, 300
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
    test::Model a = line({{CODES::COMPONENT_VISCOUSDAMPER, 4}, {CODES::COMPONENT_VISCOUSDAMPER, 4}});
    a.t.SHAFT_TABLE(1).STIFFNESS = 9.999999974752427e-07;  // the damper's spring without stiffness
    ViscousDamperRecord& damper = test::append(a.t.VISCOUSDAMPER_TABLE);
    damper.ID = 4;
    damper.CASINGNODE = 1;
    damper.RINGNODE = 2;
    damper.ABSDAMPING = 1.5e5;
    // code 27 is a shaft role, not a component: no block
    a.load_cases({{27, 1}, {CODES::COMPONENT_VISCOUSDAMPER, 4}}, {{0.0, 0.0}});
    RunContext ctx = test::run_in(dir.str());
    WRITELOADCASESETTING(ctx, a.t);
    EXPECT_EQ(test::read_lines(dir / "LoadCaseSetting.txt"),
              (std::vector<std::string>{"", "Viscous damper   4", "Case          Speed       Stiffness       Damping",
                                        "              [rpm]        [Nm/rad]     [Nms/rad]", std::string(47, '-'),
                                        "   1          100.0     0.000E+000     1.500E+005"}));
}
