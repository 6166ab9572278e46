#include "excitation/DieselExcitation.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>

#include "base/Constants.h"
#include "components/EngineFunctions.h"
#include "excitation/CylinderExcitations.h"
#include "excitation/DiscreteFourierTransform.h"
#include "excitation/HarmonicTables.h"
#include "excitation/OscillatingMassFourierCoefficients.h"
#include "excitation/PressureFourierCoefficients.h"
#include "excitation/TheoreticalPressure.h"

namespace qm {

namespace {

using Coefficients = std::vector<std::complex<double>>;
using Curve = std::array<double, THEORETICALPRESSURE::CYLPRESSURES_SIZE>;

Curve crank_angles() {
    Curve ALPHA{};
    FILLCRANKANGLES(static_cast<int>(ALPHA.size()), ALPHA.data());
    return ALPHA;
}

// One gas pressure curve of the engine at the load case pressures, turned to start at
// firing top dead centre and repeated over 720 points for a two-stroke on the 720-point
// axis. Returns the number of points the harmonics are taken over.
void theoretical_gas_curve(const DieselRecord& e, bool misfiring, int NCOEF, Curve& curve) {
    Curve raw{};
    double mip = 0.0;
    bool success = false;
    THEORETICALPRESSURE::CALCULATEDPRESSURE(
        misfiring, e.NSTROKE, e.BORE, e.STROKE, e.CONRODRATIO, e.COMPRATIO, e.PCHARGEAIRRPM,
        e.TCHARGEAIR, e.SPEED, e.POWERPERCYL, e.PMAXRPM, e.PCOMPRPM, e.COMPEXP, e.EXPAEXP, e.TE,
        e.ME, e.FORMFACTOR, e.ANGLEIGNITION, e.ANGLEENDOFCOMB, e.ANGLEEXHAUSTSTART,
        e.ANGLEINLETSTART, e.ANGLEINLETCLOSE, raw.data(), mip, success);

    // The raw curve has firing top dead centre at entry 181 (zero-based 180).
    curve.fill(0.0);
    const auto tdc = raw.begin() + 180;
    if (e.NSTROKE == 2) {
        std::copy(tdc, raw.begin() + 360, curve.begin());
        std::copy(raw.begin(), tdc, curve.begin() + 180);
    } else {
        std::copy(tdc, raw.begin() + 720, curve.begin());
        std::copy(raw.begin(), tdc, curve.begin() + 540);
    }
    if (NCOEF == 24 && e.NSTROKE == 2)
        std::copy(curve.begin(), curve.begin() + 360, curve.begin() + 360);
}

// The curve reduced to its tangential pressure harmonics.
void theoretical_gas_coefficients(const DieselRecord& e, bool misfiring, int NPOINTS, int NCOEF,
                                  const Curve& ALPHA, Coefficients& GASFC) {
    Curve curve;
    theoretical_gas_curve(e, misfiring, NCOEF, curve);
    PRESSUREFOURIERCOEFFICIENTS(NPOINTS, NCOEF + 1, GASFC.data(), curve.data(), ALPHA.data(),
                                e.CONRODRATIO);
}

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }
std::uint64_t bits(int x) { return static_cast<std::uint64_t>(static_cast<std::int64_t>(x)); }

// Everything the pressure curve and its harmonics are made from.
GLOBAL_DIESEL::DieselHarmonicsShare::Key gas_key(const DieselRecord& e, bool misfiring, int NPOINTS,
                                                 int NCOEF) {
    return {bits(misfiring ? 1 : 0), bits(NPOINTS),           bits(NCOEF),
            bits(e.NSTROKE),         bits(e.BORE),            bits(e.STROKE),
            bits(e.CONRODRATIO),     bits(e.COMPRATIO),       bits(e.PCHARGEAIRRPM),
            bits(e.TCHARGEAIR),      bits(e.SPEED),           bits(e.POWERPERCYL),
            bits(e.PMAXRPM),         bits(e.PCOMPRPM),        bits(e.COMPEXP),
            bits(e.EXPAEXP),         bits(e.TE),              bits(e.ME),
            bits(e.FORMFACTOR),      bits(e.ANGLEIGNITION),   bits(e.ANGLEENDOFCOMB),
            bits(e.ANGLEEXHAUSTSTART), bits(e.ANGLEINLETSTART), bits(e.ANGLEINLETCLOSE)};
}

// theoretical_gas_coefficients through the share: a curve of the same inputs is reduced
// once. The crank factors come from the share; the products and quotients per point and
// the transform are those of PRESSUREFOURIERCOEFFICIENTS.
const Coefficients& shared_gas_coefficients(const DieselRecord& e, bool misfiring, int NPOINTS, int NCOEF,
                                            GLOBAL_DIESEL::DieselHarmonicsShare& share) {
    const auto key = gas_key(e, misfiring, NPOINTS, NCOEF);
    if (const Coefficients* kept = share.find(key)) return *kept;
    const double* SINAB = nullptr;
    const double* COSB = nullptr;
    share.crank_factors(NPOINTS, e.CONRODRATIO, SINAB, COSB);
    Curve curve;
    theoretical_gas_curve(e, misfiring, NCOEF, curve);
    for (int i = 0; i < NPOINTS; ++i) curve[static_cast<std::size_t>(i)] = curve[static_cast<std::size_t>(i)] * SINAB[i] / COSB[i];
    Coefficients& GASFC = share.insert(key);
    GASFC.assign(static_cast<std::size_t>(NCOEF) + 1, {0.0, 0.0});
    DFT::DISCRETEFOURIERTRANSFORM(NPOINTS, NCOEF + 1, GASFC.data(), curve.data());
    return GASFC;
}

// Gas harmonics from the measured files at the mean indicated pressure of this cylinder.
void measured_gas_coefficients(const DieselTable& table, int i, int cylinder, bool isBankA,
                               int NCOEF, Coefficients& NORMALGASFC, Coefficients& MISFIRINGGASFC) {
    using namespace ENGINE_FUNCTIONS;
    using namespace GLOBAL_DIESEL;
    const DieselRecord& e = table(i);
    double p = e.POWERPERCYL;
    double m1 = CALCULATE_DIESEL_MEPMCR(table, i, true);
    const double m2 = CALCULATE_DIESEL_MEPMCR(table, i, false);
    const double load = e.LOADPERCENTAGE;

    if (cylinder != 0 && e.HASPARTIALFIRING) {
        if (cylinder_status(e, cylinder, isBankA) != PARTIALFIRING) {
            const double factor = GET_DIESEL_POWERCYLPERCENTINCREASED(table, i);
            p = p * factor;
            m1 = m1 * factor;
        } else {
            const auto& percent = isBankA ? e.FIRINGPERCENTA : e.FIRINGPERCENTB;
            const double share = percent[static_cast<std::size_t>(cylinder - 1)];
            p = p * share / 100.0;
            m1 = m1 * share / 100.0;
        }
    }

    const double mipmax = CALCULATE_MIP_MAX(m2, e.ME, e.MIPLIMIT);
    const double mep = CALCULATE_MEP(p, e.SPEED, e.BORE, e.NSTROKE, e.STROKE);
    const double mip = CALCULATE_MIP(mep, m1, load, e.ME, mipmax);

    Coefficients HARMONICDATA;
    int count = 0;
    GETNORMALFIRINGHARMONICDATA(table, i, mip, count, HARMONICDATA);
    for (int k = 1; k <= std::min(count, NCOEF); ++k)
        NORMALGASFC[static_cast<std::size_t>(k)] = HARMONICDATA[static_cast<std::size_t>(k - 1)];
    GETMISFIRINGHARMONICDATA(table, i, mip, count, HARMONICDATA);
    for (int k = 1; k <= std::min(count, NCOEF); ++k)
        MISFIRINGGASFC[static_cast<std::size_t>(k)] = HARMONICDATA[static_cast<std::size_t>(k - 1)];
}

// The gas source of a cylinder by its firing status: normal firing and partial firing
// take the normal coefficients, a cylinder with compression only the misfiring ones, an
// open exhaust valve or a removed piston none.
const DieselCoefficients* gas_source(int status, const DieselCoefficients& normal,
                                     const DieselCoefficients& misfiring) {
    using namespace GLOBAL_DIESEL;
    if (status == NORMALFIRING || status == PARTIALFIRING) return &normal;
    if (status == ONLYCOMPRESSION) return &misfiring;
    return nullptr;
}

void copy_places(const DieselCoefficients& from, int NCOEF, Coefficients& to) {
    for (int k = 1; k <= NCOEF; ++k)
        to[static_cast<std::size_t>(k)] = from[static_cast<std::size_t>(k - 1)];
}

}  // namespace

namespace GLOBAL_DIESEL {

const DieselHarmonicsShare::Harmonics* DieselHarmonicsShare::find(const Key& key) const {
    for (std::size_t k = 0; k < used_; ++k)
        if (entries_[k].key == key) return &entries_[k].FC;
    return nullptr;
}

DieselHarmonicsShare::Harmonics& DieselHarmonicsShare::insert(const Key& key) {
    std::size_t k = used_;
    if (used_ < CAPACITY) {
        ++used_;
    } else {
        k = next_;
        next_ = (next_ + 1) % CAPACITY;
    }
    // Never more than CAPACITY entries: harmonics handed out earlier stay where they are.
    if (entries_.capacity() < CAPACITY) entries_.reserve(CAPACITY);
    if (entries_.size() < used_) entries_.resize(used_);
    entries_[k].key = key;
    return entries_[k].FC;
}

const double* DieselHarmonicsShare::crank_angles() {
    if (alpha_.empty()) {
        alpha_.resize(THEORETICALPRESSURE::CYLPRESSURES_SIZE);
        FILLCRANKANGLES(static_cast<int>(alpha_.size()), alpha_.data());
    }
    return alpha_.data();
}

const DieselHarmonicsShare::Harmonics& DieselHarmonicsShare::mass_harmonics(int NPOINTS, int NCOEF,
                                                                           double CONRODRATIO) {
    const Key key{bits(NPOINTS), bits(NCOEF), bits(CONRODRATIO)};
    if (!hasMass_ || key != massKey_) {
        mass_.assign(static_cast<std::size_t>(NCOEF) + 1, {0.0, 0.0});
        OSCILLATINGMASSFOURIERCOEFFICIENTS(NPOINTS, NCOEF + 1, mass_.data(), crank_angles(), CONRODRATIO);
        massKey_ = key;
        hasMass_ = true;
    }
    return mass_;
}

void DieselHarmonicsShare::crank_factors(int NPOINTS, double CONRODRATIO, const double*& SINAB,
                                         const double*& COSB) {
    const Key key{bits(NPOINTS), bits(CONRODRATIO)};
    if (!hasFactors_ || key != factorKey_) {
        const double* ALPHA = crank_angles();
        const auto n = static_cast<std::size_t>(std::max(NPOINTS, 0));
        sinab_.resize(n);
        cosb_.resize(n);
        for (std::size_t i = 0; i < n; ++i) {
            const double beta = std::asin(CONRODRATIO * std::sin(ALPHA[i]));
            sinab_[i] = std::sin(ALPHA[i] + beta);
            cosb_[i] = std::cos(beta);
        }
        factorKey_ = key;
        hasFactors_ = true;
    }
    SINAB = sinab_.data();
    COSB = cosb_.data();
}

void GETNORMALFIRINGHARMONICDATA(const DieselTable& table, int i, double mip, int& count,
                                 std::vector<std::complex<double>>& HARMONICDATA) {
    const DieselRecord& e = table(i);
    count = std::max(e.NHARMONICORDER, 0);
    interpolate_harmonic_table(count, e.NMEANINDICATEDPRESSURE, e.MEANINDICATEDPRESSURE,
                               e.NORMALRESULTANT, e.NORMALPHASEANGLE, mip, HARMONICDATA);
}

void GETMISFIRINGHARMONICDATA(const DieselTable& table, int i, double mip, int& count,
                              std::vector<std::complex<double>>& HARMONICDATA) {
    const DieselRecord& e = table(i);
    count = std::max(e.NHARMONICORDERMIS, 0);
    interpolate_harmonic_table(count, e.NMEANINDICATEDPRESSUREMIS, e.MEANINDICATEDPRESSUREMIS,
                               e.MISFIRINGRESULTANT, e.MISFIRINGPHASEANGLE, mip, HARMONICDATA);
}

void CALCULATE_DIESEL_FOURIERCOEFFICIENT(DieselTable& table, int i,
                                         const LoadCaseGensetTable& LOADCASEGENSET_TABLE,
                                         int cylinder, bool isBankA, DieselHarmonicsShare* share) {
    if (i < 1 || i > table.size()) return;
    const int NCOEF = GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table);
    const int NPOINTS = NCOEF == 20 ? 360 : 720;
    const auto n = static_cast<std::size_t>(NCOEF) + 1;
    Coefficients NORMALGASFC(n), MISFIRINGGASFC(n), MASSFC;

    // With a share, the crank angles are needed only by what the share makes from them.
    Curve ALPHA{};
    if (!share) ALPHA = crank_angles();
    DieselRecord& e = table(i);
    const Coefficients* mass = &MASSFC;
    if (share) {
        mass = &share->mass_harmonics(NPOINTS, NCOEF, e.CONRODRATIO);
    } else {
        MASSFC.resize(n);
        OSCILLATINGMASSFOURIERCOEFFICIENTS(NPOINTS, NCOEF + 1, MASSFC.data(), ALPHA.data(),
                                           e.CONRODRATIO);
    }

    const Coefficients* normal = &NORMALGASFC;
    const Coefficients* misfiring = &MISFIRINGGASFC;
    if (e.ISTHEORETICALPRESURE) {
        CALCULATE_DIESEL_LOADCASESETTING(table, i, LOADCASEGENSET_TABLE, cylinder, isBankA);
        if (share) {
            normal = &shared_gas_coefficients(e, false, NPOINTS, NCOEF, *share);
            misfiring = &shared_gas_coefficients(e, true, NPOINTS, NCOEF, *share);
        } else {
            theoretical_gas_coefficients(e, false, NPOINTS, NCOEF, ALPHA, NORMALGASFC);
            theoretical_gas_coefficients(e, true, NPOINTS, NCOEF, ALPHA, MISFIRINGGASFC);
        }
    } else {
        measured_gas_coefficients(table, i, cylinder, isBankA, NCOEF, NORMALGASFC,
                                  MISFIRINGGASFC);
    }

    const bool hasCylinder = cylinder >= 1 && cylinder <= MAXCYLINDER;
    for (int k = 1; k <= NCOEF; ++k) {
        const auto place = static_cast<std::size_t>(k - 1);
        if (hasCylinder) {
            DieselGasCoefficients& gas = e.GASFCPERCYLINDER[static_cast<std::size_t>(cylinder - 1)];
            (isBankA ? gas.NORMALGASFCBANKBANKA : gas.NORMALGASFCBANKB)[place] = (*normal)[place + 1];
            (isBankA ? gas.MISFIRINGGASFCBANKBANKA : gas.MISFIRINGGASFCBANKB)[place] =
                (*misfiring)[place + 1];
        }
        e.MASSFC[place] = (*mass)[place + 1];
    }
}

void CALCULATE_DIESEL_CYLFOURIERCOEFFICIENTS(const DieselTable& table, int i, int j,
                                             std::vector<std::complex<double>>& result) {
    const int NCOEF = GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table);
    result.assign(static_cast<std::size_t>(NCOEF), {});
    if (i < 1 || i > table.size() || j < 1 || j > MAXCYLINDER) return;
    const int NPOINTS = NCOEF == 20 ? 360 : 720;
    const auto n = static_cast<std::size_t>(NCOEF) + 1;
    const DieselRecord& e = table(i);
    const DieselGasCoefficients& gas = e.GASFCPERCYLINDER[static_cast<std::size_t>(j - 1)];
    const int statusA = e.FIRINGSTATUSA[static_cast<std::size_t>(j - 1)];
    const int statusB = e.FIRINGSTATUSB[static_cast<std::size_t>(j - 1)];

    const double R = 0.5 * e.STROKE;
    const double AREA = PI * std::pow(e.BORE, 2) * 0.25;
    const double OMEGA = PI * e.SPEED / 30.0;

    Coefficients MASSFOURIERCOEFFSA(n), MASSFOURIERCOEFFSB(n), MASSFOURIERCOEFFS(n);
    Coefficients GASFOURIERCOEFFSA(n), GASFOURIERCOEFFSB(n), GASFOURIERCOEFFS(n);

    if (statusA != PISTONREMOVED) copy_places(e.MASSFC, NCOEF, MASSFOURIERCOEFFSA);
    if (e.ISVENGINE && statusB != PISTONREMOVED) {
        copy_places(e.MASSFC, NCOEF, MASSFOURIERCOEFFSB);
        DFT::FOURIERCOEFFICIENTTRANSFORM(NCOEF + 1, MASSFOURIERCOEFFSB.data(),
                                         MASSFOURIERCOEFFSB.data(), e.VANGLE,
                                         static_cast<double>(NPOINTS), 0);
    }

    if (const auto* src = gas_source(statusA, gas.NORMALGASFCBANKBANKA, gas.MISFIRINGGASFCBANKBANKA))
        copy_places(*src, NCOEF, GASFOURIERCOEFFSA);
    if (e.ISVENGINE) {
        if (const auto* src = gas_source(statusB, gas.NORMALGASFCBANKB, gas.MISFIRINGGASFCBANKB))
            copy_places(*src, NCOEF, GASFOURIERCOEFFSB);
        const double delta =
            ((e.FIRINGANGLEB[static_cast<std::size_t>(j - 1)] -
              e.FIRINGANGLEA[static_cast<std::size_t>(j - 1)]) / PI) * 180.0;
        DFT::FOURIERCOEFFICIENTTRANSFORM(NCOEF + 1, GASFOURIERCOEFFSB.data(),
                                         GASFOURIERCOEFFSB.data(), delta,
                                         static_cast<double>(NPOINTS), 0);
    }

    for (std::size_t k = 0; k < n; ++k) {
        MASSFOURIERCOEFFS[k] = MASSFOURIERCOEFFSA[k] + MASSFOURIERCOEFFSB[k];
        GASFOURIERCOEFFS[k] = GASFOURIERCOEFFSA[k] + GASFOURIERCOEFFSB[k];
    }
    CYLINDEREXCITATIONS::CYLINDEREXCITATION(NCOEF, result.data(), GASFOURIERCOEFFS.data() + 1,
                                            MASSFOURIERCOEFFS.data() + 1, R, AREA, OMEGA,
                                            e.RECIPMASS);
}

}  // namespace GLOBAL_DIESEL
}  // namespace qm
