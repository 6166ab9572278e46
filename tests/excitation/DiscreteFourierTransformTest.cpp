// The direct transform's scaling and sign, and the phase shift of coefficients.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <vector>

#include "excitation/DiscreteFourierTransform.h"
#include "base/Constants.h"

namespace dft = qm::DFT;
using C = std::complex<double>;

namespace {

// A sum of N = 720 terms of order 1 accumulates rounding of about sqrt(N) ulps.
constexpr double SUM_TOLERANCE = 1e-13;
// The phase shift works with 2 pi rounded to single precision: harmonic k of a shift by
// the fraction f of a period turns by an extra k f (6.2831854820251465 - 2 pi) = k f 1.7e-7.
constexpr double TWO_PI_SINGLE_ERROR = 6.2831854820251465 - 2.0 * qm::PI;

}  // namespace

TEST(DiscreteFourierTransform, CoefficientsAreHalfAmplitudesWithNegativeExponent) {
    // The mean stands in F(1); A cos(k t) gives F(k+1) = A/2, A sin(k t) gives -i A/2.
    for (int n : {360, 720}) {
        for (int k : {1, 2, 7, 24}) {
            std::vector<double> xc(n), xs(n);
            for (int i = 0; i < n; ++i) {
                xc[i] = 3.0 * std::cos(k * 2.0 * qm::PI * i / n) - 0.75;
                xs[i] = 3.0 * std::sin(k * 2.0 * qm::PI * i / n);
            }
            std::vector<C> fc(k + 2), fs(k + 2);
            dft::DISCRETEFOURIERTRANSFORM(n, k + 2, fc.data(), xc.data());
            dft::DISCRETEFOURIERTRANSFORM(n, k + 2, fs.data(), xs.data());
            EXPECT_NEAR(fc[k].real(), 1.5, SUM_TOLERANCE) << n << " " << k;
            EXPECT_NEAR(fc[k].imag(), 0.0, SUM_TOLERANCE) << n << " " << k;
            EXPECT_NEAR(fs[k].real(), 0.0, SUM_TOLERANCE) << n << " " << k;
            EXPECT_NEAR(fs[k].imag(), -1.5, SUM_TOLERANCE) << n << " " << k;
            EXPECT_TRUE(std::abs(fc[0] + 0.75) < SUM_TOLERANCE && std::abs(fs[0]) < SUM_TOLERANCE) << n << " " << k;
            for (int j : {k - 1, k + 1}) {
                if (j == 0) continue;
                EXPECT_LT(std::abs(fc[j]), SUM_TOLERANCE) << n << " " << k << " " << j;
                EXPECT_LT(std::abs(fs[j]), SUM_TOLERANCE) << n << " " << k << " " << j;
            }
        }
    }
}

TEST(FourierCoefficientTransform, ShiftByNothingAndByAWholePeriod) {
    const std::vector<C> c = {{1.0, 0.0}, {0.3, -0.7}, {-2.0, 0.25}, {1.0, 5.0}, {0.5, 0.5}};
    std::vector<C> zero(5), whole = c;
    dft::FOURIERCOEFFICIENTTRANSFORM(5, c.data(), zero.data(), 0.0, 360.0, 0);
    dft::FOURIERCOEFFICIENTTRANSFORM(5, whole.data(), whole.data(), 720.0, 720.0, 0);  // in place
    EXPECT_EQ(zero, c);
    for (int m = 1; m < 5; ++m) {
        // A whole period turns harmonic m by m times the 32-bit 2 pi, not back to start.
        const C expected = c[m] * std::polar(1.0, -m * 6.2831854820251465);
        EXPECT_NEAR(whole[m].real(), expected.real(), 1e-15) << m;
        EXPECT_NEAR(whole[m].imag(), expected.imag(), 1e-15) << m;
        EXPECT_NE(whole[m], c[m]) << m;
    }
}

TEST(FourierCoefficientTransform, ShiftDelaysTheCurveAndHonoursTheOffset) {
    // Coefficients of x(i - T) equal the shifted coefficients of x, for a whole T.
    const int n = 720, nharm = 25, shift = 137;
    std::vector<double> x(n), delayed(n);
    for (int i = 0; i < n; ++i) {
        const double t = 2.0 * qm::PI * i / n;
        x[i] = std::exp(std::sin(t)) + 0.3 * std::cos(7.0 * t + 1.0) + (i % 11) * 1e-3;
    }
    for (int i = 0; i < n; ++i) delayed[i] = x[((i - shift) % n + n) % n];
    std::vector<C> fx(nharm), fd(nharm), shifted(nharm), from_first(nharm - 1);
    dft::DISCRETEFOURIERTRANSFORM(n, nharm, fx.data(), x.data());
    dft::DISCRETEFOURIERTRANSFORM(n, nharm, fd.data(), delayed.data());
    dft::FOURIERCOEFFICIENTTRANSFORM(nharm, fx.data(), shifted.data(), shift, n, 0);
    // The same from harmonic 1 on, with the offset naming the first harmonic.
    dft::FOURIERCOEFFICIENTTRANSFORM(nharm - 1, fx.data() + 1, from_first.data(), shift, n, 1);
    for (int m = 0; m < nharm; ++m) {
        const double tol = std::abs(fx[m]) * m * TWO_PI_SINGLE_ERROR + 1e-13;
        EXPECT_NEAR(shifted[m].real(), fd[m].real(), tol) << m;
        EXPECT_NEAR(shifted[m].imag(), fd[m].imag(), tol) << m;
        if (m > 0) {
            EXPECT_EQ(from_first[m - 1], shifted[m]) << m;
        }
    }
}

TEST(DiscreteFourierTransform, TabulatedFactorsGiveTheDigitsOfTheDirectSum) {
    // The transform keeps its sines and cosines between calls; every coefficient must
    // still carry the digits of the sum evaluated term by term, whatever the order of
    // curve lengths and harmonic counts asked for before.
    auto direct = [](int n, int nharm, const std::vector<double>& x) {
        std::vector<C> f(nharm);
        double mean = 0.0;
        for (int i = 0; i < n; ++i) mean += x[i];
        f[0] = {mean / n, 0.0};
        for (int k = 1; k < nharm; ++k) {
            const double w = (qm::PI + qm::PI) * k / n;
            double re = 0.0, im = 0.0;
            for (int i = 0; i < n; ++i) {
                re += x[i] * std::cos(-w * i);
                im += x[i] * std::sin(-w * i);
            }
            f[k] = {re / n, im / n};
        }
        return f;
    };
    // Harmonic counts far beyond the table's size are summed directly.
    const std::vector<std::pair<int, int>> requests = {
        {720, 5}, {720, 25}, {360, 21}, {720, 13}, {720, 40}, {360, 3}, {720, 1500}};
    for (const auto& [n, nharm] : requests) {
        std::vector<double> x(n);
        for (int i = 0; i < n; ++i) x[i] = std::exp(std::cos(0.37 * i)) * (1.0 + 1e-3 * i);
        std::vector<C> f(nharm);
        dft::DISCRETEFOURIERTRANSFORM(n, nharm, f.data(), x.data());
        const std::vector<C> expected = direct(n, nharm, x);
        for (int k = 0; k < nharm; ++k) ASSERT_EQ(f[k], expected[k]) << n << " " << nharm << " " << k;
    }
}
