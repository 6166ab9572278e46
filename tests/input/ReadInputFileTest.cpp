#include <gtest/gtest.h>

#include "../support/TestModels.h"
#include "base/Log.h"
#include "input/ImportInputFile.h"

namespace qm {
namespace {

const std::string TWO_MASSES =
    "Free text, skipped\n"
    "INERTIA 1 1,0 1500 0 0\n"
    "INERTIA 2 1,0 300 0 0\n"
    "SHAFT 1 1 2 1.0 2.5E8 0 30 300 100 0 0\n";

using Read = test::ReadModel;

std::string line_message(const std::string& message, int line) { return LOG::with_line_number(message, line); }

const std::string SHAFT_MESSAGE =
    "Error occurs when reading \"Id, OrgNode, DesNode, RpmRatio, Stiffness, AbsDamping, DynMagnifier, "
    "OuterDi, InnerDi, ShaftTypeFlag, ComponentIdFlag\" in input file line ";

TEST(ReadInputFile, MinimalSystemFillsInertiaAndShaftRecords) {
    Read r(TWO_MASSES);
    ASSERT_TRUE(r.ok);
    EXPECT_TRUE(r.log.empty());
    ASSERT_EQ(r.tables.MASS_TABLE.size(), 2);
    const MassRecord& m = r.tables.MASS_TABLE(1);
    EXPECT_EQ(m.ID, 1);
    EXPECT_EQ(test::mark(r.tables, 1), (test::Mark{1, 1, 1}));
    EXPECT_EQ(m.RPMRATIO, 1.0);  // decimal comma
    EXPECT_EQ(m.INERTIA, 1500.0);
    ASSERT_EQ(r.tables.SHAFT_TABLE.size(), 1);
    const ShaftRecord& s = r.tables.SHAFT_TABLE(1);
    EXPECT_EQ(s.ORGNODE, 1);
    EXPECT_EQ(s.DESNODE, 2);
    EXPECT_EQ(s.STIFFNESS, 2.5e8);
    EXPECT_EQ(s.DYNMAGNIFIER, 30.0);
    EXPECT_DOUBLE_EQ(s.OUTERDI, 0.3);  // mm to m
    EXPECT_DOUBLE_EQ(s.INNERDI, 0.1);
    EXPECT_FALSE(r.tables.DIESEL_TABLE.allocated());
    EXPECT_FALSE(r.tables.LOADCASE_TABLE.allocated());
}

TEST(ReadInputFile, KeywordsInAnyCaseOrBehindATabStartASectionButNotFurtherRight) {
    Read r("inertia 1 1 10 0 0\n"
           "InErTiA 2 1 20 0 0\n"
           "\tINERTIA 3 1 30 0 0\n"
           "comment INERTIA 4 1 40 0 0\n"
           "INERTIAS 5 1 50 0 0\n");
    ASSERT_TRUE(r.ok);
    ASSERT_EQ(r.tables.MASS_TABLE.size(), 3);
    EXPECT_EQ(r.tables.MASS_TABLE(3).INERTIA, 30.0);
}

TEST(ReadInputFile, CrankThrowFlagsNeedBothFlagAndEngine) {
    Read r("INERTIA 1 1 10 0 0\nINERTIA 2 1 10 0 0\n"
           "SHAFT 1 1 2 1 1e8 0 0 0 0 1 7\n"
           "SHAFT 2 1 2 1 1e8 0 0 0 0 1 0\n"
           "SHAFT 3 1 2 1 1e8 0 0 0 0 0 7\n");
    ASSERT_TRUE(r.ok);
    const ShaftTable& s = r.tables.SHAFT_TABLE;
    EXPECT_EQ(s(1).SHAFTTYPE, 31);
    EXPECT_EQ(s(1).COMPONENTTYPE, 15);
    EXPECT_EQ(s(1).COMPONENTID, 7);
    for (int row : {2, 3}) {
        EXPECT_EQ(s(row).SHAFTTYPE, 9);
        EXPECT_EQ(s(row).COMPONENTTYPE, 9);
        EXPECT_EQ(s(row).COMPONENTID, row);
    }
}

TEST(ReadInputFile, ReadErrorsStopAtTheFirstWithMessageAndLineNumber) {
    Read shaft("comment\nINERTIA 1 1 10 0 0\nINERTIA 2 1 10 0 0\n\nSHAFT 1 1 2 1 1e8 0 0 0 0 1\nSHAFT x\n");
    EXPECT_FALSE(shaft.ok);
    ASSERT_EQ(shaft.log.size(), 1U);
    EXPECT_EQ(shaft.log[0], line_message(SHAFT_MESSAGE, 5));

    Read inertia("INERTIA 1 1.0 ten 0 0\n");
    EXPECT_FALSE(inertia.ok);
    ASSERT_EQ(inertia.log.size(), 1U);
    EXPECT_EQ(inertia.log[0],
              "Error occurs when reading \"Id, RpmRatio, Inertia, AbsDamping, DynMagnifier\" in input file line "
              "1                             ");
}

TEST(ReadInputFile, ASectionBehindASwallowedLoadCaseLineIsAReadError) {
    // The engine's two harmonic file lines are missing: the first takes the LOADCASE line
    // as its name, the second the head line of the table. The sizing pass stopped at the
    // LOADCASE line, so the INERTIA section behind it has no row of its own.
    Read r("INERTIA 1 1 10 0 0\n"
           "INERTIA 2 1 10 0 0\n"
           "SHAFT 1 1 2 1 1e6 0 0 0 0 0 0\n"
           "DIESEL 1 Engine\n"
           "100 100 2 1 0 0 0 0 1\n"
           "1\n0\n0\n1\n0\n100\n100\n"
           "0.5 1 0.4 0 95 0 0 0\n"
           "LOADCASE\n"
           "RPM DIESEL\n"
           "INERTIA 3 1 10 0 0\n"
           "SHAFT 2 2 3 1 1e6 0 0 0 0 0 0\n");
    EXPECT_FALSE(r.ok);
    ASSERT_EQ(r.log.size(), 1U);
    EXPECT_EQ(r.log[0],
              line_message("Error occurs when reading \"INERTIA\" behind the LOADCASE line in input file line ", 16));
    EXPECT_EQ(r.tables.MASS_TABLE.size(), 2);
    EXPECT_NE(r.tables.DIESEL_TABLE(1).NORMALHARMONICFILE.find("LOADCASE"), std::string::npos);
}

TEST(ReadInputFile, ValuesBeyondColumn2600CountAsMissing) {
    std::string longline = "INERTIA 1 1 10 0";
    longline += std::string(2600 - longline.size(), ' ');
    longline += " 0\n";  // the fifth value starts past the end of the line
    Read r(longline);
    EXPECT_FALSE(r.ok);
    ASSERT_EQ(r.log.size(), 1U);
    EXPECT_NE(r.log[0].find("in input file line 1"), std::string::npos);
}

TEST(ReadInputFile, OutputAngleBasedResultsCountsOnlyBeforeLoadCase) {
    Read before("OUTPUTANGLEBASEDRESULTS whatever follows\nINERTIA 1 1 10 0 0\n");
    EXPECT_TRUE(before.ok);
    EXPECT_TRUE(before.ctx.OUTPUTANGLEBASEDRESULTS);
    Read after("INERTIA 1 1 10 0 0\nLOADCASE\nOUTPUTANGLEBASEDRESULTS\n");
    EXPECT_FALSE(after.ctx.OUTPUTANGLEBASEDRESULTS);
}

TEST(ReadInputFile, LoadCaseWithoutComponentsIsAnErrorWithoutLineNumber) {
    Read r(TWO_MASSES + "LOADCASE\nrpm\nhead\n100\n");
    EXPECT_FALSE(r.ok);
    ASSERT_EQ(r.log.size(), 1U);
    EXPECT_EQ(r.log[0], "Error occurs when reading loadcase settings data : No load setting defined");
}

TEST(ReadInputFile, ComponentKeywordsSizeTheirTablesAndTheLoadCaseComponentList) {
    Read r(TWO_MASSES +
           "DIESEL 1 E\n100 100 2 0 0 0 0 0 1\n\n\n\n\n\n\n\n600 2400 0.25 1500 95 0 0 0\nnormal.txt\nmis.txt\n"
           "PROPELLER 1\n2 7000 100 4 5000 1500 0\n300 5000 0.8 0.6 1 100 20\nARCHER 30 0 0 2 1 0 0\n0\n"
           "PROPELLERICE 1\n0\nice.txt\n"
           "GENERATOR 1\n1 100 1000 1\n1 0 0 0\n1 0 0 0\n"
           "OUTPUTANGLEBASEDRESULTS\n");
    ASSERT_TRUE(r.ok);
    EXPECT_EQ(r.tables.DIESEL_TABLE.size(), 1);
    EXPECT_EQ(r.tables.PROPELLER_TABLE.size(), 1);
    EXPECT_EQ(r.tables.GENERATOR_TABLE.size(), 1);
    EXPECT_EQ(r.tables.LOADCASE_TABLE.size(), 3);  // PROPELLERICE is no component of its own
    EXPECT_FALSE(r.tables.VISCOUSDAMPER_TABLE.allocated());
}

TEST(ReadInputFile, AnInputFileThatCannotBeOpenedIsReportedByName) {
    test::ScratchDir dir;
    RunContext ctx = test::run_in(dir.str());
    ModelTables t;
    bool ok = true;
    const std::string missing = (dir / "missing.qmk").string();
    IMPORTINPUTFILE::READINPUTFILE(ctx, missing, t, ok);
    EXPECT_FALSE(ok);
    const auto log = test::read_lines(dir / "Quillmark.log");
    ASSERT_EQ(log.size(), 1U);
    EXPECT_EQ(log[0], "error occurs when accessing the input file" + missing);

    bool accessible = true;
    IMPORTINPUTFILE::ISFILEACCESSABLE(dir.str(), accessible);  // a directory is no input file
    EXPECT_FALSE(accessible);
}

TEST(ReadInputFile, GarbageBinaryAndEmptyFilesEndWithoutHarm) {
    Read empty("");
    EXPECT_TRUE(empty.ok);
    EXPECT_FALSE(empty.tables.MASS_TABLE.allocated());

    std::string binary;
    for (int i = 0; i < 4096; ++i) binary += static_cast<char>((i * 7919) % 256);
    Read garbage(binary);
    EXPECT_TRUE(garbage.ok);

    Read huge("INERTIA 1 1 10 0 0\n" + std::string(10 * 1024 * 1024, 'x') + "\nINERTIA 2 1 10 0 0\n");
    EXPECT_TRUE(huge.ok);
    EXPECT_EQ(huge.tables.MASS_TABLE.size(), 2);
}

}  // namespace
}  // namespace qm
