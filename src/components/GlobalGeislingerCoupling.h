// Module GLOBAL_GEISLINGERCOUPLING: steel leaf-spring couplings with oil damping between
// the springs. Stiffness and damping depend on the excitation frequency relative to the
// coupling's characteristic frequency, and the damping on the oil supply and design.
// A coupling sits on one shaft element of SHAFT_TABLE.
#pragma once

#include "base/Table.h"

namespace qm {

struct GeislingerCouplingRecord {
    int ID = 0;                            // identification number of the coupling
    int SHAFTNODE = 0;                     // ID of the shaft element in SHAFT_TABLE
    bool ISDEFAULTPOWERLOSS = true;        // power loss reckoned the default way
    int DAMPINGTYPE = 0;                   // 1 coupling's own damping model, 2 from the magnifier
    int OILSUPPLYTYPE = 0;                 // 1 with pressurized oil supply, 2 without
    int DESIGNTYPE = 0;                    // 1 multi-spring, 2 dual-spring
    double NOMINALTORQUE = 0.0;            // Nm
    double STATICSTIFFNESS = 0.0;          // Nm/rad
    double CHARACTERISTICFREQUENCY = 0.0;  // rad/s, at the reference oil viscosity
    double OILVISCOSITY = 40.0;            // oil viscosity; 40 is the reference
    double RPMRATIO = 1.0;                 // speed relative to the load-case reference
    double POWER = 0.0;                    // W, operating point of the load case
    double SPEED = 0.0;                    // rpm
    double SPEEDEXCITATION = 0.0;          // rpm at which the model is evaluated
    double TORQUE = 0.0;                   // Nm
    double STIFFNESS = 0.0;                // Nm/rad, stiffness of the current load case
    double DAMPING = 0.0;                  // Nms/rad, damping of the current load case
};
using GeislingerCouplingTable = Table<GeislingerCouplingRecord>;

namespace GLOBAL_GEISLINGERCOUPLING {

// Codes of DAMPINGTYPE, OILSUPPLYTYPE and DESIGNTYPE as the input words set them.
constexpr int GEISLINGERDAMPING = 1;
constexpr int GENERALDAMPING = 2;
constexpr int WITHPRESSURIZED = 1;
constexpr int WITHOUTPRESSURIZED = 2;
constexpr int MULTISPRING = 1;
constexpr int DUALSPRING = 2;

int GET_GEISLINGERCOUPLING_NUMBER(const GeislingerCouplingTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_GEISLINGERCOUPLING_IGEISLINGERCOUPLING(const GeislingerCouplingTable& table, int id);
// First row sitting on the shaft element with this ID; 0 when none.
int GET_GEISLINGERCOUPLING_IGEISLINGERCOUPLING_SHAFTNODE(const GeislingerCouplingTable& table, int node);

// Dynamic stiffness at an excitation order, evaluated at SPEEDEXCITATION. With r the
// excitation frequency over the characteristic frequency (corrected for the oil
// viscosity): STATICSTIFFNESS * (0.37 r + 1.0) up to r = 1, * (0.27 r + 1.1) above;
// STATICSTIFFNESS for r not positive and for a zero characteristic frequency.
// A row outside the table gives 0.0.
double CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(const GeislingerCouplingTable& table, int i,
                                                     double order);
// Damping coefficient at an excitation order: d * K / (order * we), d the undimensioned
// damping factor, K the dynamic stiffness, we the speed of excitation in rad/s; 0.0 when
// order * we is 0. A row outside the table gives 0.0.
double CALCULATE_GEISLINGERCOUPLING_DAMPING(const GeislingerCouplingTable& table, int i, double dynMagnifier,
                                            double order);
// Undimensioned damping factor: from the dynamic magnifier (GENERALDAMPING), from the
// frequency ratio (pressurized oil supply) or from the load ratio TORQUE / NOMINALTORQUE
// (no pressurized supply, by design). 0.0 without nominal torque, without characteristic
// frequency and for any other combination of codes. A row outside the table gives 0.0.
double CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(const GeislingerCouplingTable& table, int i,
                                                               double dynMagnifier, double order);
// Values of the load case: STIFFNESS and DAMPING at this order and SPEEDEXCITATION.
void CALCULATE_GEISLINGERCOUPLING_LOADCASESETTING(GeislingerCouplingTable& table, int i, double dynMagnifier,
                                                  double order);

}  // namespace GLOBAL_GEISLINGERCOUPLING
}  // namespace qm
