#include "core/kept_set.h"

#include <cstring>
#include <sys/epoll.h>
#include <unistd.h>

namespace phone {

kept_set::~kept_set()
{
    forget();
}

bool kept_set::keep(int nfds, const fd_set& wanted, unsigned change)
{
    if (epoll_fd >= 0 && change == kept_change && std::memcmp(&kept, &wanted, sizeof kept) == 0)
        return true;
    forget();
    kept = wanted;
    kept_change = change;
    epoll_fd = epoll_create1(EPOLL_CLOEXEC);
    if (epoll_fd >= 0 && fill(nfds))
        return true;
    forget();
    return false;
}

bool kept_set::fill(int nfds)
{
    for (int fd = 0; fd < nfds; fd++) {
        epoll_event event{};
        event.events = EPOLLIN;
        event.data.fd = fd;
        if (FD_ISSET(fd, &kept) && epoll_ctl(epoll_fd, EPOLL_CTL_ADD, fd, &event) != 0)
            return false;
    }
    return true;
}

int kept_set::wait(fd_set& found) const
{
    constexpr int most = 64; // what doesn't fit in is found the next time
    epoll_event events[most];
    const int n = epoll_wait(epoll_fd, events, most, -1);
    FD_ZERO(&found);
    for (int i = 0; i < n; i++)
        FD_SET(events[i].data.fd, &found);
    return n;
}

void kept_set::forget()
{
    if (epoll_fd >= 0)
        close(epoll_fd);
    epoll_fd = -1;
}

} // namespace phone
