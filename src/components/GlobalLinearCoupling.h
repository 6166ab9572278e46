// Module GLOBAL_LINEARCOUPLING: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct LinearCouplingRecord {
    int ID = 0;
    int SHAFTNODE = 0;
};
using LinearCouplingTable = Table<LinearCouplingRecord>;

}  // namespace qm
