// Tables count rows from one, start every row at its defaults and refuse every access
// outside their rows, in every build.
#include <gtest/gtest.h>

#include <stdexcept>

#include "base/Table.h"

namespace qm {
namespace {

TEST(Table, RowsFromOneWithDefaultsAndEveryAccessOutsideThrows) {
    struct Rec {
        int ID = 0;
        double R = 1.0;
    };
    Table<Rec> t;
    EXPECT_FALSE(t.allocated());
    EXPECT_THROW(t(1), std::out_of_range);  // unallocated
    t.allocate(3);
    t(3).ID = 9;
    t(1).R = 5.0;
    t.allocate(2);  // a new allocation starts from the defaults
    EXPECT_EQ(t.size(), 2);
    EXPECT_EQ(t(1).R, 1.0);
    for (int row : {0, -1, 3, 1 << 30}) EXPECT_THROW(t(row), std::out_of_range) << row;
    const Table<Rec>& c = t;
    EXPECT_THROW(c(3), std::out_of_range);
    t.deallocate();
    EXPECT_FALSE(t.allocated());
    EXPECT_EQ(t.size(), 0);

    Array2D<double> a;
    a.allocate(2, 3);
    a(2, 3) = 6.0;
    EXPECT_EQ(a.data()[5], 6.0);  // (2-1) + (3-1)*2: column after column
    for (auto [i, j] : {std::pair{0, 1}, {3, 1}, {1, 0}, {1, 4}}) EXPECT_THROW(a(i, j), std::out_of_range);
}

}  // namespace
}  // namespace qm
