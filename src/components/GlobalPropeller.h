// Module GLOBAL_PROPELLER: the propellers of the shaft line, one record per propeller.
//
// A propeller is an inertia (in air plus entrained water) with a speed-dependent
// hydrodynamic damping, and a source of blade-order and ice excitation. Units are SI:
// W, rpm, Nm, m, kg m^2; KNUCKLEPOINT stays in percent of MCRSPEED.
//
// The ice tables have S = NSPEEDRATIO columns and n = GET_PROPELLER_NICEFOURIERORDERS
// rows; row k, column j (both 1-based) sits at ice_position(k, j, S). The entrained water
// table is empty until its file is loaded and then holds one entry per load case.
#pragma once

#include <array>
#include <complex>
#include <cstddef>
#include <string>
#include <vector>

#include "base/Table.h"

namespace qm {

namespace GLOBAL_PROPELLER {
constexpr int MAXSPEEDRATIO = 10;     // columns of the ice tables
constexpr int MAXICEORDER = 48;       // rows of the ice tables
constexpr int MAXICETABLE = 480;      // entries of an ice table
constexpr int MAXLOADCASE = 10000;    // entries of the entrained water table

// Damping models, by DAMPINGMETHOD.
constexpr int SCHWANEKE = 1;
constexpr int ARCHER = 2;
constexpr int FRAHM = 3;
constexpr int MANUAL = 4;
constexpr int VARIABLE = 5;

// Zero-based place of row k, column j of an ice table of s columns.
constexpr std::size_t ice_position(int k, int j, int s) {
    return static_cast<std::size_t>((k - 1) * s + j - 1);
}

// What a load case without entrained water inertia of its own reports; its caller writes
// it to the log of the run.
constexpr const char* ENTRAINEDWATERERROR =
    "Error occurs when setting variable propeller entrained water inertia at Propeller!";
}  // namespace GLOBAL_PROPELLER

struct PropellerRecord {
    int ID = 0;                           // identification number
    int PROPELLERNODE = 0;                // ID of the propeller's inertia in MASS_TABLE
    double RPMRATIO = 1.0;                // propeller speed / reference speed
    double MCRPOWER = 0.0;                // W, maximum continuous rating
    double MCRSPEED = 0.0;                // rpm
    double MCRTORQUE = 0.0;               // Nm
    double POWER = 0.0;                   // W, operating point of the load case
    double SPEED = 0.0;                   // rpm
    double TORQUE = 0.0;                  // Nm
    double BLADEFREQUENCY = 0.0;          // blade passes per minute, SPEED * NBLADE
    double DAMPING = 0.0;                 // Nms/rad, damping of the load case
    double TORQUEAMP1 = 0.0;              // Nm, excitation torque of the first blade order
    double TORQUEAMP2 = 0.0;              // Nm, second blade order
    int NBLADE = 0;                       // number of blades
    double DB = 0.0;                      // m, boss diameter
    double DI = 0.0;                      // m, propeller diameter
    double PITCHRATIO = 0.0;              // pitch / diameter
    double EXPAREARATIO = 0.0;            // expanded blade area ratio
    double INERTIAAIR = 0.0;              // kg m^2, inertia in air
    double INERTIAWATER = 0.0;            // kg m^2, nominal entrained water
    double INERTIATOTAL = 0.0;            // kg m^2, inertia in use
    int DAMPINGMETHOD = 0;                // damping model, SCHWANEKE .. VARIABLE
    double ARCHERNUMBER = 0.0;            // Archer's coefficient
    double FRAHMNUMBER = 0.0;             // Frahm's coefficient
    double KNUCKLEPOINT = 0.0;            // knuckle speed, percent of MCRSPEED
    bool ISDUCTED = false;                // propeller in a duct
    bool ISFIXEDPITCH = true;             // fixed pitch, else controllable
    double PITCHPERCENT = 1.0;            // pitch setting of a controllable propeller, fraction
    double DYNMAGNIFIER = 0.0;            // dynamic magnifier; written by the variable model
    double DYNMAGNIFIERFORKNUCKLEPOINT = 0.0;  // dynamic magnifier at and above the knuckle
    double ABSDAMPING = 0.0;              // Nms/rad, result of the damping model
    double TORQUEPERCENT1 = 0.0;          // excitation torque of blade order 1, fraction of TORQUE
    double TORQUEPERCENT2 = 0.0;          // blade order 2
    double EXCITATIONPHASE = 0.0;         // rad
    bool CONSIDERPHASEANGLE = false;      // phase angles are taken into account
    bool HASICEEXCITATION = false;        // ice excitation is on
    bool ISTMAXCORRECTEDWITHACTUALSPEED = false;  // ice torque corrected with the actual speed
    std::string EXCITATIONFILE{};           // ice excitation file, at most 1000 characters
    std::array<double, GLOBAL_PROPELLER::MAXSPEEDRATIO> SPEEDRATIO{};     // speed ratio axis
    int NSPEEDRATIO = 0;                  // 2, or 10 with ISTMAXCORRECTEDWITHACTUALSPEED
    std::array<double, GLOBAL_PROPELLER::MAXICEORDER> ICEHARMONICORDER{};  // order of each row
    std::array<double, GLOBAL_PROPELLER::MAXICETABLE> ICECOSINE{};         // ice table, cosine
    std::array<double, GLOBAL_PROPELLER::MAXICETABLE> ICESINE{};           // ice table, sine
    std::array<std::complex<double>, GLOBAL_PROPELLER::MAXICETABLE> ICEFOURIERCOEFFICIENT{};
    double ICEFOURIERMEAN = 0.0;          // constant term of the ice excitation at the current speed
    bool ISVARIABLEENTRAINEDWATER = false;  // entrained water differs by load case
    std::string VARIABLEENTRAINEDWATERFILE{};  // at most 1000 characters
    std::string SIDEFILEDIR{};            // folder of the model file, where relative file names start
    std::vector<double> VARIABLEENTRAINEDWATERTABLE{};  // kg m^2 per load case, at most 10000
    int NLOADCASE = 0;                    // number of load cases
};
using PropellerTable = Table<PropellerRecord>;

namespace GLOBAL_PROPELLER {

// Rows of the table; 0 when it isn't allocated.
int GET_PROPELLER_NUMBER(const PropellerTable& table);
// First row with this ID; 0 when none.
int GET_PROPELLER_IPROPELLER(const PropellerTable& table, int id);

// Texts: cut to 1000 characters, trailing blanks dropped.
void SET_PROPELLER_EXCITATIONFILE(PropellerTable& table, int i, const std::string& value);
void SET_PROPELLER_VARIABLEENTRAINEDWATERFILE(PropellerTable& table, int i, const std::string& value);

// Rows of the ice tables: 4 * NBLADE + 1 (the constant term and four harmonics per blade).
int GET_PROPELLER_NICEFOURIERORDERS(const PropellerTable& table, int i);
// Ice harmonics of the first propeller in row order with ice excitation; 0 if there is none.
int GET_PROPELLERICEHARMONICORDERNUMBER(const PropellerTable& table);
// Whether the propeller excitation is applied with its phase: false without propellers or
// with ice harmonics anywhere, else true when any propeller asks for it.
bool GET_PROPELLER_ISMODELCONSIDERPHASEANGLE(const PropellerTable& table);

// SPEED / MCRSPEED; 0.0 for a zero MCRSPEED.
double CALCULATE_SPEEDRATIO(const PropellerTable& table, int i);

// Sets INERTIATOTAL = INERTIAAIR + water. The free vibration always takes the nominal
// INERTIAWATER; the forced one that of the load case when the water is variable. What the
// water lookup reports goes to `messages` (see below).
void CALCULATE_PROPELLER_INERTIATOTAL(bool isFreeVibration, PropellerTable& table, int i,
                                      int loadCase, std::vector<std::string>* messages = nullptr);
// Entrained water of load case loadCase (1-based). Without an entry of its own (loadCase
// above NLOADCASE, below 1, or beyond the table read) the nominal INERTIAWATER stands in
// and ENTRAINEDWATERERROR is added to `messages`, which the caller writes to the log at
// once, in order. Model operations do no file I/O.
double CALCULATE_PROPELLER_CURRENTINERTIAWATER(const PropellerTable& table, int i, int loadCase,
                                               std::vector<std::string>* messages = nullptr);

// The five damping models, Nms/rad, at the SPEED of the record. Each gives 0.0 where its
// formula has no finite value: zero speed (Archer), zero MCRSPEED (Frahm), zero dynamic
// magnifier (manual, variable), a damping ratio of zero at standstill (variable).
// Schwanecke with a zero boss diameter takes the limit arctan(inf) * 0.125 of its blade
// integral, and with a boss at least as large as the propeller the integral 0.
double CALCULATE_PROPELLER_SCHWANECHEDAMPING(const PropellerTable& table, int i);
double CALCULATE_PROPELLER_ARCHERDAMPING(const PropellerTable& table, int i);
double CALCULATE_PROPELLER_FRAHMDAMPING(const PropellerTable& table, int i);
double CALCULATE_PROPELLER_MANUALDAMPING(const PropellerTable& table, int i);
// Also stores the dynamic magnifier of the speed in DYNMAGNIFIER (0.0 where the damping
// ratio vanishes); leaves it alone when DYNMAGNIFIERFORKNUCKLEPOINT is 0.
double CALCULATE_PROPELLER_VARIABLEDAMPING(PropellerTable& table, int i);

// ABSDAMPING = the model of DAMPINGMETHOD; 0.0 for a method outside 1 to 5.
void CALCULATE_PROPELLER_ABSDAMPING(PropellerTable& table, int i);
// With POWER, SPEED and TORQUE set: damping, BLADEFREQUENCY, DAMPING, TORQUEAMP1 and 2.
void CALCULATE_PROPELLER_LOADCASESETTING(PropellerTable& table, int i);

}  // namespace GLOBAL_PROPELLER
}  // namespace qm
