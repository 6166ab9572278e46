// Shaft torque, stress and damping torque of one source unit, order by order, and the
// nominal torque and stress of a load case.
//
// Blocks of one unit are flat arrays: XR, XI, VR, VI hold element (o-1)*NMASS + m for order
// place o and row m of MASS_TABLE; the torque, stress and damping torque blocks hold element
// (o-1)*NSHAFT + j for row j of SHAFT_TABLE. EXFO holds the NORDER harmonic orders.
//
// Each result has four parts: RE and IM, half amplitudes in the two quadratures, AMP =
// 2*sqrt(RE^2 + IM^2) and ANGLE = atan2(RE, -IM), so that the value at phase phi of the
// order is AMP*sin(phi + ANGLE) = 2*(RE cos phi - IM sin phi). A zero result has ANGLE pi.
#pragma once

#include <vector>

#include "base/Table.h"
#include "components/ModelTables.h"

namespace qm::FORCEDVIBRATION {

// Torque of each shaft, Nm: S * (X(origin) - X(destination)/r_des * r_org), the twist taken
// at the speed of the origin. S is the STIFFNESSDYNAMIC the unit's driver left in the table,
// or at each order the Geislinger coupling's dynamic stiffness or a viscous damper's custom
// stiffness. At an order place with EXFO 0 the torque is zero.
void SINGLELOADCASESHAFTTORQUE(const ModelTables& tables, int NMASS, int NSHAFT, int NORDER, const double* EXFO,
                               const double* XR, const double* XI, double* AMP, double* ANGLE, double* RE,
                               double* IM);

// Stress, Pa: 16 T / (pi (D^3 - d^3)), D and d the outer and inner diameter. A shaft whose
// outer diameter is not positive has all four parts 0.0.
void SINGLELOADCASESHAFTSTRESS(const ShaftTable& SHAFT_TABLE, int NSHAFT, int NORDER, const double* TRE,
                               const double* TIM, double* AMP, double* ANGLE, double* RE, double* IM);

// Damping torque of dampers and couplings, Nm: c * (V(origin) - V(destination)), the plain
// difference of the velocities, with c the damping of the element at each order. Elements
// that are neither damper nor coupling have all four parts 0.0. At an order place with EXFO
// 0 the damping is not evaluated (a coupling's damping there is infinite) and the damping
// torque is zero.
void SINGLELOADCASESHAFTDAMPINGTORQUE(const ModelTables& tables, int NMASS, int NSHAFT, int NORDER,
                                      const double* EXFO, const double* VR, const double* VI, double* AMP,
                                      double* ANGLE, double* RE, double* IM);

// NOMTORQUE(j) := LOADCASE_SHAFTPOWER(j, lc) / (SPEED(j) * pi / 30), Nm, for every shaft; a
// standstill gives the IEEE quotient. Resized to the shafts of the table.
void SINGLELOADCASENOMINALTORQUE(const ModelTables& tables, const Array2D<double>& LOADCASE_SHAFTPOWER, int lc,
                                 std::vector<double>& NOMTORQUE);

// NOMSTRESS(j) := 16 NOMTORQUE(j) / (pi (D^3 - d^3)), Pa, where D is not 0.0; else 0.0.
void SINGLELOADCASENOMINALSTRESS(const ShaftTable& SHAFT_TABLE, const std::vector<double>& NOMTORQUE,
                                 std::vector<double>& NOMSTRESS);

}  // namespace qm::FORCEDVIBRATION
