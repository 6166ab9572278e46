// Module FREEVIBRATION: the free vibration of the shaft line, from the tables to the
// result files of the natural frequencies and mode shapes.
#pragma once

#include "base/RunContext.h"
#include "components/ModelTables.h"

namespace qm::FREEVIBRATION {

constexpr const char* NATURALFREQUENCYFILE = "NaturalFrequency.bin";

// Prepares the tables in free mode, solves the undamped eigenproblem and writes the
// natural frequencies (rad/s, mode 1 the rigid-body mode at 0.0) to "NaturalFrequency.bin"
// in the result directory of the run, then the relative deflections, torques and, with
// engines, the vector sums. Keeps nothing: the forced vibration starts from the tables.
void FREEVIBRATIONCALCULATION(RunContext& ctx, ModelTables& tables);

}  // namespace qm::FREEVIBRATION
