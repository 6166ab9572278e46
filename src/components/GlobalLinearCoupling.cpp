#include "components/GlobalLinearCoupling.h"

#include "base/Constants.h"

namespace qm::GLOBAL_LINEARCOUPLING {

int GET_LINEARCOUPLING_NUMBER(const LinearCouplingTable& table) {
    return row_count(table);
}

int GET_LINEARCOUPLING_ILINEARCOUPLING(const LinearCouplingTable& table, int id) {
    return first_row_with_id(table, id);
}

int GET_LINEARCOUPLING_ILINEARCOUPLING_SHAFTNODE(const LinearCouplingTable& table, int node) {
    for (int i = 1; i <= GET_LINEARCOUPLING_NUMBER(table); ++i)
        if (table(i).SHAFTNODE == node) return i;
    return 0;
}

double GET_LINEARCOUPLING_STIFFNESSDYNAMIC(const LinearCouplingTable& table, int i) {
    if (!is_row(table, i)) return 0.0;
    return table(i).NOMINALSTIFFNESS;
}

double CALCULATE_LINEARCOUPLING_DAMPING(const LinearCouplingTable& table, int i, double dynMagnifier,
                                        double order) {
    if (!is_row(table, i)) return 0.0;
    const LinearCouplingRecord& c = table(i);
    if (dynMagnifier == 0.0) return 0.0;
    const double omega = c.SPEED * PI / 30.0;
    const double denominator = dynMagnifier * omega * order;
    if (denominator == 0.0) return 0.0;
    return c.NOMINALSTIFFNESS / denominator;
}

void CALCULATE_LINEARCOUPLING_LOADCASESETTING(LinearCouplingTable& table, int i, double dynMagnifier) {
    if (!is_row(table, i)) return;
    LinearCouplingRecord& c = table(i);
    c.STIFFNESS = c.NOMINALSTIFFNESS;
    const double denominator = dynMagnifier * (c.SPEED * PI / 30.0);
    c.DAMPING = denominator == 0.0 ? 0.0 : c.STIFFNESS / denominator;
}

}  // namespace qm::GLOBAL_LINEARCOUPLING
