// Rows of MASS_TABLE by inertia ID and the free-mode degree of freedom of each row, worked
// out once per table so that assembly and the relative results find a shaft's ends in
// logarithmic time instead of walking the table for every shaft and mode.
#pragma once

#include <utility>
#include <vector>

#include "components/ModelTables.h"

namespace qm {

struct MassRows {
    std::vector<std::pair<int, int>> by_id;  // (ID, row), sorted by ID, rows ascending within an ID
    std::vector<int> free_dofs;              // [row]: rows other than damper rings up to and including it

    explicit MassRows(const MassTable& MASS_TABLE);

    // First row with this ID, 0 when there is none (as GET_MASS_IMASS).
    int row(int id) const;
    // Free degree of freedom of row r, counting rows other than damper rings up to it; 0 for
    // row 0 (as GET_MASS_NNOTVISCOUSDAMPERRINGMASS).
    int free_dof(int r) const { return free_dofs[static_cast<std::size_t>(r)]; }
    // Free degree of freedom of the inertia with this ID (as GET_MASS_NNOTVISCOUSDAMPERRINGSHAFT).
    int free_dof_of_id(int id) const { return free_dof(row(id)); }
};

}  // namespace qm
