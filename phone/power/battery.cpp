#include "power/battery.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <mutex>
#include <optional>
#include <string>
#include <unistd.h>

#include "board/converters.h"
#include "board/pm8941.h"
#include "core/clock.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/text.h"
#include "power/cell.h"
#include "shell/usb_state.h"

namespace phone {

namespace {

// clang-format off
// The charger's registers, from the chip's register map.
constexpr std::uint32_t ibat_max  = 0x01044; // into the battery, 50 mA a step
constexpr std::uint32_t chg_ctrl  = 0x01049;
constexpr std::uint32_t chg_src   = 0x01308; // live: what feeds the phone
constexpr std::uint32_t iusb_max  = 0x01344; // from the USB socket
constexpr std::uint32_t idc_max   = 0x01444; // from the contacts
constexpr std::uint32_t otg_ctl   = 0x01348;
constexpr std::uint32_t sw_ctl    = 0x18346;
constexpr std::uint32_t boost_ctl = 0x1A046;

constexpr std::uint8_t chg_en       = 0x80; // bits of chg_ctrl
constexpr std::uint8_t force_on_bat = 0x01;

constexpr pmic_row charger_rows[] = {
    // addr      reset  writable
    { ibat_max,  0x06,  0x3F },
    { chg_ctrl,  0x01,  0x8F },
    { chg_src,   0x00,  0x00 },
    { iusb_max,  0x05,  0x1F },
    { idc_max,   0x01,  0x1F },
    { otg_ctl,   0x10,  0x11 },   // USB path: feeding the cable
    { 0x02845,   0x10,  0x13 },   // coin cell: low bits 2 charge it
    { 0x18345,   0x0A,  0xFF },   // 5 V switch: soft start
    { sw_ctl,    0x00,  0xFF },   // 5 V switch
    { boost_ctl, 0x00,  0x80 },   // 5 V boost
};

constexpr std::uint32_t flow_registers[] = { ibat_max, chg_ctrl, iusb_max, idc_max };

struct charger_kind {
    const char* name;
    std::uint8_t src;      // in chg_src
    const char* found;     // by the USB driver
    int detect;            // the same as a number
    double most_ma;        // before its voltage breaks down
    double socket_mv;      // at the USB socket
    double input_mv;       // at the charger's input, behind socket or contacts
};

constexpr charger_kind kinds[] = {
    // name      src   found              detect  most_ma  socket_mv  input_mv
    { "none",    0x00, "INVALID_CHARGER", 0,         0,       24,        11 },
    { "usb",     0x01, "USB_SDP_CHARGER", 1,       500,     5012,      4987 },
    { "wall",    0x02, "USB_DCP_CHARGER", 2,      1800,     5126,      5093 },
    { "simple",  0x03, "INVALID_CHARGER", 0,      1500,       27,      5034 },
};
constexpr double host_power_mv = 5061; // at the socket, from the phone's own boost
constexpr std::size_t kind_none = 0;
constexpr std::size_t kind_usb = 1;
constexpr std::size_t kind_simple = 3;

constexpr const char* chg_type_path = "/sys/kernel/debug/msm_dwc3/chg_type";
constexpr const char* detect_path   = "/sys/devices/platform/msm_hsusb/gadget/detect";
constexpr const char* type_path     = "/sys/class/power_supply/battery/type";
constexpr const char* tech_path     = "/sys/class/power_supply/battery/technology";
// clang-format on

constexpr double first_charge = cell_mah * 60 / 100;
constexpr double first_temp_c = 28.4;
constexpr double longest_step_s = 5;

// A live attribute and the text that the model has put there.
struct live_attribute {
    const char* path;
    std::string text;
};
enum {
    at_voltage,
    at_current,
    at_capacity,
    at_temp,
    at_adc_voltage,
    at_adc_therm,
    at_adc_temp,
    at_adc_socket,
    at_adc_input,
    attributes
};

std::mutex battery_mutex; // guards all below
std::array<live_attribute, attributes> live = {{{"/sys/class/power_supply/battery/voltage_now", ""},
                                                {"/sys/class/power_supply/battery/current_now", ""},
                                                {"/sys/class/power_supply/battery/capacity", ""},
                                                {"/sys/class/power_supply/battery/temp", ""},
                                                {"/sys/devices/qpnp-vadc-8/vbat_sns", ""},
                                                {"/sys/devices/qpnp-vadc-8/batt_therm_dflt", ""},
                                                {"/sys/devices/qpnp-vadc-8/batt_therm", ""},
                                                {"/sys/devices/qpnp-vadc-8/usb_in", ""},
                                                {"/sys/devices/qpnp-vadc-8/vchg_sns", ""}}};
cell model = {first_charge, first_temp_c};
cell_feed feed;
nanoseconds last;
std::size_t kind = kind_none;
std::optional<int> pinned_mv;
std::optional<int> pinned_ma;

// Codes of 100 to 200 mA in steps of 50, from there in steps of 100.
double input_limit_ma(std::uint8_t code)
{
    return code < 3 ? 100 + 50 * code : 100 + 100 * (code - 1);
}

void take_registers_locked()
{
    const std::uint8_t ctrl = pmic_get(chg_ctrl);
    feed.present = kind != kind_none;
    feed.on_battery = (ctrl & force_on_bat) != 0;
    feed.charging = (ctrl & chg_en) != 0;
    feed.battery_ma = 50.0 * pmic_get(ibat_max);
    feed.input_ma =
        std::min(input_limit_ma(pmic_get(kind == kind_simple ? idc_max : iusb_max)), kinds[kind].most_ma);
}

double current_ma_locked()
{
    return pinned_ma ? *pinned_ma : cell_current_ma(model, feed);
}

double voltage_mv_locked()
{
    return pinned_mv ? *pinned_mv : cell_voltage_mv(model, current_ma_locked());
}

// Lets the time since the last call pass, under the settings that were in force.
void advance_locked()
{
    const nanoseconds now = clock_now(CLOCK_MONOTONIC);
    double left = static_cast<double>(now - last) * 1e-9;
    last = now;
    const double step = std::max(longest_step_s, left / 20000);
    for (; left > 0; left -= step)
        cell_flow(model, current_ma_locked(), std::min(left, step));
    take_registers_locked();
}

// At the USB socket, which the phone may feed itself.
double socket_mv_locked()
{
    const bool fed_by_phone = (pmic_get(boost_ctl) & 0x80) != 0 && (pmic_get(sw_ctl) & 0x80) != 0 &&
                              (pmic_get(otg_ctl) & 0x01) != 0;
    return fed_by_phone ? std::max(host_power_mv, kinds[kind].socket_mv) : kinds[kind].socket_mv;
}

std::array<std::string, attributes> texts_locked()
{
    const auto number_text = [](double value, const char* rest) {
        return std::to_string(std::lround(value)) + rest + "\n";
    };
    const double temp_c = std::round(model.temp_c * 10) / 10;
    std::array<std::string, attributes> texts;
    texts[at_voltage] = number_text(voltage_mv_locked(), "000");
    texts[at_current] =
        std::lround(current_ma_locked()) == 0 ? "0\n" : number_text(current_ma_locked(), "000");
    texts[at_capacity] = number_text(cell_percent(model), "");
    texts[at_temp] = number_text(temp_c * 10, "");
    texts[at_adc_voltage] = converter_volts(voltage_mv_locked(), 3);
    texts[at_adc_therm] = converter_therm_volts(temp_c);
    texts[at_adc_temp] = converter_therm_degrees(temp_c);
    texts[at_adc_socket] = converter_volts(socket_mv_locked(), 20);
    texts[at_adc_input] = converter_volts(kinds[kind].input_mv, 20);
    return texts;
}

bool read_whole(const std::string& path, std::string& text)
{
    char buf[256];
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const ssize_t n = fd >= 0 ? read(fd, buf, sizeof buf) : -1;
    if (fd >= 0)
        close(fd);
    if (n >= 0)
        text.assign(buf, static_cast<std::size_t>(n));
    return n >= 0;
}

// Replaces a file in one step, so that whoever has it open reads the old content whole. False, and the old
// content stays, when that can't be done.
bool replace(const std::string& path, const std::string& text)
{
    const std::string half = home_path("battery.new");
    std::ofstream file(half, std::ios::trunc);
    file << text;
    file.close();
    if (file && std::rename(half.c_str(), path.c_str()) == 0)
        return true;
    const int error = errno;
    unlink(half.c_str());
    errno = error;
    return false;
}

std::string store_text_locked()
{
    std::string text = "charge " + std::to_string(model.charge_mah) + "\ntemp " +
                       std::to_string(model.temp_c) + "\ncharger " + kinds[kind].name + "\n";
    if (pinned_mv)
        text += "pinned_mv " + std::to_string(*pinned_mv) + "\n";
    if (pinned_ma)
        text += "pinned_ma " + std::to_string(*pinned_ma) + "\n";
    for (const live_attribute& a : live)
        text += std::string(a.path) + " " + a.text;
    return text;
}

// Brings the attributes up to date, except those that are gone or that somebody else has written. The result
// is empty, or what couldn't be written: an attribute is tried again the next time. `told`: by the bench,
// which a restart has to know.
std::string publish_locked(bool all, bool told = false)
{
    const auto texts = texts_locked();
    bool changed = told;
    std::string wrong;
    for (std::size_t i = 0; i < live.size(); i++) {
        if (texts[i] == live[i].text && !all)
            continue;
        std::string found;
        const std::string path = host_path(live[i].path);
        if (path.empty() || !read_whole(path, found) || (found != live[i].text && !all))
            continue;
        if (!replace(path, texts[i])) {
            wrong = "the attributes can't be written, is the disk full? They follow when they can";
            continue;
        }
        live[i].text = texts[i];
        changed = true;
    }
    const std::string path = home_path("battery");
    if (changed && !replace(path, store_text_locked()) && wrong.empty())
        wrong = path + ": can't be written: " + std::strerror(errno) + "; a restart won't know of this";
    return wrong;
}

void before_read(std::string_view)
{
    const std::lock_guard lock(battery_mutex);
    advance_locked();
    publish_locked(false);
}

constexpr attribute live_attribute_record = {.before_read = before_read};

void after_register_write(std::uint32_t, std::uint8_t)
{
    const std::lock_guard lock(battery_mutex);
    advance_locked();
}

void show_kind_locked()
{
    pmic_set(chg_src, kinds[kind].src);
    file_write(chg_type_path, std::string(kinds[kind].found) + "\n");
    if (access(host_path(detect_path).c_str(), F_OK) == 0)
        file_write(detect_path, std::to_string(kinds[kind].detect) + "\n");
}

std::optional<std::size_t> kind_of(std::string_view name)
{
    for (std::size_t i = 0; i < std::size(kinds); i++)
        if (kinds[i].name == name)
            return i;
    return std::nullopt;
}

std::string word_charger(request& rq)
{
    const auto wanted = rq.args.size() == 1 ? kind_of(rq.args[0]) : std::nullopt;
    if (!wanted && !rq.args.empty())
        return "none, usb, wall or simple is wanted";
    const std::lock_guard lock(battery_mutex);
    if (!wanted) {
        rq.answer = kinds[kind].name;
        return {};
    }
    advance_locked();
    kind = *wanted;
    show_kind_locked();
    take_registers_locked();
    return publish_locked(false, true);
}

constexpr int most_mv = 5000;
constexpr int most_ma = 10000;

// A whole number of percent with its sign; nothing when it is anything else.
std::optional<int> percent_of(const std::string& text)
{
    if (!text.ends_with('%'))
        return std::nullopt;
    const auto value = number(std::string_view(text).substr(0, text.size() - 1));
    return value && *value >= 0 && *value <= 100 ? std::optional(static_cast<int>(*value)) : std::nullopt;
}

std::string set_battery_locked(const std::vector<std::string>& args)
{
    const auto mv = number(args[0]);
    const auto ma = number(args.size() == 2 ? args[1] : "");
    const auto percent = args.size() == 1 ? percent_of(args[0]) : std::nullopt;
    if (args.size() == 1 && args[0] == "auto") {
        pinned_mv.reset();
        pinned_ma.reset();
    } else if (percent) {
        model.charge_mah = cell_mah * *percent / 100;
    } else if (mv && *mv >= 0 && *mv <= most_mv && args.size() == 1) {
        pinned_mv = static_cast<int>(*mv);
    } else if (mv && *mv >= 0 && *mv <= most_mv && ma && *ma >= -most_ma && *ma <= most_ma) {
        pinned_mv = static_cast<int>(*mv);
        pinned_ma = static_cast<int>(*ma);
    } else {
        return "MV [MA], PERCENT% or auto is wanted, at most 5000 mV and 10000 mA";
    }
    return {};
}

std::string word_battery(request& rq)
{
    const std::lock_guard lock(battery_mutex);
    advance_locked();
    if (rq.args.empty()) {
        rq.answer = std::to_string(std::lround(voltage_mv_locked())) + " " +
                    std::to_string(std::lround(current_ma_locked())) + " " +
                    std::to_string(std::lround(cell_percent(model))) + "%";
        return {};
    }
    if (std::string wrong = set_battery_locked(rq.args); !wrong.empty())
        return wrong;
    return publish_locked(true, true);
}

// What the last life of this phone has left: a word and its value a line.
bool load_locked()
{
    std::ifstream file(home_path("battery"));
    if (!file)
        return false;
    std::string key;
    std::string value;
    while (file >> key && std::getline(file, value)) {
        value = trimmed(value);
        const auto whole = number(value);
        if (key == "charge")
            model.charge_mah = std::clamp(std::strtod(value.c_str(), nullptr), 0.0, cell_mah);
        else if (key == "temp")
            model.temp_c = std::strtod(value.c_str(), nullptr);
        else if (key == "charger")
            kind = kind_of(value).value_or(kind_none);
        else if (key == "pinned_mv" && whole)
            pinned_mv = static_cast<int>(*whole);
        else if (key == "pinned_ma" && whole)
            pinned_ma = static_cast<int>(*whole);
        for (live_attribute& a : live)
            if (key == a.path)
                a.text = value + "\n";
    }
    return true;
}

} // namespace

void battery_attach()
{
    static std::array<pmic_row, std::size(charger_rows)> rows;
    std::copy(std::begin(charger_rows), std::end(charger_rows), rows.begin());
    for (pmic_row& row : rows)
        if (std::find(std::begin(flow_registers), std::end(flow_registers), row.addr) !=
            std::end(flow_registers))
            row.after_write = after_register_write;
    pmic_add(rows);
    for (const live_attribute& a : live)
        attribute_add(a.path, &live_attribute_record);
    path_optional("/sys/kernel/debug/msm_otg/chg_type");
    path_optional(detect_path);
    word_add("battery", "MV [MA] | PERCENT% | auto",
             "pins voltage and current, sets the charge, or gives all back to the model; alone: reads them",
             word_battery);
    word_add("charger", "none|usb|wall|simple", "what feeds the phone; alone: says it", word_charger);
    conf_add_word("battery");
    conf_add_word("charger");
}

void battery_seed()
{
    home_seed(type_path, "Battery\n");
    home_seed(tech_path, "Li-ion\n");
    home_seed("/sys/devices/qpnp-iadc-9/calib_ccadc", "0\n");
    home_seed("/system/build.prop", "ro.product.device=korvat\n"); // the folder of the charging log
    const std::lock_guard lock(battery_mutex);
    kind = usb_state_configured() ? kind_usb : kind_none;
    home_seed(chg_type_path, std::string(kinds[kind].found) + "\n");
    const auto texts = texts_locked();
    for (std::size_t i = 0; i < live.size(); i++)
        home_seed(live[i].path, texts[i]);
}

void battery_start()
{
    const std::lock_guard lock(battery_mutex);
    const bool known = load_locked();
    if (!known) {
        const auto texts = texts_locked();
        for (std::size_t i = 0; i < live.size(); i++)
            live[i].text = texts[i];
    }
    last = clock_now(CLOCK_MONOTONIC);
    pmic_set(chg_src, kinds[kind].src);
    take_registers_locked();
    publish_locked(false);
    if (!known)
        replace(home_path("battery"), store_text_locked());
}

} // namespace phone
