#include "components/GlobalRubberDamper.h"

#include "components/DamperLoadCase.h"

namespace qm::GLOBAL_RUBBERDAMPER {

int GET_RUBBERDAMPER_NUMBER(const RubberDamperTable& table) { return row_count(table); }

int GET_RUBBERDAMPER_IRUBBERDAMPER(const RubberDamperTable& table, int id) {
    return first_row_with_id(table, id);
}

int GET_RUBBERDAMPER_IRUBBERDAMPER_NODE(const RubberDamperTable& table, int a, int b) {
    for (int i = 1; i <= GET_RUBBERDAMPER_NUMBER(table); ++i)
        if (table(i).TURNINGMASSNODE == a && table(i).DRIVEPLATENODE == b) return i;
    return 0;
}

double CALCULATE_RUBBERDAMPER_DAMPING(const RubberDamperTable& table, int i, double dynMagnifier,
                                      double order) {
    return DAMPER::magnifier_damping(table, i, dynMagnifier, order);
}

void CALCULATE_RUBBERDAMPER_LOADCASESETTING(RubberDamperTable& table, int i, double stiffness,
                                            double dynMagnifier, double order) {
    DAMPER::set_load_case(table, i, stiffness, dynMagnifier, order);
}

}  // namespace qm::GLOBAL_RUBBERDAMPER
