#include "routes.h"

namespace {

alsa_pcm_config alsa_output = {
    .device = "default",
    .stream = 0,
    .format = 2,
    .rate = 48000,
    .channels = 1,
    .periods = 0,
    .analysis_periods = 0,
    .frequency = 1000,
    .amplitude = 6000,
    .dump_samples = 1,
    .pcm = nullptr,
    .buffer = nullptr,
    .wave = nullptr,
    .buffer_size = 4096,
    .period_size = 0,
    .transfer_frames = 512,
    .period_samples = 0,
};

alsa_pcm_config alsa_input = {
    .device = "default",
    .stream = 1,
    .format = 2,
    .rate = 48000,
    .channels = 2,
    .periods = 80,
    .analysis_periods = 80,
    .frequency = 1000,
    .amplitude = 0,
    .dump_samples = 1,
    .pcm = nullptr,
    .buffer = nullptr,
    .wave = nullptr,
    .buffer_size = 0,
    .period_size = 0,
    .transfer_frames = 0,
    .period_samples = 0,
};

constexpr std::int16_t UNUSED = -32768; // where the values of a plain entry end

constexpr alsa_ctl_entry plain(std::uint32_t type, std::uint32_t numid, std::int16_t value, std::int16_t on,
                               std::int16_t off)
{
    return {type, numid, 0, {value, value, on, UNUSED}, off};
}

constexpr alsa_ctl_entry on_off(std::uint32_t numid)
{
    return plain(ALSA_BOOLEAN, numid, 0, 1, 0);
}

constexpr alsa_ctl_entry boolean(std::uint32_t numid, std::int16_t value, std::int16_t off)
{
    return plain(ALSA_BOOLEAN, numid, value, value, off);
}

constexpr alsa_ctl_entry integer(std::uint32_t numid, std::int16_t value, std::int16_t off)
{
    return plain(ALSA_INTEGER, numid, value, value, off);
}

constexpr alsa_ctl_entry enumerated(std::uint32_t numid, std::int16_t value, std::int16_t off)
{
    return plain(ALSA_ENUMERATED, numid, value, value, off);
}

constexpr alsa_ctl_entry gain(std::uint32_t numid, const std::int16_t (&values)[ALSA_VALUES],
                              std::int16_t off)
{
    alsa_ctl_entry entry = {ALSA_GAIN | ALSA_INTEGER, numid, 0, {}, off};
    for (int i = 0; i < ALSA_VALUES; i++)
        entry.values[i] = values[i];
    return entry;
}

// By the numbers that the sound card's controls have: its value (of on_off: off until switched on), and what
// a switched-off route leaves. A gain: default, working value, on, further steps, -1 for none, the short
// step.
// clang-format off
constinit alsa_ctl_entry alsa_cfg_spkr_drv[] = {
    on_off(337),
    on_off(462),
    enumerated(556, 0, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_spkr_drv_no_tgen[] = {
    enumerated(426, 2, 0),
    enumerated(376, 5, 0),
    enumerated(441, 3, 0),
    integer(25, 0, 0),
    integer(36, 93, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_spkr_drv_gain[] = {
    integer(441, 5, 0),
    gain(36, {70, 70, 70, 75, 80, 90, -1, -1, -1, 1}, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_spkr_drv_gain_no_tgen[] = {
    gain(41, {84, 72, 78, 81, 84, 90, 93, 96, -1, 1}, 84),
    {},
};

constinit alsa_ctl_entry alsa_cfg_ear[] = {
    on_off(337),
    on_off(462),
    enumerated(556, 0, 0),
    enumerated(431, 1, 0),
    on_off(463),
    {},
};

constinit alsa_ctl_entry alsa_cfg_ear_no_tgen[] = {
    enumerated(426, 2, 0),
    enumerated(376, 5, 0),
    enumerated(454, 3, 0),
    integer(25, 0, 0),
    enumerated(431, 1, 0),
    integer(30, 93, 0),
    enumerated(16, 4, 1),
    boolean(463, 1, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_ear_gain[] = {
    enumerated(454, 5, 0),
    gain(30, {69, 0, 75, 81, 87, 93, -1, -1, -1, 1}, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_ear_gain_no_tgen[] = {
    gain(41, {84, 72, 78, 81, 84, 90, 93, 96, -1, 1}, 84),
    {},
};

constinit alsa_ctl_entry alsa_cfg_plug[] = {
    on_off(337),
    on_off(462),
    enumerated(556, 0, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_plug_left_gain[] = {
    enumerated(454, 5, 0),
    enumerated(431, 1, 0),
    boolean(455, 1, 0),
    gain(30, {80, 80, 80, 80, 80, 80, 80, 80, 80, 1}, 0),
    gain(17, {0, 8, 11, 14, 17, 20, -1, -1, -1, 1}, 20),
    {},
};

constinit alsa_ctl_entry alsa_cfg_plug_right_gain[] = {
    enumerated(451, 5, 0),
    enumerated(431, 1, 0),
    gain(31, {80, 80, 80, 80, 80, 80, 80, 80, 80, 1}, 0),
    gain(18, {0, 8, 11, 14, 17, 20, -1, -1, -1, 1}, 20),
    {},
};

constinit alsa_ctl_entry alsa_cfg_mic[] = {
    on_off(291),
    on_off(413),
    enumerated(557, 0, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_mic1_no_auan[] = {
    enumerated(428, 2, 0),
    integer(27, 4, 0),
    enumerated(375, 3, 0),
    enumerated(451, 4, 0),
    integer(31, 96, 0),
    integer(18, 16, 20),
    {},
};

constinit alsa_ctl_entry alsa_cfg_mic2_no_auan[] = {
    enumerated(429, 2, 0),
    integer(28, 4, 0),
    enumerated(375, 2, 0),
    enumerated(451, 4, 0),
    integer(31, 96, 0),
    integer(18, 16, 20),
    {},
};

constinit alsa_ctl_entry alsa_cfg_hs_mic_no_auan[] = {
    enumerated(426, 2, 0),
    integer(25, 5, 0),
    enumerated(375, 5, 0),
    enumerated(454, 4, 0),
    enumerated(431, 1, 0),
    integer(30, 96, 0),
    integer(17, 20, 20),
    boolean(455, 1, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_amic1_gain[] = {
    enumerated(380, 10, 0),
    enumerated(428, 2, 0),
    gain(39, {97, 97, 97, 97, 97, 100, -1, -1, -1, 1}, 97),
    gain(27, {0, 0, 4, 8, 12, 12, -1, -1, -1, 1}, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_amic1_gain_no_auan[] = {
    gain(39, {84, 84, 90, 96, 108, -1, -1, -1, -1, 1}, 84),
    {},
};

constinit alsa_ctl_entry alsa_cfg_amic2_gain[] = {
    enumerated(380, 9, 0),
    enumerated(429, 2, 0),
    gain(38, {97, 97, 97, 97, 97, 100, -1, -1, -1, 1}, 97),
    gain(28, {0, 0, 4, 8, 12, 12, -1, -1, -1, 1}, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_amic2_gain_no_auan[] = {
    gain(38, {84, 84, 90, 96, 108, -1, -1, -1, -1, 1}, 84),
    {},
};

constinit alsa_ctl_entry alsa_cfg_amic3_gain[] = {
    enumerated(380, 10, 0),
    enumerated(428, 2, 0),
    gain(39, {97, 97, 97, 97, 97, 100, -1, -1, -1, 1}, 97),
    gain(27, {0, 0, 4, 8, 12, 12, -1, -1, -1, 1}, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_amic4_gain[] = {
    enumerated(380, 9, 0),
    enumerated(429, 2, 0),
    gain(38, {97, 97, 97, 97, 97, 100, -1, -1, -1, 1}, 97),
    gain(28, {0, 0, 4, 8, 12, 12, -1, -1, -1, 1}, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_hs_mic_gain[] = {
    enumerated(380, 12, 0),
    enumerated(426, 2, 0),
    gain(41, {85, 85, 85, 85, 85, 85, 85, 85, 85, 1}, 0),
    integer(25, 12, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_hs_mic_gain_no_auan[] = {
    gain(41, {84, 84, 90, 96, 108, -1, -1, -1, -1, 1}, 84),
    {},
};

constinit alsa_ctl_entry alsa_cfg_line_in_left_gain[] = {
    enumerated(380, 9, 0),
    enumerated(429, 2, 0),
    gain(38, {83, 83, 83, 83, 83, 83, 83, 83, 83, 1}, 0),
    gain(28, {12, 12, 12, 12, 12, 12, 12, 12, 12, 1}, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_line_in_right_gain[] = {
    enumerated(380, 14, 0),
    enumerated(424, 4, 0),
    gain(43, {83, 83, 83, 83, 83, 83, 83, 83, 83, 1}, 0),
    gain(29, {12, 12, 12, 12, 12, 12, 12, 12, 12, 1}, 0),
    {},
};

constinit alsa_ctl_entry alsa_cfg_fm[] = {
    on_off(130),
    on_off(367),
    on_off(295),
    {},
};

constinit alsa_ctl_entry alsa_cfg_fm_gain[] = {
    {}, // a radio has no gain here
};

struct slot_row {
    int slot;
    alsa_ctl_entry* p_route;
};

constexpr slot_row speaker_slots[] = {
    { ALSA_SPEAKER,              alsa_cfg_spkr_drv              },
    { ALSA_SPEAKER_NO_TGEN,      alsa_cfg_spkr_drv_no_tgen      },
    { ALSA_SPEAKER_GAIN,         alsa_cfg_spkr_drv_gain         },
    { ALSA_SPEAKER_GAIN_NO_TGEN, alsa_cfg_spkr_drv_gain_no_tgen },
};

// A slot without a row is empty.
constexpr slot_row slots[] = {
    { ALSA_EAR,                 alsa_cfg_ear                 },
    { ALSA_EAR_NO_TGEN,         alsa_cfg_ear_no_tgen         },
    { ALSA_EAR_GAIN,            alsa_cfg_ear_gain            },
    { ALSA_EAR_GAIN_NO_TGEN,    alsa_cfg_ear_gain_no_tgen    },
    { ALSA_PLUG,                alsa_cfg_plug                },
    { ALSA_PLUG_LEFT_GAIN,      alsa_cfg_plug_left_gain      },
    { ALSA_PLUG_RIGHT_GAIN,     alsa_cfg_plug_right_gain     },
    { ALSA_MIC,                 alsa_cfg_mic                 },
    { ALSA_MIC1_NO_AUAN,        alsa_cfg_mic1_no_auan        },
    { ALSA_MIC2_NO_AUAN,        alsa_cfg_mic2_no_auan        },
    { ALSA_HS_MIC_NO_AUAN,      alsa_cfg_hs_mic_no_auan      },
    { ALSA_AMIC1_GAIN,          alsa_cfg_amic1_gain          },
    { ALSA_AMIC1_GAIN_NO_AUAN,  alsa_cfg_amic1_gain_no_auan  },
    { ALSA_AMIC2_GAIN,          alsa_cfg_amic2_gain          },
    { ALSA_AMIC2_GAIN_NO_AUAN,  alsa_cfg_amic2_gain_no_auan  },
    { ALSA_AMIC3_GAIN,          alsa_cfg_amic3_gain          },
    { ALSA_AMIC4_GAIN,          alsa_cfg_amic4_gain          },
    { ALSA_HS_MIC,              alsa_cfg_mic                 }, // the pairs differ in their gain alone
    { ALSA_HS_MIC_GAIN,         alsa_cfg_hs_mic_gain         },
    { ALSA_HS_MIC_GAIN_NO_AUAN, alsa_cfg_hs_mic_gain_no_auan },
    { ALSA_LINE_IN_RIGHT_GAIN,  alsa_cfg_line_in_right_gain  },
    { ALSA_LINE_IN_LEFT_GAIN,   alsa_cfg_line_in_left_gain   },
    { ALSA_FM,                  alsa_cfg_fm                  },
    { ALSA_FM_GAIN,             alsa_cfg_fm_gain             },
};
// clang-format on

} // namespace

alsa_cfg routes_cfg;

void routes_fill(bool speaker)
{
    routes_cfg = {&alsa_output, &alsa_input, {}};
    for (const slot_row& row : slots)
        routes_cfg.p_route[row.slot] = row.p_route;
    if (!speaker)
        return;
    for (const slot_row& row : speaker_slots)
        routes_cfg.p_route[row.slot] = row.p_route;
}
