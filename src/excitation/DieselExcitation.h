// Excitation of the diesel engines for one load case, in two stages.
//
// The first stage, per cylinder and bank, stores the Fourier coefficients of the gas
// pressure (normal firing and misfiring) and of the oscillating mass in the engine's
// record. The pressure comes either from the theoretical cylinder pressure curve or from
// the measured harmonic files. The second stage combines, for one cylinder, the banks and
// the firing state into the complex torque harmonics of its crank throw.
//
// NCOEF is GET_DIESEL_NCYLFOURIERCOEFFICIENTS of the table: 20 when every engine is a
// two-stroke (curves of 360 points, harmonic k is order k), else 24 (curves of 720 points,
// harmonic k is order k/2; a two-stroke curve is repeated over the 720 points, so its odd
// harmonics vanish). Coefficients are half amplitudes; place k of a stored array holds
// harmonic k, the mean is not stored.
//
// Work curves are local to each call, so several runs may use these at the same time.
#pragma once

#include <complex>
#include <vector>

#include "components/GlobalDiesel.h"
#include "components/GlobalLoadCaseGenset.h"

namespace qm::GLOBAL_DIESEL {

// First stage for `cylinder` (1..NCYLINDER; 0 for the engine as a whole, which fills
// MASSFC only) on bank A or, with isBankA false, bank B. Expects ILOADCASE, SPEED, POWER,
// POWERPERCYL, TORQUE and LOADPERCENTAGE of the load case set. Writes MASSFC and the four
// gas arrays of the cylinder on that bank, places 1..NCOEF; on the theoretical path also
// the load case pressures of CALCULATE_DIESEL_LOADCASESETTING.
void CALCULATE_DIESEL_FOURIERCOEFFICIENT(DieselTable& table, int i,
                                         const LoadCaseGensetTable& LOADCASEGENSET_TABLE,
                                         int cylinder, bool isBankA);

// Second stage for cylinder j: result is allocated anew with NCOEF elements, element k - 1
// holding the torque harmonic k (N m) of the crank throw, with bank B (V engine) shifted
// by the V angle (mass) and by the difference of the firing angles (gas).
void CALCULATE_DIESEL_CYLFOURIERCOEFFICIENTS(const DieselTable& table, int i, int j,
                                             std::vector<std::complex<double>>& result);

// Harmonics of the normal-firing (misfiring) harmonic file at the mean indicated pressure
// mip, Pa: amplitude and phase interpolated linearly between the two bracketing pressures,
// extrapolated beyond the first and last. HARMONICDATA is allocated anew with `count` =
// NHARMONICORDER (NHARMONICORDERMIS) elements, element k - 1 for the file's order k, as
// (0.5 a sin f, -0.5 a cos f) with each part rounded to single precision. A table of a
// single pressure, or two equal neighbouring pressures, gives the values of the lower one.
void GETNORMALFIRINGHARMONICDATA(const DieselTable& table, int i, double mip, int& count,
                                 std::vector<std::complex<double>>& HARMONICDATA);
void GETMISFIRINGHARMONICDATA(const DieselTable& table, int i, double mip, int& count,
                              std::vector<std::complex<double>>& HARMONICDATA);

}  // namespace qm::GLOBAL_DIESEL
