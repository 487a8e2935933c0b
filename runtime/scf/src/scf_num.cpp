#include "scf/scf.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr char digit_lc[] = "0123456789abcdef";
constexpr char digit_uc[] = "0123456789ABCDEF";

constexpr std::uint8_t PREFIX_X = 0xFE;
constexpr std::uint8_t NO_DIGIT = 0xFF;

// What a character is in a number: a digit's value, the prefix letter, or the end.
constexpr std::array<std::uint8_t, 256> digit_of = [] {
    std::array<std::uint8_t, 256> tab{};
    tab.fill(NO_DIGIT);
    for (unsigned n = 0; n < 16; n++) {
        tab[static_cast<unsigned char>(digit_lc[n])] = static_cast<std::uint8_t>(n);
        tab[static_cast<unsigned char>(digit_uc[n])] = static_cast<std::uint8_t>(n);
    }
    tab['x'] = tab['X'] = PREFIX_X;
    return tab;
}();

template <class T>
int str_to_ints(T* p_dst, int count, const char* text, unsigned radix)
{
    int stored = 0;
    while (stored < count && *text) {
        p_dst[stored++] = static_cast<T>(scf_ascii_to_bin(&text, radix));
        if (*text)
            text++;
    }
    return stored;
}

// Little-endian or not, an item is a number in this machine's byte order.
std::uint64_t item_at(const std::uint8_t* p_src, int width)
{
    std::uint16_t half;
    std::uint32_t word;
    std::uint64_t both;
    switch (width) {
    case 2:
        std::memcpy(&half, p_src, sizeof half);
        return half;
    case 4:
        std::memcpy(&word, p_src, sizeof word);
        return word;
    case 8:
        std::memcpy(&both, p_src, sizeof both);
        return both;
    default:
        return *p_src;
    }
}

int bin_to_hex(char* p_dst, int size, const void* p_src, int count, int width, char sep, bool prefix)
{
    const auto* p_item = static_cast<const std::uint8_t*>(p_src);
    int written = 0;
    for (int i = 0; i < count; i++, p_item += width) {
        if (size - written < 2 * width + 3) {
            if (written > 0)
                p_dst[written - 1] = 0;
            else if (size > 0)
                p_dst[0] = 0;
            return written;
        }
        if (prefix) {
            p_dst[written++] = '0';
            p_dst[written++] = 'x';
        }
        const std::uint64_t item = item_at(p_item, width);
        for (int shift = 8 * width - 4; shift >= 0; shift -= 4)
            p_dst[written++] = digit_lc[item >> shift & 15];
        if (sep && i + 1 < count)
            p_dst[written++] = sep;
    }
    if (size > 0)
        p_dst[written] = 0;
    return written;
}

} // namespace

char slo_digit_lc(unsigned n)
{
    return digit_lc[n & 15];
}

char slo_digit_uc(unsigned n)
{
    return digit_uc[n & 15];
}

std::int32_t scf_ascii_to_bin(const char** pp, unsigned radix)
{
    const char* s = *pp;
    const bool negative = *s == '-';
    if (negative)
        s++;
    std::uint32_t value = 0;
    for (;; s++) {
        const unsigned digit = digit_of[static_cast<unsigned char>(*s)];
        if (digit < radix) {
            value = value * radix + digit;
        } else if (digit == PREFIX_X) {
            value = 0;
            radix = 16;
        } else {
            break;
        }
    }
    *pp = s;
    return static_cast<std::int32_t>(negative ? 0U - value : value);
}

std::int32_t scf_ascii_to_fixedpoint(const char** pp, std::int32_t scale)
{
    // Ten digits behind the point are more than any scale of 32 bits can show: the rest would only be cut.
    constexpr std::uint64_t FINEST = 10'000'000'000;
    const char* s = *pp;
    const bool negative = *s == '-';
    if (negative)
        s++;
    std::uint64_t n = 0;
    std::uint64_t d = 0; // 0: no point so far
    for (;; s++) {
        if (*s == '.') {
            d = 1;
        } else if (*s < '0' || *s > '9') {
            break;
        } else if (d < FINEST) {
            n = n * 10 + static_cast<unsigned>(*s - '0');
            d *= 10;
        }
    }
    *pp = s;
    const auto by = static_cast<std::uint64_t>(scale);
    const std::uint64_t value = d == 0 ? by * n : n / d * by + n % d * by / d;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(negative ? 0U - value : value));
}

int scf_str_to_uint8(std::uint8_t* p_dst, int count, const char* text, unsigned radix)
{
    return str_to_ints(p_dst, count, text, radix);
}

int scf_str_to_uint16(std::uint16_t* p_dst, int count, const char* text, unsigned radix)
{
    return str_to_ints(p_dst, count, text, radix);
}

int scf_str_to_int32(std::int32_t* p_dst, int count, const char* text, unsigned radix)
{
    return str_to_ints(p_dst, count, text, radix);
}

char* scf_uint_to_ascii(char* p_dst, std::uint32_t value, unsigned radix)
{
    char* p_end = p_dst;
    do {
        *p_end++ = digit_lc[value % radix & 15];
        value /= radix;
    } while (value);
    std::reverse(p_dst, p_end);
    *p_end = 0;
    return p_end;
}

char* scf_sint_to_ascii(char* p_dst, std::int32_t value, unsigned radix)
{
    auto magnitude = static_cast<std::uint32_t>(value);
    if (value < 0) {
        *p_dst++ = '-';
        magnitude = 0U - magnitude;
    }
    return scf_uint_to_ascii(p_dst, magnitude, radix);
}

int scf_bin_to_ascii(char* p_dst, const void* p_src, int count, char sep)
{
    const auto* p_byte = static_cast<const std::uint8_t*>(p_src);
    char* p = p_dst;
    for (int i = 0; i < count; i++) {
        if (sep && i > 0)
            *p++ = sep;
        *p++ = digit_uc[p_byte[i] >> 4];
        *p++ = digit_uc[p_byte[i] & 15];
    }
    *p = 0;
    return static_cast<int>(p - p_dst);
}

int scf_bin_to_hex(char* p_dst, int size, const void* p_src, int count)
{
    return bin_to_hex(p_dst, size, p_src, count, 1, 0, false);
}

int scf_bin_to_hexstr(char* p_dst, int size, const void* p_src, int count, int width, char sep)
{
    return bin_to_hex(p_dst, size, p_src, count, width, sep, true);
}
