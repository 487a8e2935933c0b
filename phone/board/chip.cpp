#include "board/chip.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "board/gpio.h"
#include "board/i2c_bus.h"
#include "core/watch.h"

namespace phone {

namespace {

void unknown(const chip& c, const char* what, std::uint8_t addr)
{
    char text[96];
    std::snprintf(text, sizeof text, "%s of register %02X of %s", what, addr, c.p_model->name);
    strange(text);
}

const reg_row* find_row(std::span<const reg_row> rows, std::uint8_t addr)
{
    const auto found =
        std::find_if(rows.begin(), rows.end(), [addr](const reg_row& row) { return row.addr == addr; });
    return found != rows.end() ? &*found : nullptr;
}

const reg_row* find_in_overlay(const chip& c, std::uint8_t addr)
{
    return c.shown > 0 ? find_row(c.p_model->overlays[static_cast<std::size_t>(c.shown - 1)], addr) : nullptr;
}

void fill(std::array<std::uint8_t, 256>& values, std::span<const reg_row> rows)
{
    values.fill(0);
    for (const reg_row& row : rows)
        values[row.addr] = row.reset;
}

// A timer that was stopped or set anew while its expiry waited for the bus isn't due.
void timer_expired(chip& c, int which)
{
    i2c_locked([&] {
        chip_timer& t = c.timers[static_cast<std::size_t>(which)];
        if (clock_now(CLOCK_MONOTONIC) < t.deadline)
            return;
        t.deadline = forever;
        c.p_model->timer(c, which);
    });
}

} // namespace

void chip_reset(chip& c)
{
    fill(c.val, c.p_model->regs);
    c.over.resize(c.p_model->overlays.size());
    for (std::size_t i = 0; i < c.over.size(); i++)
        fill(c.over[i], c.p_model->overlays[i]);
    c.pointer = 0;
    c.step = 1;
    c.shown = 0;
    for (int which = 0; which < chip_timers; which++)
        chip_timer_stop(c, which);
    if (c.p_model->reset != nullptr)
        c.p_model->reset(c);
}

void chip_show(chip& c, int overlay)
{
    c.shown = overlay;
}

const reg_row* chip_find(const chip& c, std::uint8_t addr)
{
    const reg_row* const p_over = find_in_overlay(c, addr);
    return p_over != nullptr ? p_over : find_row(c.p_model->regs, addr);
}

std::uint8_t& chip_value(chip& c, std::uint8_t addr)
{
    return find_in_overlay(c, addr) != nullptr ? c.over[static_cast<std::size_t>(c.shown - 1)][addr]
                                               : c.val[addr];
}

std::uint8_t chip_read(chip& c, std::uint8_t addr)
{
    const reg_row* const p_row = chip_find(c, addr);
    if (p_row == nullptr) {
        unknown(c, "read", addr);
        return 0;
    }
    const bool hidden = p_row->hidden != nullptr && p_row->hidden(c);
    const std::uint8_t value = hidden ? 0 : chip_look(c, addr);
    if (p_row->after_read != nullptr)
        p_row->after_read(c);
    return value;
}

void chip_write(chip& c, std::uint8_t addr, std::uint8_t value)
{
    const reg_row* const p_row = chip_find(c, addr);
    if (p_row == nullptr) {
        unknown(c, "write", addr);
        return;
    }
    std::uint8_t& kept = chip_value(c, addr);
    kept = static_cast<std::uint8_t>((kept & ~p_row->writable) | (value & p_row->writable));
    if (p_row->after_write != nullptr)
        p_row->after_write(c, value);
}

std::uint8_t chip_look(chip& c, std::uint8_t addr)
{
    const reg_row* const p_row = chip_find(c, addr);
    if (p_row != nullptr && p_row->before_read != nullptr)
        p_row->before_read(c);
    return chip_value(c, addr);
}

bool chip_has_supply(const chip& c)
{
    return std::ranges::all_of(c.p_model->supply,
                               [](const supply_line& s) { return gpio_level(s.line) == s.level; });
}

void chip_timer_set(chip& c, int which, nanoseconds time)
{
    chip_timer& t = c.timers[static_cast<std::size_t>(which)];
    if (t.id == 0)
        t.id = clock_timer_create([&c, which] { timer_expired(c, which); });
    t.deadline = clock_now(CLOCK_MONOTONIC) + time;
    clock_timer_set(t.id, std::max<nanoseconds>(time, 1), 0);
}

void chip_timer_stop(chip& c, int which)
{
    chip_timer& t = c.timers[static_cast<std::size_t>(which)];
    t.deadline = forever;
    if (t.id != 0)
        clock_timer_set(t.id, 0, 0);
}

} // namespace phone
