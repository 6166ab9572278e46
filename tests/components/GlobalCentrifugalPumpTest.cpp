// Centrifugal pump: whole-number orders and the load-case amplitudes.
#include <gtest/gtest.h>

#include "components/GlobalCentrifugalPump.h"

using namespace qm;
using namespace qm::GLOBAL_CENTRIFUGALPUMP;

namespace {

TEST(GlobalCentrifugalPump, OrdersAndAmplitudes) {
    CentrifugalPumpTable table;
    table.allocate(1);
    SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDER(table, 1, 1.5, 5.0, 7.9, 0.0);
    EXPECT_EQ(GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERONE(table, 1), 1);
    EXPECT_EQ(GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERTHREE(table, 1), 7);

    table(1).TORQUE = 2000.0;
    SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPTORQUEPERCENT(table, 1, 0.05, 0.25, 0.5, 0.0);
    CALCULATE_CENTRIFUGALPUMP_LOADCASESETTING(table, 1);
    EXPECT_EQ(table(1).CENTRIFUGALPUMPTORQUEAMP, (std::array<double, 4>{100.0, 500.0, 1000.0, 0.0}));
}

}  // namespace
