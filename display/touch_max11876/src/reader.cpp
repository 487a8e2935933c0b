#include "reader.h"

#include <thread>

#include "plat/plat.h"
#include "tmr/tmr.h"
#include "touch_max11876/report_queue.h"

namespace {

constexpr const char* REPORT_PATH = "/sys/bus/i2c/devices/0-0048/report";
constexpr int SILENCE_MS = 2000;
constexpr std::uint32_t START_US = 800; // from its start to the first command

// Waits for a piece of a report and takes it in. Broken, too, when nothing comes.
max11876_feed read_piece(int fd, max11876_report& report)
{
    pollfd waiting = {fd, POLLIN, 0};
    if (plat_poll(&waiting, 1, SILENCE_MS) <= 0)
        return max11876_feed::broken;
    const std::span<char> room = max11876_report_room(report);
    const ssize_t n = plat_read(fd, room.data(), room.size());
    return n <= 0 ? max11876_feed::broken : max11876_report_feed(report, static_cast<std::size_t>(n));
}

void read_reports(int fd)
{
    for (;;) {
        max11876_report report;
        report.fill = 0;
        max11876_feed fed;
        do
            fed = read_piece(fd, report);
        while (fed == max11876_feed::more);
        if (fed == max11876_feed::broken)
            return;
        report_queue_push_back(report);
    }
}

void get_report_thread()
{
    const int fd = plat_open(REPORT_PATH, O_RDONLY | O_CLOEXEC);
    if (fd >= 0) {
        pollfd nothing = {fd, POLLIN, 0};
        plat_poll(&nothing, 1, 0); // a first look, so that the clock knows of this thread
        report_queue_reader_ready();
        read_reports(fd);
        plat_close(fd);
    }
    report_queue_reader_ended();
}

} // namespace

// One that is just ending is started anew.
bool reader_start()
{
    for (int i = 0; i < 2; i++) {
        const bool is_new = report_queue_claim();
        if (is_new)
            std::thread(get_report_thread).detach();
        if (report_queue_wait_ready()) {
            if (is_new)
                tmr_usleep(START_US);
            return true;
        }
        if (is_new)
            return false;
    }
    return false;
}
