// Every setting of every system mode, against a table of its own; the phone's files are caught in the
// platform.
#include <gtest/gtest.h>
#include <string>

#include "syscfg/syscfg.h"
#include "syscfg_brenk/syscfg_brenk.h"
#include "unit/plat_fake.h"

namespace {

struct setting {
    const char* path;    // below /sys/, %u for each of the four processors
    const char* text[4]; // by mode, empty where the mode leaves it alone
    const char* low;     // of the processors 1 to 3 in mode 2
};

// clang-format off
constexpr setting settings[] = {
    { "devices/system/cpu/cpu%u/online",                                       { "1",        "1",         "1",        "1"           }, "0" },
    { "devices/system/cpu/cpu%u/cpufreq/scaling_governor",                     { "ondemand", "powersave", "ondemand", "performance" }, "" },
    { "devices/system/cpu/cpufreq/ondemand/up_threshold",                      { "90",       "",          "90",       ""            }, "" },
    { "devices/system/cpu/cpufreq/ondemand/io_is_busy",                        { "1",        "",          "1",        ""            }, "" },
    { "devices/system/cpu/cpufreq/ondemand/sampling_down_factor",              { "4",        "",          "4",        ""            }, "" },
    { "devices/system/cpu/cpufreq/ondemand/down_differential",                 { "10",       "",          "10",       ""            }, "" },
    { "devices/system/cpu/cpu%u/cpufreq/scaling_max_freq",                     { "960000",   "300000",    "960000",   "2265600"     }, "" },
    { "devices/system/cpu/cpu%u/cpufreq/scaling_min_freq",                     { "300000",   "300000",    "300000",   "300000"      }, "" },
    { "module/pm_8x60/modes/cpu%u/power_collapse/suspend_enabled",             { "1",        "0",         "1",        "0"           }, "" },
    { "module/pm_8x60/modes/cpu%u/standalone_power_collapse/suspend_enabled",  { "1",        "0",         "1",        "0"           }, "" },
    { "module/pm_8x60/modes/cpu%u/standalone_power_collapse/idle_enabled",     { "1",        "0",         "1",        "0"           }, "" },
    { "module/pm_8x60/modes/cpu0/power_collapse/idle_enabled",                 { "1",        "0",         "1",        "0"           }, "" },
    { "module/lpm_resources/enable_low_power/l2",                              { "2",        "0",         "2",        "0"           }, "" },
    { "module/lpm_resources/enable_low_power/pxo",                             { "1",        "0",         "1",        "0"           }, "" },
    { "module/lpm_resources/enable_low_power/vdd_dig",                         { "1",        "0",         "1",        "0"           }, "" },
    { "module/lpm_resources/enable_low_power/vdd_mem",                         { "1",        "0",         "1",        "0"           }, "" },
};
// clang-format on

std::string written; // "path=text" lines, in their order
std::string path;    // open now

std::string wanted(unsigned mode)
{
    std::string lines;
    for (const setting& s : settings) {
        std::string name = std::string("/sys/") + s.path;
        const std::size_t at = name.find("%u");
        for (char cpu = '0'; cpu <= (at != name.npos ? '3' : '0'); cpu++) {
            const char* text = mode == 2 && cpu != '0' ? s.low : s.text[mode];
            if (at != name.npos)
                name.replace(at, cpu == '0' ? 2 : 1, 1, cpu);
            lines += *text != '\0' ? name + "=" + text + "\n" : "";
        }
    }
    return lines;
}

} // namespace

TEST(Syscfg, EveryModeWritesItsSettingsInTheirOrder)
{
    plat_fake_reset();
    plat_fake_co.open = [](const char* p, int, mode_t) {
        path = p;
        return 1000;
    };
    plat_fake_co.write = [](int, const void* text, std::size_t size) {
        written += path + "=" + std::string(static_cast<const char*>(text), size) + "\n";
        return ssize_t{-1}; // a setting that fails is passed over
    };
    plat_fake_co.close = [](int) { return 0; };
    syscfg_brenk_init();
    for (unsigned mode = 0; mode < 4; mode++) {
        written.clear();
        EXPECT_EQ(syscfg_set_mode(mode), 0);
        EXPECT_EQ(written, wanted(mode)) << mode;
    }
    written.clear();
    EXPECT_EQ(syscfg_set_mode(4), 2);
    EXPECT_EQ(written, "");
    int count = 0;
    syscfg_get_settings(&count);
    EXPECT_EQ(count, 37);
}
