// The single-cylinder functions through the shared library, called with the C calling
// convention as a host program calls them.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "../abi/SharedLibrary.h"
#include "PressureCurves.h"
#include "base/Constants.h"
#include "components/EngineFunctions.h"
#include "quillmark/quillmark.h"

namespace {

using namespace qm::test;

// The signatures of the public header, looked up in the shared library by name.
using TheoreticalCylinderPressure = decltype(&THEORETICALCYLINDERPRESSURE);
using Success = decltype(&THEORETICALCYLINDERPRESSURESUCCESS);
using PressureToHarmonic = decltype(&CYLINDERPRESSURETOHARMONIC);
using MassCoefficients = decltype(&OSCILLATINGMASSFOURIERCOEFFICIENTS);
using TangentialRadialForce = decltype(&CALCULATETANGENTIALRADIALFORCE);

// Sums over 360 points of terms of order 1: a few hundred ulps at most.
constexpr double SUM_TOLERANCE = 1e-13;

std::vector<double> crank_angles(int n) {
    std::vector<double> alpha(n);
    for (int i = 0; i < n; ++i) alpha[i] = qm::PI * i / 180.0;
    return alpha;
}

// The curve of the export for a cylinder rated at P0 and N0, and the success flag asked
// for right after it.
Curve call(const Engine& c, double P0 = FOUR_STROKE.power, double N0 = FOUR_STROKE.speed) {
    Curve r;
    const auto f = shared_symbol<TheoreticalCylinderPressure>("THEORETICALCYLINDERPRESSURE");
    const auto s = shared_symbol<Success>("THEORETICALCYLINDERPRESSURESUCCESS");
    if (f == nullptr || s == nullptr) {
        ADD_FAILURE() << "no single-cylinder pressure export";
        return r;
    }
    f(&P0, &N0, &c.misfiring, &c.nstroke, &c.bore, &c.stroke, &c.lambda, &c.compratio, &c.pcharge, &c.tcharge,
      &c.speed, &c.power, &c.pmax, &c.pcomp, &c.compexp, &c.expaexp, &c.te, &c.me, &c.form, &c.ignition,
      &c.endofcomb, &c.exhaust, &c.inletstart, &c.inletclose, r.p.data(), &r.mip);
    r.success = 12345;
    s(&r.success);
    return r;
}

void expect_same(const Curve& a, const Curve& b) {
    EXPECT_EQ(a.p, b.p);
    EXPECT_EQ(a.mip, b.mip);
    EXPECT_EQ(a.success, b.success);
}

}  // namespace

TEST(ExcitationExports, TheoreticalCylinderPressure) {
    // At the reference speed the reference pressures stand whatever the power; converged is -1.
    Engine c = with(FOUR_STROKE, [](Engine& e) { e.power = 3.0e5; });
    const Curve at_reference = call(c);
    EXPECT_EQ(at_reference.success, -1);
    expect_same(at_reference, run(c));

    // One ulp away the pressures follow the load; the maximum pressure's compression
    // limit comes from the reference compression pressure.
    const double P0 = FOUR_STROKE.power, N0 = FOUR_STROKE.speed;
    c.speed = std::nextafter(N0, 0.0);
    namespace ef = qm::ENGINE_FUNCTIONS;
    Engine loaded = c;
    loaded.pcharge = ef::CALCULATE_PINLET(P0, N0, c.power, c.speed, c.pcharge, 4);
    loaded.pcomp = ef::CALCULATE_PCOMP(P0, N0, c.power, c.speed, c.pcomp);
    loaded.pmax = ef::CALCULATE_PMAX(P0, N0, c.power, c.speed, c.pmax, c.pcomp, 4);
    ASSERT_LT(loaded.pmax, c.pmax);
    const Curve away = call(c);
    expect_same(away, run(loaded));
    EXPECT_NE(away.p, at_reference.p);

    // The lowest bit carries the misfiring flag: 2 is false, -1 and 1 are true.
    const Curve misfire = run(with(FOUR_STROKE, [](Engine& e) { e.misfiring = 1; }));
    for (int32_t flag : {-1, 1, 2}) {
        const Curve r = call(with(FOUR_STROKE, [flag](Engine& e) { e.misfiring = flag; }));
        EXPECT_EQ(r.p == misfire.p, flag != 2) << flag;
        EXPECT_EQ(r.success, -1) << flag;
    }

    // A failure after a success: the query follows the last call.
    const Curve invalid = call(with(FOUR_STROKE, [](Engine& e) { e.nstroke = 3; }));
    EXPECT_EQ(invalid.success, 0);
    EXPECT_EQ(invalid.p[180], UNTOUCHED);
    EXPECT_NE(invalid.mip, UNTOUCHED);

    // A firing cylinder at zero power: zero curve, no success.
    const Curve idle = call(with(FOUR_STROKE, [](Engine& e) { e.power = 0.0; }));
    EXPECT_EQ(idle.success, 0);
    EXPECT_EQ(idle.p[180], 0.0);
    EXPECT_EQ(idle.p[999], 0.0);
}

TEST(ExcitationExports, CylinderPressureToHarmonicGivesFullAmplitudesOfTheTangentialPressure) {
    const auto f = shared_symbol<PressureToHarmonic>("CYLINDERPRESSURETOHARMONIC");
    ASSERT_NE(f, nullptr);
    const int32_t n = 360, nharm = 6;
    const double lambda = 0.0;
    const std::vector<double> alpha = crank_angles(n);

    // Without rod obliquity the tangential factor is sin(a): a constant pressure c gives
    // c sin(a), and d cos(a) gives d sin(a) cos(a) = (d/2) sin(2a).
    std::vector<double> p(n);
    for (int i = 0; i < n; ++i) p[i] = 8.0e5 + 2.0e5 * std::cos(alpha[i]);
    std::vector<double> sine(nharm, UNTOUCHED), cosine(nharm, UNTOUCHED);
    f(&n, &nharm, p.data(), alpha.data(), &lambda, sine.data(), cosine.data());
    EXPECT_NEAR(sine[0], 8.0e5, 8.0e5 * SUM_TOLERANCE);
    EXPECT_NEAR(sine[1], 1.0e5, 8.0e5 * SUM_TOLERANCE);
    for (int k = 0; k < nharm; ++k) EXPECT_NEAR(cosine[k], 0.0, 8.0e5 * SUM_TOLERANCE) << k;
    for (int k = 2; k < nharm; ++k) EXPECT_NEAR(sine[k], 0.0, 8.0e5 * SUM_TOLERANCE) << k;
    // The curve comes back as tangential pressure.
    EXPECT_NEAR(p[90], 8.0e5, 1e-9);
    EXPECT_NEAR(p[0], 0.0, 1e-9);
}

TEST(ExcitationExports, OscillatingMassCoefficientsAsComplexPairs) {
    const auto f = shared_symbol<MassCoefficients>("OSCILLATINGMASSFOURIERCOEFFICIENTS");
    ASSERT_NE(f, nullptr);
    const int32_t n = 360, nharm = 5;
    const std::vector<double> alpha = crank_angles(n);

    // To first order in lambda the factor is sin(2a)/2 + lambda (3 sin(3a) - sin(a)) / 4,
    // so the half amplitudes are F(2) = i lambda/8, F(3) = -i/4, F(4) = -3i lambda/8.
    // The neglected terms are of order lambda^2.
    const double lambda = 0.01;
    const double second_order = 2.0 * lambda * lambda;
    std::vector<double> pairs(2 * nharm, UNTOUCHED);
    f(&n, &nharm, pairs.data(), alpha.data(), &lambda);
    const double expected_imag[] = {0.0, lambda / 8.0, -0.25, -3.0 * lambda / 8.0, 0.0};
    for (int k = 0; k < nharm; ++k) {
        EXPECT_NEAR(pairs[2 * k], 0.0, second_order) << k;
        EXPECT_NEAR(pairs[2 * k + 1], expected_imag[k], second_order) << k;
    }
    EXPECT_NEAR(pairs[2], 0.0, SUM_TOLERANCE);  // no cosine terms: the factor is odd in a
}

TEST(ExcitationExports, TangentialAndRadialForces) {
    const auto f = shared_symbol<TangentialRadialForce>("CALCULATETANGENTIALRADIALFORCE");
    ASSERT_NE(f, nullptr);
    const int32_t n = 360;
    const std::vector<double> alpha = crank_angles(n);
    const double rotating = 150.0, recip = 400.0, pref = 1.0e5, lambda = 0.25;
    const double stroke = 0.4, bore = 0.32;
    std::vector<double> p(n);
    for (int i = 0; i < n; ++i) p[i] = 1.0e5 + 9.0e6 * std::exp(-std::pow((i - 10) / 25.0, 2));
    const std::vector<double> p_before = p;

    struct Forces {
        std::vector<double> t, tm, tg, r, rm, rg;
        Forces() : t(360, 1), tm(360, 1), tg(360, 1), r(360, 1), rm(360, 1), rg(360, 1) {}
    };
    auto run = [&](double speed, const std::vector<double>& curve, double rot) {
        Forces o;
        f(&rot, &recip, nullptr, &pref, &lambda, &speed, &stroke, &bore, &n, alpha.data(),
          curve.data(), o.t.data(), o.tm.data(), o.tg.data(), o.r.data(), o.rm.data(),
          o.rg.data());
        return o;
    };
    const double speed = 750.0;
    const double omega = speed * qm::PI / 30.0;
    const double area = qm::PI * bore * bore / 4.0;
    const Forces o = run(speed, p, rotating);
    EXPECT_EQ(p, p_before);  // the third argument is never read and the curve not changed

    for (int i = 0; i < n; ++i) {
        EXPECT_DOUBLE_EQ(o.t[i], o.tg[i] + o.tm[i]) << i;
        EXPECT_DOUBLE_EQ(o.r[i], o.rg[i] + o.rm[i]) << i;
    }
    // At top dead centre nothing acts tangentially; radially the gas pushes the pin out
    // while the masses pull it in by their acceleration r w^2 (1 + lambda) and r w^2.
    EXPECT_EQ(o.tg[0], 0.0);
    EXPECT_EQ(o.tm[0], 0.0);
    EXPECT_NEAR(o.rg[0], (p[0] - pref) * area, 1e-9 * p[0] * area);
    const double pin = omega * omega * stroke / 2.0;
    EXPECT_NEAR(o.rm[0], -pin * (recip * (1.0 + lambda) + rotating), 1e-9 * pin * recip);
    // A quarter turn on the crank pin moves as fast as the piston: the tangential gas
    // force is the whole piston force.
    EXPECT_NEAR(o.tg[90], (p[90] - pref) * area, 1e-9 * p[90] * area);

    // At rest only the gas acts; at the reference pressure only the masses.
    const Forces rest = run(0.0, p, rotating), masses = run(speed, std::vector<double>(n, pref), rotating);
    EXPECT_EQ(rest.tm, std::vector<double>(n, 0.0));
    EXPECT_EQ(rest.r, rest.rg);
    EXPECT_EQ(masses.t, masses.tm);
    EXPECT_EQ(masses.r, masses.rm);
    // The rotating mass of the rod adds the same radial pull at every angle and nothing
    // tangentially.
    const Forces without_rotating = run(speed, p, 0.0);
    EXPECT_EQ(o.tm, without_rotating.tm);
    for (int i = 0; i < n; ++i)
        EXPECT_NEAR(o.rm[i] - without_rotating.rm[i], -pin * rotating, 1e-9 * pin * recip) << i;
}
