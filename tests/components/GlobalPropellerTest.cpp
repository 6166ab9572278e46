// Propeller model: inertia with entrained water, the five damping models, the load case
// setting and the table-wide ice and phase queries. Expected values are worked by hand;
// EXPECT_DOUBLE_EQ (4 ulp) separates 4.271 from 4.270999908447266.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "components/GlobalPropeller.h"

using namespace qm;
using namespace qm::GLOBAL_PROPELLER;

namespace {

PropellerTable one_propeller() {
    PropellerTable table;
    table.allocate(1);
    return table;
}

TEST(GlobalPropeller, IceAndPhaseQueriesOverTheTable) {
    PropellerTable table;
    EXPECT_EQ(GET_PROPELLERICEHARMONICORDERNUMBER(table), 0);
    EXPECT_FALSE(GET_PROPELLER_ISMODELCONSIDERPHASEANGLE(table));

    table.allocate(3);
    table(2).ID = 9;
    EXPECT_EQ(GET_PROPELLER_IPROPELLER(table, 9), 2);
    table(1).NBLADE = 3;
    table(2).NBLADE = 4;
    table(3).NBLADE = 5;
    EXPECT_EQ(GET_PROPELLER_NICEFOURIERORDERS(table, 2), 17);  // 4 * 4 + 1

    EXPECT_FALSE(GET_PROPELLER_ISMODELCONSIDERPHASEANGLE(table));
    table(3).CONSIDERPHASEANGLE = true;
    EXPECT_TRUE(GET_PROPELLER_ISMODELCONSIDERPHASEANGLE(table));
    // The first ice propeller in row order decides the ice harmonics: 4 * 4. With ice
    // anywhere, phase angles are off whatever CONSIDERPHASEANGLE says.
    table(2).HASICEEXCITATION = table(3).HASICEEXCITATION = true;
    EXPECT_EQ(GET_PROPELLERICEHARMONICORDERNUMBER(table), 16);
    EXPECT_FALSE(GET_PROPELLER_ISMODELCONSIDERPHASEANGLE(table));

    table(1).SPEED = 75.0;
    table(1).MCRSPEED = 100.0;
    EXPECT_EQ(CALCULATE_SPEEDRATIO(table, 1), 0.75);
    table(1).MCRSPEED = 0.0;
    EXPECT_EQ(CALCULATE_SPEEDRATIO(table, 1), 0.0);
}

TEST(GlobalPropeller, InertiaTotalFollowsTheLoadCaseOnlyInForcedVibration) {
    std::vector<std::string> messages;
    PropellerTable table = one_propeller();
    PropellerRecord& p = table(1);
    p.INERTIAAIR = 3000.0;
    p.INERTIAWATER = 1000.0;
    p.NLOADCASE = 3;
    p.VARIABLEENTRAINEDWATERTABLE = {1100.0, 1200.0, 1300.0};

    // Constant water: nominal in both calculations.
    CALCULATE_PROPELLER_INERTIATOTAL(false, table, 1, 2, &messages);
    EXPECT_EQ(p.INERTIATOTAL, 4000.0);

    p.ISVARIABLEENTRAINEDWATER = true;
    CALCULATE_PROPELLER_INERTIATOTAL(true, table, 1, 2, &messages);
    EXPECT_EQ(p.INERTIATOTAL, 4000.0);  // free vibration: nominal water
    CALCULATE_PROPELLER_INERTIATOTAL(false, table, 1, 2, &messages);
    EXPECT_EQ(p.INERTIATOTAL, 4200.0);  // forced: load case 2
    EXPECT_TRUE(messages.empty());

    // A load case past NLOADCASE falls back on the nominal water and reports it; so does
    // one that the table read doesn't reach, and a load case number below 1.
    CALCULATE_PROPELLER_INERTIATOTAL(false, table, 1, 4, &messages);
    EXPECT_EQ(p.INERTIATOTAL, 4000.0);
    const std::string line = "Error occurs when setting variable propeller entrained water inertia at Propeller!";
    EXPECT_EQ(messages, std::vector<std::string>{line});
    p.NLOADCASE = 5;
    EXPECT_EQ(CALCULATE_PROPELLER_CURRENTINERTIAWATER(table, 1, 5, &messages), 1000.0);
    EXPECT_EQ(CALCULATE_PROPELLER_CURRENTINERTIAWATER(table, 1, 0, &messages), 1000.0);
    EXPECT_EQ(messages, (std::vector<std::string>{line, line, line}));
    // Without a place for messages the water is the same and nothing is written anywhere.
    EXPECT_EQ(CALCULATE_PROPELLER_CURRENTINERTIAWATER(table, 1, 0), 1000.0);
}

// Five-metre propeller on a one-metre boss, pitch ratio 1, area ratio 0.5, at 100 rpm.
PropellerTable schwanecke_propeller() {
    PropellerTable table = one_propeller();
    table(1) = {.SPEED = 100.0, .DB = 1.0, .DI = 5.0, .PITCHRATIO = 1.0, .EXPAREARATIO = 0.5,
                .DAMPINGMETHOD = SCHWANEKE};
    return table;
}

TEST(GlobalPropeller, SchwaneckeDampingFactorsAndBossGuards) {
    // x = 5, s = 2: A = 2/40 + 2/300 - 2/375 + atan(2) * 0.125 = 0.18972692305759464
    // c = 4.270999908447266 * A * 5^5 * 1 * 0.5 * 100 = 126613.07359515129 (4.271: 126613.0763)
    constexpr double C = 126613.07359515129;
    struct Case {
        double pitch_percent;
        bool fixed_pitch, ducted;
        double db, di, expected;
    };
    const Case cases[] = {
        {0.8, true, false, 1.0, 5.0, C},                  // fixed pitch ignores PITCHPERCENT
        {0.8, false, false, 1.0, 5.0, 101290.45887612103},  // controllable at 80 %
        {1.0, false, false, 1.0, 5.0, C},                 // at 100 % or more not scaled
        {1.0, false, true, 1.0, 5.0, 164596.98963631486},   // ducted: c * 1.2999999523162842
        {0.8, false, true, 1.0, 5.0, 131677.5917090519},    // both factors
        // No boss: A -> atan(inf) * 0.125 = pi / 16; with DI = 2: 4.271 * pi/16 * 32 * 0.5 * 100.
        {1.0, true, false, 0.0, 2.0, 1341.7741935860608},
        {1.0, true, false, 2.0, 2.0, 0.0},  // boss as large as the propeller: no blade, no damping
        {1.0, true, false, 0.0, 0.0, 0.0},  // nothing at all: zero, not NaN
    };
    for (const Case& c : cases) {
        PropellerTable table = schwanecke_propeller();
        PropellerRecord& p = table(1);
        p.PITCHPERCENT = c.pitch_percent;
        p.ISFIXEDPITCH = c.fixed_pitch;
        p.ISDUCTED = c.ducted;
        p.DB = c.db;
        p.DI = c.di;
        EXPECT_DOUBLE_EQ(CALCULATE_PROPELLER_SCHWANECHEDAMPING(table, 1), c.expected)
            << c.pitch_percent << " " << c.fixed_pitch << " " << c.ducted << " " << c.db << " " << c.di;
    }
}

TEST(GlobalPropeller, ArcherFrahmAndManualDamping) {
    // 60 rpm is 2 pi rad/s; I = 3000 + 1000; V = 20.
    PropellerTable table = one_propeller();
    PropellerRecord& p = table(1);
    p = {.MCRSPEED = 100.0, .MCRTORQUE = 9549.29631978034, .SPEED = 80.0, .TORQUE = 1e5, .INERTIAAIR = 3000.0,
         .INERTIAWATER = 1000.0, .ARCHERNUMBER = 30.0, .FRAHMNUMBER = 2.0, .DYNMAGNIFIER = 20.0};
    EXPECT_DOUBLE_EQ(CALCULATE_PROPELLER_ARCHERDAMPING(table, 1), 37500.0);  // 30 * 1e5 / 80
    // k = 91.25 * (9549.29631978034 / 9.54929631978034) / 100^2 = 9.125; 2 * k * 80 = 1460.
    // With 30 / pi in full precision it would be 1459.99996.
    EXPECT_DOUBLE_EQ(CALCULATE_PROPELLER_FRAHMDAMPING(table, 1), 1460.0);
    p.SPEED = 60.0;
    EXPECT_DOUBLE_EQ(CALCULATE_PROPELLER_MANUALDAMPING(table, 1), 1256.637061435917);  // 4000 * 2 pi / 20

    // Guards: no magnifier, standstill, no rated speed.
    p.DYNMAGNIFIER = 0.0;
    EXPECT_EQ(CALCULATE_PROPELLER_MANUALDAMPING(table, 1), 0.0);
    p.SPEED = 0.0;
    EXPECT_EQ(CALCULATE_PROPELLER_ARCHERDAMPING(table, 1), 0.0);
    p.MCRSPEED = 0.0;
    EXPECT_EQ(CALCULATE_PROPELLER_FRAHMDAMPING(table, 1), 0.0);
}

TEST(GlobalPropeller, VariableDampingAroundTheKnucklePoint) {
    PropellerTable table = one_propeller();
    PropellerRecord& p = table(1);
    // zeta = 1 / (2 * 20) = 0.025; the load case's water is not the damping's.
    p = {.MCRSPEED = 100.0, .INERTIAAIR = 3000.0, .INERTIAWATER = 1000.0, .KNUCKLEPOINT = 80.0,
         .DYNMAGNIFIERFORKNUCKLEPOINT = 20.0, .ISVARIABLEENTRAINEDWATER = true,
         .VARIABLEENTRAINEDWATERTABLE = {9000.0}, .NLOADCASE = 1};

    // Above the knuckle: V = 20, 4000 * (90 pi / 30) / 20
    p.SPEED = 90.0;
    EXPECT_DOUBLE_EQ(CALCULATE_PROPELLER_VARIABLEDAMPING(table, 1), 1884.9555921538758);
    EXPECT_DOUBLE_EQ(p.DYNMAGNIFIER, 20.0);
    // Half the knuckle speed: zeta = 0.025 / 80 * 40 = 0.0125, V = 40, 4000 * (40 pi / 30) / 40
    p.SPEED = 40.0;
    EXPECT_DOUBLE_EQ(CALCULATE_PROPELLER_VARIABLEDAMPING(table, 1), 418.87902047863906);
    EXPECT_DOUBLE_EQ(p.DYNMAGNIFIER, 40.0);
    // Standstill: the damping ratio is 0; undamped, magnifier 0, nothing infinite.
    p.SPEED = 0.0;
    EXPECT_EQ(CALCULATE_PROPELLER_VARIABLEDAMPING(table, 1), 0.0);
    EXPECT_EQ(p.DYNMAGNIFIER, 0.0);
    // No magnifier at the knuckle: 0, and DYNMAGNIFIER is left as it was.
    p.SPEED = 40.0;
    p.DYNMAGNIFIER = 7.0;
    p.DYNMAGNIFIERFORKNUCKLEPOINT = 0.0;
    EXPECT_EQ(CALCULATE_PROPELLER_VARIABLEDAMPING(table, 1), 0.0);
    EXPECT_EQ(p.DYNMAGNIFIER, 7.0);

    // Exactly at the knuckle (63 rpm is 70 % of 90) the upper branch holds: zeta = 1/6 and
    // V = 3 exactly; the lower branch would round to 2.9999999999999996.
    p.DYNMAGNIFIERFORKNUCKLEPOINT = 3.0;
    p.KNUCKLEPOINT = 70.0;
    p.MCRSPEED = 90.0;
    p.SPEED = 63.0;
    EXPECT_EQ(CALCULATE_PROPELLER_VARIABLEDAMPING(table, 1), 8796.45943005142);  // 4000 * (63 pi / 30) / 3
    EXPECT_EQ(p.DYNMAGNIFIER, 3.0);
}

TEST(GlobalPropeller, LoadCaseSettingRunsTheChosenModel) {
    PropellerTable table = schwanecke_propeller();
    PropellerRecord& p = table(1);
    p.SPEED = 80.0;
    p.TORQUE = 1e5;
    p.NBLADE = 4;
    p.TORQUEPERCENT1 = 0.02;
    p.TORQUEPERCENT2 = 0.005;
    p.ARCHERNUMBER = 30.0;
    p.DAMPINGMETHOD = ARCHER;
    CALCULATE_PROPELLER_LOADCASESETTING(table, 1);
    EXPECT_DOUBLE_EQ(p.ABSDAMPING, 37500.0);  // 30 * 1e5 / 80
    EXPECT_EQ(p.DAMPING, p.ABSDAMPING);
    EXPECT_EQ(p.BLADEFREQUENCY, 320.0);  // 80 rpm * 4 blades
    EXPECT_DOUBLE_EQ(p.TORQUEAMP1, 2000.0);
    EXPECT_DOUBLE_EQ(p.TORQUEAMP2, 500.0);

    // Each code reaches its own model (all five differ here); an unknown code gives 0.
    p.MCRSPEED = 100.0;
    p.MCRTORQUE = 9549.29631978034;
    p.FRAHMNUMBER = 2.0;
    p.INERTIAAIR = 4000.0;
    p.DYNMAGNIFIERFORKNUCKLEPOINT = 10.0;
    p.DYNMAGNIFIER = 20.0;
    const double model[] = {CALCULATE_PROPELLER_SCHWANECHEDAMPING(table, 1), CALCULATE_PROPELLER_ARCHERDAMPING(table, 1),
                            CALCULATE_PROPELLER_FRAHMDAMPING(table, 1), CALCULATE_PROPELLER_MANUALDAMPING(table, 1),
                            CALCULATE_PROPELLER_VARIABLEDAMPING(table, 1)};
    for (int method = -1; method <= 6; ++method) {
        p.DYNMAGNIFIER = 20.0;  // the variable model overwrites it
        p.DAMPINGMETHOD = method;
        CALCULATE_PROPELLER_ABSDAMPING(table, 1);
        const bool known = method >= SCHWANEKE && method <= VARIABLE;
        EXPECT_EQ(p.ABSDAMPING, known ? model[method - 1] : 0.0) << "method " << method;
    }
}

}  // namespace
