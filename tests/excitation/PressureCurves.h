// Two realistic engines and the pressure curve routine run on them, for the tests of the
// curve and of its single-cylinder export.
#pragma once

#include <cstdint>
#include <vector>

#include "excitation/TheoreticalPressure.h"

namespace qm::test {

constexpr double BAR = 1.0e5;
constexpr double UNTOUCHED = -7.0;  // sentinel in entries the routine must not write

struct Engine {
    int32_t misfiring = 0, nstroke = 4;
    double bore = 0.0, stroke = 0.0, lambda = 0.0, compratio = 0.0;
    double pcharge = 0.0, tcharge = 0.0, speed = 0.0, power = 0.0;
    double pmax = 0.0, pcomp = 0.0, compexp = 1.39, expaexp = 1.33;
    double te = 0.0, me = 0.0, form = 0.0;
    double ignition = 0.0, endofcomb = 0.0, exhaust = 0.0, inletstart = 0.0, inletclose = 0.0;
};

// A large crosshead two-stroke engine, 500 mm bore, 2 m stroke, 1.7 MW per cylinder at
// 127 rpm: mean effective pressure about 20 bar.
inline const Engine TWO_STROKE = {.nstroke = 2, .bore = 0.5, .stroke = 2.0, .lambda = 0.45, .compratio = 20.0,
                                  .pcharge = 3.5 * BAR, .tcharge = 40.0, .speed = 127.0, .power = 1.7e6,
                                  .pmax = 180.0 * BAR, .pcomp = 150.0 * BAR, .te = 0.5, .me = 0.95, .form = 2.0,
                                  .ignition = -2.0, .endofcomb = 60.0, .exhaust = 110.0, .inletstart = 140.0,
                                  .inletclose = 220.0};

// A medium-speed four-stroke engine, 320 mm bore, 400 mm stroke, 500 kW per cylinder at
// 750 rpm: mean effective pressure about 25 bar.
inline const Engine FOUR_STROKE = {.nstroke = 4, .bore = 0.32, .stroke = 0.4, .lambda = 0.25, .compratio = 15.0,
                                   .pcharge = 4.0 * BAR, .tcharge = 45.0, .speed = 750.0, .power = 5.0e5,
                                   .pmax = 200.0 * BAR, .pcomp = 160.0 * BAR, .te = 0.48, .me = 0.94, .form = 1.5,
                                   .ignition = -5.0, .endofcomb = 50.0, .exhaust = 130.0};

// A copy of `e` changed by `change`.
template <class F>
Engine with(Engine e, F change) {
    change(e);
    return e;
}

// A curve with its mean indicated pressure and success, true as -1 the way the C
// interface reports it.
struct Curve {
    std::vector<double> p = std::vector<double>(THEORETICALPRESSURE::CYLPRESSURES_SIZE, UNTOUCHED);
    double mip = UNTOUCHED;
    int32_t success = 0;
};

inline Curve run(const Engine& e, bool success_before = false) {
    Curve r;
    bool ok = success_before;
    THEORETICALPRESSURE::CALCULATEDPRESSURE(
        e.misfiring != 0, e.nstroke, e.bore, e.stroke, e.lambda, e.compratio, e.pcharge, e.tcharge, e.speed,
        e.power, e.pmax, e.pcomp, e.compexp, e.expaexp, e.te, e.me, e.form, e.ignition, e.endofcomb, e.exhaust,
        e.inletstart, e.inletclose, r.p.data(), r.mip, ok);
    r.success = ok ? -1 : 0;
    return r;
}

}  // namespace qm::test
