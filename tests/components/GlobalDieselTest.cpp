// Diesel engine model: operating point, firing bookkeeping, load-case pressures, formula
// damping and the order axis. Expected values are worked by hand; EXPECT_DOUBLE_EQ allows
// 4 ulp, far less than the gap between a single-precision constant and its short decimal.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "components/GlobalDiesel.h"

using namespace qm;
using namespace qm::GLOBAL_DIESEL;

namespace {

DieselTable one_engine() {
    DieselTable table;
    table.allocate(1);
    return table;
}

TEST(GlobalDiesel, RecordDefaultsKeepTheirSinglePrecisionDigits) {
    const DieselRecord e;
    EXPECT_EQ(e.COMPEXP, 1.3899999856948853);  // not 1.39
    EXPECT_EQ(e.EXPAEXP, 1.3300000429153442);  // not 1.33
    EXPECT_EQ(e.RPMRATIO, 1.0);
    EXPECT_EQ(e.MIPLIMIT, 1.0);
    EXPECT_EQ(e.ME, 1.0);
    EXPECT_EQ(e.FORMFACTOR, 1.0);
    EXPECT_TRUE(e.ISTHEORETICALPRESURE);
    EXPECT_TRUE(e.ISFORMULADAMPING);
    EXPECT_TRUE(e.MEANINDICATEDPRESSURE.empty());
}

TEST(GlobalDiesel, LookupsAndSettersThatDoMore) {
    DieselTable table;
    EXPECT_EQ(GET_DIESEL_NUMBER(table), 0);
    EXPECT_EQ(GET_DIESEL_IDIESEL(table, 1), 0);
    EXPECT_FALSE(GET_DIESEL_CONTAINFORMULADAMPING(table));

    table.allocate(3);
    table(1).ID = 5;
    table(2).ID = 8;
    table(3).ID = 5;
    EXPECT_EQ(GET_DIESEL_IDIESEL(table, 5), 1);
    EXPECT_EQ(GET_DIESEL_IDIESEL(table, 8), 2);
    EXPECT_EQ(GET_DIESEL_IDIESEL(table, 6), 0);

    for (int i = 1; i <= 3; ++i) table(i).ISFORMULADAMPING = false;
    EXPECT_FALSE(GET_DIESEL_CONTAINFORMULADAMPING(table));
    table(3).ISFORMULADAMPING = true;
    EXPECT_TRUE(GET_DIESEL_CONTAINFORMULADAMPING(table));

    const int stored[][2] = {{0, 0}, {1, 1}, {2, 2}, {3, 2}, {-1, 2}, {99, 2}};
    for (const auto& [given, kept] : stored) {
        SET_DIESEL_VEEFIRINGTYPE(table, 1, given);
        EXPECT_EQ(table(1).VEEFIRINGTYPE, kept) << "given " << given;
    }

    SET_DIESEL_NAME(table, 1, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    EXPECT_EQ(table(1).NAME, "ABCDEFGHIJKLMNOPQRST");
    SET_DIESEL_NAME(table, 2, "MainEngine   ");
    EXPECT_EQ(table(2).NAME, "MainEngine");
    SET_DIESEL_NORMALHARMONICFILE(table, 1, std::string(1200, 'h'));
    EXPECT_EQ(table(1).NORMALHARMONICFILE.size(), 1000U);
    SET_DIESEL_MISHARMONICFILE(table, 1, "mis.txt ");
    EXPECT_EQ(table(1).MISHARMONICFILE, "mis.txt");
}

TEST(GlobalDiesel, TorqueAndLoadOfTheOperatingPoint) {
    DieselTable table = one_engine();
    DieselRecord& e = table(1);
    // 1 MW at 600 rpm: 1e6 / (pi * 600 / 30) = 1e6 / 62.83185307179586
    e.POWER = 1e6;
    e.SPEED = 600.0;
    e.MCRTORQUE = 2.0 * 15915.494309189535;
    CALCULATE_DIESEL_TORQUE(table, 1);
    CALCULATE_DIESEL_LOADPERCENTAGE(table, 1);
    EXPECT_DOUBLE_EQ(e.TORQUE, 15915.494309189535);
    EXPECT_DOUBLE_EQ(e.LOADPERCENTAGE, 0.5);

    // Guards: standstill gives no torque, a zero rating no load.
    e.SPEED = 0.0;
    CALCULATE_DIESEL_TORQUE(table, 1);
    EXPECT_EQ(e.TORQUE, 0.0);
    e.TORQUE = 1000.0;
    e.MCRTORQUE = 0.0;
    CALCULATE_DIESEL_LOADPERCENTAGE(table, 1);
    EXPECT_EQ(e.LOADPERCENTAGE, 0.0);
}

TEST(GlobalDiesel, FiringCylindersAndPowerShare) {
    DieselTable table = one_engine();
    DieselRecord& e = table(1);
    e.NCYLINDER = 4;
    e.FIRINGSTATUSA = {1, 1, 5, 1, 1};  // fifth entry lies past NCYLINDER
    e.FIRINGPERCENTA[2] = 40.0;
    e.FIRINGSTATUSB = {5, 5, 5, 5};
    e.FIRINGPERCENTB = {10.0, 10.0, 10.0, 10.0};

    // In-line: bank B is never looked at. n = 4, c = 1, s = 0.4: (4 - 0.4) / (4 - 1) = 1.2
    EXPECT_EQ(GET_DIESEL_NFIRINGCYLINDER(table, 1), 4);
    EXPECT_DOUBLE_EQ(GET_DIESEL_POWERCYLPERCENTINCREASED(table, 1), 1.2);

    // Only compression, open valve and removed piston don't fire.
    e.FIRINGSTATUSA = {1, 2, 3, 4};
    EXPECT_EQ(GET_DIESEL_NFIRINGCYLINDER(table, 1), 1);

    // V engine: A {1, 5}, B {5, 1} at 50 % and 70 %: n = 4, c = 2, s = 1.2, (4 - 1.2) / 2 = 1.4
    e.NCYLINDER = 2;
    e.ISVENGINE = true;
    e.FIRINGSTATUSA = {1, 5};
    e.FIRINGPERCENTA = {0.0, 50.0};
    e.FIRINGSTATUSB = {5, 1};
    e.FIRINGPERCENTB = {70.0, 0.0};
    EXPECT_EQ(GET_DIESEL_NFIRINGCYLINDER(table, 1), 4);
    EXPECT_DOUBLE_EQ(GET_DIESEL_POWERCYLPERCENTINCREASED(table, 1), 1.4);

    // Every firing cylinder partial: nothing to take over, factor 1.
    e.FIRINGSTATUSA = {5, 5};
    e.FIRINGSTATUSB = {5, 5};
    EXPECT_EQ(GET_DIESEL_POWERCYLPERCENTINCREASED(table, 1), 1.0);
}

TEST(GlobalDiesel, RatedMeanEffectivePressureCountsCylinders) {
    DieselTable table = one_engine();
    DieselRecord& e = table(1);
    e.MCRPOWER = 4e6;
    e.MCRSPEED = 120.0;
    e.BORE = 0.5;
    e.STROKE = 2.0;
    e.NSTROKE = 2;
    e.NCYLINDER = 4;
    e.ISVENGINE = true;
    e.FIRINGSTATUSA = {1, 1, 2, 1};
    e.FIRINGSTATUSB = {1, 1, 1, 1};
    // All cylinders of both banks, z = 8: 5e5 / (120 / 60 * pi1 * 0.25 * 0.25 * 2)
    EXPECT_DOUBLE_EQ(CALCULATE_DIESEL_MEPMCR(table, 1, false), 636619.7546520227);
    // Firing only, z = 7: (4e6 / 7) / the same
    EXPECT_DOUBLE_EQ(CALCULATE_DIESEL_MEPMCR(table, 1, true), 727565.433888026);
    // No firing cylinder: no pressure rather than a division by zero.
    e.FIRINGSTATUSA = {2, 2, 2, 2};
    e.FIRINGSTATUSB = {3, 3, 3, 3};
    EXPECT_EQ(CALCULATE_DIESEL_MEPMCR(table, 1, true), 0.0);
}

// In-line four-stroke of 2 cylinders, 100 kW each at 100 rpm, running at half torque:
// POWERPERCYL 50 kW at 100 rpm, so the torque ratio is 0.5.
DieselTable half_load_engine() {
    DieselTable table = one_engine();
    DieselRecord& e = table(1);
    e.ID = 3;
    e.NSTROKE = 4;
    e.NCYLINDER = 2;
    e.FIRINGSTATUSA = {1, 1};
    e.MCRPOWER = 2e5;
    e.MCRSPEED = 100.0;
    e.BORE = 1.0;
    e.STROKE = 1.2;
    e.ME = 0.8;
    e.MIPLIMIT = 1.2;
    e.PCHARGEAIR = 300001.0;
    e.PCOMP = 1e7;
    e.PMAX = 1.5e7;
    e.ILOADCASE = 2;
    e.SPEED = 100.0;
    e.POWERPERCYL = 5e4;
    e.LOADPERCENTAGE = 0.5;
    return table;
}

// Rated mean effective pressure per cylinder, pi1: 1e5 / (100/120 * pi1 * 0.25 * 1.2).
constexpr double MEPMCR = 127323.95093040455;
// Swept rate of the load case with the double pi: 100/120 * pi * 1 * 0.25 * 1.2.
constexpr double SWEPT = 0.7853981633974483;

TEST(GlobalDiesel, LoadCaseSettingOfTheWholeEngine) {
    DieselTable table = half_load_engine();
    LoadCaseGensetTable gensets;
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 0, true);
    const DieselRecord& e = table(1);
    // r = 0.5: 300001 - 300000 * 1.2799999713897705 * 0.5
    EXPECT_DOUBLE_EQ(e.PCHARGEAIRRPM, 108001.00429153442);
    // 1e7 - 1e7 * 1.3199999332427979 * 0.5
    EXPECT_DOUBLE_EQ(e.PCOMPRPM, 3400000.3337860107);
    // 1.5e7 - 1.5e7 * 0.800000011920929 * 0.5; the limit 1.1 * PCOMPRPM is below it. Had the
    // rated PCOMP been passed, 1.1 * 1e7 would have lifted it to 11000000.24.
    EXPECT_DOUBLE_EQ(e.PMAXRPM, 8999999.910593033);
    // 5e4 / SWEPT
    EXPECT_DOUBLE_EQ(e.MEPRPM, 63661.97723675814);
    // m1 = m2 = MEPMCR, me 0.8: a = m1 / 0.8, b = 0.2 m1, b + 0.5 (a - b) = 0.725 m1,
    // below mipMax = 1.2 * m2 / 0.8.
    EXPECT_DOUBLE_EQ(e.MIPRPM, 92309.8644245433);
}

TEST(GlobalDiesel, LoadCaseSettingWithPartialFiring) {
    DieselTable table = half_load_engine();
    DieselRecord& e = table(1);
    e.HASPARTIALFIRING = true;
    e.FIRINGSTATUSA = {1, 5};
    e.FIRINGPERCENTA = {0.0, 50.0};
    // n = 2, c = 1, s = 0.5: factor (2 - 0.5) / (2 - 1) = 1.5
    LoadCaseGensetTable gensets;

    // The partial cylinder delivers 50 %: P = 2.5e4.
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 2, true);
    EXPECT_DOUBLE_EQ(e.MEPRPM, 2.5e4 / SWEPT);
    // m1 is raised by the factor for every cylinder: 0.725 * 1.5 * MEPMCR
    EXPECT_DOUBLE_EQ(e.MIPRPM, 138464.79663681495);
    const double partialPmax = e.PMAXRPM;

    // A normal cylinder and the whole engine take over the rest: P = 7.5e4.
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 1, true);
    EXPECT_DOUBLE_EQ(e.MEPRPM, 7.5e4 / SWEPT);
    EXPECT_GT(e.PMAXRPM, partialPmax);
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 0, true);
    EXPECT_DOUBLE_EQ(e.MEPRPM, 95492.96585513721);

    // At 90 % load the mean indicated pressure meets its limit 1.2 * MEPMCR / 0.8.
    e.LOADPERCENTAGE = 0.9;
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 0, true);
    EXPECT_DOUBLE_EQ(e.MIPRPM, 1.5 * MEPMCR);
}

TEST(GlobalDiesel, LoadCaseSettingOfGensetAndHarmonicEngines) {
    DieselTable table = half_load_engine();
    DieselRecord& e = table(1);
    e.ISGENSET = true;
    LoadCaseGensetTable gensets;
    gensets.allocate(3);
    gensets(1) = {7, 150e5, 100e5, 0.0};
    gensets(2) = {3, 150e5, 100e5, 0.0};  // engine 3, load case 1
    gensets(3) = {3, 1e5, 2e5, 0.0};      // engine 3, load case 2
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 0, true);
    // The table's pressures stand without the limits of the load laws (1e5 is far below
    // 0.3 * PMAX and below the compression pressure); the inlet pressure still follows the law.
    EXPECT_EQ(e.PMAXRPM, 1e5);
    EXPECT_EQ(e.PCOMPRPM, 2e5);
    EXPECT_DOUBLE_EQ(e.PCHARGEAIRRPM, 108001.00429153442);

    // Harmonic-file engine: the three pressures stay as they were, the mean ones are set.
    e.ISTHEORETICALPRESURE = false;
    e.PMAXRPM = e.PCOMPRPM = e.PCHARGEAIRRPM = -1.0;
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 0, true);
    EXPECT_EQ(e.PMAXRPM, -1.0);
    EXPECT_EQ(e.PCOMPRPM, -1.0);
    EXPECT_EQ(e.PCHARGEAIRRPM, -1.0);
    EXPECT_DOUBLE_EQ(e.MEPRPM, 63661.97723675814);

    // Standstill: no mean effective pressure, and nothing infinite anywhere.
    e.ISTHEORETICALPRESURE = true;
    e.ISGENSET = false;
    e.SPEED = 0.0;
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 0, true);
    EXPECT_EQ(e.MEPRPM, 0.0);
    EXPECT_EQ(e.PCHARGEAIRRPM, 100000.0);
    EXPECT_TRUE(std::isfinite(e.MIPRPM) && std::isfinite(e.PMAXRPM) && std::isfinite(e.PCOMPRPM));
}

TEST(GlobalDiesel, FormulaDampingOfCylinderAndCrankThrow) {
    DieselTable table = one_engine();
    DieselRecord& e = table(1);
    e.SPEED = 100.0;
    e.CYLABSDAMPING = 2.0;
    e.EXPCYLABSDAMPING = 1.5;
    e.CRANKRELDAMPING = 3.0;
    e.EXPCRANKRELDAMPING = 2.0;
    // 2 * (4 * 100)^1.5 = 2 * 8000; 3 * (0.5 * 100)^2 = 3 * 2500; the speed stays in rpm.
    EXPECT_DOUBLE_EQ(CALCULATE_DIESEL_DAMPING_CYLINDER(table, 1, 4.0), 16000.0);
    EXPECT_DOUBLE_EQ(CALCULATE_DIESEL_DAMPING_CRANKTHROW(table, 1, 0.5), 7500.0);
    EXPECT_EQ(CALCULATE_DIESEL_DAMPING_CYLINDER(table, 0, 4.0), 0.0);  // no engine row

    // Zero order or speed: 0 with a positive exponent, the coefficient itself with exponent
    // 0, and 0.0 instead of infinity with a negative one.
    EXPECT_EQ(CALCULATE_DIESEL_DAMPING_CYLINDER(table, 1, 0.0), 0.0);
    e.EXPCYLABSDAMPING = 0.0;
    EXPECT_EQ(CALCULATE_DIESEL_DAMPING_CYLINDER(table, 1, 0.0), 2.0);
    e.EXPCYLABSDAMPING = -0.5;
    EXPECT_EQ(CALCULATE_DIESEL_DAMPING_CYLINDER(table, 1, 0.0), 0.0);
    e.SPEED = 0.0;
    e.EXPCRANKRELDAMPING = -1.0;
    EXPECT_EQ(CALCULATE_DIESEL_DAMPING_CRANKTHROW(table, 1, 3.0), 0.0);

    e.SPEED = 100.0;
    e.ISFORMULADAMPING = false;
    EXPECT_EQ(CALCULATE_DIESEL_DAMPING_CYLINDER(table, 1, 4.0), 0.0);
    EXPECT_EQ(CALCULATE_DIESEL_DAMPING_CRANKTHROW(table, 1, 0.5), 0.0);
}

TEST(GlobalDiesel, OrderAxisOfAllEngines) {
    DieselTable table;
    EXPECT_EQ(GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table), 0);
    table.allocate(0);
    EXPECT_EQ(GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table), 0);

    table.allocate(2);
    table(1).NSTROKE = 2;
    table(2).NSTROKE = 2;
    EXPECT_EQ(GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table), 20);
    std::vector<double> orders(50, -1.0);  // replaced, not appended to
    GET_DIESEL_HARMONICORDER(table, orders);
    ASSERT_EQ(orders.size(), 20U);
    EXPECT_EQ(orders.front(), 1.0);
    EXPECT_EQ(orders.back(), 20.0);

    // One four-stroke (any value but 2) makes half orders for all engines.
    table(2).NSTROKE = 4;
    EXPECT_EQ(GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table), 24);
    table(2).NSTROKE = 0;
    EXPECT_EQ(GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table), 24);
    GET_DIESEL_HARMONICORDER(table, orders);
    ASSERT_EQ(orders.size(), 24U);
    EXPECT_EQ(orders[0], 0.5);
    EXPECT_EQ(orders[1], 1.0);
    EXPECT_EQ(orders[23], 12.0);
}

}  // namespace
