#include "components/GlobalCentrifugalPump.h"

namespace qm {

namespace {
constexpr auto ORDER = &CentrifugalPumpRecord::CENTRIFUGALPUMPORDER;
}

FourOrderMachine four_order_machine(const CentrifugalPumpTable& table, int i) {
    if (!is_row(table, i)) return {};
    const CentrifugalPumpRecord& p = table(i);
    return {.SPEED = p.SPEED,
            .EXCITATIONSPEED = p.SPEED,
            .NODE = p.CENTRIFUGALPUMPNODE,
            .ORDERNUMBER = p.CENTRIFUGALPUMPORDERNUMBER,
            .ORDERS = FOUR_ORDER::whole_orders(table, i, ORDER),
            .TORQUEAMP = p.CENTRIFUGALPUMPTORQUEAMP,
            .PHASEANGLE = p.CENTRIFUGALPUMPPHASEANGLE};
}

namespace GLOBAL_CENTRIFUGALPUMP {

int GET_CENTRIFUGALPUMP_NUMBER(const CentrifugalPumpTable& table) { return row_count(table); }

int GET_CENTRIFUGALPUMP_ICENTRIFUGALPUMP(const CentrifugalPumpTable& table, int id) {
    return first_row_with_id(table, id);
}

void SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDER(CentrifugalPumpTable& table, int i, double o1, double o2,
                                              double o3, double o4) {
    FOUR_ORDER::set_four(table, i, ORDER, o1, o2, o3, o4);
}

void SET_CENTRIFUGALPUMP_CENTRIFUGALPUMPTORQUEPERCENT(CentrifugalPumpTable& table, int i, double p1,
                                                      double p2, double p3, double p4) {
    FOUR_ORDER::set_four(table, i, &CentrifugalPumpRecord::CENTRIFUGALPUMPTORQUEPERCENT, p1, p2, p3, p4);
}

int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERONE(const CentrifugalPumpTable& table, int i) {
    return FOUR_ORDER::whole_order(table, i, ORDER, 1);
}
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERTWO(const CentrifugalPumpTable& table, int i) {
    return FOUR_ORDER::whole_order(table, i, ORDER, 2);
}
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERTHREE(const CentrifugalPumpTable& table, int i) {
    return FOUR_ORDER::whole_order(table, i, ORDER, 3);
}
int GET_CENTRIFUGALPUMP_CENTRIFUGALPUMPORDERFOUR(const CentrifugalPumpTable& table, int i) {
    return FOUR_ORDER::whole_order(table, i, ORDER, 4);
}

void CALCULATE_CENTRIFUGALPUMP_LOADCASESETTING(CentrifugalPumpTable& table, int i) {
    if (!is_row(table, i)) return;
    CentrifugalPumpRecord& p = table(i);
    FOUR_ORDER::set_amplitudes(p.CENTRIFUGALPUMPTORQUEAMP, p.TORQUE, p.CENTRIFUGALPUMPTORQUEPERCENT);
}

}  // namespace GLOBAL_CENTRIFUGALPUMP
}  // namespace qm
