// Module GLOBAL_MASS: the inertias of the shaft line (one row per INERTIA line).
#pragma once

#include "base/ComponentCodes.h"
#include "base/Table.h"

namespace qm {

struct MassRecord {
    int MASSTYPE = CODES::MASSTYPE_PLAIN;            // role of the inertia (CODES::MASSTYPE_*)
    int COMPONENTTYPE = CODES::COMPONENT_NONE_MASS;  // kind of the owning component
    int COMPONENTID = 0;            // ID of the owning component, or the mass's own ID
    int ID = 0;                     // node number given in the file
    double RPMRATIO = 1.0;          // speed relative to the reference shaft
    double INERTIA = 0.0;           // kg m^2, from the file
    double INERTIAEFFECTIVE = 0.0;  // kg m^2, working inertia of the calculation
    double ABSDAMPING = 0.0;        // Nms/rad, absolute damping to ground
    double DYNMAGNIFIER = 0.0;      // dynamic magnifier
    double SPEED = 0.0;             // rpm of the current load case
};
using MassTable = Table<MassRecord>;

namespace GLOBAL_MASS {

int GET_MASS_NUMBER(const MassTable& table);
// First row whose ID equals id; 0 when none or when the table is unallocated.
int GET_MASS_IMASS(const MassTable& table, int id);
// Sum of RPMRATIO^2 * INERTIA: the whole system referred to the reference shaft.
double GET_MASS_INERTIAEQUIVALENTTOTAL(const MassTable& table);
// Rows among 1..n whose MASSTYPE is not 3 (viscous damper ring).
int GET_MASS_NNOTVISCOUSDAMPERRINGMASS(const MassTable& table, int n);
// Degree of freedom in free mode of the inertia with this ID: rows that are not damper
// rings up to and including that row. The ID must be in the table.
int GET_MASS_NNOTVISCOUSDAMPERRINGSHAFT(const MassTable& table, int id);

}  // namespace GLOBAL_MASS
}  // namespace qm
