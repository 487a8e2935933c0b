// The sensor's tests from the inside: how a report is put together, what the queue keeps, and one reader at a
// time. The controller's two attributes are a file and a socket of the test's.
#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include "plat_linux/plat_linux.h"
#include "touch_max11876/report_queue.h"
#include "touch_max11876/touch_max11876.h"
#include "touch_v2/touch.h"
#include "unit/plat_fake.h"

namespace {

// Puts a piece of a report in place, as a reading would.
max11876_feed feed(max11876_report& report, const std::string& text)
{
    text.copy(max11876_report_room(report).data(), max11876_report_room(report).size());
    return max11876_report_feed(report, text.size());
}

max11876_feed feed_new(const std::string& text)
{
    max11876_report report;
    report.fill = 0;
    return feed(report, text);
}

std::string frame_text(unsigned counter, const std::string& pixels)
{
    char head[32];
    std::snprintf(head, sizeof head, "080003C20000%04X", counter);
    return head + pixels + "\r\n";
}

std::string repeated(const char* word, std::size_t n)
{
    std::string text;
    for (; n > 0; n--)
        text += word;
    return text;
}

max11876_report numbered(unsigned n)
{
    max11876_report report;
    report.fill = 0;
    char text[16];
    std::snprintf(text, sizeof text, "%04X0000\r\n", n);
    EXPECT_EQ(feed(report, text), max11876_feed::whole);
    return report;
}

int report_end = -1; // the controller's end of the socket
std::atomic<int> readers, most_readers, starts;

int controller_open(const char* path, int flags, mode_t mode)
{
    if (std::string(path).ends_with("/command"))
        return open("/dev/null", O_WRONLY);
    if (!std::string(path).ends_with("/report"))
        return plat_linux_co.open(path, flags, mode);
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends) != 0)
        return -1;
    close(std::exchange(report_end, ends[1]));
    starts++;
    most_readers = std::max(most_readers.load(), ++readers);
    return ends[0] + 1000000;
}

int real(int fd)
{
    return fd >= 1000000 ? fd - 1000000 : fd;
}

int controller_close(int fd)
{
    readers -= fd >= 1000000 ? 1 : 0;
    return close(real(fd));
}

int controller_poll(pollfd* fds, nfds_t count, int timeout_ms)
{
    fds->fd = real(fds->fd);
    return poll(fds, count, timeout_ms);
}

ssize_t controller_read(int fd, void* buf, std::size_t size)
{
    return read(real(fd), buf, size);
}

// A wait that ends with its limit takes a millisecond of the host's.
int quick_wait(std::condition_variable* p_cond, std::unique_lock<std::mutex>* p_lock, const timespec* p_until)
{
    if (p_until == nullptr)
        return plat_linux_co.cond_wait(p_cond, p_lock, nullptr);
    return p_cond->wait_for(*p_lock, std::chrono::milliseconds(1)) == std::cv_status::timeout ? ETIMEDOUT : 0;
}

// Runs a test mode on a text buffer of `size` bytes; the text, or "failed".
std::string run(std::uint32_t mode, std::int32_t frames, std::uint32_t size)
{
    std::string text(size, '?');
    touch_test_mode_rec rec{};
    rec.mode = mode;
    rec.iterations = static_cast<std::uint32_t>(frames);
    rec.buffer = reinterpret_cast<std::uintptr_t>(text.data());
    rec.size = size;
    if (touch_test_mode_secondary(&rec) == 0)
        return rec.result == UINT32_MAX ? "failed" : "?";
    return rec.result == 0 ? std::string(text.c_str()) : "?";
}

} // namespace

TEST(TouchReport, AWholeFrame)
{
    max11876_report report;
    report.fill = 0;
    const std::string text = frame_text(0xBEEF, "8000FFFF7fff" + repeated("0000", 956) + "0001");
    ASSERT_EQ(text.size(), 3858u);
    ASSERT_EQ(feed(report, text), max11876_feed::whole);
    EXPECT_TRUE(max11876_report_is(report, "0800"));
    EXPECT_FALSE(max11876_report_is(report, "0802"));
    EXPECT_EQ(max11876_frame_counter(report), 0xBEEFu);
    EXPECT_EQ(max11876_frame_pixel(report, 0), -32768);
    EXPECT_EQ(max11876_frame_pixel(report, 1), -1);
    EXPECT_EQ(max11876_frame_pixel(report, 2), 32767);
    EXPECT_EQ(max11876_frame_pixel(report, 3), 0);
    EXPECT_EQ(max11876_frame_pixel(report, 959), 1);
}

TEST(TouchReport, PiecesOfAnySize)
{
    const std::string body = frame_text(7, repeated("1234", 960));
    for (const std::size_t piece : {1u, 3u, 7u, 9u, 1000u, 3855u}) {
        max11876_report report;
        report.fill = 0;
        std::size_t at = 0;
        for (; at + piece < body.size() - 2; at += piece)
            ASSERT_EQ(feed(report, body.substr(at, piece) + "\r\n"), max11876_feed::more)
                << piece << " " << at;
        EXPECT_EQ(feed(report, body.substr(at)), max11876_feed::whole) << piece;
        EXPECT_EQ(max11876_frame_pixel(report, 959), 0x1234);
    }
}

TEST(TouchReport, WhatIsBroken)
{
    struct row {
        std::string text;
        max11876_feed wanted;
    };
    const row rows[] = {
        {"01B100010048\r\n", max11876_feed::whole},
        {"01A00000\r\n", max11876_feed::whole},
        {"01A000\r\n", max11876_feed::more}, // no length yet
        {"\r\n", max11876_feed::more},
        {"x", max11876_feed::broken},
        {"", max11876_feed::broken},
        {"01B1000100\r\n", max11876_feed::more},                              // shorter than it says
        {"010003C3" + repeated("0000", 960) + "\r\n", max11876_feed::broken}, // longer than any buffer
        {"0100FFFF\r\n", max11876_feed::broken},
        {"080003C1" + repeated("0000", 961) + "\r\n", max11876_feed::broken},
        {"08000001\r\n", max11876_feed::broken},
        {"010003C2" + repeated("0000", 962) + "\r\n", max11876_feed::whole},
        {"01B1 001\r\n", max11876_feed::broken},
        {"01B10001004g\r\n", max11876_feed::broken},
        {"01B1-0010000\r\n", max11876_feed::broken},
    };
    for (const row& r : rows)
        EXPECT_EQ(feed_new(r.text), r.wanted) << r.text.substr(0, 20);
}

TEST(TouchQueue, KeepsTheNewest31)
{
    plat_fake_reset();
    report_queue_init();
    for (unsigned i = 0; i < 40; i++)
        report_queue_push_back(numbered(i));
    max11876_report report;
    ASSERT_EQ(report_queue_front_timedwait(&report, 0), REPORT_OK);
    EXPECT_TRUE(max11876_report_is(report, "0009")) << "nine of 40 gave way, and looking takes nothing";
    for (unsigned i = 9; i < 40; i++) {
        char id[8];
        std::snprintf(id, sizeof id, "%04X", i);
        ASSERT_EQ(report_queue_pop_front_timedwait(&report, 0), REPORT_OK);
        EXPECT_TRUE(max11876_report_is(report, id));
    }
    EXPECT_EQ(report_queue_pop_front_timedwait(&report, 1000), REPORT_ENDED) << "and nobody reads";
    report_queue_push_back(numbered(1));
    report_queue_empty();
    EXPECT_FALSE(report_queue_pop_front_wait(&report));
}

TEST(TouchQueue, WaitsTakeTheirTimeOrEndWithTheReader)
{
    plat_fake_reset();
    report_queue_init();
    max11876_report report;
    ASSERT_TRUE(report_queue_claim());
    EXPECT_FALSE(report_queue_claim()) << "there is one already";
    report_queue_reader_ready();
    EXPECT_TRUE(report_queue_wait_ready());
    const std::uint64_t before = plat_fake_now_us();
    EXPECT_EQ(report_queue_pop_front_timedwait(&report, 3000), REPORT_TIMEOUT);
    EXPECT_EQ(plat_fake_now_us() - before, 3000u);

    std::thread reader([] {
        for (unsigned i = 0; i < 2000; i++)
            report_queue_push_back(numbered(i));
        report_queue_reader_ended();
    });
    unsigned taken = 0;
    while (report_queue_pop_front_wait(&report))
        taken++;
    reader.join();
    EXPECT_GE(taken, REPORT_QUEUE_MOST);
    EXPECT_TRUE(max11876_report_is(report, "07CF")) << "the last comes out though the reader has ended";
    EXPECT_FALSE(report_queue_wait_ready());
}

TEST(TouchTests, OneReaderAtATimeAndTextsThatAreCut)
{
    plat_fake_reset();
    plat_fake_co.open = controller_open;
    plat_fake_co.close = controller_close;
    plat_fake_co.poll = controller_poll;
    plat_fake_co.read = controller_read;
    plat_fake_co.cond_wait = quick_wait;
    touch_init();
    touch_co co{};
    co.fmid = [](touch_hwinfo* p_info) {
        *p_info = {1, 0x75, 0x12, 1};
        return 1;
    };
    touch_co_attach(&co, 0);
    touch_max11876_init();
    EXPECT_EQ(run(2, 0, 8192).size(), 1920u) << "960 zeros";
    EXPECT_EQ(run(2, 0, 10), "0,0,0,0,0");
    EXPECT_EQ(run(2, 0, 1), "");
    EXPECT_EQ(run(5, 0, 10), "failed");
    EXPECT_EQ(run(11, 0, 10), "failed");
    EXPECT_EQ(starts, 1);
    // the reader ends at an end of file, and each command that follows starts it again
    close(std::exchange(report_end, -1));
    EXPECT_EQ(run(0, 0, 10), "failed") << "no reset is reported";
    EXPECT_GE(starts, 2);
    close(std::exchange(report_end, -1));
    while (!report_queue_claim())
        std::this_thread::yield(); // the last one is on its way out
    report_queue_reader_ended();
    EXPECT_EQ(std::tuple(most_readers.load(), readers.load()), std::tuple(1, 0));
    touch_init();
}
