// What the chip's replies mean.
#include <algorithm>

#include "dnld.h"

namespace pn65_dnld {

namespace {

constexpr int MOST_STRIKES = 2;
constexpr std::uint8_t GROUP_BITS = 0xF0;

bool is_write(std::uint8_t command)
{
    return command == CMD_WRITE || command == CMD_WRITE_12 || command == CMD_PIECE;
}

int strike_out(download& d, int error)
{
    d.strikes = MOST_STRIKES;
    d.struck = true;
    return error;
}

void strike(download& d)
{
    d.strikes = std::min(d.strikes + 1, MOST_STRIKES);
    d.struck = true;
}

int accept(download& d, std::span<const std::uint8_t> reply)
{
    const auto length = static_cast<std::size_t>(reply[1] << 8 | reply[2]);
    const auto data = reply.subspan(REPLY_HEAD);
    d.accepted = true;
    if (d.last_command == CMD_READ) {
        if (length != data.size()) {
            d.accepted = false;
            return strike_out(d, DNLD_BAD_LENGTH);
        }
        d.data.assign(data.begin(), data.end());
        return 0;
    }
    if (d.last_command == CMD_CHECK) {
        d.check_data.assign(data.begin(), data.end());
        return 0;
    }
    if (is_write(d.last_command)) {
        d.strikes = 0;
        return 0;
    }
    return length == 0 ? 0 : DNLD_BAD_LENGTH;
}

// The chip wants none of this group's frames. Where there is another group the walk goes on with it.
int drop_group(download& d)
{
    raw_state& raw = d.raw;
    const int bits = raw.current ? raw.current->type & GROUP_BITS : 0;
    const int left = raw.mask & ~bits;
    if (!d.firmware.raw || left == 0)
        return strike_out(d, DNLD_NO_GROUP);
    raw.mask = static_cast<std::uint8_t>(left);
    raw.abandoned = true;
    return 0;
}

} // namespace

int judge_reply(download& d, std::span<const std::uint8_t> reply)
{
    const std::uint8_t status = reply[0];
    d.struck = false;
    d.accepted = false;
    d.data.clear();
    switch (status) {
    case 0:
        return accept(d, reply);
    case 1:
    case 2:
    case 116:
        strike(d);
        return DNLD_STATUS + status;
    case 33:
        d.strikes = 0;
        return 0;
    case 230:
        strike(d);
        d.raw.sent = 0;
        return 0;
    case 8:
    case 17:
    case 24:
    case 32:
        return strike_out(d, DNLD_STATUS + status);
    case 11:
    case 19:
    case 25:
    case 29:
        return drop_group(d);
    default:
        return strike_out(d, DNLD_BAD_STATUS);
    }
}

} // namespace pn65_dnld
