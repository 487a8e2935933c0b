#include "f_fm/f_fm.h"

#include <cstdint>

#include "dcp/dcp.h"
#include "fm/fm.h"

namespace {

constexpr std::uint8_t ACT_DEFAULT = 1;

// A frequency below this is in units of 100 kHz, any other in Hz.
constexpr std::uint32_t FIRST_HZ = 1081;
constexpr std::uint32_t HZ_PER_UNIT = 100000;

constexpr int SPACE = 1;
constexpr std::uint16_t VOLUME = 100;
constexpr int DE_EMPHASIS = 0;

constexpr int band_codes[] = {FM_BAND_JAPAN, FM_BAND_JAPAN_WIDE, FM_BAND_EU_US};

bool fm_active;

int print_word(int id, std::uint32_t value)
{
    dcp_printf(id, "fmct", "0x%04x", value);
    return DCP_OK;
}

// Starts the receiver unless it is on; says so when that fails.
bool start(int id)
{
    if (fm_active)
        return true;
    fm_active = fm_start() == FM_OK;
    if (!fm_active)
        dcp_printf(id, "fmct", "Start Fail");
    return fm_active;
}

int stop(int id)
{
    if (!fm_active)
        return DCP_ERROR;
    fm_stop();
    fm_active = false;
    return dcp_answer(id, "fmct", " ", DCP_OK);
}

int f_fm_freq_set(int id, std::uint32_t value)
{
    const std::uint32_t hz = value < FIRST_HZ ? value * HZ_PER_UNIT : value;
    switch (fm_freq_set(hz)) {
    case FM_TIMEOUT:
        return dcp_answer(id, "fmct", "tune timeout", DCP_ERROR);
    case FM_FAILED:
        return dcp_answer(id, "fmct", "tune fail", DCP_ERROR);
    default:
        return DCP_OK;
    }
}

int start_and_tune(int id, int argc, std::uint32_t value)
{
    const bool active = start(id);
    if (argc == 1)
        return dcp_answer(id, "fmct", " ", active ? DCP_OK : DCP_ERROR);
    if (argc != 2 || !active)
        return DCP_ERROR;
    const int status = f_fm_freq_set(id, value);
    return dcp_answer(id, "fmct", " ", status);
}

int f_fm_band_set(int id, std::uint16_t band)
{
    if (!fm_active)
        return DCP_ERROR;
    if (band >= sizeof band_codes / sizeof band_codes[0])
        return dcp_answer(id, "fmct", " ", DCP_SYNTAX);
    fm_band_set(band_codes[band]);
    fm_space_set(SPACE);
    fm_vol_set(VOLUME);
    fm_de_set(DE_EMPHASIS);
    return dcp_answer(id, "fmct", " ", DCP_OK);
}

int print_help(int id)
{
    dcp_printf(id, "fmct", "FM radio control");
    dcp_printf(id, "fmct", "act(0=stop, 1=start freq set, 3=freq band set, 4=dev id)");
    dcp_printf(id, "fmct", "act(5=chip id, 6=rssi value, 7=read reg)");
    dcp_printf(id, "fmct", "freq(0-1080)");
    dcp_printf(id, "fmct", "band(0=japan, 1=japan wide, 2=eu/us)");
    return DCP_OK;
}

int do_fm_fmct(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return print_help(id);
    const bool counted = argc == 1 || argc == 2;
    const std::uint8_t act = counted ? static_cast<std::uint8_t>(dcp_uint(argv[0])) : ACT_DEFAULT;
    const std::uint32_t value = argc == 2 ? dcp_uint(argv[1]) : 0;
    switch (act) {
    case 0:
        return stop(id);
    case 1:
        return start_and_tune(id, argc, value);
    case 2:
        return f_fm_band_set(id, static_cast<std::uint16_t>(value));
    case 4:
        return start(id) ? print_word(id, fm_dev_id() & 0xFFFF) : DCP_ERROR;
    case 5:
        return start(id) ? print_word(id, fm_chip_id() & 0xFFFF) : DCP_ERROR;
    case 6:
        return fm_active ? print_word(id, fm_rssi_get()) : DCP_ERROR;
    case 7:
        return fm_active ? print_word(id, fm_reg_get(static_cast<std::uint8_t>(value)) & 0xFFFF) : DCP_ERROR;
    default:
        return DCP_ERROR;
    }
}

constexpr dcp_cmd fm_cmd_tab[] = {
    {"fmct", "(0-5),(760-1080)", "%v,%v", "ctrl(act,(freq,band))", do_fm_fmct, DCP_GRP_PRODUCTION},
    {},
};

dcp_cmd_link fm_cmd_link;

} // namespace

void f_fm_init()
{
    dcp_cmd_add(fm_cmd_tab, &fm_cmd_link);
}
