// The C interface, exercised through the real shared library as a host program loads it.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <set>
#include <thread>

#include "../TestSupport.h"

namespace qm {
namespace {

using Solver = void (*)(const int32_t*, const int32_t*, const int32_t*, const int32_t*, const int32_t*,
                        const int32_t*, int32_t*, const int32_t*);

const std::string TWO_MASSES =
    "Two inertias on one shaft\n"
    "INERTIA 1 1,0 1500 0 0\n"
    "INERTIA 2 1,0 300 0 0\n"
    "SHAFT 1 1 2 1.0 2.5E8 0 30 300 100 0 0\n";

class SharedLibrary : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        handle_ = dlopen(QM_SHARED_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(handle_, nullptr) << dlerror();
        solver_ = reinterpret_cast<Solver>(dlsym(handle_, "QUILLMARKSOLVER"));
        ASSERT_NE(solver_, nullptr);
    }
    static void TearDownTestSuite() {
        if (handle_ != nullptr) dlclose(handle_);
    }

    static std::vector<int32_t> codes(const std::string& s) { return {s.begin(), s.end()}; }

    // Calls the entry with character-code arrays, as a host does.
    static int32_t run(const std::string& dir, const std::string& name, const std::string& result, int32_t type) {
        const auto d = codes(dir), n = codes(name), r = codes(result);
        const int32_t dl = static_cast<int32_t>(d.size()), nl = static_cast<int32_t>(n.size()),
                      rl = static_cast<int32_t>(r.size());
        int32_t valid = -7;
        solver_(d.data(), &dl, n.data(), &nl, r.data(), &rl, &valid, &type);
        return valid;
    }

    static void* handle_;
    static Solver solver_;
};
void* SharedLibrary::handle_ = nullptr;
Solver SharedLibrary::solver_ = nullptr;

TEST_F(SharedLibrary, ExportsOnlyTheFunctionsOfThePublicHeader) {
    const std::string header = test::read_file(std::string(QM_PUBLIC_HEADER_DIR) + "/quillmark/quillmark.h");
    std::set<std::string> declared;
    const std::regex decl(R"(QUILLMARK_API\s+(?:void|int32_t|double)\s*\*?\s*([A-Z_0-9]+)\s*\()");
    for (std::sregex_iterator it(header.begin(), header.end(), decl), end; it != end; ++it)
        declared.insert((*it)[1]);
    ASSERT_TRUE(declared.count("QUILLMARKSOLVER"));

    std::set<std::string> exported;
    const std::string cmd = std::string("nm -D --defined-only '") + QM_SHARED_LIBRARY + "'";
    FILE* pipe = popen(cmd.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    char line[512];
    while (std::fgets(line, sizeof line, pipe) != nullptr) {
        std::string s(line);
        while (!s.empty() && (s.back() == '\n' || s.back() == '\r')) s.pop_back();
        exported.insert(s.substr(s.rfind(' ') + 1));
    }
    ASSERT_EQ(pclose(pipe), 0);
    EXPECT_EQ(exported, declared);
}

// Calls share nothing: the library's own writable data are the per-thread transform
// tables, the per-thread success flag of the pressure curve and the per-thread synthesis
// angle tables, nothing else.
TEST_F(SharedLibrary, HoldsNoWritableDataButPerThreadOnes) {
    const std::string cmd = std::string("objdump -t -C '") + QM_SHARED_LIBRARY + "'";
    FILE* pipe = popen(cmd.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    const std::regex writable(R"(\s\.(data|bss|tdata|tbss)\s)");
    std::set<std::string> found;
    char line[1024];
    while (std::fgets(line, sizeof line, pipe) != nullptr) {
        const std::string s(line);
        if (!std::regex_search(s, writable)) continue;
        if (s.find("qm::") == std::string::npos && s.find("(anonymous namespace)") == std::string::npos) continue;
        const bool per_thread = s.find(".tbss") != std::string::npos || s.find(".tdata") != std::string::npos;
        std::string what = s;
        if (s.find("DISCRETEFOURIERTRANSFORM") != std::string::npos) what = "transform table";
        if (s.find("last_pressure_curve_success") != std::string::npos) what = "pressure curve flag";
        if (s.find("FORCEDVIBRATION::(anonymous namespace)::angle_tables") != std::string::npos)
            what = "synthesis angle tables";
        found.insert((per_thread ? "per thread: " : "shared: ") + what);
    }
    ASSERT_EQ(pclose(pipe), 0);
    EXPECT_EQ(found, (std::set<std::string>{"per thread: pressure curve flag", "per thread: synthesis angle tables",
                                            "per thread: transform table"}));
}

TEST_F(SharedLibrary, FreeCalculationWritesTheNaturalFrequencies) {
    test::ScratchDir dir;
    test::write_file(dir / "model.qmk", TWO_MASSES);
    ASSERT_EQ(run(dir.str(), "model.qmk", dir.str(), 1), 1);
    const auto d = test::read_records(dir / "NaturalFrequency.bin");
    ASSERT_EQ(d.size(), 2U);
    EXPECT_EQ(d[0], 0.0);
    EXPECT_NEAR(d[1], 1000.0, 1e-9);
    EXPECT_EQ(test::read_file(dir / "Quillmark.log"), "");
}

TEST_F(SharedLibrary, DirectoriesWithAndWithoutFinalSeparatorAndPaddingGiveTheSameRun) {
    test::ScratchDir dir;
    test::write_file(dir / "model.qmk", TWO_MASSES);
    ASSERT_EQ(run(dir.str() + "/", "model.qmk", dir.str() + "/", 1), 1);
    const std::string first = test::read_file(dir / "NaturalFrequency.bin");
    std::filesystem::remove(dir / "NaturalFrequency.bin");
    ASSERT_EQ(run("  " + dir.str() + "  ", "  model.qmk ", "   " + dir.str(), 1), 1);
    EXPECT_EQ(test::read_file(dir / "NaturalFrequency.bin"), first);
}

TEST_F(SharedLibrary, CharacterCodesKeepOnlyTheirLowEightBits) {
    test::ScratchDir dir;
    test::write_file(dir / "model.qmk", TWO_MASSES);
    std::vector<int32_t> name = codes("model.qmk");
    for (int32_t& c : name) c += 0x300;  // high bits must be ignored
    const auto d = codes(dir.str());
    const int32_t dl = static_cast<int32_t>(d.size()), nl = static_cast<int32_t>(name.size());
    int32_t valid = 0;
    const int32_t type = 1;
    solver_(d.data(), &dl, name.data(), &nl, d.data(), &dl, &valid, &type);
    EXPECT_EQ(valid, 1);
}

TEST_F(SharedLibrary, CalculationTypeSelectsTheStages) {
    test::ScratchDir dir;
    test::write_file(dir / "model.qmk", TWO_MASSES);
    EXPECT_EQ(run(dir.str(), "model.qmk", dir.str(), 0), 1);
    EXPECT_FALSE(std::filesystem::exists(dir / "NaturalFrequency.bin"));
    EXPECT_TRUE(std::filesystem::exists(dir / "Quillmark.log"));
    EXPECT_EQ(run(dir.str(), "model.qmk", dir.str(), 7), 1);  // any other value runs the free vibration too
    EXPECT_TRUE(std::filesystem::exists(dir / "NaturalFrequency.bin"));
}

TEST_F(SharedLibrary, TwoRunsInARowGiveIdenticalFiles) {
    test::ScratchDir dir;
    test::write_file(dir / "model.qmk", TWO_MASSES + "INERTIA 3 2.0 40 0 0\nSHAFT 2 2 3 2.0 1e6 0 0 0 0 0 0\n");
    ASSERT_EQ(run(dir.str(), "model.qmk", dir.str(), 1), 1);
    const std::string first = test::read_file(dir / "NaturalFrequency.bin");
    ASSERT_EQ(run(dir.str(), "model.qmk", dir.str(), 1), 1);
    EXPECT_EQ(test::read_file(dir / "NaturalFrequency.bin"), first);
}

TEST_F(SharedLibrary, AFailedReadIsInvalidAndTheNextGoodRunWorks) {
    test::ScratchDir dir;
    test::write_file(dir / "bad.qmk", "INERTIA 1 1.0\n");
    test::write_file(dir / "good.qmk", TWO_MASSES);
    EXPECT_EQ(run(dir.str(), "bad.qmk", dir.str(), 1), 0);
    const auto log = test::read_lines(dir / "Quillmark.log");
    ASSERT_EQ(log.size(), 1U);
    EXPECT_EQ(log[0].rfind("Error occurs when reading \"Id, RpmRatio", 0), 0U);
    EXPECT_FALSE(std::filesystem::exists(dir / "NaturalFrequency.bin"));
    EXPECT_EQ(run(dir.str(), "good.qmk", dir.str(), 1), 1);
    EXPECT_EQ(test::read_file(dir / "Quillmark.log"), "");  // every run replaces the log
}

TEST_F(SharedLibrary, UnusableDirectoriesEndTheCallWithoutHarm) {
    test::ScratchDir dir;
    test::write_file(dir / "model.qmk", TWO_MASSES);
    testing::internal::CaptureStderr();
    EXPECT_EQ(run(dir.str(), "model.qmk", "", 1), 0);
    EXPECT_EQ(run(dir.str(), "model.qmk", "    ", 1), 0);
    EXPECT_EQ(run(dir.str(), "model.qmk", (dir / "does-not-exist").string(), 1), 0);
    EXPECT_EQ(run(dir.str(), "model.qmk", std::string(1001, 'a'), 1), 0);
    EXPECT_EQ(run(std::string(1001, 'a'), "model.qmk", dir.str(), 1), 0);
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("result directory"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(dir / "does-not-exist"));
    EXPECT_FALSE(std::filesystem::exists(dir / "NaturalFrequency.bin"));

    // A missing input file is a finding in the log of a usable result directory.
    EXPECT_EQ(run(dir.str(), "missing.qmk", dir.str(), 1), 0);
    const auto log = test::read_lines(dir / "Quillmark.log");
    ASSERT_EQ(log.size(), 1U);
    EXPECT_EQ(log[0], "error occurs when accessing the input file" + dir.str() + "/missing.qmk");
}

TEST_F(SharedLibrary, ExampleModelsGiveTheFullSetOfFreeVibrationFilesTwiceAlike) {
    const std::vector<std::string> files = {"NaturalFrequency.bin", "RelativeDeflection.bin", "RelativeTorque.bin",
                                            "VectorSum.bin",        "VectorSumRpm.bin",       "VectorSumAngle.bin",
                                            "SystemInfo.bin",       "Overview.txt",           "Quillmark.log"};
    for (const char* model : {"two-stroke-main-engine.qmk", "geared-four-stroke/geared-four-stroke.qmk"}) {
        const std::filesystem::path path = std::filesystem::path(QM_EXAMPLES_DIR) / model;
        test::ScratchDir first, second;
        ASSERT_EQ(run(path.parent_path().string(), path.filename().string(), first.str(), 1), 1) << model;
        ASSERT_EQ(run(path.parent_path().string(), path.filename().string(), second.str(), 1), 1) << model;
        for (const std::string& file : files) {
            ASSERT_TRUE(std::filesystem::exists(first / file)) << model << " " << file;
            EXPECT_EQ(test::read_file(first / file), test::read_file(second / file)) << model << " " << file;
        }
        EXPECT_EQ(test::read_file(first / "Quillmark.log"), "") << model;
    }
}

TEST_F(SharedLibrary, TwoThreadsCallingTheEntryAtOnceGetTheFilesOfSerialCalls) {
    const std::filesystem::path engine = std::filesystem::path(QM_EXAMPLES_DIR) / "two-stroke-main-engine.qmk";
    const std::filesystem::path geared =
        std::filesystem::path(QM_EXAMPLES_DIR) / "geared-four-stroke" / "geared-four-stroke.qmk";
    auto call = [](const std::filesystem::path& model, const test::ScratchDir& result) {
        return run(model.parent_path().string(), model.filename().string(), result.str(), 1);
    };
    test::ScratchDir engine_alone, geared_alone;
    ASSERT_EQ(call(engine, engine_alone), 1);
    ASSERT_EQ(call(geared, geared_alone), 1);
    const auto engine_files = test::read_directory(engine_alone.path());
    const auto geared_files = test::read_directory(geared_alone.path());

    for (int round = 0; round < 20; ++round) {
        test::ScratchDir a, b;
        int32_t valid_a = -1, valid_b = -1;
        std::thread first([&] { valid_a = call(engine, a); });
        std::thread second([&] { valid_b = call(geared, b); });
        first.join();
        second.join();
        ASSERT_EQ(valid_a, 1);
        ASSERT_EQ(valid_b, 1);
        ASSERT_EQ(test::read_directory(a.path()), engine_files) << "round " << round;
        ASSERT_EQ(test::read_directory(b.path()), geared_files) << "round " << round;
    }
}

TEST_F(SharedLibrary, GarbageBinaryEmptyAndHugeInputsEndWithAVerdictNotACrash) {
    test::ScratchDir dir;
    std::string binary;
    for (int i = 0; i < 65536; ++i) binary += static_cast<char>((i * 7919 + 13) % 256);
    test::write_file(dir / "binary.qmk", binary);
    test::write_file(dir / "empty.qmk", "");
    test::write_file(dir / "huge.qmk", "DIESEL " + std::string(10 * 1024 * 1024, '7') + "\n");
    test::write_file(dir / "words.qmk", "PROPELLER x\nLOADCASE\nRPM DIESEL\n");
    for (const char* name : {"binary.qmk", "empty.qmk", "huge.qmk", "words.qmk"}) {
        const int32_t valid = run(dir.str(), name, dir.str(), 3);
        EXPECT_TRUE(valid == 0 || valid == 1) << name;
        EXPECT_TRUE(std::filesystem::exists(dir / "Quillmark.log")) << name;
    }
    EXPECT_EQ(run(dir.str(), "huge.qmk", dir.str(), 3), 0);  // an Id that does not fit 32 bits
    EXPECT_EQ(run(dir.str(), "words.qmk", dir.str(), 3), 0);
}

}  // namespace
}  // namespace qm
