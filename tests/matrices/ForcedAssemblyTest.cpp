#include <gtest/gtest.h>

#include "../forced/ForcedTestModels.h"
#include "base/ComponentCodes.h"
#include "matrices/MassStiffnessAndDampingMatrix.h"

namespace qm {
namespace {

using namespace MASSSTIFFNESSANDDAMPINGMATRIX;
using test::chain;

SystemMatrices build(const ModelTables& t, double order = 1.0, bool free = false) {
    SystemMatrices mx;
    BUILDMASSSTIFFNESSANDDAMPINGMATRIX(free, t.MASS_TABLE, t.SHAFT_TABLE, t.GEISLINGERCOUPLING_TABLE, t.DIESEL_TABLE,
                                       t.VISCOUSDAMPER_TABLE, order, mx);
    return mx;
}

std::vector<double> values(const Table<double>& a) { return {a.data(), a.data() + a.size()}; }

TEST(ForcedAssembly, ShaftDampingGoesToCoefficientOrMagnifierArray) {
    ModelTables t = chain(2, 10.0, 4.0e6);
    t.SHAFT_TABLE(1).ABSDAMPING = 10.0;
    SystemMatrices mx = build(t);
    EXPECT_EQ(values(mx.CR), (std::vector<double>{10.0, 10.0, -10.0, -10.0}));
    EXPECT_EQ(values(mx.CRR), (std::vector<double>(4, 0.0)));

    t.SHAFT_TABLE(1).DYNMAGNIFIER = 20.0;  // the 10 is no longer looked at
    mx = build(t);
    EXPECT_EQ(values(mx.CRR), (std::vector<double>{2.0e5, 2.0e5, -2.0e5, -2.0e5}));
    EXPECT_EQ(values(mx.CR), (std::vector<double>(4, 0.0)));

    // Free mode leaves every damping array at zero.
    mx = build(t, 1.0, true);
    EXPECT_EQ(values(mx.CRR), (std::vector<double>(4, 0.0)));
}

TEST(ForcedAssembly, MassDampingAndGearedBranch) {
    ModelTables t = chain(2, 10.0, 1.0e6);
    t.MASS_TABLE(1).ABSDAMPING = 5.0;
    t.MASS_TABLE(1).DYNMAGNIFIER = 40.0;
    t.MASS_TABLE(2).ABSDAMPING = 3.0;
    SystemMatrices mx = build(t);
    EXPECT_EQ(mx.CA(1), 0.0);
    EXPECT_EQ(mx.CAR(1), 10.0 / 40.0);
    EXPECT_EQ(mx.CA(2), 3.0);

    // Everything of a geared part is referred by the square of its ratio.
    t.MASS_TABLE(2).RPMRATIO = 2.0;
    t.SHAFT_TABLE(1).RPMRATIO = 2.0;
    t.SHAFT_TABLE(1).ABSDAMPING = 7.0;
    mx = build(t);
    EXPECT_EQ(mx.M(2), 40.0);
    EXPECT_EQ(mx.CA(2), 12.0);
    EXPECT_EQ(mx.K(3), -4.0e6);
    EXPECT_EQ(mx.CR(1), 28.0);
}

TEST(ForcedAssembly, DamperRingIsADegreeOfFreedom) {
    // hub - casing - ring, the ring on the damper's spring (shaft 2) with custom damping 0
    ModelTables t;
    t.MASS_TABLE.allocate(3);
    test::set_mass(t, 1, 1, 100.0);
    test::set_mass(t, 2, 2, 4.0, 1.0, CODES::MASSTYPE_VISCOUSDAMPERCASING);
    test::set_mass(t, 3, 3, 6.0, 1.0, CODES::MASSTYPE_VISCOUSDAMPERRING);
    t.SHAFT_TABLE.allocate(2);
    test::set_shaft(t, 1, 1, 2, 1.0e6);
    test::set_shaft(t, 2, 2, 3, 5.0e4, 1.0, CODES::SHAFTTYPE_VISCOUSDAMPERSPRING, CODES::COMPONENT_VISCOUSDAMPER, 1);
    t.SHAFT_TABLE(2).ABSDAMPING = 300.0;
    t.VISCOUSDAMPER_TABLE.allocate(1);
    t.VISCOUSDAMPER_TABLE(1).ID = 1;
    t.VISCOUSDAMPER_TABLE(1).CASINGNODE = 2;
    t.VISCOUSDAMPER_TABLE(1).RINGNODE = 3;
    MASSANDSHAFTTABLEPREPARATION(false, t.MASS_TABLE, t.SHAFT_TABLE, t.VISCOUSDAMPER_TABLE, t.LINEARCOUPLING_TABLE,
                                 t.PROGRESSIVECOUPLING_TABLE, t.PROPELLER_TABLE, 1);
    SystemMatrices mx = build(t);
    ASSERT_EQ(mx.N, 3);
    EXPECT_EQ(values(mx.M), (std::vector<double>{100.0, 4.0, 6.0}));
    EXPECT_EQ(mx.CR(2), 300.0);
    EXPECT_EQ(mx.CR(3), 300.0);
    EXPECT_EQ(mx.ROWIND(6), 2);
    EXPECT_EQ(mx.COLIND(6), 3);

    // With a custom curve the damper's damping and stiffness come from it, at the order.
    auto& d = t.VISCOUSDAMPER_TABLE(1);
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
    ModelTables t = chain(3, 10.0, 1.0e6);
    t.MASS_TABLE(1).MASSTYPE = CODES::MASSTYPE_DIESELCYLINDER;
    t.MASS_TABLE(1).COMPONENTTYPE = CODES::COMPONENT_DIESEL;
    t.MASS_TABLE(1).COMPONENTID = 7;
    t.MASS_TABLE(1).DYNMAGNIFIER = 30.0;  // ignored under formula damping
    t.SHAFT_TABLE(1).SHAFTTYPE = CODES::SHAFTTYPE_CRANKTHROW;
    t.SHAFT_TABLE(1).COMPONENTTYPE = CODES::COMPONENT_DIESEL;
    t.SHAFT_TABLE(1).COMPONENTID = 7;
    t.SHAFT_TABLE(1).DYNMAGNIFIER = 50.0;
    t.DIESEL_TABLE.allocate(1);
    auto& e = t.DIESEL_TABLE(1);
    e.ID = 7;
    e.SPEED = 100.0;
    e.CYLABSDAMPING = 2.0;
    e.EXPCYLABSDAMPING = 1.0;
    e.CRANKRELDAMPING = 3.0;
    e.EXPCRANKRELDAMPING = 1.0;
    t.SHAFT_TABLE(2).SHAFTTYPE = CODES::SHAFTTYPE_GEISLINGERCOUPLING;
    t.SHAFT_TABLE(2).DYNMAGNIFIER = 8.0;
    t.GEISLINGERCOUPLING_TABLE.allocate(1);
    auto& g = t.GEISLINGERCOUPLING_TABLE(1);
    g.ID = 1;
    g.SHAFTNODE = 2;
    g.STATICSTIFFNESS = 2.0e6;
    g.NOMINALTORQUE = 1.0e4;
    g.CHARACTERISTICFREQUENCY = 100.0;
    g.DAMPINGTYPE = GLOBAL_GEISLINGERCOUPLING::GENERALDAMPING;
    g.SPEEDEXCITATION = 100.0;

    const double order = 2.0;
    SystemMatrices mx = build(t, order);
    EXPECT_EQ(mx.CA(1), GLOBAL_DIESEL::CALCULATE_DIESEL_DAMPING_CYLINDER(t.DIESEL_TABLE, 1, order));
    EXPECT_GT(mx.CA(1), 0.0);
    EXPECT_EQ(mx.CAR(1), 0.0);
    EXPECT_EQ(mx.CR(5), -GLOBAL_DIESEL::CALCULATE_DIESEL_DAMPING_CRANKTHROW(t.DIESEL_TABLE, 1, order));
    EXPECT_EQ(mx.CRR(5), 0.0);
    // The coupling's stiffness and damping at the order; its magnifier never reaches CRR.
    const double kg = GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(t.GEISLINGERCOUPLING_TABLE, 1, order);
    EXPECT_EQ(mx.K(7), -kg);
    EXPECT_EQ(mx.CR(7), -GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_DAMPING(t.GEISLINGERCOUPLING_TABLE, 1, 8.0, order));
    EXPECT_GT(mx.CR(3), 0.0);
    EXPECT_EQ(mx.CRR(7), 0.0);
    EXPECT_EQ(mx.CRR(3), 0.0);

    // Without formula damping the rows' own magnifiers count.
    e.ISFORMULADAMPING = false;
    mx = build(t, order);
    EXPECT_EQ(mx.CAR(1), 10.0 / 30.0);
    EXPECT_EQ(mx.CRR(5), -1.0e6 / 50.0);
}

}  // namespace
}  // namespace qm
