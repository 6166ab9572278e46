#include "components/GlobalRubberDamper.h"

#include "base/Constants.h"

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
    if (!is_row(table, i)) return 0.0;
    const RubberDamperRecord& d = table(i);
    if (dynMagnifier == 0.0) return d.ABSDAMPING;
    const double omega = d.SPEED * PI / 30.0;
    const double denominator = dynMagnifier * order * omega;
    if (denominator == 0.0) return 0.0;
    return d.STIFFNESS / denominator;
}

void CALCULATE_RUBBERDAMPER_LOADCASESETTING(RubberDamperTable& table, int i, double stiffness,
                                            double dynMagnifier, double order) {
    if (!is_row(table, i)) return;
    table(i).STIFFNESS = stiffness;
    table(i).DAMPING = CALCULATE_RUBBERDAMPER_DAMPING(table, i, dynMagnifier, order);
}

}  // namespace qm::GLOBAL_RUBBERDAMPER
