// The result directory of a run, the joining of file names, and the damping factor of a magnifier.
#include <gtest/gtest.h>

#include <cmath>

#include "base/GlobalParameter.h"
#include "base/RunContext.h"

namespace qm::GLOBAL_PARAMETER {
namespace {

TEST(GlobalParameter, ResultDirectoryIsTrimmedCutToItsLengthAndEndsInOneSeparator) {
    struct Case {
        const char* given;
        int length;
    };
    for (const Case& c : {Case{"/data/run1/", 11}, Case{"/data/run1", 10}, Case{"   /data/run1", 13},
                          Case{"/data/run1/extra", 10}}) {
        RunContext ctx;
        ctx.SETRESULTFILEDIR(c.given, c.length);
        EXPECT_EQ(ctx.RESULTFILEDIR(), "/data/run1/") << c.given;
        EXPECT_EQ(ctx.log_path(), "/data/run1/Quillmark.log") << c.given;
    }
    EXPECT_EQ(FILEFULLADDRESS("  /models  ", "  engine.qmk  "), "/models/engine.qmk");
    EXPECT_EQ(FILEFULLADDRESS("/models/", "engine.qmk"), "/models/engine.qmk");
    EXPECT_EQ(FILEFULLADDRESS("relative", "x.bin"), "relative/x.bin");
}

TEST(GlobalParameter, EachRunHasItsOwnFileUnits) {
    RunContext a, b;
    EXPECT_EQ(a.GETFILEID(), 10);
    EXPECT_EQ(a.GETFILEID(), 20);
    EXPECT_EQ(b.GETFILEID(), 10);
}

TEST(GlobalParameter, UndimensionedDampingFactorOfAMagnifier) {
    EXPECT_EQ(CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(0.0), 0.0);
    EXPECT_EQ(CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(-3.0), 0.0);
    EXPECT_EQ(CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(0.5), 2.0);  // 1/x up to 1
    EXPECT_EQ(CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(1.0), 1.0);
    EXPECT_DOUBLE_EQ(CALCULATE_UNDIMENSIONEDDAMPINGFACTOR(10.0), std::sqrt(1.0 / 99.0));  // sqrt(1/(x^2-1)) above
}

}  // namespace
}  // namespace qm::GLOBAL_PARAMETER
