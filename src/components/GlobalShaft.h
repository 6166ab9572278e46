// Module GLOBAL_SHAFT: the shaft elements joining the inertias (one row per SHAFT line).
#pragma once

#include "base/ComponentCodes.h"
#include "base/Table.h"

#include <utility>

namespace qm {

struct ViscousDamperRecord;
struct RubberDamperRecord;
struct SteelSpringDamperRecord;
struct LinearCouplingRecord;
struct ProgressiveCouplingRecord;
struct GeislingerCouplingRecord;

struct ShaftRecord {
    int SHAFTTYPE = CODES::SHAFTTYPE_PLAIN;           // role of the element (CODES::SHAFTTYPE_*)
    int COMPONENTTYPE = CODES::COMPONENT_NONE_SHAFT;  // kind of the owning component
    int COMPONENTID = 0;            // ID of the owning component, or the shaft's own ID
    int ID = 0;                     // shaft number given in the file
    int ORGNODE = 0;                // ID of the inertia at the origin end
    int DESNODE = 0;                // ID of the inertia at the destination end
    double RPMRATIO = 1.0;          // speed relative to the reference shaft
    double STIFFNESS = 0.0;         // Nm/rad, from the file or a linear coupling
    double STIFFNESSDYNAMIC = 0.0;  // Nm/rad, working stiffness of the calculation
    double ABSDAMPING = 0.0;        // Nms/rad, damping between the two ends
    double DYNMAGNIFIER = 0.0;      // dynamic magnifier
    double OUTERDI = 0.0;           // m
    double INNERDI = 0.0;           // m
    double SPEED = 0.0;             // rpm of the current load case
};
using ShaftTable = Table<ShaftRecord>;

namespace GLOBAL_SHAFT {

int GET_SHAFT_NUMBER(const ShaftTable& table);
// First row whose ID equals id; 0 when none or when the table is unallocated.
int GET_SHAFT_ISHAFT(const ShaftTable& table, int id);
// First row joining the two nodes in either direction; 0 when no shaft joins them.
int GET_SHAFT_ISHAFTBYNODE(const ShaftTable& table, int node1, int node2);
// True when the row is the element joining the two nodes of a viscous, rubber or steel
// spring damper.
bool GET_SHAFT_ISDAMPER(const ShaftTable& table, int row, const Table<ViscousDamperRecord>& viscous,
                        const Table<RubberDamperRecord>& rubber,
                        const Table<SteelSpringDamperRecord>& steelspring);
// True when a linear, progressive or Geislinger coupling sits on the row.
bool GET_SHAFT_ISCOUPLING(const ShaftTable& table, int row, const Table<LinearCouplingRecord>& linear,
                          const Table<ProgressiveCouplingRecord>& progressive,
                          const Table<GeislingerCouplingRecord>& geislinger);

}  // namespace GLOBAL_SHAFT
}  // namespace qm
