// Synthesis over units, orders and kinds on hand-built per-kind results.
#include <gtest/gtest.h>

#include <cmath>

#include "base/Constants.h"
#include "forced/Synthesis.h"

using namespace qm;
using namespace qm::FORCEDVIBRATION;

namespace {

// Sets the deflection of unit u, order place o, mass e of a kind.
void set_x(KindResults& r, int u, int o, int e, double re, double im) {
    const auto i = KindResults::index(u, o, e, r.NMASS, r.NORDER);
    r.XR[i] = re;
    r.XI[i] = im;
}

struct Synthesized {
    std::vector<double> SYNRESM;
    KindCurves curves;
};

Synthesized synthesize(const AllKindResults& results, int N, bool phaseMode = false, bool keep = true) {
    Synthesized s;
    SINGLELOADCASESYNTHESIS(N, synthesis_sources(results, &KindResults::XR, &KindResults::XI), phaseMode, s.SYNRESM,
                            s.curves, keep, false, false);
    return s;
}

}  // namespace

// One engine, one order: the curve is a sine and its half range is the amplitude AMP.
// The curve of element 2 stands at (2-1)*360 + a.
TEST(Synthesis, OneSourceOneOrderGivesItsAmplitude) {
    AllKindResults results;
    results[DIESEL].allocate(1, 20, 2, 1);
    results[DIESEL].OMEGA[0] = 12.5;
    set_x(results[DIESEL], 1, 1, 2, 0.0, -0.5 * 3.0e-3);  // 3e-3 sin(phi): peaks on the grid
    set_x(results[DIESEL], 1, 1, 1, 1.0e-3, 2.0e-3);      // a phase between grid points

    const Synthesized s = synthesize(results, 2);
    EXPECT_DOUBLE_EQ(s.SYNRESM[1], 3.0e-3);
    const double amp = 2.0 * std::sqrt(1.0e-6 + 4.0e-6);
    EXPECT_NEAR(s.SYNRESM[0], amp, amp * 2e-4);
    EXPECT_LE(s.SYNRESM[0], amp);
    EXPECT_NEAR(s.curves[DIESEL][360 + 89], 3.0e-3, 1e-18);  // step 90
    EXPECT_NEAR(s.curves[DIESEL][29], 2.0 * (1.0e-3 * std::cos(PI / 6) - 2.0e-3 * std::sin(PI / 6)), 1e-18);
}

// Two engines at different speeds share one grid, that of the slower; the faster runs at
// the ratio of the two, and order place k at k times its base frequency.
TEST(Synthesis, TwoEnginesAtDifferentSpeeds) {
    AllKindResults results;
    results[DIESEL].allocate(2, 20, 1, 1);
    results[DIESEL].OMEGA = {20.0, 10.0};
    set_x(results[DIESEL], 1, 3, 1, 1.0, 0.0);
    const Synthesized s = synthesize(results, 1);
    for (int a : {1, 7, 45, 360})
        EXPECT_NEAR(s.curves[DIESEL][a - 1], 2.0 * std::cos(3 * a * 2.0 * PI / 180.0), 1e-12) << a;
}

TEST(Synthesis, LowestFrequencyOfTheKindsThatTakePart) {
    AllKindResults results;
    results[DIESEL].allocate(1, 20, 1, 1);
    results[DIESEL].OMEGA = {20.0};
    results[GENERATOR].allocate(2, 4, 1, 1);
    results[GENERATOR].OMEGA = {0.0, 5.0};  // a generator without orders keeps its kind out
    auto sources = [&] { return synthesis_sources(results, &KindResults::XR, &KindResults::XI); };
    EXPECT_EQ(synthesis_omega_min(sources()), 20.0);

    // ... but its other unit still adds to the generator curve, at its own ratio.
    set_x(results[GENERATOR], 2, 1, 1, 1.0, 0.0);
    const Synthesized s = synthesize(results, 1);
    EXPECT_NEAR(s.curves[GENERATOR][59], 2.0 * std::cos(60 * 0.25 * PI / 180.0), 1e-12);

    results[RECIPROCATINGPUMP].allocate(1, 20, 1, 1);
    results[RECIPROCATINGPUMP].OMEGA = {3.0};
    results[ELECTRICMOTOR].allocate(1, 4, 1, 1);
    results[ELECTRICMOTOR].OMEGA = {7.0};
    EXPECT_EQ(synthesis_omega_min(sources()), 3.0);

    results[DIESEL].OMEGA = {0.0};  // an engine at standstill still takes part
    EXPECT_EQ(synthesis_omega_min(sources()), 0.0);
}

// Every unit without orders: no grid exists, and the result is 0.0 rather than 0/0.
TEST(Synthesis, NoRunningSourceGivesZero) {
    AllKindResults results;
    results[GENERATOR].allocate(2, 4, 3, 2);
    results[ELECTRICMOTOR].allocate(1, 4, 3, 2);
    const Synthesized s = synthesize(results, 3);
    EXPECT_EQ(s.SYNRESM, std::vector<double>(3, 0.0));
    for (const auto& c : s.curves)
        for (double v : c) ASSERT_EQ(v, 0.0);
}

// Engine and propeller in antiphase at the same frequency: in phase mode their curves
// cancel before the range is taken, otherwise the half ranges add.
TEST(Synthesis, PhaseModeAddsDieselAndPropellerCurves) {
    AllKindResults results;
    results[DIESEL].allocate(1, 20, 1, 1);
    results[DIESEL].OMEGA = {10.0};
    results[PROPELLER].allocate(1, 2, 1, 1);
    results[PROPELLER].OMEGA = {10.0};
    set_x(results[DIESEL], 1, 1, 1, 0.0, -2.0);
    set_x(results[PROPELLER], 1, 1, 1, 0.0, 1.5);
    EXPECT_DOUBLE_EQ(synthesize(results, 1, false).SYNRESM[0], 7.0);
    EXPECT_NEAR(synthesize(results, 1, true).SYNRESM[0], 1.0, 1e-12);
}
