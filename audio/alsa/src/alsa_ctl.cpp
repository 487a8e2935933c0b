// Routes: lists of settings of the card's controls.
#include <algorithm>
#include <alsa/asoundlib.h>

#include "alsa_inner.h"
#include "tmr/tmr.h"

namespace {

constexpr const char* CARD = "default";
constexpr std::uint32_t VALUES_OF_CONTROL = 128; // the library's bound of an index

// The control interface and the three records that each write fills in, made once.
struct {
    snd_ctl_t* handle;
    snd_ctl_elem_info_t* info;
    snd_ctl_elem_id_t* id;
    snd_ctl_elem_value_t* value;
} ctl;

const alsa_cfg* alsa_configuration;

bool is_gain(const alsa_ctl_entry& entry)
{
    return (entry.type & 0xFF00) == ALSA_GAIN;
}

bool is_delay(const alsa_ctl_entry& entry)
{
    return (entry.type & 0xFF00) == ALSA_DELAY;
}

int value_index(const alsa_ctl_entry& entry, int n)
{
    return is_gain(entry) ? n : std::min(n, ALSA_VALUE_ON);
}

void ctl_release()
{
    if (ctl.value != nullptr)
        snd_ctl_elem_value_free(ctl.value);
    if (ctl.id != nullptr)
        snd_ctl_elem_id_free(ctl.id);
    if (ctl.info != nullptr)
        snd_ctl_elem_info_free(ctl.info);
    if (ctl.handle != nullptr)
        snd_ctl_close(ctl.handle);
    ctl = {};
}

// Asks for an element that every card has, so that a dead card shows here. The library wants a number in the
// id.
int ctl_ask()
{
    snd_ctl_elem_id_set_interface(ctl.id, SND_CTL_ELEM_IFACE_MIXER);
    snd_ctl_elem_id_set_numid(ctl.id, 1);
    snd_ctl_elem_info_set_id(ctl.info, ctl.id);
    return snd_ctl_elem_info(ctl.handle, ctl.info);
}

int ctl_open(const char* name)
{
    int result = snd_ctl_open(&ctl.handle, name, 0);
    if (result < 0)
        ctl.handle = nullptr;
    if (result >= 0)
        result = snd_ctl_elem_info_malloc(&ctl.info);
    if (result >= 0)
        result = snd_ctl_elem_id_malloc(&ctl.id);
    if (result >= 0)
        result = snd_ctl_elem_value_malloc(&ctl.value);
    return result >= 0 ? ctl_ask() : result;
}

int ctl_write(const alsa_ctl_entry& entry, int value)
{
    if (entry.index >= VALUES_OF_CONTROL)
        return -1;
    snd_ctl_elem_id_set_numid(ctl.id, entry.numid);
    snd_ctl_elem_value_set_id(ctl.value, ctl.id);
    if ((entry.type & 0xFF) == ALSA_BOOLEAN)
        snd_ctl_elem_value_set_boolean(ctl.value, entry.index, value);
    else
        snd_ctl_elem_value_set_integer(ctl.value, entry.index, value);
    return snd_ctl_elem_write(ctl.handle, ctl.value);
}

bool ctl_ready()
{
    if (ctl.id == nullptr)
        alsa_ctl_init(CARD);
    return ctl.id != nullptr;
}

int route_set(alsa_ctl_entry* p_route, int n, bool save, bool gain_only)
{
    if (n < 0 || p_route == nullptr || !ctl_ready())
        return -1;
    int result = 0;
    for (alsa_ctl_entry* p = p_route; p->type != 0; p++) {
        if (gain_only && !is_gain(*p))
            continue;
        if (is_delay(*p)) {
            tmr_msleep(static_cast<std::uint32_t>(std::max<int>(p->values[0], 0)));
            continue;
        }
        const int i = value_index(*p, n);
        if (i >= ALSA_VALUES)
            break;
        if (save)
            p->values[ALSA_VALUE_WORKING] = p->values[i];
        result = ctl_write(*p, p->values[i]);
        if (result < 0)
            break;
    }
    return result;
}

int route_store(alsa_ctl_entry* p_route, int n, bool gain_only)
{
    if (p_route == nullptr || n < 0 || n >= ALSA_VALUES)
        return -1;
    int failures = 0;
    for (alsa_ctl_entry* p = p_route; p->type != 0; p++) {
        if (is_delay(*p) || (gain_only && !is_gain(*p)))
            continue;
        const std::int16_t value = p->values[value_index(*p, n)];
        if (value < 0)
            failures++;
        else
            p->values[ALSA_VALUE_WORKING] = value;
    }
    return -failures;
}

} // namespace

int alsa_ctl_init(const char* name)
{
    if (name == nullptr || ctl.handle != nullptr) {
        alsa_state = ALSA_STATE_ERROR;
        return -1;
    }
    const int result = ctl_open(name);
    if (result < 0)
        ctl_release();
    alsa_state = result < 0 ? ALSA_STATE_ERROR : ALSA_STATE_READY;
    return std::min(result, 0);
}

int alsa_ctl_set(alsa_ctl_entry* p_route, int n)
{
    return route_set(p_route, n, true, false);
}

int alsa_ctl_set_default(alsa_ctl_entry* p_route)
{
    return alsa_ctl_set(p_route, ALSA_VALUE_DEFAULT);
}

int alsa_ctl_set_no_change(alsa_ctl_entry* p_route)
{
    return alsa_ctl_set(p_route, ALSA_VALUE_WORKING);
}

int alsa_ctl_set_on(alsa_ctl_entry* p_route)
{
    return alsa_ctl_set(p_route, ALSA_VALUE_ON);
}

int alsa_ctl_set_nosave(alsa_ctl_entry* p_route, int n)
{
    return route_set(p_route, n, false, false);
}

int alsa_ctl_set_gain(alsa_ctl_entry* p_route, int n)
{
    return route_set(p_route, n, true, true);
}

int alsa_ctl_set_gain_no_save(alsa_ctl_entry* p_route, int n)
{
    return route_set(p_route, n, false, true);
}

int alsa_ctl_set_off(const alsa_ctl_entry* p_route)
{
    if (p_route == nullptr)
        return 0;
    if (ctl.handle == nullptr)
        return -1;
    for (const alsa_ctl_entry* p = p_route; p->type != 0; p++)
        if (!is_delay(*p) && ctl_write(*p, p->off_value) < 0)
            return -1;
    return 0;
}

int alsa_ctl_set_noapply(alsa_ctl_entry* p_route, int n)
{
    return route_store(p_route, n, false);
}

int alsa_ctl_set_gain_noapply(alsa_ctl_entry* p_route, int n)
{
    return route_store(p_route, n, true);
}

int alsa_set_route(alsa_ctl_entry* p_route)
{
    return alsa_ctl_set_on(p_route) < 0 ? ALSA_FAILED : 0;
}

void alsa_cfg_attach(const alsa_cfg* p_cfg)
{
    alsa_configuration = p_cfg;
}

const alsa_cfg* alsa_cfg_get()
{
    return alsa_configuration;
}
