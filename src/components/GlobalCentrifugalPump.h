// Module GLOBAL_CENTRIFUGALPUMP: centrifugal pumps. A pump excites the shaft line with up
// to four whole-number orders, each with a torque given as a fraction of its load-case
// torque.
#pragma once

#include "base/Table.h"
#include "components/FourOrderMachine.h"

namespace qm {

struct CentrifugalPumpRecord {
    int ID = 0;                                  // identification number
    int CENTRIFUGALPUMPNODE = 0;                 // ID of the pump's inertia in MASS_TABLE
    double RPMRATIO = 1.0;                       // speed relative to the load-case reference
    double MCRPOWER = 0.0;                       // W, rating
    double MCRSPEED = 0.0;                       // rpm, rating
    double MCRTORQUE = 0.0;                      // Nm, rating
    double POWER = 0.0;                          // W, operating point of the load case
    double SPEED = 0.0;                          // rpm
    double TORQUE = 0.0;                         // Nm
    int CENTRIFUGALPUMPORDERNUMBER = 0;          // orders in use, up to 4
    MachineFour CENTRIFUGALPUMPORDER{};          // excitation orders
    MachineFour CENTRIFUGALPUMPTORQUEPERCENT{};  // torque of each order, fraction of TORQUE
    MachineFour CENTRIFUGALPUMPTORQUEAMP{};      // Nm, torque amplitude of each order
    double CENTRIFUGALPUMPPHASEANGLE = 0.0;      // rad, phase of the pump's excitation
};
using CentrifugalPumpTable = Table<CentrifugalPumpRecord>;

// Row i at the current load case, orders truncated toward zero, with the pump's phase;
// all zero for a row outside the table. The pump excites at its own speed.
FourOrderMachine four_order_machine(const CentrifugalPumpTable& table, int i);

namespace GLOBAL_CENTRIFUGALPUMP {

int GET_CENTRIFUGALPUMP_NUMBER(const CentrifugalPumpTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_CENTRIFUGALPUMP_ICENTRIFUGALPUMP(const CentrifugalPumpTable& table, int id);

// The four orders, and the four torque fractions, set together as the input line gives
// them. A row outside the table is left alone.
void SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDER(CentrifugalPumpTable& table, int i, double o1, double o2,
                                              double o3, double o4);
void SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPTORQUEPERCENT(CentrifugalPumpTable& table, int i, double p1,
                                                      double p2, double p3, double p4);

// Orders one to four as whole numbers, truncated toward zero (1.5 reads as 1). A row
// outside the table gives 0.
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERONE(const CentrifugalPumpTable& table, int i);
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERTWO(const CentrifugalPumpTable& table, int i);
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERTHREE(const CentrifugalPumpTable& table, int i);
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERFOUR(const CentrifugalPumpTable& table, int i);

// Torque amplitudes of the load case: entry k of CENTRIFUGALPUMPTORQUEAMP := TORQUE * fraction k,
// for all four entries whatever the number of orders in use.
void CALCULATE_CENTRIFUGALPUMP_LOADCASESETTING(CentrifugalPumpTable& table, int i);

}  // namespace GLOBAL_CENTRIFUGALPUMP
}  // namespace qm
