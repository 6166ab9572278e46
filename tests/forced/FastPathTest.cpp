// The fast path against the literal reference: the tree elimination on hand-built systems
// (branches, a cycle, a vanishing pivot) and whole forced runs of the examples and of a
// two-engine gearbox, every result file compared.
#include <gtest/gtest.h>

#include <complex>
#include <vector>

#include "../support/TestModels.h"
#include "CompareResults.h"
#include "forced/ForcedSolver.h"
#include "forced/Synthesis.h"
#include "forced/TreeSolve.h"
#include "frame/QuillmarkSolver.h"

namespace fs = std::filesystem;
using namespace qm;
using namespace qm::FORCEDVIBRATION;

namespace {

constexpr double kRelativeTolerance = 1e-9;

// Z of a free line with the given springs (i, j, k) and inertias, both triangles stored,
// damping to ground on every inertia and a relative loss on every spring.
SystemMatrices system_of(const std::vector<double>& inertia, const std::vector<std::array<double, 3>>& springs) {
    SystemMatrices mx;
    mx.N = static_cast<int>(inertia.size());
    mx.NNZ = mx.N + 4 * static_cast<int>(springs.size());
    for (auto* t : {&mx.K, &mx.CR, &mx.CRR}) t->allocate(mx.NNZ);
    mx.ROWIND.allocate(mx.NNZ);
    mx.COLIND.allocate(mx.NNZ);
    for (auto* t : {&mx.M, &mx.CA, &mx.CAR}) t->allocate(mx.N);
    int q = 0;
    const auto put = [&](int r, int c, double k) {
        ++q;
        mx.ROWIND(q) = r;
        mx.COLIND(q) = c;
        mx.K(q) = k;
        mx.CRR(q) = 0.02 * k;
        mx.CR(q) = r == c ? 0.0 : -1.0;
    };
    std::vector<double> diag(inertia.size(), 0.0);
    for (const auto& s : springs) {
        diag[static_cast<std::size_t>(s[0]) - 1] += s[2];
        diag[static_cast<std::size_t>(s[1]) - 1] += s[2];
    }
    for (int p = 1; p <= mx.N; ++p) {
        put(p, p, diag[static_cast<std::size_t>(p - 1)]);
        mx.M(p) = inertia[static_cast<std::size_t>(p - 1)];
        mx.CA(p) = 3.0;
        mx.CAR(p) = 1e-4 * p;
    }
    for (const auto& s : springs) {
        const int i = static_cast<int>(s[0]);
        const int j = static_cast<int>(s[1]);
        put(i, j, -s[2]);
        put(j, i, -s[2]);
        put(i, j, -s[2]);  // a repeated position replaces the earlier entry
        put(j, i, -s[2]);
    }
    return mx;
}

struct Solution {
    std::vector<double> XAMP, XANGLE, XRE, XIM;
    SolverFailure failure;
};

Solution solve(const SystemMatrices& mx, SolvePath path, const std::vector<double>& EXFO, double omega) {
    const int norder = static_cast<int>(EXFO.size());
    const std::size_t size = static_cast<std::size_t>(mx.N) * EXFO.size();
    Solution s{std::vector<double>(size), std::vector<double>(size), std::vector<double>(size),
               std::vector<double>(size), {}};
    // Two points of attack at both ends, with different phases.
    const std::vector<double> FORE(2 * EXFO.size(), 1000.0), FOIM(2 * EXFO.size(), -250.0);
    const std::vector<double> angles{0.0, 1.1};
    const std::vector<int> points{1, mx.N};
    MassTable MASS_TABLE;
    ShaftTable SHAFT_TABLE;
    GeislingerCouplingTable GEISLINGERCOUPLING_TABLE;
    DieselTable DIESEL_TABLE;
    ViscousDamperTable VISCOUSDAMPER_TABLE;
    s.failure = FORCEDDAMPEDVIBRATIONSSOLVERFC::FORCEDDAMPEDVIBRATIONSFC(
        MASS_TABLE, SHAFT_TABLE, GEISLINGERCOUPLING_TABLE, DIESEL_TABLE, VISCOUSDAMPER_TABLE, norder, 2, omega,
        s.XAMP.data(), s.XANGLE.data(), s.XRE.data(), s.XIM.data(), mx, FORE.data(), FOIM.data(), EXFO.data(),
        angles.data(), points.data(), 0, path);
    return s;
}

void expect_same(const Solution& fast, const Solution& literal) {
    ASSERT_EQ(fast.failure.routine, literal.failure.routine);
    double scale = 0.0;
    for (double v : literal.XAMP) scale = std::max(scale, v);
    for (std::size_t t = 0; t < literal.XAMP.size(); ++t) {
        EXPECT_NEAR(fast.XRE[t], literal.XRE[t], 1e-12 * scale) << t;
        EXPECT_NEAR(fast.XIM[t], literal.XIM[t], 1e-12 * scale) << t;
        EXPECT_NEAR(fast.XAMP[t], literal.XAMP[t], 1e-12 * scale) << t;
    }
}

}  // namespace

// A line with a gearbox branch and a second, separate line: a forest of two trees.
TEST(TreeSolve, BranchedForestAgreesWithTheDenseSolve) {
    const SystemMatrices mx = system_of({40, 60, 60, 500, 30, 1800, 4000, 12, 80, 20, 25},
                                        {{{1, 2, 2e8}}, {{2, 3, 1.6e8}}, {{3, 4, 1.9e8}}, {{4, 5, 1.2e6}},
                                         {{5, 6, 8e8}}, {{6, 7, 6e7}}, {{5, 8, 3e8}}, {{8, 9, 2.5e6}},
                                         {{10, 11, 5e5}}});
    const FORCEDVIBRATIONSOLVER::TreePlan plan = FORCEDVIBRATIONSOLVER::make_tree_plan(mx);
    EXPECT_TRUE(plan.usable);
    const std::vector<double> EXFO{0.5, 1.0, 3.0, 4.5, 8.0, 0.0, 12.0};
    expect_same(solve(mx, SolvePath::FAST, EXFO, 78.5), solve(mx, SolvePath::LITERAL, EXFO, 78.5));
}

// A ring of springs is no tree: the plan refuses it and every order is solved densely.
TEST(TreeSolve, CycleFallsBackToTheDenseSolve) {
    const SystemMatrices mx = system_of({10, 20, 30, 40}, {{{1, 2, 1e6}}, {{2, 3, 2e6}}, {{3, 4, 1e6}}, {{4, 1, 5e5}}});
    EXPECT_FALSE(FORCEDVIBRATIONSOLVER::make_tree_plan(mx).usable);
    const std::vector<double> EXFO{1.0, 2.0};
    const Solution fast = solve(mx, SolvePath::FAST, EXFO, 50.0);
    const Solution literal = solve(mx, SolvePath::LITERAL, EXFO, 50.0);
    EXPECT_EQ(fast.XRE, literal.XRE);
    EXPECT_EQ(fast.XIM, literal.XIM);
}

// A leaf tuned to the excitation (k - w^2 m exactly 0, no damping) gives a zero pivot on the
// tree; the order is solved densely with pivoting and agrees with the literal path.
TEST(TreeSolve, ZeroPivotFallsBackToTheDenseSolve) {
    SystemMatrices mx = system_of({4.0, 1.0}, {{{1, 2, 4.0}}});
    for (int q = 1; q <= mx.NNZ; ++q) mx.CR(q) = mx.CRR(q) = 0.0;
    for (int p = 1; p <= mx.N; ++p) mx.CA(p) = mx.CAR(p) = 0.0;
    mx.CA(1) = 1.0;
    FORCEDVIBRATIONSOLVER::TreePlan plan = FORCEDVIBRATIONSOLVER::make_tree_plan(mx);
    ASSERT_TRUE(plan.usable);
    std::vector<std::complex<double>> rhs{{1.0, 0.0}, {0.0, 0.0}};
    FORCEDVIBRATIONSOLVER::TreeWork work;
    EXPECT_FALSE(FORCEDVIBRATIONSOLVER::tree_solve(plan, 2.0, rhs, work));
    const std::vector<double> EXFO{1.0};
    const Solution fast = solve(mx, SolvePath::FAST, EXFO, 2.0);
    const Solution literal = solve(mx, SolvePath::LITERAL, EXFO, 2.0);
    EXPECT_EQ(fast.failure.routine, ROUTINE_NONE);
    expect_same(fast, literal);
}

// Three kinds, units at three speeds (one at standstill), every order place filled: the
// tabled synthesis gives the literal values bit for bit, curves included. Run twice so the
// second call takes its tables from the cache.
TEST(FastPath, TabledSynthesisIsBitForBitTheLiteralOne) {
    AllKindResults results;
    results[DIESEL].allocate(2, 24, 5, 4);
    results[PROPELLER].allocate(1, 4, 5, 4);
    results[GENERATOR].allocate(1, 4, 5, 4);
    results[DIESEL].OMEGA = {11.0, 7.3};
    results[PROPELLER].OMEGA = {7.3};
    results[GENERATOR].OMEGA = {0.0};
    double v = 0.37;
    for (auto& r : results)
        for (std::size_t i = 0; i < r.XR.size(); ++i) {
            v = std::fmod(v * 7.13 + 0.29, 1.0);
            r.XR[i] = v - 0.5;
            r.XI[i] = 0.3 - v;
        }
    const auto sources = synthesis_sources(results, &KindResults::XR, &KindResults::XI);
    std::vector<double> literal, fast;
    KindCurves literalCurves, fastCurves;
    SINGLELOADCASESYNTHESIS(5, sources, true, literal, literalCurves, true, true, false, SolvePath::LITERAL);
    for (int pass = 0; pass < 2; ++pass) {
        SINGLELOADCASESYNTHESIS(5, sources, true, fast, fastCurves, true, true, false, SolvePath::FAST);
        EXPECT_EQ(fast, literal);
        for (int k = 0; k < NKIND; ++k) EXPECT_EQ(fastCurves[k], literalCurves[k]) << k;
    }
}

namespace {

void run_both(const fs::path& model, const qm::test::ScratchDir& out) {
    fs::create_directories(out / "fast");
    fs::create_directories(out / "literal");
    const std::string dir = model.parent_path().string();
    const std::string name = model.filename().string();
    ASSERT_EQ(qm::run_solver(dir, name, (out / "fast").string(), 2, false), 1);
    ASSERT_EQ(qm::run_solver(dir, name, (out / "literal").string(), 2, true), 1);
    qm::test::compare_result_dirs(out / "fast", out / "literal", kRelativeTolerance);
}

}  // namespace

TEST(FastPath, TwoStrokeExampleAgreesWithTheLiteralPath) {
    qm::test::ScratchDir out;
    run_both(fs::path(QM_EXAMPLES_DIR) / "two-stroke-main-engine.qmk", out);
}

TEST(FastPath, GearedFourStrokeExampleAgreesWithTheLiteralPath) {
    qm::test::ScratchDir out;
    run_both(fs::path(QM_EXAMPLES_DIR) / "geared-four-stroke" / "geared-four-stroke.qmk", out);
}

TEST(FastPath, TwoEngineGearboxAgreesWithTheLiteralPath) {
    qm::test::ScratchDir out;
    run_both(qm::test::two_engine_gearbox(out / "model"), out);
}
