// Small text services of the virtual phone: numbers as the control port takes them, words, escapes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace phone {

// A whole number: decimal, or hexadecimal behind 0x; a minus sign is allowed. Nothing when `text` is
// anything else or doesn't fit.
std::optional<std::int64_t> number(std::string_view text);

// A whole hexadecimal number of at most 64 bits, with or without 0x.
std::optional<std::uint64_t> hex_number(std::string_view text);

// Bytes written as an even count of hexadecimal digits, with or without 0x.
std::optional<std::vector<std::uint8_t>> hex_bytes(std::string_view text);
std::string to_hex(const void* p_data, std::size_t size); // upper case

// The words between blanks and tabs.
std::vector<std::string> words(std::string_view line);

std::vector<std::string_view> split(std::string_view text, char separator);

// Control characters, backslashes and bytes above 0x7E as \r \n \t \\ \xNN, so that any bytes fit a line.
std::string escaped(std::string_view bytes);

std::string_view trimmed(std::string_view text);

} // namespace phone
