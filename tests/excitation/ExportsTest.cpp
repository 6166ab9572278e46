// The single-cylinder functions through the shared library, called with the C calling
// convention as a host program calls them.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "components/EngineFunctions.h"
#include "excitation/TheoreticalPressure.h"
#include "base/Constants.h"

namespace {

using TheoreticalCylinderPressure = void (*)(
    const double*, const double*, const int32_t*, const int32_t*, const double*, const double*,
    const double*, const double*, const double*, const double*, const double*, const double*,
    const double*, const double*, const double*, const double*, const double*, const double*,
    const double*, const double*, const double*, const double*, const double*, const double*,
    double*, double*);
using Success = void (*)(int32_t*);
using PressureToHarmonic = void (*)(const int32_t*, const int32_t*, double*, const double*,
                                    const double*, double*, double*);
using MassCoefficients = void (*)(const int32_t*, const int32_t*, double*, const double*,
                                  const double*);
using TangentialRadialForce = void (*)(const double*, const double*, const double*,
                                       const double*, const double*, const double*,
                                       const double*, const double*, const int32_t*,
                                       const double*, const double*, double*, double*, double*,
                                       double*, double*, double*);

// Sums over 360 points of terms of order 1: a few hundred ulps at most.
constexpr double SUM_TOLERANCE = 1e-13;
constexpr double BAR = 1.0e5;
constexpr double UNTOUCHED = -7.0;

class ExcitationExports : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        handle_ = dlopen(QM_SHARED_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(handle_, nullptr) << dlerror();
    }
    static void TearDownTestSuite() {
        if (handle_) dlclose(handle_);
        handle_ = nullptr;
    }
    template <typename F>
    static F symbol(const char* name) {
        void* s = dlsym(handle_, name);
        EXPECT_NE(s, nullptr) << name;
        return reinterpret_cast<F>(s);
    }
    static void* handle_;
};
void* ExcitationExports::handle_ = nullptr;

std::vector<double> crank_angles(int n) {
    std::vector<double> alpha(n);
    for (int i = 0; i < n; ++i) alpha[i] = qm::PI * i / 180.0;
    return alpha;
}

// A medium-speed four-stroke cylinder rated 500 kW at 750 rpm.
struct Cylinder {
    double P0 = 5.0e5, N0 = 750.0;
    int32_t misfiring = 0, nstroke = 4;
    double bore = 0.32, stroke = 0.4, lambda = 0.25, compratio = 15.0;
    double pcharge = 4.0 * BAR, tcharge = 45.0, speed = 750.0, power = 5.0e5;
    double pmax = 200.0 * BAR, pcomp = 160.0 * BAR, compexp = 1.39, expaexp = 1.33;
    double te = 0.48, me = 0.94, form = 1.5;
    double ignition = -5.0, endofcomb = 50.0, exhaust = 130.0, inletstart = 0.0,
           inletclose = 0.0;
};

struct Curve {
    std::vector<double> p = std::vector<double>(1000, UNTOUCHED);
    double mip = UNTOUCHED;
    int32_t success = 12345;
};

Curve call(TheoreticalCylinderPressure f, Success s, const Cylinder& c) {
    Curve r;
    f(&c.P0, &c.N0, &c.misfiring, &c.nstroke, &c.bore, &c.stroke, &c.lambda, &c.compratio,
      &c.pcharge, &c.tcharge, &c.speed, &c.power, &c.pmax, &c.pcomp, &c.compexp, &c.expaexp,
      &c.te, &c.me, &c.form, &c.ignition, &c.endofcomb, &c.exhaust, &c.inletstart,
      &c.inletclose, r.p.data(), &r.mip);
    s(&r.success);
    return r;
}

// The same curve from the routine inside, at the pressures given.
Curve inside(const Cylinder& c, bool misfiring, double pcharge, double pcomp, double pmax) {
    Curve r;
    bool ok = false;
    qm::THEORETICALPRESSURE::CALCULATEDPRESSURE(
        misfiring, c.nstroke, c.bore, c.stroke, c.lambda, c.compratio, pcharge, c.tcharge,
        c.speed, c.power, pmax, pcomp, c.compexp, c.expaexp, c.te, c.me, c.form, c.ignition,
        c.endofcomb, c.exhaust, c.inletstart, c.inletclose, r.p.data(), r.mip, ok);
    r.success = ok ? -1 : 0;
    return r;
}

}  // namespace

TEST_F(ExcitationExports, TheoreticalCylinderPressureAtAndAwayFromTheReferenceSpeed) {
    const auto f = symbol<TheoreticalCylinderPressure>("THEORETICALCYLINDERPRESSURE");
    const auto s = symbol<Success>("THEORETICALCYLINDERPRESSURESUCCESS");
    ASSERT_TRUE(f && s);

    // At the reference speed the reference pressures stand whatever the power.
    Cylinder c;
    c.power = 3.0e5;
    const Curve at_reference = call(f, s, c);
    const Curve given = inside(c, false, c.pcharge, c.pcomp, c.pmax);
    EXPECT_EQ(at_reference.p, given.p);
    EXPECT_EQ(at_reference.mip, given.mip);
    EXPECT_EQ(at_reference.success, given.success);

    // One ulp away the pressures follow the load; the maximum pressure's compression
    // limit comes from the reference compression pressure.
    c.speed = std::nextafter(c.N0, 0.0);
    namespace ef = qm::ENGINE_FUNCTIONS;
    const double pcharge = ef::CALCULATE_PINLET(c.P0, c.N0, c.power, c.speed, c.pcharge, 4);
    const double pcomp = ef::CALCULATE_PCOMP(c.P0, c.N0, c.power, c.speed, c.pcomp);
    const double pmax = ef::CALCULATE_PMAX(c.P0, c.N0, c.power, c.speed, c.pmax, c.pcomp, 4);
    ASSERT_LT(pmax, c.pmax);
    const Curve away = call(f, s, c);
    const Curve loaded = inside(c, false, pcharge, pcomp, pmax);
    EXPECT_EQ(away.p, loaded.p);
    EXPECT_EQ(away.mip, loaded.mip);
    EXPECT_EQ(away.success, loaded.success);
    EXPECT_NE(away.p, at_reference.p);
}

TEST_F(ExcitationExports, TheoreticalCylinderPressureFlags) {
    const auto f = symbol<TheoreticalCylinderPressure>("THEORETICALCYLINDERPRESSURE");
    const auto s = symbol<Success>("THEORETICALCYLINDERPRESSURESUCCESS");
    ASSERT_TRUE(f && s);
    Cylinder c;

    // Converged: true is -1.
    EXPECT_EQ(call(f, s, c).success, -1);

    // The lowest bit carries the misfiring flag: 2 is false, -1 and 1 are true.
    const Curve misfire = inside(c, true, c.pcharge, c.pcomp, c.pmax);
    c.misfiring = -1;
    EXPECT_EQ(call(f, s, c).p, misfire.p);
    c.misfiring = 1;
    EXPECT_EQ(call(f, s, c).p, misfire.p);
    c.misfiring = 2;
    const Curve firing = call(f, s, c);
    EXPECT_NE(firing.p, misfire.p);
    EXPECT_EQ(firing.success, -1);

    // A failure after a success: the query follows the last call.
    c.misfiring = 0;
    c.nstroke = 3;
    const Curve invalid = call(f, s, c);
    EXPECT_EQ(invalid.success, 0);
    EXPECT_EQ(invalid.p[180], UNTOUCHED);
    EXPECT_NE(invalid.mip, UNTOUCHED);

    // A firing cylinder at zero power: zero curve, no success.
    c.nstroke = 4;
    c.power = 0.0;
    const Curve idle = call(f, s, c);
    EXPECT_EQ(idle.success, 0);
    EXPECT_EQ(idle.p[180], 0.0);
    EXPECT_EQ(idle.p[999], 0.0);
}

TEST_F(ExcitationExports, CylinderPressureToHarmonicGivesFullAmplitudesOfTheTangentialPressure) {
    const auto f = symbol<PressureToHarmonic>("CYLINDERPRESSURETOHARMONIC");
    ASSERT_TRUE(f);
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

TEST_F(ExcitationExports, OscillatingMassCoefficientsAsComplexPairs) {
    const auto f = symbol<MassCoefficients>("OSCILLATINGMASSFOURIERCOEFFICIENTS");
    ASSERT_TRUE(f);
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

TEST_F(ExcitationExports, TangentialAndRadialForces) {
    const auto f = symbol<TangentialRadialForce>("CALCULATETANGENTIALRADIALFORCE");
    ASSERT_TRUE(f);
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
    EXPECT_EQ(o.t[0], 0.0);
    EXPECT_EQ(o.tg[0], 0.0);
    EXPECT_EQ(o.tm[0], 0.0);
    EXPECT_NEAR(o.rg[0], (p[0] - pref) * area, 1e-9 * p[0] * area);
    const double pin = omega * omega * stroke / 2.0;
    EXPECT_NEAR(o.rm[0], -pin * (recip * (1.0 + lambda) + rotating), 1e-9 * pin * recip);
    // A quarter turn on the crank pin moves as fast as the piston: the tangential gas
    // force is the whole piston force.
    EXPECT_NEAR(o.tg[90], (p[90] - pref) * area, 1e-9 * p[90] * area);

    // At rest only the gas acts, tangentially; the rotating mass has no weight at zero speed.
    const Forces rest = run(0.0, p, rotating);
    for (int i = 0; i < n; ++i) {
        EXPECT_EQ(rest.tm[i], 0.0) << i;
        EXPECT_EQ(rest.t[i], rest.tg[i]) << i;
        EXPECT_EQ(rest.r[i], rest.rg[i]) << i;
    }
    // With the cylinder at the reference pressure only the masses act.
    const Forces masses = run(speed, std::vector<double>(n, pref), rotating);
    EXPECT_EQ(masses.t, masses.tm);
    EXPECT_EQ(masses.r, masses.rm);
    // The rotating mass of the rod adds the same radial pull at every angle and nothing
    // tangentially.
    const Forces without_rotating = run(speed, p, 0.0);
    for (int i = 0; i < n; ++i) {
        EXPECT_NEAR(o.rm[i] - without_rotating.rm[i], -pin * rotating, 1e-9 * pin * recip) << i;
        EXPECT_EQ(o.tm[i], without_rotating.tm[i]) << i;
    }
}
