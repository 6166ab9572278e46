// Energy balance of a solved load case: with one source, one order and only viscous
// damping, the mean power the excitation feeds in equals the shaft power loss plus the
// power absorbed by the absolute damping of the inertias.
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "../support/TestModels.h"
#include "forced/LoadCaseSetting.h"
#include "forced/ShaftPowerLoss.h"
#include "forced/ShaftResults.h"
#include "forced/SourceDriver.h"
#include "input/DataChecking.h"

using namespace qm;
using namespace qm::FORCEDVIBRATION;

namespace {

// A generator exciting its third order at 600 rpm, two damped shafts and one inertia damped
// to ground.
const char* MODEL = R"(Energy balance
INERTIA 1 1.0 10 0 0
INERTIA 2 1.0 20 5 0
INERTIA 3 1.0 30 0 0
SHAFT 1 1 2 1.0 1.0E5 40 0 100 0 0 0
SHAFT 2 2 3 1.0 2.0E5 25 0 100 0 0 0
GENERATOR 1
1 1000 1000 1
3 0 0 0
10 0 0 0
LOADCASE
RPM GENERATOR
1
600 800
)";

}  // namespace

TEST(EnergyBalance, PowerFedInEqualsShaftLossPlusAbsoluteDamping) {
    test::ReadModel model(MODEL);
    ASSERT_TRUE(model.ok);
    ModelTables& t = model.tables;
    const int NMASS = 3, NSHAFT = 2;

    MASSSTIFFNESSANDDAMPINGMATRIX::LOADCASESETTING(t, 1);
    AllKindResults results;
    KindResults& g = results[GENERATOR];
    g.allocate(1, 4, NMASS, NSHAFT);
    std::vector<double> EXFO;
    ASSERT_EQ(run_source_driver(GENERATOR, t, 1, false, 1, g, EXFO).routine, ROUTINE_NONE);
    SINGLELOADCASESHAFTTORQUE(t, NMASS, NSHAFT, 4, EXFO.data(), g.XR.data(), g.XI.data(), g.SHAFTTORQUEAMP.data(),
                              g.SHAFTTORQUEANGLE.data(), g.SHAFTTORQUERE.data(), g.SHAFTTORQUEIM.data());
    std::vector<double> loss;
    SINGLELOADCASESHAFTPOWERLOSS(t, results, loss);

    // Mean of the product of two signals 2 Re(X e^{i phi}) and 2 Re(Y e^{i phi}): 2 Re(X conj Y).
    const double amplitude = t.GENERATOR_TABLE(1).GENTORQUEAMP[0];
    ASSERT_GT(amplitude, 0.0);
    const double FORE = 0.0, FOIM = -0.5 * amplitude;  // amplitude * sin(phi)
    const double fedIn = 2.0 * (FORE * g.VR[0] + FOIM * g.VI[0]);
    double absorbed = 0.0;
    for (int m = 1; m <= NMASS; ++m) {
        const auto i = static_cast<std::size_t>(m - 1);
        absorbed += t.MASS_TABLE(m).ABSDAMPING * 2.0 * (g.VR[i] * g.VR[i] + g.VI[i] * g.VI[i]);
    }
    const double shaftLoss = std::accumulate(loss.begin(), loss.end(), 0.0);
    ASSERT_GT(fedIn, 0.0);
    ASSERT_GT(absorbed, 0.0);
    ASSERT_GT(shaftLoss, 0.0);
    EXPECT_NEAR(shaftLoss + absorbed, fedIn, 1e-6 * fedIn);
}
