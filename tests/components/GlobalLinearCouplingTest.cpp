// Linear coupling: constant stiffness whatever the torque, magnifier damping.
#include <gtest/gtest.h>

#include "base/Constants.h"
#include "components/GlobalLinearCoupling.h"

using namespace qm;
using namespace qm::GLOBAL_LINEARCOUPLING;

TEST(GlobalLinearCoupling, StiffnessAndDamping) {
    LinearCouplingTable table;
    table.allocate(2);
    // 3000 / pi rpm is 100 rad/s exactly; the torque plays no part.
    table(2) = {.SHAFTNODE = 31, .NOMINALSTIFFNESS = 2.0e6, .SPEED = 3000.0 / PI, .TORQUE = 1.0e9};
    EXPECT_EQ(GET_LINEARCOUPLING_ILINEARCOUPLING_SHAFTNODE(table, 31), 2);
    EXPECT_EQ(GET_LINEARCOUPLING_STIFFNESSDYNAMIC(table, 2), 2.0e6);
    EXPECT_DOUBLE_EQ(CALCULATE_LINEARCOUPLING_DAMPING(table, 2, 8.0, 4.0), 625.0);  // 2e6 / (8*100*4)
    EXPECT_EQ(CALCULATE_LINEARCOUPLING_DAMPING(table, 2, 0.0, 4.0), 0.0);  // no magnifier: no damping
    EXPECT_EQ(CALCULATE_LINEARCOUPLING_DAMPING(table, 2, 8.0, 0.0), 0.0);  // no order
    CALCULATE_LINEARCOUPLING_LOADCASESETTING(table, 2, 8.0);
    EXPECT_EQ(table(2).STIFFNESS, 2.0e6);
    EXPECT_DOUBLE_EQ(table(2).DAMPING, 2500.0);  // 2e6 / (8 * 100)
    table(2).SPEED = 0.0;
    CALCULATE_LINEARCOUPLING_LOADCASESETTING(table, 2, 8.0);
    EXPECT_EQ(table(2).DAMPING, 0.0);
}
