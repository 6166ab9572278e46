// The twenty tables of one run. The entry owns one ModelTables for the length of a call;
// every stage receives the tables it needs by reference. All start unallocated.
#pragma once

#include "components/GlobalCentrifugalPump.h"
#include "components/GlobalDiesel.h"
#include "components/GlobalElectricMotor.h"
#include "components/GlobalGeislingerCoupling.h"
#include "components/GlobalGenerator.h"
#include "components/GlobalLinearCoupling.h"
#include "components/GlobalLoadCase.h"
#include "components/GlobalLoadCaseGenset.h"
#include "components/GlobalMass.h"
#include "components/GlobalProgressiveCoupling.h"
#include "components/GlobalPropeller.h"
#include "components/GlobalReciprocatingPump.h"
#include "components/GlobalRubberDamper.h"
#include "components/GlobalShaft.h"
#include "components/GlobalTurbine.h"
#include "components/GlobalSteelSpringDamper.h"
#include "components/GlobalViscousDamper.h"
#include "base/Table.h"

namespace qm {

struct ModelTables {
    MassTable MASS_TABLE;                                   // 1
    ShaftTable SHAFT_TABLE;                                 // 2
    ViscousDamperTable VISCOUSDAMPER_TABLE;                 // 3
    RubberDamperTable RUBBERDAMPER_TABLE;                   // 4
    SteelSpringDamperTable STEELSPRINGDAMPER_TABLE;         // 5
    LinearCouplingTable LINEARCOUPLING_TABLE;               // 6
    ProgressiveCouplingTable PROGRESSIVECOUPLING_TABLE;     // 7
    GeislingerCouplingTable GEISLINGERCOUPLING_TABLE;       // 8
    DieselTable DIESEL_TABLE;                               // 9
    ElectricMotorTable ELECTRICMOTOR_TABLE;                 // 10
    TurbineTable GASTURBINE_TABLE;                          // 11
    TurbineTable STEAMTURBINE_TABLE;                        // 12
    PropellerTable PROPELLER_TABLE;                         // 13
    GeneratorTable GENERATOR_TABLE;                         // 14
    CentrifugalPumpTable CENTRIFUGALPUMP_TABLE;             // 15
    ReciprocatingPumpTable RECIPROCATINGPUMP_TABLE;         // 16
    LoadCaseTable LOADCASE_TABLE;                           // 17
    Table<double> LOADCASE_SPEED;                           // 18: rpm per load case
    Array2D<double> LOADCASE_POWER;                         // 19: W, (component column, load case)
    LoadCaseGensetTable LOADCASEGENSET_TABLE;               // 20

    // Frees every allocated table in the order of their numbers 1 to 20.
    void deallocate_all();
};

}  // namespace qm
