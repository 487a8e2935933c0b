// The trace: what a line looks like, where it goes, when the log goes to the archive. Log, archive, kernel
// log and socket are files of the test's.
#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include "file_linux/file_linux.h"
#include "runner/file_text.h"
#include "tmr/tmr.h"
#include "trc/trc.h"
#include "trc/trc_nodes.h"
#include "unit/plat_fake.h"

namespace {

constexpr const char* log_path = "/system/trclog.txt";
constexpr const char* archive_path = "/system/trclog.gz";
constexpr const char* kmsg_path = "/dev/kmsg";
constexpr const char* socket_path = "/dev/trcsocket";

std::string folder;
std::map<std::string, int> opens;   // of each path
std::map<std::string, int> refused; // the result that an opening of it gives
std::vector<int> closed;
bool writes_fail;
std::string printed;

std::string host(const char* path)
{
    std::string name = path;
    for (char& c : name)
        c = c == '/' ? '_' : c;
    return folder + "/" + name;
}

int spy_open(const char* path, int flags, mode_t mode)
{
    opens[path]++;
    const auto it = refused.find(path);
    const int node_flags = std::string(path).starts_with("/dev/") ? O_APPEND : 0;
    return it != refused.end() ? it->second : open(host(path).c_str(), flags | node_flags, mode);
}

int spy_close(int fd)
{
    closed.push_back(fd);
    return fd > 2 ? close(fd) : 0;
}

ssize_t spy_write(int fd, const void* p, std::size_t size)
{
    return writes_fail ? -1 : write(fd, p, size);
}

void spy_print(const char* text, int len)
{
    EXPECT_EQ(std::string(text).size(), static_cast<std::size_t>(len));
    printed += text;
}

std::string content(const char* path)
{
    return file_text(host(path));
}

std::string archived()
{
    file_uncompress(archive_path, "/plain");
    return content("/plain");
}

// Bytes used and left of the buffer.
std::pair<std::size_t, std::size_t> sizes()
{
    std::size_t used, left;
    trc_get_buf_sz(&used, &left);
    return {used, left};
}

std::string buffer()
{
    return {trc_get_buf_start(), sizes().first};
}

class Trace : public testing::Test {
protected:
    void SetUp() override
    {
        plat_fake_reset();
        char name[] = "/tmp/trcXXXXXX";
        folder = mkdtemp(name);
        for (const char* path : {kmsg_path, socket_path})
            std::ofstream(host(path)).flush();
        plat_fake_co.open = spy_open;
        plat_fake_co.close = spy_close;
        plat_fake_co.write = spy_write;
        plat_fake_co.unlink = [](const char* path) { return unlink(host(path).c_str()); };
        plat_fake_co.stat = [](const char* path, struct stat* p_out) {
            return stat(host(path).c_str(), p_out);
        };
        plat_fake_co.host_path = [](const char* path) { return host(path); };
        tmr_init();
        trc_mask_filter(0x0B);
        trc_init(memory.data(), memory.size());
        trc_print_co_attach(spy_print);
        trc_reg(&client, &node);
        refused.clear();
        opens.clear();
        closed.clear();
        printed.clear();
        writes_fail = false;
    }
    void TearDown() override
    {
        trc_mode_set(TRC_MODE_BUFFER);
        trc_usermode_if_attach(nullptr);
        std::system(("rm -r " + folder).c_str());
    }

    std::array<char, 4096> memory{};
    trc_client client{"aclmr", 0x0B};
    trc_node node{};
};

using list = std::vector<std::string>;

} // namespace

TEST_F(Trace, TheHeadSaysWhoAndWhen)
{
    trc_mode_set(TRC_MODE_BUFFER);
    plat_fake_advance_us(12'000'345);
    EXPECT_EQ(trc_trace(&node, 0x02, "a.cpp", 7, "x=%d", 5), 26);
    EXPECT_EQ(buffer(), "[   12.000345] aclmr: x=5\n") << "seconds in five places";
}

TEST_F(Trace, ErrorComesBeforeTheKernelLog)
{
    trc_mode_set(TRC_MODE_BUFFER);
    EXPECT_EQ(trc_trace(&node, 0x01, "a.cpp", 7, "no"), 18);
    EXPECT_EQ(buffer(), "a.cpp:7: error no\n");
    trc_trace(&node, 0x09, "a.cpp", 8, "both\n");
    trc_trace(&node, 0x08, "a.cpp", 9, "log");
    EXPECT_EQ(content(kmsg_path), "a.cpp:8: error both\nQAT: aclmr: log\n");
    EXPECT_EQ(opens[kmsg_path], 2) << "a fresh opening for each";
    EXPECT_EQ(buffer(), "a.cpp:7: error no\n");

    refused[kmsg_path] = -1;
    trc_trace(&node, 0x08, "a.cpp", 9, "back");
    EXPECT_EQ(buffer(), "a.cpp:7: error no\nQAT: aclmr: back\n") << "the mode's own destination";
}

TEST_F(Trace, InTheKernelLogsModeNothingIsOpenedForALine)
{
    trc_mode_set(TRC_MODE_KMSG);
    trc_trace(&node, 0x08, "a.cpp", 1, "one");
    trc_trace(&node, 0x02, "a.cpp", 2, "two");
    EXPECT_EQ(content(kmsg_path), "QAT: aclmr: one\nQAT: aclmr: two\n");
    EXPECT_EQ(opens[kmsg_path], 1);
}

TEST_F(Trace, AMaskThatHasNothingInCommonWritesNothing)
{
    trc_mode_set(TRC_MODE_PRINT);
    EXPECT_EQ(trc_trace(&node, 0x04, "a.cpp", 1, "x"), 0);
    trc_trace_binary(&node, 0x04, "x", 1);
    EXPECT_EQ(printed, "");
    trc_mask_filter(0);
    EXPECT_GT(trc_trace(&node, 0x02, "a.cpp", 1, "x"), 0) << "the global filter acts at registration alone";
}

TEST_F(Trace, TheGlobalFilterCutsWhatIsRegistered)
{
    EXPECT_EQ(trc_mask_filter(0x06), 0x0Bu);
    trc_client late{"late", 0x03}, upper{"Upper", 0x03};
    trc_node late_node{}, upper_node{};
    trc_reg(&late, &late_node);
    trc_reg(&upper, &upper_node);
    EXPECT_EQ(std::tuple(late.mask, client.mask), std::tuple(0x02u, 0x0Bu));

    trc_do_set(nullptr, trc_client_list(), "la", 0x40);
    EXPECT_EQ(std::tuple(late.mask, client.mask), std::tuple(0x40u, 0x0Bu));

    EXPECT_EQ(trc_mask_filter_all(0x10), 0x06u);
    EXPECT_EQ(std::tuple(late.mask, client.mask), std::tuple(0x10u, 0x10u));
    EXPECT_EQ(upper.mask, 0x02u) << "only names that begin with a to z";
    EXPECT_EQ(trc_mask_filter(0), 0x10u);

    trc_dereg(&late_node);
    EXPECT_EQ(dlnk_next(trc_client_list()), &node.link);
    EXPECT_EQ(dlnk_next(&node.link), &upper_node.link);
    trc_reg(&late, &late_node);
    EXPECT_EQ(dlnk_prev(trc_client_list()), &late_node.link);
}

TEST_F(Trace, ALineAtTheLimit)
{
    // "[    0.000000] aclmr: " has 22 characters, so 1000 more are 1022
    trc_mode_set(TRC_MODE_PRINT);
    const std::string full(1000, 'f');
    const std::string head = "[    0.000000] aclmr: ";
    struct row {
        std::string text, wanted;
    };
    const row rows[] = {
        {full.substr(1) + "\n", full.substr(1) + "\n"},
        {full.substr(1), full.substr(1) + "\n"},
        {full, full + "\n"},
        {full + "\n", full + "\n"},
        {full + "g", full + "\n"},
        {full.substr(1) + "\nrest", full.substr(1) + "\n"},
        {std::string(5000, 'f'), full + "\n"},
        {"", "\n"},
    };
    for (const row& r : rows) {
        printed.clear();
        EXPECT_EQ(trc_trace(&node, 0x02, "a.cpp", 1, "%s", r.text.c_str()),
                  static_cast<int>(head.size() + r.wanted.size()));
        EXPECT_EQ(printed, head + r.wanted) << r.text.size();
    }
    printed.clear();
    const std::string file(3000, 'd');
    EXPECT_EQ(trc_trace(&node, 0x01, file.c_str(), 1, "text"), 1023);
    EXPECT_EQ(printed, file.substr(0, 1022) + "\n") << "the head counts too";

    printed.clear();
    client.name = file.c_str();
    EXPECT_EQ(trc_trace(&node, 0x02, "a.cpp", 1, "text"), 1023);
    EXPECT_EQ(printed.substr(0, 20), head.substr(0, 15) + "ddddd");
}

TEST_F(Trace, TheBufferDropsWholeLinesAndDoesntWrap)
{
    trc_mode_set(TRC_MODE_BUFFER);
    using pair = std::pair<std::size_t, std::size_t>;
    EXPECT_EQ(sizes(), pair(0, 4096));
    // 4 lines of 1000, then 96 bytes are free: a line of 96 doesn't go in, one of 95 does
    const auto line = [&](int length) { trc_trace(&node, 0x01, "f", 1, "%*d", length - 12, 0); };
    for (int i = 0; i < 4; i++)
        line(1000);
    line(96);
    EXPECT_EQ(sizes(), pair(4000, 96));
    line(95);
    EXPECT_EQ(sizes(), pair(4095, 1));
    trc_clear_buf();
    EXPECT_EQ(sizes(), pair(0, 4096));
}

TEST_F(Trace, DumpsHaveRowsOfSixteen)
{
    trc_mode_set(TRC_MODE_PRINT);
    trc_trace_binary(&node, 0x02, "", 0);
    EXPECT_EQ(printed, "");
    trc_trace_binary(&node, 0x02, "0123456789abcdef", 16);
    EXPECT_EQ(printed, "0x00000000: 30 31 32 33 34 35 36 37 38 39 61 62 63 64 65 66 0123456789abcdef\n");
    printed.clear();
    trc_trace_binary(&node, 0x02,
                     "~ !\x7F\x80\xFF\x1F"
                     "7890123456a\n",
                     18);
    EXPECT_EQ(printed, "0x00000000: 7e 20 21 7f 80 ff 1f 37 38 39 30 31 32 33 34 35 ~.!....789012345\n"
                       "0x00000010: 36 61" +
                           std::string(42, ' ') + " 6a\n");
    trc_trace_binary(&node, 0x08, "k", 1);
    EXPECT_EQ(content(kmsg_path), "0x00000000: 6b" + std::string(45, ' ') + " k\n");
}

TEST_F(Trace, TheLogGoesToTheArchiveBeyond256KiB)
{
    // one line of 13 + 242 + 1 = 256 bytes, 1024 of them are 256 KiB
    const auto line = [&] { return trc_trace(&node, 0x01, "f", 1, "%0244d", 0); };
    ASSERT_EQ(line(), 256);
    for (int i = 1; i < 1024; i++)
        line();
    EXPECT_EQ(std::tuple(content(log_path).size(), content(archive_path)), std::tuple(256u * 1024, ""));
    trc_trace(&node, 0x01, "f", 1, "over");
    EXPECT_EQ(content(log_path), "");
    const std::string first = archived();
    EXPECT_EQ(first.size(), 256u * 1024 + 16);
    EXPECT_EQ(first.substr(256 * 1024), "f:1: error over\n");
    trc_trace(&node, 0x01, "f", 1, "new");
    EXPECT_EQ(content(log_path), "f:1: error new\n") << "a fresh log has no earlier text";
}

TEST_F(Trace, AnOldLogAndALargeArchiveAreSeenAtTheStart)
{
    struct row {
        long archive;
        bool begins_anew;
    };
    for (const row& r : {row{0xC0000, false}, row{0xC0001, true}}) {
        trc_mode_set(TRC_MODE_BUFFER);
        std::ofstream(host(archive_path)) << std::string(static_cast<std::size_t>(r.archive), 'a');
        std::ofstream(host(log_path)) << std::string(0x40000, 'l');
        trc_mode_set(TRC_MODE_FILE);
        trc_trace(&node, 0x01, "f", 1, "x");
        EXPECT_EQ(content(log_path), "");
        const std::string archive = content(archive_path);
        EXPECT_EQ(archive[0] == 'a', !r.begins_anew) << r.archive;
        EXPECT_GT(archive.size(), r.begins_anew ? 20u : 0xC0000u);
    }
}

TEST_F(Trace, FailedWritesAndALogThatCantBeMadeAnew)
{
    writes_fail = true;
    for (int i = 0; i < 20; i++)
        EXPECT_EQ(trc_trace(&node, 0x01, "f", 1, "lost"), 16);
    EXPECT_EQ(opens.count(archive_path), 0u) << "no rotation";
    writes_fail = false;
    // 20 failures took 20 off, so that 256 KiB and 16 bytes still stay in the log
    for (int i = 0; i < 1024; i++)
        trc_trace(&node, 0x01, "f", 1, "%0244d", 0);
    trc_trace(&node, 0x01, "f", 1, "stay");
    EXPECT_EQ(content(log_path).size(), 256u * 1024 + 16);
    trc_trace(&node, 0x01, "f", 1, "away");
    EXPECT_EQ(content(log_path), "");

    for (int i = 0; i < 1024; i++)
        trc_trace(&node, 0x01, "f", 1, "%0244d", 0);
    refused[log_path] = -1;
    EXPECT_EQ(trc_trace(&node, 0x01, "f", 1, "x"), 13);
    EXPECT_EQ(trc_trace(&node, 0x01, "f", 1, "gone"), 16);
    refused.clear();
    trc_mode_set(TRC_MODE_FILE);
    trc_trace(&node, 0x01, "f", 1, "here");
    EXPECT_EQ(content(log_path), "") << "the old log stood, too large, and is rotated";
    const std::string archive = archived();
    EXPECT_TRUE(archive.ends_with("f:1: error x\nf:1: error here\n"));
}

TEST_F(Trace, EachModeIsEnteredAndLeft)
{
    static int um_open;
    static std::string um;
    static const trc_usermode_co um_co = {[] {
                                              um += "open ";
                                              return um_open;
                                          },
                                          [] { um += "close "; }, [](const char* text, int) { um += text; }};
    struct row {
        unsigned from, to, wanted;
        bool fails;
    };
    const row rows[] = {
        // from, to, then, the opening fails
        {0, 1, 1, false}, {1, 5, 5, false}, {5, 0, 0, false}, {0, 2, 2, false}, {2, 3, 3, false},
        {3, 4, 4, false}, {4, 6, 6, false}, {6, 1, 1, false}, {1, 7, 1, false}, {5, 7, 5, false},
        {0, 7, 0, false}, {2, 7, 0, false}, {3, 7, 0, false}, {4, 7, 0, false}, {6, 7, 0, false},
        {1, 2, 1, true},  {5, 3, 5, true},  {0, 4, 0, true},  {1, 6, 1, true},  {2, 2, 0, true},
        {3, 4, 0, true},  {4, 6, 0, true},  {6, 3, 0, true},  {2, 1, 1, true},
    };
    trc_mode_set(TRC_MODE_BUFFER);
    trc_mode_set(TRC_MODE_USER);
    EXPECT_EQ(trc_mode_get(), 0u) << "no interface is attached";
    trc_usermode_if_attach(&um_co);
    for (const row& r : rows) {
        refused.clear();
        um_open = 1;
        trc_mode_set(r.from);
        ASSERT_EQ(trc_mode_get(), r.from);
        if (r.fails)
            refused = {{log_path, -1}, {kmsg_path, -1}, {socket_path, 0}};
        um_open = r.fails ? 0 : 1;
        closed.clear();
        um.clear();
        trc_mode_set(r.to);
        EXPECT_EQ(trc_mode_get(), r.wanted) << r.from << " to " << r.to;
        if (r.from >= 2 && r.from <= 4) {
            EXPECT_GE(closed.size(), 1u);
        }
        if (r.from == 6) {
            EXPECT_EQ(um.substr(0, 6), "close ");
        }
        if (r.fails && r.to == 4) {
            EXPECT_EQ(closed.back(), 0) << "descriptor 0 counts as failed";
        }
    }
    refused.clear();
    trc_mode_set(TRC_MODE_SOCKET);
    trc_trace(&node, 0x01, "f", 1, "socket");
    EXPECT_EQ(content(socket_path), "f:1: error socket\n");
    um_open = 1;
    um.clear();
    trc_mode_set(TRC_MODE_USER);
    trc_trace(&node, 0x01, "f", 1, "user");
    EXPECT_EQ(um, "open f:1: error user\n");
    trc_mode_set(TRC_MODE_PRINT2);
    trc_trace(&node, 0x01, "f", 1, "print");
    EXPECT_EQ(printed, "f:1: error print\n");
}

TEST_F(Trace, LinesOfThreadsStayWhole)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; t++)
        threads.emplace_back([&, t] {
            for (int i = 0; i < 3000; i++)
                trc_trace(&node, 0x01, "f", t, "%0*d", 40 + t, t);
        });
    for (std::thread& thread : threads)
        thread.join();
    // the log is rotated once on the way: nothing is lost
    std::istringstream lines(archived() + content(log_path));
    std::map<std::string, int> counts;
    for (std::string line; std::getline(lines, line);)
        counts[line]++;
    EXPECT_EQ(counts.size(), 4u);
    for (const auto& [line, count] : counts)
        EXPECT_EQ(count, 3000) << line;
}

TEST(TraceDeath, ANodeWithoutAndWithAClient)
{
    trc_node node{};
    trc_client client{"x", 1};
    EXPECT_EXIT(trc_trace(&node, 1, "f", 1, "x"), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(
        {
            trc_reg(&client, &node);
            trc_reg(&client, &node);
        },
        testing::ExitedWithCode(1), "");
    EXPECT_EXIT(trc_mode_set(8), testing::ExitedWithCode(1), "");
    static_assert(sizeof trc_pool == 131072);
    EXPECT_EQ(trc_hdmi_msm_node.p_client, nullptr);
}
