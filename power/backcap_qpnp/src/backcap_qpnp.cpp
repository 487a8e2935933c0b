#include "backcap_qpnp/backcap_qpnp.h"

#include <iterator>

#include "backcap/backcap.h"
#include "spmi/spmi.h"

namespace {

constexpr unsigned BUS = 0;
constexpr std::uint32_t REG_MODE = 0x02845;
constexpr std::uint8_t MODE_MASK = 0x03;
constexpr std::uint8_t mode_bits[] = {0x00, 0x02}; // by mode

int backcap_qpnp_set_mode(int mode)
{
    if (mode < 0 || mode >= static_cast<int>(std::size(mode_bits)))
        return 0;
    return spmi_masked_write(BUS, MODE_MASK, REG_MODE, mode_bits[mode], 1);
}

constexpr backcap_co backcap_qpnp_co = {
    .set_mode = backcap_qpnp_set_mode,
};

} // namespace

void backcap_qpnp_init()
{
    backcap_co_attach(&backcap_qpnp_co);
}
