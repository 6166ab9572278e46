// Module GLOBAL_PROGRESSIVECOUPLING: flexible couplings whose stiffness rises with the
// transmitted torque. The stiffness is a curve of five points over torque, at 0, 25, 50,
// 75 and 100 percent of the nominal torque. A coupling sits on one shaft element of
// SHAFT_TABLE.
#pragma once

#include "base/Table.h"

#include <array>

namespace qm {

struct ProgressiveCouplingRecord {
    int ID = 0;                                // identification number of the coupling
    int SHAFTNODE = 0;                         // ID of the shaft element in SHAFT_TABLE
    bool ISDEFAULTPOWERLOSS = true;            // power loss reckoned the default way
    std::array<double, 5> NOMINALTORQUE{};     // Nm, torque axis of the stiffness curve
    std::array<double, 5> NOMINALSTIFFNESS{};  // Nm/rad, stiffness at each torque
    double RPMRATIO = 1.0;                     // speed relative to the load-case reference
    double POWER = 0.0;                        // W, operating point of the load case
    double SPEED = 0.0;                        // rpm
    double TORQUE = 0.0;                       // Nm
    double STIFFNESS = 0.0;                    // Nm/rad, stiffness of the current load case
    double DAMPING = 0.0;                      // Nms/rad, damping of the current load case
};
using ProgressiveCouplingTable = Table<ProgressiveCouplingRecord>;

namespace GLOBAL_PROGRESSIVECOUPLING {

int GET_PROGRESSIVECOUPLING_NUMBER(const ProgressiveCouplingTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_PROGRESSIVECOUPLING_IPROGRESSIVECOUPLING(const ProgressiveCouplingTable& table, int id);
// First row sitting on the shaft element with this ID; 0 when none.
int GET_PROGRESSIVECOUPLING_IPROGRESSIVECOUPLING_SHAFTNODE(const ProgressiveCouplingTable& table, int node);

// Builds the torque axis from the nominal torque: entry k becomes (k - 1) / 4 * value.
void SET_PROGRESSIVECOUPLING_NOMINALTORQUE(ProgressiveCouplingTable& table, int i, double value);
// The nominal torque: the last point of the torque axis. 0.0 for a row outside the table.
double GET_PROGRESSIVECOUPLING_NOMINALTORQUE(const ProgressiveCouplingTable& table, int i);
// The operating torque of the load case, at which the table preparation takes the
// stiffness. 0.0 for a row outside the table.
double GET_PROGRESSIVECOUPLING_TORQUE(const ProgressiveCouplingTable& table, int i);

// Stiffness at a torque, linear between the points of the curve and extrapolated beyond
// its ends. The segment is the first one whose upper torque is not below the given
// torque (the last one above the curve). A curve without extent over torque (zero
// nominal torque) gives its no-load stiffness K1 at every torque; a single segment
// without extent gives the stiffness at its lower point. A row outside the table gives 0.0.
double GET_PROGRESSIVECOUPLING_STIFFNESSDYNAMIC(const ProgressiveCouplingTable& table, int i, double torque);

// Damping at an excitation order: K(TORQUE) / (V * w * order), w the coupling's speed in
// rad/s; 0.0 for V = 0, and 0.0 where there is no excitation frequency (zero speed or zero
// order). A row outside the table gives 0.0.
double CALCULATE_PROGRESSIVECOUPLING_DAMPING(const ProgressiveCouplingTable& table, int i,
                                             double dynMagnifier, double order);
// Values of the load case: STIFFNESS := K(TORQUE), DAMPING := K / (V * w), or 0.0 for
// V = 0 or zero speed.
void CALCULATE_PROGRESSIVECOUPLING_LOADCASESETTING(ProgressiveCouplingTable& table, int i,
                                                   double dynMagnifier);

}  // namespace GLOBAL_PROGRESSIVECOUPLING
}  // namespace qm
