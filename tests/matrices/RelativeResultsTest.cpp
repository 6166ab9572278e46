#include <gtest/gtest.h>

#include <cmath>

#include "../support/TestModels.h"
#include "base/Constants.h"
#include "matrices/FreeVibration.h"
#include "matrices/RelativeResults.h"

namespace qm {
namespace {

using namespace FREEVIBRATION;

// Sums of sines and cosines over a cycle cancel to rounding of a few units of 1e-16.
constexpr double CANCELLATION_TOLERANCE = 1e-12;

// The relative deflection (per mode, one record per inertia row) and torque (per mode, one
// record per shaft row) of a free calculation of `t`.
struct Relative {
    std::vector<double> d, q;
    std::size_t nmass, nshaft;
    explicit Relative(ModelTables& t)
        : nmass(static_cast<std::size_t>(t.MASS_TABLE.size())), nshaft(static_cast<std::size_t>(t.SHAFT_TABLE.size())) {
        test::ScratchDir dir;
        RunContext ctx = test::run_in(dir.str());
        FREEVIBRATIONCALCULATION(ctx, t);
        d = test::read_records(dir / RELATIVEDEFLECTIONFILE);
        q = test::read_records(dir / RELATIVETORQUEFILE);
    }
    double x(std::size_t mode, std::size_t row) const { return d[mode * nmass + row - 1]; }
    double torque(std::size_t mode, std::size_t row) const { return q[mode * nshaft + row - 1]; }
};

TEST(RelativeResults, WithoutEngineOrPropellerTheFirstInertiaIsTheReference) {
    test::Model line;
    line.mass(1, 100.0).mass(2, 10.0).mass(3, 50.0).shaft(1, 2, 1e6).shaft(2, 3, 2e6);
    const Relative r(line);
    ASSERT_EQ(r.d.size(), 2U * 3U);
    ASSERT_EQ(r.q.size(), 2U * 2U);
    for (std::size_t m = 0; m < 2; ++m) {
        EXPECT_EQ(r.x(m, 1), 1.0);
        // Torque of shaft 1 in mode m: k * (deflection of node 1 - deflection of node 2).
        EXPECT_DOUBLE_EQ(r.torque(m, 1), 1e6 * (r.x(m, 1) - r.x(m, 2)));
    }
}

TEST(RelativeResults, AnEngineLineIsNormalisedToItsLargestCylinderWithItsSign) {
    // Six cylinders between a light front end and a heavy propeller: in the higher modes
    // the light front end swings more than any cylinder. Over seven modes the largest
    // cylinder deflection of the eigenvectors has either sign; it always shows +1.0.
    test::Model line;
    line.mass(1, 5.0).mass(8, 2000.0).shaft(1, 2, 1e7).shaft(7, 8, 2e6);
    for (int c = 2; c <= 7; ++c) line.mass(c, 300.0 + 10.0 * c, 1.0, CODES::MASSTYPE_DIESELCYLINDER);
    for (int c = 2; c < 7; ++c) line.shaft(c, c + 1, 5e7);
    test::append(line.t.DIESEL_TABLE, {.NSTROKE = 2});
    const Relative r(line);
    ASSERT_EQ(r.d.size(), 7U * 8U);
    bool larger_elsewhere = false;
    for (std::size_t m = 0; m < 7; ++m) {
        double largest = 0.0;
        bool reference = false;
        for (std::size_t row = 3; row <= 8; ++row) {
            largest = std::max(largest, std::fabs(r.x(m, row)));
            reference |= r.x(m, row) == 1.0;
        }
        EXPECT_EQ(largest, 1.0) << "mode " << m + 2;
        EXPECT_TRUE(reference) << "mode " << m + 2;
        larger_elsewhere |= std::fabs(r.x(m, 1)) > 1.0;
    }
    EXPECT_TRUE(larger_elsewhere);
}

TEST(RelativeResults, DamperRingAndItsSpringHoldZeroAndGearedShaftsUseStaticStiffness) {
    // 1 engine side, 2 casing, 3 ring, 4 geared load at ratio 2.
    test::Model line;
    line.mass(1, 400.0).shaft(1, 2, 3e7).viscous_damper(1, 2, 30.0, 3, 20.0, 1e6);
    line.mass(4, 100.0, 2.0).shaft(1, 4, 4e6, 2.0);
    const Relative r(line);
    ASSERT_EQ(r.d.size(), 2U * 4U);  // N = 3 free degrees of freedom, NMASS = 4 rows
    ASSERT_EQ(r.q.size(), 2U * 3U);
    for (std::size_t m = 0; m < 2; ++m) {
        EXPECT_EQ(r.x(m, 3), 0.0);
        EXPECT_EQ(r.torque(m, 2), 0.0);
        EXPECT_DOUBLE_EQ(r.torque(m, 3), 4e6 * (r.x(m, 1) - r.x(m, 4)));
    }
}

// Vector sums fed directly with chosen deflections.
struct Engines {
    MassTable masses;
    DieselTable engines;
    Table<double> D, deflection, rpm, angle, sum;
    test::ScratchDir dir;
    RunContext ctx = test::run_in(dir.str());
    Engines(int ncyl, int N) {
        masses.allocate(ncyl);
        for (int r = 1; r <= ncyl; ++r) masses(r).ID = 10 + r;
        D.allocate(N);
        for (int m = 2; m <= N; ++m) D(m) = 1000.0 * (m - 1);
        deflection.allocate((N - 1) * ncyl);
    }
    // An engine of ncyl cylinders on inertias 11, 12, ... firing at equal spacing.
    DieselRecord& engine(int nstroke, int ncyl, double spacing_deg) {
        DieselRecord& d = test::append(engines);
        d.NSTROKE = nstroke;
        d.NCYLINDER = ncyl;
        for (int j = 0; j < ncyl; ++j) {
            d.CYLINDERS[static_cast<std::size_t>(j)] = 11 + j;
            d.FIRINGANGLEA[static_cast<std::size_t>(j)] = j * spacing_deg * PI / 180.0;
        }
        return d;
    }
    void run(int N) { FREEVIBRATION::VECTORSUMS(ctx, masses, engines, N, D, deflection, rpm, angle, sum); }
};

TEST(VectorSums, SixCylindersAtSixtyDegreesAddUpOnlyAtTheMultiplesOfSix) {
    Engines x(6, 2);
    x.engine(2, 6, 60.0);
    for (int r = 1; r <= 6; ++r) x.deflection(r) = 0.8;
    x.run(2);
    const auto sum = test::read_records(x.dir / VECTORSUMFILE);
    const auto rpm = test::read_records(x.dir / VECTORSUMRPMFILE);
    const auto angle = test::read_records(x.dir / VECTORSUMANGLEFILE);
    ASSERT_EQ(sum.size(), 20U);
    for (std::size_t o = 1; o <= 20; ++o) {
        EXPECT_NEAR(sum[o - 1], o % 6 == 0 ? 1.0 : 0.0, CANCELLATION_TOLERANCE) << o;
        EXPECT_GE(angle[o - 1], 0.0);
        EXPECT_LT(angle[o - 1], 2.0 * PI);
    }
    EXPECT_EQ(sum[5], 1.0);    // order 6 is the first strongest: exactly 1.0 ...
    EXPECT_EQ(angle[5], 0.0);  // ... at angle 0.0
    // 1000 rad/s meets order 5 at 1000 * 30 / pi / 5 rpm.
    EXPECT_DOUBLE_EQ(rpm[4], 1909.8593171027440);
    EXPECT_FALSE(x.sum.allocated());  // nothing is kept
}

TEST(VectorSums, FourStrokeEnginesHaveHalfOrdersAndSetTheOrderCountForAll) {
    Engines x(2, 2);
    x.engine(2, 1, 0.0);
    x.engine(4, 1, 0.0).CYLINDERS[0] = 12;
    x.deflection(1) = 1.0;
    x.deflection(2) = 0.5;
    x.run(2);
    const auto rpm = test::read_records(x.dir / VECTORSUMRPMFILE);
    ASSERT_EQ(rpm.size(), 2U * 24U);
    const double base = 1000.0 * 30.0 / PI;
    EXPECT_DOUBLE_EQ(rpm[23], base / 24.0);       // two-stroke: order 24 at place 24
    EXPECT_DOUBLE_EQ(rpm[24 + 0], base / 0.5);    // four-stroke: order 0.5 at place 1
    EXPECT_DOUBLE_EQ(rpm[24 + 23], base / 12.0);  // and order 12 at place 24
}

TEST(VectorSums, AModeWithoutCylinderMotionGivesZerosNotNaN) {
    Engines x(3, 3);
    x.engine(2, 3, 120.0).ISVENGINE = true;  // bank B at the same angles
    for (int r = 1; r <= 3; ++r) x.deflection(r) = 0.0;        // mode 2 at rest
    for (int r = 1; r <= 3; ++r) x.deflection(3 + r) = r * 1.0;  // mode 3 moving
    x.run(3);
    const auto sum = test::read_records(x.dir / VECTORSUMFILE);
    const auto angle = test::read_records(x.dir / VECTORSUMANGLEFILE);
    ASSERT_EQ(sum.size(), 2U * 20U);
    EXPECT_EQ(std::vector<double>(sum.begin(), sum.begin() + 20), std::vector<double>(20, 0.0));
    EXPECT_EQ(std::vector<double>(angle.begin(), angle.begin() + 20), std::vector<double>(20, 0.0));
    // Order 3 of three cylinders at 120 degrees adds all in phase: 2 banks * (1+2+3).
    EXPECT_DOUBLE_EQ(sum[20 + 2], 1.0);
}

}  // namespace
}  // namespace qm
