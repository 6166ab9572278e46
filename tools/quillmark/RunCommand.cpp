#include "RunCommand.h"

#include "ForcedVibrationReport.h"
#include "FreeVibrationReport.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <vector>

#include "base/Constants.h"
#include "base/Format.h"
#include "frame/QuillmarkSolver.h"
#include "quillmark/quillmark.h"

namespace qm::cli {

namespace {

std::vector<int32_t> codes(const std::string& text) { return {text.begin(), text.end()}; }

void print_log(const std::filesystem::path& log) {
    std::ifstream in(log);
    std::string line;
    bool any = false;
    while (std::getline(in, line)) {
        if (!any) std::cout << "\nLog findings:\n";
        std::cout << "  " << line << "\n";
        any = true;
    }
    if (!any) std::cout << "\nLog: no findings.\n";
}

}  // namespace

int call_solver(const std::string& model, const std::string& result_dir, int calculation_type, bool reference,
                int threads) {
    const std::filesystem::path path = std::filesystem::absolute(model);
    const std::vector<int32_t> dir = codes(path.parent_path().string());
    const std::vector<int32_t> name = codes(path.filename().string());
    const std::vector<int32_t> result = codes(std::filesystem::absolute(result_dir).string());
    const int32_t dir_length = static_cast<int32_t>(dir.size());
    const int32_t name_length = static_cast<int32_t>(name.size());
    const int32_t result_length = static_cast<int32_t>(result.size());
    if (reference) {
        // The literal path is an option of the library's own run, not of the exported entry.
        try {
            return qm::run_solver(path.parent_path().string(), path.filename().string(),
                                  std::filesystem::absolute(result_dir).string(), calculation_type, true, threads);
        } catch (const std::exception& e) {
            std::cerr << "Quillmark: the run ended early: " << e.what() << "\n";
            return 0;
        }
    }
    int32_t valid = 0;
    const int32_t type = calculation_type;
    const int32_t nthreads = threads;
    QUILLMARKSOLVERTHREADS(dir.data(), &dir_length, name.data(), &name_length, result.data(), &result_length, &valid,
                           &type, &nthreads);
    return valid;
}

void add_run_command(CLI::App& app, int& exit_code) {
    auto* run = app.add_subcommand("run", "Run a calculation of a model and show its results");
    auto model = std::make_shared<std::string>();
    auto out = std::make_shared<std::string>("out");
    auto type = std::make_shared<int>(1);
    auto reference = std::make_shared<bool>(false);
    auto threads = std::make_shared<int>(0);
    run->add_option("MODEL", *model, "Input file of the model")->required()->check(CLI::ExistingFile);
    run->add_option("-o,--output", *out, "Result directory; created when missing (default: out)");
    run->add_option("--type", *type,
                    "Calculation type: 0 read and check only, 1 free vibration (default), "
                    "2 forced vibration, 3 free and forced with load case checks");
    run->add_flag("--reference", *reference,
                  "Forced vibration on the literal reference path: a dense solve per order and the "
                  "synthesis step by step (slow; same results to rounding)");
    run->add_option("--threads", *threads,
                    "Threads of the forced load cases; the files are the same for any number "
                    "(default 0: the machine's cores)")
        ->check(CLI::Range(0, 1 << 20));
    run->callback([model, out, type, reference, threads, &exit_code] {
        std::error_code ec;
        std::filesystem::create_directories(*out, ec);
        const int valid = call_solver(*model, *out, *type, *reference, *threads);
        std::cout << "Model: " << *model << "\n";
        std::cout << "Result directory: " << std::filesystem::absolute(*out).string() << "\n";
        std::cout << "Input valid: " << (valid == 1 ? "yes" : "no") << " (ISINPUTVALID " << valid << ")\n";
        print_log(std::filesystem::path(*out) / "Quillmark.log");
        if (valid == 1 && runs_free_vibration(*type)) print_free_vibration(std::cout, *model, *out);
        if (valid == 1 && runs_forced_vibration(*type)) print_forced_vibration(std::cout, *model, *out);
        exit_code = valid == 1 ? 0 : 1;
    });
}

void add_check_command(CLI::App& app, int& exit_code) {
    auto* check = app.add_subcommand("check", "Read and check a model and list every finding; calculate nothing");
    auto model = std::make_shared<std::string>();
    auto out = std::make_shared<std::string>("out");
    check->add_option("MODEL", *model, "Input file of the model")->required()->check(CLI::ExistingFile);
    check->add_option("-o,--output", *out, "Directory of the log; created when missing (default: out)");
    check->callback([model, out, &exit_code] {
        std::error_code ec;
        std::filesystem::create_directories(*out, ec);
        const int valid = call_solver(*model, *out, 0);
        std::cout << "Model: " << *model << "\n";
        std::cout << "Input valid: " << (valid == 1 ? "yes" : "no") << " (ISINPUTVALID " << valid << ")\n";
        print_log(std::filesystem::path(*out) / "Quillmark.log");
        exit_code = valid == 1 ? 0 : 1;
    });
}

}  // namespace qm::cli
