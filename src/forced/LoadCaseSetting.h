// The operating point of a load case in the tables: speed of every inertia and shaft,
// power, speed and torque of every component with a load-case column, and the excitation
// the components derive from them (Fourier coefficients of engines and reciprocating pumps,
// ice coefficients of propellers, torque amplitudes of the four-order machines).
#pragma once

#include "components/ModelTables.h"

namespace qm::GLOBAL_DIESEL {
class DieselHarmonicsShare;
}

namespace qm::MASSSTIFFNESSANDDAMPINGMATRIX {

// Load case lc (1-based) of LOADCASE_SPEED and LOADCASE_POWER. A load case outside the
// table changes nothing; a component whose ID is in no row of its table is passed over.
// The torque of a component is POWER / (SPEED * pi / 30) without a guard: at a standstill
// it follows IEEE arithmetic, except where the component's own model guards it (engines,
// reciprocating pumps). With a share, the cylinders of an engine in the same state and load
// take one theoretical pressure curve (the same harmonics they would each compute).
void LOADCASESETTING(ModelTables& tables, int lc, GLOBAL_DIESEL::DieselHarmonicsShare* share = nullptr);

}  // namespace qm::MASSSTIFFNESSANDDAMPINGMATRIX
