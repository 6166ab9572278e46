// Module GLOBAL_RUBBERDAMPER: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct RubberDamperRecord {
    int ID = 0;
    int TURNINGMASSNODE = 0;
    int DRIVEPLATENODE = 0;
};
using RubberDamperTable = Table<RubberDamperRecord>;

}  // namespace qm
