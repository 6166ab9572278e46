/*
 * Quillmark: torsional vibration of marine propulsion and auxiliary shaft lines.
 *
 * The public C interface of libquillmark.so. Every argument is passed by reference, as
 * a host written for the original calling convention expects. Strings travel as arrays
 * of 32-bit character codes (the low 8 bits of each element are the character) together
 * with their length. Logical flags are 32-bit integers, -1 for true and 0 for false.
 *
 * Calls may overlap: QUILLMARKSOLVER and the four single-cylinder functions can be called
 * from several threads at once. Each call of QUILLMARKSOLVER keeps the state of its run
 * (result directory, log, tables) to itself, so calls running together give exactly the
 * files each gives alone, provided each has a result directory of its own: two calls
 * writing into one directory at the same time overwrite each other's files. The success
 * flag of the pressure curve is that of the last curve of the calling thread. The library
 * holds no state shared between calls.
 *
 * The forced calculation runs its load cases on worker threads that the call starts and
 * joins before it returns: QUILLMARKSOLVER on as many as the machine has cores,
 * QUILLMARKSOLVERTHREADS on as many as the host allows. The files and the log are the same
 * whatever the number of threads.
 */
#ifndef QUILLMARK_QUILLMARK_H
#define QUILLMARK_QUILLMARK_H

#include <stdint.h>

#if defined(QUILLMARK_BUILDING)
#define QUILLMARK_API __attribute__((visibility("default")))
#else
#define QUILLMARK_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/*
 * QUILLMARKSOLVER: one calculation of the model in an input file.
 *
 *  INPUTFILEDIRARRAY   [in]  directory of the input file, one character code per element
 *  INPUTFILEDIRLENGTH  [in]  number of elements of INPUTFILEDIRARRAY (at most 1000)
 *  INPUTFILENAMEARRAY  [in]  name of the input file, one character code per element
 *  INPUTFILENAMELENGTH [in]  number of elements of INPUTFILENAMEARRAY (at most 1000)
 *  RESULTFILEDIRARRAY  [in]  result directory: the log "Quillmark.log", "Genset.txt" and
 *                            every result file live there
 *  RESULTFILEDIRLENGTH [in]  number of elements of RESULTFILEDIRARRAY (at most 1000)
 *  ISINPUTVALID        [out] 1 when reading and checking passed, 0 when they failed;
 *                            the findings are in the log
 *  CALCULATIONTYPE     [in]  0 read and check only; 1 free vibration; 2 forced vibration;
 *                            3 both with load case checks; any other value both,
 *                            without load case checks and coupling power preparation
 *
 * A directory that is blank, longer than 1000 characters, missing or not writable ends
 * the call with ISINPUTVALID 0 and a message on standard error, since no log can be
 * written there.
 */
QUILLMARK_API void QUILLMARKSOLVER(const int32_t* INPUTFILEDIRARRAY,
                                   const int32_t* INPUTFILEDIRLENGTH,
                                   const int32_t* INPUTFILENAMEARRAY,
                                   const int32_t* INPUTFILENAMELENGTH,
                                   const int32_t* RESULTFILEDIRARRAY,
                                   const int32_t* RESULTFILEDIRLENGTH,
                                   int32_t* ISINPUTVALID,
                                   const int32_t* CALCULATIONTYPE);

/*
 * QUILLMARKSOLVERTHREADS: QUILLMARKSOLVER with the number of threads of the forced
 * calculation chosen by the host.
 *
 *  (the first eight arguments as for QUILLMARKSOLVER)
 *  THREADS             [in]  at most this many threads work on the load cases at once; 1 runs
 *                            them all on the calling thread; 0 or less, or a null pointer, takes
 *                            the machine's cores. Never more than the load cases, nor 64.
 */
QUILLMARK_API void QUILLMARKSOLVERTHREADS(const int32_t* INPUTFILEDIRARRAY,
                                          const int32_t* INPUTFILEDIRLENGTH,
                                          const int32_t* INPUTFILENAMEARRAY,
                                          const int32_t* INPUTFILENAMELENGTH,
                                          const int32_t* RESULTFILEDIRARRAY,
                                          const int32_t* RESULTFILEDIRLENGTH,
                                          int32_t* ISINPUTVALID,
                                          const int32_t* CALCULATIONTYPE,
                                          const int32_t* THREADS);

/*
 * Single-cylinder functions. They work on one cylinder without a calculation run: they
 * touch no model, no file and no state of a run, and may be called without one.
 *
 * Curves have N = 360 or 720 points, one per degree of crank angle, point 1 at top dead
 * centre; ALPHA holds the crank angle of each point in radians (point i at
 * pi * (i - 1) / 180). Harmonic k of a curve is engine order k for N = 360 and engine
 * order k/2 for N = 720. Complex values are pairs of doubles, real part first, in the
 * half-amplitude convention: a curve equals F(1) + 2 Re sum_k F(k+1) exp(i k 2 pi (i-1)/N).
 * Units: Pa, m, kg, rpm, W. Arrays belong to the caller, are of the sizes given and are
 * not checked. None of these functions reports failure, except through
 * THEORETICALCYLINDERPRESSURESUCCESS.
 */

/*
 * THEORETICALCYLINDERPRESSURE: a theoretical cylinder pressure curve of one working cycle.
 *
 *  P0                [in]  reference power of one cylinder, in the unit of POWER
 *  N0                [in]  reference speed, rpm
 *  MISFIRING         [in]  flag: true (-1) for a cylinder without combustion
 *  NSTROKE           [in]  2 or 4
 *  BORE, STROKE      [in]  m
 *  CONRODRATIO       [in]  crank radius over connecting rod length
 *  COMPRATIO         [in]  compression ratio
 *  PCHARGEAIR        [in]  charge-air pressure at the reference point, Pa absolute
 *  TCHARGEAIR        [in]  charge-air temperature, degrees C
 *  SPEED             [in]  rpm
 *  POWER             [in]  power of this cylinder, W
 *  PMAX              [in]  maximum pressure at the reference point, Pa gauge
 *  PCOMP             [in]  compression pressure at the reference point, Pa gauge
 *  COMPEXP, EXPAEXP  [in]  polytropic exponents; accepted, not used (the curve derives its
 *                          exponents from the pressures)
 *  TE, ME            [in]  thermal and mechanical efficiency, fractions
 *  FORMFACTOR        [in]  starting value of the Vibe form factor
 *  ANGLEIGNITION, ANGLEENDOFCOMB, ANGLEEXHAUSTSTART, ANGLEINLETSTART, ANGLEINLETCLOSE
 *                    [in]  crank angles in degrees after firing top dead centre (ignition
 *                          negative before it), each cut to an integer; the inlet angles
 *                          serve two-stroke engines only
 *  CYLPRESSURES      [out] 1000 entries: entry j (1-based) is the absolute pressure in Pa at
 *                          crank angle j - 181 from firing top dead centre, so entry 181 is
 *                          firing top dead centre; 720 entries are filled for four-stroke,
 *                          360 for two-stroke engines. Turn it to start at top dead centre
 *                          before giving it to the functions below.
 *  MEANINDICATEDPRESSURE [out] Pa
 *
 * When SPEED equals N0 exactly the three pressures are taken as given; otherwise they
 * follow the load from the reference point. At zero power a firing cylinder gets a zero
 * curve and MEANINDICATEDPRESSURE is left as it was; when PMAX is -1 bar nothing is
 * written.
 */
QUILLMARK_API void THEORETICALCYLINDERPRESSURE(
    const double* P0, const double* N0, const int32_t* MISFIRING, const int32_t* NSTROKE,
    const double* BORE, const double* STROKE, const double* CONRODRATIO,
    const double* COMPRATIO, const double* PCHARGEAIR, const double* TCHARGEAIR,
    const double* SPEED, const double* POWER, const double* PMAX, const double* PCOMP,
    const double* COMPEXP, const double* EXPAEXP, const double* TE, const double* ME,
    const double* FORMFACTOR, const double* ANGLEIGNITION, const double* ANGLEENDOFCOMB,
    const double* ANGLEEXHAUSTSTART, const double* ANGLEINLETSTART,
    const double* ANGLEINLETCLOSE, double* CYLPRESSURES, double* MEANINDICATEDPRESSURE);

/*
 * THEORETICALCYLINDERPRESSURESUCCESS: whether the last THEORETICALCYLINDERPRESSURE call
 * of the calling thread gave a finished curve.
 *
 *  SUCCESS  [out] -1 when the iteration converged to the wanted indicated work and maximum
 *                 pressure, or the cylinder misfires; 0 when it did not converge (the curve
 *                 of the last pass stands), when NSTROKE or the two-stroke valve timing
 *                 (exhaust < inlet open < inlet close, inlet angles 0..359) is invalid
 *                 (the curve is left as it was), when PMAX is -1 bar, at zero power, and
 *                 before any call.
 */
QUILLMARK_API void THEORETICALCYLINDERPRESSURESUCCESS(int32_t* SUCCESS);

/*
 * CYLINDERPRESSURETOHARMONIC: harmonics of the tangential pressure of a cylinder.
 *
 *  N                [in]     points of the curve
 *  NHARM            [in]     harmonics wanted, the mean not counted
 *  P                [in/out] N values: the pressure curve, Pa; comes back as the tangential
 *                            pressure on the crank pin
 *  ALPHA            [in]     N values: crank angle of each point, radians
 *  CONRODRATIO      [in]     crank radius over connecting rod length
 *  SINECOMPONENT    [out]    NHARM values: sine amplitude of harmonic k at entry k
 *  COSINECOMPONENT  [out]    NHARM values: cosine amplitude of harmonic k at entry k
 *
 * Full amplitudes: the tangential pressure equals its mean plus the sum over k of
 * COSINECOMPONENT(k) cos(k 2 pi (i-1)/N) + SINECOMPONENT(k) sin(k 2 pi (i-1)/N). The mean
 * is not returned. A negative NHARM does nothing.
 */
QUILLMARK_API void CYLINDERPRESSURETOHARMONIC(const int32_t* N, const int32_t* NHARM,
                                              double* P, const double* ALPHA,
                                              const double* CONRODRATIO,
                                              double* SINECOMPONENT,
                                              double* COSINECOMPONENT);

/*
 * OSCILLATINGMASSFOURIERCOEFFICIENTS: harmonics of the tangential factor of the
 * oscillating mass, per unit of mass, crank radius and angular speed squared.
 *
 *  N            [in]  points
 *  NHARM        [in]  coefficients wanted, the mean counted
 *  F            [out] NHARM complex values (2 * NHARM doubles): F(1) the mean, F(k+1)
 *                     harmonic k, half amplitudes
 *  ALPHA        [in]  N values: crank angle of each point, radians
 *  CONRODRATIO  [in]  crank radius over connecting rod length
 */
QUILLMARK_API void OSCILLATINGMASSFOURIERCOEFFICIENTS(const int32_t* N, const int32_t* NHARM,
                                                      double* F, const double* ALPHA,
                                                      const double* CONRODRATIO);

/*
 * CALCULATETANGENTIALRADIALFORCE: forces on the crank pin over the crank angle, N.
 *
 *  ROTATINGMASS         [in]  rotating mass of the connecting rod, kg (radial force only)
 *  RECIPMASS            [in]  reciprocating mass, kg
 *  UNUSED               [in]  never read; kept for the calling convention
 *  PREF                 [in]  pressure subtracted from the curve, Pa (e.g. crankcase)
 *  CONRODRATIO          [in]  crank radius over connecting rod length
 *  SPEED                [in]  engine speed, rpm
 *  STROKE, BORE         [in]  m
 *  N                    [in]  points
 *  ALPHA                [in]  N values: crank angle of each point, radians
 *  CYLINDERPRESSURES    [in]  N values: cylinder pressure, Pa; not changed
 *  TANGENTIALFORCE      [out] N values: gas plus mass
 *  TANGENTIALMASSFORCE  [out] N values: oscillating masses
 *  TANGENTIALGASFORCE   [out] N values: gas
 *  RADIALFORCE          [out] N values: gas plus mass
 *  RADIALMASSFORCE      [out] N values: oscillating and rotating masses
 *  RADIALGASFORCE       [out] N values: gas
 */
QUILLMARK_API void CALCULATETANGENTIALRADIALFORCE(
    const double* ROTATINGMASS, const double* RECIPMASS, const double* UNUSED,
    const double* PREF, const double* CONRODRATIO, const double* SPEED, const double* STROKE,
    const double* BORE, const int32_t* N, const double* ALPHA, const double* CYLINDERPRESSURES,
    double* TANGENTIALFORCE, double* TANGENTIALMASSFORCE, double* TANGENTIALGASFORCE,
    double* RADIALFORCE, double* RADIALMASSFORCE, double* RADIALGASFORCE);

#ifdef __cplusplus
}
#endif

#endif /* QUILLMARK_QUILLMARK_H */
