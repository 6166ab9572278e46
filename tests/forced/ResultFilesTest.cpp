#include "forced/ResultFiles.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace qm::FORCEDVIBRATION;

namespace {

// One engine of 20 orders, 3 masses, 2 shafts, 2 load cases.
ResultDims one_engine() {
    ResultDims d;
    d.NMASS = 3;
    d.NSHAFT = 2;
    d.NLOADCASE = 2;
    d.NUNIT[DIESEL] = 1;
    d.NORDER = {20, 2, 4, 4, 20, 4};
    return d;
}

}  // namespace

TEST(ResultFiles, RecordNumbersAndLengthsOfOneEngine) {
    const ResultDims d = one_engine();
    EXPECT_EQ(8 * result_file_records(DIESEL_DEFLECTION, d), 3840);
    EXPECT_EQ(8 * result_file_records(DIESEL_TORQUE, d), 2560);
    // amplitude of mass 3, order place 2, load case 2
    EXPECT_EQ(per_order_record(2, 1, 2, 3, 1, 1, d.NMASS, 20), 261);
    // the first and the last record of the file
    EXPECT_EQ(per_order_record(1, 1, 1, 1, 1, 1, 3, 20), 1);
    EXPECT_EQ(per_order_record(2, 1, 20, 3, 4, 1, 3, 20), 480);
    // a kind without units has an empty file
    EXPECT_EQ(result_file_records(GENERATOR_DEFLECTION, d), 0);

    // the second of two generators begins at i = 4*NE + 1
    EXPECT_EQ(per_order_index(2, 1, 1, 5, 4), 4 * 5 + 1);
    EXPECT_EQ(per_element_record(2, 1, 7), 8);
    EXPECT_EQ(curve_record(1, 1, 360, 3), 360);
    EXPECT_EQ(curve_record(2, 1, 1, 3), 3 * 360 + 1);
    EXPECT_EQ(result_file_records(TORQUEANGLE_DIESEL, d), 360 * 2 * 2);
    EXPECT_EQ(result_file_records(PROPELLER_SHAFT_MARKS, d), d.NSHAFT);
}

TEST(ResultFiles, RecordNumbersWrapAsSignedThirtyTwoBit) {
    // 2^31 records would be the first beyond the 32-bit range
    EXPECT_EQ(per_element_record(2, 1, 2147483647), static_cast<std::int32_t>(0x80000000u));
    ResultDims d = one_engine();
    EXPECT_TRUE(fits_32bit_records(d));
    d.NLOADCASE = 10000;
    d.NMASS = 2000;
    EXPECT_FALSE(fits_32bit_records(d));
}

TEST(ResultFiles, NamesKindsAndWhichExist) {
    std::set<std::string> names;
    for (int f = 0; f < NRESULTFILE; ++f) names.insert(result_file_name(static_cast<ResultFile>(f)));
    EXPECT_EQ(names.size(), 63U);
    EXPECT_STREQ(result_file_name(per_order_file(GENERATOR, TORQUE)), "GeneratorTorque.bin");
    EXPECT_STREQ(result_file_name(per_order_file(PROPELLER, ACCELE)), "PropellerAccele.bin");
    EXPECT_STREQ(result_file_name(per_order_file(RECIPROCATINGPUMP, DAMPINGTORQUE)),
                 "ReciprocatingPumpDampingTorque.bin");
    for (int k = 0; k < NKIND; ++k)
        for (int q = 0; q < NQUANTITY; ++q)
            EXPECT_EQ(per_order_kind(per_order_file(static_cast<SourceKind>(k), static_cast<Quantity>(q))), k);

    ResultFlags flags;
    EXPECT_EQ(result_files_opened(flags).size(), 38U);
    flags.OUTPUTANGLEBASEDRESULTS = true;  // no engine: still no curve file
    EXPECT_EQ(result_files_opened(flags).size(), 38U);
    flags.HASDIESEL = true;
    EXPECT_EQ(result_files_opened(flags).size(), 48U);
    flags.ISPROPELLERICE = true;
    EXPECT_EQ(result_files_opened(flags).size(), 54U);
    EXPECT_FALSE(result_file_exists(SYNPROPICE_DAMPINGTORQUE, flags));
    flags.HASDAMPERORCOUPLING = true;
    const auto all = result_files_opened(flags);
    ASSERT_EQ(all.size(), 63U);
    EXPECT_STREQ(result_file_name(all[15]), "ShaftPowerLoss.bin");
    EXPECT_STREQ(result_file_name(all[18]), "GeneratorDeflection.bin");
    EXPECT_STREQ(result_file_name(all[23]), "ElectricMotorDeflection.bin");
    EXPECT_STREQ(result_file_name(all[53]), "PropellerShaftMarks.bin");
    EXPECT_STREQ(result_file_name(all[62]), "ResultantTorque.bin");
}
