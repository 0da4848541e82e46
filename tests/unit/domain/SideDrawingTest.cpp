// Reading a drawing beside the user's own one where there is no memory for it. Only natively.

#include "SideDrawing.h"

#include "FailingAllocation.h"

#include <gtest/gtest.h>

TEST(SideDrawing, ThatHasNoMemoryIsNoneAndSaysSo) {
    const FailingAllocation failing(1);
    const SideDrawing read = readSideDrawing(L"house.zdr");
    EXPECT_TRUE(failing.hasStruck());
    EXPECT_EQ(read.database, nullptr);
    EXPECT_EQ(read.status, Vorn::eOutOfMemory);
}
