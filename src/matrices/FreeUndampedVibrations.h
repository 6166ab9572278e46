// Module FREEUNDAMPEDVIBRATIONSMODULE: natural frequencies and mass-normalised mode shapes.
#pragma once

#include "matrices/MassStiffnessAndDampingMatrix.h"

namespace qm::FREEUNDAMPEDVIBRATIONSMODULE {

// Fills mx.D with the natural angular frequencies (rad/s, ascending) and mx.V with the
// mode shapes (x' M x = 1). A failing solve leaves both at zero.
void FREEUNDAMPEDVIBRATIONS(SystemMatrices& mx, int printlevel);

}  // namespace qm::FREEUNDAMPEDVIBRATIONSMODULE
