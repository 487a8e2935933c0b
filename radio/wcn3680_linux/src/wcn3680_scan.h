// What the scanning tools print, taken apart. Text of any sort and length is bounded by the room; no state.
#pragma once

#include <cstddef>
#include <string_view>

// The second word of the output, words being what stands between white space. False when there are fewer, or
// the room is too small for it.
bool wcn3680_scan_second_word(std::string_view output, char* p_text, std::size_t room);

// The first word of each line but the first, which is the tool's heading, with "," between them: at most
// `most` of those that are no longer than an address. An empty text when there is none.
void wcn3680_scan_addresses(std::string_view output, std::size_t most, char* p_text, std::size_t room);
