#include "components/GlobalElectricMotor.h"

#include <climits>
#include <cmath>

namespace qm::GLOBAL_ELECTRICMOTOR {

int GET_ELECTRICMOTOR_NUMBER(const ElectricMotorTable& table) { return row_count(table); }

int GET_ELECTRICMOTOR_IELECTRICMOTOR(const ElectricMotorTable& table, int id) {
    return first_row_with_id(table, id);
}

void SET_ELECTRICMOTOR_MOTORORDERNUMBER(ElectricMotorTable& table, int i, int value) {
    if (is_row(table, i)) table(i).MOTORORDERNUMBER = static_cast<float>(value);
}

int GET_ELECTRICMOTOR_MOTORORDERNUMBER(const ElectricMotorTable& table, int i) {
    if (!is_row(table, i)) return 0;
    // The field may also have been written directly: keep the conversion defined for any
    // value (NaN reads as 0, values beyond the integer range as the nearest limit).
    const float n = table(i).MOTORORDERNUMBER;
    if (std::isnan(n)) return 0;
    if (n >= 2147483648.0F) return INT_MAX;
    if (n < -2147483648.0F) return INT_MIN;
    return static_cast<int>(n);
}

void SET_ELECTRICMOTOR_MOTORORDER(ElectricMotorTable& table, int i, double o1, double o2, double o3,
                                  double o4) {
    if (is_row(table, i)) table(i).MOTORORDER = {o1, o2, o3, o4};
}

void SET_ELECTRICMOTOR_MOTORTORQUEPERCENT(ElectricMotorTable& table, int i, double p1, double p2, double p3,
                                          double p4) {
    if (is_row(table, i)) table(i).MOTORTORQUEPERCENT = {p1, p2, p3, p4};
}

double motor_order(const ElectricMotorTable& table, int i, int k) {
    if (!is_row(table, i) || k < 1 || k > 4) return 0.0;
    return table(i).MOTORORDER[static_cast<std::size_t>(k - 1)];
}
double GET_ELECTRICMOTOR_MOTORORDERONE(const ElectricMotorTable& table, int i) {
    return motor_order(table, i, 1);
}
double GET_ELECTRICMOTOR_MOTORORDERTWO(const ElectricMotorTable& table, int i) {
    return motor_order(table, i, 2);
}
double GET_ELECTRICMOTOR_MOTORORDERTHREE(const ElectricMotorTable& table, int i) {
    return motor_order(table, i, 3);
}
double GET_ELECTRICMOTOR_MOTORORDERFOUR(const ElectricMotorTable& table, int i) {
    return motor_order(table, i, 4);
}

double GET_ELECTRICMOTOR_CONSTEXCITATIONTORQUE(const ElectricMotorTable& table, int i) {
    if (!is_row(table, i)) return 0.0;
    return table(i).EXCITATIONTYPE != 0 ? table(i).MCRTORQUE : 0.0;
}

void CALCULATE_ELECTRICMOTOR_LOADCASESETTING(ElectricMotorTable& table, int i) {
    if (!is_row(table, i)) return;
    ElectricMotorRecord& m = table(i);
    const double reference =
        m.EXCITATIONTYPE == 0 ? m.TORQUE : GET_ELECTRICMOTOR_CONSTEXCITATIONTORQUE(table, i);
    for (std::size_t k = 0; k < 4; ++k)
        m.MOTORTORQUEAMP[k] = reference * m.MOTORTORQUEPERCENT[k];
}

}  // namespace qm::GLOBAL_ELECTRICMOTOR
