// Two different models calculated at once in two threads of one process give, file for
// file and byte for byte, what each gives alone.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <thread>

#include "../TestSupport.h"
#include "frame/QuillmarkSolver.h"

namespace qm {
namespace {

constexpr int ROUNDS = 24;

// One with an engine, a viscous damper and a coupling; one with a gearbox branch.
const std::array<std::filesystem::path, 2> MODELS = {
    std::filesystem::path(QM_EXAMPLES_DIR) / "two-stroke-main-engine.qmk",
    std::filesystem::path(QM_EXAMPLES_DIR) / "geared-four-stroke" / "geared-four-stroke.qmk"};

int run(const std::filesystem::path& model, const test::ScratchDir& result) {
    return run_solver(model.parent_path().string(), model.filename().string(), result.str(), 1);
}

TEST(ConcurrentRuns, TwoModelsInTwoThreadsGiveTheFilesOfTwoSerialRuns) {
    std::array<std::map<std::string, std::string>, 2> serial;
    for (std::size_t k = 0; k < 2; ++k) {
        test::ScratchDir alone;
        ASSERT_EQ(run(MODELS[k], alone), 1);
        serial[k] = test::read_directory(alone.path());
        ASSERT_GE(serial[k].size(), 9U);  // log, system information, overview and six result files
    }
    EXPECT_NE(serial[0].at("NaturalFrequency.bin"), serial[1].at("NaturalFrequency.bin"));

    for (int round = 0; round < ROUNDS; ++round) {
        test::ScratchDir a, b;
        int valid_a = -1, valid_b = -1;
        std::thread first([&] { valid_a = run(MODELS[0], a); });
        std::thread second([&] { valid_b = run(MODELS[1], b); });
        first.join();
        second.join();
        ASSERT_EQ(valid_a, 1) << "round " << round;
        ASSERT_EQ(valid_b, 1) << "round " << round;
        ASSERT_EQ(test::read_directory(a.path()), serial[0]) << "round " << round;
        ASSERT_EQ(test::read_directory(b.path()), serial[1]) << "round " << round;
    }
}

}  // namespace
}  // namespace qm
