#include "protocol.h"

#include <string_view>

#include "attr/attr.h"
#include "reader.h"
#include "tmr/tmr.h"
#include "touch_max11876/report_queue.h"

namespace {

constexpr const char* COMMAND_PATH = "/sys/bus/i2c/devices/0-0048/command";
constexpr std::uint32_t COMMAND_US = 50'000;

constexpr int ATTEMPTS = 10;
constexpr int MOST_STRANGE = 10; // reports of another id, in one attempt
constexpr unsigned ANSWER_MS = 50;

constexpr std::uint32_t SILENCE_US = 500'000;
constexpr int MOST_SLEEPS = 20;

// Throws away what isn't the report `id`; REPORT_OK once that has come and is taken.
int expect_report(const char* id, unsigned timeout_ms)
{
    max11876_report report;
    for (int i = 0; i < MOST_STRANGE; i++) {
        const int result = report_queue_pop_front_timedwait(&report, timeout_ms * 1000);
        if (result != REPORT_OK || max11876_report_is(report, id))
            return result;
    }
    return REPORT_TIMEOUT;
}

} // namespace

const std::string max11876_pixel_mode = "00140018" + std::string(24 * 4, '0') + "\n";

bool send_command(const char* text)
{
    if (!reader_start() || attr_write(COMMAND_PATH, text) != ATTR_OK)
        return false;
    tmr_usleep(COMMAND_US);
    return true;
}

bool next_report(max11876_report* p_out)
{
    return report_queue_pop_front_wait(p_out);
}

// A reader that has ended meanwhile counts as silence: the next attempt starts it again.
int command_report_expect_retry(const char* text, const char* id, unsigned timeout_ms)
{
    for (int i = 0; i < ATTEMPTS; i++) {
        if (!send_command(text))
            return REPORT_ENDED;
        if (expect_report(id, timeout_ms) == REPORT_OK)
            return REPORT_OK;
    }
    return REPORT_TIMEOUT;
}

bool command_expecting(const char* text, const char* id, unsigned timeout_ms)
{
    return command_report_expect_retry(text, id, timeout_ms) != REPORT_ENDED;
}

bool set_report_mode(const char* text)
{
    const bool frames = std::string_view(text) == MAX11876_RAW_REPORTS;
    return command_expecting(text, frames ? MAX11876_FRAME : MAX11876_MODE_SET, ANSWER_MS);
}

bool set_scan_frequency()
{
    return command_expecting(MAX11876_SCAN_FREQUENCY, MAX11876_SCAN_SET, ANSWER_MS);
}

bool set_sleep_mode()
{
    max11876_report report;
    for (int i = 0; i < MOST_SLEEPS; i++) {
        if (!send_command(MAX11876_SLEEP))
            return false;
        report_queue_empty();
        if (report_queue_front_timedwait(&report, SILENCE_US) != REPORT_OK)
            return true;
    }
    return false;
}
