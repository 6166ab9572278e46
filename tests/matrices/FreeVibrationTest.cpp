#include <gtest/gtest.h>

#include <cmath>

#include "../TestSupport.h"
#include "components/GlobalMass.h"
#include "matrices/FreeUndampedVibrations.h"
#include "matrices/FreeVibration.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"

namespace qm {
namespace {

using namespace MASSSTIFFNESSANDDAMPINGMATRIX;

// The eigensolver works in double precision on well-scaled data: frequencies agree with
// closed forms to a few units in the last place, well inside 1e-12 relative.
constexpr double FREQUENCY_TOLERANCE = 1e-12;
// Residuals of K x - w^2 M x are compared with the size of K x.
constexpr double RESIDUAL_TOLERANCE = 1e-9;

void add_mass(ModelTables& t, int row, int id, double inertia, double ratio = 1.0, int masstype = 1) {
    MassRecord& m = t.MASS_TABLE(row);
    m.ID = id;
    m.INERTIA = inertia;
    m.RPMRATIO = ratio;
    m.MASSTYPE = masstype;
}

void add_shaft(ModelTables& t, int row, int org, int des, double k, double ratio = 1.0, int shafttype = 9) {
    ShaftRecord& s = t.SHAFT_TABLE(row);
    s.ID = row;
    s.ORGNODE = org;
    s.DESNODE = des;
    s.STIFFNESS = k;
    s.RPMRATIO = ratio;
    s.SHAFTTYPE = shafttype;
}

SystemMatrices solve_free(ModelTables& t) {
    MASSANDSHAFTTABLEPREPARATION(true, t.MASS_TABLE, t.SHAFT_TABLE, t.VISCOUSDAMPER_TABLE, t.LINEARCOUPLING_TABLE,
                                 t.PROGRESSIVECOUPLING_TABLE, t.PROPELLER_TABLE, 1);
    SystemMatrices mx;
    BUILDMASSSTIFFNESSANDDAMPINGMATRIX(true, t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE,
                                       t.VISCOUSDAMPER_TABLE, 1.0, mx);
    FREEUNDAMPEDVIBRATIONSMODULE::FREEUNDAMPEDVIBRATIONS(mx, 0);
    return mx;
}

// A chain of n inertias of 100..(100+n-1) kg m^2 on shafts of 1e7 Nm/rad.
ModelTables chain(int n) {
    ModelTables t;
    t.MASS_TABLE.allocate(n);
    t.SHAFT_TABLE.allocate(n - 1);
    for (int i = 1; i <= n; ++i) add_mass(t, i, i, 100.0 + i - 1);
    for (int i = 1; i < n; ++i) add_shaft(t, i, i, i + 1, 1.0e7);
    return t;
}

TEST(FreeVibration, TwoMassesOnOneShaftGiveTheClosedFormFrequency) {
    ModelTables t;
    t.MASS_TABLE.allocate(2);
    t.SHAFT_TABLE.allocate(1);
    add_mass(t, 1, 1, 1500.0);
    add_mass(t, 2, 2, 300.0);
    add_shaft(t, 1, 1, 2, 2.5e8);
    SystemMatrices mx = solve_free(t);
    ASSERT_EQ(mx.N, 2);
    ASSERT_EQ(mx.NNZ, 4);
    // Layout of K: diagonal first, then (origin, destination) and (destination, origin).
    EXPECT_EQ(mx.ROWIND(3), 1);
    EXPECT_EQ(mx.COLIND(3), 2);
    EXPECT_EQ(mx.ROWIND(4), 2);
    EXPECT_EQ(mx.COLIND(4), 1);
    EXPECT_EQ(mx.K(3), -2.5e8);
    const double expected = std::sqrt(2.5e8 * (1.0 / 1500.0 + 1.0 / 300.0));  // 1000 rad/s
    EXPECT_NEAR(mx.D(2), expected, expected * FREQUENCY_TOLERANCE);
}

TEST(FreeVibration, ModeShapesSatisfyTheEigenproblemAndAreMassNormalised) {
    ModelTables t = chain(12);
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
    // Masses 2 and 3 turn at ratio r: the same as inertias and stiffness multiplied by r^2.
    const double r = 2.5;
    ModelTables geared;
    geared.MASS_TABLE.allocate(3);
    geared.SHAFT_TABLE.allocate(2);
    add_mass(geared, 1, 10, 800.0);
    add_mass(geared, 2, 20, 40.0, r);
    add_mass(geared, 3, 30, 25.0, r);
    add_shaft(geared, 1, 10, 20, 3.0e6);
    add_shaft(geared, 2, 20, 30, 1.0e6, r);
    ModelTables scaled;
    scaled.MASS_TABLE.allocate(3);
    scaled.SHAFT_TABLE.allocate(2);
    add_mass(scaled, 1, 10, 800.0);
    add_mass(scaled, 2, 20, 40.0 * r * r);
    add_mass(scaled, 3, 30, 25.0 * r * r);
    add_shaft(scaled, 1, 10, 20, 3.0e6);
    add_shaft(scaled, 2, 20, 30, 1.0e6 * r * r);
    SystemMatrices a = solve_free(geared);
    SystemMatrices b = solve_free(scaled);
    for (int m = 2; m <= 3; ++m) EXPECT_NEAR(a.D(m), b.D(m), b.D(m) * FREQUENCY_TOLERANCE);
}

TEST(FreeVibration, ViscousDamperRingLeavesTheFreeSystemAndHalfOfItGoesToTheCasing) {
    // Masses: 1 engine, 2 casing, 3 ring (type 3), 4 propeller. The damper spring joins
    // casing and ring.
    ModelTables t;
    t.MASS_TABLE.allocate(4);
    t.SHAFT_TABLE.allocate(3);
    add_mass(t, 1, 1, 500.0);
    add_mass(t, 2, 2, 30.0, 1.0, 4);
    add_mass(t, 3, 3, 20.0, 1.0, 3);
    add_mass(t, 4, 4, 900.0);
    add_shaft(t, 1, 1, 2, 5.0e7);
    add_shaft(t, 2, 2, 3, 1.0e6, 1.0, 12);
    add_shaft(t, 3, 1, 4, 2.0e7);
    t.VISCOUSDAMPER_TABLE.allocate(1);
    t.VISCOUSDAMPER_TABLE(1).CASINGNODE = 2;
    t.VISCOUSDAMPER_TABLE(1).RINGNODE = 3;
    SystemMatrices mx = solve_free(t);
    ASSERT_EQ(mx.N, 3);
    EXPECT_EQ(mx.M(2), 0.5 * 20.0 + 30.0);
    EXPECT_EQ(mx.M(3), 900.0);  // the propeller moves up by one degree of freedom
    // The third shaft joins degrees of freedom 1 and 3.
    EXPECT_EQ(mx.ROWIND(3 + 3), 1);
    EXPECT_EQ(mx.COLIND(3 + 3), 3);
    EXPECT_EQ(t.MASS_TABLE(2).INERTIAEFFECTIVE, 40.0);
    EXPECT_EQ(GLOBAL_MASS::GET_MASS_NNOTVISCOUSDAMPERRINGSHAFT(t.MASS_TABLE, 4), 3);
}

TEST(FreeVibration, ShaftsWithoutAPlaceInTheTreeAreLeftOut) {
    // A shaft to an unknown inertia and a third shaft closing a cycle: no crash, no effect.
    ModelTables t;
    t.MASS_TABLE.allocate(2);
    t.SHAFT_TABLE.allocate(3);
    add_mass(t, 1, 1, 1500.0);
    add_mass(t, 2, 2, 300.0);
    add_shaft(t, 1, 1, 2, 2.5e8);
    add_shaft(t, 2, 1, 99, 1.0e8);
    add_shaft(t, 3, 2, 1, 1.0e8);
    SystemMatrices mx = solve_free(t);
    EXPECT_NEAR(mx.D(2), 1000.0, 1000.0 * FREQUENCY_TOLERANCE);
}

TEST(FreeVibration, ResultFileHoldsOneRecordPerModeWithTheRigidBodyModeAtZero) {
    test::ScratchDir dir;
    RunContext ctx = test::run_in(dir.str());
    const auto file = dir / "NaturalFrequency.bin";
    test::write_file(file, std::string(8 * 50, '\x7f'));  // an earlier, longer file

    ModelTables single;
    single.MASS_TABLE.allocate(1);
    add_mass(single, 1, 1, 10.0);
    FREEVIBRATION::FREEVIBRATIONCALCULATION(ctx, single);
    EXPECT_EQ(test::read_records(file), std::vector<double>{0.0});

    ModelTables t = chain(7);
    FREEVIBRATION::FREEVIBRATIONCALCULATION(ctx, t);
    const auto records = test::read_records(file);
    ASSERT_EQ(records.size(), 7U);
    EXPECT_EQ(records[0], 0.0);
    EXPECT_GT(records[1], 0.0);
}

TEST(FreeVibration, AZeroInertiaMakesTheSolveFailSilentlyWithZeroFrequencies) {
    ModelTables t = chain(3);
    t.MASS_TABLE(2).INERTIA = 0.0;  // M no longer positive definite
    SystemMatrices mx = solve_free(t);
    for (int m = 1; m <= mx.N; ++m) EXPECT_EQ(mx.D(m), 0.0);
}

}  // namespace
}  // namespace qm

namespace qm {
namespace {

TEST(FreeVibration, APropellerMassWeighsItsInertiaInAirAndItsEntrainedWater) {
    ModelTables t;
    t.MASS_TABLE.allocate(2);
    t.SHAFT_TABLE.allocate(1);
    add_mass(t, 1, 1, 1500.0);
    add_mass(t, 2, 2, 1.0);  // the propeller's own record decides its inertia
    add_shaft(t, 1, 1, 2, 2.5e8);
    t.PROPELLER_TABLE.allocate(1);
    t.PROPELLER_TABLE(1).PROPELLERNODE = 2;
    t.PROPELLER_TABLE(1).INERTIAAIR = 240.0;
    t.PROPELLER_TABLE(1).INERTIAWATER = 60.0;
    SystemMatrices mx = solve_free(t);
    EXPECT_EQ(mx.M(2), 300.0);
    EXPECT_NEAR(mx.D(2), 1000.0, 1000.0 * FREQUENCY_TOLERANCE);  // as the two masses of 1500 and 300
    EXPECT_EQ(t.MASS_TABLE(2).ABSDAMPING, 0.0);  // damping is copied in forced mode only
}

}  // namespace
}  // namespace qm
