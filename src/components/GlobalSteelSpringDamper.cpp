#include "components/GlobalSteelSpringDamper.h"

#include "components/DamperLoadCase.h"

namespace qm::GLOBAL_STEELSPRINGDAMPER {

int GET_STEELSPRINGDAMPER_NUMBER(const SteelSpringDamperTable& table) {
    return row_count(table);
}

int GET_STEELSPRINGDAMPER_ISTEELSPRINGDAMPER(const SteelSpringDamperTable& table, int id) {
    return first_row_with_id(table, id);
}

double CALCULATE_STEELSPRINGDAMPER_DAMPING(const SteelSpringDamperTable& table, int i, double dynMagnifier,
                                           double order) {
    return DAMPER::magnifier_damping(table, i, dynMagnifier, order);
}

void CALCULATE_STEELSPRINGDAMPER_LOADCASESETTING(SteelSpringDamperTable& table, int i, double stiffness,
                                                 double dynMagnifier, double order) {
    DAMPER::set_load_case(table, i, stiffness, dynMagnifier, order);
}

}  // namespace qm::GLOBAL_STEELSPRINGDAMPER
