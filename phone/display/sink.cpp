#include "display/sink.h"

#include <fstream>
#include <mutex>
#include <string>

#include "board/gpio.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "display/hdmi.h"

namespace phone {

namespace {

constexpr unsigned plug_line = 34; // high while a monitor is there
constexpr char hpd_path[] = "/sys/kernel/debug/mdss_mhl/hpd";
constexpr char hpd_in[] = "2\n";
constexpr char hpd_out[] = "0\n";

std::mutex sink_mutex; // guards all below
bool in = true;

std::string state_path()
{
    return home_path("sink.state");
}

std::string word_sink(request& rq)
{
    const std::string what = rq.args.empty() ? "" : rq.args[0];
    if (rq.args.size() > 1 || (!what.empty() && what != "in" && what != "out"))
        return "in or out is wanted";
    const std::lock_guard lock(sink_mutex);
    if (what.empty()) {
        rq.answer = in ? "in" : "out";
        return {};
    }
    in = what == "in";
    std::ofstream(state_path()) << what << "\n";
    file_write(hpd_path, in ? hpd_in : hpd_out);
    gpio_drive(plug_line, in ? 1 : 0);
    hdmi_show_sink(in);
    return {};
}

} // namespace

bool sink_is_in()
{
    const std::lock_guard lock(sink_mutex);
    return in;
}

void sink_attach()
{
    word_add("sink", "[in|out]", "a monitor on the MHL cable, or none; alone, it tells", word_sink);
    conf_add_word("sink");
}

void sink_seed()
{
    home_seed("/sys/kernel/debug/mdss_mhl/selftest", "1\n");
    home_seed("/sys/kernel/debug/mdss_mhl/ddctest", "3\n");
    home_seed(hpd_path, hpd_in);
    home_seed("/system/modules/", "");
}

void sink_start()
{
    std::string what;
    std::ifstream(state_path()) >> what;
    const std::lock_guard lock(sink_mutex);
    in = what != "out";
    gpio_drive(plug_line, in ? 1 : 0);
}

} // namespace phone
