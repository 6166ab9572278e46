// The six source kinds of the forced calculation as data: what their files are called,
// how many units and orders they have, which units are solved, and what one unit puts
// into the solver (speed, reference mass, points of attack, phases, coefficients, orders).
// The one driver (SourceDriver) takes everything kind-specific from here.
#pragma once

#include <vector>

#include "components/ModelTables.h"
#include "forced/KindResults.h"

namespace qm::FORCEDVIBRATION {

// Word that begins the kind's file names: "Diesel", "Propeller", "Generator",
// "CentrifugalPump", "ReciprocatingPump", "ElectricMotor".
const char* kind_word(SourceKind kind);
// Component code of the kind (15, 16, 18, 28, 30, 17).
int kind_code(SourceKind kind);

// NUNIT: rows of the kind's table, 0 when it is unallocated.
int unit_count(SourceKind kind, const ModelTables& tables);
// NORDER: diesel 24 with any four-stroke engine, else 20 (0 without engines); propeller the
// ice harmonics of the model with ISPROPELLERICE, else 2; reciprocating pump 20; generator,
// centrifugal pump and electric motor 4.
int order_count(SourceKind kind, const ModelTables& tables, bool ISPROPELLERICE);
// False when the frame must not run the driver of unit u: a generator, centrifugal pump
// or electric motor whose number of orders is 0 or less.
bool runs_driver(SourceKind kind, const ModelTables& tables, int u);

// What the solver gets for one unit.
struct UnitExcitation {
    double SPEED = 0.0;                // rpm of the excitation; omega = SPEED * pi / 30
    int REFERENCENODE = 0;             // ID of the inertia whose RPMRATIO all ratios are referred to
    std::vector<int> NODES;            // ID of the inertia of each point of attack
    std::vector<double> FIRINGANGLES;  // rad at order 1, one per point
    std::vector<double> FORE, FOIM;    // half-amplitude coefficients, (point-1)*NORDER + order place
    std::vector<double> EXFO;          // NORDER harmonic orders; 0.0 at places behind the orders in use
    double BASEORDER = 0.0;            // OMEGA of the unit = omega * BASEORDER
};

// Fills `ex` for unit u of the kind with NORDER order places, from the tables as the load
// case setting left them.
void unit_excitation(SourceKind kind, const ModelTables& tables, int u, bool ISPROPELLERICE, int NORDER,
                     UnitExcitation& ex);

}  // namespace qm::FORCEDVIBRATION
