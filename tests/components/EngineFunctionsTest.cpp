// Pressure laws of a cylinder. Expected values are worked by hand from the load laws with
// the single-precision constants; EXPECT_DOUBLE_EQ (4 ulp) is tight enough that writing
// 1.1 for 1.100000023841858 or 1.32 for 1.3199999332427979 fails.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "components/EngineFunctions.h"

using namespace qm::ENGINE_FUNCTIONS;

namespace {

// Rated point of all cases: 100 W per cylinder at 100 rpm, so r = (P/N) / 1.
constexpr double P0 = 100.0;
constexpr double N0 = 100.0;

TEST(EngineFunctions, TorqueRatioIsCappedInIeeeArithmetic) {
    EXPECT_DOUBLE_EQ(torque_ratio(P0, N0, 50.0, 100.0), 0.5);
    // Half power at half speed is full torque.
    EXPECT_DOUBLE_EQ(torque_ratio(P0, N0, 50.0, 50.0), 1.0);
    // 2.0 is cut to the single-precision 1.1.
    EXPECT_EQ(torque_ratio(P0, N0, 200.0, 100.0), 1.100000023841858);
    // Power at standstill or a zero rated power: an infinite ratio, cut to 1.1.
    EXPECT_EQ(torque_ratio(P0, N0, 50.0, 0.0), 1.100000023841858);
    EXPECT_EQ(torque_ratio(0.0, N0, 50.0, 100.0), 1.100000023841858);
    // A zero rated speed makes the rated torque infinite: ratio 0.
    EXPECT_EQ(torque_ratio(P0, 0.0, 50.0, 100.0), 0.0);
    // No power at standstill has no ratio at all.
    EXPECT_TRUE(std::isnan(torque_ratio(P0, N0, 0.0, 0.0)));
}

TEST(EngineFunctions, PowerAtStandstillLoadsThePressuresAsTheCap) {
    // r = inf is cut to 1.1, the same as twice the rated torque at speed.
    for (int nStroke : {2, 4}) {
        EXPECT_EQ(CALCULATE_PINLET(P0, N0, 50.0, 0.0, 300001.0, nStroke),
                  CALCULATE_PINLET(P0, N0, 200.0, 100.0, 300001.0, nStroke));
        EXPECT_EQ(CALCULATE_PMAX(P0, N0, 50.0, 0.0, 1.5e7, 1e7, nStroke), 1.5e7);
    }
    EXPECT_EQ(CALCULATE_PCOMP(P0, N0, 50.0, 0.0, 1e7), 1e7);
}

TEST(EngineFunctions, InletPressureFollowsLoadWithFloorAndNoCeiling) {
    // Two-stroke, r = 0.5: 300001 - 300000 * 1.2400000095367432 * 0.5 = 114000.99856948853
    EXPECT_DOUBLE_EQ(CALCULATE_PINLET(P0, N0, 50.0, 100.0, 300001.0, 2), 114000.99856948853);
    // Four-stroke above full torque, r capped at 1.100000023841858:
    // 300001 + 300000 * 1.2799999713897705 * 0.100000023841858 = 338401.0082969663,
    // above the rated 300001 (no upper limit). With 1.1 in full precision it would be 338400.99914.
    EXPECT_DOUBLE_EQ(CALCULATE_PINLET(P0, N0, 300.0, 100.0, 300001.0, 4), 338401.0082969663);
    // No load: 150001 - 150000 * 1.24 < 0, held at one bar.
    EXPECT_EQ(CALCULATE_PINLET(P0, N0, 0.0, 100.0, 150001.0, 2), 100000.0);
    // Any nStroke other than 2 is a four-stroke: slope 1.28 at r = 0.5 gives
    // 300001 - 300000 * 1.2799999713897705 * 0.5 = 108001.00429153442.
    EXPECT_DOUBLE_EQ(CALCULATE_PINLET(P0, N0, 50.0, 100.0, 300001.0, 3), 108001.00429153442);
}

TEST(EngineFunctions, CompressionPressureBetweenFloorAndRating) {
    // r = 0.5: 1e7 - 1e7 * 1.3199999332427979 * 0.5 = 3400000.3337860107 (1.32 would give 3400000.0)
    EXPECT_DOUBLE_EQ(CALCULATE_PCOMP(P0, N0, 50.0, 100.0, 1e7), 3400000.3337860107);
    // r = 0: 1e7 - 1.32e7 < floor 0.30000001192092896 * 1e7
    EXPECT_DOUBLE_EQ(CALCULATE_PCOMP(P0, N0, 0.0, 100.0, 1e7), 3000000.1192092896);
    // r capped at 1.1: 1e7 * (1 + 1.32 * 0.1) is cut back to the rating.
    EXPECT_EQ(CALCULATE_PCOMP(P0, N0, 500.0, 100.0, 1e7), 1e7);
}

TEST(EngineFunctions, MaximumPressureLimitsApplyInOrder) {
    // Two-stroke r = 0.5, no compression limit: 1.5e7 - 1.5e7 * 0.6399999856948853 * 0.5
    EXPECT_DOUBLE_EQ(CALCULATE_PMAX(P0, N0, 50.0, 100.0, 1.5e7, 0.0, 2), 10200000.10728836);
    // Four-stroke r = 0.5: the law gives 8999999.91, the compression limit
    // 1.100000023841858 * 1e7 = 11000000.23841858 lifts it.
    EXPECT_DOUBLE_EQ(CALCULATE_PMAX(P0, N0, 50.0, 100.0, 1.5e7, 1e7, 4), 11000000.23841858);
    // r = 0: 0.2 * pMax is lifted to the floor 0.30000001192092896 * 1.5e7.
    EXPECT_DOUBLE_EQ(CALCULATE_PMAX(P0, N0, 0.0, 100.0, 1.5e7, 0.0, 4), 4500000.178813934);
    // A compression limit above pMax (2.2e7) is cut back to pMax by the last step.
    EXPECT_EQ(CALCULATE_PMAX(P0, N0, 50.0, 100.0, 1.5e7, 2e7, 4), 1.5e7);
    // Above full torque the law exceeds pMax and is cut to it.
    EXPECT_EQ(CALCULATE_PMAX(P0, N0, 500.0, 100.0, 1.5e7, 0.0, 2), 1.5e7);
}

TEST(EngineFunctions, MeanEffectivePressureUsesSinglePrecisionPi) {
    // Four-stroke, 120 rpm, bore 1 m, stroke 1 m: 1000 / (1 * 3.1415927410125732 * 0.25)
    // = 1273.2395093040454; the double pi would give 1273.2395447351628.
    EXPECT_DOUBLE_EQ(CALCULATE_MEP(1000.0, 120.0, 1.0, 4, 1.0), 1273.2395093040454);
    // Two-stroke, 60 rpm, bore 0.5 m, stroke 2 m: 1 / (pi1 * 0.25 * 0.25 * 2) = 8 / pi1.
    EXPECT_DOUBLE_EQ(CALCULATE_MEP(1.0, 60.0, 0.5, 2, 2.0), 2.546479018608091);
    // A vanishing denominator gives an infinite pressure, as the arithmetic has it.
    EXPECT_EQ(CALCULATE_MEP(1000.0, 0.0, 1.0, 4, 1.0), std::numeric_limits<double>::infinity());
    EXPECT_EQ(CALCULATE_MEP(1000.0, 120.0, 0.0, 4, 1.0), std::numeric_limits<double>::infinity());
}

TEST(EngineFunctions, MeanIndicatedPressureInterpolatesByLoad) {
    // mep 1e6, me 0.8: a = 1.25e6, b = 0.2e6, half load b + 0.5 (a - b) = 725000
    EXPECT_DOUBLE_EQ(CALCULATE_MIP(0.0, 1e6, 0.5, 0.8, 1e9), 725000.0);
    // mepNow has no part in the result.
    EXPECT_EQ(CALCULATE_MIP(123.0, 1e6, 0.5, 0.8, 1e9), CALCULATE_MIP(9e9, 1e6, 0.5, 0.8, 1e9));
    // The limit caps it; at zero load only the friction share b is left.
    EXPECT_EQ(CALCULATE_MIP(0.0, 1e6, 0.5, 0.8, 7e5), 7e5);
    EXPECT_DOUBLE_EQ(CALCULATE_MIP(0.0, 1e6, 0.0, 0.8, 1e9), 200000.0);
    // 1.2 * (1e6 / 0.8)
    EXPECT_DOUBLE_EQ(CALCULATE_MIP_MAX(1e6, 0.8, 1.2), 1.5e6);
}

}  // namespace
