#include <gtest/gtest.h>

#include <stdexcept>

#include "base/Table.h"

namespace qm {
namespace {

TEST(Table, EveryAccessOutsideTheRowsThrowsInEveryBuild) {
    Table<int> t;
    EXPECT_THROW(t(1), std::out_of_range);  // unallocated
    t.allocate(2);
    t(2) = 7;
    EXPECT_EQ(t(2), 7);
    for (int row : {0, -1, 3, 1 << 30}) EXPECT_THROW(t(row), std::out_of_range) << row;
    const Table<int>& c = t;
    EXPECT_THROW(c(3), std::out_of_range);

    Array2D<double> a;
    a.allocate(2, 3);
    a(2, 3) = 1.0;
    EXPECT_EQ(a.data()[5], 1.0);
    for (auto [i, j] : {std::pair{0, 1}, {3, 1}, {1, 0}, {1, 4}}) EXPECT_THROW(a(i, j), std::out_of_range);
}

}  // namespace
}  // namespace qm
