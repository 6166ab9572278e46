#include "excitation/HarmonicTables.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>

#include "base/Constants.h"

namespace qm {

namespace {
double entry(std::span<const double> v, std::size_t pos) { return pos < v.size() ? v[pos] : 0.0; }
}  // namespace

void FILLCRANKANGLES(int n, double* ALPHA) {
    for (int i = 1; i <= n; ++i) ALPHA[i - 1] = PI * static_cast<double>(i - 1) / 180.0;
}

void interpolate_harmonic_table(int count, int M, std::span<const double> P,
                                std::span<const double> A, std::span<const double> F, double x,
                                std::vector<std::complex<double>>& HARMONICDATA) {
    count = std::max(count, 0);
    HARMONICDATA.assign(static_cast<std::size_t>(count), {});
    if (M < 1) return;
    // The search stays on the points the axis holds, whatever M claims.
    const int points = std::min(M, static_cast<int>(std::min<std::size_t>(P.size(), INT_MAX)));
    int lo = 1;
    int hi = 2;
    while (hi < points && P[static_cast<std::size_t>(hi - 1)] < x) {
        ++lo;
        ++hi;
    }
    const double plo = entry(P, static_cast<std::size_t>(lo - 1));
    const double phi = entry(P, static_cast<std::size_t>(hi - 1));
    // One pressure, or no width to interpolate over: the lower column stands.
    const bool hold = M < 2 || phi == plo;
    for (int k = 1; k <= count; ++k) {
        const auto t1 = static_cast<std::size_t>(k - 1) * static_cast<std::size_t>(M) +
                        static_cast<std::size_t>(lo - 1);
        const auto t2 = t1 + 1;
        double a = entry(A, t1);
        double f = entry(F, t1);
        if (!hold) {
            a = a + (entry(A, t2) - a) * (x - plo) / (phi - plo);
            f = f + (entry(F, t2) - f) * (x - plo) / (phi - plo);
        }
        HARMONICDATA[static_cast<std::size_t>(k - 1)] = {
            static_cast<double>(static_cast<float>(0.5 * a * std::sin(f))),
            static_cast<double>(static_cast<float>(-0.5 * a * std::cos(f)))};
    }
}

}  // namespace qm
