// Module GLOBAL_GEISLINGERCOUPLING: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct GeislingerCouplingRecord {
    int ID = 0;
    int SHAFTNODE = 0;
};
using GeislingerCouplingTable = Table<GeislingerCouplingRecord>;

}  // namespace qm
