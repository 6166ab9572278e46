// Module DFT: the direct discrete Fourier transform of a curve over one working cycle and
// the phase shift of its coefficients.
//
// Coefficients are half amplitudes: with F from DISCRETEFOURIERTRANSFORM a real curve is
//   x(i) = F(1) + 2 Re sum_k F(k+1) exp(+i k 2 pi (i-1) / N),
// so F(1) is the mean and F(k+1) harmonic k of the curve's own period. For a curve of 720
// points harmonic k is engine order k/2, for 360 points engine order k.
#pragma once

#include <complex>

namespace qm::DFT {

// F(1..NHARM) := coefficients of X(1..N), by the direct sum (no fast transform):
//   F(1)   = sum X(i) / N
//   F(k+1) = sum X(i) exp(-i k 2 pi (i-1) / N) / N,   k = 1 .. NHARM-1.
void DISCRETEFOURIERTRANSFORM(int N, int NHARM, std::complex<double>* F, const double* X);

// Phase shift of coefficients: the curve delayed by T out of a period PERIOD (in the same
// unit, e.g. degrees of a 360- or 720-point curve). Element m is harmonic OFFSET + m - 1:
//   CNEW(m) = C(m) exp(-i c (OFFSET + m - 1) T / PERIOD),
// with c the single-precision value of 2 pi. C and CNEW may be the same array.
void FOURIERCOEFFICIENTTRANSFORM(int NHARM, const std::complex<double>* C,
                                 std::complex<double>* CNEW, double T, double PERIOD,
                                 int OFFSET);

}  // namespace qm::DFT
