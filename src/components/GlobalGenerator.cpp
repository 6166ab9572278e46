#include "components/GlobalGenerator.h"

namespace qm {

namespace {
constexpr auto ORDER = &GeneratorRecord::GENERATORORDER;
}

FourOrderMachine four_order_machine(const GeneratorTable& table, int i) {
    if (!is_row(table, i)) return {};
    const GeneratorRecord& g = table(i);
    return {.SPEED = g.SPEED,
            .EXCITATIONSPEED = g.SPEED,
            .NODE = g.GENERATORNODE,
            .ORDERNUMBER = g.GENERATORORDERNUMBER,
            .ORDERS = FOUR_ORDER::whole_orders(table, i, ORDER),
            .TORQUEAMP = g.GENTORQUEAMP};
}

namespace GLOBAL_GENERATOR {

int GET_GENERATOR_NUMBER(const GeneratorTable& table) { return row_count(table); }

int GET_GENERATOR_IGENERATOR(const GeneratorTable& table, int id) { return first_row_with_id(table, id); }

void SET_GENERATOR_GENERATORORDER(GeneratorTable& table, int i, double o1, double o2, double o3, double o4) {
    FOUR_ORDER::set_four(table, i, ORDER, o1, o2, o3, o4);
}

void SET_GENERATOR_GENERATORTORQUEPERCENT(GeneratorTable& table, int i, double p1, double p2, double p3,
                                          double p4) {
    FOUR_ORDER::set_four(table, i, &GeneratorRecord::GENERATORTORQUEPERCENT, p1, p2, p3, p4);
}

int GET_GENERATOR_GENERATORORDERONE(const GeneratorTable& table, int i) {
    return FOUR_ORDER::whole_order(table, i, ORDER, 1);
}
int GET_GENERATOR_GENERATORORDERTWO(const GeneratorTable& table, int i) {
    return FOUR_ORDER::whole_order(table, i, ORDER, 2);
}
int GET_GENERATOR_GENERATORORDERTHREE(const GeneratorTable& table, int i) {
    return FOUR_ORDER::whole_order(table, i, ORDER, 3);
}
int GET_GENERATOR_GENERATORORDERFOUR(const GeneratorTable& table, int i) {
    return FOUR_ORDER::whole_order(table, i, ORDER, 4);
}

void CALCULATE_GENERATOR_LOADCASESETTING(GeneratorTable& table, int i) {
    if (!is_row(table, i)) return;
    GeneratorRecord& g = table(i);
    FOUR_ORDER::set_amplitudes(g.GENTORQUEAMP, g.TORQUE, g.GENERATORTORQUEPERCENT);
}

}  // namespace GLOBAL_GENERATOR
}  // namespace qm
