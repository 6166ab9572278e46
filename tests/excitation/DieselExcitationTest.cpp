// Diesel excitation of a load case: the stored coefficients of the theoretical and the
// measured path, the 720-point axis, and the combination of banks and firing states.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <vector>

#include "ComplexExpect.h"
#include "base/Constants.h"
#include "components/EngineFunctions.h"
#include "excitation/DieselExcitation.h"
#include "excitation/TheoreticalPressure.h"
#include "quillmark/quillmark.h"

using namespace qm;
using namespace qm::GLOBAL_DIESEL;
using cd = std::complex<double>;

namespace {

constexpr double BAR = 1.0e5;

// A crosshead two-stroke of 500 mm bore and 2 m stroke, 1.5 MW per cylinder at 120 rpm.
DieselRecord two_stroke() {
    return {.NSTROKE = 2, .MCRPOWER = 1.7e6, .MCRSPEED = 127.0, .POWERPERCYL = 1.5e6,
            .SPEED = 120.0, .NCYLINDER = 1, .FIRINGSTATUSA = {1}, .BORE = 0.5, .STROKE = 2.0,
            .CONRODRATIO = 0.45, .ME = 0.95, .PMAX = 180.0 * BAR, .PCOMP = 150.0 * BAR,
            .COMPRATIO = 20.0, .PCHARGEAIR = 3.5 * BAR, .TCHARGEAIR = 40.0, .TE = 0.5,
            .FORMFACTOR = 2.0, .ANGLEIGNITION = -2.0, .ANGLEENDOFCOMB = 60.0,
            .ANGLEEXHAUSTSTART = 110.0, .ANGLEINLETSTART = 140.0, .ANGLEINLETCLOSE = 220.0};
}

// A medium-speed four-stroke of 320 mm bore, 400 kW per cylinder at 700 rpm.
DieselRecord four_stroke() {
    return {.NSTROKE = 4, .MCRPOWER = 3.0e6, .MCRSPEED = 750.0, .POWERPERCYL = 4.0e5,
            .SPEED = 700.0, .LOADPERCENTAGE = 0.8, .NCYLINDER = 6,
            .FIRINGSTATUSA = {1, 1, 1, 1, 1, 1}, .BORE = 0.32, .STROKE = 0.4,
            .CONRODRATIO = 0.25, .RECIPMASS = 150.0, .ME = 0.94, .PMAX = 200.0 * BAR,
            .PCOMP = 160.0 * BAR, .COMPRATIO = 15.0, .PCHARGEAIR = 4.0 * BAR,
            .TCHARGEAIR = 45.0, .TE = 0.48, .FORMFACTOR = 1.5, .ANGLEIGNITION = -5.0,
            .ANGLEENDOFCOMB = 50.0, .ANGLEEXHAUSTSTART = 130.0};
}

double tolerance(cd expected) { return 1e-9 * (1.0 + std::abs(expected)); }

}  // namespace

// One cylinder: its stored normal-firing coefficients are the harmonics that the
// single-cylinder export gives for the same curve turned to start at firing top dead centre.
TEST(DieselExcitation, SingleCylinderMatchesTheSingleCylinderExport) {
    DieselTable table;
    table.allocate(1);
    table(1) = four_stroke();
    CALCULATE_DIESEL_FOURIERCOEFFICIENT(table, 1, LoadCaseGensetTable{}, 1, true);
    const DieselRecord& e = table(1);

    std::vector<double> raw(THEORETICALPRESSURE::CYLPRESSURES_SIZE, 0.0), curve(720), alpha(720);
    double mip = 0.0;
    bool ok = false;
    THEORETICALPRESSURE::CALCULATEDPRESSURE(
        false, 4, e.BORE, e.STROKE, e.CONRODRATIO, e.COMPRATIO, e.PCHARGEAIRRPM, e.TCHARGEAIR,
        e.SPEED, e.POWERPERCYL, e.PMAXRPM, e.PCOMPRPM, e.COMPEXP, e.EXPAEXP, e.TE, e.ME,
        e.FORMFACTOR, e.ANGLEIGNITION, e.ANGLEENDOFCOMB, e.ANGLEEXHAUSTSTART, 0.0, 0.0,
        raw.data(), mip, ok);
    ASSERT_TRUE(ok);
    for (int i = 0; i < 720; ++i) {
        curve[i] = raw[(i + 180) % 720];
        alpha[i] = PI * i / 180.0;
    }
    const int32_t n = 720, nharm = 24;
    std::vector<double> sine(24), cosine(24);
    CYLINDERPRESSURETOHARMONIC(&n, &nharm, curve.data(), alpha.data(), &e.CONRODRATIO,
                               sine.data(), cosine.data());
    for (int k = 1; k <= 24; ++k) {
        SCOPED_TRACE(k);
        const cd expected(0.5 * cosine[k - 1], -0.5 * sine[k - 1]);
        EXPECT_COMPLEX_NEAR(e.GASFCPERCYLINDER[0].NORMALGASFCBANKBANKA[k - 1], expected,
                            tolerance(expected));
    }
    // The curve without combustion is smaller; bank B stays empty.
    EXPECT_LT(std::abs(e.GASFCPERCYLINDER[0].MISFIRINGGASFCBANKBANKA[1]),
              std::abs(e.GASFCPERCYLINDER[0].NORMALGASFCBANKBANKA[1]));
    EXPECT_EQ(e.GASFCPERCYLINDER[0].NORMALGASFCBANKB[1], cd{});
}

// A two-stroke alone works on 360 points and 20 harmonics; beside a four-stroke its
// curve repeats over 720 points, so odd harmonics vanish and harmonic 2n is order n.
TEST(DieselExcitation, TwoStrokeOnTheAxisOfAFourStroke) {
    DieselTable alone, mixed;
    alone.allocate(1);
    alone(1) = two_stroke();
    mixed.allocate(2);
    mixed(1) = two_stroke();
    mixed(2) = four_stroke();
    CALCULATE_DIESEL_FOURIERCOEFFICIENT(alone, 1, LoadCaseGensetTable{}, 1, true);
    CALCULATE_DIESEL_FOURIERCOEFFICIENT(mixed, 1, LoadCaseGensetTable{}, 1, true);

    const auto& g20 = alone(1).GASFCPERCYLINDER[0].NORMALGASFCBANKBANKA;
    const auto& g24 = mixed(1).GASFCPERCYLINDER[0].NORMALGASFCBANKBANKA;
    EXPECT_EQ(g20[20], cd{});
    ASSERT_GT(std::abs(g20[0]), 1.0e4);
    for (int k = 1; k <= 24; ++k) {
        SCOPED_TRACE(k);
        if (k % 2 == 1) {
            EXPECT_LT(std::abs(g24[k - 1]), 1e-9 * std::abs(g20[0]));
            EXPECT_LT(std::abs(mixed(1).MASSFC[k - 1]), 1e-12);
        } else {
            EXPECT_COMPLEX_NEAR(g24[k - 1], g20[k / 2 - 1], tolerance(g20[k / 2 - 1]));
            EXPECT_COMPLEX_NEAR(mixed(1).MASSFC[k - 1], alone(1).MASSFC[k / 2 - 1], 1e-12);
        }
    }
}

// Firing states and banks, with hand-set coefficients: normal and partial firing take the
// normal gas harmonics, compression only the misfiring ones, an open exhaust valve keeps
// the mass only, a removed piston gives nothing. Bank B's mass turns by the V angle, its
// gas by the difference of the firing angles.
TEST(DieselExcitation, FiringStatesAndBanks) {
    DieselTable table;
    table.allocate(1);
    DieselRecord& e = table(1);
    e = four_stroke();
    e.FIRINGSTATUSA = {NORMALFIRING, PARTIALFIRING, ONLYCOMPRESSION, EXHAUSTVALVEOPEN, PISTONREMOVED};
    const cd mass(0.3, -0.2), normal(2.0e5, 1.0e5), misfire(-4.0e4, 3.0e4), normalB(5.0e4, -7.0e4);
    e.MASSFC.fill(mass);
    for (auto& gas : e.GASFCPERCYLINDER) {
        gas.NORMALGASFCBANKBANKA.fill(normal);
        gas.MISFIRINGGASFCBANKBANKA.fill(misfire);
        gas.NORMALGASFCBANKB.fill(normalB);
    }
    const double RA = 0.2 * PI * 0.32 * 0.32 * 0.25, w = PI * 700.0 / 30.0;
    const cd m = 0.2 * 0.2 * e.RECIPMASS * w * w * mass;
    const cd expected[] = {RA * normal - m, RA * normal - m, RA * misfire - m, -m, cd{}};
    std::vector<cd> torque;
    for (int j = 1; j <= 5; ++j) {
        SCOPED_TRACE(j);
        CALCULATE_DIESEL_CYLFOURIERCOEFFICIENTS(table, 1, j, torque);
        ASSERT_EQ(torque.size(), 24u);
        for (const cd& t : torque) EXPECT_COMPLEX_NEAR(t, expected[j - 1], tolerance(t));
    }

    // V angle of 360 degrees on the 720-point cycle turns harmonic k by (-1)^k, firing
    // angles half a revolution apart by (-i)^k (the turns use the single-precision 2 pi).
    e.ISVENGINE = true;
    e.VANGLE = 360.0;
    e.FIRINGSTATUSB[0] = NORMALFIRING;
    e.FIRINGANGLEB[0] = (e.FIRINGANGLEA[0] = 0.5) + PI;
    CALCULATE_DIESEL_CYLFOURIERCOEFFICIENTS(table, 1, 1, torque);
    for (int k = 1; k <= 24; ++k) {
        SCOPED_TRACE(k);
        const cd t = RA * (normal + normalB * std::pow(cd(0.0, -1.0), k)) -
                     m * (1.0 + std::pow(-1.0, k));
        EXPECT_COMPLEX_NEAR(torque[k - 1], t, 2e-6 * std::abs(t) * k);
    }
}

// The measured path: amplitude and phase interpolate separately and extrapolate at both
// ends; a file of fewer orders than the axis leaves the rest zero; a partially firing
// cylinder reads the file at its own mean indicated pressure.
TEST(DieselExcitation, HarmonicFiles) {
    DieselTable table;
    table.allocate(1);
    DieselRecord& e = table(1);
    e = four_stroke();
    e.ISTHEORETICALPRESURE = false;
    e.MIPLIMIT = 10.0;
    // Two orders at 10 and 20 bar. Order 1: amplitude equal to the pressure, phase 90
    // degrees; order 2: amplitude 1 to 3 bar, phase 0 to 90 degrees.
    e.NHARMONICORDER = e.NHARMONICORDERMIS = 2;
    e.NMEANINDICATEDPRESSURE = e.NMEANINDICATEDPRESSUREMIS = 2;
    e.MEANINDICATEDPRESSURE = e.MEANINDICATEDPRESSUREMIS = {10 * BAR, 20 * BAR};
    e.NORMALRESULTANT = {10 * BAR, 20 * BAR, 1 * BAR, 3 * BAR};
    e.NORMALPHASEANGLE = {PI / 2, PI / 2, 0.0, PI / 2};
    e.MISFIRINGRESULTANT = {1 * BAR, 1 * BAR, 0.0, 0.0};
    e.MISFIRINGPHASEANGLE = {0.0, 0.0, 0.0, 0.0};

    int count = 0;
    std::vector<cd> data;
    GETNORMALFIRINGHARMONICDATA(table, 1, 30 * BAR, count, data);  // order 2: 5 bar at 180
    ASSERT_EQ(count, 2);
    EXPECT_COMPLEX_NEAR(data[1], cd(0.0, 2.5 * BAR), 1e-6);
    GETNORMALFIRINGHARMONICDATA(table, 1, 0.0, count, data);  // order 2: -1 bar at -90
    EXPECT_COMPLEX_NEAR(data[1], cd(0.5 * BAR, 0.0), 1e-6);

    using namespace ENGINE_FUNCTIONS;
    const double m1 = CALCULATE_DIESEL_MEPMCR(table, 1, true);
    const double mipmax = CALCULATE_MIP_MAX(CALCULATE_DIESEL_MEPMCR(table, 1, false), e.ME, 10.0);
    const auto mip_of = [&](double share) {  // order 1 holds half of it
        const double mep = CALCULATE_MEP(e.POWERPERCYL * share, e.SPEED, e.BORE, 4, e.STROKE);
        return CALCULATE_MIP(mep, m1 * share, 0.8, e.ME, mipmax);
    };
    e.HASPARTIALFIRING = true;
    e.FIRINGSTATUSA[1] = PARTIALFIRING;  // cylinder 2 at 50 %, the others take over
    e.FIRINGPERCENTA[1] = 50.0;
    CALCULATE_DIESEL_FOURIERCOEFFICIENT(table, 1, LoadCaseGensetTable{}, 2, true);
    CALCULATE_DIESEL_FOURIERCOEFFICIENT(table, 1, LoadCaseGensetTable{}, 1, true);
    const auto& one = e.GASFCPERCYLINDER[0].NORMALGASFCBANKBANKA;
    EXPECT_FLOAT_EQ(one[0].real(), 0.5 * mip_of(GET_DIESEL_POWERCYLPERCENTINCREASED(table, 1)));
    EXPECT_FLOAT_EQ(e.GASFCPERCYLINDER[1].NORMALGASFCBANKBANKA[0].real(), 0.5 * mip_of(0.5));
    EXPECT_EQ(e.GASFCPERCYLINDER[0].MISFIRINGGASFCBANKBANKA[0].imag(), -0.5 * BAR);
    EXPECT_EQ(one[2], cd{});
    EXPECT_EQ(one[23], cd{});
}
