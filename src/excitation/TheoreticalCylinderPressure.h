// The pressure curve of one cylinder at an operating point, from the design data at a
// reference point: the exported single-cylinder function and the command line use it.
#pragma once

namespace qm {

// Design data of one cylinder and its operating point. Units as CALCULATEDPRESSURE takes
// them: m, rpm, W, Pa (charge air absolute, maximum and compression pressure gauge),
// degrees C, fractions, degrees of crank angle after firing top dead centre.
struct CylinderPressureData {
    double P0 = 0.0;                 // W, reference power of one cylinder
    double N0 = 0.0;                 // rpm, reference speed
    bool MISFIRING = false;          // cylinder without combustion
    int NSTROKE = 4;                 // 2 or 4
    double BORE = 0.0;               // m
    double STROKE = 0.0;             // m
    double CONRODRATIO = 0.0;        // crank radius over rod length
    double COMPRATIO = 0.0;          // compression ratio
    double PCHARGEAIR = 0.0;         // Pa absolute, at the reference point
    double TCHARGEAIR = 0.0;         // degrees C
    double SPEED = 0.0;              // rpm, operating point
    double POWER = 0.0;              // W of this cylinder, operating point
    double PMAX = 0.0;               // Pa gauge, at the reference point
    double PCOMP = 0.0;              // Pa gauge, at the reference point
    double COMPEXP = 1.3899999856948853;  // passed on, not used by the curve
    double EXPAEXP = 1.3300000429153442;  // passed on, not used by the curve
    double TE = 0.0;                 // thermal efficiency, fraction
    double ME = 1.0;                 // mechanical efficiency, fraction
    double FORMFACTOR = 1.0;         // starting Vibe form factor
    double ANGLEIGNITION = 0.0;      // degrees
    double ANGLEENDOFCOMB = 0.0;     // degrees
    double ANGLEEXHAUSTSTART = 0.0;  // degrees
    double ANGLEINLETSTART = 0.0;    // degrees, two-stroke
    double ANGLEINLETCLOSE = 0.0;    // degrees, two-stroke
};

// Charge-air, compression and maximum pressure at the operating point.
struct OperatingPressures {
    double PCHARGEAIR = 0.0;  // Pa absolute
    double PCOMP = 0.0;       // Pa gauge
    double PMAX = 0.0;        // Pa gauge
};

// At the reference speed exactly the reference pressures stand, whatever the power;
// at any other speed they follow the load laws of the engine functions. The maximum
// pressure's compression limit is worked from the reference compression pressure.
OperatingPressures operating_pressures(const CylinderPressureData& data);

// Fills CYLPRESSURES (THEORETICALPRESSURE::CYLPRESSURES_SIZE entries, entry 181 at firing
// top dead centre) and the mean indicated pressure (Pa) by CALCULATEDPRESSURE at the
// operating pressures. Returns its success flag, which starts as false.
bool theoretical_cylinder_pressure(const CylinderPressureData& data, double* CYLPRESSURES,
                                   double& MEANINDICATEDPRESSURE);

}  // namespace qm
