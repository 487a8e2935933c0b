#include "touch_max11876/report.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace {

constexpr std::size_t DIGITS = 4; // of a word
constexpr std::size_t LINE_END = 2;
constexpr std::size_t LENGTH_WORD = 1;
constexpr std::size_t COUNTER_WORD = 3;
constexpr std::size_t FIRST_PIXEL_WORD = 4;
constexpr std::size_t HEAD = 2 * DIGITS; // id and length, which the length doesn't count

constexpr const char* FRAME_ID = "0800";
constexpr unsigned FRAME_LENGTH = 962;

constexpr std::size_t MOST_LENGTH = (MAX11876_REPORT_BYTES - LINE_END - HEAD) / DIGITS;

bool is_digit(char c)
{
    return std::isxdigit(static_cast<unsigned char>(c)) != 0;
}

unsigned digit(char c)
{
    return c <= '9' ? static_cast<unsigned>(c - '0') : static_cast<unsigned>((c | 0x20) - 'a' + 10);
}

unsigned word(const max11876_report& report, std::size_t i)
{
    unsigned value = 0;
    for (std::size_t k = 0; k < DIGITS; k++)
        value = value << 4 | digit(report.text[i * DIGITS + k]);
    return value;
}

bool all_digits(const max11876_report& report, std::size_t from, std::size_t to)
{
    return std::all_of(report.text.begin() + static_cast<std::ptrdiff_t>(from),
                       report.text.begin() + static_cast<std::ptrdiff_t>(to), is_digit);
}

} // namespace

std::span<char> max11876_report_room(max11876_report& report)
{
    return std::span(report.text).subspan(report.fill);
}

max11876_feed max11876_report_feed(max11876_report& report, std::size_t size)
{
    if (size < LINE_END || size > report.text.size() - report.fill)
        return max11876_feed::broken;
    report.fill += size - LINE_END;
    if (report.fill < HEAD)
        return max11876_feed::more;
    if (!all_digits(report, 0, HEAD))
        return max11876_feed::broken;
    const unsigned length = word(report, LENGTH_WORD);
    if (length > MOST_LENGTH || (max11876_report_is(report, FRAME_ID) && length != FRAME_LENGTH))
        return max11876_feed::broken;
    const std::size_t end = HEAD + length * DIGITS;
    if (report.fill < end)
        return max11876_feed::more;
    return all_digits(report, HEAD, end) ? max11876_feed::whole : max11876_feed::broken;
}

bool max11876_report_is(const max11876_report& report, const char* id)
{
    return std::memcmp(report.text.data(), id, DIGITS) == 0;
}

unsigned max11876_frame_counter(const max11876_report& frame)
{
    return word(frame, COUNTER_WORD);
}

std::int32_t max11876_frame_pixel(const max11876_report& frame, std::size_t pixel)
{
    return static_cast<std::int16_t>(word(frame, FIRST_PIXEL_WORD + pixel));
}
