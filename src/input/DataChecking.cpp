#include "input/DataChecking.h"

#include <cmath>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "components/DieselHarmonicFile.h"
#include "components/GlobalLoadCase.h"
#include "components/GlobalProgressiveCoupling.h"
#include "components/PropellerSideFiles.h"
#include "components/ReciprocatingPumpFile.h"
#include "components/ViscousDamperCustomDamping.h"
#include "base/Constants.h"
#include "base/Format.h"
#include "base/TextLine.h"
#include "base/Truncate.h"
#include "input/GraphTheory.h"
#include "input/ImportInputFile.h"
#include "base/StringOperation.h"

namespace qm::IMPORTINPUTFILE {

std::string message_real(double value) {
    std::string field = fmt::G(value, 15, 7);
    const auto last = field.find_last_not_of(' ');
    return last == std::string::npos ? field : field.substr(0, last + 1);
}

namespace {

// Writes the findings of the check, one line each, and keeps the verdict.
class Findings {
public:
    Findings(RunContext& ctx, bool& ok) : ctx_(ctx), ok_(ok) {}

    void error(const std::string& line) {
        ctx_.log_append(line);
        ok_ = false;
    }
    void warning(const std::string& line) { ctx_.log_append(line); }
    // The run, for the side file loaders that write their own lines.
    RunContext& run() { return ctx_; }
    // An error whose line a side file loader has written itself.
    void failed() { ok_ = false; }
    bool clean() const { return ok_; }

    // "(A, I3, A)"
    void error(const std::string& prefix, int id, const std::string& text) { error(prefix + fmt::I(id, 3) + text); }
    // "(A, I3, A, I3, A)": a node or other whole number in brackets.
    void error_node(const std::string& prefix, int id, const std::string& text, int node) {
        error(prefix + fmt::I(id, 3) + text + fmt::I(node, 3) + ")");
    }
    // "(A, I3, A, F, A)"
    void error_real(const std::string& prefix, int id, const std::string& text, double value) {
        error(prefix + fmt::I(id, 3) + text + message_real(value) + ")");
    }
    // "(A, I3, A, A, A)": a file name in brackets.
    void error_name(const std::string& prefix, int id, const std::string& text, const std::string& name) {
        error(prefix + fmt::I(id, 3) + text + name + ")");
    }

    // For every earlier row with the same ID, one line. The rows of a table are checked
    // in order, so a count of the IDs seen so far gives the earlier rows at once.
    template <class Table>
    void duplicates(const Table& table, int row, const std::string& prefix) {
        const int id = table(row).ID;
        auto& seen = seen_ids_[static_cast<const void*>(&table)];
        if (row == 1) seen.clear();
        const int earlier = seen[id]++;
        for (int k = 0; k < earlier; ++k)
            error(prefix + fmt::I(id, 3) + " has a index (" + fmt::I(id, 3) + ") used by another one");
    }

private:
    RunContext& ctx_;
    bool& ok_;
    std::unordered_map<const void*, std::unordered_map<int, int>> seen_ids_;
};

// First row of each ID of a table, looked up in constant time: the answer of the lookup
// by ID, without a scan of the table for every shaft and component.
class RowsById {
public:
    template <class Table>
    explicit RowsById(const Table& table) {
        rows_.reserve(static_cast<std::size_t>(row_count(table)));
        for (int i = 1; i <= row_count(table); ++i) rows_.emplace(table(i).ID, i);
    }
    int operator()(int id) const {
        const auto found = rows_.find(id);
        return found == rows_.end() ? 0 : found->second;
    }

private:
    std::unordered_map<int, int> rows_;
};

struct Graph {
    int N = 0;
    GRAPHTHEORY::AdjacencyList ADJNODE;
    RowsById masses;
    RowsById shafts;
};

bool listed(const RowsById& rows, int id) { return rows(id) != 0; }

// A damper's inner part must hang on the system by the spring alone: on the inner side of
// the spring there is nothing but the inner part. That side is what a walk from the inner
// part reaches without the spring's edge, so it is the inner part alone exactly when the
// inner part has no edge but to the outer one.
bool hangs_by_its_spring(const Graph& g, int innerRow, int outerRow) {
    for (int n : g.ADJNODE.neighbours(innerRow))
        if (n != outerRow) return false;
    return true;
}

void check_viscous_dampers(Findings& f, ModelTables& t, const Graph& g) {
    const std::string prefix = "Error: Viscous damper ";
    ViscousDamperTable& table = t.VISCOUSDAMPER_TABLE;
    for (int i = 1; i <= row_count(table); ++i) {
        ViscousDamperRecord& d = table(i);
        f.duplicates(table, i, prefix);
        const int casing = g.masses(d.CASINGNODE);
        const int ring = g.masses(d.RINGNODE);
        if (casing == 0) f.error_node(prefix, d.ID, " has a casing node not listed in Inertia table (", d.CASINGNODE);
        if (ring == 0) f.error_node(prefix, d.ID, " has a ring node not listed in Inertia table (", d.RINGNODE);
        if (d.ISCUSTOMDAMPING) {
            bool loaded = true;
            GLOBAL_VISCOUSDAMPER::LOADCUSTOMDAMPINGFILE(f.run(), table, i, loaded);
            if (!loaded) f.failed();
        }
        if (d.ABSDAMPING < 0.0 && !d.ISCUSTOMDAMPING)
            f.error_real(prefix, d.ID, " has a negative AbsDamping (", d.ABSDAMPING);
        if (casing == 0 || ring == 0) continue;
        // A spring without stiffness gets the single-precision value of 1E-6.
        const int shaft = GLOBAL_SHAFT::GET_SHAFT_ISHAFTBYNODE(t.SHAFT_TABLE, d.CASINGNODE, d.RINGNODE);
        if (shaft != 0 && t.SHAFT_TABLE(shaft).STIFFNESS <= 0.0) {
            t.SHAFT_TABLE(shaft).STIFFNESS = 9.999999974752427E-07;
            if (d.ABSDAMPING == 0.0 && !d.ISCUSTOMDAMPING && !d.ISCUSTOMSTIFFNESS)
                f.error(prefix, d.ID, " has zero AbsDamping and Stiffness");
        }
        if (!hangs_by_its_spring(g, ring, casing)) f.error(prefix, d.ID, " has the ring linked to other inertia");
    }
}

// Rubber and steel spring dampers: two nodes, the damping and the branch test.
template <class Table, class Nodes>
void check_two_node_dampers(Findings& f, const Graph& g, const Table& table,
                            const std::string& prefix, const char* innerText, const char* outerText,
                            const char* branchText, Nodes nodes) {
    for (int i = 1; i <= row_count(table); ++i) {
        const auto& d = table(i);
        f.duplicates(table, i, prefix);
        const auto [innerId, outerId] = nodes(d);
        const int inner = g.masses(innerId);
        const int outer = g.masses(outerId);
        if (inner == 0) f.error_node(prefix, d.ID, innerText, innerId);
        if (outer == 0) f.error_node(prefix, d.ID, outerText, outerId);
        if (d.ABSDAMPING < 0.0) f.error_real(prefix, d.ID, " has a negative AbsDamping (", d.ABSDAMPING);
        if (inner != 0 && outer != 0 && !hangs_by_its_spring(g, inner, outer)) f.error(prefix, d.ID, branchText);
    }
}

template <class Table>
void check_coupling_shaft(Findings& f, const Graph& g, const Table& table, int i, const std::string& prefix) {
    f.duplicates(table, i, prefix);
    if (!listed(g.shafts, table(i).SHAFTNODE))
        f.error_node(prefix, table(i).ID, " has a shaft node not listed in Shaft table (", table(i).SHAFTNODE);
}

void check_couplings(Findings& f, const ModelTables& t, const Graph& g) {
    const std::string linear = "Error: Linear coupling ";
    for (int i = 1; i <= row_count(t.LINEARCOUPLING_TABLE); ++i) {
        const LinearCouplingRecord& c = t.LINEARCOUPLING_TABLE(i);
        check_coupling_shaft(f, g, t.LINEARCOUPLING_TABLE, i, linear);
        if (!(c.NOMINALSTIFFNESS > 0.0))
            f.error_real(linear, c.ID, " has a zero or negative nominal stiffness (", c.NOMINALSTIFFNESS);
    }
    const std::string progressive = "Error: Progressive coupling ";
    for (int i = 1; i <= row_count(t.PROGRESSIVECOUPLING_TABLE); ++i) {
        const ProgressiveCouplingRecord& c = t.PROGRESSIVECOUPLING_TABLE(i);
        check_coupling_shaft(f, g, t.PROGRESSIVECOUPLING_TABLE, i, progressive);
        const double torque = GLOBAL_PROGRESSIVECOUPLING::GET_PROGRESSIVECOUPLING_NOMINALTORQUE(t.PROGRESSIVECOUPLING_TABLE, i);
        if (!(torque > 0.0)) f.error_real(progressive, c.ID, " has a zero or negative nominal torque (", torque);
        bool negative = false;
        for (double k : c.NOMINALSTIFFNESS) negative = negative || k < 0.0;
        if (negative) f.error(progressive, c.ID, " has a negative nominal stiffness");
    }
    const std::string geislinger = "Error: Geislinger coupling ";
    for (int i = 1; i <= row_count(t.GEISLINGERCOUPLING_TABLE); ++i) {
        const GeislingerCouplingRecord& c = t.GEISLINGERCOUPLING_TABLE(i);
        check_coupling_shaft(f, g, t.GEISLINGERCOUPLING_TABLE, i, geislinger);
        if (!(c.NOMINALTORQUE > 0.0))
            f.error_real(geislinger, c.ID, " has a zero or negative nominal torque (", c.NOMINALTORQUE);
        if (!(c.STATICSTIFFNESS > 0.0))
            f.error_real(geislinger, c.ID, " has a zero or negative Static Stiffness (", c.STATICSTIFFNESS);
        if (!(c.CHARACTERISTICFREQUENCY > 0.0))
            f.error_real(geislinger, c.ID, " has a zero or negative Characteristic Frequency (",
                         c.CHARACTERISTICFREQUENCY);
        if (!(c.OILVISCOSITY > 0.0))
            f.error_real(geislinger, c.ID, " has a zero or negative Oil Viscosity (", c.OILVISCOSITY);
    }
}

void check_diesels(Findings& f, const ModelTables& t, const Graph& g) {
    const std::string prefix = "Error: Diesel ";
    const DieselTable& table = t.DIESEL_TABLE;
    constexpr double TOLERANCE = 0.10000000149011612;
    for (int i = 1; i <= row_count(table); ++i) {
        const DieselRecord& d = table(i);
        f.duplicates(table, i, prefix);
        const int ncyl = d.NCYLINDER < 0 ? 0 : (d.NCYLINDER > 20 ? 20 : d.NCYLINDER);
        bool normal = false, misfiring = false;
        for (int j = 0; j < ncyl; ++j) {
            const auto c = static_cast<std::size_t>(j);
            normal = normal || d.FIRINGSTATUSA[c] == 1 || (d.ISVENGINE && d.FIRINGSTATUSB[c] == 1);
            misfiring = misfiring || d.FIRINGSTATUSA[c] == 2 || (d.ISVENGINE && d.FIRINGSTATUSB[c] == 2);
            if (!d.ISVENGINE) continue;
            // Bank B fires consecutively (by the V angle) or non-consecutively (by the V angle
            // plus one turn) after bank A.
            const double gap = d.FIRINGANGLEB[c] - d.FIRINGANGLEA[c];
            const double d1 = std::fabs(gap - PI * d.VANGLE / 180.0);
            const double d2 = std::fabs(gap - PI * (d.VANGLE + 360.0) / 180.0);
            const std::string head = "Warning: Bank B of Diesel " + fmt::I(d.ID, 3) + " Cylinder No. " + fmt::I(j + 1, 3);
            if (d.VEEFIRINGTYPE == 0) {
                if (d1 > TOLERANCE) f.warning(head + " doesn't fire consecutively after Bank A");
            } else if (d.VEEFIRINGTYPE == 1) {
                if (d2 > TOLERANCE) f.warning(head + " doesn't fire non-consecutively after Bank A");
            } else if (d1 > TOLERANCE && d2 > TOLERANCE) {
                f.warning(head + " neither fire consecutively nor non-consecutively after Bank A");
            }
        }
        if (d.NSTROKE != 2 && d.NSTROKE != 4)
            f.error_node(prefix, d.ID, " has a number of stroke not equal to 2 or 4 (", d.NSTROKE);
        if (!(d.MCRPOWER > 0.0)) f.error_real(prefix, d.ID, " has a zero or negative mcr power (", d.MCRPOWER);
        if (!(d.MCRSPEED > 0.0)) f.error_real(prefix, d.ID, " has a zero or negative mcr speed (", d.MCRSPEED);
        if (d.NCYLINDER <= 0) f.error_node(prefix, d.ID, " has a zero or negative number of cylinders (", d.NCYLINDER);
        for (int j = 0; j < ncyl; ++j)
            if (!listed(g.masses, d.CYLINDERS[static_cast<std::size_t>(j)]))
                f.error_node(prefix, d.ID, " has cylinder node not listed in Inertia table (",
                             d.CYLINDERS[static_cast<std::size_t>(j)]);
        if (!(d.BORE > 0.0)) f.error_real(prefix, d.ID, " has a zero or negative cylinder diameter (", d.BORE);
        if (!(d.STROKE > 0.0)) f.error_real(prefix, d.ID, " has a zero or negative stroke length (", d.STROKE);
        if (!(d.CONRODRATIO > 0.0) || d.CONRODRATIO > 1.0)
            f.error_real(prefix, d.ID, " has a non-positive or no less than 1.0 connecting rod ratio (", d.CONRODRATIO);
        if (d.RECIPMASS < 0.0) f.error_real(prefix, d.ID, " has a negative reciprocating mass (", d.RECIPMASS);
        if (!(d.ME > 0.0) || d.ME > 1.0)
            f.error_real(prefix, d.ID, " has a zero, negative or larger than 100% mechanical efficiency (", d.ME);
        if (!normal) f.error(prefix, d.ID, " has no normal firing cylinders");
        if (!d.ISTHEORETICALPRESURE) {
            for (auto [file, needed, missingText, unreadableText] :
                 {std::tuple{&d.NORMALHARMONICFILE, normal,
                             " must specify the address of harmonic component file for normal firing cylinders",
                             " has a normal firing harmonic file unaccessable ("},
                  std::tuple{&d.MISHARMONICFILE, misfiring,
                             " must specify the address of harmonic component file for misfiring cylinders",
                             " has a misfiring harmonic file unaccessable ("}}) {
                const std::string name = STRINGOPERATION::trimmed(*file);
                if (name.empty()) {
                    if (needed) f.error(prefix, d.ID, missingText);
                    continue;
                }
                bool accessible = false;
                ISFILEACCESSABLE(side_file_path(d.SIDEFILEDIR, name), accessible);
                if (!accessible) f.error_name(prefix, d.ID, unreadableText, name);
            }
        } else {
            if (!(d.PMAX > d.PCOMP))
                f.error(prefix + fmt::I(d.ID, 3) + " has a maximum pressure no greater than compression pressure (" +
                        message_real(d.PMAX) + message_real(d.PCOMP) + ")");
            if (d.PCOMP < 0.0) f.error_real(prefix, d.ID, " has a negative compression pressure (", d.PCOMP);
            if (d.COMPRATIO < 1.0) f.error_real(prefix, d.ID, " has a no greater than 1.0 compression ratio (", d.COMPRATIO);
            if (d.PCHARGEAIR < 0.0) f.error_real(prefix, d.ID, " has a negative charge air pressure (", d.PCHARGEAIR);
            if (!(d.TE > 0.0) || d.TE > 1.0)
                f.error_real(prefix, d.ID, " has a zero, negative or larger than 100% thermal efficiency (", d.TE);
            const int exhaust = truncate_to_int(d.ANGLEEXHAUSTSTART);
            if (exhaust < 91 || exhaust > 179)
                f.error_real(prefix, d.ID, " has a exhaust start angle no greater than 90 or no less than 180(",
                             d.ANGLEEXHAUSTSTART);
        }
    }
}

void check_reciprocating_pumps(Findings& f, const ModelTables& t, const Graph& g) {
    const std::string first = "Error: ReciprocatingPump ", rest = "Error: Reciprocating pump ";
    const ReciprocatingPumpTable& table = t.RECIPROCATINGPUMP_TABLE;
    for (int i = 1; i <= row_count(table); ++i) {
        const ReciprocatingPumpRecord& p = table(i);
        f.duplicates(table, i, first);
        if (!(p.MCRPOWER > 0.0)) f.error_real(first, p.ID, " has a zero or negative mcr power (", p.MCRPOWER);
        if (!(p.MCRSPEED > 0.0)) f.error_real(first, p.ID, " has a zero or negative mcr speed (", p.MCRSPEED);
        if (p.NCYLINDER <= 0) f.error_node(rest, p.ID, " has a zero or negative number of cylinders (", p.NCYLINDER);
        for (int j = 0; j < p.NCYLINDER && j < 20; ++j)
            if (!listed(g.masses, p.CYLINDERS[static_cast<std::size_t>(j)]))
                f.error_node(rest, p.ID, " has cylinder node not listed in Inertia table (",
                             p.CYLINDERS[static_cast<std::size_t>(j)]);
        if (!(p.BORE > 0.0)) f.error_real(rest, p.ID, " has a zero or negative cylinder diameter (", p.BORE);
        if (!(p.STROKELENGTH > 0.0)) f.error_real(rest, p.ID, " has a zero or negative stroke length (", p.STROKELENGTH);
        if (!(p.CONRODRATIO > 0.0) || p.CONRODRATIO > 1.0)
            f.error_real(rest, p.ID, " has a non-positive or no less than 1.0 connecting rod ratio (", p.CONRODRATIO);
        if (p.RECIPMASS < 0.0) f.error_real(rest, p.ID, " has a negative reciprocating mass (", p.RECIPMASS);
        if (!p.ISSIMPLIFIEDPRESSURE) {
            const std::string name = STRINGOPERATION::trimmed(p.PUMPHARMONICFILE);
            bool accessible = false;
            if (name.empty())
                f.error(rest, p.ID, " must specify the address of harmonic component file");
            else if (ISFILEACCESSABLE(side_file_path(p.SIDEFILEDIR, name), accessible), !accessible)
                f.error_name(rest, p.ID, " has a harmonic file unaccessable (", name);
        }
    }
}

// Motors, turbines, generators and centrifugal pumps: duplicate, node, rating.
template <class Table, class Node>
void check_machines(Findings& f, const Graph& g, const Table& table, const std::string& duplicatePrefix,
                    const std::string& prefix, const char* nodeText, Node node) {
    for (int i = 1; i <= row_count(table); ++i) {
        const auto& m = table(i);
        f.duplicates(table, i, duplicatePrefix);
        if (!listed(g.masses, node(m))) f.error_node(prefix, m.ID, nodeText, node(m));
        if (!(m.MCRPOWER > 0.0)) f.error_real(prefix, m.ID, " has a zero or negative mcr power (", m.MCRPOWER);
        if (!(m.MCRSPEED > 0.0)) f.error_real(prefix, m.ID, " has a zero or negative mcr speed (", m.MCRSPEED);
    }
}

void check_propellers(Findings& f, const ModelTables& t) {
    const std::string prefix = "Error: Propeller ";
    const PropellerTable& table = t.PROPELLER_TABLE;
    for (int i = 1; i <= row_count(table); ++i) {
        const PropellerRecord& p = table(i);
        f.duplicates(table, i, prefix);
        if (!(p.MCRPOWER > 0.0)) f.error_real(prefix, p.ID, " has a zero or negative mcr power (", p.MCRPOWER);
        if (!(p.MCRSPEED > 0.0)) f.error_real(prefix, p.ID, " has a zero or negative mcr speed (", p.MCRSPEED);
        if (p.NBLADE <= 0) f.error_node(prefix, p.ID, " has a zero or negative number of blades (", p.NBLADE);
        if (p.DB < 0.0) f.error_real(prefix, p.ID, " has a negative boss diameter (", p.DB);
        if (p.DI < 0.0) f.error_real(prefix, p.ID, " has a negative propeller diameter (", p.DI);
        if (p.PITCHRATIO < 0.0) f.error_real(prefix, p.ID, " has a negative pitch ratio (", p.PITCHRATIO);
        if (p.EXPAREARATIO < 0.0 || p.EXPAREARATIO > 1.0)
            f.error_real(prefix, p.ID, " has a negative or larger than 100% expansive area ratio (", p.EXPAREARATIO);
        if (p.DAMPINGMETHOD == 2 && (p.ARCHERNUMBER < 20.0 || p.ARCHERNUMBER > 50.0))
            f.error_real(prefix, p.ID, " has a Archer number no greater than 20.0 or no less than 50.0(", p.ARCHERNUMBER);
        if (p.DAMPINGMETHOD == 3 && (p.FRAHMNUMBER < 1.0 || p.FRAHMNUMBER > 5.0))
            f.error_real(prefix, p.ID, " has a Frahm number no greater than 1.0 or no less than 5.0(", p.FRAHMNUMBER);
        if (p.DAMPINGMETHOD == 5 && (p.KNUCKLEPOINT / 100 < 0.0 || p.KNUCKLEPOINT / 100 > 1.0))
            f.error_real(prefix, p.ID, " has a KnucklePoint no greater than 0 or no less than 1.2(", p.KNUCKLEPOINT);
        if (p.PITCHPERCENT < 0.0 || p.PITCHPERCENT > 1.0)
            f.error_real(prefix, p.ID, " has a negative or larger than 100% pitch percent (", p.PITCHPERCENT);
        if (p.DYNMAGNIFIER < 0.0) f.error_real(prefix, p.ID, " has a negative dynamic magnifier (", p.DYNMAGNIFIER);
        if (p.ABSDAMPING < 0.0) f.error_real(prefix, p.ID, " has a negative absolute damping (", p.ABSDAMPING);
        const std::string missing = "Warning: Propeller excitation data missing for Propeller " + fmt::I(p.ID, 3);
        if (p.TORQUEPERCENT1 < 0.0)
            f.error_real(prefix, p.ID, " has a negative 1st order torque amplitude (", p.TORQUEPERCENT1);
        if (p.TORQUEPERCENT1 == 0.0) f.warning(missing + "'s 1st order excitation");
        if (p.TORQUEPERCENT2 < 0.0)
            f.error_real(prefix, p.ID, " has a negative 2nd order torque amplitude (", p.TORQUEPERCENT2);
        if (p.TORQUEPERCENT2 == 0.0) f.warning(missing + "'s 2nd order excitation");
    }
}

void check_inertias(Findings& f, const ModelTables& t) {
    const std::string prefix = "Error: Inertia ";
    if (!t.MASS_TABLE.allocated()) {
        f.error("Error: No inertia is defined");
        return;
    }
    for (int i = 1; i <= row_count(t.MASS_TABLE); ++i) {
        const MassRecord& m = t.MASS_TABLE(i);
        f.duplicates(t.MASS_TABLE, i, prefix);
        if (!(m.RPMRATIO > 0.0)) f.error_real(prefix, m.ID, " has a zero or negative rpm ratio (", m.RPMRATIO);
        if (!(m.INERTIA > 0.0)) f.error_real(prefix, m.ID, " has a zero or negative Inertia (", m.INERTIA);
        if (m.ABSDAMPING < 0.0) f.error_real(prefix, m.ID, " has a negative AbsDamping (", m.ABSDAMPING);
        if (m.DYNMAGNIFIER < 0.0) f.error_real(prefix, m.ID, " has a negative DynMagnifier (", m.DYNMAGNIFIER);
    }
}

void check_shafts(Findings& f, const ModelTables& t, const Graph& g) {
    const std::string prefix = "Error: Shaft ";
    if (!t.SHAFT_TABLE.allocated()) {
        f.error("Error: No stiffness is defined");
        return;
    }
    for (int i = 1; i <= row_count(t.SHAFT_TABLE); ++i) {
        const ShaftRecord& s = t.SHAFT_TABLE(i);
        f.duplicates(t.SHAFT_TABLE, i, prefix);
        if (!listed(g.masses, s.ORGNODE))
            f.error_node(prefix, s.ID, " has an orginal node not listed in Inertia table (", s.ORGNODE);
        if (!listed(g.masses, s.DESNODE))
            f.error_node(prefix, s.ID, " has a destinational node not listed in Inertia table (", s.DESNODE);
        if (!(s.RPMRATIO > 0.0)) f.error_real(prefix, s.ID, " has a zero or negative rpm ratio (", s.RPMRATIO);
        if (!(s.STIFFNESS > 0.0)) f.error_real(prefix, s.ID, " has a zero or negative Stiffness (", s.STIFFNESS);
        if (s.ABSDAMPING < 0.0) f.error_real(prefix, s.ID, " has a negative AbsDamping (", s.ABSDAMPING);
        if (s.DYNMAGNIFIER < 0.0) f.error_real(prefix, s.ID, " has a negative DynMagnifier (", s.DYNMAGNIFIER);
        if (s.OUTERDI < 0.0) f.error_real(prefix, s.ID, " has a negative outer diameter (", s.OUTERDI);
        if (s.INNERDI < 0.0) f.error_real(prefix, s.ID, " has a negative inner diameter (", s.INNERDI);
        if (s.OUTERDI != 0.0 && !(s.OUTERDI > s.INNERDI))
            f.error(prefix + fmt::I(s.ID, 3) + " has a outer diameter less than or equal to its inner diameter (" +
                    message_real(s.OUTERDI) + "<=" + message_real(s.INNERDI) + ")");
    }
}

// Every machine needs a column in the load case table.
void check_load_cases(Findings& f, const ModelTables& t) {
    auto each = [&](const auto& table, int code, const char* prefix) {
        for (int i = 1; i <= row_count(table); ++i)
            if (GLOBAL_LOADCASE::GET_LOADCASE_ICOMPONENT(t.LOADCASE_TABLE, code, table(i).ID) == 0)
                f.error(prefix, table(i).ID, " does't have load case setting");
    };
    each(t.DIESEL_TABLE, 15, "Error: Diesel ");
    each(t.PROPELLER_TABLE, 16, "Error: Propeller ");
    each(t.GENERATOR_TABLE, 18, "Error: Generator ");
    each(t.CENTRIFUGALPUMP_TABLE, 28, "Error: Centrifugal pump ");
    each(t.RECIPROCATINGPUMP_TABLE, 30, "Error: Reciprocating pump ");
    each(t.STEAMTURBINE_TABLE, 20, "Error: SteamTurbine ");
    each(t.GASTURBINE_TABLE, 19, "Error: GasTurbine ");
    each(t.ELECTRICMOTOR_TABLE, 17, "Error: ElectricMotor ");
}

void load_side_files(Findings& f, ModelTables& t) {
    for (int i = 1; i <= row_count(t.DIESEL_TABLE); ++i) {
        if (t.DIESEL_TABLE(i).ISTHEORETICALPRESURE) continue;
        bool ok = true;
        GLOBAL_DIESEL::LOADORVANTISFILE(f.run(), t.DIESEL_TABLE, ok);
        if (!ok) f.failed();
    }
    for (int i = 1; i <= row_count(t.PROPELLER_TABLE); ++i) {
        bool ok = true;
        if (t.PROPELLER_TABLE(i).HASICEEXCITATION) GLOBAL_PROPELLER::LOAD_PROPELLER_EXCITATIONFILE(f.run(), t.PROPELLER_TABLE, i, ok);
        if (!ok) f.failed();
        ok = true;
        if (t.PROPELLER_TABLE(i).ISVARIABLEENTRAINEDWATER)
            GLOBAL_PROPELLER::LOAD_PROPELLER_VARIABLEENTRAINEDWATERFILE(f.run(), t.PROPELLER_TABLE, i, ok);
        if (!ok) f.failed();
    }
    for (int i = 1; i <= row_count(t.RECIPROCATINGPUMP_TABLE); ++i) {
        if (t.RECIPROCATINGPUMP_TABLE(i).ISSIMPLIFIEDPRESSURE) continue;
        bool ok = true;
        GLOBAL_RECIPROCATINGPUMP::LOADORVANTISPUMPFILE(f.run(), t.RECIPROCATINGPUMP_TABLE, ok);
        if (!ok) f.failed();
    }
}

}  // namespace

void DATACHECKING(RunContext& ctx, bool& ISSUCCESS, ModelTables& t, int CALCULATIONTYPE) {
    ISSUCCESS = true;
    Findings f(ctx, ISSUCCESS);
    Graph g{GLOBAL_MASS::GET_MASS_NUMBER(t.MASS_TABLE), mass_shaft_graph(t.MASS_TABLE, t.SHAFT_TABLE),
            RowsById(t.MASS_TABLE), RowsById(t.SHAFT_TABLE)};

    check_viscous_dampers(f, t, g);
    check_two_node_dampers(f, g, t.RUBBERDAMPER_TABLE, "Error: Rubber damper ",
                           " has a turning node not listed in Inertia table (",
                           " has a drive plate node not listed in Inertia table (",
                           " has the turning mass linked to other inertia",
                           [](const RubberDamperRecord& d) { return std::pair{d.TURNINGMASSNODE, d.DRIVEPLATENODE}; });
    check_two_node_dampers(f, g, t.STEELSPRINGDAMPER_TABLE, "Error: Steel spring damper ",
                           " has a outer member node not listed in Inertia table (",
                           " has a inner member node not listed in Inertia table (",
                           " has the outer member linked to other inertia", [](const SteelSpringDamperRecord& d) {
                               return std::pair{d.OUTERMEMBERNODE, d.INNERMEMBERNODE};
                           });
    check_couplings(f, t, g);
    check_diesels(f, t, g);
    check_reciprocating_pumps(f, t, g);
    check_machines(f, g, t.ELECTRICMOTOR_TABLE, "Error: Electric motor ", "Error: Eletric motor ",
                   " has a electric motor node not listed in Inertia table (",
                   [](const ElectricMotorRecord& m) { return m.ELECTRICMOTORNODE; });
    check_machines(f, g, t.GASTURBINE_TABLE, "Error: Gas turbine ", "Error: Gas turbine ",
                   " has a electric motor node not listed in Inertia table (",
                   [](const TurbineRecord& m) { return m.TURBINENODE; });
    check_machines(f, g, t.STEAMTURBINE_TABLE, "Error: Steam turbine ", "Error: Steam turbine ",
                   " has a electric motor node not listed in Inertia table (",
                   [](const TurbineRecord& m) { return m.TURBINENODE; });
    check_propellers(f, t);
    check_machines(f, g, t.GENERATOR_TABLE, "Error: Generator ", "Error: Generator ",
                   " has a electric motor node not listed in Inertia table (",
                   [](const GeneratorRecord& m) { return m.GENERATORNODE; });
    check_machines(f, g, t.CENTRIFUGALPUMP_TABLE, "Error: Centrifugal pump ", "Error: Centrifugal pump ",
                   " has a Centrifugal pump node not listed in Inertia table (",
                   [](const CentrifugalPumpRecord& m) { return m.CENTRIFUGALPUMPNODE; });
    check_inertias(f, t);
    check_shafts(f, t, g);

    // The graph is judged only on an otherwise clean model.
    if (f.clean()) {
        bool connected = false, cycle = false;
        MASSSHAFTGRAPHCHECK(t.MASS_TABLE, t.SHAFT_TABLE, connected, cycle);
        if (!connected)
            f.error("Error: Not all the inertias are connneted through a certain set of shafts");
        else if (cycle)
            f.error("Error: There is at least one cycle in the inertia-shaft system");
    }
    if ((CALCULATIONTYPE == 2 || CALCULATIONTYPE == 3) && t.LOADCASE_TABLE.allocated()) check_load_cases(f, t);
    load_side_files(f, t);
}

}  // namespace qm::IMPORTINPUTFILE
