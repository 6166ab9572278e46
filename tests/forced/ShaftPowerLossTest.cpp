// Shaft power loss on hand-built tables and per-kind results.
#include <gtest/gtest.h>

#include <cmath>

#include "../support/TestModels.h"
#include "base/ComponentCodes.h"
#include "base/Constants.h"
#include "base/GlobalParameter.h"
#include "forced/ShaftPowerLoss.h"

using namespace qm;
using namespace qm::FORCEDVIBRATION;

namespace {

constexpr double S = 1.0e6;

// A line of four inertias: shaft 1 a Geislinger coupling, shaft 2 a plain shaft with a
// dynamic magnifier of 20, shaft 3 a steel spring damper of its own loss; two engines.
struct Line {
    ModelTables t;
    AllKindResults results;

    Line() : t(test::chain(4, 10.0, S)) {
        t.SHAFT_TABLE(1).SHAFTTYPE = CODES::SHAFTTYPE_GEISLINGERCOUPLING;
        t.SHAFT_TABLE(1).COMPONENTTYPE = CODES::COMPONENT_GEISLINGERCOUPLING;
        t.GEISLINGERCOUPLING_TABLE.allocate(1);
        t.GEISLINGERCOUPLING_TABLE(1).SHAFTNODE = 1;
        t.GEISLINGERCOUPLING_TABLE(1).SPEEDEXCITATION = 123.0;
        t.SHAFT_TABLE(2).DYNMAGNIFIER = 20.0;
        ShaftRecord& spring = t.SHAFT_TABLE(3);
        spring.SHAFTTYPE = CODES::SHAFTTYPE_STEELSPRINGDAMPER;
        spring.COMPONENTTYPE = CODES::COMPONENT_STEELSPRINGDAMPER;
        spring.COMPONENTID = 7;
        spring.DYNMAGNIFIER = 8.0;
        t.STEELSPRINGDAMPER_TABLE.allocate(1);
        t.STEELSPRINGDAMPER_TABLE(1) = {.ID = 7, .OUTERMEMBERNODE = 3, .INNERMEMBERNODE = 4, .ISDEFAULTPOWERLOSS = false};

        t.DIESEL_TABLE.allocate(2);
        t.DIESEL_TABLE(1).SPEED = 600.0;
        t.DIESEL_TABLE(2).SPEED = 900.0;
        results[DIESEL].allocate(2, 20, 4, 3);
    }
    void torque(int u, int o, int j, double re, double im) {
        KindResults& r = results[DIESEL];
        r.SHAFTTORQUERE[KindResults::index(u, o, j, 3, 20)] = re;
        r.SHAFTTORQUEIM[KindResults::index(u, o, j, 3, 20)] = im;
    }
    void deflection(int u, int o, int m, double re, double im) {
        KindResults& r = results[DIESEL];
        r.XR[KindResults::index(u, o, m, 4, 20)] = re;
        r.XI[KindResults::index(u, o, m, 4, 20)] = im;
    }
    std::vector<double> loss() {
        std::vector<double> P;
        SINGLELOADCASESHAFTPOWERLOSS(t, results, P);
        return P;
    }
};

}  // namespace

// The engines' torques add per order place, at the frequency of the first engine (600 rpm,
// order place 2 is order 2). Shaft 1 has no damping at all and visits no order: its
// coupling keeps its speed of excitation. Shaft 2 takes d = S / (20 w).
TEST(ShaftPowerLoss, UnitsAddPerOrderAtTheFirstUnitsSpeed) {
    Line line;
    for (int j = 1; j <= 3; ++j) {
        line.torque(1, 2, j, 100.0, 0.0);
        line.torque(2, 2, j, 50.0, 0.0);
    }
    const std::vector<double> P = line.loss();
    const double w = 2.0 * 600.0 * PI / 30.0;
    const double T = 2.0 * 150.0;
    EXPECT_EQ(P[0], 0.0);
    EXPECT_EQ(line.t.GEISLINGERCOUPLING_TABLE(1).SPEEDEXCITATION, 123.0);
    EXPECT_NEAR(P[1], 0.5 * w * T * T / (20.0 * S), 1e-12 * P[1]);

    // Own loss of the steel spring damper: q from the magnifier 8.
    const double u = GLOBAL_PARAMETER::CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(8.0);
    EXPECT_NEAR(P[2], u / (u * u + 1.0) * 0.5 * w * T * T / S, 1e-12 * P[2]);
}

// With ABSDAMPING on its row the steel spring damper takes the default loss from the
// relative motion of its two ends: R = 4 |z4 - z3|^2 of the summed half amplitudes.
TEST(ShaftPowerLoss, SteelSpringDamperWithAbsoluteDampingTakesTheDefaultLoss) {
    Line line;
    line.t.SHAFT_TABLE(3).ABSDAMPING = 5.0;
    line.torque(1, 1, 3, 1.0e4, 0.0);
    line.deflection(1, 1, 3, 1.0e-3, 2.0e-3);
    line.deflection(2, 1, 3, 1.0e-3, 0.0);
    line.deflection(1, 1, 4, -1.0e-3, 0.5e-3);
    const double w = 600.0 * PI / 30.0;
    const double R = 4.0 * ((-1.0e-3 - 2.0e-3) * (-1.0e-3 - 2.0e-3) + (0.5e-3 - 2.0e-3) * (0.5e-3 - 2.0e-3));
    const double P = line.loss()[2];
    EXPECT_NEAR(P, w * w * 0.5 * 5.0 * R, 1e-12 * P);

    line.t.STEELSPRINGDAMPER_TABLE(1).ISDEFAULTPOWERLOSS = true;  // the same form by the flag
    line.t.SHAFT_TABLE(3).ABSDAMPING = 0.0;
    line.t.SHAFT_TABLE(3).DYNMAGNIFIER = 0.0;
    EXPECT_EQ(line.loss()[2], 0.0);  // no damping at all
}

// The Geislinger coupling takes its damping and stiffness order by order at the speed of
// the kind, and keeps the last speed it was given.
TEST(ShaftPowerLoss, GeislingerCouplingIsEvaluatedPerOrder) {
    Line line;
    GeislingerCouplingRecord& g = line.t.GEISLINGERCOUPLING_TABLE(1);
    g.DAMPING = 1.0;  // marks damping; the value comes per order
    g.STATICSTIFFNESS = S;
    g.CHARACTERISTICFREQUENCY = 100.0;
    g.NOMINALTORQUE = 1.0e5;
    g.DAMPINGTYPE = GLOBAL_GEISLINGERCOUPLING::GENERALDAMPING;  // damping factor from the magnifier
    line.t.SHAFT_TABLE(1).DYNMAGNIFIER = 5.0;
    line.torque(1, 3, 1, 0.0, 2.0e3);
    const double P = line.loss()[0];
    EXPECT_EQ(g.SPEEDEXCITATION, 600.0);
    using namespace GLOBAL_GEISLINGERCOUPLING;
    const double d = CALCULATE_GEISLINGERCOUPLING_DAMPING(line.t.GEISLINGERCOUPLING_TABLE, 1, 5.0, 3.0);
    const double K = CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(line.t.GEISLINGERCOUPLING_TABLE, 1, 3.0);
    const double w = 3.0 * 600.0 * PI / 30.0;
    ASSERT_GT(d, 0.0);
    EXPECT_NEAR(P, d * 0.5 * w * w * 4.0e6 * 4.0 / (K * K), 1e-12 * P);
}

// The walk over a kind's orders is that of its first unit: a first generator without
// orders ends it before it starts, whatever the second one excites.
TEST(ShaftPowerLoss, FirstUnitWithoutOrdersEndsTheWalk) {
    Line line;
    line.t.DIESEL_TABLE.deallocate();
    line.results[DIESEL] = KindResults{};
    line.t.GENERATOR_TABLE.allocate(2);
    line.t.GENERATOR_TABLE(1).SPEED = 600.0;
    line.t.GENERATOR_TABLE(2) = {.GENERATORORDERNUMBER = 1, .GENERATORORDER = {2.0}};
    KindResults& g = line.results[GENERATOR];
    g.allocate(2, 4, 4, 3);
    g.SHAFTTORQUERE[KindResults::index(2, 1, 2, 3, 4)] = 1.0e4;
    EXPECT_EQ(line.loss()[1], 0.0);

    line.t.GENERATOR_TABLE(1).GENERATORORDERNUMBER = 2;
    line.t.GENERATOR_TABLE(1).GENERATORORDER = {2.5, 0.0, 3.0};  // read as 2, then the walk ends
    const double w = 2.0 * 600.0 * PI / 30.0;
    const double expected = 0.5 * w * 4.0e8 / (20.0 * S);
    EXPECT_NEAR(line.loss()[1], expected, 1e-12 * expected);
}
