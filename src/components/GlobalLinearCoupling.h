// Module GLOBAL_LINEARCOUPLING: flexible couplings of constant stiffness. A coupling sits on
// one shaft element of SHAFT_TABLE and gives that element its stiffness.
#pragma once

#include "base/Table.h"

namespace qm {

struct LinearCouplingRecord {
    int ID = 0;                      // identification number of the coupling
    int SHAFTNODE = 0;               // ID of the shaft element in SHAFT_TABLE
    bool ISDEFAULTPOWERLOSS = true;  // power loss reckoned the default way
    double NOMINALTORQUE = 0.0;      // Nm
    double NOMINALSTIFFNESS = 0.0;   // Nm/rad
    double RPMRATIO = 1.0;           // speed relative to the load-case reference
    double POWER = 0.0;              // W, operating point of the load case
    double SPEED = 0.0;              // rpm
    double TORQUE = 0.0;             // Nm
    double STIFFNESS = 0.0;          // Nm/rad, stiffness of the current load case
    double DAMPING = 0.0;            // Nms/rad, damping of the current load case
};
using LinearCouplingTable = Table<LinearCouplingRecord>;

namespace GLOBAL_LINEARCOUPLING {

int GET_LINEARCOUPLING_NUMBER(const LinearCouplingTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_LINEARCOUPLING_ILINEARCOUPLING(const LinearCouplingTable& table, int id);
// First row sitting on the shaft element with this ID; 0 when none.
int GET_LINEARCOUPLING_ILINEARCOUPLING_SHAFTNODE(const LinearCouplingTable& table, int node);
// Working stiffness of the shaft element: NOMINALSTIFFNESS, whatever the torque.
// A row outside the table gives 0.0.
double GET_LINEARCOUPLING_STIFFNESSDYNAMIC(const LinearCouplingTable& table, int i);

// Damping at an excitation order: NOMINALSTIFFNESS / (V * w * order), w the coupling's
// speed in rad/s; 0.0 for V = 0, and 0.0 where there is no excitation frequency (zero
// speed or zero order). A row outside the table gives 0.0.
double CALCULATE_LINEARCOUPLING_DAMPING(const LinearCouplingTable& table, int i, double dynMagnifier,
                                        double order);
// Values of the load case: STIFFNESS := NOMINALSTIFFNESS, DAMPING := K / (V * w), or 0.0
// for V = 0 or zero speed.
void CALCULATE_LINEARCOUPLING_LOADCASESETTING(LinearCouplingTable& table, int i, double dynMagnifier);

}  // namespace GLOBAL_LINEARCOUPLING
}  // namespace qm
