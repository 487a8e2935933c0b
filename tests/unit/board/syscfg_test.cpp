// Every setting of every system mode, against a table of its own; the phone's files are caught in the
// platform.
#include <cstdio>
#include <gtest/gtest.h>
#include <string>

#include "syscfg/syscfg.h"
#include "syscfg_brenk/syscfg_brenk.h"
#include "unit/plat_fake.h"

namespace {

struct setting {
    const char* path; // below /sys/, %u the processor
    unsigned first, last;
    const char* text[4]; // by mode, empty where the mode leaves it alone
};

// clang-format off
constexpr setting settings[] = {
    { "devices/system/cpu/cpu%u/online",                                       0, 0, { "1", "1", "1", "1" } },
    { "devices/system/cpu/cpu%u/online",                                       1, 3, { "1", "1", "0", "1" } },
    { "devices/system/cpu/cpu%u/cpufreq/scaling_governor",                     0, 0, { "ondemand", "powersave", "ondemand", "performance" } },
    { "devices/system/cpu/cpu%u/cpufreq/scaling_governor",                     1, 3, { "ondemand", "powersave", "", "performance" } },
    { "devices/system/cpu/cpufreq/ondemand/up_threshold",                      0, 0, { "90", "", "90", "" } },
    { "devices/system/cpu/cpufreq/ondemand/io_is_busy",                        0, 0, { "1", "", "1", "" } },
    { "devices/system/cpu/cpufreq/ondemand/sampling_down_factor",              0, 0, { "4", "", "4", "" } },
    { "devices/system/cpu/cpufreq/ondemand/down_differential",                 0, 0, { "10", "", "10", "" } },
    { "devices/system/cpu/cpu%u/cpufreq/scaling_max_freq",                     0, 0, { "960000", "300000", "960000", "2265600" } },
    { "devices/system/cpu/cpu%u/cpufreq/scaling_max_freq",                     1, 3, { "960000", "300000", "", "2265600" } },
    { "devices/system/cpu/cpu%u/cpufreq/scaling_min_freq",                     0, 0, { "300000", "300000", "300000", "300000" } },
    { "devices/system/cpu/cpu%u/cpufreq/scaling_min_freq",                     1, 3, { "300000", "300000", "", "300000" } },
    { "module/pm_8x60/modes/cpu%u/power_collapse/suspend_enabled",             0, 0, { "1", "0", "1", "0" } },
    { "module/pm_8x60/modes/cpu%u/power_collapse/suspend_enabled",             1, 3, { "1", "0", "", "0" } },
    { "module/pm_8x60/modes/cpu%u/standalone_power_collapse/suspend_enabled",  0, 0, { "1", "0", "1", "0" } },
    { "module/pm_8x60/modes/cpu%u/standalone_power_collapse/suspend_enabled",  1, 3, { "1", "0", "", "0" } },
    { "module/pm_8x60/modes/cpu%u/standalone_power_collapse/idle_enabled",     0, 0, { "1", "0", "1", "0" } },
    { "module/pm_8x60/modes/cpu%u/standalone_power_collapse/idle_enabled",     1, 3, { "1", "0", "", "0" } },
    { "module/pm_8x60/modes/cpu%u/power_collapse/idle_enabled",                0, 0, { "1", "0", "1", "0" } },
    { "module/lpm_resources/enable_low_power/l2",                              0, 0, { "2", "0", "2", "0" } },
    { "module/lpm_resources/enable_low_power/pxo",                             0, 0, { "1", "0", "1", "0" } },
    { "module/lpm_resources/enable_low_power/vdd_dig",                         0, 0, { "1", "0", "1", "0" } },
    { "module/lpm_resources/enable_low_power/vdd_mem",                         0, 0, { "1", "0", "1", "0" } },
};
// clang-format on

std::string written; // "path=text" lines, in their order
std::string path;    // open now

std::string wanted(unsigned mode)
{
    std::string lines;
    for (const setting& s : settings) {
        for (unsigned cpu = s.first; cpu <= s.last && s.text[mode][0] != '\0'; cpu++) {
            std::string name = s.path;
            if (const std::size_t at = name.find("%u"); at != name.npos)
                name.replace(at, 2, std::to_string(cpu));
            lines += "/sys/" + name + "=" + s.text[mode] + "\n";
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
