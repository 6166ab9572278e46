#include <gtest/gtest.h>

#include <cmath>

#include "base/ComponentCodes.h"
#include "base/Constants.h"
#include "../support/TestModels.h"
#include "forced/ShaftResults.h"

namespace qm {
namespace {

using namespace FORCEDVIBRATION;

struct Four {
    std::vector<double> AMP, ANGLE, RE, IM;
    explicit Four(std::size_t n) : AMP(n, -1.0), ANGLE(n, -1.0), RE(n, -1.0), IM(n, -1.0) {}
};

TEST(ShaftResults, TorqueReferredToTheOriginSpeed) {
    // Three inertias, two shafts of 1e6 Nm/rad; two order places.
    ModelTables t = test::chain(3, 10.0, 1.0e6);
    const std::vector<double> EXFO{1.0, 2.0};
    // order 1: masses 1 and 2 turn alike; order 2: shaft 1 twisted by (0.3, -0.1)
    const std::vector<double> XR{0.5, 0.5, 0.1, 0.4, 0.1, 0.0};
    const std::vector<double> XI{0.2, 0.2, 0.0, -0.1, 0.0, 0.0};
    Four r(4);
    SINGLELOADCASESHAFTTORQUE(t, 3, 2, 2, EXFO.data(), XR.data(), XI.data(), r.AMP.data(), r.ANGLE.data(),
                              r.RE.data(), r.IM.data());
    EXPECT_EQ(r.RE[0], 0.0);
    EXPECT_EQ(r.AMP[0], 0.0);
    EXPECT_EQ(r.ANGLE[0], PI);  // atan2(+0, -0)
    EXPECT_DOUBLE_EQ(r.RE[2], 1.0e6 * 0.3);
    EXPECT_DOUBLE_EQ(r.IM[2], -1.0e6 * 0.1);
    EXPECT_DOUBLE_EQ(r.AMP[2], 2.0e6 * std::sqrt(0.1));

    // Origin at ratio 2, destination at ratio 1: the destination's deflection counts twice.
    t.MASS_TABLE(1).RPMRATIO = 2.0;
    SINGLELOADCASESHAFTTORQUE(t, 3, 2, 2, EXFO.data(), XR.data(), XI.data(), r.AMP.data(), r.ANGLE.data(),
                              r.RE.data(), r.IM.data());
    EXPECT_DOUBLE_EQ(r.RE[0], 1.0e6 * (0.5 - 2.0 * 0.5));

    // A Geislinger coupling on shaft 2 twists by its stiffness at each order.
    test::add_geislinger(t, 2, 3.0e5, 300.0);
    SINGLELOADCASESHAFTTORQUE(t, 3, 2, 2, EXFO.data(), XR.data(), XI.data(), r.AMP.data(), r.ANGLE.data(),
                              r.RE.data(), r.IM.data());
    for (int o = 1; o <= 2; ++o)
        EXPECT_EQ(r.RE[(o - 1) * 2 + 1], GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(
                                             t.GEISLINGERCOUPLING_TABLE, 1, EXFO[o - 1]) *
                                             (XR[(o - 1) * 3 + 1] - XR[(o - 1) * 3 + 2]));
}

TEST(ShaftResults, StressFromTheDifferenceOfCubes) {
    ModelTables t = test::chain(4, 10.0, 1.0e6);
    t.SHAFT_TABLE(1).OUTERDI = 0.2;
    t.SHAFT_TABLE(2).OUTERDI = 0.2;
    t.SHAFT_TABLE(2).INNERDI = 0.1;
    t.SHAFT_TABLE(3).OUTERDI = 0.0;
    const std::vector<double> TRE{1000.0, 1000.0, 1000.0}, TIM{-500.0, -500.0, -500.0};
    Four r(3);
    SINGLELOADCASESHAFTSTRESS(t.SHAFT_TABLE, 3, 1, TRE.data(), TIM.data(), r.AMP.data(), r.ANGLE.data(), r.RE.data(),
                              r.IM.data());
    EXPECT_DOUBLE_EQ(r.RE[0], 16.0 * 1000.0 / (PI * 0.008));
    EXPECT_DOUBLE_EQ(r.IM[1], 16.0 * -500.0 / (PI * (0.008 - 0.001)));
    EXPECT_EQ(r.RE[2], 0.0);
    EXPECT_EQ(r.AMP[2], 0.0);
    EXPECT_EQ(r.ANGLE[2], 0.0);

    std::vector<double> NOMTORQUE{2000.0, 2000.0, 2000.0}, NOMSTRESS;
    SINGLELOADCASENOMINALSTRESS(t.SHAFT_TABLE, NOMTORQUE, NOMSTRESS);
    EXPECT_EQ(NOMSTRESS, (std::vector<double>{16.0 * 2000.0 / (PI * (0.2 * 0.2 * 0.2)),
                                              16.0 * 2000.0 / (PI * (0.2 * 0.2 * 0.2 - 0.1 * 0.1 * 0.1)), 0.0}));
}

TEST(ShaftResults, DampingTorqueOfDampersAndCouplingsOnly) {
    // Shaft 1 plain (damping ignored), shaft 2 a steel spring damper, shaft 3 a linear coupling.
    ModelTables t = test::chain(4, 10.0, 1.0e6);
    for (int j = 1; j <= 3; ++j) t.SHAFT_TABLE(j).ABSDAMPING = 40.0;
    t.SHAFT_TABLE(2).SHAFTTYPE = CODES::SHAFTTYPE_STEELSPRINGDAMPER;
    t.STEELSPRINGDAMPER_TABLE.allocate(1);
    t.STEELSPRINGDAMPER_TABLE(1).OUTERMEMBERNODE = 2;
    t.STEELSPRINGDAMPER_TABLE(1).INNERMEMBERNODE = 3;
    t.SHAFT_TABLE(3).SHAFTTYPE = CODES::SHAFTTYPE_LINEARCOUPLING;
    t.SHAFT_TABLE(3).DYNMAGNIFIER = 4.0;
    t.LINEARCOUPLING_TABLE.allocate(1);
    t.LINEARCOUPLING_TABLE(1) = {.SHAFTNODE = 3, .NOMINALSTIFFNESS = 2.0e5, .SPEED = 600.0};
    const std::vector<double> EXFO{3.0, 0.0};
    const std::vector<double> VR{1.0, 2.0, 4.0, 8.0, 1.0, 2.0, 4.0, 8.0};
    const std::vector<double> VI{0.0, 1.0, 0.0, 1.0, 0.0, 1.0, 0.0, 1.0};
    Four r(6);
    SINGLELOADCASESHAFTDAMPINGTORQUE(t, 4, 3, 2, EXFO.data(), VR.data(), VI.data(), r.AMP.data(), r.ANGLE.data(),
                                     r.RE.data(), r.IM.data());
    EXPECT_EQ(r.RE[0], 0.0);
    EXPECT_EQ(r.ANGLE[0], 0.0);
    EXPECT_EQ(r.RE[1], 40.0 * (2.0 - 4.0));
    EXPECT_EQ(r.IM[1], 40.0 * 1.0);
    const double c = GLOBAL_LINEARCOUPLING::CALCULATE_LINEARCOUPLING_DAMPING(t.LINEARCOUPLING_TABLE, 1, 4.0, 3.0);
    EXPECT_GT(c, 0.0);
    EXPECT_EQ(r.RE[2], c * (4.0 - 8.0));
    // Order place 2 has order 0: no damping is evaluated there and the torque is zero.
    EXPECT_EQ(std::vector<double>(r.AMP.begin() + 3, r.AMP.end()), std::vector<double>(3, 0.0));
    EXPECT_EQ(std::vector<double>(r.RE.begin() + 3, r.RE.end()), std::vector<double>(3, 0.0));
}

}  // namespace
}  // namespace qm
