#include "components/GlobalPropeller.h"

#include <cmath>
#include <limits>

#include "base/Constants.h"
#include "base/GlobalParameter.h"

namespace qm::GLOBAL_PROPELLER {

namespace {

constexpr double SCHWANECKE_COEFFICIENT = 4.270999908447266;  // 4.271 in single precision
constexpr double DUCT_FACTOR = 1.2999999523162842;            // 1.3 in single precision
constexpr double FRAHM_COEFFICIENT = 91.25;
// rpm per rad/s as the Frahm law is written; deliberately not 30 / pi in full precision.
constexpr double FRAHM_RPM_PER_RADS = 9.54929631978034;

std::string fixed_text(const std::string& value, int length) {
    std::string text = value.substr(0, static_cast<std::size_t>(length));
    const std::size_t end = text.find_last_not_of(' ');
    text.erase(end == std::string::npos ? 0 : end + 1);
    return text;
}

double omega(const PropellerRecord& p) { return p.SPEED * PI / 30.0; }

// Inertia the damping models work with: always the nominal water.
double model_inertia(const PropellerRecord& p) { return p.INERTIAAIR + p.INERTIAWATER; }

}  // namespace

int GET_PROPELLER_NUMBER(const PropellerTable& table) {
    return row_count(table);
}

int GET_PROPELLER_IPROPELLER(const PropellerTable& table, int id) {
    return first_row_with_id(table, id);
}

void SET_PROPELLER_EXCITATIONFILE(PropellerTable& table, int i, const std::string& value) {
    if (!is_row(table, i)) return;
    table(i).EXCITATIONFILE = fixed_text(value, GLOBAL_PARAMETER::FILENAME_LENGTH);
}

void SET_PROPELLER_VARIABLEENTRAINEDWATERFILE(PropellerTable& table, int i,
                                              const std::string& value) {
    if (!is_row(table, i)) return;
    table(i).VARIABLEENTRAINEDWATERFILE = fixed_text(value, GLOBAL_PARAMETER::FILENAME_LENGTH);
}

int GET_PROPELLER_NICEFOURIERORDERS(const PropellerTable& table, int i) {
    if (!is_row(table, i)) return 0;
    return 4 * table(i).NBLADE + 1;
}

int GET_PROPELLERICEHARMONICORDERNUMBER(const PropellerTable& table) {
    for (int i = 1; i <= GET_PROPELLER_NUMBER(table); ++i)
        if (table(i).HASICEEXCITATION) return GET_PROPELLER_NICEFOURIERORDERS(table, i) - 1;
    return 0;
}

bool GET_PROPELLER_ISMODELCONSIDERPHASEANGLE(const PropellerTable& table) {
    if (GET_PROPELLER_NUMBER(table) == 0 || GET_PROPELLERICEHARMONICORDERNUMBER(table) > 0)
        return false;
    for (int i = 1; i <= GET_PROPELLER_NUMBER(table); ++i)
        if (table(i).CONSIDERPHASEANGLE) return true;
    return false;
}

double CALCULATE_SPEEDRATIO(const PropellerTable& table, int i) {
    if (!is_row(table, i)) return 0.0;
    const PropellerRecord& p = table(i);
    return p.MCRSPEED == 0.0 ? 0.0 : p.SPEED / p.MCRSPEED;
}

void CALCULATE_PROPELLER_INERTIATOTAL(bool isFreeVibration, PropellerTable& table, int i,
                                      int loadCase, std::vector<std::string>* messages) {
    if (!is_row(table, i)) return;
    PropellerRecord& p = table(i);
    double water = p.INERTIAWATER;
    if (p.ISVARIABLEENTRAINEDWATER && !isFreeVibration)
        water = CALCULATE_PROPELLER_CURRENTINERTIAWATER(table, i, loadCase, messages);
    p.INERTIATOTAL = p.INERTIAAIR + water;
}

double CALCULATE_PROPELLER_CURRENTINERTIAWATER(const PropellerTable& table, int i, int loadCase,
                                               std::vector<std::string>* messages) {
    if (!is_row(table, i)) return 0.0;
    const PropellerRecord& p = table(i);
    const auto entries = static_cast<int>(p.VARIABLEENTRAINEDWATERTABLE.size());
    if (loadCase >= 1 && loadCase <= p.NLOADCASE && loadCase <= entries)
        return p.VARIABLEENTRAINEDWATERTABLE[static_cast<std::size_t>(loadCase - 1)];
    if (messages != nullptr) messages->emplace_back(ENTRAINEDWATERERROR);
    return p.INERTIAWATER;
}

double CALCULATE_PROPELLER_SCHWANECHEDAMPING(const PropellerTable& table, int i) {
    if (!is_row(table, i)) return 0.0;
    const PropellerRecord& p = table(i);
    // Integral over the blade from boss to tip, in the ratio x of the diameters.
    double a = 0.0;
    if (p.DB == 0.0) {
        a = std::atan(std::numeric_limits<double>::infinity()) * 0.125;
    } else {
        const double x = p.DI / p.DB;
        if (x > 1.0) {
            const double s = std::sqrt(x - 1.0);
            a = s / (8.0 * x) + s / (12.0 * std::pow(x, 2)) - s / (3.0 * std::pow(x, 3)) +
                std::atan(s) * 0.125;
        }
    }
    double c = SCHWANECKE_COEFFICIENT * a * std::pow(p.DI, 5) * std::pow(p.PITCHRATIO, 2) *
               p.EXPAREARATIO * p.SPEED;
    if (p.ISDUCTED) c = c * DUCT_FACTOR;
    if (!p.ISFIXEDPITCH && p.PITCHPERCENT < 1.0) c = c * p.PITCHPERCENT;
    return c;
}

double CALCULATE_PROPELLER_ARCHERDAMPING(const PropellerTable& table, int i) {
    if (!is_row(table, i)) return 0.0;
    const PropellerRecord& p = table(i);
    return p.SPEED == 0.0 ? 0.0 : p.ARCHERNUMBER * p.TORQUE / p.SPEED;
}

double CALCULATE_PROPELLER_FRAHMDAMPING(const PropellerTable& table, int i) {
    if (!is_row(table, i)) return 0.0;
    const PropellerRecord& p = table(i);
    if (p.MCRSPEED == 0.0) return 0.0;
    const double k =
        FRAHM_COEFFICIENT * (p.MCRTORQUE / FRAHM_RPM_PER_RADS) / std::pow(p.MCRSPEED, 2);
    return p.FRAHMNUMBER * k * p.SPEED;
}

double CALCULATE_PROPELLER_MANUALDAMPING(const PropellerTable& table, int i) {
    if (!is_row(table, i)) return 0.0;
    const PropellerRecord& p = table(i);
    const double v = p.DYNMAGNIFIER;
    if (v == 0.0) return 0.0;
    return model_inertia(p) * omega(p) / v;
}

double CALCULATE_PROPELLER_VARIABLEDAMPING(PropellerTable& table, int i) {
    if (!is_row(table, i)) return 0.0;
    PropellerRecord& p = table(i);
    const double vk = p.DYNMAGNIFIERFORKNUCKLEPOINT;
    if (vk == 0.0) return 0.0;
    double zeta = 1.0 / (2.0 * vk);
    // Below the knuckle the damping ratio falls linearly with speed; above it is constant.
    if (p.SPEED * 100.0 / p.MCRSPEED < p.KNUCKLEPOINT)
        zeta = zeta / ((p.KNUCKLEPOINT / 100.0) * p.MCRSPEED) * p.SPEED;
    if (zeta == 0.0 || !std::isfinite(zeta)) {
        // No damping ratio (standstill): an undamped propeller, magnifier 0 by convention.
        p.DYNMAGNIFIER = 0.0;
        return 0.0;
    }
    const double v = 1.0 / (2.0 * zeta);
    p.DYNMAGNIFIER = v;
    return model_inertia(p) * omega(p) / v;
}

void CALCULATE_PROPELLER_ABSDAMPING(PropellerTable& table, int i) {
    if (!is_row(table, i)) return;
    double damping = 0.0;
    switch (table(i).DAMPINGMETHOD) {
        case SCHWANEKE: damping = CALCULATE_PROPELLER_SCHWANECHEDAMPING(table, i); break;
        case ARCHER: damping = CALCULATE_PROPELLER_ARCHERDAMPING(table, i); break;
        case FRAHM: damping = CALCULATE_PROPELLER_FRAHMDAMPING(table, i); break;
        case MANUAL: damping = CALCULATE_PROPELLER_MANUALDAMPING(table, i); break;
        case VARIABLE: damping = CALCULATE_PROPELLER_VARIABLEDAMPING(table, i); break;
        default: break;
    }
    table(i).ABSDAMPING = damping;
}

void CALCULATE_PROPELLER_LOADCASESETTING(PropellerTable& table, int i) {
    if (!is_row(table, i)) return;
    CALCULATE_PROPELLER_ABSDAMPING(table, i);
    PropellerRecord& p = table(i);
    p.BLADEFREQUENCY = p.SPEED * p.NBLADE;
    p.DAMPING = p.ABSDAMPING;
    p.TORQUEAMP1 = p.TORQUE * p.TORQUEPERCENT1;
    p.TORQUEAMP2 = p.TORQUE * p.TORQUEPERCENT2;
}

}  // namespace qm::GLOBAL_PROPELLER
