#include "sensors/surroundings.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <mutex>
#include <string>
#include <vector>

#include "core/conf.h"
#include "core/control.h"
#include "core/home.h"

namespace phone {

namespace {

constexpr double most = 1e6; // of any truth; the chips clip long before

struct truth {
    axes pose = {20, -35, 998};
    axes turn = {0, 0, 0};
    axes magnet = {21, -13, -41};
    double light = 180;
    std::optional<double> near;
    bool trembles = true;
    std::array<chip_health, 3> health = {};
};

constexpr const char* chip_names[] = {"accel", "gyro", "compass"};
constexpr const char* health_names[] = {"good", "stuck", "silent"};

std::mutex surroundings_mutex; // guards `now` and `loading`
truth now;
bool loading; // what is kept is being taken over
std::vector<void (*)()> listeners;

truth copy()
{
    const std::lock_guard lock(surroundings_mutex);
    return now;
}

std::string number_text(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", value);
    return text;
}

std::string axes_text(const axes& a)
{
    return number_text(a[0]) + " " + number_text(a[1]) + " " + number_text(a[2]);
}

std::optional<double> decimal(const std::string& text)
{
    char* end;
    const double value = std::strtod(text.c_str(), &end);
    const bool is_one = !text.empty() && *end == '\0' && std::fabs(value) <= most; // not a number is no less
    return is_one ? std::optional(value) : std::nullopt;
}

template <typename Name, std::size_t N>
std::optional<std::size_t> index_of(const Name (&names)[N], const std::string& name)
{
    for (std::size_t i = 0; i < N; i++)
        if (names[i] == name)
            return i;
    return std::nullopt;
}

// One line a word, as the word takes it: how this phone was left.
std::string lines(const truth& t)
{
    std::string text = "pose " + axes_text(t.pose) + "\nturn " + axes_text(t.turn) + "\nmagnet " +
                       axes_text(t.magnet) + "\nlight " + number_text(t.light) + "\nnear " +
                       (t.near ? number_text(*t.near) : "none") + "\ntremble " + (t.trembles ? "on" : "off") +
                       "\n";
    for (std::size_t i = 0; i < t.health.size(); i++)
        text +=
            std::string("sensor ") + chip_names[i] + " " + health_names[static_cast<int>(t.health[i])] + "\n";
    return text;
}

// Makes a change, and keeps it for the next start.
template <typename Change>
std::string change(Change make)
{
    surroundings_changes();
    const std::lock_guard lock(surroundings_mutex);
    make(now);
    if (!loading)
        std::ofstream(home_path("surroundings"), std::ios::trunc) << lines(now);
    return {};
}

std::string word_axes(request& rq, axes truth::*member)
{
    if (rq.args.empty()) {
        rq.answer = axes_text(copy().*member);
        return {};
    }
    const auto x = decimal(rq.args[0]);
    const auto y = decimal(rq.args.size() == 3 ? rq.args[1] : "");
    const auto z = decimal(rq.args.size() == 3 ? rq.args[2] : "");
    if (!x || !y || !z)
        return "three numbers X Y Z of at most a million are wanted";
    return change([&](truth& t) { t.*member = {*x, *y, *z}; });
}

std::string word_pose(request& rq)
{
    return word_axes(rq, &truth::pose);
}

std::string word_turn(request& rq)
{
    return word_axes(rq, &truth::turn);
}

std::string word_magnet(request& rq)
{
    return word_axes(rq, &truth::magnet);
}

std::string word_light(request& rq)
{
    if (rq.args.empty()) {
        rq.answer = number_text(copy().light);
        return {};
    }
    const auto lux = rq.args.size() == 1 ? decimal(rq.args[0]) : std::nullopt;
    if (!lux || *lux < 0)
        return "LUX is wanted, from 0 to a million";
    return change([&](truth& t) { t.light = *lux; });
}

std::string word_near(request& rq)
{
    constexpr double nearest = 10;
    constexpr double farthest = 2000;
    if (rq.args.empty()) {
        const auto mm = copy().near;
        rq.answer = mm ? number_text(*mm) : "none";
        return {};
    }
    if (rq.args.size() == 1 && rq.args[0] == "none")
        return change([](truth& t) { t.near.reset(); });
    const auto mm = rq.args.size() == 1 ? decimal(rq.args[0]) : std::nullopt;
    if (!mm || *mm < nearest || *mm > farthest)
        return "MM from 10 to 2000, or none, is wanted";
    return change([&](truth& t) { t.near = mm; });
}

std::string word_tremble(request& rq)
{
    if (rq.args.empty()) {
        rq.answer = copy().trembles ? "on" : "off";
        return {};
    }
    if (rq.args.size() != 1 || (rq.args[0] != "on" && rq.args[0] != "off"))
        return "on or off is wanted";
    return change([&](truth& t) { t.trembles = rq.args[0] == "on"; });
}

std::string word_sensor(request& rq)
{
    if (rq.args.empty()) {
        const truth t = copy();
        for (std::size_t i = 0; i < t.health.size(); i++)
            rq.answer += std::string(i == 0 ? "" : "\n") + chip_names[i] + " " +
                         health_names[static_cast<int>(t.health[i])];
        return {};
    }
    const auto which = index_of(chip_names, rq.args[0]);
    const auto health = rq.args.size() == 2 ? index_of(health_names, rq.args[1]) : std::nullopt;
    if (!which || !health)
        return "accel, gyro or compass, and good, stuck or silent are wanted";
    return change([&](truth& t) { t.health[*which] = static_cast<chip_health>(*health); });
}

// A number that looks like chance, the same for the same input.
std::uint64_t mixed(std::uint64_t x)
{
    x = (x ^ x >> 30) * 0xBF58476D1CE4E5B9;
    x = (x ^ x >> 27) * 0x94D049BB133111EB;
    return x ^ x >> 31;
}

} // namespace

axes surroundings_pose()
{
    return copy().pose;
}

axes surroundings_turn()
{
    return copy().turn;
}

axes surroundings_magnet()
{
    return copy().magnet;
}

double surroundings_light()
{
    return copy().light;
}

std::optional<double> surroundings_near()
{
    return copy().near;
}

chip_health surroundings_health(motion_chip which)
{
    return copy().health[static_cast<std::size_t>(which)];
}

double surroundings_noise(motion_chip which, std::size_t axis, nanoseconds time)
{
    constexpr nanoseconds span = 250'000; // as long a sample is the same
    constexpr std::int64_t steps = 2;
    if (!copy().trembles)
        return 0;
    const auto slot = static_cast<std::uint64_t>(time / span);
    const std::uint64_t chance = mixed(slot * 16 + static_cast<std::uint64_t>(which) * 4 + axis + 1);
    return static_cast<double>(static_cast<std::int64_t>(chance % (2 * steps + 1)) - steps);
}

void surroundings_before_change(void (*fn)())
{
    listeners.push_back(fn);
}

void surroundings_changes()
{
    for (void (*const fn)() : listeners)
        fn();
}

void surroundings_attach()
{
    word_add("pose", "X Y Z", "what an accelerometer lying still would read, in milli-g; alone: tells it",
             word_pose);
    word_add("turn", "X Y Z", "how fast the phone turns, degrees a second; alone: tells it", word_turn);
    word_add("magnet", "X Y Z", "the magnetic field through the phone, microtesla; alone: tells it",
             word_magnet);
    word_add("light", "LUX", "the light on the panel; alone: tells it", word_light);
    word_add("near", "MM|none", "how far a card is from the proximity window; alone: tells it", word_near);
    word_add("tremble", "on|off", "whether the motion chips show some noise; alone: tells it", word_tremble);
    word_add("sensor", "accel|gyro|compass good|stuck|silent",
             "what is wrong with a motion chip; alone: tells it", word_sensor);
    for (const char* word : {"pose", "turn", "magnet", "light", "near", "tremble", "sensor"})
        conf_add_word(word);
}

void surroundings_start()
{
    const auto set_loading = [](bool on) {
        const std::lock_guard lock(surroundings_mutex);
        loading = on;
    };
    std::ifstream file(home_path("surroundings"));
    set_loading(true);
    for (std::string line; std::getline(file, line);)
        control_request(line);
    set_loading(false);
}

} // namespace phone
