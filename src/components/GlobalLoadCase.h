// Module GLOBAL_LOADCASE: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct LoadCaseRecord {
    int COMPONENTTYPE = 0;
    int COMPONENTID = 0;
};
using LoadCaseTable = Table<LoadCaseRecord>;

}  // namespace qm
