#include "pbuf/pbuf.h"

#include "check/check.h"

#include <cctype>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

// Bytes of a number field; 0 for a letter that is none.
std::size_t number_size(char letter)
{
    switch (letter) {
    case 'b':
    case 'B':
        return 1;
    case 'h':
    case 'H':
        return 2;
    case 'w':
    case 'W':
        return 4;
    default:
        return 0;
    }
}

bool high_first(char letter)
{
    return std::isupper(static_cast<unsigned char>(letter)) != 0;
}

// What shifts byte `i` of a number of `size` bytes into its place.
unsigned shift_of(std::size_t i, std::size_t size, char letter)
{
    return 8U * static_cast<unsigned>(high_first(letter) ? size - 1 - i : i);
}

void store(void* p_dst, std::uint32_t value, std::size_t size)
{
    const auto byte = static_cast<std::uint8_t>(value);
    const auto half = static_cast<std::uint16_t>(value);
    if (size == 1)
        std::memcpy(p_dst, &byte, sizeof byte);
    else if (size == 2)
        std::memcpy(p_dst, &half, sizeof half);
    else
        std::memcpy(p_dst, &value, sizeof value);
}

} // namespace

int pbuf_pack(void* p_buf, const char* fmt, ...)
{
    auto* p = static_cast<std::uint8_t*>(p_buf);
    std::size_t count = 0;
    bool known = true;
    std::va_list args;
    va_start(args, fmt);
    for (; *fmt && known; fmt++) {
        if (const std::size_t size = number_size(*fmt)) {
            const auto value = static_cast<std::uint32_t>(va_arg(args, unsigned));
            for (std::size_t i = 0; i < size; i++)
                *p++ = static_cast<std::uint8_t>(value >> shift_of(i, size, *fmt));
        } else if (*fmt == 's' || *fmt == 'S') {
            count = va_arg(args, unsigned);
        } else if (*fmt == 'd' || *fmt == 'D') {
            HVT_CHECK(count != 0);
            std::memcpy(p, va_arg(args, const void*), count);
            p += count;
            count = 0;
        } else {
            known = false;
        }
    }
    va_end(args);
    return known ? static_cast<int>(p - static_cast<std::uint8_t*>(p_buf)) : -1;
}

int pbuf_unpack(const void* p_buf, const char* fmt, ...)
{
    const auto* p = static_cast<const std::uint8_t*>(p_buf);
    std::size_t count = 0;
    bool known = true;
    std::va_list args;
    va_start(args, fmt);
    for (; *fmt && known; fmt++) {
        if (const std::size_t size = number_size(*fmt)) {
            std::uint32_t value = 0;
            for (std::size_t i = 0; i < size; i++)
                value |= std::uint32_t{*p++} << shift_of(i, size, *fmt);
            store(va_arg(args, void*), value, size);
        } else if (*fmt == 's' || *fmt == 'S') {
            count = va_arg(args, unsigned);
        } else if (*fmt == 'd' || *fmt == 'D') {
            HVT_CHECK(count != 0);
            std::memcpy(va_arg(args, void*), p, count);
            p += count;
            count = 0;
        } else {
            known = false;
        }
    }
    va_end(args);
    return known ? static_cast<int>(p - static_cast<const std::uint8_t*>(p_buf)) : -1;
}
