// Module THEORETICALPRESSURE: a cylinder pressure curve for one working cycle made from an
// engine's design data and operating point, where no measured harmonics exist.
//
// The cycle is simulated degree by degree: polytropic compression, heat release by the
// Vibe law with a first-law temperature step, polytropic expansion, and a gas exchange
// that differs between two-stroke and four-stroke engines. An outer iteration adjusts the
// heat released, the Vibe form factor and the combustion duration until the cycle gives
// the wanted indicated work and the wanted maximum pressure. A misfiring cylinder gets a
// plain compression and expansion curve without combustion.
#pragma once

namespace qm::THEORETICALPRESSURE {

// Entries of a pressure curve: a four-stroke cycle fills 720 of them, a two-stroke 360,
// the rest is room that callers keep for it.
constexpr int CYLPRESSURES_SIZE = 1000;

// Passes of the iteration after which it gives up; the curve of the last pass stands.
constexpr int MAXIMUM_PASSES = 21;

// One temperature step of one degree of crank angle.
//   a, IGN       crank angle and ignition angle, degrees
//   DPHI, FORM   combustion duration (degrees) and Vibe form factor
//   VPREV, V     volumes swept at the previous and this angle, m^3
//   TPREV, PPREV temperature (K) and pressure (Pa) at the previous angle
//   GASMASS      kg of charge;  Q  heat released per cycle, J
// TNEW = TPREV + (dQ - PPREV (V - VPREV)) / (GASMASS cv(TPREV)), dQ by the Vibe law.
void CYLTEMP(int a, int IGN, double DPHI, double FORM, double VPREV, double V, double TPREV,
             double PPREV, double GASMASS, double Q, double& TNEW);

// The pressure curve of one cylinder.
//
//   MISFIRING          true for a cylinder without combustion
//   NSTROKE            2 or 4
//   BORE, STROKE       m
//   CONRODRATIO        crank radius over rod length
//   COMPRATIO          compression ratio
//   PCHARGEAIR         charge-air pressure, Pa, absolute (used as given)
//   TCHARGEAIR         charge-air temperature, degrees C
//   SPEED              rpm
//   POWER              power of this cylinder, W
//   PMAX, PCOMP        wanted maximum and compression pressure, Pa gauge (1 bar is added)
//   COMPEXP, EXPAEXP   not used: the polytropic exponents follow from the pressures
//   TE, ME             thermal and mechanical efficiency, fractions
//   FORMFACTOR         starting value of the Vibe form factor
//   ANGLEIGNITION, ANGLEENDOFCOMB, ANGLEEXHAUSTSTART, ANGLEINLETSTART, ANGLEINLETCLOSE
//                      crank angles in degrees after firing top dead centre, each cut to
//                      an integer; the two inlet angles serve two-stroke engines only
//   CYLPRESSURES       out, CYLPRESSURES_SIZE entries: entry j (1-based) holds the
//                      absolute pressure at crank angle j - 181 from firing top dead
//                      centre, so entry 181 is firing top dead centre
//   MEANINDICATEDPRESSURE  out, Pa
//   SUCCESS            out: true when the iteration converged or the cylinder misfires;
//                      false when PMAX + 1 bar is zero (nothing else is touched), when the
//                      stroke number or the two-stroke valve timing is invalid (the curve
//                      is left as it was) or when 21 passes didn't converge (the curve of
//                      the last pass stands). At zero power a firing cylinder gets a zero
//                      curve and SUCCESS and MEANINDICATEDPRESSURE are left as they were.
void CALCULATEDPRESSURE(bool MISFIRING, int NSTROKE, double BORE, double STROKE,
                        double CONRODRATIO, double COMPRATIO, double PCHARGEAIR,
                        double TCHARGEAIR, double SPEED, double POWER, double PMAX, double PCOMP,
                        double COMPEXP, double EXPAEXP, double TE, double ME, double FORMFACTOR,
                        double ANGLEIGNITION, double ANGLEENDOFCOMB, double ANGLEEXHAUSTSTART,
                        double ANGLEINLETSTART, double ANGLEINLETCLOSE, double* CYLPRESSURES,
                        double& MEANINDICATEDPRESSURE, bool& SUCCESS);

}  // namespace qm::THEORETICALPRESSURE
