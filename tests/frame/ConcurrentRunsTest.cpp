// Two different models calculated at once in two threads of one process give, file for
// file and byte for byte, what each gives alone: through the library linked in and through
// the C entry of the shared library.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <set>
#include <thread>

#include "../TestSupport.h"
#include "../abi/SharedLibrary.h"
#include "frame/QuillmarkSolver.h"

namespace qm {
namespace {

// One with an engine, a viscous damper and a coupling; one with a gearbox branch.
const std::array<std::filesystem::path, 2> MODELS = {
    std::filesystem::path(QM_EXAMPLES_DIR) / "two-stroke-main-engine.qmk",
    std::filesystem::path(QM_EXAMPLES_DIR) / "geared-four-stroke" / "geared-four-stroke.qmk"};

const std::set<std::string> FREE_VIBRATION_FILES = {
    "NaturalFrequency.bin", "RelativeDeflection.bin", "RelativeTorque.bin", "VectorSum.bin", "VectorSumRpm.bin",
    "VectorSumAngle.bin",   "SystemInfo.bin",         "Overview.txt",       "Quillmark.log"};

class ConcurrentRuns : public ::testing::TestWithParam<bool> {
protected:
    static int run(const std::filesystem::path& model, const test::ScratchDir& result) {
        const std::string dir = model.parent_path().string(), name = model.filename().string();
        return GetParam() ? test::shared_solver(dir, name, result.str(), 1) : run_solver(dir, name, result.str(), 1);
    }
};

TEST_P(ConcurrentRuns, TwoModelsInTwoThreadsGiveTheFilesOfTwoSerialRuns) {
    std::array<std::map<std::string, std::string>, 2> serial;
    for (std::size_t k = 0; k < 2; ++k) {
        test::ScratchDir alone;
        ASSERT_EQ(run(MODELS[k], alone), 1);
        serial[k] = test::read_directory(alone.path());
        std::set<std::string> names;
        for (const auto& [name, bytes] : serial[k]) names.insert(name);
        EXPECT_EQ(names, FREE_VIBRATION_FILES);
        EXPECT_EQ(serial[k].at("Quillmark.log"), "");
    }
    EXPECT_NE(serial[0].at("NaturalFrequency.bin"), serial[1].at("NaturalFrequency.bin"));

    for (int round = 0; round < 20; ++round) {
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

INSTANTIATE_TEST_SUITE_P(StaticAndShared, ConcurrentRuns, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "SharedLibrary" : "StaticLibrary"; });

}  // namespace
}  // namespace qm
