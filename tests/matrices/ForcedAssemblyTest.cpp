#include <gtest/gtest.h>

#include "../support/TestModels.h"
#include "base/ComponentCodes.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"

namespace qm {
namespace {

using namespace MASSSTIFFNESSANDDAMPINGMATRIX;

SystemMatrices build(const ModelTables& t, double order = 1.0, bool free = false) {
    SystemMatrices mx;
    BUILDMASSSTIFFNESSANDDAMPINGMATRIX(free, t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE,
                                       t.VISCOUSDAMPER_TABLE, order, mx);
    return mx;
}

std::vector<double> values(const Table<double>& a) { return {a.data(), a.data() + a.size()}; }

TEST(ForcedAssembly, CoefficientOrMagnifierFormAndGearedBranch) {
    ModelTables t = test::chain(2, 10.0, 4.0e6);
    t.SHAFT_TABLE(1).ABSDAMPING = 10.0;
    t.MASS_TABLE(1).ABSDAMPING = 5.0;
    t.MASS_TABLE(1).DYNMAGNIFIER = 40.0;
    t.MASS_TABLE(2).ABSDAMPING = 3.0;
    SystemMatrices mx = build(t);
    EXPECT_EQ(values(mx.CR), (std::vector<double>{10.0, 10.0, -10.0, -10.0}));
    EXPECT_EQ(values(mx.CRR), std::vector<double>(4, 0.0));
    EXPECT_EQ(values(mx.CA), (std::vector<double>{0.0, 3.0}));
    EXPECT_EQ(values(mx.CAR), (std::vector<double>{10.0 / 40.0, 0.0}));
    EXPECT_EQ(values(build(t, 1.0, true).CA), std::vector<double>(2, 0.0));  // free mode: no damping

    t.SHAFT_TABLE(1).DYNMAGNIFIER = 20.0;  // the 10 is no longer looked at
    EXPECT_EQ(values(build(t).CRR), (std::vector<double>{2.0e5, 2.0e5, -2.0e5, -2.0e5}));
    EXPECT_EQ(values(build(t).CR), std::vector<double>(4, 0.0));

    // A geared part is referred by the square of its ratio, damping as stiffness and inertia.
    t.MASS_TABLE(2).RPMRATIO = 2.0;
    t.SHAFT_TABLE(1).RPMRATIO = 2.0;
    mx = build(t);
    EXPECT_EQ(mx.M(2), 40.0);
    EXPECT_EQ(mx.CA(2), 12.0);
    EXPECT_EQ(mx.K(3), -1.6e7);
    EXPECT_EQ(mx.CRR(1), 8.0e5);
}

TEST(ForcedAssembly, DamperRingIsADegreeOfFreedomWithItsCurves) {
    // hub - casing - ring, the ring on the damper's spring (shaft 2)
    ModelTables t = test::Model().mass(1, 100.0).shaft(1, 2, 1.0e6).viscous_damper(1, 2, 4.0, 3, 6.0, 5.0e4).t;
    t.SHAFT_TABLE(2).ABSDAMPING = 300.0;
    auto& d = t.VISCOUSDAMPER_TABLE(1);
    MASSANDSHAFTTABLEPREPARATION(false, t.MASS_TABLE, t.SHAFT_TABLE, t.VISCOUSDAMPER_TABLE, t.LINEARCOUPLING_TABLE,
                                 t.PROGRESSIVECOUPLING_TABLE, t.PROPELLER_TABLE, 1);
    SystemMatrices mx = build(t);
    EXPECT_EQ(values(mx.M), (std::vector<double>{100.0, 4.0, 6.0}));  // no half ring on the casing
    EXPECT_EQ(mx.CR(3), 300.0);

    // With custom curves the damper's damping and stiffness come from them, at the order.
    d.ISCUSTOMDAMPING = d.ISCUSTOMSTIFFNESS = true;
    d.NFREQUENCY = 1;
    d.FREQUENCIES = {10.0};
    d.CUSTOMDAMPING = {123.0};
    d.CUSTOMSTIFFNESS = {7.0e4};
    t.SHAFT_TABLE(2).DYNMAGNIFIER = 5.0;  // replaced: the curve gives a coefficient
    mx = build(t, 2.0);
    EXPECT_EQ(mx.CR(3), 123.0);
    EXPECT_EQ(mx.CRR(3), 0.0);
    EXPECT_EQ(mx.K(7), -7.0e4);
}

TEST(ForcedAssembly, FormulaDampedEngineAndGeislingerCoupling) {
    // Mass 1 a cylinder of engine 7, shaft 1 its crank throw, shaft 2 a Geislinger coupling.
    ModelTables t = test::Model()
                        .mass(1, 10.0, 1.0, CODES::MASSTYPE_DIESELCYLINDER, CODES::COMPONENT_DIESEL, 7)
                        .mass(2, 10.0)
                        .mass(3, 10.0)
                        .shaft(1, 2, 1.0e6, 1.0, CODES::SHAFTTYPE_CRANKTHROW, CODES::COMPONENT_DIESEL, 7)
                        .shaft(2, 3, 1.0e6)
                        .t;
    t.MASS_TABLE(1).DYNMAGNIFIER = 30.0;  // ignored under formula damping
    t.SHAFT_TABLE(1).DYNMAGNIFIER = 50.0;
    t.DIESEL_TABLE.allocate(1);
    auto& e = t.DIESEL_TABLE(1);
    e.ID = 7;
    e.SPEED = 100.0;
    e.CYLABSDAMPING = 2.0;
    e.EXPCYLABSDAMPING = e.EXPCRANKRELDAMPING = 1.0;
    e.CRANKRELDAMPING = 3.0;
    test::add_geislinger(t, 2, 2.0e6, 100.0);
    t.SHAFT_TABLE(2).DYNMAGNIFIER = 8.0;

    SystemMatrices mx = build(t, 2.0);
    EXPECT_EQ(mx.CA(1), GLOBAL_DIESEL::CALCULATE_DIESEL_DAMPING_CYLINDER(t.DIESEL_TABLE, 1, 2.0));
    EXPECT_GT(mx.CA(1), 0.0);
    EXPECT_EQ(mx.CAR(1), 0.0);
    EXPECT_EQ(mx.CR(5), -GLOBAL_DIESEL::CALCULATE_DIESEL_DAMPING_CRANKTHROW(t.DIESEL_TABLE, 1, 2.0));
    // The coupling at the order; its magnifier reaches CR through its damping, never CRR.
    const auto& g = t.GEISLINGERCOUPLING_TABLE;
    EXPECT_EQ(mx.K(7), -GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(g, 1, 2.0));
    EXPECT_EQ(mx.CR(7), -GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_DAMPING(g, 1, 8.0, 2.0));
    EXPECT_GT(mx.CR(3), 0.0);
    EXPECT_EQ(values(mx.CRR), std::vector<double>(7, 0.0));

    // Without formula damping the rows' own magnifiers count.
    e.ISFORMULADAMPING = false;
    mx = build(t, 2.0);
    EXPECT_EQ(mx.CAR(1), 10.0 / 30.0);
    EXPECT_EQ(mx.CRR(5), -1.0e6 / 50.0);
}

}  // namespace
}  // namespace qm
