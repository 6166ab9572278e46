#include "components/GlobalSteelSpringDamper.h"

#include "base/Constants.h"

namespace qm::GLOBAL_STEELSPRINGDAMPER {

int GET_STEELSPRINGDAMPER_NUMBER(const SteelSpringDamperTable& table) {
    return row_count(table);
}

int GET_STEELSPRINGDAMPER_ISTEELSPRINGDAMPER(const SteelSpringDamperTable& table, int id) {
    return first_row_with_id(table, id);
}

double CALCULATE_STEELSPRINGDAMPER_DAMPING(const SteelSpringDamperTable& table, int i, double dynMagnifier,
                                           double order) {
    if (!is_row(table, i)) return 0.0;
    const SteelSpringDamperRecord& d = table(i);
    if (dynMagnifier == 0.0) return d.ABSDAMPING;
    const double omega = d.SPEED * PI / 30.0;
    const double denominator = dynMagnifier * order * omega;
    if (denominator == 0.0) return 0.0;
    return d.STIFFNESS / denominator;
}

void CALCULATE_STEELSPRINGDAMPER_LOADCASESETTING(SteelSpringDamperTable& table, int i, double stiffness,
                                                 double dynMagnifier, double order) {
    if (!is_row(table, i)) return;
    table(i).STIFFNESS = stiffness;
    table(i).DAMPING = CALCULATE_STEELSPRINGDAMPER_DAMPING(table, i, dynMagnifier, order);
}

}  // namespace qm::GLOBAL_STEELSPRINGDAMPER
