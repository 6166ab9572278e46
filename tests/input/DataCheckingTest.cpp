#include <gtest/gtest.h>

#include <algorithm>

#include "../support/TestModels.h"
#include "input/DataChecking.h"

namespace qm {
namespace {

using test::ReadModel;

// Reads and checks `model` (calculation type given) in a scratch folder; the log lines.
std::vector<std::string> check(const std::string& model, int type = 0, test::ScratchDir* keep = nullptr) {
    test::ScratchDir own;
    test::ScratchDir& dir = keep ? *keep : own;
    test::run_model(dir, model, type);
    return test::read_lines(dir / "Quillmark.log");
}

const std::string LINE =
    test::ModelText().inertia(1, 100).inertia(2, 50).inertia(3, 20).shaft(1, 1, 2, 1e6).shaft(2, 2, 3, 1e6);

TEST(DataChecking, FaultsInEveryTableGiveTheGoldenLog) {
    test::ScratchDir dir;
    const std::string model = test::read_file(std::string(QM_TEST_DATA_DIR) + "/datacheck/faulty-model.qmk");
    std::vector<std::string> expected = test::read_lines(std::string(QM_TEST_DATA_DIR) + "/datacheck/faulty-model.log");
    for (std::string& line : expected) {
        const auto at = line.find("MODELDIR");
        if (at != std::string::npos) line.replace(at, 8, dir.str());
    }
    EXPECT_EQ(check(model, 0, &dir), expected);
}

TEST(DataChecking, CleanModelsGiveAnEmptyLog) {
    EXPECT_TRUE(check(LINE).empty());
    EXPECT_TRUE(check(test::read_file(std::string(QM_EXAMPLES_DIR) + "/two-stroke-main-engine.qmk"), 3).empty());
}

TEST(DataChecking, DuplicatesAreCountedPerEarlierRow) {
    const auto log = check(LINE + "INERTIA 2 1 5 0 0\nINERTIA 2 1 5 0 0\n");
    const std::string line = "Error: Inertia   2 has a index (  2) used by another one";
    EXPECT_EQ(std::count(log.begin(), log.end(), line), 3);  // one for the 4th row, two for the 5th
}

TEST(DataChecking, GraphMessagesOnlyOnAnOtherwiseCleanModel) {
    EXPECT_EQ(check(LINE + "INERTIA 4 1 5 0 0\n"),
              std::vector<std::string>{"Error: Not all the inertias are connneted through a certain set of shafts"});
    EXPECT_EQ(check(LINE + "SHAFT 3 3 1 1 1e6 0 0 0 0 0 0\n"),
              std::vector<std::string>{"Error: There is at least one cycle in the inertia-shaft system"});
    EXPECT_EQ(check(LINE + "INERTIA 4 -1 5 0 0\n"),
              std::vector<std::string>{"Error: Inertia   4 has a zero or negative rpm ratio (  -1.000000)"});
}

TEST(DataChecking, ViscousDamperSpringGetsATinyStiffnessAndItsFileIsLoadedDuringItsChecks) {
    const std::string spring0 =
        test::ModelText().inertia(1, 100).inertia(2, 50).inertia(3, 20).shaft(1, 1, 2, 1e6).shaft(2, 2, 3, 0.0);
    EXPECT_TRUE(check(spring0 + "VISCOUSDAMPER 1 1\n2 3 500 0\n").empty());  // damping: the spring may be 0
    const auto log = check(spring0 + "VISCOUSDAMPER 1 1\n2 3 500 1\nnone.txt\nRUBBERDAMPER 2 1\n3 2 -1\n");
    ASSERT_EQ(log.size(), 2U);
    EXPECT_EQ(log[0].rfind("Error occurs when reading ", 0), 0U);  // the loader's line comes first
    EXPECT_EQ(log[1], "Error: Rubber damper   2 has a negative AbsDamping (  -1.000000)");
}

TEST(DataChecking, BoundariesThatPass) {
    const std::string engine = LINE +
        "DIESEL 1 E\n1000 100 4 2 0 1 30 0 1\n1 2\n0 390\n30 420\n1 1\n1 1\n100 100\n100 100\n"
        "300 400 1 100 100 1 2 0\n150 100 1.3 1.3 15 3 40\n100 1 -5 40 179.9 0 0\n"
        "PROPELLER 2\n3 1000 100 4 100 10 0\n3000 500 1 0.5 1 100 0\nARCHER 20 5 0 5 5 0 0\n0\n";
    EXPECT_TRUE(check(engine).empty());
    std::string exhaust = engine;
    exhaust.replace(exhaust.find("179.9"), 5, "90.9");
    EXPECT_EQ(check(exhaust), std::vector<std::string>{
                                  "Error: Diesel   1 has a exhaust start angle no greater than 90 or no less than 180(   90.90000)"});
    // Load case columns are asked for by types 2 and 3 only.
    std::string loadcases = engine + "LOADCASE\nRPM DIESEL\n1\n100 1000\n";
    EXPECT_TRUE(check(loadcases, 1).empty());
    EXPECT_EQ(check(loadcases, 3), std::vector<std::string>{"Error: Propeller   2 does't have load case setting"});
}

}  // namespace
}  // namespace qm
