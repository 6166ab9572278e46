// What a load case gives once all its source units are solved: the power loss of every
// shaft, the synthesized deflection, velocity, acceleration, torque, stress and damping
// torque with their curves, the resultant torque, and the ice results of the propellers.
#pragma once

#include <vector>

#include "components/ModelTables.h"
#include "forced/KindResults.h"
#include "forced/PropellerIce.h"
#include "forced/Synthesis.h"

namespace qm::FORCEDVIBRATION {

// Switches of the sweep that the synthesis stage reads.
struct SynthesisFlags {
    bool ISPHASEMODE = false;
    bool HASDIESEL = false;
    bool HASDAMPERORCOUPLING = false;
    bool OUTPUTANGLEBASEDRESULTS = false;
};

struct LoadCaseSynthesis {
    std::vector<double> SYNDEFLECTION, SYNVELOCITY, SYNACCELERATION;  // NMASS
    std::vector<double> SYNTORQUE, SYNSTRESS, SHAFTPOWERLOSS;          // NSHAFT
    // NSHAFT with dampers or couplings, else empty
    std::vector<double> SYNDAMPINGTORQUE, RESULTANTTORQUE;
    // The curves of each kind (diesel first), element e step a at (e-1)*360 + a; empty where
    // they aren't kept. Torque and damping torque are always kept, the others with
    // angle-based output in a model with a diesel engine.
    KindCurves ANGULARDEFANGLEBASED, ANGLUARVELANGLEBASED, ANGULARACCEANGLEBASED;
    KindCurves TORQUEANGLEBASED, STRESSANGLEBASED, DAMPINGTORQUEANGLEBASED;
};

// Power loss, then the six syntheses in the order deflection, velocity, acceleration,
// torque, stress, damping torque (the last with dampers or couplings only, followed by the
// resultant torque). Geislinger couplings keep the speed of excitation the power loss left.
void synthesize_load_case(ModelTables& tables, const AllKindResults& results, const SynthesisFlags& flags,
                          LoadCaseSynthesis& out);

// The mean ice torque of every shaft added to its nominal torque; in load case 1 also the
// marks of the propeller line (PROPELLERSHAFTMARKS, NSHAFT values).
void add_mean_ice_torque(const ModelTables& tables, const std::vector<double>& SHAFTINERTIARATIO, int lc,
                         std::vector<double>& NOMTORQUE, std::vector<double>& PROPELLERSHAFTMARKS);

}  // namespace qm::FORCEDVIBRATION
