#include <gtest/gtest.h>

#include <cmath>
#include <complex>

#include "../support/TestModels.h"
#include "base/ComponentCodes.h"
#include "base/Constants.h"
#include "forced/LoadCaseSetting.h"
#include "forced/SourceDriver.h"

namespace qm {
namespace {

using namespace FORCEDVIBRATION;

// Closed forms of a one-inertia line solved by LU agree to a few units in the last place.
constexpr double SOLVE_TOLERANCE = 1e-13;

void add_generator(ModelTables& t, int row, int node, double speed, double amp1) {
    t.GENERATOR_TABLE(row) = {.ID = row, .GENERATORNODE = node, .SPEED = speed, .GENERATORORDERNUMBER = 2,
                              .GENERATORORDER = {2.0, 4.0}, .GENTORQUEAMP = {amp1, 0.5 * amp1}};
}

KindResults run(ModelTables& t, SourceKind kind, int u, std::vector<double>& EXFO) {
    KindResults res;
    res.allocate(unit_count(kind, t), order_count(kind, t, false), t.MASS_TABLE.size(), t.SHAFT_TABLE.size());
    const SolverFailure f = run_source_driver(kind, t, u, false, 1, res, EXFO);
    EXPECT_EQ(f.routine, ROUTINE_NONE);
    return res;
}

TEST(SourceDriver, UnitOnAGearedInertiaIsSolvedAtItsOwnSpeed) {
    // One inertia at ratio 3 with a generator on it: referred to the generator the line is
    // the plain inertia, x = g / (-w^2 I + i w c), whatever the ratio.
    ModelTables t = test::chain(1, 20.0);
    t.MASS_TABLE(1).RPMRATIO = 3.0;
    t.MASS_TABLE(1).ABSDAMPING = 500.0;
    t.GENERATOR_TABLE.allocate(1);
    add_generator(t, 1, 1, 600.0, 1000.0);
    std::vector<double> EXFO;
    KindResults r = run(t, GENERATOR, 1, EXFO);
    EXPECT_EQ(EXFO, (std::vector<double>{2.0, 4.0, 0.0, 0.0}));
    const double omega = 600.0 * PI / 30.0;
    EXPECT_EQ(r.OMEGA[0], omega * 2.0);
    for (int o = 1; o <= 2; ++o) {
        const double w = omega * EXFO[o - 1];
        const std::complex<double> g(0.0, -0.5 * 1000.0 / o);
        const std::complex<double> x = g / std::complex<double>(-w * w * 20.0, w * 500.0);
        const auto k = static_cast<std::size_t>(o - 1);
        EXPECT_NEAR(r.XR[k], x.real(), SOLVE_TOLERANCE * std::abs(x));
        EXPECT_NEAR(r.XI[k], x.imag(), SOLVE_TOLERANCE * std::abs(x));
        EXPECT_EQ(r.VR[k], -w * r.XI[k]);
        EXPECT_EQ(r.AI[k], -(w * w) * r.XI[k]);
        EXPECT_EQ(r.AANGLE[k], r.XANGLE[k] + PI);
    }
    // Places behind the orders in use stay zero, angles included.
    EXPECT_EQ(std::vector<double>(r.VANGLE.begin() + 2, r.VANGLE.end()), std::vector<double>(2, 0.0));
    EXPECT_EQ(t.MASS_TABLE(1).RPMRATIO, 3.0);  // put back
}

TEST(SourceDriver, TwoSourcesOnOneGearboxEachReferredToItsOwnRatio) {
    // Generator 1 at ratio 1 (mass 1) and generator 2 at ratio 2 (mass 3) on a gear wheel
    // (mass 2, ratio 1) driving a load (mass 4, ratio 0.5).
    auto model = [](double scale) {
        ModelTables t = test::Model()
                            .mass(1, 10.0, scale).mass(2, 20.0, scale).mass(3, 30.0, 2.0 * scale).mass(4, 40.0, 0.5 * scale)
                            .shaft(1, 2, 2.0e6, scale).shaft(2, 3, 1.5e6, 2.0 * scale).shaft(2, 4, 1.0e6, 0.5 * scale)
                            .t;
        for (int m = 1; m <= 4; ++m) t.MASS_TABLE(m).ABSDAMPING = 50.0;
        t.GENERATOR_TABLE.allocate(2);
        add_generator(t, 1, 1, 500.0, 800.0);
        add_generator(t, 2, 3, 1000.0, 300.0);
        return t;
    };
    ModelTables geared = model(1.0);
    std::vector<double> EXFO;
    KindResults r = run(geared, GENERATOR, 2, EXFO);
    // The same line already referred to generator 2 must give the same numbers.
    ModelTables referred = model(0.5);
    KindResults s = run(referred, GENERATOR, 2, EXFO);
    const auto b = static_cast<std::ptrdiff_t>(r.block(2, 4));
    EXPECT_EQ(std::vector<double>(r.XR.begin() + b, r.XR.end()), std::vector<double>(s.XR.begin() + b, s.XR.end()));
    EXPECT_EQ(std::vector<double>(r.AI.begin() + b, r.AI.end()), std::vector<double>(s.AI.begin() + b, s.AI.end()));
    EXPECT_NE(r.XR[static_cast<std::size_t>(b) + 1], 0.0);  // the gear wheel moves
    for (int m = 1; m <= 4; ++m) EXPECT_EQ(geared.MASS_TABLE(m).RPMRATIO, model(1.0).MASS_TABLE(m).RPMRATIO);
}

TEST(SourceKinds, ExcitationOfPropellerAndFourOrderMachines) {
    ModelTables t = test::chain(1, 20.0);
    t.PROPELLER_TABLE.allocate(1);
    t.PROPELLER_TABLE(1) = {.PROPELLERNODE = 1, .TORQUE = 100000.0, .NBLADE = 4, .TORQUEPERCENT1 = 0.05};
    UnitExcitation ex;
    unit_excitation(PROPELLER, t, 1, false, 2, ex);
    EXPECT_EQ(ex.FOIM, (std::vector<double>{-2500.0, -0.0}));
    EXPECT_EQ(ex.EXFO, (std::vector<double>{4.0, 8.0}));
    EXPECT_EQ(ex.BASEORDER, 4.0);
    // With ice in the model the orders are multiples of the shaft speed, and a propeller
    // without ice of its own has zero excitation.
    t.PROPELLER_TABLE(1).ICEFOURIERCOEFFICIENT[0] = {1.0, -2.0};
    unit_excitation(PROPELLER, t, 1, true, 3, ex);
    EXPECT_EQ(ex.FOIM, std::vector<double>(3, 0.0));
    t.PROPELLER_TABLE(1).HASICEEXCITATION = true;
    unit_excitation(PROPELLER, t, 1, true, 3, ex);
    EXPECT_EQ(ex.EXFO, (std::vector<double>{1.0, 2.0, 3.0}));
    EXPECT_EQ(ex.FOIM, (std::vector<double>{-2.0, 0.0, 0.0}));
    EXPECT_EQ(ex.BASEORDER, 1.0);

    // Motor: orders kept with their fractions, the lowest of those in use is the base.
    t.ELECTRICMOTOR_TABLE.allocate(1);
    t.ELECTRICMOTOR_TABLE(1) = {.SPEED = 1000.0, .MOTORORDER = {3.0, 1.5, 0.5, 7.0}, .CONSTEXCITATIONFREQ = 750.0};
    GLOBAL_ELECTRICMOTOR::SET_ELECTRICMOTOR_MOTORORDERNUMBER(t.ELECTRICMOTOR_TABLE, 1, 2);
    unit_excitation(ELECTRICMOTOR, t, 1, false, 4, ex);
    EXPECT_EQ(ex.EXFO, (std::vector<double>{3.0, 1.5, 0.0, 0.0}));
    EXPECT_EQ(ex.BASEORDER, 1.5);
    EXPECT_EQ(ex.SPEED, 1000.0);
    t.ELECTRICMOTOR_TABLE(1).EXCITATIONTYPE = 1;  // constant excitation: the converter's speed
    unit_excitation(ELECTRICMOTOR, t, 1, false, 4, ex);
    EXPECT_EQ(ex.SPEED, 750.0);

    // The same orders on a generator are whole numbers.
    t.GENERATOR_TABLE.allocate(2);
    t.GENERATOR_TABLE(1) = {.GENERATORORDERNUMBER = 2, .GENERATORORDER = {3.0, 1.5, 0.5, 7.0}};
    unit_excitation(GENERATOR, t, 1, false, 4, ex);
    EXPECT_EQ(ex.EXFO, (std::vector<double>{3.0, 1.0, 0.0, 0.0}));
    EXPECT_EQ(ex.BASEORDER, 1.0);
    EXPECT_TRUE(runs_driver(GENERATOR, t, 1));
    EXPECT_FALSE(runs_driver(GENERATOR, t, 2));  // order number 0
}

TEST(LoadCaseSetting, OperatingPointOfEachComponent) {
    ModelTables t = test::chain(2, 20.0);
    t.MASS_TABLE(2).RPMRATIO = 0.5;
    t.LOADCASE_SPEED.allocate(2);
    t.LOADCASE_SPEED(1) = 600.0;
    t.LOADCASE_SPEED(2) = 0.0;
    t.GENERATOR_TABLE.allocate(1);
    t.GENERATOR_TABLE(1) = {.ID = 5, .RPMRATIO = 0.5};
    GLOBAL_GENERATOR::SET_GENERATOR_GENERATORTORQUEPERCENT(t.GENERATOR_TABLE, 1, 0.1, 0.2, 0.0, 0.0);
    t.GASTURBINE_TABLE.allocate(1);
    t.GASTURBINE_TABLE(1) = {.ID = 9};
    t.LOADCASE_TABLE.allocate(3);
    t.LOADCASE_TABLE(1) = {CODES::COMPONENT_GENERATOR, 5};
    t.LOADCASE_TABLE(2) = {CODES::COMPONENT_GASTURBINE, 9};
    t.LOADCASE_TABLE(3) = {CODES::COMPONENT_GASTURBINE, 77};  // no such turbine: passed over
    t.LOADCASE_POWER.allocate(3, 2);
    t.LOADCASE_POWER(1, 1) = 3.0e5;
    t.LOADCASE_POWER(2, 1) = 0.0;
    MASSSTIFFNESSANDDAMPINGMATRIX::LOADCASESETTING(t, 1);
    EXPECT_EQ(t.MASS_TABLE(2).SPEED, 300.0);
    const GeneratorRecord& g = t.GENERATOR_TABLE(1);
    EXPECT_EQ(g.SPEED, 300.0);
    EXPECT_EQ(g.TORQUE, 3.0e5 / (300.0 * PI / 30.0));
    EXPECT_EQ(g.GENTORQUEAMP[1], g.TORQUE * 0.2);
    EXPECT_EQ(t.GASTURBINE_TABLE(1).TORQUE, 0.0);  // zero power, zero torque
    // A standstill is not guarded: the torque follows IEEE arithmetic.
    MASSSTIFFNESSANDDAMPINGMATRIX::LOADCASESETTING(t, 2);
    EXPECT_TRUE(std::isnan(t.GENERATOR_TABLE(1).TORQUE));
}

}  // namespace
}  // namespace qm
