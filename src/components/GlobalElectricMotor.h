// Module GLOBAL_ELECTRICMOTOR: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct ElectricMotorRecord {
    int ID = 0;
};
using ElectricMotorTable = Table<ElectricMotorRecord>;

}  // namespace qm
