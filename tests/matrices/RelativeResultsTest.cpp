#include <gtest/gtest.h>

#include <cmath>

#include "../TestSupport.h"
#include "base/Constants.h"
#include "matrices/FreeVibration.h"
#include "matrices/RelativeResults.h"

namespace qm {
namespace {

using namespace FREEVIBRATION;

// Sums of sines and cosines over a cycle cancel to rounding of a few units of 1e-16.
constexpr double CANCELLATION_TOLERANCE = 1e-12;

struct Line {
    ModelTables t;
    test::ScratchDir dir;
    RunContext ctx = test::run_in(dir.str());

    void masses(std::initializer_list<std::tuple<int, double, int, double>> rows) {  // ID, inertia, type, ratio
        t.MASS_TABLE.allocate(static_cast<int>(rows.size()));
        int r = 0;
        for (auto [id, inertia, type, ratio] : rows) {
            MassRecord& m = t.MASS_TABLE(++r);
            m.ID = id;
            m.INERTIA = inertia;
            m.MASSTYPE = type;
            m.RPMRATIO = ratio;
        }
    }
    void shafts(std::initializer_list<std::tuple<int, int, double, int, double>> rows) {  // org, des, k, type, ratio
        t.SHAFT_TABLE.allocate(static_cast<int>(rows.size()));
        int s = 0;
        for (auto [org, des, k, type, ratio] : rows) {
            ShaftRecord& sh = t.SHAFT_TABLE(++s);
            sh.ID = s;
            sh.ORGNODE = org;
            sh.DESNODE = des;
            sh.STIFFNESS = k;
            sh.SHAFTTYPE = type;
            sh.RPMRATIO = ratio;
        }
    }
    void run() {
        FREEVIBRATIONCALCULATION(ctx, t);
    }
    std::vector<double> file(const char* name) const { return test::read_records(dir / name); }
};

TEST(RelativeResults, ASingleInertiaGivesEmptyFiles) {
    Line l;
    l.masses({{1, 10.0, 1, 1.0}});
    l.run();
    EXPECT_TRUE(std::filesystem::exists(l.dir / RELATIVEDEFLECTIONFILE));
    EXPECT_TRUE(l.file(RELATIVEDEFLECTIONFILE).empty());
    EXPECT_TRUE(l.file(RELATIVETORQUEFILE).empty());
    EXPECT_FALSE(std::filesystem::exists(l.dir / VECTORSUMFILE));  // no engine
}

TEST(RelativeResults, WithoutEngineOrPropellerTheFirstInertiaIsTheReference) {
    Line l;
    l.masses({{1, 100.0, 1, 1.0}, {2, 10.0, 1, 1.0}, {3, 50.0, 1, 1.0}});
    l.shafts({{1, 2, 1e6, 9, 1.0}, {2, 3, 2e6, 9, 1.0}});
    l.run();
    const auto d = l.file(RELATIVEDEFLECTIONFILE);
    const auto q = l.file(RELATIVETORQUEFILE);
    ASSERT_EQ(d.size(), 2U * 3U);
    ASSERT_EQ(q.size(), 2U * 2U);
    for (int m = 0; m < 2; ++m) {
        EXPECT_EQ(d[static_cast<std::size_t>(m * 3)], 1.0);
        // Torque of shaft 1 in mode m: k * (deflection of node 1 - deflection of node 2).
        EXPECT_DOUBLE_EQ(q[static_cast<std::size_t>(m * 2)], 1e6 * (d[static_cast<std::size_t>(m * 3)] -
                                                                   d[static_cast<std::size_t>(m * 3 + 1)]));
    }
}

TEST(RelativeResults, AnEngineLineIsNormalisedToItsLargestCylinderWithItsSign) {
    // Two cylinders (type 2) between a light front end and a heavy propeller: in the
    // higher mode the light front end swings more than any cylinder.
    Line l;
    l.masses({{1, 5.0, 1, 1.0}, {2, 300.0, 2, 1.0}, {3, 300.0, 2, 1.0}, {4, 2000.0, 1, 1.0}});
    l.shafts({{1, 2, 1e7, 9, 1.0}, {2, 3, 5e7, 9, 1.0}, {3, 4, 2e6, 9, 1.0}});
    l.t.DIESEL_TABLE.allocate(1);
    l.t.DIESEL_TABLE(1).NSTROKE = 2;
    l.run();
    const auto d = l.file(RELATIVEDEFLECTIONFILE);
    ASSERT_EQ(d.size(), 3U * 4U);
    bool larger_elsewhere = false;
    for (int m = 0; m < 3; ++m) {
        const double c1 = d[static_cast<std::size_t>(m * 4 + 1)], c2 = d[static_cast<std::size_t>(m * 4 + 2)];
        EXPECT_EQ(std::max(std::fabs(c1), std::fabs(c2)), 1.0);
        EXPECT_TRUE(c1 == 1.0 || c2 == 1.0);  // the reference keeps its sign: it shows +1.0
        larger_elsewhere |= std::fabs(d[static_cast<std::size_t>(m * 4)]) > 1.0;
    }
    EXPECT_TRUE(larger_elsewhere);
}

TEST(RelativeResults, DamperRingAndItsSpringHoldZeroAndGearedShaftsUseStaticStiffness) {
    // 1 engine side, 2 casing, 3 ring (type 3), 4 geared load at ratio 2.
    Line l;
    l.masses({{1, 400.0, 1, 1.0}, {2, 30.0, 4, 1.0}, {3, 20.0, 3, 1.0}, {4, 100.0, 1, 2.0}});
    l.shafts({{1, 2, 3e7, 9, 1.0}, {2, 3, 1e6, 12, 1.0}, {1, 4, 4e6, 9, 2.0}});
    l.t.VISCOUSDAMPER_TABLE.allocate(1);
    l.t.VISCOUSDAMPER_TABLE(1).CASINGNODE = 2;
    l.t.VISCOUSDAMPER_TABLE(1).RINGNODE = 3;
    l.run();
    const auto d = l.file(RELATIVEDEFLECTIONFILE);
    const auto q = l.file(RELATIVETORQUEFILE);
    ASSERT_EQ(d.size(), 2U * 4U);  // N = 3 free degrees of freedom, NMASS = 4 rows
    ASSERT_EQ(q.size(), 2U * 3U);
    for (int m = 0; m < 2; ++m) {
        EXPECT_EQ(d[static_cast<std::size_t>(m * 4 + 2)], 0.0);
        EXPECT_EQ(q[static_cast<std::size_t>(m * 3 + 1)], 0.0);
        EXPECT_DOUBLE_EQ(q[static_cast<std::size_t>(m * 3 + 2)],
                         4e6 * (d[static_cast<std::size_t>(m * 4)] - d[static_cast<std::size_t>(m * 4 + 3)]));
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
    void engine(int e, int nstroke, int ncyl, double spacing_deg) {
        DieselRecord& d = engines(e);
        d.NSTROKE = nstroke;
        d.NCYLINDER = ncyl;
        for (int j = 0; j < ncyl; ++j) {
            d.CYLINDERS[static_cast<std::size_t>(j)] = 11 + j;
            d.FIRINGANGLEA[static_cast<std::size_t>(j)] = j * spacing_deg * PI / 180.0;
        }
    }
    void run(int N) { FREEVIBRATION::VECTORSUMS(ctx, masses, engines, N, D, deflection, rpm, angle, sum); }
};

TEST(VectorSums, SixCylindersAtSixtyDegreesAddUpOnlyAtTheMultiplesOfSix) {
    Engines x(6, 2);
    x.engines.allocate(1);
    x.engine(1, 2, 6, 60.0);
    for (int r = 1; r <= 6; ++r) x.deflection(r) = 0.8;
    x.run(2);
    const auto sum = test::read_records(x.dir / VECTORSUMFILE);
    const auto rpm = test::read_records(x.dir / VECTORSUMRPMFILE);
    const auto angle = test::read_records(x.dir / VECTORSUMANGLEFILE);
    ASSERT_EQ(sum.size(), 20U);
    for (int o = 1; o <= 20; ++o) {
        if (o % 6 == 0)
            EXPECT_NEAR(sum[static_cast<std::size_t>(o - 1)], 1.0, CANCELLATION_TOLERANCE) << o;
        else
            EXPECT_NEAR(sum[static_cast<std::size_t>(o - 1)], 0.0, CANCELLATION_TOLERANCE) << o;
        EXPECT_GE(angle[static_cast<std::size_t>(o - 1)], 0.0);
        EXPECT_LT(angle[static_cast<std::size_t>(o - 1)], 2.0 * PI);
    }
    EXPECT_EQ(sum[5], 1.0);    // order 6 is the first strongest: exactly 1.0 ...
    EXPECT_EQ(angle[5], 0.0);  // ... at angle 0.0
    // 1000 rad/s meets order 5 at 1000 * 30 / pi / 5 rpm.
    EXPECT_DOUBLE_EQ(rpm[4], 1909.8593171027440);
    EXPECT_FALSE(x.sum.allocated());  // nothing is kept
}

TEST(VectorSums, FourStrokeEnginesHaveHalfOrdersAndSetTheOrderCountForAll) {
    Engines x(2, 2);
    x.engines.allocate(2);
    x.engine(1, 2, 1, 0.0);
    x.engine(2, 4, 1, 0.0);
    x.engines(2).CYLINDERS[0] = 12;
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
    x.engines.allocate(1);
    x.engine(1, 2, 3, 120.0);
    x.engines(1).ISVENGINE = true;  // bank B at the same angles
    for (int r = 1; r <= 3; ++r) x.deflection(r) = 0.0;        // mode 2 at rest
    for (int r = 1; r <= 3; ++r) x.deflection(3 + r) = r * 1.0;  // mode 3 moving
    x.run(3);
    const auto sum = test::read_records(x.dir / VECTORSUMFILE);
    const auto angle = test::read_records(x.dir / VECTORSUMANGLEFILE);
    ASSERT_EQ(sum.size(), 2U * 20U);
    for (int o = 0; o < 20; ++o) {
        EXPECT_EQ(sum[static_cast<std::size_t>(o)], 0.0);
        EXPECT_EQ(angle[static_cast<std::size_t>(o)], 0.0);
    }
    // Order 3 of three cylinders at 120 degrees adds all in phase: 2 banks * (1+2+3).
    EXPECT_DOUBLE_EQ(sum[20 + 2], 1.0);
}

}  // namespace
}  // namespace qm
