// The per-order results of one source kind in one load case: the arrays the system names
// XAMP_DIESEL, SHAFTTORQUEIM_ELECTRICMOTOR, ... are the fields of results[kind]
// (results[DIESEL].XAMP, results[ELECTRICMOTOR].SHAFTTORQUEIM).
//
// Layout of every array but OMEGA: the block of unit u (1-based) begins at flat position
// (u-1)*NE*NORDER + 1, and within the block element e of order place o stands at
// (o-1)*NE + e, with NE = NMASS for deflection, velocity and acceleration and NE = NSHAFT
// for torque, stress and damping torque. index() gives the 0-based position.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace qm::FORCEDVIBRATION {

// The six source kinds in the order the sweep, the synthesis and the files take them.
enum SourceKind : int {
    DIESEL = 0,
    PROPELLER = 1,
    GENERATOR = 2,
    CENTRIFUGALPUMP = 3,
    RECIPROCATINGPUMP = 4,
    ELECTRICMOTOR = 5,
};
constexpr int NKIND = 6;

struct KindResults {
    int NUNIT = 0;   // rows of the kind's table
    int NORDER = 0;  // length of the kind's order axis
    int NMASS = 0;
    int NSHAFT = 0;

    // NMASS*NUNIT*NORDER each
    std::vector<double> XAMP, XANGLE, XR, XI;  // deflection: rad, rad, rad, rad
    std::vector<double> VAMP, VANGLE, VR, VI;  // velocity: rad/s, rad, rad/s, rad/s
    std::vector<double> AAMP, AANGLE, AR, AI;  // acceleration: rad/s^2, rad, rad/s^2, rad/s^2
    // NSHAFT*NUNIT*NORDER each
    std::vector<double> SHAFTTORQUEAMP, SHAFTTORQUEANGLE, SHAFTTORQUERE, SHAFTTORQUEIM;  // N*m, rad
    std::vector<double> SHAFTSTRESSAMP, SHAFTSTRESSANGLE, SHAFTSTRESSRE, SHAFTSTRESSIM;  // Pa, rad
    std::vector<double> DAMPINGTORQUEAMP, DAMPINGTORQUEANGLE, DAMPINGTORQUERE, DAMPINGTORQUEIM;  // N*m, rad
    std::vector<double> OMEGA;  // OMEGA_E: base frequency of each unit, rad/s, NUNIT values

    // Frees and allocates every array to the sizes above, all 0.0.
    void allocate(int nunit, int norder, int nmass, int nshaft) {
        NUNIT = nunit;
        NORDER = norder;
        NMASS = nmass;
        NSHAFT = nshaft;
        const auto nm = static_cast<std::size_t>(nmass) * nunit * norder;
        const auto ns = static_cast<std::size_t>(nshaft) * nunit * norder;
        for (auto* a : mass_arrays()) a->assign(nm, 0.0);
        for (auto* a : shaft_arrays()) a->assign(ns, 0.0);
        OMEGA.assign(static_cast<std::size_t>(nunit), 0.0);
    }

    // 0-based flat position of element e, order place o, unit u (all 1-based).
    static std::size_t index(int u, int o, int e, int NE, int norder) {
        return (static_cast<std::size_t>(u - 1) * NE * norder) + static_cast<std::size_t>(o - 1) * NE +
               static_cast<std::size_t>(e - 1);
    }
    // 0-based start of the block of unit u in an array of NE elements per order.
    std::size_t block(int u, int NE) const { return static_cast<std::size_t>(u - 1) * NE * NORDER; }

    std::array<std::vector<double>*, 12> mass_arrays() {
        return {&XAMP, &XANGLE, &XR, &XI, &VAMP, &VANGLE, &VR, &VI, &AAMP, &AANGLE, &AR, &AI};
    }
    std::array<std::vector<double>*, 12> shaft_arrays() {
        return {&SHAFTTORQUEAMP,   &SHAFTTORQUEANGLE,   &SHAFTTORQUERE,   &SHAFTTORQUEIM,
                &SHAFTSTRESSAMP,   &SHAFTSTRESSANGLE,   &SHAFTSTRESSRE,   &SHAFTSTRESSIM,
                &DAMPINGTORQUEAMP, &DAMPINGTORQUEANGLE, &DAMPINGTORQUERE, &DAMPINGTORQUEIM};
    }
};

using AllKindResults = std::array<KindResults, NKIND>;

}  // namespace qm::FORCEDVIBRATION
