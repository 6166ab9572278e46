// Module EIGENVALUESOLVER: the generalized symmetric-definite eigenproblem K x = lambda M x
// of the undamped shaft line. LAPACK's dsygv on the dense matrices is the reference driver;
// large lines, whose mass matrix is diagonal, are scaled to the standard problem
// M^-1/2 K M^-1/2 y = lambda y, which an unbranched chain turns into a symmetric tridiagonal
// one (dstevr, O(N) memory beside the vectors) and any other tree solves densely (dsyevr).
#pragma once

#include <ostream>
#include <vector>

#include "base/Table.h"

namespace qm::EIGENVALUESOLVER {

// The LAPACK driver of a solve.
enum class EigenDriver {
    GENERALIZED,  // dsygv on dense K and M
    TRIDIAGONAL,  // dstevr on the scaled chain
    SCALED,       // dsyevr on the dense scaled matrix
};

// Degrees of freedom from which a model leaves dsygv. Below it dsygv takes well under the time
// of writing the results, and every model of ordinary size keeps the digits and the signs of
// the mode shapes it always had: another driver agrees only to rounding, and an eigenvector's
// sign is its own choice.
constexpr int STRUCTURED_DRIVER_MIN_ORDER = 200;

// One solve. The arrays are the caller's: the record only views them.
struct EigenvalueSolverRecord {
    int error = 0;  // 0, or the failing INFO of the library routine
    int order = 0;  // N
    int kind = 0;   // 0: real, 64-bit
    const Table<int>* ROWIND = nullptr;
    const Table<int>* COLIND = nullptr;
    const Table<double>* K = nullptr;
    const Table<double>* M = nullptr;
    Table<double>* EIGVALREAL = nullptr;
    Array2D<double>* RIGHTEIGVECREAL = nullptr;
    EigenDriver driver = EigenDriver::GENERALIZED;  // the driver the last SOLVER call took
};

void INITIALIZE(EigenvalueSolverRecord& self, int order, const Table<int>& ROWIND,
                const Table<int>& COLIND, const Table<double>& K, const Table<double>& M, int kind);
void INITIALIZEREALEIGENVALUES(EigenvalueSolverRecord& self, Table<double>& D);
void INITIALIZEREALEIGENVECTORS(EigenvalueSolverRecord& self, Array2D<double>& V);
// mode 2: eigenvalues and eigenvectors; any other mode: eigenvalues alone. Solves with dsygv.
void SOLVER(EigenvalueSolverRecord& self, int mode);
// The same with the given driver. Eigenvalues ascend and vectors are mass-normalised
// (x' M x = 1) whichever driver runs. A structured driver that can't be used (a mass that is
// not positive and finite) or fails hands the solve to dsygv, so a failure leaves the results
// as dsygv leaves them.
void SOLVER(EigenvalueSolverRecord& self, int mode, EigenDriver driver);

// The driver for the record's matrices: dsygv for the literal path and below
// STRUCTURED_DRIVER_MIN_ORDER, else TRIDIAGONAL for a chain and SCALED for any other model.
EigenDriver choose_driver(const EigenvalueSolverRecord& self, bool literal);

// The degrees of freedom (1-based) in their order along the line when the stiffness, as
// dsygv reads it (its lower triangle, a later position replacing an earlier one), joins them
// into one unbranched chain; empty otherwise. A chain numbered in line order gives 1..N.
std::vector<int> chain_order(const EigenvalueSolverRecord& self);
// Developer's trace of the results, written above print level 0.
void FLUSHRESULTS(std::ostream& out, int printlevel, const EigenvalueSolverRecord& self);
// Ends the solve; with keep >= 1 the viewed arrays stay as they are.
void DESTROY(EigenvalueSolverRecord& self, int keep);
int GETERRORGEP(const EigenvalueSolverRecord& self);

}  // namespace qm::EIGENVALUESOLVER
