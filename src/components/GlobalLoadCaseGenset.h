// Module GLOBAL_LOADCASEGENSET: measured cylinder pressures of engines running as
// generator sets, one row per engine and load case.
//
// The rows stand in the order of "Genset.txt": the rows of one engine together and in
// load-case order, so load case k of an engine is found k - 1 rows below the engine's
// first row. That order is trusted; the lookup does not check that the row it lands on
// still belongs to the same engine. Allocation and freeing are the table's allocate(n)
// and deallocate() (ALLOCATE_/DEALLOCATE_LOADCASEGENSET_TABLE).
#pragma once

#include "base/Table.h"

namespace qm {

struct LoadCaseGensetRecord {
    int DIESELID = 0;            // ID of the engine in DIESEL_TABLE
    double PRESSUREMAX = 0.0;    // Pa, maximum cylinder pressure of the load case
    double PRESSURECOMP = 0.0;   // Pa, compression pressure of the load case
    double PRESSUREINLET = 0.0;  // Pa, inlet pressure; not filled from input and not read in a run
};
using LoadCaseGensetTable = Table<LoadCaseGensetRecord>;

namespace GLOBAL_LOADCASEGENSET {

// Rows of the table; 0 when it isn't allocated.
int GET_LOADCASEGENSET_NUMBER(const LoadCaseGensetTable& table);

// Pressures of load case loadCase (1-based) of the engine with ID dieselId. 0.0 when the
// engine has no row, and also when the offset from its first row falls outside the table
// (a load case below 1 or past the last row).
double GET_LOADCASEGENSET_PRESSUREMAX(const LoadCaseGensetTable& table, int dieselId, int loadCase);
double GET_LOADCASEGENSET_PRESSURECOMP(const LoadCaseGensetTable& table, int dieselId, int loadCase);

}  // namespace GLOBAL_LOADCASEGENSET
}  // namespace qm
