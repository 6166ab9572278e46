// Module GLOBAL_PROPELLER: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct PropellerRecord {
    int ID = 0;
    int PROPELLERNODE = 0;
};
using PropellerTable = Table<PropellerRecord>;

}  // namespace qm
