#include "f_ta/f_ta.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

#include "dcp/dcp.h"
#include "scf/scf.h"
#include "ta/ta.h"
#include "ta_dump.h"

namespace {

constexpr int TA_MAX_ITEMS = 1024;
constexpr std::size_t TA_MAX_RESP_LEN = 12; // the longest item of a list is "0x80001363," and NUL
constexpr const char* LIST_HEAD = "TACT:";  // in front of the items, which go out raw

// clang-format off
constexpr const char* tact_help[] = {
    "TA control",
    "TACT                - Get TA status",
    "TACT=0              - Close TA",
    "TACT=1              - Open TA",
    "TACT=2[,<unit>]     - Transfer TA unit(s) to NV",
    "TACT=3              - Format TA",
    "TACT=4              - Transfer NV to TA (blocking)",
    "TACT=4,1            - Transfer NV to TA (non-blocking)",
    "TACT=7              - Return all units found in TA",
    "TACT=8,<unit>       - Delete specified unit from TA",
    "TACT=10,<src>,<dst> - Transfer NV unit <src> to TA unit <dst>",
    "TACT=11,<unit>[,<data...>] - Read/Write data from/to TA",
};
// clang-format on

// The items of a line, the act first.
struct tact_items {
    int count;
    std::int32_t val[TA_MAX_ITEMS];
};

std::uint32_t unit_of(const tact_items& items)
{
    return static_cast<std::uint32_t>(items.val[1]);
}

bool store_open()
{
    return ta_if_get_status() != 0;
}

// Most acts answer with their bare name and a status.
int answer(int id, bool done)
{
    return dcp_answer(id, "tact", "", done ? DCP_OK : DCP_ERROR);
}

int tact_status(int id)
{
    dcp_printf(id, "tact", "0x%x", static_cast<unsigned>(ta_if_get_status()));
    return DCP_OK;
}

int tact_all_to_nv(int id)
{
    bool done = true;
    for (std::uint32_t unit = 0; done && unit != TA_NO_UNIT; unit = ta_if_get_next_id())
        done = ta_if_xfer(unit, unit, 0, 0, 1) == TA_XFER_DONE && store_open();
    return answer(id, done);
}

int tact_unit_to_nv(int id, std::uint32_t unit)
{
    if (store_open() || ta_if_open(0) == 0)
        return answer(id, false);
    const bool done = ta_if_xfer(unit, unit, 0, 0, 1) == TA_XFER_DONE;
    ta_if_close(0);
    return answer(id, done);
}

int tact_format(int id)
{
    return answer(id, !store_open() && ta_if_format(0, 0) != 0);
}

int tact_from_nv(int id)
{
    return answer(id, ta_if_xfer(0, 0, 1, 0, 1) == TA_XFER_DONE);
}

int tact_from_nv_step(int id, std::int32_t how)
{
    const int result = how == 1 ? ta_if_xfer(0, 0, 1, 0, 0) : TA_XFER_FAILED;
    const bool under_way = result == TA_XFER_DONE || result == TA_XFER_BUSY;
    dcp_printf(id, "tact", "%d", under_way ? result : 0);
    return under_way ? DCP_OK : DCP_ERROR;
}

int tact_set_tran(int id, int flag)
{
    if (!store_open())
        return answer(id, false);
    ta_if_set_tran(flag);
    return answer(id, true);
}

int tact_list(int id)
{
    if (store_open() || ta_if_open(0) == 0)
        return answer(id, false);
    dcp_print_raw(id, LIST_HEAD);
    char item[TA_MAX_RESP_LEN];
    for (std::uint32_t unit; (unit = ta_if_get_next_id()) != TA_NO_UNIT;) {
        std::snprintf(item, sizeof item, "0x%x,", unit);
        dcp_print_raw(id, item);
    }
    return ta_if_close(0) != 0 ? DCP_OK : DCP_ERROR;
}

int tact_write_mode(int id)
{
    if (!store_open())
        return answer(id, false);
    return dcp_answer(id, "tact", "0x2", DCP_OK);
}

int tact_unit_from_nv(int id, const tact_items& items)
{
    const auto dst = static_cast<std::uint32_t>(items.val[2]);
    return answer(id, store_open() && ta_if_xfer(unit_of(items), dst, 1, 1, 1) == TA_XFER_DONE);
}

int tact_read(int id, std::uint32_t unit)
{
    if (!store_open())
        return answer(id, false);
    const int size = ta_if_get_size(unit);
    const auto room = static_cast<std::size_t>(size);
    const auto data = std::make_unique<std::uint8_t[]>(room);
    if (size == 0 || ta_if_read(unit, data.get(), room) != size) {
        dcp_printf(id, "tact", "%d is not registerd", static_cast<int>(unit)); // sic: stations know it so
        return DCP_ERROR;
    }
    dcp_print_raw(id, LIST_HEAD);
    char item[TA_MAX_RESP_LEN];
    for (std::size_t i = 0; i < room; i++) {
        std::snprintf(item, sizeof item, "0x%02x,", data[i]);
        dcp_print_raw(id, item);
    }
    return DCP_OK;
}

int tact_write(int id, const tact_items& items)
{
    std::uint8_t data[TA_MAX_ITEMS];
    const int size = items.count - 2;
    for (int i = 0; i < size; i++)
        data[i] = static_cast<std::uint8_t>(items.val[i + 2]);
    return answer(id, store_open() && ta_if_write(unit_of(items), static_cast<std::size_t>(size), data) != 0);
}

// The second dump is compared with the first.
int tact_dump(int id, std::int32_t number)
{
    constexpr const char* DUMP1 = "/data/ram_dump1.txt";
    constexpr const char* DUMP2 = "/data/ram_dump2.txt";
    bool done = store_open() && f_ta_dump(number == 1 ? DUMP1 : DUMP2) != 0;
    if (number == 2)
        done = done && f_ta_filecomp(DUMP1, DUMP2) != 0;
    return answer(id, done);
}

int tact_one_item(int id, const tact_items& items)
{
    switch (items.val[0]) {
    case 0:
        return answer(id, ta_if_close(0) != 0);
    case 1:
        return answer(id, ta_if_open(1) != 0);
    case 2:
        return tact_all_to_nv(id);
    case 3:
        return tact_format(id);
    case 4:
        return tact_from_nv(id);
    case 5:
    case 6:
        return tact_set_tran(id, items.val[0] == 6);
    case 7:
        return tact_list(id);
    case 9:
        return tact_write_mode(id);
    default:
        return dcp_answer(id, "tact", "", DCP_SYNTAX);
    }
}

int tact_two_items(int id, const tact_items& items)
{
    switch (items.val[0]) {
    case 2:
        return tact_unit_to_nv(id, unit_of(items));
    case 3:
        return tact_format(id);
    case 4:
        return tact_from_nv_step(id, items.val[1]);
    case 8:
        return answer(id, store_open() && ta_if_del(unit_of(items)) != 0);
    case 11:
        return tact_read(id, unit_of(items));
    case 12:
        return items.val[1] == 1 || items.val[1] == 2 ? tact_dump(id, items.val[1]) : DCP_SYNTAX;
    default:
        return DCP_SYNTAX;
    }
}

int tact_more_items(int id, const tact_items& items)
{
    if (items.val[0] == 11)
        return tact_write(id, items);
    return items.val[0] == 10 && items.count == 3 ? tact_unit_from_nv(id, items)
                                                  : dcp_answer(id, "tact", "", DCP_SYNTAX);
}

// Reads the items of `text`, which is changed: false when there are too many.
bool tact_scan(char* text, tact_items* p_items)
{
    static char* item[TA_MAX_ITEMS + 1];
    scf_clean(text, " ");
    p_items->count = scf_split(text, item, TA_MAX_ITEMS + 1, ',');
    if (p_items->count > TA_MAX_ITEMS)
        return false;
    for (int i = 0; i < p_items->count; i++) {
        const bool hex = item[i][1] == 'x' || item[i][1] == 'X';
        p_items->val[i] = 0;
        scf_str_to_int32(&p_items->val[i], 1, item[i], hex ? 16 : 10);
    }
    return true;
}

int do_ta_tact(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST) {
        for (const char* line : tact_help)
            dcp_printf(id, "tact", "%s", line);
        return DCP_OK;
    }
    static tact_items items;
    items.count = 0;
    if (argc > 0 && !tact_scan(dcp_text(argv[0]), &items))
        return dcp_answer(id, "tact", "", DCP_SYNTAX);
    switch (items.count) {
    case 0:
        return tact_status(id);
    case 1:
        return tact_one_item(id, items);
    case 2:
        return tact_two_items(id, items);
    default:
        return tact_more_items(id, items);
    }
}

// clang-format off
constexpr dcp_cmd f_ta_cmd_tab[] = {
    { "tact", "[(0-10)[,<unit nr>][,<unit nr>][,...]]", "%t", "ctrl(act,unit,unit)", do_ta_tact, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_ta_link;

} // namespace

void f_ta_init()
{
    dcp_cmd_add(f_ta_cmd_tab, &f_ta_link);
}
