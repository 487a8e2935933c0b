// The tuner library at work on the chip: register access, files, bring-up, tuning and what stands on it, the
// host's nodes; and the driver's bus check, of which no command reaches but one way.
#include <algorithm>

#include "core/files.h"
#include "gpio_linux/gpio_linux.h"
#include "isdb/isdb.h"
#include "isdb_ej113/isdb_ej113.h"
#include "joint/tuner_bench.h"
#include "pin/pin.h"
#include "pin_brenk/pin_brenk.h"
#include "tuner/tuner.h"
#include "tunerx/ant_swt.h"
#include "tunerx/tuner_reg.h"
#include "tunerx/tunerx_files.h"
#include "tunerx/tunerx_hwl.h"

namespace {

constexpr const char* folder = "/system/etc/isdbtmm/";

void lay(const char* name, const std::string& text)
{
    EXPECT_TRUE(phone::file_write(std::string(folder) + name, text)) << name;
}

struct Tuner : TunerBench {
    // Bus transfers, and opened buses, of what `work` does.
    template <typename Work>
    static long transfers(Work work)
    {
        ask("calls on");
        work();
        const std::string calls = ask("calls");
        ask("calls off");
        long count = 0;
        for (std::size_t at = 0; (at = calls.find("ioctl /dev/i2c-4", at)) != std::string::npos; at++)
            count++;
        return count;
    }
};

TEST_F(Tuner, AnEntryTouchesItsBitsAlone)
{
    const struct {
        std::uint16_t sbit, ebit, param, enabit;
        int wanted; // over 0xA5
    } cases[] = {{0, 7, 0x5A, 0, 0x5A},        {2, 3, 0xFF, 0, 0xAD},        {4, 7, 0x00, 0, 0x05},
                 {255, 255, 0xFF, 0x42, 0xE7}, {255, 255, 0x3C, 0xFF, 0x3C}, {0, 0, 0x00, 0xFF, 0xA4},
                 {6, 9, 0x00, 0, 0x25},        {5, 2, 0xFF, 0, 0xA5}};
    for (const auto& c : cases) {
        reg('B', 0x30) = 0xA5;
        tuner_data_rw entry;
        tuner_set_rw_data(&entry, 105, 0x30, c.sbit, c.ebit, c.param, c.enabit);
        EXPECT_EQ(tuner_write_reg(&entry, 1), 0);
        EXPECT_EQ(reg('B', 0x30), c.wanted) << c.sbit << ' ' << c.ebit;
    }
    reg('B', 0x31) = 0x77;
    tuner_data_rw both[2] = {{105, 0x30, 0, 0, 1, 0}, {105, 0x31, 0, 7, 0, 0}};
    EXPECT_EQ(tuner_read_reg(both, 2), 0);
    EXPECT_EQ(both[0].param, 0xA5) << "the whole register";
    EXPECT_EQ(both[1].param, 0x77);
    EXPECT_EQ(tuner_device_ioctl(3, &both[1]), 0);
    EXPECT_EQ(tuner_device_ioctl(0, both), 0);
    for (const int kind : {6, 8, 9})
        EXPECT_EQ(tuner_device_ioctl(kind, nullptr), 0);
    for (const int kind : {1, 2, 4, 5, 7, 10, -1})
        EXPECT_EQ(tuner_device_ioctl(kind, both), 258);
    both[0].slave = 0x6B; // nobody there
    EXPECT_EQ(tuner_read_reg(both, 2), -1);
    EXPECT_EQ(tuner_write_reg(both, 2), -1);
}

TEST_F(Tuner, BlocksAreOneMessageOrSingleWritesAndThePatchRegisterTakesTheRest)
{
    const std::uint8_t bytes[] = {1, 2, 3, 4, 5, 6};
    const long single = transfers([&] { EXPECT_EQ(tuner_device_write(105, 0x20, bytes, 1), 0); });
    EXPECT_EQ(transfers([&] { EXPECT_EQ(tuner_device_write(105, 0x20, bytes, 4), 0); }), 4 * single);
    EXPECT_EQ(transfers([&] { EXPECT_EQ(tuner_device_write(105, 0x30, bytes, 5), 0); }), single);
    EXPECT_EQ(regs('B', 0x20, 5), (numbers{1, 2, 3, 4, 0}));
    EXPECT_EQ(regs('B', 0x30, 5), (numbers{1, 2, 3, 4, 5}));
    for (const std::size_t n : {4u, 6u}) {
        EXPECT_EQ(tuner_device_write(105, 0xF4, bytes, n), 0);
        EXPECT_EQ(std::tuple(reg('B', 0xF6), reg('B', 0xF7)), std::tuple(n, 0));
        EXPECT_EQ(tuner_device_write(106, 0xF4, bytes, n), 0);
        EXPECT_EQ(reg('C', 0xF4 + static_cast<int>(n) - 1), n) << "the third address has no such register";
    }
    // 2048 and 3 bytes: on the third address they go round to where they began
    std::vector<std::uint8_t> many(2051, 0x11);
    std::fill(many.end() - 3, many.end(), std::uint8_t{0x22});
    EXPECT_EQ(transfers([&] { EXPECT_EQ(tuner_device_write(106, 0x40, many.data(), many.size()), 0); }),
              4 * single);
    EXPECT_EQ(std::tuple(reg('C', 0x42), reg('C', 0x43)), std::tuple(0x22, 0x11));
    EXPECT_EQ(tuner_device_write(104, 0xF6, many.data(), many.size()), 0);
    EXPECT_EQ(reg('A', 0xF6), 0x22);
    EXPECT_EQ(tuner_device_write(105, 0x20, bytes, 0), 0);
    ask("gpio 14 0");
    EXPECT_EQ(tuner_device_write(105, 0x20, bytes, 2), -1);
    EXPECT_EQ(tuner_device_write(105, 0x20, bytes, 6), -1);
}

TEST_F(Tuner, RegisterFilesAreReadInAllSpellingsAndPassOverWhatIsNone)
{
    lay("r",
        "// 1,1,1,1\n,1,2,3\nL,1,&H20,0x30\nL,2 , 20 ,&Hff // x\nL,0,0x0a,100\nL,3,1,1\nL,-1,1,1\nL,1,&H,1\n"
        "L,1,1\nL,1,zz,1\nL,1,123,1\n\nL,x,1f,&H7g\nL,1,FFFFFFFFFFFFFFFFF1,1\nL,1,2,3,4\nlast,2,0x,0\nL,1,9,"
        "8");
    std::vector<tunerx_reg_line> lines;
    ASSERT_TRUE(tunerx_read_reg_file("/system/etc/isdbtmm/r", lines));
    std::vector<numbers> found;
    for (const tunerx_reg_line& line : lines)
        found.push_back({line.unit, line.reg, line.value});
    EXPECT_EQ(found, (std::vector<numbers>{
                         {1, 0x20, 0x30}, {2, 0x20, 0xFF}, {0, 0x1F, 0x07}, {1, 2, 3}, {1, 9, 8}}));
    // what is behind 127 characters is a line of its own
    lay("r", std::string(100, 'x') + ",1,1,1" + std::string(21, ' ') + "y,1,5,6\n");
    ASSERT_TRUE(tunerx_read_reg_file("/system/etc/isdbtmm/r", lines));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1].reg, 5);
    EXPECT_FALSE(tunerx_read_reg_file("/system/etc/isdbtmm/none", lines));
    ask("strange off");
}

std::vector<std::pair<int, std::size_t>> patch_of(const std::string& text, int wanted_rc)
{
    lay("PSEQ1_MN88552_130129_bprty.hex", text);
    tunerx_patch_list list;
    EXPECT_EQ(tuner_read_fw_patch(TUNER_FW_PSEQ1, list), wanted_rc) << text.substr(0, 40);
    std::vector<std::pair<int, std::size_t>> found;
    for (const tunerx_patch& block : list)
        found.emplace_back(block.adr, block.data.size());
    return found;
}

TEST_F(Tuner, PatchFilesAreBlocksAndAnyErrorGivesAllOfThemUp)
{
    using blocks = std::vector<std::pair<int, std::size_t>>;
    EXPECT_EQ(patch_of("// x\n stad:1ff2\nff:\n 0\nxyz\nprty:1\nstad:3\nprty:0\nstad:4\n1:\n", 0),
              (blocks{{0x1FF2, 2}, {3, 0}}));
    for (const char* wrong : {"stad:1\nstad:2\n", "prty:0\n", "1:\n", "stad:1\n100:\n", "stad:1\n-1:\n",
                              "stad:1\nprty:2\n", "stad:1\nprty:-1\n", "stad:1\nprty:0\nprty:0\n"})
        EXPECT_EQ(patch_of(wrong, 96), blocks{}) << wrong;
    std::string bytes = "stad:0\nprty:0\nstad:5\n";
    for (int i = 0; i < 8192; i++)
        bytes += "a5:\n";
    EXPECT_EQ(patch_of(bytes + "prty:1\n", 0), (blocks{{0, 0}, {5, 8192}}));
    EXPECT_EQ(patch_of(bytes + "a5:\nprty:1\n", 96), blocks{});
    tunerx_patch_list list;
    EXPECT_EQ(tuner_read_fw_patch(2, list), 96);
}

TEST_F(Tuner, TheTableTakesFiveHundredChannels)
{
    std::string rows;
    for (int ch = 0; ch < 500; ch++)
        rows += "S," + std::to_string(ch) + ",100,0,1,1,1,1,1,1,1,1,1\n";
    lay("c", rows);
    EXPECT_EQ(tuner_read_chfile("/system/etc/isdbtmm/c"), 0);
    EXPECT_EQ(tunXParams.channel_count, 500);
    lay("c", rows + "S,500,100,0,1,1,1,1,1,1,1,1,1\n");
    EXPECT_EQ(tuner_read_chfile("/system/etc/isdbtmm/c"), 16);
    EXPECT_EQ(std::tuple(tunXParams.channel_count, tuner_get_chrcd_id(11, 499)), std::tuple(500, 499));
    EXPECT_EQ(std::tuple(tuner_get_chrcd_id(11, 500), tuner_get_chrcd_id(10, 499)), std::tuple(-1, -1));
    // what no register holds is 0 and does no harm
    lay("c",
        "UF,1,nan,1,1,1,1,1,1,1,1,1,1\nVMF,1,1e30,1,1,1,1,1,1,1,1,1,1\nVLF,3,-inf,9,1,1,1,1,1,1,1,1,1\n");
    EXPECT_EQ(tuner_read_chfile("/system/etc/isdbtmm/c"), 0);
    EXPECT_EQ(std::tuple(tunXParams.channels[0].p_m, tuner_get_chrcd_id(2, 1)), std::tuple(0, 0));
    EXPECT_EQ(std::tuple(tuner_get_chrcd_id(5, 1), tuner_get_chrcd_id(8, 3)), std::tuple(1, 2));
    lay("c", "UF,1,473,0,1,1,1,1,1,1,1,1,1\n\nUF,2,473,0,1,1,1,1,1,1,1,1,1\n");
    EXPECT_EQ(tuner_read_chfile("/system/etc/isdbtmm/c"), 16) << "an empty line has no fields";
    EXPECT_EQ(tunXParams.channel_count, 1);
}

TEST_F(Tuner, TheStateIsHeldAgainstTheChip)
{
    const struct {
        std::uint32_t state;
        int a242, b0, b2, rc;
        std::uint32_t then;
    } cases[] = {
        {0x1100, 2, 0, 0, 259, 0x1100},     {0x1200, 2, 0, 0, 259, 0x1200},
        {0x1300, 2, 0, 0, 0, 0x1300}, // not asked
        {0x1301, 2, 1, 0x80, 0, 0x1301},    {0x1310, 2, 0, 0, 259, 0x1301},
        {0x1301, 0, 0, 0, 259, 0x1300},     {0x1321, 0, 0, 0, 259, 0x1300},
        {0x1321, 2, 0, 0x3F, 0, 0x1321},    {0x1311, 2, 0, 0xC0, 0, 0x1321},
        {0x1321, 2, 0xFE, 0x40, 0, 0x1331}, {0x1321, 2, 0, 0x80, 259, 0x1321},
        {0x1321, 2, 1, 0x40, 0, 0x1311},    {0x1321, 2, 1, 0x00, 259, 0x1321},
        {0x1321, 2, 1, 0xC0, 259, 0x1321},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.state) + ' ' + std::to_string(c.b2));
        tunXParams.state = c.state;
        reg('A', 242) = static_cast<std::uint8_t>(c.a242);
        reg('B', 0) = static_cast<std::uint8_t>(c.b0);
        reg('B', 2) = static_cast<std::uint8_t>(c.b2);
        EXPECT_EQ(tuner_check_circuit(), c.rc);
        EXPECT_EQ(tunXParams.state, c.then);
    }
    tunXParams.state = TUNER_WIDE;
    ask("gpio 13 0");
    EXPECT_EQ(tuner_check_circuit(), -1);
    EXPECT_EQ(tunXParams.state, TUNER_WIDE);
}

TEST_F(Tuner, ABringUpGivesWarningsInOneNumberAndFailuresAlone)
{
    let_run();
    tunXParams.state = TUNER_BOOTED;
    for (auto& name : tunXParams.setup.reg_file)
        name[0] = '\0';
    tunXParams.setup.fw_file[0][0] = tunXParams.setup.fw_file[1][0] = tunXParams.setup.ch_file[0] = '\0';
    EXPECT_EQ(tunerx_initialize(), 1 | 2 | 4 | 8 | 16 | 32 | 64);
    EXPECT_EQ(tunXParams.state, TUNER_INITIALISED);
    EXPECT_EQ(tunerx_initialize(), 259) << "it is initialised";
    const struct {
        const char* trouble;
        int rc;
    } cases[] = {{"noload", 257}, {"badrom", 257}, {"nocal", 4095}, {"good", 0}};
    for (const auto& c : cases) {
        ask(std::string("tuner ") + c.trouble);
        EXPECT_EQ(tuner_ctl_power(0), 0);
        EXPECT_EQ(tuner_get_status(), TUNER_OFF);
        tuner_put_status(TUNER_BOOTED);
        EXPECT_EQ(tunerx_initialize(), c.rc) << c.trouble;
    }
    tunXParams.state = TUNER_OPEN;
    EXPECT_EQ(tunerx_initialize(), 259);
    tunXParams.state = TUNER_BOOTED;
    reg('C', 0) = 0x77;
    EXPECT_EQ(tuner_initialize(2), 0);
    EXPECT_EQ(reg('C', 0), 0x40) << "bits 0 to 2, 4 and 5";
    EXPECT_EQ(reg('B', 214), 0);
    ask("gpio 13 0");
    tunXParams.state = TUNER_BOOTED;
    EXPECT_EQ(tuner_initialize(1), 257);
    EXPECT_EQ(tuner_ctl_power(2), 258);
    EXPECT_EQ(tunerx_start(nullptr), 258);
    tunerx_setup setup = {{1, 2, 3}, {}, {}, {}};
    std::fill(std::begin(setup.ch_file), std::end(setup.ch_file), 'x');
    EXPECT_EQ(tunerx_start(&setup), 0);
    EXPECT_EQ(std::tuple(tunXParams.setup.slave[2], tunXParams.setup.ch_file[510]), std::tuple(3, 'x'));
    EXPECT_EQ(tunXParams.setup.ch_file[511], '\0');
    EXPECT_EQ(std::string(tunXParams.setup.fw_file[1]), "/system/etc/isdbtmm/TNCTL20130219p_diff.hex");
}

TEST_F(Tuner, HundredsOfPowerOnsLeaveNoDescriptor)
{
    let_run();
    for (int i = 0; i < 200; i++) {
        tuner_put_status(TUNER_POWERED);
        ASSERT_EQ(tunerx_hwl_device_open(), 0);
        tuner_ctl_power(0);
        tuner_put_status(TUNER_BOOTED);
        ASSERT_EQ(tuner_initialize(1), 0);
    }
    EXPECT_EQ(ask("files mmtuner").find('\n'), std::string::npos) << "one";
    EXPECT_EQ(ask("files i2c"), "");
    EXPECT_EQ(ask("files isdbtmm"), "");
}

TEST_F(Tuner, TuningGoesToTheStateOfItsBandOrSaysWhy)
{
    bring_up();
    ask("broadcast 13 state 9 5");
    EXPECT_EQ((numbers{tunerx_tuning(18, 13), tunerx_tuning(-1, 13), tunerx_tuning(0, 12)}), numbers(3, 258));
    EXPECT_EQ(tunXParams.status, TUNER_TUNE_FAILED);
    EXPECT_EQ(tunerx_tuning(2, 13), 0);
    EXPECT_EQ(std::tuple(tuner_get_status(), reg('B', 237)), std::tuple(TUNER_WIDE_THIRD, 0x4A));
    EXPECT_EQ(tunXParams.sync_flags, 0x17u); // 5, 4 and 7 of B9, and bit 4 of 10
    EXPECT_EQ(std::tuple(ant_swt.counter.load(), ant_search_mode.load()), std::tuple(1, 1));
    EXPECT_EQ(tunerx_tuning(1, 13), 0);
    EXPECT_EQ(std::tuple(tuner_get_status(), ant_swt.counter.load()), std::tuple(TUNER_NARROW, 2));
    const std::uint64_t start = tuner_get_time();
    EXPECT_EQ(tunerx_tuning(0, 40), 257) << "not on the air";
    EXPECT_GE(tuner_get_time() - start, 5000u);
    EXPECT_EQ(tuner_get_status(), TUNER_WIDE) << "it stays tuned";
    EXPECT_EQ(std::tuple(tunXParams.sync_flags, ant_swt.counter.load()), std::tuple(0x80u, 2));
    std::uint32_t flags;
    tunXParams.state = TUNER_NARROW;
    EXPECT_EQ(tuner_sync_detect(&flags, 500), 259);
    tunXParams.state = TUNER_WIDE;
    ask("tuner nosettle");
    EXPECT_EQ(tunerx_tuning(0, 13), 257);
    EXPECT_EQ(tunXParams.status, TUNER_TUNE_FAILED);
    EXPECT_EQ(tuner_sync_detect(&flags, 500), 258);
    for (const std::uint32_t state : {0x1301u, 0u, 0x1341u})
        EXPECT_EQ(tuner_disable_irq(state), 258);
    const tuner_request request = {27, 0};
    ask("tuner good");
    EXPECT_EQ(tuner_tuning(&request), 0);
    EXPECT_EQ(tuner_tuning(nullptr), 258);
    ask("gpio 13 0");
    EXPECT_EQ(tunerx_tuning(0, 13), -1);
    tunXParams.state = TUNER_BOOTED;
    EXPECT_EQ(tunerx_tuning(0, 13), 259);
}

TEST_F(Tuner, TheOtherSystemHasItsShiftTwice)
{
    lay("c", "D,5,216.0,-286,1,2,3,c,6,0,0,10,13\n");
    bring_up();
    EXPECT_EQ(tuner_read_chfile("/system/etc/isdbtmm/c"), 0);
    EXPECT_EQ(tunerx_tuning(10, 5), 0);
    EXPECT_EQ(reg('B', 0), 0x02);
    // (24.645 * 0.23 - 4) / 24.645 * 65536 = 4436.5
    EXPECT_EQ(regs('B', 16, 4), (numbers{0x11, 0x54, 0x11, 0x54}));
    EXPECT_EQ(reg('B', 13) << 16 | reg('B', 14) << 8 | reg('B', 15), 11305943);
    // 0.286 / (197.16 / 64) * 4096 = 380.3
    EXPECT_EQ(reg('B', 10) << 16 | reg('B', 11) << 8 | reg('B', 12), 380);
    EXPECT_EQ(std::tuple(reg('C', 242), reg('B', 237)), std::tuple(0x13, 0x10));
}

TEST_F(Tuner, ThePinCheckOfBothKinds)
{
    EXPECT_EQ(tunerx_chkpin(0, 0), 0);
    reg('B', 8) = 0x91;
    EXPECT_EQ(tunerx_chkpin(0, 0), 0);
    EXPECT_EQ(reg('B', 8), 0x91) << "put back";
    for (const char letter : {'A', 'B', 'C'}) {
        reg(letter, 255) = 0x53;
        EXPECT_EQ(tunerx_chkpin(0, 0), 257) << letter;
        reg(letter, 255) = 0x52;
    }
    for (const int kind : {1, 2, 4})
        EXPECT_EQ(tunerx_chkpin(kind, 0), 261);
    tunXParams.state = TUNER_BOOTED;
    EXPECT_EQ(tunerx_chkpin(3, 0x1F7), 259) << "no tuning";
    EXPECT_EQ(reg('B', 231), 0xF7);
    EXPECT_EQ(reg('B', 15), 143) << "written all the same";
    bring_up();
    EXPECT_EQ(tunerx_chkpin(3, 1), 0);
    EXPECT_EQ(reg('A', 172), 0x04);
    ask("gpio 13 0");
    EXPECT_EQ(tunerx_chkpin(0, 0), -1);
    EXPECT_EQ(tunerx_chkpin(3, 0), -1);
}

TEST_F(Tuner, TheVariantChangesWithoutATuning)
{
    bring_up();
    EXPECT_EQ(tunerx_change_seamless(), 259) << "not tuned";
    ASSERT_EQ(tunerx_tuning(0, 13), 0);
    for (const auto& [band, state, path] : {std::tuple{2, 0x1331u, 0x4A}, {0, 0x1321u, 0x0A}}) {
        EXPECT_EQ(tunerx_change_seamless(), 0);
        EXPECT_EQ(std::tuple(tunXParams.band, tuner_get_status(), reg('B', 237), tunXParams.status),
                  std::tuple(band, state, path, TUNER_TUNED));
    }
    for (const auto& [band, partner] : {std::pair{3, 5}, {5, 3}, {6, 8}, {8, 6}}) {
        tunXParams.band = band;
        EXPECT_EQ(tunerx_change_seamless(), 0);
        EXPECT_EQ(tunXParams.band, partner);
    }
    tunXParams.band = 9;
    EXPECT_EQ(tunerx_change_seamless(), 258);
    EXPECT_EQ(tunXParams.status, TUNER_NOT_TUNED);
    ASSERT_EQ(tunerx_tuning(1, 13), 0);
    EXPECT_EQ(tunerx_change_seamless(), 259) << "narrow";
}

TEST_F(Tuner, ListsOfChannelsAreTriedInTheirOrder)
{
    bring_up();
    let_spin();
    const auto head = tunerx_create_tdc();
    EXPECT_EQ(std::tuple(head->ch, head->record, head->status), std::tuple(13, -1, 2));
    EXPECT_EQ(tuner_search_ch(head.get()), 0) << "an empty list";
    tunerx_tdc* const p_first = tunerx_cs_addch(0, 27, head.get());
    tunerx_tdc* const p_second = tunerx_cs_addch(4, 19, head.get());
    EXPECT_EQ(tunerx_cs_addch(0, 12, head.get()), nullptr);
    tunerx_cs_addch(0, 40, head.get());
    EXPECT_EQ(head->next.get(), p_first);
    EXPECT_EQ(tuner_search_ch(head.get()), 257) << "the third isn't on the air";
    EXPECT_EQ(std::tuple(tunXParams.wait, p_first->record, p_first->status), std::tuple(1, 14, 0));
    EXPECT_GE(p_first->elapsed_ms, 200u);
    EXPECT_EQ(std::tuple(p_second->ch, p_second->record), std::tuple(19, 112 + 53 + 19));
    EXPECT_EQ(p_second->next->status, 2) << "not noted";
    tunerx_cs_delch(0, 40, head.get());
    tunerx_cs_delch(0, 41, head.get());
    EXPECT_EQ(tunerx_search_ch(head.get()), 0);
    tunerx_cs_delch(0, 27, head.get());
    EXPECT_EQ(head->next.get(), p_second);
    tunerx_cs_freech(head.get());
    EXPECT_EQ(head->next, nullptr);
    EXPECT_EQ(tunerx_search_ch(nullptr), 258);
    tunXParams.state = TUNER_BOOTED;
    EXPECT_EQ(tunerx_search_ch(head.get()), 259);
}

TEST_F(Tuner, TheHostsNodesAreOpenedOnceAndClosedAll)
{
    std::string text;
    EXPECT_EQ(tunerx_hwl_device_open(), 259) << "off";
    tunXParams.state = TUNER_POWERED;
    ask("fail open /dev/mmtuner 1");
    EXPECT_EQ(tunerx_hwl_device_open(), 257);
    EXPECT_EQ(tunXParams.state, TUNER_POWERED);
    EXPECT_EQ(tunerx_hwl_device_open(), 0);
    EXPECT_EQ(tunXParams.state, TUNER_OPEN);
    for (const char* node : {"power_ctrl", "ant_ctrl", "tuner_irq 1", "tuner_irq_ctrl"}) {
        ask(std::string("fail open /sys/devices/platform/mmtuner_pdev.0/") + node +
            (std::string_view(node).ends_with('1') ? "" : " 1"));
        EXPECT_EQ(tunerx_hwl_if_init(), 257) << node;
        EXPECT_EQ(ask("files mmtuner_pdev"), "");
    }
    EXPECT_EQ(tunerx_hwl_if_init(), 0);
    ant_switch_thread_activequeue();
    ant_swt.counter = 5;
    EXPECT_EQ(tunerx_hwl_terminate(), 0);
    EXPECT_EQ(std::tuple(tunXParams.state, ant_swt.run.load(), ant_swt.counter.load()),
              std::tuple(TUNER_OPEN, 0, 0));
    EXPECT_TRUE(phone::file_read("/sys/devices/platform/mmtuner_pdev.0/power_ctrl", text));
    EXPECT_EQ(text, "1");
    EXPECT_EQ(tunerx_hwl_ctl_power(1), 258);
    EXPECT_EQ(tuner_ctl_power(1), 0);
    EXPECT_EQ(tunXParams.state, TUNER_OFF);
    EXPECT_EQ(ask("files mmtuner"), "");
    EXPECT_EQ(tuner_check_dev_openable(), 0);
    ask("fail open /dev/mmtuner 1");
    EXPECT_EQ(tuner_check_dev_openable(), 259);
    EXPECT_EQ(ask("files mmtuner"), "");
}

TEST_F(Tuner, TheBusCheckWaitsForTheLine)
{
    pin_init();
    pin_map_set(pin_brenk_co_get, 1);
    gpio_linux_init(PIN_GRP_GPIO);
    isdb_init();
    isdb_ej113_init();
    let_run();
    const struct {
        const char* bench; // what the bench does to the line
        std::uint8_t way, wanted[3];
    } cases[] = {{"free", 0, {0, 0, 0}}, {"free", 1, {0, 0, 1}}, {"1", 0, {7, 8, 1}}, {"0", 1, {7, 8, 0}}};
    std::uint8_t values[4] = {7, 8, 0, 9};
    EXPECT_EQ(isdb_check_bbif(values), 0) << "not initialised";
    tuner_put_status(TUNER_INITIALISED);
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.bench) + ' ' + std::to_string(c.way));
        ask(std::string("gpio 68 ") + c.bench);
        const std::uint8_t before[4] = {7, 8, c.way, 9};
        std::copy_n(before, 4, values);
        const std::uint64_t start = tuner_get_time();
        EXPECT_EQ(isdb_check_bbif(values), 1);
        EXPECT_EQ(numbers(values, values + 4), (numbers{c.wanted[0], c.wanted[1], c.wanted[2], 9}));
        EXPECT_EQ(reg('B', 219), c.way);
        EXPECT_EQ(tuner_get_time() - start >= 3000, c.bench[0] != 'f');
    }
    std::uint8_t byte = 9;
    EXPECT_EQ(isdb_i2c_rd(106, 255, &byte), 1);
    EXPECT_EQ(byte, 0x52);
    std::uint32_t parameter = 3;
    EXPECT_EQ(isdb_get_parameter(&parameter), 0) << "the driver has none";
    isdb_bper_result result = {};
    EXPECT_EQ(isdb_get_bper(2, 0, 0, &result), 0);
}

} // namespace
