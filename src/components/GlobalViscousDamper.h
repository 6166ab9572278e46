// Module GLOBAL_VISCOUSDAMPER: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct ViscousDamperRecord {
    int ID = 0;
    int CASINGNODE = 0;
    int RINGNODE = 0;
};
using ViscousDamperTable = Table<ViscousDamperRecord>;

}  // namespace qm
