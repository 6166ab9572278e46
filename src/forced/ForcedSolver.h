// The steady-state response of the whole shaft line to harmonic excitation at one speed,
// for a list of harmonic orders: at each order the dynamic stiffness
//   Z(w) = K - w^2 M + i (w (CR + CA) + CRR + w^2 CAR),   w = OMEGA * order,
// is factorised densely and solved for the excitation of that order.
//
// Layouts: the excitation (FORE, FOIM) is point-major, element (j-1)*NORDER + i for point
// j and order place i; the results (XRE, XIM, XAMP, XANGLE) are order-major, element
// (i-1)*N + p for order place i and degree of freedom p.
#pragma once

#include <complex>
#include <vector>

#include "base/Table.h"
#include "components/ModelTables.h"
#include "forced/SolvePath.h"
#include "forced/TreeSolve.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"

namespace qm::FORCEDVIBRATION {

// A failed factorisation or solve: routine 0 none, 1 ZGETRF, 2 ZGETRS, with the INFO the
// library gave. The solver stops at the first failure and hands it upward; what a run
// does with it is decided by the frame.
struct SolverFailure {
    int routine = 0;
    int INFO = 0;
};
constexpr int ROUTINE_NONE = 0;
constexpr int ROUTINE_ZGETRF = 1;
constexpr int ROUTINE_ZGETRS = 2;

}  // namespace qm::FORCEDVIBRATION

namespace qm::FORCEDVIBRATIONSOLVER {

// The record of one solve: views of the caller's arrays, not copies.
struct ForcedSolverRecord {
    int error = 0;  // 0, or the INFO of the failing library routine
    int order = 0;  // N
    int kind = 0;   // 1: damping is taken into account
    const SystemMatrices* mx = nullptr;
};

void INITIALIZE(ForcedSolverRecord& self, const SystemMatrices& mx, int kind);
void DESTROY(ForcedSolverRecord& self);

// rhs(FIRINGORDERGLOBAL(j)) += GK(j) * (cos t - i sin t), t = order * FIRINGANGLES(j).
// Points on a degree of freedom outside 1..N are passed over.
void EXCITATION(const ForcedSolverRecord& self, std::vector<std::complex<double>>& rhs,
                const std::vector<std::complex<double>>& GK, double order, const double* FIRINGANGLES,
                const int* FIRINGORDERGLOBAL);

// Dense Z(w) of the record's arrays, column after column, N x N; mode 0 is dense storage,
// the only one built. MATRIX must hold zeros on entry.
void MAKEMATRIX(const ForcedSolverRecord& self, int mode, double OMEGA, double order,
                std::vector<std::complex<double>>& MATRIX);

// Factorises MATRIX and solves in place of rhs. Returns the failure, routine 0 when none.
FORCEDVIBRATION::SolverFailure SOLVELINEARSYSTEM(ForcedSolverRecord& self, int mode,
                                                 std::vector<std::complex<double>>& MATRIX,
                                                 std::vector<std::complex<double>>& rhs, std::vector<int>& IPIV);

// The phase of a solution value in (0, 2 pi], by a plain quotient XIM/XRE: a positive real
// value gives 2 pi, XRE = 0 gives 3 pi/2 (XIM > 0) or pi/2 (XIM < 0). An exactly zero value
// has no phase and is given 0.0.
double XANGLE_OF(double XRE, double XIM);

// True when some damping of the tables depends on the harmonic order, so the arrays are
// rebuilt for each order: any Geislinger coupling, an engine with formula damping, a
// viscous damper with custom damping.
bool DAMPINGDEPENDSONORDER(const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE,
                           const DieselTable& DIESEL_TABLE, const ViscousDamperTable& VISCOUSDAMPER_TABLE);

// Working storage of the solve, kept by a caller that solves many units (one per thread):
// the excitation and solution of an order, the dense system of an order that falls back to
// it, the arrays of an order when the damping follows the order, and the tree plan, made
// anew only when the pattern of the arrays changes.
struct SolveScratch {
    std::vector<std::complex<double>> G, GK, rhs, excitation, MATRIX;
    std::vector<int> IPIV;
    SystemMatrices orderwise;
    TreePlan plan;
    TreeWork work;
};

// The loop over the orders. An order place whose frequency OMEGA*EXFO is 0.0 (an order 0
// behind a machine's number of orders, or a standstill) is not solved: its results stay 0.0.
// Without a scratch the call uses one of its own.
FORCEDVIBRATION::SolverFailure SOLVEFORCED(const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE,
                                           const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE,
                                           const DieselTable& DIESEL_TABLE,
                                           const ViscousDamperTable& VISCOUSDAMPER_TABLE, ForcedSolverRecord& self,
                                           int NORDER, double OMEGA, double* XAMP, double* XANGLE, double* XRE,
                                           double* XIM, const std::vector<std::complex<double>>& G, int NEXCITE,
                                           const double* EXFO, const double* FIRINGANGLES,
                                           const int* FIRINGORDERGLOBAL,
                                           FORCEDVIBRATION::SolvePath path = FORCEDVIBRATION::SolvePath::FAST,
                                           SolveScratch* scratch = nullptr);

}  // namespace qm::FORCEDVIBRATIONSOLVER

namespace qm::FORCEDDAMPEDVIBRATIONSSOLVERFC {

// Solves all NORDER orders at the speed OMEGA (rad/s) for NEXCITE points of attack. mx holds
// the arrays built by the driver with order 1.0 (N = mx.N); XAMP, XANGLE, XRE, XIM hold
// NORDER*N values each and are rewritten in full. FORE, FOIM: NEXCITE*NORDER half-amplitude
// coefficients; FIRINGANGLES (rad at order 1) and FIRINGORDERGLOBAL (row of MASS_TABLE):
// NEXCITE values. The print level is kept for the call's shape; no trace is written.
FORCEDVIBRATION::SolverFailure FORCEDDAMPEDVIBRATIONSFC(
    const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE, const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE,
    const DieselTable& DIESEL_TABLE, const ViscousDamperTable& VISCOUSDAMPER_TABLE, int NORDER, int NEXCITE,
    double OMEGA, double* XAMP, double* XANGLE, double* XRE, double* XIM, const SystemMatrices& mx,
    const double* FORE, const double* FOIM, const double* EXFO, const double* FIRINGANGLES,
    const int* FIRINGORDERGLOBAL, int printlevel,
    FORCEDVIBRATION::SolvePath path = FORCEDVIBRATION::SolvePath::FAST,
    FORCEDVIBRATIONSOLVER::SolveScratch* scratch = nullptr);

}  // namespace qm::FORCEDDAMPEDVIBRATIONSSOLVERFC
