// Module FREEUNDAMPEDVIBRATIONSMODULE: natural frequencies and mass-normalised mode shapes.
#pragma once

#include "matrices/EigenvalueSolver.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"

namespace qm::FREEUNDAMPEDVIBRATIONSMODULE {

// Fills mx.D with the natural angular frequencies (rad/s, ascending) and mx.V with the
// mode shapes (x' M x = 1). A failing solve leaves both at zero. `literal` keeps dsygv for any
// size; otherwise the driver follows the size and shape of the line (choose_driver). Returns
// the driver that solved.
EIGENVALUESOLVER::EigenDriver FREEUNDAMPEDVIBRATIONS(SystemMatrices& mx, int printlevel, bool literal = false);

}  // namespace qm::FREEUNDAMPEDVIBRATIONSMODULE
