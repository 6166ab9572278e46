// Reciprocating pump: rated mean pressure, operating percentages, the load case setting
// with its simplified torque orders, and the order axis.
#include <gtest/gtest.h>

#include <complex>

#include "components/GlobalReciprocatingPump.h"
#include "base/Constants.h"

using namespace qm;
using namespace qm::GLOBAL_RECIPROCATINGPUMP;

namespace {

using Complex = std::complex<double>;

// Three cylinders of 200 mm bore and 500 mm stroke, rated 120 kW at 600 rpm.
ReciprocatingPumpTable one_pump() {
    ReciprocatingPumpTable table;
    table.allocate(1);
    ReciprocatingPumpRecord& p = table(1);
    p.NCYLINDER = 3;
    p.BORE = 0.2;
    p.STROKELENGTH = 0.5;
    p.MCRPOWER = 120000.0;
    p.MCRSPEED = 600.0;
    p.MCRTORQUE = 1200.0;
    return table;
}

TEST(GlobalReciprocatingPump, RatedMeanPressureCountsWorkingSides) {
    ReciprocatingPumpTable table = one_pump();
    // Swept volume per second with the single-precision pi:
    // 600 / 60 * 3.1415927410125732 * 0.2^2 * 0.25 * 0.5 = 0.1570796370506287 m^3/s.
    // z = 3: (120000 / 3) / that; the double pi would give 254647.9089470325.
    EXPECT_DOUBLE_EQ(CALCULATE_RECIPROCATINGPUMP_MEPMCR(table, 1), 254647.90186080904);
    table(1).ISOPPOSITE = true;  // opposite and double-acting: z = 12
    table(1).ISDOUBLEACTING = true;
    EXPECT_DOUBLE_EQ(CALCULATE_RECIPROCATINGPUMP_MEPMCR(table, 1), 63661.97546520226);
    table(1).NCYLINDER = 0;
    EXPECT_EQ(CALCULATE_RECIPROCATINGPUMP_MEPMCR(table, 1), 0.0);
}

TEST(GlobalReciprocatingPump, OperatingPointAndMeanIndicatedPressure) {
    ReciprocatingPumpTable table = one_pump();
    ReciprocatingPumpRecord& p = table(1);
    p.ISSIMPLIFIEDPRESSURE = false;
    p.POWER = 60000.0;
    p.POWERPERCYL = 10000.0;
    p.SPEED = 3000.0 / PI;  // 100 rad/s exactly
    CALCULATE_RECIPROCATINGPUMP_TORQUE(table, 1);
    CALCULATE_RECIPROCATINGPUMP_LOADPERCENTAGE(table, 1);
    EXPECT_DOUBLE_EQ(p.TORQUE, 600.0);        // 60000 W / 100 rad/s
    EXPECT_DOUBLE_EQ(p.LOADPERCENTAGE, 0.5);  // 600 / 1200

    // 10000 / (600 / 60 * pi * 0.2^2 * 0.25 * 0.5) with the double pi; a double-acting
    // cylinder gives each side half the power.
    p.SPEED = 600.0;
    CALCULATE_RECIPROCATINGPUMP_LOADCASESETTING(table, 1);
    EXPECT_DOUBLE_EQ(p.MIPRPM, 63661.977236758124);
    p.ISDOUBLEACTING = true;
    CALCULATE_RECIPROCATINGPUMP_LOADCASESETTING(table, 1);
    EXPECT_DOUBLE_EQ(p.MIPRPM, 31830.988618379062);
    EXPECT_EQ(p.RECIPROCATINGPUMPTORQUEAMP[0], 0.0);  // no simplified pressure: no amplitudes

    // Standstill and a pump without rating stay finite.
    p.SPEED = p.MCRSPEED = p.MCRTORQUE = 0.0;
    CALCULATE_RECIPROCATINGPUMP_SPEEDPERCENTAGE(table, 1);
    CALCULATE_RECIPROCATINGPUMP_TORQUE(table, 1);
    CALCULATE_RECIPROCATINGPUMP_LOADPERCENTAGE(table, 1);
    CALCULATE_RECIPROCATINGPUMP_LOADCASESETTING(table, 1);
    EXPECT_EQ(p.SPEEDPERCENTAGE + p.TORQUE + p.LOADPERCENTAGE + p.MIPRPM, 0.0);
}

TEST(GlobalReciprocatingPump, SimplifiedOrdersGoToTheirWholeNumberPlace) {
    ReciprocatingPumpTable table = one_pump();  // simplified pressure by default
    ReciprocatingPumpRecord& p = table(1);
    p.TORQUE = 1234.5678;
    p.RECIPROCATINGPUMPORDERNUMBER = 2;
    SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDER(table, 1, 1.5, 3.0, 4.0, 5.0);
    SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPTORQUEPERCENT(table, 1, 0.1, 0.05, 0.2, 0.3);
    CALCULATE_RECIPROCATINGPUMP_LOADCASESETTING(table, 1);

    EXPECT_DOUBLE_EQ(p.RECIPROCATINGPUMPTORQUEAMP[3], 1234.5678 * 0.3);  // all four entries
    // Order 1.5 goes to place 1 as order 1. -0.5 * 1234.5678 * 0.1 = -61.728390000000005,
    // stored as the single-precision -61.728389739990234.
    EXPECT_EQ(p.SIMPLIFIEDORDER[0], 1.0);
    EXPECT_EQ(p.TORQUEAMP[0], Complex(0.0, -61.728389739990234));
    EXPECT_EQ(p.SIMPLIFIEDORDER[2], 3.0);
    // Orders 4 and 5 lie beyond the number in use and leave no trace.
    EXPECT_EQ(p.SIMPLIFIEDORDER[3], 0.0);
    EXPECT_EQ(p.TORQUEAMP[3], Complex(0.0, 0.0));
    EXPECT_EQ(p.TORQUEAMP[4], Complex(0.0, 0.0));
}

TEST(GlobalReciprocatingPump, SamePlaceOverwritesAndOutOfRangeOrdersArePassedOver) {
    ReciprocatingPumpTable table = one_pump();
    ReciprocatingPumpRecord& p = table(1);
    p.TORQUE = 1000.0;
    p.RECIPROCATINGPUMPORDERNUMBER = 4;
    p.TORQUEAMP[5] = {0.0, 7.0};  // place 6, named by no order: kept
    // 2.0 and 2.7 share place 2 and the later wins; 0.5 truncates to 0 and 30 lies beyond
    // the 24 places: neither is stored.
    SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDER(table, 1, 2.0, 2.7, 0.5, 30.0);
    SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPTORQUEPERCENT(table, 1, 0.1, 0.25, 0.5, 0.75);
    CALCULATE_RECIPROCATINGPUMP_LOADCASESETTING(table, 1);
    EXPECT_EQ(p.TORQUEAMP[1], Complex(0.0, -125.0));  // -0.5 * 1000 * 0.25
    EXPECT_EQ(p.TORQUEAMP[5], Complex(0.0, 7.0));
    for (std::size_t place : {0U, 2U, 6U, 23U})
        EXPECT_EQ(p.TORQUEAMP[place], Complex(0.0, 0.0));

    SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDER(table, 1, 24.0, 0.0, 0.0, 0.0);
    CALCULATE_RECIPROCATINGPUMP_LOADCASESETTING(table, 1);
    EXPECT_EQ(p.TORQUEAMP[23], Complex(0.0, -50.0));  // order 24 takes the last place
}

TEST(GlobalReciprocatingPump, OrderAxis) {
    ReciprocatingPumpTable table;
    EXPECT_EQ(GET_RECIPROCATINGPUMP_NCYLFOURIERCOEFFICIENTS(table), 0);
    table = one_pump();
    Table<double> orders;
    orders.allocate(3);
    EXPECT_EQ(GET_RECIPROCATINGPUMP_NCYLFOURIERCOEFFICIENTS(table), 20);
    GET_RECIPROCATINGPUMP_HARMONICORDER(table, 1, orders);
    ASSERT_EQ(orders.size(), 20);
    EXPECT_EQ(orders(1), 1.0);
    EXPECT_EQ(orders(20), 20.0);
}

}  // namespace
