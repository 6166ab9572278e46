// Comparison of the result files of two forced runs: the set of files, the load case report
// exactly, and each value of the .bin files to a fraction of the largest magnitude of its
// channel (a file, or one of the four fields of a per-order file; angles against pi).
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "../TestSupport.h"
#include "forced/ResultFiles.h"

namespace qm::test {

inline void compare_channel(const std::string& name, const std::vector<double>& got, const std::vector<double>& want,
                            std::size_t stride, std::size_t field, bool angle, double tolerance) {
    double scale = angle ? 3.141592653589793 : 0.0;
    for (std::size_t i = field; i < want.size(); i += stride) scale = std::max(scale, std::fabs(want[i]));
    const double tol = tolerance * scale + 1e-300;
    std::size_t bad = 0;
    for (std::size_t i = field; i < want.size(); i += stride) {
        const bool same = std::isnan(want[i]) ? std::isnan(got[i]) : std::fabs(got[i] - want[i]) <= tol;
        if (!same && bad++ < 3)
            ADD_FAILURE() << name << " record " << i + 1 << ": " << got[i] << " instead of " << want[i];
    }
}

// The result files present in a directory, with "LoadCaseSetting.txt".
inline std::set<std::string> result_files_in(const std::filesystem::path& dir) {
    using namespace qm::FORCEDVIBRATION;
    std::set<std::string> names{"LoadCaseSetting.txt"};
    for (int f = 0; f < NRESULTFILE; ++f)
        if (std::filesystem::exists(dir / result_file_name(static_cast<ResultFile>(f))))
            names.insert(result_file_name(static_cast<ResultFile>(f)));
    return names;
}

// Compares every result file of `want` with the same file of `got`; tolerance 0 asks for
// byte-identical files. With `listing`, every file of `want_dir` counts as a result file (a
// golden directory); otherwise only the result files the forced calculation writes.
inline void compare_result_dirs(const std::filesystem::path& got_dir, const std::filesystem::path& want_dir,
                                double tolerance, bool listing = false) {
    using namespace qm::FORCEDVIBRATION;
    std::set<std::string> expected = result_files_in(want_dir);
    if (listing)
        for (const auto& entry : std::filesystem::directory_iterator(want_dir))
            expected.insert(entry.path().filename().string());
    EXPECT_EQ(result_files_in(got_dir), expected);
    EXPECT_EQ(read_file(got_dir / "LoadCaseSetting.txt"), read_file(want_dir / "LoadCaseSetting.txt"));
    for (int f = 0; f < NRESULTFILE; ++f) {
        const auto file = static_cast<ResultFile>(f);
        const std::string name = result_file_name(file);
        if (!expected.count(name)) continue;
        if (tolerance == 0.0) {
            EXPECT_TRUE(read_file(got_dir / name) == read_file(want_dir / name)) << name << " differs";
            continue;
        }
        const auto got = read_records(got_dir / name);
        const auto want = read_records(want_dir / name);
        ASSERT_EQ(got.size(), want.size()) << name;
        if (result_file_family(file) == PER_ORDER)
            for (std::size_t c = 0; c < 4; ++c) compare_channel(name, got, want, 4, c, c == 1, tolerance);
        else
            compare_channel(name, got, want, 1, 0, false, tolerance);
    }
}

}  // namespace qm::test
