// Ice excitation of a propeller for one load case: the two ice tables over speed ratio and
// harmonic (cosine and sine parts, as the excitation file gives them) reduced to one set of
// complex coefficients at the speed of the load case.
#pragma once

#include "components/GlobalPropeller.h"

namespace qm::GLOBAL_PROPELLER {

// At r = SPEED / MCRSPEED, for each row k = 1..n (n = GET_PROPELLER_NICEFOURIERORDERS) the
// table values are taken on the straight line through the columns bracketing r; above the
// last column the line through the last two goes on (extrapolation, not a hold). At or
// below the first column the values stay at the first column's, or, with
// ISTMAXCORRECTEDWITHACTUALSPEED, fall on a line to zero at speed ratio 0.
// Row 1 gives ICEFOURIERMEAN (the cosine value, Nm, as it stands); row k > 1 gives
// ICEFOURIERCOEFFICIENT(k - 1) = (0.5 cosine, 0.5 sine), each part rounded to single
// precision. Entries from n on are left alone. Where two columns on the line have the same
// ratio (a file axis that doesn't rise), the upper column's values stand.
void CALCULATE_PROPELLER_FOURIERCOEFFICIENT(PropellerTable& table, int i);

}  // namespace qm::GLOBAL_PROPELLER
