#include "view/text.h"

namespace view {

namespace {

// The length of the character at `at`, or 0 when there is none.
std::size_t character(const std::vector<std::uint8_t>& b, std::size_t at)
{
    const std::uint8_t head = b[at];
    const std::size_t length = head < 0x80   ? 1
                               : head < 0xC2 ? 0
                               : head < 0xE0 ? 2
                               : head < 0xF0 ? 3
                               : head < 0xF5 ? 4
                                             : 0;
    if (length == 0 || at + length > b.size())
        return 0;
    for (std::size_t i = 1; i < length; i++)
        if ((b[at + i] & 0xC0) != 0x80)
            return 0;
    // Longer than needed, half a pair of UTF-16, or beyond the last character.
    const bool wrong = (head == 0xE0 && b[at + 1] < 0xA0) || (head == 0xED && b[at + 1] > 0x9F) ||
                       (head == 0xF0 && b[at + 1] < 0x90) || (head == 0xF4 && b[at + 1] > 0x8F);
    return wrong ? 0 : length;
}

} // namespace

void text_make_utf8(std::vector<std::uint8_t>& bytes, std::size_t at)
{
    while (at < bytes.size()) {
        const std::size_t length = character(bytes, at);
        if (length == 0)
            bytes[at] = '?';
        at += length == 0 ? 1 : length;
    }
}

} // namespace view
