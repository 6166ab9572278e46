#include <gtest/gtest.h>
#include "frame/Table.h"
TEST(Table, StartsUnallocated) { qm::Table<int> t; EXPECT_FALSE(t.allocated()); EXPECT_EQ(t.size(), 0); }
