#include "runner/steps.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <poll.h>
#include <set>
#include <thread>
#include <unistd.h>

#include "client/port_client.h"
#include "runner/file_text.h"
#include "runner/phone_fixture.h"

namespace {

using namespace std::chrono_literals;

constexpr int send_ms = 30'000;

// One running case.
struct session {
    phone_fixture* p_phone; // NULL on a real port
    int port;
    int limit_ms;
    std::string got = {}; // read and not yet accounted for
    bool started = false;
    bool strange_allowed = false;
    bool is_off = false;
};

// A link of the phone points into the phone.
std::string file_of(const session& s, const std::string& path)
{
    const std::string file = s.p_phone->dir + "/root" + path;
    std::error_code none;
    const std::string target = std::filesystem::read_symlink(file, none).string();
    return target.starts_with("/") ? s.p_phone->dir + "/root" + target : file;
}

std::string compare(const std::string& what, const std::string& wanted, const std::string& got)
{
    if (wanted == got)
        return {};
    return what + "\n    wanted: " + shown(wanted) + "\n    got:    " + shown(got);
}

std::string ensure_started(session& s)
{
    if (s.p_phone == nullptr || s.started)
        return {};
    s.started = true;
    std::string wrong = s.p_phone->up();
    s.port = s.p_phone->port;
    return wrong;
}

// Nothing more may have come than what the steps so far have read.
std::string check_quiet(session& s)
{
    if (s.p_phone == nullptr) {
        std::this_thread::sleep_for(300ms);
    } else {
        std::string answer;
        if (!s.is_off && s.p_phone->runs() && !s.p_phone->ask("idle", answer))
            return "the program doesn't come to rest: " + answer;
    }
    port_take(s.port, s.got);
    return s.got.empty() ? "" : "the phone sent more than the steps read: " + shown(s.got);
}

std::string read_exactly(session& s, const std::string& wanted)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(s.limit_ms);
    bool there = true;
    while (there && s.got.size() < wanted.size() && std::chrono::steady_clock::now() < end) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        pollfd p{s.port, POLLIN, 0};
        if (poll(&p, 1, static_cast<int>(std::clamp<long long>(left.count(), 1, 100))) > 0)
            there = port_take(s.port, s.got);
    }
    const std::string got = s.got.substr(0, std::max(wanted.size(), std::size_t{1}));
    if (got == wanted) {
        s.got.erase(0, wanted.size());
        return {};
    }
    if (wanted.starts_with(s.got))
        return compare(there ? "the reply isn't whole after " + std::to_string(s.limit_ms) + " ms"
                             : "the port is gone",
                       wanted, s.got);
    return compare("the reply differs", wanted, s.got);
}

// Nothing comes for so long; on the virtual phone by its own clock, which is moved on.
std::string keep_silent(session& s, const std::string& ms)
{
    if (std::string wrong = check_quiet(s); !wrong.empty())
        return wrong;
    std::string answer;
    if (s.p_phone == nullptr)
        std::this_thread::sleep_for(std::chrono::milliseconds(std::atol(ms.c_str())));
    else if (!s.p_phone->ask("clock +" + ms, answer))
        return "the clock can't be moved on: " + answer;
    return check_quiet(s);
}

std::string ask_phone(session& s, const step& st)
{
    std::string answer;
    const bool done = s.p_phone->ask(unescaped(st.text), answer);
    if (done != (st.verb == "phone"))
        return "\"" + st.text + "\" answers " + (done ? "ok" : "error: " + answer);
    if (!st.has_answer)
        return {};
    return compare("\"" + st.text + "\" answers something else", unescaped(st.answer), answer);
}

// Asks again and again until the answer is the wanted one: for what a thread does in its own time, which
// "idle" doesn't wait for.
std::string await_answer(session& s, const step& st)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(s.limit_ms);
    const std::string wanted = unescaped(st.answer);
    std::string answer;
    for (;;) {
        if (!s.p_phone->ask(unescaped(st.text), answer))
            return "\"" + st.text + "\" answers error: " + answer;
        if (answer == wanted)
            return {};
        if (std::chrono::steady_clock::now() >= end)
            return compare("\"" + st.text + "\" answers something else after " + std::to_string(s.limit_ms) +
                               " ms",
                           wanted, answer);
        std::this_thread::sleep_for(5ms);
    }
}

std::string check_file(session& s, const step& st)
{
    const std::string path = file_of(s, st.text);
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        return st.text + " isn't there";
    return compare(st.text + " holds something else", unescaped(st.answer), file_text(path));
}

std::string write_file(session& s, const step& st)
{
    const std::size_t end = std::min(st.text.find(' '), st.text.size());
    const std::string path = file_of(s, st.text.substr(0, end));
    std::error_code ignored;
    std::filesystem::create_directories(path.substr(0, path.rfind('/')), ignored);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << unescaped(st.text.substr(std::min(end + 1, st.text.size())));
    file.close();
    return file ? "" : path + " can't be written";
}

std::string wait_off(session& s)
{
    for (int turn = 0; turn < 6000 && s.p_phone->runs(); turn++)
        std::this_thread::sleep_for(5ms);
    s.is_off = true;
    return s.p_phone->runs() ? "the phone is still on" : "";
}

std::string power_cycle(session& s)
{
    const std::string complaint = s.p_phone->down();
    if (!complaint.empty())
        return "the program complains:\n" + complaint;
    std::string wrong = s.p_phone->up();
    s.port = s.p_phone->port;
    return wrong;
}

// The program has restarted by itself when a new one serves the control port. The old one may still take a
// connection that it never answers.
std::string wait_reboot(session& s)
{
    std::string answer;
    bool gone = false;
    for (int turn = 0; turn < 6000; turn++) {
        const bool answers = s.p_phone->ask("idle", answer);
        if (gone && answers)
            return s.p_phone->take_greeting();
        if (!answers) {
            gone = true;
            s.p_phone->reconnect();
        }
        std::this_thread::sleep_for(5ms);
    }
    return gone ? "no restart: " + answer : "the phone hasn't restarted";
}

std::string run_step(session& s, const step& st)
{
    if (st.verb == "conf" && s.p_phone != nullptr) {
        std::ofstream(s.p_phone->dir + "/phone.conf", std::ios::app) << st.text << "\n";
        return s.started ? "conf comes before the phone is on" : "";
    }
    if (st.verb == "write" && s.p_phone != nullptr && !s.started)
        return write_file(s, st);
    if (std::string wrong = ensure_started(s); !wrong.empty())
        return wrong;
    if (st.verb == "send" || st.verb == "raw") {
        if (std::string wrong = check_quiet(s); !wrong.empty())
            return wrong;
        const std::string bytes = unescaped(st.text) + (st.verb == "send" ? "\r" : "");
        return port_send(s.port, bytes, s.got, send_ms) ? "" : "the port takes nothing";
    }
    if (st.verb == "expect" || st.verb == "read")
        return read_exactly(s, unescaped(st.text) + (st.verb == "expect" ? "\r\n" : ""));
    if (st.verb == "silence")
        return keep_silent(s, st.text);
    if (s.p_phone == nullptr)
        return st.verb + " needs the virtual phone";
    if (st.verb == "phone" || st.verb == "fails")
        return ask_phone(s, st);
    if (st.verb == "awaits")
        return await_answer(s, st);
    if (st.verb == "file")
        return check_file(s, st);
    if (st.verb == "write")
        return write_file(s, st);
    if (st.verb == "restart")
        return power_cycle(s);
    if (st.verb == "reboots")
        return wait_reboot(s);
    if (st.verb == "off")
        return wait_off(s);
    s.strange_allowed = true;
    return {};
}

std::string check_end(session& s)
{
    if (std::string wrong = check_quiet(s); !wrong.empty())
        return wrong;
    if (s.p_phone == nullptr)
        return {};
    std::string answer;
    if (!s.is_off) {
        if (!s.p_phone->runs())
            return "the program has ended:\n" + s.p_phone->down();
        if (!s.p_phone->ask("strange", answer))
            return "strange: " + answer;
        if (!answer.empty() && !s.strange_allowed)
            return "the program asked for what the phone doesn't know:\n" + answer;
    }
    const std::string complaint = s.p_phone->down();
    return complaint.empty() ? "" : "the program complains:\n" + complaint;
}

// Of several lines that are sent in a row, the one that was answered otherwise.
std::string which_of_row(const test_case& c, const step& failed, const std::string& sent)
{
    const auto in_row = std::ranges::count_if(
        c.steps, [&](const step& st) { return st.line == failed.line && st.verb == "send"; });
    return in_row > 1 ? "\"" + sent + "\": " : "";
}

// A real phone isn't fresh for each case: takes what it has said, its greeting above all, and puts the
// console's settings back. What ends an answer isn't known before that: it is over when the phone is quiet.
void settle_console(int port)
{
    constexpr int answer_ms = 5000;
    constexpr int quiet_ms = 200;
    for (const std::string line : {"", "case=0\r", "s3=2c,d\r", "s4=0,a,0\r"}) {
        std::string said;
        port_send(port, line, said, 1000);
        pollfd p{port, POLLIN, 0};
        while (poll(&p, 1, said.empty() && !line.empty() ? answer_ms : quiet_ms) > 0 &&
               port_take(port, said)) {
        }
    }
}

} // namespace

bool needs_phone(const test_case& c)
{
    static const std::set<std::string> of_the_port = {"send", "expect", "raw", "read", "silence"};
    return std::ranges::any_of(c.steps, [](const step& st) { return !of_the_port.contains(st.verb); });
}

case_result run_case(const test_case& c, int real_port, int limit_ms)
{
    std::optional<phone_fixture> phone;
    if (real_port >= 0)
        settle_console(real_port);
    else
        phone.emplace();
    session s{phone ? &*phone : nullptr, real_port, limit_ms};
    const auto start = std::chrono::steady_clock::now();
    case_result result{c.line, "", 0};
    std::string sent;
    for (const step& st : c.steps) {
        result.line = st.line;
        sent = st.verb == "send" ? st.text : sent;
        result.wrong = run_step(s, st);
        if (!result.wrong.empty()) {
            result.wrong = which_of_row(c, st, sent) + result.wrong;
            break;
        }
    }
    if (result.wrong.empty())
        result.wrong = check_end(s);
    else if (s.started)
        result.wrong += "\n" + s.p_phone->down();
    while (result.wrong.ends_with('\n'))
        result.wrong.pop_back();
    result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return result;
}
