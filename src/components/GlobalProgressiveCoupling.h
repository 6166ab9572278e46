// Module GLOBAL_PROGRESSIVECOUPLING: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct ProgressiveCouplingRecord {
    int ID = 0;
    int SHAFTNODE = 0;
};
using ProgressiveCouplingTable = Table<ProgressiveCouplingRecord>;

}  // namespace qm
