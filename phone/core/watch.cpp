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
#include "core/log.h"
#include "core/text.h"
#include "core/thread_look.h"

namespace phone {

namespace {

enum class fault_kind { eio, shortened, eof, slow };

// How much of a call's or target's text a pattern has to be.
enum class match { part, whole, words };

struct rule {
    std::string pattern; // empty: any call
    std::int64_t skip;   // calls that fit and are let pass first
    std::int64_t left;   // how many still fail; -1 for good
    fault_kind kind;
    std::int64_t slow_ms;
    bool reached;
    match how = match::part;
    bool counted_only = false; // calls that `calls` lists
};

constexpr std::size_t calls_limit = 100'000;
constexpr std::size_t strange_limit = 1000;

std::atomic<bool> watching; // anything at all to do in watch_call
std::atomic<bool> showing;
std::atomic<bool> lines_only; // only what a command line does counts as a call
thread_local bool in_line;    // between the read of the station's port and the loop's next wait
std::mutex watch_mutex;       // guards all below
std::vector<rule> rules;
bool recording;
std::vector<std::string> calls;
std::map<std::string, std::int64_t, std::less<>> strange_things;
std::map<std::string, std::vector<target_number>, std::less<>> target_grammars; // before the program runs

// Threads that were there when `calls line` was said last. Those that came since are a command line's.
std::set<pid_t> old_threads;
std::atomic<unsigned> line_turn; // counts these moments

void update_watching_locked()
{
    watching = showing || recording || !rules.empty();
}

bool fits(const rule& r, std::string_view text, bool transfer)
{
    if ((r.kind == fault_kind::shortened || r.kind == fault_kind::eof) && !transfer)
        return false;
    if (r.left == 0)
        return false;
    switch (r.how) {
    case match::whole:
        return trimmed(text) == r.pattern; // a call without a path ends in a blank
    case match::words:
        return text == r.pattern || text.starts_with(r.pattern + " ");
    case match::part:
        break;
    }
    return text.find(r.pattern) != text.npos;
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

bool counts_locked(std::string_view operation)
{
    return !is_rhythm(operation) && (!lines_only || in_line || is_of_a_line_locked());
}

// The first rule that fits is used up; a rule that still lets pass counts down.
const rule* take_locked(std::string_view text, bool transfer, bool counted)
{
    for (rule& r : rules) {
        if (!fits(r, text, transfer) || (r.counted_only && !counted))
            continue;
        if (r.skip > 0) {
            r.skip--;
            continue;
        }
        r.reached = true;
        if (r.left > 0)
            r.left--;
        return &r;
    }
    return nullptr;
}

std::string add_rule(rule r)
{
    const std::lock_guard lock(watch_mutex);
    rules.push_back(std::move(r));
    update_watching_locked();
    return {};
}

std::string fail_off(request& rq)
{
    const std::lock_guard lock(watch_mutex);
    rq.answer =
        std::to_string(std::count_if(rules.begin(), rules.end(), [](const rule& r) { return !r.reached; }));
    rules.clear();
    update_watching_locked();
    return {};
}

// Reads [COUNT|all] [KIND [MS]] from `args` at `at`.
std::string read_count_and_kind(const std::vector<std::string>& args, std::size_t at, rule& r)
{
    if (at < args.size() && args[at] == "all") {
        r.left = -1;
        at++;
    } else if (at < args.size() && number(args[at])) {
        r.left = *number(args[at++]);
        if (r.left < 1)
            return "a count from 1, or \"all\", is wanted";
    }
    if (at < args.size()) {
        const std::string& kind = args[at++];
        if (kind == "eio") {
            r.kind = fault_kind::eio;
        } else if (kind == "short") {
            r.kind = fault_kind::shortened;
        } else if (kind == "eof") {
            r.kind = fault_kind::eof;
        } else if (kind == "slow") {
            const auto ms = at < args.size() ? number(args[at++]) : std::nullopt;
            if (!ms || *ms < 0 || *ms > 3'600'000)
                return "slow wants 0 to 3600000 ms";
            r.kind = fault_kind::slow;
            r.slow_ms = *ms;
        } else {
            return "the kinds are eio, short, eof and slow MS, not \"" + kind + "\"";
        }
    }
    return at == args.size() ? "" : "\"" + args[at] + "\" is too much";
}

std::string target_text(const std::string& word, target_number kind)
{
    const auto value =
        kind == target_number::decimal
            ? number(word).value_or(-1)
            : static_cast<std::int64_t>(hex_number(word).value_or(static_cast<std::uint64_t>(-1)));
    if (value < 0)
        return {};
    char text[32];
    switch (kind) {
    case target_number::decimal:
        return std::to_string(value);
    case target_number::hex:
        std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(value));
        break;
    case target_number::hex2:
        std::snprintf(text, sizeof text, "%02llX", static_cast<unsigned long long>(value));
        break;
    case target_number::hex5:
        std::snprintf(text, sizeof text, "%05llX", static_cast<unsigned long long>(value));
        break;
    case target_number::hex_0x:
        std::snprintf(text, sizeof text, "0x%llX", static_cast<unsigned long long>(value));
        break;
    }
    return text;
}

// Writes the numbers of a target as its texts have them. The result is how many words belong to the pattern
// at least: those numbers aren't counts.
std::size_t take_target(std::vector<std::string>& args)
{
    const auto grammar = args.empty() ? target_grammars.end() : target_grammars.find(args[0]);
    if (grammar == target_grammars.end())
        return 1;
    std::size_t words = 1;
    for (const target_number kind : grammar->second) {
        const std::string text = words < args.size() ? target_text(args[words], kind) : "";
        if (text.empty())
            break;
        args[words++] = text;
    }
    return words;
}

// What is wrong with a count or a kind at the end, which is no part of the pattern whatever its value.
std::string wrong_end(const std::vector<std::string>& args, std::size_t least)
{
    const std::size_t words = args.size();
    if (words <= least)
        return {};
    rule ignored{};
    if (args[words - 2] == "slow")
        return read_count_and_kind(args, words - 2, ignored);
    return args[words - 1] == "slow" || number(args[words - 1])
               ? read_count_and_kind(args, words - 1, ignored)
               : "";
}

// `call N [COUNT|all] [KIND]`: the Nth of all recorded calls; `nth N TEXT`: the Nth of those with this text.
std::string fail_nth(const request& rq)
{
    rule r{"", 0, 1, fault_kind::eio, 0, false, match::part, true};
    const auto nth = rq.args.size() >= 2 ? number(rq.args[1]) : std::nullopt;
    if (!nth || *nth < 1)
        return "the number of a call, from 1, is wanted";
    r.skip = *nth - 1;
    if (rq.args[0] == "call") {
        const std::string wrong = read_count_and_kind(rq.args, 2, r);
        return wrong.empty() ? add_rule(r) : wrong;
    }
    const std::string_view behind = trimmed(std::string_view(rq.rest).substr(rq.args[0].size()));
    r.pattern = trimmed(behind.substr(rq.args[1].size()));
    r.how = match::whole;
    return r.pattern.empty() ? "the text of a call is wanted" : add_rule(r);
}

// The pattern may hold blanks: it ends before a count or a kind.
std::string word_fail(request& rq)
{
    if (rq.args.size() == 1 && rq.args[0] == "off")
        return fail_off(rq);
    if (rq.args.size() >= 2 && (rq.args[0] == "call" || rq.args[0] == "nth"))
        return fail_nth(rq);
    rule r{"", 0, 1, fault_kind::eio, 0, false};
    const std::size_t least = take_target(rq.args);
    if (least > 1)
        r.how = match::words;
    if (std::string wrong = wrong_end(rq.args, least); !wrong.empty())
        return wrong;
    std::size_t end = rq.args.size();
    for (std::size_t i = least; i < end; i++) {
        rule probe = r;
        if (read_count_and_kind(rq.args, i, probe).empty()) {
            end = i;
            r = probe;
        }
    }
    for (std::size_t i = 0; i < end; i++)
        r.pattern += (i > 0 ? " " : "") + rq.args[i];
    return r.pattern.empty()
               ? "PATTERN [COUNT|all] [eio|short|eof|slow MS], call N ..., nth N TEXT, or off is wanted"
               : add_rule(r);
}

std::string word_log(request& rq)
{
    if (rq.args.size() != 1 || (rq.args[0] != "on" && rq.args[0] != "off"))
        return "on or off is wanted";
    const std::lock_guard lock(watch_mutex);
    showing = rq.args[0] == "on";
    update_watching_locked();
    return {};
}

std::string word_calls(request& rq)
{
    const std::lock_guard lock(watch_mutex);
    if (rq.args.size() == 1 && (rq.args[0] == "on" || rq.args[0] == "line" || rq.args[0] == "off")) {
        recording = rq.args[0] != "off";
        lines_only = rq.args[0] == "line" || (lines_only && !recording);
        if (recording)
            calls.clear();
        if (rq.args[0] == "line") {
            old_threads = thread_ids();
            line_turn++;
        }
        update_watching_locked();
        return {};
    }
    if (!rq.args.empty())
        return "on, line, off or nothing is wanted";
    for (const std::string& line : calls)
        rq.answer += (rq.answer.empty() ? "" : "\n") + line;
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

} // namespace

fault watch_call(const char* operation, std::string_view path)
{
    if (!watching.load(std::memory_order_relaxed))
        return fault::none;
    const std::string text = std::string(operation) + " " + escaped(path);
    const bool transfer = text.starts_with("read ") || text.starts_with("write ");
    rule hit{};
    {
        const std::lock_guard lock(watch_mutex);
        const bool counted = counts_locked(operation);
        if (recording && counted && calls.size() < calls_limit)
            calls.push_back(text);
        // A rule without a pattern counts calls, and those are the recorded ones.
        const rule* p = is_rhythm(operation) ? nullptr : take_locked(text, transfer, counted);
        if (p == nullptr)
            return fault::none;
        hit = *p;
    }
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
    const std::lock_guard lock(watch_mutex);
    for (rule& r : rules) {
        if (r.counted_only || r.kind == fault_kind::slow || !fits(r, target, true))
            continue;
        r.reached = true;
        if (r.left > 0)
            r.left--;
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
    if (!showing.load(std::memory_order_relaxed))
        return;
    const int error = errno;
    if (result < 0)
        std::fprintf(stderr, "%s %s = %lld (%s)\n", operation, escaped(path).c_str(), result,
                     strerrorname_np(error));
    else
        std::fprintf(stderr, "%s %s = %lld\n", operation, escaped(path).c_str(), result);
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

void watch_target_add(std::string_view name, std::initializer_list<target_number> numbers)
{
    target_grammars[std::string(name)] = numbers;
}

void watch_attach()
{
    word_add(
        "fail", "PATTERN|call N [COUNT|all] [KIND] | nth N TEXT | off",
        "makes the next platform calls that contain PATTERN fail, the Nth recorded one, or the Nth of those "
        "with exactly TEXT; KIND is eio, short, eof or slow MS; a target such as i2c 5 18 0f is met by its "
        "numbers; off tells how many faults were never reached",
        word_fail);
    word_add("log", "on|off",
             "shows every platform call on the phone's standard error, in the background in DIR/log/output",
             word_log);
    word_add(
        "calls", "[on|line|off]",
        "records the platform calls from now on, or those of command lines and of threads that they start; "
        "without a word, lists them",
        word_calls);
    word_add("strange", "[off]", "what the program asked of the phone that no model knows; off forgets it",
             word_strange);
}

} // namespace phone
