#include "forced/LoadCaseReport.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>

#include "base/ComponentCodes.h"
#include "base/Constants.h"
#include "base/Format.h"
#include "components/ViscousDamperCustomDamping.h"
#include "forced/ComponentRows.h"
#include "input/GraphTheory.h"

namespace qm::FORCEDVIBRATION {

namespace {

using namespace qm::CODES;

const char* const kDampingNote = "Note: The listed damping values are calculated basing on shaft order";
const char* const kStiffnessNote =
    "Note: The listed stiffness and damping values are calculated basing on shaft order";

// The single-precision 1.0e-6 that stands for "no stiffness" in a viscous damper's spring.
constexpr double kStiffnessPlaceholder = 9.999999974752427e-07;

std::string hyphens(int n) { return std::string(static_cast<std::size_t>(n), '-'); }

double shaft_magnifier(const ShaftTable& shafts, int row) { return is_row(shafts, row) ? shafts(row).DYNMAGNIFIER : 0.0; }
double shaft_stiffness(const ShaftTable& shafts, int row) { return is_row(shafts, row) ? shafts(row).STIFFNESS : 0.0; }

// One row of a damper or coupling: lc, speed, stiffness, damping.
std::string element_row(int lc, double speed, double stiffness, double damping) {
    return fmt::I(lc, 4) + fmt::F(speed, 15, 1) + fmt::ES(stiffness, 15, 3, 3) + fmt::ES(damping, 15, 3, 3);
}

// Writes the block of one component of the load case table; nothing for a code without a block
// or a component that isn't in its table.
void write_block(std::ofstream& out, ModelTables& t, int c) {
    const int type = t.LOADCASE_TABLE(c).COMPONENTTYPE;
    const int id = t.LOADCASE_TABLE(c).COMPONENTID;
    const int row = component_row(t, type, id);
    if (row == 0) return;
    const int NLOADCASE = row_count(t.LOADCASE_SPEED);
    auto power = [&](int lc) {
        return c <= t.LOADCASE_POWER.rows() && lc <= t.LOADCASE_POWER.cols() ? t.LOADCASE_POWER(c, lc) : 0.0;
    };
    auto title = [&](const char* text) { out << '\n' << fmt::A(text) << fmt::I(id, 3) << '\n'; };
    auto lines = [&](std::initializer_list<std::string> header) {
        for (const auto& h : header) out << h << '\n';
    };
    const std::string machine_header[] = {"Case          Speed          Power", "              [rpm]           [kW]",
                                          hyphens(32)};
    const std::string element_header[] = {"Case          Speed       Stiffness       Damping",
                                          "              [rpm]        [Nm/rad]     [Nms/rad]", hyphens(47)};
    auto machine_block = [&](const char* text, auto& record) {
        title(text);
        for (const auto& h : machine_header) out << h << '\n';
        for (int lc = 1; lc <= NLOADCASE; ++lc) {
            const double speed = t.LOADCASE_SPEED(lc) * record.RPMRATIO;
            set_operating_point(record, power(lc), speed);
            out << fmt::I(lc, 4) << fmt::F(speed, 15, 1) << fmt::F(power(lc) / 1000.0, 15, 1) << '\n';
        }
    };
    auto element_block = [&](const char* text, const char* note, auto& record, auto&& derive) {
        title(text);
        if (note != nullptr) out << note << '\n';
        for (const auto& h : element_header) out << h << '\n';
        for (int lc = 1; lc <= NLOADCASE; ++lc) {
            const double speed = t.LOADCASE_SPEED(lc) * record.RPMRATIO;
            set_operating_point(record, power(lc), speed);
            double stiffness = 0.0, damping = 0.0;
            derive(stiffness, damping);
            out << element_row(lc, speed, stiffness, damping) << '\n';
        }
    };

    switch (type) {
        case COMPONENT_DIESEL: {
            auto& d = t.DIESEL_TABLE(row);
            title("Diesel ");
            lines({"Case     Speed     Power     P.Max    P.Inlet   P.Comp       MIP       MEP",
                   "         [rpm]  [kW/cyl]     [bar]      [bar]    [bar]     [bar]     [bar]", hyphens(74)});
            const int z = GLOBAL_DIESEL::GET_DIESEL_NFIRINGCYLINDER(t.DIESEL_TABLE, row);
            for (int lc = 1; lc <= NLOADCASE; ++lc) {
                const double P = power(lc);
                const double p = P / z;
                d.ILOADCASE = lc;
                d.SPEED = t.LOADCASE_SPEED(lc) * d.RPMRATIO;
                d.POWER = P;
                d.POWERPERCYL = p;
                GLOBAL_DIESEL::CALCULATE_DIESEL_TORQUE(t.DIESEL_TABLE, row);
                GLOBAL_DIESEL::CALCULATE_DIESEL_LOADPERCENTAGE(t.DIESEL_TABLE, row);
                GLOBAL_DIESEL::CALCULATE_DIESEL_LOADCASESETTING(t.DIESEL_TABLE, row, t.LOADCASEGENSET_TABLE, 0, true);
                double kw = p / 1000.0;
                if (d.HASPARTIALFIRING) kw *= GLOBAL_DIESEL::GET_DIESEL_POWERCYLPERCENTINCREASED(t.DIESEL_TABLE, row);
                out << fmt::I(lc, 4) << fmt::F(d.SPEED, 10, 1) << fmt::F(kw, 10, 1)
                    << fmt::F(d.PMAXRPM / 100000.0, 10, 1) << fmt::F(d.PCHARGEAIRRPM / 100000.0, 10, 1)
                    << fmt::F(d.PCOMPRPM / 100000.0, 10, 1) << fmt::F(d.MIPRPM / 100000.0, 10, 1)
                    << fmt::F(d.MEPRPM / 100000.0, 10, 1) << '\n';
            }
            break;
        }
        case COMPONENT_PROPELLER: {
            auto& p = t.PROPELLER_TABLE(row);
            title("Propeller ");
            if (p.HASICEEXCITATION)
                lines({"                              Propeller information",
                       "Case  Engine speed  Blade freq.   Power     Damping",
                       "             [rpm]      [min-1]    [kW]   [Nms/rad]", hyphens(51)});
            else
                lines({"                                                    Propeller excitation",
                       "Case  Engine speed  Blade freq.   Power     Damping  1st order  2nd order",
                       "             [rpm]      [min-1]    [kW]   [Nms/rad]       [Nm]       [Nm]", hyphens(73)});
            for (int lc = 1; lc <= NLOADCASE; ++lc) {
                set_operating_point(p, power(lc), t.LOADCASE_SPEED(lc) * p.RPMRATIO);
                GLOBAL_PROPELLER::CALCULATE_PROPELLER_LOADCASESETTING(t.PROPELLER_TABLE, row);
                out << fmt::I(lc, 4) << fmt::F(t.LOADCASE_SPEED(lc), 14, 1) << fmt::F(p.BLADEFREQUENCY, 13, 1)
                    << fmt::F(power(lc) / 1000.0, 8, 1) << fmt::ES(p.DAMPING, 12, 3, 2);
                if (!p.HASICEEXCITATION) out << fmt::ES(p.TORQUEAMP1, 11, 3, 2) << fmt::ES(p.TORQUEAMP2, 11, 3, 2);
                out << '\n';
            }
            break;
        }
        case COMPONENT_ELECTRICMOTOR: machine_block("Electric motor ", t.ELECTRICMOTOR_TABLE(row)); break;
        case COMPONENT_GENERATOR: machine_block("Generator ", t.GENERATOR_TABLE(row)); break;
        case COMPONENT_GASTURBINE: machine_block("Gas turbine ", t.GASTURBINE_TABLE(row)); break;
        case COMPONENT_STEAMTURBINE: machine_block("Steam turbine ", t.STEAMTURBINE_TABLE(row)); break;
        case COMPONENT_CENTRIFUGALPUMP: machine_block("Centrifugal pump ", t.CENTRIFUGALPUMP_TABLE(row)); break;
        case COMPONENT_VISCOUSDAMPER: {
            auto& v = t.VISCOUSDAMPER_TABLE(row);
            const char* note = v.ISCUSTOMDAMPING ? (v.ISCUSTOMSTIFFNESS ? kStiffnessNote : kDampingNote) : nullptr;
            const int shaft = GLOBAL_SHAFT::GET_SHAFT_ISHAFTBYNODE(t.SHAFT_TABLE, v.CASINGNODE, v.RINGNODE);
            element_block("Viscous damper ", note, v, [&](double& k, double& c) {
                k = shaft_stiffness(t.SHAFT_TABLE, shaft);
                if (!v.ISCUSTOMDAMPING) {
                    GLOBAL_VISCOUSDAMPER::CALCULATE_VISCOUSDAMPER_LOADCASESETTING(t.VISCOUSDAMPER_TABLE, row, k);
                    k = v.STIFFNESS;
                    c = v.DAMPING;
                } else {
                    c = GLOBAL_VISCOUSDAMPER::CALCULATE_VISCOUSDAMPER_CUSTOMDAMPING(t.VISCOUSDAMPER_TABLE, row, 1.0);
                    if (v.ISCUSTOMSTIFFNESS)
                        k = GLOBAL_VISCOUSDAMPER::CALCULATE_VISCOUSDAMPER_CUSTOMSTIFFNESS(t.VISCOUSDAMPER_TABLE, row, 1.0);
                }
                if (k == kStiffnessPlaceholder) k = 0.0;
            });
            break;
        }
        case COMPONENT_STEELSPRINGDAMPER: {
            auto& s = t.STEELSPRINGDAMPER_TABLE(row);
            const int shaft = GLOBAL_SHAFT::GET_SHAFT_ISHAFTBYNODE(t.SHAFT_TABLE, s.OUTERMEMBERNODE, s.INNERMEMBERNODE);
            const double mag = shaft_magnifier(t.SHAFT_TABLE, shaft);
            element_block("Steel spring damper ", mag != 0.0 ? kDampingNote : nullptr, s, [&](double& k, double& c) {
                GLOBAL_STEELSPRINGDAMPER::CALCULATE_STEELSPRINGDAMPER_LOADCASESETTING(
                    t.STEELSPRINGDAMPER_TABLE, row, shaft_stiffness(t.SHAFT_TABLE, shaft), mag, 1.0);
                k = s.STIFFNESS;
                c = s.DAMPING;
            });
            break;
        }
        case COMPONENT_RUBBERDAMPER: {
            auto& r = t.RUBBERDAMPER_TABLE(row);
            const int shaft = GLOBAL_SHAFT::GET_SHAFT_ISHAFTBYNODE(t.SHAFT_TABLE, r.TURNINGMASSNODE, r.DRIVEPLATENODE);
            const double mag = shaft_magnifier(t.SHAFT_TABLE, shaft);
            element_block("Rubber damper ", kDampingNote, r, [&](double& k, double& c) {
                GLOBAL_RUBBERDAMPER::CALCULATE_RUBBERDAMPER_LOADCASESETTING(
                    t.RUBBERDAMPER_TABLE, row, shaft_stiffness(t.SHAFT_TABLE, shaft), mag, 1.0);
                k = r.STIFFNESS;
                c = r.DAMPING;
            });
            break;
        }
        case COMPONENT_LINEARCOUPLING: {
            auto& l = t.LINEARCOUPLING_TABLE(row);
            const double mag = shaft_magnifier(t.SHAFT_TABLE, GLOBAL_SHAFT::GET_SHAFT_ISHAFT(t.SHAFT_TABLE, l.SHAFTNODE));
            element_block("Linear coupling ", kDampingNote, l, [&](double& k, double& c) {
                GLOBAL_LINEARCOUPLING::CALCULATE_LINEARCOUPLING_LOADCASESETTING(t.LINEARCOUPLING_TABLE, row, mag);
                k = l.STIFFNESS;
                c = l.DAMPING;
            });
            break;
        }
        case COMPONENT_PROGRESSIVECOUPLING: {
            auto& p = t.PROGRESSIVECOUPLING_TABLE(row);
            const double mag = shaft_magnifier(t.SHAFT_TABLE, GLOBAL_SHAFT::GET_SHAFT_ISHAFT(t.SHAFT_TABLE, p.SHAFTNODE));
            element_block("Progressive coupling ", kDampingNote, p, [&](double& k, double& c) {
                GLOBAL_PROGRESSIVECOUPLING::CALCULATE_PROGRESSIVECOUPLING_LOADCASESETTING(t.PROGRESSIVECOUPLING_TABLE,
                                                                                          row, mag);
                k = p.STIFFNESS;
                c = p.DAMPING;
            });
            break;
        }
        case COMPONENT_GEISLINGERCOUPLING: {
            auto& g = t.GEISLINGERCOUPLING_TABLE(row);
            const double mag = shaft_magnifier(t.SHAFT_TABLE, GLOBAL_SHAFT::GET_SHAFT_ISHAFT(t.SHAFT_TABLE, g.SHAFTNODE));
            element_block("Geislinger coupling ", kStiffnessNote, g, [&](double& k, double& c) {
                g.SPEEDEXCITATION = g.SPEED;
                GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_LOADCASESETTING(t.GEISLINGERCOUPLING_TABLE,
                                                                                        row, mag, 1.0);
                k = g.STIFFNESS;
                c = g.DAMPING;
            });
            break;
        }
        case COMPONENT_RECIPROCATINGPUMP: {
            auto& r = t.RECIPROCATINGPUMP_TABLE(row);
            title("Reciprocating pump ");
            lines({"Case     Speed        Speed       Power       T_rpm       T_mcr     T_ratio",
                   "         [rpm]  [%MCRSpeed]    [kW/cyl]       [kNm]       [kNm]         [%]", hyphens(74)});
            const int z = r.ISOPPOSITE ? 2 * r.NCYLINDER : r.NCYLINDER;
            for (int lc = 1; lc <= NLOADCASE; ++lc) {
                const double P = power(lc);
                const double p = P / z;
                r.ILOADCASE = lc;
                r.SPEED = t.LOADCASE_SPEED(lc) * r.RPMRATIO;
                r.POWER = P;
                r.POWERPERCYL = p;
                GLOBAL_RECIPROCATINGPUMP::CALCULATE_RECIPROCATINGPUMP_SPEEDPERCENTAGE(t.RECIPROCATINGPUMP_TABLE, row);
                GLOBAL_RECIPROCATINGPUMP::CALCULATE_RECIPROCATINGPUMP_TORQUE(t.RECIPROCATINGPUMP_TABLE, row);
                GLOBAL_RECIPROCATINGPUMP::CALCULATE_RECIPROCATINGPUMP_LOADPERCENTAGE(t.RECIPROCATINGPUMP_TABLE, row);
                GLOBAL_RECIPROCATINGPUMP::CALCULATE_RECIPROCATINGPUMP_LOADCASESETTING(t.RECIPROCATINGPUMP_TABLE, row);
                out << fmt::I(lc, 4) << fmt::F(r.SPEED, 10, 1) << fmt::F(r.SPEEDPERCENTAGE * 100.0, 13, 2)
                    << fmt::F(p / 1000.0, 12, 1) << fmt::F(r.TORQUE / 1000.0, 12, 1)
                    << fmt::F(r.MCRTORQUE / 1000.0, 12, 1) << fmt::F(r.LOADPERCENTAGE * 100.0, 12, 2) << '\n';
            }
            break;
        }
        default: break;
    }
}

// The shaft line as a graph of mass rows: an edge both ways for each shaft whose two ends are
// inertias of the table.
GRAPHTHEORY::AdjacencyList mass_row_graph(const ModelTables& t) {
    return IMPORTINPUTFILE::mass_shaft_graph(t.MASS_TABLE, t.SHAFT_TABLE);
}

// Cuts the line at shaft j and marks the mass rows of both sides.
void cut_at_shaft(const ModelTables& t, const GRAPHTHEORY::AdjacencyList& ADJNODE, int NMASS, int j, Table<int>& ORGVISITEDNODE,
                  Table<int>& DESVISITEDNODE) {
    ORGVISITEDNODE.allocate(NMASS);
    DESVISITEDNODE.allocate(NMASS);
    const int i = GLOBAL_MASS::GET_MASS_IMASS(t.MASS_TABLE, t.SHAFT_TABLE(j).ORGNODE);
    const int k = GLOBAL_MASS::GET_MASS_IMASS(t.MASS_TABLE, t.SHAFT_TABLE(j).DESNODE);
    if (i < 1 || k < 1) return;
    GRAPHTHEORY::UNDIRECTEDGRAPH_TWOBRANCH(NMASS, ADJNODE, i, k, ORGVISITEDNODE, DESVISITEDNODE);
}

// Power that mass row m feeds into the line (positive) or takes out of it (negative) in load
// case lc. A machine of several masses (cylinders) spreads its power over NCYLINDER of them.
double mass_power(const ModelTables& t, int m, int lc) {
    const MassRecord& mass = t.MASS_TABLE(m);
    const int type = mass.COMPONENTTYPE;
    auto column_power = [&]() {
        const int c = GLOBAL_LOADCASE::GET_LOADCASE_ICOMPONENT(t.LOADCASE_TABLE, type, mass.COMPONENTID);
        if (c < 1 || c > t.LOADCASE_POWER.rows() || lc > t.LOADCASE_POWER.cols()) return 0.0;
        return t.LOADCASE_POWER(c, lc);
    };
    switch (type) {
        case COMPONENT_DIESEL: {
            const int row = GLOBAL_DIESEL::GET_DIESEL_IDIESEL(t.DIESEL_TABLE, mass.COMPONENTID);
            return row > 0 ? column_power() / t.DIESEL_TABLE(row).NCYLINDER : 0.0;
        }
        case COMPONENT_ELECTRICMOTOR:
        case COMPONENT_GASTURBINE:
        case COMPONENT_STEAMTURBINE: return column_power();
        case COMPONENT_PROPELLER:
        case COMPONENT_GENERATOR:
        case COMPONENT_CENTRIFUGALPUMP: return -column_power();
        case COMPONENT_RECIPROCATINGPUMP: {
            const int row =
                GLOBAL_RECIPROCATINGPUMP::GET_RECIPROCATINGPUMP_IRECIPROCATINGPUMP(t.RECIPROCATINGPUMP_TABLE,
                                                                                   mass.COMPONENTID);
            return row > 0 ? -column_power() / t.RECIPROCATINGPUMP_TABLE(row).NCYLINDER : 0.0;
        }
        default: return 0.0;
    }
}

}  // namespace

void WRITELOADCASESETTING(RunContext& ctx, ModelTables& tables) {
    ctx.GETFILEID();
    std::ofstream out(ctx.result_path("LoadCaseSetting.txt"), std::ios::out | std::ios::trunc);
    if (!out) return;
    for (int c = 1; c <= row_count(tables.LOADCASE_TABLE); ++c) write_block(out, tables, c);
}

void CALCULATELOADCASESHAFTPOWER(const ModelTables& t, Array2D<double>& LOADCASE_SHAFTPOWER) {
    const int NMASS = GLOBAL_MASS::GET_MASS_NUMBER(t.MASS_TABLE);
    const int NSHAFT = GLOBAL_SHAFT::GET_SHAFT_NUMBER(t.SHAFT_TABLE);
    const int NLOADCASE = row_count(t.LOADCASE_SPEED);
    LOADCASE_SHAFTPOWER.deallocate();
    LOADCASE_SHAFTPOWER.allocate(NSHAFT, NLOADCASE);
    const GRAPHTHEORY::AdjacencyList ADJNODE = mass_row_graph(t);
    Table<int> ORGVISITEDNODE, DESVISITEDNODE;
    // power(m, lc): what mass row m feeds in or takes out in each load case
    Array2D<double> power;
    power.allocate(NMASS, NLOADCASE);
    for (int lc = 1; lc <= NLOADCASE; ++lc)
        for (int m = 1; m <= NMASS; ++m) power(m, lc) = mass_power(t, m, lc);
    for (int j = 1; j <= NSHAFT; ++j) {
        cut_at_shaft(t, ADJNODE, NMASS, j, ORGVISITEDNODE, DESVISITEDNODE);
        for (int lc = 1; lc <= NLOADCASE; ++lc) {
            double sumOrg = 0.0, sumDes = 0.0;
            for (int m = 1; m <= NMASS; ++m) {
                if (ORGVISITEDNODE(m) != 0) sumOrg += power(m, lc);
                if (DESVISITEDNODE(m) != 0) sumDes += power(m, lc);
            }
            const double mx = std::max(sumOrg, sumDes);
            const double mn = std::min(sumOrg, sumDes);
            LOADCASE_SHAFTPOWER(j, lc) = mx > 0.0 ? std::fabs(mx) : std::fabs(mn);
        }
    }
}

void CALCULATESHAFTINERTIARATIO(const ModelTables& t, std::vector<double>& SHAFTINERTIARATIO) {
    const int NMASS = GLOBAL_MASS::GET_MASS_NUMBER(t.MASS_TABLE);
    const int NSHAFT = GLOBAL_SHAFT::GET_SHAFT_NUMBER(t.SHAFT_TABLE);
    const double total = GLOBAL_MASS::GET_MASS_INERTIAEQUIVALENTTOTAL(t.MASS_TABLE);
    SHAFTINERTIARATIO.assign(static_cast<std::size_t>(NSHAFT), 1.0);
    if (row_count(t.PROPELLER_TABLE) != 1) return;
    // The propeller's inertia is found by its node, which holds on any model, not only where
    // the propeller's ID happens to be the row of its inertia.
    const int propellerRow = GLOBAL_MASS::GET_MASS_IMASS(t.MASS_TABLE, t.PROPELLER_TABLE(1).PROPELLERNODE);
    if (propellerRow < 1) return;
    const GRAPHTHEORY::AdjacencyList ADJNODE = mass_row_graph(t);
    Table<int> ORGVISITEDNODE, DESVISITEDNODE;
    for (int j = 1; j <= NSHAFT; ++j) {
        cut_at_shaft(t, ADJNODE, NMASS, j, ORGVISITEDNODE, DESVISITEDNODE);
        double sumOrg = 0.0, sumDes = 0.0;
        for (int m = 1; m <= NMASS; ++m) {
            const MassRecord& mass = t.MASS_TABLE(m);
            const double referred = mass.RPMRATIO * mass.RPMRATIO * mass.INERTIA;
            if (ORGVISITEDNODE(m) != 0) sumOrg += referred;
            if (DESVISITEDNODE(m) != 0) sumDes += referred;
        }
        const double sum = sumOrg + sumDes;
        if (std::fabs(sum - total) >= 9.999999974752427e-07 || sum <= 0.0) continue;
        SHAFTINERTIARATIO[static_cast<std::size_t>(j - 1)] =
            DESVISITEDNODE(propellerRow) != 0 ? sumOrg / sum : sumDes / sum;
    }
}

}  // namespace qm::FORCEDVIBRATION
