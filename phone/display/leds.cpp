#include "display/leds.h"

#include <array>
#include <mutex>
#include <string>

#include "board/pm8941.h"
#include "core/clock.h"
#include "core/control.h"
#include "core/home.h"
#include "core/text.h"

namespace phone {

namespace {

constexpr std::size_t tested_leds = 3;
constexpr nanoseconds detect_time = 4'000'000; // until the detection has seen the LED that was selected
constexpr std::uint8_t detect_bit = 0x02;

std::mutex leds_mutex; // guards all below
std::array<bool, tested_leds> faulty;
bool enabled;
bool detecting;
std::size_t selected; // 0 for none
nanoseconds selected_at;
bool latched;

bool fault_seen_locked()
{
    return enabled && detecting && selected >= 1 && selected <= tested_leds && faulty[selected - 1] &&
           clock_now(CLOCK_MONOTONIC) - selected_at >= detect_time;
}

void write_clear(std::uint32_t, std::uint8_t value)
{
    const std::lock_guard lock(leds_mutex);
    latched = latched && (value & detect_bit) == 0;
}

void write_enable(std::uint32_t, std::uint8_t value)
{
    const std::lock_guard lock(leds_mutex);
    enabled = (value & detect_bit) != 0;
}

void write_select(std::uint32_t, std::uint8_t value)
{
    const std::lock_guard lock(leds_mutex);
    latched = latched || fault_seen_locked();
    selected = value;
    selected_at = clock_now(CLOCK_MONOTONIC);
}

void write_mode(std::uint32_t, std::uint8_t value)
{
    const std::lock_guard lock(leds_mutex);
    detecting = value == 2;
}

// A fault that lasts is latched again as soon as the latch is cleared.
std::uint8_t read_latched(std::uint32_t, std::uint8_t)
{
    const std::lock_guard lock(leds_mutex);
    latched = latched || fault_seen_locked();
    return latched ? detect_bit : 0;
}

// clang-format off
constexpr pmic_row rows[] = {
    // addr     reset  writable  on write      on read
    { 0x1D814,  0x00,  0xFF,     write_clear,  nullptr },        // write 1 to clear a latched interrupt
    { 0x1D815,  0x00,  0xFF,     write_enable, nullptr },
    { 0x1D818,  0x00,  0x00,     nullptr,      read_latched },   // bit 1: short or open
    { 0x1D848,  0x00,  0x0F,     write_select, nullptr },        // the LED that is looked at
    { 0x1D84D,  0x00,  0x03,     write_mode,   nullptr },        // 2: detection on
};
// clang-format on

std::string word_led(request& rq)
{
    const auto n = rq.args.empty() ? std::nullopt : number(rq.args[0]);
    if (rq.args.size() != 2 || !n || *n < 1 || *n > static_cast<std::int64_t>(tested_leds))
        return "an LED from 1 to 3, and good, short or open are wanted";
    const std::string& state = rq.args[1];
    if (state != "good" && state != "short" && state != "open")
        return "good, short or open is wanted, not \"" + state + "\"";
    const std::lock_guard lock(leds_mutex);
    faulty[static_cast<std::size_t>(*n) - 1] = state != "good";
    return {};
}

} // namespace

void leds_attach()
{
    pmic_add(rows);
    word_add("led", "N good|short|open", "LED N of the power chip, 1 to 3", word_led);
}

void leds_seed()
{
    for (const char* name : {"red", "green", "blue"})
        home_seed("/sys/class/leds/" + std::string(name) + "/brightness", "0\n");
    home_seed("/sys/class/leds/lcd-backlight/brightness", "102\n");
    home_seed("/sys/class/leds/wled:backlight/brightness", "115\n");
}

} // namespace phone
