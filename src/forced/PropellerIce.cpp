#include "forced/PropellerIce.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "input/GraphTheory.h"

namespace qm::FORCEDVIBRATION {

void CALCULATERESULTANTTORQUE(int NSHAFT, bool ISPHASEMODE, std::vector<double>& RESULTANTTORQUE,
                              const KindCurves& TORQUEANGLEBASED, const KindCurves& DAMPINGTORQUEANGLEBASED,
                              const std::array<bool, NKIND>* withUnits) {
    NSHAFT = std::max(NSHAFT, 0);
    RESULTANTTORQUE.assign(static_cast<std::size_t>(NSHAFT), 0.0);
    const std::size_t need = static_cast<std::size_t>(NSHAFT) * NSYNSTEP;
    for (int kind = 0; kind < NKIND; ++kind)
        if (TORQUEANGLEBASED[static_cast<std::size_t>(kind)].size() < need ||
            DAMPINGTORQUEANGLEBASED[static_cast<std::size_t>(kind)].size() < need)
            return;  // curves that weren't kept: no resultant to form

    std::array<std::array<double, NSYNSTEP>, NKIND> curve{};
    if (withUnits) {
        const std::array<double, NSYNSTEP> zero{};
        for (int j = 1; j <= NSHAFT; ++j) {
            const std::size_t at = static_cast<std::size_t>(j - 1) * NSYNSTEP;
            std::array<const double*, NKIND> of{};
            for (std::size_t kind = 0; kind < NKIND; ++kind) {
                if (!(*withUnits)[kind]) continue;
                const double* torque = TORQUEANGLEBASED[kind].data() + at;
                const double* damping = DAMPINGTORQUEANGLEBASED[kind].data() + at;
                for (int a = 0; a < NSYNSTEP; ++a) curve[kind][static_cast<std::size_t>(a)] = torque[a] + damping[a];
                of[kind] = curve[kind].data();
            }
            RESULTANTTORQUE[static_cast<std::size_t>(j - 1)] = half_range_sum_present(of, ISPHASEMODE, zero.data());
        }
        return;
    }
    for (int j = 1; j <= NSHAFT; ++j) {
        const std::size_t at = static_cast<std::size_t>(j - 1) * NSYNSTEP;
        for (int kind = 0; kind < NKIND; ++kind) {
            const auto& torque = TORQUEANGLEBASED[static_cast<std::size_t>(kind)];
            const auto& damping = DAMPINGTORQUEANGLEBASED[static_cast<std::size_t>(kind)];
            for (int a = 0; a < NSYNSTEP; ++a)
                curve[static_cast<std::size_t>(kind)][static_cast<std::size_t>(a)] = torque[at + a] + damping[at + a];
        }
        RESULTANTTORQUE[static_cast<std::size_t>(j - 1)] = half_range_sum(
            {curve[0].data(), curve[1].data(), curve[2].data(), curve[3].data(), curve[4].data(), curve[5].data()},
            ISPHASEMODE);
    }
}

void SINGLELOADCASEPROPELLERICESYNTHESIS(int N, int NUNIT, int NORDER, std::span<const double> OMEGA_PROPELLER,
                                         std::span<const double> RESRE, std::span<const double> RESIM,
                                         std::vector<double>& SYNRESM, SolvePath path, SynthesisScratch* scratch) {
    N = std::max(N, 0);
    SYNRESM.assign(static_cast<std::size_t>(N), 0.0);
    const std::size_t n = static_cast<std::size_t>(N) * std::max(NUNIT, 0) * std::max(NORDER, 0);
    if (NUNIT <= 0 || NORDER <= 0 || OMEGA_PROPELLER.size() < static_cast<std::size_t>(NUNIT) || RESRE.size() < n ||
        RESIM.size() < n)
        return;
    const double omegaMin = *std::min_element(OMEGA_PROPELLER.begin(), OMEGA_PROPELLER.begin() + NUNIT);

    SynthesisScratch own;
    SynthesisScratch& w = scratch ? *scratch : own;
    const bool tabled = path == SolvePath::FAST;
    std::array<double, NSYNSTEP> curve{};
    for (int e = 1; e <= N; ++e) {
        curve.fill(0.0);
        for (int u = 1; u <= NUNIT; ++u) {
            const double omega = OMEGA_PROPELLER[static_cast<std::size_t>(u - 1)];
            const StepAngleRows* rows =
                tabled ? &step_angle_rows(w, static_cast<std::size_t>(u - 1), omega, omegaMin, NORDER) : nullptr;
            for (int k = 1; k <= NORDER; ++k) {
                const std::size_t i = KindResults::index(u, k, e, N, NORDER);
                const double re = RESRE[i];
                const double im = RESIM[i];
                if (tabled) {
                    const double* c = rows->c.data() + static_cast<std::size_t>(k - 1) * NSYNSTEP;
                    const double* s = rows->s.data() + static_cast<std::size_t>(k - 1) * NSYNSTEP;
                    for (std::size_t a = 0; a < NSYNSTEP; ++a) curve[a] = curve[a] + re * c[a] - im * s[a];
                    continue;
                }
                for (int a = 1; a <= NSYNSTEP; ++a) {
                    const double phi = synthesis_step_angle(k, a, omega, omegaMin);
                    curve[static_cast<std::size_t>(a - 1)] =
                        curve[static_cast<std::size_t>(a - 1)] + re * std::cos(phi) - im * std::sin(phi);
                }
            }
        }
        SYNRESM[static_cast<std::size_t>(e - 1)] = curve_range(curve.data());
    }
}

void propeller_ice_synthesis(const KindResults& p, bool HASDAMPERORCOUPLING, PropellerIceResults& ice,
                             SolvePath path, SynthesisScratch* scratch) {
    const auto run = [&](int N, const std::vector<double>& re, const std::vector<double>& im,
                         std::vector<double>& out) {
        SINGLELOADCASEPROPELLERICESYNTHESIS(N, p.NUNIT, p.NORDER, p.OMEGA, re, im, out, path, scratch);
    };
    run(p.NMASS, p.XR, p.XI, ice.SYNPROPICEDEFLECTION);
    run(p.NMASS, p.VR, p.VI, ice.SYNPROPICEVELOCITY);
    run(p.NMASS, p.AR, p.AI, ice.SYNPROPICEACCELE);
    run(p.NSHAFT, p.SHAFTTORQUERE, p.SHAFTTORQUEIM, ice.SYNPROPICETORQUE);
    run(p.NSHAFT, p.SHAFTSTRESSRE, p.SHAFTSTRESSIM, ice.SYNPROPICESTRESS);
    if (HASDAMPERORCOUPLING)
        run(p.NSHAFT, p.DAMPINGTORQUERE, p.DAMPINGTORQUEIM, ice.SYNPROPICEDAMPINGTORQUE);
    else
        ice.SYNPROPICEDAMPINGTORQUE.clear();
}

PropellerIceResults propeller_ice_synthesis(const KindResults& p, bool HASDAMPERORCOUPLING) {
    PropellerIceResults ice;
    propeller_ice_synthesis(p, HASDAMPERORCOUPLING, ice);
    return ice;
}

namespace {

// RPMRATIO of the inertia with this ID; 0.0 when no row has it.
double mass_ratio(const MassTable& MASS_TABLE, int id) {
    const int row = GLOBAL_MASS::GET_MASS_IMASS(MASS_TABLE, id);
    return row > 0 ? MASS_TABLE(row).RPMRATIO : 0.0;
}

// Whether the destination of shaft j lies on the free shaft of a propeller. The graph is
// directed from origin to destination and, like the search's propeller nodes, in mass rows.
bool destination_on_propeller_shaft(const ShaftTable& SHAFT_TABLE, const MassTable& MASS_TABLE,
                                    const PropellerTable& PROPELLER_TABLE, int j) {
    const int N = GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE);
    const GRAPHTHEORY::AdjacencyList ADJNODE = IMPORTINPUTFILE::mass_shaft_graph(MASS_TABLE, SHAFT_TABLE, true);
    PropellerTable byRow;
    byRow.allocate(PROPELLER_TABLE.size());
    for (int p = 1; p <= PROPELLER_TABLE.size(); ++p)
        byRow(p).PROPELLERNODE = GLOBAL_MASS::GET_MASS_IMASS(MASS_TABLE, PROPELLER_TABLE(p).PROPELLERNODE);
    const int destination = GLOBAL_MASS::GET_MASS_IMASS(MASS_TABLE, SHAFT_TABLE(j).DESNODE);
    int propellerRow = 0;
    bool located = false;
    GRAPHTHEORY::ISDESNODELOCATEDONPROPELLERSHAFT(byRow, N, ADJNODE, destination, propellerRow, located);
    return located;
}

}  // namespace

void SINGLELOADCASEPROPELLERICEZEROORDERTORQUE(const ShaftTable& SHAFT_TABLE, const MassTable& MASS_TABLE,
                                               const PropellerTable& PROPELLER_TABLE,
                                               const std::vector<double>& SHAFTINERTIARATIO, int j, int lc,
                                               double& meanTorque, std::vector<double>& PROPELLERSHAFTMARKS) {
    meanTorque = 0.0;
    if (j < 1 || j > GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE)) return;
    if (GLOBAL_PROPELLER::GET_PROPELLER_NUMBER(PROPELLER_TABLE) != 1) return;

    const ShaftRecord& shaft = SHAFT_TABLE(j);
    const PropellerRecord& propeller = PROPELLER_TABLE(1);
    const double rp = mass_ratio(MASS_TABLE, propeller.PROPELLERNODE);
    if (propeller.HASICEEXCITATION) {
        const double inertiaRatio =
            static_cast<std::size_t>(j) <= SHAFTINERTIARATIO.size() ? SHAFTINERTIARATIO[static_cast<std::size_t>(j - 1)]
                                                                    : 1.0;
        meanTorque = propeller.ICEFOURIERMEAN * inertiaRatio * rp / shaft.RPMRATIO;
    }
    // The marks are written once; the walk along the line is needed only for them.
    if (lc == 1 && static_cast<std::size_t>(j) <= PROPELLERSHAFTMARKS.size()) {
        const double ro = mass_ratio(MASS_TABLE, shaft.ORGNODE);
        const double rd = mass_ratio(MASS_TABLE, shaft.DESNODE);
        const bool onPropellerShaft = destination_on_propeller_shaft(SHAFT_TABLE, MASS_TABLE, PROPELLER_TABLE, j);
        PROPELLERSHAFTMARKS[static_cast<std::size_t>(j - 1)] = onPropellerShaft && rp == ro && rp == rd ? 1.0 : 2.0;
    }
}

void add_mean_ice_torque(const ShaftTable& SHAFT_TABLE, const MassTable& MASS_TABLE,
                         const PropellerTable& PROPELLER_TABLE, const std::vector<double>& SHAFTINERTIARATIO, int lc,
                         std::vector<double>& NOMTORQUE, std::vector<double>& PROPELLERSHAFTMARKS) {
    for (std::size_t j = 1; j <= NOMTORQUE.size(); ++j) {
        double mean = 0.0;
        SINGLELOADCASEPROPELLERICEZEROORDERTORQUE(SHAFT_TABLE, MASS_TABLE, PROPELLER_TABLE, SHAFTINERTIARATIO,
                                                  static_cast<int>(j), lc, mean, PROPELLERSHAFTMARKS);
        NOMTORQUE[j - 1] += mean;
    }
}

}  // namespace qm::FORCEDVIBRATION
