// Generator: whole-number orders and the load-case amplitudes.
#include <gtest/gtest.h>

#include <climits>
#include <limits>

#include "components/GlobalGenerator.h"

using namespace qm;
using namespace qm::GLOBAL_GENERATOR;

namespace {

TEST(GlobalGenerator, OrdersTruncateTowardZero) {
    GeneratorTable table;
    table.allocate(1);
    SET_GENERATOR_GENERATORORDER(table, 1, 1.5, 2.99, -1.5, 0.5);
    EXPECT_EQ(GET_GENERATOR_GENERATORORDERONE(table, 1), 1);
    EXPECT_EQ(GET_GENERATOR_GENERATORORDERTWO(table, 1), 2);
    EXPECT_EQ(GET_GENERATOR_GENERATORORDERTHREE(table, 1), -1);
    EXPECT_EQ(GET_GENERATOR_GENERATORORDERFOUR(table, 1), 0);
    // Orders no integer can hold stay defined.
    SET_GENERATOR_GENERATORORDER(table, 1, std::numeric_limits<double>::quiet_NaN(), 1.0e12, -1.0e12, 4.0);
    EXPECT_EQ(GET_GENERATOR_GENERATORORDERONE(table, 1), 0);
    EXPECT_EQ(GET_GENERATOR_GENERATORORDERTWO(table, 1), INT_MAX);
    EXPECT_EQ(GET_GENERATOR_GENERATORORDERTHREE(table, 1), INT_MIN);
}

TEST(GlobalGenerator, AmplitudesForAllFourOrders) {
    GeneratorTable table;
    table.allocate(1);
    table(1).GENERATORORDERNUMBER = 1;
    table(1).TORQUE = 1000.0;
    SET_GENERATOR_GENERATORTORQUEPERCENT(table, 1, 0.1, 0.2, 0.3, 0.4);
    CALCULATE_GENERATOR_LOADCASESETTING(table, 1);
    EXPECT_EQ(table(1).GENTORQUEAMP, (std::array<double, 4>{100.0, 200.0, 300.0, 400.0}));
}

}  // namespace
