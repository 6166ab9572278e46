// Module IMPORTINPUTFILE: reading the input file into the tables of a run.
#pragma once

#include <string>

#include "base/RunContext.h"
#include "components/ModelTables.h"

namespace qm::IMPORTINPUTFILE {

// Reads the model in FILENAME (a full path) into the tables, in a sizing pass and a
// filling pass. Creates the log in the result directory of the run and sets its
// angle-based results switch. ISSUCCESS is false after the first error, whose message is
// in the log.
void READINPUTFILE(RunContext& ctx, const std::string& FILENAME, ModelTables& tables, bool& ISSUCCESS);

// True when the file exists as a regular file and can be opened for reading.
void ISFILEACCESSABLE(const std::string& FILENAME, bool& ISACCESSABLE);

}  // namespace qm::IMPORTINPUTFILE
