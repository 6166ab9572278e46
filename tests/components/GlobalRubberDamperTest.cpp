// Rubber damper: the directed node lookup and the damping from magnifier or absolute value.
#include <gtest/gtest.h>

#include "components/GlobalRubberDamper.h"
#include "base/Constants.h"

using namespace qm;
using namespace qm::GLOBAL_RUBBERDAMPER;

namespace {

TEST(GlobalRubberDamper, NodeLookupAndDamping) {
    RubberDamperTable table;
    table.allocate(1);
    table(1).TURNINGMASSNODE = 7;
    table(1).DRIVEPLATENODE = 8;
    table(1).ABSDAMPING = 1200.0;
    table(1).STIFFNESS = 1.0;      // stale value of an earlier load case
    table(1).SPEED = 3000.0 / PI;  // 100 rad/s exactly
    EXPECT_EQ(GET_RUBBERDAMPER_IRUBBERDAMPER_NODE(table, 7, 8), 1);
    EXPECT_EQ(GET_RUBBERDAMPER_IRUBBERDAMPER_NODE(table, 8, 7), 0);  // reverse order doesn't match

    // The damping is taken from the new stiffness: 5e5 / (V * order * w) = 5e5 / (5 * 2 * 100).
    CALCULATE_RUBBERDAMPER_LOADCASESETTING(table, 1, 5.0e5, 5.0, 2.0);
    EXPECT_EQ(table(1).STIFFNESS, 5.0e5);
    EXPECT_DOUBLE_EQ(table(1).DAMPING, 500.0);
    EXPECT_EQ(CALCULATE_RUBBERDAMPER_DAMPING(table, 1, 0.0, 2.0), 1200.0);  // no magnifier: ABSDAMPING
    EXPECT_EQ(CALCULATE_RUBBERDAMPER_DAMPING(table, 1, 5.0, 0.0), 0.0);     // no order
    // Row 0, as the node lookup gives for reversed nodes, reads no damping.
    EXPECT_EQ(CALCULATE_RUBBERDAMPER_DAMPING(table, 0, 5.0, 2.0), 0.0);
    table(1).SPEED = 0.0;
    EXPECT_EQ(CALCULATE_RUBBERDAMPER_DAMPING(table, 1, 5.0, 2.0), 0.0);
}

}  // namespace
