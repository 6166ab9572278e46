#include "forced/LoadCaseWalk.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include "forced/LoadCaseSetting.h"

namespace qm::FORCEDVIBRATION {

int sweep_threads(int requested, int NLOADCASE) {
    int threads = requested;
    if (threads <= 0) threads = static_cast<int>(std::min(std::thread::hardware_concurrency(), 1024U));
    return std::max(1, std::min({threads, NLOADCASE, MAXSWEEPTHREADS}));
}

namespace {

SweepFailure walk_serially(ModelTables& tables, const SweepPlan& plan, const SweepState& state,
                           const LoadCaseSink& sink) {
    LoadCaseResults res;
    LoadCaseScratch scratch;
    for (int lc = 1; lc <= plan.dims.NLOADCASE; ++lc) {
        const SweepFailure failure = compute_load_case(tables, plan, state, lc, res, &scratch);
        sink(lc, res, failure);
        if (failure.routine != 0) return failure;
    }
    return {};
}

// The component tables, which a load case changes. The load case table, its speeds, powers
// and genset pressures are only read by the sweep and are copied once, with the rest.
void copy_component_tables(const ModelTables& from, ModelTables& to) {
    to.MASS_TABLE = from.MASS_TABLE;
    to.SHAFT_TABLE = from.SHAFT_TABLE;
    to.VISCOUSDAMPER_TABLE = from.VISCOUSDAMPER_TABLE;
    to.RUBBERDAMPER_TABLE = from.RUBBERDAMPER_TABLE;
    to.STEELSPRINGDAMPER_TABLE = from.STEELSPRINGDAMPER_TABLE;
    to.LINEARCOUPLING_TABLE = from.LINEARCOUPLING_TABLE;
    to.PROGRESSIVECOUPLING_TABLE = from.PROGRESSIVECOUPLING_TABLE;
    to.GEISLINGERCOUPLING_TABLE = from.GEISLINGERCOUPLING_TABLE;
    to.DIESEL_TABLE = from.DIESEL_TABLE;
    to.ELECTRICMOTOR_TABLE = from.ELECTRICMOTOR_TABLE;
    to.GASTURBINE_TABLE = from.GASTURBINE_TABLE;
    to.STEAMTURBINE_TABLE = from.STEAMTURBINE_TABLE;
    to.PROPELLER_TABLE = from.PROPELLER_TABLE;
    to.GENERATOR_TABLE = from.GENERATOR_TABLE;
    to.CENTRIFUGALPUMP_TABLE = from.CENTRIFUGALPUMP_TABLE;
    to.RECIPROCATINGPUMP_TABLE = from.RECIPROCATINGPUMP_TABLE;
}

// One load case on its way from a worker to the caller.
struct Slot {
    int lc = 0;
    bool ready = false;
    LoadCaseResults res;
    SweepFailure failure;
    std::exception_ptr error;
};

class ParallelWalk {
public:
    ParallelWalk(ModelTables& tables, const SweepPlan& plan, const SweepState& state, int threads)
        : serial_(tables), plan_(plan), state_(state), slots_(2 * static_cast<std::size_t>(threads)) {}

    ParallelWalk(const ParallelWalk&) = delete;
    ParallelWalk& operator=(const ParallelWalk&) = delete;
    ~ParallelWalk() { stop_workers(); }

    SweepFailure run(int threads, const LoadCaseSink& sink) {
        for (int i = 0; i < threads; ++i) {
            try {
                workers_.emplace_back([this] { work(); });
            } catch (const std::system_error&) {
                break;  // go on with the workers there are
            }
        }
        // No thread to be had: the tables are untouched, the caller walks them itself.
        if (workers_.empty()) return walk_serially(serial_, plan_, state_, sink);

        for (int lc = 1; lc <= plan_.dims.NLOADCASE; ++lc) {
            Slot& slot = slot_of(lc);
            {
                std::unique_lock lock(mutex_);
                changed_.wait(lock, [&] { return slot.ready && slot.lc == lc; });
            }
            if (slot.error) std::rethrow_exception(slot.error);  // the destructor stops the workers
            sink(lc, slot.res, slot.failure);
            if (slot.failure.routine != 0) return slot.failure;
            {
                const std::lock_guard lock(mutex_);
                slot.ready = false;
                next_write_ = lc + 1;
            }
            changed_.notify_all();
        }
        return {};
    }

private:
    Slot& slot_of(int lc) { return slots_[static_cast<std::size_t>(lc) % slots_.size()]; }

    // Claims the next load case and brings it into the worker's tables; 0 when there is none
    // left or the walk has stopped.
    int claim_and_set(ModelTables& own, bool& copied) {
        const std::lock_guard settle(settle_);
        int lc = 0;
        {
            std::unique_lock lock(mutex_);
            // A load case is taken only when its slot is free: within the window of the load
            // case the caller waits for.
            const auto window = static_cast<int>(slots_.size());
            changed_.wait(lock, [&] {
                return stop_ || next_claim_ > plan_.dims.NLOADCASE || next_claim_ < next_write_ + window;
            });
            if (stop_ || next_claim_ > plan_.dims.NLOADCASE) return 0;
            lc = next_claim_++;
            slot_of(lc).lc = lc;
        }
        Slot& slot = slot_of(lc);
        slot.failure = {};
        slot.error = nullptr;
        try {
            // The share is used under the settling lock only, by one thread at a time.
            share_.clear();
            MASSSTIFFNESSANDDAMPINGMATRIX::LOADCASESETTING(serial_, lc,
                                                           plan_.path == SolvePath::FAST ? &share_ : nullptr);
            if (copied) {
                copy_component_tables(serial_, own);
            } else {
                own = serial_;
                copied = true;
            }
            prepare_unit_tables_of_load_case(serial_, plan_, lc);
        } catch (...) {
            // The serial tables are spoilt: no load case after this one is taken.
            slot.error = std::current_exception();
            const std::lock_guard lock(mutex_);
            stop_ = true;
        }
        return lc;
    }

    void work() {
        ModelTables own;
        LoadCaseScratch scratch;
        bool copied = false;
        while (const int lc = claim_and_set(own, copied)) {
            Slot& slot = slot_of(lc);
            if (!slot.error) {
                try {
                    slot.failure = compute_set_load_case(own, plan_, state_, lc, slot.res, &scratch);
                } catch (...) {
                    slot.error = std::current_exception();
                }
            }
            {
                const std::lock_guard lock(mutex_);
                slot.ready = true;
                // Nothing after a failed load case is written: take no further one.
                if (slot.error || slot.failure.routine != 0) stop_ = true;
            }
            changed_.notify_all();
        }
    }

    void stop_workers() {
        {
            const std::lock_guard lock(mutex_);
            stop_ = true;
        }
        changed_.notify_all();
        for (std::thread& t : workers_)
            if (t.joinable()) t.join();
    }

    ModelTables& serial_;  // the tables of the serial sweep, at the next load case to claim
    const SweepPlan& plan_;
    const SweepState& state_;
    std::mutex settle_;  // held while a load case is claimed and set: one at a time, in order
    GLOBAL_DIESEL::DieselHarmonicsShare share_;  // pressure curves of the setting, under settle_
    std::mutex mutex_;   // the slots, the counters and the stop
    std::condition_variable changed_;
    int next_claim_ = 1;
    int next_write_ = 1;
    bool stop_ = false;
    std::vector<Slot> slots_;
    std::vector<std::thread> workers_;
};

}  // namespace

SweepFailure walk_load_cases(ModelTables& tables, const SweepPlan& plan, const SweepState& state, int threads,
                             const LoadCaseSink& sink) {
    if (threads <= 1 || plan.dims.NLOADCASE <= 1) return walk_serially(tables, plan, state, sink);
    ParallelWalk walk(tables, plan, state, threads);
    return walk.run(threads, sink);
}

}  // namespace qm::FORCEDVIBRATION
