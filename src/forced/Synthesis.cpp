#include "forced/Synthesis.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cmath>
#include <cstddef>

#include "base/Constants.h"

namespace qm::FORCEDVIBRATION {

SynthesisSources synthesis_sources(const AllKindResults& results, std::vector<double> KindResults::*re,
                                   std::vector<double> KindResults::*im) {
    SynthesisSources sources;
    for (int kind = 0; kind < NKIND; ++kind) {
        const KindResults& r = results[static_cast<std::size_t>(kind)];
        sources[static_cast<std::size_t>(kind)] = {r.NUNIT, r.NORDER, r.OMEGA, r.*re, r.*im};
    }
    return sources;
}

double synthesis_omega_min(const SynthesisSources& sources) {
    bool found = false;
    double omegaMin = 0.0;
    for (int kind = 0; kind < NKIND; ++kind) {
        const SynthesisSource& s = sources[static_cast<std::size_t>(kind)];
        const int nunit = std::min<int>(s.NUNIT, static_cast<int>(s.OMEGA.size()));
        if (nunit <= 0) continue;
        const double w = *std::min_element(s.OMEGA.begin(), s.OMEGA.begin() + nunit);
        const bool always = kind == DIESEL || kind == PROPELLER;
        if (!always && !(w > 0.0)) continue;
        if (!found || w < omegaMin) omegaMin = w;
        found = true;
    }
    return omegaMin;
}

double synthesis_step_angle(int k, int a, double omega, double omegaMin) {
    if (omega == 0.0) return 0.0;
    const double degrees = static_cast<double>(k * a) * omega / omegaMin;
    return degrees * PI / 180.0;
}

double curve_range(const double* curve) {
    double lo = curve[0];
    double hi = curve[0];
    for (int a = 1; a < NSYNSTEP; ++a) {
        if (curve[a] > hi) hi = curve[a];
        if (curve[a] < lo) lo = curve[a];
    }
    return hi - lo;
}

double half_range_sum(const std::array<const double*, NKIND>& curves, bool ISPHASEMODE) {
    double sum = 0.0;
    if (ISPHASEMODE) {
        std::array<double, NSYNSTEP> dieselPropeller{};
        for (int a = 0; a < NSYNSTEP; ++a) dieselPropeller[a] = curves[DIESEL][a] + curves[PROPELLER][a];
        sum = curve_range(dieselPropeller.data());
    } else {
        sum = curve_range(curves[DIESEL]) + curve_range(curves[PROPELLER]);
    }
    for (int kind = GENERATOR; kind < NKIND; ++kind) sum += curve_range(curves[static_cast<std::size_t>(kind)]);
    return 0.5 * sum;
}

double curve_range_lanes(const double* curve) {
    // Four running extremes over every fourth step, all starting from the first value:
    // the largest and smallest value are the ones the step-by-step scan finds (a step that
    // is not a number is passed over by both, a first value that is not a number stays).
    // Only their sign may differ when they are zeros; the scan then has equal extremes and
    // a range of +0.0, which is what equal extremes give here too.
    const double c0 = curve[0];
    double hi[4] = {c0, c0, c0, c0};
    double lo[4] = {c0, c0, c0, c0};
    for (int a = 0; a < NSYNSTEP; a += 4)
        for (int j = 0; j < 4; ++j) {
            const double x = curve[a + j];
            hi[j] = x > hi[j] ? x : hi[j];
            lo[j] = x < lo[j] ? x : lo[j];
        }
    double h = hi[0];
    double l = lo[0];
    for (int j = 1; j < 4; ++j) {
        h = hi[j] > h ? hi[j] : h;
        l = lo[j] < l ? lo[j] : l;
    }
    if (h == l) return c0 - c0;
    return h - l;
}

double half_range_sum_present(const std::array<const double*, NKIND>& curves, bool ISPHASEMODE,
                              const double* zero) {
    const auto of = [&](int kind) { return curves[static_cast<std::size_t>(kind)]; };
    double sum = 0.0;
    if (ISPHASEMODE) {
        std::array<double, NSYNSTEP> dieselPropeller{};
        const double* d = of(DIESEL) ? of(DIESEL) : zero;
        const double* p = of(PROPELLER) ? of(PROPELLER) : zero;
        for (int a = 0; a < NSYNSTEP; ++a) dieselPropeller[a] = d[a] + p[a];
        sum = curve_range_lanes(dieselPropeller.data());
    } else {
        sum = (of(DIESEL) ? curve_range_lanes(of(DIESEL)) : 0.0) +
              (of(PROPELLER) ? curve_range_lanes(of(PROPELLER)) : 0.0);
    }
    // A kind without curve has the range +0.0, and the sum of ranges is never -0.0: adding
    // it would change nothing.
    for (int kind = GENERATOR; kind < NKIND; ++kind)
        if (of(kind)) sum += curve_range_lanes(of(kind));
    return 0.5 * sum;
}

namespace {

// Adds the terms of every unit and order place of one kind at element e (1-based) to curve.
void add_kind_curve(const SynthesisSource& s, int N, int e, double omegaMin, double* curve) {
    for (int u = 1; u <= s.NUNIT; ++u) {
        const double omega = s.OMEGA[static_cast<std::size_t>(u - 1)];
        for (int k = 1; k <= s.NORDER; ++k) {
            const std::size_t i = KindResults::index(u, k, e, N, s.NORDER);
            const double re = s.RESRE[i];
            const double im = s.RESIM[i];
            for (int a = 1; a <= NSYNSTEP; ++a) {
                const double phi = synthesis_step_angle(k, a, omega, omegaMin);
                curve[a - 1] += (re * std::cos(phi) - im * std::sin(phi)) * 2.0;
            }
        }
    }
}

// A kind whose arrays can't hold its units and orders (never the case for the arrays of
// the sweep) is left out rather than read past its end.
bool usable(const SynthesisSource& s, int N) {
    if (s.NUNIT <= 0 || s.NORDER <= 0) return false;
    const std::size_t n = static_cast<std::size_t>(N) * s.NUNIT * s.NORDER;
    return s.OMEGA.size() >= static_cast<std::size_t>(s.NUNIT) && s.RESRE.size() >= n && s.RESIM.size() >= n;
}

// Whole degrees up to this many have their cosine and sine kept (1 MB per thread at most).
constexpr std::size_t DEGREE_TABLE_LIMIT = 1U << 16;

// cos and sin of the step angle of `degrees`, from the whole-degree table when it is one.
void step_cos_sin(SynthesisScratch& w, double degrees, double& c, double& s) {
    if (degrees >= 0.0 && degrees < static_cast<double>(DEGREE_TABLE_LIMIT) && degrees == std::floor(degrees)) {
        const auto d = static_cast<std::size_t>(degrees);
        if (d >= w.degreeCos.size()) {
            const std::size_t from = w.degreeCos.size();
            const std::size_t size = std::min(DEGREE_TABLE_LIMIT, std::max(d + 1, 2 * from + NSYNSTEP));
            w.degreeCos.resize(size);
            w.degreeSin.resize(size);
            for (std::size_t m = from; m < size; ++m) {
                const double phi = static_cast<double>(m) * PI / 180.0;
                w.degreeCos[m] = std::cos(phi);
                w.degreeSin[m] = std::sin(phi);
            }
        }
        c = w.degreeCos[d];
        s = w.degreeSin[d];
        return;
    }
    const double phi = degrees * PI / 180.0;
    c = std::cos(phi);
    s = std::sin(phi);
}

// One element's sum over the order places of one unit, in the order of add_kind_curve:
// curve(a) += (re cos - im sin) * 2 for a = 1..360. Separate arrays, so the steps go
// side by side in vector registers with the same operations per step (each lane rounds as
// the scalar sum does; products are never fused into the subtraction), four at a time on a
// processor with AVX2, else two. The first term of a curve is added to 0.0 as the literal
// sum does, which spares zeroing the curve first.
__attribute__((target_clones("avx2", "default"))) void add_rows(double* __restrict curve, const double* __restrict c,
                                                                const double* __restrict s, double re, double im) {
    for (int a = 0; a < NSYNSTEP; ++a) curve[a] += (re * c[a] - im * s[a]) * 2.0;
}
__attribute__((target_clones("avx2", "default"))) void first_rows(double* __restrict curve,
                                                                  const double* __restrict c,
                                                                  const double* __restrict s, double re, double im) {
    for (int a = 0; a < NSYNSTEP; ++a) curve[a] = 0.0 + (re * c[a] - im * s[a]) * 2.0;
}

// Elements worked on together: the rows of an order place are read once for all of them
// while their curves stay in the first-level cache.
constexpr int ELEMENT_BLOCK = 4;

// All curves of one kind, element e's at curves + (e-1)*360: the tabled add_kind_curve of
// every element.
void kind_curves_tabled(const SynthesisSource& src, int N, SynthesisScratch& w, std::size_t firstSlot,
                        double omegaMin, double* curves) {
    for (int e0 = 1; e0 <= N; e0 += ELEMENT_BLOCK) {
        const int e1 = std::min(N, e0 + ELEMENT_BLOCK - 1);
        for (int u = 1; u <= src.NUNIT; ++u) {
            const StepAngleRows& rows = step_angle_rows(w, firstSlot + static_cast<std::size_t>(u - 1),
                                                        src.OMEGA[static_cast<std::size_t>(u - 1)], omegaMin,
                                                        src.NORDER);
            for (int k = 1; k <= src.NORDER; ++k) {
                const std::size_t row = static_cast<std::size_t>(k - 1) * NSYNSTEP;
                const bool first = u == 1 && k == 1;
                for (int e = e0; e <= e1; ++e) {
                    const std::size_t i = KindResults::index(u, k, e, N, src.NORDER);
                    (first ? first_rows : add_rows)(curves + static_cast<std::size_t>(e - 1) * NSYNSTEP,
                                                    rows.c.data() + row, rows.s.data() + row, src.RESRE[i],
                                                    src.RESIM[i]);
                }
            }
        }
    }
}

void synthesis_literal(int N, const SynthesisSources& sources, bool ISPHASEMODE, std::vector<double>& SYNRESM,
                       KindCurves& RESANGLEBASED, bool keepCurves) {
    const double omegaMin = synthesis_omega_min(sources);
    std::array<std::array<double, NSYNSTEP>, NKIND> curve{};
    for (int e = 1; e <= N; ++e) {
        for (int kind = 0; kind < NKIND; ++kind) {
            auto& c = curve[static_cast<std::size_t>(kind)];
            c.fill(0.0);
            const SynthesisSource& s = sources[static_cast<std::size_t>(kind)];
            if (usable(s, N)) add_kind_curve(s, N, e, omegaMin, c.data());
        }
        SYNRESM[static_cast<std::size_t>(e - 1)] =
            half_range_sum({curve[0].data(), curve[1].data(), curve[2].data(), curve[3].data(), curve[4].data(),
                            curve[5].data()},
                           ISPHASEMODE);
        if (keepCurves) {
            const std::size_t at = static_cast<std::size_t>(e - 1) * NSYNSTEP;
            for (int kind = 0; kind < NKIND; ++kind)
                std::copy(curve[static_cast<std::size_t>(kind)].begin(), curve[static_cast<std::size_t>(kind)].end(),
                          RESANGLEBASED[static_cast<std::size_t>(kind)].begin() + static_cast<std::ptrdiff_t>(at));
        }
    }
}

// Kind by kind, all elements at once, each into its own curve (the caller's when it keeps
// them); then per element the half range sum of half_range_sum, in which a kind without
// units adds the range 0.0 of its zero curve.
void synthesis_tabled(int N, const SynthesisSources& sources, bool ISPHASEMODE, std::vector<double>& SYNRESM,
                      KindCurves& RESANGLEBASED, bool keepCurves, SynthesisScratch& w) {
    const double omegaMin = synthesis_omega_min(sources);
    std::array<const double*, NKIND> curves{};
    std::size_t slot = 0;
    for (int kind = 0; kind < NKIND; ++kind) {
        const auto k = static_cast<std::size_t>(kind);
        const SynthesisSource& s = sources[k];
        if (!usable(s, N)) continue;
        double* out = nullptr;
        if (keepCurves) {
            out = RESANGLEBASED[k].data();
        } else {
            w.curves[k].resize(static_cast<std::size_t>(N) * NSYNSTEP);
            out = w.curves[k].data();
        }
        kind_curves_tabled(s, N, w, slot, omegaMin, out);
        curves[k] = out;
        slot += static_cast<std::size_t>(s.NUNIT);
    }
    for (int e = 1; e <= N; ++e) {
        const std::size_t at = static_cast<std::size_t>(e - 1) * NSYNSTEP;
        std::array<const double*, NKIND> of{};
        for (std::size_t k = 0; k < NKIND; ++k) of[k] = curves[k] ? curves[k] + at : nullptr;
        SYNRESM[static_cast<std::size_t>(e - 1)] = half_range_sum_present(of, ISPHASEMODE, w.zero.data());
    }
}

}  // namespace

const StepAngleRows& step_angle_rows(SynthesisScratch& w, std::size_t slot, double omega, double omegaMin,
                                     int NORDER) {
    if (w.rows.size() <= slot) w.rows.resize(slot + 1);
    StepAngleRows& r = w.rows[slot];
    const auto om = std::bit_cast<std::uint64_t>(omega);
    const auto omMin = std::bit_cast<std::uint64_t>(omegaMin);
    if (r.NORDER == NORDER && r.omega == om && r.omegaMin == omMin) return r;
    r.omega = om;
    r.omegaMin = omMin;
    r.NORDER = NORDER;
    const std::size_t size = static_cast<std::size_t>(std::max(NORDER, 0)) * NSYNSTEP;
    r.c.resize(size);
    r.s.resize(size);
    if (omega == 0.0) {
        // A unit at standstill: every step angle is 0.0.
        std::fill(r.c.begin(), r.c.end(), std::cos(0.0));
        std::fill(r.s.begin(), r.s.end(), std::sin(0.0));
        return r;
    }
    // The angle depends on k and a only through k*a: each product is worked out once.
    const std::size_t products = size + 1;
    if (w.productDone.size() < products) {
        w.productCos.resize(products);
        w.productSin.resize(products);
        w.productDone.resize(products);
    }
    std::fill(w.productDone.begin(), w.productDone.begin() + static_cast<std::ptrdiff_t>(products), 0);
    for (int k = 1; k <= NORDER; ++k)
        for (int a = 1; a <= NSYNSTEP; ++a) {
            const auto m = static_cast<std::size_t>(k) * static_cast<std::size_t>(a);
            if (!w.productDone[m]) {
                const double degrees = static_cast<double>(k * a) * omega / omegaMin;
                step_cos_sin(w, degrees, w.productCos[m], w.productSin[m]);
                w.productDone[m] = 1;
            }
            const std::size_t at = static_cast<std::size_t>(k - 1) * NSYNSTEP + static_cast<std::size_t>(a - 1);
            r.c[at] = w.productCos[m];
            r.s[at] = w.productSin[m];
        }
    return r;
}

void SINGLELOADCASESYNTHESIS(int N, const SynthesisSources& sources, bool ISPHASEMODE, std::vector<double>& SYNRESM,
                             KindCurves& RESANGLEBASED, bool keep, bool HASDIESEL, bool OUTPUTANGLEBASEDRESULTS,
                             SolvePath path, SynthesisScratch* scratch) {
    N = std::max(N, 0);
    SYNRESM.resize(static_cast<std::size_t>(N));
    const bool keepCurves = (OUTPUTANGLEBASEDRESULTS && HASDIESEL) || keep;
    for (int kind = 0; kind < NKIND; ++kind) {
        auto& curves = RESANGLEBASED[static_cast<std::size_t>(kind)];
        if (!keepCurves) {
            curves.clear();
        } else if (path == SolvePath::FAST && usable(sources[static_cast<std::size_t>(kind)], N)) {
            curves.resize(static_cast<std::size_t>(N) * NSYNSTEP);  // every value is written
        } else {
            curves.assign(static_cast<std::size_t>(N) * NSYNSTEP, 0.0);
        }
    }
    if (path == SolvePath::LITERAL) {
        synthesis_literal(N, sources, ISPHASEMODE, SYNRESM, RESANGLEBASED, keepCurves);
        return;
    }
    SynthesisScratch own;
    synthesis_tabled(N, sources, ISPHASEMODE, SYNRESM, RESANGLEBASED, keepCurves, scratch ? *scratch : own);
}

}  // namespace qm::FORCEDVIBRATION
