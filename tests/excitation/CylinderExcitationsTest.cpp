// Slider-crank factors against the piston kinematics they come from, and the torque
// combination of gas and inertia harmonics.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <vector>

#include "excitation/CylinderExcitations.h"
#include "base/Constants.h"

namespace ce = qm::CYLINDEREXCITATIONS;

namespace {

// Factors are products of a few sines and cosines of order 1: a few ulps of 1.
constexpr double FACTOR_TOLERANCE = 1e-14;
// Central differences with step h of smooth functions of order 1: error ~ h^2 / 6 times
// the third derivative, well below this for h = 1e-4.
constexpr double DIFFERENCE_TOLERANCE = 1e-7;

std::vector<double> crank_angles(int n) {
    std::vector<double> alpha(n);
    for (int i = 0; i < n; ++i) alpha[i] = qm::PI * i / 180.0;
    return alpha;
}

// Piston displacement from top dead centre per unit of crank radius:
// x / r = (1 - cos a) + (1 - cos b) / lambda, sin b = lambda sin a.
double piston_travel(double a, double lambda) {
    const double b = std::asin(lambda * std::sin(a));
    return (1.0 - std::cos(a)) + (1.0 - std::cos(b)) / lambda;
}

double first_derivative(double a, double lambda) {
    const double h = 1e-4;
    return (piston_travel(a + h, lambda) - piston_travel(a - h, lambda)) / (2 * h);
}

double second_derivative(double a, double lambda) {
    const double h = 1e-4;
    return (piston_travel(a + h, lambda) - 2 * piston_travel(a, lambda) +
            piston_travel(a - h, lambda)) /
           (h * h);
}

}  // namespace

TEST(CylinderKinematics, WithoutRodObliquityFactorsAreHarmonicsOfTheCrankAngle) {
    const int n = 360;
    const std::vector<double> alpha = crank_angles(n);
    std::vector<double> tg(n, 1.0), rg(n, 1.0), tm(n), rm(n);
    ce::TANGENTIALFORCEGAS(n, tg.data(), alpha.data(), 0.0);
    ce::RADIALFORCEGAS(n, rg.data(), alpha.data(), 0.0);
    ce::TANGENTIALOSCILLATINGMASS(n, tm.data(), alpha.data(), 0.0);
    ce::RADIALOSCILLATINGMASS(n, rm.data(), alpha.data(), 0.0);
    for (int i = 0; i < n; ++i) {
        const double s = std::sin(alpha[i]), c = std::cos(alpha[i]);
        EXPECT_NEAR(tg[i], s, FACTOR_TOLERANCE) << i;
        EXPECT_NEAR(rg[i], c, FACTOR_TOLERANCE) << i;
        EXPECT_NEAR(tm[i], s * c, FACTOR_TOLERANCE) << i;
        EXPECT_NEAR(rm[i], c * c, FACTOR_TOLERANCE) << i;
    }
}

TEST(CylinderKinematics, FactorsFollowFromPistonTravel) {
    // The tangential gas factor is the lever x'(a)/r; the oscillating mass, accelerated
    // by r w^2 x''(a)/r, gives the tangential factor x'' x' / r^2 and the radial one
    // x''/r times the radial gas factor.
    const int n = 720;
    const double lambda = 0.3;
    std::vector<double> alpha(n);
    for (int i = 0; i < n; ++i) alpha[i] = qm::PI * i / 360.0;  // half-degree grid
    std::vector<double> tg(n, 2.5), rg(n, 1.0), tm(n), rm(n);  // tg a force, not only a unit factor
    ce::TANGENTIALFORCEGAS(n, tg.data(), alpha.data(), lambda);
    ce::RADIALFORCEGAS(n, rg.data(), alpha.data(), lambda);
    ce::TANGENTIALOSCILLATINGMASS(n, tm.data(), alpha.data(), lambda);
    ce::RADIALOSCILLATINGMASS(n, rm.data(), alpha.data(), lambda);
    for (int i = 0; i < n; ++i) {
        const double d1 = first_derivative(alpha[i], lambda);
        const double d2 = second_derivative(alpha[i], lambda);
        EXPECT_NEAR(tg[i], 2.5 * d1, 2.5 * DIFFERENCE_TOLERANCE) << i;
        EXPECT_NEAR(tm[i], d2 * d1, DIFFERENCE_TOLERANCE) << i;
        EXPECT_NEAR(rm[i], d2 * rg[i], DIFFERENCE_TOLERANCE) << i;
        // Gas force components: the rod force split along and across the crank.
        const double b = std::asin(lambda * std::sin(alpha[i]));
        EXPECT_NEAR(tg[i] * tg[i] / 6.25 + rg[i] * rg[i], 1.0 / (std::cos(b) * std::cos(b)),
                    FACTOR_TOLERANCE)
            << i;
    }
}

TEST(CylinderTorque, GasAndInertiaHarmonicsCombineIntoTorque) {
    using C = std::complex<double>;
    const std::vector<C> gas = {{1.5e5, -2.0e5}, {-3.0e4, 4.0e4}};
    const std::vector<C> mass = {{0.125, 0.0}, {0.0, -0.25}};
    const double r = 0.2, area = 0.08, omega = 78.5, recip = 1200.0;
    std::vector<C> out(2), simplified(2), at_rest(2);

    // At rest only the gas acts: torque = r * area * pressure.
    ce::CYLINDEREXCITATION(2, at_rest.data(), gas.data(), mass.data(), r, area, 0.0, recip);
    for (int k = 0; k < 2; ++k) {
        EXPECT_DOUBLE_EQ(at_rest[k].real(), r * area * gas[k].real());
        EXPECT_DOUBLE_EQ(at_rest[k].imag(), r * area * gas[k].imag());
    }

    // A gas torque given directly gives the same answer as the pressure form.
    ce::CYLINDEREXCITATION(2, out.data(), gas.data(), mass.data(), r, area, omega, recip);
    std::vector<C> gas_torque = {gas[0] * (r * area), gas[1] * (r * area)};
    ce::CYLINDERSIMPLIFIEDEXCITATION(2, simplified.data(), gas_torque.data(), mass.data(), r,
                                     omega, recip);
    for (int k = 0; k < 2; ++k) {
        EXPECT_NEAR(out[k].real(), simplified[k].real(), 1e-12 * std::abs(out[k]));
        EXPECT_NEAR(out[k].imag(), simplified[k].imag(), 1e-12 * std::abs(out[k]));
    }
    // The inertia works against the gas: r^2 m w^2 times the mass harmonic.
    EXPECT_NEAR(out[0].real(), r * area * 1.5e5 - r * r * recip * omega * omega * 0.125, 1e-6);
    EXPECT_NEAR(out[1].imag(), r * area * 4.0e4 + r * r * recip * omega * omega * 0.25, 1e-6);
}
