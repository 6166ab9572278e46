// What runs once before the walk over the load cases: the text report of the load case
// table, the power through each shaft and, with ice excitation, how a propeller torque
// divides along the line.
#pragma once

#include <vector>

#include "base/RunContext.h"
#include "base/Table.h"
#include "components/ModelTables.h"

namespace qm::FORCEDVIBRATION {

// "LoadCaseSetting.txt": one block per component of LOADCASE_TABLE, one row per load case.
// Sets the operating point of each load case into the component to derive what a row shows,
// so the POWER, SPEED and TORQUE fields (and what follows from them) hold the last load case
// afterwards.
void WRITELOADCASESETTING(RunContext& ctx, ModelTables& tables);

// LOADCASE_SHAFTPOWER(j, lc), W, never negative: the surplus of the side of shaft j with the
// larger power balance (prime movers feed in, loads take out), or the larger deficit when both
// sides take power out. NSHAFT by NLOADCASE.
void CALCULATELOADCASESHAFTPOWER(const ModelTables& tables, Array2D<double>& LOADCASE_SHAFTPOWER);

// SHAFTINERTIARATIO[j-1]: the share of the propeller's torque passing shaft j, the referred
// inertia of the side away from the propeller over the whole; 1.0 unless the system has exactly
// one propeller and both sides of the shaft add up to the whole system.
void CALCULATESHAFTINERTIARATIO(const ModelTables& tables, std::vector<double>& SHAFTINERTIARATIO);

}  // namespace qm::FORCEDVIBRATION
