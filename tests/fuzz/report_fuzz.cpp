// A report of the touch controller in pieces: each piece of the input begins with two bytes of its length.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "touch_max11876/report.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    max11876_report report;
    report.fill = 0;
    std::size_t left = size;
    const std::uint8_t* p = data;
    auto fed = max11876_feed::more;
    while (fed == max11876_feed::more && left >= 2) {
        const std::size_t piece = std::min(p[0] << 8 | p[1] + std::size_t{0}, left - 2);
        const std::size_t n = std::min(piece, max11876_report_room(report).size());
        std::memcpy(max11876_report_room(report).data(), p + 2, n);
        fed = max11876_report_feed(report, n);
        p += 2 + piece;
        left -= 2 + piece;
    }
    if (fed == max11876_feed::whole && max11876_report_is(report, "0800")) {
        std::int64_t sum = max11876_frame_counter(report);
        for (std::size_t i = 0; i < MAX11876_PIXELS; i++)
            sum += max11876_frame_pixel(report, i);
        if (sum == INT64_MIN)
            __builtin_trap();
    }
    return 0;
}
