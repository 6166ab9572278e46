#include "excitation/TheoreticalPressure.h"

#include <cmath>
#include <vector>

#include "base/Constants.h"

namespace qm::THEORETICALPRESSURE {

namespace {

// Model constants, single-precision values held in doubles.
constexpr double ATMOSPHERE = 100000.0;                   // Pa added to gauge pressures
constexpr double GAS_CONSTANT = 286.7200012207031;        // J/(kg K), charge air
constexpr double CHARGE_HEATING = 50.0;                   // K the charge warms in the cylinder
constexpr double CV_SLOPE = 0.21770000457763672;          // J/(kg K^2)
constexpr double CV_BASE = 921.0999755859375;             // J/(kg K)
constexpr double VIBE_A = 6.900000095367432;              // Vibe efficiency parameter
constexpr double TOLERANCE_TWO_STROKE = 0.019999999552965164;
constexpr double TOLERANCE_FOUR_STROKE = 0.004999999888241291;
constexpr double EXPONENT_DROP = 0.05999999865889549;     // expansion below compression
constexpr double MISFIRING_EXPONENT = 1.3600000143051147;
constexpr double MISFIRING_CAP = 0.8999999761581421;      // of the compression pressure
constexpr double BLOWDOWN_KNEE = 0.4000000059604645;
constexpr double EXHAUST_EXPONENT = 0.16699999570846558;
constexpr double FORM_GAIN = 0.6000000238418579;
constexpr double FORM_FLOOR = 0.009999999776482582;
constexpr double DURATION_FLOOR = 5.0;                    // degrees

// Crank angles arrive as reals and are cut towards zero. Values beyond any crank angle
// are held to a bound so that sums and differences of them stay within int.
int cut_angle(double angle) {
    constexpr double bound = 1.0e6;
    if (std::isnan(angle)) return 0;
    if (angle > bound) return static_cast<int>(bound);
    if (angle < -bound) return -static_cast<int>(bound);
    return static_cast<int>(angle);
}

// Greatest value of curve(1..n); NaN entries are passed over unless all are NaN.
double greatest(const double* curve, int n) {
    double pm = std::nan("");
    for (int j = 0; j < n; ++j) {
        if (std::isnan(curve[j])) continue;
        if (std::isnan(pm) || curve[j] > pm) pm = curve[j];
    }
    return pm;
}

// What the cycle iterations share: the fixed data of the call and the running values that
// one pass hands to the next.
struct Cycle {
    // fixed
    int NSTROKE = 4;
    std::vector<double> VOLTABLE;  // VOL(1..360 or 720), m^3 swept from top dead centre
    double Vc = 0.0;               // clearance volume, m^3
    double Vb = 0.0;               // volume swept at bottom dead centre
    double PCHARGEAIR = 0.0;
    double PMAX = 0.0;             // absolute
    double m = 0.0;                // charge mass, kg
    double n1 = 0.0;               // compression exponent
    double n2 = 0.0;               // expansion exponent
    double TE = 0.0;
    double Wt = 0.0;               // wanted indicated work per cycle, J
    double tol = 0.0;
    int EXHAUSTSTART = 0;
    int INLETSTART = 0;
    int INLETCLOSE = 0;
    // running
    double Q = 0.0;                // heat released per cycle, J
    double DELTA = 0.0;            // combustion duration, degrees
    int IGN = 0;                   // ignition angle, degrees
    double FORM = 0.0;             // Vibe form factor
    double pprev = 0.0;
    double Vprev = 0.0;
    double T = 0.0;                // charge temperature, K

    double VOL(int i) const { return VOLTABLE[static_cast<std::size_t>(i - 1)]; }
};

// Compression, combustion, expansion, blow-down, exhaust and intake of a four-stroke
// cycle over crank angles -180..539. Returns the indicated work of the pass.
double four_stroke_pass(Cycle& c, double* CYLPRESSURES, int counter) {
    auto CYL = [&](int j) -> double& { return CYLPRESSURES[j - 1]; };
    const double R = GAS_CONSTANT;
    const double PC = c.PCHARGEAIR;
    double W = 0.0;
    double Vl = 0.0;

    for (int a = -180; a <= 0; ++a) {
        const double V = c.VOL(361 + a);
        double p;
        if (a < c.IGN) {
            p = PC * std::pow((c.Vb + c.Vc) / (V + c.Vc), c.n1);
            c.T = p * (V + c.Vc) / (c.m * R);
        } else {
            CYLTEMP(a, c.IGN, c.DELTA, c.FORM, c.Vprev, V, c.T, c.pprev, c.m, c.Q, c.T);
            p = c.T * R * c.m / (V + c.Vc);
        }
        W += ((c.pprev + p) * 0.5) * (V - c.Vprev);
        c.Vprev = V;
        Vl = V;
        CYL(181 + a) = p;
        c.pprev = p;
    }

    double pe = 0.0, pk = 0.0, sl = 0.0, Vx = 0.0, px = 0.0;
    for (int a = 1; a <= 539; ++a) {
        const double V = c.VOL(1 + a);
        double p;
        // Exhaust stroke: from the blow-down pressure down towards the charge pressure.
        auto exhaust_stroke = [&] {
            return pk - (pk - PC) * std::pow(std::fabs(c.Vb - V) / c.Vb, EXHAUST_EXPONENT);
        };
        if (a <= c.IGN + c.DELTA) {
            CYLTEMP(a, c.IGN, c.DELTA, c.FORM, c.Vprev, V, c.T, c.pprev, c.m, c.Q, c.T);
            p = c.T * R * c.m / (V + c.Vc);
            pe = p;
            Vl = V;
        } else if (a <= c.EXHAUSTSTART) {
            p = pe * std::pow((Vl + c.Vc) / (V + c.Vc), c.n2);
            // Slope of the polytrope, which the blow-down curve starts from.
            sl = -(c.n2 * p * std::pow(Vl + c.Vc, c.n2)) / std::pow(V + c.Vc, c.n2 + 1.0);
            pk = BLOWDOWN_KNEE * (p - PC) + PC;
            Vx = V;
            px = p;
        } else if (a <= 180) {
            // Blow-down from the exhaust opening to bottom dead centre, never above the
            // expansion polytrope.
            const double rho = std::fabs((c.Vb - V) / (c.Vb - Vx));
            const double e = (-0.5 - sl * (c.Vb - Vx) / (px - pk)) * rho + 0.5;
            p = pk + (px - pk) * std::pow(rho, e);
            const double pp = pe * std::pow((Vl + c.Vc) / (V + c.Vc), c.n2);
            if (pp < p) p = pp;
            if (std::isnan(p) && counter == MAXIMUM_PASSES - 1) p = exhaust_stroke();
        } else if (a <= 360) {
            p = exhaust_stroke();
        } else {
            p = PC;
        }
        W += ((c.pprev + p) * 0.5) * (V - c.Vprev);
        CYL(181 + a) = p;
        c.pprev = p;
        c.Vprev = V;
    }
    return W;
}

// Scavenging, compression, combustion, expansion and port scavenging of a two-stroke
// cycle over crank angles -180..179. Returns the indicated work of the pass.
double two_stroke_pass(Cycle& c, double* CYLPRESSURES, double Vo) {
    auto CYL = [&](int j) -> double& { return CYLPRESSURES[j - 1]; };
    const double R = GAS_CONSTANT;
    const double PC = c.PCHARGEAIR;
    double W = 0.0;
    double V1 = c.VOL(1 + c.INLETCLOSE);
    double Vl = 0.0;

    for (int a = -180; a <= 0; ++a) {
        const double V = c.VOL(360 + a);
        double p;
        if (a < c.INLETCLOSE - 360) {
            // Ports still open: the cylinder stands at charge pressure.
            p = PC;
            V1 = c.VOL(361 + a);
        } else if (a < c.IGN) {
            p = PC * std::pow((V1 + c.Vc) / (V + c.Vc), c.n1);
            c.T = p * (V + c.Vc) / (c.m * R);
        } else {
            CYLTEMP(a, c.IGN, c.DELTA, c.FORM, c.Vprev, V, c.T, c.pprev, c.m, c.Q, c.T);
            p = c.T * R * c.m / (V + c.Vc);
        }
        W += ((c.pprev + p) * 0.5) * (V - c.Vprev);
        c.Vprev = V;
        Vl = V;
        CYL(181 + a) = p;
        c.pprev = p;
    }

    double pe = 0.0, Vx = 0.0, px = 0.0;
    for (int a = 1; a <= 179; ++a) {
        const double V = c.VOL(1 + a);
        double p;
        if (a <= c.IGN + c.DELTA) {
            CYLTEMP(a, c.IGN, c.DELTA, c.FORM, c.Vprev, V, c.T, c.pprev, c.m, c.Q, c.T);
            p = c.T * R * c.m / (V + c.Vc);
            pe = p;
            Vl = V;
        } else if (a <= c.EXHAUSTSTART) {
            p = pe * std::pow((Vl + c.Vc) / (V + c.Vc), c.n2);
            Vx = V;
            px = p;
        } else if (a <= c.INLETSTART) {
            // Exhaust open, ports closed: a half cosine from the expansion pressure down
            // to the charge pressure at the opening of the ports.
            p = px * 0.5 + PC * 0.5 + ((px - PC) * 0.5) * std::cos(PI_SINGLE * (V - Vx) / (Vo - Vx));
        } else {
            p = PC;
        }
        W += ((c.pprev + p) * 0.5) * (V - c.Vprev);
        CYL(181 + a) = p;
        c.pprev = p;
        c.Vprev = V;
    }
    return W;
}

enum class PassOutcome { next_pass, converged, gave_up };

// Bookkeeping after a pass: correct the heat for the work missed, and, while the maximum
// pressure is off, the form factor, the combustion duration and the ignition angle.
PassOutcome after_pass(Cycle& c, double W, int& counter, const double* CYLPRESSURES) {
    const bool four_stroke = c.NSTROKE == 4;
    counter += 1;
    if (counter == MAXIMUM_PASSES) return PassOutcome::gave_up;

    const bool power_converged = std::fabs(W - c.Wt) / c.Wt < c.tol;
    if (four_stroke && counter > 10) {
        // Late passes correct by ever smaller steps to damp an oscillation.
        c.Q = c.Q - ((W - c.Wt) / static_cast<double>(counter - 10)) / c.TE;
    } else {
        c.Q = c.Q - (W - c.Wt) / c.TE;
    }
    if (counter == 1 && !power_converged) return PassOutcome::next_pass;

    const double pm = greatest(CYLPRESSURES, four_stroke ? 720 : 360);
    const double dp = pm - c.PMAX;
    const bool pressure_converged = std::fabs(dp) / c.PMAX < c.tol;
    if (!pressure_converged) {
        c.FORM += ((dp / c.PMAX) * 10.0 * FORM_GAIN) / static_cast<double>(counter);
        if (c.FORM <= FORM_FLOOR) c.FORM = FORM_FLOOR;
        const bool adjust_duration =
            four_stroke ? (4 < counter && counter < 15) : (5 < counter && counter < 15);
        if (adjust_duration) c.DELTA = c.DELTA * (dp / c.PMAX + 1.0);
        if (c.DELTA < DURATION_FLOOR) c.DELTA = DURATION_FLOOR;
        if (static_cast<double>(c.IGN) + c.DELTA < static_cast<double>(std::abs(c.IGN))) {
            c.IGN = cut_angle(static_cast<double>(c.IGN) * 0.5);
        }
    }
    return power_converged && pressure_converged ? PassOutcome::converged
                                                 : PassOutcome::next_pass;
}

// Compression and expansion by one polytrope without combustion, held below 90 % of the
// compression pressure; a four-stroke cylinder stays at charge pressure after bottom dead
// centre.
void misfiring_curve(const Cycle& c, double V1, double PCOMP, double* CYLPRESSURES) {
    const bool two_stroke = c.NSTROKE == 2;
    const int last = two_stroke ? 179 : 539;
    const double Vt = two_stroke ? c.VOL(360) : c.VOL(361);
    double h = 0.0;  // pressure at firing top dead centre
    for (int a = -180; a <= last; ++a) {
        double p;
        if (a <= 0) {
            const double V = two_stroke ? c.VOL(360 + a) : c.VOL(361 + a);
            p = c.PCHARGEAIR * std::pow((V1 + c.Vc) / (V + c.Vc), MISFIRING_EXPONENT);
        } else {
            p = h * std::pow((Vt + c.Vc) / (c.VOL(1 + a) + c.Vc), MISFIRING_EXPONENT);
        }
        if (!two_stroke && a > 180 && p > c.PCHARGEAIR) p = c.PCHARGEAIR;
        if (p > MISFIRING_CAP * PCOMP) p = MISFIRING_CAP * PCOMP;
        if (a == 0) h = p;
        CYLPRESSURES[181 + a - 1] = p;
    }
}

}  // namespace

void CYLTEMP(int a, int IGN, double DPHI, double FORM, double VPREV, double V, double TPREV,
             double PPREV, double GASMASS, double Q, double& TNEW) {
    const double cv = TPREV * CV_SLOPE + CV_BASE;
    double dQ = 0.0;
    if (!(DPHI <= 0.0 || Q <= 0.0)) {
        double y = static_cast<double>(a - IGN) / DPHI;
        if (y < 0.0) y = 0.0;
        dQ = ((FORM + 1.0) * VIBE_A * std::pow(y, FORM) *
              std::exp(-VIBE_A * std::pow(y, FORM + 1.0)) / DPHI) *
             Q;
    }
    const double dW = PPREV * (V - VPREV);
    TNEW = TPREV + (dQ - dW) / (GASMASS * cv);
}

void CALCULATEDPRESSURE(bool MISFIRING, int NSTROKE, double BORE, double STROKE,
                        double CONRODRATIO, double COMPRATIO, double PCHARGEAIR,
                        double TCHARGEAIR, double SPEED, double POWER, double PMAX, double PCOMP,
                        double /*COMPEXP*/, double /*EXPAEXP*/, double TE, double ME,
                        double FORMFACTOR, double ANGLEIGNITION, double ANGLEENDOFCOMB,
                        double ANGLEEXHAUSTSTART, double ANGLEINLETSTART,
                        double ANGLEINLETCLOSE, double* CYLPRESSURES,
                        double& MEANINDICATEDPRESSURE, bool& SUCCESS) {
    const double pi1 = PI_SINGLE;
    const double lambda = CONRODRATIO;
    Cycle c;
    c.NSTROKE = NSTROKE;
    const int IGNITION = cut_angle(ANGLEIGNITION);
    const int ENDOFCOMB = cut_angle(ANGLEENDOFCOMB);
    c.EXHAUSTSTART = cut_angle(ANGLEEXHAUSTSTART);
    c.INLETSTART = cut_angle(ANGLEINLETSTART);
    c.INLETCLOSE = cut_angle(ANGLEINLETCLOSE);

    // Volume swept from top dead centre at each degree of the cycle.
    const int nvol = NSTROKE == 2 ? 360 : 720;
    c.VOLTABLE.resize(static_cast<std::size_t>(nvol));
    const double swept_scale = pi1 * (BORE * BORE) * STROKE * 0.125;
    for (int i = 1; i <= nvol; ++i) {
        const double theta = static_cast<double>(static_cast<float>(i - 1)) * pi1 / 180.0;
        const double s = std::sin(theta);
        c.VOLTABLE[static_cast<std::size_t>(i - 1)] =
            swept_scale * ((1.0 - std::cos(theta)) +
                           (1.0 / lambda) * (1.0 - std::sqrt(1.0 - (lambda * lambda) * (s * s))));
    }
    c.Vc = pi1 * (BORE * BORE) * STROKE / (4.0 * (COMPRATIO - 1.0));
    c.Vb = c.VOL(181);
    c.tol = NSTROKE == 2 ? TOLERANCE_TWO_STROKE : TOLERANCE_FOUR_STROKE;
    c.PCHARGEAIR = PCHARGEAIR;
    c.PMAX = PMAX + ATMOSPHERE;
    const double pcomp = PCOMP + ATMOSPHERE;
    c.TE = TE;
    c.Wt = ((POWER / ME) / (SPEED / 60.0)) * (NSTROKE * 0.5);

    // Two-stroke engines look the inlet angles up in the volume table; angles outside
    // one revolution make the valve timing invalid.
    const auto in_revolution = [](int angle) { return angle >= 0 && angle <= 359; };
    const bool two_stroke_timing_in_order =
        c.INLETSTART > c.EXHAUSTSTART && c.INLETCLOSE > c.INLETSTART &&
        in_revolution(c.INLETSTART) && in_revolution(c.INLETCLOSE);

    const auto mean_indicated_pressure = [&] {
        const double cycles_per_minute =
            static_cast<float>(60.0f * static_cast<float>(NSTROKE) * 0.5f);
        MEANINDICATEDPRESSURE =
            POWER / ((SPEED / cycles_per_minute) * pi1 * (BORE * BORE) * 0.25 * STROKE) / ME;
    };

    if (c.PMAX == 0.0) {
        SUCCESS = false;
        return;
    }
    if (POWER == 0.0 && !MISFIRING) {
        for (int j = 0; j < CYLPRESSURES_SIZE; ++j) CYLPRESSURES[j] = 0.0;
        return;
    }

    if (MISFIRING) {
        // Compression starts at bottom dead centre in a four-stroke cycle and when the
        // inlet closes in any other; an angle outside the volume table is invalid timing.
        const bool four_stroke = NSTROKE == 4;
        if (!four_stroke && (c.INLETCLOSE < 0 || c.INLETCLOSE >= nvol)) {
            SUCCESS = false;
        } else {
            const double V1 = four_stroke ? c.Vb : c.VOL(1 + c.INLETCLOSE);
            misfiring_curve(c, V1, pcomp, CYLPRESSURES);
            SUCCESS = true;
        }
        mean_indicated_pressure();
        return;
    }

    const bool four_stroke = NSTROKE == 4;
    if (!four_stroke && !(NSTROKE == 2 && two_stroke_timing_in_order)) {
        SUCCESS = false;
        mean_indicated_pressure();
        return;
    }

    const double V1 = four_stroke ? c.Vb : c.VOL(1 + c.INLETCLOSE);
    c.n1 = std::log(pcomp / PCHARGEAIR) / std::log((V1 + c.Vc) / c.Vc);
    // Written as a ratio so that it reads as a speed correction; the speed cancels.
    c.n2 = c.n1 - (EXPONENT_DROP * SPEED) / SPEED;
    c.m = PCHARGEAIR * (c.Vb + c.Vc) / ((TCHARGEAIR + CHARGE_HEATING + 273.0) * GAS_CONSTANT);
    c.Q = c.Wt / TE;
    c.DELTA = static_cast<double>(ENDOFCOMB - IGNITION);
    c.IGN = IGNITION;
    c.FORM = FORMFACTOR;
    c.pprev = PCHARGEAIR;
    c.Vprev = c.Vb;
    // Starting temperature for a combustion that would begin on the very first degree.
    c.T = TCHARGEAIR + CHARGE_HEATING + 273.0;

    const double Vo = four_stroke ? 0.0 : c.VOL(1 + c.INLETSTART);
    int counter = 0;
    for (;;) {
        const double W = four_stroke ? four_stroke_pass(c, CYLPRESSURES, counter)
                                     : two_stroke_pass(c, CYLPRESSURES, Vo);
        const PassOutcome outcome = after_pass(c, W, counter, CYLPRESSURES);
        if (outcome == PassOutcome::converged) {
            SUCCESS = true;
            break;
        }
        if (outcome == PassOutcome::gave_up) {
            SUCCESS = false;
            break;
        }
    }
    mean_indicated_pressure();
}

}  // namespace qm::THEORETICALPRESSURE
