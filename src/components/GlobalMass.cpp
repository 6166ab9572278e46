#include "components/GlobalMass.h"
#include "base/ComponentCodes.h"

namespace qm::GLOBAL_MASS {

int GET_MASS_NUMBER(const MassTable& table) { return row_count(table); }

int GET_MASS_IMASS(const MassTable& table, int id) {
    return first_row_with_id(table, id);
}

double GET_MASS_INERTIAEQUIVALENTTOTAL(const MassTable& table) {
    double total = 0.0;
    for (int i = 1; i <= GET_MASS_NUMBER(table); ++i)
        total += table(i).RPMRATIO * table(i).RPMRATIO * table(i).INERTIA;
    return total;
}

int GET_MASS_NNOTVISCOUSDAMPERRINGMASS(const MassTable& table, int n) {
    int count = 0;
    const int last = n < GET_MASS_NUMBER(table) ? n : GET_MASS_NUMBER(table);
    for (int i = 1; i <= last; ++i)
        if (table(i).MASSTYPE != CODES::MASSTYPE_VISCOUSDAMPERRING) ++count;
    return count;
}

int GET_MASS_NNOTVISCOUSDAMPERRINGSHAFT(const MassTable& table, int id) {
    return GET_MASS_NNOTVISCOUSDAMPERRINGMASS(table, GET_MASS_IMASS(table, id));
}

}  // namespace qm::GLOBAL_MASS
