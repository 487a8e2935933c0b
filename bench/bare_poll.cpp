// The yardstick of an idle phone: a program that does nothing but what its key poll is made of, a POSIX timer
// that calls a function on a thread of its own every 20 ms, a pipe, and a loop that waits at it.
#include <csignal>
#include <ctime>
#include <sys/select.h>
#include <unistd.h>

namespace {

int ends[2];

void expired(sigval)
{
    [[maybe_unused]] const ssize_t n = write(ends[1], "x", 1);
}

void arm(timer_t timer)
{
    itimerspec time{};
    time.it_value.tv_nsec = 20'000'000;
    timer_settime(timer, 0, &time, nullptr);
}

} // namespace

int main()
{
    sigevent event{};
    event.sigev_notify = SIGEV_THREAD;
    event.sigev_notify_function = expired;
    timer_t timer;
    if (pipe(ends) != 0 || timer_create(CLOCK_MONOTONIC, &event, &timer) != 0)
        return 1;
    for (;;) {
        arm(timer);
        fd_set ready;
        FD_ZERO(&ready);
        FD_SET(ends[0], &ready);
        char byte;
        if (select(ends[0] + 1, &ready, nullptr, nullptr, nullptr) < 0 || read(ends[0], &byte, 1) != 1)
            return 1;
    }
}
