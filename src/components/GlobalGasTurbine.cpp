#include "components/GlobalGasTurbine.h"

namespace qm::GLOBAL_GASTURBINE {

int GET_GASTURBINE_NUMBER(const GasTurbineTable& table) { return row_count(table); }

int GET_GASTURBINE_IGASTURBINE(const GasTurbineTable& table, int id) {
    return first_row_with_id(table, id);
}

}  // namespace qm::GLOBAL_GASTURBINE
