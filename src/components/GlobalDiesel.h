// Module GLOBAL_DIESEL: the diesel engines of the shaft line, one record per engine.
//
// A record holds the engine's design data, the firing state of each cylinder on up to two
// banks (A, and B on a V engine), the operating point of the current load case with the
// pressures derived from it, the measured harmonic tables and the Fourier coefficients of
// the load case. Units are SI: W, rpm, Nm, Pa, m, radians, ratios as fractions; the
// exceptions are noted on their fields.
//
// Per-cylinder arrays are std::array indexed from 0: cylinder j of the algorithms is
// element [j - 1]. The harmonic tables are std::vector, empty until a harmonic file is
// loaded, and packed with the number of pressures M of their file (harmonic_position).
#pragma once

#include <array>
#include <complex>
#include <cstddef>
#include <string>
#include <vector>

#include "components/GlobalLoadCaseGenset.h"
#include "base/Table.h"

namespace qm {

namespace GLOBAL_DIESEL {
constexpr int MAXCYLINDER = 20;               // cylinders per bank
constexpr int MAXHARMONICORDER = 24;          // orders of the Fourier coefficients and harmonic files
constexpr int MAXMEANINDICATEDPRESSURE = 100; // pressures of a harmonic file
constexpr int MAXHARMONICTABLE = 2400;        // entries of a harmonic table
constexpr int NAMELENGTH = 20;                // characters of an engine name

// Firing status of a cylinder.
constexpr int NORMALFIRING = 1;
constexpr int ONLYCOMPRESSION = 2;
constexpr int EXHAUSTVALVEOPEN = 3;
constexpr int PISTONREMOVED = 4;
constexpr int PARTIALFIRING = 5;

// Zero-based place in a harmonic table of order number j and pressure number k (both
// 1-based, in file order) for a file of m pressures: (j - 1) * m + k, minus one.
constexpr std::size_t harmonic_position(int j, int k, int m) {
    return static_cast<std::size_t>((j - 1) * m + k - 1);
}
}  // namespace GLOBAL_DIESEL

using DieselCoefficients = std::array<std::complex<double>, GLOBAL_DIESEL::MAXHARMONICORDER>;

// Gas pressure Fourier coefficients of one cylinder, place k = harmonic k of the curve, Pa.
struct DieselGasCoefficients {
    DieselCoefficients NORMALGASFCBANKBANKA{};     // normal firing, bank A
    DieselCoefficients MISFIRINGGASFCBANKBANKA{};  // misfiring, bank A
    DieselCoefficients NORMALGASFCBANKB{};         // normal firing, bank B
    DieselCoefficients MISFIRINGGASFCBANKB{};      // misfiring, bank B
};

struct DieselRecord {
    using Cylinders = std::array<double, GLOBAL_DIESEL::MAXCYLINDER>;
    using CylinderInts = std::array<int, GLOBAL_DIESEL::MAXCYLINDER>;

    int ID = 0;                        // identification number
    std::string NAME{};                  // engine name, at most 20 characters
    int NSTROKE = 0;                   // 2 for a two-stroke engine, else four-stroke
    double RPMRATIO = 1.0;             // engine speed / reference speed
    double MCRPOWER = 0.0;             // W, maximum continuous rating
    double MCRSPEED = 0.0;             // rpm
    double MCRTORQUE = 0.0;            // Nm
    double MIPLIMIT = 1.0;             // limit of the mean indicated pressure, multiple of its MCR value
    bool ISVENGINE = false;            // banks A and B
    double VANGLE = 0.0;               // degrees, V angle within one engine cycle
    int VEEFIRINGTYPE = 0;             // 0, 1 or 2 (SET_DIESEL_VEEFIRINGTYPE); only reported
    bool ISGENSET = false;             // pressures per load case from LOADCASEGENSET_TABLE
    int NLOADCASE = 0;                 // number of load cases
    int ILOADCASE = 0;                 // current load case, 1-based
    double POWER = 0.0;                // W, engine power of the load case
    double POWERPERCYL = 0.0;          // W, mean power per firing cylinder
    double SPEED = 0.0;                // rpm
    double TORQUE = 0.0;               // Nm
    Cylinders CYLPOWERA{};             // W, power of each cylinder of bank A
    Cylinders CYLPOWERB{};             // W, bank B
    double LOADPERCENTAGE = 0.0;       // load as a fraction of MCRTORQUE
    double PMAXRPM = 0.0;              // Pa, maximum pressure of the load case
    double PCHARGEAIRRPM = 0.0;        // Pa, charge-air pressure of the load case
    double PCOMPRPM = 0.0;             // Pa, compression pressure of the load case
    double MIPRPM = 0.0;               // Pa, mean indicated pressure of the load case
    double MEPRPM = 0.0;               // Pa, mean effective pressure of the load case
    DieselCoefficients MASSFC{};       // oscillating-mass coefficients of the load case, no unit
    std::array<DieselGasCoefficients, GLOBAL_DIESEL::MAXCYLINDER> GASFCPERCYLINDER{};
    int NCYLINDER = 0;                 // cylinders per bank
    CylinderInts CYLINDERS{};          // ID in MASS_TABLE of the inertia of each cylinder
    CylinderInts FIRINGSTATUSA{};      // firing status of each cylinder of bank A (1..5)
    CylinderInts FIRINGSTATUSB{};      // bank B
    Cylinders FIRINGPERCENTA{};        // percent of normal power of a partially firing cylinder, bank A
    Cylinders FIRINGPERCENTB{};        // percent, bank B
    CylinderInts FIRINGORDER{};        // firing order; not used by a run
    Cylinders FIRINGANGLEA{};          // rad, firing angle of each cylinder of bank A
    Cylinders FIRINGANGLEB{};          // rad, bank B
    double EXCITATIONPHASE = 0.0;      // rad
    double BORE = 0.0;                 // m
    double STROKE = 0.0;               // m
    double CONRODRATIO = 0.0;          // crank radius / connecting rod length
    double RECIPMASS = 0.0;            // kg, reciprocating mass
    double ME = 1.0;                   // mechanical efficiency
    bool ISTHEORETICALPRESURE = true;  // gas forces from the theoretical pressure curve, else harmonic files
    bool HASPARTIALFIRING = false;     // some cylinder has status 5
    std::string NORMALHARMONICFILE{};    // harmonic file of normal firing, at most 1000 characters
    std::string MISHARMONICFILE{};       // harmonic file of misfiring
    std::string SIDEFILEDIR{};           // folder of the model file, where relative file names start
    double PMAX = 0.0;                 // Pa, maximum pressure at MCR
    double PCOMP = 0.0;                // Pa, compression pressure at MCR
    double COMPEXP = 1.3899999856948853;  // polytropic exponent of compression (1.39 single)
    double EXPAEXP = 1.3300000429153442;  // polytropic exponent of expansion (1.33 single)
    double COMPRATIO = 0.0;            // compression ratio
    double PCHARGEAIR = 0.0;           // Pa, charge-air pressure at MCR
    double TCHARGEAIR = 0.0;           // charge-air temperature
    double TE = 0.0;                   // parameter of the theoretical pressure curve, fraction
    double FORMFACTOR = 1.0;           // form factor of the pressure curve
    double ANGLEIGNITION = 0.0;        // crank angles of the theoretical pressure curve
    double ANGLEENDOFCOMB = 0.0;
    double ANGLEEXHAUSTSTART = 0.0;
    double ANGLEINLETSTART = 0.0;
    double ANGLEINLETCLOSE = 0.0;

    // Harmonic tables of the measured files. Both files share HARMONICORDER (the file
    // read last stands). Table entry (order j, pressure k) is at harmonic_position(j, k, M).
    int NHARMONICORDER = 0;                      // orders in the normal-firing file
    int NHARMONICORDERMIS = 0;                   // orders in the misfiring file
    int NMEANINDICATEDPRESSURE = 0;              // pressures M in the normal-firing file
    int NMEANINDICATEDPRESSUREMIS = 0;           // pressures M in the misfiring file
    std::array<double, GLOBAL_DIESEL::MAXHARMONICORDER> HARMONICORDER{};
    std::vector<double> MEANINDICATEDPRESSURE{};     // Pa, at most 100
    std::vector<double> MEANINDICATEDPRESSUREMIS{};  // Pa, at most 100
    std::vector<double> NORMALCOSINE{};              // Pa, at most 2400 entries each
    std::vector<double> NORMALSINE{};
    std::vector<double> NORMALRESULTANT{};
    std::vector<double> NORMALPHASEANGLE{};          // rad
    std::vector<double> MISFIRINGCOSINE{};           // Pa
    std::vector<double> MISFIRINGSINE{};
    std::vector<double> MISFIRINGRESULTANT{};
    std::vector<double> MISFIRINGPHASEANGLE{};       // rad

    bool ISFORMULADAMPING = true;      // cylinder and crank-throw damping by formula
    double CYLABSDAMPING = 0.0;        // coefficient of cylinder damping
    double EXPCYLABSDAMPING = 0.0;     // its exponent
    double CRANKRELDAMPING = 0.0;      // coefficient of crank-throw damping
    double EXPCRANKRELDAMPING = 0.0;   // its exponent
};
using DieselTable = Table<DieselRecord>;

namespace GLOBAL_DIESEL {

// Rows of the table; 0 when it isn't allocated.
int GET_DIESEL_NUMBER(const DieselTable& table);
// First row with this ID; 0 when none.
int GET_DIESEL_IDIESEL(const DieselTable& table, int id);
// True when the table is allocated and some engine has ISFORMULADAMPING.
bool GET_DIESEL_CONTAINFORMULADAMPING(const DieselTable& table);

// Stores 0, 1 and 2 as given and any other value as 2.
void SET_DIESEL_VEEFIRINGTYPE(DieselTable& table, int i, int value);
// Texts: cut to 20 (name) or 1000 (file names) characters, trailing blanks dropped.
void SET_DIESEL_NAME(DieselTable& table, int i, const std::string& value);
void SET_DIESEL_NORMALHARMONICFILE(DieselTable& table, int i, const std::string& value);
void SET_DIESEL_MISHARMONICFILE(DieselTable& table, int i, const std::string& value);

// Status of cylinder `cylinder` (1-based) on bank A or B; 0 outside 1..20.
int cylinder_status(const DieselRecord& engine, int cylinder, bool isBankA);

// TORQUE = POWER / (pi * SPEED / 30). At zero speed the torque is set to 0.0.
void CALCULATE_DIESEL_TORQUE(DieselTable& table, int i);
// LOADPERCENTAGE = TORQUE / MCRTORQUE; 0.0 when MCRTORQUE is zero.
void CALCULATE_DIESEL_LOADPERCENTAGE(DieselTable& table, int i);

// Cylinders 1..NCYLINDER with status 1 or 5 on bank A, plus bank B on a V engine.
int GET_DIESEL_NFIRINGCYLINDER(const DieselTable& table, int i);
// Factor (n - s) / (n - c) by which a normally firing cylinder takes over the power that
// the c partially firing cylinders (sum of their fractions s) leave; 1.0 when n = c.
double GET_DIESEL_POWERCYLPERCENTINCREASED(const DieselTable& table, int i);

// Mean effective pressure at MCR, Pa, over the firing cylinders (firingOnly) or all
// cylinders of both banks. 0.0 when there is no cylinder to share the power.
double CALCULATE_DIESEL_MEPMCR(const DieselTable& table, int i, bool firingOnly);

// Pressures of the current load case for the whole engine (cylinder 0) or one cylinder of
// bank A or B. Expects ILOADCASE, SPEED, POWER, POWERPERCYL, TORQUE and LOADPERCENTAGE set.
// Writes PCHARGEAIRRPM, PCOMPRPM, PMAXRPM (theoretical pressure only), MEPRPM and MIPRPM.
void CALCULATE_DIESEL_LOADCASESETTING(DieselTable& table, int i,
                                      const LoadCaseGensetTable& gensetTable, int cylinder,
                                      bool isBankA);

// Formula damping of a cylinder (absolute) and of a crank throw (relative):
// coefficient * (order * SPEED)^exponent with SPEED in rpm. 0.0 for a row below 1,
// without ISFORMULADAMPING, and where the power has no finite value (zero order or speed
// with a negative exponent).
double CALCULATE_DIESEL_DAMPING_CYLINDER(const DieselTable& table, int i, double order);
double CALCULATE_DIESEL_DAMPING_CRANKTHROW(const DieselTable& table, int i, double order);

// Length of the engine order axis: 0 without engines, 24 when any engine is not a
// two-stroke, else 20.
int GET_DIESEL_NCYLFOURIERCOEFFICIENTS(const DieselTable& table);
// Replaces orders by the engine order axis: 1, 2, ..., 20 for 20 coefficients, otherwise
// the 24 half orders 0.5, 1.0, ..., 12.0.
void GET_DIESEL_HARMONICORDER(const DieselTable& table, std::vector<double>& orders);

}  // namespace GLOBAL_DIESEL
}  // namespace qm
