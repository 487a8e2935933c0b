#include "unit/audio/alsa_fake.h"

#include <algorithm>
#include <alsa/asoundlib.h>
#include <cerrno>
#include <chrono>
#include <thread>

alsa_fake_state alsa_fake;
std::mutex alsa_fake_mutex;

// What the library keeps to itself.
struct _snd_ctl {};
struct _snd_ctl_elem_info {};
struct _snd_ctl_elem_id {
    unsigned numid;
};
struct _snd_ctl_elem_value {
    unsigned numid;
    long value;
};
struct _snd_pcm {
    std::size_t at;
};
struct _snd_pcm_hw_params {};

namespace {

snd_ctl_t ctl;
snd_ctl_elem_info_t info;
snd_ctl_elem_id_t id;
snd_ctl_elem_value_t value;
snd_pcm_t pcm;
snd_pcm_hw_params_t params;

using locked = std::lock_guard<std::mutex>;

// The queued result of a call, or `usual`.
long result_of(const std::string& name, long usual)
{
    std::vector<long>& queue = alsa_fake.results[name];
    if (queue.empty())
        return usual;
    const long result = queue.front();
    queue.erase(queue.begin());
    return result;
}

long called(const void* p, const std::string& name, long usual = 0)
{
    const locked lock(alsa_fake_mutex);
    alsa_fake.faults += p == nullptr ? 1 : 0;
    alsa_fake.log.push_back(name);
    return result_of(name, usual);
}

template <typename T>
int made(T** pp, T* p, const char* name)
{
    const int result = static_cast<int>(called(pp, name));
    if (result < 0)
        return result;
    *pp = p;
    const locked lock(alsa_fake_mutex);
    alsa_fake.objects++;
    return 0;
}

int freed(const void* p, const char* name)
{
    called(p, name);
    const locked lock(alsa_fake_mutex);
    alsa_fake.objects--;
    return 0;
}

int granted(const void* p, const std::string& name)
{
    return static_cast<int>(called(p, name));
}

} // namespace

void alsa_fake_reset()
{
    const locked lock(alsa_fake_mutex);
    const int objects = alsa_fake.objects; // the control interface stays open from test to test
    alsa_fake = {};
    alsa_fake.objects = objects;
}

long alsa_fake_count(const std::string& what)
{
    const locked lock(alsa_fake_mutex);
    return std::count(alsa_fake.log.begin(), alsa_fake.log.end(), what);
}

// What the module calls of the library, a call a line where one suffices.
// clang-format off
extern "C" {

int snd_ctl_open(snd_ctl_t** pp, const char*, int) { return made(pp, &ctl, "ctl_open"); }
int snd_ctl_close(snd_ctl_t* p) { return freed(p, "ctl_close"); }
int snd_ctl_elem_info_malloc(snd_ctl_elem_info_t** pp) { return made(pp, &info, "info_malloc"); }
void snd_ctl_elem_info_free(snd_ctl_elem_info_t* p) { freed(p, "info_free"); }
int snd_ctl_elem_id_malloc(snd_ctl_elem_id_t** pp) { return made(pp, &id, "id_malloc"); }
void snd_ctl_elem_id_free(snd_ctl_elem_id_t* p) { freed(p, "id_free"); }
int snd_ctl_elem_value_malloc(snd_ctl_elem_value_t** pp) { return made(pp, &value, "value_malloc"); }
void snd_ctl_elem_value_free(snd_ctl_elem_value_t* p) { freed(p, "value_free"); }
void snd_ctl_elem_id_set_interface(snd_ctl_elem_id_t*, snd_ctl_elem_iface_t) {}
void snd_ctl_elem_id_set_numid(snd_ctl_elem_id_t* p, unsigned numid) { p->numid = numid; }
void snd_ctl_elem_info_set_id(snd_ctl_elem_info_t*, const snd_ctl_elem_id_t* p)
{
    alsa_fake.faults += p->numid == 0 ? 1 : 0; // the real one stops the process
}
int snd_ctl_elem_info(snd_ctl_t* p, snd_ctl_elem_info_t*) { return granted(p, "elem_info"); }
void snd_ctl_elem_value_set_id(snd_ctl_elem_value_t* p, const snd_ctl_elem_id_t* p_id) { p->numid = p_id->numid; }
void snd_ctl_elem_value_set_integer(snd_ctl_elem_value_t* p, unsigned, long v) { p->value = v; }
void snd_ctl_elem_value_set_boolean(snd_ctl_elem_value_t* p, unsigned, long v) { p->value = v; }
int snd_ctl_elem_write(snd_ctl_t* p, snd_ctl_elem_value_t* v)
{
    called(p, std::to_string(v->numid) + "=" + std::to_string(v->value));
    return static_cast<int>(v->numid) == alsa_fake.refuse_numid || v->value < 0 ? -EINVAL : 0;
}

int snd_pcm_open(snd_pcm_t** pp, const char*, snd_pcm_stream_t, int)
{
    pcm.at = 0;
    return made(pp, &pcm, "open");
}
int snd_pcm_close(snd_pcm_t* p) { return freed(p, "close"); }
int snd_pcm_hw_free(snd_pcm_t* p) { return granted(p, "hw_free"); }
int snd_pcm_hw_params_malloc(snd_pcm_hw_params_t** pp) { return made(pp, &params, "params_malloc"); }
void snd_pcm_hw_params_free(snd_pcm_hw_params_t* p) { freed(p, "params_free"); }
int snd_pcm_hw_params_any(snd_pcm_t* p, snd_pcm_hw_params_t*) { return granted(p, "any"); }
int snd_pcm_hw_params_set_access(snd_pcm_t* p, snd_pcm_hw_params_t*, snd_pcm_access_t access)
{
    return granted(p, "access " + std::to_string(access));
}
int snd_pcm_hw_params_set_format(snd_pcm_t* p, snd_pcm_hw_params_t*, snd_pcm_format_t format)
{
    return granted(p, "format " + std::to_string(format));
}
int snd_pcm_hw_params_set_rate_near(snd_pcm_t* p, snd_pcm_hw_params_t*, unsigned* p_rate, int*)
{
    const int result = granted(p, "rate " + std::to_string(*p_rate));
    if (alsa_fake.granted_rate != 0)
        *p_rate = alsa_fake.granted_rate;
    return result;
}
int snd_pcm_hw_params_set_channels(snd_pcm_t* p, snd_pcm_hw_params_t*, unsigned channels)
{
    return granted(p, "channels " + std::to_string(channels));
}
int snd_pcm_hw_params_set_buffer_size_near(snd_pcm_t* p, snd_pcm_hw_params_t*, snd_pcm_uframes_t* p_size)
{
    const int result = granted(p, "ring " + std::to_string(*p_size));
    if (alsa_fake.granted_ring != 0)
        *p_size = alsa_fake.granted_ring;
    return result;
}
int snd_pcm_hw_params_set_period_size_near(snd_pcm_t* p, snd_pcm_hw_params_t*, snd_pcm_uframes_t* p_size,
                                           int*)
{
    return granted(p, "period " + std::to_string(*p_size));
}
int snd_pcm_hw_params(snd_pcm_t* p, snd_pcm_hw_params_t*) { return granted(p, "hw_params"); }
int snd_pcm_prepare(snd_pcm_t* p) { return granted(p, "prepare"); }
int snd_pcm_resume(snd_pcm_t* p) { return granted(p, "resume"); }
int snd_pcm_drain(snd_pcm_t* p) { return granted(p, "drain"); }
int snd_pcm_nonblock(snd_pcm_t* p, int on) { return granted(p, "nonblock " + std::to_string(on)); }
snd_pcm_sframes_t snd_pcm_avail_update(snd_pcm_t* p) { return called(p, "avail", alsa_fake.free); }
snd_pcm_sframes_t snd_pcm_writei(snd_pcm_t* p, const void* p_buf, snd_pcm_uframes_t size)
{
    std::this_thread::sleep_for(std::chrono::microseconds(200)); // a card takes its time
    const long n = called(p_buf != nullptr ? p : nullptr, "write", static_cast<long>(size));
    const locked lock(alsa_fake_mutex);
    const auto* const p_samples = static_cast<const std::int16_t*>(p_buf);
    if (n > 0)
        alsa_fake.written.insert(alsa_fake.written.end(), p_samples, p_samples + n);
    return n;
}
snd_pcm_sframes_t snd_pcm_readi(snd_pcm_t* p, void* p_buf, snd_pcm_uframes_t size)
{
    const long n = called(p_buf != nullptr ? p : nullptr, "read", static_cast<long>(size));
    const locked lock(alsa_fake_mutex);
    auto* p_samples = static_cast<std::int16_t*>(p_buf);
    for (long i = 0; i < 2 * n; i++) // two channels
        *p_samples++ = alsa_fake.block.empty() ? 0 : alsa_fake.block[p->at++ % alsa_fake.block.size()];
    return n;
}
}
// clang-format on
