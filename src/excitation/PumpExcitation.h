// Excitation of the reciprocating pumps for one load case, in the two stages of the
// engines: the first stores, per cylinder and bank, the tangential pressure harmonics and
// the oscillating-mass harmonics in the pump's record; the second combines them, with the
// opposite bank and the second side of a double-acting cylinder, into the torque harmonics
// of one cylinder.
//
// A pump has no firing states and no pressure curve: the pressure comes from its harmonic
// file over speed percentage or, with ISSIMPLIFIEDPRESSURE, is replaced by torques per
// order (TORQUEAMP). NCOEF is 20 and harmonic k is order k of the pump's speed, on a
// 360-point cycle. Coefficients are half amplitudes, place k of a stored array harmonic k.
#pragma once

#include <complex>
#include <vector>

#include "components/GlobalReciprocatingPump.h"

namespace qm::GLOBAL_RECIPROCATINGPUMP {

// First stage for `cylinder` (1..NCYLINDER) on bank A or, with isBankA false, bank B.
// Expects SPEED, POWERPERCYL, SPEEDPERCENTAGE, TORQUE and LOADPERCENTAGE of the load case
// set. Writes MASSFC and, from the file, the cylinder's gas array of that bank; with
// simplified pressure the gas array gets zeros and the load case setting of the pump
// fills TORQUEAMP. All cylinders and banks get the same pressure harmonics.
void CALCULATE_RECIPROCATINGPUMP_FOURIERCOEFFICIENT(ReciprocatingPumpTable& table, int i,
                                                    int cylinder, bool isBankA);

// Second stage for cylinder j: result is allocated anew with NCOEF elements, element k - 1
// holding the torque harmonic k (N m). Bank B (ISOPPOSITE) is shifted by VANGLE, the other
// side of a double-acting cylinder by VANGLE times its count of shifts (2 when the pump
// also has bank B, in which case bank B enters the sum twice).
void CALCULATE_RECIPROCATINGPUMP_CYLFOURIERCOEFFICIENTS(const ReciprocatingPumpTable& table,
                                                        int i, int j,
                                                        std::vector<std::complex<double>>& result);

// Harmonics of the pump's file at speed percentage s (a fraction of MCRSPEED): amplitude
// and phase interpolated linearly, extrapolated beyond the ends. HARMONICDATA is allocated
// anew with count = NHARMONICORDER elements, as (0.5 a sin f, -0.5 a cos f) in single
// precision. A file of one speed percentage gives its values at any speed.
void GETRECIPROCATINGPUMPHARMONICDATA(const ReciprocatingPumpTable& table, int i, double s,
                                      int& count, std::vector<std::complex<double>>& HARMONICDATA);

}  // namespace qm::GLOBAL_RECIPROCATINGPUMP
