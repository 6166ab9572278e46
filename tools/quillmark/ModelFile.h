// What the command line reads back: the records of a result file, and the few facts of a
// model file that the result files don't carry (the IDs of inertias and shafts, the speeds
// of the load cases).
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qm::cli {

// All records of a direct-access result file; empty when it is missing.
std::vector<double> records(const std::filesystem::path& file);

// The IDs of the lines of a section keyword ("INERTIA", "SHAFT") in file order: row r of
// the table has ID ids[r-1]. The search stops at LOADCASE.
std::vector<int> section_ids(const std::filesystem::path& model, const std::string& keyword);

// The speeds of the load case table, rpm, in order.
std::vector<double> load_case_speeds(const std::filesystem::path& model);

}  // namespace qm::cli
