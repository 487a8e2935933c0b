// The tuner library's tables, bit by bit: each bit of a record alone, over registers of zeros and of ones, so
// that a neighbour, a reversed order or another register shows.
#include <functional>
#include <map>

#include "joint/tuner_bench.h"
#include "tunerx/tunerx_cfg.h"
#include "tunerx/tunerx_moni.h"

namespace {

// Every register but those whose bits are in `pairs` holds `value`; these hold it with `changed` inverted.
void expect_registers(std::uint8_t value, const std::vector<bit_pair>& all,
                      const std::vector<bit_pair>& changed)
{
    std::map<std::pair<char, int>, std::uint8_t> wanted;
    for (const bit_pair& p : all)
        wanted[{p.letter, p.number}] = value;
    for (const bit_pair& p : changed)
        wanted[{p.letter, p.number}] ^= static_cast<std::uint8_t>(1 << p.bit);
    for (const char letter : {'A', 'B', 'C'})
        for (int number = 0; number < (letter == 'C' ? 0xFF : 0xF0); number++) {
            const auto found = wanted.find({letter, number});
            EXPECT_EQ(int{TunerBench::reg(letter, number)},
                      int{found != wanted.end() ? found->second : value})
                << letter << number;
        }
}

// A record of 64 bits through one call: value and mask in, value and mask out.
using access_fn = std::function<int(std::uint64_t& value, std::uint64_t& mask)>;

void check_writes(const std::vector<bit_pair>& all, std::uint64_t mask, const access_fn& access)
{
    for (const bit_pair& p : all) {
        SCOPED_TRACE("record bit " + std::to_string(p.record));
        for (const std::uint8_t before : {0x00, 0xFF}) {
            TunerBench::fill(before);
            const std::uint64_t one = 1ull << p.record;
            std::uint64_t value = before == 0 ? one : ~one;
            std::uint64_t mask_in = mask;
            ASSERT_EQ(access(value, mask_in), 0);
            expect_registers(before, all, {p});
        }
    }
}

void check_reads(const std::vector<bit_pair>& all, std::uint64_t mask, bool gives_mask,
                 const access_fn& access)
{
    for (const bit_pair& p : all) {
        TunerBench::fill(0);
        TunerBench::reg(p.letter, p.number) = static_cast<std::uint8_t>(1 << p.bit);
        std::uint64_t value = ~0ull, mask_out = 0;
        ASSERT_EQ(access(value, mask_out), 0);
        EXPECT_EQ(value, 1ull << p.record) << p.letter << p.number;
        EXPECT_EQ(mask_out, gives_mask ? mask : 0);
    }
}

std::uint64_t mask_of(const std::vector<bit_pair>& all)
{
    std::uint64_t mask = 0;
    for (const bit_pair& p : all)
        mask |= 1ull << p.record;
    return mask;
}

access_fn as_words(int (*call)(int, int, tunerx_field_record&), int path, int kind)
{
    return [=](std::uint64_t& value, std::uint64_t& mask) {
        tunerx_field_record record = {static_cast<std::uint32_t>(value), static_cast<std::uint32_t>(mask)};
        const int rc = call(path, kind, record);
        value = record.value;
        mask = record.mask;
        return rc;
    };
}

struct Fields : TunerBench {
    void SetUp() override
    {
        TunerBench::SetUp();
        tunXParams.state = TUNER_WIDE;
    }

    static void check(const char* table, const access_fn& access, const char* read_only = "")
    {
        SCOPED_TRACE(table);
        const auto written = pairs(table);
        auto read = written;
        for (const bit_pair& p : pairs(read_only))
            read.push_back(p);
        check_writes(written, mask_of(read), access);
        check_reads(read, mask_of(read), true, access);
    }
};

TEST_F(Fields, ErrorRateConfigurationHasItsBitsWhereTheyAre)
{
    check("0-1 B139 6-7,2-5 B140 4-7,6-6 B139 5-5,7-7 B139 4-4,8-11 B139 0-3,13-16 B140 0-3,17-20 B141 4-7,"
          "21-24 B141 0-3,25-26 B144 2-3",
          as_words(tunerx_cfg_berper, 0, 0));
    check("6-6 B145 5-5,7-7 B145 4-4,8-11 B145 0-3,13-16 B140 0-3,17-20 B141 4-7,21-24 B141 0-3",
          as_words(tunerx_cfg_berper, 0, 1), "25-26 B147 2-3");
    check("6-6 C128 5-5,7-7 C128 4-4,8-11 C128 0-3,12-12 C168 5-5,13-16 C129 0-3",
          as_words(tunerx_cfg_berper, 1, 0));
    check("6-6 C130 5-5,7-7 C130 4-4,8-11 C130 0-3,12-12 C168 6-6,13-16 C129 4-7",
          as_words(tunerx_cfg_berper, 1, 1));
}

TEST_F(Fields, ErrorRateControlHasItsBitsWhereTheyAre)
{
    check("0-6 B142 0-6", as_words(tunerx_ctl_berper, 0, 0));
    check("0-0 B146 0-0,2-5 B146 2-5", as_words(tunerx_ctl_berper, 0, 1));
    check("0-0 C131 0-0,2-2 C131 3-3,5-5 C131 4-4", as_words(tunerx_ctl_berper, 1, 0));
    check("0-0 C131 1-1,2-2 C131 6-6,5-5 C131 7-7", as_words(tunerx_ctl_berper, 1, 1));
}

TEST_F(Fields, CarrierToNoiseConfigurationAndControlHaveTheirBitsWhereTheyAre)
{
    const auto cfg = [](int path, int, tunerx_field_record& r) { return tunerx_cfg_cn(path, r); };
    const auto ctl = [](int path, int, tunerx_field_record& r) { return tunerx_ctl_cn(path, r); };
    check("0-2 B135 2-4", as_words(cfg, 0, 0));
    check("3-6 C125 1-4,7-7 C125 0-0,8-8 C125 7-7,9-10 C125 5-6", as_words(cfg, 1, 0));
    check("0-1 B135 0-1", as_words(ctl, 0, 0));
    check("0-1 C126 0-1", as_words(ctl, 1, 0));
}

TEST_F(Fields, AFieldIsWrittenWhenItsLowestMaskBitIsSetAndOnlyThen)
{
    fill(0);
    tunerx_field_record record = {0xFFFFFFFF, 1u << 9 | 1u << 13};
    EXPECT_EQ(tunerx_cfg_berper(0, 0, record), 0);
    EXPECT_EQ(std::tuple(reg('B', 139), reg('B', 140)), std::tuple(0x00, 0x0F));
}

TEST_F(Fields, WhatIsNoPathOrKindAndAChipThatIsNotReadyAreRefused)
{
    tunerx_field_record record = {0, 0};
    for (const auto& [path, kind] : {std::pair{2, 0}, {-1, 0}, {0, 2}, {1, -1}}) {
        EXPECT_EQ(tunerx_cfg_berper(path, kind, record), 258);
        EXPECT_EQ(tunerx_ctl_berper(path, kind, record), 258);
    }
    EXPECT_EQ(tunerx_cfg_cn(2, record), 258);
    EXPECT_EQ(tunerx_ctl_cn(-1, record), 258);
    tunXParams.state = TUNER_BOOTED;
    EXPECT_EQ(tunerx_cfg_berper(0, 0, record), 259);
    EXPECT_EQ(tunerx_cfg_ac(record), 259);
    EXPECT_EQ(tunerx_ctl_berper(0, 0, record), 0) << "has no condition";
    tunXParams.state = TUNER_INITIALISED;
    EXPECT_EQ(tunerx_cfg_berper(0, 0, record), 0) << "needn't be tuned";
    ask("gpio 13 0");
    EXPECT_EQ(tunerx_cfg_berper(0, 0, record = {0, 0}), -1);
    EXPECT_EQ(tunerx_cfg_berper(0, 0, record = {0, 1}), -1);
}

TEST_F(Fields, AcConfigurationIsTheInverseOfOneBitAndEqualToTheOther)
{
    tunerx_field_record record = {1, 1};
    fill(0xFF);
    EXPECT_EQ(tunerx_cfg_ac(record), 0);
    EXPECT_EQ(std::tuple(reg('B', 128), reg('C', 120)), std::tuple(0xBF, 0xFF));
    record = {0, 1};
    fill(0);
    EXPECT_EQ(tunerx_cfg_ac(record), 0);
    EXPECT_EQ(std::tuple(reg('B', 128), reg('C', 120)), std::tuple(0x40, 0x00));
    record = {7, 0};
    EXPECT_EQ(tunerx_cfg_ac(record), 0);
    EXPECT_EQ(std::tuple(record.value, record.mask), std::tuple(0u, 1u));
    tunXParams.state = TUNER_NARROW;
    reg('C', 120) = 0x40;
    record = {0, 0};
    EXPECT_EQ(tunerx_cfg_ac(record), 0);
    EXPECT_EQ(record.value, 1u);
}

TEST_F(Fields, OutputsHaveTheirBitsWhereTheyAre)
{
    const access_fn access = [](std::uint64_t& value, std::uint64_t& mask) {
        tunerx_pctl record = {{static_cast<std::uint32_t>(value), static_cast<std::uint32_t>(value >> 32)},
                              {static_cast<std::uint32_t>(mask), static_cast<std::uint32_t>(mask >> 32)}};
        const int rc = tunerx_cfg_pctl(record);
        value = record.value[0] | std::uint64_t{record.value[1]} << 32;
        return rc;
    };
    const auto all =
        pairs("0-3 C232 0-3,4-5 C248 2-3,6-7 C248 0-1,8-14 C197 6-0,15-15 A172 1-1,16-16 A172 0-0,"
              "17-17 A172 2-2,18-19 C8 6-7,20-20 C8 1-1,21-22 C8 4-5,23-24 A180 4-5,25-25 C8 0-0,"
              "26-26 A180 0-0,32-39 C5 0-7,40-47 A182 0-7,48-55 C6 0-7");
    check_writes(all, mask_of(all), access);
    check_reads(all, mask_of(all), false, access);
    fill(0);
    tunerx_pctl record = {{0xFFFFFFFF, 0xFFFFFFFF}, {1u << 2, 0}};
    EXPECT_EQ(tunerx_cfg_pctl(record), 0);
    EXPECT_EQ(reg('C', 232), 0x0F) << "a field is written whole";
    EXPECT_EQ(reg('C', 248), 0x00);
}

TEST_F(Fields, StreamOutputsGoByteByByteUnderTheirMasks)
{
    const struct {
        int kind;
        std::vector<std::pair<char, int>> regs;
    } cases[] = {
        {1, {{'B', 214}, {'B', 215}, {'B', 216}, {'B', 217}, {'B', 218}, {'B', 219}, {'B', 55}}},
        {2, {{'C', 0}, {'C', 1}, {'C', 2}, {'C', 3}, {'C', 198}, {'C', 167}, {'C', 168}}},
        {3, {{'C', 240}, {'C', 241}, {'C', 242}, {'C', 243}, {'C', 244}, {'C', 245}, {'C', 246}, {'C', 247}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.kind);
        fill(0x0F);
        tunerx_tsout record = {c.kind, {0xC4B3A291, 0x28171605}, {0xFFF0FFFF, 0xFFFF00FF}};
        EXPECT_EQ(tunerx_cfg_tsout(record), 0);
        // the third byte's mask is F0, the sixth's 0
        const std::uint8_t wanted[8] = {0x91, 0xA2, 0xBF, 0xC4, 0x05, 0x0F, 0x17, 0x28};
        for (std::size_t i = 0; i < c.regs.size(); i++)
            EXPECT_EQ(reg(c.regs[i].first, c.regs[i].second), wanted[i]) << i;
        record = {c.kind, {1, 1}, {0, 0}};
        EXPECT_EQ(tunerx_cfg_tsout(record), 0);
        EXPECT_EQ(record.value[0], 0xC4BFA291);
        EXPECT_EQ(record.value[1], c.kind == 3 ? 0x28170F05u : 0x00170F05u);
    }
    tunerx_tsout record = {4, {0, 0}, {0, 0}};
    EXPECT_EQ(tunerx_cfg_tsout(record), 258);
    record.kind = 0;
    EXPECT_EQ(tunerx_cfg_tsout(record), 258);
}

struct event_case {
    unsigned group;
    bool narrow;
    const char* places; // of the parameter's bits 0 to 4, and of the option as bit 5
};

// clang-format off
constexpr event_case event_cases[] = {
    {   1, false, "0-2 B218 3-5" },
    {   1, true,  "" },
    {   2, false, "0-2 B225 0-2" },
    {   2, true,  "0-2 C204 0-2" },
    {   4, false, "0-2 B224 0-2,5-5 B224 3-3" },
    {   4, true,  "0-2 C203 0-2,5-5 C203 3-3" },
    {   8, false, "0-4 B223 0-4,5-5 B223 5-5" },
    {   8, true,  "0-4 C202 0-4,5-5 C202 5-5" },
    {  16, false, "0-3 B226 0-3" },
    {  16, true,  "0-3 C205 0-3" },
    {  32, false, "0-2 B224 4-6" },
    {  32, true,  "0-1 C202 6-7,2-4 C203 4-6" },
    {  64, false, "0-2 B225 3-5" },
    {  64, true,  "0-2 C204 3-5" },
    { 128, false, "0-3 B226 4-7" },
    { 128, true,  "0-3 C205 4-7" },
};
// clang-format on

TEST_F(Fields, EventsHaveTheirParametersWhereTheyAre)
{
    for (const event_case& c : event_cases) {
        SCOPED_TRACE("group " + std::to_string(c.group) + (c.narrow ? " narrow" : " wide"));
        const bit_pair on = {0, c.narrow ? 'C' : 'B', c.narrow ? 201 : 222, 0};
        const std::uint32_t path = c.narrow ? 1u << 26 : 0;
        auto all = pairs(c.places);
        for (int bit = 0; bit < 6; bit++) {
            std::vector<bit_pair> changed = {on};
            for (const bit_pair& p : all)
                if (p.record == bit)
                    changed.push_back(p);
            fill(0);
            EXPECT_EQ(tunerx_set_event(c.group | 1u << (20 + bit) | path, 0), 0);
            auto touched = all;
            touched.push_back(on);
            expect_registers(0, touched, changed);
        }
    }
}

TEST_F(Fields, EventsAreRemovedByTheirGroupAndTheSecondGroupHasNoPlace)
{
    fill(0xFF);
    EXPECT_EQ(tunerx_set_event(0x05, 1), 0);
    EXPECT_EQ(reg('B', 222), 0xFA);
    EXPECT_EQ(tunerx_set_event(1u << 26 | 0x80, 1), 0);
    EXPECT_EQ(reg('C', 201), 0x7F);
    for (const int action : {0, 1}) {
        EXPECT_EQ(tunerx_set_event(0x100, action), 258);
        EXPECT_EQ(tunerx_set_event(0, action), 258);
    }
    EXPECT_EQ(tunerx_set_event(3, 0), 258);
    EXPECT_EQ(tunerx_set_event(1, 2), 258);
    tunXParams.state = TUNER_BOOTED;
    EXPECT_EQ(tunerx_set_event(1, 0), 259);
}

// Words that are read alone: each register bit gives its bit of the words and no other; `base` is what is set
// whatever the registers say.
void check_words(const char* table, char letter, int first, int count, std::uint64_t base,
                 const std::function<std::uint64_t()>& read)
{
    const auto all = pairs(table);
    for (int number = first; number < first + count; number++)
        for (int bit = 0; bit < 8; bit++) {
            TunerBench::fill(0);
            TunerBench::reg(letter, number) = static_cast<std::uint8_t>(1 << bit);
            std::uint64_t wanted = base;
            for (const bit_pair& p : all)
                if (p.number == number && p.bit == bit)
                    wanted += 1ull << p.record;
            EXPECT_EQ(read(), wanted) << letter << number << " bit " << bit;
        }
}

std::uint64_t read_tmcc()
{
    std::uint32_t words[2] = {7, 7};
    EXPECT_EQ(tunerx_get_tmcc(words), 0);
    return words[0] | std::uint64_t{words[1]} << 32;
}

std::uint64_t read_sync()
{
    std::uint32_t word = 7;
    EXPECT_EQ(tunerx_get_sync(word), 0);
    return word;
}

TEST_F(Fields, TransmissionControlHasItsBitsWhereTheyAre)
{
    check_words(
        "0-1 B160 5-6,2-5 B160 1-4,6-6 B160 0-0,7-7 B161 6-6,8-10 B161 3-5,11-13 B163 3-5,14-16 B165 3-5,"
        "17-19 B161 0-2,20-22 B163 0-2,23-25 B165 0-2,32-34 B162 4-6,35-37 B164 4-6,38-40 B166 4-6,"
        "41-44 B162 0-3,45-48 B164 0-3,49-52 B166 0-3,53-55 B167 0-2",
        'B', 160, 8, 0, read_tmcc);
    tunXParams.state = TUNER_NARROW;
    check_words(
        "0-1 C139 5-6,2-5 C139 1-4,6-6 C139 0-0,7-7 C140 6-6,8-10 C140 3-5,11-13 C142 3-5,14-16 C144 3-5,"
        "17-19 C140 0-2,20-22 C142 0-2,23-25 C144 0-2,32-34 C141 4-6,35-37 C143 4-6,38-40 C145 4-6,"
        "41-44 C141 0-3,45-48 C143 0-3,49-52 C145 0-3",
        'C', 139, 8, 1ull << 56, read_tmcc);
    EXPECT_EQ(reg('C', 186), 0x80);
    tunXParams.state = TUNER_INITIALISED;
    std::uint32_t words[2];
    EXPECT_EQ(tunerx_get_tmcc(words), 259);
}

TEST_F(Fields, TheSyncWordHasItsBitsWhereTheyAre)
{
    tunXParams.state = TUNER_WIDE_THIRD;
    check_words(
        "0-1 B148 2-3,2-3 B148 0-1,4-5 B148 4-5,6-9 B149 7-4,10-13 B149 0-3,14-16 B150 2-0,17-18 B151 7-6,"
        "19-24 B151 5-0,25-25 B150 7-7",
        'B', 148, 4, 0, read_sync);
    tunXParams.state = TUNER_NARROW;
    check_words(
        "0-0 C134 2-2,2-3 C134 0-1,6-9 C135 7-4,10-12 C135 0-2,19-19 C137 0-0,20-20 C137 4-4,21-21 C137 7-7,"
        "23-23 C137 1-1,26-26 C134 5-5,27-27 C135 3-3,28-28 C136 7-7",
        'C', 134, 4, 1u << 29 | 1, read_sync);
    std::uint32_t word;
    for (const std::uint32_t state : {TUNER_OFF, TUNER_BOOTED, TUNER_INITIALISED}) {
        tunXParams.state = state;
        EXPECT_EQ(tunerx_get_sync(word), 259);
    }
}

} // namespace
