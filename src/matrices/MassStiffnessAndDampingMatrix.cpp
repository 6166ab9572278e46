#include "matrices/MassStiffnessAndDampingMatrix.h"

#include "base/ComponentCodes.h"
#include "components/GlobalDiesel.h"
#include "components/GlobalGeislingerCoupling.h"
#include "components/GlobalMass.h"
#include "components/GlobalShaft.h"
#include "components/GlobalLinearCoupling.h"
#include "components/GlobalProgressiveCoupling.h"
#include "components/GlobalPropeller.h"
#include "components/ViscousDamperCustomDamping.h"
#include "matrices/MassRows.h"

namespace qm::MASSSTIFFNESSANDDAMPINGMATRIX {

void MASSANDSHAFTTABLEPREPARATION(bool free, MassTable& MASS_TABLE, ShaftTable& SHAFT_TABLE,
                                  const ViscousDamperTable& VISCOUSDAMPER_TABLE,
                                  const LinearCouplingTable& LINEARCOUPLING_TABLE,
                                  const ProgressiveCouplingTable& PROGRESSIVECOUPLING_TABLE,
                                  PropellerTable& PROPELLER_TABLE, int loadcase,
                                  std::vector<std::string>* messages) {
    for (int i = 1; i <= GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE); ++i)
        MASS_TABLE(i).INERTIAEFFECTIVE = MASS_TABLE(i).INERTIA;
    for (int i = 1; i <= GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE); ++i)
        SHAFT_TABLE(i).STIFFNESSDYNAMIC = SHAFT_TABLE(i).STIFFNESS;

    // In free mode the ring of a viscous damper leaves the system and half of its inertia
    // goes to the casing.
    if (VISCOUSDAMPER_TABLE.allocated() && free) {
        for (int d = 1; d <= VISCOUSDAMPER_TABLE.size(); ++d) {
            const int ring = GLOBAL_MASS::GET_MASS_IMASS(MASS_TABLE, VISCOUSDAMPER_TABLE(d).RINGNODE);
            const int casing = GLOBAL_MASS::GET_MASS_IMASS(MASS_TABLE, VISCOUSDAMPER_TABLE(d).CASINGNODE);
            if (ring < 1 || casing < 1) continue;  // reported by the data check
            MASS_TABLE(casing).INERTIAEFFECTIVE =
                0.5 * MASS_TABLE(ring).INERTIA + MASS_TABLE(casing).INERTIA;
        }
    }

    // In forced mode a coupling's working stiffness replaces that of its shaft.
    if (LINEARCOUPLING_TABLE.allocated() && !free) {
        for (int c = 1; c <= LINEARCOUPLING_TABLE.size(); ++c) {
            const int shaft = GLOBAL_SHAFT::GET_SHAFT_ISHAFT(SHAFT_TABLE, LINEARCOUPLING_TABLE(c).SHAFTNODE);
            if (shaft < 1) continue;
            SHAFT_TABLE(shaft).STIFFNESSDYNAMIC =
                GLOBAL_LINEARCOUPLING::GET_LINEARCOUPLING_STIFFNESSDYNAMIC(LINEARCOUPLING_TABLE, c);
        }
    }
    if (PROGRESSIVECOUPLING_TABLE.allocated() && !free) {
        for (int c = 1; c <= PROGRESSIVECOUPLING_TABLE.size(); ++c) {
            const int shaft =
                GLOBAL_SHAFT::GET_SHAFT_ISHAFT(SHAFT_TABLE, PROGRESSIVECOUPLING_TABLE(c).SHAFTNODE);
            if (shaft < 1) continue;
            SHAFT_TABLE(shaft).STIFFNESSDYNAMIC = GLOBAL_PROGRESSIVECOUPLING::GET_PROGRESSIVECOUPLING_STIFFNESSDYNAMIC(
                PROGRESSIVECOUPLING_TABLE, c,
                GLOBAL_PROGRESSIVECOUPLING::GET_PROGRESSIVECOUPLING_TORQUE(PROGRESSIVECOUPLING_TABLE, c));
        }
    }

    // A propeller's inertia includes its entrained water; in forced mode its damping model
    // gives the damping of its mass.
    if (PROPELLER_TABLE.allocated()) {
        for (int i = 1; i <= PROPELLER_TABLE.size(); ++i) {
            GLOBAL_PROPELLER::CALCULATE_PROPELLER_INERTIATOTAL(free, PROPELLER_TABLE, i, loadcase, messages);
            const int mass = GLOBAL_MASS::GET_MASS_IMASS(MASS_TABLE, PROPELLER_TABLE(i).PROPELLERNODE);
            if (mass < 1) continue;  // reported by the data check
            MASS_TABLE(mass).INERTIAEFFECTIVE = PROPELLER_TABLE(i).INERTIATOTAL;
            if (!free) {
                GLOBAL_PROPELLER::CALCULATE_PROPELLER_ABSDAMPING(PROPELLER_TABLE, i);
                if (PROPELLER_TABLE(i).ABSDAMPING > 0.0 || PROPELLER_TABLE(i).DYNMAGNIFIER > 0.0) {
                    MASS_TABLE(mass).ABSDAMPING = PROPELLER_TABLE(i).ABSDAMPING;
                    MASS_TABLE(mass).DYNMAGNIFIER = PROPELLER_TABLE(i).DYNMAGNIFIER;
                }
            }
        }
    }
}

void CALCUALTEMASSSTIFFNESSMATRIXDIMENSION(bool free, const MassTable& MASS_TABLE, int& N, int& NNZ) {
    const int rows = GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE);
    N = free ? GLOBAL_MASS::GET_MASS_NNOTVISCOUSDAMPERRINGMASS(MASS_TABLE, rows) : rows;
    NNZ = N > 0 ? 3 * N - 2 : 0;
}

namespace {

// A value referred to the reference shaft by the square of its speed ratio, (x*r)*r.
double referred(double x, double r) { return x * r * r; }

void allocate_zeroed(bool free, SystemMatrices& mx, int N, int NNZ) {
    mx.N = N;
    mx.NNZ = NNZ;
    mx.M.allocate(N);
    mx.CA.allocate(N);
    mx.CAR.allocate(N);
    mx.D.allocate(N);
    // Only the free calculation has mode shapes; the forced one rebuilds the arrays per order
    // and would otherwise zero N x N values each time.
    if (free)
        mx.V.allocate(N, N);
    else
        mx.V.deallocate();
    mx.K.allocate(NNZ);
    mx.CR.allocate(NNZ);
    mx.CRR.allocate(NNZ);
    mx.ROWIND.allocate(NNZ);
    mx.COLIND.allocate(NNZ);
    for (int p = 1; p <= N; ++p) {
        mx.ROWIND(p) = p;
        mx.COLIND(p) = p;
    }
}

void BUILDMASSANDMASSDAMPINGMATRIX(bool free, const MassTable& MASS_TABLE, const DieselTable& DIESEL_TABLE,
                                   double order, SystemMatrices& mx) {
    int p = 0;
    for (int row = 1; row <= GLOBAL_MASS::GET_MASS_NUMBER(MASS_TABLE); ++row) {
        const MassRecord& m = MASS_TABLE(row);
        if (free && m.MASSTYPE == CODES::MASSTYPE_VISCOUSDAMPERRING) continue;
        ++p;
        const double r = m.RPMRATIO;
        mx.M(p) = referred(m.INERTIAEFFECTIVE, r);
        if (free) continue;

        // A cylinder of an engine with formula damping takes the engine's damping at this
        // order, whatever its own row says.
        if (m.MASSTYPE == CODES::MASSTYPE_DIESELCYLINDER && m.COMPONENTTYPE == CODES::COMPONENT_DIESEL) {
            const int e = GLOBAL_DIESEL::GET_DIESEL_IDIESEL(DIESEL_TABLE, m.COMPONENTID);
            if (e >= 1 && DIESEL_TABLE(e).ISFORMULADAMPING) {
                mx.CA(p) = referred(GLOBAL_DIESEL::CALCULATE_DIESEL_DAMPING_CYLINDER(DIESEL_TABLE, e, order), r);
                continue;
            }
        }
        // A magnifier of exactly 0.0 means the damping is given as a coefficient.
        if (m.DYNMAGNIFIER == 0.0)
            mx.CA(p) = referred(m.ABSDAMPING, r);
        else
            mx.CAR(p) = referred(m.INERTIAEFFECTIVE / m.DYNMAGNIFIER, r);
    }
}

// Stiffness k, damping d and magnifier q of a shaft row in forced mode: elements whose
// stiffness or damping follow the order replace the values of the row.
struct ShaftValues {
    double k;
    double d;
    double q;
};

ShaftValues forced_shaft_values(const ShaftRecord& s, const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE,
                                const DieselTable& DIESEL_TABLE, const ViscousDamperTable& VISCOUSDAMPER_TABLE,
                                double order) {
    ShaftValues v{s.STIFFNESSDYNAMIC, s.ABSDAMPING, s.DYNMAGNIFIER};
    if (s.SHAFTTYPE == CODES::SHAFTTYPE_GEISLINGERCOUPLING) {
        // The coupling's magnifier goes into its own damping and never into CRR.
        const int g = GLOBAL_GEISLINGERCOUPLING::GET_GEISLINGERCOUPLING_IGEISLINGERCOUPLING_SHAFTNODE(
            GEISLINGERCOUPLING_TABLE, s.ID);
        v.k = GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(GEISLINGERCOUPLING_TABLE, g,
                                                                                      order);
        v.d = GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_DAMPING(GEISLINGERCOUPLING_TABLE, g, v.q,
                                                                              order);
        v.q = 0.0;
    }
    if (s.SHAFTTYPE == CODES::SHAFTTYPE_CRANKTHROW && s.COMPONENTTYPE == CODES::COMPONENT_DIESEL) {
        const int e = GLOBAL_DIESEL::GET_DIESEL_IDIESEL(DIESEL_TABLE, s.COMPONENTID);
        if (e >= 1 && DIESEL_TABLE(e).ISFORMULADAMPING) {
            v.d = GLOBAL_DIESEL::CALCULATE_DIESEL_DAMPING_CRANKTHROW(DIESEL_TABLE, e, order);
            v.q = 0.0;
        }
    }
    if (s.SHAFTTYPE == CODES::SHAFTTYPE_VISCOUSDAMPERSPRING && s.COMPONENTTYPE == CODES::COMPONENT_VISCOUSDAMPER) {
        const int dmp = GLOBAL_VISCOUSDAMPER::GET_VISCOUSDAMPER_IVISCOUSDAMPER(VISCOUSDAMPER_TABLE, s.COMPONENTID);
        if (dmp >= 1 && VISCOUSDAMPER_TABLE(dmp).ISCUSTOMDAMPING) {
            v.d = GLOBAL_VISCOUSDAMPER::CALCULATE_VISCOUSDAMPER_CUSTOMDAMPING(VISCOUSDAMPER_TABLE, dmp, order);
            v.q = 0.0;
            if (VISCOUSDAMPER_TABLE(dmp).ISCUSTOMSTIFFNESS)
                v.k = GLOBAL_VISCOUSDAMPER::CALCULATE_VISCOUSDAMPER_CUSTOMSTIFFNESS(VISCOUSDAMPER_TABLE, dmp, order);
        }
    }
    return v;
}

void BUILDSTIFFNESSANDSTIFFNESSDAMPINGMATRIX(bool free, const MassTable& MASS_TABLE, const ShaftTable& SHAFT_TABLE,
                                             const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE,
                                             const DieselTable& DIESEL_TABLE,
                                             const ViscousDamperTable& VISCOUSDAMPER_TABLE, double order,
                                             SystemMatrices& mx) {
    const MassRows rows(MASS_TABLE);
    int c = 0;
    for (int row = 1; row <= GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE); ++row) {
        const ShaftRecord& s = SHAFT_TABLE(row);
        if (free && s.SHAFTTYPE == CODES::SHAFTTYPE_VISCOUSDAMPERSPRING) continue;
        // Free mode numbers the degrees of freedom without the rings; forced mode has one
        // per row of the table.
        const int i = free ? rows.free_dof_of_id(s.ORGNODE) : rows.row(s.ORGNODE);
        const int j = free ? rows.free_dof_of_id(s.DESNODE) : rows.row(s.DESNODE);
        // A shaft to an inertia that is not in the table, or one more than a tree can hold,
        // has no place in the arrays; the data check reports both.
        if (i < 1 || j < 1 || mx.N + c + 2 > mx.NNZ) continue;
        const ShaftValues v = free ? ShaftValues{s.STIFFNESSDYNAMIC, 0.0, 0.0}
                                   : forced_shaft_values(s, GEISLINGERCOUPLING_TABLE, DIESEL_TABLE,
                                                         VISCOUSDAMPER_TABLE, order);
        const double kr2 = referred(v.k, s.RPMRATIO);
        mx.K(i) += kr2;
        mx.K(j) += kr2;
        ++c;
        mx.ROWIND(mx.N + c) = i;
        mx.COLIND(mx.N + c) = j;
        mx.K(mx.N + c) = -kr2;
        ++c;
        mx.ROWIND(mx.N + c) = j;
        mx.COLIND(mx.N + c) = i;
        mx.K(mx.N + c) = -kr2;
        if (free) continue;

        // Relative damping across the shaft in the pattern of K: as a coefficient (CR)
        // when the magnifier is exactly 0.0, else as the loss k/q against stiffness (CRR).
        Table<double>& C = v.q == 0.0 ? mx.CR : mx.CRR;
        const double cr2 = referred(v.q == 0.0 ? v.d : v.k / v.q, s.RPMRATIO);
        C(i) += cr2;
        C(j) += cr2;
        C(mx.N + c - 1) = -cr2;
        C(mx.N + c) = -cr2;
    }
}

}  // namespace

void BUILDMASSSTIFFNESSANDDAMPINGMATRIX(bool free, const MassTable& MASS_TABLE,
                                        const ShaftTable& SHAFT_TABLE,
                                        const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE,
                                        const DieselTable& DIESEL_TABLE,
                                        const ViscousDamperTable& VISCOUSDAMPER_TABLE, double order,
                                        SystemMatrices& mx) {
    int N = 0, NNZ = 0;
    CALCUALTEMASSSTIFFNESSMATRIXDIMENSION(free, MASS_TABLE, N, NNZ);
    allocate_zeroed(free, mx, N, NNZ);
    BUILDMASSANDMASSDAMPINGMATRIX(free, MASS_TABLE, DIESEL_TABLE, order, mx);
    BUILDSTIFFNESSANDSTIFFNESSDAMPINGMATRIX(free, MASS_TABLE, SHAFT_TABLE, GEISLINGERCOUPLING_TABLE, DIESEL_TABLE,
                                            VISCOUSDAMPER_TABLE, order, mx);
}

}  // namespace qm::MASSSTIFFNESSANDDAMPINGMATRIX
