#include <gtest/gtest.h>

#include "../support/TestModels.h"
#include "input/SystemInfo.h"

namespace qm {
namespace {

using namespace IMPORTINPUTFILE;

TEST(SystemInfo, EighteenRecordsInTheirFixedOrderAlsoForCalculationTypeZero) {
    test::ScratchDir dir;
    test::write_file(dir / OVERVIEWFILE, "older file\n");
    ASSERT_EQ(test::run_model(dir, test::ModelText().chain(2, 10.0, 1e6), 0), 1);
    const auto records = test::read_records(dir / SYSTEMINFOFILE);
    ASSERT_EQ(test::read_file(dir / SYSTEMINFOFILE).size(), 144U);
    EXPECT_EQ(records[0], 2.0);   // inertias
    EXPECT_EQ(records[1], 1.0);   // shafts
    EXPECT_EQ(records[13], 0.0);  // no load cases
    // Without engines "Overview.txt" is not written and an older one stays.
    EXPECT_EQ(test::read_file(dir / OVERVIEWFILE), "older file\n");
}

TEST(SystemInfo, CountsOfEveryKindStandInTheirRecords) {
    test::ScratchDir dir;
    RunContext ctx = test::run_in(dir.str());
    ModelTables t;
    t.GEISLINGERCOUPLING_TABLE.allocate(2);
    t.CENTRIFUGALPUMP_TABLE.allocate(3);
    t.RECIPROCATINGPUMP_TABLE.allocate(4);
    t.GENERATOR_TABLE.allocate(5);
    t.LOADCASE_SPEED.allocate(7);
    OUTPUTSYSTEMINFO(ctx, t);
    const auto r = test::read_records(dir / SYSTEMINFOFILE);
    ASSERT_EQ(r.size(), 18U);
    EXPECT_EQ(r[12], 5.0);  // generators
    EXPECT_EQ(r[13], 7.0);  // load cases
    EXPECT_EQ(r[15], 2.0);  // Geislinger couplings stand behind load cases and orders
    EXPECT_EQ(r[16], 3.0);
    EXPECT_EQ(r[17], 4.0);
}

TEST(SystemInfo, FiringStatusListsEachCylinderAndBankWithAKnownStatus) {
    test::ScratchDir dir;
    RunContext ctx = test::run_in(dir.str());
    ModelTables model;
    DieselTable& engines = model.DIESEL_TABLE;
    engines.allocate(2);
    DieselRecord& inline_engine = engines(1);
    inline_engine.NAME = "Main engine";
    inline_engine.NCYLINDER = 3;
    inline_engine.CYLINDERS = {11, 12, 13};
    inline_engine.FIRINGSTATUSA = {1, 0, 5};
    inline_engine.FIRINGSTATUSB = {2, 2, 2};  // an in-line engine shows bank A only
    DieselRecord& vee = engines(2);
    vee.NAME = "Auxiliary V engine with a long name";
    vee.ISVENGINE = true;
    vee.NCYLINDER = 1;
    vee.CYLINDERS = {123456};
    vee.FIRINGSTATUSA = {3};
    vee.FIRINGSTATUSB = {4};
    OUTPUTDIESELFIRINGSTATUS(ctx, model);
    const auto lines = test::read_lines(dir / OVERVIEWFILE);
    const std::vector<std::string> expected = {
        "Engine                  Cyl       Bank       Firing Status",
        "----------------------------------------------------------",
        "Main engine             11          A       Normal firing",
        "Main engine             13          A       Partial firing",
        "Auxiliary V engine w123456          A       Exhaust valve open",
        "Auxiliary V engine w123456          B       Piston removed",
    };
    EXPECT_EQ(lines, expected);
}

}  // namespace
}  // namespace qm
