#include "f_temp/f_temp.h"

#include <cstdint>

#include "adcr/adcr.h"
#include "dcp/dcp.h"

namespace {

constexpr std::uint32_t NO_CHANNEL = 0xFFFFFFFF; // no converter channel has that number

struct temp_row {
    std::uint32_t temp;
    std::uint32_t adcr;
};

// clang-format off
constexpr temp_row temp_tab[] = {
    {  0, 21 }, {  1, 18 }, {  2, 19 }, {  3, 20 }, {  4, 11 }, {  5, 36 }, {  6, 37 }, {  7, 38 },
    { 16, 24 }, { 17, 25 }, { 18, 26 }, { 19, 27 },
    { 20, 29 }, { 21, 30 }, { 22, 31 }, { 23, 32 }, { 24, 33 }, { 25, 34 },
    { 30, 13 },
};
// clang-format on

std::uint32_t adcr_of(std::uint32_t temp)
{
    for (const temp_row& row : temp_tab)
        if (row.temp == temp)
            return row.adcr;
    return NO_CHANNEL;
}

int do_temp_read(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "temp", "Read temperatures", DCP_OK);
    if (argc != 1 && argc != 2)
        return dcp_answer(id, "temp", " ", DCP_SYNTAX);
    const std::uint32_t format = argc == 2 ? dcp_uint(argv[1]) : ADCR_RAW;
    int value = 0;
    const int result = adcr_read(adcr_of(dcp_uint(argv[0])), format, &value);
    if (result != ADCR_OK)
        return dcp_answer(id, "temp", "", result == ADCR_REFUSED ? DCP_SYNTAX : DCP_ERROR);
    if (format == ADCR_SCALED)
        dcp_printf(id, "temp", " %d", value);
    else
        dcp_printf(id, "temp", " 0x%x", static_cast<unsigned>(value));
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd f_temp_cmd_tab[] = {
    { "temp", "(0-30)[,(0-2)]", "%v,%v", "TEMP=<channel>,<format>", do_temp_read, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_temp_link;

} // namespace

void f_temp_init()
{
    dcp_cmd_add(f_temp_cmd_tab, &f_temp_link);
}
