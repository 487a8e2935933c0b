#include "audio/jack.h"

#include <cmath>
#include <fstream>
#include <mutex>
#include <optional>
#include <string>

#include "audio/card.h"
#include "audio/mixer.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/text.h"

namespace phone {

namespace {

constexpr std::string_view base_path = "/sys/kernel/debug/wcd9xxx_plug_detect";

struct plug_row {
    std::string_view name;
    int kind;  // as the driver numbers them
    long ohms; // at the microphone contact; 0: it is open
};

// clang-format off
constexpr plug_row plugs[] = {
    { "none",       0,    0 },
    { "headphones", 2,    4 },
    { "headset",    1, 1800 },
    { "loop",       1, 5600 },
};

struct loop_row {
    mixer_output output;
    mixer_input input;
    double db;
};

// What the test plug joins.
constexpr loop_row plug_loops[] = {
    { out_left,  in_hsmic, -10 },
    { out_left,  in_mic2,   -6 },
    { out_left,  in_line,   -7 },
    { out_right, in_hsmic, -13 },
};
// clang-format on

// The microphone contact hangs on its bias of 1800 mV through this resistor; a converter of 12 bits measures
// it.
constexpr double bias_ohms = 2210;
constexpr double bias_mv = 1800;
constexpr double converter_steps = 4096;

std::mutex jack_mutex; // guards all below
const plug_row* p_plug = &plugs[0];
long ohms;

bool is_open()
{
    return p_plug == &plugs[0];
}

long contact(double full, long most)
{
    const auto r = static_cast<double>(ohms);
    return is_open() ? most : std::lround(full * r / (r + bias_ohms));
}

struct detected {
    std::string base, raw, mv;
};

detected detected_locked()
{
    return {std::to_string(p_plug->kind) + "\n",
            std::to_string(contact(converter_steps, static_cast<long>(converter_steps) - 1)) + "\n",
            std::to_string(contact(bias_mv, static_cast<long>(bias_mv))) + "\n"};
}

std::string path_of(std::string_view end)
{
    return std::string(base_path) + std::string(end);
}

std::string shown_locked()
{
    return std::string(p_plug->name) + (is_open() ? "" : " " + std::to_string(ohms));
}

void set_loops_locked()
{
    const card_lock lock;
    for (const loop_row& row : plug_loops)
        mixer_air.loops[row.output][row.input] = {p_plug->name == "loop", row.db, 0};
    mixer_changed();
}

// The result is empty, or what is wrong.
std::string plug_in_locked(const std::vector<std::string>& args)
{
    const plug_row* p_found = nullptr;
    for (const plug_row& row : plugs)
        if (!args.empty() && row.name == args[0])
            p_found = &row;
    const std::int64_t given = args.size() == 2 ? number(args[1]).value_or(-1) : 0;
    if (p_found == nullptr || args.size() > (p_found == &plugs[0] ? 1 : 2) || given < 0 || given > 10'000'000)
        return "none, or headphones, headset or loop with perhaps 0 to 10000000 ohms, is wanted";
    p_plug = p_found;
    ohms = args.size() == 2 ? static_cast<long>(given) : p_found->ohms;
    set_loops_locked();
    return {};
}

std::string word_jack(request& rq)
{
    const std::lock_guard lock(jack_mutex);
    if (rq.args.empty()) {
        rq.answer = shown_locked();
        return {};
    }
    if (std::string wrong = plug_in_locked(rq.args); !wrong.empty())
        return wrong;
    std::ofstream(home_path("jack")) << shown_locked() << "\n";
    const detected now = detected_locked();
    file_write(path_of(""), now.base);
    file_write(path_of("raw"), now.raw);
    file_write(path_of("mv"), now.mv);
    return {};
}

} // namespace

void jack_attach()
{
    word_add("jack", "[none|headphones|headset|loop [OHM]]",
             "what is in the headset jack, and the resistance at its microphone contact", word_jack);
    conf_add_word("jack");
}

void jack_seed()
{
    const std::lock_guard lock(jack_mutex);
    const detected now = detected_locked();
    home_seed(path_of(""), now.base);
    home_seed(path_of("raw"), now.raw);
    home_seed(path_of("mv"), now.mv);
}

// What was plugged in stays over a restart.
void jack_start()
{
    std::ifstream file(home_path("jack"));
    std::string line;
    std::getline(file, line);
    const std::lock_guard lock(jack_mutex);
    if (!line.empty())
        plug_in_locked(words(line));
}

} // namespace phone
