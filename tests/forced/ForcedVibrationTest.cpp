// Whole forced runs of small and awkward models: which files exist and how long they are,
// and load cases that must run to the end.
#include "forced/ForcedVibration.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "../support/TestModels.h"
#include "components/GlobalPropeller.h"

namespace fs = std::filesystem;
using namespace qm::FORCEDVIBRATION;

namespace {

int run(const qm::test::ScratchDir& dir, const std::string& model) { return qm::test::run_model(dir, model, 2); }

std::uintmax_t records(const qm::test::ScratchDir& dir, ResultFile f) {
    const fs::path p = dir / result_file_name(f);
    return fs::exists(p) ? fs::file_size(p) / 8 : 0;
}

// The two-stroke example with its load cases replaced by `rows`.
std::string example_with_load_cases(const std::string& rows) {
    std::ifstream in(std::string(QM_EXAMPLES_DIR) + "/two-stroke-main-engine.qmk");
    std::stringstream text;
    text << in.rdbuf();
    const std::string model = text.str();
    return model.substr(0, model.rfind("\nLOADCASE")) + "\nLOADCASE\nRPM DIESEL PROPELLER\n1 1\n" + rows;
}

}  // namespace

TEST(ForcedVibration, ModelWithoutSourcesWritesZerosAndEmptyKindFiles) {
    qm::test::ScratchDir dir;
    ASSERT_EQ(run(dir, "INERTIA 1 1.0 100 0 0\nINERTIA 2 1.0 200 0 0\n"
                       "SHAFT 1 1 2 1.0 1.0E6 0 0 100 0 0 0\n"
                       "GASTURBINE 1\n1 1000 3000\n"
                       "OUTPUTANGLEBASEDRESULTS\n"
                       "LOADCASE\nRPM GASTURBINE\n1\n1500 500\n3000 1000\n"),
              1);
    std::size_t existing = 0;
    for (int f = 0; f < NRESULTFILE; ++f) existing += fs::exists(dir / result_file_name(static_cast<ResultFile>(f)));
    EXPECT_EQ(existing, 38U);  // no damper or coupling, no ice, no engine: no curve files either
    EXPECT_EQ(records(dir, DIESEL_DEFLECTION), 0U);
    EXPECT_EQ(records(dir, RECIPROCATINGPUMP_STRESS), 0U);
    EXPECT_EQ(qm::test::read_records(dir / "SynthesisTorque.bin"), std::vector<double>(2, 0.0));
    // 500 kW through the shaft at 1500 rpm
    const auto nominal = qm::test::read_records(dir / "NominalTorque.bin");
    ASSERT_EQ(nominal.size(), 2U);
    EXPECT_DOUBLE_EQ(nominal[0], 500000.0 / (1500.0 * 3.141592653589793 / 30.0));
}

TEST(ForcedVibration, ZeroPowerAndStandstillLoadCasesRunToTheEnd) {
    qm::test::ScratchDir dir;
    // at a standstill no order turns: zero response instead of a solve of a singular line
    ASSERT_EQ(run(dir, example_with_load_cases("60 0 0\n0 0 0\n80 1900 1870\n")), 1);
    const int NMASS = 14, NSHAFT = 13, NORDER = 20;
    EXPECT_EQ(records(dir, DIESEL_DEFLECTION), 4U * 3 * NORDER * NMASS);
    EXPECT_EQ(records(dir, PROPELLER_TORQUE), 4U * 3 * 2 * NSHAFT);
    EXPECT_EQ(records(dir, DIESEL_DAMPINGTORQUE), 4U * 3 * NORDER * NSHAFT);
    const auto x = qm::test::read_records(dir / "DieselDeflection.bin");
    for (int e = 1; e <= NMASS; ++e) EXPECT_EQ(x[per_order_record(2, 1, 6, e, 1, 1, NMASS, NORDER) - 1], 0.0);
    EXPECT_GT(x[per_order_record(3, 1, 6, 4, 1, 1, NMASS, NORDER) - 1], 0.0);
    const auto nominal = qm::test::read_records(dir / "NominalTorque.bin");
    ASSERT_EQ(nominal.size(), 3U * NSHAFT);
    EXPECT_EQ(nominal[per_element_record(1, 13, NSHAFT) - 1], 0.0);           // no power at 60 rpm
    EXPECT_TRUE(std::isnan(nominal[per_element_record(2, 13, NSHAFT) - 1]));  // 0 W / 0 rpm
    EXPECT_GT(nominal[per_element_record(3, 13, NSHAFT) - 1], 0.0);
}

TEST(ForcedVibration, UnitsWithoutOrdersKeepZeroBlocksOrDeriveFromZeroDeflection) {
    qm::test::ScratchDir dir;
    // generator 1 and the motor have order number 0, generator 2 turns order 2
    ASSERT_EQ(run(dir, "INERTIA 1 1.0 50 0 0\nINERTIA 2 1.0 80 0 0\nINERTIA 3 1.0 60 0 0\n"
                       "SHAFT 1 1 2 1.0 1.0E6 0 0 100 0 0 0\nSHAFT 2 2 3 1.0 1.0E6 0 0 100 0 0 0\n"
                       "ELECTRICMOTOR 1\n1 500 1500 0 0 0\n2 0 0 0\n1 0 0 0\n"
                       "GENERATOR 1\n3 300 1500 0\n2 0 0 0\n1 0 0 0\n"
                       "GENERATOR 2\n2 200 1500 2\n2 0 0 0\n1 0 0 0\n"
                       "LOADCASE\nRPM ELECTRICMOTOR GENERATOR GENERATOR\n1 1 2\n1500 500 300 200\n"),
              1);
    const int NSHAFT = 2, NORDER = 4;
    const auto gen = qm::test::read_records(dir / "GeneratorTorque.bin");
    const auto motor = qm::test::read_records(dir / "ElectricMotorTorque.bin");
    ASSERT_EQ(gen.size(), 4U * 2 * NORDER * NSHAFT);
    ASSERT_EQ(motor.size(), 4U * 1 * NORDER * NSHAFT);
    for (int o = 1; o <= NORDER; ++o)
        for (int e = 1; e <= NSHAFT; ++e) {
            // a generator without orders is skipped: its block stays all zero, angle 0.0
            EXPECT_EQ(gen[per_order_record(1, 1, o, e, 2, 2, NSHAFT, NORDER) - 1], 0.0);
            // the motor's shaft results still run, on zero deflection: atan2(+0, -0) is pi
            EXPECT_EQ(motor[per_order_record(1, 1, o, e, 1, 1, NSHAFT, NORDER) - 1], 0.0);
            EXPECT_DOUBLE_EQ(motor[per_order_record(1, 1, o, e, 2, 1, NSHAFT, NORDER) - 1], 3.141592653589793);
        }
    EXPECT_GT(gen[per_order_record(1, 2, 1, 1, 1, 2, NSHAFT, NORDER) - 1], 0.0);
}

TEST(ForcedVibration, AngleBasedCurvesOfAnEngineModel) {
    qm::test::ScratchDir dir;
    ASSERT_EQ(run(dir, "OUTPUTANGLEBASEDRESULTS\n" + example_with_load_cases("60 1586 1562\n80 3760 3700\n")), 1);
    const int NMASS = 14, NSHAFT = 13;
    std::size_t existing = 0;
    for (int f = 0; f < NRESULTFILE; ++f) existing += fs::exists(dir / result_file_name(static_cast<ResultFile>(f)));
    EXPECT_EQ(existing, 38U + 10U + 8U);  // the curves and the damping torque files
    EXPECT_EQ(records(dir, ANGULARDEF_PROPELLER), 360U * 2 * NMASS);
    EXPECT_EQ(records(dir, TORQUEANGLE_DIESEL), 360U * 2 * NSHAFT);
    EXPECT_EQ(records(dir, RESULTANT_TORQUE), 2U * NSHAFT);
}

// A propeller with variable entrained water but no table of it falls back on its nominal
// water in every load case; the forced run logs the loader's message once per load case,
// in the place of that load case, and runs to the end.
TEST(ForcedVibration, PropellerWithoutEntrainedWaterTableLogsItsMessagePerLoadCase) {
    qm::test::ScratchDir dir;
    ASSERT_EQ(run(dir, "INERTIA 1 1.0 5000 0 0\nINERTIA 2 1.0 800 0 0\n"
                       "SHAFT 1 1 2 1.0 5.0E7 0 0 300 0 0 0\n"
                       "PROPELLER 1\n1 2000 150 4 4000 1200 0\n3000 3500 0.8 0.6 1 100 20\n"
                       "ARCHER 30 0 0 2 1 0 0\n1\n''\n"
                       "LOADCASE\nRPM PROPELLER\n1\n100 600\n150 2000\n"),
              1);
    const std::string message = qm::GLOBAL_PROPELLER::ENTRAINEDWATERERROR;
    EXPECT_EQ(message, "Error occurs when setting variable propeller entrained water inertia at Propeller!");
    EXPECT_EQ(qm::test::read_lines(dir / "Quillmark.log"), std::vector<std::string>(2, message));
    EXPECT_EQ(qm::test::read_records(dir / "NominalTorque.bin").size(), 2U);
}
