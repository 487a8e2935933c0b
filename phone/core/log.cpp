#include "core/log.h"

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <deque>
#include <fcntl.h>
#include <fstream>
#include <mutex>
#include <sstream>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "core/control.h"
#include "core/home.h"
#include "core/notice.h"
#include "core/text.h"

namespace phone {

namespace {

constexpr std::size_t log_limit = 1 << 20;
constexpr std::size_t log_keep = log_limit / 2;
constexpr std::size_t gather_limit = 64 << 10; // so much is written at once, before its time

std::mutex gather_mutex; // guards what is gathered
std::mutex file_mutex;   // one writer at a time
std::condition_variable gathered;

struct one_log {
    std::string name;
    std::string pending = {}; // guarded by gather_mutex
    std::string writing = {}; // guarded by file_mutex; keeps its room from flush to flush
};
std::deque<one_log> logs = {{"kmsg"}, {"shell"}, {"port"}}; // grows with both mutexes taken

std::string content(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// Leaves the newest whole lines of a log that has grown to `size`. Copies in small pieces: a log must not
// make the program larger.
void cut(const std::string& path, std::size_t size)
{
    static char piece[32768]; // guarded by file_mutex
    const std::string shorter = path + ".new";
    const int from = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const int to = open(shorter.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    bool whole = from >= 0 && to >= 0;
    bool in_line = true; // what comes first is the rest of a line
    ssize_t n = 0;
    auto at = static_cast<off_t>(size - log_keep);
    while (whole && (n = pread(from, piece, sizeof piece, at)) > 0) {
        at += n;
        std::string_view part(piece, static_cast<std::size_t>(n));
        if (in_line)
            part.remove_prefix(std::min(part.find('\n'), part.size() - 1) + 1);
        in_line = in_line && part.empty();
        whole = write(to, part.data(), part.size()) == static_cast<ssize_t>(part.size());
    }
    for (const int fd : {from, to})
        if (fd >= 0)
            close(fd);
    if (!whole || n < 0 || rename(shorter.c_str(), path.c_str()) != 0)
        unlink(shorter.c_str());
}

void append(const one_log& log, const std::string& text)
{
    const std::string path = home_path("log/" + log.name);
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (fd < 0)
        return;
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t n = write(fd, text.data() + done, text.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break; // a full disk: the phone goes on without its log
        done += static_cast<std::size_t>(n);
    }
    struct stat st {};
    fstat(fd, &st);
    close(fd);
    if (static_cast<std::size_t>(st.st_size) > log_limit)
        cut(path, static_cast<std::size_t>(st.st_size));
}

void writer()
{
    for (;;) {
        {
            std::unique_lock lock(gather_mutex);
            gathered.wait(lock, [] {
                return std::ranges::any_of(logs, [](const one_log& log) { return !log.pending.empty(); });
            });
            gathered.wait_for(lock, std::chrono::milliseconds(20), [] {
                return std::ranges::any_of(
                    logs, [](const one_log& log) { return log.pending.size() > gather_limit; });
            });
        }
        log_flush();
    }
}

std::string word_log(request& rq)
{
    std::int64_t count = 20;
    if (!rq.args.empty()) {
        const auto given = number(rq.args[0]);
        if (rq.args.size() > 1 || !given || *given < 1 || *given > 100000)
            return "a count of lines from 1 to 100000 is wanted";
        count = *given;
    }
    rq.answer = log_tail(log_named(rq.word), static_cast<std::size_t>(count));
    return {};
}

// An entry is one line, whatever it holds.
void append_entry(std::string& text, std::string_view line)
{
    for (std::size_t end; (end = line.find_first_of("\r\n")) != line.npos; line.remove_prefix(end + 1))
        text.append(line.substr(0, end)).append(line[end] == '\n' ? "\\n" : "\\r");
    text.append(line).push_back('\n');
}

} // namespace

log_id log_add(std::string_view name, std::string_view help)
{
    word_add(name, "[COUNT]", help, word_log);
    const std::scoped_lock lock(file_mutex, gather_mutex);
    logs.push_back({std::string(name)});
    return logs.size() - 1;
}

log_id log_named(std::string_view name)
{
    const std::lock_guard lock(gather_mutex);
    const auto found = std::ranges::find(logs, name, &one_log::name);
    return found != logs.end() ? static_cast<log_id>(found - logs.begin()) : log_kmsg;
}

void log_line(log_id log, std::string_view line)
{
    const std::lock_guard lock(gather_mutex);
    std::string& text = logs[log].pending;
    const bool was_small = text.size() <= gather_limit;
    const bool was_empty = text.empty();
    if (text.size() < log_limit) // a writer that can't keep up must not eat the memory
        append_entry(text, line);
    if (was_empty || (was_small && text.size() > gather_limit))
        gathered.notify_one();
}

void log_flush()
{
    if (home_is_first_start())
        return; // there is no folder for it yet
    const std::lock_guard files(file_mutex);
    for (one_log& log : logs) {
        {
            const std::lock_guard lock(gather_mutex);
            log.writing.swap(log.pending);
        }
        if (!log.writing.empty()) {
            append(log, log.writing);
            notice("log " + log.name);
        }
        log.writing.clear();
    }
}

std::string log_tail(log_id log, std::size_t count)
{
    log_flush();
    std::string all = content(home_path("log/" + logs[log].name));
    if (all.ends_with('\n'))
        all.pop_back();
    std::size_t at = all.size();
    while (count-- > 0 && at != all.npos && at > 0)
        at = all.rfind('\n', at - 1);
    return at == all.npos ? all : all.substr(all.empty() || at == 0 ? 0 : at + 1);
}

void log_attach()
{
    word_add("kmsg", "[COUNT]", "the last lines of the kernel log", word_log);
    word_add("shell", "[COUNT]", "the last shell lines, each behind its exit status", word_log);
    word_add("port", "[COUNT]", "what crossed the station's port last: < from the station, > to it",
             word_log);
    std::thread(writer).detach();
}

} // namespace phone
