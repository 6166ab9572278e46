// What generators, centrifugal pumps and electric motors have in common: up to four orders
// on one inertia, each with a torque given as a fraction of a reference torque. The three
// modules keep their own fields and routines and forward to the templates here; each also
// gathers a row into a FourOrderMachine, which is all the forced calculation reads of it.
#pragma once

#include <array>
#include <cstddef>

#include "base/Table.h"
#include "base/Truncate.h"

namespace qm {

// Orders a machine can list.
constexpr int MACHINEORDERS = 4;
using MachineFour = std::array<double, MACHINEORDERS>;

// One row of a generator, centrifugal pump or electric motor at the current load case.
struct FourOrderMachine {
    double SPEED = 0.0;            // rpm, operating speed of the load case
    double EXCITATIONSPEED = 0.0;  // rpm, the speed whose multiples the orders are
    int NODE = 0;                  // ID of the machine's inertia in MASS_TABLE
    int ORDERNUMBER = 0;           // orders in use
    MachineFour ORDERS{};          // as the machine reads them: whole numbers but for the motor
    MachineFour TORQUEAMP{};       // Nm, torque amplitude of each order
    double PHASEANGLE = 0.0;       // rad, phase of the excitation
};

namespace FOUR_ORDER {

// A four-entry field set whole, as the input line gives it. A row outside the table is left alone.
template <class Record>
void set_four(Table<Record>& table, int i, MachineFour Record::*field, double v1, double v2, double v3,
              double v4) {
    if (is_row(table, i)) table(i).*field = {v1, v2, v3, v4};
}

// Entry k (1 to 4) of a four-entry field; 0.0 for a row or k outside the table.
template <class Record>
double entry(const Table<Record>& table, int i, MachineFour Record::*field, int k) {
    if (!is_row(table, i) || k < 1 || k > MACHINEORDERS) return 0.0;
    return (table(i).*field)[static_cast<std::size_t>(k - 1)];
}

// Entry k as a whole order: a machine that excites at multiples of its speed truncates
// toward zero (1.5 reads as 1), NaN reads as 0, beyond the integer range the nearest limit.
template <class Record>
int whole_order(const Table<Record>& table, int i, MachineFour Record::*field, int k) {
    return truncate_to_int(entry(table, i, field, k));
}

// The four entries as whole orders.
template <class Record>
MachineFour whole_orders(const Table<Record>& table, int i, MachineFour Record::*field) {
    MachineFour orders{};
    for (int k = 1; k <= MACHINEORDERS; ++k)
        orders[static_cast<std::size_t>(k - 1)] = whole_order(table, i, field, k);
    return orders;
}

// Torque amplitudes of the load case: entry k := reference * fraction k, for all four
// entries whatever the number of orders in use.
inline void set_amplitudes(MachineFour& amplitude, double reference, const MachineFour& fraction) {
    for (std::size_t k = 0; k < amplitude.size(); ++k) amplitude[k] = reference * fraction[k];
}

}  // namespace FOUR_ORDER
}  // namespace qm
