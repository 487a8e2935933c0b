#include "tuner/air.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "board/i2c_bus.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/text.h"
#include "tuner/mn88552.h"

namespace phone {

namespace {

constexpr int uhf_first = 13;
constexpr int uhf_last = 68;
constexpr double reach_mhz = 1.0;
constexpr double same_mhz = 0.001;
constexpr double most_mhz = 1000;

constexpr double uhf_carrier(int channel)
{
    return 473 + 1.0 / 7 + 6.0 * (channel - uhf_first);
}

// clang-format off
constexpr broadcast usual = {
    .mhz = uhf_carrier(13), .level_dbm = { -48.25, -53.5 },  .noise = { 464, 9 },
    .errors = { 3, 40, 517 }, .packets = { 1, 8, 77 }, .period = 250, .state = { 9, 5 },
    .layers = { { { 1, 1, 3, 1 }, { 3, 2, 2, 12 }, { 7, 7, 7, 15 } } },
    .system = 0, .emergency = 0, .partial = 1,
};

constexpr broadcast like_the_usual(double mhz, std::array<double, 2> level_dbm, std::array<std::uint32_t, 2> noise)
{
    broadcast b = usual;
    b.mhz = mhz;
    b.level_dbm = level_dbm;
    b.noise = noise;
    b.state = { 10, 5 };
    return b;
}
// clang-format on

std::vector<broadcast> air = {
    usual,
    like_the_usual(uhf_carrier(27), {-71.5, -66.75}, {2105, 33}),
    like_the_usual(216.0, {-55.75, -58}, {464, 9}),
};

std::optional<double> decimal(std::string_view text)
{
    double value;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

// A channel, or a carrier in MHz behind which a point tells that it is one.
std::optional<double> carrier(std::string_view text)
{
    if (text.find('.') != std::string_view::npos) {
        const auto mhz = decimal(text);
        return mhz && *mhz > 0 && *mhz < most_mhz ? mhz : std::nullopt;
    }
    const auto channel = number(text);
    if (!channel || *channel < uhf_first || *channel > uhf_last)
        return std::nullopt;
    return uhf_carrier(static_cast<int>(*channel));
}

std::string name_of(double mhz)
{
    for (int channel = uhf_first; channel <= uhf_last; channel++)
        if (std::fabs(uhf_carrier(channel) - mhz) < same_mhz)
            return std::to_string(channel);
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", mhz);
    return text;
}

// A key with whole numbers: between `least` and `most` of them, up to `largest`.
struct number_key {
    std::string_view name;
    std::size_t least;
    std::size_t most;
    std::uint32_t largest[3];
    std::uint32_t* (*place)(broadcast& b);
};

// clang-format off
constexpr number_key number_keys[] = {
    { "noise",     1, 2, { 0xFFFF, 0x3FFF },               [](broadcast& b) { return b.noise.data(); } },
    { "errors",    3, 3, { 0xFFFFFF, 0xFFFFFF, 0xFFFFFF }, [](broadcast& b) { return b.errors.data(); } },
    { "packets",   3, 3, { 0xFFFFFF, 0xFFFFFF, 0xFFFFFF }, [](broadcast& b) { return b.packets.data(); } },
    { "period",    1, 1, { 0xFFFF },                       [](broadcast& b) { return &b.period; } },
    { "state",     1, 2, { 15, 15 },                       [](broadcast& b) { return b.state.data(); } },
    { "system",    1, 1, { 3 },                            [](broadcast& b) { return &b.system; } },
    { "emergency", 1, 1, { 1 },                            [](broadcast& b) { return &b.emergency; } },
    { "partial",   1, 1, { 1 },                            [](broadcast& b) { return &b.partial; } },
};
// clang-format on

bool is_key(std::string_view word)
{
    return word == "level" || word == "layer" ||
           std::ranges::any_of(number_keys, [word](const number_key& key) { return key.name == word; });
}

using values = std::span<const std::string>;

std::string set_level(broadcast& b, values v)
{
    if (v.empty() || v.size() > 2)
        return "level: one or two numbers of dBm are wanted";
    for (std::size_t i = 0; i < v.size(); i++) {
        const auto dbm = decimal(v[i]);
        if (!dbm || *dbm < -128 || *dbm >= 128)
            return "level " + v[i] + ": -128 up to below 128 dBm is wanted";
        b.level_dbm[i] = *dbm;
    }
    return {};
}

std::string set_layer(broadcast& b, values v)
{
    constexpr std::int64_t largest[4] = {7, 7, 7, 15};
    if (v.size() != 5 || v[0].size() != 1 || v[0][0] < 'A' || v[0][0] > 'C')
        return "layer: A, B or C and modulation, rate, length, segments are wanted";
    std::uint8_t found[4];
    for (std::size_t i = 0; i < 4; i++) {
        const auto value = number(v[i + 1]);
        if (!value || *value < 0 || *value > largest[i])
            return "layer " + v[0] + ' ' + v[i + 1] + ": 0 to " + std::to_string(largest[i]) + " is wanted";
        found[i] = static_cast<std::uint8_t>(*value);
    }
    b.layers[static_cast<std::size_t>(v[0][0] - 'A')] = {found[0], found[1], found[2], found[3]};
    return {};
}

std::string set_numbers(broadcast& b, const number_key& key, values v)
{
    if (v.size() < key.least || v.size() > key.most)
        return std::string(key.name) + ": " + std::to_string(key.most) + " numbers are wanted";
    for (std::size_t i = 0; i < v.size(); i++) {
        const auto value = number(v[i]);
        if (!value || *value < 0 || *value > key.largest[i])
            return std::string(key.name) + ' ' + v[i] + ": 0 to " + std::to_string(key.largest[i]) +
                   " is wanted";
        key.place(b)[i] = static_cast<std::uint32_t>(*value);
    }
    return {};
}

std::string set_key(broadcast& b, const std::string& name, values v)
{
    if (name == "level")
        return set_level(b, v);
    if (name == "layer")
        return set_layer(b, v);
    for (const number_key& key : number_keys)
        if (key.name == name)
            return set_numbers(b, key, v);
    return "a broadcast has no \"" + name + "\"";
}

// Keys and their values, each up to the next key.
std::string set_keys(broadcast& b, values words)
{
    while (!words.empty()) {
        std::size_t end = 1;
        while (end < words.size() && !is_key(words[end]))
            end++;
        std::string wrong = set_key(b, words[0], words.subspan(1, end - 1));
        if (!wrong.empty())
            return wrong;
        words = words.subspan(end);
    }
    return {};
}

std::string describe(const broadcast& b)
{
    char text[400];
    int n = std::snprintf(text, sizeof text,
                          "%s level %g %g noise %u %u errors %u %u %u packets %u %u %u period %u state %u %u",
                          name_of(b.mhz).c_str(), b.level_dbm[0], b.level_dbm[1], b.noise[0], b.noise[1],
                          b.errors[0], b.errors[1], b.errors[2], b.packets[0], b.packets[1], b.packets[2],
                          b.period, b.state[0], b.state[1]);
    for (std::size_t i = 0; i < 3; i++)
        n += std::snprintf(text + n, sizeof text - static_cast<std::size_t>(n), " layer %c %u %u %u %u",
                           static_cast<char>('A' + i), b.layers[i].modulation, b.layers[i].rate,
                           b.layers[i].length, b.layers[i].segments);
    std::snprintf(text + n, sizeof text - static_cast<std::size_t>(n), " system %u emergency %u partial %u",
                  b.system, b.emergency, b.partial);
    return text;
}

std::string list()
{
    std::string lines;
    for (const broadcast& b : air)
        lines += (lines.empty() ? "" : "\n") + describe(b);
    return lines;
}

std::string change(double mhz, values words)
{
    const auto there =
        std::ranges::find_if(air, [mhz](const broadcast& b) { return std::fabs(b.mhz - mhz) < same_mhz; });
    if (words.size() == 1 && words[0] == "off") {
        if (there != air.end())
            air.erase(there);
        return {};
    }
    broadcast b = there != air.end() ? *there : usual;
    b.mhz = there != air.end() ? there->mhz : mhz;
    std::string wrong = set_keys(b, words);
    if (!wrong.empty())
        return wrong;
    if (there != air.end())
        *there = b;
    else
        air.push_back(b);
    return {};
}

std::string carry_out(request& rq)
{
    if (rq.args.empty()) {
        rq.answer = list();
        return {};
    }
    if (rq.args.size() == 1 && rq.args[0] == "off") {
        air.clear();
        mn88552_air_changed(std::nullopt);
        return {};
    }
    const auto mhz = carrier(rq.args[0]);
    if (!mhz)
        return "\"" + rq.args[0] + "\" is neither a channel from 13 to 68 nor a carrier in MHz, like 216.0";
    std::string wrong = change(*mhz, values(rq.args).subspan(1));
    if (wrong.empty())
        mn88552_air_changed(mhz);
    return wrong;
}

std::string word_broadcast(request& rq)
{
    std::string wrong;
    i2c_locked([&] { wrong = carry_out(rq); });
    return wrong;
}

} // namespace

const broadcast* air_at(double mhz)
{
    const auto distance = [mhz](const broadcast& b) { return std::fabs(b.mhz - mhz); };
    const auto nearest = std::ranges::min_element(air, {}, distance);
    return nearest != air.end() && distance(*nearest) < reach_mhz ? &*nearest : nullptr;
}

void air_attach()
{
    word_add(
        "broadcast", "[CH|MHZ [off|KEY VALUE...]]|off",
        "what is on the air: level, noise, errors, packets, period, state, layer, system, emergency, partial",
        word_broadcast);
    conf_add_word("broadcast");
}

} // namespace phone
