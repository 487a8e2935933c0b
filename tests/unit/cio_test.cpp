// The console on a device of the test's own: the full buffer and every status without a port.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "cio_v2/cio.h"

namespace {

std::string port_in;
std::string port_out;
int writes;
cio_dev_obj device;

int dev_wr(cio_dev_obj*, const void* buf, std::size_t len)
{
    port_out.append(static_cast<const char*>(buf), len);
    writes++;
    return static_cast<int>(len);
}

int dev_rd(cio_dev_obj*, void* buf, std::size_t len)
{
    const std::size_t n = std::min(len, port_in.size());
    port_in.copy(static_cast<char*>(buf), n);
    port_in.erase(0, n);
    return static_cast<int>(n);
}

cio_dev_obj* dev_create(const void*)
{
    device = {[](cio_dev_obj*) { return 0; }, dev_wr, dev_rd, [](cio_dev_obj*) {}, nullptr, nullptr};
    return &device;
}

cio_dev test_dev = {{nullptr}, "test", dev_create};

int do_stat(int, int, int argc, const dcp_word* argv)
{
    return argc > 0 ? dcp_int(argv[0]) : 0;
}

int do_echo(int id, int, int argc, const dcp_word* argv)
{
    dcp_print_long(id, "echo", argc > 0 ? dcp_text(argv[0]) : "");
    return 0;
}

constexpr dcp_cmd test_tab[] = {
    {"stat", "", "%v", "", do_stat, 4},
    {"echo", "", "%t", "", do_echo, 4},
    {},
};

struct Cio : testing::Test {
    static constexpr std::uint32_t SIZE = 64;
    std::unique_ptr<char[]> line = std::make_unique<char[]>(SIZE);
    cio console{};
    dcp_cmd_link link{};

    Cio()
    {
        dcp_init();
        cio_dev_init();
        cio_dev_reg(&test_dev);
        cio_cmd_init();
        dcp_cmd_add(test_tab, &link);
        dcp_case_set(0);
        cio_s3_set(',', '\r');
        cio_s4_set(0, '\n', 0);
        cio_init(&console, line.get(), SIZE, "console", "test", nullptr, nullptr);
        cio_start(&console);
        writes = 0;
    }
    ~Cio() override
    {
        cio_s3_set('\r', '\r');
        cio_s4_set('\n', '\n', '>');
        dcp_init();
        port_in.clear();
        port_out.clear();
    }

    // What comes back when `text` arrives in one piece.
    static std::string ask(std::string_view text)
    {
        port_in += text;
        while (!port_in.empty())
            device.rd_cb(device.p_owner, nullptr);
        return std::exchange(port_out, "");
    }
};

TEST_F(Cio, StatusWords)
{
    const char* const words[] = {
        "OK\r\n", "ERROR\r\n", "SYNTAX\r\n", "NOT FOUND\r\n", "BLOCKED\r\n", "\r\n", "\r\n", "\r\n", ""};
    for (int status = 0; status <= 8; status++)
        EXPECT_EQ(ask("stat=" + std::to_string(status) + "\r"), words[status]) << status;
    EXPECT_EQ(ask("nosuch\r"), "NOT FOUND\r\n");
    const cio_parse_fn former = cio_parse_attach(&console, [](char* text, std::size_t size) {
        return size == SIZE && std::string(text) == "nosuch" ? 1 : 2;
    });
    EXPECT_EQ(ask("nosuch\r"), "ERROR\r\n") << "the console's own parser has the last word";
    EXPECT_EQ(ask("stat=3\r"), "SYNTAX\r\n") << "also over a handler's";
    EXPECT_EQ(former, cio_parse);
}

// A full buffer is a line, with its last byte lost; what is behind it is the next one.
TEST_F(Cio, FullBuffer)
{
    EXPECT_EQ(ask("echo=" + std::string(SIZE - 5, 'a')), "ECHO:" + std::string(SIZE - 6, 'a') + ",OK\r\n");
    EXPECT_EQ(ask("echo=" + std::string(SIZE - 5, 'a') + "case?\r"),
              "ECHO:" + std::string(SIZE - 6, 'a') + ",OK\r\nCASE:false,OK\r\n");
    EXPECT_EQ(ask(std::string(100000, 'x') + "\r").find("NOT FOUND\r\n"), 0U);
    EXPECT_EQ(ask("case?\r"), "CASE:false,OK\r\n");
}

TEST_F(Cio, DisplayTypes)
{
    const auto show = [this](int type) {
        dcp_resp_dspl(console.clnt.id, type, 0, "t");
        return std::exchange(port_out, "");
    };
    EXPECT_EQ(show(0) + show(1) + show(2), "tOK\r\ntERROR\r\ntSYNTAX\r\n");
    EXPECT_EQ(show(5), "t\r\n");
    EXPECT_EQ(show(6), "t,");
    EXPECT_EQ(show(3) + show(4) + show(7) + show(8), "tttt");
    cio_print(&console, nullptr);
    int done = 0;
    dcp_bin_tx(
        console.clnt.id, "\0,\r", 3, [](int event, void* arg) { *static_cast<int*>(arg) = event; }, &done);
    EXPECT_EQ(std::exchange(port_out, ""), std::string("\0,\r", 3));
    EXPECT_EQ(done, 2);
}

TEST_F(Cio, EachPieceIsOneWrite)
{
    ask("case?\r");
    EXPECT_EQ(writes, 4) << "text, term, word, final sequence";
}

TEST_F(Cio, GreetingAndDevices)
{
    static const char* const greeting[] = {"hello ", "there", nullptr};
    cio other{};
    cio_init(&other, nullptr, 16, "other", "test", nullptr, greeting);
    cio_start(&other);
    EXPECT_EQ(std::exchange(port_out, ""), "hello there\r\n");
    std::free(other.cmd.ln);
    EXPECT_EQ(dcp_get_clnt_id("other"), other.clnt.id);
    EXPECT_EQ(cio_dev_find("tty"), nullptr);
    EXPECT_EXIT(cio_dev_reg(&test_dev), testing::ExitedWithCode(1), "^$");
    EXPECT_EXIT(cio_init(&other, nullptr, 16, "x", "tty", nullptr, nullptr), testing::ExitedWithCode(1),
                "^$");
}

} // namespace
