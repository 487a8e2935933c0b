// A download frame by frame: what each container makes the program send, and where the chip's replies lead.
#include <algorithm>
#include <filesystem>

#include "cfg/cfg.h"
#include "core/files.h"
#include "gpio_linux/gpio_linux.h"
#include "i2c/i2c.h"
#include "joint/joint.h"
#include "joint/pn65_image.h"
#include "nfc_pn65_fw_dnld/nfc_pn65_fw_dnld.h"
#include "pin/pin.h"
#include "pin_brenk/pin_brenk.h"
#include "tmr/tmr.h"

namespace {

using namespace pn65_image;

const bytes reset_frame = frame(1, {});
const bytes check_frame = frame(11, {});

using frames = std::vector<bytes>;

// Entries of a folder of /proc/self.
std::ptrdiff_t entries(const char* path)
{
    return std::distance(std::filesystem::directory_iterator(path), {});
}

struct Pn65Download : Joint {
    void SetUp() override
    {
        static const bool once = (start_modules(), true);
        ASSERT_TRUE(once);
        cfg_init();
        cfg_set_str("nfc_pn65_fw_dnld", "nfc_pn65_fw_dnld_path", "libpn65_fw.so");
        ask("pn65dl off");
    }

    static void start_modules()
    {
        tmr_init();
        pin_init();
        pin_map_set(pin_brenk_co_get, 1);
        gpio_linux_init(PIN_GRP_GPIO);
        i2c_init();
        nfc_pn65_fw_dnld_init();
    }

    static void put(const bytes& image)
    {
        ASSERT_TRUE(
            phone::file_write("/system/etc/firmware/pn65_fw.bin", std::string(image.begin(), image.end())));
    }

    static std::uint32_t state()
    {
        std::uint32_t word = 0;
        EXPECT_EQ(nfc_pn65_fw_dnld(0, &word), 0);
        return word;
    }

    static void start(std::uint32_t gap_us)
    {
        std::uint32_t word = 0;
        ASSERT_EQ(nfc_pn65_fw_dnld(gap_us, &word), 0);
    }

    // Runs a download to its end: its state, attempt times 8 and what became of it.
    static std::uint32_t run(std::uint32_t gap_us = 500)
    {
        start(gap_us);
        for (int turn = 0; turn < 5000 && (state() & 7) == NFC_DNLD_RUNNING; turn++)
            ask("clock +100");
        return state();
    }

    static std::uint32_t run_image(const bytes& image)
    {
        put(image);
        return run();
    }

    // The last frames that the chip was sent.
    static std::string recent(std::size_t n) { return ask("pn65dl recent " + std::to_string(n)); }

    static std::string text_of(const frames& f)
    {
        std::string text;
        for (const bytes& b : f)
            text += (text.empty() ? "" : "\n") + hex(b);
        return text;
    }

    // Expects an image to succeed at once, with these frames at the end.
    static void expect_last(const bytes& image, const frames& last)
    {
        EXPECT_EQ(run_image(image), 8u + NFC_DNLD_DONE);
        EXPECT_EQ(recent(last.size()), text_of(last));
    }

    // Expects an image to succeed at once, with these frames between the first reset and the check.
    static void expect_frames(const bytes& image, frames between)
    {
        between.insert(between.begin(), reset_frame);
        between.insert(between.end(), {check_frame, reset_frame});
        expect_last(image, between);
    }
};

constexpr std::uint32_t good_end = 8 + NFC_DNLD_DONE;
constexpr std::uint32_t five_failed = 48 + NFC_DNLD_FAILED;
constexpr std::uint32_t failed_at_once = 8 + NFC_DNLD_FAILED;

TEST_F(Pn65Download, ThePreparationComesOnceInTheLifeOfTheProgram)
{
    const bytes data = pattern(20, 1);
    const bytes first = image({{prepare, 0x20000, data}});
    expect_frames(first, {frame(10, {1}),
                          write(0x1A1E0, {0xA5, 0xD0, 0xFE, 0xA5, 0xD0, 0xFD, 0xA5, 0xD0, 0xFC, 0xA5, 0x02,
                                          0x80, 0xA9, 0x75}),
                          write(0x825A, {0xA0, 0xA1, 0xE0, 0x80, 0xA9, 0x6C}), reset_frame,
                          write(0x8002, {0, 0}), frame(10, {0}), reset_frame, write(0x20000, data)});
    expect_frames(first, {write(0x20000, data)});
}

TEST_F(Pn65Download, ChunksTrailersMarksAndVersionRecords)
{
    const bytes data = pattern(1009, 7);
    const auto part = [&data](std::size_t from, std::size_t to) {
        return bytes(data.begin() + static_cast<std::ptrdiff_t>(from),
                     data.begin() + static_cast<std::ptrdiff_t>(to));
    };
    expect_frames(image({{0, 0x30000, data, {}, 5}, {0, 0x40000, {1, 2, 3}}}),
                  {write(0x30000, part(0, 504)), write(0x301F8, part(504, 1008)),
                   write(0x303F0, part(1008, 1009)), write(0x40000, {1, 2, 3})});
    expect_frames(image({{0, 0x30000, {4, 5}}}, true, 3), {write(0x30000, {4, 5}, 12)});
    expect_frames(image({{reset_behind, 0x30000, {4, 5}}, {0, 0x40000, {}}, {reset_behind, 0x50000, {6}}}),
                  {write(0x30000, {4, 5}), reset_frame, write(0x50000, {6}), reset_frame});
}

TEST_F(Pn65Download, AKeepListKeepsWhatTheChipHad)
{
    ask("pn65dl mem 60000 A0A1A2A3");
    expect_frames(image({{keep_list, 0x60000, {1, 2, 3, 4}, {1, 3, 200}}}),
                  {read(0x60000, 4), write(0x60000, {1, 0xA1, 3, 0xA3})});
    // Only the first chunk is read before it is written.
    bytes data = pattern(600, 9);
    bytes first(data.begin(), data.begin() + 504);
    first[0] = 0x01;
    expect_frames(
        image({{keep_list, 0x60000, data, {0}}}),
        {read(0x60000, 504), write(0x60000, first), write(0x601F8, bytes(data.begin() + 504, data.end()))});
}

TEST_F(Pn65Download, AChunkThatReadsBackWrongIsWrittenFourTimesMore)
{
    const bytes wrong = {0, 0, 2, 1, 1};
    const bytes img = image({{read_back, 0x70000, {8, 9}}});
    expect_frames(img, {write(0x70000, {8, 9}), read(0x70000, 2)});
    ask("pn65dl 07 " + hex(wrong) + " 4");
    frames five;
    for (int i = 0; i < 5; i++) {
        five.push_back(write(0x70000, {8, 9}));
        five.push_back(read(0x70000, 2));
    }
    expect_frames(img, five);
    ask("pn65dl 07 " + hex(wrong));
    EXPECT_EQ(run_image(img), five_failed);
    five.insert(five.begin(), reset_frame);
    EXPECT_EQ(recent(11), text_of(five));
}

TEST_F(Pn65Download, ALowSectionBehindALowOneIsSkipped)
{
    expect_frames(image({{0, 0x8000, {1}}, {0, 0x8040, {2}}, {0, 0x807F, {3}}, {0, 0x8080, {4}}}),
                  {write(0x8000, {1}), write(0x8080, {4})});
    // Never the first one, though the phase stays from the download before.
    expect_frames(image({{0, 0x8000, {5}}}), {write(0x8000, {5})});
}

struct status_row {
    int status, times;
    bool good;
    int writes; // of the one chunk, in the first attempt
};

TEST_F(Pn65Download, EachStatusOfAReply)
{
    // clang-format off
    constexpr status_row rows[] = {
        {   1, 1, true,  2 }, {   1, 2, false, 2 },
        {   2, 1, true,  2 }, { 116, 1, true,  2 },
        { 116, 2, false, 2 },
        {  33, 1, true,  1 },
        { 230, 1, true,  2 }, { 230, 4, true,  5 }, { 230, 5, false, 5 },
        {   8, 1, false, 1 }, {  17, 1, false, 1 }, {  24, 1, false, 1 }, { 32, 1, false, 1 },
        {  11, 1, false, 1 }, {  19, 1, false, 1 }, {  25, 1, false, 1 }, { 29, 1, false, 1 },
        {   3, 1, false, 1 }, { 255, 1, false, 1 },
    };
    // clang-format on
    const bytes img = image({{0, 0x90000, {1, 2, 3}}});
    for (const status_row& row : rows) {
        ask("pn65dl off");
        put(img);
        ask("pn65dl 08 " + hex({static_cast<std::uint8_t>(row.status), 0, 0}) + " " +
            std::to_string(row.times));
        // One that fails is good at the second attempt: the rule is used up.
        EXPECT_EQ(run(), row.good ? good_end : 16 + NFC_DNLD_DONE) << row.status << " " << row.times;
        frames wanted(static_cast<std::size_t>(row.writes), write(0x90000, {1, 2, 3}));
        if (!row.good)
            wanted.insert(wanted.end(), {reset_frame, write(0x90000, {1, 2, 3})});
        wanted.insert(wanted.end(), {check_frame, reset_frame});
        EXPECT_EQ(recent(wanted.size()), text_of(wanted)) << row.status << " " << row.times;
    }
    // The length of a reply to a reading has to be right; that of one to another command is told and no more.
    ask("pn65dl 07 000004010203 1");
    EXPECT_EQ(run_image(image({{read_back, 0x90000, {1, 2, 3}}})), 16 + NFC_DNLD_DONE);
}

TEST_F(Pn65Download, TheCheckValuesDecideWhenAllThreeAreKnown)
{
    const section at_80 = {0, 0x800000, checked(pattern(600, 1), 4)};
    const section at_188 = {0, 0x18800, checked(pattern(30, 2), 4)};
    const section at_82 = {0, 0x8200, checked(pattern(9, 3), 2)};
    EXPECT_EQ(run_image(image({at_80, at_188, at_82})), good_end);
    for (const std::size_t which : {0, 1, 2}) {
        std::vector<section> damaged = {at_80, at_188, at_82};
        damaged[which].data[2] ^= 0x10;
        EXPECT_EQ(run_image(image(damaged)), five_failed) << which;
        damaged.erase(damaged.begin() + (which == 0 ? 1 : 0));
        EXPECT_EQ(run_image(image(damaged)), good_end) << which << ": one of the places isn't known";
    }
    ask("pn65dl 0B 000010000000010000000000000000000000FF 1");
    EXPECT_EQ(run_image(image({at_80, at_188, at_82})), 16 + NFC_DNLD_DONE);
    // Status bytes whose sum in 8 bits isn't 0 fail also where no value is compared.
    ask("pn65dl 0B 00001001000000000000000000000000000000 1");
    EXPECT_EQ(run_image(image({at_80})), 16 + NFC_DNLD_DONE);
}

TEST_F(Pn65Download, RawRecordsBySelectorGroupAndKind)
{
    const bytes a = write(0xA0000, {1, 2}), b = write(0xA0010, {3}), c = frame(10, {1}),
                d = frame(6, pattern(7, 1));
    const bytes check2 = frame(11, {2}), nine = frame(9, {5});
    // Selectors 0 and 255 and groups that ended aren't sent; the last group's end ends the walk.
    expect_last(raw_image({{0, 0x10, a},
                           {255, 0x10, a},
                           {1, 0x10, b},
                           {254, 0x20, c},
                           {1, 0x1E, d},
                           {1, 0x10, a},
                           {1, 0x30, check2},
                           {1, 0xE0, nine},
                           {1, 0xEE, frame(0x42, {})},
                           {1, 0x20, a}}),
                {reset_frame, b, c, d, check2, nine, frame(0x42, {})});
    // A reading's reply isn't waited for.
    expect_last(raw_image({{1, 0x10, read(0xA0000, 4)}, {1, 0xFE, a}}), {reset_frame, read(0xA0000, 4), a});
    EXPECT_EQ(run_image(raw_image({{1, 0xFE, frame(5, {})}})), five_failed);
    // A walk that comes to no end.
    EXPECT_EQ(run_image(raw_image({{1, 0x10, a}})), five_failed);
    // A refused group gives way to another one, if there is one.
    ask("pn65dl 0A 0B0000 1");
    expect_last(raw_image({{1, 0x10, c}, {1, 0x10, d}, {1, 0xEE, b}}), {reset_frame, c, b});
    ask("pn65dl 0A 1D0000 1");
    EXPECT_EQ(run_image(raw_image({{1, 0xF0, c}, {1, 0xFE, b}})), 16 + NFC_DNLD_DONE);
}

TEST_F(Pn65Download, ALongRawFrameGoesInPieces)
{
    const bytes data = pattern(1100, 5);
    const bytes whole = write(0xB0000, data, 12); // 1108 bytes: 509, 509 and 90
    const auto part = [&whole](std::size_t from, std::size_t to) {
        return frame(13, bytes(whole.begin() + static_cast<std::ptrdiff_t>(from),
                               whole.begin() + static_cast<std::ptrdiff_t>(to)));
    };
    const frames pieces = {part(0, 509), part(509, 1018), part(1018, 1108)};
    const bytes img = raw_image({{1, 0xFE, whole}});
    expect_last(img, {reset_frame, pieces[0], pieces[1], pieces[2]});
    EXPECT_EQ(ask("pn65dl mem B0000"), hex(bytes(data.begin(), data.begin() + 16)));
    // A strike repeats the piece, status 230 begins the frame anew.
    ask("pn65dl " + hex(pieces[1]).substr(0, 16) + " 020000 1");
    expect_last(img, {reset_frame, pieces[0], pieces[1], pieces[1], pieces[2]});
    ask("pn65dl " + hex(pieces[1]).substr(0, 16) + " E60000 1");
    expect_last(img, {reset_frame, pieces[0], pieces[1], pieces[0], pieces[1], pieces[2]});
    ask("pn65dl 0D E60000");
    EXPECT_EQ(run_image(img), five_failed);
    expect_last(raw_image({{1, 0xFE, write(0xB0000, pattern(501, 1), 12)}}),
                {reset_frame, write(0xB0000, pattern(501, 1), 12)});
}

TEST_F(Pn65Download, ContainersThatCantBeEndEachAttemptBeforeItsFirstFrame)
{
    const bytes good = image({{0, 0x30000, {1, 2}}, {keep_list, 0x40000, {3}, {0}}});
    ASSERT_EQ(run_image(good), good_end);
    const std::string last = recent(1);
    const auto expect_refused = [&](bytes img, const char* why) {
        EXPECT_EQ(run_image(img), five_failed) << why;
        EXPECT_EQ(recent(1), last) << why;
    };
    const auto changed = [&good](std::size_t at, std::initializer_list<std::uint8_t> with) {
        bytes img = good;
        std::ranges::copy(with, img.begin() + static_cast<std::ptrdiff_t>(at));
        return img;
    };
    const std::string before = ask("pn65dl recent");
    // the version record at 12, the sections at 24 and 38
    expect_refused(changed(5, {0}), "no version record");
    expect_refused(changed(12, {0}), "a version record of no length");
    expect_refused(changed(13, {0}), "no sections, and not raw");
    expect_refused(changed(13, {255}), "255 sections");
    expect_refused(changed(24, {0}), "a section header of no length");
    expect_refused(changed(24, {2}), "a section header that is too short");
    expect_refused(changed(31, {1}), "an address of 25 bits");
    expect_refused(changed(34, {0x11}), "more than 1 MiB of data");
    expect_refused(changed(35, {0xFF}), "as much as a word can tell");
    expect_refused(changed(50, {4}), "a keep list beyond its header");
    expect_refused({}, "nothing");
    expect_refused(bytes(1 << 20, 0xFF), "FF alone");
    expect_refused(bytes(1 << 20, 0x01), "01 alone");
    EXPECT_EQ(ask("pn65dl recent"), before);
}

TEST_F(Pn65Download, ALateReplyCountsAsAFailureEvenWhenItIsGood)
{
    // With the line held low, the reply is there but isn't told; the reading takes it all the same.
    ask("gpio 59 0");
    EXPECT_EQ(run_image(image({{0, 0x30000, {1}}})), five_failed);
    EXPECT_EQ(recent(3), text_of({write(0x30000, {1}), check_frame, reset_frame}));
    ask("gpio 59 free");
    ask("fail ioctl /dev/i2c-10 1");
    EXPECT_EQ(run(), good_end) << "a write that failed is made once more";
    ask("fail ioctl /dev/i2c-10 2");
    EXPECT_EQ(run(), 16 + NFC_DNLD_DONE);
}

TEST_F(Pn65Download, TheGapComesBeforeEachFrameAndTheGuardBehindIt)
{
    put(image({{0, 0x30000, {1}}}));
    std::uint32_t word = 0;
    // Signals take 125 ms, a reset 100 ms before it: the first frame is sent behind that and the gap.
    start(3'000'000);
    const std::string before = recent(256);
    ask("clock +3200");
    EXPECT_EQ(recent(256), before);
    ask("clock +100");
    EXPECT_NE(recent(256), before);
    EXPECT_EQ(nfc_pn65_fw_dnld(500, &word), 1) << "one runs";
    ask("clock +20000");
    EXPECT_EQ(state(), good_end);
    // A gap beyond the guard's 16.384 s: nothing is ever sent.
    const std::string behind = recent(256);
    EXPECT_EQ(run(4'000'000'000u), five_failed);
    EXPECT_EQ(recent(256), behind);
}

TEST_F(Pn65Download, WithoutAFirmwareOrABusItFailsAtOnce)
{
    const std::string before = recent(256);
    ask("fail open /dev/i2c-10");
    EXPECT_EQ(run(), failed_at_once);
    EXPECT_EQ(recent(256), before);
    cfg_init();
    EXPECT_EQ(run(), failed_at_once);
    cfg_set_str("nfc_pn65_fw_dnld", "nfc_pn65_fw_dnld_path", "libnosuch.so");
    EXPECT_EQ(run(), failed_at_once);
    cfg_set_str("nfc_pn65_fw_dnld", "nfc_pn65_fw_dnld_path", "libnvq.so"); // lacks the symbols
    EXPECT_EQ(run(), failed_at_once);
    ask("strange off");
}

TEST_F(Pn65Download, AHundredDownloadsLeaveThreadsAndDescriptorsFlat)
{
    const bytes good = image({{read_back, 0x30000, {1, 2, 3}}});
    const bytes bad = image({{0, 0x30000, {1}}}, true);
    ASSERT_EQ(run_image(good), good_end);
    const auto threads = entries("/proc/self/task"), files = entries("/proc/self/fd");
    for (int i = 0; i < 50; i++) {
        put(good);
        ASSERT_EQ(run(), good_end);
        put(bad);
        ask("pn65dl 0C 080000");
        ASSERT_EQ(run(), five_failed);
        ask("pn65dl off");
    }
    // A thread that has ended may still be on its way out of the list.
    for (int turn = 0; turn < 100 && entries("/proc/self/task") > threads; turn++)
        ask("clock +10");
    EXPECT_LE(entries("/proc/self/task"), threads);
    EXPECT_LE(entries("/proc/self/fd"), files);
}

} // namespace
