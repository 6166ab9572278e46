#include "components/GlobalSteamTurbine.h"

namespace qm::GLOBAL_STEAMTURBINE {

int GET_STEAMTURBINE_NUMBER(const SteamTurbineTable& table) { return row_count(table); }

int GET_STEAMTURBINE_ISTEAMTURBINE(const SteamTurbineTable& table, int id) {
    return first_row_with_id(table, id);
}

}  // namespace qm::GLOBAL_STEAMTURBINE
