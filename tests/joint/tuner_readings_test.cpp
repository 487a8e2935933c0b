// The tuner library's readings, against registers set by hand and against the phone's own broadcasts; and the
// antenna thread.
#include <filesystem>

#include "core/files.h"
#include "joint/tuner_bench.h"
#include "tuner/antenna.h"
#include "tuner/tuner.h"
#include "tunerx/tunerx_moni.h"

namespace {

void set(char letter, int first, const std::vector<int>& values)
{
    for (const int value : values)
        TunerBench::reg(letter, first++) = static_cast<std::uint8_t>(value);
}

struct Readings : TunerBench {
    void SetUp() override
    {
        TunerBench::SetUp();
        let_run();
        tunXParams.state = TUNER_WIDE;
    }

    using words = std::vector<std::int64_t>;

    // A reading with what it gives: errors, period, ratio and flags; raw, dB and flags. Without waiting or
    // not.
    static words berper(int at_once, std::uint32_t flags)
    {
        tunerx_berper r = {1, 2, 3, flags};
        const int rc = tunerx_get_berper(at_once, r);
        return {rc, r.errors, r.period, r.ratio, r.flags};
    }
    static words cn(int at_once)
    {
        tunerx_cn r = {1, 2, 3};
        const int rc = tunerx_get_cn(at_once, r);
        return rc == 0 ? words{r.raw, r.cn, r.flags} : words{rc};
    }
};

struct berper_case {
    const char* what;
    std::uint32_t input; // layer, kind
    int reg139, reg140, reg144, reg145, status;
    std::uint32_t errors, period;
    tunerx_berper wanted;
    int reg144_then, reg147_then;
};

// clang-format off
constexpr berper_case wide_cases[] = {
    // 100 / 2^5; the layer isn't written
    { "mode 0",          0xFFFFFFFA, 0x80, 0x5A, 0x03, 0x00, 0xC0, 100, 9, { 100, 5, 312500, 0x09A }, 0x03, 0x40 },
    { "mode 0, to 2^0",  0x000, 0x40, 0x0A, 0x00, 0x00, 0xC0, 7, 9, { 7, 0, 700000, 0x058 }, 0x00, 0x40 },
    // 66051 / (258 * 203 * 8)
    { "mode 2, layer A", 0x001, 0x00, 0x00, 0x0B, 0x20, 0x30, 66051, 258, { 66051, 258, 15764, 0x219 }, 0x09, 0x40 },
    { "the same as 0",   0x000, 0x00, 0x00, 0x0B, 0x20, 0x30, 66051, 258, { 66051, 258, 15764, 0x218 }, 0x08, 0x40 },
    { "mode 1, layer B", 0x002, 0x20, 0x00, 0x04, 0x00, 0x0C, 7, 16, { 7, 16, 43750, 0x13A }, 0x06, 0x40 },
    { "mode 3, layer C", 0x003, 0xE0, 0x00, 0x0C, 0x00, 0x03, 7, 16, { 7, 16, 43750, 0x3FB }, 0x0F, 0x40 },
    { "period 0",        0x003, 0xE0, 0x00, 0x0C, 0x00, 0x03, 7, 0, { 7, 0, 100000, 0x3FB }, 0x0F, 0x40 },
    // 0xFFFFFF * 100000 is more than a word holds
    { "too much",        0x003, 0x20, 0x00, 0x04, 0x00, 0x03, 0xFFFFFF, 1, { 0xFFFFFF, 1, 0xFFFFFFFF, 0x13B }, 0x07, 0x40 },
    { "packets",         0x007, 0xE0, 0x00, 0x08, 0x20, 0x03, 7, 16, { 7, 16, 43750, 0x13F }, 0x08, 0xC3 },
    { "packets, by bits", 0x006, 0xE0, 0x00, 0x00, 0x00, 0x0C, 66051, 258, { 66051, 258, 15764, 0x11E }, 0x00, 0xC2 },
};
// clang-format on

TEST_F(Readings, ErrorRatesOfTheWidePath)
{
    for (const berper_case& c : wide_cases) {
        SCOPED_TRACE(c.what);
        fill(0);
        set('B', 139, {c.reg139, c.reg140});
        set('B', 144, {c.reg144, c.reg145, 0, 0x40});
        const auto byte = [](std::uint32_t value, int shift) {
            return static_cast<int>(value >> shift & 0xFF);
        };
        set('B', 195,
            {c.status, byte(c.errors, 16), byte(c.errors, 8), byte(c.errors, 0), byte(c.period, 8),
             byte(c.period, 0)});
        EXPECT_EQ(berper(0, c.input),
                  (words{0, c.wanted.errors, c.wanted.period, c.wanted.ratio, c.wanted.flags}));
        EXPECT_EQ(std::tuple(reg('B', 144), reg('B', 147)), std::tuple(c.reg144_then, c.reg147_then));
    }
}

TEST_F(Readings, ErrorRatesOfTheNarrowPath)
{
    tunXParams.state = TUNER_NARROW;
    for (const bool packets : {false, true}) {
        fill(0);
        set('C', packets ? 130 : 128, {0x20});
        set('C', 133, {packets ? 0x00 : 0xFF});
        set('C', 174, {packets ? 0x0C : 0x30, 0xAB, 0xCD, 0xEF, 0x12, 0x34});
        // 11259375 / 4660
        const std::uint32_t flags = packets ? 0x93D : 0x939;
        EXPECT_EQ(berper(0, packets ? 0xFFFFFFFF : 0xFFFFFFFB),
                  (words{0, 0xABCDEF, 0x1234, 241617489, flags}));
        EXPECT_EQ(reg('C', 133), packets ? 0x80 : 0x7F);
        // by bits of a packet: 1911 / (64 * 203 * 8)
        fill(0);
        set('C', 174, {packets ? 0x0C : 0x30, 0x00, 0x07, 0x77, 0x00, 0x40});
        EXPECT_EQ(berper(0, flags), (words{0, 1911, 64, 1838, packets ? 0x91D : 0x919}));
    }
}

TEST_F(Readings, AMeasurementThatDoesntEndIsReadAfterThreeSecondsOrAtOnce)
{
    fill(0);
    set('B', 144, {0x04});
    set('B', 195, {0xFA, 0, 0, 5, 0, 1}); // all but the complete bit of layer B
    const std::uint64_t start = tuner_get_time();
    // 5 / (203 * 8)
    EXPECT_EQ(berper(1, 2), (words{0, 5, 1, 307, 0x10A}));
    EXPECT_LT(tuner_get_time() - start, 1000u);
    EXPECT_EQ(berper(0, 2), (words{0, 5, 1, 307, 0x50A}));
    EXPECT_GE(tuner_get_time() - start, 3000u);
    tunXParams.state = TUNER_NARROW;
    set('C', 174, {0x20});
    EXPECT_EQ(berper(0, 2).back(), 0xD09);
}

TEST_F(Readings, ErrorRatesThatArentAvailable)
{
    const struct {
        std::uint32_t state, flags;
        char letter;
        int number, value;
    } cases[] = {{TUNER_WIDE, 0, 'B', 142, 1},
                 {TUNER_WIDE_THIRD, 4, 'B', 146, 1},
                 {TUNER_NARROW, 0, 'C', 131, 1},
                 {TUNER_NARROW, 4, 'C', 131, 2}};
    for (const auto& c : cases) {
        fill(0);
        tunXParams.state = c.state;
        EXPECT_EQ(berper(1, c.flags)[0], 0);
        reg(c.letter, c.number) = static_cast<std::uint8_t>(c.value);
        EXPECT_EQ(berper(1, c.flags)[0], 259);
    }
    tunXParams.state = TUNER_INITIALISED;
    EXPECT_EQ(berper(1, 0)[0], 259);
    tunXParams.state = TUNER_WIDE;
    ask("gpio 14 0");
    EXPECT_EQ(berper(1, 0)[0], -1);
}

TEST_F(Readings, CarrierToNoiseOfTheWidePath)
{
    fill(0);
    set('B', 191, {0x03, 0x01, 0xD0});
    EXPECT_EQ(cn(0), words{259}) << "without its sync bit";
    set('B', 151, {0x10});
    EXPECT_EQ(cn(0), (words{464, 2349961, 3}));
    set('B', 191, {0x02, 0x00, 0x00});
    EXPECT_EQ(cn(1), (words{0, 5016479, 1})) << "0 counts as 1";
    set('B', 191, {0x01});
    EXPECT_EQ(cn(0)[2], 6) << "complete, and the time over";
    set('B', 161, {3 << 3});
    EXPECT_EQ(cn(1).size(), 3u);
    set('B', 161, {4 << 3});
    EXPECT_EQ(cn(1), words{259});
    set('B', 161, {0});
    set('B', 135, {0x01});
    EXPECT_EQ(cn(1), words{259}) << "not available";
    tunXParams.state = TUNER_INITIALISED;
    EXPECT_EQ(cn(1), words{259});
}

TEST_F(Readings, CarrierToNoiseOfTheNarrowPath)
{
    fill(0);
    tunXParams.state = TUNER_NARROW;
    set('C', 171, {0x0C, 0xC0, 0x09});
    EXPECT_EQ(cn(0), words{259});
    set('C', 135, {0x08});
    EXPECT_EQ(cn(0), (words{9, 2286057, 0xB}));
    set('C', 171, {0x04, 0xFF, 0xFF});
    EXPECT_EQ(cn(1), (words{0x3FFF, -974093, 9}));
    set('C', 126, {0x01});
    EXPECT_EQ(cn(1), words{259});
}

TEST_F(Readings, TheLevelIsSignedInSixteenths)
{
    const struct {
        int whole, parts;
        std::int32_t wanted;
    } cases[] = {{0xFF, 0x80, -50000},
                 {0xCF, 0xC9, -4825000},
                 {0x03, 0x1F, 306250},
                 {0x7F, 0xF0, 12793750},
                 {0x80, 0x00, -12800000}};
    std::int32_t value = 1;
    EXPECT_EQ(tunerx_get_rssi(value), 259) << "not settled";
    set('A', 185, {0x80});
    for (const auto& c : cases) {
        set('A', 215, {c.whole, c.parts});
        EXPECT_EQ(tunerx_get_rssi(value), 0);
        EXPECT_EQ(value, c.wanted);
    }
    EXPECT_EQ(tuner_get_rssi(), -128.0f);
    tunXParams.state = TUNER_INITIALISED;
    EXPECT_EQ(tunerx_get_rssi(value), 259);
    EXPECT_EQ(tuner_get_rssi(), -1.0f);
}

TEST_F(Readings, AcDataComeInTwoHalves)
{
    for (const bool narrow : {false, true}) {
        tunXParams.state = narrow ? TUNER_NARROW : TUNER_WIDE;
        const char letter = narrow ? 'C' : 'B';
        fill(0);
        tunerx_ac result;
        EXPECT_EQ(tunerx_get_ac(result), 259);
        set('B', 151, {0x10});
        set('C', 135, {0x08});
        set(letter, narrow ? 166 : 152, {0xA5});
        set(letter, narrow ? 154 : 168, {11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22});
        // the other kind: bit 6 clear when wide, set when narrow
        set(letter, narrow ? 120 : 128, {narrow ? 0x6F : 0x2F});
        EXPECT_EQ(tunerx_get_ac(result), 0);
        EXPECT_EQ(result.flags, narrow ? 0xA5u : 0x25u);
        EXPECT_EQ(reg(letter, narrow ? 120 : 128), narrow ? 0xDF : 0x9F);
        for (int i = 0; i < 24; i++)
            EXPECT_EQ(result.data[i], 11 + i % 12) << i;
        set(letter, narrow ? 120 : 128, {narrow ? 0x2F : 0x6F});
        EXPECT_EQ(tunerx_get_ac(result), 0);
        EXPECT_EQ(reg(letter, narrow ? 120 : 128), narrow ? 0x1F : 0x5F);
    }
}

// The wrappers, on a phone that receives.
struct Received : TunerBench {
    void SetUp() override
    {
        TunerBench::SetUp();
        bring_up();
    }

    static float reading(int kind, int circuit)
    {
        float value = -77;
        EXPECT_EQ(tuner_get_moni_info(kind, circuit, &value), 0);
        return value;
    }
};

TEST_F(Received, PlainNumbersOfTheWidePath)
{
    ASSERT_EQ(tunerx_tuning(0, 13), 0);
    EXPECT_NEAR(reading(TUNER_MONI_CN, 0), 23.49961f, 1e-5);
    EXPECT_EQ(reg('B', 135) & 0x1C, 0x0C);
    // 40 of 250 * 203 * 8 is 9.85e-5
    EXPECT_NEAR(reading(TUNER_MONI_BER, 0), 9e-5f, 1e-9);
    EXPECT_EQ(reg('B', 139), 0x12) << "bits, on, 2";
    EXPECT_NEAR(reading(TUNER_MONI_PER, 0), 8 / 250.f, 1e-9);
    EXPECT_EQ(reg('B', 145), 0x32);
    EXPECT_NEAR(tuner_get_bper(1, 0, 3), 127e-5f, 1e-9);
    EXPECT_NEAR(tuner_get_bper(0, 0, 1), 1 / 250.f, 1e-9);
    EXPECT_EQ(reading(TUNER_MONI_RSSI, 0), -48.25f);
    std::uint32_t words[2] = {9, 9};
    EXPECT_EQ(tuner_get_moni_info(TUNER_MONI_SYNC, 0, words), 0);
    EXPECT_EQ(words[0], 0u);
    EXPECT_EQ(tuner_get_sync(0), 1);
    EXPECT_EQ(tuner_get_moni_info(TUNER_MONI_TMCC, 0, words), 0);
    // countdown 15, partial; modulation 1 3 7, rate 1 2 7; length 3 2 7, segments 1 12 15, extra 7
    EXPECT_EQ(words[0], 15u << 2 | 1u << 7 | 1u << 8 | 3u << 11 | 7u << 14 | 1u << 17 | 2u << 20 | 7u << 23);
    EXPECT_EQ(words[1], 3u | 2u << 3 | 7u << 6 | 1u << 9 | 12u << 13 | 15u << 17 | 7u << 21);
    ask("broadcast 13 off");
    EXPECT_EQ(tuner_get_sync(0), 0);
    EXPECT_EQ(tuner_get_moni_info(TUNER_MONI_SYNC, 0, words), 0);
    EXPECT_EQ(words[0], 1u);
    EXPECT_EQ(reading(TUNER_MONI_CN, 0), 0.0f) << "without sync";
}

TEST_F(Received, PlainNumbersOfTheNarrowPath)
{
    // with bit 4 of register 128, the one that switches on, this chip counts packets
    ask("broadcast 13 packets 4000 0 0");
    ASSERT_EQ(tunerx_tuning(1, 13), 0);
    EXPECT_EQ(reading(TUNER_MONI_CN, 2), 0.0f) << "state 5 lacks bit 3";
    ask("broadcast 13 state 9 13");
    EXPECT_NEAR(reading(TUNER_MONI_CN, 2), 22.86057f, 1e-5);
    EXPECT_EQ(reg('C', 125) & 0x1E, 0x06);
    // 4000 of 250 * 203 * 8
    EXPECT_NEAR(reading(TUNER_MONI_BER, 2), 985e-5f, 1e-9);
    EXPECT_EQ(std::tuple(reg('C', 128) & 0x3F, reg('C', 130)), std::tuple(0x12, 0));
    EXPECT_EQ(reading(TUNER_MONI_PER, 2), 16.0f);
    EXPECT_EQ(reg('C', 130), 0x32);
}

TEST_F(Received, FailuresOfAllKindsAreOneNumber)
{
    std::uint32_t out[2];
    ASSERT_EQ(tunerx_tuning(0, 13), 0);
    for (const int kind : {1, 3, 6, 7, 8, 9})
        EXPECT_EQ(tuner_get_moni_info(kind, 0, nullptr), 258);
    for (const int kind : {0, 2, 4, 5, 10, -1})
        EXPECT_EQ(tuner_get_moni_info(kind, 0, out), 258);
    ask("gpio 13 0");
    for (const int kind : {1, 3, 6, 7, 8, 9})
        EXPECT_EQ(tuner_get_moni_info(kind, 0, out), 258) << kind;
    EXPECT_EQ(tuner_get_sync(0), -1);
    EXPECT_EQ(tuner_get_bper(1, 0, 2), -1.0f);
}

struct Antenna : Received {
    void SetUp() override
    {
        Received::SetUp();
        ASSERT_EQ(tunerx_tuning(0, 13), 0);
        ant_swt.run = 0;
        ant_swt.status = ANT_CHECK_NEEDED;
        ant_search_mode = 0;
        without_it = threads();
    }

    static std::string ant_ctrl()
    {
        std::string text;
        phone::file_read("/sys/devices/platform/mmtuner_pdev.0/ant_ctrl", text);
        return text;
    }

    // Waits for the thread, 100 s of the phone's time at most.
    static bool status_becomes(int status)
    {
        for (int turn = 0; turn < 1000 && ant_swt.status != status; turn++)
            tmr_msleep(100);
        return ant_swt.status == status;
    }

    static std::ptrdiff_t threads()
    {
        return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
    }

    // Whether the thread comes to its end, within 100 s of the phone's time.
    bool ends() const
    {
        for (int turn = 0; turn < 1000 && threads() > without_it; turn++)
            tmr_msleep(100);
        return threads() == without_it;
    }

    // The thread, which finds its flag set however slow the host is: the clock stands meanwhile.
    static void start_thread()
    {
        ask("clock hold");
        ASSERT_EQ(ant_switch_thread_createthread(), 0);
        ant_switch_thread_activequeue();
        ask("clock run");
    }

    void end_thread() const
    {
        ant_switch_thread_destroythread();
        EXPECT_TRUE(ends());
    }

    std::ptrdiff_t without_it = 0;
};

TEST_F(Antenna, SwitchingGoesThroughTheAttribute)
{
    EXPECT_EQ(tuner_ant_switch(1), 0);
    EXPECT_EQ(std::tuple(ant_ctrl(), tuner_get_current_ant()), std::tuple("1", 1));
    EXPECT_EQ(tuner_auto_ant_search(1), 0);
    EXPECT_EQ(std::tuple(ant_ctrl(), ant_search_mode.load()), std::tuple("2", 1));
    EXPECT_EQ(tuner_auto_ant_search(3), 0);
    EXPECT_EQ(std::tuple(ant_ctrl(), ant_search_mode.load()), std::tuple("0", 3));
    ask("fail write /sys/devices/platform/mmtuner_pdev.0/ant_ctrl 9");
    EXPECT_EQ(tuner_ant_switch(1), 0) << "the tenth attempt";
    ask("fail write /sys/devices/platform/mmtuner_pdev.0/ant_ctrl 10");
    EXPECT_EQ(tuner_ant_switch(2), 257);
    EXPECT_EQ(tuner_get_current_ant(), 1);
}

TEST_F(Antenna, TheSearchTakesTheBetterOne)
{
    const auto found = [] {
        tuner_search_ant();
        return std::tuple(ant_swt.best_level[0].load(), ant_swt.best_ant[0].load(),
                          ant_swt.best_level[1].load(), ant_swt.best_ant[1].load(), ant_ctrl());
    };
    EXPECT_EQ(found(), std::tuple(51.75f, 0, 46.5f, 1, "0"));
    ask("broadcast 13 level -60 -50");
    EXPECT_EQ(found(), std::tuple(50.0f, 1, 40.0f, 0, "1"));
    EXPECT_EQ(tuner_set_ant_get_drssi(2), -1.0f);
    reg('A', 185) = 0;
    tuner_search_ant();
    EXPECT_EQ(
        std::tuple(ant_swt.best_level[0].load(), ant_swt.best_level[1].load(), ant_swt.best_ant[1].load()),
        std::tuple(0.0f, -1.0f, 1))
        << "a failed level takes the second place";
}

TEST_F(Antenna, StabilityTriesTheSecondAntennaAndThenAsksForASearch)
{
    tuner_stability();
    EXPECT_EQ(ant_swt.status, ANT_CHECK_NEEDED) << "doesn't run";
    ant_switch_thread_activequeue();
    tuner_stability();
    EXPECT_EQ(ant_swt.status, ANT_STABLE);
    tuner_search_ant();
    // 5000 of 406000 is more than 0.01, 4000 is not
    ask("broadcast 13 errors 3 5000 1");
    const std::uint64_t start = tuner_get_time();
    tuner_stability();
    EXPECT_EQ(std::tuple(ant_swt.status.load(), ant_ctrl()), std::tuple(ANT_SEARCH_NEEDED, "1"));
    EXPECT_GE(tuner_get_time() - start, 3 * 600u);
    ant_swt.best_level[1] = -100.0f;
    tuner_ant_switch(0);
    tuner_stability();
    EXPECT_EQ(ant_swt.status, ANT_SEARCH_NEEDED);
    EXPECT_EQ(ant_ctrl(), "0") << "a second level that is too low isn't tried";
    ask("broadcast 13 errors 3 4000 1");
    tuner_stability();
    EXPECT_EQ(ant_swt.status, ANT_STABLE);
    ask("gpio 13 0");
    tuner_stability();
    EXPECT_EQ(ant_swt.status, ANT_CHECK_NEEDED);
}

TEST_F(Antenna, TheThreadSearchesThenWatches)
{
    ask("broadcast 13 level -60 -50");
    tuner_ant_search(1);
    start_thread();
    EXPECT_TRUE(status_becomes(ANT_STABLE));
    EXPECT_EQ(tuner_get_current_ant(), 1);
    ask("broadcast 13 off");
    EXPECT_TRUE(status_becomes(ANT_CHECK_NEEDED));
    end_thread();
    EXPECT_EQ(std::tuple(ant_swt.counter.load(), ant_swt.run.load()), std::tuple(0, 0));
}

TEST_F(Antenna, TheThreadEndsWithoutItsFlagOnTheNarrowUhfBandAndDoesNothingInAnotherMode)
{
    ant_search_mode = 0;
    start_thread();
    tmr_msleep(3000);
    EXPECT_EQ(ant_swt.status, ANT_CHECK_NEEDED);
    end_thread();
    tuner_ant_search(2);
    ASSERT_EQ(ant_switch_thread_createthread(), 0);
    EXPECT_TRUE(ends());
    ant_switch_thread_activequeue(); // too late
    tmr_msleep(3000);
    EXPECT_EQ(ant_swt.status, ANT_CHECK_NEEDED);
    tunXParams.band = TUNER_BAND_US;
    start_thread();
    EXPECT_TRUE(ends());
    EXPECT_EQ(ant_swt.status, ANT_CHECK_NEEDED);
    tunXParams.band = TUNER_BAND_UF;
    // from the second tuning on the reception alone is checked
    start_thread();
    EXPECT_TRUE(status_becomes(ANT_STABLE));
    EXPECT_EQ(ant_ctrl(), "0\n") << "no antenna was switched";
    end_thread();
}

} // namespace
