// Module FREEVIBRATION: the free vibration of the shaft line, from the tables to the
// result files of the natural frequencies and mode shapes.
#pragma once

#include "components/ModelTables.h"

namespace qm::FREEVIBRATION {

constexpr const char* NATURALFREQUENCYFILE = "NaturalFrequency.bin";

// Prepares the tables in free mode, solves the undamped eigenproblem and writes the
// natural frequencies (rad/s, mode 1 the rigid-body mode at 0.0) to "NaturalFrequency.bin".
// Keeps nothing: the forced vibration starts from the tables alone.
void FREEVIBRATIONCALCULATION(MassTable& MASS_TABLE, ShaftTable& SHAFT_TABLE,
                              const ViscousDamperTable& VISCOUSDAMPER_TABLE,
                              const LinearCouplingTable& LINEARCOUPLING_TABLE,
                              const ProgressiveCouplingTable& PROGRESSIVECOUPLING_TABLE,
                              const GeislingerCouplingTable& GEISLINGERCOUPLING_TABLE,
                              PropellerTable& PROPELLER_TABLE, const DieselTable& DIESEL_TABLE);

}  // namespace qm::FREEVIBRATION
