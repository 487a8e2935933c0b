// The virtual phone by itself: its file tree, shell, faults and clock, through the table that the program
// uses.
#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <poll.h>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "core/clock.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/log.h"
#include "core/table.h"
#include "core/toolbox.h"
#include "core/watch.h"
#include "phone/clock_once.h"
#include "phone/error_of.h"
#include "runner/file_text.h"
#include "runtime/insmod.h"
#include "runtime/tools.h"

using namespace phone;

namespace {

std::string params_of_lamp;

// One phone without program for all tests of the process; CTest runs each test in a process of its own.
struct Phone : testing::Test {
    static std::string dir;

    static void SetUpTestSuite()
    {
        char pattern[] = "/tmp/hvt-phone-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        dir = pattern;
        ASSERT_EQ(home_take(dir), "");
        clock_attach_once();
        log_attach();
        watch_attach();
        toolbox_attach();
        tools_attach();
        insmod_attach();
        module_add("lamp.ko", [](const std::vector<std::string>& params) {
            for (const std::string& param : params)
                params_of_lamp += param + " ";
        });
        tool_add(
            "measure", [](tool_call&) { return file_write("/data/result", "own") ? 0 : 1; }, "/data/result");
        home_seed("/system/modules/lamp.ko", "");
        home_seed("/sys/class/lamp/level", "7\n");
        home_seed("/data/text", "abc");
        home_seed("/data/empty/folder/", "");
        ASSERT_EQ(home_lay_seeds(), "");
    }
    static void TearDownTestSuite() { std::filesystem::remove_all(dir); }

    static std::string content(const std::string& path) { return file_text(dir + "/root" + path); }
    static std::string ask(std::string_view line) { return control_request(line); }
};

std::string Phone::dir;

TEST_F(Phone, NothingOutsideItsTreeCanBeReached)
{
    const std::string root = dir + "/root";
    EXPECT_EQ(host_path("/data/text"), root + "/data/text");
    EXPECT_EQ(host_path("/../../etc/passwd"), root + "/etc/passwd");
    EXPECT_EQ(std::tuple(host_path("data/../../../x"), host_path("/")), std::tuple(root + "/x", root));
    ASSERT_EQ(phone_co.symlink("/etc/passwd", "/data/absolute"), 0);
    ASSERT_EQ(phone_co.symlink("../../../../etc/passwd", "/data/relative"), 0);
    ASSERT_EQ(phone_co.symlink("round", "/data/round"), 0);
    ASSERT_EQ(phone_co.symlink("/data", "/data/self"), 0);
    EXPECT_EQ(host_path("/data/absolute"), root + "/etc/passwd");
    EXPECT_EQ(host_path("/data/relative"), root + "/etc/passwd");
    EXPECT_EQ(host_path("/data/absolute", false), root + "/data/absolute");
    EXPECT_EQ(host_path("/data/self/self/text"), root + "/data/text");
    EXPECT_EQ(error_of(phone_co.open("/data/absolute", O_RDONLY, 0)), ENOENT);
    EXPECT_EQ(error_of(phone_co.open("/data/round", O_RDONLY, 0)), ELOOP);
}

TEST_F(Phone, ASeedMayBeAnEmptyFolder)
{
    EXPECT_TRUE(std::filesystem::is_directory(dir + "/root/data/empty/folder"));
    EXPECT_TRUE(std::filesystem::is_empty(dir + "/root/data/empty/folder"));
}

// The word `where` tells what a request takes a file's name for.
void add_where()
{
    word_add("where", "FILE", "", [](request& rq) {
        rq.answer = request_file(rq, rq.args[0]);
        return std::string();
    });
    control_attach();
}

TEST_F(Phone, FilesOfARequestCountFromTheAskersFolder)
{
    add_where();
    EXPECT_EQ(ask("where a.png"), dir + "/a.png\nok\n");
    connection from;
    EXPECT_EQ(control_request("where b/a.raw", &from), dir + "/b/a.raw\nok\n");
    EXPECT_EQ(control_request("from /some where", &from), "ok\n");
    EXPECT_EQ(control_request("where b/a.raw", &from), "/some where/b/a.raw\nok\n");
    EXPECT_EQ(control_request("where /b/a.raw", &from), "/b/a.raw\nok\n");
    EXPECT_EQ(control_request("from some", &from), "error: the whole path of a folder is wanted\n");
}

TEST_F(Phone, AConnectionThatStaysWithinItsFolderNamesNothingOutside)
{
    add_where();
    connection own;
    EXPECT_EQ(control_request("within /some", &own), "ok\n");
    EXPECT_EQ(control_request("where a.png", &own), "/some/a.png\nok\n");
    EXPECT_EQ(control_request("where /etc/shadow", &own), "/some/etc/shadow\nok\n");
    EXPECT_EQ(control_request("where b/.././../../etc/shadow", &own), "/some/etc/shadow\nok\n");
    EXPECT_EQ(control_request("where b/c/../d.png", &own), "/some/b/d.png\nok\n");
    for (const char* out : {"from /", "within /"})
        EXPECT_EQ(control_request(out, &own), "error: this connection stays within its folder\n") << out;
}

TEST_F(Phone, AttributesBehaveAsTheKernels)
{
    EXPECT_EQ(error_of(phone_co.open("/sys/class/lamp/colour", O_RDWR | O_CREAT, 0666)), ENOENT);
    EXPECT_EQ(ask("strange"), "1 open /sys/class/lamp/colour\nok\n");
    const int fd = phone_co.open("/sys/class/lamp/level", O_RDWR, 0);
    ASSERT_GE(fd, 0);
    EXPECT_EQ(phone_co.write(fd, "1234", 4), 4);
    EXPECT_EQ(phone_co.write(fd, "5", 1), 1);
    EXPECT_EQ(content("/sys/class/lamp/level"), "5");
    EXPECT_EQ(phone_co.close(fd), 0);
    EXPECT_EQ(error_of(phone_co.ioctl(phone_co.open("/data/text", O_RDONLY, 0), 0x1234, nullptr)), ENOTTY);
}

TEST_F(Phone, ShellLines)
{
    struct row {
        const char* line;
        int status;
        const char* text; // of /data/out
    };
    const row rows[] = {
        {"echo a  b > /data/out", 0, "a b\n"},
        {"echo \"a  b\" 'c \"d' >/data/out", 0, "a  b c \"d\n"},
        {"echo -n a\\ b > /data/out; echo c >> /data/out", 0, "a bc\n"},
        {"echo x > /data/out && echo y >> /data/out || echo z >> /data/out", 0, "x\ny\n"},
        {"nosuch > /data/out", 127, ""},
        {"nosuch 2> /data/out || echo z > /data/out", 0, "z\n"},
        {"nosuch && echo z > /data/out2", 127, "z\n"},
        {"echo \"unclosed > /data/out", 2, "z\n"},
        {"echo x >", 2, "z\n"},
        {"echo 3 > /sys/class/lamp/level", 0, "z\n"},
        {"echo 3 > /sys/class/lamp/none", 2, "z\n"},
        {"reboot --now", 1, "z\n"},
        {"/system/bin/echo by path > /data/out", 0, "by path\n"},
        {"/sbin/echo by path > /data/out", 127, ""},
        {"echo \"two\nlines\" > /data/out", 0, "two\nlines\n"},
        {"insmod", 1, "two\nlines\n"},
        {"insmod /system/modules/lamp.ko colour=5 level=2", 0, "two\nlines\n"},
        {"/system/bin/insmod /system/modules/lamp.ko 2> /data/out", 1,
         "insmod: init_module '/system/modules/lamp.ko' failed (File exists)\n"},
        {"echo $HOME `id` $(id) * > /data/out", 0, "$HOME `id` $(id) *\n"},
    };
    for (const row& r : rows) {
        const int status = phone_co.system(r.line);
        EXPECT_EQ(WEXITSTATUS(status), r.status) << r.line;
        EXPECT_EQ(content("/data/out"), r.text) << r.line;
    }
    EXPECT_EQ(content("/sys/class/lamp/level"), "3\n");
    EXPECT_NE(ask("shell 8").find("\n127 /sbin/echo by path > /data/out\n"), std::string::npos);
    EXPECT_NE(ask("shell 8").find("\n0 echo \"two\\nlines\" > /data/out\n"), std::string::npos)
        << "one entry, whatever line ends it has";
    EXPECT_EQ(params_of_lamp, "colour=5 level=2 ");
    EXPECT_TRUE(module_loaded("lamp.ko", "colour=5"));
    EXPECT_FALSE(module_loaded("lamp.ko", "colour=6"));
    EXPECT_FALSE(module_loaded("nosuch.ko"));
    EXPECT_EQ(ask("shell 1"), "0 echo $HOME `id` $(id) * > /data/out\nok\n");
    FILE* stream = phone_co.popen("echo one; echo two", "r");
    char text[32] = {};
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(std::fread(text, 1, sizeof text, stream), 8u);
    EXPECT_STREQ(text, "one\ntwo\n");
    EXPECT_EQ(phone_co.pclose(stream), 0);
}

TEST_F(Phone, TheBenchSaysWhatAToolGives)
{
    const auto printed = [](const char* line) {
        FILE* stream = phone_co.popen(line, "r");
        char text[64] = {};
        const std::size_t n = std::fread(text, 1, sizeof text, stream);
        EXPECT_EQ(phone_co.pclose(stream), 0) << line;
        return std::string(text, n);
    };
    EXPECT_EQ(ask("tool echo -v one\\ttwo  three\\n"), "ok\n");
    EXPECT_EQ(ask("tool echo -q none"), "ok\n");
    EXPECT_EQ(ask("tool measure -f 61"), "ok\n");
    EXPECT_EQ(printed("echo -v"), "one\ttwo  three\n");
    EXPECT_EQ(printed("/system/bin/echo -v more"), "one\ttwo  three\n");
    EXPECT_EQ(printed("echo -q"), "");
    EXPECT_EQ(printed("echo more -v"), "more -v\n") << "its first argument alone counts";
    EXPECT_EQ(printed("measure -f"), "");
    EXPECT_EQ(content("/data/result"), "61");
    EXPECT_EQ(ask("tool measure -f none"), "ok\n");
    printed("measure -f");
    EXPECT_FALSE(std::filesystem::exists(dir + "/root/data/result"));
    EXPECT_EQ(ask("tool"), "echo -v one\\ttwo  three\\n\necho -q none\nmeasure -f none\nok\n");
    EXPECT_EQ(ask("tool off"), "ok\n");
    printed("measure -f");
    EXPECT_EQ(content("/data/result"), "own");
    EXPECT_EQ(printed("echo -q"), "-q\n");
    EXPECT_EQ(ask("tool nosuch -f 1"), "error: no tool has the name nosuch\n");
    EXPECT_EQ(ask("tool echo -f"), "error: NAME ARG TEXT, NAME ARG none, or off is wanted\n");
    path_without("/system/bin/measure");
    EXPECT_EQ(WEXITSTATUS(phone_co.system("measure -f")), 127);
}

TEST_F(Phone, ALogIsCutAtAMebibyteBetweenLines)
{
    const std::string line(1000, 'x');
    for (int i = 0; i < 3000; i++) {
        log_line(log_kmsg, line + std::to_string(i));
        if (i % 100 == 0)
            log_flush();
    }
    log_flush();
    std::ifstream file(dir + "/log/kmsg");
    std::string first;
    std::getline(file, first);
    EXPECT_EQ(first.substr(0, 1000), line) << "begins with a whole line";
    const auto size = std::filesystem::file_size(dir + "/log/kmsg");
    EXPECT_LE(size, 1u << 20);
    EXPECT_GE(size, 1u << 18);
    EXPECT_EQ(ask("kmsg 1"), line + "2999\nok\n");
}

TEST_F(Phone, Faults)
{
    char buf[4] = {};
    const int fd = phone_co.open("/data/text", O_RDWR, 0);
    ASSERT_GE(fd, 0);
    const auto read_first = [&] {
        phone_co.lseek(fd, 0, SEEK_SET);
        return phone_co.read(fd, buf, 3);
    };
    EXPECT_EQ(ask("fail read /data/text 2"), "ok\n");
    EXPECT_EQ(read_first(), -1);
    EXPECT_EQ(errno, EIO);
    EXPECT_EQ(read_first(), -1);
    EXPECT_EQ(read_first(), 3);
    EXPECT_EQ(ask("fail /data/text short"), "ok\n");
    EXPECT_EQ(read_first(), 1);
    EXPECT_EQ(read_first(), 3);
    EXPECT_EQ(ask("fail read all eof"), "ok\n");
    EXPECT_EQ(read_first(), 0);
    EXPECT_EQ(read_first(), 0);
    EXPECT_EQ(ask("fail lseek /other"),
              "note: this phone has no /other; the fault waits until a call names it\nok\n");
    EXPECT_EQ(ask("fail"), "read /data/text, none left, eio, 2 hits\n/data/text, none left, short, 1 hit\n"
                           "read, for good, eof, 2 hits\nlseek /other, 1 left, eio, 0 hits\nok\n");
    EXPECT_EQ(ask("fail off"), "1 fault was never reached: lseek /other\nok\n");
    EXPECT_EQ(read_first(), 3);
    EXPECT_EQ(ask("fail call 3"), "ok\n");
    EXPECT_EQ(read_first(), 3);                     // calls 1 and 2
    EXPECT_EQ(phone_co.lseek(fd, 0, SEEK_SET), -1); // call 3
    EXPECT_EQ(read_first(), 3);
    EXPECT_EQ(ask("fail off"), "0 faults were never reached\nok\n");
    ask("calls on");
    read_first();
    EXPECT_EQ(ask("calls text"), "lseek /data/text\nread /data/text\nok\n");
    EXPECT_EQ(ask("fail"), "nothing is armed\nok\n");
}

TEST_F(Phone, CallsTellTheirResultsAndWhatTheBenchHasDoneToThem)
{
    char buf[4] = {};
    const int fd = phone_co.open("/data/text", O_RDWR, 0);
    ask("fail read /data/text");
    ask("fail read /data/text eof");
    ask("calls on");
    for (int i = 0; i < 3; i++)
        phone_co.read(fd, buf, 3);
    phone_co.open("/data/lacks", O_RDONLY, 0);
    const std::string close_text = "close /data/text = 0\nok\n";
    phone_co.close(fd);
    EXPECT_EQ(ask("calls"), "read /data/text = -1 (EIO, by fail)\nread /data/text = 0 (by fail)\n"
                            "read /data/text = 3\nopen /data/lacks = -1 (ENOENT)\n" +
                                close_text);
    ask("calls off");
    ask("fail off");
}

TEST_F(Phone, TheLogLeavesOutWhatAnIdlePhoneDoes)
{
    ask("log on");
    testing::internal::CaptureStderr();
    for (int i = 0; i < 2; i++) {
        phone_co.open("/data/lacks", O_RDONLY, 0);
        phone_co.timer_delete(nullptr);
        phone_co.access("/data/text", F_OK);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "open /data/lacks = -1 (ENOENT)\naccess /data/text = 0\naccess /data/text = 0\n");
    ask("log line");
    testing::internal::CaptureStderr();
    phone_co.access("/data/text", F_OK);
    watch_command(true);
    phone_co.access("/data/line", F_OK);
    watch_command(false);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "access /data/line = -1 (ENOENT)\n");
    ask("log all");
    testing::internal::CaptureStderr();
    phone_co.timer_delete(nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "timer_delete = -1 (EINVAL)\n");
    ask("log off");
}

TEST_F(Phone, FaultsOfTargetsGoByTheirNumbers)
{
    watch_target_add("mixer", {target_number::decimal});
    watch_target_add("codec", {target_number::hex});
    watch_target_add("bus", {target_number::decimal, target_number::hex2});
    EXPECT_EQ(ask("fail mixer 3"), "ok\n");
    EXPECT_FALSE(watch_target("mixer 36")) << "another number that begins alike";
    EXPECT_TRUE(watch_target("mixer 3"));
    EXPECT_FALSE(watch_target("mixer 3"));
    EXPECT_EQ(ask("fail codec 0x1b4 2 eio"), "ok\n");
    EXPECT_TRUE(watch_target("codec 1B4"));
    EXPECT_TRUE(watch_target("codec 1B4"));
    EXPECT_FALSE(watch_target("codec 1B4"));
    EXPECT_EQ(ask("fail bus 5 f all"), "ok\n");
    EXPECT_TRUE(watch_target("bus 5 0F"));
    EXPECT_FALSE(watch_target("bus 5 F0"));
    EXPECT_TRUE(watch_target("bus 5 0F"));
    EXPECT_EQ(ask("fail off"), "0 faults were never reached\nok\n");
    EXPECT_EQ(ask("fail bus 5 all"), "ok\n");
    EXPECT_TRUE(watch_target("bus 5 F0")) << "all of bus 5";
    EXPECT_FALSE(watch_target("bus 51 F0"));
    EXPECT_EQ(ask("fail bus 5 f once"), "error: \"once\" isn't understood; behind the pattern \"bus 5 0F\" "
                                        "stands [COUNT|all] [eio|short|eof|slow MS]\n");
    EXPECT_EQ(ask("fail off"), "0 faults were never reached\nok\n");
}

TEST_F(Phone, CallsOfALineAreThoseOfItsThreadsToo)
{
    std::atomic<int> stage = 0;
    std::thread old_thread([&] {
        while (stage == 0)
            std::this_thread::yield();
        phone_co.access("/data/old", F_OK);
        stage = 2;
    });
    EXPECT_EQ(ask("calls line"), "ok\n");
    stage = 1;
    while (stage != 2)
        std::this_thread::yield();
    EXPECT_EQ(ask("fail nth 2 access /data/text"), "ok\n");
    int results[3];
    std::thread([&] {
        for (int& result : results)
            result = phone_co.access("/data/text", F_OK);
        phone_co.access("/data/text2", F_OK);
    }).join();
    phone_co.access("/data/text", F_OK); // outside of a line
    EXPECT_EQ(ask("calls text"),
              "access /data/text\naccess /data/text\naccess /data/text\naccess /data/text2\nok\n");
    EXPECT_EQ(std::tuple(results[0], results[1], results[2]), std::tuple(0, -1, 0));
    EXPECT_EQ(ask("fail off"), "0 faults were never reached\nok\n");
    ask("calls on");
    ask("calls off");
    old_thread.join();
}

TEST_F(Phone, WordsRefuseWhatTheyDoNotTake)
{
    const char* const rows[][2] = {
        {"nosuch 1", "no word \"nosuch\"; \"help\" lists them"},
        {"idle now", "idle takes nothing behind it"},
        {"strange on", "off or nothing is wanted"},
        {"kmsg 1 2", "a count of lines from 1 to 100000 is wanted"},
        {"speed 0.5", "a factor from 1 to 1000 is wanted"},
        {"clock +0x-5", "hold, run or +MS with 0 to 2147483647 ms is wanted"},
        {"kmsg -0x-8000000000000000", "a count of lines from 1 to 100000 is wanted"},
        {"clock 5", "hold, run or +MS with 0 to 2147483647 ms is wanted"},
        {"fail read /x 0", "a count from 1, or \"all\", is wanted"},
        {"fail read /x slow", "slow wants 0 to 3600000 ms"},
        {"fail read /x forever", "\"forever\" isn't understood; behind the pattern \"read /x\" stands "
                                 "[COUNT|all] [eio|short|eof|slow MS]"},
        {"fail /x EIO", "\"EIO\" isn't understood; behind the pattern \"/x\" stands "
                        "[COUNT|all] [eio|short|eof|slow MS]"},
        {"fail system reboot -p alll", "\"alll\" isn't understood; behind the pattern \"system reboot -p\" "
                                       "stands [COUNT|all] [eio|short|eof|slow MS]"},
        {"log", "on, line, all or off is wanted"},
        {"calls some", "on, line, off, text or nothing is wanted"},
    };
    for (const auto& [line, reason] : rows)
        EXPECT_EQ(ask(line), "error: " + std::string(reason) + "\n") << line;
    EXPECT_EQ(ask("fail off"), "0 faults were never reached\nok\n");
}

// Expiries in the order in which they came.
struct expiries {
    std::mutex mutex;
    std::vector<int> order;
    void add(int n)
    {
        const std::lock_guard lock(mutex);
        order.push_back(n);
    }
};

TEST_F(Phone, ASteppedClockFiresDeadlinesInTheirOrder)
{
    ask("clock hold");
    const nanoseconds start = clock_now(CLOCK_MONOTONIC);
    expiries seen;
    std::atomic<nanoseconds> woken = 0;
    const int late = clock_timer_create([&] { seen.add(300); });
    const int again = clock_timer_create([&] {
        seen.add(100);
        // Armed by the work of a step, and due within the same move.
        static bool once = false;
        if (!once)
            clock_timer_set(late, 50'000'000, 0);
        once = true;
    });
    const int early = clock_timer_create([&] { seen.add(20); });
    ASSERT_TRUE(clock_timer_set(again, 100'000'000, 0));
    ASSERT_TRUE(clock_timer_set(early, 20'000'000, 0));
    std::thread sleeper([&] {
        const timespec t{0, 120'000'000};
        phone_co.nanosleep(&t, nullptr);
        woken = clock_now(CLOCK_MONOTONIC) - start;
        seen.add(120);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(clock_now(CLOCK_MONOTONIC), start) << "the clock stands";
    EXPECT_EQ(ask("clock +1000"), "ok\n");
    sleeper.join();
    EXPECT_EQ(seen.order, (std::vector<int>{20, 100, 120, 300}));
    EXPECT_EQ(woken, 120'000'000);
    EXPECT_EQ(clock_now(CLOCK_MONOTONIC) - start, 1'000'000'000);
    ask("clock run");
}

TEST_F(Phone, SpeedHoldsForWaitsThatHaveBegun)
{
    const nanoseconds start = clock_now(CLOCK_MONOTONIC);
    const auto host_start = std::chrono::steady_clock::now();
    std::thread sleeper([] {
        const timespec t{100, 0};
        phone_co.nanosleep(&t, nullptr);
    });
    ask("speed 1000");
    sleeper.join();
    EXPECT_GE(clock_now(CLOCK_MONOTONIC) - start, 100'000'000'000);
    EXPECT_LT(std::chrono::steady_clock::now() - host_start, std::chrono::seconds(20));
    ask("speed 1");
}

TEST_F(Phone, ATimerFiresWhileTheExpiryOfAnotherWaits)
{
    std::mutex mutex;
    std::condition_variable changed;
    bool far_fired = false, near_saw_it = false;
    const nanoseconds start = clock_now(CLOCK_MONOTONIC);
    const int far = clock_timer_create([&] {
        const std::lock_guard lock(mutex);
        far_fired = true;
        changed.notify_all();
    });
    const int near = clock_timer_create([&] {
        std::unique_lock lock(mutex);
        EXPECT_LT(clock_now(CLOCK_MONOTONIC) - start, 400'000'000);
        near_saw_it = changed.wait_for(lock, std::chrono::seconds(60), [&] { return far_fired; });
        changed.notify_all();
    });
    clock_timer_set(far, 500'000'000, 0);
    clock_timer_set(near, 900'000'000, 0);
    clock_timer_set(near, 10'000'000, 0);
    std::unique_lock lock(mutex);
    EXPECT_TRUE(changed.wait_for(lock, std::chrono::seconds(60), [&] { return near_saw_it; }));
}

TEST_F(Phone, ATimeOutComesBehindTheExpiriesThatWereDueBeforeIt)
{
    const int fd = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    const int slow = clock_timer_create([fd] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20)); // a busy host
        const std::uint64_t one = 1;
        [[maybe_unused]] const ssize_t n = write(fd, &one, sizeof one);
    });
    clock_set_speed(1000);
    clock_timer_set(slow, 1'000'000, 0);
    pollfd p{fd, POLLIN, 0};
    EXPECT_EQ(clock_poll(&p, 1, 2'000'000'000), 1); // 2 ms of the host
    EXPECT_EQ(p.revents, POLLIN);
    clock_set_speed(1);
    clock_timer_delete(slow);
    close(fd);
}

TEST_F(Phone, TheLoopsWaitKnowsWhichDescriptorsAreOpen)
{
    int ends[2];
    ASSERT_EQ(phone_co.pipe(ends), 0);
    const int fd = ends[0];
    fd_set wanted;
    FD_ZERO(&wanted);
    FD_SET(fd, &wanted);
    const auto wait_readable = [&](int nfds) {
        fd_set found = wanted;
        const int n = phone_co.select(nfds, &found, nullptr, nullptr, nullptr);
        return n == 1 ? FD_ISSET(fd, &found) : n != 0 && errno == EBADF ? -1 : -2;
    };
    // Opens until the number is had again, which another of the phone's threads may have for a moment.
    const auto has_again = [&](auto open, auto close) {
        for (int turn = 0; turn < 1000; turn++, usleep(1000)) {
            if (open() == fd)
                return true;
            close();
        }
        return false;
    };
    const auto open_pipe = [&] { return phone_co.pipe(ends) == 0 ? ends[0] : -1; };
    const auto close_pipe = [&] {
        phone_co.close(ends[0]);
        phone_co.close(ends[1]);
    };
    for (int i = 0; i < 2; i++) {
        ASSERT_EQ(phone_co.write(ends[1], "x", 1), 1);
        EXPECT_EQ(wait_readable(fd + 1), 1) << "round " << i;
        EXPECT_EQ(phone_co.close(ends[0]), 0);
        EXPECT_EQ(wait_readable(fd + 1), -1) << "a closed descriptor";
        EXPECT_EQ(phone_co.close(ends[1]), 0);
        ASSERT_TRUE(has_again(open_pipe, close_pipe));
    }
    phone_co.close(ends[0]);
    int file = -1;
    ASSERT_TRUE(has_again([&] { return file = phone_co.open("/data/text", O_RDONLY, 0); },
                          [&] { phone_co.close(file); }));
    EXPECT_EQ(wait_readable(fd + 1), 1) << "a plain file can always be read";
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const int status = RUN_ALL_TESTS();
    // The phone's threads live on; what they use must not be torn down.
    std::_Exit(status);
}
