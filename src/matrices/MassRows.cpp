#include "matrices/MassRows.h"

#include <algorithm>

#include "base/ComponentCodes.h"
#include "components/GlobalMass.h"

namespace qm {

MassRows::MassRows(const MassTable& MASS_TABLE) {
    const int n = GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE);
    by_id.reserve(static_cast<std::size_t>(n));
    free_dofs.assign(static_cast<std::size_t>(n) + 1, 0);
    int count = 0;
    for (int r = 1; r <= n; ++r) {
        by_id.emplace_back(MASS_TABLE(r).ID, r);
        if (MASS_TABLE(r).MASSTYPE != CODES::MASSTYPE_VISCOUSDAMPERRING) ++count;
        free_dofs[static_cast<std::size_t>(r)] = count;
    }
    // Rows enter in ascending order, so a stable sort keeps the first row of a repeated ID first.
    std::stable_sort(by_id.begin(), by_id.end(),
                     [](const std::pair<int, int>& a, const std::pair<int, int>& b) { return a.first < b.first; });
}

int MassRows::row(int id) const {
    const auto it = std::lower_bound(by_id.begin(), by_id.end(), id,
                                     [](const std::pair<int, int>& e, int key) { return e.first < key; });
    return it != by_id.end() && it->first == id ? it->second : 0;
}

}  // namespace qm
