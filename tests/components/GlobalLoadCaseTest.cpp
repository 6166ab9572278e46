// Load case tables: component lookup and counts, and the genset pressure lookup by offset.
#include <gtest/gtest.h>

#include <tuple>

#include "components/GlobalLoadCase.h"
#include "components/GlobalLoadCaseGenset.h"

using namespace qm;
using namespace qm::GLOBAL_LOADCASE;
using namespace qm::GLOBAL_LOADCASEGENSET;

namespace {

TEST(GlobalLoadCase, CountsAndLookupByTypeAndId) {
    LoadCaseTable table;
    EXPECT_EQ(GET_LOADCASE_NCOMPONENT(table), 0);
    EXPECT_EQ(GET_LOADCASE_COMPONENTNUMBER(table), 0);
    EXPECT_EQ(GET_LOADCASE_ICOMPONENT(table, 15, 0), 0);

    table.allocate(6);
    EXPECT_EQ(GET_LOADCASE_NCOMPONENT(table), 6);
    EXPECT_EQ(GET_LOADCASE_COMPONENTNUMBER(table), 0);  // fresh rows are not in use
    table(1) = {15, 7};
    table(2) = {16, 2};
    table(3) = {24, 2};
    table(4) = {16, 2};  // duplicate of row 2
    table(5) = {18, 1};
    EXPECT_EQ(GET_LOADCASE_COMPONENTNUMBER(table), 5);

    // The lower of two equal rows; a type that matches a row but not the id, an id that
    // exists only with another type.
    for (auto [type, id, row] : {std::tuple{16, 2, 2}, {24, 2, 3}, {18, 1, 5}, {16, 7, 0}, {15, 2, 0}})
        EXPECT_EQ(GET_LOADCASE_ICOMPONENT(table, type, id), row) << type << " " << id;

    int dispatched = 0;  // 15..30 without 27 and 29
    for (int code = -1; code <= 40; ++code) dispatched += CODES::is_loadcase_component(code);
    EXPECT_EQ(dispatched, 14);
    EXPECT_FALSE(CODES::is_loadcase_component(27));
}

TEST(GlobalLoadCaseGenset, PressureFoundByOffsetFromTheEnginesFirstRow) {
    LoadCaseGensetTable table;
    EXPECT_EQ(GET_LOADCASEGENSET_NUMBER(table), 0);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 4, 1), 0.0);

    // Engines 4 and 9, three load cases each; row r holds PRESSUREMAX r bar, PRESSURECOMP r/2.
    table.allocate(7);
    for (int r = 1; r <= 6; ++r) table(r) = {r <= 3 ? 4 : 9, r * 1e5, r * 0.5e5, 0.0};
    table(7) = {2, 140e5, 90e5, 0.0};  // engine 2's only row is the last
    EXPECT_EQ(GET_LOADCASEGENSET_NUMBER(table), 7);

    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 9, 2), 5e5);  // first row 4, + 2 - 1
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSURECOMP(table, 9, 2), 2.5e5);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 2, 1), 140e5);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSURECOMP(table, 2, 1), 90e5);
    // The file's order is trusted: load case 4 of engine 4 lands on engine 9's first row.
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 4, 4), 4e5);
    // Engine without a row, and offsets leaving the table, give 0.0.
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 5, 1), 0.0);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSURECOMP(table, 2, 2), 0.0);
    EXPECT_EQ(GET_LOADCASEGENSET_PRESSUREMAX(table, 4, 0), 0.0);
}

}  // namespace
