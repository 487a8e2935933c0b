#include "board/gpio.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "core/control.h"
#include "core/files.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr int let_go = -1;
constexpr unsigned main_last = 173;
constexpr unsigned power_first = 544;
constexpr unsigned power_last = 579;
constexpr std::size_t config_size = 6; // what a reading gives: level, direction, function, pull, drive
constexpr std::size_t setup_size = 9;  // what a configuration brings

struct line_state {
    int bench = let_go;
    int program = let_go;
    int device = let_go;
    int pull = 0;
    char direction = 'I';
    std::string setup; // the last configuration, as the program wrote it
};

struct pull_row {
    unsigned line;
    int level;
};

// clang-format off
// Lines of a healthy phone at rest that are high; all others are low.
constexpr pull_row pulls[] = {
    {  74, 1 }, // nothing near the proximity sensor
    {  77, 1 }, // contactless status, active low
    { 100, 1 }, // a SIM is in
    { 558, 1 }, // contactless chip off
    { 559, 1 },
};
// clang-format on

struct listener {
    unsigned line;
    void (*fn)(unsigned line, int level);
};

std::mutex gpio_mutex; // guards the lines
std::map<unsigned, line_state> lines;
std::vector<listener> listeners; // written before the program runs, as the next
std::map<unsigned, void (*)(unsigned line)> live_lines;

int level_locked(const line_state& s)
{
    for (const int level : {s.bench, s.program, s.device})
        if (level != let_go)
            return level;
    return s.pull;
}

// Makes a change to a line and tells who listens when its level has moved.
template <typename Change>
void change(unsigned line, Change make)
{
    int before;
    int after;
    {
        const std::lock_guard lock(gpio_mutex);
        line_state& s = lines[line];
        before = level_locked(s);
        make(s);
        after = level_locked(s);
    }
    if (before == after)
        return;
    for (const listener& l : listeners)
        if (l.line == line)
            l.fn(line, after);
}

unsigned line_of(const open_file& file)
{
    return static_cast<unsigned>(number(file.path.substr(std::string("/dev/gpio").size())).value_or(0));
}

off_t& position(open_file& file)
{
    if (file.data == nullptr)
        file.data = std::make_shared<off_t>(0);
    return *static_cast<off_t*>(file.data.get());
}

void bring_up_to_date(unsigned line)
{
    if (const auto live = live_lines.find(line); live != live_lines.end())
        live->second(line);
}

std::string config_text(unsigned line)
{
    bring_up_to_date(line);
    const std::lock_guard lock(gpio_mutex);
    const line_state& s = lines[line];
    return std::string(level_locked(s) != 0 ? "1" : "0") + s.direction + "0" + (s.pull != 0 ? "U" : "D") +
           "02";
}

ssize_t gpio_read(open_file& file, void* buf, std::size_t size)
{
    const std::string text = config_text(line_of(file));
    off_t& pos = position(file);
    const std::size_t n = std::min(size, config_size - static_cast<std::size_t>(pos));
    std::copy_n(text.begin() + pos, n, static_cast<char*>(buf));
    pos += static_cast<off_t>(n);
    return static_cast<ssize_t>(n);
}

ssize_t gpio_write(open_file& file, const void* buf, std::size_t size)
{
    const std::string text(static_cast<const char*>(buf), size);
    const unsigned line = line_of(file);
    if (text == "0" || text == "1") {
        change(line, [&](line_state& s) {
            s.program = text[0] - '0';
            s.direction = 'O';
        });
    } else if (text == "I") {
        change(line, [](line_state& s) {
            s.program = let_go;
            s.direction = 'I';
        });
    } else if (text == "O") {
        change(line, [](line_state& s) {
            s.program = level_locked(s);
            s.direction = 'O';
        });
    } else if (size == setup_size) {
        change(line, [&](line_state& s) { s.setup = text; });
    } else {
        strange("write " + file.path + " \"" + text + "\"");
        errno = EINVAL;
        return -1;
    }
    return static_cast<ssize_t>(size);
}

off_t gpio_lseek(open_file& file, off_t offset, int whence)
{
    if (whence != SEEK_SET || offset < 0 || offset > static_cast<off_t>(config_size)) {
        errno = EINVAL;
        return -1;
    }
    return position(file) = offset;
}

constexpr node gpio_node = {.read = gpio_read, .write = gpio_write, .lseek = gpio_lseek};

void add_lines(unsigned first, unsigned last)
{
    for (unsigned line = first; line <= last; line++) {
        lines[line];
        node_add("/dev/gpio" + std::to_string(line), &gpio_node);
    }
}

std::string word_gpio(request& rq)
{
    const auto line = rq.args.empty() ? std::nullopt : number(rq.args[0]);
    if (!line || rq.args.size() > 2)
        return "N [0|1|free] is wanted";
    if (*line < 0 || *line > power_last || !lines.contains(static_cast<unsigned>(*line)))
        return "no line has the number " + rq.args[0];
    const auto n = static_cast<unsigned>(*line);
    if (rq.args.size() == 1) {
        rq.answer = std::to_string(gpio_level(n));
        return {};
    }
    const std::string& what = rq.args[1];
    if (what != "0" && what != "1" && what != "free")
        return "0, 1 or free is wanted, not \"" + what + "\"";
    change(n, [&](line_state& s) { s.bench = what == "free" ? let_go : what[0] - '0'; });
    return {};
}

} // namespace

void gpio_attach()
{
    add_lines(0, main_last);
    add_lines(power_first, power_last);
    for (const pull_row& row : pulls)
        lines[row.line].pull = row.level;
    word_add("gpio", "N [0|1|free]", "reads a GPIO line, drives it from outside, or lets go", word_gpio);
}

int gpio_level(unsigned line)
{
    bring_up_to_date(line);
    const std::lock_guard lock(gpio_mutex);
    return level_locked(lines[line]);
}

void gpio_drive(unsigned line, int level)
{
    change(line, [level](line_state& s) { s.device = level; });
}

void gpio_listen(unsigned line, void (*fn)(unsigned line, int level))
{
    listeners.push_back({line, fn});
}

void gpio_live(unsigned line, void (*fn)(unsigned line))
{
    live_lines[line] = fn;
}

} // namespace phone
