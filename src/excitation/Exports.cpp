// The four single-cylinder functions of the C interface, and the query for the success
// of the last pressure curve. They work on the caller's arrays only; no C++ exception
// leaves them.
#include <complex>
#include <cstdint>
#include <vector>

#include "excitation/CylinderExcitations.h"
#include "excitation/OscillatingMassFourierCoefficients.h"
#include "excitation/PressureFourierCoefficients.h"
#include "excitation/TheoreticalCylinderPressure.h"
#include "base/Constants.h"
#include "quillmark/quillmark.h"

namespace {

constexpr int32_t FLAG_TRUE = -1;
constexpr int32_t FLAG_FALSE = 0;

// A host's logical: the lowest bit is the truth value.
bool is_true(int32_t flag) { return (flag & 1) != 0; }

// Whether the last THEORETICALCYLINDERPRESSURE call on this thread gave a finished curve.
thread_local int32_t last_pressure_curve_success = FLAG_FALSE;

// The C interface passes complex values as pairs of doubles, real part first, which is
// the layout of std::complex<double>.
std::complex<double>* as_complex(double* pairs) {
    return reinterpret_cast<std::complex<double>*>(pairs);
}

}  // namespace

extern "C" {

QUILLMARK_API void THEORETICALCYLINDERPRESSURE(
    const double* P0, const double* N0, const int32_t* MISFIRING, const int32_t* NSTROKE,
    const double* BORE, const double* STROKE, const double* CONRODRATIO,
    const double* COMPRATIO, const double* PCHARGEAIR, const double* TCHARGEAIR,
    const double* SPEED, const double* POWER, const double* PMAX, const double* PCOMP,
    const double* COMPEXP, const double* EXPAEXP, const double* TE, const double* ME,
    const double* FORMFACTOR, const double* ANGLEIGNITION, const double* ANGLEENDOFCOMB,
    const double* ANGLEEXHAUSTSTART, const double* ANGLEINLETSTART,
    const double* ANGLEINLETCLOSE, double* CYLPRESSURES, double* MEANINDICATEDPRESSURE) {
    last_pressure_curve_success = FLAG_FALSE;
    try {
        qm::CylinderPressureData d;
        d.P0 = *P0;
        d.N0 = *N0;
        d.MISFIRING = is_true(*MISFIRING);
        d.NSTROKE = *NSTROKE;
        d.BORE = *BORE;
        d.STROKE = *STROKE;
        d.CONRODRATIO = *CONRODRATIO;
        d.COMPRATIO = *COMPRATIO;
        d.PCHARGEAIR = *PCHARGEAIR;
        d.TCHARGEAIR = *TCHARGEAIR;
        d.SPEED = *SPEED;
        d.POWER = *POWER;
        d.PMAX = *PMAX;
        d.PCOMP = *PCOMP;
        d.COMPEXP = *COMPEXP;
        d.EXPAEXP = *EXPAEXP;
        d.TE = *TE;
        d.ME = *ME;
        d.FORMFACTOR = *FORMFACTOR;
        d.ANGLEIGNITION = *ANGLEIGNITION;
        d.ANGLEENDOFCOMB = *ANGLEENDOFCOMB;
        d.ANGLEEXHAUSTSTART = *ANGLEEXHAUSTSTART;
        d.ANGLEINLETSTART = *ANGLEINLETSTART;
        d.ANGLEINLETCLOSE = *ANGLEINLETCLOSE;
        const bool success =
            qm::theoretical_cylinder_pressure(d, CYLPRESSURES, *MEANINDICATEDPRESSURE);
        last_pressure_curve_success = success ? FLAG_TRUE : FLAG_FALSE;
    } catch (...) {
        last_pressure_curve_success = FLAG_FALSE;
    }
}

QUILLMARK_API void THEORETICALCYLINDERPRESSURESUCCESS(int32_t* SUCCESS) {
    *SUCCESS = last_pressure_curve_success;
}

QUILLMARK_API void CYLINDERPRESSURETOHARMONIC(const int32_t* N, const int32_t* NHARM,
                                              double* P, const double* ALPHA,
                                              const double* CONRODRATIO,
                                              double* SINECOMPONENT,
                                              double* COSINECOMPONENT) {
    try {
        const int nharm = *NHARM;
        if (nharm < 0) return;
        std::vector<std::complex<double>> GASFOURIERCOEFFS(static_cast<std::size_t>(nharm) + 1);
        qm::PRESSUREFOURIERCOEFFICIENTS(*N, nharm + 1, GASFOURIERCOEFFS.data(), P, ALPHA,
                                        *CONRODRATIO);
        // Full amplitudes of cos and sin: 2 Re F and -2 Im F of the half amplitudes F.
        for (int k = 1; k <= nharm; ++k) {
            COSINECOMPONENT[k - 1] = 2.0 * GASFOURIERCOEFFS[static_cast<std::size_t>(k)].real();
            SINECOMPONENT[k - 1] = -2.0 * GASFOURIERCOEFFS[static_cast<std::size_t>(k)].imag();
        }
    } catch (...) {
    }
}

QUILLMARK_API void OSCILLATINGMASSFOURIERCOEFFICIENTS(const int32_t* N, const int32_t* NHARM,
                                                      double* F, const double* ALPHA,
                                                      const double* CONRODRATIO) {
    try {
        qm::OSCILLATINGMASSFOURIERCOEFFICIENTS(*N, *NHARM, as_complex(F), ALPHA, *CONRODRATIO);
    } catch (...) {
    }
}

QUILLMARK_API void CALCULATETANGENTIALRADIALFORCE(
    const double* ROTATINGMASS, const double* RECIPMASS, const double* /*UNUSED*/,
    const double* PREF, const double* CONRODRATIO, const double* SPEED, const double* STROKE,
    const double* BORE, const int32_t* N, const double* ALPHA, const double* CYLINDERPRESSURES,
    double* TANGENTIALFORCE, double* TANGENTIALMASSFORCE, double* TANGENTIALGASFORCE,
    double* RADIALFORCE, double* RADIALMASSFORCE, double* RADIALGASFORCE) {
    try {
        namespace ce = qm::CYLINDEREXCITATIONS;
        const int n = *N;
        const double lambda = *CONRODRATIO;
        for (int i = 0; i < n; ++i) {
            TANGENTIALFORCE[i] = 0.0;
            TANGENTIALMASSFORCE[i] = 0.0;
            TANGENTIALGASFORCE[i] = 0.0;
            RADIALFORCE[i] = 0.0;
            RADIALMASSFORCE[i] = 0.0;
            RADIALGASFORCE[i] = 0.0;
        }
        for (int i = 0; i < n; ++i) {
            TANGENTIALGASFORCE[i] = CYLINDERPRESSURES[i] - *PREF;
            RADIALGASFORCE[i] = CYLINDERPRESSURES[i] - *PREF;
        }

        const double omega = *SPEED * qm::PI / 30.0;
        const double piston_radius = *BORE * 0.5;
        const double AREA = qm::PI * (piston_radius * piston_radius);

        ce::TANGENTIALFORCEGAS(n, TANGENTIALGASFORCE, ALPHA, lambda);
        ce::RADIALFORCEGAS(n, RADIALGASFORCE, ALPHA, lambda);
        for (int i = 0; i < n; ++i) {
            TANGENTIALGASFORCE[i] = TANGENTIALGASFORCE[i] * AREA;
            RADIALGASFORCE[i] = RADIALGASFORCE[i] * AREA;
        }

        ce::TANGENTIALOSCILLATINGMASS(n, TANGENTIALMASSFORCE, ALPHA, lambda);
        ce::RADIALOSCILLATINGMASS(n, RADIALMASSFORCE, ALPHA, lambda);
        // Centripetal acceleration of the crank pin; the rotating mass of the rod only
        // loads the pin radially.
        const double c = (omega * omega) * (*STROKE * 0.5);
        for (int i = 0; i < n; ++i) {
            TANGENTIALMASSFORCE[i] = -c * *RECIPMASS * TANGENTIALMASSFORCE[i];
            RADIALMASSFORCE[i] = -c * (RADIALMASSFORCE[i] * *RECIPMASS + *ROTATINGMASS);
        }

        for (int i = 0; i < n; ++i) {
            TANGENTIALFORCE[i] = TANGENTIALGASFORCE[i] + TANGENTIALMASSFORCE[i];
            RADIALFORCE[i] = RADIALGASFORCE[i] + RADIALMASSFORCE[i];
        }
    } catch (...) {
    }
}

}  // extern "C"
