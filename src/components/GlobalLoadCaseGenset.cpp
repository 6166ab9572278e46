#include "components/GlobalLoadCaseGenset.h"

namespace qm::GLOBAL_LOADCASEGENSET {

namespace {

// Row of load case loadCase of the engine, counted from its first row; 0 when the engine
// has no row or the row would lie outside the table.
int row_of(const LoadCaseGensetTable& table, int dieselId, int loadCase) {
    const int n = GET_LOADCASEGENSET_NUMBER(table);
    for (int first = 1; first <= n; ++first) {
        if (table(first).DIESELID != dieselId) continue;
        const long row = static_cast<long>(first) + loadCase - 1;
        return row >= 1 && row <= n ? static_cast<int>(row) : 0;
    }
    return 0;
}

}  // namespace

int GET_LOADCASEGENSET_NUMBER(const LoadCaseGensetTable& table) {
    return row_count(table);
}

double GET_LOADCASEGENSET_PRESSUREMAX(const LoadCaseGensetTable& table, int dieselId, int loadCase) {
    const int row = row_of(table, dieselId, loadCase);
    return row > 0 ? table(row).PRESSUREMAX : 0.0;
}

double GET_LOADCASEGENSET_PRESSURECOMP(const LoadCaseGensetTable& table, int dieselId, int loadCase) {
    const int row = row_of(table, dieselId, loadCase);
    return row > 0 ? table(row).PRESSURECOMP : 0.0;
}

}  // namespace qm::GLOBAL_LOADCASEGENSET
