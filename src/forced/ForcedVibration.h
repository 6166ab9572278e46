// The forced calculation: the walk over the load cases. For each load case every unit of
// every source kind is solved by itself at all its orders, shaft torque, stress and damping
// torque are derived from its response, and everything goes to the result files of
// ResultFiles.h, load case by load case.
//
// A load case is computed into a LoadCaseResults and then written; the two steps are apart so
// that load cases, which are independent once the tables of one are copied, can later be
// computed side by side and written in order.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/BinFile.h"
#include "base/RunContext.h"
#include "base/Table.h"
#include "components/ModelTables.h"
#include "excitation/DieselExcitation.h"
#include "forced/ForcedSolver.h"
#include "forced/KindResults.h"
#include "forced/PropellerIce.h"
#include "forced/ResultFiles.h"
#include "forced/SourceDriver.h"
#include "forced/Synthesis.h"

namespace qm::FORCEDVIBRATION {

// Dimensions and switches, fixed for a whole sweep.
struct SweepPlan {
    ResultDims dims;                        // NMASS, NSHAFT, NLOADCASE, NUNIT and NORDER per kind
    ResultFlags flags;                      // HASDIESEL, HASDAMPERORCOUPLING, ISPROPELLERICE, angle switch
    std::array<bool, NKIND> present{};      // the kind's table is allocated
    bool ISPHASEMODE = false;               // a propeller takes its excitation phase into account
    SolvePath path = SolvePath::FAST;       // the run's choice between fast and literal path
};

SweepPlan make_sweep_plan(const ModelTables& tables, bool OUTPUTANGLEBASEDRESULTS);

// Everything one load case writes.
struct LoadCaseResults {
    AllKindResults kinds;  // per unit and order; arrays of a kind without table stay empty
    std::vector<double> EXFO;
    // Log lines the model operations reported while the load case was solved (a propeller
    // without entrained water of this load case), in the order they arose.
    std::vector<std::string> messages;

    // Synthesis over units, orders and kinds: one value per element.
    std::vector<double> SYNDEFLECTION, SYNVELOCITY, SYNACCELERATION;          // rad, rad/s, rad/s^2; NMASS
    std::vector<double> SYNTORQUE, SYNSTRESS, SYNDAMPINGTORQUE;               // N*m, Pa, N*m; NSHAFT
    std::vector<double> SHAFTPOWERLOSS;                                       // W, NSHAFT
    std::vector<double> RESULTANTTORQUE;                                      // N*m, NSHAFT
    std::vector<double> NOMTORQUE, NOMSTRESS;                                 // N*m, Pa; NSHAFT
    // Synthesized curves over CURVE_STEPS angle steps, one per source kind ([DIESEL] is the
    // array of that name, [PROPELLER] the one with PROPELLER behind it, ...), element (e, a)
    // at (e-1)*360 + a - 1; empty when no file and no later step needs them.
    KindCurves ANGULARDEFANGLEBASED, ANGLUARVELANGLEBASED, ANGULARACCEANGLEBASED;  // NMASS*360
    KindCurves TORQUEANGLEBASED, STRESSANGLEBASED, DAMPINGTORQUEANGLEBASED;        // NSHAFT*360

    // Propeller ice: synthesized ice response and the marks of the propeller shafts.
    std::vector<double> SYNPROPICEDEFLECTION, SYNPROPICEVELOCITY, SYNPROPICEACCELE;  // NMASS
    std::vector<double> SYNPROPICETORQUE, SYNPROPICESTRESS, SYNPROPICEDAMPINGTORQUE;  // NSHAFT
    std::vector<double> PROPELLERSHAFTMARKS;  // 1.0, 2.0 or 0.0 per shaft; load case 1 only
};

// Values held for the whole sweep (computed once before the first load case).
struct SweepState {
    Array2D<double> LOADCASE_SHAFTPOWER;     // W, NSHAFT by NLOADCASE
    std::vector<double> SHAFTINERTIARATIO;   // NSHAFT, only with ISPROPELLERICE
};

// The solver's failure, if any: routine 0 none, 1 the factorisation, 2 the solve.
struct SweepFailure {
    int routine = 0;
    int INFO = 0;
};

// Working storage of compute_load_case on the fast path. A caller that runs many load cases
// hands the same scratch (one per thread) to every call, together with the same
// LoadCaseResults: once both have grown to the model, a load case allocates nothing.
// Nothing in it carries from one load case to the next but values found again by their
// exact inputs, so results never depend on the load cases a scratch has seen.
struct LoadCaseScratch {
    GLOBAL_DIESEL::DieselHarmonicsShare diesel;  // pressure curves shared by the cylinders
    DriverScratch driver;                        // the solve of a unit
    SynthesisScratch synthesis;                  // step angle rows and curves of the synthesis
    SynthesisScratch iceSynthesis;               // the same for the propeller kind in ice
    PropellerIceResults ice;                     // buffers the ice results are swapped with
};

// Computes load case lc into res. Tables are rewritten in place (speeds, powers, torques,
// working fields). Stops at the first failed factorisation or solve and returns it. Without
// a scratch the call uses one of its own.
SweepFailure compute_load_case(ModelTables& tables, const SweepPlan& plan, const SweepState& state, int lc,
                               LoadCaseResults& res, LoadCaseScratch* scratch = nullptr);

// compute_load_case without its first step: the tables already hold the setting of load case
// lc (LOADCASESETTING).
SweepFailure compute_set_load_case(ModelTables& tables, const SweepPlan& plan, const SweepState& state, int lc,
                                   LoadCaseResults& res, LoadCaseScratch* scratch = nullptr);

// What compute_set_load_case leaves in the tables that a later load case can see, without
// solving anything: the table steps of every unit's driver in the sweep's order. After
// LOADCASESETTING and this, the tables are as compute_load_case leaves them for the next
// load case. (The SPEEDEXCITATION the shaft power loss leaves in a Geislinger coupling is not
// repeated: every step that reads it sets it first.)
void prepare_unit_tables_of_load_case(ModelTables& tables, const SweepPlan& plan, int lc);

// The open result files of a sweep, indexed by ResultFile.
struct ResultFileSet {
    std::array<DirectAccessFile, NRESULTFILE> files;
    void open(RunContext& ctx, const ResultFlags& flags);
    void close();
};

// Writes every record of load case lc, in ascending order within each file.
void write_load_case(ResultFileSet& out, const SweepPlan& plan, int lc, const LoadCaseResults& res);

// The whole forced calculation: opens the result files, writes "LoadCaseSetting.txt", works
// out the shaft powers and walks the load cases. False when the run had to end: a failed
// factorisation or solve (its message is in the log and on standard error, the files are
// closed), or result files whose record numbers would not fit 32 bits.
bool FORCEDVIBRATIONCALCULATION(RunContext& ctx, ModelTables& tables);

}  // namespace qm::FORCEDVIBRATION
