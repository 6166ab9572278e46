// Module CYLINDEREXCITATIONS: the slider-crank kinematics of one cylinder and the
// combination of gas and inertia harmonics into the torque harmonics of its crank throw.
//
// Curves run over one working cycle with one point per degree of crank angle; ALPHA holds
// the crank angle of each point in radians, point 1 being top dead centre. LAMBDA is the
// connecting rod ratio, crank radius over rod length. With beta = asin(LAMBDA sin alpha)
// the gas force on the piston turns into a tangential force on the crank pin by
// sin(alpha + beta) / cos(beta) and into a radial one by cos(alpha + beta) / cos(beta).
#pragma once

#include <complex>

namespace qm::CYLINDEREXCITATIONS {

// F(i) := F(i) * sin(alpha + beta) / cos(beta): a piston force becomes a tangential force.
void TANGENTIALFORCEGAS(int N, double* F, const double* ALPHA, double LAMBDA);

// F(i) := F(i) * cos(alpha + beta) / cos(beta): a piston force becomes a radial force.
void RADIALFORCEGAS(int N, double* F, const double* ALPHA, double LAMBDA);

// F(i) := tangential factor of the oscillating mass, per unit of mass, crank radius and
// angular speed squared:
//   sin(alpha + beta) / cos^2(beta) * [cos(alpha + beta) + LAMBDA cos^2(alpha) / cos^2(beta)].
void TANGENTIALOSCILLATINGMASS(int N, double* F, const double* ALPHA, double LAMBDA);

// F(i) := radial factor of the oscillating mass, as above with cos(alpha + beta) in front.
void RADIALOSCILLATINGMASS(int N, double* F, const double* ALPHA, double LAMBDA);

// Torque harmonics of one cylinder, N m, for harmonics 1..NCOEF (the mean not included):
//   OUT(k) = R * (AREA * GAS(k) - R * RECIPMASS * OMEGA^2 * MASS(k)).
// R crank radius (m), AREA piston area (m^2), GAS tangential pressure harmonics (Pa),
// MASS tangential oscillating-mass harmonics, OMEGA speed (rad/s), RECIPMASS kg.
void CYLINDEREXCITATION(int NCOEF, std::complex<double>* OUT, const std::complex<double>* GAS,
                        const std::complex<double>* MASS, double R, double AREA, double OMEGA,
                        double RECIPMASS);

// As CYLINDEREXCITATION where GAS already holds torque harmonics (N m):
//   OUT(k) = GAS(k) - R^2 * RECIPMASS * OMEGA^2 * MASS(k).
void CYLINDERSIMPLIFIEDEXCITATION(int NCOEF, std::complex<double>* OUT,
                                  const std::complex<double>* GAS,
                                  const std::complex<double>* MASS, double R, double OMEGA,
                                  double RECIPMASS);

}  // namespace qm::CYLINDEREXCITATIONS
