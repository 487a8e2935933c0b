#include "kbd/kbd.h"

#include <mutex>

#include "callout/callout.h"
#include "check/check.h"
#include "core/core.h"
#include "input_linux/input_linux.h"
#include "tmr/tmr.h"

namespace {

constexpr std::uint32_t POLL_PERIOD_US = 20'000;

constexpr int CODE_MODE_SWITCH = 32768;
constexpr std::uint32_t MODE_KEY_FROM_US = 1'000'000; // the mode key counts only after start-up

constexpr int MATRIX_SIDE = 8;
constexpr int kbd_mode_inv[] = {1, 0};

std::mutex kbd_mutex; // guards the list, and `enabled` of its observers
slnk kbd_lst_head;

input_set devices;

const kbd_co* kbd_cmd_co;

int no_code(int, int)
{
    return KBD_NO_CODE;
}
constexpr kbd_map_co kbd_sc_co_def = {no_code, ""};
const kbd_map_co* kbd_sc_co = &kbd_sc_co_def;

struct {
    kbd_map_get get;
    std::uint8_t rev;
} kbd_sel;

int kbd_mode;
int kbd_sel_key = INPUT_KEY_BACK;

void on_event(const input_event16& event)
{
    const bool is_key = event.type == INPUT_KEY && event.code != INPUT_BTN_TOUCH &&
                        event.code != INPUT_BTN_2 && event.code != INPUT_BTN_3;
    if (is_key)
        kbd_evt_key(0, tmr_get(), event.value != 0 ? KBD_PRESSED : KBD_RELEASED, event.code);
}

void linux_kbd_poll_dcf(void*, void*)
{
    input_set_open(&devices);
    input_set_poll(&devices, on_event);
    core_dfc(linux_kbd_poll_dcf, nullptr, nullptr, POLL_PERIOD_US);
}

using observer_cb = void (*)(int code, int action);

// The observer behind `p_prv` and, if it is enabled, its callback.
const slnk* next_observer(const slnk* p_prv, observer_cb* p_cb)
{
    std::lock_guard lock(kbd_mutex);
    const slnk* const p_next = slnk_next(p_prv);
    const auto* const p_obs = reinterpret_cast<const kbd_observer*>(p_next);
    *p_cb = p_obs != nullptr && p_obs->enabled != 0 ? p_obs->cb : nullptr;
    return p_next;
}

} // namespace

void kbd_init()
{
    slnk_init(&kbd_lst_head);
    input_set_open(&devices);
    core_dfc(linux_kbd_poll_dcf, nullptr, nullptr, POLL_PERIOD_US);
}

void kbd_co_attach(const kbd_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    kbd_cmd_co = p_co;
}

int kbd_start()
{
    return callout(kbd_cmd_co, &kbd_co::start, 1);
}

int kbd_stop()
{
    return callout(kbd_cmd_co, &kbd_co::stop, 1);
}

void kbd_evt_attach(kbd_observer* p_obs, void (*cb)(int code, int action))
{
    HVT_CHECK(p_obs != nullptr && cb != nullptr);
    std::lock_guard lock(kbd_mutex);
    p_obs->cb = cb;
    p_obs->enabled = 1;
    slnk_insert(&kbd_lst_head, &p_obs->link);
}

void kbd_evt_detach(kbd_observer* p_obs)
{
    std::lock_guard lock(kbd_mutex);
    slnk_remove(&kbd_lst_head, &p_obs->link);
}

void kbd_evt_exclusive(kbd_observer* p_obs, int on)
{
    std::lock_guard lock(kbd_mutex);
    for (slnk* p = slnk_next(&kbd_lst_head); p != nullptr; p = slnk_next(p))
        if (p != &p_obs->link)
            reinterpret_cast<kbd_observer*>(p)->enabled = on != 0 ? 0 : 1;
}

void kbd_evt_key(int position, std::uint32_t time, int action, int code)
{
    if (code == 0)
        code = kbd_sc_co->code(position, kbd_mode);
    if (code == CODE_MODE_SWITCH || (code == kbd_sel_key && time > MODE_KEY_FROM_US))
        kbd_mode = kbd_mode_inv[kbd_mode];
    kbd_evt_disp(code, action);
}

void kbd_evt_disp(int code, int action)
{
    observer_cb cb;
    for (const slnk* p = next_observer(&kbd_lst_head, &cb); p != nullptr; p = next_observer(p, &cb))
        if (cb != nullptr)
            cb(code, action);
}

int kbd_sc_to_matrix_pos(int code, int* p_column, int* p_row)
{
    for (int column = 0; column < MATRIX_SIDE; column++) {
        for (int row = 0; row < MATRIX_SIDE; row++) {
            if (kbd_sc_co->code(column * MATRIX_SIDE + row, kbd_mode) != code)
                continue;
            *p_column = column;
            *p_row = row;
            return 1;
        }
    }
    return 0;
}

void kbd_map_set(kbd_map_get get, std::uint8_t rev)
{
    kbd_sel = {get, rev};
    kbd_sc_co = get(rev);
    HVT_CHECK(kbd_sc_co != nullptr);
}

void kbd_sel_set(int mode)
{
    kbd_mode = mode != 0 ? 1 : 0;
}

void kbd_sel_key_set(int code)
{
    kbd_sel_key = code;
}
