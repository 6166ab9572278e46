#include <gtest/gtest.h>

#include <cmath>

#include "base/GlobalParameter.h"

namespace qm::GLOBAL_PARAMETER {
namespace {

TEST(GlobalParameter, ResultDirectoryWithAndWithoutFinalSeparatorGivesTheSamePaths) {
    SETRESULTFILEDIR("/data/run1/", 11);
    const std::string with = FILEFULLADDRESS(RESULTFILEDIR(), "Quillmark.log");
    SETRESULTFILEDIR("/data/run1", 10);
    EXPECT_EQ(RESULTFILEDIR(), "/data/run1/");
    EXPECT_EQ(FILEFULLADDRESS(RESULTFILEDIR(), "Quillmark.log"), with);
    EXPECT_EQ(with, "/data/run1/Quillmark.log");
}

TEST(GlobalParameter, LeadingBlanksAreRemovedAndTheLengthCutsTheText) {
    SETRESULTFILEDIR("   /data/run2", 13);
    EXPECT_EQ(RESULTFILEDIR(), "/data/run2/");
    // Only the first `length` characters count.
    SETRESULTFILEDIR("/data/run2/extra", 10);
    EXPECT_EQ(RESULTFILEDIR(), "/data/run2/");
}

TEST(GlobalParameter, FileFullAddressTrimsBothPartsAndJoinsWithOneSeparator) {
    EXPECT_EQ(FILEFULLADDRESS("  /models  ", "  engine.qmk  "), "/models/engine.qmk");
    EXPECT_EQ(FILEFULLADDRESS("/models/", "engine.qmk"), "/models/engine.qmk");
    EXPECT_EQ(FILEFULLADDRESS("relative", "x.bin"), "relative/x.bin");
}

TEST(GlobalParameter, FileUnitsRunInStepsOfTenAndAreNeverReused) {
    const int first = GETFILEID();
    const int second = GETFILEID();
    EXPECT_GE(first, 10);
    EXPECT_EQ(first % 10, 0);
    EXPECT_EQ(second, first + 10);
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
