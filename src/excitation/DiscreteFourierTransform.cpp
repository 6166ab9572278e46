#include "excitation/DiscreteFourierTransform.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/Constants.h"

namespace qm::DFT {

namespace {

// 2 pi rounded to single precision. The phase shift uses it, not the double value, so a
// shift by a whole period turns harmonic k by slightly more than k full turns.
constexpr double TWO_PI_SINGLE = 6.2831854820251465;

// Angle step of harmonic k of an N-point curve: w = 2 pi k / N.
double twiddle_step(int k, int N) {
    return (PI + PI) * static_cast<double>(k) / static_cast<double>(N);
}

// Entries of the table at most, per factor: 8 MB each.
constexpr int TABLE_ENTRIES = 1 << 20;

// The factors cos(-w (i-1)) and sin(-w (i-1)) of every harmonic of an N-point curve,
// evaluated once and kept: every cylinder of every load case transforms curves of the same
// length. They are the very values the sum would compute on the spot, so the transform
// gives the same digits with or without the table; the table only saves the time of the
// sine and cosine calls. One table per thread, since the library may be called from
// several threads one after the other.
struct TwiddleTable {
    int n = 0;
    int harmonics = 0;  // rows 1..harmonics are filled
    std::vector<double> cos_table;
    std::vector<double> sin_table;

    void prepare(int N, int highest) {
        if (N == n && highest <= harmonics) return;
        if (N != n) harmonics = 0;
        n = N;
        const int rows = highest > harmonics ? highest : harmonics;
        const std::size_t size = static_cast<std::size_t>(rows + 1) * static_cast<std::size_t>(N);
        cos_table.resize(size);
        sin_table.resize(size);
        for (int k = harmonics + 1; k <= rows; ++k) {
            const double w = twiddle_step(k, N);
            for (int i = 0; i < N; ++i) {
                const double angle = -w * static_cast<double>(i);
                cos_table[index(k, i)] = std::cos(angle);
                sin_table[index(k, i)] = std::sin(angle);
            }
        }
        harmonics = rows;
    }
    std::size_t index(int k, int i) const {
        return static_cast<std::size_t>(k) * static_cast<std::size_t>(n) + static_cast<std::size_t>(i);
    }
};

}  // namespace

void DISCRETEFOURIERTRANSFORM(int N, int NHARM, std::complex<double>* F, const double* X) {
    if (NHARM < 1) return;
    const double n = static_cast<double>(N);

    double mean = 0.0;
    for (int i = 0; i < N; ++i) mean += X[i];
    F[0] = {mean / n, 0.0};

    // Harmonics up to this one come from the table; an unusually long request is summed
    // with the sines and cosines evaluated on the spot, which gives the same values.
    const int tabled = N < 1 ? 0 : std::min(NHARM - 1, TABLE_ENTRIES / N);
    thread_local TwiddleTable table;
    if (tabled > 0) table.prepare(N, tabled);

    for (int k = 1; k < NHARM; ++k) {
        double re = 0.0;
        double im = 0.0;
        if (k <= tabled) {
            const double* c = &table.cos_table[table.index(k, 0)];
            const double* s = &table.sin_table[table.index(k, 0)];
            for (int i = 0; i < N; ++i) {
                re += X[i] * c[i];
                im += X[i] * s[i];
            }
        } else {
            const double w = twiddle_step(k, N);
            for (int i = 0; i < N; ++i) {
                const double angle = -w * static_cast<double>(i);
                re += X[i] * std::cos(angle);
                im += X[i] * std::sin(angle);
            }
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
