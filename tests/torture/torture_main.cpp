// The fault campaign. For each command line: counts its platform calls, then runs it once for each of them
// with that call failing, once and then for good. Four verdicts on each run: the reply ends in its final
// sequence; no reply says OK though its call failed, unless the call is a harmless one; what outlives the
// command is whole (each unit holds its old or its new bytes, no descriptor is left open); the next line
// works.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "client/port_client.h"
#include "runner/file_text.h"
#include "runner/phone_fixture.h"
#include "runner/transcript.h"
#include "torture/harmless.h"

namespace {

constexpr const char* port_call = "/dev/ttyGS";

struct torture_line {
    bool fixed_part;
    bool fresh;                      // what it does once it doesn't do again: each run has a new start
    bool polled;                     // how often it asks depends on time: its calls fail for good only
    bool stores;                     // what it reads it stores in a unit, right or wrong
    long late_ms;                    // so much of the phone's time is given to what it says behind its answer
    std::string asks;                // a command line that tells what came of it, behind that time
    std::string keeps;               // a path that it may leave open when it fails
    std::vector<std::string> conf;   // lines of phone.conf
    std::vector<std::string> words;  // control words before it
    std::vector<std::string> before; // command lines before it
    std::string text;
};

using unit_files = std::map<std::string, std::string>;

struct tally {
    int runs = 0;
    int failed = 0;
};

std::vector<std::string> split_lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::vector<torture_line> read_lines(const std::string& path)
{
    std::ifstream file(path);
    std::vector<torture_line> lines;
    for (std::string text; std::getline(file, text);) {
        if (text.empty() || text[0] == '#')
            continue;
        torture_line line{};
        line.fixed_part = text.starts_with("* ");
        if (line.fixed_part)
            text.erase(0, 2);
        std::size_t at;
        while ((at = text.find(" ;; ")) != text.npos) {
            const std::string part = text.substr(0, at);
            if (part.starts_with("phone "))
                line.words.push_back(part.substr(6));
            else if (part.starts_with("before "))
                line.before.push_back(part.substr(7));
            else if (part == "fresh")
                line.fresh = true;
            else if (part == "polled")
                line.polled = true;
            else if (part.starts_with("asks "))
                line.asks = part.substr(5);
            else if (part.starts_with("keeps "))
                line.keeps = part.substr(6);
            else if (part.starts_with("conf "))
                line.conf.push_back(part.substr(5));
            else if (part == "stores")
                line.stores = true;
            else if (part.starts_with("late "))
                line.late_ms = std::atol(part.c_str() + 5);
            text.erase(0, at + 4);
        }
        line.text = text;
        lines.push_back(line);
    }
    return lines;
}

unit_files read_units(const phone_fixture& phone)
{
    unit_files units;
    for (const auto& entry : std::filesystem::directory_iterator(phone.dir + "/units"))
        units[entry.path().filename()] = file_text(entry.path());
    return units;
}

// The program's open descriptors, by the paths that they were opened with.
std::multiset<std::string> descriptors(phone_fixture& phone)
{
    std::string answer;
    phone.ask("files", answer);
    const std::vector<std::string> paths = split_lines(answer);
    return {paths.begin(), paths.end()};
}

// Sends a line and gives its whole reply: all that comes until the program's loop waits again.
bool exchange(phone_fixture& phone, const std::string& line, std::string& reply, std::string& wrong)
{
    reply.clear();
    std::string answer;
    if (!port_send(phone.port, line + "\r", reply, 10'000) || !phone.ask("idle", answer)) {
        wrong = phone.runs() ? "the program hangs" : "the program has ended";
        return false;
    }
    port_take(phone.port, reply);
    return true;
}

// What comes of a line behind its answer: by a thread that it has started.
bool take_late(phone_fixture& phone, const torture_line& line, std::string& reply, std::string& late,
               std::string& wrong)
{
    std::string answer;
    late.clear();
    if (line.late_ms == 0)
        return true;
    if (!phone.ask("clock +" + std::to_string(line.late_ms), answer) || !phone.ask("idle", answer)) {
        wrong = phone.runs() ? "the program hangs behind its answer" : "the program has ended";
        return false;
    }
    port_take(phone.port, late);
    // Perhaps it has come at once.
    if (const std::size_t end = reply.find("\r\n"); end != std::string::npos) {
        late.insert(0, reply.substr(end + 2));
        reply.erase(end + 2);
    }
    return line.asks.empty() || exchange(phone, line.asks, late, wrong);
}

bool used[std::size(harmless)]; // rows that a line has needed

// "acct=1" begins "acct=1,2" and not "acct=10".
bool begins(const std::string& line, const std::string& beginning)
{
    const auto digit = [](char ch) { return ch >= '0' && ch <= '9'; };
    return line.starts_with(beginning) &&
           (line.size() == beginning.size() || !digit(beginning.back()) || !digit(line[beginning.size()]));
}

bool is_for(const harmless_row& row, const std::string& line)
{
    std::istringstream beginnings(row.lines);
    if (row.lines[0] == '\0')
        return true;
    for (std::string beginning; beginnings >> beginning;)
        if (begins(line, beginning))
            return true;
    return false;
}

bool is_harmless(const std::string& call, const std::string& line)
{
    bool found = false;
    for (std::size_t i = 0; i < std::size(harmless); i++) {
        if (!call.starts_with(harmless[i].call) || !is_for(harmless[i], line))
            continue;
        used[i] = true;
        found = true;
    }
    return found;
}

std::string check_units(const unit_files& before, const unit_files& after, const unit_files& now)
{
    for (const auto& [name, bytes] : now) {
        const auto old_unit = before.find(name);
        const auto new_unit = after.find(name);
        if ((old_unit == before.end() || old_unit->second != bytes) &&
            (new_unit == after.end() || new_unit->second != bytes))
            return "unit file " + name + " holds neither its old nor its new bytes";
    }
    return {};
}

struct campaign {
    phone_fixture phone;
    const torture_line& line;
    std::vector<std::string> calls;
    std::string good_reply;
    std::string good_late;
    unit_files units_before;
    unit_files units_after;
    std::multiset<std::string> descriptors_before;
};

// The program opens and closes nodes of its own at any time, so only what stays open at every look counts.
std::string left_open(campaign& c)
{
    constexpr int looks = 20;
    std::string names;
    for (int i = 0; i < looks; i++) {
        const auto now = descriptors(c.phone);
        if (now.size() <= c.descriptors_before.size())
            return {};
        names.clear();
        for (const std::string& name : now)
            if (now.count(name) > c.descriptors_before.count(name) && name != c.line.keeps &&
                names.find(name) == std::string::npos)
                names += " " + name;
        if (names.empty())
            return {};
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return "a descriptor is left open:" + names;
}

// One run with one fault armed; the result is empty or the verdict.
std::string run_with_fault(campaign& c, const std::string& arm, const std::string& call)
{
    std::string answer;
    std::string reply;
    std::string wrong;
    if (!c.phone.ask(arm, answer))
        return "\"" + arm + "\" isn't taken: " + answer;
    std::string late;
    if (!exchange(c.phone, c.line.text, reply, wrong) || !take_late(c.phone, c.line, reply, late, wrong))
        return wrong;
    if (!c.phone.ask("fail off", answer))
        return "the control port: " + answer;
    if (!answer.starts_with("0 "))
        return "the fault was armed and never reached";
    if (c.good_reply.empty() && reply.empty())
        std::swap(reply, late); // it answers later, and what it says then is the answer
    if (!reply.ends_with("\r\n"))
        return "the reply doesn't end: " + shown(reply);
    // What a line that answers at once says late tells of the failure by being something else.
    const bool says_ok = reply.ends_with("OK\r\n") && (late == c.good_late || reply == c.good_late);
    const std::string& good = c.good_reply.empty() ? c.good_late : c.good_reply;
    if (says_ok && good.ends_with("OK\r\n") && !is_harmless(call, c.line.text))
        return "the reply says OK though its call failed: " + shown(reply + late);
    if (!c.line.stores)
        wrong = check_units(c.units_before, c.units_after, read_units(c.phone));
    if (!wrong.empty())
        return wrong;
    if (!exchange(c.phone, "case?", reply, wrong))
        return wrong;
    if (reply != "CASE:false,OK\r\n")
        return "the next line isn't answered right: " + shown(reply);
    return left_open(c);
}

// Starts the phone and brings it to where the line is sent.
std::string start(campaign& c)
{
    std::ofstream conf(c.phone.dir + "/phone.conf");
    for (const std::string& fact : c.line.conf)
        conf << fact << "\n";
    conf.close();
    std::string wrong = c.phone.up();
    std::string answer;
    if (!wrong.empty())
        return wrong;
    // A campaign takes hours of the phone's time, which its battery wouldn't last.
    if (!c.phone.ask("battery 3900 -200", answer) || !c.phone.ask("speed 1000", answer))
        return answer;
    for (const std::string& word : c.line.words)
        if (!c.phone.ask(word, answer))
            return word + ": " + answer;
    if (!c.phone.ask("idle", answer))
        return answer;
    std::string reply;
    port_take(c.phone.port, reply);
    for (const std::string& text : c.line.before)
        if (!exchange(c.phone, text, reply, wrong))
            return wrong;
    return c.phone.ask("calls line", answer) ? "" : answer; // the faults count the calls of lines alone
}

// What the line does when nothing fails.
std::string run_without_fault(campaign& c)
{
    std::string answer;
    std::string wrong;
    c.units_before = read_units(c.phone);
    if (!exchange(c.phone, c.line.text, c.good_reply, wrong) ||
        !take_late(c.phone, c.line, c.good_reply, c.good_late, wrong))
        return wrong;
    c.phone.ask("calls off", answer);
    c.phone.ask("calls text", answer);
    c.calls = split_lines(answer);
    c.units_after = read_units(c.phone);
    c.descriptors_before = descriptors(c.phone);
    return {};
}

std::string restart(campaign& c)
{
    const std::string complaint = c.phone.down();
    return complaint.empty() ? start(c) : "the program complains:\n" + complaint;
}

void report(const torture_line& line, std::size_t number, const std::string& call, bool for_good,
            const std::string& verdict)
{
    std::printf("FAIL %s\n     call %zu, %s, failing %s: %s\n     again: ./hvt torture --call %zu%s '%s'\n",
                line.text.c_str(), number, call.c_str(), for_good ? "for good" : "once", verdict.c_str(),
                number, for_good ? " --for-good" : "", line.text.c_str());
}

// Arms the call at `at` of those that were recorded: by its text, since threads may come in another order.
std::string arming(const std::vector<std::string>& calls, std::size_t at, bool for_good)
{
    if (for_good)
        return "fail " + calls[at] + " all eio";
    const auto nth =
        std::count(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(at) + 1, calls[at]);
    return "fail nth " + std::to_string(nth) + " " + calls[at];
}

struct options {
    std::string lines;
    std::string only;
    std::size_t call = 0;
    bool for_good_only = false;
    bool fixed_part = false;
};

void run_line(const torture_line& line, const options& o, tally& t)
{
    campaign c{{}, line, {}, {}, {}, {}, {}, {}};
    std::string verdict = start(c);
    if (verdict.empty())
        verdict = run_without_fault(c);
    if (!verdict.empty()) {
        std::printf("FAIL %s: %s\n", line.text.c_str(), verdict.c_str());
        t.failed++;
        return;
    }
    std::printf("%s: %zu calls\n", line.text.c_str(), c.calls.size());
    std::set<std::string> for_good_done; // a text that fails for good is the same run each time
    for (std::size_t i = 0; i < c.calls.size(); i++) {
        const std::string& call = c.calls[i];
        // What fails for good fails alike wherever it comes first.
        const auto here = c.calls.begin() + static_cast<std::ptrdiff_t>(i);
        if (line.polled && std::find(c.calls.begin(), here, call) != here)
            continue;
        if (call.find(port_call) != call.npos || (o.call != 0 && o.call != i + 1))
            continue;
        for (const bool for_good : {false, true}) {
            if (for_good ? !for_good_done.insert(call).second : o.for_good_only || line.polled)
                continue;
            verdict.clear();
            const std::string arm = arming(c.calls, i, for_good);
            if (line.fresh)
                verdict = restart(c);
            if (verdict.empty())
                verdict = run_with_fault(c, arm, call);
            t.runs++;
            if (verdict.empty())
                continue;
            t.failed++;
            report(line, i + 1, call, for_good, verdict);
            if (!c.phone.runs())
                return;
            std::string ignored;
            c.phone.ask("fail off", ignored);
        }
    }
    const std::string complaint = c.phone.down();
    if (!complaint.empty()) {
        std::printf("FAIL %s: the program complains:\n%s", line.text.c_str(), complaint.c_str());
        t.failed++;
    }
}

// Rows that no line needs any more; how many.
int report_unused()
{
    int count = 0;
    for (std::size_t i = 0; i < std::size(harmless); i++) {
        if (used[i])
            continue;
        std::printf("FAIL no line needs the harmless row { \"%s\", \"%s\" }\n", harmless[i].call,
                    harmless[i].lines);
        count++;
    }
    return count;
}

// NAME is a command, or a whole line.
bool is_wanted(const torture_line& line, const std::string& name)
{
    return name.empty() || line.text == name || line.text.substr(0, line.text.find_first_of("=?")) == name;
}

bool read_options(int argc, char** argv, options& o)
{
    for (int i = 1; i < argc; i++) {
        if (std::strcmp(argv[i], "--fixed-part") == 0)
            o.fixed_part = true;
        else if (std::strcmp(argv[i], "--for-good") == 0)
            o.for_good_only = true;
        else if (std::strcmp(argv[i], "--call") == 0 && i + 1 < argc)
            o.call = std::strtoul(argv[++i], nullptr, 10);
        else if (argv[i][0] != '-' && argv[i][0] != '\0' && o.only.empty())
            o.only = argv[i];
        else
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    options o;
    const std::string here = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    hvt_virtual = here + "/../phone/hvt-virtual";
    o.lines = std::string(HVT_SOURCE_DIR) + "/tests/torture/lines.txt";
    if (!read_options(argc, argv, o)) {
        std::fputs("usage: ./hvt torture [--for-good] [--call N] [COMMAND | 'LINE']\n", stderr);
        return 2;
    }
    tally t;
    int lines = 0;
    for (const torture_line& line : read_lines(o.lines)) {
        if ((o.fixed_part && !line.fixed_part) || !is_wanted(line, o.only))
            continue;
        lines++;
        run_line(line, o, t);
    }
    if (lines == 0) {
        std::fprintf(stderr, "hvt: no line of tests/torture/lines.txt is of the command \"%s\"\n",
                     o.only.c_str());
        return 2;
    }
    if (o.only.empty() && !o.fixed_part)
        t.failed += report_unused();
    std::printf("%d lines, %d runs: %d passed, %d failed\n", lines, t.runs, t.runs - t.failed, t.failed);
    return t.failed == 0 ? 0 : 1;
}
