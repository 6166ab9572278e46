#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "../TestSupport.h"
#include "matrices/EigenvalueSolver.h"
#include "matrices/FreeUndampedVibrations.h"
#include "matrices/FreeVibration.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"
#include "matrices/RelativeResults.h"

namespace qm {
namespace {

using namespace EIGENVALUESOLVER;

// Frequencies of the structured drivers against dsygv, relative, above the rigid-body mode.
constexpr double FREQUENCY_TOLERANCE = 1e-10;
// Mode shapes and relative results, against the largest value of their mode.
constexpr double SHAPE_TOLERANCE = 1e-8;

// A line of n inertias; shaft s joins row link[s-1].first to row link[s-1].second.
ModelTables line(int n, const std::vector<std::pair<int, int>>& links, double (*inertia)(int),
                 double (*ratio)(int) = nullptr) {
    ModelTables t;
    t.MASS_TABLE.allocate(n);
    t.SHAFT_TABLE.allocate(static_cast<int>(links.size()));
    for (int i = 1; i <= n; ++i) {
        t.MASS_TABLE(i).ID = 10 * i;
        t.MASS_TABLE(i).INERTIA = inertia(i);
        t.MASS_TABLE(i).RPMRATIO = ratio ? ratio(i) : 1.0;
    }
    for (int s = 1; s <= t.SHAFT_TABLE.size(); ++s) {
        const auto [a, b] = links[static_cast<std::size_t>(s - 1)];
        ShaftRecord& r = t.SHAFT_TABLE(s);
        r.ID = s;
        r.ORGNODE = 10 * a;
        r.DESNODE = 10 * b;
        r.STIFFNESS = 2.0e6 + 1.0e5 * ((s * 37) % 11);
        r.RPMRATIO = ratio ? ratio(std::max(a, b)) : 1.0;
    }
    return t;
}

std::vector<std::pair<int, int>> chain_links(int n) {
    std::vector<std::pair<int, int>> links;
    for (int i = 1; i < n; ++i) links.emplace_back(i, i + 1);
    return links;
}

double plain(int i) { return 50.0 + (i * 13) % 7; }
// A heavy flywheel every ninth inertia and light couplings every fourth: inertias over two
// decades.
double uneven(int i) { return i % 9 == 0 ? 600.0 : (i % 4 == 0 ? 5.0 : 20.0 + i % 13); }
// The second half of the line turns at 0.3 of the speed of the first.
double geared(int i) { return i > 20 ? 0.3 : 1.0; }

SystemMatrices assemble(ModelTables& t) {
    using namespace MASSSTIFFNESSANDDAMPINGMATRIX;
    MASSANDSHAFTTABLEPREPARATION(true, t.MASS_TABLE, t.SHAFT_TABLE, t.VISCOUSDAMPER_TABLE, t.LINEARCOUPLING_TABLE,
                                 t.PROGRESSIVECOUPLING_TABLE, t.PROPELLER_TABLE, 1);
    SystemMatrices mx;
    BUILDMASSSTIFFNESSANDDAMPINGMATRIX(true, t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE,
                                       t.VISCOUSDAMPER_TABLE, 1.0, mx);
    return mx;
}

struct Solved {
    Table<double> D;
    Array2D<double> V;
    EigenDriver driver;
    int error;
};

Solved solve(const SystemMatrices& mx, EigenDriver driver) {
    Solved s;
    s.D.allocate(mx.N);
    s.V.allocate(mx.N, mx.N);
    EigenvalueSolverRecord r;
    INITIALIZE(r, mx.N, mx.ROWIND, mx.COLIND, mx.K, mx.M, 0);
    INITIALIZEREALEIGENVALUES(r, s.D);
    INITIALIZEREALEIGENVECTORS(r, s.V);
    SOLVER(r, 2, driver);
    s.driver = r.driver;
    s.error = GETERRORGEP(r);
    return s;
}

void expect_same_modes(const Solved& ref, const Solved& got) {
    const int n = ref.D.size();
    ASSERT_EQ(got.D.size(), n);
    for (int m = 2; m <= n; ++m)
        EXPECT_NEAR(got.D(m), ref.D(m), FREQUENCY_TOLERANCE * ref.D(m)) << "mode " << m;
    for (int m = 1; m <= n; ++m) {
        double dot = 0.0, scale = 0.0;
        for (int p = 1; p <= n; ++p) {
            dot += ref.V(p, m) * got.V(p, m);
            scale = std::max(scale, std::fabs(ref.V(p, m)));
        }
        const double sign = dot < 0.0 ? -1.0 : 1.0;
        double worst = 0.0;
        for (int p = 1; p <= n; ++p) worst = std::max(worst, std::fabs(ref.V(p, m) - sign * got.V(p, m)));
        EXPECT_LE(worst, SHAPE_TOLERANCE * scale) << "mode " << m;
    }
}

TEST(TridiagonalPath, ChainsAgreeWithTheGeneralizedSolverUpToTheSignOfEachMode) {
    struct Case {
        const char* name;
        ModelTables t;
    };
    // The last line is the same chain with its rows in another order than along the line.
    std::vector<std::pair<int, int>> shuffled;
    for (int i = 1; i < 40; ++i) shuffled.emplace_back((i * 17) % 41, ((i + 1) * 17) % 41);
    Case cases[] = {{"chain", line(60, chain_links(60), plain)},
                    {"geared chain", line(40, chain_links(40), plain, geared)},
                    {"uneven inertias", line(60, chain_links(60), uneven)},
                    {"rows out of line order", line(40, shuffled, plain)}};
    for (Case& c : cases) {
        SCOPED_TRACE(c.name);
        const SystemMatrices mx = assemble(c.t);
        const Solved ref = solve(mx, EigenDriver::GENERALIZED);
        const Solved tri = solve(mx, EigenDriver::TRIDIAGONAL);
        EXPECT_EQ(tri.driver, EigenDriver::TRIDIAGONAL);
        expect_same_modes(ref, tri);
    }
}

TEST(TridiagonalPath, ATreeIsNoChainAndTheScaledDenseSolverAgreesWithTheGeneralizedOne) {
    // A main line of 30 with a branch of 10 from inertia 12 (a gearbox with a power take-off).
    std::vector<std::pair<int, int>> links = chain_links(30);
    links.emplace_back(12, 31);
    for (int i = 31; i < 40; ++i) links.emplace_back(i, i + 1);
    ModelTables t = line(40, links, uneven, geared);
    const SystemMatrices mx = assemble(t);
    EigenvalueSolverRecord r;
    INITIALIZE(r, mx.N, mx.ROWIND, mx.COLIND, mx.K, mx.M, 0);
    EXPECT_TRUE(chain_order(r).empty());

    const Solved ref = solve(mx, EigenDriver::GENERALIZED);
    // Asked for the tridiagonal driver, the tree is handed to dsygv.
    const Solved asked = solve(mx, EigenDriver::TRIDIAGONAL);
    EXPECT_EQ(asked.driver, EigenDriver::GENERALIZED);
    const Solved scaled = solve(mx, EigenDriver::SCALED);
    EXPECT_EQ(scaled.driver, EigenDriver::SCALED);
    expect_same_modes(ref, scaled);
}

TEST(TridiagonalPath, DriverFollowsSizeShapeAndTheLiteralSwitch) {
    const int big = STRUCTURED_DRIVER_MIN_ORDER;
    std::vector<std::pair<int, int>> star = chain_links(big);
    star.back() = {2, big};  // the last inertia hangs from the second: a tree, no chain
    ModelTables small = line(big - 1, chain_links(big - 1), plain);
    ModelTables chain = line(big, chain_links(big), plain);
    ModelTables tree = line(big, star, plain);
    const SystemMatrices s = assemble(small), c = assemble(chain), tr = assemble(tree);
    EigenvalueSolverRecord rs, rc, rt;
    INITIALIZE(rs, s.N, s.ROWIND, s.COLIND, s.K, s.M, 0);
    INITIALIZE(rc, c.N, c.ROWIND, c.COLIND, c.K, c.M, 0);
    INITIALIZE(rt, tr.N, tr.ROWIND, tr.COLIND, tr.K, tr.M, 0);
    EXPECT_EQ(choose_driver(rs, false), EigenDriver::GENERALIZED);
    EXPECT_EQ(choose_driver(rc, false), EigenDriver::TRIDIAGONAL);
    EXPECT_EQ(choose_driver(rt, false), EigenDriver::SCALED);
    EXPECT_EQ(choose_driver(rc, true), EigenDriver::GENERALIZED);
    EXPECT_EQ(choose_driver(rt, true), EigenDriver::GENERALIZED);
    std::vector<int> along(static_cast<std::size_t>(big));
    for (int p = 1; p <= big; ++p) along[static_cast<std::size_t>(p - 1)] = p;
    EXPECT_EQ(chain_order(rc), along);
}

TEST(TridiagonalPath, AZeroInertiaFailsAsTheGeneralizedSolverDoes) {
    ModelTables t = line(30, chain_links(30), plain);
    t.MASS_TABLE(7).INERTIA = 0.0;
    const SystemMatrices mx = assemble(t);
    const Solved tri = solve(mx, EigenDriver::TRIDIAGONAL);
    EXPECT_EQ(tri.driver, EigenDriver::GENERALIZED);
    EXPECT_NE(tri.error, 0);
    for (int m = 1; m <= mx.N; ++m) EXPECT_EQ(tri.D(m), 0.0);
    EXPECT_TRUE(std::all_of(tri.V.data(), tri.V.data() + tri.V.flat_size(), [](double v) { return v == 0.0; }));
}

// The relative results divide each mode by a reference of the same mode, so the sign a driver
// gives a mode shape never reaches a file: a long line gives the files of the literal run.
TEST(TridiagonalPath, ALongLineWritesTheFilesOfTheLiteralRun) {
    const int n = STRUCTURED_DRIVER_MIN_ORDER + 20;
    ModelTables fast = line(n, chain_links(n), plain);
    ModelTables literal = line(n, chain_links(n), plain);
    test::ScratchDir a, b;
    RunContext ca = test::run_in(a.str()), cb = test::run_in(b.str());
    cb.LITERALPATH = true;
    FREEVIBRATION::FREEVIBRATIONCALCULATION(ca, fast);
    FREEVIBRATION::FREEVIBRATIONCALCULATION(cb, literal);
    const std::vector<double> fa = test::read_records(a / FREEVIBRATION::NATURALFREQUENCYFILE);
    const std::vector<double> fb = test::read_records(b / FREEVIBRATION::NATURALFREQUENCYFILE);
    ASSERT_EQ(fa.size(), static_cast<std::size_t>(n));
    ASSERT_EQ(fb.size(), fa.size());
    for (std::size_t m = 1; m < fa.size(); ++m) EXPECT_NEAR(fa[m], fb[m], FREQUENCY_TOLERANCE * fb[m]);

    // The high modes of a long line gather at a few inertias: where the first inertia, the
    // reference, moves less than a thousandth of the most moving one, its share of rounding
    // dominates the mode in any solver, and that mode is not compared.
    const std::vector<double> deflection = test::read_records(b / FREEVIBRATION::RELATIVEDEFLECTIONFILE);
    std::vector<bool> referenced;
    for (std::size_t first = 0; first < deflection.size(); first += n) {
        double largest = 0.0;
        for (std::size_t i = first; i < first + n; ++i) largest = std::max(largest, std::fabs(deflection[i]));
        referenced.push_back(largest < 1e3);
    }
    ASSERT_EQ(referenced.size(), static_cast<std::size_t>(n - 1));
    EXPECT_GE(3 * std::count(referenced.begin(), referenced.end(), true), n) << "too few modes compared";
    // Each mode against the largest value of that mode.
    for (const auto& [file, block] : {std::pair{FREEVIBRATION::RELATIVEDEFLECTIONFILE, n},
                                      std::pair{FREEVIBRATION::RELATIVETORQUEFILE, n - 1}}) {
        SCOPED_TRACE(file);
        const std::vector<double> x = test::read_records(a / file), y = test::read_records(b / file);
        ASSERT_EQ(x.size(), y.size());
        for (std::size_t m = 0; m < referenced.size(); ++m) {
            if (!referenced[m]) continue;
            const std::size_t first = m * static_cast<std::size_t>(block), last = first + static_cast<std::size_t>(block);
            double scale = 0.0;
            for (std::size_t i = first; i < last; ++i) scale = std::max(scale, std::fabs(y[i]));
            for (std::size_t i = first; i < last; ++i)
                ASSERT_NEAR(x[i], y[i], SHAPE_TOLERANCE * scale) << "record " << i + 1;
        }
    }
}

}  // namespace
}  // namespace qm
