// A whole forced run of a propeller in ice behind a gear: the ice files hold values, the
// propeller line is marked once, and the mean ice torque joins the nominal torque.
#include <gtest/gtest.h>

#include <string>

#include "../support/TestModels.h"

namespace {

// Four blades, two speed ratios: the constant term and 16 harmonics, cosine and sine rows.
std::string ice_file() {
    std::string text = "ice\nexcitation\nfile\nof a propeller\n0.5 1.0\nf\nf\nf\n0 3000 4000\n";
    for (int k = 0; k < 4; ++k) text += "free\n";
    for (int k = 1; k <= 16; ++k) text += std::to_string(k) + " " + std::to_string(2000 / k) + " 2500\n";
    for (int k = 0; k < 4; ++k) text += "free\n";
    for (int k = 1; k <= 16; ++k) text += std::to_string(k) + " 500 " + std::to_string(900 / k) + "\n";
    return text;
}

// Propeller on inertia 1, a gear between inertias 2 and 3 (3 turns twice as fast), a
// viscous damper on the fast side.
std::string model(bool ice) {
    return std::string("INERTIA 1 1.0 5000 0 0\nINERTIA 2 1.0 800 0 0\nINERTIA 3 2.0 300 0 0\n"
                       "INERTIA 4 2.0 50 0 0\nINERTIA 5 2.0 20 0 0\n"
                       "SHAFT 1 1 2 1.0 5.0E7 0 0 300 0 0 0\nSHAFT 2 2 3 2.0 2.0E7 0 0 200 0 0 0\n"
                       "SHAFT 3 3 4 2.0 1.0E7 0 0 150 0 0 0\nSHAFT 4 4 5 2.0 2.0E5 300 0 0 0 0 0\n"
                       "VISCOUSDAMPER 1 1\n4 5 300 0\n"
                       "PROPELLER 1\n1 2000 150 4 4000 1200 0\n3000 3500 0.8 0.6 1 100 20\n"
                       "ARCHER 30 0 0 2 1 0 0\n0\n") +
           (ice ? "PROPELLERICE 1\n0\nice.txt\n" : "") + "LOADCASE\nRPM PROPELLER\n1\n100 600\n150 2000\n";
}

std::vector<double> run(const qm::test::ScratchDir& dir, bool ice) {
    qm::test::write_file(dir / "ice.txt", ice_file());
    EXPECT_EQ(qm::test::run_model(dir, model(ice), 2), 1);
    return qm::test::read_records(dir / "NominalTorque.bin");
}

}  // namespace

TEST(PropellerIceRun, IceFilesMarksAndMeanTorque) {
    qm::test::ScratchDir withIce;
    const std::vector<double> nominal = run(withIce, true);
    EXPECT_EQ(qm::test::read_records(withIce / "PropellerShaftMarks.bin"), (std::vector<double>{1.0, 2.0, 2.0, 2.0}));
    const std::vector<double> iceTorque = qm::test::read_records(withIce / "SynPropIceTorque.bin");
    ASSERT_EQ(iceTorque.size(), 8U);
    for (double t : iceTorque) EXPECT_GT(t, 0.0);
    EXPECT_EQ(qm::test::read_records(withIce / "SynPropIceDampingTorque.bin").size(), 8U);
    EXPECT_GT(qm::test::read_records(withIce / "SynPropIceDeflection.bin")[0], 0.0);
    EXPECT_GT(qm::test::read_records(withIce / "ResultantTorque.bin")[3], 0.0);

    qm::test::ScratchDir open;
    const std::vector<double> plain = run(open, false);
    ASSERT_EQ(nominal.size(), plain.size());
    // The mean ice torque joins every shaft in both load cases, shared out by the inertia
    // beyond the shaft (2280 and 1480 of 7280 kg m^2 referred) and halved behind the gear.
    for (std::size_t i = 0; i < nominal.size(); ++i) EXPECT_GT(nominal[i] - plain[i], 0.0) << i;
    EXPECT_NEAR((nominal[1] - plain[1]) / (nominal[0] - plain[0]), 1480.0 / 2280.0 / 2.0, 1e-9);
}
