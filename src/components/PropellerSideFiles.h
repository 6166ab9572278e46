// The two side files of a propeller: the ice excitation tables and the entrained water of
// each load case.
#pragma once

#include "base/RunContext.h"

#include "components/GlobalPropeller.h"

namespace qm::GLOBAL_PROPELLER {

// Reads the ice excitation file of propeller i: the NSPEEDRATIO speed ratios (line 5), the
// constant term (line 9), the cosine rows of harmonics 1 .. 4*NBLADE (lines 14 on), four
// free lines and the sine rows of the same harmonics. A blank name or an empty table leaves
// ok alone; otherwise ok becomes true, and false after a logged failure.
void LOAD_PROPELLER_EXCITATIONFILE(RunContext& ctx, PropellerTable& table, int i, bool& ok);

// Reads NLOADCASE lines of "name value" into VARIABLEENTRAINEDWATERTABLE. Nothing to do
// for a blank name, an empty table or no load cases.
void LOAD_PROPELLER_VARIABLEENTRAINEDWATERFILE(RunContext& ctx, PropellerTable& table, int i, bool& ok);

}  // namespace qm::GLOBAL_PROPELLER
