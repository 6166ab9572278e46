// Module ENGINE_FUNCTIONS: the pressure laws of a diesel engine cylinder.
//
// Mean effective and indicated pressure from power and speed, and how charge-air,
// compression and maximum pressure follow the load away from the maximum continuous
// rating (MCR). The engine model of a load case and the single-cylinder pressure curve
// both use them.
//
// The load laws work on the torque ratio r = (P / N) / (P0 / N0), where P0, N0 are the MCR
// power per cylinder and MCR speed and P, N those of the operating point; r is capped at
// 1.1. The model constants are single-precision numbers widened to double; they are
// written with all their digits because they decide the last digits of the results.
#pragma once

namespace qm::ENGINE_FUNCTIONS {

constexpr double TORQUERATIO_MAX = 1.100000023841858;        // upper limit of r
constexpr double PINLET_SLOPE_TWOSTROKE = 1.2400000095367432;
constexpr double PINLET_SLOPE_FOURSTROKE = 1.2799999713897705;
constexpr double PINLET_MIN = 100000.0;                      // Pa, never below one bar
constexpr double PCOMP_SLOPE = 1.3199999332427979;
constexpr double PRESSURE_FLOOR = 0.30000001192092896;       // share of the MCR pressure
constexpr double PMAX_SLOPE_TWOSTROKE = 0.6399999856948853;
constexpr double PMAX_SLOPE_FOURSTROKE = 0.800000011920929;
constexpr double PMAX_OVER_PCOMP = 1.100000023841858;        // firing lifts pmax above pcomp

// Torque ratio of the operating point to the rating, capped at TORQUERATIO_MAX.
// Where it cannot be formed as a finite number (zero speed, zero rated power or zero
// rated speed) the engine is taken as carrying no load: r = 0.
double torque_ratio(double P0, double N0, double P, double N);

// Mean effective pressure, Pa: power / (speed / (60 * nStroke * 0.5) * pi * bore^2 * 0.25 * stroke)
// with the single-precision pi; the cycles-per-minute divisor is worked in single precision.
// Returns 0.0 when the denominator vanishes (zero speed, bore, stroke or nStroke).
double CALCULATE_MEP(double power, double speed, double bore, int nStroke, double stroke);

// Mean indicated pressure, Pa, interpolated between friction-only ((1 - me) * mep) and the
// full indicated pressure (mep / me) by the load, and capped at mipMax. mepNow is part
// of the calling convention and does not enter the result.
double CALCULATE_MIP(double mepNow, double mep, double load, double me, double mipMax);

// Upper limit of the mean indicated pressure: mipLimit * (mep / me).
double CALCULATE_MIP_MAX(double mep, double me, double mipLimit);

// Charge-air (inlet) pressure at the operating point, Pa; at least PINLET_MIN, and
// without an upper limit, so it can exceed the MCR value above full torque.
double CALCULATE_PINLET(double P0, double N0, double P, double N, double pInlet, int nStroke);

// Compression pressure at the operating point, Pa, between 0.3 and 1.0 times pComp.
double CALCULATE_PCOMP(double P0, double N0, double P, double N, double pComp);

// Maximum cylinder pressure at the operating point, Pa: the load law, then at least
// 1.1 * pCompNow, then at least 0.3 * pMax, then at most pMax, in that order.
double CALCULATE_PMAX(double P0, double N0, double P, double N, double pMax, double pCompNow,
                      int nStroke);

}  // namespace qm::ENGINE_FUNCTIONS
