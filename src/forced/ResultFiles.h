// The direct-access files of the forced calculation: their 63 names, the order in which the
// sweep opens them, which of them exist in a run, and the record number of every value.
//
// Every file holds one 64-bit little-endian real per record, record r at byte 8*(r-1), no
// header. Record numbers are signed 32-bit integers, as the files define them; the functions
// below are pure, so a program that reads the files computes its positions with the same code
// the writer uses.
//
// Families:
//   1  one source kind, all orders, four fields per value (amplitude, angle, real, imaginary):
//      r = ((lc-1)*NUNIT*NE*NORDER + i - 1)*4 + c,  i = (u-1)*NE*NORDER + (o-1)*NE + e
//   2  one value per element and load case:  r = (lc-1)*NE + e
//   3  a synthesized curve of 360 angle steps:  r = ((lc-1)*NE + e - 1)*360 + a
//   4  one value per shaft, written once:  r = e
// lc load case, u unit (row of the kind's table), o place on the order axis, e row of
// MASS_TABLE or SHAFT_TABLE, c field 1..4, a angle step 1..360; all 1-based.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "forced/KindResults.h"

namespace qm::FORCEDVIBRATION {

// The 63 files, numbered in the order the sweep opens them (the ones that exist in a run
// are opened in this order; the others are skipped).
enum ResultFile : int {
    // always
    DIESEL_DEFLECTION, DIESEL_VELOCITY, DIESEL_ACCELE, DIESEL_TORQUE, DIESEL_STRESS,
    PROPELLER_DEFLECTION, PROPELLER_VELOCITY, PROPELLER_ACCELE, PROPELLER_TORQUE, PROPELLER_STRESS,
    SYNTHESIS_DEFLECTION, SYNTHESIS_VELOCITY, SYNTHESIS_ACCELERATION, SYNTHESIS_TORQUE, SYNTHESIS_STRESS,
    SHAFT_POWER_LOSS, NOMINAL_TORQUE, NOMINAL_STRESS,
    GENERATOR_DEFLECTION, GENERATOR_VELOCITY, GENERATOR_ACCELE, GENERATOR_TORQUE, GENERATOR_STRESS,
    ELECTRICMOTOR_DEFLECTION, ELECTRICMOTOR_VELOCITY, ELECTRICMOTOR_ACCELE, ELECTRICMOTOR_TORQUE,
    ELECTRICMOTOR_STRESS,
    CENTRIFUGALPUMP_DEFLECTION, CENTRIFUGALPUMP_VELOCITY, CENTRIFUGALPUMP_ACCELE, CENTRIFUGALPUMP_TORQUE,
    CENTRIFUGALPUMP_STRESS,
    RECIPROCATINGPUMP_DEFLECTION, RECIPROCATINGPUMP_VELOCITY, RECIPROCATINGPUMP_ACCELE,
    RECIPROCATINGPUMP_TORQUE, RECIPROCATINGPUMP_STRESS,
    // with OUTPUTANGLEBASEDRESULTS and HASDIESEL
    ANGULARDEF_DIESEL, ANGULARDEF_PROPELLER, ANGULARVEL_DIESEL, ANGULARVEL_PROPELLER,
    ANGULARACCE_DIESEL, ANGULARACCE_PROPELLER, TORQUEANGLE_DIESEL, TORQUEANGLE_PROPELLER,
    STRESSANGLE_DIESEL, STRESSANGLE_PROPELLER,
    // with ISPROPELLERICE (the damping torque one also needs HASDAMPERORCOUPLING)
    SYNPROPICE_DEFLECTION, SYNPROPICE_VELOCITY, SYNPROPICE_ACCELE, SYNPROPICE_TORQUE, SYNPROPICE_STRESS,
    PROPELLER_SHAFT_MARKS, SYNPROPICE_DAMPINGTORQUE,
    // with HASDAMPERORCOUPLING
    DIESEL_DAMPINGTORQUE, PROPELLER_DAMPINGTORQUE, GENERATOR_DAMPINGTORQUE, CENTRIFUGALPUMP_DAMPINGTORQUE,
    RECIPROCATINGPUMP_DAMPINGTORQUE, ELECTRICMOTOR_DAMPINGTORQUE,
    SYNTHESIS_DAMPINGTORQUE, RESULTANT_TORQUE,
};
constexpr int NRESULTFILE = 63;

// The quantities of family 1, one file per source kind each.
enum Quantity : int { DEFLECTION, VELOCITY, ACCELE, TORQUE, STRESS, DAMPINGTORQUE };
constexpr int NQUANTITY = 6;

enum Family : int { PER_ORDER = 1, PER_ELEMENT = 2, CURVE = 3, ONCE = 4 };

// Name of the file in the result directory ("DieselDeflection.bin", ...).
const char* result_file_name(ResultFile f);
Family result_file_family(ResultFile f);
// True when the values of the file are per mass row (NE = NMASS), false per shaft row.
bool on_masses(ResultFile f);
// The family-1 file of a kind and quantity.
ResultFile per_order_file(SourceKind kind, Quantity q);
// Kind of a family-1 file.
SourceKind per_order_kind(ResultFile f);

// Switches, fixed for a sweep, that decide which files exist.
struct ResultFlags {
    bool HASDIESEL = false;
    bool HASDAMPERORCOUPLING = false;
    bool ISPROPELLERICE = false;
    bool OUTPUTANGLEBASEDRESULTS = false;
};

bool result_file_exists(ResultFile f, const ResultFlags& flags);
// The files of a run, in the order they are opened.
std::vector<ResultFile> result_files_opened(const ResultFlags& flags);

// Dimensions of a sweep.
struct ResultDims {
    int NMASS = 0;
    int NSHAFT = 0;
    int NLOADCASE = 0;
    std::array<int, NKIND> NUNIT{};
    std::array<int, NKIND> NORDER{};
};

// Record numbers, signed 32-bit with the wrap-around of 32-bit arithmetic. A model large
// enough to wrap is refused before the sweep (see fits_32bit_records).
std::int32_t per_order_index(int u, int o, int e, int NE, int NORDER);  // i, 1-based
std::int32_t per_order_record(int lc, int u, int o, int e, int c, int NUNIT, int NE, int NORDER);
std::int32_t per_element_record(int lc, int e, int NE);
std::int32_t curve_record(int lc, int e, int a, int NE);
constexpr int CURVE_STEPS = 360;
std::int32_t once_record(int e);

// Number of records of a file after a whole sweep (its length is 8 times this); 0 for a
// kind without units. Computed in 64 bits.
std::int64_t result_file_records(ResultFile f, const ResultDims& d);
// True when the last record of every file fits a signed 32-bit record number.
bool fits_32bit_records(const ResultDims& d);

}  // namespace qm::FORCEDVIBRATION
