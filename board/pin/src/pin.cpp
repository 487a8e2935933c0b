#include "pin/pin.h"

#include <array>

#include "check/check.h"
#include "plat/plat.h"

namespace {

// clang-format off
// Electric level by polarity and state.
constexpr int pin_level[2][4] = {
    //               low  high  inactive  active
    /* active low  */ { 0, 1, 1, 0 },
    /* active high */ { 0, 1, 0, 1 },
};

// State by polarity and level.
constexpr int pin_active[2][2] = {
    /* active low  */ { PIN_ACTIVE,   PIN_INACTIVE },
    /* active high */ { PIN_INACTIVE, PIN_ACTIVE   },
};

// Step of the reference count by counting mode and state.
constexpr int cnt_val[3][4] = {
    //                 low  high  inactive  active
    /* PIN_CNT_HIGH */ { -1,  1, -1,  1 },
    /* PIN_CNT_LOW  */ {  1, -1,  1, -1 },
    /* PIN_DIRECT   */ {  0,  0,  0,  0 },
};
// clang-format on

pin_map_sel pin_sel;
const char* pin_map_nm;
std::array<pin_driver*, PIN_GRP_LAST> pin_hnd;
std::array<pin_out_row, PIN_OUT_LAST> pin_out_tab;
std::array<pin_in_row, PIN_IN_LAST> pin_in_tab;
std::array<pin_evt_cb, PIN_IN_LAST> pin_evt_cb_tab;

const pin_out_row& out_row(int sig)
{
    HVT_CHECK(pin_sel.get != nullptr);
    HVT_CHECK(sig >= 0 && sig < PIN_OUT_LAST);
    const pin_out_row& row = pin_out_tab[static_cast<std::size_t>(sig)];
    HVT_CHECK(sig == row.sig);
    return row;
}

const pin_in_row& in_row(int sig)
{
    HVT_CHECK(pin_sel.get != nullptr);
    HVT_CHECK(sig >= 0 && sig < PIN_IN_LAST);
    const pin_in_row& row = pin_in_tab[static_cast<std::size_t>(sig)];
    HVT_CHECK(sig == row.sig);
    return row;
}

void out_fill(const pin_out_row* p_map)
{
    for (int sig = 0; sig < PIN_OUT_LAST; sig++)
        pin_out_tab[static_cast<std::size_t>(sig)] = {sig, PIN_GRP_NONE, 0,      PIN_DIRECT, 1,
                                                      0,   nullptr,      nullptr};
    for (; p_map->sig != PIN_OUT_LAST; p_map++) {
        HVT_CHECK(p_map->sig >= 0 && p_map->sig < PIN_OUT_LAST);
        pin_out_tab[static_cast<std::size_t>(p_map->sig)] = *p_map;
    }
}

void in_fill(const pin_in_row* p_map)
{
    pin_evt_cb_tab.fill(nullptr);
    for (int sig = 0; sig < PIN_IN_LAST; sig++)
        pin_in_tab[static_cast<std::size_t>(sig)] = {sig, PIN_GRP_NONE, 0, 1, 0};
    for (; p_map->sig != PIN_IN_LAST; p_map++) {
        HVT_CHECK(p_map->sig >= 0 && p_map->sig < PIN_IN_LAST);
        pin_in_tab[static_cast<std::size_t>(p_map->sig)] = *p_map;
    }
}

void pin_map_init()
{
    const pin_map_co* const p_co = pin_sel.get(pin_sel.rev);
    HVT_CHECK(p_co != nullptr);
    const pin_tab* const p_tab = p_co->tab();
    out_fill(p_tab->p_out);
    in_fill(p_tab->p_in);
    pin_map_nm = p_tab->name;
}

int pin_set(pin_driver* p_hnd, unsigned pin, int level, unsigned attr)
{
    return p_hnd->fn->chg(p_hnd, pin, level, attr) == level ? 1 : 0;
}

// Counts a user in or out and drives the pin when he is the first or the last.
int pin_set_cnt(int grp, unsigned pin, int level, int step, unsigned attr)
{
    pin_driver* const p_hnd = pin_hnd[static_cast<std::size_t>(grp)];
    HVT_CHECK(p_hnd != nullptr);
    if (step != 0) {
        HVT_CHECK(pin < p_hnd->size);
        std::uint8_t& users = p_hnd->fn->res(p_hnd)[pin];
        users = static_cast<std::uint8_t>(users + step);
        if (users != (step > 0 ? 1 : 0))
            return 0;
    }
    return pin_set(p_hnd, pin, level, attr);
}

int run_sub_list(const pin_sub_row* p_row, int state, int result)
{
    for (; p_row->grp != PIN_GRP_LAST; p_row++) {
        if (p_row->grp != PIN_GRP_NONE)
            result = pin_set_cnt(p_row->grp, p_row->pin, pin_level[p_row->act][state],
                                 cnt_val[p_row->cnt][state], p_row->attr);
        if (p_row->delay_ms != 0) {
            const auto ms = static_cast<long>(p_row->delay_ms);
            const timespec delay{ms / 1000, ms % 1000 * 1'000'000};
            plat_nanosleep(&delay, nullptr);
        }
    }
    return result;
}

int read_level(int grp, unsigned pin, unsigned attr)
{
    pin_driver* const p_hnd = pin_hnd[static_cast<std::size_t>(grp)];
    return p_hnd != nullptr ? p_hnd->fn->chg(p_hnd, pin, 2, attr) : PIN_LEVEL_FAILED;
}

} // namespace

void pin_init()
{
    pin_hnd.fill(nullptr);
}

void pin_map_set(pin_map_get get, std::uint8_t rev)
{
    HVT_CHECK(get != nullptr);
    pin_sel = {get, rev};
    pin_map_init();
}

void pin_get(pin_map_sel* p_sel)
{
    *p_sel = pin_sel;
}

const char* pin_map_nm_get()
{
    HVT_CHECK(pin_sel.get != nullptr);
    return pin_map_nm;
}

void pin_install(pin_driver* p_hnd, int grp, const pin_fn* fn, unsigned size)
{
    HVT_CHECK(grp >= 0 && grp < PIN_GRP_NONE);
    *p_hnd = {fn, grp, size};
    pin_hnd[static_cast<std::size_t>(grp)] = p_hnd;
}

int pin_out_set(int sig, int state)
{
    const pin_out_row& row = out_row(sig);
    HVT_CHECK(state >= PIN_LOW && state <= PIN_ACTIVE);
    const int level = pin_level[row.act][state];
    int result = 0;
    if (row.grp != PIN_GRP_NONE)
        result = pin_set_cnt(row.grp, row.pin, level, cnt_val[row.cnt][state], row.attr);
    const pin_sub_row* const p_sub = level == 1 ? row.p_on : row.p_off;
    return p_sub != nullptr ? run_sub_list(p_sub, state, result) : result;
}

int pin_out_get(int sig)
{
    const pin_out_row& row = out_row(sig);
    return read_level(row.grp, row.pin, row.attr);
}

int pin_in_get(int sig)
{
    const int level = pin_in_get_lev(sig);
    return level == 0 || level == 1 ? pin_active[in_row(sig).act][level] : PIN_UNREADABLE;
}

int pin_in_get_lev(int sig)
{
    const pin_in_row& row = in_row(sig);
    return read_level(row.grp, row.pin, row.attr);
}

int pin_in_active(int sig)
{
    return in_row(sig).grp != PIN_GRP_NONE ? 1 : 0;
}

int pin_out_active(int sig)
{
    return out_row(sig).grp != PIN_GRP_NONE ? 1 : 0;
}

pin_evt_cb pin_evt_req(int sig, int state, pin_evt_cb cb)
{
    const pin_in_row& row = in_row(sig);
    HVT_CHECK(state >= PIN_LOW && state <= PIN_ACTIVE);
    pin_evt_cb& slot = pin_evt_cb_tab[static_cast<std::size_t>(sig)];
    const pin_evt_cb former = slot;
    slot = cb;
    pin_driver* const p_hnd = pin_hnd[static_cast<std::size_t>(row.grp)];
    if (p_hnd != nullptr && p_hnd->fn->evt != nullptr)
        p_hnd->fn->evt(p_hnd, row.pin, pin_level[row.act][state], row.attr, cb != nullptr);
    return former;
}

void pin_evt_disp(const pin_driver* p_hnd, unsigned pin, int level)
{
    HVT_CHECK(level == 0 || level == 1);
    for (const pin_in_row& row : pin_in_tab) {
        const pin_evt_cb cb = pin_evt_cb_tab[static_cast<std::size_t>(row.sig)];
        if (cb != nullptr && row.grp == p_hnd->grp && row.pin == pin)
            cb(pin_active[row.act][level]);
    }
}
