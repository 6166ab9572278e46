// Reading and checking a long chain of inertias (calculation type 0): the whole input side
// of a run, from the model text to the verdict, with the graph of the shaft line.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "frame/QuillmarkSolver.h"

namespace {

// A folder with a chain model of n inertias and n - 1 shafts.
std::string chain_model_folder(int n) {
    char name[] = "/tmp/quillmark_bench_XXXXXX";
    const std::string folder = mkdtemp(name) != nullptr ? name : "/tmp";
    std::ofstream model(folder + "/chain.qmk", std::ios::binary);
    model << "Chain of " << n << " inertias\n";
    for (int i = 1; i <= n; ++i) model << "INERTIA " << i << " 1 " << 100 + (i % 17) * 25 << " 0 0\n";
    for (int i = 1; i < n; ++i) model << "SHAFT " << i << ' ' << i << ' ' << i + 1 << " 1 1e7 0 0 0 0 0 0\n";
    return folder;
}

void BM_CheckChain(benchmark::State& state) {
    const std::string folder = chain_model_folder(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const int valid = qm::run_solver(folder, "chain.qmk", folder, 0);
        if (valid != 1) state.SkipWithError("the chain did not check as valid");
    }
    std::filesystem::remove_all(folder);
}
BENCHMARK(BM_CheckChain)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
