// Load case tables: component lookup and counts, and the genset pressure lookup by offset.
#include <gtest/gtest.h>

#include "components/GlobalLoadCase.h"
#include "components/GlobalLoadCaseGenset.h"

using namespace qm;
using namespace qm::GLOBAL_LOADCASE;
using namespace qm::GLOBAL_LOADCASEGENSET;

namespace {

TEST(GlobalLoadCase, CountsDistinguishAllocatedRowsFromRowsInUse) {
    LoadCaseTable table;
    EXPECT_EQ(GET_LOADCASE_NCOMPONENT(table), 0);
    EXPECT_EQ(GET_LOADCASE_COMPONENTNUMBER(table), 0);
    EXPECT_EQ(GET_LOADCASE_ICOMPONENT(table, 15, 0), 0);

    table.allocate(4);
    EXPECT_EQ(GET_LOADCASE_NCOMPONENT(table), 4);
    EXPECT_EQ(GET_LOADCASE_COMPONENTNUMBER(table), 0);
    // A fresh row is type 0, id 0: not in use, but a lookup for (0, 0) does find it.
    EXPECT_EQ(GET_LOADCASE_ICOMPONENT(table, 0, 0), 1);

    table(1) = {15, 1};
    table(2) = {16, 3};
    EXPECT_EQ(GET_LOADCASE_COMPONENTNUMBER(table), 2);
    EXPECT_EQ(GET_LOADCASE_NCOMPONENT(table), 4);

    table.allocate(0);  // allocated and empty
    EXPECT_EQ(GET_LOADCASE_NCOMPONENT(table), 0);
}

TEST(GlobalLoadCase, LookupNeedsTypeAndIdAndTakesTheLowestRow) {
    LoadCaseTable table;
    table.allocate(5);
    table(1) = {15, 7};  // diesel 7
    table(2) = {16, 2};  // propeller 2
    table(3) = {24, 2};  // linear coupling 2
    table(4) = {16, 2};  // duplicate of row 2
    table(5) = {18, 1};

    EXPECT_EQ(GET_LOADCASE_ICOMPONENT(table, 16, 2), 2);  // lower of two equal rows
    EXPECT_EQ(GET_LOADCASE_ICOMPONENT(table, 24, 2), 3);
    EXPECT_EQ(GET_LOADCASE_ICOMPONENT(table, 18, 1), 5);  // last row is reachable
    // Type matches a row, id does not; id 7 exists only with another type.
    EXPECT_EQ(GET_LOADCASE_ICOMPONENT(table, 16, 7), 0);
    EXPECT_EQ(GET_LOADCASE_ICOMPONENT(table, 15, 2), 0);
}

TEST(GlobalLoadCase, OnlyCodesOfLoadCaseComponentsDispatch) {
    int accepted = 0;
    for (int code = -1; code <= 40; ++code)
        if (COMPONENTCODE::is_loadcase_component(code)) ++accepted;
    EXPECT_EQ(accepted, 14);  // 15..30 is 16 codes, minus 27 and 29
    EXPECT_TRUE(COMPONENTCODE::is_loadcase_component(15));
    EXPECT_TRUE(COMPONENTCODE::is_loadcase_component(30));
    EXPECT_FALSE(COMPONENTCODE::is_loadcase_component(27));
    EXPECT_FALSE(COMPONENTCODE::is_loadcase_component(29));
    EXPECT_FALSE(COMPONENTCODE::is_loadcase_component(31));
}

// Two engines of three load cases each, pressures 1e5 * (10 * engine + load case).
LoadCaseGensetTable two_gensets() {
    LoadCaseGensetTable table;
    table.allocate(6);
    for (int e = 0; e < 2; ++e)
        for (int k = 1; k <= 3; ++k) {
            LoadCaseGensetRecord& row = table(3 * e + k);
            row.DIESELID = e == 0 ? 4 : 9;
            row.PRESSUREMAX = 1e5 * (10 * (e + 1) + k);
            row.PRESSURECOMP = 1e5 * (10 * (e + 1) + k) / 2.0;
        }
    return table;
}

TEST(GlobalLoadCaseGenset, PressureFoundByOffsetFromTheEnginesFirstRow) {
    const LoadCaseGensetTable table = two_gensets();
    EXPECT_EQ(GET_LOADCASEGENSET_NUMBER(table), 6);
    // Engine 9 starts at row 4; load case 2 is row 5: 1e5 * 22.
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 9, 2), 22e5);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSURECOMP(table, 9, 2), 11e5);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 4, 1), 11e5);
    // The order of the file is trusted: load case 4 of engine 4 lands on engine 9's first row.
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 4, 4), 21e5);
    // Engine without a row.
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 5, 1), 0.0);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSURECOMP(table, 5, 1), 0.0);
    // Offsets that leave the table give 0.0 rather than reading outside it.
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 9, 4), 0.0);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 4, 0), 0.0);
}

TEST(GlobalLoadCaseGenset, EngineWhoseOnlyRowIsTheLast) {
    LoadCaseGensetTable table;
    EXPECT_EQ(GET_LOADCASEGENSET_NUMBER(table), 0);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 1, 1), 0.0);
    table.allocate(3);
    table(1).DIESELID = 1;
    table(2).DIESELID = 1;
    table(3) = {2, 140e5, 90e5, 0.0};
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 2, 1), 140e5);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSURECOMP(table, 2, 1), 90e5);
}

}  // namespace
