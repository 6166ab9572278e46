// What a load case of a diesel engine costs on the excitation side: the theoretical
// pressure curve (two per engine and load case) and a 720-point transform.
#include <benchmark/benchmark.h>

#include <cmath>
#include <complex>
#include <vector>

#include "excitation/DiscreteFourierTransform.h"
#include "excitation/PressureFourierCoefficients.h"
#include "excitation/TheoreticalPressure.h"
#include "base/Constants.h"

namespace {

namespace tp = qm::THEORETICALPRESSURE;

// A crosshead two-stroke cylinder: 500 mm bore, 2 m stroke, 1.7 MW at 127 rpm.
void BM_CalculatedPressureTwoStroke(benchmark::State& state) {
    std::vector<double> curve(tp::CYLPRESSURES_SIZE);
    double mip = 0.0;
    bool success = false;
    for (auto _ : state) {
        success = false;
        tp::CALCULATEDPRESSURE(false, 2, 0.5, 2.0, 0.45, 20.0, 3.5e5, 40.0, 127.0, 1.7e6, 180e5,
                               150e5, 1.39, 1.33, 0.5, 0.95, 2.0, -2.0, 60.0, 110.0, 140.0, 220.0,
                               curve.data(), mip, success);
        benchmark::DoNotOptimize(curve.data());
        benchmark::DoNotOptimize(mip);
    }
    if (!success) state.SkipWithError("the two-stroke curve did not converge");
}
BENCHMARK(BM_CalculatedPressureTwoStroke);

// A medium-speed four-stroke cylinder: 320 mm bore, 400 mm stroke, 500 kW at 750 rpm.
void BM_CalculatedPressureFourStroke(benchmark::State& state) {
    std::vector<double> curve(tp::CYLPRESSURES_SIZE);
    double mip = 0.0;
    bool success = false;
    for (auto _ : state) {
        success = false;
        tp::CALCULATEDPRESSURE(false, 4, 0.32, 0.4, 0.25, 15.0, 4.0e5, 45.0, 750.0, 5.0e5, 200e5,
                               160e5, 1.39, 1.33, 0.48, 0.94, 1.5, -5.0, 50.0, 130.0, 0.0, 0.0,
                               curve.data(), mip, success);
        benchmark::DoNotOptimize(curve.data());
        benchmark::DoNotOptimize(mip);
    }
    if (!success) state.SkipWithError("the four-stroke curve did not converge");
}
BENCHMARK(BM_CalculatedPressureFourStroke);

// 720 points to the 25 coefficients of a four-stroke engine (mean and orders 0.5 to 12).
void BM_DiscreteFourierTransform720(benchmark::State& state) {
    std::vector<double> x(720);
    for (int i = 0; i < 720; ++i) x[i] = 1.0e5 + 8.0e6 * std::exp(-std::pow((i - 370) / 30.0, 2));
    std::vector<std::complex<double>> f(25);
    for (auto _ : state) {
        qm::DFT::DISCRETEFOURIERTRANSFORM(720, 25, f.data(), x.data());
        benchmark::DoNotOptimize(f.data());
    }
}
BENCHMARK(BM_DiscreteFourierTransform720);

// The same with the tangential factor applied first, as the gas harmonics are made.
void BM_PressureFourierCoefficients720(benchmark::State& state) {
    std::vector<double> alpha(720), p(720), work(720);
    for (int i = 0; i < 720; ++i) {
        alpha[i] = qm::PI * i / 180.0;
        p[i] = 1.0e5 + 8.0e6 * std::exp(-std::pow((i - 10) / 30.0, 2));
    }
    std::vector<std::complex<double>> f(25);
    for (auto _ : state) {
        work = p;
        qm::PRESSUREFOURIERCOEFFICIENTS(720, 25, f.data(), work.data(), alpha.data(), 0.25);
        benchmark::DoNotOptimize(f.data());
    }
}
BENCHMARK(BM_PressureFourierCoefficients720);

}  // namespace
