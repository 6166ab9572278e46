// Free vibration of a long chain of inertias: assembly, the dense generalized eigensolve
// and the frequencies, as one free calculation does them.
#include <benchmark/benchmark.h>

#include "components/ModelTables.h"
#include "matrices/FreeUndampedVibrations.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"

namespace {

qm::ModelTables chain(int n) {
    qm::ModelTables t;
    t.MASS_TABLE.allocate(n);
    t.SHAFT_TABLE.allocate(n - 1);
    for (int i = 1; i <= n; ++i) {
        t.MASS_TABLE(i).ID = i;
        t.MASS_TABLE(i).INERTIA = 100.0 + (i % 17) * 25.0;
    }
    for (int i = 1; i < n; ++i) {
        t.SHAFT_TABLE(i).ID = i;
        t.SHAFT_TABLE(i).ORGNODE = i;
        t.SHAFT_TABLE(i).DESNODE = i + 1;
        t.SHAFT_TABLE(i).STIFFNESS = 1.0e7 + (i % 5) * 1.0e6;
    }
    return t;
}

void BM_FreeVibrationChain(benchmark::State& state) {
    qm::ModelTables t = chain(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        using namespace qm::MASSSTIFFNESSANDDAMPINGMATRIX;
        MASSANDSHAFTTABLEPREPARATION(true, t.MASS_TABLE, t.SHAFT_TABLE, t.VISCOUSDAMPER_TABLE,
                                     t.LINEARCOUPLING_TABLE, t.PROGRESSIVECOUPLING_TABLE, t.PROPELLER_TABLE, 1);
        qm::SystemMatrices mx;
        BUILDMASSSTIFFNESSANDDAMPINGMATRIX(true, t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE,
                                           t.DIESEL_TABLE, t.VISCOUSDAMPER_TABLE, 1.0, mx);
        qm::FREEUNDAMPEDVIBRATIONSMODULE::FREEUNDAMPEDVIBRATIONS(mx, 0);
        benchmark::DoNotOptimize(mx.D.data());
    }
}
BENCHMARK(BM_FreeVibrationChain)->Arg(100)->Arg(500)->Arg(2000)->Unit(benchmark::kMillisecond);

}  // namespace
