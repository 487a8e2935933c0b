#include "touch_v2/touch.h"

#include <atomic>

#include "callout/callout.h"
#include "check/check.h"
#include "core/core.h"
#include "overlay/overlay.h"

namespace {

constexpr std::uint32_t POLL_PERIOD_US = 20'000;

touch_co touch_tab;

// clang-format off
constexpr std::tuple touch_slots = {
    &touch_co::start,
    &touch_co::stop,
    &touch_co::start_evt_hnd,
    &touch_co::stop_evt_hnd,
    &touch_co::poll,
    &touch_co::selftest,
    &touch_co::fmdn,
    &touch_co::fmid,
    &touch_co::test_mode,
    &touch_co::test_mode_secondary,
};
// clang-format on

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
    overlay(touch_tab, *p_co, touch_slots);
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
    return callout(touch_tab.start, 0, &touch_cfg_head, touch_id);
}

int touch_stop()
{
    return callout(touch_tab.stop, 0);
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
        events_on = callout(touch_tab.start_evt_hnd, 0, mode) != 0;
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
        return callout(touch_tab.stop_evt_hnd, 0);
    }
    poll_run = 0;
    return 1;
}

int touch_poll(int mode, touch_event* p_event)
{
    return callout(touch_tab.poll, 0, mode, p_event);
}

int touch_selftest(touch_selftest_rec* p_rec)
{
    return callout(touch_tab.selftest, 0, p_rec);
}

int touch_fmdn(const char* path)
{
    return callout(touch_tab.fmdn, 0, path);
}

int touch_fmid(touch_hwinfo* p_info)
{
    return callout(touch_tab.fmid, 0, p_info);
}

int touch_test_mode(touch_test_mode_rec* p_rec)
{
    return callout(touch_tab.test_mode, 0, p_rec);
}

int touch_test_mode_secondary(touch_test_mode_rec* p_rec)
{
    return callout(touch_tab.test_mode_secondary, 0, p_rec);
}
