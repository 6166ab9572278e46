// What the fast path shares between cylinders, elements and load cases gives the values
// each would compute for itself, bit for bit: the pressure curves of an engine's cylinders,
// the range scans of the synthesis, the ice synthesis and the resultant torque, and a
// scratch handed from load case to load case.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <limits>
#include <vector>

#include "base/RunContext.h"
#include "excitation/DieselExcitation.h"
#include "forced/ForcedVibration.h"
#include "forced/LoadCaseReport.h"
#include "forced/PropellerIce.h"
#include "input/DataChecking.h"
#include "input/ImportInputFile.h"

using namespace qm;
using namespace qm::FORCEDVIBRATION;

namespace {

constexpr double BAR = 1.0e5;

bool same_bits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

void expect_same_bits(const std::vector<double>& a, const std::vector<double>& b, const char* what) {
    ASSERT_EQ(a.size(), b.size()) << what;
    for (std::size_t i = 0; i < a.size(); ++i) ASSERT_TRUE(same_bits(a[i], b[i])) << what << " at " << i;
}

// A V four-stroke with a partially firing cylinder and a misfiring one on bank B, and an
// in-line two-stroke on the same (720-point) axis: cylinders in different states have
// different curves, the others share one.
DieselTable two_engines() {
    using namespace GLOBAL_DIESEL;
    DieselTable table;
    table.allocate(2);
    table(1) = {.NSTROKE = 4, .MCRPOWER = 3.0e6, .MCRSPEED = 750.0, .POWERPERCYL = 2.0e5, .SPEED = 700.0,
                .LOADPERCENTAGE = 0.8, .NCYLINDER = 4, .FIRINGSTATUSA = {1, 5, 1, 1},
                .FIRINGSTATUSB = {1, 1, 2, 1}, .FIRINGPERCENTA = {100, 60, 100, 100},
                .FIRINGPERCENTB = {100, 100, 100, 100}, .BORE = 0.32, .STROKE = 0.4, .CONRODRATIO = 0.25,
                .RECIPMASS = 150.0, .ME = 0.94, .PMAX = 200.0 * BAR, .PCOMP = 160.0 * BAR, .COMPRATIO = 15.0,
                .PCHARGEAIR = 4.0 * BAR, .TCHARGEAIR = 45.0, .TE = 0.48, .FORMFACTOR = 1.5, .ANGLEIGNITION = -5.0,
                .ANGLEENDOFCOMB = 50.0, .ANGLEEXHAUSTSTART = 130.0};
    table(1).ISVENGINE = true;
    table(1).HASPARTIALFIRING = true;
    table(2) = {.NSTROKE = 2, .MCRPOWER = 1.7e6, .MCRSPEED = 127.0, .POWERPERCYL = 1.5e6, .SPEED = 120.0,
                .NCYLINDER = 3, .FIRINGSTATUSA = {1, 1, 1}, .BORE = 0.5, .STROKE = 2.0, .CONRODRATIO = 0.45,
                .ME = 0.95, .PMAX = 180.0 * BAR, .PCOMP = 150.0 * BAR, .COMPRATIO = 20.0, .PCHARGEAIR = 3.5 * BAR,
                .TCHARGEAIR = 40.0, .TE = 0.5, .FORMFACTOR = 2.0, .ANGLEIGNITION = -2.0, .ANGLEENDOFCOMB = 60.0,
                .ANGLEEXHAUSTSTART = 110.0, .ANGLEINLETSTART = 140.0, .ANGLEINLETCLOSE = 220.0};
    return table;
}

void fill_coefficients(DieselTable& table, GLOBAL_DIESEL::DieselHarmonicsShare* share) {
    for (int i = 1; i <= table.size(); ++i)
        for (int c = 1; c <= table(i).NCYLINDER; ++c) {
            GLOBAL_DIESEL::CALCULATE_DIESEL_FOURIERCOEFFICIENT(table, i, LoadCaseGensetTable{}, c, true, share);
            if (table(i).ISVENGINE)
                GLOBAL_DIESEL::CALCULATE_DIESEL_FOURIERCOEFFICIENT(table, i, LoadCaseGensetTable{}, c, false, share);
        }
}

}  // namespace

TEST(FastSharing, SharedPressureCurvesGiveEachCylindersOwnHarmonics) {
    DieselTable own = two_engines();
    fill_coefficients(own, nullptr);
    DieselTable shared = two_engines();
    GLOBAL_DIESEL::DieselHarmonicsShare share;
    fill_coefficients(shared, &share);
    // A second pass through the same share, as the next load case of the same speed and power.
    fill_coefficients(shared, &share);

    for (int i = 1; i <= 2; ++i) {
        EXPECT_EQ(std::memcmp(&own(i).MASSFC, &shared(i).MASSFC, sizeof own(i).MASSFC), 0) << i;
        for (int c = 0; c < own(i).NCYLINDER; ++c)
            EXPECT_EQ(std::memcmp(&own(i).GASFCPERCYLINDER[c], &shared(i).GASFCPERCYLINDER[c],
                                  sizeof own(i).GASFCPERCYLINDER[c]),
                      0)
                << "engine " << i << " cylinder " << c + 1;
    }
    // The partially firing cylinder really has a curve of its own.
    EXPECT_NE(own(1).GASFCPERCYLINDER[1].NORMALGASFCBANKBANKA[0], own(1).GASFCPERCYLINDER[0].NORMALGASFCBANKBANKA[0]);
}

TEST(FastSharing, InterleavedRangeScanIsTheStepByStepOne) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double inf = std::numeric_limits<double>::infinity();
    std::vector<std::vector<double>> curves;
    std::vector<double> c(NSYNSTEP);
    double v = 0.41;
    for (double& x : c) x = (v = std::fmod(v * 9.7 + 0.13, 1.0)) - 0.5;
    curves.push_back(c);
    c.assign(NSYNSTEP, 0.0);  // mixed signed zeros, -0.0 first and among the lanes
    for (int a = 0; a < NSYNSTEP; a += 3) c[a] = -0.0;
    curves.push_back(c);
    c[0] = 0.0;
    curves.push_back(c);
    c.assign(NSYNSTEP, -2.5);  // a maximum of zero with both signs
    c[7] = -0.0;
    c[9] = 0.0;
    curves.push_back(c);
    c.assign(NSYNSTEP, 1.0);  // not a number inside is passed over, first it stays
    c[5] = nan;
    c[200] = 3.0;
    curves.push_back(c);
    c[0] = nan;
    curves.push_back(c);
    c.assign(NSYNSTEP, inf);
    curves.push_back(c);
    c[17] = -inf;
    curves.push_back(c);
    for (std::size_t k = 0; k < curves.size(); ++k)
        EXPECT_TRUE(same_bits(curve_range_lanes(curves[k].data()), curve_range(curves[k].data()))) << k;

    // The half range sum without the zero curves of absent kinds, in both modes.
    const std::vector<double> zero(NSYNSTEP, 0.0);
    std::array<const double*, NKIND> all{}, present{};
    all.fill(zero.data());
    all[DIESEL] = present[DIESEL] = curves[0].data();
    all[GENERATOR] = present[GENERATOR] = curves[3].data();
    for (const bool phase : {false, true}) {
        EXPECT_TRUE(same_bits(half_range_sum_present(present, phase, zero.data()), half_range_sum(all, phase)));
        EXPECT_TRUE(same_bits(half_range_sum_present({}, phase, zero.data()), half_range_sum({zero.data(), zero.data(),
            zero.data(), zero.data(), zero.data(), zero.data()}, phase)));
    }
}

// Two propellers at speeds whose ratio is not a whole number, the first one's steps partly
// whole degrees: the tabled ice synthesis and the resultant torque without the absent
// kinds are the literal ones.
TEST(FastSharing, IceSynthesisAndResultantTorqueAreTheLiteralOnes) {
    KindResults p;
    p.allocate(2, 9, 3, 2);
    p.OMEGA = {10.0, 13.7};
    double v = 0.2;
    for (std::size_t i = 0; i < p.XR.size(); ++i) {
        p.XR[i] = (v = std::fmod(v * 7.31 + 0.17, 1.0)) - 0.5;
        p.XI[i] = 0.25 - v;
    }
    std::vector<double> literal, fast;
    SINGLELOADCASEPROPELLERICESYNTHESIS(3, 2, 9, p.OMEGA, p.XR, p.XI, literal, SolvePath::LITERAL);
    SynthesisScratch scratch;
    for (int pass = 0; pass < 2; ++pass) {
        SINGLELOADCASEPROPELLERICESYNTHESIS(3, 2, 9, p.OMEGA, p.XR, p.XI, fast, SolvePath::FAST, &scratch);
        expect_same_bits(fast, literal, "ice synthesis");
    }

    AllKindResults kinds;
    kinds[PROPELLER] = p;
    kinds[PROPELLER].SHAFTTORQUERE.assign(p.XR.begin(), p.XR.begin() + 36);
    kinds[PROPELLER].SHAFTTORQUEIM.assign(p.XI.begin() + 10, p.XI.begin() + 46);
    KindCurves torque, damping;
    std::vector<double> value;
    SINGLELOADCASESYNTHESIS(2, synthesis_sources(kinds, &KindResults::SHAFTTORQUERE, &KindResults::SHAFTTORQUEIM),
                            true, value, torque, true, false, false, SolvePath::FAST, &scratch);
    SINGLELOADCASESYNTHESIS(2, synthesis_sources(kinds, &KindResults::SHAFTTORQUEIM, &KindResults::SHAFTTORQUERE),
                            true, value, damping, true, false, false, SolvePath::FAST, &scratch);
    std::array<bool, NKIND> withUnits{};
    withUnits[PROPELLER] = true;
    for (const bool phase : {false, true}) {
        std::vector<double> all, present;
        CALCULATERESULTANTTORQUE(2, phase, all, torque, damping);
        CALCULATERESULTANTTORQUE(2, phase, present, torque, damping, &withUnits);
        expect_same_bits(present, all, "resultant torque");
    }
}

// The example's load cases through one scratch, in a shuffled order, give what each load
// case gives with a fresh scratch and fresh results: nothing carries between them.
TEST(FastSharing, ScratchHandedOnChangesNoLoadCase) {
    RunContext ctx;
    const std::string dir = (std::filesystem::temp_directory_path() / "qm_fast_sharing").string();
    std::filesystem::create_directories(dir);
    ctx.SETRESULTFILEDIR(dir, static_cast<int>(dir.size()));
    ModelTables t;
    bool ok = false;
    IMPORTINPUTFILE::READINPUTFILE(ctx, std::string(QM_EXAMPLES_DIR) + "/two-stroke-main-engine.qmk", t, ok);
    if (ok) IMPORTINPUTFILE::DATACHECKING(ctx, ok, t, 3);
    ASSERT_TRUE(ok);
    const SweepPlan plan = make_sweep_plan(t, true);
    SweepState state;
    CALCULATELOADCASESHAFTPOWER(t, state.LOADCASE_SHAFTPOWER);
    ASSERT_GE(plan.dims.NLOADCASE, 3);

    const auto results = [&](int lc, LoadCaseResults& res, LoadCaseScratch* scratch) {
        ASSERT_EQ(compute_load_case(t, plan, state, lc, res, scratch).routine, 0);
    };
    LoadCaseScratch scratch;
    LoadCaseResults reused;
    for (const int lc : {plan.dims.NLOADCASE, 1, 2, plan.dims.NLOADCASE}) {
        SCOPED_TRACE(lc);
        LoadCaseResults fresh;
        results(lc, fresh, nullptr);
        results(lc, reused, &scratch);
        for (int k = 0; k < NKIND; ++k) {
            expect_same_bits(reused.kinds[k].XR, fresh.kinds[k].XR, "XR");
            expect_same_bits(reused.kinds[k].SHAFTTORQUEIM, fresh.kinds[k].SHAFTTORQUEIM, "SHAFTTORQUEIM");
            expect_same_bits(reused.ANGULARDEFANGLEBASED[k], fresh.ANGULARDEFANGLEBASED[k], "deflection curves");
            expect_same_bits(reused.TORQUEANGLEBASED[k], fresh.TORQUEANGLEBASED[k], "torque curves");
        }
        expect_same_bits(reused.SYNDEFLECTION, fresh.SYNDEFLECTION, "SYNDEFLECTION");
        expect_same_bits(reused.SYNSTRESS, fresh.SYNSTRESS, "SYNSTRESS");
        expect_same_bits(reused.RESULTANTTORQUE, fresh.RESULTANTTORQUE, "RESULTANTTORQUE");
        expect_same_bits(reused.NOMTORQUE, fresh.NOMTORQUE, "NOMTORQUE");
    }
    t.deallocate_all();
}
