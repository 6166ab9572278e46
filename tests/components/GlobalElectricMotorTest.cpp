// Electric motor: order number held in single precision, fractional orders, and the
// reference torque of load-following and constant excitation.
#include <gtest/gtest.h>

#include "components/GlobalElectricMotor.h"

using namespace qm;
using namespace qm::GLOBAL_ELECTRICMOTOR;

namespace {

ElectricMotorTable one_motor() {
    ElectricMotorTable table;
    table.allocate(1);
    table(1).MCRTORQUE = 5000.0;
    SET_ELECTRICMOTOR_MOTORORDERNUMBER(table, 1, 2);
    SET_ELECTRICMOTOR_MOTORORDER(table, 1, 3.0, 1.5, 6.0, 12.0);
    SET_ELECTRICMOTOR_MOTORTORQUEPERCENT(table, 1, 0.1, 0.2, 0.3, 0.4);
    return table;
}

TEST(GlobalElectricMotor, OrdersAndOrderNumber) {
    ElectricMotorTable table = one_motor();
    EXPECT_EQ(GET_ELECTRICMOTOR_MOTORORDERNUMBER(table, 1), 2);
    EXPECT_EQ(GET_ELECTRICMOTOR_MOTORORDERTWO(table, 1), 1.5);  // the fraction is kept
    table(1).MOTORORDERNUMBER = 3.75F;                          // truncated on the way out
    EXPECT_EQ(GET_ELECTRICMOTOR_MOTORORDERNUMBER(table, 1), 3);
}

TEST(GlobalElectricMotor, AmplitudesByExcitationType) {
    ElectricMotorTable table = one_motor();
    EXPECT_EQ(GET_ELECTRICMOTOR_CONSTEXCITATIONTORQUE(table, 1), 0.0);
    table(1).TORQUE = 1000.0;
    CALCULATE_ELECTRICMOTOR_LOADCASESETTING(table, 1);
    // 1000 * fraction for all four entries, though only two orders are in use.
    EXPECT_EQ(table(1).MOTORTORQUEAMP, (std::array<double, 4>{100.0, 200.0, 300.0, 400.0}));

    // Constant excitation: 5000 * fraction in every load case, whatever the torque.
    table(1).EXCITATIONTYPE = 1;
    EXPECT_EQ(GET_ELECTRICMOTOR_CONSTEXCITATIONTORQUE(table, 1), 5000.0);
    for (double torque : {0.0, 1000.0, 20000.0}) {
        table(1).TORQUE = torque;
        CALCULATE_ELECTRICMOTOR_LOADCASESETTING(table, 1);
        EXPECT_EQ(table(1).MOTORTORQUEAMP, (std::array<double, 4>{500.0, 1000.0, 1500.0, 2000.0}));
    }
}

}  // namespace
