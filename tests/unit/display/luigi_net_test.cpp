// The scripts' bridge to another instance, against a peer that answers in every way that a network can; and
// the queue before the scripts, when it is full.
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "cfg/cfg.h"
#include "dcp/dcp.h"
#include "luigi/luigi.h"
#include "runner/file_text.h"
#include "unit/plat_fake.h"

namespace {

using namespace std::chrono_literals;

struct piece {
    std::chrono::milliseconds after;
    std::string bytes;
};

struct exchange {
    std::string command; // what the peer must read, without its line feed
    std::vector<piece> answer;
    bool closes;
};

const std::vector<exchange> exchanges = {
    {"a=1", {{0ms, "A:123,OK\r\n"}}, false},
    {"b?", {{0ms, "B:1"}, {20ms, ",2,E"}, {20ms, "RROR\r\n"}}, false},
    {"c", {{0ms, "123 OK\n"}}, false},
    {"d", {{0ms, "OK\r\n"}}, false},
    {"e1", {{0ms, "NOT FOUND\r\n"}}, false},
    {"e2", {{0ms, "e2 usage,SYNTAX\r\n"}}, false},
    {"e3", {{0ms, "BLOCKED\r\n"}}, false},
    {"f", {{0ms, "hello\r\n"}}, false},
    {"late", {{130ms, "LATE:1,OK\r\n"}}, false},
    {"g", {{0ms, "G:7,OK\r\n"}}, false},
    {"long", {{0ms, std::string(1500, 'x') + ",OK\r\n"}}, false},
    {"h", {{0ms, "H:8,OK\r\n"}}, false},
    {"gone", {{0ms, "half an ans"}}, true},
};

const char* const script = R"(
local results = {}
local function run(command)
  local r = table.pack(qat(command))
  for i = 1, r.n do r[i] = tostring(r[i]) end
  results[#results + 1] = command .. '|' .. table.concat(r, '|', 1, r.n)
end
local function wait(seconds)
  local t = os.clock()
  while os.clock() - t < seconds do end
end
for _, c in ipairs({'a=1', 'b?', 'c', 'd', 'e1', 'e2', 'e3', 'f', 'late'}) do run(c) end
wait(0.1)
run('g') run('long')
wait(0.02)
run('h') run('gone') run('after')
local f = io.open(OUT .. '.part', 'w')
f:write(table.concat(results, '\n'))
f:close()
os.rename(OUT .. '.part', OUT)
)";

// Reads one line and gives it without its line feed.
std::string read_line(int fd)
{
    std::string line;
    for (char c; read(fd, &c, 1) == 1 && c != '\n';)
        line += c;
    return line;
}

void serve(int listener)
{
    const int fd = accept(listener, nullptr, nullptr);
    for (const exchange& e : exchanges) {
        EXPECT_EQ(read_line(fd), e.command);
        for (const piece& p : e.answer) {
            std::this_thread::sleep_for(p.after);
            EXPECT_EQ(write(fd, p.bytes.data(), p.bytes.size()), static_cast<ssize_t>(p.bytes.size()));
        }
        if (e.closes)
            break;
    }
    close(fd);
}

int listen_somewhere(int& port)
{
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in addr{};
    addr.sin_family = AF_INET;
    addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof addr;
    EXPECT_EQ(bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);
    EXPECT_EQ(listen(fd, 1), 0);
    EXPECT_EQ(getsockname(fd, reinterpret_cast<sockaddr*>(&addr), &size), 0);
    port = ntohs(addr.sin_port);
    return fd;
}

std::string wait_for_file(const std::string& path)
{
    for (int turn = 0; turn < 4000 && !std::filesystem::exists(path); turn++)
        std::this_thread::sleep_for(5ms);
    return file_text(path);
}

// The thread lives as long as the process.
void init_once()
{
    static const bool done = (luigi_init(), true);
    EXPECT_TRUE(done);
}

int send(std::uint32_t type, std::uintptr_t a)
{
    luigi_message msg{};
    msg.type = type;
    msg.a = a;
    return luigi_send_message(&msg);
}

void send_script(std::uint32_t type, const std::string& path)
{
    ASSERT_EQ(send(type, reinterpret_cast<std::uintptr_t>(strdup(path.c_str()))), 1);
}

} // namespace

TEST(LuigiNet, AnswersOfEveryKind)
{
    plat_fake_reset();
    cfg_init();
    int port = 0;
    const int listener = listen_somewhere(port);
    cfg_set_str("luigi", "net_cmd_ip", "127.0.0.1");
    cfg_set_int("luigi", "net_cmd_port", static_cast<std::uint32_t>(port));
    const std::string base = ::testing::TempDir() + "luigi_net_" + std::to_string(getpid());
    std::ofstream(base + ".lua") << "local OUT = '" << base << ".out'\n" << script;

    std::thread peer(serve, listener);
    init_once();
    send_script(LUIGI_MSG_START, base + ".lua");
    EXPECT_EQ(wait_for_file(base + ".out"), "a=1|OK|A:123\n"
                                            "b?|ERROR|B:1,2\n"
                                            "c|OK|123\n"
                                            "d|OK|\n"
                                            "e1|NOT FOUND|nil\n"
                                            "e2|SYNTAX|nil\n"
                                            "e3|BLOCKED|nil\n"
                                            "f|UNKNOWN|nil\n"
                                            "late|nil\n"
                                            "g|OK|G:7\n"
                                            "long|UNKNOWN|nil\n"
                                            "h|OK|H:8\n"
                                            "gone|nil\n"
                                            "after|nil");
    peer.join();
    close(listener);
    // The lookup of a name that is none leaves a bridge that gives nil, a refused connection none at all.
    const std::string no_name(300, 'a');
    for (const auto& [ip, wanted] : {std::pair(no_name.c_str(), "nil"), std::pair("127.0.0.1", "no qat")}) {
        std::ofstream(base + ".lua") << "local f = io.open('" << base << ".part', 'w') f:write(qat and "
                                     << "tostring(qat('x')) or 'no qat') f:close() os.rename('" << base
                                     << ".part', '" << base << ".2')";
        send_script(LUIGI_MSG_STOP, base + ".lua"); // ends the menu before
        wait_for_file(base + ".2");
        std::filesystem::remove(base + ".2");
        cfg_set_str("luigi", "net_cmd_ip", ip);
        send_script(LUIGI_MSG_START, base + ".lua");
        EXPECT_EQ(wait_for_file(base + ".2"), wanted) << ip;
        std::filesystem::remove(base + ".2");
    }
    std::filesystem::remove(base + ".lua");
    std::filesystem::remove(base + ".out");
}

TEST(LuigiQueue, FullHoldsTheSenderForAShortTimeAndHasRoomForAStop)
{
    plat_fake_reset();
    dcp_init();
    cfg_init();
    const std::string base = ::testing::TempDir() + "luigi_queue_" + std::to_string(getpid());
    std::ofstream(base + ".lua") << "io.open('" << base << ".runs', 'w'):close() "
                                 << "while not io.open('" << base << ".go') do end";
    std::ofstream(base + ".stop.lua") << "os.rename('" << base << ".runs', '" << base << ".stopped')";
    init_once();
    send_script(LUIGI_MSG_STOP, base + ".stop.lua"); // ends a menu that another test has left
    send_script(LUIGI_MSG_START, base + ".lua");
    wait_for_file(base + ".runs");

    const std::uint64_t begin = plat_fake_now_us();
    for (int i = 0; i < 49; i++)
        ASSERT_EQ(send(LUIGI_MSG_KEY, 114), 1) << i;
    EXPECT_EQ(plat_fake_now_us(), begin);
    EXPECT_EQ(send(LUIGI_MSG_KEY, 114), -1);
    const std::uint64_t waited = plat_fake_now_us() - begin;
    EXPECT_GT(waited, 5'000'000u);
    EXPECT_LT(waited, 5'010'000u);
    EXPECT_EQ(send(LUIGI_MSG_TOUCH, 1), -1);
    send_script(LUIGI_MSG_STOP, base + ".stop.lua");
    std::string path = base + ".lua";
    EXPECT_EQ(send(LUIGI_MSG_START, reinterpret_cast<std::uintptr_t>(path.data())), -1);
    EXPECT_EQ(plat_fake_now_us() - begin, waited);

    std::ofstream(base + ".go") << "go";
    wait_for_file(base + ".stopped");
    EXPECT_TRUE(std::filesystem::exists(base + ".stopped"));
    EXPECT_EQ(send(LUIGI_MSG_KEY, 114), 1);
    for (const char* end : {".lua", ".stop.lua", ".go", ".stopped"})
        std::filesystem::remove(base + end);
}
