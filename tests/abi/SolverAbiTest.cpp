// The C interface, exercised through the real shared library as a host program loads it.
#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <set>

#include "../TestSupport.h"
#include "SharedLibrary.h"

namespace qm {
namespace {

using test::shared_solver;

const std::string TWO_MASSES =
    "Two inertias on one shaft\n"
    "INERTIA 1 1,0 1500 0 0\n"
    "INERTIA 2 1,0 300 0 0\n"
    "SHAFT 1 1 2 1.0 2.5E8 0 30 300 100 0 0\n";

// The lines a command prints; the test fails when it does not end well.
std::vector<std::string> output_of(const std::string& cmd) {
    std::vector<std::string> lines;
    FILE* pipe = popen(cmd.c_str(), "r");
    if (pipe == nullptr) return lines;
    char line[1024];
    while (std::fgets(line, sizeof line, pipe) != nullptr) {
        std::string s(line);
        while (!s.empty() && (s.back() == '\n' || s.back() == '\r')) s.pop_back();
        lines.push_back(s);
    }
    EXPECT_EQ(pclose(pipe), 0) << cmd;
    return lines;
}

TEST(SharedLibrary, ExportsOnlyTheFunctionsOfThePublicHeader) {
    const std::string header = test::read_file(std::string(QM_PUBLIC_HEADER_DIR) + "/quillmark/quillmark.h");
    std::set<std::string> declared, exported;
    const std::regex decl(R"(QUILLMARK_API\s+(?:void|int32_t|double)\s*\*?\s*([A-Z_0-9]+)\s*\()");
    for (std::sregex_iterator it(header.begin(), header.end(), decl), end; it != end; ++it)
        declared.insert((*it)[1]);
    ASSERT_TRUE(declared.count("QUILLMARKSOLVER"));
    for (const std::string& s : output_of(std::string("nm -D --defined-only '") + QM_SHARED_LIBRARY + "'"))
        exported.insert(s.substr(s.rfind(' ') + 1));
    EXPECT_EQ(exported, declared);
}

// Calls share nothing: the library's own writable data are the per-thread transform
// tables and the per-thread success flag of the pressure curve, nothing else.
TEST(SharedLibrary, HoldsNoWritableDataButPerThreadOnes) {
    const std::regex writable(R"(\s\.(data|bss|tdata|tbss)\s)");
    std::set<std::string> found;
    for (const std::string& s : output_of(std::string("objdump -t -C '") + QM_SHARED_LIBRARY + "'")) {
        if (!std::regex_search(s, writable)) continue;
        if (s.find("qm::") == std::string::npos && s.find("(anonymous namespace)") == std::string::npos) continue;
        const bool per_thread = s.find(".tbss") != std::string::npos || s.find(".tdata") != std::string::npos;
        std::string what = s;
        if (s.find("DISCRETEFOURIERTRANSFORM") != std::string::npos) what = "transform table";
        if (s.find("last_pressure_curve_success") != std::string::npos) what = "pressure curve flag";
        found.insert((per_thread ? "per thread: " : "shared: ") + what);
    }
    EXPECT_EQ(found, (std::set<std::string>{"per thread: pressure curve flag", "per thread: transform table"}));
}

// Two masses, 1500 and 300 kg m^2, on 2.5e8 Nm/rad: sqrt(2.5e8 * 1800 / (1500 * 300)) = 1000 rad/s.
// The same bytes come out whatever separators, padding or high bits the texts carry.
TEST(SharedLibrary, FreeCalculationAndHowTheTextsAreSpelt) {
    test::ScratchDir dir;
    test::write_file(dir / "model.qmk", TWO_MASSES);
    ASSERT_EQ(shared_solver(dir.str(), "model.qmk", dir.str(), 1), 1);
    const auto d = test::read_records(dir / "NaturalFrequency.bin");
    ASSERT_EQ(d.size(), 2U);
    EXPECT_EQ(d[0], 0.0);
    EXPECT_NEAR(d[1], 1000.0, 1e-9);
    EXPECT_EQ(test::read_file(dir / "Quillmark.log"), "");
    const std::string first = test::read_file(dir / "NaturalFrequency.bin");

    struct Spelling {
        std::string dir, name, result;
        int32_t high;
    };
    for (const Spelling& s : {Spelling{dir.str() + "/", "model.qmk", dir.str() + "/", 0},
                              Spelling{"  " + dir.str() + "  ", "  model.qmk ", "   " + dir.str(), 0},
                              Spelling{dir.str(), "model.qmk", dir.str(), 0x300}}) {
        std::filesystem::remove(dir / "NaturalFrequency.bin");
        ASSERT_EQ(shared_solver(s.dir, s.name, s.result, 1, s.high), 1) << s.dir << "|" << s.name << "|" << s.high;
        EXPECT_EQ(test::read_file(dir / "NaturalFrequency.bin"), first);
    }

    // Type 0 checks the model only; any value but 0 and the forced types runs the free vibration.
    std::filesystem::remove(dir / "NaturalFrequency.bin");
    EXPECT_EQ(shared_solver(dir.str(), "model.qmk", dir.str(), 0), 1);
    EXPECT_FALSE(std::filesystem::exists(dir / "NaturalFrequency.bin"));
    EXPECT_TRUE(std::filesystem::exists(dir / "Quillmark.log"));
    EXPECT_EQ(shared_solver(dir.str(), "model.qmk", dir.str(), 7), 1);
    EXPECT_EQ(test::read_file(dir / "NaturalFrequency.bin"), first);
}

TEST(SharedLibrary, AFailedReadIsInvalidAndTheNextGoodRunWorks) {
    test::ScratchDir dir;
    test::write_file(dir / "bad.qmk", "INERTIA 1 1.0\n");
    test::write_file(dir / "good.qmk", TWO_MASSES);
    EXPECT_EQ(shared_solver(dir.str(), "bad.qmk", dir.str(), 1), 0);
    const auto log = test::read_lines(dir / "Quillmark.log");
    ASSERT_EQ(log.size(), 1U);
    EXPECT_EQ(log[0].rfind("Error occurs when reading \"Id, RpmRatio", 0), 0U);
    EXPECT_FALSE(std::filesystem::exists(dir / "NaturalFrequency.bin"));
    EXPECT_EQ(shared_solver(dir.str(), "good.qmk", dir.str(), 1), 1);
    EXPECT_EQ(test::read_file(dir / "Quillmark.log"), "");  // every run replaces the log
}

TEST(SharedLibrary, UnusableDirectoriesEndTheCallWithoutHarm) {
    test::ScratchDir dir;
    test::write_file(dir / "model.qmk", TWO_MASSES);
    testing::internal::CaptureStderr();
    for (const std::string& result : {std::string(), std::string("    "), (dir / "does-not-exist").string(),
                                      std::string(1001, 'a')})
        EXPECT_EQ(shared_solver(dir.str(), "model.qmk", result, 1), 0) << result;
    EXPECT_EQ(shared_solver(std::string(1001, 'a'), "model.qmk", dir.str(), 1), 0);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("result directory"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(dir / "does-not-exist"));
    EXPECT_FALSE(std::filesystem::exists(dir / "NaturalFrequency.bin"));

    // A missing input file is a finding in the log of a usable result directory.
    EXPECT_EQ(shared_solver(dir.str(), "missing.qmk", dir.str(), 1), 0);
    EXPECT_EQ(test::read_lines(dir / "Quillmark.log"),
              std::vector<std::string>{"error occurs when accessing the input file" + dir.str() + "/missing.qmk"});
}

TEST(SharedLibrary, GarbageBinaryEmptyAndHugeInputsEndWithAVerdictNotACrash) {
    test::ScratchDir dir;
    std::string binary;
    for (int i = 0; i < 65536; ++i) binary += static_cast<char>((i * 7919 + 13) % 256);
    test::write_file(dir / "binary.qmk", binary);
    test::write_file(dir / "empty.qmk", "");
    test::write_file(dir / "huge.qmk", "DIESEL " + std::string(10 * 1024 * 1024, '7') + "\n");
    test::write_file(dir / "words.qmk", "PROPELLER x\nLOADCASE\nRPM DIESEL\n");
    // An Id that does not fit 32 bits and words where numbers belong are findings; garbage may read either way.
    for (const auto& [name, surely_invalid] : {std::pair{"binary.qmk", false}, std::pair{"empty.qmk", false},
                                               std::pair{"huge.qmk", true}, std::pair{"words.qmk", true}}) {
        std::filesystem::remove(dir / "Quillmark.log");
        const int32_t valid = shared_solver(dir.str(), name, dir.str(), 3);
        EXPECT_TRUE(valid == 0 || (valid == 1 && !surely_invalid)) << name;
        EXPECT_TRUE(std::filesystem::exists(dir / "Quillmark.log")) << name;
    }
}

}  // namespace
}  // namespace qm
