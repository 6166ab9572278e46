// The forced calculation of the two-stroke example: one load case (every source unit at all
// its orders, shaft results, nominal values) and a whole run of 200 load cases from the input
// file to the result files. Each on the fast path (literal 0) and the literal reference path
// (literal 1), side by side; the run also with its load cases on two threads.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "base/GlobalParameter.h"
#include "base/RunContext.h"
#include "forced/ForcedVibration.h"
#include "forced/LoadCaseReport.h"
#include "frame/QuillmarkSolver.h"
#include "input/DataChecking.h"
#include "input/ImportInputFile.h"

namespace {

namespace fs = std::filesystem;

const std::string kExample = std::string(QM_EXAMPLES_DIR) + "/two-stroke-main-engine.qmk";

fs::path scratch(const std::string& name) {
    const fs::path dir = fs::temp_directory_path() / ("qm_bench_" + name);
    fs::create_directories(dir);
    return dir;
}

// The example with its load case table replaced by n speeds from 40 to 105 rpm on the
// propeller curve (power proportional to the cube of the speed).
fs::path sweep_model(int n) {
    std::ifstream in(kExample);
    std::stringstream text;
    text << in.rdbuf();
    std::string model = text.str();
    model = model.substr(0, model.rfind("\nLOADCASE")) + "\nLOADCASE\nRPM DIESEL PROPELLER\n1 1\n";
    std::ostringstream rows;
    for (int i = 0; i < n; ++i) {
        const double rpm = 40.0 + 65.0 * i / (n - 1);
        const double kw = 8500.0 * std::pow(rpm / 105.0, 3.0);
        rows << rpm << ' ' << kw << ' ' << 0.985 * kw << '\n';
    }
    const fs::path path = scratch("model") / ("sweep" + std::to_string(n) + ".qmk");
    std::ofstream(path) << model << rows.str();
    return path;
}

void BM_ForcedOneLoadCase(benchmark::State& state) {
    using namespace qm::FORCEDVIBRATION;
    const fs::path dir = scratch("one");
    qm::RunContext ctx;
    ctx.SETRESULTFILEDIR(dir.string(), static_cast<int>(dir.string().size()));
    qm::ModelTables t;
    bool ok = false;
    qm::IMPORTINPUTFILE::READINPUTFILE(ctx, kExample, t, ok);
    if (ok) qm::IMPORTINPUTFILE::DATACHECKING(ctx, ok, t, 3);
    if (!ok) {
        state.SkipWithError("the example model does not read");
        return;
    }
    SweepPlan plan = make_sweep_plan(t, false);
    plan.path = state.range(0) == 1 ? SolvePath::LITERAL : SolvePath::FAST;
    SweepState sweep;
    CALCULATELOADCASESHAFTPOWER(t, sweep.LOADCASE_SHAFTPOWER);
    LoadCaseResults res;
    LoadCaseScratch work;  // handed from call to call, as a worker does
    const int lc = plan.dims.NLOADCASE;  // the rated load case
    for (auto _ : state) {
        compute_load_case(t, plan, sweep, lc, res, &work);
        benchmark::DoNotOptimize(res.NOMTORQUE.data());
    }
    t.deallocate_all();
}
BENCHMARK(BM_ForcedOneLoadCase)->ArgName("literal")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The whole run of 200 load cases; the load cases on 1 or 2 threads (wall time: the work of
// the threads is what is measured).
void BM_ForcedSweep(benchmark::State& state) {
    const fs::path model = sweep_model(static_cast<int>(state.range(0)));
    const fs::path out = scratch("sweep");
    const bool literal = state.range(1) == 1;
    const int threads = static_cast<int>(state.range(2));
    for (auto _ : state) {
        const int valid = qm::run_solver(model.parent_path().string(), model.filename().string(), out.string(), 2,
                                         literal, threads);
        if (valid != 1) state.SkipWithError("the sweep model does not run");
    }
}
BENCHMARK(BM_ForcedSweep)
    ->ArgNames({"loadcases", "literal", "threads"})
    ->Args({200, 0, 1})
    ->Args({200, 0, 2})
    ->Args({200, 1, 1})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);

}  // namespace
