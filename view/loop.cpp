#include "view/loop.h"

#include <cstdint>
#include <map>
#include <memory>
#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace view {

namespace {

int set_fd = -1;
std::map<int, std::shared_ptr<std::function<void()>>> listeners;

} // namespace

bool loop_open()
{
    set_fd = epoll_create1(EPOLL_CLOEXEC);
    return set_fd >= 0;
}

int loop_descriptor()
{
    return set_fd;
}

void loop_add(int fd, std::function<void()> ready)
{
    listeners[fd] = std::make_shared<std::function<void()>>(std::move(ready));
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = fd;
    epoll_ctl(set_fd, EPOLL_CTL_ADD, fd, &event);
}

void loop_drop(int fd)
{
    if (listeners.erase(fd) != 0)
        epoll_ctl(set_fd, EPOLL_CTL_DEL, fd, nullptr);
}

void loop_turn()
{
    epoll_event events[16];
    const int count = epoll_wait(set_fd, events, 16, 0);
    for (int i = 0; i < count; i++) {
        const auto found = listeners.find(events[i].data.fd);
        if (found == listeners.end())
            continue; // dropped by one before it
        const std::shared_ptr<std::function<void()>> p_ready = found->second;
        (*p_ready)();
    }
}

loop_timer::loop_timer(std::function<void()> due)
    : fd(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK))
{
    if (fd < 0)
        return;
    loop_add(fd, [this, due = std::move(due)] {
        std::uint64_t times;
        if (read(fd, &times, sizeof times) != sizeof times)
            return;
        set = false;
        due();
    });
}

loop_timer::~loop_timer()
{
    if (fd < 0)
        return;
    loop_drop(fd);
    close(fd);
}

void loop_timer_set(loop_timer& t, int ms)
{
    itimerspec when{};
    when.it_value = {ms / 1000, ms % 1000 * 1'000'000L + (ms == 0 ? 1 : 0)};
    timerfd_settime(t.fd, 0, &when, nullptr);
    t.set = true;
}

void loop_timer_want(loop_timer& t, int ms)
{
    if (!t.set)
        loop_timer_set(t, ms);
}

} // namespace view
