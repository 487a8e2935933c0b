// The console on a device of the test's own: line assembly and terminators without a port.
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

TEST_F(Cio, LineEnds)
{
    EXPECT_EQ(ask("case?\r"), "CASE:false,OK\r\n");
    EXPECT_EQ(ask("case?\n"), "CASE:false,OK\r\n");
    EXPECT_EQ(ask("case?\r\n"), "CASE:false,OK\r\n");
    EXPECT_EQ(ask("\r"), "\r\n") << "an empty line gets no word";
    EXPECT_EQ(ask("\r\n\b\b\n"), "\r\n");
    EXPECT_EQ(ask("ca"), "");
    EXPECT_EQ(ask("se"), "");
    EXPECT_EQ(ask("?\r"), "CASE:false,OK\r\n");
    EXPECT_EQ(ask("xx\b\bcase?\r"), "CASE:false,OK\r\n");
    EXPECT_EQ(ask("ca\r\nse?\r\n"), "CASE:false,OK\r\n") << "two lines in one read are one";
}

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

TEST_F(Cio, TerminatorCommands)
{
    EXPECT_EQ(ask("s3?\r"), "S3:0x2c, 0x0d,OK\r\n");
    EXPECT_EQ(ask("s4?1,2,3\r"), "S4:0x00, 0x0a,OK\r\n");
    EXPECT_EQ(ask("s3=d,d\r"), "S3:0x0d, 0x0d\rOK\r\n") << "the reply has the new term";
    EXPECT_EQ(ask("s4=a,a,3e\r"), "S4:0x0a, 0x0a\r\nOK\r\n>");
    EXPECT_EQ(ask("s4=a,a\r"), "S4:0x0a, 0x0a\r\nOK\r\n>") << "the prompt stays";
    EXPECT_EQ(ask("s4=a,a,0\r"), "S4:0x0a, 0x0a\r\nOK\r\n");
    EXPECT_EQ(ask("s3=2c,d,9\r"), "S3:0x0d, 0x0d\r\nOK\r\n") << "three values are the default";
    EXPECT_EQ(ask("s3=0,d\r"), "S3:0x00, 0x0dOK\r\n") << "an empty term";
    EXPECT_EQ(ask("s3=12c\r"), "S3:0x2c, 0x2c,\nOK,\n") << "the low byte, for both";
    EXPECT_EQ(ask("s3\r"), "S3:0x0d, 0x0d\r\nOK\r\n");
    EXPECT_EQ(ask("s4=1\r"), "S4:0x01, 0x01\r\x01OK\r\x01");
    EXPECT_EQ(ask("s4=1,2,3,4\r"), "S4:0x0a, 0x0a\r\nOK\r\n") << "four values are the default";
    EXPECT_EQ(ask("s3=?\r"),
              "s3        0xB[,0xB]                                         s3(ct,final)\r\nOK\r\n");
    EXPECT_EQ(cio_s3_set('t', 'f'), 0x0d0dU);
    EXPECT_EQ(cio_s4_set('T', 'F', 'P'), 0x0a0aU);
    EXPECT_STREQ(cio_cmd_term(), "tT");
    EXPECT_STREQ(cio_cmd_final(), "fFP");
    EXPECT_EQ(cio_s3_set(0, 0), unsigned{'t' | 'f' << 8});
    EXPECT_EQ(cio_s4_set(0, 0, 0), unsigned{'T' | 'F' << 8 | 'P' << 16});
    EXPECT_EQ(ask("case?\r"), "CASE:falseOK");
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

// What each byte in front of a z comes to: NUL ends the text, line ends go, a prefix character isn't part of
// the value, and a backspace takes the = before it, which makes another name.
std::string echo_of(char c)
{
    if (c == '\b')
        return "NOT FOUND\r\n";
    if (c == '?')
        return "ECHO:z,echo" + std::string(56, ' ') + ",OK\r\n";
    if (c == 0)
        return "ECHO:,OK\r\n";
    const bool kept = c != '\r' && c != '\n' && c != '&' && c != '*';
    return "ECHO:" + (kept ? std::string(1, c) : "") + "z,OK\r\n";
}

TEST_F(Cio, AnyByteMayCome)
{
    for (int c = 0; c < 256; c++)
        EXPECT_EQ(ask({"echo=" + std::string(1, static_cast<char>(c)) + "z\r"}),
                  echo_of(static_cast<char>(c)))
            << c;
    EXPECT_EQ(ask({"\0\0\r", 3}), "\r\n");
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
