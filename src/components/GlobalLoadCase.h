// Module GLOBAL_LOADCASE: the components that carry a load-case column.
//
// The load case section of the input gives every such component a power for each load
// case; the row order of LOADCASE_TABLE is the column order of that power table. The
// table is allocated with LoadCaseTable::allocate(n) (ALLOCATE_LOADCASE_TABLE: rows 1..n
// at their defaults, n <= 0 an empty allocated table) and freed with deallocate()
// (DEALLOCATE_LOADCASE_TABLE).
#pragma once

#include "base/ComponentCodes.h"
#include "base/Table.h"

namespace qm {

struct LoadCaseRecord {
    int COMPONENTTYPE = CODES::COMPONENT_UNUSED;  // kind of the component (CODES::COMPONENT_*); 0 marks a row not in use
    int COMPONENTID = 0;    // the component's ID in its own table, not a row number
};
using LoadCaseTable = Table<LoadCaseRecord>;

namespace GLOBAL_LOADCASE {

// Rows of the table; 0 when it isn't allocated.
int GET_LOADCASE_NCOMPONENT(const LoadCaseTable& table);

// First row, in ascending order, whose type and ID both match; 0 when none does.
int GET_LOADCASE_ICOMPONENT(const LoadCaseTable& table, int type, int id);

// Rows in use, those with a COMPONENTTYPE other than 0. While the table is being filled
// this is the next free row minus one, unlike GET_LOADCASE_NCOMPONENT.
int GET_LOADCASE_COMPONENTNUMBER(const LoadCaseTable& table);

}  // namespace GLOBAL_LOADCASE
}  // namespace qm
