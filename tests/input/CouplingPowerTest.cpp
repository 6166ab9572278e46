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
    const int kinds[6] = {COMPONENT_VISCOUSDAMPER, COMPONENT_DIESEL,    COMPONENT_DIESEL,
                          COMPONENT_GENERATOR,     COMPONENT_PROPELLER, COMPONENT_VISCOUSDAMPER};
    for (int r = 1; r <= 6; ++r)
        t.MASS_TABLE(r) = {.COMPONENTTYPE = kinds[r - 1], .COMPONENTID = 1, .ID = 10 * r};
    t.SHAFT_TABLE.allocate(5);
    const int shafts[5][2] = {{10, 20}, {20, 30}, {30, 40}, {40, 50}, {60, 10}};
    for (int s = 1; s <= 5; ++s)
        t.SHAFT_TABLE(s) = {.ID = s, .ORGNODE = shafts[s - 1][0], .DESNODE = shafts[s - 1][1]};
    t.DIESEL_TABLE.allocate(1);
    t.DIESEL_TABLE(1) = {.ID = 1, .NCYLINDER = 2};
    t.LINEARCOUPLING_TABLE.allocate(1);
    t.LINEARCOUPLING_TABLE(1) = {.ID = 5, .SHAFTNODE = 3};
    t.PROGRESSIVECOUPLING_TABLE.allocate(1);
    t.PROGRESSIVECOUPLING_TABLE(1) = {.ID = 7, .SHAFTNODE = 4};
    t.VISCOUSDAMPER_TABLE.allocate(1);
    t.VISCOUSDAMPER_TABLE(1) = {.ID = 1, .CASINGNODE = 10, .RINGNODE = 60};
    t.RUBBERDAMPER_TABLE.allocate(1);
    t.RUBBERDAMPER_TABLE(1) = {.ID = 2, .TURNINGMASSNODE = 40, .DRIVEPLATENODE = 50};

    t.LOADCASE_TABLE.allocate(7);
    const int columns[4][2] = {{COMPONENT_DIESEL, 1}, {COMPONENT_PROPELLER, 1},
                               {COMPONENT_GENERATOR, 1}, {COMPONENT_PROGRESSIVECOUPLING, 7}};
    t.LOADCASE_SPEED.allocate(2);
    t.LOADCASE_POWER.allocate(7, 2);
    const double kW[4][2] = {{6000, 0}, {5800, 300}, {0, 100}, {1234, 4321}};
    for (int c = 1; c <= 4; ++c) {
        t.LOADCASE_TABLE(c) = {columns[c - 1][0], columns[c - 1][1]};
        for (int i = 1; i <= 2; ++i) t.LOADCASE_POWER(c, i) = 1000.0 * kW[c - 1][i - 1];
    }
    return t;
}

}  // namespace

// New rows in the order linear coupling, viscous damper, rubber damper. Linear coupling:
// 6000 kW against -5800 takes the positive side, not the mean; with the engine stopped 0
// against -400 the size of the smaller. Viscous damper: the ring side holds no machine.
// Rubber damper: -100 against -300 gives 300. The progressive coupling keeps its column.
TEST(CouplingPower, ColumnsFromTheBalanceOfBothSides) {
    ModelTables t = shaft_line();
    IMPORTINPUTFILE::COUPLINGPOWERPREPARE(t);
    const int added[3][2] = {{COMPONENT_LINEARCOUPLING, 5}, {COMPONENT_VISCOUSDAMPER, 1},
                             {COMPONENT_RUBBERDAMPER, 2}};
    const double kW[4][2] = {{1234, 4321}, {6000, 400}, {200, 400}, {6000, 300}};
    for (int r = 4; r <= 7; ++r) {
        SCOPED_TRACE(r);
        if (r > 4) EXPECT_EQ(t.LOADCASE_TABLE(r).COMPONENTTYPE, added[r - 5][0]);
        if (r > 4) EXPECT_EQ(t.LOADCASE_TABLE(r).COMPONENTID, added[r - 5][1]);
        for (int i = 1; i <= 2; ++i) EXPECT_DOUBLE_EQ(t.LOADCASE_POWER(r, i), 1000.0 * kW[r - 4][i - 1]);
    }

    // Without load cases no row is added.
    t = shaft_line();
    t.LOADCASE_SPEED.allocate(0);
    t.LOADCASE_POWER.allocate(7, 0);
    IMPORTINPUTFILE::COUPLINGPOWERPREPARE(t);
    for (int r = 5; r <= 7; ++r) EXPECT_EQ(t.LOADCASE_TABLE(r).COMPONENTTYPE, 0);
}
