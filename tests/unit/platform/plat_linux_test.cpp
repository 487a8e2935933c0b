#include <cstring>
#include <gtest/gtest.h>

#include "plat/plat.h"
#include "plat_linux/plat_linux.h"

// A table with a hole would only be noticed on the phone, by a crash.
TEST(PlatLinux, TableIsWhole)
{
    const void* slots[sizeof(plat_callouts) / sizeof(void*)];
    static_assert(sizeof slots == sizeof(plat_callouts));
    std::memcpy(slots, &plat_linux_co, sizeof slots);
    for (std::size_t i = 0; i < std::size(slots); i++)
        EXPECT_NE(slots[i], nullptr) << "slot " << i;
}
