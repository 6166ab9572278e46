// Conversion of a real to an integer toward zero, as an integer assignment does, but
// defined for every input: NaN gives 0, values beyond the integer range its ends.
#pragma once

#include <climits>
#include <cmath>

namespace qm {

inline int truncate_to_int(double x) {
    if (std::isnan(x)) return 0;
    if (x >= static_cast<double>(INT_MAX)) return INT_MAX;
    if (x <= static_cast<double>(INT_MIN)) return INT_MIN;
    return static_cast<int>(x);
}

}  // namespace qm
