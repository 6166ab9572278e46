// Reciprocating pump excitation: the pump file on one bank, the second side of a
// double-acting cylinder, the opposite bank, and the simplified torques per order.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <vector>

#include "ComplexExpect.h"
#include "base/Constants.h"
#include "excitation/PumpExcitation.h"

using namespace qm;
using namespace qm::GLOBAL_RECIPROCATINGPUMP;
using cd = std::complex<double>;

namespace {

// A triplex pump, 150 mm bore and 200 mm stroke, at 300 rpm and 80 % of its rated speed;
// its file has two orders at 50 % and 100 % speed.
ReciprocatingPumpTable triplex() {
    ReciprocatingPumpTable table;
    table.allocate(1);
    table(1) = {.VANGLE = 180.0, .SPEED = 300.0, .SPEEDPERCENTAGE = 0.8, .TORQUE = 2000.0,
                .NCYLINDER = 3, .BORE = 0.15, .STROKELENGTH = 0.2, .CONRODRATIO = 0.2,
                .RECIPMASS = 40.0, .ISSIMPLIFIEDPRESSURE = false, .NHARMONICORDER = 2,
                .NSPEEDPERCENTAGE = 2, .SPEEDPERCENTAGES = {0.5, 1.0},
                .NORMALRESULTANT = {1.0e5, 2.0e5, 4.0e4, 4.0e4},
                .NORMALPHASEANGLE = {0.0, 0.0, PI / 2, PI / 2}};
    return table;
}

constexpr double R = 0.1;
const double RA = R * PI * 0.15 * 0.15 * 0.25;
const double RRMW2 = R * R * 40.0 * std::pow(PI * 300.0 / 30.0, 2);  // mass term factor

}  // namespace

// Single-acting on one bank: each cylinder gets the file's harmonics at its speed
// percentage; the places the file doesn't reach have the mass term alone.
TEST(PumpExcitation, SingleActingPumpFromItsFile) {
    ReciprocatingPumpTable table = triplex();
    for (int j = 1; j <= 3; ++j) CALCULATE_RECIPROCATINGPUMP_FOURIERCOEFFICIENT(table, 1, j, true);
    const ReciprocatingPumpRecord& p = table(1);
    const auto& gas = p.GASFCPERCYLINDER[2].NORMALGASFCBANKA;
    EXPECT_FLOAT_EQ(gas[0].imag(), -0.5 * 1.6e5);  // order 1: 1e5 + 0.6 * 1e5 at phase 0
    EXPECT_FLOAT_EQ(gas[1].real(), 2.0e4);
    EXPECT_EQ(gas[2], cd{});
    EXPECT_EQ(p.GASFCPERCYLINDER[0].NORMALGASFCBANKB[0], cd{});

    std::vector<cd> torque;
    CALCULATE_RECIPROCATINGPUMP_CYLFOURIERCOEFFICIENTS(table, 1, 2, torque);
    ASSERT_EQ(torque.size(), 20u);
    for (int k : {1, 2, 3, 20})
        EXPECT_COMPLEX_NEAR(torque[k - 1], RA * gas[k - 1] - RRMW2 * p.MASSFC[k - 1], 1e-9 * 1e4);
}

// Double-acting on one bank with the V angle at 180 degrees: the back side lies half a
// turn behind, so odd harmonics cancel and even ones double. With the opposite bank as
// well (V angle 90), bank B turns by a quarter and counts twice, the back side by a half.
TEST(PumpExcitation, DoubleActingAndOppositeCylinders) {
    ReciprocatingPumpTable table = triplex();
    ReciprocatingPumpRecord& p = table(1);
    const cd mass(0.2, 0.1), gasA(3.0e4, -1.0e4), gasB(-2.0e4, 5.0e3);
    p.MASSFC.fill(mass);
    p.GASFCPERCYLINDER[0].NORMALGASFCBANKA.fill(gasA);
    p.GASFCPERCYLINDER[0].NORMALGASFCBANKB.fill(gasB);
    const cd m = RRMW2 * mass;
    std::vector<cd> torque;

    p.ISDOUBLEACTING = true;
    CALCULATE_RECIPROCATINGPUMP_CYLFOURIERCOEFFICIENTS(table, 1, 1, torque);
    for (int k = 1; k <= 20; ++k) {
        SCOPED_TRACE(k);
        const cd t = k % 2 == 0 ? 2.0 * (RA * gasA - m) : cd{};
        EXPECT_COMPLEX_NEAR(torque[k - 1], t, 1e-6 * k * std::abs(RA * gasA));
    }

    p.ISOPPOSITE = true;
    p.VANGLE = 90.0;
    CALCULATE_RECIPROCATINGPUMP_CYLFOURIERCOEFFICIENTS(table, 1, 1, torque);
    for (int k = 1; k <= 20; ++k) {
        SCOPED_TRACE(k);
        const cd quarter = std::pow(cd(0.0, -1.0), k);
        const double half = std::pow(-1.0, k);
        const cd t = RA * (gasA + 2.0 * gasB * quarter + gasA * half) - m * (1.0 + 2.0 * quarter + half);
        EXPECT_COMPLEX_NEAR(torque[k - 1], t, 1e-6 * k * (1.0 + std::abs(t)));
    }
}

// Simplified pressure: the torques per order from the load case setting with the mass
// term; an order above the 20 places of the axis has no effect.
TEST(PumpExcitation, SimplifiedPressure) {
    ReciprocatingPumpTable table = triplex();
    ReciprocatingPumpRecord& p = table(1);
    p.ISSIMPLIFIEDPRESSURE = true;
    p.RECIPROCATINGPUMPORDERNUMBER = 2;
    p.RECIPROCATINGPUMPORDER = {3.0, 22.0, 0.0, 0.0};
    p.RECIPROCATINGPUMPTORQUEPERCENT = {0.1, 0.5, 0.0, 0.0};
    CALCULATE_RECIPROCATINGPUMP_FOURIERCOEFFICIENT(table, 1, 1, true);
    EXPECT_EQ(p.GASFCPERCYLINDER[0].NORMALGASFCBANKA[0], cd{});
    EXPECT_FLOAT_EQ(p.TORQUEAMP[2].imag(), -100.0);
    EXPECT_NE(p.TORQUEAMP[21], cd{});

    std::vector<cd> torque;
    CALCULATE_RECIPROCATINGPUMP_CYLFOURIERCOEFFICIENTS(table, 1, 1, torque);
    ASSERT_EQ(torque.size(), 20u);
    for (int k : {3, 20}) EXPECT_COMPLEX_NEAR(torque[k - 1], p.TORQUEAMP[k - 1] - RRMW2 * p.MASSFC[k - 1], 1e-9);
}
