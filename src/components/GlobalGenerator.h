// Module GLOBAL_GENERATOR: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct GeneratorRecord {
    int ID = 0;
};
using GeneratorTable = Table<GeneratorRecord>;

}  // namespace qm
