// Module GLOBAL_LOADCASE: the components that carry a load-case column.
//
// The load case section of the input gives every such component a power for each load
// case; the row order of LOADCASE_TABLE is the column order of that power table. The
// table is allocated with LoadCaseTable::allocate(n) (ALLOCATE_LOADCASE_TABLE: rows 1..n
// at their defaults, n <= 0 an empty allocated table) and freed with deallocate()
// (DEALLOCATE_LOADCASE_TABLE).
#pragma once

#include "base/Table.h"

namespace qm {

// Component kind codes shared by COMPONENTTYPE, MASSTYPE and SHAFTTYPE.
namespace COMPONENTCODE {
constexpr int DIESEL = 15;
constexpr int PROPELLER = 16;
constexpr int ELECTRICMOTOR = 17;
constexpr int GENERATOR = 18;
constexpr int GASTURBINE = 19;
constexpr int STEAMTURBINE = 20;
constexpr int VISCOUSDAMPER = 21;
constexpr int STEELSPRINGDAMPER = 22;
constexpr int RUBBERDAMPER = 23;
constexpr int LINEARCOUPLING = 24;
constexpr int PROGRESSIVECOUPLING = 25;
constexpr int GEISLINGERCOUPLING = 26;
constexpr int CENTRIFUGALPUMP = 28;
constexpr int RECIPROCATINGPUMP = 30;

// True for the codes of components that can carry a load-case column: 15 to 30 without
// 27 and 29. A dispatch on the code passes over anything else.
constexpr bool is_loadcase_component(int code) {
    return code >= DIESEL && code <= RECIPROCATINGPUMP && code != 27 && code != 29;
}
}  // namespace COMPONENTCODE

struct LoadCaseRecord {
    int COMPONENTTYPE = 0;  // kind of the component (COMPONENTCODE); 0 marks a row not in use
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
