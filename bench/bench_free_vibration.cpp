// Free vibration of long lines: the whole free stage (table preparation, assembly, the
// eigensolve, relative deflections and torques and their files) on chains and trees of 100 to
// 2,000 inertias, beside LAPACK alone on the same problem: dstemr on the scaled tridiagonal
// matrix of each chain and dsygv on the dense matrices of each line. The ratios stage/dstemr
// (chains) and stage/dsygv (trees) are the ones to read off one run:
//   quillmark_bench --benchmark_filter='Free|Dstemr|Dsygv'
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "base/RunContext.h"
#include "components/ModelTables.h"
#include "matrices/FreeVibration.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"
#include "numerics/Lapack.h"

namespace {

// Inertias and stiffnesses scattered by a hash of the row: a line without the exact repeats of
// a period, whose eigenvalues would crowd into clusters no real plant has at this length.
double scatter(int i, std::uint32_t salt) {
    return static_cast<double>((static_cast<std::uint32_t>(i) * 2654435761U ^ salt) % 1000U) / 1000.0;
}

// n inertias; inertia i > 1 hangs from parent(i).
qm::ModelTables line(int n, bool tree) {
    qm::ModelTables t;
    t.MASS_TABLE.allocate(n);
    t.SHAFT_TABLE.allocate(n - 1);
    for (int i = 1; i <= n; ++i) {
        t.MASS_TABLE(i).ID = i;
        t.MASS_TABLE(i).INERTIA = 50.0 + 500.0 * scatter(i, 0x9e37U);
    }
    for (int i = 2; i <= n; ++i) {
        // A tree: every tenth inertia starts a branch from five places back along the line.
        const int parent = tree && i % 10 == 0 ? i - 5 : i - 1;
        qm::ShaftRecord& s = t.SHAFT_TABLE(i - 1);
        s.ID = i - 1;
        s.ORGNODE = parent;
        s.DESNODE = i;
        s.STIFFNESS = 1.0e7 * (1.0 + scatter(i, 0x7f4aU));
    }
    return t;
}

qm::SystemMatrices assemble(qm::ModelTables& t) {
    using namespace qm::MASSSTIFFNESSANDDAMPINGMATRIX;
    MASSANDSHAFTTABLEPREPARATION(true, t.MASS_TABLE, t.SHAFT_TABLE, t.VISCOUSDAMPER_TABLE, t.LINEARCOUPLING_TABLE,
                                 t.PROGRESSIVECOUPLING_TABLE, t.PROPELLER_TABLE, 1);
    qm::SystemMatrices mx;
    BUILDMASSSTIFFNESSANDDAMPINGMATRIX(true, t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE,
                                       t.VISCOUSDAMPER_TABLE, 1.0, mx);
    return mx;
}

class ResultDir {
public:
    ResultDir() : path_(std::filesystem::temp_directory_path() / ("qm_bench_free_" + std::to_string(::getpid()))) {
        std::filesystem::create_directories(path_);
    }
    ~ResultDir() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    qm::RunContext context(bool literal) const {
        qm::RunContext ctx;
        const std::string dir = path_.string();
        ctx.SETRESULTFILEDIR(dir, static_cast<int>(dir.size()));
        ctx.LITERALPATH = literal;
        return ctx;
    }

private:
    std::filesystem::path path_;
};

void free_stage(benchmark::State& state, bool tree, bool literal) {
    qm::ModelTables t = line(static_cast<int>(state.range(0)), tree);
    const ResultDir dir;
    qm::RunContext ctx = dir.context(literal);
    for (auto _ : state) qm::FREEVIBRATION::FREEVIBRATIONCALCULATION(ctx, t);
}

void BM_FreeChain(benchmark::State& state) { free_stage(state, false, false); }
void BM_FreeTree(benchmark::State& state) { free_stage(state, true, false); }
void BM_FreeChainLiteral(benchmark::State& state) { free_stage(state, false, true); }
void BM_FreeTreeLiteral(benchmark::State& state) { free_stage(state, true, true); }

// dstemr alone: all eigenvalues and vectors of M^-1/2 K M^-1/2 of the chain.
void BM_DstemrChain(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    qm::ModelTables t = line(n, false);
    const qm::SystemMatrices mx = assemble(t);
    std::vector<double> d0(static_cast<std::size_t>(n)), e0(static_cast<std::size_t>(n), 0.0);
    for (int p = 1; p <= n; ++p) {
        d0[static_cast<std::size_t>(p - 1)] = mx.K(p) / mx.M(p);
        if (p < n) e0[static_cast<std::size_t>(p - 1)] = mx.K(n + 2 * p) / std::sqrt(mx.M(p) * mx.M(p + 1));
    }
    std::vector<double> w(static_cast<std::size_t>(n)), z(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
    std::vector<int> isuppz(2 * static_cast<std::size_t>(n));
    const double vl = 0.0, vu = 0.0;
    const int il = 0, iu = 0;
    for (auto _ : state) {
        std::vector<double> d = d0, e = e0;
        int found = 0, info = 0, tryrac = 1, iquery = 0, lwork = -1, liwork = -1;
        double query = 0.0;
        dstemr_("V", "A", &n, d.data(), e.data(), &vl, &vu, &il, &iu, &found, w.data(), z.data(), &n, &n,
                isuppz.data(), &tryrac, &query, &lwork, &iquery, &liwork, &info, 1, 1);
        lwork = static_cast<int>(query);
        liwork = iquery;
        std::vector<double> work(static_cast<std::size_t>(lwork));
        std::vector<int> iwork(static_cast<std::size_t>(liwork));
        dstemr_("V", "A", &n, d.data(), e.data(), &vl, &vu, &il, &iu, &found, w.data(), z.data(), &n, &n,
                isuppz.data(), &tryrac, work.data(), &lwork, iwork.data(), &liwork, &info, 1, 1);
        if (info != 0) state.SkipWithError("dstemr failed");
        benchmark::DoNotOptimize(z.data());
    }
}

// dsygv alone on the dense K and diagonal M of the line.
void dsygv_alone(benchmark::State& state, bool tree) {
    const int n = static_cast<int>(state.range(0));
    qm::ModelTables t = line(n, tree);
    const qm::SystemMatrices mx = assemble(t);
    const auto un = static_cast<std::size_t>(n);
    std::vector<double> A0(un * un, 0.0), B0(un * un, 0.0);
    for (int q = 1; q <= mx.K.size(); ++q)
        A0[static_cast<std::size_t>(mx.COLIND(q) - 1) * un + static_cast<std::size_t>(mx.ROWIND(q) - 1)] = mx.K(q);
    for (std::size_t p = 0; p < un; ++p) B0[p * un + p] = mx.M(static_cast<int>(p) + 1);
    std::vector<double> w(un);
    const int itype = 1;
    for (auto _ : state) {
        std::vector<double> A = A0, B = B0;
        int info = 0, lwork = -1;
        double query = 0.0;
        dsygv_(&itype, "V", "L", &n, A.data(), &n, B.data(), &n, w.data(), &query, &lwork, &info, 1, 1);
        lwork = static_cast<int>(query);
        std::vector<double> work(static_cast<std::size_t>(lwork));
        dsygv_(&itype, "V", "L", &n, A.data(), &n, B.data(), &n, w.data(), work.data(), &lwork, &info, 1, 1);
        if (info != 0) state.SkipWithError("dsygv failed");
        benchmark::DoNotOptimize(A.data());
    }
}

void BM_DsygvChain(benchmark::State& state) { dsygv_alone(state, false); }
void BM_DsygvTree(benchmark::State& state) { dsygv_alone(state, true); }

void sizes(benchmark::internal::Benchmark* b) {
    for (int n : {100, 500, 1000, 2000}) b->Arg(n);
    b->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
}
// dsygv takes seconds at 1,000 with the reference BLAS and tens of seconds at 2,000: the
// literal stage and dsygv run to 1,000, dsygv alone once more at 2,000 for the chain.
void dense_sizes(benchmark::internal::Benchmark* b) {
    for (int n : {100, 500, 1000}) b->Arg(n);
    b->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
}

BENCHMARK(BM_FreeChain)->Apply(sizes);
BENCHMARK(BM_DstemrChain)->Apply(sizes);
BENCHMARK(BM_FreeChainLiteral)->Apply(dense_sizes);
BENCHMARK(BM_DsygvChain)->Apply(dense_sizes)->Arg(2000);
BENCHMARK(BM_FreeTree)->Apply(sizes);
BENCHMARK(BM_FreeTreeLiteral)->Apply(dense_sizes);
BENCHMARK(BM_DsygvTree)->Apply(dense_sizes);

}  // namespace
