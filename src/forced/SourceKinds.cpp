#include "forced/SourceKinds.h"

#include <algorithm>
#include <array>
#include <complex>

#include "base/ComponentCodes.h"
#include "excitation/DieselExcitation.h"
#include "excitation/PumpExcitation.h"

namespace qm::FORCEDVIBRATION {

namespace {

struct KindData {
    const char* word;
    int code;
};

constexpr std::array<KindData, NKIND> KINDS{{
    {"Diesel", CODES::COMPONENT_DIESEL},
    {"Propeller", CODES::COMPONENT_PROPELLER},
    {"Generator", CODES::COMPONENT_GENERATOR},
    {"CentrifugalPump", CODES::COMPONENT_CENTRIFUGALPUMP},
    {"ReciprocatingPump", CODES::COMPONENT_RECIPROCATINGPUMP},
    {"ElectricMotor", CODES::COMPONENT_ELECTRICMOTOR},
}};

// A generator, centrifugal pump or electric motor as the forced calculation reads it.
FourOrderMachine machine(SourceKind kind, const ModelTables& t, int u) {
    switch (kind) {
        case GENERATOR: return four_order_machine(t.GENERATOR_TABLE, u);
        case CENTRIFUGALPUMP: return four_order_machine(t.CENTRIFUGALPUMP_TABLE, u);
        default: return four_order_machine(t.ELECTRICMOTOR_TABLE, u);
    }
}

void one_point(UnitExcitation& ex, int node, double phase, int NORDER) {
    ex.REFERENCENODE = node;
    ex.NODES = {node};
    ex.FIRINGANGLES = {phase};
    ex.FORE.assign(static_cast<std::size_t>(NORDER), 0.0);
    ex.FOIM.assign(static_cast<std::size_t>(NORDER), 0.0);
}

// Generator, centrifugal pump, electric motor: a torque a*sin(phi) of each order in use,
// the coefficient -a/2 in the imaginary part; the places behind them have order 0.
void four_order_excitation(const FourOrderMachine& m, int NORDER, UnitExcitation& ex) {
    ex.SPEED = m.EXCITATIONSPEED;
    one_point(ex, m.NODE, m.PHASEANGLE, NORDER);
    const int n = std::min({m.ORDERNUMBER, MACHINEORDERS, NORDER});
    for (int k = 1; k <= std::min(MACHINEORDERS, NORDER); ++k) {
        if (k > n) break;
        ex.FOIM[static_cast<std::size_t>(k - 1)] = -0.5 * m.TORQUEAMP[static_cast<std::size_t>(k - 1)];
        ex.EXFO[static_cast<std::size_t>(k - 1)] = m.ORDERS[static_cast<std::size_t>(k - 1)];
    }
    // The lowest positive order in use gives the unit's base frequency.
    ex.BASEORDER = 0.0;
    for (int k = 1; k <= n; ++k) {
        const double o = ex.EXFO[static_cast<std::size_t>(k - 1)];
        if (o > 0.0 && (ex.BASEORDER == 0.0 || o < ex.BASEORDER)) ex.BASEORDER = o;
    }
}

void propeller_excitation(const ModelTables& t, int u, bool ISPROPELLERICE, int NORDER, UnitExcitation& ex) {
    const PropellerRecord& p = t.PROPELLER_TABLE(u);
    ex.SPEED = p.SPEED;
    const double phase =
        GLOBAL_PROPELLER::GET_PROPELLER_ISMODELCONSIDERPHASEANGLE(t.PROPELLER_TABLE) ? p.EXCITATIONPHASE : 0.0;
    one_point(ex, p.PROPELLERNODE, phase, NORDER);
    if (ISPROPELLERICE) {
        // Ice excites at multiples of the shaft speed, not of the blade frequency.
        for (int i = 1; i <= NORDER; ++i) {
            const auto k = static_cast<std::size_t>(i - 1);
            ex.EXFO[k] = i;
            if (p.HASICEEXCITATION && k < p.ICEFOURIERCOEFFICIENT.size()) {
                ex.FORE[k] = p.ICEFOURIERCOEFFICIENT[k].real();
                ex.FOIM[k] = p.ICEFOURIERCOEFFICIENT[k].imag();
            }
        }
        ex.BASEORDER = 1.0;
        return;
    }
    // Blade order and twice the blade order, each a torque TORQUEPERCENT * T * sin(phi).
    const double T = p.TORQUE;
    const std::array<double, 2> percent{p.TORQUEPERCENT1, p.TORQUEPERCENT2};
    for (int i = 1; i <= std::min(NORDER, 2); ++i) {
        const auto k = static_cast<std::size_t>(i - 1);
        ex.FOIM[k] = -percent[k] * 0.5 * T;
        ex.EXFO[k] = static_cast<double>(i * p.NBLADE);
    }
    ex.BASEORDER = static_cast<double>(p.NBLADE);
}

// Engines and reciprocating pumps: one point per cylinder, the coefficients of each
// cylinder from the load case's excitation.
template <class Coefficients>
void cylinder_points(int ncyl, const std::array<int, 20>& cylinders, const std::array<double, 20>& angles,
                     double phase, int NORDER, Coefficients coefficients, UnitExcitation& ex) {
    const int n = std::clamp(ncyl, 0, 20);
    ex.REFERENCENODE = cylinders[0];
    ex.NODES.assign(cylinders.begin(), cylinders.begin() + n);
    ex.FIRINGANGLES.resize(static_cast<std::size_t>(n));
    ex.FORE.assign(static_cast<std::size_t>(n) * static_cast<std::size_t>(NORDER), 0.0);
    ex.FOIM = ex.FORE;
    std::vector<std::complex<double>> c;
    for (int j = 1; j <= n; ++j) {
        ex.FIRINGANGLES[static_cast<std::size_t>(j - 1)] = angles[static_cast<std::size_t>(j - 1)] + phase;
        c.assign(static_cast<std::size_t>(NORDER), {0.0, 0.0});
        coefficients(j, c);
        for (int o = 1; o <= std::min<int>(NORDER, static_cast<int>(c.size())); ++o) {
            const auto at = static_cast<std::size_t>((j - 1) * NORDER + o - 1);
            ex.FORE[at] = c[static_cast<std::size_t>(o - 1)].real();
            ex.FOIM[at] = c[static_cast<std::size_t>(o - 1)].imag();
        }
    }
}

}  // namespace

const char* kind_word(SourceKind kind) { return KINDS[static_cast<std::size_t>(kind)].word; }
int kind_code(SourceKind kind) { return KINDS[static_cast<std::size_t>(kind)].code; }

int unit_count(SourceKind kind, const ModelTables& t) {
    switch (kind) {
        case DIESEL: return t.DIESEL_TABLE.size();
        case PROPELLER: return t.PROPELLER_TABLE.size();
        case GENERATOR: return t.GENERATOR_TABLE.size();
        case CENTRIFUGALPUMP: return t.CENTRIFUGALPUMP_TABLE.size();
        case RECIPROCATINGPUMP: return t.RECIPROCATINGPUMP_TABLE.size();
        case ELECTRICMOTOR: return t.ELECTRICMOTOR_TABLE.size();
    }
    return 0;
}

int order_count(SourceKind kind, const ModelTables& t, bool ISPROPELLERICE) {
    switch (kind) {
        case DIESEL: return GLOBAL_DIESEL::GET_DIESEL_NCYLFOURIERCOEFFICIENTS(t.DIESEL_TABLE);
        case PROPELLER: {
            const int ice = GLOBAL_PROPELLER::GET_PROPELLERICEHARMONICORDERNUMBER(t.PROPELLER_TABLE);
            return ISPROPELLERICE && ice > 0 ? ice : 2;
        }
        case RECIPROCATINGPUMP: return 20;
        case GENERATOR:
        case CENTRIFUGALPUMP:
        case ELECTRICMOTOR: return MACHINEORDERS;
    }
    return 0;
}

bool runs_driver(SourceKind kind, const ModelTables& t, int u) {
    if (u < 1 || u > unit_count(kind, t)) return false;
    switch (kind) {
        case GENERATOR:
        case CENTRIFUGALPUMP:
        case ELECTRICMOTOR: return machine(kind, t, u).ORDERNUMBER > 0;
        default: return true;
    }
}

void unit_excitation(SourceKind kind, const ModelTables& t, int u, bool ISPROPELLERICE, int NORDER,
                     UnitExcitation& ex) {
    ex = UnitExcitation{};
    NORDER = std::max(NORDER, 0);
    ex.EXFO.assign(static_cast<std::size_t>(NORDER), 0.0);
    if (u < 1 || u > unit_count(kind, t)) return;
    switch (kind) {
        case DIESEL: {
            const DieselRecord& e = t.DIESEL_TABLE(u);
            ex.SPEED = e.SPEED;
            cylinder_points(e.NCYLINDER, e.CYLINDERS, e.FIRINGANGLEA, e.EXCITATIONPHASE, NORDER,
                            [&](int j, std::vector<std::complex<double>>& c) {
                                GLOBAL_DIESEL::CALCULATE_DIESEL_CYLFOURIERCOEFFICIENTS(t.DIESEL_TABLE, u, j, c);
                            },
                            ex);
            std::vector<double> orders;
            GLOBAL_DIESEL::GET_DIESEL_HARMONICORDER(t.DIESEL_TABLE, orders);
            for (int o = 1; o <= std::min<int>(NORDER, static_cast<int>(orders.size())); ++o)
                ex.EXFO[static_cast<std::size_t>(o - 1)] = orders[static_cast<std::size_t>(o - 1)];
            ex.BASEORDER = NORDER > 0 ? ex.EXFO[0] : 0.0;
            return;
        }
        case RECIPROCATINGPUMP: {
            const ReciprocatingPumpRecord& p = t.RECIPROCATINGPUMP_TABLE(u);
            ex.SPEED = p.SPEED;
            cylinder_points(p.NCYLINDER, p.CYLINDERS, p.DISCHARGEANGLEA, p.EXCITATIONPHASE, NORDER,
                            [&](int j, std::vector<std::complex<double>>& c) {
                                GLOBAL_RECIPROCATINGPUMP::CALCULATE_RECIPROCATINGPUMP_CYLFOURIERCOEFFICIENTS(
                                    t.RECIPROCATINGPUMP_TABLE, u, j, c);
                            },
                            ex);
            Table<double> orders;
            GLOBAL_RECIPROCATINGPUMP::GET_RECIPROCATINGPUMP_HARMONICORDER(t.RECIPROCATINGPUMP_TABLE, u, orders);
            for (int o = 1; o <= std::min(NORDER, orders.size()); ++o) ex.EXFO[static_cast<std::size_t>(o - 1)] = orders(o);
            ex.BASEORDER = NORDER > 0 ? ex.EXFO[0] : 0.0;
            return;
        }
        case PROPELLER: propeller_excitation(t, u, ISPROPELLERICE, NORDER, ex); return;
        case GENERATOR:
        case CENTRIFUGALPUMP:
        case ELECTRICMOTOR: four_order_excitation(machine(kind, t, u), NORDER, ex); return;
    }
}

}  // namespace qm::FORCEDVIBRATION
