// Resultant torque, the propeller's ice synthesis, the mean ice torque and the shaft marks.
#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <utility>

#include "../support/TestModels.h"
#include "forced/PropellerIce.h"

using namespace qm;
using namespace qm::FORCEDVIBRATION;

// Where there is no damping torque the resultant is the synthesized torque; a damping
// torque in quadrature with the torque raises it to their combined amplitude.
TEST(ResultantTorque, AddsTorqueAndDampingTorqueCurvesPerKind) {
    AllKindResults r;
    r[DIESEL].allocate(1, 20, 2, 2);
    r[DIESEL].OMEGA = {10.0};
    r[GENERATOR].allocate(1, 4, 2, 2);
    r[GENERATOR].OMEGA = {15.0};
    r[DIESEL].SHAFTTORQUERE[KindResults::index(1, 1, 1, 2, 20)] = 300.0;
    r[DIESEL].SHAFTTORQUERE[KindResults::index(1, 1, 2, 2, 20)] = 100.0;
    r[GENERATOR].SHAFTTORQUEIM[KindResults::index(1, 1, 2, 2, 4)] = 40.0;
    r[DIESEL].DAMPINGTORQUEIM[KindResults::index(1, 1, 2, 2, 20)] = -100.0;

    std::vector<double> synTorque, synDamping, resultant;
    KindCurves torque, damping;
    SINGLELOADCASESYNTHESIS(2, synthesis_sources(r, &KindResults::SHAFTTORQUERE, &KindResults::SHAFTTORQUEIM), false,
                            synTorque, torque, true, false, false);
    SINGLELOADCASESYNTHESIS(2, synthesis_sources(r, &KindResults::DAMPINGTORQUERE, &KindResults::DAMPINGTORQUEIM),
                            false, synDamping, damping, true, false, false);
    CALCULATERESULTANTTORQUE(2, false, resultant, torque, damping);
    EXPECT_DOUBLE_EQ(resultant[0], synTorque[0]);
    EXPECT_NEAR(resultant[1], 2.0 * std::hypot(100.0, 100.0) + synTorque[1] - 200.0, 1e-9);
}

// The ice synthesis of one kind equals the propeller's half range in the full synthesis,
// and two propellers combine on one curve at their own frequency ratios.
TEST(PropellerIceSynthesis, EqualsThePropellerPartOfTheSynthesis) {
    AllKindResults r;
    KindResults& p = r[PROPELLER];
    p.allocate(2, 9, 3, 1);
    p.OMEGA = {8.0, 12.0};
    for (int u = 1; u <= 2; ++u)
        for (int o = 1; o <= 9; ++o)
            for (int m = 1; m <= 3; ++m) {
                const auto i = KindResults::index(u, o, m, 3, 9);
                p.XR[i] = std::sin(0.3 * u + 0.7 * o + m) / o;
                p.XI[i] = std::cos(1.1 * u - 0.2 * o * m) / (o * o);
            }
    std::vector<double> full, ice;
    KindCurves curves;
    SINGLELOADCASESYNTHESIS(3, synthesis_sources(r, &KindResults::XR, &KindResults::XI), false, full, curves, false,
                            false, false);
    SINGLELOADCASEPROPELLERICESYNTHESIS(3, 2, 9, p.OMEGA, p.XR, p.XI, ice);
    for (int m = 0; m < 3; ++m) EXPECT_NEAR(ice[static_cast<std::size_t>(m)], full[static_cast<std::size_t>(m)], 1e-12);

    const PropellerIceResults all = propeller_ice_synthesis(p, false);
    EXPECT_EQ(all.SYNPROPICEDEFLECTION, ice);
    EXPECT_EQ(all.SYNPROPICETORQUE, std::vector<double>(1, 0.0));
    EXPECT_TRUE(all.SYNPROPICEDAMPINGTORQUE.empty());
}

namespace {

// A line of inertias with IDs 10, 20, ... (not their rows); shaft s joins the masses of
// rows org and des. The propeller sits on the inertia of row `at`.
struct PropellerLine {
    ModelTables t;
    MassTable& masses = t.MASS_TABLE;
    ShaftTable& shafts = t.SHAFT_TABLE;
    PropellerTable& propellers = t.PROPELLER_TABLE;
    std::vector<double> marks;

    PropellerLine(int nMass, std::initializer_list<std::pair<int, int>> edges, int at) {
        test::Model m;
        for (int i = 1; i <= nMass; ++i) m.mass(10 * i, 1.0);
        for (auto [org, des] : edges) m.shaft(10 * org, 10 * des, 1.0e6);
        test::append(m.t.PROPELLER_TABLE, {.PROPELLERNODE = 10 * at});
        t = std::move(m.t);
        marks.assign(static_cast<std::size_t>(shafts.size()), 0.0);
    }
    double mean(int j, int lc = 1, std::vector<double> inertiaRatio = {}) {
        double T = -1.0;
        SINGLELOADCASEPROPELLERICEZEROORDERTORQUE(shafts, masses, propellers, inertiaRatio, j, lc, T, marks);
        return T;
    }
    std::vector<double> all_marks() {
        for (int j = 1; j <= shafts.size(); ++j) mean(j);
        return marks;
    }
};

}  // namespace

// Marks 1.0 along the propeller's free shaft at its speed ratio, 2.0 behind a gear (row 4
// runs at twice the speed) and from the first junction (row 3, three shafts) on.
TEST(PropellerShaftMarks, FreeShaftUpToTheFirstJunctionAtThePropellersRatio) {
    PropellerLine line(6, {{2, 1}, {2, 3}, {3, 4}, {4, 5}, {3, 6}}, 1);
    EXPECT_EQ(line.all_marks(), (std::vector<double>{1.0, 2.0, 2.0, 2.0, 2.0}));

    PropellerLine geared(4, {{1, 2}, {2, 3}, {3, 4}}, 1);
    geared.masses(3).RPMRATIO = 2.0;
    geared.masses(4).RPMRATIO = 2.0;
    EXPECT_EQ(geared.all_marks(), (std::vector<double>{1.0, 2.0, 2.0}));

    // A propeller on a node with three connections: not even its own node is located.
    PropellerLine junction(4, {{1, 2}, {1, 3}, {1, 4}}, 1);
    EXPECT_EQ(junction.all_marks(), (std::vector<double>{2.0, 2.0, 2.0}));

    // Only load case 1 marks.
    PropellerLine later(2, {{1, 2}}, 1);
    later.mean(1, 2);
    EXPECT_EQ(later.marks[0], 0.0);
}

// The mean ice torque is referred from the propeller's ratio to the shaft's and scales
// with the shaft's inertia ratio; a second propeller switches it and the marks off.
TEST(PropellerIceMeanTorque, ScalesWithRatiosAndNeedsExactlyOnePropeller) {
    PropellerLine line(3, {{1, 2}, {2, 3}}, 1);
    line.propellers(1).ICEFOURIERMEAN = 8.0e4;
    EXPECT_EQ(line.mean(1), 0.0);  // no ice excitation on the propeller
    line.propellers(1).HASICEEXCITATION = true;
    line.masses(1).RPMRATIO = 0.25;
    line.shafts(2).RPMRATIO = 0.5;
    EXPECT_DOUBLE_EQ(line.mean(2, 3, {1.0, 0.75}), 8.0e4 * 0.75 * 0.25 / 0.5);
    EXPECT_DOUBLE_EQ(line.mean(1, 3), 8.0e4 * 0.25);

    PropellerTable two = line.propellers;
    line.propellers.allocate(2);
    line.propellers(1) = two(1);
    line.marks.assign(2, 0.0);
    EXPECT_EQ(line.mean(1), 0.0);
    EXPECT_EQ(line.marks[0], 0.0);
}
