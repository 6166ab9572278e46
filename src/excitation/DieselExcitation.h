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

#include <array>
#include <complex>
#include <cstdint>
#include <vector>

#include "components/GlobalDiesel.h"
#include "components/GlobalLoadCaseGenset.h"

namespace qm::GLOBAL_DIESEL {

// What the cylinders of an engine have in common within one load case: the tangential gas
// harmonics of a theoretical pressure curve, found again by the exact values (bit for bit)
// the curve is made from, so cylinders in the same state and load simulate the cycle once;
// the oscillating-mass harmonics and the crank factors of a rod ratio, which no load case
// changes. Shared values are the ones each cylinder would compute for itself, to the last
// bit. Storage is reused from one clear() to the next; one share serves one thread.
class DieselHarmonicsShare {
public:
    // The inputs of one pressure curve: the engine's design values and operating point, the
    // firing state and the lengths of the curve and of its harmonics.
    using Key = std::array<std::uint64_t, 24>;
    using Harmonics = std::vector<std::complex<double>>;

    // Harmonics kept for key, or nullptr.
    const Harmonics* find(const Key& key) const;
    // A place for the harmonics of key (the caller fills it); the oldest place is taken
    // again when the share is full.
    Harmonics& insert(const Key& key);
    // Forgets the pressure curves; the rod ratio values stay.
    void clear() { used_ = 0; }

    // Oscillating-mass harmonics (places 0..NCOEF, place 0 the mean) of an NPOINTS curve.
    const Harmonics& mass_harmonics(int NPOINTS, int NCOEF, double CONRODRATIO);
    // sin(alpha + beta) and cos(beta) of the first NPOINTS crank angles at the rod ratio.
    void crank_factors(int NPOINTS, double CONRODRATIO, const double*& SINAB, const double*& COSB);

private:
    static constexpr std::size_t CAPACITY = 16;
    struct Entry {
        Key key{};
        Harmonics FC;
    };
    std::vector<Entry> entries_;
    std::size_t used_ = 0, next_ = 0;
    Key massKey_{};
    bool hasMass_ = false;
    Harmonics mass_;
    Key factorKey_{};
    bool hasFactors_ = false;
    std::vector<double> sinab_, cosb_;
    std::vector<double> alpha_;  // the crank angles of FILLCRANKANGLES, made at the first use
    const double* crank_angles();
};

// First stage for `cylinder` (1..NCYLINDER; 0 for the engine as a whole, which fills
// MASSFC only) on bank A or, with isBankA false, bank B. Expects ILOADCASE, SPEED, POWER,
// POWERPERCYL, TORQUE and LOADPERCENTAGE of the load case set. Writes MASSFC and the four
// gas arrays of the cylinder on that bank, places 1..NCOEF; on the theoretical path also
// the load case pressures of CALCULATE_DIESEL_LOADCASESETTING. With a share, a pressure
// curve another cylinder of the load case already reduced is taken from it (same values).
void CALCULATE_DIESEL_FOURIERCOEFFICIENT(DieselTable& table, int i,
                                         const LoadCaseGensetTable& LOADCASEGENSET_TABLE,
                                         int cylinder, bool isBankA,
                                         DieselHarmonicsShare* share = nullptr);

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
