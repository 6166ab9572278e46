// Module MASSSTIFFNESSANDDAMPINGMATRIX: table preparation and the assembly of the mass,
// stiffness and damping arrays of the shaft line, all referred to the reference shaft by
// the square of each element's speed ratio.
#pragma once

#include <string>
#include <vector>

#include "base/Table.h"
#include "components/ModelTables.h"

namespace qm {

// The arrays of one assembly. Diagonals (M, CA, CAR) have N values, the coordinate-form
// arrays (K, CR, CRR with ROWIND, COLIND) NNZ values: the diagonal in positions 1..N,
// then two positions per shaft, (origin, destination) and (destination, origin).
struct SystemMatrices {
    int N = 0;
    int NNZ = 0;
    Table<double> M;
    Table<double> K;
    Table<int> ROWIND;
    Table<int> COLIND;
    Table<double> CA;
    Table<double> CAR;
    Table<double> CR;
    Table<double> CRR;
    Table<double> D;    // natural angular frequencies, rad/s, ascending
    Array2D<double> V;  // mode shapes, (degree of freedom, mode), column after column; free mode only
};

namespace MASSSTIFFNESSANDDAMPINGMATRIX {

// Sets INERTIAEFFECTIVE and STIFFNESSDYNAMIC of the tables for the free (free = true) or
// the forced calculation of a load case. The lines a propeller reports on the way (a load
// case without entrained water of its own) are added to `messages` in propeller order; a
// forced caller passes them and writes them to the log of its run right after the call.
void MASSANDSHAFTTABLEPREPARATION(bool free, MassTable& MASS_TABLE, ShaftTable& SHAFT_TABLE,
                                  const ViscousDamperTable& VISCOUSDAMPER_TABLE,
                                  const LinearCouplingTable& LINEARCOUPLING_TABLE,
                                  const ProgressiveCouplingTable& PROGRESSIVECOUPLING_TABLE,
                                  PropellerTable& PROPELLER_TABLE, int loadcase,
                                  std::vector<std::string>* messages = nullptr);

// N: rows of MASS_TABLE, without the viscous damper rings in free mode. NNZ = 3N - 2.
void CALCUALTEMASSSTIFFNESSMATRIXDIMENSION(bool free, const MassTable& MASS_TABLE, int& N, int& NNZ);

// Builds the arrays anew, zero-filled, and assembles them. Free mode fills M and K only.
// Forced mode (free = false) has every row of MASS_TABLE as a degree of freedom, the
// damper rings included, and fills the damping arrays at the harmonic `order`: a row
// with DYNMAGNIFIER exactly 0.0 puts its ABSDAMPING into CA (mass) or CR (shaft), any
// other magnifier puts INERTIAEFFECTIVE/q into CAR or STIFFNESSDYNAMIC/q into CRR.
// Cylinders and crank throws of engines with formula damping, Geislinger couplings and
// viscous dampers with custom curves take their order-dependent values instead of the
// row's. The tables must have been prepared for the load case first.
void BUILDMASSSTIFFNESSANDDAMPINGMATRIX(bool free, const MassTable& MASS_TABLE,
                                        const ShaftTable& SHAFT_TABLE,
                                        const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE,
                                        const DieselTable& DIESEL_TABLE,
                                        const ViscousDamperTable& VISCOUSDAMPER_TABLE, double order,
                                        SystemMatrices& mx);

}  // namespace MASSSTIFFNESSANDDAMPINGMATRIX
}  // namespace qm
