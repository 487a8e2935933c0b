// Power, identity, scanning and calibration items. The tests on the air stand in f_wlan_tests.cpp, the chip's
// own tests in f_wlan_bytes.cpp.
#include "f_wlan/f_wlan.h"

#include <cstdint>

#include "f_wlan_inner.h"
#include "wlan/wlan.h"

namespace {

bool wlan_fwdl; // the firmware was downloaded since the power-up

int do_wlan_wlpu(int id, int action, int argc, const dcp_word* argv)
{
    const std::uint32_t mode = argc > 0 ? dcp_uint(argv[0]) : WLAN_MODE_TEST;
    if (mode > WLAN_MODE_STATION)
        return dcp_answer(id, "wlpu", "Parameter out of range (0-1)", DCP_ERROR);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wlpu", "WLAN power up", DCP_OK);
    if (wlan_started)
        return dcp_answer(id, "wlpu", " ", DCP_ERROR);
    const int status = f_wlan_status(wlan_start(mode));
    wlan_started = status == DCP_OK;
    return dcp_answer(id, "wlpu", " ", status);
}

int do_wlan_wlpd(int id, int action, int, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wlpd", "WLAN power down", DCP_OK);
    if (!wlan_started)
        return dcp_answer(id, "wlpd", " ", DCP_ERROR);
    wlan_stop();
    wlan_started = false;
    wlan_fwdl = false;
    in_tx = false;
    return dcp_answer(id, "wlpd", " ", DCP_OK);
}

int do_wlan_wtfd(int id, int action, int, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wtfd", "WLAN firmware download", DCP_OK);
    if (!wlan_started)
        return dcp_answer(id, "wtfd", "The chip is not powered up yet", DCP_ERROR);
    if (!f_wlan_stop_tx())
        return dcp_answer(id, "wtfd", " ", DCP_ERROR);
    wlan_fwdl = wlan_fwdl || wlan_fw_dl() == 1;
    return dcp_answer(id, "wtfd", " ", wlan_fwdl ? DCP_OK : DCP_ERROR);
}

int print_id(int id, int (*id_of)(char* p_text))
{
    char text[WLAN_TEXT_ROOM] = "";
    const int status = f_wlan_status(id_of(text));
    if (status != DCP_OK || text[0] == '\0')
        return dcp_answer(id, "wlid", " ", status != DCP_OK ? status : DCP_ERROR);
    return dcp_answer(id, "wlid", text, DCP_OK);
}

int do_wlan_wlid(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST) {
        dcp_printf(id, "wlid", "Retrieves WLAN ID");
        dcp_printf(id, "wlid", "ver(0=read chip id)");
        dcp_printf(id, "wlid", "ver(1=read nvs version id)");
        return DCP_OK;
    }
    if (!wlan_started || !f_wlan_stop_tx())
        return dcp_answer(id, "wlid", " ", DCP_ERROR);
    switch (argc > 0 ? dcp_uint(argv[0]) : 0) {
    case 0:
        return print_id(id, wlan_chip_id);
    case 1:
        return print_id(id, wlan_nvs_id);
    default:
        return dcp_answer(id, "wlid", " ", DCP_SYNTAX);
    }
}

int do_wlan_wlscan(int id, int action, int, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wlscan", "Retrieves WLANs", DCP_OK);
    if (!wlan_started)
        return dcp_answer(id, "wlscan", "WLAN not started", DCP_ERROR);
    if (!f_wlan_stop_tx())
        return dcp_answer(id, "wlscan", "TX not OK", DCP_ERROR);
    char text[WLAN_TEXT_ROOM] = "";
    switch (wlan_scan(text)) {
    case WLAN_OK:
        if (text[0] == '\0')
            return dcp_answer(id, "wlscan", "No access points", DCP_ERROR);
        return dcp_answer(id, "wlscan", text, DCP_OK);
    case WLAN_NOT_IMPLEMENTED:
        return dcp_answer(id, "wlscan", "Not implemented", DCP_NOT_FOUND);
    default:
        return dcp_answer(id, "wlscan", "Other error", DCP_ERROR);
    }
}

int do_wlan_wlcg(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wlcg", "Retrieve WLAN calibration items", DCP_OK);
    if (argc != 1)
        return DCP_SYNTAX;
    std::uint32_t w[WLAN_ITEM_WORDS] = {};
    switch (wlan_calibration_gain(dcp_uint(argv[0]), w)) {
    case WLAN_OK:
        dcp_printf(id, "wlcg", "0x%x,0x%x,0x%x,0x%x,0x%x,0x%x,0x%x", w[0], w[1], w[2], w[3], w[4], w[5],
                   w[6]);
        return DCP_OK;
    case WLAN_NOT_IMPLEMENTED:
        return DCP_NOT_FOUND;
    case WLAN_BAD_VALUE:
        return dcp_answer(id, "wlcg", " ", DCP_SYNTAX);
    default:
        return dcp_answer(id, "wlcg", " ", DCP_ERROR);
    }
}

// clang-format off
constexpr dcp_cmd f_wlan_cmd_tab[] = {
    { "wlpu",   "(0,1)",        "%d",    "start()", do_wlan_wlpu, DCP_GRP_PRODUCTION },
    { "wlpd",   "",             "",      "stop()",  do_wlan_wlpd, DCP_GRP_PRODUCTION },
    { "wtfd",   "",             "",      "fwdl()",  do_wlan_wtfd, DCP_GRP_PRODUCTION },
    { "wlid",   "(1)",          "%d",    "id(type)", do_wlan_wlid, DCP_GRP_PRODUCTION },
    { "wtxg",   "(1.00-255.00)", "%f",   "wtxg(pwr)", do_wlan_wtxg, DCP_GRP_PRODUCTION },
    { "wsrx",   "(0,1)(1-14)",  "%d,%d", "rx()",    do_wlan_wsrx, DCP_GRP_PRODUCTION },
    { "wlrx",   "(0,1)(1-14)",  "%d,%d", "rx()",    do_wlan_wlrx, DCP_GRP_PRODUCTION },
    { "wstx",   "(1-14)(0-12)(0-2)(1-17)(0-10)", "%d,%d,%d,%d,%d", "stx(ch,rate,mode,pwr,bw)", do_wlan_wstx,
      DCP_GRP_PRODUCTION },
    { "wbtx",   "(1-252)(0-44)(0-4)(32-2400)(30-1000)(0-4)(1.0-16.0)(0-2)(0-1)", "%d,%d,%d,%d,%d,%d,%f,%d,%d",
      "btx(ch,rate,pre,len,interval,mode,pwr,bandwidth,dpd)", do_wlan_wbtx, DCP_GRP_PRODUCTION },
    { "widl",   "",             "",      "idle()",  do_wlan_widl, DCP_GRP_PRODUCTION },
    { "wbcx",   "",             "%t",    "test coex(...)",    do_wlan_wbcx, DCP_GRP_PRODUCTION },
    { "wlst",   "",             "%t",    "run selftest(...)", do_wlan_wlst, DCP_GRP_PRODUCTION },
    { "wlscan", "",             "",      "scan()",  do_wlan_wlscan, DCP_GRP_PRODUCTION },
    { "wlcg",   "(0-65000)",    "%d",    "wlcg(item)", do_wlan_wlcg, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_wlan_cmd_link;

} // namespace

bool wlan_started;
bool in_tx;

bool f_wlan_stop_tx()
{
    if (in_tx && wlan_stop_tx() != WLAN_OK)
        return false;
    in_tx = false;
    return true;
}

int f_wlan_status(int result)
{
    if (result == WLAN_OK)
        return DCP_OK;
    return result == WLAN_NOT_IMPLEMENTED ? DCP_NOT_FOUND : DCP_ERROR;
}

void f_wlan_init()
{
    dcp_cmd_add(f_wlan_cmd_tab, &f_wlan_cmd_link);
}
