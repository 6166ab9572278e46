// Geislinger coupling: stiffness, undimensioned damping factor and damping over the
// frequency ratio, the load ratio and the magnifier, with the single-precision
// coefficients of the coupling's characteristics.
#include <gtest/gtest.h>

#include "components/GlobalGeislingerCoupling.h"
#include "base/Constants.h"

using namespace qm;
using namespace qm::GLOBAL_GEISLINGERCOUPLING;

namespace {

struct Case {
    double order;
    double expected;
};

// (3000/pi) * pi / 30 == 100.0 exactly in double arithmetic. With a characteristic
// frequency of 100 rad/s at the default viscosity 40, the ratio r equals the order.
GeislingerCouplingTable one_coupling(int dampingType = 0, int oilSupply = 0, int design = 0) {
    GeislingerCouplingTable table;
    table.allocate(1);
    table(1) = {.SHAFTNODE = 12, .DAMPINGTYPE = dampingType, .OILSUPPLYTYPE = oilSupply, .DESIGNTYPE = design,
                .NOMINALTORQUE = 100000.0, .STATICSTIFFNESS = 1.0e6, .CHARACTERISTICFREQUENCY = 100.0,
                .SPEEDEXCITATION = 3000.0 / PI, .TORQUE = 50000.0};  // load ratio t = 0.5
    return table;
}

TEST(GlobalGeislingerCoupling, StiffnessOverFrequencyRatio) {
    GeislingerCouplingTable table = one_coupling();
    const Case cases[] = {
        {0.5, 1185000.0023841858},  // 1e6 * (0.3700000047683716 * 0.5 + 1.0)
        {1.0, 1370000.0047683716},  // branches meet; 0.37 in double would give 1370000.0
        {2.0, 1640000.04529953},    // 1e6 * (0.27000001072883606 * 2 + 1.100000023841858)
        {0.0, 1.0e6},               // no excitation: static
    };
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(table, 1, c.order), c.expected)
            << "order " << c.order;

    // Viscosity 80 halves the reference frequency to 50 rad/s: order 0.5 is at r = 1.
    table(1).OILVISCOSITY = 80.0;
    EXPECT_DOUBLE_EQ(CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(table, 1, 0.5), 1370000.0047683716);

    // Zero speed of excitation or zero characteristic frequency: static at every order.
    table = one_coupling(GENERALDAMPING);
    table(1).SPEEDEXCITATION = 0.0;
    EXPECT_EQ(CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(table, 1, 2.0), 1.0e6);
    EXPECT_EQ(CALCULATE_GEISLINGERCOUPLING_DAMPING(table, 1, 0.5, 2.0), 0.0);
    table = one_coupling();
    table(1).CHARACTERISTICFREQUENCY = 0.0;
    for (double order : {0.5, 1.0, 3.0})
        EXPECT_EQ(CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(table, 1, order), 1.0e6);
}

TEST(GlobalGeislingerCoupling, DampingFactorWithPressurizedOil) {
    const GeislingerCouplingTable table = one_coupling(GEISLINGERDAMPING, WITHPRESSURIZED);
    const Case cases[] = {
        {0.1, 0.13000000193715094},                  // 1.100000023841858 * 0.1 + 0.019999999552965164
        {0.3, 0.3500000067055225},                   // 0.3 lies below the single-precision 0.3: first branch
        {0.30000001192092896, 0.35000001981854467},  // the single-precision 0.3 itself: first branch
        {0.5, 0.45000000298023224},                  // 0.5 * 0.5 + 0.20000000298023224
        {1.0, 0.7000000029802322},                   // top of the second branch
        {2.0, 0.699999988079071},                    // single-precision 0.7 above r = 1
        {0.0, 0.0},
    };
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(table, 1, 5.0, c.order),
                         c.expected)
            << "order " << c.order;
}

TEST(GlobalGeislingerCoupling, DampingFactorByLoadRatioAndMagnifier) {
    // Without pressurized oil, by the load ratio t = 0.5 whatever the order:
    // multi-spring 0.12999999523162842 * t + 0.057999998331069946 + 0.10999999940395355 * t^2
    // (0.1505 with the coefficients in double), dual-spring with 0.006899999920278788,
    // 0.03200000151991844 and 0.054999999701976776.
    GeislingerCouplingTable table = one_coupling(GEISLINGERDAMPING, WITHOUTPRESSURIZED, MULTISPRING);
    EXPECT_DOUBLE_EQ(CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(table, 1, 0.0, 1.0),
                     0.15049999579787254);
    table(1).DESIGNTYPE = DUALSPRING;
    EXPECT_DOUBLE_EQ(CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(table, 1, 0.0, 3.0),
                     0.04920000140555203);
    table(1).DESIGNTYPE = 0;
    EXPECT_EQ(CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(table, 1, 0.0, 1.0), 0.0);

    table = one_coupling(GENERALDAMPING);
    EXPECT_DOUBLE_EQ(CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(table, 1, 0.5, 1.0), 2.0);
    EXPECT_DOUBLE_EQ(CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(table, 1, 2.0, 1.0),
                     0.5773502691896257);  // sqrt(1 / (2^2 - 1))
    // Zero characteristic frequency (at any viscosity) or zero nominal torque: no damping,
    // magnifier or not.
    table(1).CHARACTERISTICFREQUENCY = 0.0;
    EXPECT_EQ(CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(table, 1, 0.5, 1.0), 0.0);
    table(1).OILVISCOSITY = 0.0;
    EXPECT_EQ(CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(table, 1, 0.5, 1.0), 0.0);
    table = one_coupling(GENERALDAMPING);
    table(1).NOMINALTORQUE = 0.0;
    EXPECT_EQ(CALCULATE_GEISLINGERCOUPLING_DAMPING(table, 1, 0.5, 1.0), 0.0);
}

TEST(GlobalGeislingerCoupling, DampingAndLoadCaseSetting) {
    GeislingerCouplingTable table = one_coupling(GENERALDAMPING);
    // Order 1 at 100 rad/s: d = 1 / 0.5, K = 1370000.0047683716, d * K / (1 * 100).
    const double expected = 27400.00009536743;
    EXPECT_DOUBLE_EQ(CALCULATE_GEISLINGERCOUPLING_DAMPING(table, 1, 0.5, 1.0), expected);
    EXPECT_EQ(CALCULATE_GEISLINGERCOUPLING_DAMPING(table, 1, 0.5, 0.0), 0.0);  // zero order
    CALCULATE_GEISLINGERCOUPLING_LOADCASESETTING(table, 1, 0.5, 1.0);
    EXPECT_DOUBLE_EQ(table(1).STIFFNESS, 1370000.0047683716);
    EXPECT_DOUBLE_EQ(table(1).DAMPING, expected);
    EXPECT_EQ(GET_GEISLINGERCOUPLING_IGEISLINGERCOUPLING_SHAFTNODE(table, 12), 1);
}

}  // namespace
