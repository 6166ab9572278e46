// Module QUILLMARKSOLVER: the run sequence of one calculation.
#pragma once

#include <string>

namespace qm {

// What to calculate; see the CALCULATIONTYPE argument of the exported entry.
bool runs_load_case_preparation(int CALCULATIONTYPE);
bool runs_free_vibration(int CALCULATIONTYPE);
bool runs_forced_vibration(int CALCULATIONTYPE);

// One run: reads and checks the model in INPUTFILEDIR/INPUTFILENAME, writes the log and
// the results into RESULTFILEDIR and returns ISINPUTVALID (1 valid, 0 invalid). Texts
// longer than 1000 characters or a blank result directory end the run at once with 0 and
// a message on standard error, since no log can be written.
// LITERALPATH runs the forced calculation on its literal reference path, THREADS is the
// number of threads of its load cases (0 the machine's cores); see RunContext.
int run_solver(const std::string& INPUTFILEDIR, const std::string& INPUTFILENAME,
               const std::string& RESULTFILEDIR, int CALCULATIONTYPE, bool LITERALPATH = false, int THREADS = 0);

}  // namespace qm
