// Power through couplings and dampers: the three balances of the two sides, a column the
// file gives, and a model without load cases.
#include <gtest/gtest.h>

#include "../support/TestModels.h"
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
    const int kinds[6] = {COMPONENT_VISCOUSDAMPER, COMPONENT_DIESEL,    COMPONENT_DIESEL,
                          COMPONENT_GENERATOR,     COMPONENT_PROPELLER, COMPONENT_VISCOUSDAMPER};
    test::Model m;
    for (int r = 1; r <= 6; ++r) m.mass(10 * r, 1.0, 1.0, MASSTYPE_PLAIN, kinds[r - 1], 1);
    m.shaft(10, 20, 1.0e6).shaft(20, 30, 1.0e6).shaft(30, 40, 1.0e6).shaft(40, 50, 1.0e6).shaft(60, 10, 1.0e6);
    ModelTables& t = m.t;
    test::append(t.DIESEL_TABLE, {.ID = 1, .NCYLINDER = 2});
    test::append(t.LINEARCOUPLING_TABLE, {.ID = 5, .SHAFTNODE = 3});
    test::append(t.PROGRESSIVECOUPLING_TABLE, {.ID = 7, .SHAFTNODE = 4});
    ViscousDamperRecord& damper = test::append(t.VISCOUSDAMPER_TABLE);
    damper.ID = 1;
    damper.CASINGNODE = 10;
    damper.RINGNODE = 60;
    test::append(t.RUBBERDAMPER_TABLE, {.ID = 2, .TURNINGMASSNODE = 40, .DRIVEPLATENODE = 50});
    // Seven columns, the last three free for the couplings and dampers.
    m.load_cases({{COMPONENT_DIESEL, 1}, {COMPONENT_PROPELLER, 1}, {COMPONENT_GENERATOR, 1},
                  {COMPONENT_PROGRESSIVECOUPLING, 7}, {}, {}, {}},
                 {{6.0e6, 5.8e6, 0.0, 1.234e6}, {0.0, 3.0e5, 1.0e5, 4.321e6}});
    return std::move(m.t);
}

}  // namespace

// New rows in the order linear coupling, viscous damper, rubber damper. Linear coupling:
// 6000 kW against -5800 takes the positive side, not the mean; with the engine stopped 0
// against -400 the size of the smaller. Viscous damper: the ring side holds no machine.
// Rubber damper: -100 against -300 gives 300. The progressive coupling keeps its column.
TEST(CouplingPower, ColumnsFromTheBalanceOfBothSides) {
    ModelTables t = shaft_line();
    IMPORTINPUTFILE::COUPLINGPOWERPREPARE(t);
    const int column[4][2] = {{COMPONENT_PROGRESSIVECOUPLING, 7}, {COMPONENT_LINEARCOUPLING, 5},
                              {COMPONENT_VISCOUSDAMPER, 1}, {COMPONENT_RUBBERDAMPER, 2}};
    const double kW[4][2] = {{1234, 4321}, {6000, 400}, {200, 400}, {6000, 300}};
    for (int r = 4; r <= 7; ++r) {
        SCOPED_TRACE(r);
        EXPECT_EQ(t.LOADCASE_TABLE(r).COMPONENTTYPE, column[r - 4][0]);
        EXPECT_EQ(t.LOADCASE_TABLE(r).COMPONENTID, column[r - 4][1]);
        for (int i = 1; i <= 2; ++i) EXPECT_DOUBLE_EQ(t.LOADCASE_POWER(r, i), 1000.0 * kW[r - 4][i - 1]);
    }

    // Without load cases no row is added.
    t = shaft_line();
    t.LOADCASE_SPEED.allocate(0);
    t.LOADCASE_POWER.allocate(7, 0);
    IMPORTINPUTFILE::COUPLINGPOWERPREPARE(t);
    for (int r = 5; r <= 7; ++r) EXPECT_EQ(t.LOADCASE_TABLE(r).COMPONENTTYPE, 0);
}
