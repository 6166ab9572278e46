// Module EIGENVALUESOLVER: the generalized symmetric-definite eigenproblem K x = lambda M x
// of the undamped shaft line, solved densely by LAPACK's dsygv.
#pragma once

#include <ostream>

#include "base/Table.h"

namespace qm::EIGENVALUESOLVER {

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
};

void INITIALIZE(EigenvalueSolverRecord& self, int order, const Table<int>& ROWIND,
                const Table<int>& COLIND, const Table<double>& K, const Table<double>& M, int kind);
void INITIALIZEREALEIGENVALUES(EigenvalueSolverRecord& self, Table<double>& D);
void INITIALIZEREALEIGENVECTORS(EigenvalueSolverRecord& self, Array2D<double>& V);
// mode 2: eigenvalues and eigenvectors; any other mode: eigenvalues alone.
void SOLVER(EigenvalueSolverRecord& self, int mode);
// Developer's trace of the results, written above print level 0.
void FLUSHRESULTS(std::ostream& out, int printlevel, const EigenvalueSolverRecord& self);
// Ends the solve; with keep >= 1 the viewed arrays stay as they are.
void DESTROY(EigenvalueSolverRecord& self, int keep);
int GETERRORGEP(const EigenvalueSolverRecord& self);

}  // namespace qm::EIGENVALUESOLVER
