#include "tuner/tuner.h"

#include "plat/plat.h"
#include "tmr/tmr.h"
#include "tunerx/tunerx_cfg.h"
#include "tunerx/tunerx_hwl.h"

namespace {

constexpr tunerx_setup usual_setup = {.slave = {104, 105, 106}, .reg_file = {}, .fw_file = {}, .ch_file = {}};

int set_up_outputs()
{
    tunerx_pctl record = {{0, 0}, {0x0Fu | 3u << 6, 0}};
    return tunerx_cfg_pctl(record);
}

int set_up_stream(int mode)
{
    // clang-format off
    tunerx_tsout wide   = { 1, { 0x8E, 0 }, { 0xFF, 0 } };
    tunerx_tsout narrow = { 2, { 0x00, 0 }, { 0x37, 0 } };
    // clang-format on
    if (mode == 1)
        return tunerx_cfg_tsout(wide);
    return mode == 2 ? tunerx_cfg_tsout(narrow) : TUNERX_OK;
}

} // namespace

int tuner_ctl_power(int action)
{
    switch (action) {
    case 0:
        if (tunerx_start(&usual_setup) != TUNERX_OK)
            return TUNERX_DEVICE;
        tmr_usleep(50000);
        return TUNERX_OK;
    case 1:
        tunerx_hwl_terminate();
        tunerx_hwl_ctl_power(0);
        return TUNERX_OK;
    default:
        return TUNERX_BAD_ARGUMENT;
    }
}

int tuner_initialize(int mode)
{
    constexpr std::uint32_t FIRST_EVENT = 0x201001; // group 1 of the wide path, parameter 2
    if (tunerx_initialize() != TUNERX_OK)
        return TUNERX_DEVICE;
    const bool done = set_up_outputs() == TUNERX_OK && set_up_stream(mode) == TUNERX_OK &&
                      tunerx_set_event(FIRST_EVENT, TUNERX_EVENT_DEFINE) == TUNERX_OK;
    return done ? TUNERX_OK : TUNERX_BAD_ARGUMENT;
}

int tuner_tuning(const tuner_request* p_request)
{
    return p_request != nullptr ? tunerx_tuning(p_request->band, p_request->ch) : TUNERX_BAD_ARGUMENT;
}

int tuner_search_ch(tunerx_tdc* p_head)
{
    return tunerx_search_ch(p_head);
}

std::uint32_t tuner_get_status()
{
    return tunXParams.state;
}

void tuner_put_status(std::uint32_t state)
{
    tunXParams.state = state;
}

int tuner_check_dev_openable()
{
    const int fd = plat_open("/dev/mmtuner", O_RDWR | O_CLOEXEC);
    if (fd < 0)
        return TUNERX_WRONG_STATE;
    plat_close(fd);
    return TUNERX_OK;
}
