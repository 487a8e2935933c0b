// Sending the frames of a raw container, as they stand in it.
#include <algorithm>

#include "dnld.h"
#include "tmr/tmr.h"

namespace pn65_dnld {

namespace {

constexpr std::size_t MOST_PIECE = 509;
constexpr std::uint8_t GROUP_BITS = 0xF0;
constexpr std::uint8_t GROUP_END = 14;

std::size_t check_reply_size(bytes_view frame)
{
    constexpr std::size_t KIND_AT = 3;
    constexpr std::size_t sizes[] = {6, 6, 8, 8};
    constexpr std::size_t all = 19;
    if (frame.size() <= KIND_AT || frame[KIND_AT] >= std::size(sizes))
        return all;
    return sizes[frame[KIND_AT]];
}

int send_as_it_is(download& d, bytes_view frame, std::size_t expected)
{
    d.last_command = frame[0];
    d.expected = expected;
    return phDnldNfc_Send(d, frame);
}

// A frame that is too long for one goes in pieces.
int send_write_12(download& d, bytes_view frame)
{
    raw_state& raw = d.raw;
    raw.piece = std::min(frame.size() - raw.sent, MOST_PIECE);
    if (frame.size() <= MOST_PIECE)
        return send_as_it_is(d, frame, REPLY_HEAD);
    return phDnldNfc_Send_Command(d, CMD_PIECE, frame.subspan(raw.sent, raw.piece));
}

int phDnldNfc_Send_Raw(download& d)
{
    const bytes_view frame = d.raw.current->frame;
    d.raw.piece = frame.size();
    switch (frame[0]) {
    case CMD_RESET:
    case CMD_RESET_66:
        tmr_usleep(RESET_US);
        return send_as_it_is(d, frame, 0);
    case CMD_6:
    case CMD_WRITE:
    case CMD_9:
    case CMD_PREPARATION:
        return send_as_it_is(d, frame, REPLY_HEAD);
    case CMD_READ:
        return send_as_it_is(d, frame, 0);
    case CMD_CHECK:
        return send_as_it_is(d, frame, check_reply_size(frame));
    case CMD_WRITE_12:
        return send_write_12(d, frame);
    default:
        return DNLD_BAD_FRAME;
    }
}

// The last record of a group ends it.
void leave(raw_state& raw, std::uint8_t type)
{
    if ((type & ~GROUP_BITS) == GROUP_END)
        raw.mask &= static_cast<std::uint8_t>(~(type & GROUP_BITS));
}

bool is_sent(const raw_state& raw, const raw_record& r)
{
    return r.selector >= 1 && r.selector <= 254 && (raw.mask & r.type & GROUP_BITS) != 0;
}

// Whether the frame that was sent has to be sent again, or has more pieces.
bool is_repeated(const download& d)
{
    const raw_state& raw = d.raw;
    return raw.current && !raw.abandoned && (d.struck || raw.sent < raw.current->frame.size());
}

} // namespace

int phDnldNfc_Raw_Write(download& d)
{
    raw_state& raw = d.raw;
    if (raw.current && !d.struck) {
        raw.sent += raw.piece;
        raw.retries = 0;
    }
    if (is_repeated(d))
        return d.struck && ++raw.retries == MOST_RETRIES ? DNLD_TOO_MANY_RETRIES : phDnldNfc_Send_Raw(d);
    if (raw.current)
        leave(raw, raw.current->type);
    while (raw.mask != 0) {
        raw.current = container_raw(d.firmware.all, &raw.at);
        raw.sent = 0;
        raw.abandoned = false;
        if (!raw.current)
            return DNLD_BAD_CONTAINER;
        if (is_sent(raw, *raw.current))
            return phDnldNfc_Send_Raw(d);
        leave(raw, raw.current->type);
    }
    return NFCSTATUS_SUCCESS;
}

} // namespace pn65_dnld
