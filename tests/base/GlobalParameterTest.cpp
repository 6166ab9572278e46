#include <gtest/gtest.h>

#include <cmath>

#include "base/GlobalParameter.h"
#include "base/RunContext.h"

namespace qm::GLOBAL_PARAMETER {
namespace {

TEST(GlobalParameter, ResultDirectoryWithAndWithoutFinalSeparatorGivesTheSamePaths) {
    RunContext ctx;
    ctx.SETRESULTFILEDIR("/data/run1/", 11);
    const std::string with = ctx.result_path("Quillmark.log");
    ctx.SETRESULTFILEDIR("/data/run1", 10);
    EXPECT_EQ(ctx.RESULTFILEDIR(), "/data/run1/");
    EXPECT_EQ(ctx.log_path(), with);
    EXPECT_EQ(with, "/data/run1/Quillmark.log");
}

TEST(GlobalParameter, LeadingBlanksAreRemovedAndTheLengthCutsTheText) {
    RunContext ctx;
    ctx.SETRESULTFILEDIR("   /data/run2", 13);
    EXPECT_EQ(ctx.RESULTFILEDIR(), "/data/run2/");
    // Only the first `length` characters count.
    ctx.SETRESULTFILEDIR("/data/run2/extra", 10);
    EXPECT_EQ(ctx.RESULTFILEDIR(), "/data/run2/");
}

TEST(GlobalParameter, FileFullAddressTrimsBothPartsAndJoinsWithOneSeparator) {
    EXPECT_EQ(FILEFULLADDRESS("  /models  ", "  engine.qmk  "), "/models/engine.qmk");
    EXPECT_EQ(FILEFULLADDRESS("/models/", "engine.qmk"), "/models/engine.qmk");
    EXPECT_EQ(FILEFULLADDRESS("relative", "x.bin"), "relative/x.bin");
}

TEST(GlobalParameter, EachRunHasItsOwnDirectoryAndFileUnits) {
    RunContext a, b;
    a.SETRESULTFILEDIR("/data/a", 7);
    b.SETRESULTFILEDIR("/data/b", 7);
    EXPECT_EQ(a.log_path(), "/data/a/Quillmark.log");
    EXPECT_EQ(b.log_path(), "/data/b/Quillmark.log");
    EXPECT_EQ(a.GETFILEID(), 10);
    EXPECT_EQ(a.GETFILEID(), 20);
    EXPECT_EQ(b.GETFILEID(), 10);
}

TEST(GlobalParameter, UndimensionedDampingFactorOfAMagnifier) {
    EXPECT_EQ(CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(0.0), 0.0);
    EXPECT_EQ(CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(-3.0), 0.0);
    EXPECT_EQ(CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(0.5), 2.0);  // 1/x up to 1
    EXPECT_EQ(CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(1.0), 1.0);
    // Above 1: sqrt(1/(x*x-1)); x = 10 gives sqrt(1/99).
    EXPECT_DOUBLE_EQ(CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(10.0), std::sqrt(1.0 / 99.0));
}

}  // namespace
}  // namespace qm::GLOBAL_PARAMETER
