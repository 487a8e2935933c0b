// Numbers in the kernel's test attributes: a list of bytes on one line, or one number alone. Decimal, and
// hexadecimal behind 0x. Not for texts (attr) and not for what a station sends (scf). Keeps no state.
#pragma once

#include <cstddef>
#include <cstdint>

// Longer lines are read to here.
constexpr std::size_t ATTR_NUM_LINE = 2048;

// Reads the list "RESULT BYTE BYTE ..." of the attribute into at most `size` bytes; what it has too many is
// ignored, and where it has too few the rest of `p_bytes` stays. 0, or -1 when it can't be read, the result
// is negative or missing, or what stands there isn't a byte: then the bytes in front of that are stored. A
// line that is too long is a failure only if the bytes asked for don't stand in what was read of it.
int attr_num_bytes(const char* path, std::uint8_t* p_bytes, std::size_t size);

// Reads the number that the attribute's last line begins with. True, or false with `*p_value` as it was.
bool attr_num_last(const char* path, int* p_value);
