// The measured harmonic files of the engines: normal firing and misfiring.
#pragma once

#include "base/RunContext.h"

#include "components/GlobalDiesel.h"

namespace qm::GLOBAL_DIESEL {

// Reads the normal-firing and misfiring harmonic files of every engine that names them, in
// row order, converting to SI: pressures bar to Pa, components MPa to Pa, phases degrees to
// radians. A blank name is passed over; ok becomes true before a file is read and false at
// the first failure, which ends the whole load and is logged. ok is left alone when no
// engine names a file.
void LOADORVANTISFILE(RunContext& ctx, DieselTable& table, bool& ok);

}  // namespace qm::GLOBAL_DIESEL
