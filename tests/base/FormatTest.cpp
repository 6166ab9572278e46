// Expected fields were produced by a Fortran compiler writing the same values with the same
// edit descriptors (WRITE with '(A,<descriptor>,A)' between brackets), so each string is
// the field exactly as Fortran lays it out.
#include <gtest/gtest.h>

#include "base/Format.h"

#include <limits>

namespace qm::fmt {
namespace {

TEST(Format, FixedRealsRoundAtTheLastDigitAndDropTheLeadingZeroOnlyWhenNarrow) {
    EXPECT_EQ(F(0.0, 10, 3), "     0.000");
    EXPECT_EQ(F(-1.5, 10, 3), "    -1.500");
    EXPECT_EQ(F(2.0015, 10, 3), "     2.002");
    EXPECT_EQ(F(123.456, 6, 2), "123.46");
    EXPECT_EQ(F(0.5, 4, 2), "0.50");
    EXPECT_EQ(F(-0.5, 5, 2), "-0.50");
    EXPECT_EQ(F(-0.001, 5, 2), "-0.00");  // a negative value keeps its sign at zero
    EXPECT_EQ(F(3.0, 5, 0), "   3.");     // no decimals still shows the point
    EXPECT_EQ(F(0.4, 5, 0), "   0.");
    // Exact binary ties go to the even digit.
    EXPECT_EQ(F(0.125, 10, 1), "       0.1");
    EXPECT_EQ(F(0.125, 10, 2), "      0.12");
    EXPECT_EQ(F(0.375, 10, 2), "      0.38");
    EXPECT_EQ(F(0.5, 3, 2), ".50");  // too narrow for the zero before the point
}

TEST(Format, ValuesThatDoNotFitFillTheFieldWithAsterisks) {
    EXPECT_EQ(F(1234.5, 6, 2), "******");
    EXPECT_EQ(I(12345, 4), "****");
    EXPECT_EQ(I(1000, 3), "***");
    EXPECT_EQ(ES(1.0e100, 12, 3, 2), "************");
    EXPECT_EQ(ES(-12345.678, 8, 3, 2), "********");
    EXPECT_EQ(F(-2.5e8), "*************************");
}

TEST(Format, Integers) {
    EXPECT_EQ(I(42, 4), "  42");
    EXPECT_EQ(I(-123, 4), "-123");
    EXPECT_EQ(I(-99, 3), "-99");
    EXPECT_EQ(I(0, 3), "  0");
}

TEST(Format, ScientificAndExponentForms) {
    EXPECT_EQ(ES(12345.678, 12, 3, 2), "   1.235E+04");
    EXPECT_EQ(ES(-0.00012345, 12, 3, 2), "  -1.234E-04");
    EXPECT_EQ(ES(0.0, 12, 3, 2), "   0.000E+00");
    EXPECT_EQ(ES(9.9996, 12, 3, 2), "   1.000E+01");  // rounding carries into the exponent
    // Without a stated exponent width a three-digit exponent loses its letter.
    EXPECT_EQ(ES(1.0e100, 12, 3), "   1.000+100");
    EXPECT_EQ(ES(1.5e-120, 12, 3), "   1.500-120");
    EXPECT_EQ(ES(1.5e-120, 12, 3, 3), "  1.500E-120");
    EXPECT_EQ(E(12345.678, 12, 4), "  0.1235E+05");
    EXPECT_EQ(E(-0.00012345, 12, 4, 3), "-0.1234E-003");
}

TEST(Format, GeneralNumericFormatChoosesFixedOrExponentByMagnitude) {
    EXPECT_EQ(G(12345.678, 12, 4), "  0.1235E+05");
    EXPECT_EQ(G(123.45678, 12, 4), "   123.5    ");
    EXPECT_EQ(G(0.5, 12, 4), "  0.5000    ");
    EXPECT_EQ(G(0.05, 12, 4), "  0.5000E-01");
    EXPECT_EQ(G(0.0, 12, 4), "   0.000    ");
    EXPECT_EQ(G(9999.6, 12, 4), "  0.1000E+05");  // rounds up past the fixed range
    EXPECT_EQ(G(0.099996, 12, 4), "  0.1000    ");  // rounds up into the fixed range
    EXPECT_EQ(G(-2.5e8, 15, 6, 3), " -0.250000E+009");
}

TEST(Format, RealWithoutStatedWidthIsWrittenAsF25Point16) {
    EXPECT_EQ(F(1500.0), "    1500.0000000000000000");
    EXPECT_EQ(F(0.1), "       0.1000000000000000");
}

TEST(Format, TextFields) {
    EXPECT_EQ(A("ab", 5), "   ab");
    EXPECT_EQ(A("abcdef", 2), "ab");
    EXPECT_EQ(A("as is"), "as is");
}

TEST(Format, NotANumberAndInfinityAreWords) {
    EXPECT_EQ(F(std::numeric_limits<double>::quiet_NaN(), 6, 2), "   NaN");
    EXPECT_EQ(ES(-std::numeric_limits<double>::infinity(), 12, 3, 2), "   -Infinity");
    EXPECT_EQ(F(std::numeric_limits<double>::infinity(), 4, 1), " Inf");
}

}  // namespace
}  // namespace qm::fmt
