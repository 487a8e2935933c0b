// The interface of the persistent store, before a driver that lacks its operations.
#include <gtest/gtest.h>

#include "ta/ta.h"

TEST(Ta, AnOperationThatTheDriverLacksHasntBeenDone)
{
    constexpr ta_if_co nothing{};
    ta_if_init();
    ta_if_cmd_co_attach(&nothing);
    EXPECT_EQ(ta_if_open(1), 0);
    EXPECT_EQ(ta_if_write(1, 1, "x"), 0);
    EXPECT_EQ(ta_if_xfer(0, 0, 1, 0, 1), TA_XFER_FAILED);
}
