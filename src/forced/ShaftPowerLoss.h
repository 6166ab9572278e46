// Power dissipated in each shaft element by the alternating motion of one load case.
//
// The units of each source kind are first added order by order (deflection and shaft
// torque); the loss of an element is then a sum over kinds and orders of a term of the
// form 1/2 damping * frequency^2 * amplitude^2, with the element's own damping model. The
// orders of a kind and its speed are those of its first unit.
#pragma once

#include <vector>

#include "components/ModelTables.h"
#include "forced/KindResults.h"

namespace qm::FORCEDVIBRATION {

// SHAFTPOWERLOSS gets one value per row of SHAFT_TABLE, in W. The only table field changed
// is SPEEDEXCITATION of Geislinger couplings, which keeps the last speed a coupling was
// evaluated at.
void SINGLELOADCASESHAFTPOWERLOSS(ModelTables& tables, const AllKindResults& results,
                                  std::vector<double>& SHAFTPOWERLOSS);

}  // namespace qm::FORCEDVIBRATION
