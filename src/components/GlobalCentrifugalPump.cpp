#include "components/GlobalCentrifugalPump.h"

#include <climits>
#include <cmath>

namespace qm::GLOBAL_CENTRIFUGALPUMP {

namespace {
bool is_row(const CentrifugalPumpTable& table, int i) {
    return i >= 1 && i <= GET_CENTRIFUGALPUMP_NUMBER(table);
}

// Toward zero, as an integer conversion does, but defined for every input.
int truncate_to_int(double x) {
    if (std::isnan(x)) return 0;
    if (x >= static_cast<double>(INT_MAX)) return INT_MAX;
    if (x <= static_cast<double>(INT_MIN)) return INT_MIN;
    return static_cast<int>(x);
}
}  // namespace

int GET_CENTRIFUGALPUMP_NUMBER(const CentrifugalPumpTable& table) {
    return table.allocated() ? table.size() : 0;
}

int GET_CENTRIFUGALPUMP_ICENTRIFUGALPUMP(const CentrifugalPumpTable& table, int id) {
    for (int i = 1; i <= GET_CENTRIFUGALPUMP_NUMBER(table); ++i)
        if (table(i).ID == id) return i;
    return 0;
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
