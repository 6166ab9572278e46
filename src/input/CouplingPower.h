// The power through couplings and dampers in each load case.
//
// The load case table names the machines; a coupling or damper without a column of its
// own gets one here, with the power that passes through it: the shaft line is cut between
// its two inertias, and on each side the machines are balanced, prime movers (engines,
// motors, turbines) positive and consumers (propellers, generators, pumps) negative.
#pragma once

#include "components/ModelTables.h"

namespace qm::IMPORTINPUTFILE {

// For linear, progressive and Geislinger couplings, then viscous, rubber and steel spring
// dampers, in row order: each one without a column gets the next free row of
// LOADCASE_TABLE and, in each load case, the power of the positive side balance when one
// side is above 0, else the size of the smaller (more negative) balance. Does nothing when
// every row of LOADCASE_TABLE is in use or there are no load cases; changes only
// LOADCASE_TABLE and LOADCASE_POWER. Runs after a clean data check, before a forced
// calculation.
void COUPLINGPOWERPREPARE(ModelTables& tables);

}  // namespace qm::IMPORTINPUTFILE
