#include "radio/hci_tools.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "core/clock.h"
#include "core/text.h"
#include "core/toolbox.h"
#include "radio/hci.h"
#include "radio/hci_controller.h"

namespace phone {

namespace {

constexpr nanoseconds inquiry_time = 1'300'000'000;
constexpr std::string_view count_option = "--numrsp=";

constexpr std::string_view heading = "Inquiring ...\n";
constexpr std::string_view devices[] = {
    "\t00:1B:DC:06:4F:2E\tclock offset: 0x5f2c\tclass: 0x5a020c\n",
    "\t7C:6D:62:A8:13:90\tclock offset: 0x1e07\tclass: 0x38010c\n",
};

int refuse(tool_call& call, const std::string& why)
{
    call.err = call.args[0] + ": " + why + "\n";
    return 1;
}

int tool_hciconfig(tool_call& call)
{
    const std::string what = call.args.size() == 3 ? call.args[2] : "";
    if (what != "up" && what != "down" && what != "reset")
        return refuse(call, "a device and up, down or reset are wanted");
    if (call.args[1] != "hci0" || !hci_is_there())
        return refuse(call, "can't get device info: No such device");
    if (what == "up")
        hci_bring_up();
    else if (what == "down")
        hci_take_down();
    else if (!hci_is_up())
        return refuse(call, "can't reset device hci0: Network is down");
    else
        hci_controller_reset();
    return 0;
}

int tool_hcitool(tool_call& call)
{
    if (call.args.size() < 2 || call.args[1] != "inq")
        return refuse(call, "only inq is known");
    std::size_t most = std::size(devices);
    for (std::size_t i = 2; i < call.args.size(); i++) {
        const std::string_view option = call.args[i];
        const auto count =
            option.starts_with(count_option) ? number(option.substr(count_option.size())) : std::nullopt;
        if (!count || *count < 1)
            return refuse(call, "unknown option " + call.args[i]);
        most = std::min(most, static_cast<std::size_t>(*count));
    }
    if (!hci_is_up())
        return refuse(call, "device is not available: No such device");
    clock_sleep_until(clock_now(CLOCK_MONOTONIC) + inquiry_time);
    call.out = heading;
    for (std::size_t i = 0; i < most; i++)
        call.out += devices[i];
    return 0;
}

} // namespace

void hci_tools_attach()
{
    tool_add("hciconfig", tool_hciconfig);
    tool_add("hcitool", tool_hcitool);
}

} // namespace phone
