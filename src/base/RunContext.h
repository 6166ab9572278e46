// The state of one run: one RunContext per call of the entry, created on the entry's
// stack and passed by reference to every stage and writer that needs the result
// directory, the angle-based results switch, a file unit or the log. Two calls running
// at once in one process each have their own and never see the other's.
#pragma once

#include <string>

namespace qm {

class RunContext {
public:
    // Result directory of this run, always ending in the separator.
    const std::string& RESULTFILEDIR() const { return result_directory_; }

    // Left-adjusts the first `length` characters of DIRNAME and makes them, with a
    // separator behind them when they don't end in one, the result directory.
    void SETRESULTFILEDIR(const std::string& DIRNAME, int length);

    // Full path of a file of the result directory: FILEFULLADDRESS(RESULTFILEDIR(), name).
    std::string result_path(const std::string& name) const;

    // New file unit of this run: 10, 20, 30, ... A unit is only the identity of an open
    // file within the run; no file name, record or message depends on it, so the writers
    // of the library draw none. Two runs never share a counter.
    int GETFILEID();

    // The switch for angle-based results of this run: reset and set by the input reader,
    // read by the forced calculation.
    bool OUTPUTANGLEBASEDRESULTS = false;

    // Runs the literal path: a dense solve of every order and the synthesis step by step,
    // the reference that the fast path is compared with. Set by the caller before the run.
    bool LITERALPATH = false;

    // Threads of the forced sweep: load cases run side by side on that many workers and are
    // written in their order, so the files do not depend on it. 0 takes the machine's cores;
    // never more than the load cases. Set by the caller before the run.
    int THREADS = 0;

    // The log "Quillmark.log" of this run's result directory.
    std::string log_path() const;
    // Creates the log empty, replacing an older one. False when it can't be written.
    bool log_create();
    // Appends one line (a newline is added). False when the log can't be opened.
    bool log_append(const std::string& line);

private:
    std::string result_directory_ = "QMK test/";
    int unit_counter_ = 10;
};

}  // namespace qm
