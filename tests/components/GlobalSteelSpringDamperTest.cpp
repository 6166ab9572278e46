// Steel spring damper: damping from magnifier or absolute value.
#include <gtest/gtest.h>

#include "components/GlobalSteelSpringDamper.h"
#include "base/Constants.h"

using namespace qm;
using namespace qm::GLOBAL_STEELSPRINGDAMPER;

namespace {

TEST(GlobalSteelSpringDamper, DampingAndLoadCaseSetting) {
    SteelSpringDamperTable table;
    table.allocate(2);
    table(2).ABSDAMPING = 800.0;
    table(2).SPEED = 3000.0 / PI;  // 100 rad/s exactly
    CALCULATE_STEELSPRINGDAMPER_LOADCASESETTING(table, 2, 3.0e6, 4.0, 1.5);
    EXPECT_EQ(table(2).STIFFNESS, 3.0e6);
    EXPECT_DOUBLE_EQ(table(2).DAMPING, 5000.0);  // 3e6 / (4 * 1.5 * 100)
    CALCULATE_STEELSPRINGDAMPER_LOADCASESETTING(table, 2, 3.0e6, 0.0, 1.5);
    EXPECT_EQ(table(2).DAMPING, 800.0);                                       // no magnifier: ABSDAMPING
    EXPECT_EQ(CALCULATE_STEELSPRINGDAMPER_DAMPING(table, 2, 4.0, 0.0), 0.0);  // no order
}

}  // namespace
