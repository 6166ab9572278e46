// Module GLOBAL_CENTRIFUGALPUMP: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct CentrifugalPumpRecord {
    int ID = 0;
};
using CentrifugalPumpTable = Table<CentrifugalPumpRecord>;

}  // namespace qm
