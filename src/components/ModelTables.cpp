#include "components/ModelTables.h"

namespace qm {

void ModelTables::deallocate_all() {
    MASS_TABLE.deallocate();
    SHAFT_TABLE.deallocate();
    VISCOUSDAMPER_TABLE.deallocate();
    RUBBERDAMPER_TABLE.deallocate();
    STEELSPRINGDAMPER_TABLE.deallocate();
    LINEARCOUPLING_TABLE.deallocate();
    PROGRESSIVECOUPLING_TABLE.deallocate();
    GEISLINGERCOUPLING_TABLE.deallocate();
    DIESEL_TABLE.deallocate();
    ELECTRICMOTOR_TABLE.deallocate();
    GASTURBINE_TABLE.deallocate();
    STEAMTURBINE_TABLE.deallocate();
    PROPELLER_TABLE.deallocate();
    GENERATOR_TABLE.deallocate();
    CENTRIFUGALPUMP_TABLE.deallocate();
    RECIPROCATINGPUMP_TABLE.deallocate();
    LOADCASE_TABLE.deallocate();
    LOADCASE_SPEED.deallocate();
    LOADCASE_POWER.deallocate();
    LOADCASEGENSET_TABLE.deallocate();
}

}  // namespace qm
