#include "tuner/mn88552.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <string>

#include "board/chips.h"
#include "board/file_chip.h"
#include "board/gpio.h"
#include "board/i2c_bus.h"
#include "core/conf.h"
#include "core/control.h"
#include "tuner/air.h"
#include "tuner/demux.h"

namespace phone {

namespace {

constexpr int bus = 4;
constexpr int tuner_addr = 0x68;
constexpr int wide_addr = 0x69;
constexpr int narrow_addr = 0x6A;

constexpr nanoseconds ms = 1'000'000;
constexpr nanoseconds load_time = 40 * ms;
constexpr nanoseconds calibration_time = 120 * ms;
constexpr nanoseconds settle_time = 15 * ms;
constexpr nanoseconds sync_time = 200 * ms;
constexpr nanoseconds measure_time = 100 * ms;
constexpr nanoseconds antenna_time = 100 * ms;

// Timers: of all halves, of the tuner, of the other two.
enum { timer_load, timer_calibration, timer_settle, timer_sync };
constexpr int timer_measure = timer_calibration;

constexpr unsigned check_line = 68;

// What goes wrong, by the names of the word.
constexpr const char* fault_names[] = {"good", "noload", "badrom", "nocal", "nosettle"};
enum { good, noload, badrom, nocal, nosettle };
int trouble = good;

// A half's program: what the registers alone don't tell.
struct program {
    bool starts;     // the bit that starts the load, as it was last written
    bool held;       // the bit that holds the program
    bool patched;    // bytes have come, so the parity shows
    unsigned parity; // of the bytes since it was last cleared
};
program programs[2]; // tuner, wide

// The receiver as a whole. All with the bus locked.
struct receiver {
    bool stands;  // a tuning has come to its end
    bool settled; // its synthesiser has
    bool sync[2]; // of the wide and the narrow half
} now;
int antenna = 0;

chip& half(int addr)
{
    return *i2c_chip(bus, addr);
}

std::uint8_t& reg(int addr, int number)
{
    return half(addr).val[static_cast<std::size_t>(number)];
}

program& program_of(const chip& c)
{
    return programs[c.p_model->addr == tuner_addr ? 0 : 1];
}

void put_bytes(int addr, int number, std::uint32_t value, int bytes)
{
    for (int i = bytes; i-- > 0; value >>= 8)
        reg(addr, number + i) = static_cast<std::uint8_t>(value);
}

// Loading, patching, calibrating.

void program_start_written(chip& c, std::uint8_t written)
{
    program& p = program_of(c);
    const bool starts = (written & 0x01) != 0;
    if (starts && !p.starts) {
        c.val[0xF8] = 0x00;
        chip_timer_set(c, timer_load, load_time);
    }
    p.starts = starts;
}

void program_loaded(chip& c)
{
    if (trouble != noload)
        c.val[0xF8] = trouble == badrom ? 0x50 : 0x40;
}

void show_parity(chip& c)
{
    const program& p = program_of(c);
    if (p.patched)
        c.val[0xF8] = static_cast<std::uint8_t>((c.val[0xF8] & ~0x10) | p.parity << 4);
}

void program_control_written(chip& c, std::uint8_t written)
{
    program& p = program_of(c);
    if ((written & 0x02) != 0) {
        p.parity = 0;
        show_parity(c);
    }
    const bool held = (written & 0x01) != 0;
    if (c.p_model->addr == tuner_addr && held != p.held) {
        c.val[0xD6] &= 0xFE;
        if (held)
            chip_timer_stop(c, timer_calibration);
        else
            chip_timer_set(c, timer_calibration, calibration_time);
    }
    p.held = held;
}

// The register is a queue: the bytes behind the first go there, too.
void patch_written(chip& c, std::uint8_t written)
{
    program& p = program_of(c);
    p.patched = true;
    p.parity ^= static_cast<unsigned>(std::popcount(written)) & 1;
    show_parity(c);
    c.pointer = 0xF6;
}

// What a half shows of a broadcast.

double frequency()
{
    const double reference = 37.2 / (1 + (reg(tuner_addr, 0x78) >> 6));
    const unsigned part = static_cast<unsigned>(reg(tuner_addr, 0x75) & 0x0F) << 16 |
                          static_cast<unsigned>(reg(tuner_addr, 0x76)) << 8 | reg(tuner_addr, 0x77);
    const double synthesiser = reference * (reg(tuner_addr, 0x74) + part / 1048576.0);
    const double wanted = reg(tuner_addr, 0xCC) << 2 | reg(tuner_addr, 0xCD) >> 6;
    double nearest = synthesiser;
    for (const int divisor : {2, 4, 8})
        if (std::fabs(synthesiser / divisor - wanted) < std::fabs(nearest - wanted))
            nearest = synthesiser / divisor;
    return nearest;
}

void show_level()
{
    const broadcast* const p = now.settled ? air_at(frequency()) : nullptr;
    if (p == nullptr)
        return;
    const double dbm = antenna == 2 ? std::max(p->level_dbm[0], p->level_dbm[1])
                                    : p->level_dbm[static_cast<std::size_t>(antenna)];
    const auto sixteenths = static_cast<unsigned>(std::lround((dbm + 256) * 16));
    reg(tuner_addr, 0xD7) = static_cast<std::uint8_t>(sixteenths >> 4);
    reg(tuner_addr, 0xD8) = static_cast<std::uint8_t>(sixteenths << 4 | 0x09);
}

// Bits without a meaning read 1.
void show_tmcc(int addr, int first, const broadcast& b)
{
    const auto put = [addr, &first](unsigned value) {
        reg(addr, first++) = static_cast<std::uint8_t>(value);
    };
    constexpr unsigned no_countdown = 15u << 1;
    put(0x80 | b.system << 5 | no_countdown | b.emergency);
    for (std::size_t i = 0; i < b.layers.size(); i++) {
        const broadcast_layer& l = b.layers[i];
        const unsigned above = i == 0 ? 0x80 | b.partial << 6 : 0xC0;
        put(above | l.modulation << 3 | l.rate);
        put(0x80u | l.length << 4 | l.segments);
    }
}

void show_noise(std::size_t which, const broadcast& b)
{
    if (which == 0) {
        reg(wide_addr, 0xBF) = 0xFF;
        put_bytes(wide_addr, 0xC0, b.noise[0], 2);
    } else {
        reg(narrow_addr, 0xAB) = 0xFF;
        put_bytes(narrow_addr, 0xAC, b.noise[1] | 0xC000, 2);
    }
}

bool counts_packets(std::size_t which)
{
    if (which == 0)
        return (reg(wide_addr, 0x93) & 0x80) != 0 || (reg(wide_addr, 0x8B) & 0x20) != 0;
    return (reg(narrow_addr, 0x85) & 0x80) != 0 || (reg(narrow_addr, 0x80) & 0x10) != 0;
}

std::size_t layer_counted(std::size_t which)
{
    if (which != 0)
        return 0;
    const std::uint8_t from = reg(wide_addr, (reg(wide_addr, 0x93) & 0x80) != 0 ? 0x93 : 0x90);
    return static_cast<std::size_t>(std::max((from & 0x03) - 1, 0));
}

void show_errors(std::size_t which, const broadcast& b)
{
    const auto& counts = counts_packets(which) ? b.packets : b.errors;
    const int addr = which == 0 ? wide_addr : narrow_addr;
    const int status = which == 0 ? 0xC3 : 0xAE;
    put_bytes(addr, status + 1, counts[layer_counted(which)], 3);
    put_bytes(addr, status + 4, b.period, 2);
    reg(addr, status) = 0xFF;
}

void show_sync(std::size_t which, const broadcast& b)
{
    if (which == 0) {
        reg(wide_addr, 0x94) = 0xC6;
        reg(wide_addr, 0x95) = static_cast<std::uint8_t>(0xB0 | b.state[0]);
        reg(wide_addr, 0x96) = 0x79;
        reg(wide_addr, 0x97) = 0x10;
        show_tmcc(wide_addr, 0xA0, b);
        reg(wide_addr, 0xA7) = 0xFF;
    } else {
        reg(narrow_addr, 0x86) = 0xDE;
        reg(narrow_addr, 0x87) = static_cast<std::uint8_t>(0xB0 | b.state[1]);
        reg(narrow_addr, 0x88) = 0x7F;
        reg(narrow_addr, 0x89) = 0x10;
        show_tmcc(narrow_addr, 0x8B, b);
    }
    show_noise(which, b);
    show_errors(which, b);
}

void show_no_sync(std::size_t which)
{
    now.sync[which] = false;
    chip_timer_stop(half(which == 0 ? wide_addr : narrow_addr), timer_measure);
    if (which == 0) {
        reg(wide_addr, 0x95) = 0x01;
        reg(wide_addr, 0x97) = 0x08;
    } else {
        reg(narrow_addr, 0x87) = 0x00;
        reg(narrow_addr, 0x89) = 0x80;
    }
}

// Where the receiver stands: the half that is picked has sync while there is a broadcast.
void look()
{
    const broadcast* const p = now.stands ? air_at(frequency()) : nullptr;
    const std::size_t picked = (reg(wide_addr, 0x00) & 0x01) != 0 ? 1 : 0;
    for (const std::size_t which : {0u, 1u}) {
        if (p == nullptr || which != picked) {
            show_no_sync(which);
            continue;
        }
        now.sync[which] = true;
        chip_timer_stop(half(which == 0 ? wide_addr : narrow_addr), timer_measure);
        show_sync(which, *p);
    }
    show_level();
    demux_source_changed();
}

void tuning_written(chip& c, std::uint8_t)
{
    now.stands = now.settled = false;
    c.val[0xB9] &= 0x7F;
    look();
    if (trouble == nosettle) {
        chip_timer_stop(c, timer_settle);
        chip_timer_stop(c, timer_sync);
        return;
    }
    chip_timer_set(c, timer_settle, settle_time);
    chip_timer_set(c, timer_sync, sync_time);
}

void tuner_timer(chip& c, int which)
{
    switch (which) {
    case timer_load:
        program_loaded(c);
        break;
    case timer_calibration:
        if (trouble != nocal)
            c.val[0xD6] |= 0x01;
        break;
    case timer_settle:
        now.settled = true;
        c.val[0xB9] |= 0x80;
        show_level();
        break;
    default:
        now.stands = true;
        look();
    }
}

void measured(std::size_t which)
{
    const broadcast* const p = now.sync[which] ? air_at(frequency()) : nullptr;
    if (p != nullptr)
        show_errors(which, *p);
}

void wide_timer(chip& c, int which)
{
    if (which == timer_load)
        program_loaded(c);
    else
        measured(0);
}

void narrow_timer(chip&, int)
{
    measured(1);
}

void measure_written(chip& c, std::uint8_t)
{
    const bool wide = c.p_model->addr == wide_addr;
    if (!now.sync[wide ? 0 : 1])
        return;
    c.val[wide ? 0xC3 : 0xAE] = 0x00;
    chip_timer_set(c, timer_measure, measure_time);
}

void path_written(chip& c, std::uint8_t written)
{
    c.val[0x00] = static_cast<std::uint8_t>((c.val[0x00] & ~0x01) | (written & 0x01));
    c.val[0x02] = static_cast<std::uint8_t>((c.val[0x02] & ~0xC0) | (written & 0xC0));
}

void check_line_written(chip&, std::uint8_t written)
{
    gpio_drive(check_line, written & 0x01);
}

void pattern_written(chip&, std::uint8_t)
{
    demux_source_changed();
}

// The three halves hear of it one after the other.
void supply_changed(chip& c, bool on)
{
    if (c.p_model->addr == wide_addr)
        gpio_drive(check_line, on ? 0 : -1);
    now = {};
    demux_source_changed();
}

void program_reset(chip& c)
{
    program_of(c) = {};
}

// clang-format off
constexpr reg_row known_tuner[] = {
    // addr  reset  writable
    { 0xB9,  0x00,  0x00 },                                      // bit 7: has settled
    { 0xCE,  0x00,  0xFF, nullptr, tuning_written },
    { 0xD6,  0x00,  0x00 },                                      // bit 0: has calibrated
    { 0xD7,  0x00,  0x00 },                                      // level
    { 0xD8,  0x00,  0x00 },
    { 0xF2,  0x00,  0xFF, nullptr, program_start_written },
    { 0xF3,  0x00,  0xFF, nullptr, program_control_written },
    { 0xF6,  0x00,  0xFF, nullptr, patch_written },
    { 0xF8,  0x00,  0x00 },                                      // bit 6: loaded, bit 4: fault or parity
    { 0xFF,  0x52,  0x00 },                                      // chip id
};

constexpr reg_row known_wide[] = {
    { 0x8B,  0x00,  0xFF, nullptr, measure_written },
    { 0x90,  0x00,  0xFF, nullptr, measure_written },
    { 0x93,  0x00,  0xFF, nullptr, measure_written },
    { 0x94,  0x00,  0x00 },                                      // sync
    { 0x95,  0x00,  0x00 },
    { 0x96,  0x00,  0x00 },
    { 0x97,  0x00,  0x00 },
    { 0xA0,  0x00,  0x00 },                                      // TMCC
    { 0xA1,  0x00,  0x00 },
    { 0xA2,  0x00,  0x00 },
    { 0xA3,  0x00,  0x00 },
    { 0xA4,  0x00,  0x00 },
    { 0xA5,  0x00,  0x00 },
    { 0xA6,  0x00,  0x00 },
    { 0xA7,  0x00,  0x00 },
    { 0xBF,  0x00,  0x00 },                                      // noise
    { 0xC0,  0x00,  0x00 },
    { 0xC1,  0x00,  0x00 },
    { 0xC3,  0x00,  0x00 },                                      // errors and period
    { 0xC4,  0x00,  0x00 },
    { 0xC5,  0x00,  0x00 },
    { 0xC6,  0x00,  0x00 },
    { 0xC7,  0x00,  0x00 },
    { 0xC8,  0x00,  0x00 },
    { 0xDB,  0x00,  0xFF, nullptr, check_line_written },
    { 0xE7,  0x00,  0xFF, nullptr, pattern_written },            // bit 0: pattern, bits 5 and 4: which
    { 0xED,  0x00,  0xFF, nullptr, path_written },
    { 0xF2,  0x00,  0xFF, nullptr, program_start_written },
    { 0xF3,  0x00,  0xFF, nullptr, program_control_written },
    { 0xF6,  0x00,  0xFF, nullptr, patch_written },
    { 0xF8,  0x00,  0x00 },
    { 0xFF,  0x52,  0x00 },
};

constexpr reg_row known_narrow[] = {
    { 0x80,  0x00,  0xFF, nullptr, measure_written },
    { 0x85,  0x00,  0xFF, nullptr, measure_written },
    { 0x86,  0x00,  0x00 },                                      // sync
    { 0x87,  0x00,  0x00 },
    { 0x88,  0x00,  0x00 },
    { 0x89,  0x00,  0x00 },
    { 0x8B,  0x00,  0x00 },                                      // TMCC
    { 0x8C,  0x00,  0x00 },
    { 0x8D,  0x00,  0x00 },
    { 0x8E,  0x00,  0x00 },
    { 0x8F,  0x00,  0x00 },
    { 0x90,  0x00,  0x00 },
    { 0x91,  0x00,  0x00 },
    { 0xAB,  0x00,  0x00 },                                      // noise
    { 0xAC,  0x00,  0x00 },
    { 0xAD,  0x00,  0x00 },
    { 0xAE,  0x00,  0x00 },                                      // errors and period
    { 0xAF,  0x00,  0x00 },
    { 0xB0,  0x00,  0x00 },
    { 0xB1,  0x00,  0x00 },
    { 0xB2,  0x00,  0x00 },
    { 0xB3,  0x00,  0x00 },
    { 0xFF,  0x52,  0x00 },
};

constexpr supply_line supply[] = { { 13, 1 }, { 14, 1 } };
// clang-format on

constexpr auto tuner = whole_file(known_tuner);
constexpr auto wide = whole_file(known_wide);
constexpr auto narrow = whole_file(known_narrow);

// From the next step of the chip on.
std::string word_tuner(request& rq)
{
    std::string wrong;
    i2c_locked([&] {
        if (rq.args.empty()) {
            rq.answer = fault_names[trouble];
            return;
        }
        for (int i = good; i <= nosettle; i++)
            if (rq.args.size() == 1 && rq.args[0] == fault_names[i]) {
                trouble = i;
                return;
            }
        wrong = "good, noload, badrom, nocal or nosettle is wanted, not \"" + rq.rest + "\"";
    });
    return wrong;
}

int antenna_wanted = 0;

void antenna_switched()
{
    i2c_locked([] {
        antenna = antenna_wanted;
        show_level();
    });
}

} // namespace

constinit const chip_model mn88552_tuner = {.name = "mn88552 tuner control",
                                            .bus = bus,
                                            .addr = tuner_addr,
                                            .regs = tuner,
                                            .supply = supply,
                                            .supply_changed = supply_changed,
                                            .reset = program_reset,
                                            .timer = tuner_timer};
constinit const chip_model mn88552_wide = {.name = "mn88552 wide path",
                                           .bus = bus,
                                           .addr = wide_addr,
                                           .regs = wide,
                                           .supply = supply,
                                           .supply_changed = supply_changed,
                                           .reset = program_reset,
                                           .timer = wide_timer};
constinit const chip_model mn88552_narrow = {.name = "mn88552 narrow path",
                                             .bus = bus,
                                             .addr = narrow_addr,
                                             .regs = narrow,
                                             .supply = supply,
                                             .supply_changed = supply_changed,
                                             .timer = narrow_timer};

stream_source mn88552_stream()
{
    const std::uint8_t pattern = reg(wide_addr, 0xE7);
    if (!half(wide_addr).supplied)
        return {stream_source::nothing, 0};
    if ((pattern & 0x01) != 0)
        return {stream_source::pattern, pattern >> 4 & 3};
    return {now.sync[0] || now.sync[1] ? stream_source::broadcast : stream_source::nothing, 0};
}

void mn88552_air_changed(std::optional<double> mhz)
{
    const bool concerned = mhz ? std::fabs(frequency() - *mhz) < 1.0 : now.sync[0] || now.sync[1];
    if (now.stands && concerned)
        look();
}

void mn88552_antenna(int which)
{
    static const int timer = clock_timer_create(antenna_switched);
    i2c_locked([which] { antenna_wanted = which; });
    clock_timer_set(timer, antenna_time, 0);
}

void mn88552_attach()
{
    word_add("tuner", "[good|noload|badrom|nocal|nosettle]",
             "what the broadcast demodulator does from its next step on", word_tuner);
    conf_add_word("tuner");
}

} // namespace phone
