#include "input/CouplingPower.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/ComponentCodes.h"
#include "input/GraphTheory.h"

namespace qm::IMPORTINPUTFILE {

namespace {

using namespace CODES;

// A coupling or damper of the model: its code, ID and the IDs of its two inertias.
struct Element {
    int code = 0;
    int id = 0;
    int origin = 0;       // inertia ID
    int destination = 0;  // inertia ID
};

// Power that inertia m adds to its side's balance in load case lc, W.
double contribution(const ModelTables& t, int m, int lc) {
    const MassRecord& mass = t.MASS_TABLE(m);
    const int type = mass.COMPONENTTYPE;
    int sign = 0;
    int cylinders = 1;
    switch (type) {
        case COMPONENT_DIESEL: {
            sign = 1;
            const int row = GLOBAL_DIESEL::GET_DIESEL_IDIESEL(t.DIESEL_TABLE, mass.COMPONENTID);
            if (row == 0) return 0.0;
            cylinders = t.DIESEL_TABLE(row).NCYLINDER;
            break;
        }
        case COMPONENT_ELECTRICMOTOR:
        case COMPONENT_GASTURBINE:
        case COMPONENT_STEAMTURBINE:
            sign = 1;
            break;
        case COMPONENT_PROPELLER:
        case COMPONENT_GENERATOR:
        case COMPONENT_CENTRIFUGALPUMP:
            sign = -1;
            break;
        case COMPONENT_RECIPROCATINGPUMP: {
            sign = -1;
            const int row = GLOBAL_RECIPROCATINGPUMP::GET_RECIPROCATINGPUMP_IRECIPROCATINGPUMP(
                t.RECIPROCATINGPUMP_TABLE, mass.COMPONENTID);
            if (row == 0) return 0.0;
            cylinders = t.RECIPROCATINGPUMP_TABLE(row).NCYLINDER;
            break;
        }
        default:
            return 0.0;
    }
    const int column = GLOBAL_LOADCASE::GET_LOADCASE_ICOMPONENT(t.LOADCASE_TABLE, type, mass.COMPONENTID);
    if (column == 0 || column > t.LOADCASE_POWER.rows()) return 0.0;
    const double P = t.LOADCASE_POWER(column, lc);
    if (type == COMPONENT_DIESEL || type == COMPONENT_RECIPROCATINGPUMP) return sign * (P / cylinders);
    return sign * P;
}

double balance(const ModelTables& t, const Table<int>& side, int lc) {
    double sum = 0.0;
    for (int m = 1; m <= side.size(); ++m)
        if (side(m) == 1) sum += contribution(t, m, lc);
    return sum;
}

// The couplings and dampers in the order their columns are added.
std::vector<Element> elements(const ModelTables& t) {
    std::vector<Element> list;
    const auto coupling = [&](int code, int id, int shaftId) {
        const int s = GLOBAL_SHAFT::GET_SHAFT_ISHAFT(t.SHAFT_TABLE, shaftId);
        Element e{code, id, 0, 0};
        if (s != 0) {
            e.origin = t.SHAFT_TABLE(s).ORGNODE;
            e.destination = t.SHAFT_TABLE(s).DESNODE;
        }
        list.push_back(e);
    };
    for (int r = 1; r <= t.LINEARCOUPLING_TABLE.size(); ++r)
        coupling(COMPONENT_LINEARCOUPLING, t.LINEARCOUPLING_TABLE(r).ID, t.LINEARCOUPLING_TABLE(r).SHAFTNODE);
    for (int r = 1; r <= t.PROGRESSIVECOUPLING_TABLE.size(); ++r)
        coupling(COMPONENT_PROGRESSIVECOUPLING, t.PROGRESSIVECOUPLING_TABLE(r).ID,
                 t.PROGRESSIVECOUPLING_TABLE(r).SHAFTNODE);
    for (int r = 1; r <= t.GEISLINGERCOUPLING_TABLE.size(); ++r)
        coupling(COMPONENT_GEISLINGERCOUPLING, t.GEISLINGERCOUPLING_TABLE(r).ID,
                 t.GEISLINGERCOUPLING_TABLE(r).SHAFTNODE);
    for (int r = 1; r <= t.VISCOUSDAMPER_TABLE.size(); ++r) {
        const auto& d = t.VISCOUSDAMPER_TABLE(r);
        list.push_back({COMPONENT_VISCOUSDAMPER, d.ID, d.CASINGNODE, d.RINGNODE});
    }
    for (int r = 1; r <= t.RUBBERDAMPER_TABLE.size(); ++r) {
        const auto& d = t.RUBBERDAMPER_TABLE(r);
        list.push_back({COMPONENT_RUBBERDAMPER, d.ID, d.TURNINGMASSNODE, d.DRIVEPLATENODE});
    }
    for (int r = 1; r <= t.STEELSPRINGDAMPER_TABLE.size(); ++r) {
        const auto& d = t.STEELSPRINGDAMPER_TABLE(r);
        list.push_back({COMPONENT_STEELSPRINGDAMPER, d.ID, d.OUTERMEMBERNODE, d.INNERMEMBERNODE});
    }
    return list;
}

}  // namespace

void COUPLINGPOWERPREPARE(ModelTables& t) {
    using namespace GLOBAL_LOADCASE;
    if (GET_LOADCASE_COMPONENTNUMBER(t.LOADCASE_TABLE) == GET_LOADCASE_NCOMPONENT(t.LOADCASE_TABLE)) return;
    const int N = GLOBAL_MASS::GET_MASS_NUMBER(t.MASS_TABLE);
    const int nLoadCase = std::min(t.LOADCASE_SPEED.size(), t.LOADCASE_POWER.cols());
    const GRAPHTHEORY::AdjacencyList ADJNODE = mass_shaft_graph(t.MASS_TABLE, t.SHAFT_TABLE);
    Table<int> ORGVISITEDNODE;
    Table<int> DESVISITEDNODE;

    for (const Element& e : elements(t)) {
        if (GET_LOADCASE_ICOMPONENT(t.LOADCASE_TABLE, e.code, e.id) != 0) continue;
        const int k = GET_LOADCASE_COMPONENTNUMBER(t.LOADCASE_TABLE) + 1;
        // No room for another column (the table has one row per component of the file).
        if (k > GET_LOADCASE_NCOMPONENT(t.LOADCASE_TABLE) || k > t.LOADCASE_POWER.rows()) break;
        GRAPHTHEORY::UNDIRECTEDGRAPH_TWOBRANCH(N, ADJNODE, GLOBAL_MASS::GET_MASS_IMASS(t.MASS_TABLE, e.origin),
                                               GLOBAL_MASS::GET_MASS_IMASS(t.MASS_TABLE, e.destination),
                                               ORGVISITEDNODE, DESVISITEDNODE);
        for (int lc = 1; lc <= nLoadCase; ++lc) {
            const double a = balance(t, ORGVISITEDNODE, lc);
            const double b = balance(t, DESVISITEDNODE, lc);
            t.LOADCASE_TABLE(k).COMPONENTTYPE = e.code;
            t.LOADCASE_TABLE(k).COMPONENTID = e.id;
            const double high = std::max(a, b);
            t.LOADCASE_POWER(k, lc) = high > 0.0 ? std::fabs(high) : std::fabs(std::min(a, b));
        }
    }
}

}  // namespace qm::IMPORTINPUTFILE
