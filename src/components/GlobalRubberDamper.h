// Module GLOBAL_RUBBERDAMPER: rubber dampers, a turning mass held on a drive plate by a
// rubber spring. The two are inertias of MASS_TABLE.
#pragma once

#include "base/Table.h"

namespace qm {

struct RubberDamperRecord {
    int ID = 0;                      // identification number of the damper
    int TURNINGMASSNODE = 0;         // ID of the turning mass in MASS_TABLE
    int DRIVEPLATENODE = 0;          // ID of the drive plate in MASS_TABLE
    bool ISDEFAULTPOWERLOSS = true;  // power loss reckoned the default way
    double ABSDAMPING = 0.0;         // Nms/rad, used where no dynamic magnifier is given
    double RPMRATIO = 1.0;           // speed relative to the load-case reference
    double POWER = 0.0;              // W, operating point of the load case
    double SPEED = 0.0;              // rpm
    double TORQUE = 0.0;             // Nm
    double STIFFNESS = 0.0;          // Nm/rad, stiffness of the current load case
    double DAMPING = 0.0;            // Nms/rad, damping of the current load case
};
using RubberDamperTable = Table<RubberDamperRecord>;

namespace GLOBAL_RUBBERDAMPER {

int GET_RUBBERDAMPER_NUMBER(const RubberDamperTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_RUBBERDAMPER_IRUBBERDAMPER(const RubberDamperTable& table, int id);
// First row with TURNINGMASSNODE a and DRIVEPLATENODE b. The reverse order doesn't match.
int GET_RUBBERDAMPER_IRUBBERDAMPER_NODE(const RubberDamperTable& table, int a, int b);

// Damping of the rubber at an excitation order: STIFFNESS / (V * order * w), w the
// damper's speed in rad/s. V = 0 means no magnifier was given: ABSDAMPING. With a
// magnifier but no excitation frequency (zero speed or zero order) the result is 0.0,
// as there is no motion to damp. A row outside the table gives 0.0.
double CALCULATE_RUBBERDAMPER_DAMPING(const RubberDamperTable& table, int i, double dynMagnifier,
                                      double order);
// Values of the load case: STIFFNESS := stiffness, then DAMPING from the new stiffness.
void CALCULATE_RUBBERDAMPER_LOADCASESETTING(RubberDamperTable& table, int i, double stiffness,
                                            double dynMagnifier, double order);

}  // namespace GLOBAL_RUBBERDAMPER
}  // namespace qm
