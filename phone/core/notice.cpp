#include "core/notice.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <poll.h>
#include <string>
#include <sys/eventfd.h>
#include <unistd.h>
#include <vector>

#include "core/control.h"
#include "core/text.h"

namespace phone {

namespace {

constexpr std::size_t waiting_limit = 1000;
constexpr std::int64_t longest_wait_ms = 3'600'000;
constexpr const char* kinds[] = {"screen", "log", "word"};

std::mutex notice_mutex; // guards the list and what its watchers hold
std::vector<watcher*> watchers;
std::atomic<bool> watched;

} // namespace

struct watcher {
    std::vector<std::string> wanted;  // kinds; empty: all
    std::vector<std::string> waiting; // each change once, in the order of their first time
    bool lost = false;                // more than fits
    int bell = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);

    watcher()
    {
        const std::lock_guard lock(notice_mutex);
        watchers.push_back(this);
        watched = true;
    }
    ~watcher()
    {
        {
            const std::lock_guard lock(notice_mutex);
            std::erase(watchers, this);
            watched = !watchers.empty();
        }
        if (bell >= 0)
            close(bell);
    }
    watcher(const watcher&) = delete;
    watcher& operator=(const watcher&) = delete;
};

namespace {

void keep_locked(watcher& w, std::string_view change)
{
    const std::string_view kind = change.substr(0, change.find(' '));
    if (!w.wanted.empty() && std::ranges::find(w.wanted, kind) == w.wanted.end())
        return;
    if (std::ranges::find(w.waiting, change) != w.waiting.end())
        return;
    if (w.waiting.size() == waiting_limit)
        w.lost = true;
    else
        w.waiting.emplace_back(change);
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t n = write(w.bell, &one, sizeof one);
}

// Waits for the bell, the time or the end of the connection; false at the last.
bool wait_for_bell(const watcher& w, int connection, int ms)
{
    pollfd fds[2] = {{w.bell, POLLIN, 0}, {connection, POLLRDHUP, 0}};
    while (poll(fds, 2, ms) < 0 && errno == EINTR) {
    }
    std::uint64_t rings;
    [[maybe_unused]] const ssize_t n = read(w.bell, &rings, sizeof rings);
    return fds[1].revents == 0;
}

void take(watcher& w, std::string& answer)
{
    const std::lock_guard lock(notice_mutex);
    for (const std::string& change : w.waiting)
        answer += (answer.empty() ? "" : "\n") + change;
    if (w.lost)
        answer += "\nlost";
    w.waiting.clear();
    w.lost = false;
}

std::string word_watch(request& rq)
{
    if (rq.p_connection == nullptr || rq.p_connection->fd < 0)
        return "only a connection can watch";
    int ms = -1;
    std::vector<std::string> wanted = rq.args;
    if (const auto given = wanted.empty() ? std::nullopt : number(wanted[0])) {
        if (*given < 0 || *given > longest_wait_ms)
            return "0 to 3600000 ms are possible";
        ms = static_cast<int>(*given);
        wanted.erase(wanted.begin());
    }
    for (const std::string& kind : wanted)
        if (std::ranges::find(kinds, kind) == std::end(kinds))
            return "no kind of change is \"" + escaped(kind) + "\"; they are screen, log and word";
    std::shared_ptr<watcher>& p_watcher = rq.p_connection->p_watcher;
    if (p_watcher == nullptr)
        p_watcher = std::make_shared<watcher>();
    if (p_watcher->bell < 0)
        return std::string("no event descriptor can be had: ") + std::strerror(errno);
    {
        const std::lock_guard lock(notice_mutex);
        p_watcher->wanted = wanted;
    }
    take(*p_watcher, rq.answer);
    if (rq.answer.empty() && wait_for_bell(*p_watcher, rq.p_connection->fd, ms))
        take(*p_watcher, rq.answer);
    return {};
}

} // namespace

void notice(std::string_view change)
{
    if (!watched)
        return;
    const std::lock_guard lock(notice_mutex);
    for (watcher* const p_watcher : watchers)
        keep_locked(*p_watcher, change);
}

void notice_attach()
{
    word_add(
        "watch", "[MS] [screen|log|word...]",
        "waits until something has changed since this connection's last watch, at most MS, and lists it: "
        "screen SLOT, log NAME, word REQUEST (what anybody has said here); of the kinds named, or all",
        word_watch);
}

} // namespace phone
