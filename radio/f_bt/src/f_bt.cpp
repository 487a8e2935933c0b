// Identity, reset, download, test mode, scripts and scanning. The tests on the air stand in f_bt_tests.cpp,
// what deals in bytes and addresses in f_bt_bytes.cpp.
#include "f_bt/f_bt.h"

#include <cstdint>

#include "bt/bt.h"
#include "bt/bt_hci.h"
#include "f_bt_inner.h"

namespace {

bool bt_started;

int blank(int id, const char* name, int status)
{
    return dcp_answer(id, name, " ", status);
}

int passed(bool ok)
{
    return ok ? DCP_OK : DCP_ERROR;
}

int print_bytes_of(int id, std::uint16_t value)
{
    dcp_printf(id, "btid", " 0x%02X,0x%02X", value >> 8, value & 0xFF);
    return DCP_OK;
}

int print_id(int id, std::uint32_t type)
{
    char text[BT_HCI_PAR_MOST + 1];
    bt_hci_version version;
    switch (type) {
    case 0:
        return bt_hci_rev_txt(text) != 0 ? dcp_answer(id, "btid", text, DCP_OK) : DCP_ERROR;
    case 2:
        return bt_hci_loc_ver(&version) != 0 ? print_bytes_of(id, version.hci_revision) : DCP_ERROR;
    case 3:
        return bt_hci_loc_ver(&version) != 0 ? print_bytes_of(id, version.lmp_subversion) : DCP_ERROR;
    default:
        return DCP_ERROR;
    }
}

int do_bt_btid(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST) {
        dcp_printf(id, "btid", "Retrieves bluetooth ID");
        dcp_printf(id, "btid", "ver(0=read revison text)");
        dcp_printf(id, "btid", "ver(1=read chip id)");
        dcp_printf(id, "btid", "ver(2=read hci revision)");
        dcp_printf(id, "btid", "ver(3=read lmp subversion)");
        return DCP_OK;
    }
    return f_bt_start() ? print_id(id, argc > 0 ? dcp_uint(argv[0]) : 0) : DCP_ERROR;
}

int reset_controller()
{
    if (bt_hci_reset() == 0)
        return DCP_ERROR;
    const int result = bt_reset();
    return passed(result == BT_OK || result == BT_NOT_IMPLEMENTED);
}

int reset_chip()
{
    const int result = bt_chip_reset();
    return result == BT_NOT_IMPLEMENTED ? DCP_NOT_FOUND : passed(result == BT_OK);
}

int do_bt_bthr(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "bthr", "Reset bluetooth", DCP_OK);
    const std::uint32_t what = argc > 0 ? dcp_uint(argv[0]) : 0;
    if (what > 1 || !f_bt_start())
        return blank(id, "bthr", DCP_ERROR);
    return blank(id, "bthr", what == 0 ? reset_controller() : reset_chip());
}

// The downloads in their order, which isn't that of the driver's numbers; act 0 is all three.
bool f_bt_dl(std::uint32_t act)
{
    constexpr int downloads[] = {0, 2, 1};
    constexpr std::uint32_t count = sizeof downloads / sizeof downloads[0];
    if (act > count)
        return false;
    for (std::uint32_t i = 1; i <= count; i++)
        if ((act == 0 || act == i) && bt_dl(downloads[i - 1]) != BT_OK)
            return false;
    return true;
}

int do_bt_btfd(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "btfd", "Download bluetooth files to chip", DCP_OK);
    const std::uint32_t mode = argc > 0 ? dcp_uint(argv[0]) : 0;
    const std::uint32_t act = argc > 1 ? dcp_uint(argv[1]) : 0;
    int status = DCP_ERROR;
    if (!f_bt_start())
        return blank(id, "btfd", status);
    if (mode == 1) {
        status = passed(f_bt_dl(act));
    } else if (mode == 5) {
        std::uint8_t configuration[BT_HCI_PAR_MOST];
        bt_hci_rd_dyn_cfg(configuration); // nobody shows it
    }
    return blank(id, "btfd", status);
}

bool enter_test_mode()
{
    return bt_hci_wr_scan_en(3) != 0 && bt_hci_evt_filt_set(2, 0, 2) != 0 && bt_hci_dut_en() != 0;
}

int do_bt_bttm(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST) {
        dcp_printf(id, "bttm", "Set test mode");
        dcp_printf(id, "bttm", "act(0=off 1=on)");
        return DCP_OK;
    }
    const std::uint32_t on = argc > 0 ? dcp_uint(argv[0]) : 1;
    if (on > 1 || !f_bt_start())
        return blank(id, "bttm", DCP_ERROR);
    if (on == 1)
        return blank(id, "bttm", passed(enter_test_mode()));
    bt_stop();
    f_bt_forget_start();
    return blank(id, "bttm", DCP_OK);
}

int do_bt_btse(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "btse", "Bluetooth script execute", DCP_OK);
    const char* const path = argc > 0 ? dcp_text(argv[0]) : nullptr;
    if (path == nullptr || !f_bt_start())
        return blank(id, "btse", DCP_ERROR);
    const int result = bt_script_exec(path);
    if (result == BT_NO_FILE)
        return dcp_answer(id, "btse", "File not found.", DCP_ERROR);
    return blank(id, "btse", passed(result == BT_OK));
}

int scan(int id, std::uint32_t count)
{
    char text[BT_SCAN_ROOM] = "";
    switch (bt_scan(static_cast<int>(count), text)) {
    case BT_OK:
        if (text[0] == '\0')
            return dcp_answer(id, "btscan", "No devices", DCP_ERROR);
        return dcp_answer(id, "btscan", text, DCP_OK);
    case BT_NOT_IMPLEMENTED:
        return dcp_answer(id, "btscan", "Not implemented", DCP_NOT_FOUND);
    default:
        return dcp_answer(id, "btscan", "Other error", DCP_ERROR);
    }
}

int do_bt_btscan(int id, int action, int argc, const dcp_word* argv)
{
    const std::uint32_t count = argc > 0 ? dcp_uint(argv[0]) : 1;
    if (count < 1 || count > BT_SCAN_MOST)
        return dcp_answer(id, "btscan", "Parameter out of range (1-7)", DCP_ERROR);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "btscan", "Scans for BT devices", DCP_OK);
    if (!f_bt_start())
        return dcp_answer(id, "btscan", "BT not started", DCP_ERROR);
    return scan(id, count);
}

// clang-format off
constexpr dcp_cmd f_bt_cmd_tab[] = {
    { "btid",   "(0-3)",         "%d",    "id(type)",       do_bt_btid, DCP_GRP_PRODUCTION },
    { "bthr",   "(0-1)",         "%d",    "reset()",        do_bt_bthr, DCP_GRP_PRODUCTION },
    { "btfd",   "(0-5),(0-4)",   "%d,%d", "fwdl(mode,act)", do_bt_btfd, DCP_GRP_PRODUCTION },
    { "bttm",   "(0-1)",         "%d",    "test(en)",       do_bt_bttm, DCP_GRP_PRODUCTION },
    { "btse",   "(\"A-Z\",\"a-z\")", "%s", "exec(path)",    do_bt_btse, DCP_GRP_PRODUCTION },
    { "bstx",   "(0x00-0x4E),(0-3),(0-3),(0-7),(0-15)", "%v,%d,%d,%d,%d", "stat tx(ch,dat,rate,pat,pwr)", do_bt_bstx,
      DCP_GRP_PRODUCTION },
    { "bwtx",   "(0x00-0x4E),(0-8),(0-4),(0-1),(0-15),len", "%v,%d,%d,%d,%d,%d", "switch tx(ch,pkt,pat,mode,pwr,len)",
      do_bt_bwtx, DCP_GRP_PRODUCTION },
    { "rwbt",   "[(0-4)[(\" \")]]", "%d,%s", "test rwbt",   do_bt_rwbt, 0 },
    { "bhwr",   "(0-1),(0x00-0x3ff),(0x00-0xff)", "%d,%v,%v,%v,%t", "hci(cmd)", do_bt_bhwr, DCP_GRP_PRODUCTION },
    { "bsrx",   "(0-1),(0-8),(0x0-0x5D),(0-4)", "%d,%d,%v,%d", "stat rx(mode,pkt_type,ch,pattern)", do_bt_bsrx,
      DCP_GRP_PRODUCTION },
    { "blrx",   "(0x00-0x4E)",   "%v,",   "CW test for rx(ch)", do_bt_blrx, DCP_GRP_PRODUCTION },
    { "blet",   "(0x00-0x27),(0x00-0x25),(0x00-0x07)", "%v,%v,%v", "LE tx(ch,len,pld)", do_bt_blet,
      DCP_GRP_PRODUCTION },
    { "bler",   "(0x00-0x27)",   "%v",    "LE rx(ch)",      do_bt_bler, DCP_GRP_PRODUCTION },
    { "bles",   "",              "",      "LE stop",        do_bt_bles, DCP_GRP_PRODUCTION },
    { "bwcx",   "",              "%t",    "BT Set/Get Coex", do_bt_bwcx, DCP_GRP_PRODUCTION },
    { "pint",   "",              "",      "Pin Connectivity Test", do_bt_pint, DCP_GRP_PRODUCTION },
    { "btscan", "(1-7)",         "%d",    "scan()",         do_bt_btscan, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_bt_cmd_link;

} // namespace

// The start goes on behind this; when it has failed since, the controller is stopped and needs another one.
bool f_bt_start()
{
    if (bt_start_lost())
        bt_started = false;
    if (!bt_started)
        bt_started = bt_start() == BT_OK;
    return bt_started;
}

void f_bt_forget_start()
{
    bt_started = false;
}

void f_bt_init()
{
    dcp_cmd_add(f_bt_cmd_tab, &f_bt_cmd_link);
}
