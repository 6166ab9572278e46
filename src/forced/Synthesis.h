// Synthesis of one load case: the value an inertia or a shaft really sees when the orders of
// every source unit add up with their phases.
//
// For each element the periodic curve of each source kind is rebuilt on a grid of 360
// steps, one degree of the period of the slowest source (OMEGAMIN): order place k of unit u
// runs at k * OMEGA(u), and its term at step a is 2 (re cos phi - im sin phi) with
// phi = (k a) * OMEGA(u) / OMEGAMIN degrees. The synthesized value is half the sum of the
// ranges of the six kind curves; in phase mode the diesel and propeller curves are added
// step by step before their range is taken.
//
// Scratch curves live in the call or in a scratch the caller owns, so two runs may
// synthesize at the same time.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "forced/SolvePath.h"
#include "forced/KindResults.h"

namespace qm::FORCEDVIBRATION {

constexpr int NSYNSTEP = 360;  // steps of a synthesized curve

// One source kind as the synthesis reads it: element e of order place k of unit u at
// (u-1)*N*NORDER + (k-1)*N + e (1-based) in RESRE and RESIM.
struct SynthesisSource {
    int NUNIT = 0;
    int NORDER = 0;
    std::span<const double> OMEGA;  // base frequency of each unit, rad/s
    std::span<const double> RESRE;
    std::span<const double> RESIM;
};
using SynthesisSources = std::array<SynthesisSource, NKIND>;

// The six kind curves of all elements, curve element (e, a) at (e-1)*360 + a (1-based).
using KindCurves = std::array<std::vector<double>, NKIND>;

// The real and imaginary arrays of one quantity (XR/XI, SHAFTTORQUERE/SHAFTTORQUEIM, ...)
// of every kind, with the kind's units, orders and OMEGA.
SynthesisSources synthesis_sources(const AllKindResults& results, std::vector<double> KindResults::*re,
                                   std::vector<double> KindResults::*im);

// The lowest base frequency of the load case. Diesel engines and propellers take part
// whenever they have units; the other kinds only when the smallest OMEGA of their units is
// above 0.0, so a unit without orders keeps its whole kind out. 0.0 when no kind takes part.
double synthesis_omega_min(const SynthesisSources& sources);

// Angle of step a (1-based) of order place k of a unit at omega, in radians. A unit at
// standstill (omega 0.0) has a constant curve, also when OMEGAMIN is 0.0 itself, so a load
// case in which every unit stands still synthesizes to 0.0 without dividing by zero.
double synthesis_step_angle(int k, int a, double omega, double omegaMin);

// The cosines and sines of the step angles of one unit speed, a row of 360 per order place:
// c[(k-1)*360 + a-1] = cos(synthesis_step_angle(k, a, omega, omegaMin)), s likewise.
struct StepAngleRows {
    std::uint64_t omega = 0, omegaMin = 0;  // exact bits of the speeds the rows belong to
    int NORDER = -1;
    std::vector<double> c, s;
};

// Working storage of the fast synthesis, kept by the caller from call to call (one per
// thread). Rows are found again by the exact bits of the speeds, so the six quantities of a
// load case share them and what a scratch has seen never changes a result.
struct SynthesisScratch {
    // cos and sin of whole degrees d (the angle d * pi / 180, as synthesis_step_angle forms
    // it): most step angles are whole degrees, since a unit's speed over the slowest one is
    // mostly a whole number.
    std::vector<double> degreeCos, degreeSin;
    std::vector<StepAngleRows> rows;                // per unit, kinds one after the other
    std::vector<double> productCos, productSin;     // per product k*a while rows are made
    std::vector<std::uint8_t> productDone;
    std::array<std::vector<double>, NKIND> curves;  // N*360 per kind when the caller keeps none
    std::array<double, NSYNSTEP> zero{};            // the curve of a kind without units
};

// The rows of a unit at omega, made anew only when the speeds or the order count change.
// The values are those of synthesis_step_angle's angle, bit for bit.
const StepAngleRows& step_angle_rows(SynthesisScratch& scratch, std::size_t slot, double omega, double omegaMin,
                                     int NORDER);

// Largest minus smallest of the 360 values starting at curve.
double curve_range(const double* curve);

// 0.5 times the sum of the ranges of the six kind curves (one per kind, 360 values each);
// in phase mode the diesel and propeller curves are added step by step first.
double half_range_sum(const std::array<const double*, NKIND>& curves, bool ISPHASEMODE);

// curve_range by four interleaved scans: the same value, bit for bit, in a quarter of the
// dependent steps.
double curve_range_lanes(const double* curve);

// half_range_sum where a kind without units has nullptr instead of a curve of zeros (zero
// is such a curve, for the phase sum): the same value, without scanning those kinds.
double half_range_sum_present(const std::array<const double*, NKIND>& curves, bool ISPHASEMODE,
                              const double* zero);

// SYNRESM gets N values. The six kind curves of every element go to RESANGLEBASED (each
// N*360, diesel first) when `keep` is set or when angle-based results are asked for in a
// model with a diesel engine; otherwise RESANGLEBASED is left empty. The fast path takes
// the cosines and sines from a table per unit speed instead of computing them per element;
// the values and the order of summation are the same, and so are the results, bit for bit.
// Without a scratch the fast path uses one of its own.
void SINGLELOADCASESYNTHESIS(int N, const SynthesisSources& sources, bool ISPHASEMODE, std::vector<double>& SYNRESM,
                             KindCurves& RESANGLEBASED, bool keep, bool HASDIESEL, bool OUTPUTANGLEBASEDRESULTS,
                             SolvePath path = SolvePath::FAST, SynthesisScratch* scratch = nullptr);

}  // namespace qm::FORCEDVIBRATION
