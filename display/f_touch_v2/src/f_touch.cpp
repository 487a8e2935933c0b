#include "f_touch_v2/f_touch.h"

#include "dcp/dcp.h"
#include "dtch.h"
#include "dtst.h"
#include "touch_v2/touch.h"
#include "trim/items.h"
#include "trim/trim.h"

namespace {

constexpr std::size_t HWINFO_SIZE = 5; // vendor, chip id and configuration id with the high byte first

// Actions of dtid.
constexpr std::uint32_t DTID_SHORT = 0;
constexpr std::uint32_t DTID_WHOLE = 1;
constexpr std::uint32_t DTID_STORE = 2;
constexpr std::uint32_t DTID_STORED = 3;
constexpr std::uint32_t DTID_CONFIG = 4;

int do_touch_dtfd(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "dtfd", "Touch firmware download", DCP_OK);
    const char* const path = argc > 0 ? dcp_text(argv[0]) : nullptr;
    const bool done = touch_start() != 0 && touch_fmdn(path) != 0;
    return dcp_answer(id, "dtfd", " ", done ? DCP_OK : DCP_ERROR);
}

bool store_hwinfo(const touch_hwinfo& info)
{
    const std::uint8_t bytes[HWINFO_SIZE] = {
        info.vendor,
        static_cast<std::uint8_t>(info.chip_id >> 8),
        static_cast<std::uint8_t>(info.chip_id),
        static_cast<std::uint8_t>(info.config_id >> 8),
        static_cast<std::uint8_t>(info.config_id),
    };
    return trim_wr(TRIM_TOUCH_HWINFO, bytes, sizeof bytes) != 0;
}

bool stored_hwinfo(touch_hwinfo& info)
{
    std::uint8_t bytes[HWINFO_SIZE];
    if (trim_rd(TRIM_TOUCH_HWINFO, bytes, sizeof bytes) != HWINFO_SIZE)
        return false;
    info = {bytes[0], static_cast<std::uint16_t>(bytes[1] << 8 | bytes[2]),
            static_cast<std::uint16_t>(bytes[3] << 8 | bytes[4]), 0};
    return true;
}

int print_hwinfo(int id, std::uint32_t n, const touch_hwinfo& info)
{
    const unsigned vendor = info.vendor;
    const unsigned chip = info.chip_id;
    const unsigned config = info.config_id;
    if (n == DTID_SHORT)
        dcp_printf(id, "dtid", "0x%04X%04X,0x%08X", chip, config, info.fw_version);
    else if (n == DTID_WHOLE)
        dcp_printf(id, "dtid", "0x%02X,0x%04X,0x%04X,0x%08X", vendor, chip, config, info.fw_version);
    else if (n == DTID_CONFIG)
        dcp_printf(id, "dtid", "0x%02X", config);
    else
        dcp_printf(id, "dtid", "0x%02X,0x%04X,0x%04X", vendor, chip, config);
    return DCP_OK;
}

int do_touch_dtid(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "dtid", "Read touch hardware info and write/read trim area", DCP_OK);
    const std::uint32_t n = argc > 0 ? dcp_uint(argv[0]) : DTID_SHORT;
    if (argc > 1 || n > DTID_CONFIG)
        return DCP_SYNTAX;
    touch_hwinfo info{};
    bool done;
    if (n == DTID_STORED)
        done = stored_hwinfo(info);
    else
        done = touch_start() != 0 && touch_fmid(&info) != 0 && (n != DTID_STORE || store_hwinfo(info));
    return done ? print_hwinfo(id, n, info) : DCP_ERROR;
}

int do_touch_dtld(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "dtld", "Load and select touch device", DCP_OK);
    const int n = argc > 0 ? dcp_int(argv[0]) : -1;
    if (n < 0)
        return dcp_answer(id, "dtld", " ", DCP_SYNTAX);
    if (n > 0)
        touch_select(static_cast<std::uint32_t>(n));
    const int done = n > 0 ? touch_start() : touch_stop();
    return dcp_answer(id, "dtld", " ", done != 0 || n == 0 ? DCP_OK : DCP_ERROR);
}

// clang-format off
constexpr dcp_cmd f_touch_cmd_tab[] = {
    { "dtch", "(0-3)[,(1-1000)]",                  "%v,%v",       "test(mode,interval)",       do_touch_dtch, DCP_GRP_PRODUCTION },
    { "dtst", "(1-7)[,(0-12),(0-0xff),(0-0xff)]",  "%d,%v,%v,%v", "dtst(action,mode,min,max)", do_touch_dtst, DCP_GRP_PRODUCTION },
    { "dtfd", "",                                  "%s",          "dtfd(firmware)",            do_touch_dtfd, DCP_GRP_PRODUCTION },
    { "dtid", "[(1-4)]",                           "%v",          "dtid(action)",              do_touch_dtid, DCP_GRP_PRODUCTION },
    { "dtld", "1-2",                               "%d",          "dtld(action)",              do_touch_dtld, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_touch_link;

} // namespace

void f_touch_init()
{
    dcp_cmd_add(f_touch_cmd_tab, &f_touch_link);
    touch_evt_attach(touch_cb);
}
