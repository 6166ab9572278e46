// Module GLOBAL_GASTURBINE: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct GasTurbineRecord {
    int ID = 0;
};
using GasTurbineTable = Table<GasTurbineRecord>;

}  // namespace qm
