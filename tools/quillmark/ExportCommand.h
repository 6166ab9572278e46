// `quillmark export`: the result files of a run as labelled tables, one CSV file per result
// family or one JSON document, for pandas, a spreadsheet or any other tool.
#pragma once

#include <CLI/CLI.hpp>

#include <ostream>

#include "results/ResultReader.h"

namespace qm::cli {

void add_export_command(CLI::App& app, int& exit_code);

// One table as CSV: a header row of the column names, then one line per row. Reals are
// written in the shortest form that reads back to the same double ("nan", "inf" where the
// files hold them).
void write_csv(std::ostream& out, const RESULTS::ResultTable& table);
// All tables as one JSON document: {"model": title, "tables": {name: {"files": [...],
// "columns": {column: [values...]}}}}. JSON has no NaN or infinity: those become null.
void write_json(std::ostream& out, const RESULTS::Results& results);

}  // namespace qm::cli
