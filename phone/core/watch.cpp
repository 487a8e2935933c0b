#include "core/watch.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <mutex>
#include <set>
#include <unistd.h>
#include <vector>

#include "core/clock.h"
#include "core/control.h"
#include "core/fault_rule.h"
#include "core/log.h"
#include "core/text.h"
#include "core/thread_look.h"

namespace phone {

namespace {

struct call {
    std::string text;
    std::string outcome; // " = 3", and what the bench has to do with it
};

// A call between its begin and its result, on its thread.
struct open_call {
    std::string text;
    std::string targets = {}; // registers that it has met
    int target_count = 0;
    bool by_fail = false;
    std::size_t entry = 0; // in `calls`, from 1; 0: not recorded
    unsigned recording = 0;
};

enum class show { none, lines, busy, all };

constexpr std::size_t calls_limit = 100'000;
constexpr std::size_t strange_limit = 1000;
constexpr std::size_t nested_limit = 16; // calls of a library may end without a result
constexpr int targets_shown = 8;
constexpr std::size_t rules_limit = 10'000;

std::atomic<bool> watching; // anything at all to do in watch_call
std::atomic<show> showing;
std::atomic<bool> lines_only; // only what a command line does counts as a call
thread_local bool in_line;    // between the read of the station's port and the loop's next wait
std::mutex watch_mutex;       // guards all below
std::vector<fault_rule> rules;
bool recording;
unsigned recordings; // counts them
std::vector<call> calls;
std::set<std::string, std::less<>> known_failures; // of the idle phone, shown once
std::map<std::string, std::int64_t, std::less<>> strange_things;
thread_local std::vector<open_call> open_calls;

// Threads that were there when `calls line` or `log line` was said last. Those that came since are a command
// line's.
std::set<pid_t> old_threads;
std::atomic<unsigned> line_turn; // counts these moments

void update_watching_locked()
{
    watching = showing.load() != show::none || recording || !rules.empty();
}

// Whether the calling thread was started by a command line: told once a turn.
bool is_of_a_line_locked()
{
    struct verdict {
        unsigned turn = 0;
        bool of_a_line = false;
    };
    thread_local verdict own;
    if (own.turn != line_turn)
        own = {line_turn, !old_threads.contains(gettid()) && !clock_in_expiry()};
    return own.of_a_line;
}

// Waits, clocks and the loop's select are the program's rhythm; a campaign that counts calls leaves them out.
bool is_rhythm(std::string_view operation)
{
    return operation == "select" || operation == "clock_gettime" || operation == "nanosleep";
}

bool is_of_line_locked()
{
    return in_line || is_of_a_line_locked();
}

bool counts_locked(std::string_view operation)
{
    return !is_rhythm(operation) && (!lines_only || is_of_line_locked());
}

// What an idle phone does all the time: its timers, its looks at nodes, the program's own pipe, and attempts
// that fail again and again.
bool is_idle_locked(std::string_view text, long long result)
{
    if (is_of_line_locked())
        return false;
    return text.starts_with("timer_") || text.starts_with("poll ") || text.ends_with(" pipe") ||
           (result < 0 && !known_failures.emplace(text).second);
}

bool is_shown_locked(std::string_view operation, std::string_view text, long long result, bool by_fail)
{
    switch (showing.load()) {
    case show::none:
        return false;
    case show::lines:
        return !is_rhythm(operation) && is_of_line_locked();
    case show::busy:
        return !is_rhythm(operation) && (by_fail || !is_idle_locked(text, result));
    case show::all:
        break;
    }
    return true;
}

// The first rule that fits is used up; a rule that still lets pass counts down.
const fault_rule* take_locked(std::string_view text, bool transfer, bool counted)
{
    for (fault_rule& r : rules) {
        if (!fault_rule_fits(r, text, transfer) || (r.counted_only && !counted))
            continue;
        if (r.passed < r.skip) {
            r.passed++;
            continue;
        }
        r.hits++;
        if (r.left > 0)
            r.left--;
        return &r;
    }
    return nullptr;
}

std::string fail_off(request& rq)
{
    const std::lock_guard lock(watch_mutex);
    std::size_t count = 0;
    std::string names;
    for (const fault_rule& r : rules) {
        if (r.hits > 0)
            continue;
        count++;
        names += (names.empty() ? ": " : "; ") + fault_rule_name(r);
    }
    rq.answer =
        std::to_string(count) + (count == 1 ? " fault was" : " faults were") + " never reached" + names;
    rules.clear();
    update_watching_locked();
    return {};
}

std::string fail_list(request& rq)
{
    const std::lock_guard lock(watch_mutex);
    for (const fault_rule& r : rules)
        rq.answer += (rq.answer.empty() ? "" : "\n") + fault_rule_text(r);
    if (rules.empty())
        rq.answer = "nothing is armed";
    return {};
}

std::string word_fail(request& rq)
{
    if (rq.args.empty())
        return fail_list(rq);
    if (rq.args.size() == 1 && rq.args[0] == "off")
        return fail_off(rq);
    fault_rule r;
    if (std::string wrong = fault_rule_read(rq.args, rq.rest, r, rq.answer); !wrong.empty())
        return wrong;
    const std::lock_guard lock(watch_mutex);
    if (rules.size() >= rules_limit)
        return "there are " + std::to_string(rules_limit) + " faults already; \"fail off\" clears them";
    rules.push_back(std::move(r));
    update_watching_locked();
    return {};
}

// From here on the calls of command lines and of threads that they start can be told from the others.
void begin_lines_locked()
{
    old_threads = thread_ids();
    line_turn++;
}

std::string word_log(request& rq)
{
    const std::string what = rq.args.size() == 1 ? rq.args[0] : "";
    const std::lock_guard lock(watch_mutex);
    if (what == "off")
        showing = show::none;
    else if (what == "line")
        showing = show::lines;
    else if (what == "on")
        showing = show::busy;
    else if (what == "all")
        showing = show::all;
    else
        return "on, line, all or off is wanted";
    known_failures.clear();
    if (what != "off")
        begin_lines_locked();
    update_watching_locked();
    return {};
}

// A call without a path ends in a blank, and so would have two of them.
std::string ended_text(std::string_view text, std::string_view outcome)
{
    return std::string(trimmed(text)) + std::string(outcome);
}

std::string word_calls(request& rq)
{
    const std::lock_guard lock(watch_mutex);
    if (rq.args.size() == 1 && (rq.args[0] == "on" || rq.args[0] == "line" || rq.args[0] == "off")) {
        recording = rq.args[0] != "off";
        lines_only = rq.args[0] == "line" || (lines_only && !recording);
        if (recording) {
            calls.clear();
            recordings++;
        }
        if (rq.args[0] == "line")
            begin_lines_locked();
        update_watching_locked();
        return {};
    }
    const bool bare = rq.args.size() == 1 && rq.args[0] == "text";
    if (!rq.args.empty() && !bare)
        return "on, line, off, text or nothing is wanted";
    for (const call& c : calls)
        rq.answer += (rq.answer.empty() ? "" : "\n") + (bare ? c.text : ended_text(c.text, c.outcome));
    return {};
}

std::string word_strange(request& rq)
{
    const std::lock_guard lock(watch_mutex);
    if (rq.args.size() == 1 && rq.args[0] == "off") {
        strange_things.clear();
        return {};
    }
    if (!rq.args.empty())
        return "off or nothing is wanted";
    for (const auto& [what, count] : strange_things)
        rq.answer += (rq.answer.empty() ? "" : "\n") + std::to_string(count) + " " + what;
    return {};
}

// The call of this thread that `text` ends: those above it have ended without a result.
open_call take_open_call(const std::string& text)
{
    for (std::size_t i = open_calls.size(); i-- > 0;) {
        if (open_calls[i].text != text)
            continue;
        open_call found = std::move(open_calls[i]);
        open_calls.resize(i);
        return found;
    }
    return {text};
}

// " = -1 (ENXIO, by fail) [i2c 5 18 02]"
std::string outcome_of(const open_call& c, const std::string& result, int error)
{
    std::string why = error != 0 ? strerrorname_np(error) != nullptr ? strerrorname_np(error) : "" : "";
    if (c.by_fail)
        why += why.empty() ? "by fail" : ", by fail";
    std::string text = result.empty() ? "" : " = " + result;
    if (!why.empty())
        text += " (" + why + ")";
    if (c.target_count > 0)
        text += " [" + c.targets + (c.target_count > targets_shown ? ", ...]" : "]");
    return text;
}

// Writes down and shows how a call has ended; `result` is empty where that isn't known.
void end_call(const char* operation, std::string_view path, const std::string& result, long long value,
              int error)
{
    const open_call c = take_open_call(std::string(operation) + " " + escaped(path));
    const std::string outcome = outcome_of(c, result, error);
    const std::lock_guard lock(watch_mutex);
    if (c.entry > 0 && c.recording == recordings)
        calls[c.entry - 1].outcome = outcome;
    if (is_shown_locked(operation, c.text, value, c.by_fail))
        std::fprintf(stderr, "%s\n", ended_text(c.text, outcome).c_str());
}

} // namespace

fault watch_call(const char* operation, std::string_view path)
{
    if (!watching.load(std::memory_order_relaxed))
        return fault::none;
    open_call c{std::string(operation) + " " + escaped(path)};
    const bool transfer = c.text.starts_with("read ") || c.text.starts_with("write ");
    fault_rule hit;
    {
        const std::lock_guard lock(watch_mutex);
        const bool counted = counts_locked(operation);
        if (recording && counted && calls.size() < calls_limit) {
            calls.push_back({c.text, ""});
            c.entry = calls.size();
            c.recording = recordings;
        }
        // A rule without a pattern counts calls, and those are the recorded ones.
        const fault_rule* p = is_rhythm(operation) ? nullptr : take_locked(c.text, transfer, counted);
        c.by_fail = p != nullptr;
        if (p != nullptr)
            hit = *p;
    }
    if (open_calls.size() >= nested_limit)
        open_calls.erase(open_calls.begin());
    open_calls.push_back(std::move(c));
    if (!open_calls.back().by_fail)
        return fault::none;
    switch (hit.kind) {
    case fault_kind::slow:
        clock_sleep_until(clock_now(CLOCK_MONOTONIC) + hit.slow_ms * 1'000'000);
        return fault::none;
    case fault_kind::shortened:
        return fault::shortened;
    case fault_kind::eof:
        return fault::eof;
    case fault_kind::eio:
        break;
    }
    errno = EIO;
    return fault::eio;
}

void watch_command(bool begins)
{
    in_line = begins;
}

bool watch_target(std::string_view target)
{
    if (!watching.load(std::memory_order_relaxed))
        return false;
    open_call* const p_call = open_calls.empty() ? nullptr : &open_calls.back();
    if (p_call != nullptr && ++p_call->target_count <= targets_shown)
        p_call->targets.append(p_call->targets.empty() ? "" : ", ").append(target);
    const std::lock_guard lock(watch_mutex);
    for (fault_rule& r : rules) {
        if (r.counted_only || r.kind == fault_kind::slow || !fault_rule_fits(r, target, true))
            continue;
        r.hits++;
        if (r.left > 0)
            r.left--;
        if (p_call != nullptr)
            p_call->by_fail = true;
        return true;
    }
    return false;
}

bool watch_active()
{
    return watching.load(std::memory_order_relaxed);
}

void watch_result(const char* operation, std::string_view path, long long result)
{
    if (!watching.load(std::memory_order_relaxed) && open_calls.empty())
        return;
    const int error = errno;
    end_call(operation, path, std::to_string(result), result, result < 0 ? error : 0);
    errno = error;
}

void watch_no_result(const char* operation, std::string_view path)
{
    if (!watching.load(std::memory_order_relaxed) && open_calls.empty())
        return;
    const int error = errno;
    end_call(operation, path, "", 0, 0);
    errno = error;
}

void strange(std::string_view what)
{
    const int error = errno;
    log_line(log_kmsg, "phone: strange: " + escaped(what));
    const std::lock_guard lock(watch_mutex);
    if (strange_things.size() < strange_limit)
        strange_things[escaped(what)]++;
    errno = error;
}

void watch_attach()
{
    word_add(
        "fail", "[PATTERN [COUNT|all] [KIND] | call N [COUNT|all] [KIND] | nth N TEXT | off]",
        "makes the next platform calls that contain PATTERN fail, the Nth recorded one, or the Nth of "
        "those with exactly TEXT; KIND is eio, short, eof or slow MS; a target such as i2c 5 18 0F is met "
        "by its numbers; alone, lists what is armed; off clears it and tells what was never reached",
        word_fail);
    word_add("log", "on|line|all|off",
             "shows platform calls and their results on the phone's standard error, in the background in "
             "DIR/log/output: those that aren't an idle phone's own, those of command lines, or all",
             word_log);
    word_add("calls", "[on|line|off|text]",
             "records the platform calls from now on, or those of command lines and of threads that they "
             "start; without a word, lists them with their results, text without",
             word_calls);
    word_add("strange", "[off]", "what the program asked of the phone that no model knows; off forgets it",
             word_strange);
}

} // namespace phone
