#include <gtest/gtest.h>

#include <cmath>

#include "../support/TestModels.h"
#include "components/GlobalMass.h"
#include "matrices/FreeUndampedVibrations.h"
#include "matrices/FreeVibration.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"
#include "matrices/RelativeResults.h"

namespace qm {
namespace {

using namespace MASSSTIFFNESSANDDAMPINGMATRIX;
using test::Model;

// The eigensolver works in double precision on well-scaled data: frequencies agree with
// closed forms to a few units in the last place, well inside 1e-12 relative.
constexpr double FREQUENCY_TOLERANCE = 1e-12;
// Residuals of K x - w^2 M x are compared with the size of K x.
constexpr double RESIDUAL_TOLERANCE = 1e-9;

SystemMatrices solve_free(ModelTables& t) {
    MASSANDSHAFTTABLEPREPARATION(true, t.MASS_TABLE, t.SHAFT_TABLE, t.VISCOUSDAMPER_TABLE, t.LINEARCOUPLING_TABLE,
                                 t.PROGRESSIVECOUPLING_TABLE, t.PROPELLER_TABLE, 1);
    SystemMatrices mx;
    BUILDMASSSTIFFNESSANDDAMPINGMATRIX(true, t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE,
                                       t.VISCOUSDAMPER_TABLE, 1.0, mx);
    FREEUNDAMPEDVIBRATIONSMODULE::FREEUNDAMPEDVIBRATIONS(mx, 0);
    return mx;
}

void expect_frequency(double got, double expected) { EXPECT_NEAR(got, expected, expected * FREQUENCY_TOLERANCE); }

// 1500 and 300 kg m^2 on 2.5e8 Nm/rad: sqrt(k (1/J1 + 1/J2)) = 1000 rad/s. The second inertia
// is plain, or a propeller whose own record weighs air and entrained water (240 + 60).
TEST(FreeVibration, TwoMassesOnOneShaftGiveTheClosedFormFrequency) {
    for (bool propeller : {false, true}) {
        SCOPED_TRACE(propeller ? "propeller" : "plain");
        Model m;
        m.mass(1, 1500.0).mass(2, propeller ? 1.0 : 300.0).shaft(1, 2, 2.5e8);
        if (propeller)
            test::append(m.t.PROPELLER_TABLE, {.PROPELLERNODE = 2, .INERTIAAIR = 240.0, .INERTIAWATER = 60.0});
        SystemMatrices mx = solve_free(m);
        ASSERT_EQ(mx.N, 2);
        ASSERT_EQ(mx.NNZ, 4);
        // Layout of K: diagonal first, then (origin, destination) and (destination, origin).
        EXPECT_EQ(std::vector<int>({mx.ROWIND(3), mx.COLIND(3), mx.ROWIND(4), mx.COLIND(4)}),
                  std::vector<int>({1, 2, 2, 1}));
        EXPECT_EQ(mx.K(3), -2.5e8);
        EXPECT_EQ(mx.M(2), 300.0);
        expect_frequency(mx.D(2), 1000.0);
        EXPECT_EQ(m.t.MASS_TABLE(2).ABSDAMPING, 0.0);  // damping is copied in forced mode only
    }
}

TEST(FreeVibration, ModeShapesSatisfyTheEigenproblemAndAreMassNormalised) {
    ModelTables t = test::chain(12, 100.0, 1.0e7);
    for (int i = 1; i <= 12; ++i) t.MASS_TABLE(i).INERTIA = 100.0 + 7.0 * i;
    SystemMatrices mx = solve_free(t);
    const int n = mx.N;
    for (int m = 2; m <= n; ++m) {
        // Ascending; mode 1 is the rigid-body mode, whose root may be of a tiny negative value.
        if (m > 2) {
            EXPECT_GT(mx.D(m), mx.D(m - 1));
        }
        const double w2 = mx.D(m) * mx.D(m);
        double residual = 0.0, scale = 0.0;
        for (int p = 1; p <= n; ++p) {
            double kx = 0.0;
            for (int q = 1; q <= mx.NNZ; ++q)
                if (mx.ROWIND(q) == p) kx += mx.K(q) * mx.V(mx.COLIND(q), m);
            residual = std::max(residual, std::fabs(kx - w2 * mx.M(p) * mx.V(p, m)));
            scale = std::max(scale, std::fabs(kx));
        }
        EXPECT_LT(residual, RESIDUAL_TOLERANCE * scale) << "mode " << m;
        for (int l = 1; l <= n; ++l) {
            double xmx = 0.0;
            for (int p = 1; p <= n; ++p) xmx += mx.V(p, l) * mx.M(p) * mx.V(p, m);
            EXPECT_NEAR(xmx, l == m ? 1.0 : 0.0, 1e-10);
        }
    }
}

TEST(FreeVibration, AGearedBranchEqualsTheUnchangedBranchScaledByTheRatioSquared) {
    // Masses 20 and 30 turn at ratio r: the same as inertias and stiffness multiplied by r^2.
    const double r = 2.5;
    Model geared, scaled;
    geared.mass(10, 800.0).mass(20, 40.0, r).mass(30, 25.0, r).shaft(10, 20, 3.0e6).shaft(20, 30, 1.0e6, r);
    scaled.mass(10, 800.0).mass(20, 40.0 * r * r).mass(30, 25.0 * r * r).shaft(10, 20, 3.0e6).shaft(20, 30, 1.0e6 * r * r);
    SystemMatrices a = solve_free(geared);
    SystemMatrices b = solve_free(scaled);
    for (int m = 2; m <= 3; ++m) expect_frequency(a.D(m), b.D(m));
}

TEST(FreeVibration, ViscousDamperRingLeavesTheFreeSystemAndHalfOfItGoesToTheCasing) {
    // 1 engine, 2 casing, 3 ring, 4 propeller; the damper spring joins casing and ring.
    Model m;
    m.mass(1, 500.0).viscous_damper(1, 2, 30.0, 3, 20.0, 1.0e6).mass(4, 900.0);
    m.shaft(1, 2, 5.0e7).shaft(1, 4, 2.0e7);
    SystemMatrices mx = solve_free(m);
    ASSERT_EQ(mx.N, 3);
    EXPECT_EQ(mx.M(2), 0.5 * 20.0 + 30.0);
    EXPECT_EQ(mx.M(3), 900.0);  // the propeller moves up by one degree of freedom
    // The third shaft joins degrees of freedom 1 and 3.
    EXPECT_EQ(mx.ROWIND(3 + 3), 1);
    EXPECT_EQ(mx.COLIND(3 + 3), 3);
    EXPECT_EQ(m.t.MASS_TABLE(2).INERTIAEFFECTIVE, 40.0);
    EXPECT_EQ(GLOBAL_MASS::GET_MASS_NNOTVISCOUSDAMPERRINGSHAFT(m.t.MASS_TABLE, 4), 3);
}

TEST(FreeVibration, ShaftsWithoutAPlaceInTheTreeAreLeftOut) {
    // A shaft to an unknown inertia and a third shaft closing a cycle: no crash, no effect.
    Model m;
    m.mass(1, 1500.0).mass(2, 300.0).shaft(1, 2, 2.5e8).shaft(1, 99, 1.0e8).shaft(2, 1, 1.0e8);
    expect_frequency(solve_free(m).D(2), 1000.0);
}

TEST(FreeVibration, AZeroInertiaMakesTheSolveFailSilentlyWithZeroFrequencies) {
    ModelTables t = test::chain(3);
    t.MASS_TABLE(2).INERTIA = 0.0;  // M no longer positive definite
    SystemMatrices mx = solve_free(t);
    for (int m = 1; m <= mx.N; ++m) EXPECT_EQ(mx.D(m), 0.0);
}

// An earlier, longer file is replaced. A single inertia has the rigid-body mode alone and
// empty relative files; without an engine there is no vector sum.
TEST(FreeVibration, ResultFilesHoldOneRecordPerModeWithTheRigidBodyModeAtZero) {
    using namespace FREEVIBRATION;
    test::ScratchDir dir;
    RunContext ctx = test::run_in(dir.str());
    test::write_file(dir / NATURALFREQUENCYFILE, std::string(8 * 50, '\x7f'));

    ModelTables single = test::chain(1);
    FREEVIBRATIONCALCULATION(ctx, single);
    EXPECT_EQ(test::read_records(dir / NATURALFREQUENCYFILE), std::vector<double>{0.0});
    EXPECT_TRUE(std::filesystem::exists(dir / RELATIVEDEFLECTIONFILE));
    EXPECT_TRUE(test::read_records(dir / RELATIVEDEFLECTIONFILE).empty());
    EXPECT_TRUE(test::read_records(dir / RELATIVETORQUEFILE).empty());
    EXPECT_FALSE(std::filesystem::exists(dir / VECTORSUMFILE));

    ModelTables t = test::chain(7);
    FREEVIBRATIONCALCULATION(ctx, t);
    const auto records = test::read_records(dir / NATURALFREQUENCYFILE);
    ASSERT_EQ(records.size(), 7U);
    EXPECT_EQ(records[0], 0.0);
    EXPECT_GT(records[1], 0.0);
}

}  // namespace
}  // namespace qm
