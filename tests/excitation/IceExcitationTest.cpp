// Ice coefficients of a propeller at the speed of a load case: interpolation between the
// columns of the ice tables, extrapolation above them, and the two rules below them.
#include <gtest/gtest.h>

#include <complex>

#include "excitation/IceExcitation.h"

using namespace qm;
using namespace qm::GLOBAL_PROPELLER;

namespace {

float f(double x) { return static_cast<float>(x); }

// One blade, so five rows: the constant term and four harmonics. Row k, column j holds
// cosine 10 k + j and sine -(k - 1) j; row 1 has no sine.
PropellerTable ice_propeller(std::initializer_list<double> ratios) {
    PropellerTable table;
    table.allocate(1);
    PropellerRecord& p = table(1);
    p.NBLADE = 1;
    p.MCRSPEED = 100.0;
    p.HASICEEXCITATION = true;
    p.NSPEEDRATIO = static_cast<int>(ratios.size());
    int j = 0;
    for (double r : ratios) p.SPEEDRATIO[j++] = r;
    const int S = p.NSPEEDRATIO;
    for (int k = 1; k <= 5; ++k)
        for (int c = 1; c <= S; ++c) {
            p.ICECOSINE[(k - 1) * S + c - 1] = 10.0 * k + c;
            p.ICESINE[(k - 1) * S + c - 1] = -(k - 1.0) * c;
        }
    p.ICEFOURIERCOEFFICIENT[4] = {7.0, 7.0};  // beyond the rows: must stay
    return table;
}

}  // namespace

TEST(IceExcitation, InterpolatesAndExtrapolatesOverSpeedRatio) {
    PropellerTable table = ice_propeller({0.5, 1.0});
    PropellerRecord& p = table(1);
    p.SPEED = 75.0;  // r = 0.75: the mean of the two columns
    CALCULATE_PROPELLER_FOURIERCOEFFICIENT(table, 1);
    EXPECT_DOUBLE_EQ(p.ICEFOURIERMEAN, 11.5);
    EXPECT_EQ(p.ICEFOURIERCOEFFICIENT[0], std::complex<double>(f(0.5 * 21.5), f(0.5 * -1.5)));
    EXPECT_EQ(p.ICEFOURIERCOEFFICIENT[3], std::complex<double>(f(0.5 * 51.5), f(0.5 * -6.0)));
    EXPECT_EQ(p.ICEFOURIERCOEFFICIENT[4], std::complex<double>(7.0, 7.0));

    // Exactly at a column above the first: that column alone.
    PropellerTable ten = ice_propeller({0.2, 0.4, 0.6, 0.8, 0.9, 1.0});
    ten(1).SPEED = 80.0;
    CALCULATE_PROPELLER_FOURIERCOEFFICIENT(ten, 1);
    EXPECT_EQ(ten(1).ICEFOURIERMEAN, 14.0);
    EXPECT_EQ(ten(1).ICEFOURIERCOEFFICIENT[1], std::complex<double>(17.0, -4.0));

    // r = 1.2 above columns 0.9 and 1.0: the last value plus twice their difference.
    ten(1).SPEED = 120.0;
    CALCULATE_PROPELLER_FOURIERCOEFFICIENT(ten, 1);
    EXPECT_NEAR(ten(1).ICEFOURIERMEAN, 16.0 + 2.0 * 1.0, 1e-12);
    EXPECT_EQ(ten(1).ICEFOURIERCOEFFICIENT[0], std::complex<double>(f(0.5 * 28.0), f(0.5 * -8.0)));
}

TEST(IceExcitation, BelowTheFirstColumn) {
    PropellerTable table = ice_propeller({0.5, 1.0});
    PropellerRecord& p = table(1);
    p.SPEED = 25.0;  // r = 0.25, half the first ratio

    p.ISTMAXCORRECTEDWITHACTUALSPEED = false;  // held at the first column
    CALCULATE_PROPELLER_FOURIERCOEFFICIENT(table, 1);
    EXPECT_EQ(p.ICEFOURIERMEAN, 11.0);
    EXPECT_EQ(p.ICEFOURIERCOEFFICIENT[2], std::complex<double>(20.5, -1.5));

    p.ISTMAXCORRECTEDWITHACTUALSPEED = true;  // scaled by r / first ratio, the mean too
    CALCULATE_PROPELLER_FOURIERCOEFFICIENT(table, 1);
    EXPECT_DOUBLE_EQ(p.ICEFOURIERMEAN, 5.5);
    EXPECT_EQ(p.ICEFOURIERCOEFFICIENT[2], std::complex<double>(10.25, -0.75));

    // A first ratio of 0 at standstill has no slope: the first column's values stand.
    PropellerTable zero = ice_propeller({0.0, 1.0});
    zero(1).SPEED = 0.0;
    zero(1).ISTMAXCORRECTEDWITHACTUALSPEED = true;
    CALCULATE_PROPELLER_FOURIERCOEFFICIENT(zero, 1);
    EXPECT_EQ(zero(1).ICEFOURIERMEAN, 11.0);
}
