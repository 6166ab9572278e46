#include "components/GlobalGenerator.h"

#include "base/Truncate.h"
#include <cmath>

namespace qm::GLOBAL_GENERATOR {

int GET_GENERATOR_NUMBER(const GeneratorTable& table) { return row_count(table); }

int GET_GENERATOR_IGENERATOR(const GeneratorTable& table, int id) {
    return first_row_with_id(table, id);
}

void SET_GENERATOR_GENERATORORDER(GeneratorTable& table, int i, double o1, double o2, double o3, double o4) {
    if (is_row(table, i)) table(i).GENERATORORDER = {o1, o2, o3, o4};
}

void SET_GENERATOR_GENERATORTORQUEPERCENT(GeneratorTable& table, int i, double p1, double p2, double p3,
                                          double p4) {
    if (is_row(table, i)) table(i).GENERATORTORQUEPERCENT = {p1, p2, p3, p4};
}

int generator_order(const GeneratorTable& table, int i, int k) {
    if (!is_row(table, i) || k < 1 || k > 4) return 0;
    return truncate_to_int(table(i).GENERATORORDER[static_cast<std::size_t>(k - 1)]);
}
int GET_GENERATOR_GENERATORORDERONE(const GeneratorTable& table, int i) {
    return generator_order(table, i, 1);
}
int GET_GENERATOR_GENERATORORDERTWO(const GeneratorTable& table, int i) {
    return generator_order(table, i, 2);
}
int GET_GENERATOR_GENERATORORDERTHREE(const GeneratorTable& table, int i) {
    return generator_order(table, i, 3);
}
int GET_GENERATOR_GENERATORORDERFOUR(const GeneratorTable& table, int i) {
    return generator_order(table, i, 4);
}

void CALCULATE_GENERATOR_LOADCASESETTING(GeneratorTable& table, int i) {
    if (!is_row(table, i)) return;
    GeneratorRecord& g = table(i);
    for (std::size_t k = 0; k < 4; ++k)
        g.GENTORQUEAMP[k] = g.TORQUE * g.GENERATORTORQUEPERCENT[k];
}

}  // namespace qm::GLOBAL_GENERATOR
