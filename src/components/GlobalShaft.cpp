#include "components/GlobalShaft.h"

#include "components/GlobalGeislingerCoupling.h"
#include "components/GlobalLinearCoupling.h"
#include "components/GlobalProgressiveCoupling.h"
#include "components/GlobalRubberDamper.h"
#include "components/GlobalSteelSpringDamper.h"
#include "components/GlobalViscousDamper.h"

namespace qm::GLOBAL_SHAFT {

int GET_SHAFT_NUMBER(const ShaftTable& table) { return row_count(table); }

int GET_SHAFT_ISHAFT(const ShaftTable& table, int id) {
    return first_row_with_id(table, id);
}

int GET_SHAFT_ISHAFTBYNODE(const ShaftTable& table, int node1, int node2) {
    for (int i = 1; i <= GET_SHAFT_NUMBER(table); ++i) {
        const ShaftRecord& s = table(i);
        if ((s.ORGNODE == node1 && s.DESNODE == node2) || (s.ORGNODE == node2 && s.DESNODE == node1))
            return i;
    }
    return 0;
}

namespace {
template <class DamperTable, class Nodes>
bool damper_spans_row(const ShaftTable& shafts, int row, const DamperTable& dampers, Nodes nodes) {
    if (!dampers.allocated()) return false;
    for (int d = 1; d <= dampers.size(); ++d) {
        const auto [a, b] = nodes(dampers(d));
        if (GET_SHAFT_ISHAFTBYNODE(shafts, a, b) == row) return true;
    }
    return false;
}

template <class CouplingTable>
bool coupling_on_row(const ShaftTable& shafts, int row, const CouplingTable& couplings) {
    if (!couplings.allocated()) return false;
    for (int c = 1; c <= couplings.size(); ++c)
        if (couplings(c).SHAFTNODE == shafts(row).ID) return true;
    return false;
}
}  // namespace

bool GET_SHAFT_ISDAMPER(const ShaftTable& table, int row, const ViscousDamperTable& viscous,
                        const RubberDamperTable& rubber, const SteelSpringDamperTable& steelspring) {
    if (!table.allocated()) return false;
    return damper_spans_row(table, row, viscous,
                            [](const ViscousDamperRecord& d) { return std::pair{d.CASINGNODE, d.RINGNODE}; }) ||
           damper_spans_row(table, row, rubber,
                            [](const RubberDamperRecord& d) {
                                return std::pair{d.DRIVEPLATENODE, d.TURNINGMASSNODE};
                            }) ||
           damper_spans_row(table, row, steelspring, [](const SteelSpringDamperRecord& d) {
               return std::pair{d.OUTERMEMBERNODE, d.INNERMEMBERNODE};
           });
}

bool GET_SHAFT_ISCOUPLING(const ShaftTable& table, int row, const LinearCouplingTable& linear,
                          const ProgressiveCouplingTable& progressive,
                          const GeislingerCouplingTable& geislinger) {
    if (!table.allocated() || row < 1 || row > table.size()) return false;
    return coupling_on_row(table, row, linear) || coupling_on_row(table, row, progressive) ||
           coupling_on_row(table, row, geislinger);
}

}  // namespace qm::GLOBAL_SHAFT
