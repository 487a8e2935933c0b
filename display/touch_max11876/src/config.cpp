// Of the blocks only some words are settled: identity, size of the matrix, order of lines, size of the panel.
// All others are made up: a real panel wants those that the controller's own tool writes for it. The last
// word of each block is the sum of the words before it.
#include "config.h"

#include <algorithm>
#include <cstdio>
#include <span>
#include <string>

#include "protocol.h"

namespace {

using std::uint16_t;

template <std::size_t n>
using words = std::array<uint16_t, n>;

// Configuration ids of the panels that have a set of their own.
constexpr uint16_t ID_AUO = 0x10;
constexpr uint16_t ID_TPK = 0x12;
constexpr uint16_t ID_TPK2 = 0x13;

constexpr std::size_t TOUCH_WORDS = 65;
constexpr std::size_t CALIBRATION_WORDS = 74;
constexpr std::size_t PRIVATE_WORDS = 34;
constexpr std::size_t LOOKUP_WORDS = 8;

// Places in the touch configuration, in bytes of its little-endian words.
constexpr std::size_t SENSE_ORDER = 10;
constexpr std::size_t DRIVE_ORDER = SENSE_ORDER + MAX11876_ROWS;
constexpr std::size_t NO_LINES = DRIVE_ORDER + MAX11876_COLUMNS;
constexpr std::size_t NO_LINES_END = NO_LINES + 8;
constexpr std::size_t PANEL_HEIGHT = 41; // in words
constexpr std::size_t PANEL_WIDTH = 42;

template <std::size_t n>
constexpr words<n> with_sum(words<n> block)
{
    unsigned sum = 0;
    for (std::size_t i = 0; i + 1 < n; i++)
        sum += block[i];
    block[n - 1] = static_cast<uint16_t>(sum);
    return block;
}

template <std::size_t n>
constexpr void put_byte(words<n>& block, std::size_t at, unsigned value)
{
    block[at / 2] = static_cast<uint16_t>(block[at / 2] | value << at % 2 * 8);
}

// `id` and what is made up: words 2 to 4, and those behind the size of the panel.
constexpr words<TOUCH_WORDS> touch_configuration(uint16_t id, words<3> gains, words<4> levels)
{
    words<TOUCH_WORDS> block{};
    block[0] = id;
    block[1] = MAX11876_COLUMNS << 8 | MAX11876_ROWS;
    std::copy(gains.begin(), gains.end(), block.begin() + 2);
    for (unsigned i = 0; i < MAX11876_ROWS; i++)
        put_byte(block, SENSE_ORDER + i, i);
    for (unsigned i = 0; i < MAX11876_COLUMNS; i++)
        put_byte(block, DRIVE_ORDER + i, i);
    for (std::size_t i = NO_LINES; i < NO_LINES_END; i++)
        put_byte(block, i, 0xFF);
    block[PANEL_HEIGHT] = 1920;
    block[PANEL_WIDTH] = 1080;
    std::copy(levels.begin(), levels.end(), block.begin() + PANEL_WIDTH + 1);
    return with_sum(block);
}

// Made up: one gain for each line.
constexpr words<CALIBRATION_WORDS> calibration(uint16_t gain)
{
    words<CALIBRATION_WORDS> block{};
    for (std::size_t i = 0; i + 1 < CALIBRATION_WORDS; i++)
        block[i] = static_cast<uint16_t>(gain + i);
    return with_sum(block);
}

// Made up.
constexpr words<PRIVATE_WORDS> private_configuration(uint16_t first)
{
    words<PRIVATE_WORDS> block{};
    for (std::size_t i = 0; i + 1 < PRIVATE_WORDS; i++)
        block[i] = static_cast<uint16_t>(first + 3 * i);
    return with_sum(block);
}

// Made up: a straight line.
constexpr words<LOOKUP_WORDS> lookup(uint16_t step)
{
    words<LOOKUP_WORDS> block{};
    for (std::size_t i = 0; i + 1 < LOOKUP_WORDS; i++)
        block[i] = static_cast<uint16_t>(step * i);
    return with_sum(block);
}

// clang-format off
//                                                        id       gains                         levels
constexpr auto auo_touch           = touch_configuration(ID_AUO,  { 0x0210, 0x0004, 0x0102 },  { 120, 60, 12, 3 });
constexpr auto tpk_touch           = touch_configuration(ID_TPK,  { 0x0212, 0x0004, 0x0103 },  { 140, 70, 12, 3 });
constexpr auto tpk2_touch          = touch_configuration(ID_TPK2, { 0x0213, 0x0005, 0x0103 },  { 135, 68, 14, 3 });
constexpr auto auo_calibration     = calibration(0x0400);
constexpr auto tpk_calibration     = calibration(0x0420);
constexpr auto tpk2_calibration    = calibration(0x0430);
constexpr auto auo_private         = private_configuration(0x0010);
constexpr auto tpk_private         = private_configuration(0x0012);
constexpr auto tpk2_private        = private_configuration(0x0013);
constexpr auto lookup_x            = lookup(154); // 1080 pixels in seven steps
constexpr auto lookup_y            = lookup(274); // 1920

constexpr max11876_set auo_command_set = {
    "Max11876p8", "AUO_0010_1.03.B12_ID000300.mxm", "Wednesday, May 15, 2013", "TTS 1.6.114b2603", {{
        { "0001", auo_touch.data(),        TOUCH_WORDS },
        { "0010", auo_calibration.data(),  CALIBRATION_WORDS },
        { "0003", auo_private.data(),      PRIVATE_WORDS },
        { "0030", lookup_x.data(),         LOOKUP_WORDS },
        { "0030", lookup_y.data(),         LOOKUP_WORDS },
        {},
    }},
};
constexpr max11876_set tpk_command_set = {
    "Max11876p8", "TPK_0012_1.03.B12_ID000300.mxm", "Wednesday, May 15, 2013", "TTS 1.6.114b2603", {{
        { "0001", tpk_touch.data(),        TOUCH_WORDS },
        { "0010", tpk_calibration.data(),  CALIBRATION_WORDS },
        { "0003", tpk_private.data(),      PRIVATE_WORDS },
        { "0030", lookup_x.data(),         LOOKUP_WORDS },
        { "0030", lookup_y.data(),         LOOKUP_WORDS },
        {},
    }},
};
constexpr max11876_set tpk2_command_set = {
    "Max11876p8", "TPK_0013_1.04.B1_ID001200.mxm", "Friday, July 19, 2013", "TTS 1.6.114b2704", {{
        { "0001", tpk2_touch.data(),       TOUCH_WORDS },
        { "0010", tpk2_calibration.data(), CALIBRATION_WORDS },
        { "0003", tpk2_private.data(),     PRIVATE_WORDS },
        { "0030", lookup_x.data(),         LOOKUP_WORDS },
        { "0030", lookup_y.data(),         LOOKUP_WORDS },
        {},
    }},
};
// clang-format on

std::string hex_word(unsigned value)
{
    char text[8];
    std::snprintf(text, sizeof text, "%04X", value & 0xFFFF);
    return text;
}

bool send_row(const max11876_row& row)
{
    std::string text = row.id + hex_word(row.count);
    for (const uint16_t word : std::span(row.p_words, row.count))
        text += hex_word(word);
    return send_command((text + "\n").c_str());
}

} // namespace

const max11876_set& max11876_set_of(uint16_t config_id)
{
    switch (config_id) {
    case ID_TPK:
        return tpk_command_set;
    case ID_TPK2:
        return tpk2_command_set;
    default:
        return auo_command_set;
    }
}

bool config_panel(const max11876_set& set)
{
    if (!set_sleep_mode())
        return false;
    for (const max11876_row* p_row = set.rows.data(); p_row->id != nullptr; p_row++)
        if (!send_row(*p_row))
            return false;
    return send_command(MAX11876_ACTIVE);
}
