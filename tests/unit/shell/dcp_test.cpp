#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "dcp/dcp.h"
#include "unit/exact_text.h"

namespace {

// What the client was shown: "type,more:text".
std::vector<std::string> shown;
std::string called; // what the handlers saw
int handler_status;

void spy_dspl(dcp_client*, int type, int more, const char* text)
{
    shown.push_back(std::to_string(type) + "," + std::to_string(more) + ":" + text);
}

void spy_rx(dcp_client*, void*, std::size_t, dcp_bin_cb, void*) {}

void spy_tx(dcp_client*, const void* buf, std::size_t size, dcp_bin_cb, void*)
{
    shown.push_back("bin:" + std::string(static_cast<const char*>(buf), size));
}

int do_spy(int, int action, int argc, const dcp_word* argv)
{
    called += "spy " + std::to_string(action);
    for (int i = 0; i < argc; i++)
        called += " " + std::to_string(dcp_int(argv[i]));
    return handler_status;
}

int do_text(int, int action, int argc, const dcp_word* argv)
{
    called += "text " + std::to_string(action) + " " + (argc > 0 && argv[0] ? dcp_text(argv[0]) : "none");
    return handler_status;
}

constexpr dcp_cmd spy_tab[] = {
    {"spy", "(0-9)", "%v,%v", "spy(it)", do_spy, 0x04},
    {"spytext", "", "%s,%v", "", do_text, 0x04 | 0x40},
    {"longest_name_of_all", "", "%v,%v", "", do_spy, 0},
    {},
};

struct Dcp : testing::Test {
    dcp_client client = {0, spy_dspl, spy_rx, spy_tx, "spy"};
    dcp_cmd_link link{};
    int id;

    Dcp()
    {
        shown.clear();
        called.clear();
        handler_status = 0;
        dcp_init();
        id = client.id = dcp_clnt_add(&client);
        dcp_cmd_add(spy_tab, &link);
        dcp_case_set(0);
    }
    ~Dcp() override { dcp_init(); }

    int parse(const char* line) const { return dcp_parse(id, exact_text(line).get()); }
};

using list = std::vector<std::string>;

TEST_F(Dcp, LineFormsReachTheHandler)
{
    struct row {
        const char* line;
        int status;
        const char* called;
    };
    for (const row& r :
         {row{"spy", 0, "spy 0"}, row{"spy=,", 0, "spy 0 0 0"}, row{"SpY=1,2,3", 0, "spy 0 1 2 3"},
          row{"spy?", 0, "spy 1"}, row{"spy?7", 0, "spy 1 7"}, row{"spytext=\"Aa\"", 0, "text 0 Aa"},
          row{"spytext=,1", 0, "text 0 none"}, row{"spytext?\"unended", 0, "text 1 unended"},
          row{"LONGEST_name_of_all=4", 0, "spy 0 4"}, row{"longest_name_of_all?4", 0, "spy 1 4"},
          row{"longest_name_of_al", 3, ""}, row{"longest_name_of_bll", 3, ""}, row{"spy ", 3, ""},
          row{"nosuch?", 3, ""}, row{"=5", 3, ""}, row{"", 0, ""}, row{"spytex", 3, ""}}) {
        SCOPED_TRACE(r.line);
        called.clear();
        EXPECT_EQ(parse(r.line), r.status);
        EXPECT_EQ(called, r.called);
        EXPECT_EQ(shown, list{});
    }
    handler_status = 7;
    EXPECT_EQ(parse("spy"), 7);
}

// Each field is cut to its own length, and pads the next one to its column.
TEST_F(Dcp, UsageLineIsCut)
{
    const std::string n(20, 'n'), r(70, 'r'), h(50, 'h');
    const dcp_cmd wide = {n.c_str(), r.c_str(), "", h.c_str(), do_spy, 0};
    const auto txt = std::make_unique<char[]>(DCP_CMD_LINE);
    dcp_cmd_dspl(txt.get(), &wide, 1);
    EXPECT_EQ(txt.get(), n.substr(0, 10) + r.substr(0, 57) + h.substr(0, 32));
    dcp_cmd_dspl(txt.get(), &spy_tab[0], 0);
    EXPECT_STREQ(txt.get(), "spy       ");
}

// Without a pattern they go through the letters, and within a letter in the order of the tables; what no
// letter begins isn't there.
TEST_F(Dcp, BareHelpAndListAreSortedByTheFirstLetter)
{
    constexpr dcp_cmd rows[] = {
        {"zap", "", "", "zap()", do_spy, 0x80}, {"Hop", "", "", "", do_spy, 4},
        {"hop", "", "", "", do_spy, 4},         {"ask", "(r)", "", "ask()", do_spy, 0},
        {"has", "", "", "", do_spy, 0x84},      {}};
    dcp_cmd_link more{};
    dcp_cmd_add(rows, &more);
    EXPECT_EQ(parse("list"), 0);
    EXPECT_EQ(shown, (list{"6,1:ask       ", "6,1:case      ", "6,1:help      ", "6,1:hop       ",
                           "6,1:has       ", "6,1:list      ", "6,1:longest_na", "6,1:spy       ",
                           "6,1:spytext   ", "6,1:zap       "}));
    shown.clear();
    EXPECT_EQ(parse("help?,0x80"), 0);
    const std::string wide(50, ' ');
    EXPECT_EQ(shown, (list{"6,1:ask       (r)" + wide.substr(3) + "ask()", "6,1:has       " + wide,
                           "6,1:longest_na" + wide, "6,1:zap       " + wide + "zap()"}));
    shown.clear();
    EXPECT_EQ(parse("list=\"\", 0x44"), 0); // the empty pattern: all, in the order of the tables
    EXPECT_EQ(shown, (list{"6,1:spy       ", "6,1:spytext   ", "6,1:longest_na", "6,1:Hop       ",
                           "6,1:hop       ", "6,1:ask       ", "6,1:has       "}));
}

TEST_F(Dcp, ABlockedParserLeavesTheCommandsThatAreFree)
{
    dcp_block_parser(1);
    EXPECT_EQ(parse("spy=1"), 4);
    EXPECT_EQ(parse("nosuch"), 3);
    EXPECT_EQ(parse("spytext"), 0);
    EXPECT_EQ(called, "text 0 none");
}

// The response is cut at the limit, whatever the name and the values are; the long way has none.
TEST_F(Dcp, ResponseLimit)
{
    const std::string text(1000, 'v');
    dcp_printf(id, "n", "%s", text.c_str());
    dcp_printf(id, text.c_str(), "%d", 1);
    dcp_print_long(id, "n", text.c_str());
    EXPECT_EQ(shown, (list{"6,0:N:" + text.substr(0, 253), "6,0:" + std::string(255, 'V'), "6,0:N:" + text}));
}

// A thousand names in one table: each is found, and no other name finds anything.
TEST_F(Dcp, EveryRowIsFound)
{
    std::vector<std::string> names;
    for (int i = 0; i < 1000; i++)
        names.push_back("c" + std::to_string(i * 7919));
    std::vector<dcp_cmd> rows;
    for (const std::string& name : names)
        rows.push_back({name.c_str(), "", "%v,%v", "", do_spy, 0});
    rows.push_back({});
    dcp_cmd_link big{};
    dcp_cmd_add(rows.data(), &big);
    for (const std::string& name : names) {
        EXPECT_EQ(parse(name.c_str()), 0);
        EXPECT_EQ(parse((name + "z").c_str()), 3);
    }
    EXPECT_EQ(called.size(), 1000 * std::string("spy 0").size());
}

TEST_F(Dcp, HexListing)
{
    unsigned char data[21];
    for (unsigned i = 0; i < sizeof data; i++)
        data[i] = static_cast<unsigned char>(0x3c + i);
    dcp_hex_dspl(id, 0xFFFFFFF0, data, 1, 18);
    EXPECT_EQ(shown, (list{"6,1:0xfffffff0: 3c 3d 3e 3f 40 41 42 43 44 45 46 47 48 49 4a 4b <=>?@ABCDEFGHIJK",
                           "6,1:0x00000000: 4c 4d LM"}));
    shown.clear();
    const std::uint16_t halves[] = {0x1234, 0xABCD};
    dcp_hex_dspl(id, 16, halves, 2, 5); // the odd byte isn't shown
    const std::uint32_t words[] = {0, 1, 2, 0xDEADBEEF, 5};
    dcp_hex_dspl(id, 0, words, 4, sizeof words);
    dcp_hex_dspl(id, 0, words, 4, 3);
    EXPECT_EQ(shown, (list{"6,1:0x00000010: 0x1234 0xabcd",
                           "6,1:0x00000000: 0x00000000 0x00000001 0x00000002 0xdeadbeef",
                           "6,1:0x00000010: 0x00000005"}));
}

} // namespace
