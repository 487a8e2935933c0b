// A report of the touch controller: text, four hexadecimal digits a word, of which the first is its id and
// the second the number of words behind. It comes in one reading or in pieces, each with a line end of two
// bytes. Here it is put together and read; where it comes from and what it means isn't known here.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

constexpr std::size_t MAX11876_ROWS = 40;
constexpr std::size_t MAX11876_COLUMNS = 24;
constexpr std::size_t MAX11876_PIXELS = MAX11876_ROWS * MAX11876_COLUMNS;

// A frame of raw nodes, the longest report: 964 words and a line end.
constexpr std::size_t MAX11876_REPORT_BYTES = 3858;

struct max11876_report {
    std::array<char, MAX11876_REPORT_BYTES> text;
    std::size_t fill; // what is there, line end not counted
};

enum class max11876_feed { more, whole, broken };

// Where the next piece of the report goes.
std::span<char> max11876_report_room(max11876_report& report);

// Takes in a piece of `size` bytes that was put there, line end included. Broken is a report that says a
// length it can't have, a frame with another length than that of all nodes, and one with characters that are
// no digits.
max11876_feed max11876_report_feed(max11876_report& report, std::size_t size);

// Of a whole report. `id` has four digits. A frame is a report "0800".
bool max11876_report_is(const max11876_report& report, const char* id);
unsigned max11876_frame_counter(const max11876_report& frame);
std::int32_t max11876_frame_pixel(const max11876_report& frame, std::size_t pixel);
