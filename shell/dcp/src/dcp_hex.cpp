// Data as hexadecimal text.
#include "dcp/dcp.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace {

constexpr std::size_t ROW_BYTES = 16;

// Room for a row: "0x%08x:" and sixteen items of three characters, a blank and sixteen characters.
constexpr std::size_t MAX_ROW = 80;
constexpr std::size_t MAX_ITEM = 10; // "0x%08x"

// Bytes 0x80 to 0xFF as characters of Latin-1; the station's data come in the code page of a PC.
// clang-format off
constexpr unsigned char high_half[128] = {
    0xc7, 0xfc, 0xe9, 0xe2, 0xe4, 0xe0, 0xe5, 0xe7, 0xea, 0xeb, 0xe8, 0xef, 0xee, 0xec, 0xc4, 0xc5,
    0xc9, 0xe6, 0xc6, 0xf4, 0xf6, 0xf2, 0xfb, 0xf9, 0xff, 0xd6, 0xdc, 0xa2, 0xa3, 0xa5, 0x50, 0x83,
    0xe1, 0xed, 0xf3, 0xfa, 0xf1, 0xd1, 0xaa, 0xba, 0xbf, 0xac, 0xac, 0xbd, 0xbc, 0xa1, 0xab, 0xbb,
    0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e,
    0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e,
    0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e, 0x2e,
    0x61, 0xdf, 0x47, 0x70, 0x53, 0x73, 0xb5, 0x74, 0x46, 0x54, 0x4f, 0x64, 0x38, 0x66, 0x65, 0x6e,
    0x3d, 0xb1, 0x3d, 0x3d, 0x28, 0x29, 0xf7, 0x98, 0xb0, 0xb7, 0xb7, 0x76, 0x6e, 0xb2, 0xa6, 0x2e,
};
// clang-format on

constexpr std::array<char, 256> printable = [] {
    std::array<char, 256> tab{};
    for (unsigned c = 0; c < 256; c++)
        tab[c] = static_cast<char>(c >= 0x80 ? high_half[c - 0x80] : c < 0x20 || c == 0x7F ? '.' : c);
    return tab;
}();

std::uint32_t item_at(const unsigned char* p_data, std::size_t width)
{
    std::uint32_t word = 0;
    std::uint16_t half = 0;
    if (width == 4) {
        std::memcpy(&word, p_data, sizeof word);
        return word;
    }
    if (width == 2) {
        std::memcpy(&half, p_data, sizeof half);
        return half;
    }
    return *p_data;
}

// An item as text, with its prefix by width; gives its characters.
std::size_t put_item(char* p_txt, std::size_t room, const unsigned char* p_data, std::size_t width)
{
    const std::uint32_t item = item_at(p_data, width);
    int n;
    if (width == 4)
        n = std::snprintf(p_txt, room, "0x%08x", item);
    else if (width == 2)
        n = std::snprintf(p_txt, room, "0x%04x", item);
    else
        n = std::snprintf(p_txt, room, "%02x", item);
    return static_cast<std::size_t>(n);
}

// The items of a row, and behind bytes their characters.
void put_items(char* p_txt, std::size_t room, const unsigned char* p_data, std::size_t width,
               std::size_t bytes)
{
    std::size_t n = 0;
    for (std::size_t i = 0; i < bytes; i += width) {
        p_txt[n++] = ' ';
        n += put_item(p_txt + n, room - n, p_data + i, width);
    }
    if (width != 1)
        return;
    p_txt[n++] = ' ';
    for (std::size_t i = 0; i < bytes; i++)
        p_txt[n++] = printable[p_data[i]];
    p_txt[n] = 0;
}

unsigned known_width(unsigned width)
{
    return width == 2 || width == 4 ? width : 1;
}

} // namespace

void dcp_hex_dspl(int id, std::uint32_t addr, const void* p_data, unsigned width, std::size_t size)
{
    const auto* p = static_cast<const unsigned char*>(p_data);
    width = known_width(width);
    for (std::size_t left = size / width * width; left > 0;) {
        const std::size_t bytes = std::min(left, ROW_BYTES);
        char txt[MAX_ROW];
        const int n = std::snprintf(txt, sizeof txt, "0x%08x:", addr);
        put_items(txt + n, sizeof txt - static_cast<std::size_t>(n), p, width, bytes);
        dcp_resp_dspl(id, DCP_DSPL_LINE, 1, txt);
        addr += static_cast<std::uint32_t>(bytes);
        p += bytes;
        left -= bytes;
    }
}

void dcp_hex_dump(int id, char sep, const void* p_data, unsigned width, std::size_t size)
{
    const auto* p = static_cast<const unsigned char*>(p_data);
    width = known_width(width);
    for (std::size_t i = 0; i < size / width; i++, p += width) {
        char txt[MAX_ITEM + 2];
        const std::size_t n = put_item(txt, sizeof txt, p, width);
        txt[n] = sep;
        txt[n + 1] = 0;
        dcp_resp_dspl(id, DCP_DSPL_DUMP, 1, txt);
    }
}
