// Inputs that must not hang, crash or exhaust the host, run through the real shared library
// in a child process that is stopped and measured from outside.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "../ChildProcess.h"
#include "../TestSupport.h"
#include "SharedLibrary.h"

namespace qm {
namespace {

using test::shared_solver;

// An engine whose normal firing harmonic file is `file`, beside the model.
std::string engine_model(const std::string& file) {
    return "INERTIA 1 1 10 0 0\n"
           "INERTIA 2 1 10 0 0\n"
           "SHAFT 1 1 2 1 1e6 0 0 0 0 0 0\n"
           "DIESEL 1 Engine\n"
           "100 100 2 1 0 0 0 0 1\n"
           "1\n0\n0\n1\n0\n100\n100\n"
           "0.5 1 0.4 0 95 0 0 0\n" +
           file + "\n\n";
}

TEST(HostileInput, PipesAsInputOrSideFileAreRefusedAtOnce) {
    test::ScratchDir dir;
    ASSERT_EQ(mkfifo((dir / "pipe.qmk").c_str(), 0600), 0);
    ASSERT_EQ(mkfifo((dir / "pipe.dat").c_str(), 0600), 0);
    test::write_file(dir / "engine.qmk", engine_model("pipe.dat"));

    auto input = test::run_in_child([&] { return shared_solver(dir.str(), "pipe.qmk", dir.str(), 1); }, 10.0);
    ASSERT_TRUE(input.finished) << "the call blocked on the pipe";
    EXPECT_LT(input.seconds, 1.0);
    EXPECT_EQ(input.exit_code, 0);
    EXPECT_EQ(test::read_lines(dir / "Quillmark.log"),
              std::vector<std::string>{"error occurs when accessing the input file" + (dir / "pipe.qmk").string()});

    auto side = test::run_in_child([&] { return shared_solver(dir.str(), "engine.qmk", dir.str(), 1); }, 10.0);
    ASSERT_TRUE(side.finished) << "the call blocked on the pipe";
    EXPECT_LT(side.seconds, 1.0);
    EXPECT_EQ(side.exit_code, 0);
    const auto log = test::read_lines(dir / "Quillmark.log");
    ASSERT_EQ(log.size(), 2U);
    // The file is named as the model wrote it.
    EXPECT_EQ(log[0], "Error: Diesel   1 has a normal firing harmonic file unaccessable (pipe.dat)");
    EXPECT_EQ(log[1], "Error occurs when reading pipe.dat in line 1");
}

TEST(HostileInput, AnEndlessDeviceAsInputKeepsMemoryBounded) {
    test::ScratchDir dir;
    const long before = test::resident_kib();
    auto zero = test::run_in_child([&] { return shared_solver("/dev", "zero", dir.str(), 1); }, 30.0);
    ASSERT_TRUE(zero.finished);
    EXPECT_EQ(zero.exit_code, 0);
    EXPECT_LT(zero.peak_kib - before, 100 * 1024) << "KiB beyond the parent's memory";
    EXPECT_EQ(test::read_lines(dir / "Quillmark.log"),
              std::vector<std::string>{"error occurs when accessing the input file/dev/zero"});
}

}  // namespace
}  // namespace qm
