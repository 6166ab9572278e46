// Power through couplings and dampers: the three balances of the two sides, a column the
// file gives, and a model without load cases.
#include <gtest/gtest.h>

#include "base/ComponentCodes.h"
#include "input/CouplingPower.h"

using namespace qm;
using namespace qm::CODES;

namespace {

// Damper casing 10 - cylinders 20, 30 of a 2-cylinder engine - generator 40 - propeller 50,
// with the damper's ring 60 on the casing. A linear coupling on shaft 30-40, a rubber
// damper between 40 and 50, a progressive coupling with a column of its own. Two load
// cases, kW: engine 6000 / 0, generator 0 / 100, propeller 5800 / 300.
ModelTables shaft_line() {
    ModelTables t;
    t.MASS_TABLE.allocate(6);
    const int masses[6][3] = {{10, COMPONENT_VISCOUSDAMPER, 1}, {20, COMPONENT_DIESEL, 1},
                              {30, COMPONENT_DIESEL, 1},        {40, COMPONENT_GENERATOR, 1},
                              {50, COMPONENT_PROPELLER, 1},     {60, COMPONENT_VISCOUSDAMPER, 1}};
    for (int r = 1; r <= 6; ++r) {
        t.MASS_TABLE(r).ID = masses[r - 1][0];
        t.MASS_TABLE(r).COMPONENTTYPE = masses[r - 1][1];
        t.MASS_TABLE(r).COMPONENTID = masses[r - 1][2];
    }
    t.SHAFT_TABLE.allocate(5);
    const int shafts[5][2] = {{10, 20}, {20, 30}, {30, 40}, {40, 50}, {60, 10}};
    for (int s = 1; s <= 5; ++s) {
        t.SHAFT_TABLE(s).ID = s;
        t.SHAFT_TABLE(s).ORGNODE = shafts[s - 1][0];
        t.SHAFT_TABLE(s).DESNODE = shafts[s - 1][1];
    }
    t.DIESEL_TABLE.allocate(1);
    t.DIESEL_TABLE(1).ID = 1;
    t.DIESEL_TABLE(1).NCYLINDER = 2;
    t.LINEARCOUPLING_TABLE.allocate(1);
    t.LINEARCOUPLING_TABLE(1).ID = 5;
    t.LINEARCOUPLING_TABLE(1).SHAFTNODE = 3;
    t.PROGRESSIVECOUPLING_TABLE.allocate(1);
    t.PROGRESSIVECOUPLING_TABLE(1).ID = 7;
    t.PROGRESSIVECOUPLING_TABLE(1).SHAFTNODE = 4;
    t.VISCOUSDAMPER_TABLE.allocate(1);
    t.VISCOUSDAMPER_TABLE(1).ID = 1;
    t.VISCOUSDAMPER_TABLE(1).CASINGNODE = 10;
    t.VISCOUSDAMPER_TABLE(1).RINGNODE = 60;
    t.RUBBERDAMPER_TABLE.allocate(1);
    t.RUBBERDAMPER_TABLE(1).ID = 2;
    t.RUBBERDAMPER_TABLE(1).TURNINGMASSNODE = 40;
    t.RUBBERDAMPER_TABLE(1).DRIVEPLATENODE = 50;

    t.LOADCASE_TABLE.allocate(7);
    const int columns[4][2] = {{COMPONENT_DIESEL, 1}, {COMPONENT_PROPELLER, 1},
                               {COMPONENT_GENERATOR, 1}, {COMPONENT_PROGRESSIVECOUPLING, 7}};
    for (int c = 1; c <= 4; ++c) {
        t.LOADCASE_TABLE(c).COMPONENTTYPE = columns[c - 1][0];
        t.LOADCASE_TABLE(c).COMPONENTID = columns[c - 1][1];
    }
    t.LOADCASE_SPEED.allocate(2);
    t.LOADCASE_POWER.allocate(7, 2);
    const double kW[4][2] = {{6000, 0}, {5800, 300}, {0, 100}, {1234, 4321}};
    for (int c = 1; c <= 4; ++c)
        for (int i = 1; i <= 2; ++i) t.LOADCASE_POWER(c, i) = 1000.0 * kW[c - 1][i - 1];
    return t;
}

}  // namespace

TEST(CouplingPower, ColumnsFromTheBalanceOfBothSides) {
    ModelTables t = shaft_line();
    IMPORTINPUTFILE::COUPLINGPOWERPREPARE(t);
    // Linear coupling: 6000 against -5800 takes the positive side, not the mean; with the
    // engine stopped 0 against -400 takes the size of the smaller.
    EXPECT_EQ(t.LOADCASE_TABLE(5).COMPONENTTYPE, COMPONENT_LINEARCOUPLING);
    EXPECT_EQ(t.LOADCASE_TABLE(5).COMPONENTID, 5);
    EXPECT_DOUBLE_EQ(t.LOADCASE_POWER(5, 1), 6.0e6);
    EXPECT_DOUBLE_EQ(t.LOADCASE_POWER(5, 2), 4.0e5);
    // Viscous damper: the ring side holds no machine, so the casing side's size counts.
    EXPECT_EQ(t.LOADCASE_TABLE(6).COMPONENTTYPE, COMPONENT_VISCOUSDAMPER);
    EXPECT_DOUBLE_EQ(t.LOADCASE_POWER(6, 1), 2.0e5);
    EXPECT_DOUBLE_EQ(t.LOADCASE_POWER(6, 2), 4.0e5);
    // Rubber damper: -100 against -300 gives 300.
    EXPECT_EQ(t.LOADCASE_TABLE(7).COMPONENTTYPE, COMPONENT_RUBBERDAMPER);
    EXPECT_EQ(t.LOADCASE_TABLE(7).COMPONENTID, 2);
    EXPECT_DOUBLE_EQ(t.LOADCASE_POWER(7, 1), 6.0e6);
    EXPECT_DOUBLE_EQ(t.LOADCASE_POWER(7, 2), 3.0e5);
    // The progressive coupling keeps the power of its own column.
    EXPECT_EQ(t.LOADCASE_POWER(4, 1), 1.234e6);
    EXPECT_EQ(t.LOADCASE_POWER(4, 2), 4.321e6);
}

TEST(CouplingPower, NoRowsWithoutLoadCases) {
    ModelTables none = shaft_line();
    none.LOADCASE_SPEED.allocate(0);
    none.LOADCASE_POWER.allocate(7, 0);
    IMPORTINPUTFILE::COUPLINGPOWERPREPARE(none);
    for (int r = 5; r <= 7; ++r) EXPECT_EQ(none.LOADCASE_TABLE(r).COMPONENTTYPE, 0);
}
