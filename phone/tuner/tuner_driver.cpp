#include "tuner/tuner_driver.h"

#include <string>

#include "core/files.h"
#include "core/home.h"
#include "core/text.h"
#include "tuner/mn88552.h"

namespace phone {

namespace {

constexpr const char* device = "/sys/devices/platform/mmtuner_pdev.0/";

void antenna_written(std::string_view, std::string_view text)
{
    const auto which = number(trimmed(text));
    if (which && *which >= 0 && *which <= 2)
        mn88552_antenna(static_cast<int>(*which));
}

constexpr node mmtuner_node = {};
constexpr attribute ant_ctrl = {.after_write = antenna_written};

} // namespace

void tuner_driver_attach()
{
    node_add("/dev/mmtuner", &mmtuner_node);
    attribute_add(std::string(device) + "ant_ctrl", &ant_ctrl);
}

void tuner_driver_seed()
{
    for (const char* name : {"power_ctrl", "ant_ctrl", "tuner_irq", "tuner_irq_ctrl"})
        home_seed(std::string(device) + name, "0\n");
    tuner_files_seed();
}

} // namespace phone
