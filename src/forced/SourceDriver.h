// The forced vibration of one source unit in one load case: the whole shaft line is
// referred to the unit's speed, prepared and assembled, the solver runs all orders at once,
// and its answer becomes the deflection, velocity and acceleration of each mass and order.
// One driver for all six kinds; what differs between them comes from SourceKinds.
#pragma once

#include <string>
#include <vector>

#include "components/ModelTables.h"
#include "forced/ForcedSolver.h"
#include "forced/KindResults.h"
#include "forced/SourceKinds.h"

namespace qm::FORCEDVIBRATION {

// Working storage of the driver, kept by a caller that runs many units (one per thread).
struct DriverScratch {
    std::vector<double> XAMP, XANGLE, XR, XI;   // the solver's answer, order-major
    std::vector<int> rows;                      // mass rows of the points of attack
    FORCEDVIBRATIONSOLVER::SolveScratch solve;
};

// Solves unit u of the kind in load case lc: fills the X, V, A blocks of unit u of `res`,
// res.OMEGA[u-1], and EXFO (resized to res.NORDER). Returns the failure, routine 0 when none.
// The RPMRATIO fields of MASS_TABLE and SHAFT_TABLE are divided by the ratio of the unit's
// reference mass while it runs and restored before it returns, on every path; every
// Geislinger coupling is left with SPEEDEXCITATION at the unit's speed. Lines the table
// preparation reports are added to `messages` for the caller to log. `path` chooses the
// solve (fast or the literal reference). Without a scratch the call uses one of its own.
SolverFailure run_source_driver(SourceKind kind, ModelTables& tables, int u, bool ISPROPELLERICE, int lc,
                                KindResults& res, std::vector<double>& EXFO,
                                std::vector<std::string>* messages = nullptr,
                                SolvePath path = SolvePath::FAST, DriverScratch* scratch = nullptr);

// What run_source_driver does to the tables, without the solve: the Geislinger couplings take
// the unit's speed and the working fields of the inertias, shafts and propellers are prepared
// with the ratios referred to the unit (a propeller whose damping comes out 0 leaves its
// inertia's damping as it was). Leaves the tables as the driver would; reports nothing.
void prepare_source_unit_tables(SourceKind kind, ModelTables& tables, int u, bool ISPROPELLERICE, int NORDER,
                                int lc);

// The drivers of the six kinds by their system names.
SolverFailure CALCULATE_DIESEL_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                               std::vector<double>& EXFO, int lc);
SolverFailure CALCULATE_PROPELLER_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                                  std::vector<double>& EXFO, bool ISPROPELLERICE, int lc);
SolverFailure CALCULATE_GENERATOR_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                                  std::vector<double>& EXFO, int lc);
SolverFailure CALCULATE_CENTRIFUGALPUMP_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                                        std::vector<double>& EXFO, int lc);
SolverFailure CALCULATE_RECIPROCATINGPUMP_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                                          std::vector<double>& EXFO, int lc);
SolverFailure CALCULATE_ELECTRICMOTOR_FORCEDVIBRATION(ModelTables& tables, int u, KindResults& res,
                                                      std::vector<double>& EXFO, int lc);

}  // namespace qm::FORCEDVIBRATION
