// Helpers shared by the excitation of engines and pumps: the crank angle axis of a work
// curve and the reading of a measured harmonic table at one operating point.
#pragma once

#include <complex>
#include <span>
#include <vector>

namespace qm {

// ALPHA(i) := pi (i - 1) / 180 rad for the points i = 1..n of a curve, one per degree.
void FILLCRANKANGLES(int n, double* ALPHA);

// Reads a harmonic table at x. The table has M points on the ascending axis P and holds
// amplitude A and phase F (rad) of order k at point m in place (k - 1) * M + m (1-based).
// Amplitude and phase are interpolated separately between the bracketing points, the
// first interval serving below the axis and the last above it. HARMONICDATA is allocated
// anew with `count` elements, element k - 1 = (0.5 a sin f, -0.5 a cos f), each part
// rounded to single precision. With one point (M = 1), or two equal neighbouring points,
// the lower point's values stand. Places beyond the given arrays read as 0.
void interpolate_harmonic_table(int count, int M, std::span<const double> P,
                                std::span<const double> A, std::span<const double> F, double x,
                                std::vector<std::complex<double>>& HARMONICDATA);

}  // namespace qm
