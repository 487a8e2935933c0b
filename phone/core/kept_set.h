// Descriptors that one thread waits at again and again. The kernel keeps them from one wait to the next,
// which costs less than to hand them over each time; an idle phone spends its processor time in such waits.
#pragma once

#include <sys/select.h>

namespace phone {

class kept_set {
public:
    kept_set() = default;
    kept_set(const kept_set&) = delete;
    kept_set& operator=(const kept_set&) = delete;
    ~kept_set();

    // Makes the set what `wanted` says of the descriptors below `nfds`. `change` is another number than the
    // time before when a descriptor may have been closed or exchanged since. False if the kernel can't keep
    // them: one isn't open, or is a plain file.
    bool keep(int nfds, const fd_set& wanted, unsigned change);

    // Waits until one of them can be read or has hung up. As with select, the number of those and the set of
    // them, or -1 and errno.
    int wait(fd_set& found) const;

private:
    bool fill(int nfds);
    void forget();

    int epoll_fd = -1;
    fd_set kept;
    unsigned kept_change = 0;
};

} // namespace phone
