// Module GLOBAL_RECIPROCATINGPUMP: crank-driven reciprocating pumps. A pump excites the
// shaft line like an engine: each cylinder has a pressure part and an oscillating-mass
// part. The pressure part comes either from a short list of torque orders given as
// fractions of the load-case torque (simplified pressure) or from a harmonic file of
// tangential pressure components over speed percentage.
#pragma once

#include "base/Table.h"

#include <array>
#include <complex>
#include <string>
#include <vector>

namespace qm {

// Tangential pressure coefficients of one cylinder, per bank, place k for harmonic k.
struct ReciprocatingPumpGasFc {
    std::array<std::complex<double>, 24> NORMALGASFCBANKA{};  // Pa, bank A
    std::array<std::complex<double>, 24> NORMALGASFCBANKB{};  // Pa, bank B
};

struct ReciprocatingPumpRecord {
    int ID = 0;                                     // identification number
    std::string NAME;                               // pump name, up to 20 characters
    double RPMRATIO = 1.0;                          // pump speed relative to the reference speed
    double MCRPOWER = 0.0;                          // W, rating
    double MCRSPEED = 0.0;                          // rpm, rating
    double MCRTORQUE = 0.0;                         // Nm, rating
    bool ISDOUBLEACTING = false;                    // every cylinder works on both sides
    bool ISOPPOSITE = false;                        // cylinders on banks A and B
    double VANGLE = 0.0;                            // degrees between the banks (the reader sets 180)
    int NLOADCASE = 0;                              // number of load cases
    int ILOADCASE = 0;                              // current load case
    double POWER = 0.0;                             // W, operating point of the load case
    double POWERPERCYL = 0.0;                       // W per cylinder and bank
    double SPEED = 0.0;                             // rpm
    double SPEEDPERCENTAGE = 0.0;                   // SPEED / MCRSPEED, a fraction
    double TORQUE = 0.0;                            // Nm
    double LOADPERCENTAGE = 0.0;                    // TORQUE / MCRTORQUE, a fraction
    std::array<double, 20> CYLPOWERA{};             // W per cylinder, bank A
    std::array<double, 20> CYLPOWERB{};             // W per cylinder, bank B
    double MIPRPM = 0.0;                            // Pa, mean indicated pressure of the load case
    std::array<std::complex<double>, 24> MASSFC{};  // oscillating-mass coefficient of harmonic k
    std::array<ReciprocatingPumpGasFc, 20> GASFCPERCYLINDER{};  // pressure coefficients per cylinder
    int NCYLINDER = 0;                                          // cylinders per bank
    std::array<int, 20> CYLINDERS{};                            // ID of each cylinder's inertia in MASS_TABLE
    std::array<int, 20> DISCHARGEORDER{};                       // discharge order (kept from the input model)
    std::array<double, 20> DISCHARGEANGLEA{};                   // rad, discharge angle per cylinder, bank A
    std::array<double, 20> DISCHARGEANGLEB{};                   // rad, discharge angle per cylinder, bank B
    double EXCITATIONPHASE = 0.0;                               // rad, phase of the whole pump's excitation
    double BORE = 0.0;                                          // m
    double STROKELENGTH = 0.0;                                  // m
    double CONRODRATIO = 0.0;                                   // crank radius over connecting rod length
    double RECIPMASS = 0.0;                                     // kg, reciprocating mass per cylinder
    bool ISSIMPLIFIEDPRESSURE = true;                           // excitation by orders and fractions, no file
    int RECIPROCATINGPUMPORDERNUMBER = 0;                       // orders in use, up to 4
    std::array<double, 4> RECIPROCATINGPUMPORDER{};             // the four orders
    std::array<double, 4> RECIPROCATINGPUMPTORQUEPERCENT{};     // torque of each order, fraction of TORQUE
    std::array<double, 4> RECIPROCATINGPUMPTORQUEAMP{};         // Nm, torque amplitude of each order
    std::array<double, 24> SIMPLIFIEDORDER{};                   // order k stored at place k
    std::array<std::complex<double>, 24> TORQUEAMP{};           // Nm, complex torque of order k at place k
    std::string PUMPHARMONICFILE;                               // harmonic file, empty when none
    std::string SIDEFILEDIR;                                    // folder where a relative file name starts
    int NHARMONICORDER = 0;                                     // orders in the file, up to 24
    int NSPEEDPERCENTAGE = 0;                                   // speed percentages in the file, up to 100
    std::array<double, 24> HARMONICORDER{};                     // order column of the file
    std::array<double, 100> SPEEDPERCENTAGES{};  // speed axis of the tables, fractions of MCRSPEED
    // Tables of the harmonic file, order j and speed percentage k at place
    // (j - 1) * NSPEEDPERCENTAGE + k; sized by the loader, at most 2400 places.
    std::vector<double> NORMALCOSINE;      // Pa
    std::vector<double> NORMALSINE;        // Pa
    std::vector<double> NORMALRESULTANT;   // Pa
    std::vector<double> NORMALPHASEANGLE;  // rad
};
using ReciprocatingPumpTable = Table<ReciprocatingPumpRecord>;

namespace GLOBAL_RECIPROCATINGPUMP {

constexpr int NAMELENGTH = 20;           // characters of a pump name
constexpr int MAXCYLINDER = 20;          // cylinders per bank
constexpr int MAXHARMONICORDER = 24;     // orders of a harmonic file, places of SIMPLIFIEDORDER
constexpr int MAXSPEEDPERCENTAGE = 100;  // speed percentages of a harmonic file

int GET_RECIPROCATINGPUMP_NUMBER(const ReciprocatingPumpTable& table);
// First row with this ID; 0 when none or when the table is unallocated.
int GET_RECIPROCATINGPUMP_IRECIPROCATINGPUMP(const ReciprocatingPumpTable& table, int id);

// The four orders, and the four torque fractions, set together as the input line gives
// them. A row outside the table is left alone.
void SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDER(ReciprocatingPumpTable& table, int i, double o1, double o2,
                                                  double o3, double o4);
void SET_RECIPROCATINGPUMP_RECIPROCATINGPUMPTORQUEPERCENT(ReciprocatingPumpTable& table, int i, double p1,
                                                          double p2, double p3, double p4);

// Order k (1 to 4) as a whole number, truncated toward zero (1.5 reads as 1). An order
// that doesn't compare reads as 0, one beyond the integer range as the nearest integer
// limit. A row or k outside the table gives 0.
int reciprocatingpump_order(const ReciprocatingPumpTable& table, int i, int k);
int GET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDERONE(const ReciprocatingPumpTable& table, int i);
int GET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDERTWO(const ReciprocatingPumpTable& table, int i);
int GET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDERTHREE(const ReciprocatingPumpTable& table, int i);
int GET_RECIPROCATINGPUMP_RECIPROCATINGPUMPORDERFOUR(const ReciprocatingPumpTable& table, int i);

// SPEEDPERCENTAGE := SPEED / MCRSPEED; 0.0 for a pump without rated speed.
void CALCULATE_RECIPROCATINGPUMP_SPEEDPERCENTAGE(ReciprocatingPumpTable& table, int i);
// TORQUE := POWER / (pi * SPEED / 30); 0.0 at standstill, where power gives no torque.
void CALCULATE_RECIPROCATINGPUMP_TORQUE(ReciprocatingPumpTable& table, int i);
// LOADPERCENTAGE := TORQUE / MCRTORQUE; 0.0 for a pump without rated torque.
void CALCULATE_RECIPROCATINGPUMP_LOADPERCENTAGE(ReciprocatingPumpTable& table, int i);

// Mean pressure at rating, Pa: the rated power per working cylinder side over the swept
// volume per second. Cylinders count twice with opposite banks and twice again when
// double-acting. 0.0 for a pump without cylinders, rated speed, bore or stroke, and for
// a row outside the table.
double CALCULATE_RECIPROCATINGPUMP_MEPMCR(const ReciprocatingPumpTable& table, int i);

// Load case setting, after SPEEDPERCENTAGE, TORQUE and LOADPERCENTAGE (in that order):
// MIPRPM from the power per cylinder (0.0 at standstill or without swept volume); with
// simplified pressure the amplitude of each order and, for each order in use with a
// whole-number part from 1 to 24, its place in SIMPLIFIEDORDER and TORQUEAMP. The
// complex torque is -0.5 * TORQUE * fraction in the imaginary part, rounded to single
// precision. An order whose whole-number part is above 24 has no place and is passed
// over; places no order names keep their values.
void CALCULATE_RECIPROCATINGPUMP_LOADCASESETTING(ReciprocatingPumpTable& table, int i);

// Length of the pump's order axis: 20 when the table has rows, else 0.
int GET_RECIPROCATINGPUMP_NCYLFOURIERCOEFFICIENTS(const ReciprocatingPumpTable& table);
// Replaces orders by the order axis 1.0, 2.0, ... up to the length above. The row is
// not read: every pump has the same axis.
void GET_RECIPROCATINGPUMP_HARMONICORDER(const ReciprocatingPumpTable& table, int i, Table<double>& orders);

}  // namespace GLOBAL_RECIPROCATINGPUMP
}  // namespace qm
