// `quillmark run`: one calculation through the library's entry, as a host program makes it.
#pragma once

#include <CLI/CLI.hpp>

namespace qm::cli {

void add_run_command(CLI::App& app, int& exit_code);
// `quillmark check`: a read-and-check run (calculation type 0) that lists every finding.
void add_check_command(CLI::App& app, int& exit_code);

// Calls the exported entry with the model's directory and name as character-code arrays,
// the forced load cases on `threads` threads (0 the machine's cores). Returns ISINPUTVALID.
int call_solver(const std::string& model, const std::string& result_dir, int calculation_type,
                bool reference = false, int threads = 0);

}  // namespace qm::cli
