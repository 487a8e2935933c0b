#include "f_kill/f_kill.h"

#include <cstddef>
#include <cstdint>

#include "dcp/dcp.h"
#include "powerdown/powerdown.h"
#include "trim/items.h"
#include "trim/trim.h"

namespace {

constexpr std::uint8_t no_marker[] = {0};
constexpr std::uint8_t marker[] = {0xC4, 0x7E, 0x19, 0xA2, 0x5D, 0x0B, 0xF3, 0x68};

// Doesn't come back, unless the phone refuses to restart: the station is told so then.
int do_reboot(int id)
{
    powerdown_wait(powerdown_restart());
    return dcp_answer(id, "kill", " ", DCP_ERROR);
}

int do_kill(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "kill", "Kill (restart) system.", DCP_OK);
    const std::uint32_t arg = argc > 0 ? dcp_uint(argv[0]) : 0;
    if (argc > 1 || arg > 2)
        return dcp_answer(id, "kill", " ", DCP_SYNTAX);
    // A marker that can't be written is no reason to stay up.
    if (arg == 1)
        trim_wr(TRIM_RESTART_MARKER, no_marker, sizeof no_marker);
    if (arg == 2)
        trim_wr(TRIM_RESTART_MARKER, marker, sizeof marker);
    return do_reboot(id);
}

constexpr dcp_cmd kill_cmd_tab[] = {
    {"kill", "(0-2)", "%v", "KILL(arg)", do_kill, DCP_GRP_PRODUCTION},
    {},
};

dcp_cmd_link kill_cmd_obj;

} // namespace

void f_kill_init()
{
    dcp_cmd_add(kill_cmd_tab, &kill_cmd_obj);
}
