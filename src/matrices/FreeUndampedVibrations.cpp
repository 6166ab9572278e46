#include "matrices/FreeUndampedVibrations.h"

#include <cmath>
#include <iostream>

namespace qm::FREEUNDAMPEDVIBRATIONSMODULE {

EIGENVALUESOLVER::EigenDriver FREEUNDAMPEDVIBRATIONS(SystemMatrices& mx, int printlevel, bool literal) {
    using namespace EIGENVALUESOLVER;
    EigenvalueSolverRecord solver;
    INITIALIZE(solver, mx.N, mx.ROWIND, mx.COLIND, mx.K, mx.M, 0);
    INITIALIZEREALEIGENVALUES(solver, mx.D);
    INITIALIZEREALEIGENVECTORS(solver, mx.V);
    SOLVER(solver, 2, choose_driver(solver, literal));
    // Eigenvalues are squared angular frequencies. The rigid-body eigenvalue may come out a
    // tiny negative number; its root is never used (the caller sets mode 1 to zero).
    for (int i = 1; i <= mx.D.size(); ++i) mx.D(i) = std::sqrt(mx.D(i));
    FLUSHRESULTS(std::cout, printlevel, solver);
    const EigenDriver driver = solver.driver;
    DESTROY(solver, 1);
    return driver;
}

}  // namespace qm::FREEUNDAMPEDVIBRATIONSMODULE
