// Module GLOBAL_GENERATOR: generators. A generator excites the shaft line with up to four
// whole-number orders, each with a torque given as a fraction of its load-case torque.
#pragma once

#include "base/Table.h"
#include "components/FourOrderMachine.h"

namespace qm {

struct GeneratorRecord {
    int ID = 0;                          // identification number
    int GENERATORNODE = 0;               // ID of the generator's inertia in MASS_TABLE
    double RPMRATIO = 1.0;               // speed relative to the load-case reference
    double MCRPOWER = 0.0;               // W, rating
    double MCRSPEED = 0.0;               // rpm, rating
    double MCRTORQUE = 0.0;              // Nm, rating
    double POWER = 0.0;                  // W, operating point of the load case
    double SPEED = 0.0;                  // rpm
    double TORQUE = 0.0;                 // Nm
    int GENERATORORDERNUMBER = 0;        // orders in use, up to 4
    MachineFour GENERATORORDER{};        // excitation orders
    MachineFour GENERATORTORQUEPERCENT{};  // torque of each order, fraction of TORQUE
    MachineFour GENTORQUEAMP{};          // Nm, torque amplitude of each order
};
using GeneratorTable = Table<GeneratorRecord>;

// Row i at the current load case, orders truncated toward zero; all zero for a row outside
// the table. The generator excites at its own speed with no phase of its own.
FourOrderMachine four_order_machine(const GeneratorTable& table, int i);

namespace GLOBAL_GENERATOR {

int GET_GENERATOR_NUMBER(const GeneratorTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_GENERATOR_IGENERATOR(const GeneratorTable& table, int id);

// The four orders, and the four torque fractions, set together as the input line gives
// them. A row outside the table is left alone.
void SET_GENERATOR_GENERATORORDER(GeneratorTable& table, int i, double o1, double o2, double o3, double o4);
void SET_GENERATOR_GENERATORTORQUEPERCENT(GeneratorTable& table, int i, double p1, double p2, double p3,
                                          double p4);

// Orders one to four as whole numbers, truncated toward zero (1.5 reads as 1). A row
// outside the table gives 0.
int GET_GENERATOR_GENERATORORDERONE(const GeneratorTable& table, int i);
int GET_GENERATOR_GENERATORORDERTWO(const GeneratorTable& table, int i);
int GET_GENERATOR_GENERATORORDERTHREE(const GeneratorTable& table, int i);
int GET_GENERATOR_GENERATORORDERFOUR(const GeneratorTable& table, int i);

// Torque amplitudes of the load case: entry k of GENTORQUEAMP := TORQUE * fraction k,
// for all four entries whatever the number of orders in use.
void CALCULATE_GENERATOR_LOADCASESETTING(GeneratorTable& table, int i);

}  // namespace GLOBAL_GENERATOR
}  // namespace qm
