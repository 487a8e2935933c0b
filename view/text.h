// Texts on their way to a browser, which closes a connection at the first byte that isn't UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace view {

// From `at` to the end, each byte that is no part of a character becomes '?'.
void text_make_utf8(std::vector<std::uint8_t>& bytes, std::size_t at);

} // namespace view
