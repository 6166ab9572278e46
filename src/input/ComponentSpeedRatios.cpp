#include "input/ComponentSpeedRatios.h"

namespace qm::IMPORTINPUTFILE {

namespace {

// Each row of `table` takes the speed ratio of the inertia whose ID `node` gives.
template <class Table, class Node>
void from_inertia(Table& table, const MassTable& masses, Node node) {
    for (int i = 1; i <= row_count(table); ++i) {
        const int row = GLOBAL_MASS::GET_MASS_IMASS(masses, node(table(i)));
        if (row > 0) table(i).RPMRATIO = masses(row).RPMRATIO;
    }
}

// Each row of `table` takes the speed ratio of the shaft named by its SHAFTNODE.
template <class Table>
void from_shaft(Table& table, const ShaftTable& shafts) {
    for (int i = 1; i <= row_count(table); ++i) {
        const int row = GLOBAL_SHAFT::GET_SHAFT_ISHAFT(shafts, table(i).SHAFTNODE);
        if (row > 0) table(i).RPMRATIO = shafts(row).RPMRATIO;
    }
}

}  // namespace

void set_component_speed_ratios(ModelTables& t) {
    const MassTable& m = t.MASS_TABLE;
    from_inertia(t.DIESEL_TABLE, m, [](const DieselRecord& r) { return r.CYLINDERS[0]; });
    from_inertia(t.RECIPROCATINGPUMP_TABLE, m, [](const ReciprocatingPumpRecord& r) { return r.CYLINDERS[0]; });
    from_inertia(t.ELECTRICMOTOR_TABLE, m, [](const ElectricMotorRecord& r) { return r.ELECTRICMOTORNODE; });
    const auto turbine = [](const TurbineRecord& r) { return r.TURBINENODE; };
    from_inertia(t.GASTURBINE_TABLE, m, turbine);
    from_inertia(t.STEAMTURBINE_TABLE, m, turbine);
    from_inertia(t.GENERATOR_TABLE, m, [](const GeneratorRecord& r) { return r.GENERATORNODE; });
    from_inertia(t.CENTRIFUGALPUMP_TABLE, m,
                 [](const CentrifugalPumpRecord& r) { return r.CENTRIFUGALPUMPNODE; });
    from_shaft(t.LINEARCOUPLING_TABLE, t.SHAFT_TABLE);
    from_shaft(t.PROGRESSIVECOUPLING_TABLE, t.SHAFT_TABLE);
    from_shaft(t.GEISLINGERCOUPLING_TABLE, t.SHAFT_TABLE);
    from_inertia(t.PROPELLER_TABLE, m, [](const PropellerRecord& r) { return r.PROPELLERNODE; });
    from_inertia(t.RUBBERDAMPER_TABLE, m, [](const RubberDamperRecord& r) { return r.TURNINGMASSNODE; });
    from_inertia(t.STEELSPRINGDAMPER_TABLE, m,
                 [](const SteelSpringDamperRecord& r) { return r.OUTERMEMBERNODE; });
    from_inertia(t.VISCOUSDAMPER_TABLE, m, [](const ViscousDamperRecord& r) { return r.CASINGNODE; });
}

}  // namespace qm::IMPORTINPUTFILE
