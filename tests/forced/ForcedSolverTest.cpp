#include <gtest/gtest.h>

#include <cmath>
#include <complex>

#include "base/ComponentCodes.h"
#include "base/Constants.h"
#include "forced/ForcedSolver.h"
#include "ForcedTestModels.h"

namespace qm {
namespace {

using cplx = std::complex<double>;
using FORCEDVIBRATIONSOLVER::XANGLE_OF;

// Results of a dense LU solve of a well-conditioned system agree with closed forms to a
// few units in the last place.
constexpr double SOLVE_TOLERANCE = 1e-13;

struct Solve {
    std::vector<double> XAMP, XANGLE, XRE, XIM;
    FORCEDVIBRATION::SolverFailure failure;
    cplx x(int o, int p, int n) const {
        const auto t = static_cast<std::size_t>((o - 1) * n + p - 1);
        return {XRE[t], XIM[t]};
    }
};

// Solves the tables' line built at order 1.0 for points (mass row, angle, coefficients per order).
Solve solve(const ModelTables& t, double omega, const std::vector<double>& EXFO, const std::vector<int>& rows,
            const std::vector<double>& angles, const std::vector<cplx>& G, const SystemMatrices* given = nullptr) {
    SystemMatrices mx;
    MASSSTIFFNESSANDDAMPINGMATRIX::BUILDMASSSTIFFNESSANDDAMPINGMATRIX(false, t.MASS_TABLE, t.SHAFT_TABLE,
                                                                      t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE,
                                                                      t.VISCOUSDAMPER_TABLE, 1.0, mx);
    const int norder = static_cast<int>(EXFO.size());
    Solve s;
    const auto n = static_cast<std::size_t>(mx.N * norder);
    s.XAMP.assign(n, -1.0);  // rewritten in full
    s.XANGLE = s.XRE = s.XIM = s.XAMP;
    std::vector<double> FORE, FOIM;
    for (const cplx& g : G) {
        FORE.push_back(g.real());
        FOIM.push_back(g.imag());
    }
    s.failure = FORCEDDAMPEDVIBRATIONSSOLVERFC::FORCEDDAMPEDVIBRATIONSFC(
        t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE, t.VISCOUSDAMPER_TABLE, norder,
        static_cast<int>(rows.size()), omega, s.XAMP.data(), s.XANGLE.data(), s.XRE.data(), s.XIM.data(),
        given ? *given : mx, FORE.data(), FOIM.data(), EXFO.data(), angles.data(), rows.data(), 0);
    return s;
}

TEST(ForcedSolver, OneInertiaClosedForm) {
    ModelTables t = test::chain(1, 20.0);
    t.MASS_TABLE(1).ABSDAMPING = 300.0;
    const double omega = 50.0;
    const cplx g1(4.0, -3.0), g2(-1.0, 2.0), g3(0.0, 0.0);
    Solve s = solve(t, omega, {1.0, 2.5, 3.0}, {1}, {0.0}, {g1, g2, g3});
    ASSERT_EQ(s.failure.routine, 0);
    for (auto [o, g] : {std::pair{1, g1}, std::pair{2, g2}}) {
        const double w = omega * (o == 1 ? 1.0 : 2.5);
        const cplx expected = g / cplx(-w * w * 20.0, w * 300.0);
        EXPECT_NEAR(std::abs(s.x(o, 1, 1) - expected), 0.0, SOLVE_TOLERANCE * std::abs(expected));
        EXPECT_DOUBLE_EQ(s.XAMP[o - 1], 2.0 * std::abs(expected));
    }
    // A zero excitation gives an exact zero, whatever the other orders are.
    EXPECT_EQ(s.XRE[2], 0.0);
    EXPECT_EQ(s.XIM[2], 0.0);
    EXPECT_EQ(s.XAMP[2], 0.0);
    EXPECT_EQ(s.XANGLE[2], 0.0);
    // Order 2 alone gives the same numbers as among others.
    Solve alone = solve(t, omega, {2.5}, {1}, {0.0}, {g2});
    EXPECT_EQ(alone.XRE[0], s.XRE[1]);
    EXPECT_EQ(alone.XIM[0], s.XIM[1]);
}

TEST(ForcedSolver, PhasesTurnWithTheOrder) {
    // Two equal points pi apart on one inertia cancel at order 1 and add at order 2.
    ModelTables t = test::chain(1, 20.0);
    t.MASS_TABLE(1).ABSDAMPING = 300.0;
    const cplx g(1.0, 0.5);
    Solve two = solve(t, 10.0, {1.0, 2.0}, {1, 1}, {0.0, PI}, {g, g, g, g});
    Solve one = solve(t, 10.0, {1.0, 2.0}, {1}, {0.0}, {g, g});
    EXPECT_LT(std::abs(two.x(1, 1, 1)), 1e-15 * std::abs(one.x(1, 1, 1)));
    EXPECT_NEAR(std::abs(two.x(2, 1, 1) - 2.0 * one.x(2, 1, 1)), 0.0, SOLVE_TOLERANCE * std::abs(one.x(2, 1, 1)));

    // A quarter turn at order 1: the point's coefficient is turned by -pi/2.
    Solve turned = solve(t, 10.0, {1.0}, {1}, {PI / 2}, {g});
    const cplx expected = one.x(1, 1, 1) * cplx(0.0, -1.0);
    EXPECT_NEAR(std::abs(turned.x(1, 1, 1) - expected), 0.0, SOLVE_TOLERANCE * std::abs(expected));
}

TEST(ForcedSolver, AngleByPlainQuotient) {
    EXPECT_EQ(XANGLE_OF(0.0, 1.0), 2.0 * PI - PI / 2);  // infinite quotient: 3 pi / 2
    EXPECT_EQ(XANGLE_OF(0.0, -1.0), PI / 2);
    EXPECT_EQ(XANGLE_OF(2.0, 0.0), 2.0 * PI);  // a positive real value is 2 pi, not 0
    EXPECT_EQ(XANGLE_OF(-2.0, 0.0), PI);
    EXPECT_EQ(XANGLE_OF(1.0, -1.0), PI / 4);
    EXPECT_EQ(XANGLE_OF(-1.0, -1.0), PI - PI / 4);
    EXPECT_EQ(XANGLE_OF(0.0, 0.0), 0.0);
}

TEST(ForcedSolver, ZeroOrderPlaceIsSkippedAndSingularSystemFails) {
    // Two free inertias on a shaft without damping: Z(0) is singular, the place is skipped.
    ModelTables t = test::chain(2, 10.0, 1.0e6);
    Solve s = solve(t, 30.0, {2.0, 0.0}, {1}, {0.0}, {cplx(1.0, 0.0), cplx(5.0, 5.0)});
    ASSERT_EQ(s.failure.routine, 0);
    EXPECT_GT(s.XAMP[0], 0.0);
    for (std::size_t t2 = 2; t2 < 4; ++t2) {
        EXPECT_EQ(s.XAMP[t2], 0.0);
        EXPECT_EQ(s.XRE[t2], 0.0);
        EXPECT_EQ(s.XANGLE[t2], 0.0);
    }

    // An inertia of zero without damping is an exactly singular system: ZGETRF fails with
    // the place of the zero pivot, and the failure comes back to the caller.
    ModelTables z = test::chain(1, 0.0);
    Solve f = solve(z, 30.0, {1.0}, {1}, {0.0}, {cplx(1.0, 0.0)});
    EXPECT_EQ(f.failure.routine, FORCEDVIBRATION::ROUTINE_ZGETRF);
    EXPECT_EQ(f.failure.INFO, 1);
}

TEST(ForcedSolver, OrderDependentDampingRebuildsForEachOrder) {
    // A Geislinger coupling between two inertias: its stiffness follows the order, so the
    // arrays the driver built at order 1.0 are replaced, even for a single order.
    ModelTables t = test::chain(2, 10.0, 1.0e6);
    t.SHAFT_TABLE(1).SHAFTTYPE = CODES::SHAFTTYPE_GEISLINGERCOUPLING;
    t.GEISLINGERCOUPLING_TABLE.allocate(1);
    auto& g = t.GEISLINGERCOUPLING_TABLE(1);
    g.ID = 1;
    g.SHAFTNODE = 1;
    g.STATICSTIFFNESS = 1.0e6;
    g.CHARACTERISTICFREQUENCY = 100.0;
    g.NOMINALTORQUE = 1.0e4;
    g.SPEEDEXCITATION = 600.0;
    g.DAMPINGTYPE = GLOBAL_GEISLINGERCOUPLING::GENERALDAMPING;
    t.SHAFT_TABLE(1).DYNMAGNIFIER = 10.0;
    SystemMatrices stale;  // wrong arrays: a plain shaft without damping
    ModelTables plain = test::chain(2, 10.0, 1.0e6);
    MASSSTIFFNESSANDDAMPINGMATRIX::BUILDMASSSTIFFNESSANDDAMPINGMATRIX(false, plain.MASS_TABLE, plain.SHAFT_TABLE,
                                                                      plain.GEISLINGERCOUPLING_TABLE, plain.DIESEL_TABLE,
                                                                      plain.VISCOUSDAMPER_TABLE, 1.0, stale);
    Solve a = solve(t, 62.0, {3.0}, {1}, {0.0}, {cplx(1.0, 0.0)});
    Solve b = solve(t, 62.0, {3.0}, {1}, {0.0}, {cplx(1.0, 0.0)}, &stale);
    EXPECT_EQ(a.XRE, b.XRE);
    EXPECT_EQ(a.XIM, b.XIM);
    EXPECT_NE(a.XIM[1], 0.0);  // the coupling damps
}

}  // namespace
}  // namespace qm
