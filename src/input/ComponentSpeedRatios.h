// Speed ratios of the components, taken from the model once the file is read.
//
// A component sits on inertias or a shaft of the line, and runs at their speed: it takes
// the speed ratio of the inertia of its first cylinder (engines, reciprocating pumps), of
// its node (the other machines and propellers), of its shaft (couplings), or of its turning
// mass, outer member or casing (rubber, steel spring and viscous dampers). A component
// whose inertia or shaft is not in the model keeps its ratio of 1; the data check reports
// the missing node.
#pragma once

#include "components/ModelTables.h"

namespace qm::IMPORTINPUTFILE {

void set_component_speed_ratios(ModelTables& tables);

}  // namespace qm::IMPORTINPUTFILE
