#include "touch_v2/touch.h"

#include <atomic>

#include "check/check.h"
#include "core/core.h"

namespace {

constexpr std::uint32_t POLL_PERIOD_US = 20'000;

touch_co touch_tab;
std::uint32_t touch_flags;
slnk touch_cfg_head;
std::uint32_t touch_id = 1;
std::atomic<touch_evt_cb> touch_cb;

// The number of the polling that is on, 0 for none: a deferred poll of an older one does nothing, so that a
// stop and a start within one period don't leave two.
std::atomic<std::uintptr_t> poll_run;
std::atomic<std::uintptr_t> last_run;
std::atomic<int> poll_mode;
std::atomic<bool> events_on; // reports of a driver that isn't polled

bool is_polled()
{
    return (touch_flags & TOUCH_FLAG_POLLED) != 0;
}

void touch_poll_dfc(void* run, void*)
{
    if (poll_run != reinterpret_cast<std::uintptr_t>(run))
        return;
    touch_event event{};
    if (touch_poll(poll_mode, &event) != 0)
        touch_evt_report(&event);
    if (poll_run == reinterpret_cast<std::uintptr_t>(run))
        core_dfc(touch_poll_dfc, run, nullptr, POLL_PERIOD_US);
}

} // namespace

void touch_init()
{
    touch_tab = {};
    slnk_init(&touch_cfg_head);
}

void touch_co_attach(const touch_co* p_co, std::uint32_t flags)
{
    HVT_CHECK(p_co != nullptr);
    const auto take = [](auto& slot, auto given) { slot = given != nullptr ? given : slot; };
    take(touch_tab.start, p_co->start);
    take(touch_tab.stop, p_co->stop);
    take(touch_tab.start_evt_hnd, p_co->start_evt_hnd);
    take(touch_tab.stop_evt_hnd, p_co->stop_evt_hnd);
    take(touch_tab.poll, p_co->poll);
    take(touch_tab.selftest, p_co->selftest);
    take(touch_tab.fmdn, p_co->fmdn);
    take(touch_tab.fmid, p_co->fmid);
    take(touch_tab.test_mode, p_co->test_mode);
    take(touch_tab.test_mode_secondary, p_co->test_mode_secondary);
    touch_flags = flags;
}

void touch_add_cfg(touch_config* p_cfg)
{
    slnk_add(&touch_cfg_head, &p_cfg->link);
}

void touch_select(std::uint32_t n)
{
    if (n == 1 || n == 2)
        touch_id = n;
}

int touch_start()
{
    return touch_tab.start != nullptr ? touch_tab.start(&touch_cfg_head, touch_id) : 0;
}

int touch_stop()
{
    return touch_tab.stop != nullptr ? touch_tab.stop() : 0;
}

touch_evt_cb touch_evt_attach(touch_evt_cb cb)
{
    HVT_CHECK(cb != nullptr);
    return touch_cb.exchange(cb);
}

void touch_evt_report(const touch_event* p_event)
{
    if (const touch_evt_cb cb = touch_cb; cb != nullptr)
        cb(p_event);
}

int touch_start_evt_hnd(int mode)
{
    if (!is_polled()) {
        if (events_on.exchange(true))
            return 0;
        events_on = touch_tab.start_evt_hnd != nullptr && touch_tab.start_evt_hnd(mode) != 0;
        return events_on ? 1 : 0;
    }
    std::uintptr_t none = 0;
    const std::uintptr_t run = ++last_run;
    if (!poll_run.compare_exchange_strong(none, run))
        return 0;
    poll_mode = mode;
    core_dfc(touch_poll_dfc, reinterpret_cast<void*>(run), nullptr, POLL_PERIOD_US);
    return 1;
}

int touch_stop_evt_hnd()
{
    if (!is_polled()) {
        events_on = false;
        return touch_tab.stop_evt_hnd != nullptr ? touch_tab.stop_evt_hnd() : 0;
    }
    poll_run = 0;
    return 1;
}

int touch_poll(int mode, touch_event* p_event)
{
    return touch_tab.poll != nullptr ? touch_tab.poll(mode, p_event) : 0;
}

int touch_selftest(touch_selftest_rec* p_rec)
{
    return touch_tab.selftest != nullptr ? touch_tab.selftest(p_rec) : 0;
}

int touch_fmdn(const char* path)
{
    return touch_tab.fmdn != nullptr ? touch_tab.fmdn(path) : 0;
}

int touch_fmid(touch_hwinfo* p_info)
{
    return touch_tab.fmid != nullptr ? touch_tab.fmid(p_info) : 0;
}

int touch_test_mode(touch_test_mode_rec* p_rec)
{
    return touch_tab.test_mode != nullptr ? touch_tab.test_mode(p_rec) : 0;
}

int touch_test_mode_secondary(touch_test_mode_rec* p_rec)
{
    return touch_tab.test_mode_secondary != nullptr ? touch_tab.test_mode_secondary(p_rec) : 0;
}
