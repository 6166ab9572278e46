#include "excitation/CylinderExcitations.h"

#include <cmath>
#include <vector>

namespace qm::CYLINDEREXCITATIONS {

namespace {

// beta(i) = asin(LAMBDA sin alpha(i)), the angle of the connecting rod to the cylinder axis.
std::vector<double> rod_angles(int N, const double* ALPHA, double LAMBDA) {
    std::vector<double> beta(N > 0 ? static_cast<std::size_t>(N) : 0);
    for (int i = 0; i < N; ++i) beta[i] = std::asin(LAMBDA * std::sin(ALPHA[i]));
    return beta;
}

// The bracket shared by both oscillating-mass factors:
// cos(alpha + beta) + LAMBDA cos^2(alpha) / cos^2(beta).
double mass_bracket(double alpha, double beta, double LAMBDA) {
    const double ca = std::cos(alpha);
    const double cb = std::cos(beta);
    return std::cos(alpha + beta) + LAMBDA * (ca * ca) / (cb * cb);
}

}  // namespace

void TANGENTIALFORCEGAS(int N, double* F, const double* ALPHA, double LAMBDA) {
    const std::vector<double> beta = rod_angles(N, ALPHA, LAMBDA);
    for (int i = 0; i < N; ++i) F[i] = F[i] * std::sin(ALPHA[i] + beta[i]) / std::cos(beta[i]);
}

void RADIALFORCEGAS(int N, double* F, const double* ALPHA, double LAMBDA) {
    const std::vector<double> beta = rod_angles(N, ALPHA, LAMBDA);
    for (int i = 0; i < N; ++i) F[i] = F[i] * std::cos(ALPHA[i] + beta[i]) / std::cos(beta[i]);
}

void TANGENTIALOSCILLATINGMASS(int N, double* F, const double* ALPHA, double LAMBDA) {
    const std::vector<double> beta = rod_angles(N, ALPHA, LAMBDA);
    for (int i = 0; i < N; ++i) {
        const double cb = std::cos(beta[i]);
        F[i] = (std::sin(ALPHA[i] + beta[i]) / (cb * cb)) * mass_bracket(ALPHA[i], beta[i], LAMBDA);
    }
}

void RADIALOSCILLATINGMASS(int N, double* F, const double* ALPHA, double LAMBDA) {
    const std::vector<double> beta = rod_angles(N, ALPHA, LAMBDA);
    for (int i = 0; i < N; ++i) {
        const double cb = std::cos(beta[i]);
        F[i] = (std::cos(ALPHA[i] + beta[i]) / (cb * cb)) * mass_bracket(ALPHA[i], beta[i], LAMBDA);
    }
}

void CYLINDEREXCITATION(int NCOEF, std::complex<double>* OUT, const std::complex<double>* GAS,
                        const std::complex<double>* MASS, double R, double AREA, double OMEGA,
                        double RECIPMASS) {
    // Real and imaginary parts are worked separately so that each follows the same order
    // of operations as a real expression would.
    const double inertia = R * RECIPMASS * (OMEGA * OMEGA);
    for (int k = 0; k < NCOEF; ++k) {
        const double re = R * (AREA * GAS[k].real() - inertia * MASS[k].real());
        const double im = R * (AREA * GAS[k].imag() - inertia * MASS[k].imag());
        OUT[k] = {re, im};
    }
}

void CYLINDERSIMPLIFIEDEXCITATION(int NCOEF, std::complex<double>* OUT,
                                  const std::complex<double>* GAS,
                                  const std::complex<double>* MASS, double R, double OMEGA,
                                  double RECIPMASS) {
    const double inertia = (R * R) * RECIPMASS * (OMEGA * OMEGA);
    for (int k = 0; k < NCOEF; ++k) {
        const double re = GAS[k].real() - inertia * MASS[k].real();
        const double im = GAS[k].imag() - inertia * MASS[k].imag();
        OUT[k] = {re, im};
    }
}

}  // namespace qm::CYLINDEREXCITATIONS
