// Module GLOBAL_STEELSPRINGDAMPER: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct SteelSpringDamperRecord {
    int ID = 0;
    int OUTERMEMBERNODE = 0;
    int INNERMEMBERNODE = 0;
};
using SteelSpringDamperTable = Table<SteelSpringDamperRecord>;

}  // namespace qm
