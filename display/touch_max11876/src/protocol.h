// The exchange with the controller: commands as lines of text, reports from a thread that reads them. All
// fail when a command can't be written or reports can't be read at all.
#pragma once

#include <string>

#include "touch_max11876/report.h"

// Commands: id, number of words, words.
constexpr const char* MAX11876_RAW_REPORTS = "001800010000\n"; // frames follow it
constexpr const char* MAX11876_NO_REPORTS = "001800010002\n";
constexpr const char* MAX11876_SLEEP = "002000010000\n";
constexpr const char* MAX11876_ACTIVE = "002000010002\n"; // last step of the configuration
constexpr const char* MAX11876_MEASURE = "002000010003\n";
constexpr const char* MAX11876_DRIVE = "002000010004\n";
constexpr const char* MAX11876_SENSE = "0020000500050AAA0AAA05550555\n";
constexpr const char* MAX11876_0028 = "002800010000\n"; // before a measurement
constexpr const char* MAX11876_0026 = "002600010505\n"; // likewise
constexpr const char* MAX11876_SCAN_FREQUENCY = "00410001030C\n";
constexpr const char* MAX11876_OFFSETS = "00480000\n"; // frames hold the offsets alone, until the reset
constexpr const char* MAX11876_RESET = "00E90000\n";
extern const std::string max11876_pixel_mode;

// Reports.
constexpr const char* MAX11876_FRAME = "0800";
constexpr const char* MAX11876_SCAN_SET = "0142";
constexpr const char* MAX11876_MODE_SET = "01B1";
constexpr const char* MAX11876_RESET_DONE = "01A0";

// Writes a command and gives the controller its time. Starts the reader if there is none.
bool send_command(const char* text);

// Several, in their order; ends at the first that fails.
template <class... Text>
bool send_commands(Text... texts)
{
    return (send_command(texts) && ...);
}

// Takes the next report, however long that takes. False when the reader ends first.
bool next_report(max11876_report* p_out);

// Sends a command, up to 10 times, until a report `id` comes within `timeout_ms`; other reports are thrown
// away. REPORT_OK; REPORT_TIMEOUT when none came; REPORT_ENDED when the command can't be sent.
int command_report_expect_retry(const char* text, const char* id, unsigned timeout_ms);

// The same where the answer isn't waited for in vain: a controller that doesn't answer is asked for frames
// all the same, and these then tell. False when the command can't be sent.
bool command_expecting(const char* text, const char* id, unsigned timeout_ms);

// A command after which frames come, or the mode is acknowledged.
bool set_report_mode(const char* text);
bool set_scan_frequency();

// Sends "sleep" until the controller is silent for half a second; false when it never is.
bool set_sleep_mode();
