// Runs a piece of a test in a child process, so that a call that hangs or grows without
// bound can be stopped and measured instead of taking the test program down with it.
#pragma once

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <thread>

namespace qm::test {

struct ChildOutcome {
    bool finished = false;  // ended by itself within the time allowed
    int exit_code = -1;     // its exit code when it finished normally
    long peak_kib = 0;      // peak resident memory of the child
    double seconds = 0.0;   // time until it ended or was stopped
};

// Resident memory of this process now, in KiB.
inline long resident_kib() {
    std::ifstream statm("/proc/self/statm");
    long pages = 0, resident = 0;
    statm >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

// Runs `body` in a forked child whose exit code is what `body` returns; a child still
// running after `limit` seconds is killed.
template <class Body>
ChildOutcome run_in_child(Body body, double limit) {
    std::fflush(nullptr);
    const auto start = std::chrono::steady_clock::now();
    const pid_t pid = fork();
    if (pid == 0) _exit(body());
    ChildOutcome outcome;
    if (pid < 0) return outcome;
    int status = 0;
    rusage usage{};
    for (;;) {
        const pid_t done = wait4(pid, &status, WNOHANG, &usage);
        outcome.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        if (done == pid) {
            outcome.finished = WIFEXITED(status);
            outcome.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
            break;
        }
        if (outcome.seconds > limit) {
            kill(pid, SIGKILL);
            wait4(pid, &status, 0, &usage);
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    outcome.peak_kib = usage.ru_maxrss;
    return outcome;
}

}  // namespace qm::test
