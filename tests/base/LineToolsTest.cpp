// The line tools and the free-format value reader every section relies on.
#include <gtest/gtest.h>

#include <vector>

#include "base/StringOperation.h"
#include "base/ValueReader.h"

namespace qm {
namespace {

using namespace STRINGOPERATION;

TEST(StringOperation, LineToolsWorkInPlaceAndKeepTheLength) {
    std::string s = "\tINERTIA\t1 1,5";
    STRINGDELETETAB(s);
    EXPECT_EQ(s, " INERTIA 1 1.5");
    std::string w = s;
    STRINGFIRSTWORD(w);
    EXPECT_EQ(w, "INERTIA       ");
    std::string rest = s;
    STRINGWITHOUTFIRSTWORD(rest);
    EXPECT_EQ(rest, "1 1.5         ");
    EXPECT_EQ(rest.size(), s.size());
    std::string single = "  LOADCASE";
    STRINGWITHOUTFIRSTWORD(single);
    EXPECT_EQ(trimmed(single), "");
    std::string u = "Inertia_1-é";
    STRINGUPCASE(u);
    EXPECT_EQ(u, "INERTIA_1-é");
    std::string a = " a b  c ";
    STRINGADJUST(a);
    EXPECT_EQ(a, "abc     ");
}

TEST(StringOperation, SplitCountLooksAtTheFirstHundredCharacters) {
    EXPECT_EQ(STRINGSPLITCOUNT("  10.0  2.5e3   7 "), 3);
    EXPECT_EQ(STRINGSPLITCOUNT(""), 0);
    std::string far(99, ' ');
    far += "xy z";  // "x" starts at column 100, "z" beyond it
    EXPECT_EQ(STRINGSPLITCOUNT(far), 1);
}

TEST(ValueReader, ReadsIntegersRealsAndTextsInAnyPlainOrExponentForm) {
    ValueReader r("  12 -3 .5 5. 2.5E8 2.5e-3 1.5D2 +7 word 'two words' \"it''s\"");
    int a = 0, b = 0;
    double c = 0, d = 0, e = 0, f = 0, g = 0, h = 0;
    std::string s1, s2, s3;
    ASSERT_TRUE(r.read_all(a, b, c, d, e, f, g, h, s1, s2, s3));
    EXPECT_EQ(std::pair(a, b), std::pair(12, -3));
    EXPECT_EQ((std::vector<double>{c, d, e, f, g, h}), (std::vector<double>{0.5, 5.0, 2.5e8, 2.5e-3, 150.0, 7.0}));
    EXPECT_EQ(s1, "word");
    EXPECT_EQ(s2, "two words");
    EXPECT_EQ(s3, "it''s");
}

TEST(ValueReader, ValuesThatDoNotConvertOrRunOutFail) {
    int i = 5;
    double x = 5;
    EXPECT_FALSE(ValueReader("1.5").read(i));  // a real is no integer
    EXPECT_EQ(i, 5);
    EXPECT_FALSE(ValueReader("3000000000").read(i));  // beyond 32 bits
    for (const char* bad : {"abc", "1.0E", "3*1.0", "Infinity", "NaN", "1e999", "   ", "'open"})
        EXPECT_FALSE(ValueReader(bad).read(x)) << bad;
    int a = 0, b = 0;
    EXPECT_FALSE(ValueReader("1").read_all(a, b));
    EXPECT_TRUE(ValueReader("1 2 3 4").read_all(a, b));  // values beyond those asked are ignored
}

}  // namespace
}  // namespace qm
