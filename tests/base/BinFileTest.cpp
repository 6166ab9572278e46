// Result files: bare little-endian reals, records by number, and files that cannot be made.
#include <gtest/gtest.h>

#include "../TestSupport.h"
#include "base/BinFile.h"

namespace qm {
namespace {

TEST(BinFile, RecordsAreBareLittleEndianRealsAndAnOlderLongerFileIsReplaced) {
    test::ScratchDir dir;
    const std::string path = (dir / "x.bin").string();
    const std::vector<double> many(10, 7.0), two = {1.0, -2.5};
    ASSERT_TRUE(write_bin_file(path, many.data(), many.size()));
    ASSERT_TRUE(write_bin_file(path, two.data(), two.size()));
    const std::string b = test::read_file(path);
    ASSERT_EQ(b.size(), 16U);
    // 1.0 is 0x3FF0000000000000: little-endian puts 0xF0, 0x3F in the last two bytes.
    EXPECT_EQ(b.substr(0, 8), std::string("\0\0\0\0\0\0\xF0\x3F", 8));
    EXPECT_EQ(test::read_records(path), two);
}

TEST(BinFile, RecordNumbersAreIndicesAndGapsReadAsZero) {
    test::ScratchDir dir;
    DirectAccessFile f;
    ASSERT_TRUE(f.open((dir / "seek.bin").string()));
    f.write(3, 3.0);
    f.write(1, 1.0);
    f.close();
    EXPECT_EQ(test::read_records(dir / "seek.bin"), (std::vector<double>{1.0, 0.0, 3.0}));

    DirectAccessFile nowhere;  // a file that cannot be created is reported, not written
    EXPECT_FALSE(nowhere.open((dir / "missing-dir" / "x.bin").string()));
    nowhere.write(1, 1.0);
    EXPECT_FALSE(nowhere.is_open());
    EXPECT_FALSE(std::filesystem::exists(dir / "missing-dir"));
}

}  // namespace
}  // namespace qm
