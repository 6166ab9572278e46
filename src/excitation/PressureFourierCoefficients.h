// Harmonics of the tangential gas pressure of one cylinder.
#pragma once

#include <complex>

namespace qm {

// Zeroes F(1..NHARM), turns P(1..N) in place into the tangential pressure on the crank pin
// (TANGENTIALFORCEGAS) and stores its coefficients in F (DISCRETEFOURIERTRANSFORM): F(1)
// is the mean, F(k+1) harmonic k, in half amplitudes.
void PRESSUREFOURIERCOEFFICIENTS(int N, int NHARM, std::complex<double>* F, double* P,
                                 const double* ALPHA, double LAMBDA);

}  // namespace qm
