#include "radio/wlan.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <mutex>
#include <string>

#include "core/files.h"
#include "core/home.h"
#include "core/log.h"
#include "core/toolbox.h"
#include "core/watch.h"
#include "runtime/insmod.h"

namespace phone {

namespace {

constexpr const char* wlan_module = "pronto_wlan.ko";
constexpr const char* fm_module = "radio-iris-transport.ko";
constexpr const char* station_mode = "con_mode=0";
constexpr const char* test_mode = "con_mode=5";

constexpr const char* result_file = "/data/ftm_response.txt";

constexpr const char* firmware_dir = "/system/etc/firmware/wlan/prima/";
constexpr const char* nv_name = "WCNSS_qcom_wlan_nv.bin";

constexpr const char* scan_text = "BSS a0:f3:c1:2b:7d:18 (on wlan0)\n"
                                  "\tfreq: 2462\n"
                                  "\tsignal: -58.00 dBm\n"
                                  "\tSSID: korvat-lab\n";

struct test_option {
    std::string_view name;
    std::string_view result; // what it leaves; empty: the file stays as it is
};

// clang-format off
constexpr test_option test_options[] = {
    { "-A", "" }, { "-B", "" }, { "-P", "" }, { "-b", "941" }, { "-c", "" }, { "-m", "" }, { "-q", "" },
    { "-s", "" }, { "-v", "1936" }, { "-x", "209" }, { "-z", "" },
};
// clang-format on

std::mutex wlan_mutex; // guards the next two
bool station_is_up;
bool test_is_on;

int refuse(tool_call& call, const std::string& why)
{
    call.err = call.args[0] + ": " + why + "\n";
    return 1;
}

// Puts a result into the file that the program reads.
int leave(std::string_view result)
{
    return file_write(result_file, std::string(result) + "\n") ? 0 : 1;
}

int tool_mount(tool_call& call)
{
    if (call.args != std::vector<std::string>{"mount", "-o", "rw,remount", "/system"})
        return refuse(call, "only /system can be remounted");
    return 0;
}

int tool_ifconfig(tool_call& call)
{
    const bool up = call.args.size() == 3 && call.args[2] == "up";
    if (call.args.size() != 3 || call.args[1] != "wlan0" || (!up && call.args[2] != "down"))
        return refuse(call, "an interface and up or down are wanted");
    if (!module_loaded(wlan_module, station_mode))
        return refuse(call, "wlan0: No such device");
    const std::lock_guard lock(wlan_mutex);
    station_is_up = up;
    return 0;
}

int tool_iw(tool_call& call)
{
    if (call.args != std::vector<std::string>{"iw", "wlan0", "scan"})
        return refuse(call, "wlan0 scan is wanted");
    const std::lock_guard lock(wlan_mutex);
    if (!station_is_up || !module_loaded(wlan_module, station_mode))
        return refuse(call, "command failed: Network is down (-100)");
    call.out = scan_text;
    return 0;
}

int tool_wlanftmtest(tool_call& call)
{
    const std::string option = call.args.size() > 1 ? call.args[1] : "";
    const std::lock_guard lock(wlan_mutex);
    if (option == "-e" && !module_loaded(wlan_module, test_mode))
        return refuse(call, "no test interface");
    if (option == "-e" || (option == "-d" && test_is_on)) {
        test_is_on = option == "-e";
        return 0;
    }
    if (!test_is_on)
        return refuse(call, "not enabled");
    const auto found = std::find_if(std::begin(test_options), std::end(test_options),
                                    [&option](const test_option& o) { return o.name == option; });
    if (found == std::end(test_options)) {
        strange("tool wlanftmtest " + option);
        return refuse(call, "unknown option " + option);
    }
    return found->result.empty() ? 0 : leave(found->result);
}

int tool_fmftmtest(tool_call& call)
{
    if (call.args.size() != 3 || call.args[1] != "-f")
        return refuse(call, "-f and a frequency in kHz are wanted");
    if (!module_loaded(fm_module))
        return refuse(call, "no receiver");
    return leave("61");
}

// The file that the link leads to, by its own name.
std::string calibration()
{
    const std::string link = std::string(firmware_dir) + nv_name;
    std::error_code error;
    const auto target = std::filesystem::read_symlink(host_path(link, false), error);
    const std::string host = host_path(link);
    if (path_is_lacking(target.string()) || host.empty() || !std::filesystem::is_regular_file(host, error))
        return "no calibration";
    return "calibration " + std::filesystem::path(host).filename().string();
}

ssize_t wcnss_write(open_file& file, const void* buf, std::size_t size)
{
    const std::string_view text(static_cast<const char*>(buf), size);
    if (text != "1" && text != "1\n") {
        strange("write " + file.path + " " + std::string(text));
        errno = EINVAL;
        return -1;
    }
    log_line(log_kmsg, "phone: wcnss: " + calibration());
    return static_cast<ssize_t>(size);
}

constexpr node wcnss_node = {.write = wcnss_write};

} // namespace

void wlan_attach()
{
    module_add(wlan_module, nullptr);
    module_add(fm_module, nullptr);
    tool_add("mount", tool_mount);
    tool_add("ifconfig", tool_ifconfig);
    tool_add("iw", tool_iw);
    tool_add("wlanftmtest", tool_wlanftmtest, result_file);
    tool_add("fmftmtest", tool_fmftmtest, result_file);
    node_add("/dev/wcnss_wlan", &wcnss_node);
}

void wlan_seed()
{
    home_seed("/system/modules/pronto_wlan.ko", "pronto_wlan\n");
    home_seed("/system/modules/radio-iris-transport.ko", "radio-iris-transport\n");
    for (const char* variant : {"korvat_", "korvat_sella_", ""})
        home_seed(std::string(firmware_dir) + variant + nv_name, std::string(variant) + "calibration\n");
}

} // namespace phone
