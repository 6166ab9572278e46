#include "components/GlobalReciprocatingPump.h"

#include "base/Constants.h"

#include "base/Truncate.h"
#include <cmath>

namespace qm::GLOBAL_RECIPROCATINGPUMP {

int GET_RECIPROCATINGPUMP_NUMBER(const ReciprocatingPumpTable& table) {
    return row_count(table);
}

int GET_RECIPROCATINGPUMP_IRECIPROCATINGPUMP(const ReciprocatingPumpTable& table, int id) {
    return first_row_with_id(table, id);
}

void SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDER(ReciprocatingPumpTable& table, int i, double o1, double o2,
                                                  double o3, double o4) {
    if (is_row(table, i)) table(i).RECIPROCATINGPUMPORDER = {o1, o2, o3, o4};
}

void SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPTORQUEPERCENT(ReciprocatingPumpTable& table, int i, double p1,
                                                          double p2, double p3, double p4) {
    if (is_row(table, i)) table(i).RECIPROCATINGPUMPTORQUEPERCENT = {p1, p2, p3, p4};
}

int reciprocatingpump_order(const ReciprocatingPumpTable& table, int i, int k) {
    if (!is_row(table, i) || k < 1 || k > 4) return 0;
    return truncate_to_int(table(i).RECIPROCATINGPUMPORDER[static_cast<std::size_t>(k - 1)]);
}
int GET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDERONE(const ReciprocatingPumpTable& table, int i) {
    return reciprocatingpump_order(table, i, 1);
}
int GET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDERTWO(const ReciprocatingPumpTable& table, int i) {
    return reciprocatingpump_order(table, i, 2);
}
int GET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDERTHREE(const ReciprocatingPumpTable& table, int i) {
    return reciprocatingpump_order(table, i, 3);
}
int GET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDERFOUR(const ReciprocatingPumpTable& table, int i) {
    return reciprocatingpump_order(table, i, 4);
}

void CALCULATE_RECIPROCATINGPUMP_SPEEDPERCENTAGE(ReciprocatingPumpTable& table, int i) {
    if (!is_row(table, i)) return;
    ReciprocatingPumpRecord& p = table(i);
    p.SPEEDPERCENTAGE = p.MCRSPEED == 0.0 ? 0.0 : p.SPEED / p.MCRSPEED;
}

void CALCULATE_RECIPROCATINGPUMP_TORQUE(ReciprocatingPumpTable& table, int i) {
    if (!is_row(table, i)) return;
    ReciprocatingPumpRecord& p = table(i);
    const double omega = PI * p.SPEED / 30.0;
    p.TORQUE = omega == 0.0 ? 0.0 : p.POWER / omega;
}

void CALCULATE_RECIPROCATINGPUMP_LOADPERCENTAGE(ReciprocatingPumpTable& table, int i) {
    if (!is_row(table, i)) return;
    ReciprocatingPumpRecord& p = table(i);
    p.LOADPERCENTAGE = p.MCRTORQUE == 0.0 ? 0.0 : p.TORQUE / p.MCRTORQUE;
}

double CALCULATE_RECIPROCATINGPUMP_MEPMCR(const ReciprocatingPumpTable& table, int i) {
    if (!is_row(table, i)) return 0.0;
    const ReciprocatingPumpRecord& p = table(i);
    int z = p.NCYLINDER;
    if (p.ISOPPOSITE) z *= 2;
    if (p.ISDOUBLEACTING) z *= 2;
    // Swept volume per second of one cylinder side, m^3/s.
    const double swept = p.MCRSPEED / 60.0 * PI_SINGLE * (p.BORE * p.BORE) * 0.25 * p.STROKELENGTH;
    if (z == 0 || swept == 0.0) return 0.0;
    return (p.MCRPOWER / static_cast<double>(z)) / swept;
}

void CALCULATE_RECIPROCATINGPUMP_LOADCASESETTING(ReciprocatingPumpTable& table, int i) {
    if (!is_row(table, i)) return;
    ReciprocatingPumpRecord& p = table(i);

    const double power = p.ISDOUBLEACTING ? p.POWERPERCYL / 2.0 : p.POWERPERCYL;
    const double swept = p.SPEED / 60.0 * PI * (p.BORE * p.BORE) * 0.25 * p.STROKELENGTH;
    p.MIPRPM = swept == 0.0 ? 0.0 : power / swept;

    if (!p.ISSIMPLIFIEDPRESSURE) return;

    for (std::size_t k = 0; k < 4; ++k)
        p.RECIPROCATINGPUMPTORQUEAMP[k] = p.TORQUE * p.RECIPROCATINGPUMPTORQUEPERCENT[k];

    for (int k = 1; k <= 4; ++k) {
        const int o = reciprocatingpump_order(table, i, k);
        if (o <= 0 || p.RECIPROCATINGPUMPORDERNUMBER < k || o > MAXHARMONICORDER) continue;
        const double percent = p.RECIPROCATINGPUMPTORQUEPERCENT[static_cast<std::size_t>(k - 1)];
        const auto place = static_cast<std::size_t>(o - 1);
        p.SIMPLIFIEDORDER[place] = static_cast<double>(o);
        // The complex torque is stored rounded to single precision.
        const double amplitude = static_cast<double>(static_cast<float>(-0.5 * p.TORQUE * percent));
        p.TORQUEAMP[place] = std::complex<double>(0.0, amplitude);
    }
}

int GET_RECIPROCATINGPUMP_NCYLFOURIERCOEFFICIENTS(const ReciprocatingPumpTable& table) {
    return GET_RECIPROCATINGPUMP_NUMBER(table) > 0 ? 20 : 0;
}

void GET_RECIPROCATINGPUMP_HARMONICORDER(const ReciprocatingPumpTable& table, int /*i*/,
                                         Table<double>& orders) {
    const int n = GET_RECIPROCATINGPUMP_NCYLFOURIERCOEFFICIENTS(table);
    orders.allocate(n);
    for (int k = 1; k <= n; ++k)
        orders(k) = static_cast<double>(k);
}

}  // namespace qm::GLOBAL_RECIPROCATINGPUMP
