// Small helpers shared by the tests: a fresh scratch directory per test and whole-file
// reads and writes.
#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "base/RunContext.h"

namespace qm::test {

// A directory of its own for each test, removed when the test ends.
class ScratchDir {
public:
    ScratchDir() {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string("qm_") + (info ? info->test_suite_name() : "t") + "_" +
                           (info ? info->name() : "x");
        for (char& c : name)
            if (c == '/') c = '_';
        // Several directories of one test (and tests of parallel ctest processes) stay apart.
        static std::atomic<int> serial{0};
        name += "_" + std::to_string(::getpid()) + "_" + std::to_string(serial++);
        path_ = std::filesystem::temp_directory_path() / name;
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~ScratchDir() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    const std::filesystem::path& path() const { return path_; }
    std::string str() const { return path_.string(); }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

// A run context whose result directory is `dir`.
inline RunContext run_in(const std::string& dir) {
    RunContext ctx;
    ctx.SETRESULTFILEDIR(dir, static_cast<int>(dir.size()));
    return ctx;
}

inline void write_file(const std::filesystem::path& p, const std::string& text) {
    std::ofstream out(p, std::ios::binary);
    out << text;
}

inline std::string read_file(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

inline std::vector<std::string> read_lines(const std::filesystem::path& p) {
    std::ifstream in(p);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

inline std::vector<double> read_records(const std::filesystem::path& p) {
    const std::string bytes = read_file(p);
    std::vector<double> values(bytes.size() / 8);
    if (!values.empty()) std::memcpy(values.data(), bytes.data(), values.size() * 8);
    return values;
}

// Every file of a directory by name, with its bytes.
inline std::map<std::string, std::string> read_directory(const std::filesystem::path& dir) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        if (entry.is_regular_file()) files[entry.path().filename().string()] = read_file(entry.path());
    return files;
}

}  // namespace qm::test
