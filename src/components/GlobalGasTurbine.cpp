#include "components/GlobalGasTurbine.h"

namespace qm::GLOBAL_GASTURBINE {

int GET_GASTURBINE_NUMBER(const GasTurbineTable& table) { return table.allocated() ? table.size() : 0; }

int GET_GASTURBINE_IGASTURBINE(const GasTurbineTable& table, int id) {
    for (int i = 1; i <= GET_GASTURBINE_NUMBER(table); ++i)
        if (table(i).ID == id) return i;
    return 0;
}

}  // namespace qm::GLOBAL_GASTURBINE
