#include "touch_max11876/report_queue.h"

#include <condition_variable>
#include <mutex>
#include <thread>

#include "plat/plat.h"

namespace {

constexpr std::size_t ENTRIES = REPORT_QUEUE_MOST + 1;

enum class reader_state { ended, starting, ready };

std::mutex queue_mutex; // guards all below
std::condition_variable queue_cond;
max11876_report entries[ENTRIES];
std::size_t read_index;
std::size_t write_index; // the queue is full when the one behind it is read_index
reader_state reader;

using locked = std::unique_lock<std::mutex>;

std::size_t next(std::size_t index)
{
    return (index + 1) % ENTRIES;
}

bool is_empty()
{
    return read_index == write_index;
}

// Something is there, or nothing will come.
bool is_over()
{
    return !is_empty() || reader == reader_state::ended;
}

int wait_front(locked& lock, std::uint32_t us)
{
    if (!plat_wait_for(queue_cond, lock, us, is_over))
        return REPORT_TIMEOUT;
    return is_empty() ? REPORT_ENDED : REPORT_OK;
}

void take(max11876_report* p_out)
{
    *p_out = entries[read_index];
    read_index = next(read_index);
}

void set_reader(reader_state state)
{
    const locked lock(queue_mutex);
    reader = state;
    plat_cond_wake(queue_cond);
}

} // namespace

void report_queue_init()
{
    report_queue_empty();
}

void report_queue_empty()
{
    const locked lock(queue_mutex);
    read_index = write_index;
}

void report_queue_push_back(const max11876_report& report)
{
    const locked lock(queue_mutex);
    entries[write_index] = report;
    write_index = next(write_index);
    if (is_empty())
        read_index = next(read_index);
    plat_cond_wake(queue_cond);
}

bool report_queue_pop_front_wait(max11876_report* p_out)
{
    locked lock(queue_mutex);
    plat_wait(queue_cond, lock, is_over);
    if (is_empty())
        return false;
    take(p_out);
    return true;
}

int report_queue_pop_front_timedwait(max11876_report* p_out, std::uint32_t us)
{
    locked lock(queue_mutex);
    const int result = wait_front(lock, us);
    if (result == REPORT_OK)
        take(p_out);
    return result;
}

int report_queue_front_timedwait(max11876_report* p_out, std::uint32_t us)
{
    locked lock(queue_mutex);
    const int result = wait_front(lock, us);
    if (result == REPORT_OK)
        *p_out = entries[read_index];
    return result;
}

bool report_queue_claim()
{
    const locked lock(queue_mutex);
    if (reader != reader_state::ended)
        return false;
    reader = reader_state::starting;
    return true;
}

void report_queue_reader_ready()
{
    set_reader(reader_state::ready);
}

void report_queue_reader_ended()
{
    set_reader(reader_state::ended);
}

// The phone's time mustn't run on while a thread begins, so this thread stays at work meanwhile.
bool report_queue_wait_ready()
{
    for (;; std::this_thread::yield()) {
        const locked lock(queue_mutex);
        if (reader != reader_state::starting)
            return reader == reader_state::ready;
    }
}
