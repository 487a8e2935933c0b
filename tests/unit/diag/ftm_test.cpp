// The channel against a driver of the test's own, for what no packet of the virtual modem shows: the bounds
// of the buffers and the filter of one command.
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "f_ftm/f_ftm.h"
#include "ftm_linux/ftm_linux.h"
#include "unit/line_spy.h"
#include "unit/plat_fake.h"

namespace {

using bytes = std::vector<std::uint8_t>;

struct block {
    std::uint32_t size;
    std::uint8_t data[32768];
};

bytes sent;
bytes answer;       // of request 101, trailing bytes included; of 108 and 109, the buffer's content
int record_result;  // of 108 and 109
std::string others; // further requests

int driver(int, unsigned long request, void* arg)
{
    auto* p = static_cast<block*>(arg);
    switch (request) {
    case 100:
        sent.assign(p->data, p->data + p->size);
        return 1;
    case 101:
        p->size = static_cast<std::uint32_t>(answer.size());
        std::copy(answer.begin(), answer.end(), p->data);
        return 1;
    case 108:
    case 109:
        std::copy(answer.begin(), answer.end(), static_cast<std::uint8_t*>(arg));
        return record_result;
    default:
        others += std::to_string(request) + " ";
        return 0;
    }
}

struct Ftm : testing::Test {
    bytes result;

    void SetUp() override
    {
        plat_fake_reset();
        plat_fake_co.open = [](const char*, int, mode_t) { return 1000; };
        plat_fake_co.close = [](int) { return 0; };
        plat_fake_co.ioctl = driver;
        sent.clear();
        others.clear();
        ftm_init();
        ftm_start();
        ftm_set_timeout(0);
    }
    void TearDown() override { ftm_stop(); }

    // The response goes to a block of exactly `room` bytes.
    int cmd(const bytes& request, std::uint32_t room = 64)
    {
        const auto buf = std::make_unique<std::uint8_t[]>(room);
        std::uint32_t size = 99;
        const int status =
            ftm_cmd(request.data(), static_cast<std::uint32_t>(request.size()), buf.get(), room, &size);
        result.assign(buf.get(), buf.get() + size);
        return status;
    }
};

} // namespace

TEST_F(Ftm, ResponseIsLimitedToTheCallersRoom)
{
    answer.assign(32768, 7);
    EXPECT_EQ(cmd({7, 7, 7, 7}, 5), 1);
    EXPECT_EQ(result, bytes(5, 7));
    EXPECT_EQ(cmd({7}, 32768), 1);
    EXPECT_EQ(result.size(), 32765u);
    answer.assign(8192, 9);
    record_result = 8188;
    EXPECT_EQ(cmd({205}, 8193), 1);
    EXPECT_EQ(result.size(), 8193u);
    EXPECT_EQ(cmd({205}, 8192), 1);
    EXPECT_EQ(result.size(), 8192u);
    record_result = 1000000; // a driver that promises too much
    EXPECT_EQ(cmd({205}, 9000), 1);
    EXPECT_EQ(result.size(), 8193u);
    EXPECT_EQ(cmd({206}, 9000), 1);
    EXPECT_EQ(result.size(), 8193u);
    EXPECT_EQ(cmd({207, 0}), 1);
    EXPECT_EQ(result, (bytes{207, 0x00, 0x20}));
    EXPECT_EQ(cmd({207, 1, 0x00, 0x1F, 255}, 300), 1);
    EXPECT_EQ(result.size(), 256u);
    EXPECT_EQ(cmd({207, 1, 0x02, 0x1F, 255}, 300), 1);
    EXPECT_EQ(result.size(), 1u) << "one byte beyond the end";
}

TEST_F(Ftm, EachLocalCommandHasItsRequest)
{
    const std::string requests[] = {"102 ", "103 ", "105 ", "106 ", "107 "};
    for (std::uint8_t i = 0; i < 5; i++) {
        others.clear();
        EXPECT_EQ(cmd({static_cast<std::uint8_t>(200 + i), 2, 0, 0, 0, 1, 2}), 1);
        EXPECT_EQ(others, requests[i]);
    }
    EXPECT_EQ(sent, bytes{}) << "none is for the modem";
}

TEST_F(Ftm, LongestGatheredRequest)
{
    // The buffer takes bytes up to 8190; a part that doesn't fit is dropped whole.
    bytes part(2 + 512, 0x55);
    part[0] = 208;
    for (int i = 0; i < 17; i++) {
        part[1] = i != 0;
        EXPECT_EQ(cmd(part), 1);
        EXPECT_EQ(result, bytes{208});
    }
    answer = {1, 2, 3, 4};
    EXPECT_EQ(cmd({208, 2}), 1);
    EXPECT_EQ(sent.size(), 15u * 512);
    EXPECT_EQ(cmd(bytes(part.begin(), part.end() - 1)), 1);
    EXPECT_EQ(cmd({208, 3, 1}), 1);
    EXPECT_EQ(result, bytes{208}) << "no such part";
    EXPECT_EQ(cmd({208, 2}), 1);
    EXPECT_EQ(sent.size(), 8191u);
    EXPECT_EQ(cmd(bytes(32767, 0x11)), 0);
    EXPECT_EQ(sent.size(), 32767u);
    EXPECT_EXIT(cmd(bytes(32768, 0x11)), testing::ExitedWithCode(1), "^$");
}

TEST_F(Ftm, FtmcFiltersItsOwnRequestsAndCutsTheLineAt32768)
{
    static constexpr std::uint8_t one[] = {0x4B};
    static constexpr ftm_filter table[] = {{one, 1}, {nullptr, 0}};
    line_spy spy;
    f_ftm_init();
    ftm_filter_attach(table);
    answer.assign(3 + 6000, 0x4B);
    EXPECT_EQ(spy.say("ftmc=0x7C"), DCP_ERROR);
    EXPECT_EQ(spy.lines.at(0), "ftmc:");
    EXPECT_EQ(cmd({0x7C}), 1) << "others aren't filtered";
    EXPECT_EQ(spy.say("ftmc=0x4B"), DCP_OK);
    EXPECT_EQ(spy.lines.at(0).size(), 5 + 6000u * 5 - 1);
    EXPECT_EQ(spy.lines.at(0).substr(5 + 5999 * 5 - 6), ",0x4b,0x4b");
    answer.assign(3 + 8000, 0x4B);
    EXPECT_EQ(spy.say("ftmc=0x4B"), DCP_OK);
    EXPECT_LE(spy.lines.at(0).size(), 32768u);
    EXPECT_GT(spy.lines.at(0).size(), 32760u);
}
