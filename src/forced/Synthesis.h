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
// All scratch curves live in the call, so two runs may synthesize at the same time.
#pragma once

#include <array>
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

// Largest minus smallest of the 360 values starting at curve.
double curve_range(const double* curve);

// 0.5 times the sum of the ranges of the six kind curves (one per kind, 360 values each);
// in phase mode the diesel and propeller curves are added step by step first.
double half_range_sum(const std::array<const double*, NKIND>& curves, bool ISPHASEMODE);

// SYNRESM gets N values. The six kind curves of every element go to RESANGLEBASED (each
// N*360, diesel first) when `keep` is set or when angle-based results are asked for in a
// model with a diesel engine; otherwise RESANGLEBASED is left empty. The fast path takes
// the cosines and sines from a table per unit speed instead of computing them per element;
// the values and the order of summation are the same, and so are the results, bit for bit.
void SINGLELOADCASESYNTHESIS(int N, const SynthesisSources& sources, bool ISPHASEMODE, std::vector<double>& SYNRESM,
                             KindCurves& RESANGLEBASED, bool keep, bool HASDIESEL, bool OUTPUTANGLEBASEDRESULTS,
                             SolvePath path = SolvePath::FAST);

}  // namespace qm::FORCEDVIBRATION
