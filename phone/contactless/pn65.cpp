// PN65, the contactless chip: it has frames, not registers, and answers only while its enable line holds it
// up. With no frame to give it doesn't acknowledge a reading. The second bus is the one for its firmware.
#include "board/chips.h"

namespace phone {

namespace {

constexpr supply_line supply[] = {{558, 0}}; // the enable line of the power chip, inverted on its way

bool take(chip&, std::span<const std::uint8_t>)
{
    return true;
}

bool give(chip&, std::span<std::uint8_t>)
{
    return false;
}

} // namespace

constinit const chip_model pn65 = {
    .name = "pn65", .bus = 2, .addr = 0x28, .regs = {}, .supply = supply, .take = take, .give = give};
constinit const chip_model pn65_download = {.name = "pn65 download",
                                            .bus = 10,
                                            .addr = 0x28,
                                            .regs = {},
                                            .supply = supply,
                                            .take = take,
                                            .give = give};

} // namespace phone
