// Module GLOBAL_VISCOUSDAMPER: viscous dampers, an inertia ring in an oil-filled casing.
// The ring and the casing are two inertias of MASS_TABLE joined by the damper's spring.
#pragma once

#include "base/Table.h"

#include <string>
#include <vector>

namespace qm {

struct ViscousDamperRecord {
    int ID = 0;                           // identification number of the damper
    int CASINGNODE = 0;                   // ID of the casing's inertia in MASS_TABLE
    int RINGNODE = 0;                     // ID of the inertia ring's inertia in MASS_TABLE
    bool ISDEFAULTPOWERLOSS = true;       // power loss reckoned the default way
    double ABSDAMPING = 0.0;              // Nms/rad, absolute damping from the input
    double RPMRATIO = 1.0;                // speed relative to the load-case reference
    double POWER = 0.0;                   // W, operating point of the load case
    double SPEED = 0.0;                   // rpm
    double TORQUE = 0.0;                  // Nm
    double STIFFNESS = 0.0;               // Nm/rad, stiffness of the current load case
    double DAMPING = 0.0;                 // Nms/rad, damping of the current load case
    bool ISCUSTOMDAMPING = false;         // damping comes from a frequency table
    bool ISCUSTOMSTIFFNESS = false;       // stiffness comes from a frequency table
    int NFREQUENCY = 0;                   // rows of the frequency table
    std::vector<double> FREQUENCIES;      // Hz, ascending; NFREQUENCY rows
    std::vector<double> CUSTOMDAMPING;    // Nms/rad, one per frequency
    std::vector<double> CUSTOMSTIFFNESS;  // Nm/rad, one per frequency (three-column files)
    std::string CUSTOMDAMPINGFILE;        // name of the damping file as written, empty when none
    std::string SIDEFILEDIR;              // folder of the model file, where a relative name starts
};
using ViscousDamperTable = Table<ViscousDamperRecord>;

namespace GLOBAL_VISCOUSDAMPER {

// Most rows a damping file may hold.
constexpr int MAXFREQUENCY = 10000;

int GET_VISCOUSDAMPER_NUMBER(const ViscousDamperTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_VISCOUSDAMPER_IVISCOUSDAMPER(const ViscousDamperTable& table, int id);
// First row whose ring and casing are the nodes a and b, in either order; 0 when none.
int GET_VISCOUSDAMPER_IVISCOUSDAMPER_NODE(const ViscousDamperTable& table, int a, int b);
// True when the table is allocated and any damper takes its damping from a table.
bool GET_VISCOUSDAMPER_CONTAINCUSTOMDAMPING(const ViscousDamperTable& table);

// Values of the load case: STIFFNESS := stiffness (the damper shaft's own), DAMPING :=
// ABSDAMPING. A row outside the table changes nothing.
void CALCULATE_VISCOUSDAMPER_LOADCASESETTING(ViscousDamperTable& table, int i, double stiffness);

}  // namespace GLOBAL_VISCOUSDAMPER
}  // namespace qm
