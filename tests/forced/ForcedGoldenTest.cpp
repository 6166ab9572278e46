// Whole forced runs of the two example models, from the input file to the result files,
// against the golden files of tests/data/forced (README.md there tells how they were made).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>

#include "../TestSupport.h"
#include "forced/ResultFiles.h"
#include "frame/QuillmarkSolver.h"

namespace fs = std::filesystem;
using namespace qm::FORCEDVIBRATION;

namespace {

// Values agree to this fraction of the largest magnitude of their channel: a file, and in
// the per-order files one of the four fields. Angles are measured against pi.
constexpr double kRelativeTolerance = 1e-9;

void compare_channel(const std::string& name, const std::vector<double>& got, const std::vector<double>& want,
                     std::size_t stride, std::size_t field, bool angle) {
    double scale = angle ? 3.141592653589793 : 0.0;
    for (std::size_t i = field; i < want.size(); i += stride) scale = std::max(scale, std::fabs(want[i]));
    const double tol = kRelativeTolerance * scale + 1e-300;
    std::size_t bad = 0;
    for (std::size_t i = field; i < want.size(); i += stride) {
        const bool same = std::isnan(want[i]) ? std::isnan(got[i]) : std::fabs(got[i] - want[i]) <= tol;
        if (!same && bad++ < 3)
            ADD_FAILURE() << name << " record " << i + 1 << ": " << got[i] << " instead of " << want[i];
    }
}

void run_example(const std::string& example, const std::string& golden_name) {
    qm::test::ScratchDir out;
    const fs::path model = fs::path(QM_EXAMPLES_DIR) / example;
    ASSERT_EQ(qm::run_solver(model.parent_path().string(), model.filename().string(), out.str(), 2), 1);
    const fs::path golden = fs::path(QM_TEST_DATA_DIR) / "forced" / golden_name;

    std::set<std::string> produced;
    for (int f = 0; f < NRESULTFILE; ++f)
        if (fs::exists(out / result_file_name(static_cast<ResultFile>(f))))
            produced.insert(result_file_name(static_cast<ResultFile>(f)));
    produced.insert("LoadCaseSetting.txt");
    if (std::getenv("QM_REGENERATE_GOLDEN") != nullptr) {
        fs::remove_all(golden);
        fs::create_directories(golden);
        for (const auto& name : produced) fs::copy_file(out / name, golden / name);
    }

    std::set<std::string> expected;
    for (const auto& entry : fs::directory_iterator(golden)) expected.insert(entry.path().filename().string());
    EXPECT_EQ(produced, expected);
    EXPECT_EQ(qm::test::read_file(out / "LoadCaseSetting.txt"), qm::test::read_file(golden / "LoadCaseSetting.txt"));

    for (int f = 0; f < NRESULTFILE; ++f) {
        const auto file = static_cast<ResultFile>(f);
        const std::string name = result_file_name(file);
        if (!expected.count(name)) continue;
        const auto got = qm::test::read_records(out / name);
        const auto want = qm::test::read_records(golden / name);
        ASSERT_EQ(got.size(), want.size()) << name;
        if (result_file_family(file) == PER_ORDER)
            for (std::size_t c = 0; c < 4; ++c) compare_channel(name, got, want, 4, c, c == 1);
        else
            compare_channel(name, got, want, 1, 0, false);
    }
}

}  // namespace

TEST(ForcedGolden, TwoStrokeMainEngine) { run_example("two-stroke-main-engine.qmk", "two-stroke"); }

TEST(ForcedGolden, GearedFourStroke) { run_example("geared-four-stroke/geared-four-stroke.qmk", "geared-four-stroke"); }
