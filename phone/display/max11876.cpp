#include "display/max11876.h"

#include <algorithm>
#include <cerrno>
#include <deque>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <numeric>
#include <optional>
#include <string>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include "core/clock.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/text.h"
#include "core/watch.h"
#include "display/max11876_sensor.h"

namespace phone {

namespace {

constexpr char command_path[] = "/sys/bus/i2c/devices/0-0048/command";
constexpr char report_path[] = "/sys/bus/i2c/devices/0-0048/report";

constexpr nanoseconds frame_period = 20'000'000;
constexpr std::size_t most_commands = 200; // that are remembered

// Reports by their ids.
constexpr unsigned report_frame = 0x0800;
constexpr unsigned report_housekeeping = 0x0802;
constexpr unsigned report_scan = 0x0142;
constexpr unsigned report_mode = 0x01B1;
constexpr unsigned report_reset = 0x01A0;

constexpr unsigned frame_length = 2 + sensor_rows * sensor_columns;

enum class reports { on, off, pieces, too_short };
constexpr const char* report_names[] = {"on", "off", "pieces", "short"};

using word_list = std::vector<std::uint16_t>;

// A block of the configuration; its last word is the sum of the others.
struct block {
    unsigned id;
    std::size_t length;
};
constexpr block blocks[] = {{0x0001, 65}, {0x0010, 74}, {0x0003, 34}, {0x0030, 8}, {0x0030, 8}};

struct listener {
    explicit listener(int end) : fd(end) {}
    ~listener() { close(fd); }
    listener(const listener&) = delete;
    listener& operator=(const listener&) = delete;

    const int fd; // the controller's end
};

std::mutex controller_mutex; // guards all below, and the sensor
std::vector<std::weak_ptr<listener>> listeners;
std::deque<std::string> commands;
reports how = reports::on;
std::size_t blocks_taken;
std::optional<frame_kind> running; // frames are reported
bool offsets_only;
unsigned frame_number;

void send_text(const std::string& text)
{
    std::erase_if(listeners, [](const auto& weak) { return weak.expired(); });
    for (const auto& weak : listeners)
        if (const auto reader = weak.lock())
            send(reader->fd, text.data(), text.size(),
                 MSG_DONTWAIT | MSG_NOSIGNAL); // who doesn't read loses it
    clock_kick();
}

void append_word(std::string& text, unsigned word)
{
    for (int shift = 12; shift >= 0; shift -= 4)
        text += "0123456789ABCDEF"[word >> shift & 15];
}

std::string report_text(unsigned id, unsigned length, const word_list& words)
{
    std::string text;
    append_word(text, id);
    append_word(text, length);
    for (const std::uint16_t word : words)
        append_word(text, word);
    return text;
}

void report(unsigned id, const word_list& words)
{
    if (how != reports::off)
        send_text(report_text(id, static_cast<unsigned>(words.size()), words) + "\r\n");
}

void report_one_frame(const word_list& words)
{
    const std::string text =
        report_text(report_frame, how == reports::too_short ? frame_length - 1 : frame_length, words);
    const std::size_t cut = how == reports::pieces ? text.size() / 3 : text.size();
    send_text(text.substr(0, cut) + "\r\n");
    if (cut < text.size())
        send_text(text.substr(cut) + "\r\n");
}

void report_next_frame()
{
    frame_number = (frame_number + 1) & 0xFFFF;
    word_list words = sensor_frame(*running, frame_number, offsets_only);
    if (blocks_taken < std::size(blocks))
        std::ranges::fill(words, 0);
    const std::uint16_t head[] = {0, static_cast<std::uint16_t>(frame_number)};
    words.insert(words.begin(), std::begin(head), std::end(head));
    if (how == reports::off)
        return;
    for (unsigned i = 0; i <= frame_number % 2; i++)
        report_one_frame(words);
    if (frame_number % 10 == 0)
        report(report_housekeeping, {static_cast<std::uint16_t>(frame_number), 0x0024});
}

void report_frames()
{
    std::unique_lock lock(controller_mutex);
    for (nanoseconds next = 0;;) {
        if (!running) {
            clock_cond_wait(&running, lock, forever);
            next = clock_now(CLOCK_MONOTONIC) + frame_period;
            continue;
        }
        if (clock_cond_wait(&running, lock, next))
            continue; // the mode has changed, the rhythm stays
        next =
            std::max(next, clock_now(CLOCK_MONOTONIC) - frame_period) + frame_period; // a late frame is lost
        if (running)
            report_next_frame();
    }
}

void run(std::optional<frame_kind> kind)
{
    const bool begins = !running;
    running = kind;
    if (begins && kind)
        clock_cond_wake(&running);
}

void take_block(unsigned id, const word_list& words)
{
    if (id == blocks[0].id)
        blocks_taken = 0;
    const auto sum = static_cast<std::uint16_t>(std::accumulate(words.begin(), words.end() - 1, 0u));
    const bool known =
        std::ranges::any_of(blocks, [&](const block& b) { return b.id == id && b.length == words.size(); });
    if (!known || words.back() != sum) {
        std::string name;
        append_word(name, id);
        strange("touch configuration " + name + " of " + std::to_string(words.size()) + " words");
        return;
    }
    if (blocks_taken < std::size(blocks) && blocks[blocks_taken].id == id)
        blocks_taken++;
}

void set_mode(const word_list& words)
{
    if (words.size() == 5)
        run(frame_kind::sense);
    else if (words[0] == 4)
        run(frame_kind::drive);
    else if (words[0] == 0)
        run(std::nullopt);
    if (words.size() == 5 || words[0] == 4)
        report(report_mode, {0x0020});
}

void set_reports(const word_list& words)
{
    if (words[0] == 0)
        run(frame_kind::raw);
    else if (words[0] == 2)
        run(std::nullopt);
}

void set_scan(const word_list& words)
{
    if (words[0] == 0x030C)
        report(report_scan, {words[0]});
}

void show_offsets(const word_list&)
{
    offsets_only = true;
    report(report_mode, {0x0048});
}

void reset(const word_list&)
{
    offsets_only = false;
    run(std::nullopt);
    report(report_reset, {0x0001, 0x0300});
}

void pixel_mode(const word_list&)
{
    report(report_mode, {0x0014});
}

void no_effect(const word_list&) {}

struct command {
    unsigned id;
    std::size_t lengths[2]; // that it may have
    void (*fn)(const word_list& words);
};

// clang-format off
constexpr command known[] = {
    { 0x0014, { 24, 24 }, pixel_mode },
    { 0x0018, { 1, 1 },   set_reports },
    { 0x0020, { 1, 5 },   set_mode },
    { 0x0026, { 1, 1 },   no_effect },
    { 0x0028, { 1, 1 },   no_effect },
    { 0x0041, { 1, 1 },   set_scan },
    { 0x0048, { 0, 0 },   show_offsets },
    { 0x00E9, { 0, 0 },   reset },
};
// clang-format on

// The words of a line; nothing when it isn't whole words.
std::optional<word_list> parse(std::string_view line)
{
    word_list words;
    for (; line.size() >= 4; line.remove_prefix(4)) {
        const auto word = hex_number(line.substr(0, 4));
        if (!word)
            return std::nullopt;
        words.push_back(static_cast<std::uint16_t>(*word));
    }
    return line.empty() && words.size() >= 2 ? std::optional(words) : std::nullopt;
}

void carry_out(std::string_view line)
{
    const auto words = parse(line);
    if (!words || (*words)[1] != words->size() - 2) {
        strange("touch command \"" + escaped(line.substr(0, 40)) + "\"");
        return;
    }
    const unsigned id = (*words)[0];
    const word_list data(words->begin() + 2, words->end());
    for (const command& c : known)
        if (c.id == id && (data.size() == c.lengths[0] || data.size() == c.lengths[1]))
            return c.fn(data);
    if (std::ranges::any_of(blocks, [=](const block& b) { return b.id == id; }) && !data.empty())
        return take_block(id, data);
    strange("touch command " + std::string(line.substr(0, 8)));
}

void command_written(std::string_view, std::string_view text)
{
    const std::lock_guard lock(controller_mutex);
    const std::string_view line = trimmed(text);
    commands.emplace_back(line);
    if (commands.size() > most_commands)
        commands.pop_front();
    carry_out(line);
}

constexpr attribute command_attribute = {.after_write = command_written};

int report_open(open_file& file, int flags)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        return -1;
    fcntl(ends[0], F_SETFL, flags & O_NONBLOCK);
    const std::lock_guard lock(controller_mutex);
    const auto reader = std::make_shared<listener>(ends[1]);
    listeners.push_back(reader);
    file.data = reader;
    return ends[0];
}

constexpr node report_node = {.open = report_open};

std::string word_matrix(request& rq)
{
    const std::lock_guard lock(controller_mutex);
    const std::string what = rq.args.empty() ? "" : rq.args[0];
    if (what.empty()) {
        rq.answer = std::string("reports ") + report_names[static_cast<std::size_t>(how)];
        return {};
    }
    if (what == "commands" && rq.args.size() == 1) {
        for (const std::string& line : commands)
            rq.answer += (rq.answer.empty() ? "" : "\n") + line;
        return {};
    }
    if (what != "reports")
        return sensor_set(rq.args);
    for (std::size_t i = 0; i < std::size(report_names); i++)
        if (rq.args.size() == 2 && rq.args[1] == report_names[i]) {
            how = static_cast<reports>(i);
            return {};
        }
    return "on, off, pieces or short is wanted";
}

} // namespace

void max11876_attach()
{
    attribute_add(command_path, &command_attribute);
    node_add(report_path, &report_node);
    word_add(
        "matrix", "LAYER ROW|all COLUMN|all VALUE | reports on|off|pieces|short | commands",
        "the touch sensor's nodes, layers offset, pixel, drive, sense and noise; its reports; its commands",
        word_matrix);
    conf_add_word("matrix");
}

void max11876_seed()
{
    home_seed(command_path, "");
}

void max11876_start()
{
    clock_thread(report_frames);
}

} // namespace phone
