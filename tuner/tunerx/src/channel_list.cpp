// Lists of channels to try, and the search through them.
#include <cstdio>

#include "tunerx/tunerx.h"
#include "tunerx/tunerx_files.h"

namespace {

// Polls of the search don't sleep; the flag comes back whatever happens.
class no_wait_guard {
public:
    no_wait_guard() : before(tunXParams.wait) { tunXParams.wait = 0; }
    ~no_wait_guard() { tunXParams.wait = before; }
    no_wait_guard(const no_wait_guard&) = delete;
    no_wait_guard& operator=(const no_wait_guard&) = delete;

private:
    const int before;
};

int try_channel(const tunerx_tdc& node)
{
    const no_wait_guard guard;
    return tunerx_tuning(node.band, node.ch);
}

void note(tunerx_tdc& node, std::uint64_t elapsed_ms)
{
    node.record = tunXParams.record;
    node.ch = tunXParams.ch;
    node.status = tunXParams.status;
    node.elapsed_ms = static_cast<std::uint32_t>(elapsed_ms);
    std::fprintf(stderr, "// %s(): %4s %-2d 0x%02x %d %.3lf\n", "tunerx_search_ch", bandToken[node.band],
                 node.ch, node.value, node.status, node.elapsed_ms / 1000.0);
}

} // namespace

// A node of a long list takes the rest down one by one, not each inside the one before.
tunerx_tdc::~tunerx_tdc()
{
    tunerx_cs_freech(this);
}

std::unique_ptr<tunerx_tdc> tunerx_create_tdc()
{
    return std::make_unique<tunerx_tdc>();
}

tunerx_tdc* tunerx_cs_addch(int band, std::uint32_t ch, tunerx_tdc* p_head)
{
    if (p_head == nullptr || tuner_get_chrcd_id(band, ch) < 0)
        return nullptr;
    while (p_head->next != nullptr)
        p_head = p_head->next.get();
    p_head->next = tunerx_create_tdc();
    p_head->next->band = band;
    p_head->next->ch = static_cast<std::uint16_t>(ch);
    return p_head->next.get();
}

void tunerx_cs_delch(int band, std::uint32_t ch, tunerx_tdc* p_head)
{
    for (tunerx_tdc* p = p_head; p != nullptr && p->next != nullptr; p = p->next.get())
        if (p->next->band == band && p->next->ch == ch) {
            p->next = std::move(p->next->next);
            return;
        }
}

void tunerx_cs_freech(tunerx_tdc* p_head)
{
    while (p_head != nullptr && p_head->next != nullptr)
        p_head->next = std::move(p_head->next->next);
}

int tunerx_search_ch(tunerx_tdc* p_head)
{
    if (p_head == nullptr)
        return TUNERX_BAD_ARGUMENT;
    if (tuner_check_circuit() != TUNERX_OK || !tunerx_is_initialised())
        return TUNERX_WRONG_STATE;
    for (tunerx_tdc* p = p_head->next.get(); p != nullptr; p = p->next.get()) {
        const std::uint64_t start_ms = tuner_get_time();
        const int rc = try_channel(*p);
        if (rc != TUNERX_OK)
            return rc;
        note(*p, tuner_get_time() - start_ms);
    }
    return TUNERX_OK;
}
