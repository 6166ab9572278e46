#include "components/GlobalCentrifugalPump.h"

#include "base/Truncate.h"
#include <cmath>

namespace qm::GLOBAL_CENTRIFUGALPUMP {

int GET_CENTRIFUGALPUMP_NUMBER(const CentrifugalPumpTable& table) {
    return row_count(table);
}

int GET_CENTRIFUGALPUMP_ICENTRIFUGALPUMP(const CentrifugalPumpTable& table, int id) {
    return first_row_with_id(table, id);
}

void SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDER(CentrifugalPumpTable& table, int i, double o1, double o2,
                                              double o3, double o4) {
    if (is_row(table, i)) table(i).CENTRIFUGALPUMPORDER = {o1, o2, o3, o4};
}

void SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPTORQUEPERCENT(CentrifugalPumpTable& table, int i, double p1,
                                                      double p2, double p3, double p4) {
    if (is_row(table, i)) table(i).CENTRIFUGALPUMPTORQUEPERCENT = {p1, p2, p3, p4};
}

int centrifugalpump_order(const CentrifugalPumpTable& table, int i, int k) {
    if (!is_row(table, i) || k < 1 || k > 4) return 0;
    return truncate_to_int(table(i).CENTRIFUGALPUMPORDER[static_cast<std::size_t>(k - 1)]);
}
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERONE(const CentrifugalPumpTable& table, int i) {
    return centrifugalpump_order(table, i, 1);
}
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERTWO(const CentrifugalPumpTable& table, int i) {
    return centrifugalpump_order(table, i, 2);
}
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERTHREE(const CentrifugalPumpTable& table, int i) {
    return centrifugalpump_order(table, i, 3);
}
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERFOUR(const CentrifugalPumpTable& table, int i) {
    return centrifugalpump_order(table, i, 4);
}

void CALCULATE_CENTRIFUGALPUMP_LOADCASESETTING(CentrifugalPumpTable& table, int i) {
    if (!is_row(table, i)) return;
    CentrifugalPumpRecord& g = table(i);
    for (std::size_t k = 0; k < 4; ++k)
        g.CENTRIFUGALPUMPTORQUEAMP[k] = g.TORQUE * g.CENTRIFUGALPUMPTORQUEPERCENT[k];
}

}  // namespace qm::GLOBAL_CENTRIFUGALPUMP
