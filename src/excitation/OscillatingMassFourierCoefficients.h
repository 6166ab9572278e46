// Harmonics of the tangential factor of the oscillating mass of one cylinder.
//
// The exported C function of the same name lives in the global namespace and forwards
// here; this one stays inside qm so the two never clash.
#pragma once

#include <complex>

namespace qm {

// Zeroes F(1..NHARM) and stores the coefficients of TANGENTIALOSCILLATINGMASS over the
// N points of ALPHA: F(1) is the mean, F(k+1) harmonic k, in half amplitudes. The values
// are per unit of mass, crank radius and angular speed squared.
void OSCILLATINGMASSFOURIERCOEFFICIENTS(int N, int NHARM, std::complex<double>* F,
                                        const double* ALPHA, double LAMBDA);

}  // namespace qm
