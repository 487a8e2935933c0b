#include "f_light/f_light.h"

#include <cstdio>

#include "adc/adc.h"
#include "dcp/dcp.h"
#include "light/light.h"

namespace {

struct light_row {
    std::uint32_t zone; // as the station counts
    int internal;
    const char* name;
};

// clang-format off
constexpr light_row light_tab[] = {
    {   1, 18, "trickle led" },
    {   2, 14, "numerical keyboard" },
    {   3,  1, "main display" },
    {   4,  8, "secondary display" },
    {   5, 10, "function keys" },
    {   6, 36, "camera button" },
    {   7, 28, "tally" },
    {   8, 37, "yes/no" },
    {   9, 38, "backside" },
    {  10, 39, "camera video play" },
    {  11, 42, "auto focus" },
    {  12, 44, "info" },
    {  13, 46, "MMI" },
    {  14, 47, "QWERTY" },
    {  32, 30, "product specific 0" },
    {  33, 33, "product specific 1" },
    {  34, 34, "product specific 2" },
    {  35, 35, "product specific 3" },
    {  36, 11, "function key 1" },
    {  37, 12, "function key 2" },
    {  38, 13, "function key 3" },
    { 255, LIGHT_ZONE_ALL, "all" },
};
// clang-format on
static_assert(sizeof light_tab / sizeof light_tab[0] == 22);

constexpr std::uint32_t LEVEL_DEFAULT = 128;
constexpr int ZONE_DYNAMIC_BACKLIGHT = 52;
constexpr int LSOT_LEDS = 16;

int help_lctr(int id)
{
    dcp_printf(id, "lctr", "Light zone control");
    for (const light_row& row : light_tab)
        if (const int count = light_exist(row.internal); count > 0)
            dcp_printf(id, "lctr", "id(%3d=%-20s %d subzone(s))", static_cast<int>(row.zone), row.name,
                       count);
    dcp_printf(id, "lctr", "act(1=on,0=off)");
    dcp_printf(id, "lctr", "sub id(0-255)");
    return dcp_answer(id, "lctr", "prm(see itp db)", DCP_OK);
}

int set_zone(std::uint32_t zone, std::uint16_t level, int subzone)
{
    for (const light_row& row : light_tab)
        if (row.zone == zone && light_exist(row.internal) > 0)
            return light_set(row.internal, subzone, level) != 0 ? DCP_OK : DCP_ERROR;
    return DCP_ERROR;
}

int do_light_lctr(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return help_lctr(id);
    if (action == DCP_ACTION_READ)
        return DCP_SYNTAX;
    const auto value = [=](int i, std::uint32_t otherwise) {
        return i < argc ? dcp_uint(argv[i]) : otherwise;
    };
    const std::uint32_t level = value(1, 0) == 1 ? value(2, LEVEL_DEFAULT) : 0;
    const int status =
        set_zone(value(0, 0), static_cast<std::uint16_t>(level), static_cast<int>(value(3, 0)));
    return dcp_answer(id, "lctr", " ", status);
}

int do_light_dynbl(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return DCP_OK;
    if (action == DCP_ACTION_READ)
        return DCP_SYNTAX;
    if (argc != 1 || dcp_uint(argv[0]) > 1)
        return dcp_answer(id, "dynbl", " ", DCP_SYNTAX);
    const int done = light_set(ZONE_DYNAMIC_BACKLIGHT, LIGHT_SUBZONE_ALL, dcp_uint(argv[0]) & 1);
    return dcp_answer(id, "dynbl", " ", done != 0 ? DCP_OK : DCP_ERROR);
}

int do_light_ladc(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return DCP_OK;
    if (action == DCP_ACTION_READ)
        return DCP_SYNTAX;
    if (argc < 1 || argc > 2 || dcp_uint(argv[0]) > 1)
        return dcp_answer(id, "ladc", " ", DCP_SYNTAX);
    const bool raw = dcp_uint(argv[0]) == 0;
    char name[32];
    std::snprintf(name, sizeof name, "lmu_led_adc-%02X", argc > 1 ? dcp_uint(argv[1]) : 0u);
    int value = 0;
    if (adc_read(name, static_cast<int>(dcp_uint(argv[0])), &value) == 0)
        return dcp_answer(id, "ladc", " ", DCP_ERROR);
    dcp_printf(id, "ladc", "%d", raw ? value & 0xFFFF : value);
    return DCP_OK;
}

// The fault bits of all LEDs: 1, or 0 when the chip couldn't be asked. Whatever fails, the test is ended.
int lsot_run(unsigned* p_faults)
{
    int status = light_lsot_start() != 0 ? LIGHT_LSOT_GOOD : LIGHT_LSOT_FAILED;
    for (int n = 1; n <= LSOT_LEDS && status != LIGHT_LSOT_FAILED; n++) {
        status = light_lsot_check_status(n);
        *p_faults |= status == LIGHT_LSOT_FAULT ? 1u << (n - 1) : 0;
    }
    return light_lsot_finish() != 0 && status != LIGHT_LSOT_FAILED ? 1 : 0;
}

int do_light_lsot(int id, int action, int argc, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "lsot", "LED short/open test", DCP_OK);
    if (argc > 0)
        return dcp_answer(id, "lsot", " ", DCP_SYNTAX);
    unsigned faults = 0;
    if (lsot_run(&faults) == 0)
        return dcp_answer(id, "lsot", " ", DCP_ERROR);
    dcp_printf(id, "lsot", "0x%04X", faults);
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd f_light_cmd_tab[] = {
    { "lctr",  "(0-0xFF)[,(0,1)[,(0-0xFF)[,0-0xFF[,0-0xFF]]]]", "%v,%v,%v,%v,%v", "set(zone,act,lvl,sub,prm)",               do_light_lctr,  DCP_GRP_PRODUCTION },
    { "dynbl", "(0-1)",                                         "%v",             "enable/disable",                          do_light_dynbl, DCP_GRP_PRODUCTION },
    { "ladc",  "(0-1)[,(0-0xFF)]",                              "%v,%v,%v",       "light ADC reading (raw/mv,adc_channel)",  do_light_ladc,  DCP_GRP_PRODUCTION },
    { "lsot",  "",                                              "",               "LSOT()",                                  do_light_lsot,  DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_light_link;

} // namespace

void f_light_init()
{
    dcp_cmd_add(f_light_cmd_tab, &f_light_link);
}
