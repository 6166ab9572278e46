#include "input/LoadCaseInput.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <tuple>

#include "../support/TestModels.h"
#include "base/Log.h"
#include "input/ImportInputFile.h"

namespace qm {
namespace {

const std::string SETTINGS = "Error occurs when reading loadcase settings in input file line ";
const std::string SPEED = "Error occurs when reading \"LoadCase_Speed\" in input file line ";
const std::string POWER = "Error occurs when reading \"Id, SubId, LoadCase_Power(iLoadCase,:)\" in input file line ";

std::string at(const std::string& message, int line) { return LOG::with_line_number(message, line); }

// The load case section alone: the reader stands on a LOADCASE line numbered 1, `table`
// follows it, and the tables are prepared by `setup`. By default the model has a diesel
// engine with ID 1, a propeller with ID 2 and two load case components.
struct Section {
    test::ScratchDir dir;
    ModelTables tables;
    RunContext ctx = test::run_in(dir.str());
    std::istringstream in;
    InputReader reader;
    bool ok = false;
    std::vector<std::string> log;

    Section(const std::string& table, int nLoadCase,
            const std::function<void(ModelTables&)>& setup = diesel_and_propeller)
        : in(table), reader(ctx, in, tables) {
        ctx.log_create();
        setup(tables);
        reader.line_counter = 1;
        reader.nLoadCase = nLoadCase;
        ok = IMPORTINPUTFILE::SECTION_LOADCASE(reader, 0);
        log = test::read_lines(dir / "Quillmark.log");
    }

    static void diesel_and_propeller(ModelTables& t) {
        t.DIESEL_TABLE.allocate(1), t.DIESEL_TABLE(1).ID = 1;
        t.PROPELLER_TABLE.allocate(1), t.PROPELLER_TABLE(1).ID = 2;
        t.LOADCASE_TABLE.allocate(2);
    }
    double speed(int i) const { return tables.LOADCASE_SPEED(i); }
    double power(int k, int i) const { return tables.LOADCASE_POWER(k, i); }
};

TEST(LoadCaseSection, PowersAreTakenByPositionInWatts) {
    // "diesel" is no column word, though "rpm" opens the head line: it is logged, its ID is
    // used up, and the powers behind the speed move up one column.
    Section s("rpm diesel PROPELLER\n"
              "1 2\n"
              "60 1500 1450\n"
              "80,5 3600\n"
              "100 7000 6800 99 x\n",
              3);
    ASSERT_TRUE(s.ok);
    ASSERT_EQ(s.log.size(), 1U);
    EXPECT_EQ(s.log[0], at(SETTINGS, 3));
    EXPECT_EQ(s.tables.LOADCASE_TABLE(1).COMPONENTTYPE, 16);
    EXPECT_EQ(s.tables.LOADCASE_TABLE(1).COMPONENTID, 2);
    EXPECT_EQ(s.tables.LOADCASE_TABLE(2).COMPONENTTYPE, 0);
    ASSERT_EQ(s.tables.LOADCASE_SPEED.size(), 3);
    EXPECT_EQ(s.speed(1), 60.0);
    EXPECT_EQ(s.speed(2), 80.5);  // decimal comma
    EXPECT_EQ(s.speed(3), 100.0);
    ASSERT_EQ(s.tables.LOADCASE_POWER.rows(), 2);
    ASSERT_EQ(s.tables.LOADCASE_POWER.cols(), 3);
    EXPECT_EQ(s.power(1, 1), 1500000.0);
    EXPECT_EQ(s.power(2, 1), 1450000.0);
    EXPECT_EQ(s.power(1, 2), 3600000.0);
    EXPECT_EQ(s.power(2, 2), 0.0);  // fewer powers than columns
    // Values behind the last row of the power table are not read, so "x" is no error.
    EXPECT_EQ(s.power(2, 3), 6800000.0);
}

// One component with ID 5 in the table of the given kind.
void add_component(ModelTables& t, int code) {
    auto put = [](auto& table) { table.allocate(1), table(1).ID = 5; };
    switch (code) {
        case 15: put(t.DIESEL_TABLE); break;
        case 16: put(t.PROPELLER_TABLE); break;
        case 17: put(t.ELECTRICMOTOR_TABLE); break;
        case 18: put(t.GENERATOR_TABLE); break;
        case 19: put(t.GASTURBINE_TABLE); break;
        case 20: put(t.STEAMTURBINE_TABLE); break;
        case 24: put(t.LINEARCOUPLING_TABLE); break;
        case 25: put(t.PROGRESSIVECOUPLING_TABLE); break;
        case 26: put(t.GEISLINGERCOUPLING_TABLE); break;
        case 28: put(t.CENTRIFUGALPUMP_TABLE); break;
        case 30: put(t.RECIPROCATINGPUMP_TABLE); break;
    }
}

TEST(LoadCaseSection, EveryColumnWordLooksUpItsOwnTable) {
    const std::vector<std::tuple<std::string, int, std::string>> kinds = {
        {"DIESEL", 15, "Diesel"}, {"RECIPROCATINGPUMP", 30, "ReciprocatingPump"}, {"PROPELLER", 16, "Propeller"},
        {"LINEARCOUPLING", 24, "LinearCoupling"}, {"PROGRESSIVECOUPLING", 25, "ProgressiveCoupling"},
        {"GEISLINGERCOUPLING", 26, "GeislingerCoupling"}, {"ELECTRICMOTOR", 17, "ElectricMotor"},
        {"GENERATOR", 18, "Generator"}, {"CENTRIFUGALPUMP", 28, "CentrifugalPump"},
        {"GASTURBINE", 19, "GasTurbine"}, {"STEAMTURBINE", 20, "SteamTurbine"}};
    for (const auto& [word, code, label] : kinds) {
        SCOPED_TRACE(word);
        // Every other kind has a component with ID 5, so a lookup in the wrong table finds one.
        auto others = [&, code = code](ModelTables& t) {
            for (const auto& other : kinds)
                if (std::get<1>(other) != code) add_component(t, std::get<1>(other));
            t.LOADCASE_TABLE.allocate(1);
        };
        const std::string table = "RPM " + word + "\n5\n100 1\n";
        Section found(table, 1, [&, code = code](ModelTables& t) { others(t), add_component(t, code); });
        EXPECT_TRUE(found.ok);
        EXPECT_EQ(found.tables.LOADCASE_TABLE(1).COMPONENTTYPE, code);
        EXPECT_EQ(found.tables.LOADCASE_TABLE(1).COMPONENTID, 5);

        Section missing(table, 1, others);
        EXPECT_FALSE(missing.ok);
        EXPECT_EQ(missing.log, std::vector<std::string>{at(SETTINGS, 3) + " (" + label + "   5 is not defined)"});
    }
}

TEST(LoadCaseSection, ReadErrorsNameTheirLine) {
    Section unknown_id("RPM PROPELLER DIESEL\n2 7\n60 1 2\n", 1);
    EXPECT_FALSE(unknown_id.ok);
    EXPECT_EQ(unknown_id.log, std::vector<std::string>{at(SETTINGS, 3) + " (Diesel   7 is not defined)"});

    Section missing_id("RPM DIESEL PROPELLER\n1\n60 1 2\n", 1);
    EXPECT_FALSE(missing_id.ok);
    EXPECT_EQ(missing_id.log, std::vector<std::string>{at(SETTINGS, 3)});

    Section speed("RPM DIESEL\n1\n60 1\nfast 2\n", 2);
    EXPECT_FALSE(speed.ok);
    EXPECT_EQ(speed.log, std::vector<std::string>{at(SPEED, 5)});

    Section power("RPM DIESEL PROPELLER\n1 2\n60 1 2\n70 1 2kW\n", 2);
    EXPECT_FALSE(power.ok);
    EXPECT_EQ(power.log, std::vector<std::string>{at(POWER, 5)});
}

TEST(LoadCaseSection, MalformedTablesEndTheReadingInsideTheTables) {
    // A table with more columns than the model has components.
    Section columns("RPM DIESEL DIESEL PROPELLER\n1 1 2\n60 1 2 3\n", 1);
    EXPECT_FALSE(columns.ok);
    EXPECT_EQ(columns.log, std::vector<std::string>{at(SETTINGS, 3) + " : more columns than components"});

    // No head line before the end of the file.
    Section no_head("DIESEL PROPELLER\n1 2\n60 1 2\n", 1);
    EXPECT_FALSE(no_head.ok);
    EXPECT_EQ(no_head.log, std::vector<std::string>{at(SETTINGS, 5) + " : no head line starting with RPM"});

    // Text before the head line is passed over; the table must still hold every load
    // case that was counted.
    Section text_before("Load cases\nRPM DIESEL\n1\n60 1\n", 2);
    EXPECT_FALSE(text_before.ok);
    EXPECT_EQ(text_before.log,
              std::vector<std::string>{at(SETTINGS, 6) + " : the table ends after 1 of 2 load cases"});

    // More load case lines than counted.
    Section long_table("RPM DIESEL\n1\n60 1\n70 2\n", 1);
    EXPECT_FALSE(long_table.ok);
    EXPECT_EQ(long_table.log, std::vector<std::string>{at(SETTINGS, 5) + " : more load cases than the 1 counted"});
    EXPECT_EQ(long_table.tables.LOADCASE_SPEED.size(), 1);
}

// ---------------------------------------------------------------------------------------
// Whole input files.

std::string diesel(int id, int isGenset) { return test::joined(test::diesel_lines(id, "1 2", isGenset)); }
std::string propeller(int id) { return test::joined(test::propeller_lines(id, 2)); }

const std::string MASSES = "INERTIA 1 1 1000 0 0\nINERTIA 2 1 5000 0 0\nSHAFT 1 1 2 1 1e8 0 0 0 0 0 0\n";

// Number of the first line of `text` that starts with `start`.
int line_of(const std::string& text, const std::string& start) {
    std::istringstream in(text);
    int n = 0;
    for (std::string line; std::getline(in, line);) {
        ++n;
        if (line.rfind(start, 0) == 0) return n;
    }
    return 0;
}

using Read = test::ReadModel;

TEST(LoadCaseInputFile, TableOfOneDieselAndOnePropeller) {
    // Two blank lines at the end are not counted as load cases.
    const std::string model = MASSES + diesel(1, 0) + propeller(2) +
                              "LOADCASE\nRPM DIESEL PROPELLER\n1 2\n60 1500 1450\n80,5 3600 3500\n"
                              "100 7000 6800\n\n\n";
    Read r(model);
    ASSERT_TRUE(r.ok) << (r.log.empty() ? "" : r.log[0]);
    EXPECT_TRUE(r.log.empty());
    EXPECT_EQ(r.tables.LOADCASE_TABLE.size(), 2);
    EXPECT_EQ(r.tables.LOADCASE_SPEED.size(), 3);
    EXPECT_EQ(r.tables.LOADCASE_POWER(2, 3), 6.8e6);
    EXPECT_EQ(r.tables.DIESEL_TABLE(1).NLOADCASE, 3);
    EXPECT_FALSE(r.tables.LOADCASEGENSET_TABLE.allocated());
}

TEST(LoadCaseInputFile, CountedLoadCasesMustAllBeThere) {
    const std::string empty = MASSES + propeller(2) + "comment\nLOADCASE\nRPM PROPELLER\n2\n\n";
    Read head_only(empty);
    EXPECT_FALSE(head_only.ok);
    EXPECT_EQ(head_only.log,
              std::vector<std::string>{at(SETTINGS, line_of(empty, "LOADCASE")) + " : No load case defined"});

    // A blank line ends the table; lines behind it were counted as load cases all the same.
    const std::string gap = MASSES + propeller(2) + "LOADCASE\nRPM PROPELLER\n2\n60 100\n\n70 200\n";
    Read early(gap);
    EXPECT_FALSE(early.ok);
    EXPECT_EQ(early.log, std::vector<std::string>{at(SETTINGS, line_of(gap, "LOADCASE") + 4) +
                                                  " : the table ends after 1 of 2 load cases"});
}

TEST(LoadCaseInputFile, GensetFileFollowsTheDieselReadLast) {
    const std::string table = "LOADCASE\nRPM DIESEL DIESEL\n1 2\n500 100 200\n750 300 400\n";
    const std::string genset = "1 100 40\n1\t110 42,5\n2 120 45\n2 130 46\n";

    Read genset_first(MASSES + diesel(1, 1) + diesel(2, 0) + table, {{"Genset.txt", genset}});
    ASSERT_TRUE(genset_first.ok);
    EXPECT_FALSE(genset_first.tables.LOADCASEGENSET_TABLE.allocated());

    Read genset_last(MASSES + diesel(1, 0) + diesel(2, 1) + table, {{"Genset.txt", genset}});
    ASSERT_TRUE(genset_last.ok) << (genset_last.log.empty() ? "" : genset_last.log[0]);
    const LoadCaseGensetTable& g = genset_last.tables.LOADCASEGENSET_TABLE;
    ASSERT_EQ(g.size(), 4);  // two load cases of two engines
    EXPECT_EQ(g(2).DIESELID, 1);
    EXPECT_EQ(g(2).PRESSUREMAX, 110.0e5);
    EXPECT_EQ(g(2).PRESSURECOMP, 42.5e5);
    EXPECT_EQ(g(4).DIESELID, 2);
    EXPECT_EQ(GLOBAL_LOADCASEGENSET::GET_LOADCASEGENSET_PRESSUREMAX(g, 2, 2), 130.0e5);
}

TEST(LoadCaseInputFile, GensetFileProblemsFailTheReading) {
    const std::string model = MASSES + diesel(7, 1) + "LOADCASE\nRPM DIESEL\n7\n500 100\n750 300\n";

    Read missing(model);
    EXPECT_FALSE(missing.ok);
    EXPECT_EQ(missing.log, std::vector<std::string>{"error occurs when accessing the getset file" +
                                                    (missing.dir / "Genset.txt").string()});

    // Rows without a line keep their defaults; the first blank line ends the file.
    const std::string short_file = "7 100 40\n\n7 110 41\n";
    Read partial(model, {{"Genset.txt", short_file}});
    EXPECT_TRUE(partial.ok);
    ASSERT_EQ(partial.tables.LOADCASEGENSET_TABLE.size(), 2);
    EXPECT_EQ(partial.tables.LOADCASEGENSET_TABLE(2).DIESELID, 0);

    const std::string bad = "7 100 40\n7 110\n";
    Read unreadable(model, {{"Genset.txt", bad}});
    EXPECT_FALSE(unreadable.ok);
    EXPECT_EQ(unreadable.log,
              std::vector<std::string>{
                  at("Error occurs when reading \"DieselId, PressureMax, PressureComp\" in genset file line ", 2)});

    const std::string too_long = "7 100 40\n7 110 41\n7 120 42\n";
    Read overfull(model, {{"Genset.txt", too_long}});
    EXPECT_FALSE(overfull.ok);
    EXPECT_EQ(overfull.log, std::vector<std::string>{at("Error occurs when reading genset file line ", 3) +
                                                     " : more lines than the 2 rows of load cases by diesel engines"});
}

}  // namespace
}  // namespace qm
