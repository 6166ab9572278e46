// Viscous, rubber and steel spring dampers: the damping from magnifier or absolute value,
// run over the two kinds that take a magnifier, and the node lookups of each kind.
#include <gtest/gtest.h>

#include "base/Constants.h"
#include "components/GlobalRubberDamper.h"
#include "components/GlobalSteelSpringDamper.h"
#include "components/GlobalViscousDamper.h"

using namespace qm;

namespace {

// Each kind through its own routines.
struct Rubber {
    using Table = RubberDamperTable;
    static constexpr auto damping = GLOBAL_RUBBERDAMPER::CALCULATE_RUBBERDAMPER_DAMPING;
    static constexpr auto load_case = GLOBAL_RUBBERDAMPER::CALCULATE_RUBBERDAMPER_LOADCASESETTING;
};
struct SteelSpring {
    using Table = SteelSpringDamperTable;
    static constexpr auto damping = GLOBAL_STEELSPRINGDAMPER::CALCULATE_STEELSPRINGDAMPER_DAMPING;
    static constexpr auto load_case = GLOBAL_STEELSPRINGDAMPER::CALCULATE_STEELSPRINGDAMPER_LOADCASESETTING;
};

template <class Kind>
class MagnifierDampingTest : public ::testing::Test {};
using Kinds = ::testing::Types<Rubber, SteelSpring>;
TYPED_TEST_SUITE(MagnifierDampingTest, Kinds);

TYPED_TEST(MagnifierDampingTest, FromTheNewStiffnessOrTheAbsoluteValue) {
    typename TypeParam::Table table;
    table.allocate(2);
    table(2).ABSDAMPING = 1200.0;
    table(2).STIFFNESS = 1.0;      // stale value of an earlier load case
    table(2).SPEED = 3000.0 / PI;  // 100 rad/s exactly
    // 5e5 / (V * order * w) = 5e5 / (5 * 2 * 100), and 3e6 / (4 * 1.5 * 100).
    TypeParam::load_case(table, 2, 5.0e5, 5.0, 2.0);
    EXPECT_EQ(table(2).STIFFNESS, 5.0e5);
    EXPECT_DOUBLE_EQ(table(2).DAMPING, 500.0);
    TypeParam::load_case(table, 2, 3.0e6, 4.0, 1.5);
    EXPECT_DOUBLE_EQ(table(2).DAMPING, 5000.0);
    TypeParam::load_case(table, 2, 3.0e6, 0.0, 1.5);
    EXPECT_EQ(table(2).DAMPING, 1200.0);                         // no magnifier: ABSDAMPING
    EXPECT_EQ(TypeParam::damping(table, 2, 0.0, 2.0), 1200.0);
    EXPECT_EQ(TypeParam::damping(table, 2, 5.0, 0.0), 0.0);      // no order
    EXPECT_EQ(TypeParam::damping(table, 0, 5.0, 2.0), 0.0);      // row 0, as a failed lookup gives
    table(2).SPEED = 0.0;
    EXPECT_EQ(TypeParam::damping(table, 2, 5.0, 2.0), 0.0);      // no speed
    TypeParam::load_case(table, 3, 1.0, 1.0, 1.0);               // outside the table: nothing happens
}

TEST(DamperLoadCase, ViscousDamperTakesItsAbsoluteDamping) {
    ViscousDamperTable table;
    table.allocate(1);
    table(1).ABSDAMPING = 1500.0;
    table(1).SPEED = 1000.0;
    table(1).DAMPING = 9.0;
    GLOBAL_VISCOUSDAMPER::CALCULATE_VISCOUSDAMPER_LOADCASESETTING(table, 1, 4.0e5);
    EXPECT_EQ(table(1).STIFFNESS, 4.0e5);
    EXPECT_EQ(table(1).DAMPING, 1500.0);
}

TEST(DamperLoadCase, NodeLookups) {
    RubberDamperTable rubber;
    rubber.allocate(1);
    rubber(1) = {.TURNINGMASSNODE = 7, .DRIVEPLATENODE = 8};
    EXPECT_EQ(GLOBAL_RUBBERDAMPER::GET_RUBBERDAMPER_IRUBBERDAMPER_NODE(rubber, 7, 8), 1);
    EXPECT_EQ(GLOBAL_RUBBERDAMPER::GET_RUBBERDAMPER_IRUBBERDAMPER_NODE(rubber, 8, 7), 0);  // directed

    using namespace GLOBAL_VISCOUSDAMPER;
    ViscousDamperTable viscous;
    EXPECT_FALSE(GET_VISCOUSDAMPER_CONTAINCUSTOMDAMPING(viscous));
    viscous.allocate(2);
    viscous(1).CASINGNODE = 7;
    viscous(1).RINGNODE = 8;
    viscous(2).CASINGNODE = 9;
    viscous(2).RINGNODE = 10;
    EXPECT_EQ(GET_VISCOUSDAMPER_IVISCOUSDAMPER_NODE(viscous, 8, 7), 1);   // ring, casing
    EXPECT_EQ(GET_VISCOUSDAMPER_IVISCOUSDAMPER_NODE(viscous, 9, 10), 2);  // casing, ring
    EXPECT_EQ(GET_VISCOUSDAMPER_IVISCOUSDAMPER_NODE(viscous, 7, 10), 0);
    EXPECT_FALSE(GET_VISCOUSDAMPER_CONTAINCUSTOMDAMPING(viscous));
    viscous(2).ISCUSTOMDAMPING = true;
    EXPECT_TRUE(GET_VISCOUSDAMPER_CONTAINCUSTOMDAMPING(viscous));
}

}  // namespace
