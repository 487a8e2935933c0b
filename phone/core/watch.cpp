#include "core/watch.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <mutex>
#include <vector>

#include "core/clock.h"
#include "core/control.h"
#include "core/log.h"
#include "core/text.h"

namespace phone {

namespace {

enum class fault_kind { eio, shortened, eof, slow };

struct rule {
    std::string pattern; // empty: any call
    std::int64_t skip;   // calls that fit and are let pass first
    std::int64_t left;   // how many still fail; -1 for good
    fault_kind kind;
    std::int64_t slow_ms;
    bool reached;
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

void update_watching_locked()
{
    watching = showing || recording || !rules.empty();
}

bool fits(const rule& r, std::string_view text, bool transfer)
{
    if ((r.kind == fault_kind::shortened || r.kind == fault_kind::eof) && !transfer)
        return false;
    return r.left != 0 && text.find(r.pattern) != text.npos;
}

// Waits, clocks and the loop's select are the program's rhythm; a campaign that counts calls leaves them out.
bool is_rhythm(std::string_view operation)
{
    return operation == "select" || operation == "clock_gettime" || operation == "nanosleep";
}

bool counts(std::string_view operation)
{
    return !is_rhythm(operation) && (!lines_only || in_line);
}

// The first rule that fits is used up; a rule that still lets pass counts down.
const rule* take_locked(std::string_view text, bool transfer, bool counted)
{
    for (rule& r : rules) {
        if (!fits(r, text, transfer) || (r.pattern.empty() && !counted))
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

// How many words belong to a pattern at least: the numbers of a chip's register aren't counts.
std::size_t words_of_target(const std::string& first)
{
    return first == "i2c" ? 4 : first == "spmi" ? 2 : 1;
}

// What is wrong with a count or a kind at the end, which is no part of the pattern whatever its value.
std::string wrong_end(const std::vector<std::string>& args)
{
    const std::size_t words = args.size();
    if (words == 0 || words <= words_of_target(args[0]))
        return {};
    rule ignored{};
    if (args[words - 2] == "slow")
        return read_count_and_kind(args, words - 2, ignored);
    return args[words - 1] == "slow" || number(args[words - 1])
               ? read_count_and_kind(args, words - 1, ignored)
               : "";
}

// The pattern may hold blanks: it ends before a count or a kind.
std::string word_fail(request& rq)
{
    if (rq.args.size() == 1 && rq.args[0] == "off")
        return fail_off(rq);
    rule r{"", 0, 1, fault_kind::eio, 0, false};
    if (rq.args.size() >= 2 && rq.args[0] == "call") {
        const auto nth = number(rq.args[1]);
        if (!nth || *nth < 1)
            return "the number of a call, from 1, is wanted";
        r.skip = *nth - 1;
        const std::string wrong = read_count_and_kind(rq.args, 2, r);
        return wrong.empty() ? add_rule(r) : wrong;
    }
    if (std::string wrong = wrong_end(rq.args); !wrong.empty())
        return wrong;
    std::size_t end = rq.args.size();
    for (std::size_t i = end > 0 ? words_of_target(rq.args[0]) : 0; i < end; i++) {
        rule probe = r;
        if (read_count_and_kind(rq.args, i, probe).empty()) {
            end = i;
            r = probe;
        }
    }
    for (std::size_t i = 0; i < end; i++)
        r.pattern += (i > 0 ? " " : "") + rq.args[i];
    return r.pattern.empty() ? "PATTERN [COUNT|all] [eio|short|eof|slow MS], call N ..., or off is wanted"
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
        const bool counted = counts(operation);
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
        if (r.pattern.empty() || r.kind == fault_kind::slow || !fits(r, target, true))
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

void watch_attach()
{
    word_add("fail", "PATTERN|call N [COUNT|all] [KIND] | off",
             "makes the next platform calls that contain PATTERN fail, or the Nth recorded one; KIND is eio, "
             "short, eof or slow MS; off tells how many faults were never reached",
             word_fail);
    word_add("log", "on|off",
             "shows every platform call on the phone's standard error, in the background in DIR/log/output",
             word_log);
    word_add("calls", "[on|line|off]",
             "records the platform calls from now on, or those of command lines alone; without a word, lists "
             "them",
             word_calls);
    word_add("strange", "[off]", "what the program asked of the phone that no model knows; off forgets it",
             word_strange);
}

} // namespace phone
