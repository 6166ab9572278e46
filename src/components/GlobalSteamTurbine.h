// Module GLOBAL_STEAMTURBINE: the table of this component kind and its operations.
#pragma once

#include "frame/Table.h"

namespace qm {

struct SteamTurbineRecord {
    int ID = 0;
};
using SteamTurbineTable = Table<SteamTurbineRecord>;

}  // namespace qm
