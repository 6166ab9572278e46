#include "forced/ShaftResults.h"

#include <algorithm>
#include <cmath>

#include "base/ComponentCodes.h"
#include "base/Constants.h"
#include "components/ViscousDamperCustomDamping.h"

namespace qm::FORCEDVIBRATION {

namespace {

std::size_t at(int o, int NE, int e) {
    return static_cast<std::size_t>(o - 1) * static_cast<std::size_t>(NE) + static_cast<std::size_t>(e - 1);
}

// The four parts of a result from its two quadratures.
void store(std::size_t t, double re, double im, double* AMP, double* ANGLE, double* RE, double* IM) {
    RE[t] = re;
    IM[t] = im;
    AMP[t] = 2.0 * std::sqrt(re * re + im * im);
    ANGLE[t] = std::atan2(re, -im);
}

void zero_blocks(std::size_t n, double* AMP, double* ANGLE, double* RE, double* IM) {
    for (std::size_t t = 0; t < n; ++t) AMP[t] = ANGLE[t] = RE[t] = IM[t] = 0.0;
}

// Row of MASS_TABLE of an inertia ID, and its speed ratio; 0 and 1.0 when it isn't there.
int mass_row(const MassTable& MASS_TABLE, int id, int NMASS) {
    const int m = GLOBAL_MASS::GET_MASS_IMASS(MASS_TABLE, id);
    return m >= 1 && m <= NMASS ? m : 0;
}

// Section term of the stress, D^3 - d^3.
double cube_difference(const ShaftRecord& s) {
    const double D = s.OUTERDI;
    const double d = s.INNERDI;
    return D * D * D - d * d * d;
}

}  // namespace

void SINGLELOADCASESHAFTTORQUE(const ModelTables& tables, int NMASS, int NSHAFT, int NORDER, const double* EXFO,
                               const double* XR, const double* XI, double* AMP, double* ANGLE, double* RE,
                               double* IM) {
    const std::size_t total = static_cast<std::size_t>(NSHAFT) * static_cast<std::size_t>(NORDER);
    zero_blocks(total, AMP, ANGLE, RE, IM);
    const MassTable& MASS_TABLE = tables.MASS_TABLE;
    const ShaftTable& SHAFT_TABLE = tables.SHAFT_TABLE;
    const int nshaft = std::min(NSHAFT, GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE));
    for (int j = 1; j <= nshaft; ++j) {
        const ShaftRecord& s = SHAFT_TABLE(j);
        const int i = mass_row(MASS_TABLE, s.ORGNODE, NMASS);
        const int k = mass_row(MASS_TABLE, s.DESNODE, NMASS);
        if (i < 1 || k < 1) continue;  // reported by the data check
        const double ri = MASS_TABLE(i).RPMRATIO;
        const double rk = MASS_TABLE(k).RPMRATIO;
        const int g = s.SHAFTTYPE == CODES::SHAFTTYPE_GEISLINGERCOUPLING
                          ? GLOBAL_GEISLINGERCOUPLING::GET_GEISLINGERCOUPLING_IGEISLINGERCOUPLING_SHAFTNODE(
                                tables.GEISLINGERCOUPLING_TABLE, s.ID)
                          : 0;
        int vd = 0;  // a viscous damper whose stiffness follows its curve
        if (s.SHAFTTYPE == CODES::SHAFTTYPE_VISCOUSDAMPERSPRING && s.COMPONENTTYPE == CODES::COMPONENT_VISCOUSDAMPER) {
            const int d = GLOBAL_VISCOUSDAMPER::GET_VISCOUSDAMPER_IVISCOUSDAMPER(tables.VISCOUSDAMPER_TABLE,
                                                                                s.COMPONENTID);
            if (d >= 1 && tables.VISCOUSDAMPER_TABLE(d).ISCUSTOMDAMPING && tables.VISCOUSDAMPER_TABLE(d).ISCUSTOMSTIFFNESS)
                vd = d;
        }
        for (int o = 1; o <= NORDER; ++o) {
            const std::size_t t = at(o, NSHAFT, j);
            if (EXFO[o - 1] == 0.0) {
                store(t, 0.0, 0.0, AMP, ANGLE, RE, IM);
                continue;
            }
            double S = s.STIFFNESSDYNAMIC;
            if (s.SHAFTTYPE == CODES::SHAFTTYPE_GEISLINGERCOUPLING)
                S = GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_STIFFNESSDYNAMIC(
                    tables.GEISLINGERCOUPLING_TABLE, g, EXFO[o - 1]);
            if (vd >= 1)
                S = GLOBAL_VISCOUSDAMPER::CALCULATE_VISCOUSDAMPER_CUSTOMSTIFFNESS(tables.VISCOUSDAMPER_TABLE, vd,
                                                                                 EXFO[o - 1]);
            const std::size_t xi = at(o, NMASS, i);
            const std::size_t xk = at(o, NMASS, k);
            // The destination's deflection referred to the speed of the origin.
            const double re = S * (XR[xi] - XR[xk] / rk * ri);
            const double im = S * (XI[xi] - XI[xk] / rk * ri);
            store(t, re, im, AMP, ANGLE, RE, IM);
        }
    }
}

void SINGLELOADCASESHAFTSTRESS(const ShaftTable& SHAFT_TABLE, int NSHAFT, int NORDER, const double* TRE,
                               const double* TIM, double* AMP, double* ANGLE, double* RE, double* IM) {
    const std::size_t total = static_cast<std::size_t>(NSHAFT) * static_cast<std::size_t>(NORDER);
    zero_blocks(total, AMP, ANGLE, RE, IM);
    const int nshaft = std::min(NSHAFT, GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE));
    for (int j = 1; j <= nshaft; ++j) {
        const ShaftRecord& s = SHAFT_TABLE(j);
        if (s.OUTERDI <= 0.0) continue;
        const double section = PI * cube_difference(s);
        for (int o = 1; o <= NORDER; ++o) {
            const std::size_t t = at(o, NSHAFT, j);
            store(t, 16.0 * TRE[t] / section, 16.0 * TIM[t] / section, AMP, ANGLE, RE, IM);
        }
    }
}

namespace {

// Damping of a damper or coupling element at one order; false when the element is neither.
bool element_damping(const ModelTables& tables, const ShaftRecord& s, int j, double order, double& c) {
    const double mag = s.DYNMAGNIFIER;
    c = s.ABSDAMPING;
    if (GLOBAL_SHAFT::GET_SHAFT_ISDAMPER(tables.SHAFT_TABLE, j, tables.VISCOUSDAMPER_TABLE, tables.RUBBERDAMPER_TABLE,
                                         tables.STEELSPRINGDAMPER_TABLE)) {
        if (s.SHAFTTYPE == CODES::SHAFTTYPE_RUBBERDAMPER) {
            const int r = GLOBAL_RUBBERDAMPER::GET_RUBBERDAMPER_IRUBBERDAMPER_NODE(tables.RUBBERDAMPER_TABLE,
                                                                                  s.ORGNODE, s.DESNODE);
            c = GLOBAL_RUBBERDAMPER::CALCULATE_RUBBERDAMPER_DAMPING(tables.RUBBERDAMPER_TABLE, r, mag, order);
        }
        if (s.SHAFTTYPE == CODES::SHAFTTYPE_VISCOUSDAMPERSPRING && s.COMPONENTTYPE == CODES::COMPONENT_VISCOUSDAMPER) {
            const int d = GLOBAL_VISCOUSDAMPER::GET_VISCOUSDAMPER_IVISCOUSDAMPER_NODE(tables.VISCOUSDAMPER_TABLE,
                                                                                    s.ORGNODE, s.DESNODE);
            if (d >= 1 && tables.VISCOUSDAMPER_TABLE(d).ISCUSTOMDAMPING)
                c = GLOBAL_VISCOUSDAMPER::CALCULATE_VISCOUSDAMPER_CUSTOMDAMPING(tables.VISCOUSDAMPER_TABLE, d, order);
        }
        return true;  // a steel spring damper keeps the row's damping
    }
    if (!GLOBAL_SHAFT::GET_SHAFT_ISCOUPLING(tables.SHAFT_TABLE, j, tables.LINEARCOUPLING_TABLE,
                                            tables.PROGRESSIVECOUPLING_TABLE, tables.GEISLINGERCOUPLING_TABLE))
        return false;
    switch (s.SHAFTTYPE) {
        case CODES::SHAFTTYPE_GEISLINGERCOUPLING: {
            const auto& t = tables.GEISLINGERCOUPLING_TABLE;
            c = GLOBAL_GEISLINGERCOUPLING::CALCULATE_GEISLINGERCOUPLING_DAMPING(
                t, GLOBAL_GEISLINGERCOUPLING::GET_GEISLINGERCOUPLING_IGEISLINGERCOUPLING_SHAFTNODE(t, s.ID), mag, order);
            return true;
        }
        case CODES::SHAFTTYPE_LINEARCOUPLING: {
            const auto& t = tables.LINEARCOUPLING_TABLE;
            c = GLOBAL_LINEARCOUPLING::CALCULATE_LINEARCOUPLING_DAMPING(
                t, GLOBAL_LINEARCOUPLING::GET_LINEARCOUPLING_ILINEARCOUPLING_SHAFTNODE(t, s.ID), mag, order);
            return true;
        }
        case CODES::SHAFTTYPE_PROGRESSIVECOUPLING: {
            const auto& t = tables.PROGRESSIVECOUPLING_TABLE;
            c = GLOBAL_PROGRESSIVECOUPLING::CALCULATE_PROGRESSIVECOUPLING_DAMPING(
                t, GLOBAL_PROGRESSIVECOUPLING::GET_PROGRESSIVECOUPLING_IPROGRESSIVECOUPLING_SHAFTNODE(t, s.ID), mag,
                order);
            return true;
        }
        default:
            return false;
    }
}

}  // namespace

void SINGLELOADCASESHAFTDAMPINGTORQUE(const ModelTables& tables, int NMASS, int NSHAFT, int NORDER,
                                      const double* EXFO, const double* VR, const double* VI, double* AMP,
                                      double* ANGLE, double* RE, double* IM) {
    const std::size_t total = static_cast<std::size_t>(NSHAFT) * static_cast<std::size_t>(NORDER);
    zero_blocks(total, AMP, ANGLE, RE, IM);
    const int nshaft = std::min(NSHAFT, GLOBAL_SHAFT::GET_SHAFT_NUMBER(tables.SHAFT_TABLE));
    for (int j = 1; j <= nshaft; ++j) {
        const ShaftRecord& s = tables.SHAFT_TABLE(j);
        const int i = mass_row(tables.MASS_TABLE, s.ORGNODE, NMASS);
        const int k = mass_row(tables.MASS_TABLE, s.DESNODE, NMASS);
        if (i < 1 || k < 1) continue;
        for (int o = 1; o <= NORDER; ++o) {
            const std::size_t t = at(o, NSHAFT, j);
            double c = 0.0;
            const bool zero_order = EXFO[o - 1] == 0.0;
            // A plain shaft has no damping torque, however large its ABSDAMPING.
            if (!element_damping(tables, s, j, zero_order ? 1.0 : EXFO[o - 1], c)) continue;
            if (zero_order) {
                store(t, 0.0, 0.0, AMP, ANGLE, RE, IM);
                continue;
            }
            const std::size_t vi = at(o, NMASS, i);
            const std::size_t vk = at(o, NMASS, k);
            store(t, c * (VR[vi] - VR[vk]), c * (VI[vi] - VI[vk]), AMP, ANGLE, RE, IM);
        }
    }
}

void SINGLELOADCASENOMINALTORQUE(const ModelTables& tables, const Array2D<double>& LOADCASE_SHAFTPOWER, int lc,
                                 std::vector<double>& NOMTORQUE) {
    const int nshaft = GLOBAL_SHAFT::GET_SHAFT_NUMBER(tables.SHAFT_TABLE);
    NOMTORQUE.assign(static_cast<std::size_t>(nshaft), 0.0);
    if (lc < 1 || lc > LOADCASE_SHAFTPOWER.cols()) return;
    for (int j = 1; j <= std::min(nshaft, LOADCASE_SHAFTPOWER.rows()); ++j) {
        const double n = tables.SHAFT_TABLE(j).SPEED;
        NOMTORQUE[static_cast<std::size_t>(j - 1)] = LOADCASE_SHAFTPOWER(j, lc) / (n * PI / 30.0);
    }
}

void SINGLELOADCASENOMINALSTRESS(const ShaftTable& SHAFT_TABLE, const std::vector<double>& NOMTORQUE,
                                 std::vector<double>& NOMSTRESS) {
    const int nshaft = GLOBAL_SHAFT::GET_SHAFT_NUMBER(SHAFT_TABLE);
    NOMSTRESS.assign(static_cast<std::size_t>(nshaft), 0.0);
    for (int j = 1; j <= std::min<int>(nshaft, static_cast<int>(NOMTORQUE.size())); ++j) {
        const ShaftRecord& s = SHAFT_TABLE(j);
        if (s.OUTERDI == 0.0) continue;
        NOMSTRESS[static_cast<std::size_t>(j - 1)] = 16.0 * NOMTORQUE[static_cast<std::size_t>(j - 1)] / (PI * cube_difference(s));
    }
}

}  // namespace qm::FORCEDVIBRATION
