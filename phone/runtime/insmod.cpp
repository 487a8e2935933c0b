#include "runtime/insmod.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <string>

#include "core/files.h"
#include "core/toolbox.h"
#include "core/watch.h"

namespace phone {

namespace {

struct kernel_module {
    module_load_fn load;
    bool loaded = false;
    std::vector<std::string> params = {};
};

std::mutex modules_mutex; // guards the table
std::map<std::string, kernel_module, std::less<>> modules;

int refuse(tool_call& call, const std::string& why)
{
    call.err = "insmod: " + why + "\n";
    return 1;
}

int tool_insmod(tool_call& call)
{
    if (call.args.size() < 2)
        return refuse(call, "a module is wanted");
    const std::string& path = call.args[1];
    std::string content;
    if (!file_read(path, content))
        return refuse(call, "can't open '" + path + "'");
    const std::lock_guard lock(modules_mutex);
    const auto found = modules.find(path.substr(path.rfind('/') + 1));
    if (found == modules.end()) {
        strange("insmod " + path);
        return refuse(call, "init_module '" + path + "' failed (Exec format error)");
    }
    if (found->second.loaded)
        return refuse(call, "init_module '" + path + "' failed (File exists)");
    found->second.loaded = true;
    found->second.params.assign(call.args.begin() + 2, call.args.end());
    if (found->second.load != nullptr)
        found->second.load(found->second.params);
    return 0;
}

} // namespace

void module_add(std::string_view file, module_load_fn load)
{
    modules[std::string(file)] = {load};
}

bool module_loaded(std::string_view file, std::string_view param)
{
    const std::lock_guard lock(modules_mutex);
    const auto found = modules.find(file);
    if (found == modules.end() || !found->second.loaded)
        return false;
    const std::vector<std::string>& params = found->second.params;
    return param.empty() || std::ranges::find(params, param) != params.end();
}

void insmod_attach()
{
    tool_add("insmod", tool_insmod);
}

} // namespace phone
