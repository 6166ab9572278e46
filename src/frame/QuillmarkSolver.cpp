#include "frame/QuillmarkSolver.h"

#include <exception>
#include <iostream>
#include <new>

#include "base/GlobalParameter.h"
#include "base/Log.h"
#include "base/RunContext.h"
#include "components/ModelTables.h"
#include "input/CouplingPower.h"
#include "input/DataChecking.h"
#include "input/ImportInputFile.h"
#include "base/StringOperation.h"
#include "input/SystemInfo.h"
#include "forced/ForcedVibration.h"
#include "matrices/FreeVibration.h"

namespace qm {

namespace {
int run_stages(RunContext& ctx, const std::string& FILENAME, ModelTables& tables, int CALCULATIONTYPE);
}  // namespace

bool runs_load_case_preparation(int CALCULATIONTYPE) { return CALCULATIONTYPE == 2 || CALCULATIONTYPE == 3; }
bool runs_free_vibration(int CALCULATIONTYPE) { return CALCULATIONTYPE != 0 && CALCULATIONTYPE != 2; }
bool runs_forced_vibration(int CALCULATIONTYPE) { return CALCULATIONTYPE != 0 && CALCULATIONTYPE != 1; }

int run_solver(const std::string& INPUTFILEDIR, const std::string& INPUTFILENAME,
               const std::string& RESULTFILEDIR, int CALCULATIONTYPE, bool LITERALPATH, int THREADS) {
    using GLOBAL_PARAMETER::FILENAME_LENGTH;
    if (static_cast<int>(INPUTFILEDIR.size()) > FILENAME_LENGTH ||
        static_cast<int>(INPUTFILENAME.size()) > FILENAME_LENGTH ||
        static_cast<int>(RESULTFILEDIR.size()) > FILENAME_LENGTH) {
        std::cerr << "Quillmark: a directory or file name is longer than " << FILENAME_LENGTH
                  << " characters; nothing was calculated.\n";
        return 0;
    }
    if (STRINGOPERATION::trimmed(RESULTFILEDIR).empty()) {
        std::cerr << "Quillmark: the result directory is blank; nothing was calculated.\n";
        return 0;
    }

    // Everything of this call lives on its stack: its run context and its tables. Calls
    // running at once in other threads never share them.
    RunContext ctx;
    ctx.SETRESULTFILEDIR(RESULTFILEDIR, static_cast<int>(RESULTFILEDIR.size()));
    ctx.LITERALPATH = LITERALPATH;
    ctx.THREADS = THREADS;
    // A blank input directory leaves the file name as given, relative to the working
    // directory, rather than putting it at the root of the file system.
    const std::string FILENAME = STRINGOPERATION::trimmed(INPUTFILEDIR).empty()
                                     ? STRINGOPERATION::trimmed(INPUTFILENAME)
                                     : GLOBAL_PARAMETER::FILEFULLADDRESS(INPUTFILEDIR, INPUTFILENAME);

    ModelTables tables;
    int ISINPUTVALID = 0;
    try {
        ISINPUTVALID = run_stages(ctx, FILENAME, tables, CALCULATIONTYPE);
    } catch (const std::bad_alloc&) {
        // The tables go first, so that the message has memory to be written with.
        tables.deallocate_all();
        ISINPUTVALID = 0;
        ctx.log_append("Error: There is not enough memory for this model");
    } catch (const std::exception& e) {
        tables.deallocate_all();
        ISINPUTVALID = 0;
        ctx.log_append(std::string("Error: The calculation ended early: ") + e.what());
    }
    tables.deallocate_all();
    return ISINPUTVALID;
}

namespace {

// The stages of one run after the names are settled. An exception (memory that can't be
// had, a row outside a table) leaves it; run_solver logs it.
int run_stages(RunContext& ctx, const std::string& FILENAME, ModelTables& tables, int CALCULATIONTYPE) {
    bool ISSUCCESS = false;
    int ISINPUTVALID = 0;
    IMPORTINPUTFILE::READINPUTFILE(ctx, FILENAME, tables, ISSUCCESS);
    if (ISSUCCESS) IMPORTINPUTFILE::DATACHECKING(ctx, ISSUCCESS, tables, CALCULATIONTYPE);
    if (ISSUCCESS) {
        ISINPUTVALID = 1;
        if (runs_load_case_preparation(CALCULATIONTYPE)) IMPORTINPUTFILE::COUPLINGPOWERPREPARE(tables);
        IMPORTINPUTFILE::OUTPUTSYSTEMINFO(ctx, tables);
        IMPORTINPUTFILE::OUTPUTDIESELFIRINGSTATUS(ctx, tables);
        if (runs_free_vibration(CALCULATIONTYPE)) FREEVIBRATION::FREEVIBRATIONCALCULATION(ctx, tables);
        // A failed factorisation ends the run: its message is in the log, the files are closed.
        if (runs_forced_vibration(CALCULATIONTYPE) && !FORCEDVIBRATION::FORCEDVIBRATIONCALCULATION(ctx, tables))
            ISINPUTVALID = 0;
    }
    return ISINPUTVALID;
}

}  // namespace

}  // namespace qm
