#include "f_usb/f_usb.h"

#include "dcp/dcp.h"
#include "usb/usb.h"

namespace {

constexpr int NO_TIMEOUT = -1;
constexpr std::uint32_t ACT_CHARGER_TYPE = 5;

struct usbc_row {
    std::uint32_t act;
    bool any_opt;
    std::uint32_t opt;
    int item;
};

// What an act and its option ask of the driver.
// clang-format off
constexpr usbc_row usbc_map[] = {
    // act  any    opt  item
    {   0,  true,  0,   0 },
    {   1,  true,  0,   1 },
    {   2,  true,  0,   2 },
    {   3,  false, 0,   3 },
    {   3,  false, 1,   3 },
    {   4,  false, 0,   5 },
    {   4,  false, 1,   6 },
    {   6,  false, 0,   USB_SET_HOST_POWER_OFF },
    {   6,  false, 1,   USB_SET_VBUS_WATCH     },
};
// clang-format on

int charger_type(int id)
{
    int type;
    if (!usb_get(USB_GET_CHARGER_TYPE, &type))
        return dcp_answer(id, "usbc", " ", DCP_ERROR);
    dcp_printf(id, "usbc", "%d", type);
    return DCP_OK;
}

int do_usb_usbc(int id, int action, int argc, const dcp_word* argv)
{
    if (argc < 1 || argc > 3)
        return dcp_answer(id, "usbc", " ", DCP_SYNTAX);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "usbc", "USB control command", DCP_OK);
    const std::uint32_t act = dcp_uint(argv[0]);
    const std::uint32_t opt = argc > 1 ? dcp_uint(argv[1]) : 0;
    const int timeout = argc > 2 ? dcp_int(argv[2]) : NO_TIMEOUT;
    if (act == ACT_CHARGER_TYPE)
        return charger_type(id);
    for (const usbc_row& row : usbc_map)
        if (row.act == act && (row.any_opt || row.opt == opt))
            return dcp_answer(id, "usbc", " ", usb_set(row.item, timeout) ? DCP_OK : DCP_ERROR);
    return dcp_answer(id, "usbc", " ", DCP_SYNTAX);
}

constexpr dcp_cmd usb_cmd_tab[] = {
    {"usbc", "", "%v,%v,%v", "usbc(act,opt,timeout)", do_usb_usbc, DCP_GRP_PRODUCTION},
    {},
};

dcp_cmd_link usb_cmd_obj;

} // namespace

void f_usb_init()
{
    dcp_cmd_add(usb_cmd_tab, &usb_cmd_obj);
}
