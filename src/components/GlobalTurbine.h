// Modules GLOBAL_GASTURBINE and GLOBAL_STEAMTURBINE: gas and steam turbines. A turbine takes
// part in the power balance of the load cases and excites nothing, so both kinds hold the
// same record and have no operation beyond their row count and lookup.
#pragma once

#include "base/Table.h"

namespace qm {

struct TurbineRecord {
    int ID = 0;              // identification number
    int TURBINENODE = 0;     // ID of the turbine's inertia in MASS_TABLE
    double RPMRATIO = 1.0;   // speed relative to the load-case reference
    double MCRPOWER = 0.0;   // W, rating
    double MCRSPEED = 0.0;   // rpm, rating
    double MCRTORQUE = 0.0;  // Nm, rating
    double POWER = 0.0;      // W, operating point of the load case
    double SPEED = 0.0;      // rpm
    double TORQUE = 0.0;     // Nm
};
// GASTURBINE_TABLE and STEAMTURBINE_TABLE.
using TurbineTable = Table<TurbineRecord>;

namespace GLOBAL_GASTURBINE {

int GET_GASTURBINE_NUMBER(const TurbineTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_GASTURBINE_IGASTURBINE(const TurbineTable& table, int id);

}  // namespace GLOBAL_GASTURBINE

namespace GLOBAL_STEAMTURBINE {

int GET_STEAMTURBINE_NUMBER(const TurbineTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_STEAMTURBINE_ISTEAMTURBINE(const TurbineTable& table, int id);

}  // namespace GLOBAL_STEAMTURBINE
}  // namespace qm
