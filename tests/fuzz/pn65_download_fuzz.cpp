// A firmware container, and the chip's replies while it is loaded: the first byte tells how much of the input
// is the container, each exchange takes a reply of what is left. The container lies in a block of exactly its
// size.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "container.h"
#include "dnld.h"
#include "plat/plat.h"
#include "plat_linux/plat_linux.h"

namespace {

using namespace pn65_dnld;

constexpr int most_exchanges = 2000;

// The program's reading asks for so many bytes.
std::size_t wanted;

const dal_link::operations operations = {
    .init = [](dal_link&) { return NFCSTATUS_SUCCESS; },
    .shutdown = [](dal_link&) { return NFCSTATUS_SUCCESS; },
    .write =
        [](dal_link&, std::span<const std::uint8_t> data) {
            // A frame's length is what it says.
            if (data.size() < REPLY_HEAD ||
                data.size() != REPLY_HEAD + static_cast<std::size_t>(data[1] << 8 | data[2]))
                std::abort();
            return NFCSTATUS_PENDING;
        },
    .read =
        [](dal_link&, std::size_t size) {
            wanted = size;
            return NFCSTATUS_PENDING;
        },
    .read_wait = [](dal_link&) { return NFCSTATUS_SUCCESS; },
    .read_wait_cancel = [](dal_link&) { return NFCSTATUS_SUCCESS; },
    .unregister = [](dal_link&) { return NFCSTATUS_SUCCESS; },
};

void attach()
{
    static plat_callouts co = plat_linux_co;
    co.nanosleep = [](const timespec*, timespec*) { return 0; };
    co.timer_create = [](clockid_t, sigevent*, timer_t*) { return 0; };
    co.timer_settime = [](timer_t, int, const itimerspec*, itimerspec*) { return 0; };
    plat_attach(&co);
}

void walk(bytes_view bytes, bytes_view replies)
{
    static dal_link link;
    static const std::uint32_t guard = phOsalNfc_Timer_Create();
    auto firmware = container_read(bytes);
    if (!firmware)
        return;
    for (const std::uint32_t address : {CHECKED_800000, CHECKED_18800, CHECKED_8200})
        if (container_check_value(*firmware, address).size() > 4)
            std::abort();
    download d;
    d.p_link = &link;
    d.p_ops = &operations;
    d.guard = guard;
    d.firmware = std::move(*firmware);
    d.raw.at = d.firmware.raw_at;
    for (int i = 0; i < most_exchanges; i++) {
        const int result = d.firmware.raw ? phDnldNfc_Raw_Write(d) : phDnldNfc_Resume_Write(d);
        if (result != NFCSTATUS_PENDING)
            return;
        // A reply as long as was asked for, of what is left; nothing left is a good one.
        std::vector<std::uint8_t> reply(std::max(d.expected, REPLY_HEAD));
        const std::size_t n = std::min(replies.size(), reply.size());
        std::copy_n(replies.begin(), n, reply.begin());
        replies = replies.subspan(n);
        if (judge_reply(d, reply) != 0 && d.strikes >= 2)
            return;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool attached = (attach(), true);
    if (!attached || size < 2)
        return 0;
    const std::size_t share = (size - 1) * data[0] / 255;
    const std::vector<std::uint8_t> bytes(data + 1, data + 1 + share);
    walk(bytes, bytes_view(data + 1 + share, size - 1 - share));
    return 0;
}
