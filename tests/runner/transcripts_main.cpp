// Runs station transcripts, each case against a fresh virtual phone, or all of them against a real port.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <thread>
#include <unistd.h>

#include "client/port_client.h"
#include "runner/file_text.h"
#include "runner/phone_fixture.h"
#include "runner/transcript.h"

namespace {

using namespace std::chrono_literals;

constexpr int send_ms = 30'000;

// One running case.
struct session {
    phone_fixture* p_phone; // NULL on a real port
    int port;
    std::string got; // read and not yet accounted for
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
    if (s.p_phone != nullptr) {
        s.p_phone->receive(s.got, wanted.size());
    } else {
        for (int turn = 0; turn < 300 && s.got.size() < wanted.size(); turn++) {
            pollfd p{s.port, POLLIN, 0};
            poll(&p, 1, 100);
            if (!port_take(s.port, s.got))
                break;
        }
    }
    const std::string got = s.got.substr(0, std::max(wanted.size(), std::size_t{1}));
    if (got == wanted) {
        s.got.erase(0, wanted.size());
        return {};
    }
    return compare("the reply differs", wanted, s.got);
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
    if (s.p_phone == nullptr)
        return st.verb + " needs the virtual phone";
    if (st.verb == "phone" || st.verb == "fails")
        return ask_phone(s, st);
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

// A real phone isn't fresh for each case: takes what it has said, its greeting above all, and puts the
// console's settings back.
void settle_console(int port)
{
    for (const char* line : {"", "case=0\r", "s3=2c,d\r", "s4=0,a,0\r"}) {
        std::string said;
        port_send(port, line, said, 1000);
        pollfd p{port, POLLIN, 0};
        while (poll(&p, 1, 200) > 0 && port_take(port, said)) {
        }
    }
}

bool needs_phone(const test_case& c)
{
    for (const step& st : c.steps)
        if (st.verb != "send" && st.verb != "expect" && st.verb != "raw" && st.verb != "read")
            return true;
    return false;
}

bool run_case(const std::string& file, const test_case& c, session& s)
{
    std::string wrong;
    int line = c.line;
    for (const step& st : c.steps) {
        line = st.line;
        wrong = run_step(s, st);
        if (!wrong.empty())
            break;
    }
    if (wrong.empty())
        wrong = check_end(s);
    if (wrong.empty())
        return true;
    std::printf("%s:%d: %s: %s\n", file.c_str(), line, c.title.c_str(), wrong.c_str());
    if (s.p_phone != nullptr && s.started)
        std::printf("%s", s.p_phone->down().c_str());
    return false;
}

struct options {
    std::string file;
    std::string real_port;
    int only = 0;
};

bool read_options(int argc, char** argv, options& o)
{
    for (int i = 1; i < argc; i++) {
        const bool more = i + 1 < argc;
        if (std::strcmp(argv[i], "--phone") == 0 && more)
            hvt_virtual = argv[++i];
        else if (std::strcmp(argv[i], "--port") == 0 && more)
            o.real_port = argv[++i];
        else if (std::strcmp(argv[i], "--case") == 0 && more)
            o.only = std::atoi(argv[++i]);
        else if (argv[i][0] != '-' && o.file.empty())
            o.file = argv[i];
        else
            return false;
    }
    return !o.file.empty() && (hvt_virtual.empty() != o.real_port.empty());
}

} // namespace

int main(int argc, char** argv)
{
    options o;
    if (!read_options(argc, argv, o)) {
        std::fputs("usage: transcripts --phone HVT_VIRTUAL|--port DEVICE [--case N] FILE\n", stderr);
        return 2;
    }
    std::vector<test_case> cases;
    if (const std::string wrong = read_transcript(o.file, cases); !wrong.empty()) {
        std::fprintf(stderr, "%s\n", wrong.c_str());
        return 2;
    }
    const int real = o.real_port.empty() ? -1 : port_open_raw(o.real_port);
    if (!o.real_port.empty() && real < 0) {
        std::perror(o.real_port.c_str());
        return 2;
    }
    int passed = 0;
    int failed = 0;
    int skipped = 0;
    for (std::size_t i = 0; i < cases.size(); i++) {
        if (o.only != 0 && o.only != static_cast<int>(i) + 1)
            continue;
        if (real >= 0 && needs_phone(cases[i])) {
            std::printf("skipped, needs the virtual phone: %s\n", cases[i].title.c_str());
            skipped++;
        } else if (real >= 0) {
            settle_console(real);
            session s{nullptr, real, {}};
            (run_case(o.file, cases[i], s) ? passed : failed)++;
        } else {
            phone_fixture phone;
            session s{&phone, -1, {}};
            (run_case(o.file, cases[i], s) ? passed : failed)++;
        }
    }
    std::printf("%d passed, %d failed, %d skipped\n", passed, failed, skipped);
    return failed == 0 && passed + skipped > 0 ? 0 : 1;
}
