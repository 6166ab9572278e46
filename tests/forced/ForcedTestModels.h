// Small shaft lines for the tests of the forced calculation.
#pragma once

#include "base/ComponentCodes.h"
#include "components/ModelTables.h"

namespace qm::test {

inline void set_mass(ModelTables& t, int row, int id, double inertia, double ratio = 1.0, int masstype = 1,
                     int componenttype = 1, int componentid = 0) {
    MassRecord& m = t.MASS_TABLE(row);
    m.ID = id;
    m.INERTIA = inertia;
    m.INERTIAEFFECTIVE = inertia;
    m.RPMRATIO = ratio;
    m.MASSTYPE = masstype;
    m.COMPONENTTYPE = componenttype;
    m.COMPONENTID = componentid == 0 ? id : componentid;
}

inline void set_shaft(ModelTables& t, int row, int org, int des, double k, double ratio = 1.0, int shafttype = 9,
                      int componenttype = 9, int componentid = 0) {
    ShaftRecord& s = t.SHAFT_TABLE(row);
    s.ID = row;
    s.ORGNODE = org;
    s.DESNODE = des;
    s.STIFFNESS = k;
    s.STIFFNESSDYNAMIC = k;
    s.RPMRATIO = ratio;
    s.SHAFTTYPE = shafttype;
    s.COMPONENTTYPE = componenttype;
    s.COMPONENTID = componentid == 0 ? row : componentid;
}

// n inertias of `inertia` on n-1 shafts of stiffness k, ratio 1 everywhere.
inline ModelTables chain(int n, double inertia = 10.0, double k = 1.0e6) {
    ModelTables t;
    t.MASS_TABLE.allocate(n);
    t.SHAFT_TABLE.allocate(n > 1 ? n - 1 : 0);
    for (int i = 1; i <= n; ++i) set_mass(t, i, i, inertia);
    for (int i = 1; i < n; ++i) set_shaft(t, i, i, i + 1, k);
    return t;
}

// A Geislinger coupling on shaft row `shaft` (ID = row), damped through its magnifier.
inline void add_geislinger(ModelTables& t, int shaft, double stiffness, double speed) {
    t.SHAFT_TABLE(shaft).SHAFTTYPE = CODES::SHAFTTYPE_GEISLINGERCOUPLING;
    t.GEISLINGERCOUPLING_TABLE.allocate(1);
    GeislingerCouplingRecord& g = t.GEISLINGERCOUPLING_TABLE(1);
    g.ID = 1;
    g.SHAFTNODE = shaft;
    g.STATICSTIFFNESS = stiffness;
    g.CHARACTERISTICFREQUENCY = 100.0;
    g.NOMINALTORQUE = 1.0e4;
    g.SPEEDEXCITATION = speed;
    g.DAMPINGTYPE = GLOBAL_GEISLINGERCOUPLING::GENERALDAMPING;
}

}  // namespace qm::test
