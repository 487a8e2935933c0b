#include "f_adcr/f_adcr.h"

#include "adcr/adcr.h"
#include "dcp/dcp.h"

namespace {

int list_channels(int id)
{
    dcp_answer(id, "adcr", "Read adc channels ", DCP_OK);
    const adcr_channel* const p_tab = adcr_channel_info();
    if (p_tab == nullptr)
        return dcp_answer(id, "adcr", "No table found!", DCP_OK);
    for (unsigned i = 0; p_tab[i].attr_raw != nullptr; i++)
        if (p_tab[i].desc[0] != '\0')
            dcp_printf(id, "adcr", "0x%x - %s", i, p_tab[i].desc);
    return DCP_OK;
}

int do_adcr_read(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return list_channels(id);
    if (argc != 1 && argc != 2)
        return dcp_answer(id, "adcr", " ", DCP_SYNTAX);
    int value = 0;
    const int result = adcr_read(dcp_uint(argv[0]), argc == 2 ? dcp_uint(argv[1]) : ADCR_DIVIDED, &value);
    if (result != ADCR_OK)
        return dcp_answer(id, "adcr", "", result == ADCR_REFUSED ? DCP_SYNTAX : DCP_ERROR);
    dcp_printf(id, "adcr", "0x%x", static_cast<unsigned>(value));
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd f_adcr_cmd_tab[] = {
    { "adcr", "0x0-0xFF[,(0-3)]", "%v,%v", "ADCR(channel,format)", do_adcr_read, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_adcr_link;

} // namespace

void f_adcr_init()
{
    dcp_cmd_add(f_adcr_cmd_tab, &f_adcr_link);
}
