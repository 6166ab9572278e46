// Ice coefficients of a propeller at the speed of a load case: interpolation between the
// columns of the ice tables, extrapolation above them, and the two rules below them.
#include <gtest/gtest.h>

#include <algorithm>
#include <complex>

#include "excitation/IceExcitation.h"

using namespace qm;
using namespace qm::GLOBAL_PROPELLER;
using cd = std::complex<double>;

namespace {

float f(double x) { return static_cast<float>(x); }

// A one-bladed propeller (five rows: the constant term and four harmonics) at `speed` rpm
// of 100: row k, column j holds cosine 10 k + j and sine -(k - 1) j.
PropellerRecord ice_at(std::initializer_list<double> ratios, double speed, bool corrected = false) {
    PropellerTable table;
    table.allocate(1);
    PropellerRecord& p = table(1);
    p = {.MCRSPEED = 100.0, .SPEED = speed, .NBLADE = 1, .ISTMAXCORRECTEDWITHACTUALSPEED = corrected};
    const int S = p.NSPEEDRATIO = static_cast<int>(ratios.size());
    std::copy(ratios.begin(), ratios.end(), p.SPEEDRATIO.begin());
    for (int k = 1; k <= 5; ++k)
        for (int c = 1; c <= S; ++c) {
            p.ICECOSINE[(k - 1) * S + c - 1] = 10.0 * k + c;
            p.ICESINE[(k - 1) * S + c - 1] = -(k - 1.0) * c;
        }
    p.ICEFOURIERCOEFFICIENT[4] = {7.0, 7.0};  // beyond the rows: must stay
    CALCULATE_PROPELLER_FOURIERCOEFFICIENT(table, 1);
    return p;
}

}  // namespace

TEST(IceExcitation, InterpolatesAndExtrapolatesOverSpeedRatio) {
    const PropellerRecord mid = ice_at({0.5, 1.0}, 75.0);  // the mean of the two columns
    EXPECT_DOUBLE_EQ(mid.ICEFOURIERMEAN, 11.5);
    EXPECT_EQ(mid.ICEFOURIERCOEFFICIENT[0], cd(f(0.5 * 21.5), f(0.5 * -1.5)));
    EXPECT_EQ(mid.ICEFOURIERCOEFFICIENT[3], cd(f(0.5 * 51.5), f(0.5 * -6.0)));
    EXPECT_EQ(mid.ICEFOURIERCOEFFICIENT[4], cd(7.0, 7.0));

    // Exactly at a column above the first: that column alone.
    const PropellerRecord at = ice_at({0.2, 0.4, 0.6, 0.8, 0.9, 1.0}, 80.0);
    EXPECT_EQ(at.ICEFOURIERMEAN, 14.0);
    EXPECT_EQ(at.ICEFOURIERCOEFFICIENT[1], cd(17.0, -4.0));

    // r = 1.2 above columns 0.9 and 1.0: the last value plus twice their difference.
    const PropellerRecord above = ice_at({0.2, 0.4, 0.6, 0.8, 0.9, 1.0}, 120.0);
    EXPECT_NEAR(above.ICEFOURIERMEAN, 16.0 + 2.0 * 1.0, 1e-12);
    EXPECT_EQ(above.ICEFOURIERCOEFFICIENT[0], cd(f(0.5 * 28.0), f(0.5 * -8.0)));
}

TEST(IceExcitation, BelowTheFirstColumn) {
    const PropellerRecord held = ice_at({0.5, 1.0}, 25.0);  // at the first column's values
    EXPECT_EQ(held.ICEFOURIERMEAN, 11.0);
    EXPECT_EQ(held.ICEFOURIERCOEFFICIENT[2], cd(20.5, -1.5));

    // Corrected with the actual speed: scaled by r / first ratio, the mean too.
    const PropellerRecord scaled = ice_at({0.5, 1.0}, 25.0, true);
    EXPECT_DOUBLE_EQ(scaled.ICEFOURIERMEAN, 5.5);
    EXPECT_EQ(scaled.ICEFOURIERCOEFFICIENT[2], cd(10.25, -0.75));

    // A first ratio of 0 at standstill leaves the line without a slope: column 1 stands.
    EXPECT_EQ(ice_at({0.0, 1.0}, 0.0, true).ICEFOURIERMEAN, 11.0);
}
