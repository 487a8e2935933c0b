#include "mpvc_brenk/mpvc_brenk.h"

#include <cstdint>

#include "audio_wcd9320/audio_wcd9320.h"
#include "cfg/cfg.h"
#include "mpvc/mpvc.h"
#include "tmr/tmr.h"

namespace {

constexpr unsigned BANDGAP = 257;
constexpr unsigned BANDGAP_ON = 85;
constexpr int MOST_TURNS = 19; // of the wait for it, some 270 ms each

struct step {
    bool delayed; // the write gives the chip time
    unsigned reg;
    unsigned value;
    std::uint32_t then_ms;
};

// clang-format off
constexpr step bias_on[] = {
    // delayed reg     value       wait ms
    { true,  BANDGAP,  BANDGAP_ON,  0 },
    { true,  272,      237,        20 },
    { true,  264,        9,         0 },
    { false, 302,      192,         0 },
    { false, 303,      160,         0 },
    { false, 305,      166,         0 },
    { true,  780,        6,         0 },
};

constexpr step bias_off[] = {
    { true,  BANDGAP,  BANDGAP_ON,  0 },
    { true,  272,      125,        20 },
    { true,  264,        4,         0 },
    { false, 302,       64,         0 },
    { false, 305,       23,         0 },
    { true,  780,        0,         0 },
    { false, 988,       10,         0 },
    { false, 334,        4,         0 },
};
// clang-format on

// All steps are done whatever fails. False when a register didn't take its value.
template <std::size_t size>
bool run(const step (&steps)[size])
{
    bool done = true;
    for (const step& s : steps) {
        const auto write_register = s.delayed ? audio_wcd9320_write_with_delay : audio_wcd9320_write;
        done = write_register(s.reg, s.value) == 0 && done;
        if (s.then_ms > 0)
            tmr_msleep(s.then_ms);
    }
    return done;
}

bool bandgap_is_on()
{
    unsigned value;
    return audio_wcd9320_read(BANDGAP, &value) == 0 && value == BANDGAP_ON;
}

// The bandgap may be switched off behind our back while the chip settles.
bool bandgap_stays()
{
    bool written = true;
    for (int turn = 0; !bandgap_is_on(); turn++) {
        if (turn == MOST_TURNS)
            return false;
        tmr_msleep(50);
        written = audio_wcd9320_write_with_delay(BANDGAP, BANDGAP_ON) == 0 && written;
        tmr_msleep(200);
    }
    return written;
}

int mpvc_brenk_set(int on)
{
    if (cfg_get_int("audio_wcd9320", "internal_micbias", 0) != 1)
        return 0;
    const bool done = on != 0 ? run(bias_on) : run(bias_off);
    return bandgap_stays() && done ? 0 : 1;
}

constexpr mpvc_co mpvc_brenk_co = {
    .set = mpvc_brenk_set,
};

} // namespace

void mpvc_brenk_init()
{
    mpvc_cmd_co_attach(&mpvc_brenk_co);
}
