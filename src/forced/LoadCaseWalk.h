// The walk over the load cases of a forced calculation, on one thread or on several.
//
// Load cases are independent but for a few working fields of the tables that one load case
// leaves to the next: a propeller whose damping comes out 0 leaves its inertia with the
// damping of the load case before, a cylinder pressure whose iteration fails keeps the curve
// it had, and every setting overwrites speeds, powers and torques. The walk therefore keeps
// the tables of the serial sweep: load case after load case, under a lock and in order, one
// worker sets the load case into them (LOADCASESETTING), copies them into its own tables and
// then takes them past the load case without solving (the table steps of every unit's
// driver). The solves, shaft results and syntheses run on the worker's own copy, side by
// side with the other workers. Results go to the caller in load case order through a window
// of a few load cases per worker, so the files and the log come out as in the serial sweep,
// whatever the number of threads, and memory does not grow with the number of load cases.
#pragma once

#include <functional>

#include "components/ModelTables.h"
#include "forced/ForcedVibration.h"

namespace qm::FORCEDVIBRATION {

// Most worker threads one sweep starts.
inline constexpr int MAXSWEEPTHREADS = 64;

// Threads for a sweep of NLOADCASE load cases: `requested` when above 0, else the machine's
// cores (1 when unknown); never more than the load cases, nor MAXSWEEPTHREADS; at least 1.
int sweep_threads(int requested, int NLOADCASE);

// Called once per load case, in ascending order, on the thread that called walk_load_cases:
// the load case, its results (with the lines to log) and its failure (routine 0 none).
using LoadCaseSink = std::function<void(int lc, const LoadCaseResults& res, const SweepFailure& failure)>;

// Computes load cases 1 to NLOADCASE of the plan and hands each to `sink`; with `threads`
// above 1 on that many workers. Stops after the first load case that fails and returns its
// failure. An exception of a load case (memory, a row outside a table) reaches the caller
// after every load case before it has gone to `sink`, as in the serial walk. `tables` end
// as the serial walk leaves them, up to the load case where the walk stopped.
SweepFailure walk_load_cases(ModelTables& tables, const SweepPlan& plan, const SweepState& state, int threads,
                             const LoadCaseSink& sink);

}  // namespace qm::FORCEDVIBRATION
