#include "excitation/TheoreticalCylinderPressure.h"

#include "components/EngineFunctions.h"
#include "excitation/TheoreticalPressure.h"

namespace qm {

OperatingPressures operating_pressures(const CylinderPressureData& d) {
    OperatingPressures p;
    if (d.SPEED == d.N0) {
        p.PCHARGEAIR = d.PCHARGEAIR;
        p.PCOMP = d.PCOMP;
        p.PMAX = d.PMAX;
        return p;
    }
    using namespace ENGINE_FUNCTIONS;
    p.PCHARGEAIR = CALCULATE_PINLET(d.P0, d.N0, d.POWER, d.SPEED, d.PCHARGEAIR, d.NSTROKE);
    p.PCOMP = CALCULATE_PCOMP(d.P0, d.N0, d.POWER, d.SPEED, d.PCOMP);
    p.PMAX = CALCULATE_PMAX(d.P0, d.N0, d.POWER, d.SPEED, d.PMAX, d.PCOMP, d.NSTROKE);
    return p;
}

bool theoretical_cylinder_pressure(const CylinderPressureData& d, double* CYLPRESSURES,
                                   double& MEANINDICATEDPRESSURE) {
    const OperatingPressures p = operating_pressures(d);
    bool success = false;
    THEORETICALPRESSURE::CALCULATEDPRESSURE(
        d.MISFIRING, d.NSTROKE, d.BORE, d.STROKE, d.CONRODRATIO, d.COMPRATIO, p.PCHARGEAIR,
        d.TCHARGEAIR, d.SPEED, d.POWER, p.PMAX, p.PCOMP, d.COMPEXP, d.EXPAEXP, d.TE, d.ME,
        d.FORMFACTOR, d.ANGLEIGNITION, d.ANGLEENDOFCOMB, d.ANGLEEXHAUSTSTART,
        d.ANGLEINLETSTART, d.ANGLEINLETCLOSE, CYLPRESSURES, MEANINDICATEDPRESSURE, success);
    return success;
}

}  // namespace qm
