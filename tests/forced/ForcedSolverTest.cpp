#include <gtest/gtest.h>

#include <cmath>
#include <complex>

#include "../support/TestModels.h"
#include "base/ComponentCodes.h"
#include "base/Constants.h"
#include "forced/ForcedSolver.h"

namespace qm {
namespace {

using cplx = std::complex<double>;
using FORCEDVIBRATIONSOLVER::XANGLE_OF;

// A dense LU solve of a well-conditioned system meets closed forms to a few ulps.
constexpr double SOLVE_TOLERANCE = 1e-13;

struct Solve {
    std::vector<double> XAMP, XANGLE, XRE, XIM;
    FORCEDVIBRATION::SolverFailure failure;
    cplx x(std::size_t t) const { return {XRE[t], XIM[t]}; }
};

// Solves the line (arrays built at order 1.0, or `given`) for points on mass rows `rows`
// with firing angles `angles` and coefficients G, point-major.
Solve solve(const ModelTables& t, double omega, const std::vector<double>& EXFO, const std::vector<int>& rows,
            const std::vector<double>& angles, const std::vector<cplx>& G, const SystemMatrices* given = nullptr) {
    SystemMatrices mx;
    MASSSTIFFNESSANDDAMPINGMATRIX::BUILDMASSSTIFFNESSANDDAMPINGMATRIX(
        false, t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE, t.VISCOUSDAMPER_TABLE, 1.0, mx);
    Solve s;
    s.XAMP.assign(static_cast<std::size_t>(mx.N) * EXFO.size(), -1.0);  // rewritten in full
    s.XANGLE = s.XRE = s.XIM = s.XAMP;
    std::vector<double> FORE, FOIM;
    for (const cplx& g : G) FORE.push_back(g.real()), FOIM.push_back(g.imag());
    s.failure = FORCEDDAMPEDVIBRATIONSSOLVERFC::FORCEDDAMPEDVIBRATIONSFC(
        t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE, t.VISCOUSDAMPER_TABLE,
        static_cast<int>(EXFO.size()), static_cast<int>(rows.size()), omega, s.XAMP.data(), s.XANGLE.data(),
        s.XRE.data(), s.XIM.data(), given ? *given : mx, FORE.data(), FOIM.data(), EXFO.data(), angles.data(),
        rows.data(), 0);
    return s;
}

TEST(ForcedSolver, OneInertiaClosedFormAndIndependentOrders) {
    ModelTables t = test::chain(1, 20.0);
    t.MASS_TABLE(1).ABSDAMPING = 300.0;
    const cplx g1(4.0, -3.0), g2(-1.0, 2.0);
    Solve s = solve(t, 50.0, {1.0, 2.5, 3.0}, {1}, {0.0}, {g1, g2, 0.0});
    ASSERT_EQ(s.failure.routine, 0);
    for (auto [o, g, order] : {std::tuple{0, g1, 1.0}, std::tuple{1, g2, 2.5}}) {
        const double w = 50.0 * order;
        const cplx expected = g / cplx(-w * w * 20.0, w * 300.0);  // g / (-w^2 m + i w c)
        EXPECT_NEAR(std::abs(s.x(o) - expected), 0.0, SOLVE_TOLERANCE * std::abs(expected));
        EXPECT_DOUBLE_EQ(s.XAMP[o], 2.0 * std::abs(expected));
    }
    // A zero excitation gives exact zeros; an order gives the same alone as among others.
    EXPECT_EQ(std::vector<double>({s.XRE[2], s.XIM[2], s.XAMP[2], s.XANGLE[2]}), std::vector<double>(4, 0.0));
    Solve alone = solve(t, 50.0, {2.5}, {1}, {0.0}, {g2});
    EXPECT_EQ(alone.x(0), s.x(1));
}

TEST(ForcedSolver, PhasesTurnWithTheOrder) {
    // Two equal points pi apart on one inertia cancel at order 1 and add at order 2.
    ModelTables t = test::chain(1, 20.0);
    t.MASS_TABLE(1).ABSDAMPING = 300.0;
    const cplx g(1.0, 0.5);
    Solve two = solve(t, 10.0, {1.0, 2.0}, {1, 1}, {0.0, PI}, {g, g, g, g});
    Solve one = solve(t, 10.0, {1.0, 2.0}, {1}, {0.0}, {g, g});
    EXPECT_LT(std::abs(two.x(0)), 1e-15 * std::abs(one.x(0)));
    EXPECT_NEAR(std::abs(two.x(1) - 2.0 * one.x(1)), 0.0, SOLVE_TOLERANCE * std::abs(one.x(1)));
    // A quarter turn delays the point: its coefficient is turned by -pi/2.
    Solve turned = solve(t, 10.0, {1.0}, {1}, {PI / 2}, {g});
    EXPECT_NEAR(std::abs(turned.x(0) - one.x(0) * cplx(0.0, -1.0)), 0.0, SOLVE_TOLERANCE * std::abs(one.x(0)));
}

TEST(ForcedSolver, AngleByPlainQuotient) {
    EXPECT_EQ(XANGLE_OF(0.0, 1.0), 2.0 * PI - PI / 2);  // infinite quotient: 3 pi / 2
    EXPECT_EQ(XANGLE_OF(0.0, -1.0), PI / 2);
    EXPECT_EQ(XANGLE_OF(2.0, 0.0), 2.0 * PI);  // a positive real value is 2 pi, not 0
    EXPECT_EQ(XANGLE_OF(-2.0, 0.0), PI);
    EXPECT_EQ(XANGLE_OF(1.0, -1.0), PI / 4);
    EXPECT_EQ(XANGLE_OF(0.0, 0.0), 0.0);
}

TEST(ForcedSolver, ZeroOrderPlaceIsSkippedAndSingularSystemFails) {
    // Two free inertias without damping: Z(0) is singular, so the place of order 0 is skipped.
    ModelTables t = test::chain(2, 10.0, 1.0e6);
    Solve s = solve(t, 30.0, {2.0, 0.0}, {1}, {0.0}, {1.0, cplx(5.0, 5.0)});
    ASSERT_EQ(s.failure.routine, 0);
    EXPECT_GT(s.XAMP[0], 0.0);
    EXPECT_EQ(std::vector<double>(s.XAMP.begin() + 2, s.XAMP.end()), std::vector<double>(2, 0.0));
    EXPECT_EQ(std::vector<double>(s.XANGLE.begin() + 2, s.XANGLE.end()), std::vector<double>(2, 0.0));
    Solve standstill = solve(t, 0.0, {2.0}, {1}, {0.0}, {1.0});
    EXPECT_EQ(standstill.failure.routine, 0);
    EXPECT_EQ(standstill.XAMP, std::vector<double>(2, 0.0));
    // A zero inertia without damping is exactly singular: ZGETRF's INFO comes back up.
    Solve f = solve(test::chain(1, 0.0), 30.0, {1.0}, {1}, {0.0}, {1.0});
    EXPECT_EQ(f.failure.routine, FORCEDVIBRATION::ROUTINE_ZGETRF);
    EXPECT_EQ(f.failure.INFO, 1);
}

TEST(ForcedSolver, OrderDependentDampingRebuildsForEachOrder) {
    // A Geislinger coupling's stiffness and damping follow the order, so the arrays handed
    // in are replaced, even for a single order: stale ones give the same answer.
    ModelTables t = test::chain(2, 10.0, 1.0e6);
    test::add_geislinger(t, 1, 1.0e6, 600.0);
    t.SHAFT_TABLE(1).DYNMAGNIFIER = 10.0;
    ModelTables plain = test::chain(2, 10.0, 1.0e6);
    SystemMatrices stale;  // a plain shaft without damping
    MASSSTIFFNESSANDDAMPINGMATRIX::BUILDMASSSTIFFNESSANDDAMPINGMATRIX(false, plain.MASS_TABLE, plain.SHAFT_TABLE,
                                                                      plain.GEISLINGERCOUPLING_TABLE, plain.DIESEL_TABLE,
                                                                      plain.VISCOUSDAMPER_TABLE, 1.0, stale);
    Solve a = solve(t, 62.0, {3.0}, {1}, {0.0}, {1.0});
    Solve b = solve(t, 62.0, {3.0}, {1}, {0.0}, {1.0}, &stale);
    EXPECT_EQ(a.XIM, b.XIM);
    EXPECT_NE(a.XIM[1], 0.0);  // the coupling damps
}

}  // namespace
}  // namespace qm
