#include "components/GlobalProgressiveCoupling.h"

#include "base/Constants.h"

namespace qm::GLOBAL_PROGRESSIVECOUPLING {

int GET_PROGRESSIVECOUPLING_NUMBER(const ProgressiveCouplingTable& table) {
    return row_count(table);
}

int GET_PROGRESSIVECOUPLING_IPROGRESSIVECOUPLING(const ProgressiveCouplingTable& table, int id) {
    return first_row_with_id(table, id);
}

int GET_PROGRESSIVECOUPLING_IPROGRESSIVECOUPLING_SHAFTNODE(const ProgressiveCouplingTable& table, int node) {
    for (int i = 1; i <= GET_PROGRESSIVECOUPLING_NUMBER(table); ++i)
        if (table(i).SHAFTNODE == node) return i;
    return 0;
}

void SET_PROGRESSIVECOUPLING_NOMINALTORQUE(ProgressiveCouplingTable& table, int i, double value) {
    if (!is_row(table, i)) return;
    for (int k = 1; k <= 5; ++k)
        table(i).NOMINALTORQUE[static_cast<std::size_t>(k - 1)] = static_cast<double>(k - 1) / 4.0 * value;
}

double GET_PROGRESSIVECOUPLING_NOMINALTORQUE(const ProgressiveCouplingTable& table, int i) {
    return is_row(table, i) ? table(i).NOMINALTORQUE[4] : 0.0;
}

double GET_PROGRESSIVECOUPLING_TORQUE(const ProgressiveCouplingTable& table, int i) {
    return is_row(table, i) ? table(i).TORQUE : 0.0;
}

double GET_PROGRESSIVECOUPLING_STIFFNESSDYNAMIC(const ProgressiveCouplingTable& table, int i, double torque) {
    if (!is_row(table, i)) return 0.0;
    // 1-based views of the curve, so that the segment (a, b) reads as on paper.
    const auto T = [&](int k) { return table(i).NOMINALTORQUE[static_cast<std::size_t>(k - 1)]; };
    const auto K = [&](int k) { return table(i).NOMINALSTIFFNESS[static_cast<std::size_t>(k - 1)]; };
    // Without a nominal torque the curve has no extent over torque: the coupling keeps
    // its no-load stiffness.
    if (T(5) == T(1)) return K(1);
    int a = 1;
    int b = 2;
    // A torque that doesn't compare (NaN) leaves the search on the first segment.
    while (T(b) < torque && b != 5) {
        ++a;
        ++b;
    }
    // A segment without extent (two equal torques written into the axis) has no slope.
    const double extent = T(b) - T(a);
    if (extent == 0.0) return K(a);
    return K(a) + (K(b) - K(a)) * (torque - T(a)) / extent;
}

double CALCULATE_PROGRESSIVECOUPLING_DAMPING(const ProgressiveCouplingTable& table, int i,
                                             double dynMagnifier, double order) {
    if (!is_row(table, i)) return 0.0;
    if (dynMagnifier == 0.0) return 0.0;
    const ProgressiveCouplingRecord& c = table(i);
    const double omega = c.SPEED * PI / 30.0;
    const double denominator = dynMagnifier * omega * order;
    if (denominator == 0.0) return 0.0;
    return GET_PROGRESSIVECOUPLING_STIFFNESSDYNAMIC(table, i, c.TORQUE) / denominator;
}

void CALCULATE_PROGRESSIVECOUPLING_LOADCASESETTING(ProgressiveCouplingTable& table, int i,
                                                   double dynMagnifier) {
    if (!is_row(table, i)) return;
    ProgressiveCouplingRecord& c = table(i);
    const double stiffness = GET_PROGRESSIVECOUPLING_STIFFNESSDYNAMIC(table, i, c.TORQUE);
    c.STIFFNESS = stiffness;
    const double denominator = dynMagnifier * (c.SPEED * PI / 30.0);
    c.DAMPING = denominator == 0.0 ? 0.0 : stiffness / denominator;
}

}  // namespace qm::GLOBAL_PROGRESSIVECOUPLING
