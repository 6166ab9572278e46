#include "forced/Synthesis.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cmath>
#include <cstddef>
#include <deque>

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

// The cosines and sines of the step angles of one unit speed: the angle of order place k and
// step a depends on the product k*a only, so entry k*a serves every pair with that product.
// The values are those synthesis_step_angle gives, bit for bit.
struct AngleTable {
    double omega = 0.0;
    double omegaMin = 0.0;
    int NORDER = 0;
    std::vector<double> c, s;
};

// Per thread, the tables of the speeds met lately: within a load case every element and all
// six quantities use the same few speeds. Pure values; entries stay in place while a call
// uses them (a deque keeps its elements where they are on push_back), and the cache is
// emptied only between calls when it has grown.
thread_local std::deque<AngleTable> angle_tables;

const AngleTable& angle_table(double omega, double omegaMin, int NORDER) {
    for (const AngleTable& t : angle_tables)
        if (t.NORDER >= NORDER && std::bit_cast<std::uint64_t>(t.omega) == std::bit_cast<std::uint64_t>(omega) &&
            std::bit_cast<std::uint64_t>(t.omegaMin) == std::bit_cast<std::uint64_t>(omegaMin))
            return t;
    AngleTable& t = angle_tables.emplace_back();
    t.omega = omega;
    t.omegaMin = omegaMin;
    t.NORDER = NORDER;
    const std::size_t size = static_cast<std::size_t>(NORDER) * NSYNSTEP + 1;
    t.c.assign(size, 0.0);
    t.s.assign(size, 0.0);
    std::vector<bool> done(size, false);
    for (int k = 1; k <= NORDER; ++k)
        for (int a = 1; a <= NSYNSTEP; ++a) {
            const auto m = static_cast<std::size_t>(k) * static_cast<std::size_t>(a);
            if (done[m]) continue;
            const double phi = synthesis_step_angle(k, a, omega, omegaMin);
            t.c[m] = std::cos(phi);
            t.s[m] = std::sin(phi);
            done[m] = true;
        }
    return t;
}

// add_kind_curve with the angles from the tables: the same terms in the same order.
void add_kind_curve_tabled(const SynthesisSource& s, int N, int e, const std::vector<const AngleTable*>& tables,
                           double* curve) {
    for (int u = 1; u <= s.NUNIT; ++u) {
        const AngleTable& t = *tables[static_cast<std::size_t>(u - 1)];
        for (int k = 1; k <= s.NORDER; ++k) {
            const std::size_t i = KindResults::index(u, k, e, N, s.NORDER);
            const double re = s.RESRE[i];
            const double im = s.RESIM[i];
            const double* c = t.c.data();
            const double* sn = t.s.data();
            for (int a = 1; a <= NSYNSTEP; ++a) {
                const auto m = static_cast<std::size_t>(k) * static_cast<std::size_t>(a);
                curve[a - 1] += (re * c[m] - im * sn[m]) * 2.0;
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

}  // namespace

void SINGLELOADCASESYNTHESIS(int N, const SynthesisSources& sources, bool ISPHASEMODE, std::vector<double>& SYNRESM,
                             KindCurves& RESANGLEBASED, bool keep, bool HASDIESEL, bool OUTPUTANGLEBASEDRESULTS,
                             SolvePath path) {
    N = std::max(N, 0);
    SYNRESM.assign(static_cast<std::size_t>(N), 0.0);
    const bool keepCurves = (OUTPUTANGLEBASEDRESULTS && HASDIESEL) || keep;
    for (auto& curves : RESANGLEBASED) {
        if (keepCurves)
            curves.assign(static_cast<std::size_t>(N) * NSYNSTEP, 0.0);
        else
            curves.clear();
    }

    const double omegaMin = synthesis_omega_min(sources);
    const bool tabled = path == SolvePath::FAST;
    std::array<std::vector<const AngleTable*>, NKIND> tables;
    if (tabled) {
        if (angle_tables.size() > 64) angle_tables.clear();
        for (int kind = 0; kind < NKIND; ++kind) {
            const SynthesisSource& s = sources[static_cast<std::size_t>(kind)];
            if (!usable(s, N)) continue;
            for (int u = 1; u <= s.NUNIT; ++u)
                tables[static_cast<std::size_t>(kind)].push_back(
                    &angle_table(s.OMEGA[static_cast<std::size_t>(u - 1)], omegaMin, s.NORDER));
        }
    }
    std::array<std::array<double, NSYNSTEP>, NKIND> curve{};
    for (int e = 1; e <= N; ++e) {
        for (int kind = 0; kind < NKIND; ++kind) {
            auto& c = curve[static_cast<std::size_t>(kind)];
            c.fill(0.0);
            const SynthesisSource& s = sources[static_cast<std::size_t>(kind)];
            if (!usable(s, N)) continue;
            if (tabled)
                add_kind_curve_tabled(s, N, e, tables[static_cast<std::size_t>(kind)], c.data());
            else
                add_kind_curve(s, N, e, omegaMin, c.data());
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

}  // namespace qm::FORCEDVIBRATION
