#include "components/GlobalGeislingerCoupling.h"

#include "base/Constants.h"
#include "base/GlobalParameter.h"

namespace qm::GLOBAL_GEISLINGERCOUPLING {

namespace {

// The coefficients of the coupling's characteristics are single-precision values held in
// double precision; their last digits decide the results, so they are written in full.
constexpr double C_0_37 = 0.3700000047683716;
constexpr double C_0_27 = 0.27000001072883606;
constexpr double C_1_1 = 1.100000023841858;
constexpr double C_0_3 = 0.30000001192092896;
constexpr double C_0_02 = 0.019999999552965164;
constexpr double C_0_2 = 0.20000000298023224;
constexpr double C_0_7 = 0.699999988079071;
constexpr double C_0_13 = 0.12999999523162842;
constexpr double C_0_058 = 0.057999998331069946;
constexpr double C_0_11 = 0.10999999940395355;
constexpr double C_0_0069 = 0.006899999920278788;
constexpr double C_0_032 = 0.03200000151991844;
constexpr double C_0_055 = 0.054999999701976776;

// Characteristic frequency at the oil's viscosity, rad/s. A coupling without
// characteristic frequency has none at any viscosity, a zero viscosity included.
double reference_frequency(const GeislingerCouplingRecord& c) {
    if (c.CHARACTERISTICFREQUENCY == 0.0) return 0.0;
    return c.CHARACTERISTICFREQUENCY * 40.0 / c.OILVISCOSITY;
}

// Excitation frequency of the order over the reference frequency.
double frequency_ratio(const GeislingerCouplingRecord& c, double order, double reference) {
    return order * (c.SPEEDEXCITATION * PI / 30.0) / reference;
}

}  // namespace

int GET_GEISLINGERCOUPLING_NUMBER(const GeislingerCouplingTable& table) {
    return row_count(table);
}

int GET_GEISLINGERCOUPLING_IGEISLINGERCOUPLING(const GeislingerCouplingTable& table, int id) {
    return first_row_with_id(table, id);
}

int GET_GEISLINGERCOUPLING_IGEISLINGERCOUPLING_SHAFTNODE(const GeislingerCouplingTable& table, int node) {
    for (int i = 1; i <= GET_GEISLINGERCOUPLING_NUMBER(table); ++i)
        if (table(i).SHAFTNODE == node) return i;
    return 0;
}

double CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(const GeislingerCouplingTable& table, int i,
                                                     double order) {
    if (!is_row(table, i)) return 0.0;
    const GeislingerCouplingRecord& c = table(i);
    const double reference = reference_frequency(c);
    if (reference == 0.0) return c.STATICSTIFFNESS;
    const double r = frequency_ratio(c, order, reference);
    if (r > 0.0 && r <= 1.0) return c.STATICSTIFFNESS * (C_0_37 * r + 1.0);
    if (r > 1.0) return c.STATICSTIFFNESS * (C_0_27 * r + C_1_1);
    return c.STATICSTIFFNESS;  // no excitation, a negative ratio or one that doesn't compare
}

double CALCULATE_GEISLINGERCOUPLING_DAMPING(const GeislingerCouplingTable& table, int i, double dynMagnifier,
                                            double order) {
    if (!is_row(table, i)) return 0.0;
    const double omega = table(i).SPEEDEXCITATION * PI / 30.0;
    const double frequency = order * omega;
    if (frequency == 0.0) return 0.0;
    const double stiffness = CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(table, i, order);
    const double factor =
        CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(table, i, dynMagnifier, order);
    return factor * stiffness / frequency;
}

double CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(const GeislingerCouplingTable& table, int i,
                                                               double dynMagnifier, double order) {
    if (!is_row(table, i)) return 0.0;
    const GeislingerCouplingRecord& c = table(i);
    if (c.NOMINALTORQUE == 0.0) return 0.0;
    const double t = c.TORQUE / c.NOMINALTORQUE;
    const double reference = reference_frequency(c);
    if (reference == 0.0) return 0.0;
    const double r = frequency_ratio(c, order, reference);

    if (c.DAMPINGTYPE == GENERALDAMPING)
        return GLOBAL_PARAMETER::CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(dynMagnifier);
    if (c.DAMPINGTYPE != GEISLINGERDAMPING) return 0.0;

    if (c.OILSUPPLYTYPE == WITHPRESSURIZED) {
        // Pressurized oil: the factor follows the frequency ratio and levels off at 0.7.
        if (r > 0.0 && r <= C_0_3) return C_1_1 * r + C_0_02;
        if (r > C_0_3 && r <= 1.0) return 0.5 * r + C_0_2;
        if (r > 1.0) return C_0_7;
        return 0.0;
    }
    if (c.OILSUPPLYTYPE == WITHOUTPRESSURIZED) {
        // Without pressurized oil the factor follows the load ratio, by spring design.
        if (c.DESIGNTYPE == MULTISPRING) return C_0_13 * t + C_0_058 + C_0_11 * (t * t);
        if (c.DESIGNTYPE == DUALSPRING) return C_0_0069 * t + C_0_032 + C_0_055 * (t * t);
    }
    return 0.0;
}

void CALCULATE_GEISLINGERCOUPLING_LOADCASESETTING(GeislingerCouplingTable& table, int i, double dynMagnifier,
                                                  double order) {
    if (!is_row(table, i)) return;
    const double stiffness = CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(table, i, order);
    const double damping = CALCULATE_GEISLINGERCOUPLING_DAMPING(table, i, dynMagnifier, order);
    table(i).STIFFNESS = stiffness;
    table(i).DAMPING = damping;
}

}  // namespace qm::GLOBAL_GEISLINGERCOUPLING
