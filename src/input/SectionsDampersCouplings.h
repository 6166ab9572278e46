// The sections of the dampers and couplings. A damper names two inertias and the shaft
// between them is its spring; a coupling names the shaft it sits on. Each section fills
// the row of its table that the filling pass hands it and marks the inertias and shafts it
// names. The first line of all six is the keyword, Id and isDefaultPowerLoss.
#pragma once

#include "input/InputReader.h"

namespace qm::IMPORTINPUTFILE {

bool SECTION_VISCOUSDAMPER(InputReader& reader, int row);
bool SECTION_RUBBERDAMPER(InputReader& reader, int row);
bool SECTION_STEELSPRINGDAMPER(InputReader& reader, int row);
bool SECTION_LINEARCOUPLING(InputReader& reader, int row);
bool SECTION_PROGRESSIVECOUPLING(InputReader& reader, int row);
bool SECTION_GEISLINGERCOUPLING(InputReader& reader, int row);

}  // namespace qm::IMPORTINPUTFILE
