#include "components/GlobalLoadCase.h"

namespace qm::GLOBAL_LOADCASE {

int GET_LOADCASE_NCOMPONENT(const LoadCaseTable& table) {
    return row_count(table);
}

int GET_LOADCASE_ICOMPONENT(const LoadCaseTable& table, int type, int id) {
    for (int i = 1; i <= GET_LOADCASE_NCOMPONENT(table); ++i)
        if (table(i).COMPONENTTYPE == type && table(i).COMPONENTID == id) return i;
    return 0;
}

int GET_LOADCASE_COMPONENTNUMBER(const LoadCaseTable& table) {
    int count = 0;
    for (int i = 1; i <= GET_LOADCASE_NCOMPONENT(table); ++i)
        if (table(i).COMPONENTTYPE != CODES::COMPONENT_UNUSED) ++count;
    return count;
}

}  // namespace qm::GLOBAL_LOADCASE
