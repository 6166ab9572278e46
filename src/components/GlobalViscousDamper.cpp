#include "components/GlobalViscousDamper.h"

#include "components/DamperLoadCase.h"

namespace qm::GLOBAL_VISCOUSDAMPER {

int GET_VISCOUSDAMPER_NUMBER(const ViscousDamperTable& table) { return row_count(table); }

int GET_VISCOUSDAMPER_IVISCOUSDAMPER(const ViscousDamperTable& table, int id) {
    return first_row_with_id(table, id);
}

int GET_VISCOUSDAMPER_IVISCOUSDAMPER_NODE(const ViscousDamperTable& table, int a, int b) {
    for (int i = 1; i <= GET_VISCOUSDAMPER_NUMBER(table); ++i) {
        const ViscousDamperRecord& d = table(i);
        if ((d.RINGNODE == a && d.CASINGNODE == b) || (d.RINGNODE == b && d.CASINGNODE == a)) return i;
    }
    return 0;
}

bool GET_VISCOUSDAMPER_CONTAINCUSTOMDAMPING(const ViscousDamperTable& table) {
    for (int i = 1; i <= GET_VISCOUSDAMPER_NUMBER(table); ++i)
        if (table(i).ISCUSTOMDAMPING) return true;
    return false;
}

void CALCULATE_VISCOUSDAMPER_LOADCASESETTING(ViscousDamperTable& table, int i, double stiffness) {
    // The damper has no magnifier of its own: its damping is the absolute value.
    DAMPER::set_load_case(table, i, stiffness, 0.0, 0.0);
}

}  // namespace qm::GLOBAL_VISCOUSDAMPER
