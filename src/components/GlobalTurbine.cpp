#include "components/GlobalTurbine.h"

namespace qm {

namespace GLOBAL_GASTURBINE {

int GET_GASTURBINE_NUMBER(const TurbineTable& table) { return row_count(table); }

int GET_GASTURBINE_IGASTURBINE(const TurbineTable& table, int id) { return first_row_with_id(table, id); }

}  // namespace GLOBAL_GASTURBINE

namespace GLOBAL_STEAMTURBINE {

int GET_STEAMTURBINE_NUMBER(const TurbineTable& table) { return row_count(table); }

int GET_STEAMTURBINE_ISTEAMTURBINE(const TurbineTable& table, int id) { return first_row_with_id(table, id); }

}  // namespace GLOBAL_STEAMTURBINE
}  // namespace qm
