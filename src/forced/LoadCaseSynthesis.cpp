#include "forced/LoadCaseSynthesis.h"

#include <cstddef>

#include "forced/ShaftPowerLoss.h"

namespace qm::FORCEDVIBRATION {

void synthesize_load_case(ModelTables& tables, const AllKindResults& results, const SynthesisFlags& flags,
                          LoadCaseSynthesis& out) {
    const int NMASS = GLOBAL_MASS::GET_MASS_NUMBER(tables.MASS_TABLE);
    const int NSHAFT = GLOBAL_SHAFT::GET_SHAFT_NUMBER(tables.SHAFT_TABLE);
    SINGLELOADCASESHAFTPOWERLOSS(tables, results, out.SHAFTPOWERLOSS);

    using Field = std::vector<double> KindResults::*;
    const auto synthesize = [&](int N, Field re, Field im, std::vector<double>& value, KindCurves& curves,
                                bool keep) {
        SINGLELOADCASESYNTHESIS(N, synthesis_sources(results, re, im), flags.ISPHASEMODE, value, curves, keep,
                                flags.HASDIESEL, flags.OUTPUTANGLEBASEDRESULTS);
    };
    synthesize(NMASS, &KindResults::XR, &KindResults::XI, out.SYNDEFLECTION, out.ANGULARDEFANGLEBASED, false);
    synthesize(NMASS, &KindResults::VR, &KindResults::VI, out.SYNVELOCITY, out.ANGLUARVELANGLEBASED, false);
    synthesize(NMASS, &KindResults::AR, &KindResults::AI, out.SYNACCELERATION, out.ANGULARACCEANGLEBASED, false);
    synthesize(NSHAFT, &KindResults::SHAFTTORQUERE, &KindResults::SHAFTTORQUEIM, out.SYNTORQUE, out.TORQUEANGLEBASED,
               true);
    synthesize(NSHAFT, &KindResults::SHAFTSTRESSRE, &KindResults::SHAFTSTRESSIM, out.SYNSTRESS, out.STRESSANGLEBASED,
               false);
    if (flags.HASDAMPERORCOUPLING) {
        synthesize(NSHAFT, &KindResults::DAMPINGTORQUERE, &KindResults::DAMPINGTORQUEIM, out.SYNDAMPINGTORQUE,
                   out.DAMPINGTORQUEANGLEBASED, true);
        CALCULATERESULTANTTORQUE(NSHAFT, flags.ISPHASEMODE, out.RESULTANTTORQUE, out.TORQUEANGLEBASED,
                                 out.DAMPINGTORQUEANGLEBASED);
    } else {
        out.SYNDAMPINGTORQUE.clear();
        out.RESULTANTTORQUE.clear();
        for (auto& c : out.DAMPINGTORQUEANGLEBASED) c.clear();
    }
}

void add_mean_ice_torque(const ModelTables& tables, const std::vector<double>& SHAFTINERTIARATIO, int lc,
                         std::vector<double>& NOMTORQUE, std::vector<double>& PROPELLERSHAFTMARKS) {
    for (std::size_t j = 1; j <= NOMTORQUE.size(); ++j) {
        double mean = 0.0;
        SINGLELOADCASEPROPELLERICEZEROORDERTORQUE(tables.SHAFT_TABLE, tables.MASS_TABLE, tables.PROPELLER_TABLE,
                                                  SHAFTINERTIARATIO, static_cast<int>(j), lc, mean,
                                                  PROPELLERSHAFTMARKS);
        NOMTORQUE[j - 1] += mean;
    }
}

}  // namespace qm::FORCEDVIBRATION
