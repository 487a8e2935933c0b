// The yardstick of a phone that plays and records: two threads, one that sleeps 1 ms and copies 512 frames
// when so many are free in a ring, one that is woken for each period of 96 frames and copies it, as libasound
// wakes a reader.
#include <cstdint>
#include <cstring>
#include <ctime>
#include <poll.h>
#include <sys/timerfd.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr long rate = 48000;
constexpr long ring = 4096;
constexpr long write_frames = 512;
constexpr long period = 96;
constexpr long period_ns = period * 1'000'000'000 / rate;

std::int16_t memory[4][2 * ring];

long frames_now()
{
    timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return t.tv_sec * rate + t.tv_nsec * rate / 1'000'000'000;
}

void writer()
{
    long written = frames_now() + ring;
    for (;;) {
        const timespec ms = {0, 1'000'000};
        nanosleep(&ms, nullptr);
        while (ring - (written - frames_now()) >= write_frames) {
            std::memcpy(memory[0] + written % ring / write_frames * write_frames, memory[1],
                        2 * write_frames);
            written += write_frames;
        }
    }
}

void reader()
{
    const int timer = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);
    for (long i = 0;; i++) {
        const itimerspec next = {{}, {0, period_ns}};
        timerfd_settime(timer, 0, &next, nullptr);
        pollfd fd = {timer, POLLIN, 0};
        if (poll(&fd, 1, -1) != 1)
            return;
        std::memcpy(memory[2] + i % 32 * 2 * period, memory[3], 4 * period);
    }
}

} // namespace

int main()
{
    std::thread(writer).detach();
    std::thread(reader).detach();
    for (;;)
        pause();
}
