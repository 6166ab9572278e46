// Module GLOBAL_ELECTRICMOTOR: electric motors. A motor excites the shaft line with up to
// four orders, fractional orders allowed, each with a torque given as a fraction of a
// reference torque: the load-case torque, or the rated torque for a motor whose
// excitation is constant (a frequency converter running at a fixed frequency).
#pragma once

#include "base/Table.h"
#include "components/FourOrderMachine.h"

namespace qm {

struct ElectricMotorRecord {
    int ID = 0;                 // identification number
    int ELECTRICMOTORNODE = 0;  // ID of the motor's inertia in MASS_TABLE
    double RPMRATIO = 1.0;      // speed relative to the load-case reference
    double MCRPOWER = 0.0;      // W, rating
    double MCRSPEED = 0.0;      // rpm, rating
    double MCRTORQUE = 0.0;     // Nm, rating
    double POWER = 0.0;         // W, operating point of the load case
    double SPEED = 0.0;         // rpm
    double TORQUE = 0.0;        // Nm
    // Orders in use, up to 4. Held in single precision: write it through
    // SET_ELECTRICMOTOR_MOTORORDERNUMBER and read it through its getter.
    float MOTORORDERNUMBER = 0.0F;
    MachineFour MOTORORDER{};          // excitation orders, fractions kept
    MachineFour MOTORTORQUEPERCENT{};  // torque of each order, fraction of the reference
    MachineFour MOTORTORQUEAMP{};      // Nm, torque amplitude of each order
    int EXCITATIONTYPE = 0;            // 0 follows the load case, else constant excitation
    double CONSTEXCITATIONFREQ = 0.0;  // rpm, speed of a constant excitation
};
using ElectricMotorTable = Table<ElectricMotorRecord>;

// Row i at the current load case, fractions of orders kept; all zero for a row outside the
// table. A motor on a converter of constant frequency excites at that fixed speed.
FourOrderMachine four_order_machine(const ElectricMotorTable& table, int i);

namespace GLOBAL_ELECTRICMOTOR {

int GET_ELECTRICMOTOR_NUMBER(const ElectricMotorTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_ELECTRICMOTOR_IELECTRICMOTOR(const ElectricMotorTable& table, int id);

// The number of orders goes into its single-precision field on the way in and is
// truncated toward zero on the way out. A row outside the table is left alone / reads 0.
void SET_ELECTRICMOTOR_MOTORORDERNUMBER(ElectricMotorTable& table, int i, int value);
int GET_ELECTRICMOTOR_MOTORORDERNUMBER(const ElectricMotorTable& table, int i);

// The four orders, and the four torque fractions, set together as the input line gives
// them. A row outside the table is left alone.
void SET_ELECTRICMOTOR_MOTORORDER(ElectricMotorTable& table, int i, double o1, double o2, double o3,
                                  double o4);
void SET_ELECTRICMOTOR_MOTORTORQUEPERCENT(ElectricMotorTable& table, int i, double p1, double p2, double p3,
                                          double p4);

// Orders one to four with their fractions (1.5 reads as 1.5), as the motor's converter may
// excite between the multiples of its speed. A row outside the table gives 0.0.
double GET_ELECTRICMOTOR_MOTORORDERONE(const ElectricMotorTable& table, int i);
double GET_ELECTRICMOTOR_MOTORORDERTWO(const ElectricMotorTable& table, int i);
double GET_ELECTRICMOTOR_MOTORORDERTHREE(const ElectricMotorTable& table, int i);
double GET_ELECTRICMOTOR_MOTORORDERFOUR(const ElectricMotorTable& table, int i);

// Reference torque of a constant excitation: MCRTORQUE when EXCITATIONTYPE is not 0,
// else 0.0. A row outside the table gives 0.0.
double GET_ELECTRICMOTOR_CONSTEXCITATIONTORQUE(const ElectricMotorTable& table, int i);

// Torque amplitudes of the load case: entry k of MOTORTORQUEAMP := T * fraction k, with
// T = TORQUE for EXCITATIONTYPE 0 and the rated torque otherwise; all four entries,
// whatever the number of orders in use.
void CALCULATE_ELECTRICMOTOR_LOADCASESETTING(ElectricMotorTable& table, int i);

}  // namespace GLOBAL_ELECTRICMOTOR
}  // namespace qm
