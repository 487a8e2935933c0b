#include <gtest/gtest.h>

#include "runner/phone_fixture.h"

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    hvt_virtual = HVT_VIRTUAL;
    return RUN_ALL_TESTS();
}
