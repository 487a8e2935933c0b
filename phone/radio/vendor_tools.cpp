#include "radio/vendor_tools.h"

#include <filesystem>
#include <map>
#include <mutex>
#include <optional>

#include "core/control.h"
#include "core/files.h"
#include "core/home.h"

namespace phone {

namespace {

constexpr const char* result_file = "/data/ftm_response.txt";
constexpr std::string_view tools_known[] = {"wlanftmtest", "fmftmtest", "hcitool", "iw"};

struct setting {
    bool nothing; // neither printed nor left
    std::string text;
};

std::mutex settings_mutex;               // guards the next
std::map<std::string, setting> settings; // by tool, blank, first argument

std::optional<setting> setting_of(const tool_call& call)
{
    const std::lock_guard lock(settings_mutex);
    const auto found = settings.find(call.args[0] + " " + (call.args.size() > 1 ? call.args[1] : ""));
    return found != settings.end() ? std::optional(found->second) : std::nullopt;
}

// \n and \t stand for line end and tab.
std::string unescaped(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); i++) {
        const bool escape =
            text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == 'n' || text[i + 1] == 't');
        if (escape)
            i++;
        out += !escape ? text[i] : text[i] == 'n' ? '\n' : '\t';
    }
    return out;
}

bool is_known(std::string_view name)
{
    for (const std::string_view known : tools_known)
        if (known == name)
            return true;
    return false;
}

// What stands behind the first two words of a request.
std::string_view text_of(const request& rq)
{
    std::string_view text = rq.rest;
    for (int i = 0; i < 2; i++) {
        text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
        text.remove_prefix(std::min(text.find_first_of(" \t"), text.size()));
    }
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text;
}

std::string word_tool(request& rq)
{
    const std::lock_guard lock(settings_mutex);
    if (rq.args.size() == 1 && rq.args[0] == "off") {
        settings.clear();
        return {};
    }
    if (rq.args.empty()) {
        for (const auto& [name, s] : settings)
            rq.answer += (rq.answer.empty() ? "" : "\n") + name + " " + (s.nothing ? "none" : s.text);
        return {};
    }
    if (rq.args.size() < 3)
        return "NAME ARG TEXT|none, or off is wanted";
    if (!is_known(rq.args[0]))
        return "the tools are wlanftmtest, fmftmtest, hcitool and iw, not \"" + rq.args[0] + "\"";
    const std::string_view text = text_of(rq);
    settings[rq.args[0] + " " + rq.args[1]] = {text == "none", unescaped(text)};
    return {};
}

} // namespace

int tool_refuses(tool_call& call, std::string_view why)
{
    call.err = call.args[0] + ": " + std::string(why) + "\n";
    return 1;
}

int tool_leaves(const tool_call& call, std::string_view healthy)
{
    const auto set = setting_of(call);
    std::error_code ignored;
    if (set && set->nothing) {
        std::filesystem::remove(host_path(result_file), ignored);
        return 0;
    }
    return file_write(result_file, set ? set->text : std::string(healthy) + "\n") ? 0 : 1;
}

int tool_prints(tool_call& call, std::string_view healthy)
{
    const auto set = setting_of(call);
    call.out = !set ? healthy : set->nothing ? "" : set->text;
    return 0;
}

void vendor_tools_attach()
{
    word_add("tool", "NAME ARG TEXT|none | off",
             "what a vendor's tool (wlanftmtest, fmftmtest, hcitool, iw) gives when ARG is its first "
             "argument; \\n "
             "and \\t stand for line end and tab; alone, lists what is set",
             word_tool);
}

} // namespace phone
