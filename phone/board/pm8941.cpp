#include "board/pm8941.h"

#include <algorithm>
#include <cstdio>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "core/watch.h"

namespace phone {

namespace {

constexpr std::uint32_t addr_mask = 0xFFFFF;
constexpr std::uint8_t reg_type = 0x04; // of every peripheral: what it is
constexpr std::uint8_t reg_subtype = 0x05;

struct peripheral {
    std::uint32_t base;
    unsigned count; // as many of one kind, one behind the other
    std::uint8_t type;
    std::uint8_t subtype;
};

// clang-format off
constexpr peripheral peripherals[] = {
    // base     count  type  subtype
    { 0x00100,   1,    0x51, 0x01 },   // PM8941 revision
    { 0x00800,   1,    0x01, 0x01 },   // power on, reset, keys
    { 0x01000,   1,    0x02, 0x01 },   // charger
    { 0x01100,   1,    0x02, 0x02 },   // charger's converter
    { 0x01200,   1,    0x02, 0x03 },   // battery interface
    { 0x01300,   1,    0x02, 0x04 },   // USB path
    { 0x01400,   1,    0x02, 0x05 },   // DC path
    { 0x01500,   1,    0x02, 0x06 },   // boost
    { 0x01600,   1,    0x02, 0x07 },   // charger, other
    { 0x01B00,   1,    0x09, 0x01 },   // battery identity
    { 0x02400,   1,    0x09, 0x08 },   // temperature alarm
    { 0x02800,   1,    0x02, 0x20 },   // coin cell charger
    { 0x03100,   1,    0x08, 0x01 },   // voltage converter
    { 0x03400,   1,    0x08, 0x02 },   // its limits
    { 0x03600,   1,    0x08, 0x03 },   // current converter
    { 0x04000,   1,    0x0D, 0x01 },   // battery monitor
    { 0x06000,   1,    0x07, 0x01 },   // clock
    { 0x06100,   1,    0x07, 0x03 },   // clock's alarm
    { 0x0A000,   8,    0x11, 0x04 },   // multi-purpose pins
    { 0x0C000,  36,    0x10, 0x01 },   // GPIO
    { 0x11400,   9,    0x03, 0x0A },   // switching regulators
    { 0x14000,  24,    0x04, 0x06 },   // linear regulators
    { 0x18000,   5,    0x05, 0x08 },   // switches
    { 0x1A800,   1,    0x09, 0x0C },   // keypad
    { 0x1B100,   8,    0x1A, 0x01 },   // light pulse generators
    { 0x1BC00,   1,    0x1A, 0x10 },   // their memory
    { 0x1C000,   1,    0x16, 0x01 },   // vibrator
    { 0x1D000,   1,    0x19, 0x01 },   // RGB lamp
    { 0x1D300,   1,    0x18, 0x03 },   // flash
    { 0x1D800,   1,    0x1B, 0x01 },   // white LED strings
    { 0x40100,   1,    0x51, 0x02 },   // PM8841 revision
    { 0x40800,   1,    0x01, 0x02 },   // power on
    { 0x42400,   1,    0x09, 0x08 },   // temperature alarm
    { 0x51400,  24,    0x03, 0x0A },   // switching regulators
};

constexpr pmic_row own_rows[] = {
    // addr     reset  writable
    { 0x00100,  0x00,  0x00 },   // revisions
    { 0x00101,  0x00,  0x00 },
    { 0x00102,  0x01,  0x00 },
    { 0x00103,  0x03,  0x00 },
    { 0x00844,  0x0F,  0x0F },   // stage 1 of the key reset
    { 0x00845,  0x06,  0x07 },   // stage 2
    { 0x00846,  0x04,  0x0F },   // what it does
    { 0x00847,  0x80,  0x80 },   // bit 7: it is armed
    { 0x40100,  0x00,  0x00 },
    { 0x40101,  0x00,  0x00 },
    { 0x40102,  0x00,  0x00 },
    { 0x40103,  0x02,  0x00 },
};
// clang-format on

std::mutex pmic_mutex; // guards the values
std::unordered_map<std::uint32_t, std::uint8_t> values;
std::vector<pmic_row> rows(std::begin(own_rows), std::end(own_rows));

const pmic_row* find_row(std::uint32_t addr)
{
    // What a device has laid down comes after the chip's own.
    const auto found =
        std::find_if(rows.rbegin(), rows.rend(), [addr](const pmic_row& row) { return row.addr == addr; });
    return found != rows.rend() ? &*found : nullptr;
}

const peripheral* find_peripheral(std::uint32_t addr)
{
    for (const peripheral& p : peripherals)
        if (addr >= p.base && addr < p.base + p.count * 0x100)
            return &p;
    return nullptr;
}

void unknown(const char* what, std::uint32_t addr)
{
    char text[64];
    std::snprintf(text, sizeof text, "spmi %s of %05X", what, addr);
    strange(text);
}

bool fails(std::uint32_t addr)
{
    char target[24];
    std::snprintf(target, sizeof target, "spmi %05X", addr);
    return watch_target(target);
}

std::uint8_t get_locked(std::uint32_t addr)
{
    const auto found = values.find(addr);
    return found != values.end() ? found->second : 0;
}

void reset_locked()
{
    values.clear();
    for (const peripheral& p : peripherals) {
        for (unsigned i = 0; i < p.count; i++) {
            values[p.base + i * 0x100 + reg_type] = p.type;
            values[p.base + i * 0x100 + reg_subtype] = p.subtype;
        }
    }
    for (const pmic_row& row : rows)
        values[row.addr] = row.reset;
}

std::uint8_t writable_bits(const pmic_row* p_row, std::uint32_t addr)
{
    const bool identity = (addr & 0xFF) == reg_type || (addr & 0xFF) == reg_subtype;
    return p_row != nullptr ? p_row->writable : identity ? 0x00 : 0xFF;
}

} // namespace

void pmic_add(std::span<const pmic_row> more)
{
    rows.insert(rows.end(), more.begin(), more.end());
}

void pmic_reset()
{
    const std::lock_guard lock(pmic_mutex);
    reset_locked();
}

bool pmic_answers(std::uint32_t addr)
{
    const std::uint32_t slave = addr >> 16;
    return slave == 0 || slave == 1 || slave == 4 || slave == 5;
}

bool pmic_bus_read(std::uint32_t addr, std::uint8_t& value)
{
    addr &= addr_mask;
    if (!pmic_answers(addr) || fails(addr))
        return false;
    if (find_peripheral(addr) == nullptr && find_row(addr) == nullptr) {
        if ((addr & 0xFF) == 0)
            unknown("read", addr); // once for each peripheral of a long dump
        value = 0;
        return true;
    }
    const pmic_row* const p_row = find_row(addr);
    value = pmic_get(addr);
    if (p_row != nullptr && p_row->before_read != nullptr) {
        value = p_row->before_read(addr, value);
        pmic_set(addr, value);
    }
    return true;
}

bool pmic_bus_write(std::uint32_t addr, std::uint8_t value)
{
    addr &= addr_mask;
    if (!pmic_answers(addr) || fails(addr))
        return false;
    const pmic_row* const p_row = find_row(addr);
    if (find_peripheral(addr) == nullptr && p_row == nullptr) {
        unknown("write", addr);
        return true;
    }
    const std::uint8_t writable = writable_bits(p_row, addr);
    {
        const std::lock_guard lock(pmic_mutex);
        value = static_cast<std::uint8_t>((get_locked(addr) & ~writable) | (value & writable));
        values[addr] = value;
    }
    if (p_row != nullptr && p_row->after_write != nullptr)
        p_row->after_write(addr, value);
    return true;
}

std::uint8_t pmic_get(std::uint32_t addr)
{
    const std::lock_guard lock(pmic_mutex);
    return get_locked(addr & addr_mask);
}

void pmic_set(std::uint32_t addr, std::uint8_t value)
{
    const std::lock_guard lock(pmic_mutex);
    values[addr & addr_mask] = value;
}

std::span<const pmic_row> pmic_rows()
{
    return rows;
}

} // namespace phone
