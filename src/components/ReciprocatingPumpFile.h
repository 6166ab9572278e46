// The measured harmonic files of the reciprocating pumps.
#pragma once

#include "base/RunContext.h"

#include "components/GlobalReciprocatingPump.h"

namespace qm::GLOBAL_RECIPROCATINGPUMP {

// Reads the harmonic file of every pump that names one, in row order: the speed percentages
// as they stand, components MPa to Pa, phases degrees to radians. A blank name is passed
// over; ok becomes true before a file is read and false at the first failure, which ends
// the whole load and is logged.
void LOADORVANTISPUMPFILE(RunContext& ctx, ReciprocatingPumpTable& table, bool& ok);

}  // namespace qm::GLOBAL_RECIPROCATINGPUMP
