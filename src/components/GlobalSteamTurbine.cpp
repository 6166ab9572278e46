#include "components/GlobalSteamTurbine.h"

namespace qm::GLOBAL_STEAMTURBINE {

int GET_STEAMTURBINE_NUMBER(const SteamTurbineTable& table) { return table.allocated() ? table.size() : 0; }

int GET_STEAMTURBINE_ISTEAMTURBINE(const SteamTurbineTable& table, int id) {
    for (int i = 1; i <= GET_STEAMTURBINE_NUMBER(table); ++i)
        if (table(i).ID == id) return i;
    return 0;
}

}  // namespace qm::GLOBAL_STEAMTURBINE
