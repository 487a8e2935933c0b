// The frames that the driver sends: control byte and payload, by row number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pn65 {

constexpr std::size_t FRAME_ROOM = 33;

struct frame {
    std::size_t size = 0;
    std::array<std::uint8_t, FRAME_ROOM> bytes{};
};

// Rows with a name of their own; the others are steps of a sequence.
constexpr int ROW_CREATE_IDENTITY = 5;
constexpr int ROW_OPEN_IDENTITY = 6;
constexpr int ROW_IDENTITY_FIRST = 7; // parameter 1 of six
constexpr int ROW_FIRST_SETTING = 13; // the first of four registers that the board sets
constexpr int ROW_ANTENNA_REGISTER = 18;
constexpr int ROW_ANTENNA_989F = 19;
constexpr int ROW_ANTENNA_989D = 20;
constexpr int ROW_ANTENNA_989E = 21;
constexpr int ROW_ANTENNA_LEVELS = 22;
constexpr int ROW_SELF_TEST = 23;
constexpr int ROW_OPEN_PIPE = 24;
constexpr int ROW_DETECT = 36;
constexpr int ROW_WRITE_REGISTER = 37;
constexpr int ROW_READ_REGISTER = 38;
constexpr int ROW_SWP_TEST = 41;
constexpr int ROW_OPEN_POLLED = 49;
constexpr int ROW_POLL = 57;

frame frame_of_row(int row);

} // namespace pn65
