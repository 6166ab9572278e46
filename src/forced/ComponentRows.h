// What the load case setting and the load case report share about the components of the load
// case table: finding a component's row by its code and ID, and its operating point.
#pragma once

#include "base/Constants.h"
#include "components/ModelTables.h"

namespace qm::FORCEDVIBRATION {

// Row of the component with this COMPONENTTYPE and ID in its table; 0 when it has none or the
// code has no table.
int component_row(const ModelTables& t, int type, int id);

// Speed, power and mean torque of a component at a load case; the torque of all kinds but the
// diesel engine and the reciprocating pump, which work it out themselves.
template <class Record>
void set_operating_point(Record& r, double P, double speed) {
    r.POWER = P;
    r.SPEED = speed;
    r.TORQUE = P / (speed * PI / 30.0);
}

}  // namespace qm::FORCEDVIBRATION
