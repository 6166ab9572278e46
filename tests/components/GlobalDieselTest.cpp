// Diesel engine model: operating point, firing bookkeeping, load-case pressures, formula
// damping and the order axis. Expected values are worked by hand; EXPECT_DOUBLE_EQ allows
// 4 ulp, far less than the gap between a single-precision constant and its short decimal.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "components/EngineFunctions.h"
#include "components/GlobalDiesel.h"

using namespace qm;
using namespace qm::GLOBAL_DIESEL;

namespace {

constexpr double INF = std::numeric_limits<double>::infinity();

DieselTable one_engine(const DieselRecord& e = {}) {
    DieselTable table;
    table.allocate(1);
    table(1) = e;
    return table;
}

TEST(GlobalDiesel, DefaultsLookupsAndSettersThatDoMore) {
    EXPECT_EQ(DieselRecord{}.COMPEXP, 1.3899999856948853);  // not 1.39
    EXPECT_EQ(DieselRecord{}.EXPAEXP, 1.3300000429153442);  // not 1.33

    DieselTable table;
    EXPECT_FALSE(GET_DIESEL_CONTAINFORMULADAMPING(table));
    table.allocate(2);
    table(2).ID = 8;
    EXPECT_EQ(GET_DIESEL_IDIESEL(table, 8), 2);
    EXPECT_TRUE(GET_DIESEL_CONTAINFORMULADAMPING(table));  // on by default
    table(1).ISFORMULADAMPING = table(2).ISFORMULADAMPING = false;
    EXPECT_FALSE(GET_DIESEL_CONTAINFORMULADAMPING(table));

    for (auto [given, kept] : {std::pair{0, 0}, {1, 1}, {2, 2}, {3, 2}, {-1, 2}}) {
        SET_DIESEL_VEEFIRINGTYPE(table, 1, given);
        EXPECT_EQ(table(1).VEEFIRINGTYPE, kept) << "given " << given;
    }
    SET_DIESEL_NAME(table, 1, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    EXPECT_EQ(table(1).NAME, "ABCDEFGHIJKLMNOPQRST");
}

TEST(GlobalDiesel, TorqueAndLoadOfTheOperatingPoint) {
    // 1 MW at 600 rpm: 1e6 / (pi * 600 / 30) = 15915.494309189535 Nm, half of the rating.
    DieselTable table = one_engine({.MCRTORQUE = 2.0 * 15915.494309189535, .POWER = 1e6, .SPEED = 600.0});
    DieselRecord& e = table(1);
    for (double speed : {600.0, 0.0}) {  // power at standstill: infinite torque and load
        e.SPEED = speed;
        CALCULATE_DIESEL_TORQUE(table, 1);
        CALCULATE_DIESEL_LOADPERCENTAGE(table, 1);
        EXPECT_DOUBLE_EQ(e.TORQUE, speed > 0 ? 15915.494309189535 : INF);
        EXPECT_DOUBLE_EQ(e.LOADPERCENTAGE, speed > 0 ? 0.5 : INF);
    }
    // Rows outside the table change nothing.
    CALCULATE_DIESEL_TORQUE(table, 2);
    CALCULATE_DIESEL_LOADPERCENTAGE(table, 0);
    EXPECT_EQ(e.TORQUE, INF);
}

TEST(GlobalDiesel, FiringCylindersAndPowerShare) {
    // In-line, the fifth status past NCYLINDER and bank B never looked at.
    // n = 4, c = 1, s = 0.4: (4 - 0.4) / (4 - 1) = 1.2
    DieselTable table = one_engine({.NCYLINDER = 4, .FIRINGSTATUSA = {1, 1, 5, 1, 1}, .FIRINGSTATUSB = {5, 5, 5, 5},
                                    .FIRINGPERCENTA = {0.0, 0.0, 40.0}, .FIRINGPERCENTB = {10.0, 10.0, 10.0, 10.0}});
    DieselRecord& e = table(1);
    EXPECT_EQ(GET_DIESEL_NFIRINGCYLINDER(table, 1), 4);
    EXPECT_DOUBLE_EQ(GET_DIESEL_POWERCYLPERCENTINCREASED(table, 1), 1.2);
    e.FIRINGSTATUSA = {1, 2, 3, 4};  // compression only, valve open, piston removed
    EXPECT_EQ(GET_DIESEL_NFIRINGCYLINDER(table, 1), 1);

    // V engine: A {1, 5}, B {5, 1} at 50 % and 70 %: n = 4, c = 2, s = 1.2, (4 - 1.2) / 2 = 1.4
    e = {.ISVENGINE = true, .NCYLINDER = 2, .FIRINGSTATUSA = {1, 5}, .FIRINGSTATUSB = {5, 1},
         .FIRINGPERCENTA = {0.0, 50.0}, .FIRINGPERCENTB = {70.0, 0.0}};
    EXPECT_EQ(GET_DIESEL_NFIRINGCYLINDER(table, 1), 4);
    EXPECT_DOUBLE_EQ(GET_DIESEL_POWERCYLPERCENTINCREASED(table, 1), 1.4);
    e.FIRINGSTATUSA = e.FIRINGSTATUSB = {5, 5};  // every firing cylinder partial: nothing to take over
    EXPECT_EQ(GET_DIESEL_POWERCYLPERCENTINCREASED(table, 1), 1.0);

    // Rated mean effective pressure of a two-stroke V engine, 4 MW at 120 rpm, bore 0.5 m,
    // stroke 2 m, one cylinder of bank A only compressing.
    e = {.NSTROKE = 2, .MCRPOWER = 4e6, .MCRSPEED = 120.0, .ISVENGINE = true, .NCYLINDER = 4,
         .FIRINGSTATUSA = {1, 1, 2, 1}, .FIRINGSTATUSB = {1, 1, 1, 1}, .BORE = 0.5, .STROKE = 2.0};
    // All 8 cylinders, status ignored: 5e5 / (120 / 60 * pi1 * 0.25 * 0.25 * 2)
    EXPECT_DOUBLE_EQ(CALCULATE_DIESEL_MEPMCR(table, 1, false), 636619.7546520227);
    // The 7 firing ones: (4e6 / 7) / the same
    EXPECT_DOUBLE_EQ(CALCULATE_DIESEL_MEPMCR(table, 1, true), 727565.433888026);
    e.FIRINGSTATUSA = e.FIRINGSTATUSB = {2, 2, 2, 2};
    EXPECT_EQ(CALCULATE_DIESEL_MEPMCR(table, 1, true), INF);  // the rated power over no cylinders
    // Rows outside the table give 0.
    EXPECT_EQ(CALCULATE_DIESEL_MEPMCR(table, 2, true), 0.0);
    EXPECT_EQ(GET_DIESEL_NFIRINGCYLINDER(table, 0), 0);
    EXPECT_EQ(GET_DIESEL_POWERCYLPERCENTINCREASED(table, -1), 0.0);
}

// In-line four-stroke of 2 cylinders, 100 kW each at 100 rpm, bore 1 m, stroke 1.2 m,
// running at 50 kW per cylinder at 100 rpm: torque ratio 0.5.
const DieselRecord HALF_LOAD = {.ID = 3, .NSTROKE = 4, .MCRPOWER = 2e5, .MCRSPEED = 100.0, .MIPLIMIT = 1.2,
                                .ILOADCASE = 2, .POWERPERCYL = 5e4, .SPEED = 100.0, .LOADPERCENTAGE = 0.5,
                                .NCYLINDER = 2, .FIRINGSTATUSA = {1, 1}, .BORE = 1.0, .STROKE = 1.2, .ME = 0.8,
                                .PMAX = 1.5e7, .PCOMP = 1e7, .PCHARGEAIR = 300001.0};

// Rated mean effective pressure per cylinder, pi1: 1e5 / (100/120 * pi1 * 0.25 * 1.2).
constexpr double MEPMCR = 127323.95093040455;
// Swept rate of the load case with the double pi: 100/120 * pi * 0.25 * 1.2.
constexpr double SWEPT = 0.7853981633974483;

TEST(GlobalDiesel, LoadCaseSettingOfTheWholeEngine) {
    DieselTable table = one_engine(HALF_LOAD);
    const DieselRecord& e = table(1);
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, LoadCaseGensetTable{}, 0, true);
    // The load laws at r = 0.5 of the rating per cylinder.
    EXPECT_DOUBLE_EQ(e.PCHARGEAIRRPM, 108001.00429153442);
    EXPECT_DOUBLE_EQ(e.PCOMPRPM, 3400000.3337860107);
    // 1.5e7 - 1.5e7 * 0.800000011920929 * 0.5, above 1.1 * PCOMPRPM. Had the rated PCOMP
    // been the compression limit, 1.1 * 1e7 would have lifted it to 11000000.24.
    EXPECT_DOUBLE_EQ(e.PMAXRPM, 8999999.910593033);
    EXPECT_DOUBLE_EQ(e.MEPRPM, 63661.97723675814);  // 5e4 / SWEPT
    // me 0.8: a = m1 / 0.8, b = 0.2 m1, b + 0.5 (a - b) = 0.725 MEPMCR, below 1.5 MEPMCR.
    EXPECT_DOUBLE_EQ(e.MIPRPM, 92309.8644245433);
}

TEST(GlobalDiesel, LoadCaseSettingWithPartialFiring) {
    DieselRecord engine = HALF_LOAD;
    engine.HASPARTIALFIRING = true;
    engine.FIRINGSTATUSA = {1, 5};
    engine.FIRINGPERCENTA = {0.0, 50.0};  // factor (2 - 0.5) / (2 - 1) = 1.5
    DieselTable table = one_engine(engine);
    DieselRecord& e = table(1);
    const LoadCaseGensetTable none;

    // The partial cylinder delivers 50 %; m1 is raised by 1.5 all the same: 0.725 * 1.5 * MEPMCR.
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, none, 2, true);
    EXPECT_DOUBLE_EQ(e.MEPRPM, 2.5e4 / SWEPT);
    EXPECT_DOUBLE_EQ(e.MIPRPM, 138464.79663681495);
    // A normal cylinder, and the engine as a whole, take over the rest: 7.5e4.
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, none, 1, true);
    EXPECT_DOUBLE_EQ(e.MEPRPM, 7.5e4 / SWEPT);
    e.LOADPERCENTAGE = 0.9;  // now the limit 1.2 * MEPMCR / 0.8 caps the indicated pressure
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, none, 0, true);
    EXPECT_DOUBLE_EQ(e.MEPRPM, 95492.96585513721);
    EXPECT_DOUBLE_EQ(e.MIPRPM, 1.5 * MEPMCR);
}

TEST(GlobalDiesel, LoadCaseSettingOfGensetHarmonicAndStoppedEngines) {
    DieselTable table = one_engine(HALF_LOAD);
    DieselRecord& e = table(1);
    e.ISGENSET = true;
    LoadCaseGensetTable gensets;
    gensets.allocate(3);
    gensets(1) = {7, 150e5, 100e5, 0.0};
    gensets(2) = {3, 150e5, 100e5, 0.0};  // engine 3, load case 1
    gensets(3) = {3, 1e5, 2e5, 0.0};      // engine 3, load case 2
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 0, true);
    // The table's pressures stand without the limits of the load laws; the inlet follows the law.
    EXPECT_EQ(e.PMAXRPM, 1e5);
    EXPECT_EQ(e.PCOMPRPM, 2e5);
    EXPECT_DOUBLE_EQ(e.PCHARGEAIRRPM, 108001.00429153442);

    // Harmonic-file engine: the three pressures are left alone.
    e.ISTHEORETICALPRESURE = false;
    e.PMAXRPM = e.PCOMPRPM = e.PCHARGEAIRRPM = -1.0;
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 0, true);
    EXPECT_EQ(e.PMAXRPM + e.PCOMPRPM + e.PCHARGEAIRRPM, -3.0);
    EXPECT_DOUBLE_EQ(e.MEPRPM, 63661.97723675814);

    // Power at standstill: the torque ratio is infinite and capped at 1.1, so the pressures
    // are those of the cap; the mean effective pressure is infinite and the infinite load
    // lifts the indicated pressure to its limit 1.2 * MEPMCR / 0.8.
    e.ISTHEORETICALPRESURE = true;
    e.ISGENSET = false;
    e.SPEED = 0.0;
    e.LOADPERCENTAGE = INF;
    CALCULATE_DIESEL_LOADCASESETTING(table, 1, gensets, 0, true);
    EXPECT_EQ(e.MEPRPM, INF);
    EXPECT_EQ(e.PCHARGEAIRRPM, ENGINE_FUNCTIONS::CALCULATE_PINLET(1e5, 100.0, 1e5 * 1.2, 100.0, 300001.0, 4));
    EXPECT_EQ(e.PCOMPRPM, 1e7);
    EXPECT_EQ(e.PMAXRPM, 1.5e7);
    EXPECT_DOUBLE_EQ(e.MIPRPM, 1.5 * MEPMCR);
}

TEST(GlobalDiesel, FormulaDampingOfCylinderAndCrankThrow) {
    DieselTable table = one_engine({.SPEED = 100.0, .CYLABSDAMPING = 2.0, .EXPCYLABSDAMPING = 1.5,
                                    .CRANKRELDAMPING = 3.0, .EXPCRANKRELDAMPING = 2.0});
    DieselRecord& e = table(1);
    // 2 * (4 * 100)^1.5 = 16000; 3 * (0.5 * 100)^2 = 7500: the speed stays in rpm.
    EXPECT_DOUBLE_EQ(CALCULATE_DIESEL_DAMPING_CYLINDER(table, 1, 4.0), 16000.0);
    EXPECT_DOUBLE_EQ(CALCULATE_DIESEL_DAMPING_CRANKTHROW(table, 1, 0.5), 7500.0);
    EXPECT_EQ(CALCULATE_DIESEL_DAMPING_CYLINDER(table, 0, 4.0), 0.0);  // no engine row
    // Zero order: 0 with a positive exponent, the coefficient with exponent 0, and 0.0
    // instead of infinity with a negative one.
    for (auto [exponent, expected] : {std::pair{1.5, 0.0}, {0.0, 2.0}, {-0.5, 0.0}}) {
        e.EXPCYLABSDAMPING = exponent;
        EXPECT_EQ(CALCULATE_DIESEL_DAMPING_CYLINDER(table, 1, 0.0), expected) << exponent;
    }
    e.ISFORMULADAMPING = false;
    EXPECT_EQ(CALCULATE_DIESEL_DAMPING_CRANKTHROW(table, 1, 0.5), 0.0);
}

TEST(GlobalDiesel, OrderAxisOfAllEngines) {
    DieselTable table;
    EXPECT_EQ(GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table), 0);
    table.allocate(2);
    table(1).NSTROKE = table(2).NSTROKE = 2;
    EXPECT_EQ(GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table), 20);
    std::vector<double> orders(50, -1.0);  // replaced, not appended to
    GET_DIESEL_HARMONICORDER(table, orders);
    ASSERT_EQ(orders.size(), 20U);
    EXPECT_EQ(orders.back(), 20.0);
    // One engine that is not a two-stroke gives half orders to all.
    table(2).NSTROKE = 0;
    EXPECT_EQ(GET_DIESEL_NCYLFOURIERCOEFFICIENTS(table), 24);
    GET_DIESEL_HARMONICORDER(table, orders);
    ASSERT_EQ(orders.size(), 24U);
    EXPECT_EQ(orders[0], 0.5);
    EXPECT_EQ(orders[23], 12.0);
}

}  // namespace
