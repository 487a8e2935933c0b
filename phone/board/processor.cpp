#include "board/processor.h"

#include <string>

#include "core/home.h"

namespace phone {

namespace {

constexpr int processors = 4;

struct setting {
    const char* path;
    const char* text;
};

// clang-format off
// What the kernel comes up with. For each processor, below its folder:
constexpr setting of_processor[] = {
    { "/online",                   "1"           },
    { "/cpufreq/scaling_governor", "performance" },
    { "/cpufreq/scaling_max_freq", "2265600"     },
    { "/cpufreq/scaling_min_freq", "729600"      },
};

constexpr setting of_processor_sleep[] = {
    { "/power_collapse/suspend_enabled",            "0" },
    { "/power_collapse/idle_enabled",               "0" },
    { "/standalone_power_collapse/suspend_enabled", "0" },
    { "/standalone_power_collapse/idle_enabled",    "0" },
};

constexpr setting of_chip[] = {
    { "/sys/devices/system/cpu/cpufreq/ondemand/up_threshold",         "80" },
    { "/sys/devices/system/cpu/cpufreq/ondemand/io_is_busy",           "0"  },
    { "/sys/devices/system/cpu/cpufreq/ondemand/sampling_down_factor", "1"  },
    { "/sys/devices/system/cpu/cpufreq/ondemand/down_differential",    "3"  },
    { "/sys/module/lpm_resources/enable_low_power/l2",                 "0"  },
    { "/sys/module/lpm_resources/enable_low_power/pxo",                "0"  },
    { "/sys/module/lpm_resources/enable_low_power/vdd_dig",            "0"  },
    { "/sys/module/lpm_resources/enable_low_power/vdd_mem",            "0"  },
    { "/sys/kernel/debug/msm/pvsr",                                    "3"  },
    { "/sys/kernel/debug/msm/msmv",                                    "497 2 17" },
};
// clang-format on

template <std::size_t N>
void seed(const std::string& folder, const setting (&settings)[N])
{
    for (const setting& s : settings)
        home_seed(folder + s.path, std::string(s.text) + "\n");
}

} // namespace

void processor_seed()
{
    for (int i = 0; i < processors; i++) {
        const std::string number = std::to_string(i);
        seed("/sys/devices/system/cpu/cpu" + number, of_processor);
        seed("/sys/module/pm_8x60/modes/cpu" + number, of_processor_sleep);
    }
    seed("", of_chip);
}

} // namespace phone
