// Whole forced runs of the two example models, from the input file to the result files,
// against the golden files of tests/data/forced (README.md there tells how they were made).
#include <gtest/gtest.h>

#include <cstdlib>

#include "CompareResults.h"
#include "frame/QuillmarkSolver.h"

namespace fs = std::filesystem;

namespace {

// Values agree to this fraction of the largest magnitude of their channel.
constexpr double kRelativeTolerance = 1e-9;

void run_example(const std::string& example, const std::string& golden_name) {
    qm::test::ScratchDir out;
    const fs::path model = fs::path(QM_EXAMPLES_DIR) / example;
    ASSERT_EQ(qm::run_solver(model.parent_path().string(), model.filename().string(), out.str(), 2), 1);
    const fs::path golden = fs::path(QM_TEST_DATA_DIR) / "forced" / golden_name;
    if (std::getenv("QM_REGENERATE_GOLDEN") != nullptr) {
        fs::remove_all(golden);
        fs::create_directories(golden);
        for (const auto& name : qm::test::result_files_in(out.path())) fs::copy_file(out / name, golden / name);
    }
    qm::test::compare_result_dirs(out.path(), golden, kRelativeTolerance, true);
}

}  // namespace

TEST(ForcedGolden, TwoStrokeMainEngine) { run_example("two-stroke-main-engine.qmk", "two-stroke"); }

TEST(ForcedGolden, GearedFourStroke) { run_example("geared-four-stroke/geared-four-stroke.qmk", "geared-four-stroke"); }
