// Resultant torque of shafts with dampers or couplings, and the results of a propeller in
// ice: the synthesis of the propeller kind by itself over its long order axis, the mean ice
// torque a shaft carries on top of its nominal torque, and the marks of the propeller line.
#pragma once

#include <vector>

#include "components/GlobalMass.h"
#include "components/GlobalPropeller.h"
#include "components/GlobalShaft.h"
#include "forced/KindResults.h"
#include "forced/Synthesis.h"

namespace qm::FORCEDVIBRATION {

// For each shaft: the torque curve plus the damping torque curve of each kind, half the sum
// of their ranges as the synthesis takes them (phase mode included). The curves are those
// SINGLELOADCASESYNTHESIS kept, NSHAFT*360 values per kind. With `withUnits` (fast path)
// the curves of a kind marked false are known to be zeros and are not scanned; the result
// is the same.
void CALCULATERESULTANTTORQUE(int NSHAFT, bool ISPHASEMODE, std::vector<double>& RESULTANTTORQUE,
                              const KindCurves& TORQUEANGLEBASED, const KindCurves& DAMPINGTORQUEANGLEBASED,
                              const std::array<bool, NKIND>* withUnits = nullptr);

// The propeller kind alone: one curve per element from all units and order places,
// re cos phi - im sin phi on the grid of the slowest propeller, and its range. This equals
// the half range of the synthesis' own curve. SYNRESM gets N values. The fast path takes
// the cosines and sines from the rows of the scratch (one of its own without), with the same
// values and order of summation.
void SINGLELOADCASEPROPELLERICESYNTHESIS(int N, int NUNIT, int NORDER, std::span<const double> OMEGA_PROPELLER,
                                         std::span<const double> RESRE, std::span<const double> RESIM,
                                         std::vector<double>& SYNRESM, SolvePath path = SolvePath::FAST,
                                         SynthesisScratch* scratch = nullptr);

// The ice results of one load case, by element.
struct PropellerIceResults {
    std::vector<double> SYNPROPICEDEFLECTION, SYNPROPICEVELOCITY, SYNPROPICEACCELE;  // NMASS
    std::vector<double> SYNPROPICETORQUE, SYNPROPICESTRESS;                          // NSHAFT
    std::vector<double> SYNPROPICEDAMPINGTORQUE;  // NSHAFT with dampers or couplings, else empty
};

// The ice block of a load case on the propeller's arrays, into `ice` (its storage reused).
void propeller_ice_synthesis(const KindResults& propeller, bool HASDAMPERORCOUPLING, PropellerIceResults& ice,
                             SolvePath path = SolvePath::FAST, SynthesisScratch* scratch = nullptr);
PropellerIceResults propeller_ice_synthesis(const KindResults& propeller, bool HASDAMPERORCOUPLING);

// Mean ice torque of shaft row j in load case lc. With exactly one propeller in the model:
// ICEFOURIERMEAN * SHAFTINERTIARATIO(j) * rp / RPMRATIO of the shaft when the propeller has
// ice excitation, rp the speed ratio of the propeller's inertia; 0.0 otherwise. In load
// case 1 it also marks the shaft in PROPELLERSHAFTMARKS (NSHAFT values): 1.0 when its
// destination lies on the free shaft of the propeller and both its ends run at the
// propeller's speed ratio, else 2.0. With several propellers nothing is marked.
// Inertias are found through GET_MASS_IMASS, the propeller's through PROPELLERNODE.
void SINGLELOADCASEPROPELLERICEZEROORDERTORQUE(const ShaftTable& SHAFT_TABLE, const MassTable& MASS_TABLE,
                                               const PropellerTable& PROPELLER_TABLE,
                                               const std::vector<double>& SHAFTINERTIARATIO, int j, int lc,
                                               double& meanTorque, std::vector<double>& PROPELLERSHAFTMARKS);

// SINGLELOADCASEPROPELLERICEZEROORDERTORQUE for every shaft, its mean ice torque added to
// NOMTORQUE (one value per shaft).
void add_mean_ice_torque(const ShaftTable& SHAFT_TABLE, const MassTable& MASS_TABLE,
                         const PropellerTable& PROPELLER_TABLE, const std::vector<double>& SHAFTINERTIARATIO, int lc,
                         std::vector<double>& NOMTORQUE, std::vector<double>& PROPELLERSHAFTMARKS);

}  // namespace qm::FORCEDVIBRATION
