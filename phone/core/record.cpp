#include "core/record.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <deque>
#include <fstream>
#include <mutex>
#include <utility>

#include "core/clock.h"
#include "core/control.h"
#include "core/home.h"
#include "core/text.h"

namespace phone {

namespace {

constexpr nanoseconds ns_per_ms = 1'000'000;
constexpr nanoseconds shortest_pause = 500 * ns_per_ms;

// Requests that a prompt makes by itself, or whose answers are of the moment.
constexpr std::array never = {"from", "idle", "record", "help", "calls", "kmsg", "shell", "port", "files"};
constexpr std::array never_alone = {"fail", "strange", "clock", "battery"};

struct step_line {
    std::string text;
    int id = 0; // of the request whose answer is still to come
};

std::atomic<bool> recording;
std::mutex record_mutex; // guards all below
std::ofstream file;
std::string path;
std::deque<step_line> steps; // that aren't in the file yet: behind one whose answer is still to come
int last_id;
std::string typed; // from the station, without its end yet
std::string said;  // to the station, the same
nanoseconds last;  // when something was said last; 0 before the first
bool awaiting;     // a line was sent and nothing has come since
int clock_steps;   // requests that move the clock on, being carried out

// A text as a step holds it: blanks at its ends, and what would end or divide it, as escapes.
std::string step_text(std::string_view bytes)
{
    std::string text = escaped(bytes);
    for (std::size_t at; (at = text.find(" -> ")) != text.npos;)
        text.replace(at, 4, " \\x2D> ");
    for (std::size_t at; (at = text.find(" | ")) != text.npos;)
        text.replace(at, 3, " \\x7C ");
    if (text.starts_with(' '))
        text.replace(0, 1, "\\x20");
    if (text.ends_with(' '))
        text.replace(text.size() - 1, 1, "\\x20");
    return text;
}

void write_steps_locked()
{
    while (!steps.empty() && steps.front().id == 0) {
        file << steps.front().text << "\n";
        steps.pop_front();
    }
    file.flush();
}

void add_locked(const char* verb, std::string_view text, int id = 0)
{
    char lead[16];
    std::snprintf(lead, sizeof lead, "  %-8s ", verb);
    steps.push_back({text.empty() ? "  " + std::string(verb) : lead + std::string(text), id});
    write_steps_locked();
}

void flush_typed_locked()
{
    if (!typed.empty())
        add_locked("raw", step_text(typed));
    typed.clear();
}

void flush_said_locked()
{
    if (!said.empty())
        add_locked("read", step_text(said));
    said.clear();
}

// A pause of the phone's time before what comes now.
void pause_locked()
{
    const nanoseconds now = clock_now(CLOCK_MONOTONIC);
    const nanoseconds before = std::exchange(last, now);
    const nanoseconds pause = now - before;
    if (before == 0 || awaiting || clock_steps > 0 || pause < shortest_pause)
        return;
    flush_typed_locked();
    flush_said_locked();
    add_locked("phone", "clock +" + std::to_string((pause + ns_per_ms - 1) / ns_per_ms));
}

void end_locked()
{
    flush_typed_locked();
    flush_said_locked();
    for (step_line& step : steps)
        step.id = 0;
    write_steps_locked();
    file.close();
    recording = false;
}

std::string begin_locked(const std::string& name)
{
    file.open(name, std::ios::app);
    if (!file)
        return name + ": can't be written: " + std::strerror(errno);
    path = name;
    char when[64];
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    std::strftime(when, sizeof when, "%Y-%m-%d %H:%M:%S", localtime_r(&now, &local));
    file << "a session of " << when
         << "\n  # Played on a fresh phone; what this one was told before isn't here.\n";
    std::ifstream conf(home_path("phone.conf"));
    for (std::string line; std::getline(conf, line);)
        if (const std::string_view fact = trimmed(std::string_view(line).substr(0, line.find('#')));
            !fact.empty())
            file << "  conf     " << fact << "\n";
    steps.clear();
    typed.clear();
    said.clear();
    awaiting = false;
    clock_steps = 0;
    last = 0;
    if (clock_speed() > 1) {
        char text[32];
        std::snprintf(text, sizeof text, "speed %g", clock_speed());
        add_locked("phone", text);
    }
    file.flush();
    recording = true;
    return file ? "" : name + ": can't be written: " + std::strerror(errno);
}

std::string word_record(request& rq)
{
    const std::lock_guard lock(record_mutex);
    if (rq.args.empty()) {
        rq.answer = recording ? path : "off";
        return {};
    }
    if (rq.rest == "off") {
        if (!recording)
            return "nothing is being recorded";
        end_locked();
        return {};
    }
    const std::string name = request_text(rq, 0, 0);
    if (!name.ends_with(".t"))
        return "FILE.t or off is wanted";
    return recording ? path + " is being recorded; \"record off\" ends it"
                     : begin_locked(request_file(rq, name));
}

} // namespace

void record_port(bool from_station, std::string_view bytes)
{
    if (!recording)
        return;
    const std::lock_guard lock(record_mutex);
    if (!recording)
        return;
    pause_locked();
    std::string& text = from_station ? typed : said;
    from_station ? flush_said_locked() : flush_typed_locked();
    awaiting = from_station;
    text += bytes;
    const std::string_view end = from_station ? "\r" : "\r\n";
    for (std::size_t at; (at = text.find(end)) != text.npos; text.erase(0, at + end.size()))
        add_locked(from_station ? "send" : "expect", step_text(std::string_view(text).substr(0, at)));
}

int record_request(std::string_view line)
{
    if (!recording)
        return 0;
    const std::lock_guard lock(record_mutex);
    const std::vector<std::string> found = words(line);
    if (!recording || found.empty() || std::ranges::find(never, found[0]) != never.end() ||
        (found.size() == 1 && std::ranges::find(never_alone, found[0]) != never_alone.end()))
        return 0;
    awaiting = false;
    pause_locked();
    flush_typed_locked();
    flush_said_locked();
    if (found[0] == "clock")
        clock_steps++;
    add_locked("phone", step_text(line), ++last_id);
    return last_id;
}

void record_answer(int id, std::string_view wrong, std::string_view answer)
{
    if (id == 0)
        return;
    const std::lock_guard lock(record_mutex);
    const auto found = std::ranges::find(steps, id, &step_line::id);
    if (found == steps.end())
        return; // of a recording that has ended
    if (found->text.starts_with("  phone    clock") && clock_steps > 0)
        clock_steps--;
    if (!wrong.empty())
        found->text.replace(0, 10, "  fails   ").append(" -> ").append(step_text(wrong));
    else if (!answer.empty())
        found->text.append(" -> ").append(step_text(answer));
    found->id = 0;
    last = clock_now(CLOCK_MONOTONIC);
    write_steps_locked();
}

void record_end(const char* step)
{
    if (!recording)
        return;
    const std::lock_guard lock(record_mutex);
    if (!recording)
        return;
    flush_said_locked();
    add_locked(step, "");
    end_locked();
}

void record_attach()
{
    word_add("record", "[FILE.t|off]",
             "what a station and this port say from now on becomes a case of a transcript; off ends it; "
             "alone: tells the file",
             word_record);
}

} // namespace phone
