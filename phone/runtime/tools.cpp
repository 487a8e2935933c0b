#include "runtime/tools.h"

#include <unistd.h>

#include "core/life.h"
#include "core/log.h"
#include "core/toolbox.h"

namespace phone {

namespace {

int tool_echo(tool_call& call)
{
    const bool no_newline = call.args.size() > 1 && call.args[1] == "-n";
    const std::size_t first = no_newline ? 2 : 1;
    for (std::size_t i = first; i < call.args.size(); i++)
        call.out += (i > first ? " " : "") + call.args[i];
    if (!no_newline)
        call.out += "\n";
    return 0;
}

int tool_sync(tool_call&)
{
    sync();
    return 0;
}

int tool_reboot(tool_call& call)
{
    const bool off = call.args.size() == 2 && call.args[1] == "-p";
    if (call.args.size() > 1 && !off) {
        call.err = "reboot: unknown option\n";
        return 1;
    }
    // The phone is gone before the shell could note the line.
    log_line(log_shell, off ? "0 reboot -p" : "0 reboot");
    if (off)
        life_off();
    life_restart();
}

} // namespace

void tools_attach()
{
    tool_add("echo", tool_echo);
    tool_add("sync", tool_sync);
    tool_add("reboot", tool_reboot);
}

} // namespace phone
