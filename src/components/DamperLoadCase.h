// What the viscous, rubber and steel spring dampers share at a load case: the stiffness of
// their spring and the damping it gets, from a dynamic magnifier or as the absolute value.
// The damper modules forward their load-case routines to these templates; a record needs
// ABSDAMPING, SPEED, STIFFNESS and DAMPING.
#pragma once

#include "base/Constants.h"
#include "base/Table.h"

namespace qm::DAMPER {

// Damping at an excitation order: STIFFNESS / (V * order * w), w the damper's speed in
// rad/s. V = 0 means no magnifier was given: ABSDAMPING. With a magnifier but no excitation
// frequency (zero speed or zero order) the result is 0.0, as there is no motion to damp.
// A row outside the table gives 0.0.
template <class Record>
double magnifier_damping(const Table<Record>& table, int i, double dynMagnifier, double order) {
    if (!is_row(table, i)) return 0.0;
    const Record& d = table(i);
    if (dynMagnifier == 0.0) return d.ABSDAMPING;
    const double omega = d.SPEED * PI / 30.0;
    const double denominator = dynMagnifier * order * omega;
    if (denominator == 0.0) return 0.0;
    return d.STIFFNESS / denominator;
}

// Values of the load case: STIFFNESS := stiffness, then DAMPING from the new stiffness.
// A row outside the table changes nothing.
template <class Record>
void set_load_case(Table<Record>& table, int i, double stiffness, double dynMagnifier, double order) {
    if (!is_row(table, i)) return;
    table(i).STIFFNESS = stiffness;
    table(i).DAMPING = magnifier_damping(table, i, dynMagnifier, order);
}

}  // namespace qm::DAMPER
