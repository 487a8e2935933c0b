// The SPMI driver on three plain files: dumps of the kernel that are whole or not.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "plat_fake.h"
#include "spmi/spmi.h"
#include "spmi_linux/spmi_linux.h"

namespace {

std::string top; // the files lie below it

struct Spmi : testing::Test {
    void SetUp() override
    {
        plat_fake_reset();
        plat_fake_co.open = [](const char* path, int flags, mode_t mode) {
            return open((top + path).c_str(), flags, mode);
        };
        std::string pattern = testing::TempDir() + "/spmi-XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        top = pattern;
        std::filesystem::create_directories(top + "/sys/kernel/debug/spmi/spmi-2");
        for (const char* name : {"address", "count", "data"})
            put(name, "");
        spmi_init();
        spmi_linux_init();
    }
    void TearDown() override { std::filesystem::remove_all(top); }

    static std::string path(const char* name) { return top + "/sys/kernel/debug/spmi/spmi-2/" + name; }
    static void put(const char* name, const std::string& text) { std::ofstream(path(name)) << text; }
};

using bytes = std::vector<std::uint8_t>;

TEST_F(Spmi, ADumpThatEndsEarlyIsAFailure)
{
    bytes got(2, 0x55);
    for (const char* text : {"", "1D840", "1D840 AA", "1D840 AA ", "\n", "   "}) {
        put("data", text);
        EXPECT_EQ(spmi_read(2, 0x1D840, got.data(), 2), 0) << text;
    }
    put("data", "1D840 -- AA BB\n");
    EXPECT_EQ(spmi_read(2, 0x1D841, got.data(), 2), 1);
    EXPECT_EQ(got, (bytes{0xAA, 0xBB}));
    bytes many(SPMI_MOST_READ + 1);
    EXPECT_EQ(spmi_read(2, 0x1D840, many.data(), many.size()), 0);
    EXPECT_EQ(spmi_read(3, 0x1D840, got.data(), 2), 0); // no such bus
}

} // namespace
