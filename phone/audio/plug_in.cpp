// The sound card as libasound sees it: a control plug-in and an I/O plug-in in one shared object. libasound
// opens it by itself, by the name in a private configuration; the phone has loaded and introduced it before.
// All that the card does is in the phone (card.h).
#include <algorithm>
#include <alsa/asoundlib.h>
#include <alsa/control_external.h>
#include <alsa/pcm_external.h>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <memory>

#include "audio/card_calls.h"
#include "core/library_host.h"

namespace {

const card_calls* p_card;

// The control interface.

unsigned numid_of(snd_ctl_ext_key_t key)
{
    return static_cast<unsigned>(key);
}

int elem_count(snd_ctl_ext_t*)
{
    return static_cast<int>(p_card->controls());
}

int elem_list(snd_ctl_ext_t*, unsigned offset, snd_ctl_elem_id_t* id)
{
    if (offset >= p_card->controls())
        return -ENOENT;
    char name[32];
    std::snprintf(name, sizeof name, "Control %u", offset + 1);
    snd_ctl_elem_id_set_interface(id, SND_CTL_ELEM_IFACE_MIXER);
    snd_ctl_elem_id_set_name(id, name);
    return 0;
}

snd_ctl_ext_key_t find_elem(snd_ctl_ext_t*, const snd_ctl_elem_id_t* id)
{
    unsigned numid = snd_ctl_elem_id_get_numid(id);
    if (numid == 0)
        std::sscanf(snd_ctl_elem_id_get_name(id), "Control %u", &numid);
    if (numid >= 1 && numid <= p_card->controls())
        return numid;
    p_card->control_unknown(numid);
    return SND_CTL_EXT_KEY_NOT_FOUND;
}

int get_attribute(snd_ctl_ext_t*, snd_ctl_ext_key_t key, int* p_type, unsigned* p_access, unsigned* p_count)
{
    constexpr int types[] = {SND_CTL_ELEM_TYPE_BOOLEAN, SND_CTL_ELEM_TYPE_INTEGER,
                             SND_CTL_ELEM_TYPE_ENUMERATED};
    *p_type = types[p_card->control_kind(numid_of(key))];
    *p_access = SND_CTL_EXT_ACCESS_READWRITE;
    *p_count = 1;
    return 0;
}

int get_integer_info(snd_ctl_ext_t*, snd_ctl_ext_key_t key, long* p_least, long* p_most, long* p_step)
{
    *p_least = 0;
    *p_most = p_card->control_most(numid_of(key));
    *p_step = 1;
    return 0;
}

int get_enumerated_info(snd_ctl_ext_t*, snd_ctl_ext_key_t key, unsigned* p_items)
{
    *p_items = static_cast<unsigned>(p_card->control_most(numid_of(key))) + 1;
    return 0;
}

int get_enumerated_name(snd_ctl_ext_t*, snd_ctl_ext_key_t, unsigned item, char* p_name, std::size_t size)
{
    std::snprintf(p_name, size, "Item %u", item);
    return 0;
}

int read_integer(snd_ctl_ext_t*, snd_ctl_ext_key_t key, long* p_value)
{
    const int value = p_card->control_get(numid_of(key));
    *p_value = value;
    return std::min(value, 0);
}

int read_enumerated(snd_ctl_ext_t*, snd_ctl_ext_key_t key, unsigned* p_item)
{
    const int value = p_card->control_get(numid_of(key));
    *p_item = static_cast<unsigned>(value);
    return std::min(value, 0);
}

int write_integer(snd_ctl_ext_t*, snd_ctl_ext_key_t key, long* p_value)
{
    return p_card->control_set(numid_of(key), *p_value);
}

int write_enumerated(snd_ctl_ext_t*, snd_ctl_ext_key_t key, unsigned* p_item)
{
    return p_card->control_set(numid_of(key), static_cast<int>(*p_item));
}

int read_event(snd_ctl_ext_t*, snd_ctl_elem_id_t*, unsigned*)
{
    return -EAGAIN; // nobody but the program moves a control
}

void mixer_close(snd_ctl_ext_t* ext)
{
    const std::unique_ptr<snd_ctl_ext_t> gone(ext);
}

const snd_ctl_ext_callback_t mixer_calls = [] {
    snd_ctl_ext_callback_t c{};
    c.close = mixer_close;
    c.elem_count = elem_count;
    c.elem_list = elem_list;
    c.find_elem = find_elem;
    c.get_attribute = get_attribute;
    c.get_integer_info = get_integer_info;
    c.get_enumerated_info = get_enumerated_info;
    c.get_enumerated_name = get_enumerated_name;
    c.read_integer = read_integer;
    c.read_enumerated = read_enumerated;
    c.write_integer = write_integer;
    c.write_enumerated = write_enumerated;
    c.read_event = read_event;
    return c;
}();

// The streams. The library keeps both pointers of the ring; what it has of the card's it gets from `pointer`.

struct open_stream {
    snd_pcm_ioplug_t io;
    card_stream which;
};

open_stream& stream_of(snd_pcm_ioplug_t* io)
{
    return *static_cast<open_stream*>(io->private_data);
}

int on_start(snd_pcm_ioplug_t* io)
{
    return p_card->start(stream_of(io).which);
}

int on_stop(snd_pcm_ioplug_t* io)
{
    p_card->stop(stream_of(io).which);
    return 0;
}

// Where the library lets its positions begin anew: the largest multiple of the ring by a power of two that
// its signed numbers hold.
snd_pcm_uframes_t boundary_of(const snd_pcm_ioplug_t* io)
{
    snd_pcm_uframes_t boundary = io->buffer_size;
    while (boundary != 0 && boundary <= (LONG_MAX - io->buffer_size) / 2)
        boundary *= 2;
    return boundary;
}

// A negative result is an underrun to the library. A suspended or missing card has states of their own, and
// its ring shows as one that wants a transfer, which then meets that state.
snd_pcm_sframes_t on_pointer(snd_pcm_ioplug_t* io)
{
    const card_place place = p_card->place(stream_of(io).which);
    switch (place.error) {
    case 0:
        return static_cast<snd_pcm_sframes_t>(place.done % boundary_of(io));
    case ESTRPIPE:
        snd_pcm_ioplug_set_state(io, SND_PCM_STATE_SUSPENDED);
        break;
    case ENODEV:
        snd_pcm_ioplug_set_state(io, SND_PCM_STATE_DISCONNECTED);
        break;
    default:
        return -EPIPE;
    }
    return static_cast<snd_pcm_sframes_t>(
        stream_of(io).which == card_playback ? io->appl_ptr : io->appl_ptr + io->buffer_size);
}

snd_pcm_sframes_t on_transfer(snd_pcm_ioplug_t* io, const snd_pcm_channel_area_t* areas,
                              snd_pcm_uframes_t offset, snd_pcm_uframes_t size)
{
    char* const p = static_cast<char*>(areas->addr) + (areas->first + areas->step * offset) / 8;
    return p_card->transfer(stream_of(io).which, p, size);
}

int on_setup(snd_pcm_ioplug_t* io, snd_pcm_hw_params_t*)
{
    const card_setting setting = {io->rate, io->channels, io->buffer_size, io->period_size};
    return p_card->set_up(stream_of(io).which, &setting);
}

int on_free(snd_pcm_ioplug_t* io)
{
    p_card->free(stream_of(io).which);
    return 0;
}

int on_prepare(snd_pcm_ioplug_t* io)
{
    return p_card->prepare(stream_of(io).which);
}

// The library gives 0 for this whatever it is, and leaves the state to it.
int on_resume(snd_pcm_ioplug_t* io)
{
    const int result = p_card->resume(stream_of(io).which);
    if (result >= 0)
        snd_pcm_ioplug_set_state(io, SND_PCM_STATE_PREPARED);
    return result;
}

int on_poll_count(snd_pcm_ioplug_t*)
{
    return 1;
}

int on_poll(snd_pcm_ioplug_t* io, pollfd* fds, unsigned space)
{
    if (space < 1)
        return 0;
    fds[0] = {io->poll_fd, POLLIN, 0};
    p_card->wait(stream_of(io).which);
    return 1;
}

int on_poll_end(snd_pcm_ioplug_t* io, pollfd*, unsigned, unsigned short* p_events)
{
    const card_stream which = stream_of(io).which;
    *p_events = 0;
    if (!p_card->wait_is_over(which)) {
        p_card->wait(which); // the library polls again
        return 0;
    }
    const int error = p_card->place(which).error;
    *p_events = error != 0 ? POLLERR : which == card_playback ? POLLOUT : POLLIN;
    return 0;
}

int on_close(snd_pcm_ioplug_t* io)
{
    const std::unique_ptr<open_stream> gone(&stream_of(io));
    p_card->close(gone->which);
    return 0;
}

const snd_pcm_ioplug_callback_t stream_calls = [] {
    snd_pcm_ioplug_callback_t c{};
    c.start = on_start;
    c.stop = on_stop;
    c.pointer = on_pointer;
    c.transfer = on_transfer;
    c.close = on_close;
    c.hw_params = on_setup;
    c.hw_free = on_free;
    c.prepare = on_prepare;
    c.resume = on_resume;
    c.poll_descriptors_count = on_poll_count;
    c.poll_descriptors = on_poll;
    c.poll_revents = on_poll_end;
    return c;
}();

int set_limits(snd_pcm_ioplug_t* io, const card_limits& limits)
{
    static const unsigned accesses[] = {SND_PCM_ACCESS_RW_INTERLEAVED};
    static const unsigned formats[] = {SND_PCM_FORMAT_S16_LE};
    constexpr unsigned period_least = 32;
    int result = snd_pcm_ioplug_set_param_list(io, SND_PCM_IOPLUG_HW_ACCESS, 1, accesses);
    if (result >= 0)
        result = snd_pcm_ioplug_set_param_list(io, SND_PCM_IOPLUG_HW_FORMAT, 1, formats);
    if (result >= 0)
        result = snd_pcm_ioplug_set_param_minmax(io, SND_PCM_IOPLUG_HW_CHANNELS, 1, 2);
    if (result >= 0)
        result =
            snd_pcm_ioplug_set_param_minmax(io, SND_PCM_IOPLUG_HW_RATE, limits.rate_least, limits.rate_most);
    if (result >= 0)
        result = snd_pcm_ioplug_set_param_minmax(io, SND_PCM_IOPLUG_HW_BUFFER_BYTES, limits.ring_least,
                                                 limits.ring_most);
    if (result >= 0)
        result = snd_pcm_ioplug_set_param_minmax(io, SND_PCM_IOPLUG_HW_PERIOD_BYTES, period_least,
                                                 limits.ring_most);
    return result;
}

int create(std::unique_ptr<open_stream> made, snd_pcm_t** p_pcm, const char* name, snd_pcm_stream_t direction,
           int mode)
{
    snd_pcm_ioplug_t& io = made->io;
    io.version = SND_PCM_IOPLUG_VERSION;
    io.name = "The phone's sound card";
    io.flags = SND_PCM_IOPLUG_FLAG_BOUNDARY_WA;
    io.poll_fd = p_card->wait_descriptor(made->which);
    io.poll_events = POLLIN;
    io.callback = &stream_calls;
    io.private_data = made.get();
    int result = snd_pcm_ioplug_create(&io, name, direction, mode);
    if (result < 0) {
        p_card->close(made->which);
        return result;
    }
    open_stream* const own = made.release(); // on_close has it from now on
    result = set_limits(&own->io, p_card->limits(own->which));
    if (result < 0) {
        snd_pcm_ioplug_delete(&own->io);
        return result;
    }
    *p_pcm = own->io.pcm;
    return 0;
}

} // namespace

extern "C" {

void phone_library_attach(const phone_library_host* p_host)
{
    p_card = static_cast<const card_calls*>(p_host->offered("card"));
}

SND_CTL_PLUGIN_DEFINE_FUNC(phone)
{
    (void)root;
    (void)conf;
    const int opened = p_card != nullptr ? p_card->mixer_open() : -ENODEV;
    if (opened < 0)
        return opened;
    auto ext = std::make_unique<snd_ctl_ext_t>();
    ext->version = SND_CTL_EXT_VERSION;
    ext->card_idx = 0;
    std::snprintf(ext->id, sizeof ext->id, "phone");
    std::snprintf(ext->driver, sizeof ext->driver, "phone");
    std::snprintf(ext->name, sizeof ext->name, "The phone's sound card");
    std::snprintf(ext->longname, sizeof ext->longname, "The phone's sound card");
    std::snprintf(ext->mixername, sizeof ext->mixername, "codec");
    ext->poll_fd = -1;
    ext->callback = &mixer_calls;
    const int result = snd_ctl_ext_create(ext.get(), name, mode);
    if (result >= 0)
        *handlep = ext.release()->handle; // mixer_close has it from now on
    return result;
}
SND_CTL_PLUGIN_SYMBOL(phone)

SND_PCM_PLUGIN_DEFINE_FUNC(phone)
{
    (void)root;
    (void)conf;
    const card_stream which = stream == SND_PCM_STREAM_PLAYBACK ? card_playback : card_capture;
    const int opened = p_card != nullptr ? p_card->open(which) : -ENODEV;
    if (opened < 0)
        return opened;
    auto made = std::make_unique<open_stream>();
    made->which = which;
    return create(std::move(made), pcmp, name, stream, mode);
}
SND_PCM_PLUGIN_SYMBOL(phone)
}
