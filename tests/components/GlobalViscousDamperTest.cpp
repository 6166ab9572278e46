// Viscous damper: node lookup in either order, the custom damping flag over the table,
// and the load case values.
#include <gtest/gtest.h>

#include "components/GlobalViscousDamper.h"

using namespace qm;
using namespace qm::GLOBAL_VISCOUSDAMPER;

namespace {

TEST(GlobalViscousDamper, LookupsFlagAndLoadCaseSetting) {
    ViscousDamperTable table;
    EXPECT_FALSE(GET_VISCOUSDAMPER_CONTAINCUSTOMDAMPING(table));
    table.allocate(2);
    table(1).CASINGNODE = 7;
    table(1).RINGNODE = 8;
    table(2).CASINGNODE = 9;
    table(2).RINGNODE = 10;
    EXPECT_EQ(GET_VISCOUSDAMPER_IVISCOUSDAMPER_NODE(table, 8, 7), 1);   // ring, casing
    EXPECT_EQ(GET_VISCOUSDAMPER_IVISCOUSDAMPER_NODE(table, 9, 10), 2);  // casing, ring
    EXPECT_EQ(GET_VISCOUSDAMPER_IVISCOUSDAMPER_NODE(table, 7, 10), 0);
    EXPECT_FALSE(GET_VISCOUSDAMPER_CONTAINCUSTOMDAMPING(table));
    table(2).ISCUSTOMDAMPING = true;
    EXPECT_TRUE(GET_VISCOUSDAMPER_CONTAINCUSTOMDAMPING(table));

    table(1).ABSDAMPING = 1500.0;
    CALCULATE_VISCOUSDAMPER_LOADCASESETTING(table, 1, 4.0e5);
    EXPECT_EQ(table(1).STIFFNESS, 4.0e5);
    EXPECT_EQ(table(1).DAMPING, 1500.0);
}

}  // namespace
