// The radio functions of `nfrf`: parameters, registers and the two polling series, which show their progress
// on the green and the red LED.
#pragma once

#include <cstddef>
#include <cstdint>

namespace qxr5170jvk {

// As nfc_rf_func. `*p_pipe` is the number of the open pipe; a polling series through it leaves none open.
int rf_func(const std::uint16_t* values, std::size_t count, unsigned* p_pipe, std::uint8_t* out,
            std::uint8_t* p_outlen);

} // namespace qxr5170jvk
