// Module GLOBAL_RECIPROCATINGPUMP: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct ReciprocatingPumpRecord {
    int ID = 0;
};
using ReciprocatingPumpTable = Table<ReciprocatingPumpRecord>;

}  // namespace qm
