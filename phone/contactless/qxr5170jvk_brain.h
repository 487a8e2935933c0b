// What the second contactless chip answers: the commands of its native personality and the HCI bytes of the
// other one, with its parameters, registers and pipes. Knows no frames and no time; its caller guards it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/control.h"

namespace phone {

// The answer to a command; nothing when the chip says no more than that it heard.
struct native_answer {
    std::optional<std::vector<std::uint8_t>> bytes;
    int speed = 0; // that holds from behind the answer on, 0 for no change
};

// `speed` is the chip's own now.
native_answer qxr5170jvk_native(std::span<const std::uint8_t> command, int speed);

std::optional<std::vector<std::uint8_t>> qxr5170jvk_hci(std::span<const std::uint8_t> bytes);

// Forgets all pipes that were created.
void qxr5170jvk_forget_pipes();

// The words `tamiro reg REG [VAL]` and `tamiro block [BYTES]`.
std::string qxr5170jvk_word_reg(request& rq);
std::string qxr5170jvk_word_block(request& rq);

} // namespace phone
