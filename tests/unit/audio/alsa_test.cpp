// Routes, and the loops of both streams, against a card that refuses, breaks off and grants what it likes.
#include <array>
#include <cerrno>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

#include "alsa/alsa.h"
#include "unit/audio/alsa_fake.h"
#include "unit/plat_fake.h"

namespace {

using strings = std::vector<std::string>;

alsa_ctl_entry plain(std::uint32_t type, std::uint32_t numid, std::int16_t a, std::int16_t b, std::int16_t c)
{
    return {type, numid, 0, {a, b, c, -32768}, 7};
}

alsa_ctl_entry gain(std::uint32_t numid)
{
    return {ALSA_GAIN | ALSA_INTEGER, numid, 0, {10, 11, 12, 13, -1, -1, -1, -1, -1, 19}, 5};
}

class alsa : public testing::Test {
protected:
    void SetUp() override
    {
        plat_fake_reset();
        alsa_fake_reset();
        if (get_alsa_state() == ALSA_STATE_NO_CONTROL)
            alsa_ctl_init("default");
        alsa_fake_reset();
        objects = alsa_fake.objects;
        output.wave = alsa_wave_make(48, 6000, 4096);
    }

    void TearDown() override
    {
        alsa_tgen_stop();
        alsa_auan_stop();
        EXPECT_EQ(std::tuple(alsa_fake.faults, alsa_fake.objects), std::tuple(0, objects));
    }

    // The results of a call's next turns, while the module's threads are at work.
    static void queue(const char* call, const std::vector<long>& results)
    {
        const std::lock_guard lock(alsa_fake_mutex);
        alsa_fake.results[call] = results;
    }

    void make_block()
    {
        input.buffer.reset(static_cast<std::int16_t*>(std::calloc(7680, sizeof(std::int16_t))));
    }

    // Gives the module's threads the host's time until it is so.
    template <typename Test>
    bool comes(Test test)
    {
        for (int i = 0; i < 2000; i++) {
            if (test())
                return true;
            plat_fake_advance_us(1000);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return false;
    }

    int objects = 0;
    alsa_ctl_entry route[4] = {plain(ALSA_BOOLEAN, 1, 0, 0, 1),
                               plain(ALSA_DELAY, 0, 30, 0, 0),
                               plain(ALSA_ENUMERATED, 2, 3, 4, 5),
                               {}};
    alsa_ctl_entry gains[3] = {gain(3), plain(ALSA_INTEGER, 4, 6, 6, 6), {}};
    alsa_pcm_config output = {"default", 0,       2,       48000,   1,    42, 0,   1000, 6000,
                              0,         nullptr, nullptr, nullptr, 4096, 96, 512, 48};
    alsa_pcm_config input = {"default", 1,       2,       48000,   2,     80, 80,   1000, 0,
                             0,         nullptr, nullptr, nullptr, 15360, 96, 3840, 48};
};

} // namespace

// Before any other opens them: by itself this runs in a program of its own.
TEST(alsa_controls, each_failing_call_of_the_opening_gives_all_back)
{
    if (get_alsa_state() != ALSA_STATE_NO_CONTROL)
        GTEST_SKIP() << "the controls are open";
    alsa_fake_reset();
    EXPECT_EQ(alsa_ctl_set_off(std::array<alsa_ctl_entry, 1>{}.data()), -1); // it doesn't open them
    for (const char* call : {"ctl_open", "info_malloc", "id_malloc", "value_malloc", "elem_info"}) {
        alsa_fake.results[call] = {-ENOMEM};
        EXPECT_EQ(alsa_ctl_init("default"), -ENOMEM) << call;
        EXPECT_EQ(get_alsa_state(), ALSA_STATE_ERROR) << call;
        EXPECT_EQ(alsa_fake.objects, 0) << call;
    }
    alsa_ctl_entry route[] = {plain(ALSA_INTEGER, 1, 2, 3, 4), {}};
    EXPECT_EQ(alsa_ctl_set_on(route), 0); // makes up for it
    EXPECT_EQ(std::tuple(get_alsa_state(), alsa_fake.objects), std::tuple(ALSA_STATE_READY, 4));
    EXPECT_EQ(alsa_fake.faults, 0);
}

TEST_F(alsa, a_route_is_written_in_order_and_saved)
{
    const std::uint64_t before = plat_fake_now_us();
    EXPECT_EQ(alsa_ctl_set_on(route), 0);
    EXPECT_EQ(alsa_fake.log, (strings{"1=1", "2=5"}));
    EXPECT_EQ(plat_fake_now_us() - before, 30'000u);
    EXPECT_EQ(route[2].values[ALSA_VALUE_WORKING], 5);
    // "no change" writes what was saved; a plain entry takes its third value for any further step
    EXPECT_EQ(alsa_ctl_set_no_change(route), 0);
    EXPECT_EQ(alsa_ctl_set_nosave(route, 0), 0);
    EXPECT_EQ(route[2].values[ALSA_VALUE_WORKING], 5);
    EXPECT_EQ(alsa_ctl_set(route, 7), 0);
    EXPECT_EQ(alsa_fake.log, (strings{"1=1", "2=5", "1=1", "2=5", "1=0", "2=3", "1=1", "2=5"}));
}

TEST_F(alsa, off_values_are_written_without_a_wait)
{
    const std::uint64_t before = plat_fake_now_us();
    EXPECT_EQ(alsa_ctl_set_off(route), 0);
    EXPECT_EQ(plat_fake_now_us(), before);
    EXPECT_EQ(alsa_fake.log, (strings{"1=7", "2=7"}));
    EXPECT_EQ(alsa_ctl_set_off(nullptr), 0);
    alsa_fake.refuse_numid = 1;
    EXPECT_EQ(alsa_ctl_set_off(route), -1);
}

TEST_F(alsa, a_refused_value_ends_the_route_and_is_saved_before)
{
    alsa_fake.refuse_numid = 1;
    EXPECT_EQ(alsa_ctl_set_on(route), -EINVAL);
    EXPECT_EQ(alsa_fake.log, strings{"1=1"});
    EXPECT_EQ(route[0].values[ALSA_VALUE_WORKING], 1);
    EXPECT_EQ(alsa_set_route(route), ALSA_FAILED);
    // a step that isn't there is -1, which the card refuses, and the working value all the same
    EXPECT_LT(alsa_ctl_set_gain(gains, 4), 0);
    EXPECT_EQ(gains[0].values[ALSA_VALUE_WORKING], -1);
}

TEST_F(alsa, gains_alone_and_steps_past_the_last)
{
    EXPECT_EQ(alsa_ctl_set_gain(gains, 3), 0);
    EXPECT_EQ(alsa_ctl_set_gain_no_save(gains, 9), 0);
    EXPECT_EQ(gains[0].values[ALSA_VALUE_WORKING], 13);
    EXPECT_EQ(alsa_fake.log, (strings{"3=13", "3=19"}));
    // an index past 9 ends the loop with the result so far
    EXPECT_EQ(alsa_ctl_set(gains, 10), 0);
    EXPECT_EQ(alsa_ctl_set_gain(route, 1), 0);
    EXPECT_EQ(alsa_ctl_set(gains, -1), -1);
    EXPECT_EQ(alsa_ctl_set(nullptr, 0), -1);
    EXPECT_EQ(alsa_fake.log.size(), 2u);
}

TEST_F(alsa, stored_selections_leave_the_card_alone)
{
    EXPECT_EQ(alsa_ctl_set_gain_noapply(gains, 3), 0);
    EXPECT_EQ(gains[0].values[ALSA_VALUE_WORKING], 13);
    EXPECT_EQ(alsa_ctl_set_gain_noapply(gains, 4), -1);
    EXPECT_EQ(gains[0].values[ALSA_VALUE_WORKING], 13);
    EXPECT_EQ(alsa_ctl_set_noapply(route, 9), 0);
    EXPECT_EQ(route[2].values[ALSA_VALUE_WORKING], 5);
    EXPECT_EQ(alsa_ctl_set_noapply(gains, 10), -1);
    EXPECT_EQ(alsa_ctl_set_noapply(nullptr, 0), -1);
    EXPECT_TRUE(alsa_fake.log.empty());
}

TEST_F(alsa, controls_are_opened_once)
{
    EXPECT_EQ(alsa_ctl_init("default"), -1);
    EXPECT_EQ(get_alsa_state(), ALSA_STATE_ERROR);
    EXPECT_EQ(alsa_ctl_init(nullptr), -1);
    EXPECT_TRUE(alsa_fake.log.empty());
}

TEST_F(alsa, a_tone_is_set_up_in_order)
{
    ASSERT_EQ(alsa_tgen_start(&output, route, gains), 0);
    EXPECT_NE(output.pcm, nullptr);
    ASSERT_EQ(alsa_tgen_stop(), 0);
    EXPECT_EQ(output.pcm, nullptr);
    const strings setup(alsa_fake.log.begin() + 4, alsa_fake.log.begin() + 18);
    EXPECT_EQ(setup, (strings{"open", "hw_free", "params_malloc", "any", "access 3", "format 2", "rate 48000",
                              "channels 1", "ring 4096", "period 96", "hw_params", "params_free", "prepare",
                              "write"}));
    EXPECT_EQ(alsa_fake_count("3=19"), 1);
    EXPECT_EQ(alsa_fake.log[alsa_fake.log.size() - 8], "nonblock 1");
    EXPECT_EQ(alsa_fake.log[alsa_fake.log.size() - 7], "drain");
}

TEST_F(alsa, each_failing_call_of_a_start_gives_all_back)
{
    for (const char* call : {"open", "params_malloc", "any", "access 3", "format 2", "rate 48000",
                             "channels 1", "ring 4096", "period 96", "hw_params", "prepare", "write"}) {
        alsa_fake.results[call] = {-EIO};
        EXPECT_EQ(alsa_tgen_start(&output, route, gains), ALSA_FAILED) << call;
        EXPECT_EQ(alsa_fake.objects, objects) << call;
        EXPECT_EQ(get_tgen_cfg(), nullptr);
    }
    make_block();
    for (const char* call : {"open", "params_malloc", "channels 2", "ring 15360", "hw_params", "prepare"}) {
        alsa_fake.results[call] = {-EIO};
        EXPECT_EQ(alsa_auan_start(&input, route, gains), ALSA_FAILED) << call;
        EXPECT_EQ(alsa_fake.objects, objects) << call;
        EXPECT_EQ(get_alsa_state(), ALSA_STATE_ERROR);
    }
    // a first write that isn't whole
    alsa_fake.results["write"] = {4095};
    EXPECT_EQ(alsa_tgen_start(&output, route, gains), ALSA_FAILED);
    EXPECT_EQ(alsa_tgen_start(&output, route, gains), 0);
}

TEST_F(alsa, the_gain_step_counts_for_a_capture_and_not_for_a_tone)
{
    make_block();
    gains[0].values[ALSA_VALUE_SHORT_STEP] = -1;
    EXPECT_EQ(alsa_tgen_start(&output, route, gains), 0);
    EXPECT_EQ(alsa_auan_start(&input, route, gains), ALSA_FAILED);
    EXPECT_EQ(get_auan_cfg(), nullptr);
    EXPECT_EQ(alsa_tgen_stop(), 0);
    EXPECT_EQ(alsa_fake.objects, objects); // its thread has ended, the stream is closed
}

TEST_F(alsa, a_ring_larger_than_asked_makes_the_wave_grow)
{
    alsa_fake.granted_ring = 10'000;
    ASSERT_EQ(alsa_tgen_start(&output, route, gains), 0);
    ASSERT_TRUE(comes([] { return alsa_fake_count("write") > 5; }));
    alsa_tgen_stop();
    EXPECT_EQ(output.buffer_size, 10'000u);
    EXPECT_GE(output.wave->count, 10'000u);
    for (std::size_t i = 48; i < alsa_fake.written.size(); i++)
        ASSERT_LE(std::abs(alsa_fake.written[i] - alsa_fake.written[i - 48]), 1) << i;
}

TEST_F(alsa, a_tone_recovers_from_every_error)
{
    ASSERT_EQ(alsa_tgen_start(&output, route, gains), 0);
    {
        const std::lock_guard lock(alsa_fake_mutex);
        alsa_fake.log.clear();
        // an underrun, a suspended card that takes its time, one that refuses to resume, any other error
        alsa_fake.results["write"] = {-EPIPE, -ESTRPIPE, -ESTRPIPE, -EIO};
        alsa_fake.results["resume"] = {-EAGAIN, -EAGAIN, 0, -ENOSYS};
    }
    ASSERT_TRUE(comes([] { return alsa_fake_count("prepare") == 3; }));
    EXPECT_EQ(alsa_fake_count("resume"), 4);
    queue("avail", {-EPIPE, -EPIPE}); // one of them is asked for behind a write, where it doesn't count
    ASSERT_TRUE(comes([] { return alsa_fake_count("prepare") >= 4; }));
    // a resume that never ends is left when the tone is stopped
    queue("resume", std::vector<long>(1'000'000, -EAGAIN));
    queue("write", {-ESTRPIPE});
    ASSERT_TRUE(comes([] { return alsa_fake_count("resume") > 10; }));
    EXPECT_EQ(alsa_tgen_stop(), 0);
}

// After n frames the next read goes n samples on: a short read is overlapped by the one behind it.
TEST_F(alsa, a_short_read_is_overlapped)
{
    make_block();
    input.transfer_frames = 10;
    for (std::int16_t i = 1; i <= 20; i++)
        alsa_fake.block.push_back(i);
    std::vector<long> reads(1'000'000, -EIO);
    reads[0] = 4;
    reads[1] = 6;
    queue("read", reads);
    const std::uint64_t before = plat_fake_now_us();
    ASSERT_EQ(alsa_auan_start(&input, route, gains), 0);
    ASSERT_TRUE(comes([] { return alsa_fake_count("read") >= 4; }));
    ASSERT_EQ(alsa_auan_stop(), 0);
    const auto failed = static_cast<std::uint64_t>(alsa_fake_count("read") - 2);
    EXPECT_GE(plat_fake_now_us() - before, failed * 1000) << "a failed read rests for 1 ms";
    const std::int16_t wanted[] = {1, 2, 3, 4, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 0};
    for (std::size_t i = 0; i < std::size(wanted); i++)
        EXPECT_EQ(input.buffer[i], wanted[i]) << i;
}

TEST_F(alsa, a_capture_that_can_not_be_prepared_again_gives_its_block_up)
{
    make_block();
    ASSERT_EQ(alsa_auan_start(&input, route, gains), 0);
    EXPECT_EQ(alsa_auan_start(&input, route, gains), ALSA_FAILED);
    queue("prepare", std::vector<long>(1'000'000, -ENODEV));
    queue("read", std::vector<long>(1'000'000, -EPIPE));
    EXPECT_EQ(alsa_auan_stop(), 0);
    EXPECT_EQ(get_alsa_state(), ALSA_STATE_READY);
}
