#include "core/conf.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <map>
#include <set>
#include <unistd.h>

#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/libraries.h"
#include "core/text.h"

namespace phone {

namespace {

struct word_line {
    int number;
    std::string text;
};

std::map<std::string, conf_fn, std::less<>> keys;
std::set<std::string, std::less<>> word_keys;
std::map<std::string, void (*)(), std::less<>> offers;
std::vector<word_line> word_lines;
std::vector<word_line> taken_away; // paths of `without`
int line_read;                     // the line that a key is called for
std::deque<conf_setting> settings;

std::string wrong_line(int line, const std::string& what)
{
    return home_path("phone.conf") + ", line " + std::to_string(line) + ": " + what;
}

std::string list_of_keys()
{
    std::set<std::string> names(word_keys.begin(), word_keys.end());
    for (const auto& [name, fn] : keys)
        names.insert(name);
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

std::string read_line(int line, std::string_view text)
{
    const std::vector<std::string> found = words(text.substr(0, text.find('#')));
    if (found.empty())
        return {};
    if (word_keys.contains(found[0])) {
        if (found.size() == 1)
            return wrong_line(line, found[0] + " wants a value");
        word_lines.push_back({line, std::string(trimmed(text.substr(0, text.find('#'))))});
        return {};
    }
    const auto key = keys.find(found[0]);
    if (key == keys.end())
        return wrong_line(line, "\"" + found[0] + "\" isn't understood; the keys are " + list_of_keys());
    line_read = line;
    const std::string wrong = key->second({found.begin() + 1, found.end()});
    return wrong.empty() ? "" : wrong_line(line, wrong);
}

std::string conf_without(const std::vector<std::string>& args)
{
    if (args.size() != 1 || (args[0][0] != '/' && !args[0].ends_with(".so")))
        return "without wants one path, or the bare name of a closed library";
    if (args[0][0] != '/' && !libraries_has(args[0]))
        return "no closed library has the name " + args[0];
    path_without(args[0]);
    if (args[0][0] == '/')
        taken_away.push_back({line_read, args[0]});
    return {};
}

std::string conf_with(const std::vector<std::string>& args)
{
    if (args.size() != 1)
        return "with wants one path";
    const auto found = offers.find(args[0]);
    if (found == offers.end())
        return "no phone has " + args[0];
    found->second();
    return {};
}

bool is_name(std::string_view text)
{
    return text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") ==
           text.npos;
}

std::string conf_take_setting(const std::vector<std::string>& args)
{
    if (args.size() != 3)
        return "setting wants a module, a key and a value";
    for (const std::string& name : {args[0], args[1]})
        if (!is_name(name))
            return "\"" + name + "\" is no name: letters, digits and _ are wanted";
    conf_setting setting{args[0], args[1], args[2], std::nullopt};
    if (args[2].find_first_not_of("0123456789") == std::string::npos) {
        const auto value = number(args[2]);
        if (!value || *value > UINT32_MAX)
            return "a number goes to 4294967295, not to " + args[2];
        setting.number = static_cast<std::uint32_t>(*value);
    }
    settings.push_back(std::move(setting));
    return {};
}

} // namespace

void conf_add(std::string_view key, conf_fn fn)
{
    keys.emplace(key, fn);
}

void conf_add_word(std::string_view word)
{
    word_keys.emplace(word);
}

std::string conf_read()
{
    const std::string path = home_path("phone.conf");
    if (access(path.c_str(), F_OK) != 0)
        return {};
    std::ifstream file(path);
    if (!file)
        return path + ": can't be read: " + std::strerror(errno);
    std::string text;
    for (int line = 1; std::getline(file, text); line++)
        if (std::string wrong = read_line(line, text); !wrong.empty())
            return wrong;
    return file.bad() ? path + ": can't be read: " + std::strerror(errno) : "";
}

std::string conf_run_words()
{
    // Not before: what the phone has is only known when all devices have started.
    for (const word_line& line : taken_away)
        if (!path_is_known(line.text))
            return wrong_line(line.number, "no phone has " + line.text + ", so none can be without it");
    for (const word_line& line : word_lines) {
        const std::string answer = control_request(line.text);
        if (answer.starts_with("error: "))
            return wrong_line(line.number, std::string(trimmed(answer.substr(7))));
    }
    return {};
}

void conf_attach()
{
    conf_add("without", conf_without);
    conf_add("with", conf_with);
    conf_add("setting", conf_take_setting);
}

const std::deque<conf_setting>& conf_settings()
{
    return settings;
}

void conf_offer(std::string_view path, void (*add)())
{
    offers.emplace(path, add);
}

} // namespace phone
