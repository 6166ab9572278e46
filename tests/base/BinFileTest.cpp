#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

#include "base/BinFile.h"
#include "base/Table.h"

namespace qm {
namespace {

std::vector<unsigned char> bytes_of(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(BinFile, RecordsAreBareLittleEndianRealsAndAnOlderLongerFileIsReplaced) {
    const auto path = std::filesystem::temp_directory_path() / "qm_binfile_test.bin";
    const std::vector<double> many(10, 7.0);
    ASSERT_TRUE(write_bin_file(path.string(), many.data(), many.size()));
    const std::vector<double> two = {1.0, -2.5};
    ASSERT_TRUE(write_bin_file(path.string(), two.data(), two.size()));
    const auto b = bytes_of(path);
    ASSERT_EQ(b.size(), 16U);
    // 1.0 is 0x3FF0000000000000: little-endian puts 0xF0, 0x3F in the last two bytes.
    EXPECT_EQ(b[6], 0xF0);
    EXPECT_EQ(b[7], 0x3F);
    double second = 0;
    std::memcpy(&second, b.data() + 8, 8);
    EXPECT_EQ(second, -2.5);
    std::filesystem::remove(path);
}

TEST(BinFile, RecordNumbersAreIndicesAndGapsReadAsZero) {
    const auto path = std::filesystem::temp_directory_path() / "qm_binfile_seek.bin";
    DirectAccessFile f;
    ASSERT_TRUE(f.open(path.string()));
    f.write(3, 3.0);
    f.write(1, 1.0);
    f.close();
    const auto b = bytes_of(path);
    ASSERT_EQ(b.size(), 24U);
    double r[3];
    std::memcpy(r, b.data(), 24);
    EXPECT_EQ(r[0], 1.0);
    EXPECT_EQ(r[1], 0.0);
    EXPECT_EQ(r[2], 3.0);
    std::filesystem::remove(path);
}

TEST(BinFile, AFileThatCannotBeCreatedIsReportedNotWritten) {
    DirectAccessFile f;
    EXPECT_FALSE(f.open("/nonexistent-dir-for-qm/x.bin"));
    f.write(1, 1.0);  // does nothing
    EXPECT_FALSE(f.is_open());
}

TEST(Table, AllocateResetsRowsToDefaultsAndIndexesFromOne) {
    struct Rec {
        int ID = 0;
        double R = 1.0;
    };
    Table<Rec> t;
    EXPECT_FALSE(t.allocated());
    EXPECT_EQ(t.size(), 0);
    t.allocate(3);
    t(3).ID = 9;
    t(1).R = 5.0;
    t.allocate(2);
    EXPECT_EQ(t.size(), 2);
    EXPECT_EQ(t(1).R, 1.0);
    t.deallocate();
    EXPECT_FALSE(t.allocated());
    EXPECT_EQ(t.size(), 0);

    Array2D<double> a;
    a.allocate(2, 3);
    a(2, 3) = 6.0;
    EXPECT_EQ(a.data()[5], 6.0);  // (2-1) + (3-1)*2: column after column
}

}  // namespace
}  // namespace qm
