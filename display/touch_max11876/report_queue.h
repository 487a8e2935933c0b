// The queue between the thread that reads the controller's reports and the test that waits for them: at most
// 31, of which the oldest gives way. One thread puts in, one takes out. It also knows whether the reader is
// there, so that nobody waits for one that has ended. Waits live by the phone's clock.
#pragma once

#include <cstdint>

#include "touch_max11876/report.h"

constexpr std::size_t REPORT_QUEUE_MOST = 31;

// Results of the timed forms; a wait for a reader that has ended is over at once.
constexpr int REPORT_OK = 0;
constexpr int REPORT_ENDED = 5;     // EIO
constexpr int REPORT_TIMEOUT = 110; // ETIMEDOUT

// Empties it.
void report_queue_init();
void report_queue_empty();

void report_queue_push_back(const max11876_report& report);

// Takes the oldest out, waiting as long as it takes. False when the reader has ended.
bool report_queue_pop_front_wait(max11876_report* p_out);

// The same for at most `us` microseconds; and the oldest without taking it out.
int report_queue_pop_front_timedwait(max11876_report* p_out, std::uint32_t us);
int report_queue_front_timedwait(max11876_report* p_out, std::uint32_t us);

// The reader's state. The first claims the place of a reader that isn't there: false when there is one.
bool report_queue_claim();
void report_queue_reader_ready(); // it hears what comes from now on
void report_queue_reader_ended(); // its last act

// Waits until the reader is ready; false when it has ended instead. A reader that was claimed soon does
// either.
bool report_queue_wait_ready();
