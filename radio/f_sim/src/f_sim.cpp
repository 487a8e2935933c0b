#include "f_sim/f_sim.h"

#include <cstdint>

#include "dcp/dcp.h"
#include "sim/sim.h"

namespace {

constexpr std::uint8_t last_test = 2; // 0 to 2 are tests of the contacts
constexpr std::uint8_t detect = 4;
constexpr std::uint32_t no_slot = 0;
constexpr std::uint32_t last_slot = 2;
constexpr int bits_a_slot = 4;

// One slot's part of a byte that tells of both.
std::uint8_t of_slot(std::uint8_t both, std::uint32_t slot)
{
    if (slot == no_slot)
        return both;
    return slot == 1 ? both & 0x0F : static_cast<std::uint8_t>(both >> bits_a_slot);
}

int run(std::uint8_t what, std::uint32_t slot, std::uint8_t* p_result)
{
    if (what <= last_test)
        return sim_ct(static_cast<std::uint8_t>((slot << bits_a_slot) + what), p_result);
    if (what != detect)
        return SIM_NO_SUCH_TEST;
    const int result = sim_detect(p_result);
    *p_result = of_slot(*p_result, slot);
    return result;
}

int f_sict_resp(int id, int result, std::uint8_t value)
{
    if (result == SIM_NO_SUCH_TEST)
        return dcp_answer(id, "sict", "", DCP_SYNTAX);
    if (result != SIM_OK)
        return dcp_answer(id, "sict", "", DCP_ERROR);
    dcp_printf(id, "sict", "0x%02x", value);
    return DCP_OK;
}

int do_sim_sict(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_SET)
        return dcp_answer(id, "sict", "SIM card detection and connection", DCP_OK);
    const std::uint32_t slot = argc == 2 ? dcp_uint(argv[1]) : no_slot;
    const bool slot_named = slot >= 1 && slot <= last_slot;
    std::uint8_t value = 0;
    if (argc < 1 || argc > 2 || (argc == 2 && !slot_named))
        return f_sict_resp(id, SIM_NO_SUCH_TEST, value);
    const int result = run(static_cast<std::uint8_t>(dcp_uint(argv[0])), slot, &value);
    return f_sict_resp(id, result, value);
}

constexpr dcp_cmd f_sict_cmd_tab[] = {
    {"sict", "[(0-6),(1-2)]", "%v,%v", "sict()", do_sim_sict, DCP_GRP_PRODUCTION},
    {},
};

dcp_cmd_link f_sict_cmd_link;

} // namespace

void f_sim_init()
{
    dcp_cmd_add(f_sict_cmd_tab, &f_sict_cmd_link);
}
