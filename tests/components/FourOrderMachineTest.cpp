// Generator, centrifugal pump and electric motor: the shared order lists and load-case
// amplitudes over the three kinds, and what only the motor and the pump have.
#include <gtest/gtest.h>

#include <climits>
#include <limits>

#include "components/GlobalCentrifugalPump.h"
#include "components/GlobalElectricMotor.h"
#include "components/GlobalGenerator.h"

using namespace qm;

namespace {

// Row 1 of each kind through its own routines: node 4, two orders in use, then the load case.
struct Generator {
    using Table = GeneratorTable;
    static constexpr bool WHOLE_ORDERS = true;
    static void set(Table& t, const MachineFour& o, const MachineFour& p) {
        using namespace GLOBAL_GENERATOR;
        t(1).GENERATORNODE = 4;
        t(1).GENERATORORDERNUMBER = 2;
        SET_GENERATOR_GENERATORORDER(t, 1, o[0], o[1], o[2], o[3]);
        SET_GENERATOR_GENERATORTORQUEPERCENT(t, 1, p[0], p[1], p[2], p[3]);
        CALCULATE_GENERATOR_LOADCASESETTING(t, 1);
    }
};

struct CentrifugalPump {
    using Table = CentrifugalPumpTable;
    static constexpr bool WHOLE_ORDERS = true;
    static void set(Table& t, const MachineFour& o, const MachineFour& p) {
        using namespace GLOBAL_CENTRIFUGALPUMP;
        t(1).CENTRIFUGALPUMPNODE = 4;
        t(1).CENTRIFUGALPUMPORDERNUMBER = 2;
        SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDER(t, 1, o[0], o[1], o[2], o[3]);
        SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPTORQUEPERCENT(t, 1, p[0], p[1], p[2], p[3]);
        CALCULATE_CENTRIFUGALPUMP_LOADCASESETTING(t, 1);
    }
};

struct ElectricMotor {
    using Table = ElectricMotorTable;
    static constexpr bool WHOLE_ORDERS = false;
    static void set(Table& t, const MachineFour& o, const MachineFour& p) {
        using namespace GLOBAL_ELECTRICMOTOR;
        t(1).ELECTRICMOTORNODE = 4;
        SET_ELECTRICMOTOR_MOTORORDERNUMBER(t, 1, 2);
        SET_ELECTRICMOTOR_MOTORORDER(t, 1, o[0], o[1], o[2], o[3]);
        SET_ELECTRICMOTOR_MOTORTORQUEPERCENT(t, 1, p[0], p[1], p[2], p[3]);
        CALCULATE_ELECTRICMOTOR_LOADCASESETTING(t, 1);
    }
};

template <class Kind>
class FourOrderMachineTest : public ::testing::Test {};
using Kinds = ::testing::Types<Generator, CentrifugalPump, ElectricMotor>;
TYPED_TEST_SUITE(FourOrderMachineTest, Kinds);

TYPED_TEST(FourOrderMachineTest, OrdersAndAmplitudesAsTheForcedCalculationReadsThem) {
    typename TypeParam::Table table;
    table.allocate(1);
    table(1).SPEED = 1200.0;
    table(1).TORQUE = 1000.0;
    TypeParam::set(table, {1.5, 2.99, -1.5, 0.5}, {0.1, 0.2, 0.3, 0.4});
    FourOrderMachine m = four_order_machine(table, 1);
    EXPECT_EQ(m.NODE, 4);
    EXPECT_EQ(m.ORDERNUMBER, 2);
    EXPECT_EQ(m.SPEED, 1200.0);
    EXPECT_EQ(m.EXCITATIONSPEED, 1200.0);
    // TORQUE * fraction for all four entries, though only two orders are in use.
    EXPECT_EQ(m.TORQUEAMP, (MachineFour{100.0, 200.0, 300.0, 400.0}));
    if (TypeParam::WHOLE_ORDERS) {
        // Truncated toward zero; orders no integer can hold stay defined.
        EXPECT_EQ(m.ORDERS, (MachineFour{1.0, 2.0, -1.0, 0.0}));
        TypeParam::set(table, {std::numeric_limits<double>::quiet_NaN(), 1.0e12, -1.0e12, 7.9}, {});
        EXPECT_EQ(four_order_machine(table, 1).ORDERS, (MachineFour{0.0, INT_MAX, INT_MIN, 7.0}));
    } else {
        EXPECT_EQ(m.ORDERS, (MachineFour{1.5, 2.99, -1.5, 0.5}));
    }
    // A row outside the table reads as a machine without orders.
    m = four_order_machine(table, 2);
    EXPECT_EQ(m.ORDERNUMBER, 0);
    EXPECT_EQ(m.TORQUEAMP, MachineFour{});
}

TEST(FourOrderMachine, MotorOrderNumberInSinglePrecisionAndPumpPhase) {
    using namespace GLOBAL_ELECTRICMOTOR;
    ElectricMotorTable table;
    table.allocate(1);
    table(1).MOTORORDERNUMBER = 3.75F;  // truncated on the way out
    EXPECT_EQ(GET_ELECTRICMOTOR_MOTORORDERNUMBER(table, 1), 3);
    table(1).MOTORORDERNUMBER = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(GET_ELECTRICMOTOR_MOTORORDERNUMBER(table, 1), 0);
    EXPECT_EQ(GET_ELECTRICMOTOR_MOTORORDERNUMBER(table, 2), 0);

    CentrifugalPumpTable pump;
    pump.allocate(1);
    pump(1).CENTRIFUGALPUMPPHASEANGLE = 0.5;
    EXPECT_EQ(four_order_machine(pump, 1).PHASEANGLE, 0.5);
}

TEST(FourOrderMachine, MotorWithConstantExcitation) {
    using namespace GLOBAL_ELECTRICMOTOR;
    ElectricMotorTable table;
    table.allocate(1);
    table(1) = {.MCRTORQUE = 5000.0, .SPEED = 1000.0, .CONSTEXCITATIONFREQ = 750.0};
    SET_ELECTRICMOTOR_MOTORTORQUEPERCENT(table, 1, 0.1, 0.2, 0.3, 0.4);
    EXPECT_EQ(GET_ELECTRICMOTOR_CONSTEXCITATIONTORQUE(table, 1), 0.0);

    // 5000 * fraction in every load case, whatever the torque, at the converter's speed.
    table(1).EXCITATIONTYPE = 1;
    EXPECT_EQ(GET_ELECTRICMOTOR_CONSTEXCITATIONTORQUE(table, 1), 5000.0);
    for (double torque : {0.0, 1000.0, 20000.0}) {
        table(1).TORQUE = torque;
        CALCULATE_ELECTRICMOTOR_LOADCASESETTING(table, 1);
        EXPECT_EQ(table(1).MOTORTORQUEAMP, (MachineFour{500.0, 1000.0, 1500.0, 2000.0}));
    }
    EXPECT_EQ(four_order_machine(table, 1).EXCITATIONSPEED, 750.0);
    EXPECT_EQ(four_order_machine(table, 1).SPEED, 1000.0);
}

}  // namespace
