// `quillmark pressure`: the theoretical pressure curve of one cylinder, as CSV.
#pragma once

#include <CLI/CLI.hpp>

namespace qm::cli {

void add_pressure_command(CLI::App& app);

}  // namespace qm::cli
