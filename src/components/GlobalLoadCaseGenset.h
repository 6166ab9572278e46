// Module GLOBAL_LOADCASEGENSET: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct LoadCaseGensetRecord {
    int ID = 0;
};
using LoadCaseGensetTable = Table<LoadCaseGensetRecord>;

}  // namespace qm
