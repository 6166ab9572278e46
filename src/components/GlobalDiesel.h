// Module GLOBAL_DIESEL: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct DieselRecord {
    int ID = 0;
};
using DieselTable = Table<DieselRecord>;

}  // namespace qm
