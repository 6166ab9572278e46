#include "forced/ShaftPowerLoss.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/ComponentCodes.h"
#include "base/Constants.h"
#include "base/GlobalParameter.h"
#include "components/ViscousDamperCustomDamping.h"

namespace qm::FORCEDVIBRATION {

namespace {

using namespace CODES;

// The response of one kind with its units added, order by order.
struct KindSums {
    bool active = false;
    int NORDER = 0;
    std::vector<double> XAMPSUM, XANGLESUM;  // NMASS*NORDER, at (o-1)*NMASS + m
    std::vector<double> SHAFTTORQUEAMPSUM;   // NSHAFT*NORDER, at (o-1)*NSHAFT + j
};

double amplitude(double re, double im) { return 2.0 * std::sqrt(re * re + im * im); }

// Sums over the units of a kind and their amplitudes (and, for the deflection, angles).
KindSums kind_sums(const KindResults& r) {
    KindSums s;
    if (r.NUNIT <= 0 || r.NORDER <= 0) return s;
    s.active = true;
    s.NORDER = r.NORDER;
    const auto sum_over_units = [&](const std::vector<double>& re, const std::vector<double>& im, int NE, int o,
                                    int e) {
        double sre = 0.0;
        double sim = 0.0;
        for (int u = 1; u <= r.NUNIT; ++u) {
            const std::size_t i = KindResults::index(u, o, e, NE, r.NORDER);
            sre += re[i];
            sim += im[i];
        }
        return std::pair{sre, sim};
    };
    s.XAMPSUM.assign(static_cast<std::size_t>(r.NMASS) * r.NORDER, 0.0);
    s.XANGLESUM.assign(s.XAMPSUM.size(), 0.0);
    s.SHAFTTORQUEAMPSUM.assign(static_cast<std::size_t>(r.NSHAFT) * r.NORDER, 0.0);
    for (int o = 1; o <= r.NORDER; ++o) {
        for (int m = 1; m <= r.NMASS; ++m) {
            const auto [re, im] = sum_over_units(r.XR, r.XI, r.NMASS, o, m);
            const std::size_t at = KindResults::index(1, o, m, r.NMASS, r.NORDER);
            s.XAMPSUM[at] = amplitude(re, im);
            s.XANGLESUM[at] = std::atan2(re, -im);
        }
        for (int j = 1; j <= r.NSHAFT; ++j) {
            const auto [re, im] = sum_over_units(r.SHAFTTORQUERE, r.SHAFTTORQUEIM, r.NSHAFT, o, j);
            s.SHAFTTORQUEAMPSUM[KindResults::index(1, o, j, r.NSHAFT, r.NORDER)] = amplitude(re, im);
        }
    }
    return s;
}

// Speed and orders of a kind, all read from its first unit: (order place, order) pairs.
struct OrderWalk {
    double n = 0.0;  // rpm
    std::vector<std::pair<int, double>> orders;
};

// A generator, centrifugal pump or electric motor walks at its operating speed through the
// orders it lists: up to the number in use, ending at the first 0.0. A kind without units
// reads as an all-zero machine and walks no order.
void machine_walk(OrderWalk& walk, const FourOrderMachine& m, int NORDER) {
    walk.n = m.SPEED;
    const int last = std::min({m.ORDERNUMBER, NORDER, MACHINEORDERS});
    for (int o = 1; o <= last; ++o) {
        const double f = m.ORDERS[static_cast<std::size_t>(o - 1)];
        if (f == 0.0) break;
        walk.orders.emplace_back(o, f);
    }
}

OrderWalk order_walk(const ModelTables& t, int kind, int NORDER) {
    OrderWalk walk;
    switch (kind) {
        case DIESEL:
            if (t.DIESEL_TABLE.size() < 1) break;
            walk.n = t.DIESEL_TABLE(1).SPEED;
            for (int o = 1; o <= NORDER; ++o) walk.orders.emplace_back(o, NORDER == 24 ? o * 0.5 : o * 1.0);
            break;
        case PROPELLER:
            if (t.PROPELLER_TABLE.size() < 1) break;
            walk.n = t.PROPELLER_TABLE(1).SPEED;
            for (int o = 1; o <= NORDER; ++o)
                walk.orders.emplace_back(o, NORDER == 2 ? static_cast<double>(o * t.PROPELLER_TABLE(1).NBLADE) : o);
            break;
        case GENERATOR: machine_walk(walk, four_order_machine(t.GENERATOR_TABLE, 1), NORDER); break;
        case CENTRIFUGALPUMP: machine_walk(walk, four_order_machine(t.CENTRIFUGALPUMP_TABLE, 1), NORDER); break;
        case RECIPROCATINGPUMP:
            if (t.RECIPROCATINGPUMP_TABLE.size() < 1) break;
            walk.n = t.RECIPROCATINGPUMP_TABLE(1).SPEED;
            for (int o = 1; o <= NORDER; ++o) walk.orders.emplace_back(o, static_cast<double>(o));
            break;
        case ELECTRICMOTOR: machine_walk(walk, four_order_machine(t.ELECTRICMOTOR_TABLE, 1), NORDER); break;
        default:
            break;
    }
    return walk;
}

// How an element turns damping into loss.
enum class LossForm {
    Stiffness,  // d 1/2 w^2 T^2 / S^2: plain elements and couplings with the default loss
    Factor,     // q 1/2 w T^2 / S: couplings and dampers with a loss of their own
    Relative,   // w^2 1/2 d R: dampers with the default loss, from the motion of their two ends
};

// Everything of one shaft row that the order walk needs.
struct Element {
    int i = 0, k = 0;  // mass rows of the two ends, 0 when not in the table
    double c = 0.0, mag = 0.0, S = 0.0;
    int geislinger = 0;      // row of a Geislinger coupling on this element
    int crankEngine = 0;     // row of the engine of a formula-damped crank throw
    int customViscous = 0;   // row of a viscous damper with custom damping
    LossForm form = LossForm::Stiffness;
    bool couplingFactorFromGeislinger = false;
};

Element element_of(const ModelTables& t, int j) {
    const ShaftRecord& sh = t.SHAFT_TABLE(j);
    Element el;
    el.i = GLOBAL_MASS::GET_MASS_IMASS(t.MASS_TABLE, sh.ORGNODE);
    el.k = GLOBAL_MASS::GET_MASS_IMASS(t.MASS_TABLE, sh.DESNODE);
    el.c = sh.ABSDAMPING;
    el.mag = sh.DYNMAGNIFIER;
    el.S = sh.STIFFNESSDYNAMIC;

    if (sh.SHAFTTYPE == SHAFTTYPE_GEISLINGERCOUPLING) {
        el.geislinger =
            GLOBAL_GEISLINGERCOUPLING::GET_GEISLINGERCOUPLING_IGEISLINGERCOUPLING_SHAFTNODE(t.GEISLINGERCOUPLING_TABLE, sh.ID);
        el.c = el.geislinger > 0 ? t.GEISLINGERCOUPLING_TABLE(el.geislinger).DAMPING : 0.0;
    } else if (sh.SHAFTTYPE == SHAFTTYPE_CRANKTHROW && sh.COMPONENTTYPE == COMPONENT_DIESEL) {
        const int d = GLOBAL_DIESEL::GET_DIESEL_IDIESEL(t.DIESEL_TABLE, sh.COMPONENTID);
        if (d > 0 && t.DIESEL_TABLE(d).ISFORMULADAMPING) {
            el.crankEngine = d;
            el.c = t.DIESEL_TABLE(d).CRANKRELDAMPING;
        }
    } else if (sh.SHAFTTYPE == SHAFTTYPE_VISCOUSDAMPERSPRING && sh.COMPONENTTYPE == COMPONENT_VISCOUSDAMPER) {
        const int v = GLOBAL_VISCOUSDAMPER::GET_VISCOUSDAMPER_IVISCOUSDAMPER(t.VISCOUSDAMPER_TABLE, sh.COMPONENTID);
        if (v > 0 && t.VISCOUSDAMPER_TABLE(v).ISCUSTOMDAMPING) {
            el.customViscous = v;
            el.c = 1.0;  // damping exists; its value follows the curve order by order
        }
    }

    const bool isDamper = GLOBAL_SHAFT::GET_SHAFT_ISDAMPER(t.SHAFT_TABLE, j, t.VISCOUSDAMPER_TABLE,
                                                          t.RUBBERDAMPER_TABLE, t.STEELSPRINGDAMPER_TABLE);
    const bool isCoupling = GLOBAL_SHAFT::GET_SHAFT_ISCOUPLING(t.SHAFT_TABLE, j, t.LINEARCOUPLING_TABLE,
                                                              t.PROGRESSIVECOUPLING_TABLE, t.GEISLINGERCOUPLING_TABLE);
    if (isDamper) {
        bool ownLoss = false;
        if (sh.SHAFTTYPE == SHAFTTYPE_STEELSPRINGDAMPER && sh.COMPONENTTYPE == COMPONENT_STEELSPRINGDAMPER) {
            const int d =
                GLOBAL_STEELSPRINGDAMPER::GET_STEELSPRINGDAMPER_ISTEELSPRINGDAMPER(t.STEELSPRINGDAMPER_TABLE, sh.COMPONENTID);
            const bool byDefault = d == 0 || t.STEELSPRINGDAMPER_TABLE(d).ISDEFAULTPOWERLOSS;
            ownLoss = !(byDefault || sh.ABSDAMPING > 0.0);
        } else if (sh.SHAFTTYPE == SHAFTTYPE_RUBBERDAMPER && sh.COMPONENTTYPE == COMPONENT_RUBBERDAMPER) {
            const int d = GLOBAL_RUBBERDAMPER::GET_RUBBERDAMPER_IRUBBERDAMPER(t.RUBBERDAMPER_TABLE, sh.COMPONENTID);
            ownLoss = d > 0 && !t.RUBBERDAMPER_TABLE(d).ISDEFAULTPOWERLOSS;
        }
        el.form = ownLoss ? LossForm::Factor : LossForm::Relative;
    } else if (isCoupling) {
        bool byDefault = true;
        if (sh.SHAFTTYPE == SHAFTTYPE_GEISLINGERCOUPLING) {
            byDefault = el.geislinger == 0 || t.GEISLINGERCOUPLING_TABLE(el.geislinger).ISDEFAULTPOWERLOSS;
            el.couplingFactorFromGeislinger = true;
        } else if (sh.SHAFTTYPE == SHAFTTYPE_LINEARCOUPLING) {
            const int c = GLOBAL_LINEARCOUPLING::GET_LINEARCOUPLING_ILINEARCOUPLING_SHAFTNODE(t.LINEARCOUPLING_TABLE, sh.ID);
            byDefault = c == 0 || t.LINEARCOUPLING_TABLE(c).ISDEFAULTPOWERLOSS;
        } else if (sh.SHAFTTYPE == SHAFTTYPE_PROGRESSIVECOUPLING) {
            const int c = GLOBAL_PROGRESSIVECOUPLING::GET_PROGRESSIVECOUPLING_IPROGRESSIVECOUPLING_SHAFTNODE(
                t.PROGRESSIVECOUPLING_TABLE, sh.ID);
            byDefault = c == 0 || t.PROGRESSIVECOUPLING_TABLE(c).ISDEFAULTPOWERLOSS;
        }
        el.form = byDefault ? LossForm::Stiffness : LossForm::Factor;
    }
    return el;
}

// Square of the relative amplitude of the two ends of a damper at order place o.
double relative_amplitude_squared(const KindSums& s, int NMASS, int o, int i, int k) {
    const auto at = [&](int m, const std::vector<double>& a) {
        return m >= 1 && m <= NMASS ? a[KindResults::index(1, o, m, NMASS, s.NORDER)] : 0.0;
    };
    const double Ai = at(i, s.XAMPSUM), ti = at(i, s.XANGLESUM);
    const double Ak = at(k, s.XAMPSUM), tk = at(k, s.XANGLESUM);
    const double x = Ak * std::cos(tk) - Ai * std::cos(ti);
    const double y = Ak * std::sin(tk) - Ai * std::sin(ti);
    return x * x + y * y;
}

}  // namespace

void SINGLELOADCASESHAFTPOWERLOSS(ModelTables& t, const AllKindResults& results,
                                  std::vector<double>& SHAFTPOWERLOSS) {
    const int NSHAFT = GLOBAL_SHAFT::GET_SHAFT_NUMBER(t.SHAFT_TABLE);
    SHAFTPOWERLOSS.assign(static_cast<std::size_t>(NSHAFT), 0.0);

    std::array<KindSums, NKIND> sums;
    std::array<OrderWalk, NKIND> walks;
    for (int kind = 0; kind < NKIND; ++kind) {
        const KindResults& r = results[static_cast<std::size_t>(kind)];
        if (r.NSHAFT != NSHAFT) continue;  // arrays of another model: nothing to add
        sums[static_cast<std::size_t>(kind)] = kind_sums(r);
        if (sums[static_cast<std::size_t>(kind)].active) walks[static_cast<std::size_t>(kind)] = order_walk(t, kind, r.NORDER);
    }

    for (int j = 1; j <= NSHAFT; ++j) {
        Element el = element_of(t, j);
        if (el.c == 0.0 && el.mag == 0.0) continue;
        double P = 0.0;
        for (int kind = 0; kind < NKIND; ++kind) {
            const KindSums& s = sums[static_cast<std::size_t>(kind)];
            if (!s.active) continue;
            const OrderWalk& walk = walks[static_cast<std::size_t>(kind)];
            const double omega = walk.n * PI / 30.0;
            const int NMASS = results[static_cast<std::size_t>(kind)].NMASS;
            for (const auto& [o, f] : walk.orders) {
                if (el.geislinger > 0) {
                    using namespace GLOBAL_GEISLINGERCOUPLING;
                    t.GEISLINGERCOUPLING_TABLE(el.geislinger).SPEEDEXCITATION = walk.n;
                    el.S = CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(t.GEISLINGERCOUPLING_TABLE, el.geislinger, f);
                    el.c = CALCULATE_GEISLINGERCOUPLING_DAMPING(t.GEISLINGERCOUPLING_TABLE, el.geislinger, el.mag, f);
                } else if (el.crankEngine > 0) {
                    el.c = GLOBAL_DIESEL::CALCULATE_DIESEL_DAMPING_CRANKTHROW(t.DIESEL_TABLE, el.crankEngine, f);
                } else if (el.customViscous > 0) {
                    el.c = GLOBAL_VISCOUSDAMPER::CALCULATE_VISCOUSDAMPER_CUSTOMDAMPING(t.VISCOUSDAMPER_TABLE,
                                                                                   el.customViscous, f);
                }
                const double d = el.c > 0.0 ? el.c : el.S / (el.mag * omega * f);
                const double w = f * omega;
                const double T = s.SHAFTTORQUEAMPSUM[KindResults::index(1, o, j, NSHAFT, s.NORDER)];
                switch (el.form) {
                    case LossForm::Stiffness:
                        P += d * 0.5 * (w * w) * (T * T) / (el.S * el.S);
                        break;
                    case LossForm::Factor: {
                        const double u =
                            el.couplingFactorFromGeislinger
                                ? GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_UNDIMENSIONEDDAMPINGFACTOR(
                                      t.GEISLINGERCOUPLING_TABLE, el.geislinger, el.mag, f)
                                : GLOBAL_PARAMETER::CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(el.mag);
                        const double q = u / (u * u + 1.0);
                        P += q * 0.5 * w * (T * T) / el.S;
                        break;
                    }
                    case LossForm::Relative:
                        P += (w * w) * 0.5 * d * relative_amplitude_squared(s, NMASS, o, el.i, el.k);
                        break;
                }
            }
        }
        SHAFTPOWERLOSS[static_cast<std::size_t>(j - 1)] = P;
    }
}

}  // namespace qm::FORCEDVIBRATION
