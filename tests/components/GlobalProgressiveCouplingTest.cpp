// Progressive coupling: the torque axis built from the nominal torque, the stiffness
// curve with its segment search and extrapolation, and the magnifier damping.
#include <gtest/gtest.h>

#include "components/GlobalProgressiveCoupling.h"
#include "base/Constants.h"

using namespace qm;
using namespace qm::GLOBAL_PROGRESSIVECOUPLING;

namespace {

// Nominal torque 100 kNm: axis 0, 25, 50, 75, 100 kNm; stiffness 1.0 to 3.0 MNm/rad.
// (3000/pi) * pi / 30 == 100.0 exactly: a coupling speed of 100 rad/s.
ProgressiveCouplingTable one_coupling() {
    ProgressiveCouplingTable table;
    table.allocate(1);
    SET_PROGRESSIVECOUPLING_NOMINALTORQUE(table, 1, 100000.0);
    table(1).NOMINALSTIFFNESS = {1.0e6, 1.2e6, 1.5e6, 2.0e6, 3.0e6};
    table(1).SPEED = 3000.0 / PI;
    return table;
}

TEST(GlobalProgressiveCoupling, StiffnessCurve) {
    ProgressiveCouplingTable table = one_coupling();
    EXPECT_EQ(table(1).NOMINALTORQUE, (std::array<double, 5>{0.0, 25000.0, 50000.0, 75000.0, 100000.0}));
    EXPECT_EQ(GET_PROGRESSIVECOUPLING_NOMINALTORQUE(table, 1), 100000.0);
    struct Case {
        double torque;
        double expected;
    };
    const Case cases[] = {
        {0.0, 1.0e6},       // K1
        {25000.0, 1.2e6},   // exactly 25 %: K2
        {37500.0, 1.35e6},  // 1.2e6 + 0.3e6 * 12500 / 25000
        {100000.0, 3.0e6},  // K5
        {125000.0, 4.0e6},  // last segment on: 2e6 + 1e6 * 50000 / 25000
        {-25000.0, 0.8e6},  // first segment back: 1e6 + 0.2e6 * (-25000) / 25000
    };
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(GET_PROGRESSIVECOUPLING_STIFFNESSDYNAMIC(table, 1, c.torque), c.expected)
            << "torque " << c.torque;

    // Zero nominal torque: the no-load stiffness K1 at every torque.
    SET_PROGRESSIVECOUPLING_NOMINALTORQUE(table, 1, 0.0);
    for (double torque : {-10.0, 0.0, 5000.0})
        EXPECT_EQ(GET_PROGRESSIVECOUPLING_STIFFNESSDYNAMIC(table, 1, torque), 1.0e6);
    // Two equal torques inside the axis: the search for 50000 stops at (2, 3), both at
    // 50000, and that segment gives its lower point.
    table = one_coupling();
    table(1).NOMINALTORQUE[1] = 50000.0;
    EXPECT_EQ(GET_PROGRESSIVECOUPLING_STIFFNESSDYNAMIC(table, 1, 50000.0), 1.2e6);
}

TEST(GlobalProgressiveCoupling, DampingFollowsTheOperatingTorque) {
    ProgressiveCouplingTable table = one_coupling();
    table(1).TORQUE = 37500.0;                                                            // K = 1.35e6
    EXPECT_DOUBLE_EQ(CALCULATE_PROGRESSIVECOUPLING_DAMPING(table, 1, 10.0, 2.0), 675.0);  // K / (10*100*2)
    EXPECT_EQ(CALCULATE_PROGRESSIVECOUPLING_DAMPING(table, 1, 0.0, 2.0), 0.0);            // no magnifier
    EXPECT_EQ(CALCULATE_PROGRESSIVECOUPLING_DAMPING(table, 1, 10.0, 0.0), 0.0);           // no order

    CALCULATE_PROGRESSIVECOUPLING_LOADCASESETTING(table, 1, 10.0);
    EXPECT_DOUBLE_EQ(table(1).STIFFNESS, 1.35e6);
    EXPECT_DOUBLE_EQ(table(1).DAMPING, 1350.0);  // 1.35e6 / (10 * 100)
    table(1).SPEED = 0.0;
    CALCULATE_PROGRESSIVECOUPLING_LOADCASESETTING(table, 1, 10.0);
    EXPECT_EQ(table(1).DAMPING, 0.0);
}

}  // namespace
