#include "components/GlobalElectricMotor.h"

#include "base/Truncate.h"

namespace qm {

namespace {
constexpr auto ORDER = &ElectricMotorRecord::MOTORORDER;
}

FourOrderMachine four_order_machine(const ElectricMotorTable& table, int i) {
    if (!is_row(table, i)) return {};
    const ElectricMotorRecord& e = table(i);
    return {.SPEED = e.SPEED,
            .EXCITATIONSPEED = e.EXCITATIONTYPE == 0 ? e.SPEED : e.CONSTEXCITATIONFREQ,
            .NODE = e.ELECTRICMOTORNODE,
            .ORDERNUMBER = GLOBAL_ELECTRICMOTOR::GET_ELECTRICMOTOR_MOTORORDERNUMBER(table, i),
            .ORDERS = e.MOTORORDER,
            .TORQUEAMP = e.MOTORTORQUEAMP};
}

namespace GLOBAL_ELECTRICMOTOR {

int GET_ELECTRICMOTOR_NUMBER(const ElectricMotorTable& table) { return row_count(table); }

int GET_ELECTRICMOTOR_IELECTRICMOTOR(const ElectricMotorTable& table, int id) {
    return first_row_with_id(table, id);
}

void SET_ELECTRICMOTOR_MOTORORDERNUMBER(ElectricMotorTable& table, int i, int value) {
    if (is_row(table, i)) table(i).MOTORORDERNUMBER = static_cast<float>(value);
}

// The field may also have been written directly: the conversion stays defined for any value.
int GET_ELECTRICMOTOR_MOTORORDERNUMBER(const ElectricMotorTable& table, int i) {
    return is_row(table, i) ? truncate_to_int(table(i).MOTORORDERNUMBER) : 0;
}

void SET_ELECTRICMOTOR_MOTORORDER(ElectricMotorTable& table, int i, double o1, double o2, double o3,
                                  double o4) {
    FOUR_ORDER::set_four(table, i, ORDER, o1, o2, o3, o4);
}

void SET_ELECTRICMOTOR_MOTORTORQUEPERCENT(ElectricMotorTable& table, int i, double p1, double p2, double p3,
                                          double p4) {
    FOUR_ORDER::set_four(table, i, &ElectricMotorRecord::MOTORTORQUEPERCENT, p1, p2, p3, p4);
}

double GET_ELECTRICMOTOR_MOTORORDERONE(const ElectricMotorTable& table, int i) {
    return FOUR_ORDER::entry(table, i, ORDER, 1);
}
double GET_ELECTRICMOTOR_MOTORORDERTWO(const ElectricMotorTable& table, int i) {
    return FOUR_ORDER::entry(table, i, ORDER, 2);
}
double GET_ELECTRICMOTOR_MOTORORDERTHREE(const ElectricMotorTable& table, int i) {
    return FOUR_ORDER::entry(table, i, ORDER, 3);
}
double GET_ELECTRICMOTOR_MOTORORDERFOUR(const ElectricMotorTable& table, int i) {
    return FOUR_ORDER::entry(table, i, ORDER, 4);
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
    FOUR_ORDER::set_amplitudes(m.MOTORTORQUEAMP, reference, m.MOTORTORQUEPERCENT);
}

}  // namespace GLOBAL_ELECTRICMOTOR
}  // namespace qm
