// Load cases on several threads: every file of a run, the log included, is byte for byte that
// of the run on one thread, also where a load case takes over working fields of the one before.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "../TestSupport.h"
#include "../support/TestModels.h"
#include "forced/LoadCaseWalk.h"
#include "frame/QuillmarkSolver.h"
#include "quillmark/quillmark.h"

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

namespace {

Files run(const fs::path& model, const fs::path& out, int type, int threads) {
    fs::create_directories(out);
    EXPECT_EQ(qm::run_solver(model.parent_path().string(), model.filename().string(), out.string(), type, false,
                             threads),
              1);
    return qm::test::read_directory(out);
}

// The same run through the exported entry that takes the number of threads.
Files run_export(const fs::path& model, const fs::path& out, int type, int threads) {
    fs::create_directories(out);
    const auto codes = [](const std::string& s) { return std::vector<int32_t>(s.begin(), s.end()); };
    const auto dir = codes(model.parent_path().string()), name = codes(model.filename().string()),
               result = codes(out.string());
    const auto dl = static_cast<int32_t>(dir.size()), nl = static_cast<int32_t>(name.size()),
               rl = static_cast<int32_t>(result.size());
    int32_t valid = 0;
    const int32_t t = type, n = threads;
    QUILLMARKSOLVERTHREADS(dir.data(), &dl, name.data(), &nl, result.data(), &rl, &valid, &t, &n);
    EXPECT_EQ(valid, 1);
    return qm::test::read_directory(out);
}

// The two-stroke example with its load cases replaced by `rows`: speed, engine and propeller
// power.
fs::path two_stroke_with(const fs::path& dir, const std::string& name, const std::string& rows) {
    std::string model = qm::test::read_file(fs::path(QM_EXAMPLES_DIR) / "two-stroke-main-engine.qmk");
    model = model.substr(0, model.rfind("\nLOADCASE")) + "\nLOADCASE\nRPM DIESEL PROPELLER\n1 1\n" + rows;
    fs::create_directories(dir);
    qm::test::write_file(dir / name, model);
    return dir / name;
}

// The records of load case lc of a file of one value per element and load case.
std::vector<double> load_case_records(const std::string& bytes, int NLOADCASE, int lc) {
    std::vector<double> all(bytes.size() / 8);
    std::memcpy(all.data(), bytes.data(), all.size() * 8);
    const std::size_t n = all.size() / static_cast<std::size_t>(NLOADCASE);
    return {all.begin() + static_cast<std::ptrdiff_t>(n * (lc - 1)), all.begin() + static_cast<std::ptrdiff_t>(n * lc)};
}

}  // namespace

TEST(ThreadedSweep, TwoStrokeExampleWritesTheSameFilesOnAnyNumberOfThreads) {
    qm::test::ScratchDir out;
    const fs::path model = fs::path(QM_EXAMPLES_DIR) / "two-stroke-main-engine.qmk";
    for (const int type : {2, 3}) {
        const std::string t = std::to_string(type);
        const Files serial = run(model, out / ("serial" + t), type, 1);
        EXPECT_GT(serial.size(), 40U);
        EXPECT_TRUE(serial == run(model, out / ("two" + t), type, 2)) << "type " << type;
        EXPECT_TRUE(serial == run(model, out / ("cores" + t), type, 0)) << "type " << type;
    }
}

TEST(ThreadedSweep, TwoEngineGearboxWritesTheSameFilesOnAnyNumberOfThreads) {
    qm::test::ScratchDir out;
    const fs::path model = qm::test::two_engine_gearbox(out / "model");
    const Files serial = run(model, out / "serial", 2, 1);
    EXPECT_TRUE(serial == run_export(model, out / "two", 2, 2));
    EXPECT_TRUE(serial == run_export(model, out / "three", 2, 3));
}

// The propeller's damping follows its torque; a load case in which the propeller takes no
// power leaves the propeller's inertia with the damping of the load case before. A worker
// that computes such a load case must see that damping, not the one of its own last load case.
TEST(ThreadedSweep, DampingCarriedOverFromTheLoadCaseBeforeIsThatOfTheSerialSweep) {
    qm::test::ScratchDir out;
    const std::string tail = "82 4048 0\n94 6099 6007\n60 1586 0\n100 7343 7232\n";
    const fs::path model = two_stroke_with(out / "model", "carry.qmk", "70 2519 2481\n" + tail);
    const Files serial = run(model, out / "serial", 2, 1);
    EXPECT_TRUE(serial == run(model, out / "two", 2, 2));
    EXPECT_TRUE(serial == run(model, out / "three", 2, 3));

    // The carry-over is real: another load case before it changes load case 2.
    const fs::path other = two_stroke_with(out / "model", "other.qmk", "40 470 463\n" + tail);
    const Files changed = run(other, out / "other", 2, 1);
    const std::string file = "SynthesisTorque.bin";
    EXPECT_NE(load_case_records(serial.at(file), 5, 2), load_case_records(changed.at(file), 5, 2));
    EXPECT_EQ(load_case_records(serial.at(file), 5, 3), load_case_records(changed.at(file), 5, 3));
}

TEST(ThreadedSweep, ThreadCountFollowsTheRequestTheLoadCasesAndTheBound) {
    using qm::FORCEDVIBRATION::sweep_threads;
    EXPECT_EQ(sweep_threads(1, 200), 1);
    EXPECT_EQ(sweep_threads(8, 3), 3);
    EXPECT_EQ(sweep_threads(0, 0), 1);
    EXPECT_EQ(sweep_threads(100000, 100000), qm::FORCEDVIBRATION::MAXSWEEPTHREADS);
    EXPECT_GE(sweep_threads(0, 200), 1);
    EXPECT_LE(sweep_threads(-3, 2), 2);
}
