#include "f_sim/f_sim.h"

#include <cstdint>

#include "dcp/dcp.h"
#include "sim/sim.h"

namespace {

constexpr std::uint8_t LAST_TEST = 2; // 0 to 2 are tests of the contacts
constexpr std::uint8_t DETECT = 4;
constexpr std::uint32_t NO_SLOT = 0;
constexpr std::uint32_t LAST_SLOT = 2;
constexpr int BITS_A_SLOT = 4;

// One slot's part of a byte that tells of both.
std::uint8_t of_slot(std::uint8_t both, std::uint32_t slot)
{
    if (slot == NO_SLOT)
        return both;
    return slot == 1 ? both & 0x0F : static_cast<std::uint8_t>(both >> BITS_A_SLOT);
}

int run(std::uint8_t what, std::uint32_t slot, std::uint8_t* p_result)
{
    if (what <= LAST_TEST)
        return sim_ct(static_cast<std::uint8_t>((slot << BITS_A_SLOT) + what), p_result);
    if (what != DETECT)
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
    const std::uint32_t slot = argc == 2 ? dcp_uint(argv[1]) : NO_SLOT;
    const bool slot_named = slot >= 1 && slot <= LAST_SLOT;
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
