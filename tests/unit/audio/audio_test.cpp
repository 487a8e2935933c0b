// Waves, dumps and the measurement, against the plain loops that they stand for; what the tests give without
// a driver.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <numbers>
#include <random>
#include <sstream>
#include <unistd.h>

#include "audio_v2/audio.h"
#include "audio_wcd9320/audio_wcd9320.h"
#include "cfg/cfg.h"
#include "pin/pin.h"
#include "plat/plat.h"
#include "runner/file_text.h"
#include "unit/audio/alsa_fake.h"
#include "unit/plat_fake.h"
#include "unit/runtime/transform_loops.h"

namespace {

// The phone's files lie in a folder of the test's.
std::string root;

std::string place(const char* path)
{
    return root + "/" + std::filesystem::path(path).filename().string();
}

int open_there(const char* path, int flags, mode_t mode)
{
    return open(place(path).c_str(), flags, mode);
}

std::string content(const char* path)
{
    return file_text(place(path));
}

void write(const char* path, const std::string& text)
{
    std::ofstream(place(path)) << text;
}

alsa_pcm_config output_at(unsigned rate, unsigned frequency, unsigned long ring = 4096)
{
    return {"default", 0, 2, rate, 1, 0, 0, frequency, 6000, 0, nullptr, nullptr, nullptr, ring, 0, 512, 0};
}

struct signal_row {
    const char* name;
    std::int16_t (*sample)(int i);
};

double wave_of(int i, double hz)
{
    const int frame = i / 2;
    return std::sin(2 * std::numbers::pi * hz * frame / 48000);
}

// clang-format off
const signal_row signals[] = {
    { "silence",            [](int) -> std::int16_t { return 0; } },
    { "a tone",             [](int i) -> std::int16_t { return static_cast<std::int16_t>(6000 * wave_of(i, 1000)); } },
    { "a quiet tone",       [](int i) -> std::int16_t { return static_cast<std::int16_t>(std::lround(wave_of(i, 1000))); } },
    { "an odd tone",        [](int i) -> std::int16_t { return static_cast<std::int16_t>(20000 * wave_of(i, 3217.5)); } },
    { "two tones",          [](int i) -> std::int16_t { return static_cast<std::int16_t>(9000 * wave_of(i, 700) + 8999 * wave_of(i, 9000)); } },
    { "too low",            [](int i) -> std::int16_t { return static_cast<std::int16_t>(6000 * wave_of(i, 48)); } },
    { "near the end",       [](int i) -> std::int16_t { return static_cast<std::int16_t>(6000 * wave_of(i, 23990)); } },
    { "one channel",        [](int i) -> std::int16_t { return i % 2 == 0 ? static_cast<std::int16_t>(6000 * wave_of(i, 1000)) : std::int16_t{0}; } },
    { "a square at the top", [](int i) -> std::int16_t { return i / 48 % 2 == 0 ? std::int16_t{32767} : std::int16_t{-32768}; } },
    { "an offset",          [](int) -> std::int16_t { return 5000; } },
    { "noise",              [](int) -> std::int16_t { static std::mt19937 random(1); return static_cast<std::int16_t>(random()); } },
};
// clang-format on

// The measurement as it was first written down. Gives whether there is a tone.
bool measure(int n, const std::int16_t* s, double rate, double channels, audio_result& r)
{
    std::vector<transform_value> x(2 * static_cast<std::size_t>(n));
    for (int i = 0; i < n; i++)
        x[static_cast<std::size_t>(i)] = {
            (2 * s[i]) * (1.0 - std::cos(i * 2 * std::numbers::pi / (n - 1))) * 0.5, 0};
    transform_loops(n, x.data(), 1.0, 1.0);
    const auto magnitude = [&](int i) {
        return std::hypot(x[static_cast<std::size_t>(i)].re, x[static_cast<std::size_t>(i)].im);
    };
    double greatest = 0;
    int peak = 0;
    double power = 0;
    for (int i = 1; i < n / 2; i++) {
        if (2 * magnitude(i) > greatest) {
            greatest = 2 * magnitude(i);
            peak = i;
        }
        power += 2 * std::pow(magnitude(i) / n, 2);
    }
    r = {0, 0, static_cast<std::int32_t>(std::floor(power / 1.5 + 0.5))};
    if (peak < 8 || peak > n / 2 - 8)
        return false;
    double sum = 0, weighted = 0;
    for (int j = peak - 7; j <= peak + 7; j++) {
        const double p = 2 * std::pow(magnitude(j) / n, 2);
        sum += p;
        weighted += j * p * (rate / n);
    }
    r.frequency = static_cast<std::int32_t>(std::floor(channels * weighted / sum + 0.5));
    r.level = static_cast<std::int32_t>(std::floor(std::sqrt(sum / 1.5) + 0.5));
    return true;
}

// What a word touches of a phone that lacks no route, by its path: the slots whose controls it writes, in
// their order, or whose working value it stores. A gain's step 1 is the working value as it is.
struct touch_row {
    int (*run)(audio_path path);
    std::vector<std::pair<audio_path, std::vector<int>>> paths;
};

// clang-format off
const touch_row touches[] = {
    { audio_tgen_start, { {0x01010001, {2, 6}}, {0x01020001, {2, 8}}, {0x01030001, {10, 12}},
        {0x01040001, {14, 16}}, {0x01050001, {14, 15}}, {0x01060001, {14, 17}} } },
    { audio_auan_start, { {0x02010001, {18, 24}}, {0x02020001, {18, 26}}, {0x02040001, {35, 36}},
        {0x02050001, {}}, {0x02060001, {18, 28}}, {0x02070001, {18, 29}} } },
    { audio_tgen_auan_start, { {0x03010001, {14, 15, 30, 31}}, {0x03020001, {14, 16, 30, 31}},
        {0x03030001, {14, 15, 18, 34}}, {0x03040001, {14, 16, 18, 33}} } },
    { audio_loopback, { {0x0501FFFF, {11}}, {0x0502FFFF, {5}}, {0x0503FFFF, {4}}, {0x0600FFFF, {}},
        {0x0601FFFF, {19}}, {0x0602FFFF, {21}}, {0x0609FFFF, {23}}, {0x060AFFFF, {20}}, {0x060BFFFF, {22}},
        {0x0701FFFF, {37, 41}}, {0x0702FFFF, {38, 41}}, {0x0703FFFF, {39, 41}}, {0x0704FFFF, {37, 40}},
        {0x0705FFFF, {38, 40}}, {0x0706FFFF, {39, 40}}, {0x0707FFFF, {37, 42}}, {0x0708FFFF, {38, 42}},
        {0x0709FFFF, {39, 42}} } },
    { audio_tgen_gain, { {0x01010500, {2, 6}}, {0x01020500, {2, 8}}, {0x01030500, {10, 12}},
        {0x01040500, {14, 16}}, {0x01050500, {14, 15}} } },
    { audio_auan_gain, { {0x02010500, {18, 24}}, {0x02020500, {18, 26}}, {0x02030500, {30, 31}},
        {0x02040500, {}} } },
    { audio_tgen_auan_gain, { {0x03010505, {14, 15, 30, 31}}, {0x03020505, {14, 16, 30, 31}},
        {0x03010105, {30, 31}} } },
    { audio_lb_sp_gain, { {0x05010500, {13}}, {0x05020500, {9}}, {0x05030500, {7}} } },
    { audio_lb_mic_gain, { {0x06010500, {25}}, {0x06020500, {27}}, {0x06090500, {32}} } },
};
// clang-format on

std::vector<int> slots_touched(const alsa_ctl_entry (&routes)[ALSA_SLOTS][2])
{
    std::vector<int> slots;
    for (const std::string& call : alsa_fake.log)
        if (const int slot = std::atoi(call.c_str()); slot > 0 && std::ranges::count(slots, slot) == 0)
            slots.push_back(slot);
    for (int slot = 0; slot < ALSA_SLOTS && alsa_fake.log.empty(); slot++)
        if (routes[slot][0].values[ALSA_VALUE_WORKING] != 1)
            slots.push_back(slot);
    return slots;
}

class audio : public testing::Test {
protected:
    void SetUp() override
    {
        plat_fake_reset();
        alsa_fake_reset();
        plat_fake_co.open = open_there;
        plat_fake_co.system = [](const char* line) {
            lines.push_back(line);
            return 0;
        };
        root = testing::TempDir() + "audio_test_" + std::to_string(getpid());
        std::filesystem::create_directories(root);
        lines.clear();
        cfg_init();
        audio_init();
        audio_wcd9320_init(AUDIO_WCD9320_SPEAKER_DRIVER, 6);
        alsa_fake_reset();
        lines.clear();
        p_input = alsa_cfg_get()->p_input;
        p_input->dump_samples = 0;
        p_input->rate = 48000;
        lay(3840);
    }

    void TearDown() override
    {
        p_input->buffer.reset();
        audio_co_attach(nullptr);
        std::filesystem::remove_all(root);
        EXPECT_EQ(alsa_fake.faults, 0);
    }

    // A block for a stop to measure.
    void lay(unsigned n)
    {
        p_input->transfer_frames = n;
        p_input->buffer.reset(
            static_cast<std::int16_t*>(std::calloc(2 * std::size_t{n}, sizeof(std::int16_t))));
    }

    static std::vector<std::string> lines;
    alsa_pcm_config* p_input = nullptr;
};

std::vector<std::string> audio::lines;

constexpr audio_path stop = 0x02010000;

using results = std::vector<int>;

} // namespace

TEST_F(audio, a_wave_is_a_sine_towards_zero_and_long_enough_for_every_write)
{
    for (const unsigned hz : {24u, 440u, 1000u, 24000u, 48000u})
        for (const unsigned long ring : {600ul, 4096ul, 65536ul}) {
            alsa_pcm_config config = output_at(48000, hz, ring);
            if (pcm_generate_wavebuf(&config) == 0) {
                EXPECT_GT(config.period_size, ring);
                continue;
            }
            const unsigned period = 48000 / hz;
            EXPECT_EQ(config.period_samples, period);
            EXPECT_EQ(config.periods, ring / (2 * period));
            const auto wave = alsa_wave_get(config);
            ASSERT_GE(wave->count, ring);
            ASSERT_GE(wave->count, 2 * period - 1 + 512);
            for (unsigned long i = 0; i < wave->count; i++)
                ASSERT_EQ(wave->samples[i], static_cast<int>(6000 * std::sin(static_cast<double>(i) * 2 *
                                                                             std::numbers::pi / period)));
            EXPECT_EQ(pcm_generate_wavebuf(&config), 0); // it has one
        }
}

TEST_F(audio, the_three_numbers_are_those_of_the_plain_loops)
{
    for (const int n : {3840, 3520, 2560, 1280, 640})
        for (const signal_row& row : signals) {
            lay(static_cast<unsigned>(n));
            for (int i = 0; i < n; i++)
                p_input->buffer[static_cast<std::size_t>(i)] = row.sample(i);
            audio_result wanted;
            const bool tone = measure(n, p_input->buffer.get(), 48000, 2, wanted);
            audio_result got = {-1, -1, -1};
            EXPECT_EQ(audio_auan_stop(stop, &got), tone ? AUDIO_OK : AUDIO_FAILED) << row.name;
            EXPECT_EQ(got.frequency, wanted.frequency) << row.name << " " << n;
            EXPECT_EQ(got.level, wanted.level) << row.name << " " << n;
            EXPECT_EQ(got.power, wanted.power) << row.name << " " << n;
            EXPECT_EQ(p_input->buffer, nullptr);
        }
}

TEST_F(audio, dumps_hold_what_was_measured)
{
    constexpr int n = 3840;
    p_input->dump_samples = 0x101;
    std::vector<transform_value> x(2 * n);
    std::ostringstream samples;
    char line[64];
    std::string hanning;
    for (int i = 0; i < n; i++) {
        const std::int16_t s = signals[1].sample(i);
        p_input->buffer[static_cast<std::size_t>(i)] = s;
        samples << s << "\n";
        x[static_cast<std::size_t>(i)].re =
            (2 * s) * (1.0 - std::cos(i * 2 * std::numbers::pi / (n - 1))) * 0.5;
        std::snprintf(line, sizeof line, "%f\n", x[static_cast<std::size_t>(i)].re);
        hanning += line;
    }
    transform_loops(n, x.data(), 1.0, 1.0);
    audio_result result;
    EXPECT_EQ(audio_auan_stop(stop, &result), AUDIO_OK);
    EXPECT_EQ(content("/system/samples_in.txt"), samples.str());
    EXPECT_EQ(content("/data/hanning.txt"), hanning);
    std::istringstream fft(content("/data/fft.txt"));
    double value;
    int count = 0;
    for (; fft >> value; count++)
        ASSERT_NEAR(value, x[static_cast<std::size_t>(count)].re, 2e-6) << count; // the upper half too
    EXPECT_EQ(count, n);
}

TEST_F(audio, dumps_that_can_not_be_written_do_not_hurt)
{
    p_input->dump_samples = 1;
    std::filesystem::remove_all(root);
    audio_result result = {-1, -1, -1};
    EXPECT_EQ(audio_auan_stop(stop, &result), AUDIO_FAILED);
    EXPECT_EQ(result.power, 0);
    // without a block the result stays
    result = {-1, -1, -1};
    EXPECT_EQ(audio_auan_stop(stop, &result), AUDIO_FAILED);
    EXPECT_EQ(result.power, -1);
    EXPECT_EQ(audio_auan_stop(0x01010000, &result), AUDIO_FAILED);
}

TEST_F(audio, without_a_driver_all_fails_but_gains_and_a_tone_s_stop)
{
    audio_co_attach(nullptr);
    audio_result result;
    unsigned value;
    EXPECT_EQ((results{audio_tgen_init(0x010003E8), audio_tgen_start(0x01010001), audio_auan_init(0x0201FFFF),
                       audio_auan_start(0x02010001), audio_auan_stop(stop, &result),
                       audio_tgen_auan_start(0x03010001), audio_loopback(0x0600FFFF), audio_reset(0),
                       record_audio(1), audio_read_register(1, &value)}),
              results(10, AUDIO_FAILED));
    EXPECT_EQ(
        (results{audio_tgen_stop(0x01010000), audio_tgen_gain(0x01010100), audio_lb_sp_gain(0x05010100)}),
        results(3, AUDIO_OK));
    EXPECT_TRUE(alsa_fake.log.empty());
}

TEST_F(audio, an_entry_of_the_driver_takes_the_place_of_the_logic)
{
    static audio_co own;
    own = {};
    own.tgen_start = [](audio_path path) { return path == 0x01090001 ? 5 : 6; };
    own.lb_mic_gain = [](audio_path) { return 7; };
    audio_co_attach(&own);
    EXPECT_EQ((results{audio_tgen_start(0x01090001), audio_lb_mic_gain(0), audio_reset(0),
                       audio_dump(nullptr, nullptr)}),
              (results{5, 7, AUDIO_OK, AUDIO_NO_DUMP}));
    alsa_cfg_attach(nullptr);
    EXPECT_EQ(
        (results{audio_auan_start(0x02010001), audio_loopback(0x0501FFFF), audio_auan_stop(stop, nullptr)}),
        results(3, AUDIO_FAILED));
}

TEST_F(audio, a_phone_without_a_speaker_has_no_such_routes)
{
    audio_wcd9320_init(6, 6);
    EXPECT_EQ((results{audio_loopback(0x0502FFFF), audio_tgen_gain(0x01010100), audio_tgen_start(0x01010001),
                       audio_lb_sp_gain(0x05020100)}),
              results(4, AUDIO_FAILED));
    EXPECT_EQ(audio_lb_sp_gain(0x06010100), AUDIO_WRONG_PATH);
}

TEST_F(audio, each_word_touches_the_slots_of_its_row)
{
    static alsa_ctl_entry routes[ALSA_SLOTS][2];
    static alsa_cfg full;
    full = {alsa_cfg_get()->p_output, p_input, {}};
    alsa_cfg_attach(&full);
    for (const auto& [run, paths] : touches)
        for (const auto& [path, slots] : paths) {
            for (int slot = 2; slot < ALSA_SLOTS; slot++) {
                const auto numid = static_cast<unsigned>(slot);
                routes[slot][0] = {ALSA_GAIN | ALSA_INTEGER, numid, 0, {0, 1, 2, 3, 4, 5}, 0};
                full.p_route[slot] = routes[slot];
            }
            routes[0][0] = routes[1][0] = {0, 0, 0, {0, 1}, 0};
            alsa_fake_reset();
            EXPECT_EQ(run(path) == AUDIO_OK, !slots.empty() || path == 0x0600FFFF) << path;
            alsa_auan_stop();
            alsa_tgen_stop();
            EXPECT_EQ(slots_touched(routes), slots) << std::hex << path;
        }
}

TEST_F(audio, codec_files_of_every_kind)
{
    audio_wcd9320_conf("/codec_reg");
    const auto read = [](std::uint16_t reg) {
        unsigned value = 99;
        return audio_wcd9320_read(reg, &value) == 0 ? static_cast<int>(value) : -1;
    };
    EXPECT_EQ(read(0x1b4), -1) << "no file";
    write("/codec_reg", "");
    EXPECT_EQ(read(0x1b4), -1);
    // what is no digit counts as 0; a value that is cut short, and a register that isn't there
    write("/codec_reg", "01b3: 11\n01b4: 2x\n01b5: g9\n01b6: 7");
    EXPECT_EQ((results{read(0x1b3), read(0x1b4), read(0x1b5), read(0x1b6), read(0x1b7)}),
              (results{0x11, 0x20, 0x09, -1, -1}));
    // the first 6999 bytes count
    write("/codec_reg", std::string(6991, ' ') + "01b4: a5\n01b5: 11\n");
    EXPECT_EQ((results{read(0x1b4), read(0x1b5)}), (results{0xA5, -1}));
}

TEST_F(audio, a_register_is_written_twice_at_most)
{
    audio_wcd9320_conf("/codec_reg");
    write("/codec_reg", "0101: 55\n");
    EXPECT_EQ(audio_wcd9320_write(0x101, 0x55), 0);
    EXPECT_EQ(lines, std::vector<std::string>{"echo \"0x101 0x55\" > /codec_reg"});
    EXPECT_EQ(audio_wcd9320_write(0x101, 0x05), -1);
    EXPECT_EQ(std::tuple(lines.size(), lines.back()), std::tuple(3u, "echo \"0x101 0x05\" > /codec_reg"));
    const std::uint64_t before = plat_fake_now_us();
    EXPECT_EQ(audio_wcd9320_write_with_delay(0x101, 0x55), 0);
    EXPECT_EQ(plat_fake_now_us() - before, 8000u);
    EXPECT_EQ(audio_wcd9320_write_with_delay(0x101, 0), -1);
    EXPECT_EQ(plat_fake_now_us() - before, 28000u);
}

TEST_F(audio, without_a_file_the_plug_has_a_line)
{
    EXPECT_EQ(cfg_find("audio", "debug_fs_plug_detect"), nullptr);
    static const pin_in_row no_rows[] = {{PIN_IN_LAST, 0, 0, 0, 0}};
    static const pin_out_row no_outputs[] = {{PIN_OUT_LAST, 0, 0, 0, 0, 0, nullptr, nullptr}};
    static const pin_tab tab = {"none", no_rows, no_outputs};
    static const pin_map_co map = {[] { return &tab; }};
    pin_map_set([](std::uint8_t) { return &map; }, 1);
    EXPECT_EQ(ajdt_detect(), 0); // this board has no such line
    cfg_set_str("audio", "debug_fs_plug_detect", "/plug");
    write("/plug", "2\n");
    EXPECT_EQ(ajdt_detect(), 1);
}
