#include "sensors/byte_latch.h"

namespace phone {

std::uint8_t byte_latch::low(std::uint16_t now)
{
    last = now;
    return static_cast<std::uint8_t>(now);
}

std::uint8_t byte_latch::high(std::uint16_t now) const
{
    return static_cast<std::uint8_t>((keeps ? kept : now) >> 8);
}

void byte_latch::keep()
{
    kept = last;
    keeps = true;
}

void byte_latch::release()
{
    keeps = false;
}

} // namespace phone
