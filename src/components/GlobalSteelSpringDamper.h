// Module GLOBAL_STEELSPRINGDAMPER: steel spring dampers, an outer member coupled to an
// inner member by leaf springs in oil. The two members are inertias of MASS_TABLE.
#pragma once

#include "base/Table.h"

namespace qm {

struct SteelSpringDamperRecord {
    int ID = 0;                      // identification number of the damper
    int OUTERMEMBERNODE = 0;         // ID of the outer member in MASS_TABLE
    int INNERMEMBERNODE = 0;         // ID of the inner member in MASS_TABLE
    bool ISDEFAULTPOWERLOSS = true;  // power loss reckoned the default way
    double ABSDAMPING = 0.0;         // Nms/rad, used where no dynamic magnifier is given
    double RPMRATIO = 1.0;           // speed relative to the load-case reference
    double POWER = 0.0;              // W, operating point of the load case
    double SPEED = 0.0;              // rpm
    double TORQUE = 0.0;             // Nm
    double STIFFNESS = 0.0;          // Nm/rad, stiffness of the current load case
    double DAMPING = 0.0;            // Nms/rad, damping of the current load case
};
using SteelSpringDamperTable = Table<SteelSpringDamperRecord>;

namespace GLOBAL_STEELSPRINGDAMPER {

int GET_STEELSPRINGDAMPER_NUMBER(const SteelSpringDamperTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_STEELSPRINGDAMPER_ISTEELSPRINGDAMPER(const SteelSpringDamperTable& table, int id);

// Damping of the springs at an excitation order: STIFFNESS / (V * order * w), w the
// damper's speed in rad/s. V = 0 means no magnifier was given: ABSDAMPING. With a
// magnifier but no excitation frequency (zero speed or zero order) the result is 0.0.
// A row outside the table gives 0.0.
double CALCULATE_STEELSPRINGDAMPER_DAMPING(const SteelSpringDamperTable& table, int i, double dynMagnifier,
                                           double order);
// Values of the load case: STIFFNESS := stiffness, then DAMPING from the new stiffness.
void CALCULATE_STEELSPRINGDAMPER_LOADCASESETTING(SteelSpringDamperTable& table, int i, double stiffness,
                                                 double dynMagnifier, double order);

}  // namespace GLOBAL_STEELSPRINGDAMPER
}  // namespace qm
