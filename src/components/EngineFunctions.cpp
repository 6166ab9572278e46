#include "components/EngineFunctions.h"

#include <algorithm>
#include <cmath>

#include "base/Constants.h"

namespace qm::ENGINE_FUNCTIONS {

// In IEEE arithmetic: at standstill with power the ratio is infinite and the cap makes it
// 1.1; zero power at standstill has no ratio (NaN), which passes through the laws.
double torque_ratio(double P0, double N0, double P, double N) {
    const double r = (P / N) / (P0 / N0);
    return r > TORQUERATIO_MAX ? TORQUERATIO_MAX : r;
}

double CALCULATE_MEP(double power, double speed, double bore, int nStroke, double stroke) {
    // Working cycles per minute divide the speed: 60 for a two-stroke, 120 for a
    // four-stroke engine, formed in single precision.
    const double cycle = static_cast<double>(60.0F * static_cast<float>(nStroke) * 0.5F);
    return power / (speed / cycle * PI_SINGLE * std::pow(bore, 2) * 0.25 * stroke);
}

double CALCULATE_MIP(double /*mepNow*/, double mep, double load, double me, double mipMax) {
    const double a = mep / me;
    const double b = (1.0 - me) * mep;
    return std::min(b + load * (a - b), mipMax);
}

double CALCULATE_MIP_MAX(double mep, double me, double mipLimit) { return mipLimit * (mep / me); }

double CALCULATE_PINLET(double P0, double N0, double P, double N, double pInlet, int nStroke) {
    const double r = torque_ratio(P0, N0, P, N);
    const double k = nStroke == 2 ? PINLET_SLOPE_TWOSTROKE : PINLET_SLOPE_FOURSTROKE;
    // The 1.0 is one pascal: the law is written in absolute pressure.
    const double p = pInlet - (pInlet - 1.0) * k * (1.0 - r);
    return std::max(p, PINLET_MIN);
}

double CALCULATE_PCOMP(double P0, double N0, double P, double N, double pComp) {
    const double r = torque_ratio(P0, N0, P, N);
    double p = pComp - pComp * PCOMP_SLOPE * (1.0 - r);
    p = std::max(p, PRESSURE_FLOOR * pComp);
    return std::min(p, pComp);
}

double CALCULATE_PMAX(double P0, double N0, double P, double N, double pMax, double pCompNow,
                      int nStroke) {
    const double r = torque_ratio(P0, N0, P, N);
    const double k = nStroke == 2 ? PMAX_SLOPE_TWOSTROKE : PMAX_SLOPE_FOURSTROKE;
    double p = pMax - pMax * k * (1.0 - r);
    p = std::max(p, PMAX_OVER_PCOMP * pCompNow);
    p = std::max(p, PRESSURE_FLOOR * pMax);
    return std::min(p, pMax);
}

}  // namespace qm::ENGINE_FUNCTIONS
