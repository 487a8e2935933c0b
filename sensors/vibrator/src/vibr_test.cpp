// The test's thread: measures once, or again and again until it is stopped.
#include "vibrator/vibrator.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <mutex>
#include <pthread.h>

#include "core/core.h"
#include "plat/plat.h"
#include "tmr/tmr.h"

namespace {

constexpr const char* RESULT_PATH = "/system/hvtdebug/vibt_result.txt";
constexpr const char* FAILED_TEXT = "viberator test FAILED!\n";
constexpr int LONGEST_KEPT = 99; // characters of a line in the result file
constexpr int STOP_SIGNAL = SIGQUIT;

std::mutex test_mutex; // guards the start and the end of a worker
int worker_mode = VIBR_STOP;
pthread_t worker;
struct sigaction former_action;

std::atomic<bool> worker_at_work;
std::atomic<int> sig_worker_exit;

// Set before the worker is made.
int vibr_start_level;
vibr_report_fn vibr_report;

std::mutex result_mutex;
vibr_result vibt_result;

void handle_vibr_test_quit(int)
{
    sig_worker_exit = 1;
}

struct result_file {
    int fd = plat_open(RESULT_PATH, O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);

    result_file() = default;
    ~result_file()
    {
        if (fd >= 0)
            plat_close(fd);
    }
    result_file(const result_file&) = delete;
    result_file& operator=(const result_file&) = delete;
};

void keep(const vibr_result& result)
{
    const std::lock_guard lock(result_mutex);
    vibt_result = result;
}

void measure(const result_file& file)
{
    vibr_result result;
    char text[256] = "";
    const bool measured = vibr_measure(&result, vibr_start_level) != 0;
    if (worker_mode == VIBR_ONCE)
        worker_at_work = false; // who reads the report may start the next one
    if (!measured) {
        vibr_report(FAILED_TEXT);
        return;
    }
    keep(result);
    const int len = std::snprintf(
        text, sizeof text, "v=%d, freq=%.6f, amplX=%1.6f, amplY=%1.6f, amplZ=%1.6f\n", vibr_start_level,
        result.frequency, result.amplitude[0], result.amplitude[1], result.amplitude[2]);
    vibr_report(text);
    if (len >= 1 && len <= LONGEST_KEPT)
        plat_write(file.fd, text, static_cast<std::size_t>(len));
}

void run()
{
    const result_file file;
    if (file.fd < 0 || vibr_measure_init() == 0)
        return;
    while (sig_worker_exit == 0) {
        measure(file);
        if (worker_mode == VIBR_ONCE)
            break;
        tmr_msleep(500);
    }
    vibr_measure_exit();
}

// Before the thread is there, so that none is without a handler for the signal that stops it.
void take_signal()
{
    struct sigaction action = {};
    action.sa_handler = handle_vibr_test_quit;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(STOP_SIGNAL, &action, &former_action);
}

// Only a repeating test is ever signalled.
void leave_worker()
{
    if (worker_mode == VIBR_REPEAT)
        sigaction(STOP_SIGNAL, &former_action, nullptr);
    worker_mode = VIBR_STOP;
}

void join()
{
    pthread_join(worker, nullptr);
    leave_worker();
}

// One measurement has no one who stops it: its thread is joined by the loop, or by the next start if that is
// first.
void join_ended(void*, void*)
{
    const std::lock_guard lock(test_mutex);
    if (worker_mode == VIBR_ONCE && !worker_at_work)
        join();
}

void* vibr_test_worker(void*)
{
    run();
    worker_at_work = false;
    core_dfc(join_ended, nullptr, nullptr, 0);
    return nullptr;
}

// A repeating test that has ended by itself counts as running until somebody stops it.
int start(int mode, int level, vibr_report_fn report)
{
    if (worker_at_work || worker_mode == VIBR_REPEAT)
        return 1;
    if (worker_mode == VIBR_ONCE)
        join();
    vibr_start_level = level;
    vibr_report = report;
    sig_worker_exit = 0;
    worker_mode = mode;
    if (mode == VIBR_REPEAT)
        take_signal();
    worker_at_work = true;
    if (pthread_create(&worker, nullptr, vibr_test_worker, nullptr) == 0)
        return 0;
    worker_at_work = false;
    leave_worker();
    return 1;
}

int stop()
{
    if (worker_mode != VIBR_REPEAT)
        return 1;
    pthread_kill(worker, STOP_SIGNAL);
    join();
    return 0;
}

} // namespace

int vibr_test(int mode, int level, vibr_report_fn report)
{
    const std::lock_guard lock(test_mutex);
    return mode == VIBR_STOP ? stop() : start(mode, level, report);
}

vibr_result vibr_last_result()
{
    const std::lock_guard lock(result_mutex);
    return vibt_result;
}
