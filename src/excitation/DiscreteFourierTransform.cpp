#include "excitation/DiscreteFourierTransform.h"

#include <cmath>

#include "frame/Constants.h"

namespace qm::DFT {

namespace {

// 2 pi rounded to single precision. The phase shift uses it, not the double value, so a
// shift by a whole period turns harmonic k by slightly more than k full turns.
constexpr double TWO_PI_SINGLE = 6.2831854820251465;

}  // namespace

void DISCRETEFOURIERTRANSFORM(int N, int NHARM, std::complex<double>* F, const double* X) {
    if (NHARM < 1) return;
    const double n = static_cast<double>(N);

    double mean = 0.0;
    for (int i = 0; i < N; ++i) mean += X[i];
    F[0] = {mean / n, 0.0};

    for (int k = 1; k < NHARM; ++k) {
        const double w = (PI + PI) * static_cast<double>(k) / n;
        double re = 0.0;
        double im = 0.0;
        for (int i = 0; i < N; ++i) {
            const double angle = -w * static_cast<double>(i);
            re += X[i] * std::cos(angle);
            im += X[i] * std::sin(angle);
        }
        F[k] = {re / n, im / n};
    }
}

void FOURIERCOEFFICIENTTRANSFORM(int NHARM, const std::complex<double>* C,
                                 std::complex<double>* CNEW, double T, double PERIOD,
                                 int OFFSET) {
    for (int m = 1; m <= NHARM; ++m) {
        // The harmonic number is a single-precision real.
        const double harmonic = static_cast<float>(OFFSET + m - 1);
        const double phi = -TWO_PI_SINGLE * harmonic * (T / PERIOD);
        const std::complex<double> c = C[m - 1];
        const double cr = std::cos(phi);
        const double sr = std::sin(phi);
        CNEW[m - 1] = {c.real() * cr - c.imag() * sr, c.real() * sr + c.imag() * cr};
    }
}

}  // namespace qm::DFT
