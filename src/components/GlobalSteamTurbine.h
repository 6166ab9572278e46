// Module GLOBAL_STEAMTURBINE: steam turbines. A turbine takes part in the power balance of the
// load cases and excites nothing, so it has no operation beyond its row count and lookup.
#pragma once

#include "base/Table.h"

namespace qm {

struct SteamTurbineRecord {
    int ID = 0;                // identification number
    int STEAMTURBINENODE = 0;  // ID of the turbine's inertia in MASS_TABLE
    double RPMRATIO = 1.0;     // speed relative to the load-case reference
    double MCRPOWER = 0.0;     // W, rating
    double MCRSPEED = 0.0;     // rpm, rating
    double MCRTORQUE = 0.0;    // Nm, rating
    double POWER = 0.0;        // W, operating point of the load case
    double SPEED = 0.0;        // rpm
    double TORQUE = 0.0;       // Nm
};
using SteamTurbineTable = Table<SteamTurbineRecord>;

namespace GLOBAL_STEAMTURBINE {

int GET_STEAMTURBINE_NUMBER(const SteamTurbineTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_STEAMTURBINE_ISTEAMTURBINE(const SteamTurbineTable& table, int id);

}  // namespace GLOBAL_STEAMTURBINE
}  // namespace qm
