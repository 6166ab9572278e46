// The theoretical pressure curve of realistic engines, the curve without combustion, and
// how the routine treats data it cannot work with.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "PressureCurves.h"
#include "base/Constants.h"

namespace tp = qm::THEORETICALPRESSURE;
using namespace qm::test;

namespace {

// The iteration stops when the indicated work and the maximum pressure are within these
// relative tolerances of the wanted values (2 % two-stroke, 0.5 % four-stroke); the
// single-precision constants sit a hair below the round numbers.
constexpr double TWO_STROKE_TOLERANCE = 0.02;
constexpr double FOUR_STROKE_TOLERANCE = 0.005;
// The 90 % cap of the curve without combustion, in single precision.
constexpr double MISFIRING_CAP = 0.8999999761581421;
// Volume above the piston minus the clearance, at crank angle theta (degrees) from top
// dead centre, by the slider-crank geometry.
double swept(const Engine& e, double theta_deg) {
    const double t = theta_deg * qm::PI / 180.0;
    const double s = std::sin(t);
    return qm::PI * e.bore * e.bore * e.stroke / 8.0 *
           ((1.0 - std::cos(t)) +
            (1.0 - std::sqrt(1.0 - e.lambda * e.lambda * s * s)) / e.lambda);
}

// Indicated work of one cycle, the closed integral of p dV by the trapezoidal rule. The
// four-stroke curve stands at entry j = 181 + a at the volume of angle a; before top dead
// centre the two-stroke curve stands one degree earlier (a - 1), the way its cycle is
// laid out.
double indicated_work(const Engine& e, const std::vector<double>& p) {
    const int n = e.nstroke == 2 ? 360 : 720;
    auto volume = [&](int j) {
        const int a = j - 181;
        return swept(e, e.nstroke == 2 && a <= 0 ? a - 1 : a);
    };
    double w = 0.0;
    for (int j = 1; j <= n; ++j) {
        const int prev = j == 1 ? n : j - 1;
        w += 0.5 * (p[j - 1] + p[prev - 1]) * (volume(j) - volume(prev));
    }
    return w;
}

double wanted_work(const Engine& e) {
    return e.power / e.me / (e.speed / 60.0) * (e.nstroke / 2.0);
}

double displacement(const Engine& e) { return qm::PI / 4.0 * e.bore * e.bore * e.stroke; }

}  // namespace

TEST(TheoreticalPressure, RealisticEnginesMeetTheWantedWorkAndMaximumPressure) {
    for (const Engine& e : {TWO_STROKE, FOUR_STROKE}) {
        SCOPED_TRACE(e.nstroke == 2 ? "two-stroke" : "four-stroke");
        const double tol = e.nstroke == 2 ? TWO_STROKE_TOLERANCE : FOUR_STROKE_TOLERANCE;
        const int n = e.nstroke == 2 ? 360 : 720;
        const Curve r = run(e);
        ASSERT_TRUE(r.success);

        const double pmax = *std::max_element(r.p.begin(), r.p.begin() + n);
        EXPECT_NEAR(pmax, e.pmax + BAR, tol * (e.pmax + BAR));
        // The peak lies shortly after firing top dead centre (entry 181).
        const int peak = static_cast<int>(std::max_element(r.p.begin(), r.p.begin() + n) -
                                          r.p.begin()) + 1;
        EXPECT_GT(peak, 181);
        EXPECT_LT(peak, 181 + 30);

        const double w = indicated_work(e, r.p);
        EXPECT_NEAR(w, wanted_work(e), tol * wanted_work(e));
        // The mean indicated pressure is the wanted work over the displacement.
        EXPECT_NEAR(r.mip, wanted_work(e) / displacement(e), 1e-6 * r.mip);

        // Only the cycle's own entries are written.
        for (int j = n; j < tp::CYLPRESSURES_SIZE; ++j) ASSERT_EQ(r.p[j], UNTOUCHED) << j;
        // Compression starts from the charge air and the curve is positive throughout.
        EXPECT_DOUBLE_EQ(r.p[0], e.pcharge);
        for (int j = 0; j < n; ++j) ASSERT_GT(r.p[j], 0.0) << j;
    }
}

TEST(TheoreticalPressure, GasExchangeOfEachCycle) {
    {
        // Four-stroke: the exhaust stroke ends at charge pressure, the intake stroke
        // (after 360 degrees) stays there.
        const Engine e = FOUR_STROKE;
        const Curve r = run(e);
        EXPECT_NEAR(r.p[181 + 360 - 1], e.pcharge, 1e-9 * e.pcharge);
        for (int a = 361; a <= 539; ++a) EXPECT_EQ(r.p[181 + a - 1], e.pcharge) << a;
        // Between exhaust opening and bottom dead centre the pressure falls steadily.
        for (int a = 132; a <= 180; ++a)
            EXPECT_LE(r.p[181 + a - 1], r.p[181 + a - 2]) << a;
    }
    {
        // Two-stroke: charge pressure from the opening of the ports until they close.
        const Engine e = TWO_STROKE;
        const Curve r = run(e);
        for (int a = 141; a <= 179; ++a) EXPECT_EQ(r.p[181 + a - 1], e.pcharge) << a;
        // Compression starts where the ports close: the polytrope starts from the volume
        // one table entry on, so the closing degree itself is still at charge pressure.
        for (int a = -180; a <= 220 - 360; ++a) EXPECT_EQ(r.p[181 + a - 1], e.pcharge) << a;
        EXPECT_GT(r.p[181 + 220 - 360], e.pcharge);
    }
}

TEST(TheoreticalPressure, AnglesAreCutTowardsZero) {
    const Curve rw = run(with(FOUR_STROKE, [](Engine& e) { e.ignition = -3.0; }));
    const Curve rf = run(with(FOUR_STROKE, [](Engine& e) {
        e.ignition = -3.7;
        e.endofcomb = 50.9;
        e.exhaust = 130.5;
    }));
    const Curve re = run(with(FOUR_STROKE, [](Engine& e) { e.ignition = -4.0; }));
    EXPECT_EQ(rw.p, rf.p);
    EXPECT_EQ(rw.mip, rf.mip);
    EXPECT_NE(rw.p, re.p);
}

TEST(TheoreticalPressure, CurveWithoutCombustion) {
    for (Engine e : {TWO_STROKE, FOUR_STROKE}) {
        SCOPED_TRACE(e.nstroke == 2 ? "two-stroke" : "four-stroke");
        const int n = e.nstroke == 2 ? 360 : 720;
        e.misfiring = 1;
        const Curve r = run(e);
        EXPECT_TRUE(r.success);
        EXPECT_NEAR(r.mip, wanted_work(e) / displacement(e), 1e-6 * r.mip);
        const double cap = MISFIRING_CAP * (e.pcomp + BAR);
        for (int j = 0; j < n; ++j) ASSERT_LE(r.p[j], cap) << j;
        // These engines compress above 90 % of the compression pressure, so the top of
        // the curve is the cap itself, reached at firing top dead centre.
        EXPECT_EQ(r.p[180], cap);
        EXPECT_EQ(*std::max_element(r.p.begin(), r.p.begin() + n), cap);
        // Expansion mirrors compression on the way down.
        EXPECT_LT(r.p[181 + 90 - 1], r.p[181 + 10 - 1]);
        if (e.nstroke == 4) {
            for (int a = 181; a <= 539; ++a) ASSERT_LE(r.p[181 + a - 1], e.pcharge) << a;
        }
        for (int j = n; j < tp::CYLPRESSURES_SIZE; ++j) ASSERT_EQ(r.p[j], UNTOUCHED) << j;
    }
    // The cap binds even far below the compression the geometry gives.
    const Engine low = with(FOUR_STROKE, [](Engine& e) { e.misfiring = 1; e.pcomp = 20.0 * BAR; });
    const Curve r = run(low);
    for (int j = 0; j < 720; ++j) ASSERT_LE(r.p[j], MISFIRING_CAP * (low.pcomp + BAR)) << j;
}

TEST(TheoreticalPressure, CompressionWithoutCombustionStartsAtInletClosingUnlessFourStroke) {
    // Four-stroke: compression starts at bottom dead centre, so the curve starts at the
    // charge air pressure. Any other stroke count starts where the inlet closes (220°,
    // a smaller volume), so the first point lies below it.
    Engine e = FOUR_STROKE;
    e.misfiring = 1;
    e.inletclose = 220.0;
    EXPECT_DOUBLE_EQ(run(e).p[0], e.pcharge);
    e.nstroke = 3;
    const Curve three = run(e);
    EXPECT_TRUE(three.success);
    EXPECT_LT(three.p[0], 0.99 * e.pcharge);
    // An inlet closing outside the volume table is invalid timing, the curve untouched.
    e.inletclose = 720.0;
    const Curve outside = run(e, true);
    EXPECT_FALSE(outside.success);
    EXPECT_EQ(outside.p[0], UNTOUCHED);
}

TEST(TheoreticalPressure, ZeroPower) {
    // A firing cylinder without power gets a zero curve over all 1000 entries; success
    // and the mean pressure are left as the caller had them.
    Engine e = FOUR_STROKE;
    e.power = 0.0;
    const Curve firing = run(e, true);
    EXPECT_TRUE(firing.success);
    EXPECT_EQ(firing.mip, UNTOUCHED);
    for (double p : firing.p) ASSERT_EQ(p, 0.0);

    // The same cylinder misfiring gets its compression curve.
    e.misfiring = 1;
    const Curve misfiring = run(e);
    EXPECT_TRUE(misfiring.success);
    EXPECT_EQ(misfiring.mip, 0.0);
    EXPECT_GT(misfiring.p[180], 10.0 * e.pcharge);
}

TEST(TheoreticalPressure, DataItCannotWorkWith) {
    struct Case {
        const char* what;
        Engine engine;
        bool curve_untouched;
        bool mip_set;
    };
    const Case cases[] = {
        {"zero absolute maximum pressure", with(FOUR_STROKE, [](Engine& e) { e.pmax = -BAR; }), true, false},
        {"three strokes", with(FOUR_STROKE, [](Engine& e) { e.nstroke = 3; }), true, true},
        {"inlet before exhaust", with(TWO_STROKE, [](Engine& e) { e.inletstart = 100.0; }), true, true},
        {"inlet closes before it opens", with(TWO_STROKE, [](Engine& e) { e.inletclose = 130.0; }), true, true},
        {"inlet closes beyond a revolution", with(TWO_STROKE, [](Engine& e) { e.inletclose = 400.0; }), true, true},
        // a maximum pressure far below the compression pressure
        {"unreachable maximum pressure", with(FOUR_STROKE, [](Engine& e) { e.pmax = 30.0 * BAR; }), false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Curve r = run(c.engine, true);
        EXPECT_FALSE(r.success);
        EXPECT_EQ(r.mip != UNTOUCHED, c.mip_set);
        const bool untouched =
            std::all_of(r.p.begin(), r.p.end(), [](double p) { return p == UNTOUCHED; });
        EXPECT_EQ(untouched, c.curve_untouched);
    }
}

TEST(TheoreticalPressure, VibeHeatReleaseOfTheTemperatureStep) {
    // At constant volume the heat of all steps of a burn adds up to the Vibe law's
    // fraction burnt, 1 - exp(-6.9) of Q, less the error of summing a rate by whole
    // degrees (below 1 % for a 60-degree burn). Before ignition nothing burns.
    const double q = 1.0e5, m = 0.3, dphi = 60.0, before = 800.0;
    double heat = 0.0, t = 0.0;
    for (int a = -20; a < -5 + 3 * 60; ++a) {
        tp::CYLTEMP(a, -5, dphi, 1.5, 0.02, 0.02, before, 5.0e6, m, q, t);
        heat += (t - before) * m * (0.21770000457763672 * before + 921.0999755859375);
        if (a < -5) {
            EXPECT_EQ(t, before) << a;
        }
    }
    EXPECT_NEAR(heat, q * (1.0 - std::exp(-6.900000095367432)), 0.01 * q);
}
