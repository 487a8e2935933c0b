#include "syscfg_brenk/syscfg_brenk.h"

#include <array>
#include <cstddef>
#include <iterator>

#include "attr/attr.h"
#include "scf/scf.h"
#include "syscfg/syscfg.h"

namespace {

constexpr int OUT_OF_RANGE = 2;
constexpr std::size_t MOST_TEXT = 200;

constexpr const char* syscfg_modes[] = {
    "default setting",
    "stable current setting",
    "low current setting",
    "high current setting",
};

struct syscfg_row {
    const char* path;
    const char* value[std::size(syscfg_modes)]; // null: the mode leaves it alone
};

// clang-format off
constexpr syscfg_row syscfg_settings[] = {
    //      path                                                                     default       stable       low           high
    /*  0 */ { "/sys/devices/system/cpu/cpu0/online",                                      { "1",         "1",          "1",         "1"           } },
    /*  1 */ { "/sys/devices/system/cpu/cpu1/online",                                      { "1",         "1",          "0",         "1"           } },
    /*  2 */ { "/sys/devices/system/cpu/cpu2/online",                                      { "1",         "1",          "0",         "1"           } },
    /*  3 */ { "/sys/devices/system/cpu/cpu3/online",                                      { "1",         "1",          "0",         "1"           } },
    /*  4 */ { "/sys/devices/system/cpu/cpu0/cpufreq/scaling_governor",                    { "ondemand",  "powersave",  "ondemand",  "performance" } },
    /*  5 */ { "/sys/devices/system/cpu/cpu1/cpufreq/scaling_governor",                    { "ondemand",  "powersave",  nullptr,     "performance" } },
    /*  6 */ { "/sys/devices/system/cpu/cpu2/cpufreq/scaling_governor",                    { "ondemand",  "powersave",  nullptr,     "performance" } },
    /*  7 */ { "/sys/devices/system/cpu/cpu3/cpufreq/scaling_governor",                    { "ondemand",  "powersave",  nullptr,     "performance" } },
    /*  8 */ { "/sys/devices/system/cpu/cpufreq/ondemand/up_threshold",                    { "90",        nullptr,      "90",        nullptr       } },
    /*  9 */ { "/sys/devices/system/cpu/cpufreq/ondemand/io_is_busy",                      { "1",         nullptr,      "1",         nullptr       } },
    /* 10 */ { "/sys/devices/system/cpu/cpufreq/ondemand/sampling_down_factor",            { "4",         nullptr,      "4",         nullptr       } },
    /* 11 */ { "/sys/devices/system/cpu/cpufreq/ondemand/down_differential",               { "10",        nullptr,      "10",        nullptr       } },
    /* 12 */ { "/sys/devices/system/cpu/cpu0/cpufreq/scaling_max_freq",                    { "960000",    "300000",     "960000",    "2265600"     } },
    /* 13 */ { "/sys/devices/system/cpu/cpu1/cpufreq/scaling_max_freq",                    { "960000",    "300000",     nullptr,     "2265600"     } },
    /* 14 */ { "/sys/devices/system/cpu/cpu2/cpufreq/scaling_max_freq",                    { "960000",    "300000",     nullptr,     "2265600"     } },
    /* 15 */ { "/sys/devices/system/cpu/cpu3/cpufreq/scaling_max_freq",                    { "960000",    "300000",     nullptr,     "2265600"     } },
    /* 16 */ { "/sys/devices/system/cpu/cpu0/cpufreq/scaling_min_freq",                    { "300000",    "300000",     "300000",    "300000"      } },
    /* 17 */ { "/sys/devices/system/cpu/cpu1/cpufreq/scaling_min_freq",                    { "300000",    "300000",     nullptr,     "300000"      } },
    /* 18 */ { "/sys/devices/system/cpu/cpu2/cpufreq/scaling_min_freq",                    { "300000",    "300000",     nullptr,     "300000"      } },
    /* 19 */ { "/sys/devices/system/cpu/cpu3/cpufreq/scaling_min_freq",                    { "300000",    "300000",     nullptr,     "300000"      } },
    /* 20 */ { "/sys/module/pm_8x60/modes/cpu0/power_collapse/suspend_enabled",            { "1",         "0",          "1",         "0"           } },
    /* 21 */ { "/sys/module/pm_8x60/modes/cpu1/power_collapse/suspend_enabled",            { "1",         "0",          nullptr,     "0"           } },
    /* 22 */ { "/sys/module/pm_8x60/modes/cpu2/power_collapse/suspend_enabled",            { "1",         "0",          nullptr,     "0"           } },
    /* 23 */ { "/sys/module/pm_8x60/modes/cpu3/power_collapse/suspend_enabled",            { "1",         "0",          nullptr,     "0"           } },
    /* 24 */ { "/sys/module/pm_8x60/modes/cpu0/standalone_power_collapse/suspend_enabled", { "1",         "0",          "1",         "0"           } },
    /* 25 */ { "/sys/module/pm_8x60/modes/cpu1/standalone_power_collapse/suspend_enabled", { "1",         "0",          nullptr,     "0"           } },
    /* 26 */ { "/sys/module/pm_8x60/modes/cpu2/standalone_power_collapse/suspend_enabled", { "1",         "0",          nullptr,     "0"           } },
    /* 27 */ { "/sys/module/pm_8x60/modes/cpu3/standalone_power_collapse/suspend_enabled", { "1",         "0",          nullptr,     "0"           } },
    /* 28 */ { "/sys/module/pm_8x60/modes/cpu0/standalone_power_collapse/idle_enabled",    { "1",         "0",          "1",         "0"           } },
    /* 29 */ { "/sys/module/pm_8x60/modes/cpu1/standalone_power_collapse/idle_enabled",    { "1",         "0",          nullptr,     "0"           } },
    /* 30 */ { "/sys/module/pm_8x60/modes/cpu2/standalone_power_collapse/idle_enabled",    { "1",         "0",          nullptr,     "0"           } },
    /* 31 */ { "/sys/module/pm_8x60/modes/cpu3/standalone_power_collapse/idle_enabled",    { "1",         "0",          nullptr,     "0"           } },
    /* 32 */ { "/sys/module/pm_8x60/modes/cpu0/power_collapse/idle_enabled",               { "1",         "0",          "1",         "0"           } },
    /* 33 */ { "/sys/module/lpm_resources/enable_low_power/l2",                            { "2",         "0",          "2",         "0"           } },
    /* 34 */ { "/sys/module/lpm_resources/enable_low_power/pxo",                           { "1",         "0",          "1",         "0"           } },
    /* 35 */ { "/sys/module/lpm_resources/enable_low_power/vdd_dig",                       { "1",         "0",          "1",         "0"           } },
    /* 36 */ { "/sys/module/lpm_resources/enable_low_power/vdd_mem",                       { "1",         "0",          "1",         "0"           } },
};
// clang-format on
static_assert(std::size(syscfg_settings) == 37);

constexpr auto syscfg_paths = [] {
    std::array<const char*, std::size(syscfg_settings)> paths{};
    for (std::size_t i = 0; i < paths.size(); i++)
        paths[i] = syscfg_settings[i].path;
    return paths;
}();

int syscfg_brenk_set_mode(unsigned mode)
{
    if (mode >= std::size(syscfg_modes))
        return OUT_OF_RANGE;
    for (const syscfg_row& row : syscfg_settings)
        if (row.path != nullptr && row.value[mode] != nullptr)
            attr_write(row.path, row.value[mode]); // a processor that is offline lacks some
    return 0;
}

const char* const* syscfg_brenk_get_modes(int* p_count)
{
    *p_count = std::size(syscfg_modes);
    return syscfg_modes;
}

const char* const* syscfg_brenk_get_settings(int* p_count)
{
    *p_count = syscfg_paths.size();
    return syscfg_paths.data();
}

const char* syscfg_brenk_get_setting(unsigned index)
{
    static char text[MOST_TEXT + 1];
    if (index >= std::size(syscfg_settings) || syscfg_settings[index].path == nullptr ||
        attr_read(syscfg_settings[index].path, text, sizeof text) != ATTR_OK)
        return nullptr;
    scf_clean(text, "\n");
    return text;
}

int syscfg_brenk_set_setting(unsigned index, const char* text)
{
    if (index >= std::size(syscfg_settings))
        return OUT_OF_RANGE;
    if (syscfg_settings[index].path == nullptr)
        return 1;
    return attr_write(syscfg_settings[index].path, text) == ATTR_OK ? 0 : 1;
}

// clang-format off
constexpr syscfg_co syscfg_brenk_co = {
    .set_mode     = syscfg_brenk_set_mode,
    .get_modes    = syscfg_brenk_get_modes,
    .get_settings = syscfg_brenk_get_settings,
    .get_setting  = syscfg_brenk_get_setting,
    .set_setting  = syscfg_brenk_set_setting,
    .set_ip_addr  = nullptr, // this board has no network of its own
};
// clang-format on

} // namespace

void syscfg_brenk_init()
{
    syscfg_cmd_co_attach(&syscfg_brenk_co);
}
